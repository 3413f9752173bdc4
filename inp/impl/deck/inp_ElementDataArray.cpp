// Packed *ELEMENT data: building it from raw lines or from element tables, and the line
// and item interface.
#include "inp_ElementDataArray.h"

#include <cstdlib>
#include <cstring>

#include "aio_ostream.h"
#include "atr_Number.h"
#include "inp_Exceptions.h"
#include "mem_BlockHeap.h"
#include "mem_Malloc.h"
#include "nex_Exception.h"

namespace {

const int kFirstLineNodes = 15;  // behind the element id
const int kLineNodes = 16;

// What atoi reads, without its locale and its cost: the packed lines of a large deck
// are millions of items. A value past the int range is cut to it.
int ReadInteger(const char* p) {
    while (*p == ' ' || (*p >= '\t' && *p <= '\r')) ++p;
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+') ++p;
    long long value = 0;
    for (; *p >= '0' && *p <= '9'; ++p)
        if (value <= 2147483648LL) value = value * 10 + (*p - '0');
    if (negative) value = -value;
    if (value > 2147483647LL) return 2147483647;
    if (value < -2147483648LL) return -2147483647 - 1;
    return static_cast<int>(value);
}

[[noreturn]] void Raise(const char* text, int line) {
    nex_TextException(atr_translate(text).Result()).Throw(__FILE__, line);
}

}  // namespace

