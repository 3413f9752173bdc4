// Packed *NODE data: packing the raw lines, and the line and item interface.
#include "inp_NodeDataArray.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

#include "aio_ostream.h"
#include "atr_Number.h"
#include "inpM_OmiSet.h"
#include "inp_Exceptions.h"
#include "mem_BlockHeap.h"
#include "mem_Malloc.h"
#include "nex_Exception.h"

namespace {

const int kItems = 7;          // the label and six numbers
const int kValues = kItems - 1;
const int kMaxLabelDigits = 9;
// One message names the bad nodes; beyond this many the user has enough to look for.
const int kMaxBadNodesNamed = 102;

inline bool IsBlankChar(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool IsBlankText(const char* text) {
    for (; *text; ++text)
        if (!IsBlankChar(*text)) return false;
    return true;
}

// The length of the item's normalised form: a text that types as an integer has no
// quotes, so that form is the item without its blanks.
int NonBlankLength(const char* text) {
    int n = 0;
    for (; *text; ++text)
        if (!IsBlankChar(*text)) ++n;
    return n;
}

// The item as the user wrote it, trimmed as a verbatim read trims.
cow_String Trimmed(const char* text) {
    const char* end = text + std::strlen(text);
    while (text < end && (*text == ' ' || *text == '\t')) ++text;
    while (end > text && (end[-1] == ' ' || end[-1] == '\t')) --end;
    return cow_String(text, static_cast<int>(end - text));
}

[[noreturn]] void Raise(const char* text, int line) {
    nex_TextException(atr_translate(text).Result()).Throw(__FILE__, line);
}

[[noreturn]] void RaiseLabel(const char* format, const char* item, int line) {
    atr_translate t(format);
    atr_SubstituteFormat(t, 1, Trimmed(item));
    nex_TextException(t.Result()).Throw(__FILE__, line);
}

int LabelOf(const char* item) {
    if (inp_RawDataArrayImpl::Type(item) != inp_Types::typeInt)
        RaiseLabel("Node label is not an integer: %s", item, __LINE__);
    // On the text, not the value: a sign counts, and ten digits are refused even when
    // they fit an int.
    if (NonBlankLength(item) > kMaxLabelDigits) RaiseLabel("Node label exceeds 9 digits: %s", item, __LINE__);
    int label = std::atoi(item);
    if (label < 1) RaiseLabel("Node label is not a positive integer: %s", item, __LINE__);
    return label;
}

// Decks write exponents with D as often as with e: `1.5D3` is 1500. The first D, or
// else the first d, is changed in the item itself, as a raw AsDouble changes it. False
// when text other than white space follows the number; a blank item is 0.0 and no error.
bool ReadValue(char* item, double& value) {
    char* upper = nullptr;
    char* lower = nullptr;
    for (char* p = item; *p && !upper; ++p) {
        if (*p == 'D') upper = p;
        else if (*p == 'd' && !lower) lower = p;
    }
    if (upper) *upper = 'e';
    else if (lower) *lower = 'e';
    char* end = nullptr;
    value = atr_ReadDouble(item, &end);
    while (std::isspace(static_cast<unsigned char>(*end))) ++end;
    return *end == '\0';
}

[[noreturn]] void RaiseBadValues(const inpM_OmiSet& badNodes) {
    atr_String labels;
    int named = 0;
    inpM_OmiSetIT it(badNodes);
    for (it.First(); !it.IsDone() && named < kMaxBadNodesNamed; it.Next(), ++named)
        labels.append(' ').append(cow_String(it.CurrentItem()));
    atr_translate t("Invalid nodal coordinate values were specified for the following nodes:%s");
    atr_SubstituteFormat(t, 1, labels);
    nex_TextException(t.Result()).Throw(__FILE__, __LINE__);
}

}  // namespace

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(int capacity)
    : nrows(0), allocatedSize(0), labels(nullptr), coords(nullptr) {
    NEX_ASSERT(capacity >= 0);
    AllocateArrays(capacity);
    try {
        for (int i = 0; i < capacity; ++i) NewBlock(i);
    } catch (...) {
        Release();
        throw;
    }
}

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(const inp_DataArray& raw)
    : nrows(0), allocatedSize(0), labels(nullptr), coords(nullptr) {
    inp_DataLineCursor cursor(raw);
    Pack(cursor, nullptr);
}

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(inp_DataArray& raw, bool releaseRaw)
    : nrows(0), allocatedSize(0), labels(nullptr), coords(nullptr) {
    inp_DataLineCursor cursor(raw);
    Pack(cursor, releaseRaw ? &raw : nullptr);
}

void inp_NodeDataArrayImpl::Pack(inp_DataLineCursor& cursor, inp_DataArray* releasing) {
    AllocateArrays(cursor.NumberOfLines());
    nrows = allocatedSize;
    try {
        PackLines(cursor, releasing);
    } catch (...) {
        Release();
        throw;
    }
}

inp_NodeDataArrayImpl::inp_NodeDataArrayImpl(const inp_NodeDataArrayImpl& other)
    : inp_DataArrayImpl(), nrows(0), allocatedSize(0), labels(nullptr), coords(nullptr) {
    AllocateArrays(other.nrows);
    nrows = allocatedSize;
    try {
        for (int i = 0; i < nrows; ++i) {
            if (!other.coords[i]) continue;
            std::memcpy(NewBlock(i), other.coords[i], sizeof(double) * kValues);
            labels[i] = other.labels[i];
        }
    } catch (...) {
        Release();
        throw;
    }
}

inp_NodeDataArrayImpl::~inp_NodeDataArrayImpl() { Release(); }

void inp_NodeDataArrayImpl::AllocateArrays(int size) {
    if (size <= 0) return;
    labels = static_cast<int*>(mem_Calloc(static_cast<size_t>(size), sizeof(int)));
    // Null slots until each block is made, so that a failure half way frees only blocks.
    coords = static_cast<double**>(mem_Calloc(static_cast<size_t>(size), sizeof(double*)));
    if (!labels || !coords) {
        mem_Free(labels);
        mem_Free(coords);
        labels = nullptr;
        coords = nullptr;
        inp_MemoryException().Throw(__FILE__, __LINE__);
    }
    allocatedSize = size;
}

double* inp_NodeDataArrayImpl::NewBlock(int i) {
    double* block = static_cast<double*>(mem_BlockCalloc(sizeof(double) * kValues));
    if (!block) inp_MemoryException().Throw(__FILE__, __LINE__);
    coords[i] = block;
    return block;
}

void inp_NodeDataArrayImpl::Release() {
    if (coords) mem_BlockFreeMany(reinterpret_cast<void* const*>(coords), static_cast<std::size_t>(allocatedSize));
    mem_Free(coords);
    mem_Free(labels);
    coords = nullptr;
    labels = nullptr;
    nrows = 0;
    released = 0;
    allocatedSize = 0;
}

// The hot path of a large deck: one block per line and one walk over the items, with
// no string made unless a message needs one.
void inp_NodeDataArrayImpl::PackLines(inp_DataLineCursor& cursor, inp_DataArray* releasing) {
    inpM_OmiSet badNodes;
    for (int i = 0; i < nrows; ++i) {
        if (releasing && i > 0 && i % kReleaseBatch == 0) releasing->ReleaseLines(i);
        double* block = NewBlock(i);
        int items = cursor.SeekLine(i);
        if (items < 1) continue;  // no raw line is so; another kind of array might be
        char* item = cursor.NextItem();
        // An empty line in a *NODE block is a node of label 0 at the origin.
        if (items == 1 && IsBlankText(item)) continue;
        labels[i] = LabelOf(item);
        if (items > kItems) items = kItems;
        bool bad = false;
        for (int j = 1; j < items; ++j)
            if (!ReadValue(cursor.NextItem(), block[j - 1])) bad = true;
        if (bad) badNodes.Insert(labels[i]);
    }
    if (releasing) releasing->ReleaseLines(nrows);
    if (!badNodes.IsEmpty()) RaiseBadValues(badNodes);
}

void inp_NodeDataArrayImpl::CheckItem(int i, int j) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    NEX_ASSERT(j >= 0 && j < 7);
    NEX_ASSERT(coords[i] != nullptr);
}

