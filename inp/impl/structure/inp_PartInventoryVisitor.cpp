#include "inp_PartInventoryVisitor.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "atr_String.h"
#include "inpM_Utils.h"
#include "inp_Utils.h"
#include "omi_IntTable.h"

namespace {

using ElementTable = omi_IntTable<inp_Element>;
using SurfaceTree = cow_Btree<cow_String, unsigned int>;

const char kRigidSurfaceRules[] =
    "*RIGID SURFACE can be used in a parts & assembly input file only if all the following requirements are "
    "met: (a) Both the TYPE and ELSET parameters are used; (b) The ELSET contains IRS or drag chain elements; and "
    "(c) The *RIGID SURFACE option is inside the same part/instance as the elements in the ELSET.";
const char kMultipleRigidBodies[] =
    "Analytical rigid surface %1$s of part instance %2$s is referenced by multiple rigid bodies. A part instance may "
    "contain only one analytical rigid surface and it is permitted to be referenced by only one rigid body "
    "definition.";
const char kRigidPartReferenced[] =
    "A part that contains a rigid body definition (part: %s) cannot be referenced by an assembly-level rigid body "
    "definition. ";

// Text of a parameter; empty when the keyword lacks it. Expansion requires the
// parameters these rules read, but a deck that skipped it must not bring the walk down.
cow_String Parameter(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

void Mark(SurfaceTree& tree, const cow_String& key, unsigned int bit) {
    if (!tree.InsertUnlessMember(key, bit)) tree.Get(key) |= bit;
}

// The table of one scope, or null when the map has none: asking the map for a scope it
// lacks would report an unknown instance, and an unfilled map is no fault of the deck.
const ElementTable* ScopeTable(const inpM_ElementMap& map, const cow_String& scope) {
    return map.IsMember(scope) ? &map.ConstGet(scope) : nullptr;
}

bool IsRigidType(const cow_String& type) {
    return type.StartsWith("R3D") || type.StartsWith("R2D") || type.StartsWith("RAX") || type.StartsWith("RB");
}

// Point masses, rotary inertia and heat capacitance belong to whatever holds them.
bool IsMassLikeType(const cow_String& type) { return type == "MASS" || type == "ROTARYI" || type == "HEATCAP"; }

bool CountsAsNothing(const cow_String& type) {
    return IsMassLikeType(type) || type == "SPRING1" || type == "SPRING2" || type == "SPRINGA";
}

}  // namespace

inp_PartInventoryVisitor::inp_PartInventoryVisitor(inpM_ElementMap partElements, inpM_ElementMap assemblyElements,
                                                   inpM_SetMap partElementSets, inpM_SetMap assemblyElementSets)
    : m_partElements(std::move(partElements)),
      m_assemblyElements(std::move(assemblyElements)),
      m_partElementSets(std::move(partElementSets)),
      m_assemblyElementSets(std::move(assemblyElementSets)) {}

void inp_PartInventoryVisitor::DefaultAction(inp_Keyword&) {}

void inp_PartInventoryVisitor::VisitAssembly(inp_Keyword& keyword) {
    inp_Visitor::VisitAssembly(keyword);
    assemblyLabel = assemblyName;
    assemblySurfaces.Clear();
}

void inp_PartInventoryVisitor::VisitInstance(inp_Keyword& keyword) {
    inp_Visitor::VisitInstance(keyword);
    if (!instanceName.IsEmpty() && keyword.HasParameter(cow_String("part")))
        instanceToPart.Insert(instanceName, Parameter(keyword, "part"));
}

void inp_PartInventoryVisitor::VisitEndInstance(inp_Keyword& keyword) { inp_Visitor::VisitEndInstance(keyword); }

void inp_PartInventoryVisitor::VisitPart(inp_Keyword& keyword) {
    inp_Visitor::VisitPart(keyword);
    // A part without a name leaves partName as it was: there is nothing to take stock of.
    if (!keyword.HasParameter(cow_String("name"))) return;
    if (!parts.IsMember(partName)) parts.Insert(partName, PartInventory());
    PartInventory& part = parts.Get(partName);
    const ElementTable* table = ScopeTable(m_partElements, partName);
    if (!table) return;
    omi_IntTableIterator<inp_Element> it(*table);
    for (it.First(); !it.IsDone(); it.Next()) {
        const cow_String& type = it.CurrentValue().type;
        if (IsRigidType(type))
            part.hasRigidElements = true;
        else if (!CountsAsNothing(type))
            part.hasDeformableElements = true;
    }
}

void inp_PartInventoryVisitor::VisitRigidBody(inp_Keyword& keyword) {
    inp_Visitor::VisitRigidBody(keyword);
    const bool hasElset = keyword.HasParameter(cow_String("elset"));
    const cow_String elset = Parameter(keyword, "elset");

    if (!partName.IsEmpty()) {
        if (!parts.IsMember(partName)) parts.Insert(partName, PartInventory());
        parts.Get(partName).hasRigidBody = true;
        // A set the part does not hold is the set passes' to report, not a partial rigid body.
        if (hasElset && m_partElementSets.HasNestedSet(partName, elset)) {
            const cow_1DArrayList<int> ids = m_partElementSets.ConstGetNestedSet(partName, elset).ConstGetIds();
            const ElementTable* table = ScopeTable(m_partElements, partName);
            const int inSet = ids.Count();
            const int inPart = table ? table->Count() : 0;
            if (inSet < inPart) {
                std::vector<int> members;
                for (int i = 0; i < ids.Count(); ++i) members.push_back(ids.ConstGet(i));
                std::sort(members.begin(), members.end());
                int massLikeOutside = 0;
                omi_IntTableIterator<inp_Element> it(*table);
                for (it.First(); !it.IsDone(); it.Next())
                    if (IsMassLikeType(it.CurrentValue().type) &&
                        !std::binary_search(members.begin(), members.end(), it.CurrentKey()))
                        ++massLikeOutside;
                if (inSet < inPart - massLikeOutside)
                    errors.Append(atr_Format(
                        "If a part contains a rigid body definition, all elements in the part must belong to the "
                        "element set given on the *RIGID BODY option. A part-level rigid body that refers to only "
                        "some of the elements within the part is not allowed. This rule is violated by part %s",
                        partName));
            }
        }
    } else if (instanceName.IsEmpty()) {
        const cow_List<cow_String> refnode = inp_Utils::SplitScopedSet(Parameter(keyword, "refnode"));
        const cow_String refnodeInstance = refnode.Count() > 1 ? refnode.ConstGet(0) : cow_String();
        CheckInstanceOfRigidPart(refnodeInstance);
        if (hasElset) {
            const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(elset);
            CheckInstanceOfRigidPart(segments.Count() > 1 ? segments.ConstGet(0) : refnodeInstance);
        }
    }

    if (keyword.HasParameter(cow_String("analyticalsurface"))) ReferenceSurface(Parameter(keyword, "analyticalsurface"));
}

void inp_PartInventoryVisitor::CheckInstanceOfRigidPart(const cow_String& instance) {
    if (instance.IsEmpty()) return;
    cow_String part;
    const PartInventory* inventory = PartOfInstance(instance, &part);
    if (inventory && inventory->hasRigidBody) errors.Append(atr_Format(kRigidPartReferenced, part));
}

void inp_PartInventoryVisitor::ReferenceSurface(const cow_String& surface) {
    if (!partName.IsEmpty()) {
        if (!parts.IsMember(partName)) parts.Insert(partName, PartInventory());
        Mark(parts.Get(partName).surfaces, surface, kReferenced);
        return;
    }
    cow_String key;
    cow_String last = surface;
    cow_String holder = instanceName;
    SurfaceTree* tree = nullptr;
    if (!instanceName.IsEmpty()) {
        key = instanceName + "." + surface;
        tree = &instanceSurfaces;
    } else if (!assemblyName.IsEmpty()) {
        const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(surface);
        if (segments.Count() == 1) {
            warnings.Append(atr_Format("An assembly level rigid body definition references an assembly level analytical "
                                    "rigid surface (%1$s). Analytical rigid surfaces must be defined at the part or "
                                    "part instance levels.",
                                    surface));
            return;
        }
        key = surface;
        last = segments.ConstGet(segments.Count() - 1);
        holder = segments.ConstGet(segments.Count() - 2);
        tree = &assemblySurfaces;
    } else {
        return;
    }
    if (tree->IsMember(key) && (tree->ConstGet(key) & kReferenced))
        warnings.Append(atr_Format(kMultipleRigidBodies, last, holder));
    else
        Mark(*tree, key, kReferenced);
}

void inp_PartInventoryVisitor::VisitSurface(inp_Keyword& keyword) {
    inp_Visitor::VisitSurface(keyword);
    if (!keyword.HasParameter(cow_String("type")) || !inp_Utils::IsAnalyticalSurfaceType(Parameter(keyword, "type")))
        return;
    const cow_String surface = Parameter(keyword, "name");
    if (!partName.IsEmpty()) {
        if (!parts.IsMember(partName)) parts.Insert(partName, PartInventory());
        PartInventory& part = parts.Get(partName);
        ++part.analyticalSurfaceCount;
        Mark(part.surfaces, surface, kDefined);
    } else if (!instanceName.IsEmpty()) {
        Mark(instanceSurfaces, instanceName + "." + surface, kDefined);
    } else if (!assemblyName.IsEmpty()) {
        errors.Append(atr_Format("Analytical rigid surface %1$s was defined at the assembly level. Analytical rigid "
                              "surfaces can only be defined within a part or part instance.",
                              surface));
    }
}

void inp_PartInventoryVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    inp_Visitor::VisitRigidSurface(keyword);
    CheckRigidSurface(keyword);
}

