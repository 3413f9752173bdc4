// Packed *ELEMENT data: integers only.
//
// The element passes rebuild connectivity after generation and expansion and write it
// back into the keyword in this form, so later passes and the printed deck see every
// node. An item is an int and 0 stands for a blank position: a node of id 0 and an
// empty item are the same thing here.
//
// Built from a table, an element spreads over lines as a deck writes it: the first line
// holds the id and up to 15 nodes, each further line up to 16 nodes, and a line that
// more nodes follow ends in one more item of 0, the trailing comma of the text form.
#ifndef INP_ELEMENTDATAARRAY_H
#define INP_ELEMENTDATAARRAY_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "inp_DataArray.h"
#include "inp_Element.h"
#include "omi_IntTable.h"

class inp_ElementDataArrayImpl : public inp_DataArrayImpl {
public:
    // The same lines, each item read as an integer; a blank or non-numeric item is 0.
    explicit inp_ElementDataArrayImpl(const inp_DataArray& raw);
    // The same, giving the raw lines back as they are packed (see ReleaseLines), so
    // that the two forms of a large keyword do not stand side by side.
    inp_ElementDataArrayImpl(inp_DataArray& raw, bool releaseRaw);
    // One element per map entry, in the map's iteration order.
    explicit inp_ElementDataArrayImpl(const cow_Map<int, cow_1DArrayList<int>>& connectivity);
    // One element per id in list order, its nodes from the table; ids the table does not
    // hold are left out.
    inp_ElementDataArrayImpl(const cow_1DArrayList<int>& ids, const omi_IntTable<inp_Element>& elements);
    inp_ElementDataArrayImpl(const inp_ElementDataArrayImpl& other);
    inp_ElementDataArrayImpl& operator=(const inp_ElementDataArrayImpl&) = delete;
    ~inp_ElementDataArrayImpl() override;

    int NumberOfLines() const override;
    int NumberOfItems(int line) const override;
    inp_Types::typeEnm Type(int line, int item) const override;
    bool IsBlank(int line, int item) const override;
    bool HasValue(int line, int item) const override;
    int AsInt(int line, int item) const override;
    double AsDouble(int line, int item) const override;
    // Decimal, a blank position as 0.
    cow_String AsString(int line, int item) const override;
    cow_String AsStringVerbatim(int line, int item) const override;
    // Without making the string: the element passes ask it of every id.
    int TextLength(int line, int item) const override;
    IntItem ReadInt(int line, int item, int& value) const override;
    // Only integers can be stored.
    void Set(int line, int item, const cow_String& text) override;
    void Set(int line, int item, double value) override;
    void Set(int line, int item, int value) override;
    using inp_DataArrayImpl::Append;
    void Append(const char* line, int length) override;
    bool LastItemIsBlank(int line) const override;
    // A line that an element continues ends in a comma, as the reader expects, and a
    // blank, as a raw line's empty last item prints; the 0 that marks it is not written.
    void PrintLine(int line, aio_ostream& out) const override;
    inp_DataArrayImpl* Clone() const override;
    // A released line has no items and prints as nothing.
    void ReleaseLines(int end) override;

    // The number of lines an element of n nodes takes in the layout above.
    static int LinesFor(int numNodes);
    // True when the raw lines mean the same packed: every item a nonzero integer of at
    // most nine characters, blanks aside, but for a last blank item of a line of more
    // than 16, which the packed line prints as the comma it was. A line with a name, a
    // 0, a blank between items or anything else a message would quote stays raw.
    static bool PacksExactly(const inp_DataArray& raw);

protected:
    int nrows;
    int* ncols;  // items per line
    int** rows;  // one array of ncols[i] values per line; null once released
    int released = 0;  // lines before it have been released

private:
    // Allocates the two arrays for `size` lines, the lines not yet.
    void AllocateArrays(int size);
    // Allocates line i with room for `items` values.
    int* NewLine(int i, int items);
    void Release();
    // Packs the raw lines of the cursor; with `releasing`, gives them back as it goes.
    void PackLines(inp_DataLineCursor& cursor, inp_DataArray* releasing);
    // Lays out one element from line nrows on; NodeAt(k) gives its node k.
    template <class NodeAt>
    void AddElement(int id, int numNodes, NodeAt nodeAt);
    // Checks both indices; the names are those of the assertion texts.
    void CheckItem(int i, int j) const;
};

#endif
