#include "inp_RestartSetVisitor.h"

#include <cstdio>

#include "atr_String.h"
#include "inp_Utils.h"

namespace {

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

cow_String Text(const inp_Keyword& keyword, const cow_String& name) {
    const inp_Item* item = keyword.parameters.Lookup(name);
    return item ? item->AsString() : cow_String();
}

}  // namespace

inp_RestartSetVisitor::inp_RestartSetVisitor() = default;

inp_RestartSetVisitor::inp_RestartSetVisitor(const inpM_SetMap& sets, const cow_String& assemblyName,
                                             bool assemblyModel, const inpM_IdMap& ids, const cow_String& setKind)
    : inp_SetVisitor(sets, cow_String()),
      isAssemblyModel(assemblyModel),
      idMap(ids),
      earlierSets(sets),
      originalAssemblyName(assemblyName),
      kind(setKind) {
    instanceNames = sets.Instances();
}

inp_RestartSetVisitor::~inp_RestartSetVisitor() = default;

cow_String inp_RestartSetVisitor::KeywordName() const {
    if (kind == "nset") return cow_String("*NSET");
    if (kind == "elset") return cow_String("*ELSET");
    return cow_String("*");
}

void inp_RestartSetVisitor::Visit(inp_Keyword& keyword) {
    const bool wanted = (kind == "nset" && keyword.keyword == inp_kwNset) ||
                        (kind == "elset" && keyword.keyword == inp_kwElset);
    if (!wanted) return;
    const cow_String name = Text(keyword, kind);
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(name);
    if (isAssemblyModel)
        AddToAssemblyModel(keyword, name, segments);
    else
        AddToFlatModel(keyword, name, segments);
    // An instance named by one keyword is that keyword's alone.
    instanceName = cow_String();
}

void inp_RestartSetVisitor::ReportDuplicate(const cow_String& name) {
    errors.Append(atr_Format("Error in *NSET/*ELSET: the set %1$s already exists in the original analysis. It cannot "
                             "be modified upon restart.",
                             name));
}

void inp_RestartSetVisitor::AddToAssemblyModel(inp_Keyword& keyword, const cow_String& name,
                                               const cow_List<cow_String>& segments) {
    const bool generate = Has(keyword, "generate"), internal = Has(keyword, "internal");
    if (kind == "nset" && Has(keyword, "elset")) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_raw("The formation of a node set using an element set (*NSET, ELSET=) is currently not "
                             "supported in the restart analysis of a job defined in terms of an assembly of part "
                             "instances.")));
        return;
    }
    if (!(segments.ConstGet(0) == originalAssemblyName)) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("%1$s is not the assembly name in the original analysis.", segments.ConstGet(0))));
        return;
    }
    if (segments.Count() < 2 || segments.Count() > 3) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("The complete name of an NSET/ELSET defined upon restart should contain: an assembly "
                                "name, an optional instance name, and a set name. The unrecognizable name in "
                                "question is %1$s",
                                name)));
        return;
    }
    const cow_String& setName = segments.Last();
    if (segments.Count() == 3) {
        if (Has(keyword, "instance")) {
            errors.Append(inp_Utils::MessageInKeyword(
                keyword, atr_raw("When defining a part instance level NSET/ELSET upon restart, the INSTANCE "
                                 "parameter should not appear.")));
            return;
        }
        instanceName = segments.ConstGet(1);
        if (earlierSets.HasNestedSet(instanceName, setName)) {
            ReportDuplicate(name);
            return;
        }
        const inpM_SetHandle set = generate ? GenerateSet(keyword, internal, false) : ReadSet(keyword, internal, false);
        AddSet(setName, *set, false);
        AddSet(setName, *set, false, newSets);
        return;
    }
    if (generate) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_raw("The GENERATE option on *NSET/*ELSET is not supported when defining an assembly level "
                             "set in a restart input file, for models defined in terms of an assembly of part "
                             "instances.")));
        return;
    }
    ApplyInstanceParameter(keyword);
    if (earlierSets.IsMember(setName)) {
        ReportDuplicate(name);
        return;
    }
    const inpM_SetHandle set = ReadAssemblySet(setMap, keyword, internal);
    AddAssemblySet(setName, *set, false);
    AddAssemblySet(setName, *set, false, newSets);
}

