// Keywords: construction, deep copies and parameter access.
#include "inp_Keyword.h"

#include "inp_KeywordTable.h"
#include "thr_ThreadSingleton.h"

inp_Keyword::inp_Keyword() : inp_Keyword(static_cast<inp_KeywordEnm>(0)) {}

inp_Keyword::inp_Keyword(const cow_String& name)
    : inp_Keyword(thr_ThreadSingleton<inp_KeywordTable>::Instance().Enum(name)) {}

inp_Keyword::inp_Keyword(const inp_KeywordEnm& value) : inp_Keyword(value, cow_String()) {}

inp_Keyword::inp_Keyword(const inp_KeywordEnm& value, const cow_String& file)
    : keyword(value),
      parent(static_cast<inp_KeywordEnm>(0)),
      data(new inp_RawDataArrayImpl()),
      fileName(file),
      lineNumber(0) {}

inp_Keyword inp_Keyword::DeepCopy() const {
    inp_Keyword copy(keyword, fileName);
    copy.parent = parent;
    copy.lineNumber = lineNumber;
    copy.parameters = parameters;
    copy.data = inp_DataArray(data.Clone());
    for (int i = 0; i < suboptions.Count(); ++i) copy.suboptions.Append(suboptions[i].DeepCopy());
    return copy;
}

cow_String inp_Keyword::Name() const { return thr_ThreadSingleton<inp_KeywordTable>::Instance().Name(keyword); }

bool inp_Keyword::HasParameter(const cow_String& name) const { return parameters.IsMember(name); }

bool inp_Keyword::hasSuboption(const inp_KeywordEnm& value) const { return FindSuboption(value) != nullptr; }

const inp_Keyword* inp_Keyword::FindSuboption(const inp_KeywordEnm& value) const {
    for (int i = suboptions.Count() - 1; i >= 0; --i)
        if (suboptions[i].keyword == value) return &suboptions[i];
    return nullptr;
}

int inp_Keyword::GetParameterAsInt(const cow_String& name, int defaultValue) const {
    const inp_Item* item = parameters.Lookup(name);
    return item && item->type == inp_Types::typeInt ? item->intValue : defaultValue;
}

double inp_Keyword::GetParameterAsDouble(const cow_String& name, double defaultValue) const {
    const inp_Item* item = parameters.Lookup(name);
    if (!item) return defaultValue;
    if (item->type == inp_Types::typeDouble) return item->doubleValue;
    if (item->type == inp_Types::typeInt) return item->intValue;
    return defaultValue;
}

cow_String inp_Keyword::GetParameterAsString(const cow_String& name, const cow_String& defaultValue) const {
    const inp_Item* item = parameters.Lookup(name);
    return item && item->type == inp_Types::typeString ? item->stringValue : defaultValue;
}
