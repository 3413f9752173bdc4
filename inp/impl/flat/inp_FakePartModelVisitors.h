// inp_FakePartElementVisitor, inp_FakePartNodeVisitor: the element and node passes of
// a flat deck.
//
// A flat deck has no part or instance to hold its model; until the conversion moves it
// into a part, the whole model stands under the pseudo-instance "FAKE". Both passes
// open that scope before the walk, and since a flat list has no *INSTANCE to close it,
// every element, node and set of the deck, generated ones included, lands there.
#ifndef INP_FAKEPARTMODELVISITORS_H
#define INP_FAKEPARTMODELVISITORS_H

#include "inp_ElementVisitor.h"
#include "inp_NodeVisitor.h"

class inp_FakePartElementVisitor : public inp_ElementVisitor {
public:
    // `elementSets` are sets given from outside the deck, as for inp_ElementVisitor.
    inp_FakePartElementVisitor(const inpM_SetMap& elementSets, bool storeConnectivity);
};

class inp_FakePartNodeVisitor : public inp_NodeVisitor {
public:
    // `elements` and `elementSets` are those of inp_FakePartElementVisitor; `nodeSets`
    // are given from outside the deck, as for inp_NodeVisitor.
    inp_FakePartNodeVisitor(const inpM_ElementMap& elements, const inpM_SetMap& elementSets,
                            const inpM_SetMap& nodeSets, bool computeCoordinates,
                            bool hasSymmetricModelGeneration);

    void VisitNset(inp_Keyword& keyword) override;
    // A step opens no scope of the flat model: only its name is kept.
    void VisitStep(inp_Keyword& keyword) override;
    void VisitEndStep(inp_Keyword& keyword) override;

    bool hasSymmetricModelGeneration;
};

#endif