int inp_ElementDataArrayImpl::LinesFor(int numNodes) {
    if (numNodes <= kFirstLineNodes) return 1;
    return (numNodes - kFirstLineNodes + kLineNodes - 1) / kLineNodes + 1;
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(const inp_DataArray& raw)
    : nrows(0), ncols(nullptr), rows(nullptr) {
    inp_DataLineCursor cursor(raw);
    PackLines(cursor, nullptr);
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(inp_DataArray& raw, bool releaseRaw)
    : nrows(0), ncols(nullptr), rows(nullptr) {
    inp_DataLineCursor cursor(raw);
    PackLines(cursor, releaseRaw ? &raw : nullptr);
}

void inp_ElementDataArrayImpl::PackLines(inp_DataLineCursor& cursor, inp_DataArray* releasing) {
    AllocateArrays(cursor.NumberOfLines());
    try {
        for (int i = 0; i < cursor.NumberOfLines(); ++i) {
            int items = cursor.SeekLine(i);
            int* values = NewLine(i, items);
            for (int j = 0; j < items; ++j) values[j] = ReadInteger(cursor.NextItem());
            if (releasing && (i + 1) % kReleaseBatch == 0) releasing->ReleaseLines(i + 1);
        }
    } catch (...) {
        Release();
        throw;
    }
    if (releasing) releasing->ReleaseLines(cursor.NumberOfLines());
}

namespace {

bool IsBlankChar(char c) { return c == ' ' || c == '\t'; }

// A nonzero integer of at most nine characters between blanks, as the raw array's
// typing and TextLength see it, or a blank item where `blankAllowed`. Gives the start
// of the next item, or null when the item is neither.
const char* PastPlainItem(const char* p, bool blankAllowed) {
    while (IsBlankChar(*p)) ++p;
    if (*p == '\0') return blankAllowed ? p + 1 : nullptr;
    const char* start = p;
    if (*p == '-') ++p;
    const char* digits = p;
    bool nonzero = false;
    for (; *p >= '0' && *p <= '9'; ++p) nonzero = nonzero || *p != '0';
    if (p == digits || p - start > 9 || !nonzero) return nullptr;
    while (IsBlankChar(*p)) ++p;
    return *p == '\0' ? p + 1 : nullptr;
}

}  // namespace

bool inp_ElementDataArrayImpl::PacksExactly(const inp_DataArray& raw) {
    if (!raw.HasValue()) return false;
    const auto* lines = dynamic_cast<const inp_RawDataArrayImpl*>(&raw.ConstGet());
    if (!lines) return false;
    for (int i = 0; i < lines->NumberOfLines(); ++i) {
        const int items = lines->NumberOfItems(i);
        const char* item = lines->LineBlock(i);
        for (int j = 0; j < items && item; ++j) item = PastPlainItem(item, j == items - 1 && items > kLineNodes);
        if (!item) return false;
    }
    return true;
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(const cow_Map<int, cow_1DArrayList<int>>& connectivity)
    : nrows(0), ncols(nullptr), rows(nullptr) {
    cow_ConstMapIterator<int, cow_1DArrayList<int>> it(connectivity);
    int lines = 0;
    for (it.First(); !it.IsDone(); it.Next()) lines += LinesFor(it.CurrentValue().Count());
    AllocateArrays(lines);
    try {
        for (it.First(); !it.IsDone(); it.Next()) {
            const cow_1DArrayList<int>& nodes = it.CurrentValue();
            AddElement(it.CurrentKey(), nodes.Count(), [&nodes](int k) { return nodes[k]; });
        }
    } catch (...) {
        Release();
        throw;
    }
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(const cow_1DArrayList<int>& ids,
                                                   const omi_IntTable<inp_Element>& elements)
    : nrows(0), ncols(nullptr), rows(nullptr) {
    // The table keeps a negative id under its magnitude in its negative half; asking the
    // table itself finds it there.
    int lines = 0;
    for (int i = 0; i < ids.Count(); ++i)
        if (elements.HasKey(ids[i])) lines += LinesFor(elements.ConstGet(ids[i]).numNodes);
    AllocateArrays(lines);
    try {
        for (int i = 0; i < ids.Count(); ++i) {
            if (!elements.HasKey(ids[i])) continue;
            const inp_Element& element = elements.ConstGet(ids[i]);
            AddElement(ids[i], element.numNodes, [&element](int k) { return element.nodes[k]; });
        }
    } catch (...) {
        Release();
        throw;
    }
}

inp_ElementDataArrayImpl::inp_ElementDataArrayImpl(const inp_ElementDataArrayImpl& other)
    : inp_DataArrayImpl(), nrows(0), ncols(nullptr), rows(nullptr) {
    AllocateArrays(other.nrows);
    try {
        for (int i = 0; i < other.nrows; ++i) {
            int* values = NewLine(i, other.ncols[i]);
            if (other.ncols[i] > 0)
                std::memcpy(values, other.rows[i], sizeof(int) * static_cast<size_t>(other.ncols[i]));
        }
    } catch (...) {
        Release();
        throw;
    }
}

inp_ElementDataArrayImpl::~inp_ElementDataArrayImpl() { Release(); }

void inp_ElementDataArrayImpl::AllocateArrays(int size) {
    if (size <= 0) return;
    rows = static_cast<int**>(mem_Malloc(sizeof(int*) * static_cast<size_t>(size)));
    ncols = static_cast<int*>(mem_Malloc(sizeof(int) * static_cast<size_t>(size)));
    if (!rows || !ncols) {
        mem_Free(rows);
        mem_Free(ncols);
        rows = nullptr;
        ncols = nullptr;
        inp_MemoryException().Throw(__FILE__, __LINE__);
    }
}

// Lines are made in order, so nrows counts exactly the lines that Release must free.
int* inp_ElementDataArrayImpl::NewLine(int i, int items) {
    size_t slots = static_cast<size_t>(items > 0 ? items : 1);
    int* values = static_cast<int*>(mem_BlockMalloc(sizeof(int) * slots));
    if (!values) inp_MemoryException().Throw(__FILE__, __LINE__);
    rows[i] = values;
    ncols[i] = items;
    nrows = i + 1;
    return values;
}

void inp_ElementDataArrayImpl::Release() {
    if (rows) mem_BlockFreeMany(reinterpret_cast<void* const*>(rows), static_cast<std::size_t>(nrows));
    mem_Free(rows);
    mem_Free(ncols);
    rows = nullptr;
    ncols = nullptr;
    nrows = 0;
    released = 0;
}

template <class NodeAt>
void inp_ElementDataArrayImpl::AddElement(int id, int numNodes, NodeAt nodeAt) {
    int done = 0;
    bool first = true;
    do {
        int room = first ? kFirstLineNodes : kLineNodes;
        int take = numNodes - done < room ? numNodes - done : room;
        bool more = done + take < numNodes;
        int lead = first ? 1 : 0;
        int* values = NewLine(nrows, lead + take + (more ? 1 : 0));
        if (first) values[0] = id;
        for (int k = 0; k < take; ++k) values[lead + k] = nodeAt(done + k);
        // The closing 0 is the trailing comma that says the element goes on.
        if (more) values[lead + take] = 0;
        done += take;
        first = false;
    } while (done < numNodes);
}

void inp_ElementDataArrayImpl::CheckItem(int i, int j) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    NEX_ASSERT(j >= 0 && j < ncols[i]);
}

int inp_ElementDataArrayImpl::NumberOfLines() const { return nrows; }

int inp_ElementDataArrayImpl::NumberOfItems(int i) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    return ncols[i];
}

inp_Types::typeEnm inp_ElementDataArrayImpl::Type(int line, int item) const {
    return IsBlank(line, item) ? inp_Types::typeNone : inp_Types::typeInt;
}

bool inp_ElementDataArrayImpl::IsBlank(int line, int item) const {
    CheckItem(line, item);
    return rows[line][item] == 0;
}

bool inp_ElementDataArrayImpl::HasValue(int line, int item) const {
    if (line < 0 || line >= nrows || item < 0 || item >= ncols[line]) return false;
    return !IsBlank(line, item);
}

int inp_ElementDataArrayImpl::AsInt(int line, int item) const {
    CheckItem(line, item);
    return rows[line][item];
}

double inp_ElementDataArrayImpl::AsDouble(int, int) const {
    Raise("Element keyword data cannot be converted to a double", __LINE__);
}

cow_String inp_ElementDataArrayImpl::AsString(int line, int item) const { return cow_String(AsInt(line, item)); }

cow_String inp_ElementDataArrayImpl::AsStringVerbatim(int line, int item) const { return AsString(line, item); }

void inp_ElementDataArrayImpl::Set(int, int, const cow_String&) { Raise("Illegal operation on element data", __LINE__); }

void inp_ElementDataArrayImpl::Set(int, int, double) { Raise("Illegal operation on element data", __LINE__); }

void inp_ElementDataArrayImpl::Set(int line, int item, int value) {
    CheckItem(line, item);
    rows[line][item] = value;
}

void inp_ElementDataArrayImpl::Append(const char*, int) {
    Raise("There has been an attempt to append a generic data line to a *ELEMENT keyword.  This can happen when "
          "the element connectivity listing is separated from the *ELEMENT keyword.  Please make sure your include "
          "files contain complete keywords (keyword + parameters + data lines).  Note that you can still use "
          "multiple files to list the elements, provided you have *ELEMENT at the top of each file.",
          __LINE__);
}

bool inp_ElementDataArrayImpl::LastItemIsBlank(int i) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    return ncols[i] > 0 && rows[i][ncols[i] - 1] == 0;
}

void inp_ElementDataArrayImpl::ReleaseLines(int end) {
    ReleaseLineBlocks(rows, ncols, nrows, released, end);
}

int inp_ElementDataArrayImpl::TextLength(int line, int item) const {
    CheckItem(line, item);
    const long long value = rows[line][item];
    unsigned long long magnitude = value < 0 ? static_cast<unsigned long long>(-value) : value;
    int digits = 1;
    while (magnitude >= 10) {
        magnitude /= 10;
        ++digits;
    }
    return digits + (value < 0 ? 1 : 0);
}

inp_DataArrayImpl::IntItem inp_ElementDataArrayImpl::ReadInt(int line, int item, int& value) const {
    if (line < 0 || line >= nrows || item < 0 || item >= ncols[line] || rows[line][item] == 0) return kNoValue;
    const int stored = rows[line][item];
    // Nine characters, a minus sign counted.
    if (stored > 999999999 || stored < -99999999) return kTooLong;
    value = stored;
    return kInt;
}

void inp_ElementDataArrayImpl::PrintLine(int line, aio_ostream& out) const {
    NEX_ASSERT(line >= 0 && line < nrows);
    // Only a line of an element that goes on holds more than 16 items.
    const int items = ncols[line];
    if (items == 0) return;
    const bool continued = items > kLineNodes && rows[line][items - 1] == 0;
    const int written = continued ? items - 1 : items;
    char buffer[16 * 16];
    for (int j = 0; j < written; ++j) {
        int used = 0;
        if (j > 0) {
            buffer[used++] = ',';
            buffer[used++] = ' ';
        }
        used += atr_WriteInt(rows[line][j], buffer + used);
        out.write(buffer, static_cast<size_t>(used));
    }
    // As a raw line prints its blank last item, so that both forms print alike.
    if (continued) out.write(", ", 2);
}

inp_DataArrayImpl* inp_ElementDataArrayImpl::Clone() const { return new inp_ElementDataArrayImpl(*this); }
