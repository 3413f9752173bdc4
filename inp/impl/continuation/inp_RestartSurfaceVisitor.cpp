#include "inp_RestartSurfaceVisitor.h"

#include <memory>

#include "atr_String.h"
#include "inp_Utils.h"

namespace {

cow_String Text(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

// Column 0 of every line as `instance.item`.
inp_DataArray ScopedToInstance(const inp_DataArray& data, const cow_String& instance) {
    std::unique_ptr<inp_RawDataArrayImpl> scoped(new inp_RawDataArrayImpl());
    cow_String line;
    for (int i = 0; i < data.NumberOfLines(); ++i) {
        line = cow_String();
        for (int item = 0; item < data.NumberOfItems(i); ++item) {
            if (item > 0) line.append(",");
            if (item == 0) line.append(instance + ".");
            line.append(data.AsString(i, item));
        }
        scoped->Append(line.c_str(), line.Length());
    }
    return inp_DataArray(scoped.release());
}

}  // namespace

inp_RestartSurfaceVisitor::inp_RestartSurfaceVisitor(const inpM_SurfaceMap& earlier, const cow_String& assemblyName,
                                                     bool assemblyModel, const inpM_SetMap& nodeSetMap,
                                                     const inpM_SetMap& elementSetMap,
                                                     const inpM_InstanceMap<omi_IntTable<inp_Element>>& elementMap,
                                                     const inp_CoordMap& coordinates)
    : inp_SurfaceVisitor(elementSetMap, nodeSetMap, elementMap, coordinates),
      isAssemblyModel(assemblyModel),
      originalAssemblyName(assemblyName) {
    surfaces = earlier;
}

inp_RestartSurfaceVisitor::~inp_RestartSurfaceVisitor() = default;

void inp_RestartSurfaceVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword == inp_kwSurface)
        VisitSurface(keyword);
    else if (keyword.keyword == inp_kwRigidSurface)
        AddAnalyticalSurface(keyword);
}

void inp_RestartSurfaceVisitor::ReportDuplicate(const cow_String& name) {
    errors.Append(atr_Format("Error in *SURFACE: the surface %1$s already exists in the original analysis. It cannot "
                             "be modified upon restart.",
                             name));
}

void inp_RestartSurfaceVisitor::VisitSurface(inp_Keyword& keyword) {
    if (inp_Utils::IsAnalyticalSurfaceType(SurfaceType(keyword))) {
        AddAnalyticalSurface(keyword);
        return;
    }
    const cow_String name = Text(keyword, "name");
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(name);
    instanceName = cow_String();
    if (isAssemblyModel) {
        if (!(segments.ConstGet(0) == originalAssemblyName)) {
            errors.Append(atr_Format("%1$s is not the assembly name in the original analysis.", segments.ConstGet(0)));
            return;
        }
        if (segments.Count() < 2 || segments.Count() > 3) {
            errors.Append(atr_Format("The complete name of a surface defined upon restart should contain: an "
                                     "assembly name, an optional instance name, and a surface name. The "
                                     "unrecognizable name in question is %1$s",
                                     name));
            return;
        }
    } else if (segments.Count() > 1) {
        errors.Append(atr_Format("The input file for the original analysis does not contain parts and assemblies.  "
                                 "Upon restart, only assembly level element and node-based surfaces may be defined.  "
                                 "The name given by the NAME parameter should not contain any periods which imply "
                                 "an assembly of part instances.  The unrecognizable name is: %1$s",
                                 name));
        return;
    }
    currentSurfaceName = segments.Last();
    if (segments.Count() == 3) {
        instanceName = segments.ConstGet(1);
        if (surfaces.IsMemberPartInstanceSurface(instanceName, currentSurfaceName)) {
            ReportDuplicate(name);
        } else {
            inp_SurfaceVisitor::VisitSurface(keyword);
        }
        // An instance named by one keyword is that keyword's alone.
        instanceName = cow_String();
        return;
    }
    if (surfaces.IsMemberAssemblyInstanceSurface(currentSurfaceName))
        ReportDuplicate(name);
    else
        inp_SurfaceVisitor::VisitSurface(keyword);
}

void inp_RestartSurfaceVisitor::AddAnalyticalSurface(inp_Keyword&) {
    errors.Append(atr_raw("Analytical surfaces may not be defined upon restart. "));
}

void inp_RestartSurfaceVisitor::AddPlainSurface(inp_Keyword& keyword) {
    if (instanceName.IsEmpty()) {
        surfaces.InsertAssemblyInstanceSurface(currentSurfaceName, BuildAssemblySurface(keyword));
        return;
    }
    inp_Keyword named = keyword;
    named.parameters.Insert(cow_String("name"), inp_Item(currentSurfaceName));
    if (named.HasParameter(cow_String("combine")))
        BuildCombinedSurface(named);
    else
        BuildSurface(named);
    if (keyword.data.HasValue()) keyword.data = ScopedToInstance(keyword.data, instanceName);
}