int inp_NodeDataArrayImpl::NumberOfLines() const { return nrows; }

int inp_NodeDataArrayImpl::NumberOfItems(int i) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    return coords[i] ? kItems : 0;
}

void inp_NodeDataArrayImpl::ReleaseLines(int end) {
    ReleaseLineBlocks(coords, labels, nrows, released, end);
}

inp_Types::typeEnm inp_NodeDataArrayImpl::Type(int line, int item) const {
    CheckItem(line, item);
    return item == 0 ? inp_Types::typeInt : inp_Types::typeDouble;
}

bool inp_NodeDataArrayImpl::IsBlank(int, int) const { return false; }

bool inp_NodeDataArrayImpl::HasValue(int line, int item) const {
    if (line < 0 || line >= nrows || item < 0 || item >= kItems || !coords[line]) return false;
    return !IsBlank(line, item);
}

int inp_NodeDataArrayImpl::AsInt(int line, int item) const {
    CheckItem(line, item);
    if (item != 0) Raise("Keyword data cannot be converted to an integer", __LINE__);
    return labels[line];
}

double inp_NodeDataArrayImpl::AsDouble(int line, int item) const {
    CheckItem(line, item);
    if (item == 0) Raise("Node number cannot be converted to a double", __LINE__);
    return coords[line][item - 1];
}

