// inp_RebarFixupVisitor: the base of the passes that rewrite rebar names.
//
// It holds the one operation a rebar renaming pass implements and knows no keyword yet:
// a pass of a subclass leaves the deck as it was until positions are added here, and
// then every such pass follows them at once.
#ifndef INP_REBARFIXUPVISITOR_H
#define INP_REBARFIXUPVISITOR_H

#include "cow_String.h"
#include "inp_Visitor.h"

class inp_RebarFixupVisitor : public inp_Visitor {
public:
    inp_RebarFixupVisitor();
    ~inp_RebarFixupVisitor() override;

protected:
    // The text that takes the place of `name`; `name` itself to keep it. Raises
    // nex_TextException for a name the pass cannot place.
    virtual cow_String ReplaceRebarName(const cow_String& name) = 0;

    void DefaultAction(inp_Keyword& keyword) override;
};

#endif
