// Raw data lines: one block per line, items cut in place, typed on demand.
#include "inp_DataArray.h"

#include "atr_Number.h"

#include <atomic>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "aio_ostream.h"
#include "inp_Exceptions.h"
#include "mem_BlockHeap.h"
#include "mem_Malloc.h"
#include "nex_Exception.h"

namespace {

const int kInitialRows = 10;

inline bool IsBlankChar(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Copies up to n characters of s to out with the StripBlanks rule and gives the length
// written. out may be s itself: it never runs ahead of the reading position. A null out
// only counts.
int StripBlanksCopy(const char* s, int n, char* out, bool upper) {
    bool quoted = false;
    int w = 0;
    for (int r = 0; r < n; ++r) {
        char c = s[r];
        if (c == '\0') break;
        if (c == '\n') {
            if (out) out[w] = c;
            ++w;
            break;
        }
        if (c == '"')
            quoted = !quoted;
        else if (!quoted && IsBlankChar(c))
            continue;
        if (out) out[w] = upper ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        ++w;
    }
    return w;
}

// One allocation: the copy is compacted in place.
cow_String StripBlanksOf(const char* s, int n, bool upper) {
    if (n <= 0) return cow_String();
    cow_String out(s, n);
    char* p = &out[0];
    int w = StripBlanksCopy(p, n, p, upper);
    if (w < n) out.Erase(w, n - w);
    return out;
}

// The longest line the reader takes whole.
const int kReadableLength = 256;

// The normal form of the item (blanks outside quotes removed) begins with `**`: as the
// first item of a line it would make the line a comment.
bool IsCommentStart(const char* item) {
    int stars = 0;
    for (; *item && stars < 2; ++item) {
        if (IsBlankChar(*item)) continue;
        if (*item != '*') return false;
        ++stars;
    }
    return stars == 2;
}

// Length of a stored line: its items one behind the other, each with its NUL.
int BlockLength(const char* block, int items) {
    const char* p = block;
    for (int k = 0; k < items; ++k) p += std::strlen(p) + 1;
    return static_cast<int>(p - block);
}

unsigned long long NextStamp() {
    static std::atomic<unsigned long long> stamps{0};
    return stamps.fetch_add(1, std::memory_order_relaxed) + 1;
}

// The last item this thread found: in which array (and version of it), where.
struct FoundItem {
    const void* array = nullptr;
    unsigned long long stamp = 0;
    int line = -1;
    int item = 0;
    char* text = nullptr;
};
thread_local FoundItem t_found;

}  // namespace

cow_String StripBlanks(const char* text) {
    if (!text) return cow_String();
    return StripBlanksOf(text, static_cast<int>(std::strlen(text)), false);
}

cow_String StripBlanks(const cow_String& text) { return StripBlanksOf(text.c_str(), text.Length(), false); }

inp_DataArrayImpl::~inp_DataArrayImpl() = default;

inp_DataArrayImpl::IntItem inp_DataArrayImpl::ReadInt(int line, int item, int& value) const {
    if (!HasValue(line, item)) return kNoValue;
    if (Type(line, item) != inp_Types::typeInt) return kNotInt;
    if (TextLength(line, item) > 9) return kTooLong;
    value = AsInt(line, item);
    return kInt;
}

void inp_DataArrayImpl::ReadInts(int line, int first, int count, int* values, IntItem* kinds) const {
    for (int k = 0; k < count; ++k) {
        values[k] = 0;
        kinds[k] = ReadInt(line, first + k, values[k]);
    }
}

// A first item whose normal form starts with `**` (`* * X`) would read back as a
// comment; it is written as it was given, which reads back to the same item.
void inp_DataArrayImpl::PrintLine(int line, aio_ostream& out) const {
    const int items = NumberOfItems(line);
    for (int j = 0; j < items; ++j) {
        cow_String item = AsString(line, j);
        if (j > 0)
            out.print(", ");
        else if (item.StartsWith("**"))
            item = AsStringVerbatim(line, j);
        out << item;
    }
}

inp_RawDataArrayImpl::inp_RawDataArrayImpl()
    : nrows(0), allocatedSize(kInitialRows), rows(nullptr), ncols(nullptr), released(0), m_stamp(NextStamp()) {
    rows = static_cast<char**>(mem_Malloc(sizeof(char*) * kInitialRows));
    ncols = static_cast<int*>(mem_Malloc(sizeof(int) * kInitialRows));
    if (!rows || !ncols) {
        mem_Free(rows);
        mem_Free(ncols);
        inp_MemoryException().Throw(__FILE__, __LINE__);
    }
}

// The copy is sized to the lines in use: a cloned array is seldom appended to.
inp_RawDataArrayImpl::inp_RawDataArrayImpl(const inp_RawDataArrayImpl& other)
    : inp_DataArrayImpl(),
      nrows(0),
      allocatedSize(other.nrows),
      rows(nullptr),
      ncols(nullptr),
      released(0),
      m_stamp(NextStamp()) {
    size_t n = static_cast<size_t>(other.nrows);
    if (n > 0) {
        rows = static_cast<char**>(mem_Malloc(sizeof(char*) * n));
        ncols = static_cast<int*>(mem_Malloc(sizeof(int) * n));
        if (!rows || !ncols) {
            mem_Free(rows);
            mem_Free(ncols);
            inp_MemoryException().Throw(__FILE__, __LINE__);
        }
    }
    for (int i = 0; i < other.nrows; ++i) {
        if (!other.rows[i]) {
            rows[i] = nullptr;
            ncols[i] = 0;
            nrows = i + 1;
            continue;
        }
        int length = BlockLength(other.rows[i], other.ncols[i]);
        char* block = static_cast<char*>(mem_BlockMalloc(static_cast<size_t>(length)));
        if (!block) {
            for (int k = 0; k < nrows; ++k) mem_BlockFree(rows[k]);
            mem_Free(rows);
            mem_Free(ncols);
            inp_MemoryException().Throw(__FILE__, __LINE__);
        }
        std::memcpy(block, other.rows[i], static_cast<size_t>(length));
        rows[i] = block;
        ncols[i] = other.ncols[i];
        nrows = i + 1;
    }
}

inp_RawDataArrayImpl::~inp_RawDataArrayImpl() {
    if (rows) mem_BlockFreeMany(reinterpret_cast<void* const*>(rows), static_cast<std::size_t>(nrows));
    mem_Free(rows);
    mem_Free(ncols);
}

// The parameter names are those of the assertion texts, which callers may see.
char* inp_RawDataArrayImpl::Item(int i, int j) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    NEX_ASSERT(j >= 0 && j < ncols[i]);
    FoundItem& found = t_found;
    char* p = rows[i];
    int k = 0;
    if (found.array == this && found.stamp == m_stamp && found.line == i && found.item <= j) {
        p = found.text;
        k = found.item;
    }
    for (; k < j; ++k) p += std::strlen(p) + 1;
    found.array = this;
    found.stamp = m_stamp;
    found.line = i;
    found.item = j;
    found.text = p;
    return p;
}