// Each rule ends the check at its first failure: one message per keyword.
void inp_PartInventoryVisitor::CheckRigidSurface(const inp_Keyword& keyword) {
    if (!keyword.HasParameter(cow_String("elset")) || !keyword.HasParameter(cow_String("type")) ||
        (partName.IsEmpty() && instanceName.IsEmpty())) {
        errors.Append(atr_raw(kRigidSurfaceRules));
        return;
    }
    const cow_String elset = Parameter(keyword, "elset");
    const bool inPart = !partName.IsEmpty();
    const cow_String& scope = inPart ? partName : instanceName;
    const inpM_SetMap& sets = inPart ? m_partElementSets : m_assemblyElementSets;
    if (!sets.HasNestedSet(scope, elset)) {
        errors.Append(atr_Format(inPart ? "The elset %1$s, which is referenced by a *RIGID SURFACE, is not defined in "
                                       "part: %2$s"
                                     : "The elset %1$s, which is referenced by a *RIGID SURFACE, is not defined in "
                                       "instance: %2$s",
                              elset, scope));
        return;
    }
    const inpM_BaseSet& set = sets.ConstGetNestedSet(scope, elset);
    if (set.IsEmpty()) {
        errors.Append(atr_Format("The elset %1$s, which is referenced by a *RIGID SURFACE, is empty. This is detected "
                              "during the processing of part %2$s",
                              elset, scope));
        return;
    }
    const ElementTable* table = ScopeTable(inPart ? m_partElements : m_assemblyElements, scope);
    const cow_1DArrayList<int> ids = set.ConstGetIds();
    for (int i = 0; i < ids.Count(); ++i) {
        const int id = ids.ConstGet(i);
        if (!table || !table->HasKey(id)) {
            errors.Append(atr_Format("Unknown element ID %1$s is detected in the elset referenced by the *RIGID SURFACE "
                                  "option. This takes place during the processing of part %2$s",
                                  cow_String(atr_StringBase(id)), scope));
            return;
        }
        const cow_String& type = table->ConstGet(id).type;
        if (!type.StartsWith("IRS") && !type.StartsWith("DRAG")) {
            errors.Append(atr_raw(kRigidSurfaceRules));
            return;
        }
    }
}

