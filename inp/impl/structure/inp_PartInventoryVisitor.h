// inp_PartInventoryVisitor: the rules of a model written in parts that no single
// keyword can check, gathered in one walk over the organized deck.
//
// The walk takes an inventory of each part (what kinds of elements it holds, its
// analytical surfaces, whether it has a rigid body), of the analytical surfaces of the
// instances and of those the assembly's rigid bodies name, and checks the rules that
// can be told on the spot. CheckInventory then tells what only the whole deck shows:
// parts that mix kinds, surfaces without their rigid body and the reverse. CheckBlocks
// looks at the block structure itself, and runs on any deck.
//
// Element rules end in errors, surface rules in warnings: a surface that no rigid body
// names is harmless to the solver, a part that mixes rigid and deformable elements is
// not. Nothing raises for a bad deck; the maps are read only where they hold the scope,
// so an inventory of a deck whose maps were never filled finds no elements at all.
#ifndef INP_PARTINVENTORYVISITOR_H
#define INP_PARTINVENTORYVISITOR_H

#include "cow_1DArrayList.h"
#include "cow_Btree.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inp_Visitor.h"

class inp_PartInventoryVisitor : public inp_Visitor {
public:
    // The two bits of a surface entry; both set is the good state.
    enum : unsigned int { kDefined = 1u, kReferenced = 2u, kMatched = 3u };

    struct PartInventory {
        bool hasRigidBody = false;
        bool hasRigidElements = false;
        bool hasDeformableElements = false;
        int analyticalSurfaceCount = 0;
        cow_Btree<cow_String, unsigned int> surfaces;
    };

    inp_PartInventoryVisitor(inpM_ElementMap partElements, inpM_ElementMap assemblyElements,
                             inpM_SetMap partElementSets, inpM_SetMap assemblyElementSets);

    void VisitAssembly(inp_Keyword& keyword) override;
    void VisitInstance(inp_Keyword& keyword) override;
    void VisitPart(inp_Keyword& keyword) override;
    void VisitEndInstance(inp_Keyword& keyword) override;
    void VisitRigidBody(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;

    // The rules that need the whole walk; empties the instance and assembly surface trees.
    void CheckInventory();
    // Blocks of *PART and of *INSTANCE left without their closing keyword, and parts
    // whose nodes or elements are defined both in the part and in an instance of it.
    void CheckBlocks(const cow_1DArrayList<inp_Keyword>& keywords);
    // For each opening keyword of the list with a name, the number of its direct
    // suboptions that define nodes or elements; blocks left open go to `errors`.
    cow_Btree<cow_String, int> CheckClosing(const cow_1DArrayList<inp_Keyword>& keywords, inp_KeywordEnm openValue,
                                            inp_KeywordEnm closeValue, const char* openName, const char* closeName);

    cow_Map<cow_String, PartInventory> parts;
    inpM_InstanceMap<cow_String> instanceToPart;
    cow_Btree<cow_String, unsigned int> instanceSurfaces;
    cow_Btree<cow_String, unsigned int> assemblySurfaces;
    cow_String assemblyLabel = cow_String("ASSEMBLY");

protected:
    void DefaultAction(inp_Keyword& keyword) override;

private:
    // An assembly-level rigid body may not reach into an instance of a part that holds
    // a rigid body of its own.
    void CheckInstanceOfRigidPart(const cow_String& instance);
    void ReferenceSurface(const cow_String& surface);
    void CheckRigidSurface(const inp_Keyword& keyword);
    // The part an instance was made of, or null for an instance the walk has not met.
    const PartInventory* PartOfInstance(const cow_String& instance, cow_String* partName = nullptr) const;

    inpM_ElementMap m_partElements;
    inpM_ElementMap m_assemblyElements;
    inpM_SetMap m_partElementSets;
    inpM_SetMap m_assemblyElementSets;
};

#endif
