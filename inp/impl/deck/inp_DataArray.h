// The data lines of a keyword.
//
// A deck can hold millions of data lines, and most passes look at few of their items,
// so lines are not parsed when they are read: inp_RawDataArrayImpl keeps each line as
// one block of text, cut into items in place, and types an item only when asked.
// Packed forms for node and element data implement the same interface elsewhere.
//
// inp_DataArray is the handle a keyword holds. It counts but does not copy on write:
// every copy of a keyword sees, and writes into, the same array. A pass that wants the
// data on its own clones the implementation into a new handle.
//
// Lines and items count from 0. An item is one comma-separated field of a line; a comma
// between double quotes belongs to its item.
#ifndef INP_DATAARRAY_H
#define INP_DATAARRAY_H

#include <cstddef>
#include <cstring>

#include "cow_COW.h"
#include "cow_String.h"
#include "inp_Types.h"
#include "mem_BlockHeap.h"

class aio_ostream;

class inp_DataArrayImpl {
public:
    virtual ~inp_DataArrayImpl();

    virtual int NumberOfLines() const = 0;
    virtual int NumberOfItems(int line) const = 0;
    virtual inp_Types::typeEnm Type(int line, int item) const = 0;
    virtual bool IsBlank(int line, int item) const = 0;
    // Never fails: false for an item that does not exist.
    virtual bool HasValue(int line, int item) const = 0;
    virtual int AsInt(int line, int item) const = 0;
    virtual double AsDouble(int line, int item) const = 0;
    // The form in which passes compare items: blanks outside quotes removed, upper case.
    virtual cow_String AsString(int line, int item) const = 0;
    // Trimmed, in its own case.
    virtual cow_String AsStringVerbatim(int line, int item) const = 0;
    // AsString(line, item).Length(), which an array may tell without making the string.
    virtual int TextLength(int line, int item) const;
    // What an id or connectivity column asks of an item, in one question: no value
    // (blank or absent), not an integer (by Type), an integer of more than nine digits
    // (by TextLength), or an integer, whose AsInt goes to `value`.
    enum IntItem { kNoValue, kNotInt, kTooLong, kInt };
    virtual IntItem ReadInt(int line, int item, int& value) const;
    // ReadInt of items [first, first + count) of a line: kinds[k] and, for an integer,
    // values[k] (0 otherwise). A raw array walks the line once.
    virtual void ReadInts(int line, int first, int count, int* values, IntItem* kinds) const;
    virtual void Set(int line, int item, const cow_String& text) = 0;
    virtual void Set(int line, int item, double value) = 0;
    virtual void Set(int line, int item, int value) = 0;
    // A line of `length` characters (no NUL among them) behind the last.
    virtual void Append(const char* line, int length) = 0;
    void Append(const char* line) { Append(line, line ? static_cast<int>(std::strlen(line)) : 0); }
    virtual bool LastItemIsBlank(int line) const = 0;
    // A new array of the same kind and contents; the caller owns it.
    virtual inp_DataArrayImpl* Clone() const = 0;
    // Gives back the storage of the lines before `end`, which read as lines without
    // items from then on. For a pass that has taken a keyword's lines into a table
    // and whose keyword the table will stand for: a million element lines are freed
    // as they are read, not after the whole table has been built beside them. An
    // array without storage per line keeps its lines.
    virtual void ReleaseLines(int end);
    // The lines a reader lets go of at a time.
    static const int kReleaseBatch = 4096;

protected:
    // ReleaseLines of an array that keeps one block per line: frees the blocks of
    // lines [released, end), `end` cut to `lines`, nulls them and zeroes their entry of
    // `perLine`. Gives false when no line went.
    template <class Block>
    static bool ReleaseLineBlocks(Block** blocks, int* perLine, int lines, int& released, int end) {
        if (end > lines) end = lines;
        if (end <= released) return false;
        mem_BlockFreeMany(reinterpret_cast<void* const*>(blocks + released), static_cast<std::size_t>(end - released));
        for (int i = released; i < end; ++i) {
            blocks[i] = nullptr;
            perLine[i] = 0;
        }
        released = end;
        return true;
    }

public:
    // Writes the line as the deck printer does: each item's AsString, ", " between
    // them, no end of line. An array may write it without making the strings.
    virtual void PrintLine(int line, aio_ostream& out) const;
};