void inp_RawDataArrayImpl::StoreLine(int i, const char* text, int length) {
    char* block = static_cast<char*>(mem_BlockMalloc(static_cast<size_t>(length) + 1));
    if (!block) inp_MemoryException().Throw(__FILE__, __LINE__);
    std::memcpy(block, text, static_cast<size_t>(length));
    block[length] = '\0';
    const int items = CutItems(block, length);
    rows[i] = block;
    ncols[i] = items;
}

// Turns every separating comma of the text into a NUL and gives the number of items.
// Most lines hold no quote, so that every comma separates; eight characters at a time
// are looked at for both, and a line with a quote is cut by the slow rule from the start.
int inp_RawDataArrayImpl::CutItems(char* block, int length) {
    const std::uint64_t kOnes = 0x0101010101010101ull;
    const std::uint64_t kLow7 = 0x7f7f7f7f7f7f7f7full;
    // The high bit of every byte of x that is zero, and of no other byte.
    auto zeroBytes = [&](std::uint64_t x) { return ~(((x & kLow7) + kLow7) | x | kLow7); };
    int items = 1;
    int k = 0;
    const bool littleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
    for (; littleEndian && k + 8 <= length; k += 8) {
        std::uint64_t word;
        std::memcpy(&word, block + k, sizeof word);
        if (zeroBytes(word ^ (kOnes * '"'))) return CutQuotedItems(block, length);
        for (std::uint64_t commas = zeroBytes(word ^ (kOnes * ',')); commas; commas &= commas - 1) {
            // Little-endian: the lowest set bit is the first comma of the word.
            block[k + (__builtin_ctzll(commas) >> 3)] = '\0';
            ++items;
        }
    }
    for (; k < length; ++k) {
        if (block[k] == '"') return CutQuotedItems(block, length);
        if (block[k] == ',') {
            block[k] = '\0';
            ++items;
        }
    }
    return items;
}

