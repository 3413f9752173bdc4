#include "inp_ElementVisitor.h"

#include "atr_String.h"
#include "inp_Utils.h"

namespace {

bool Has(const inp_Keyword& keyword, const char* parameter) { return keyword.HasParameter(cow_String(parameter)); }

cow_String Text(const inp_Keyword& keyword, const char* parameter) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(parameter));
    return item ? item->AsString() : cow_String();
}

}  // namespace

inp_ElementVisitor::inp_ElementVisitor(bool store)
    : elements(omi_IntTable<inp_Element>()),
      storeConnectivity(store),
      elementInfo(inp_ElementTypes::ElementInfo()),
      obsoleteTypes(inp_ElementTypes::ObsoleteTypes()),
      reflectOrder(inp_ElementTypes::ReflectOrder()) {}

inp_ElementVisitor::inp_ElementVisitor(const inpM_SetMap& givenSets, bool store) : inp_ElementVisitor(store) {
    searchAllInstances = !givenSets.IsEmpty();
    setMap = givenSets;
}

inp_ElementVisitor::~inp_ElementVisitor() = default;

cow_String inp_ElementVisitor::KeywordName() const { return cow_String("*ELEMENT"); }

bool inp_ElementVisitor::IsValidScope(const cow_String& name) const { return name == KeywordScope(); }

void inp_ElementVisitor::VisitElset(inp_Keyword& keyword) {
    if (!Has(keyword, "elset")) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("ELSET parameter is required.")));
        return;
    }
    const bool internal = Has(keyword, "internal");
    ApplyInstanceParameter(keyword);
    const cow_String name = Text(keyword, "elset");
    const bool generate = Has(keyword, "generate");
    if (!KeywordScope().IsEmpty()) {
        const inpM_SetHandle set =
            generate ? GenerateSet(keyword, internal, false) : ReadSet(keyword, internal, searchAllInstances);
        AddSet(name, *set, false);
        return;
    }
    if (generate) {
        AddAssemblySet(name, *GenerateAssemblySet(keyword, internal, false), false);
        return;
    }
    // What the read cannot resolve yet may come from the assembly-level pass: the
    // keyword waits for it, and its messages are that pass's to give.
    const cow_List<atr_String> before = errors;
    const inpM_SetHandle set = ReadAssemblySet(setMap, keyword, internal);
    if (errors.Count() > before.Count()) {
        deferredKeywords.Append(keyword);
        errors = before;
    }
    AddAssemblySet(name, *set, false);
}

inp_PartElementVisitor::inp_PartElementVisitor() : inp_ElementVisitor(true) {}

void inp_PartElementVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword != inp_kwAssembly && keyword.keyword != inp_kwStep) inp_ElementVisitor::Visit(keyword);
}

void inp_PartElementVisitor::VisitPart(inp_Keyword& keyword) {
    inp_ElementVisitor::VisitPart(keyword);
    if (!partName.IsEmpty()) elements.Insert(partName, omi_IntTable<inp_Element>());
}

// Keywords outside a part are not this pass's business.
#define INP_PART_LEVEL_ONLY(Operation) \
    void inp_PartElementVisitor::Operation(inp_Keyword& keyword) { \
        if (!partName.IsEmpty()) inp_ElementVisitor::Operation(keyword); \
    }
INP_PART_LEVEL_ONLY(VisitElcopy)
INP_PART_LEVEL_ONLY(VisitElement)
INP_PART_LEVEL_ONLY(VisitElgen)
INP_PART_LEVEL_ONLY(VisitElset)
#undef INP_PART_LEVEL_ONLY

inp_AssemblyElementVisitor::inp_AssemblyElementVisitor(const inpM_ElementMap& parts, const inpM_SetMap& sets,
                                                       bool store)
    : inp_ElementVisitor(store), partElements(parts), partSets(sets) {}

void inp_AssemblyElementVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword != inp_kwPart) inp_ElementVisitor::Visit(keyword);
}

void inp_AssemblyElementVisitor::VisitInstance(inp_Keyword& keyword) {
    SetInstanceName(keyword);
    if (!Has(keyword, "part")) {
        if (importedInstances.IsMember(instanceName) && importedSets.instances.IsMember(instanceName))
            setMap.InsertNestedSetMap(instanceName, importedSets.ConstGetNestedSetMap(instanceName));
        return;
    }
    const cow_String part = Text(keyword, "part");
    elements.Insert(instanceName, omi_IntTable<inp_Element>());
    if (partSets.instances.IsMember(part))
        setMap.InsertNestedSetMap(instanceName, partSets.ConstGetNestedSetMap(part));
    // The instance holds the part's table itself, not a copy of it.
    if (partElements.IsMember(part)) elements.GetMap(instanceName).item = partElements.ConstGetMap(part).item;
}

void inp_AssemblyElementVisitor::VisitElement(inp_Keyword& keyword) {
    static const char* const kAssemblyTypes[] = {"MASS",    "ROTARYI", "HEATCAP",  "CONN2D2",  "CONN3D2", "SPRINGA",
                                                 "SPRING1", "SPRING2", "DASHPOTA", "DASHPOT1", "DASHPOT2"};
    if (instanceName.IsEmpty()) {
        const cow_String type = Text(keyword, "type");
        bool allowed = false;
        for (const char* name : kAssemblyTypes) allowed = allowed || type == name;
        if (!allowed) return;
    }
    inp_ElementVisitor::VisitElement(keyword);
}

void inp_AssemblyElementVisitor::VisitElset(inp_Keyword& keyword) {
    CheckPartSetRedefined(keyword, "elset", partSets, instanceToPart,
                          "The element set %1$s was defined within part %2$s, then redefined within part instance "
                          "%3$s. An element set cannot be defined at the part level, then modified at the part "
                          "instance level.");
    inp_ElementVisitor::VisitElset(keyword);
}

bool inp_AssemblyElementVisitor::IsValidScope(const cow_String& name) const { return IsScopeOrInstance(name); }