const inp_PartInventoryVisitor::PartInventory* inp_PartInventoryVisitor::PartOfInstance(const cow_String& instance,
                                                                                        cow_String* partName) const {
    if (!instanceToPart.IsMember(instance)) return nullptr;
    const cow_String& part = instanceToPart.ConstGet(instance);
    if (partName) *partName = part;
    return parts.Lookup(part);
}

void inp_PartInventoryVisitor::CheckInventory() {
    cow_ConstMapSortedIt<cow_String, PartInventory> partIt(parts);
    for (partIt.First(); !partIt.IsDone(); partIt.Next()) {
        const PartInventory& part = partIt.CurrentValue();
        const int kinds = (part.analyticalSurfaceCount > 0) + part.hasDeformableElements + part.hasRigidElements;
        if (kinds > 1)
            errors.Append(atr_Format("Rigid elements, deformable elements, connectors and analytical surfaces cannot be "
                                  "combined within a part. This rule is violated by part %s",
                                  partIt.CurrentKey()));
        if (part.analyticalSurfaceCount > 1)
            errors.Append(
                atr_Format("Only one analytical surface is allowed per part. This rule is violated by part %s",
                        partIt.CurrentKey()));
    }

    // An assembly-level rigid body may name the surface of an instance, or the surface of
    // the part the instance was made of.
    std::vector<cow_String> assemblyKeys;
    for (cow_BtreeIterator<cow_String, unsigned int> it(assemblySurfaces); !it.IsDone(); it.Next())
        assemblyKeys.push_back(it.CurrentKey());
    for (const cow_String& key : assemblyKeys) {
        const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(key);
        if (segments.Count() < 2) continue;
        const cow_String& last = segments.ConstGet(segments.Count() - 1);
        const cow_String& instance = segments.ConstGet(segments.Count() - 2);
        if (instanceSurfaces.IsMember(key)) {
            if (instanceSurfaces.ConstGet(key) & kReferenced) {
                warnings.Append(atr_Format(kMultipleRigidBodies, last, instance));
            } else {
                instanceSurfaces.Get(key) = kMatched;
                assemblySurfaces.Get(key) = kMatched;
            }
        }
        cow_String part;
        if (PartOfInstance(instance, &part) && parts.Get(part).surfaces.IsMember(last)) {
            parts.Get(part).surfaces.Get(last) = kMatched;
            assemblySurfaces.Get(key) = kMatched;
        }
    }

    // A map iterator walks the snapshot it was made from: the matches above need a new one.
    cow_ConstMapSortedIt<cow_String, PartInventory> matchedIt(parts);
    for (matchedIt.First(); !matchedIt.IsDone(); matchedIt.Next()) {
        for (cow_BtreeIterator<cow_String, unsigned int> it(matchedIt.CurrentValue().surfaces); !it.IsDone();
             it.Next()) {
            const unsigned int state = it.CurrentValue();
            if (state == kMatched) continue;
            if (state & kDefined)
                warnings.Append(atr_Format("*SURFACE keyword defining analytical rigid surface %1$s of part %2$s is not "
                                        "associated with a rigid body definition.",
                                        it.CurrentKey(), matchedIt.CurrentKey()));
            else if (state & kReferenced)
                warnings.Append(atr_Format("Analytical rigid surface %1$s of part %2$s is not defined, but is referenced "
                                        "by a rigid body definition.",
                                        it.CurrentKey(), matchedIt.CurrentKey()));
        }
    }

    for (cow_BtreeIterator<cow_String, unsigned int> it(instanceSurfaces); !it.IsDone(); it.Next()) {
        const unsigned int state = it.CurrentValue();
        if (state == kMatched) continue;
        const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(it.CurrentKey());
        const cow_String& surface = segments.ConstGet(segments.Count() - 1);
        const cow_String& instance = segments.ConstGet(0);
        cow_String part;
        const PartInventory* inventory = PartOfInstance(instance, &part);
        if (inventory && inventory->surfaces.IsMember(surface))
            warnings.Append(atr_Format("If a rigid body definition is defined at the part or part instance level, the "
                                    "corresponding analytical rigid surface definition must be defined at the same "
                                    "level. Analytical rigid surface %1$s violates this rule with regard to part %2$s "
                                    "and part instance %3$s.",
                                    surface, part, instance));
        else if (state & kDefined)
            warnings.Append(atr_Format("*SURFACE keyword defining analytical rigid surface %1$s of part instance %2$s is "
                                    "not associated with a rigid body definition.",
                                    surface, instance));
        else if (state & kReferenced)
            warnings.Append(atr_Format("Analytical rigid surface %1$s of part instance %2$s is not defined, but is "
                                    "referenced by a rigid body definition.",
                                    surface, instance));
    }
    instanceSurfaces.Clear();

    for (cow_BtreeIterator<cow_String, unsigned int> it(assemblySurfaces); !it.IsDone(); it.Next()) {
        const unsigned int state = it.CurrentValue();
        if (state == kMatched || !(state & kReferenced)) continue;
        const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(it.CurrentKey());
        warnings.Append(atr_Format("Analytical rigid surface %1$s of part instance %2$s is not defined, but is "
                                "referenced by a rigid body definition at the assembly level.",
                                segments.ConstGet(segments.Count() - 1), segments.ConstGet(0)));
    }
    assemblySurfaces.Clear();
}

