// The operations that read and write references; the per-keyword rows that use them
// are in inp_SetFixupKeywords.cpp.
#include "inp_SetFixupVisitor.h"

#include "inp_Item.h"
#include "inp_Types.h"
#include "inp_Utils.h"
#include "nex_Exception.h"

inp_SetFixupVisitor::inp_SetFixupVisitor(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets,
                                         const inpM_IdMap& nodeIds, const inpM_IdMap& elementIds,
                                         const inp_ModelParameters& parameters)
    : nodeSets(nodeSets), elementSets(elementSets), nodeIds(nodeIds), elementIds(elementIds),
      modelParameters(parameters) {}

inp_SetFixupVisitor::~inp_SetFixupVisitor() = default;

cow_String inp_SetFixupVisitor::SetTypeEnm2String(inp_SetType type) const {
    switch (type) {
        case inp_ElementSet:
            return cow_String("element ");
        case inp_NodeSet:
            return cow_String("node ");
        default:
            return cow_String();
    }
}

void inp_SetFixupVisitor::DefaultAction(inp_Keyword&) {}

int inp_SetFixupVisitor::NumberOfLines(const inp_Keyword& keyword) {
    return keyword.data.HasValue() ? keyword.data.NumberOfLines() : 0;
}

void inp_SetFixupVisitor::AddWarning(const inp_Keyword& keyword, const atr_String& text) {
    warnings.Append(inp_Utils::MessageInKeyword(keyword, text));
}

void inp_SetFixupVisitor::ReplaceNodeOrNsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride) {
    ReplaceIdOrSetData(keyword, columns, nodeSets, nodeIds, stride, inp_NodeSet);
}

void inp_SetFixupVisitor::ReplaceNodeOrNsetAllData(inp_Keyword& keyword) {
    ReplaceIdOrSetAllData(keyword, nodeSets, nodeIds);
}

void inp_SetFixupVisitor::ReplaceElementOrElsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride) {
    ReplaceIdOrSetData(keyword, columns, elementSets, elementIds, stride, inp_ElementSet);
}

void inp_SetFixupVisitor::ReplaceElementOrElsetAllData(inp_Keyword& keyword) {
    ReplaceIdOrSetAllData(keyword, elementSets, elementIds);
}

void inp_SetFixupVisitor::ReplaceNodeOrNsetParameter(inp_Keyword& keyword, const cow_String& parameter) {
    try {
        ReplaceIdOrSetParameter(keyword, parameter, nodeSets, nodeIds);
    } catch (const nex_TextException& e) {
        AddWarning(keyword, e.UserReport());
    }
}

void inp_SetFixupVisitor::ReplaceElementOrElsetParameter(inp_Keyword& keyword, const cow_String& parameter) {
    try {
        ReplaceIdOrSetParameter(keyword, parameter, elementSets, elementIds);
    } catch (const nex_TextException& e) {
        AddWarning(keyword, e.UserReport());
    }
}

void inp_SetFixupVisitor::ReplaceIdSingleDatum(inp_Keyword& keyword, int line, int column, const inpM_SetMap& sets,
                                               const inpM_IdMap& ids) {
    ReplaceSingleDatum(keyword, line, column, sets, ids, true);
}

void inp_SetFixupVisitor::ReplaceIdOrSetSingleDatum(inp_Keyword& keyword, int line, int column,
                                                    const inpM_SetMap& sets, const inpM_IdMap& ids) {
    ReplaceSingleDatum(keyword, line, column, sets, ids, false);
}

void inp_SetFixupVisitor::ReplaceSingleDatum(inp_Keyword& keyword, int line, int column, const inpM_SetMap& sets,
                                             const inpM_IdMap& ids, bool idsOnly) {
    if (line < 0 || line >= NumberOfLines(keyword) || column < 0 || column >= keyword.data.NumberOfItems(line))
        return;
    try {
        const cow_String item = keyword.data.AsString(line, column);
        if (idsOnly) {
            // A scoped id is an id by its last segment; anything else is judged whole.
            cow_String tested = item;
            cow_List<cow_String> segments = inp_Utils::SplitScopedSet(item);
            if (segments.Count() > 1 && inp_Types::MatchInteger(segments.Last())) tested = segments.Last();
            if (inp_Item(tested).type != inp_Types::typeInt) return;
        }
        keyword.data.Set(line, column,
                         ReplaceReference(keyword, item, sets, ids, assemblyName, instanceName, partName, inp_AnySet));
    } catch (const nex_TextException& e) {
        AddWarning(keyword, e.UserReport());
    }
}