// The double's text is the one every number of the deck prints with, so a printed deck
// reads back to the same values.
cow_String inp_NodeDataArrayImpl::AsString(int line, int item) const {
    CheckItem(line, item);
    return item == 0 ? cow_String(labels[line]) : cow_String(coords[line][item - 1]);
}

cow_String inp_NodeDataArrayImpl::AsStringVerbatim(int line, int item) const { return AsString(line, item); }

void inp_NodeDataArrayImpl::PrintLine(int line, aio_ostream& out) const {
    NEX_ASSERT(line >= 0 && line < nrows);
    // Label 0 is what an empty line packs to, and the empty line is what reads back to
    // it: a printed `0, ...` would be refused with the whole block.
    if (labels[line] == 0) return;
    char buffer[kItems * (atr_kNumberChars + 2)];
    int used = atr_WriteInt(labels[line], buffer);
    for (int j = 0; j < kValues; ++j) {
        buffer[used++] = ',';
        buffer[used++] = ' ';
        used += atr_WriteDouble(coords[line][j], buffer + used);
    }
    out.write(buffer, static_cast<size_t>(used));
}

void inp_NodeDataArrayImpl::Set(int, int, const cow_String&) {
    Raise("Nodal id, coordinates or normals cannot set as a string", __LINE__);
}

void inp_NodeDataArrayImpl::Set(int line, int item, double value) {
    CheckItem(line, item);
    if (item == 0) Raise("Node number cannot be a double", __LINE__);
    coords[line][item - 1] = value;
}

void inp_NodeDataArrayImpl::Set(int line, int item, int value) {
    CheckItem(line, item);
    if (item != 0) Raise("Nodal coordinates or normals cannot be an integer", __LINE__);
    labels[line] = value;
}

void inp_NodeDataArrayImpl::Append(const char*, int) {
    Raise("There has been an attempt to append a generic data line to a *NODE keyword.  This can happen when the "
          "nodal coordinate listing is separated from the *NODE keyword.  Please make sure your include files "
          "contain complete keywords (keyword + parameters + data lines).  Note that you can still use multiple "
          "files to list the nodes, provided you have *NODE at the top of each file.",
          __LINE__);
}

bool inp_NodeDataArrayImpl::LastItemIsBlank(int) const { return false; }

inp_DataArrayImpl* inp_NodeDataArrayImpl::Clone() const { return new inp_NodeDataArrayImpl(*this); }

int inp_NodeDataArrayImpl::AddNode(int label, double x, double y, double z) {
    NEX_ASSERT(nrows+1 < allocatedSize);
    labels[nrows] = label;
    double* block = coords[nrows];
    block[0] = x;
    block[1] = y;
    block[2] = z;
    return ++nrows;
}