cow_Btree<cow_String, int> inp_PartInventoryVisitor::CheckClosing(const cow_1DArrayList<inp_Keyword>& keywords,
                                                                  inp_KeywordEnm openValue, inp_KeywordEnm closeValue,
                                                                  const char* openName, const char* closeName) {
    cow_Btree<cow_String, int> counts;
    cow_List<cow_String> unclosed;
    cow_String name;
    bool afterOpening = false;
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        if (afterOpening && keyword.keyword != closeValue) unclosed.Append(name);
        afterOpening = keyword.keyword == openValue;
        if (!afterOpening || !keyword.HasParameter(cow_String("name"))) continue;
        name = Parameter(keyword, "name");
        counts.InsertUnlessMember(name, 0);
        for (int j = 0; j < keyword.suboptions.Count(); ++j) {
            const inp_KeywordEnm kind = keyword.suboptions.ConstGet(j).keyword;
            if (kind == inp_kwElement || kind == inp_kwElgen || kind == inp_kwNode || kind == inp_kwNgen)
                ++counts.Get(name);
        }
    }
    if (!unclosed.IsEmpty())
        errors.Append(inpM_Utils::FormatCollectedErrors(
            atr_Format("The following *%1$s keywords are missing their closing %2$s keywords", cow_String(openName),
                       cow_String(closeName)),
            unclosed));
    return counts;
}