int inp_RawDataArrayImpl::CutQuotedItems(char* block, int length) {
    // Commas already cut before the quote was seen are commas again.
    for (int k = 0; k < length; ++k)
        if (block[k] == '\0') block[k] = ',';
    int items = 1;
    bool quoted = false;
    for (char* p = block; p < block + length; ++p) {
        if (*p == '"') {
            quoted = !quoted;
        } else if (*p == ',' && !quoted) {
            *p = '\0';
            ++items;
        }
    }
    return items;
}

char* inp_RawDataArrayImpl::LineBlock(int i) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    return rows[i];
}

int inp_RawDataArrayImpl::NumberOfLines() const { return nrows; }

int inp_RawDataArrayImpl::NumberOfItems(int i) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    return ncols[i];
}

inp_Types::typeEnm inp_RawDataArrayImpl::Type(int line, int item) const { return Type(Item(line, item)); }

inp_Types::typeEnm inp_RawDataArrayImpl::Type(const char* text) {
    const char* p = text;
    while (IsBlankChar(*p)) ++p;
    int n = 0;
    for (const char* q = p; *q; ++q)
        if (!IsBlankChar(*q)) ++n;
    if (n < 1) return inp_Types::typeNone;

    char first = *p;
    if (first == 'e' || first == 'E' || first == 'd' || first == 'D') return inp_Types::typeString;
    if (first == '+' || first == '-') {
        ++p;
        --n;
    }
    // Blanks inside the text are not skipped here: `1 2` meets its blank and is a name.
    int signs = 0, points = 0, marks = 0;
    for (int k = 0; k < n; ++k) {
        char c = p[k];
        if (c == '+' || c == '-')
            ++signs;
        else if (c == '.')
            ++points;
        else if (c == 'e' || c == 'E' || c == 'd' || c == 'D')
            ++marks;
        else if (c < '0' || c > '9')
            return inp_Types::typeString;
    }
    if (signs == 0 && points == 0 && marks == 0) return inp_Types::typeInt;
    if (signs <= 1 && points <= 1 && marks <= 1) return inp_Types::typeDouble;
    return inp_Types::typeString;
}

bool inp_RawDataArrayImpl::IsBlank(int line, int item) const {
    for (const char* p = Item(line, item); *p; ++p)
        if (!IsBlankChar(*p)) return false;
    return true;
}

bool inp_RawDataArrayImpl::HasValue(int line, int item) const {
    if (line < 0 || line >= nrows || item < 0 || item >= ncols[line]) return false;
    return !IsBlank(line, item);
}

int inp_RawDataArrayImpl::AsInt(int line, int item) const { return std::atoi(Item(line, item)); }

double inp_RawDataArrayImpl::AsDouble(int line, int item) const {
    char* p = Item(line, item);
    char* mark = std::strchr(p, 'D');
    if (!mark) mark = std::strchr(p, 'd');
    if (mark) *mark = 'e';
    return atr_ReadDouble(p, nullptr);
}

cow_String inp_RawDataArrayImpl::AsStringVerbatim(int line, int item) const {
    const char* p = Item(line, item);
    const char* end = p + std::strlen(p);
    while (p < end && (*p == ' ' || *p == '\t')) ++p;
    while (end > p && (end[-1] == ' ' || end[-1] == '\t')) --end;
    return cow_String(p, static_cast<int>(end - p));
}

int inp_DataArrayImpl::TextLength(int line, int item) const { return AsString(line, item).Length(); }

void inp_DataArrayImpl::ReleaseLines(int) {}

void inp_RawDataArrayImpl::ReleaseLines(int end) {
    // A remembered item may lie in a freed block.
    if (ReleaseLineBlocks(rows, ncols, nrows, released, end)) m_stamp = NextStamp();
}

namespace {

// Reads an item of blanks around at most nine decimal digits and leaves `p` on its
// terminating NUL; false, with `p` anywhere, for any other item (a sign, a blank
// between digits, a tenth digit), which goes the long way.
bool ReadPlainInt(const char*& p, inp_DataArrayImpl::IntItem& kind, int& value) {
    while (IsBlankChar(*p)) ++p;
    const char* digits = p;
    int number = 0;
    while (*p >= '0' && *p <= '9' && p - digits < 9) number = number * 10 + (*p++ - '0');
    const long length = p - digits;
    while (IsBlankChar(*p)) ++p;
    if (*p != '\0') return false;
    if (length == 0) {
        kind = inp_DataArrayImpl::kNoValue;
    } else {
        kind = inp_DataArrayImpl::kInt;
        value = number;
    }
    return true;
}

}  // namespace