void inp_SetFixupVisitor::ReplaceIdOrSetData(inp_Keyword& keyword, const cow_List<int>& columns,
                                             const inpM_SetMap& sets, const inpM_IdMap& ids, int stride,
                                             inp_SetType type) {
    ReplaceItems(keyword, sets, ids, &columns, stride, type);
}

void inp_SetFixupVisitor::ReplaceIdOrSetAllData(inp_Keyword& keyword, const inpM_SetMap& sets,
                                                const inpM_IdMap& ids) {
    ReplaceItems(keyword, sets, ids, nullptr, 1, inp_AnySet);
}

void inp_SetFixupVisitor::ReplaceItems(inp_Keyword& keyword, const inpM_SetMap& sets, const inpM_IdMap& ids,
                                       const cow_List<int>* columns, int stride, inp_SetType type) {
    if (stride < 1) stride = 1;
    inp_DataArray& data = keyword.data;
    try {
        const long long lines = NumberOfLines(keyword);
        for (long long selected = 0; selected < lines; selected += stride) {
            const int line = static_cast<int>(selected);
            for (int column = 0; column < data.NumberOfItems(line); ++column) {
                if (columns ? !columns->IsMember(column) : data.IsBlank(line, column)) continue;
                const cow_String item = data.AsString(line, column);
                data.Set(line, column,
                         ReplaceReference(keyword, item, sets, ids, assemblyName, instanceName, partName, type));
            }
        }
    } catch (const nex_TextException& e) {
        AddWarning(keyword, e.UserReport());
    }
}

void inp_SetFixupVisitor::ReplaceIdOrSetParameter(inp_Keyword& keyword, const cow_String& parameter,
                                                  const inpM_SetMap& sets, const inpM_IdMap& ids) {
    const inp_Item* item = keyword.parameters.Lookup(parameter);
    if (!item) return;
    const cow_String reference = item->AsString();
    // Typed afresh: a name that became digits is an integer item from now on.
    keyword.parameters.Insert(parameter, inp_Item(ReplaceReference(keyword, reference, sets, ids, assemblyName,
                                                                   instanceName, partName, inp_AnySet)));
}

// ReplaceReference may write to the keyword it is given; these callers only read
// theirs, and every keyword they are called with is a writable one of the walk.
cow_String inp_SetFixupVisitor::ReplaceNodeOrNset(const inp_Keyword& keyword, const cow_String& reference) {
    return ReplaceReference(const_cast<inp_Keyword&>(keyword), reference, nodeSets, nodeIds, assemblyName,
                            instanceName, partName, inp_AnySet);
}

cow_String inp_SetFixupVisitor::ReplaceElementOrElset(const inp_Keyword& keyword, const cow_String& reference) {
    return ReplaceReference(const_cast<inp_Keyword&>(keyword), reference, elementSets, elementIds, assemblyName,
                            instanceName, partName, inp_AnySet);
}

void inp_SetFixupVisitor::VisitSurfaceDefinition(inp_Keyword& keyword) { ReplaceElementColumn(keyword, 0); }

void inp_SetFixupVisitor::ReplaceNodeColumn(inp_Keyword& keyword, int column, int stride) {
    ReplaceNodeOrNsetData(keyword, cow_List<int>().Append(column), stride);
}

void inp_SetFixupVisitor::ReplaceElementColumn(inp_Keyword& keyword, int column, int stride) {
    ReplaceElementOrElsetData(keyword, cow_List<int>().Append(column), stride);
}

int inp_SetFixupVisitor::TemperatureStride(int factor) const {
    const long long n = static_cast<long long>(modelParameters.hasThicknessTemperatures
                                                   ? modelParameters.maxSectionPoints
                                                   : modelParameters.maxTemperaturePoints) *
                        factor;
    const long long stride = n / 8 + 1;
    // A record can't be shorter than one line; a huge one still walks line 0.
    return stride < 1 ? 1 : (stride > 0x7fffffff ? 0x7fffffff : static_cast<int>(stride));
}