void inp_PartInventoryVisitor::CheckBlocks(const cow_1DArrayList<inp_Keyword>& keywords) {
    const cow_Btree<cow_String, int> partCounts = CheckClosing(keywords, inp_kwPart, inp_kwEndPart, "PART", "END PART");
    const inp_Keyword* assembly = nullptr;
    for (int i = 0; i < keywords.Count() && !assembly; ++i)
        if (keywords.ConstGet(i).keyword == inp_kwAssembly) assembly = &keywords.ConstGet(i);
    if (!assembly) return;

    const cow_Btree<cow_String, int> instanceCounts =
        CheckClosing(assembly->suboptions, inp_kwInstance, inp_kwEndInstance, "INSTANCE", "END INSTANCE");
    cow_Btree<cow_String, cow_String> pairs;
    for (int i = 0; i < assembly->suboptions.Count(); ++i) {
        const inp_Keyword& instance = assembly->suboptions.ConstGet(i);
        if (instance.keyword != inp_kwInstance || !instance.HasParameter(cow_String("name"))) continue;
        const cow_String name = Parameter(instance, "name");
        if (!instanceCounts.IsMember(name) || instanceCounts.ConstGet(name) <= 0) continue;
        // Expansion has reported an instance without a part as a serious error and kept
        // it; there is no part for its data to clash with.
        if (!instance.HasParameter(cow_String("part"))) continue;
        const cow_String part = Parameter(instance, "part");
        if (partCounts.IsMember(part) && partCounts.ConstGet(part) > 0) pairs.InsertUnlessMember(name, part);
    }
    if (pairs.Count() == 0) return;
    cow_String text("Node and element data may only be defined in the instance or the part, not both.  The following "
                    "instance/part pairs attempt to do so:\n");
    for (cow_BtreeIterator<cow_String, cow_String> it(pairs); !it.IsDone(); it.Next())
        text.append(atr_Format(" Instance: %1$s Part:%2$s", it.CurrentKey(), it.CurrentValue()));
    errors.Append(atr_String(text));
}