// Lines as raw text. Each line is one heap block holding the text with every separating
// comma turned into a NUL, so item j starts behind the j-th NUL and nothing is stored
// per item. Typing repeats at every read. Finding an item walks the NULs before it; each
// thread remembers the last item it found, so that a reader going along a line, or
// asking several questions of one item, walks every line once.
class inp_RawDataArrayImpl : public inp_DataArrayImpl {
public:
    inp_RawDataArrayImpl();
    ~inp_RawDataArrayImpl() override;

    int NumberOfLines() const override;
    int NumberOfItems(int line) const override;
    inp_Types::typeEnm Type(int line, int item) const override;
    bool IsBlank(int line, int item) const override;
    bool HasValue(int line, int item) const override;
    int AsInt(int line, int item) const override;
    // Rewrites a `D` or `d` exponent mark of the item to `e` in the stored line, so a
    // later verbatim read shows the `e`.
    double AsDouble(int line, int item) const override;
    cow_String AsString(int line, int item) const override;
    cow_String AsStringVerbatim(int line, int item) const override;
    int TextLength(int line, int item) const override;
    // Reads a plain item (blanks around decimal digits) in one pass over its text.
    IntItem ReadInt(int line, int item, int& value) const override;
    void ReadInts(int line, int first, int count, int* values, IntItem* kinds) const override;
    // Rebuilds the whole line: the other items come back in their AsString form, and
    // positions between the old end and `item` are left empty.
    void Set(int line, int item, const cow_String& text) override;
    void Set(int line, int item, double value) override;
    void Set(int line, int item, int value) override;
    using inp_DataArrayImpl::Append;
    void Append(const char* line, int length) override;
    bool LastItemIsBlank(int line) const override;
    inp_DataArrayImpl* Clone() const override;
    void ReleaseLines(int end) override;
    void PrintLine(int line, aio_ostream& out) const override;
    // How long PrintLine writes the line with `separator` characters between the items.
    int PrintedLength(int line, int separator) const;

    // Drops lines `line` and behind; the parser takes back what a failed file gave.
    void RemoveLinesFrom(int line);

    // A quick guess whether a text is a number, looser than the patterns: it tells
    // numbers from names and validates nothing (`1-5` and `.` pass as doubles).
    static inp_Types::typeEnm Type(const char* text);

    // The stored block of a line: its NumberOfItems(line) items one behind the other,
    // each NUL-terminated. For readers that walk every item of many lines and must not
    // make a string per item. Writable in the way AsDouble writes an exponent mark.
    char* LineBlock(int line) const;

protected:
    int nrows;          // lines in use
    int allocatedSize;  // slots of rows and ncols
    char** rows;        // one block per line; null for a released line
    int* ncols;         // items per line
    int released;       // lines before it have been released

private:
    inp_RawDataArrayImpl(const inp_RawDataArrayImpl& other);
    inp_RawDataArrayImpl& operator=(const inp_RawDataArrayImpl&) = delete;

    // Checks both indices and finds the item.
    char* Item(int i, int j) const;
    // Tells the threads' remembered items apart: new for every array and every change
    // that frees a line block.
    unsigned long long m_stamp;
    // Copies a text into a new block for line i and cuts it into items.
    void StoreLine(int i, const char* text, int length);
    static int CutItems(char* block, int length);
    static int CutQuotedItems(char* block, int length);
};