inp_DataArrayImpl::IntItem inp_RawDataArrayImpl::ReadInt(int line, int item, int& value) const {
    if (line < 0 || line >= nrows || item < 0 || item >= ncols[line]) return kNoValue;
    const char* p = Item(line, item);
    IntItem kind;
    if (!ReadPlainInt(p, kind, value)) return inp_DataArrayImpl::ReadInt(line, item, value);
    return kind;
}

void inp_RawDataArrayImpl::ReadInts(int line, int first, int count, int* values, IntItem* kinds) const {
    // A released line has no items, and reads as absent items below.
    if (line < 0 || line >= nrows || first < 0) return inp_DataArrayImpl::ReadInts(line, first, count, values, kinds);
    const int items = ncols[line];
    const char* next = first < items ? Item(line, first) : nullptr;
    for (int k = 0; k < count; ++k) {
        const int j = first + k;
        values[k] = 0;
        if (j >= items) {
            kinds[k] = kNoValue;
            continue;
        }
        const char* p = next;
        if (ReadPlainInt(p, kinds[k], values[k])) {
            next = p + 1;
        } else {
            kinds[k] = inp_DataArrayImpl::ReadInt(line, j, values[k]);
            next += std::strlen(next) + 1;
        }
    }
}

int inp_RawDataArrayImpl::TextLength(int line, int item) const {
    const char* p = Item(line, item);
    const char* end = p + std::strlen(p);
    while (p < end && (*p == ' ' || *p == '\t')) ++p;
    while (end > p && (end[-1] == ' ' || end[-1] == '\t')) --end;
    return StripBlanksCopy(p, static_cast<int>(end - p), nullptr, false);
}

// Trim first, then strip: with an unbalanced quote the two differ, and the trimmed form
// is the one the item is defined by.
cow_String inp_RawDataArrayImpl::AsString(int line, int item) const {
    const char* p = Item(line, item);
    const char* end = p + std::strlen(p);
    while (p < end && (*p == ' ' || *p == '\t')) ++p;
    while (end > p && (end[-1] == ' ' || end[-1] == '\t')) --end;
    return StripBlanksOf(p, static_cast<int>(end - p), true);
}

void inp_RawDataArrayImpl::Set(int i, int j, const cow_String& text) {
    NEX_ASSERT(i >= 0 && i < nrows);
    NEX_ASSERT(j >= 0);
    int last = ncols[i] - 1 > j ? ncols[i] - 1 : j;
    cow_String line;
    for (int k = 0; k <= last; ++k) {
        if (k > 0) line.append(',');
        if (k == j)
            line.append(text);
        else if (k < ncols[i])
            line.append(AsString(i, k));
    }
    mem_BlockFree(rows[i]);
    rows[i] = nullptr;
    ncols[i] = 0;
    m_stamp = NextStamp();
    StoreLine(i, line.c_str(), line.Length());
}

void inp_RawDataArrayImpl::Set(int line, int item, double value) { Set(line, item, cow_String(value)); }

void inp_RawDataArrayImpl::Set(int line, int item, int value) { Set(line, item, cow_String(value)); }

void inp_RawDataArrayImpl::Append(const char* text, int length) {
    if (!text) {
        text = "";
        length = 0;
    }
    if (nrows + 1 > allocatedSize) {
        int size = allocatedSize * 2 < kInitialRows ? kInitialRows : allocatedSize * 2;
        // The first array may grow although the second fails: the larger one does no harm.
        char** newRows = static_cast<char**>(mem_Realloc(rows, sizeof(char*) * static_cast<size_t>(size)));
        if (!newRows) inp_MemoryException().Throw(__FILE__, __LINE__);
        rows = newRows;
        int* newCols = static_cast<int*>(mem_Realloc(ncols, sizeof(int) * static_cast<size_t>(size)));
        if (!newCols) inp_MemoryException().Throw(__FILE__, __LINE__);
        ncols = newCols;
        allocatedSize = size;
    }
    StoreLine(nrows, text, length);
    ++nrows;
}