void inp_RestartSetVisitor::AddToFlatModel(inp_Keyword& keyword, const cow_String& name,
                                           const cow_List<cow_String>& segments) {
    if (segments.Count() > 1) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("The input file for the original analysis does not contain parts and assemblies.  "
                                "Upon restart, only assembly level sets may be defined.  The set name given by the "
                                "NSET/ELSET parameter should not contain any periods which imply an assembly of "
                                "part instances.  The unrecognizable name is: %1$s",
                                name)));
        return;
    }
    if (kind == "nset" && Has(keyword, "elset")) {
        char smallest[16];
        std::snprintf(smallest, sizeof smallest, "%d", idMap.SmallestId());
        if (!keyword.data.HasValue()) keyword.data = inp_DataArray(new inp_RawDataArrayImpl());
        keyword.data.Append(smallest);
    }
    if (earlierSets.IsMember(name)) {
        ReportDuplicate(name);
        return;
    }
    const bool internal = Has(keyword, "internal");
    const inpM_SetHandle set =
        Has(keyword, "generate") ? GenerateFlatSet(keyword, internal) : ReadFlatSet(keyword, internal);
    AddAssemblySet(name, *set, false);
    AddAssemblySet(name, *set, false, newSets);
}

bool inp_RestartSetVisitor::FindIdInstance(int id, cow_String& instance) const {
    const cow_List<cow_String> instances = idMap.Instances();
    for (int i = 0; i < instances.Count(); ++i) {
        if (idMap.ConstGet(instances.ConstGet(i)).HasId(id)) {
            instance = instances.ConstGet(i);
            return true;
        }
    }
    return false;
}

inpM_SetHandle inp_RestartSetVisitor::ReadFlatSet(const inp_Keyword& keyword, bool internal) {
    inpM_SetHandle result = CreateSet(internal, false);
    const inp_DataArray& data = keyword.data;
    const int lines = data.HasValue() ? data.NumberOfLines() : 0;
    const cow_List<cow_String> scopes = setMap.Instances();
    cow_List<cow_String> missing;
    cow_String instance;
    for (int line = 0; line < lines; ++line) {
        for (int item = 0; item < data.NumberOfItems(line); ++item) {
            if (data.IsBlank(line, item)) continue;
            const cow_String text = data.AsString(line, item);
            if (inp_Utils::SplitScopedSet(text).Count() > 1) {
                errors.Append(inp_Utils::MessageInKeyword(
                    keyword, atr_Format("A period is detected in a data item used to define new node/element sets "
                                        "in a restart input file. This is not allowed, since the original analysis "
                                        "was not defined in terms of an assembly of part instance. The data item in "
                                        "question is: %1$s",
                                        text)));
                break;
            }
            const inp_Types::typeEnm type = data.Type(line, item);
            if (type == inp_Types::typeInt) {
                if (FindIdInstance(data.AsInt(line, item), instance))
                    result.Get().Add(instance, data.AsInt(line, item));
                else
                    missing.Append(text);
            } else if (type == inp_Types::typeString) {
                if (setMap.IsMember(text)) {
                    result.Get().Add(setMap.ConstGetSet(text));
                    continue;
                }
                int holder = 0;
                while (holder < scopes.Count() && !setMap.HasNestedSet(scopes.ConstGet(holder), text)) ++holder;
                if (holder < scopes.Count())
                    result.Get().Add(scopes.ConstGet(holder), setMap.ConstGetNestedSet(scopes.ConstGet(holder), text));
                else
                    missing.Append(text);
            }
        }
    }
    if (!missing.IsEmpty())
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("The following sets/IDs do not exist"), missing));
    return result;
}

inpM_SetHandle inp_RestartSetVisitor::GenerateFlatSet(const inp_Keyword& keyword, bool internal) {
    inpM_SetHandle result = CreateSet(internal, false);
    const inp_DataArray& data = keyword.data;
    const int lines = data.HasValue() ? data.NumberOfLines() : 0;
    cow_String instance;
    for (int line = 0; line < lines; ++line) {
        const int items = data.NumberOfItems(line);
        if (items == 0) continue;
        if (items == 1) {
            errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Not enough data provided to generate set")));
            return result;
        }
        const bool increment = items > 2 && !data.IsBlank(line, 2);
        if (data.Type(line, 0) != inp_Types::typeInt || data.Type(line, 1) != inp_Types::typeInt ||
            (increment && data.Type(line, 2) != inp_Types::typeInt)) {
            errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("The data under must be integers.")));
            return result;
        }
        cow_1DArrayList<int> range;
        range.Append(data.AsInt(line, 0));
        range.Append(data.AsInt(line, 1));
        if (increment) range.Append(data.AsInt(line, 2));
        const inp_Utils::Generation generated = inp_Utils::ExpandGeneration(range, KeywordName());
        errors.Append(generated.errors);
        for (int i = 0; i < generated.ids.Count(); ++i)
            if (FindIdInstance(generated.ids[i], instance)) result.Get().Add(instance, generated.ids[i]);
    }
    return result;
}