class inp_DataArray : public cow_CountedHld<inp_DataArrayImpl> {
    using Base = cow_CountedHld<inp_DataArrayImpl>;

public:
    // Holds no array; a keyword always gets one.
    inp_DataArray() = default;
    // Takes ownership.
    explicit inp_DataArray(inp_DataArrayImpl* impl) : Base(impl) {}

    using Base::HasValue;

    int NumberOfLines() const { return SharedGet().NumberOfLines(); }
    int NumberOfItems(int line) const { return SharedGet().NumberOfItems(line); }
    inp_Types::typeEnm Type(int line, int item) const { return SharedGet().Type(line, item); }
    bool IsBlank(int line, int item) const { return SharedGet().IsBlank(line, item); }
    bool HasValue(int line, int item) const { return SharedGet().HasValue(line, item); }
    int AsInt(int line, int item) const { return SharedGet().AsInt(line, item); }
    double AsDouble(int line, int item) const { return SharedGet().AsDouble(line, item); }
    cow_String AsString(int line, int item) const { return SharedGet().AsString(line, item); }
    cow_String AsStringVerbatim(int line, int item) const { return SharedGet().AsStringVerbatim(line, item); }
    int TextLength(int line, int item) const { return SharedGet().TextLength(line, item); }
    inp_DataArrayImpl::IntItem ReadInt(int line, int item, int& value) const {
        return SharedGet().ReadInt(line, item, value);
    }
    void ReadInts(int line, int first, int count, int* values, inp_DataArrayImpl::IntItem* kinds) const {
        SharedGet().ReadInts(line, first, count, values, kinds);
    }
    void Set(int line, int item, const cow_String& text) { SharedGet().Set(line, item, text); }
    void Set(int line, int item, double value) { SharedGet().Set(line, item, value); }
    void Set(int line, int item, int value) { SharedGet().Set(line, item, value); }
    void Append(const char* line) { SharedGet().Append(line); }
    void Append(const char* line, int length) { SharedGet().Append(line, length); }
    bool LastItemIsBlank(int line) const { return SharedGet().LastItemIsBlank(line); }
    inp_DataArrayImpl* Clone() const { return SharedGet().Clone(); }
    void PrintLine(int line, aio_ostream& out) const { SharedGet().PrintLine(line, out); }
    // Only an array that no other keyword shares gives its lines back.
    void ReleaseLines(int end) {
        if (Base::HasValue() && ShareCount() == 1) SharedGet().ReleaseLines(end);
    }

    // The item when it exists, blank or not; otherwise the fallback in the same form
    // as an item, so that callers can read optional columns without asking first.
    cow_String AsString(int line, int item, const cow_String& fallback) const;
};

// Hands out the items of an array line by line as C texts, for the constructors that
// pack a whole array into another form. A raw array gives its stored items without a
// copy, and they may be written as AsDouble writes; any other kind of array goes
// through AsStringVerbatim, one string per item.
class inp_DataLineCursor {
public:
    explicit inp_DataLineCursor(const inp_DataArray& data);
    inp_DataLineCursor(const inp_DataLineCursor&) = delete;
    inp_DataLineCursor& operator=(const inp_DataLineCursor&) = delete;

    int NumberOfLines() const { return m_lines; }
    // Makes a line current and gives its number of items.
    int SeekLine(int line);
    // The next item of the current line, from item 0 on; valid until the next call.
    // At most as many calls as SeekLine gave.
    char* NextItem();

private:
    const inp_DataArray& m_data;
    const inp_RawDataArrayImpl* m_raw;
    int m_lines;
    int m_line;
    int m_item;
    char* m_next;
    cow_String m_copy;
    char m_empty[1];
};

// Drops blanks, tabs and carriage returns outside double quotes; quotes and what stands
// between them are kept. Stops at a NUL or a newline, and keeps a newline that stopped it.
cow_String StripBlanks(const char* text);
cow_String StripBlanks(const cow_String& text);

#endif