bool inp_RawDataArrayImpl::LastItemIsBlank(int i) const {
    NEX_ASSERT(i >= 0 && i < nrows);
    return ncols[i] > 0 && IsBlank(i, ncols[i] - 1);
}

int inp_RawDataArrayImpl::PrintedLength(int line, int separator) const {
    int length = 0;
    const char* item = rows[line];
    for (int j = 0; j < ncols[line]; ++j) {
        const int n = static_cast<int>(std::strlen(item));
        // A first item that reads as a comment is written as given, blanks and all.
        const int copied = StripBlanksCopy(item, n, nullptr, true);
        length += (j == 0 && copied >= 2 && IsCommentStart(item) ? n : copied) + (j > 0 ? separator : 0);
        item += n + 1;
    }
    return length;
}

// The AsString form of each item, built in a buffer on the stack: the printer writes
// every line of a deck, and a string per item was most of its time.
void inp_RawDataArrayImpl::PrintLine(int line, aio_ostream& out) const {
    NEX_ASSERT(line >= 0 && line < nrows);
    // The reader cuts a line at 256 characters, and the blank behind each comma can
    // take a line of many short items past that: such a line goes without the blanks,
    // which the reader does not need. A line too long even so keeps its normal form.
    const int stored = BlockLength(rows[line], ncols[line]);
    const bool spaced = stored + 2 * ncols[line] <= kReadableLength || PrintedLength(line, 2) <= kReadableLength ||
                        PrintedLength(line, 1) > kReadableLength;
    char buffer[512];
    int used = 0;
    const char* item = rows[line];
    for (int j = 0; j < ncols[line]; ++j) {
        const char* p = item;
        const char* end = p + std::strlen(p);
        item = end + 1;
        while (p < end && (*p == ' ' || *p == '\t')) ++p;
        while (end > p && (end[-1] == ' ' || end[-1] == '\t')) --end;
        const int n = static_cast<int>(end - p);
        if (used + n + 2 > static_cast<int>(sizeof buffer)) {
            out.write(buffer, static_cast<size_t>(used));
            used = 0;
        }
        if (j > 0) {
            buffer[used++] = ',';
            if (spaced) buffer[used++] = ' ';
        }
        if (used + n <= static_cast<int>(sizeof buffer)) {
            const int copied = StripBlanksCopy(p, n, buffer + used, true);
            if (j == 0 && copied >= 2 && buffer[0] == '*' && buffer[1] == '*') {
                std::memcpy(buffer, p, static_cast<size_t>(n));  // as given: see the base class
                used = n;
            } else {
                used += copied;
            }
        } else {
            out.write(buffer, static_cast<size_t>(used));
            used = 0;
            out << StripBlanksOf(p, n, true);
        }
    }
    out.write(buffer, static_cast<size_t>(used));
}

void inp_RawDataArrayImpl::RemoveLinesFrom(int line) {
    if (line < 0) line = 0;
    for (int k = line; k < nrows; ++k) mem_BlockFree(rows[k]);
    if (line < nrows) nrows = line;
    if (released > nrows) released = nrows;
    m_stamp = NextStamp();
}

inp_DataArrayImpl* inp_RawDataArrayImpl::Clone() const { return new inp_RawDataArrayImpl(*this); }

cow_String inp_DataArray::AsString(int line, int item, const cow_String& fallback) const {
    if (line >= 0 && line < NumberOfLines() && item >= 0 && item < NumberOfItems(line))
        return AsString(line, item);
    return StripBlanksOf(fallback.c_str(), fallback.Length(), true);
}

inp_DataLineCursor::inp_DataLineCursor(const inp_DataArray& data)
    : m_data(data),
      m_raw(dynamic_cast<const inp_RawDataArrayImpl*>(data.Pointer())),
      m_lines(data.HasValue() ? data.NumberOfLines() : 0),
      m_line(0),
      m_item(0),
      m_next(nullptr),
      m_empty{'\0'} {}

int inp_DataLineCursor::SeekLine(int line) {
    m_line = line;
    m_item = 0;
    m_next = m_raw ? m_raw->LineBlock(line) : nullptr;
    return m_data.NumberOfItems(line);
}

char* inp_DataLineCursor::NextItem() {
    if (m_raw) {
        char* item = m_next;
        m_next += std::strlen(item) + 1;
        return item;
    }
    m_copy = m_data.AsStringVerbatim(m_line, m_item++);
    if (m_copy.IsEmpty()) {
        m_empty[0] = '\0';
        return m_empty;
    }
    return &m_copy[0];
}
