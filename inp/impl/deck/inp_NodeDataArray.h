// Packed *NODE data: a label and six doubles per line.
//
// A large model has millions of node lines, and every later pass reads their numbers,
// so the expansion pass replaces the raw text of a *NODE keyword by this form once.
// It answers the same line and item questions as raw data: a line always has seven
// items, the label and then three coordinates and three normal components, and a
// position that the deck left out reads 0. Values the form cannot hold (a name, a
// label that is no positive integer) raise nex_TextException rather than being changed.
#ifndef INP_NODEDATAARRAY_H
#define INP_NODEDATAARRAY_H

#include "inp_DataArray.h"

class inp_NodeDataArrayImpl : public inp_DataArrayImpl {
public:
    // An empty array for AddNode: every label 0 and every block allocated with zeros.
    explicit inp_NodeDataArrayImpl(int capacity);
    // Packs a raw *NODE array. Raises at once on a bad label; bad coordinates are
    // gathered over all lines and raised together at the end, naming the nodes.
    explicit inp_NodeDataArrayImpl(const inp_DataArray& raw);
    // The same, giving the raw lines back as they are packed (see ReleaseLines). On a
    // raise the raw array has lost lines: for a caller that drops the keyword then.
    inp_NodeDataArrayImpl(inp_DataArray& raw, bool releaseRaw);
    // Sized to the lines in use.
    inp_NodeDataArrayImpl(const inp_NodeDataArrayImpl& other);
    inp_NodeDataArrayImpl& operator=(const inp_NodeDataArrayImpl&) = delete;
    ~inp_NodeDataArrayImpl() override;

    int NumberOfLines() const override;
    int NumberOfItems(int line) const override;
    inp_Types::typeEnm Type(int line, int item) const override;
    // A packed position always holds a number.
    bool IsBlank(int line, int item) const override;
    bool HasValue(int line, int item) const override;
    int AsInt(int line, int item) const override;
    double AsDouble(int line, int item) const override;
    // The label in decimal, or the double with enough digits to read back the same value.
    cow_String AsString(int line, int item) const override;
    cow_String AsStringVerbatim(int line, int item) const override;
    // The items as AsString gives them, written from a buffer on the stack.
    void PrintLine(int line, aio_ostream& out) const override;
    void Set(int line, int item, const cow_String& text) override;
    void Set(int line, int item, double value) override;
    void Set(int line, int item, int value) override;
    // Node lines come only through packing: a line appended later means the deck split a
    // *NODE block, and the message tells the user how.
    using inp_DataArrayImpl::Append;
    void Append(const char* line, int length) override;
    bool LastItemIsBlank(int line) const override;
    inp_DataArrayImpl* Clone() const override;
    // A released line has no items and prints as nothing.
    void ReleaseLines(int end) override;

    // Stores a node in the next line, keeping that line's normal; gives the new number of
    // lines. The array holds one node fewer than its capacity.
    virtual int AddNode(int label, double x, double y, double z);

protected:
    int nrows;          // lines in use
    int allocatedSize;  // slots of labels and coords, each with its block
    int* labels;
    double** coords;    // per line: x, y, z, then the normal nx, ny, nz; null once released
    int released = 0;   // lines before it have been released

private:
    // Allocates the two arrays for `size` lines, the blocks not yet.
    void AllocateArrays(int size);
    // Allocates the zeroed block of line i.
    double* NewBlock(int i);
    void Release();
    // Checks both indices; the names are those of the assertion texts.
    void CheckItem(int i, int j) const;
    void Pack(inp_DataLineCursor& cursor, inp_DataArray* releasing);
    void PackLines(inp_DataLineCursor& cursor, inp_DataArray* releasing);
};

#endif
