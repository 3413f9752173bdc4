// inp_ElementUndefinedNodesError: elements whose connectivity names nodes that no
// *NODE defines, found when element tables are rewritten to new node ids.
//
// One exception carries all the elements found (at most the first hundred, so
// that a deck with a missing include file does not flood the report).
#ifndef INP_ELEMENTUNDEFINEDNODESERROR_H
#define INP_ELEMENTUNDEFINEDNODESERROR_H

#include "cow_1DArrayList.h"
#include "cow_String.h"
#include "nex_Exception.h"

class inp_ElementUndefinedNodesError : public nex_TextException {
public:
    explicit inp_ElementUndefinedNodesError(const cow_1DArrayList<int>& elementIds);
    inp_ElementUndefinedNodesError(const cow_1DArrayList<int>& elementIds, const cow_String& instance);
    ~inp_ElementUndefinedNodesError() override;
    NEX_EXCEPTION_BODY(inp_ElementUndefinedNodesError)

    cow_1DArrayList<int> ids;
    // The instance the elements belong to; empty when not told.
    cow_String instanceName;
};

#endif
