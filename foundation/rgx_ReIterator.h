// Regular expressions: a thin layer over std::regex in its ECMAScript dialect, which
// has the anchors, classes, alternation, groups and lazy quantifiers ("*?") that the
// value patterns of the deck language are written with.
//
// Each thread keeps its compiled patterns in a small cache keyed by the pattern text,
// because the same few patterns are tried on every parameter value. A text may hold
// NUL bytes; all of it is searched.
//
// The engine recurses once per character it consumes, so a very long text could run
// a thread out of stack. Texts above rgx_ReIterator::kInlineLength characters are
// therefore matched on a helper thread with a stack sized for them, and texts above
// rgx_ReIterator::kMaxLength are not searched at all: rgx_match finds nothing in them
// and rgx_split gives them back as one field. No deck line comes near either bound.
#ifndef RGX_REITERATOR_H
#define RGX_REITERATOR_H

#include "cow_1DArrayList.h"
#include "cow_String.h"
#include "nex_Exception.h"

// A pattern the engine refuses. The patterns of the library are constants, so this
// means a fault in the program rather than in a deck.
class rgx_PatternError : public nex_TextException {
public:
    rgx_PatternError() = default;
    explicit rgx_PatternError(const atr_String& message) : nex_TextException(message) {}
    NEX_EXCEPTION_BODY(rgx_PatternError)
};

// The result of rgx_match: how many times the pattern matched, not overlapping, and
// the texts of the first match.
class rgx_ReIterator {
public:
    static const int kInlineLength = 1000;
    static const int kMaxLength = 1 << 16;

    rgx_ReIterator() : m_count(0) {}

    int Count() const { return m_count; }
    // The whole text of the first match (not a capture group); empty with no match.
    cow_String String() const { return Group(0); }
    // Capture group i of the first match, 0 being the whole match; empty for a group
    // that took part in no match or does not exist.
    cow_String Group(int i) const;
    int GroupCount() const { return m_groups.Count(); }

private:
    friend rgx_ReIterator rgx_match(const cow_String& pattern, const cow_String& text);
    int m_count;
    cow_1DArrayList<cow_String> m_groups;
};

// Searches the text for the pattern. Raises rgx_PatternError for a bad pattern.
rgx_ReIterator rgx_match(const cow_String& pattern, const cow_String& text);

// The pieces of the text between matches of the pattern, as a plain split does:
// leading, trailing and inner empty pieces are kept, so "a//b/" split by "/" is "a",
// "", "b", "", and a text without a match, the empty text too, is one piece. A match
// of no characters does not split. Raises rgx_PatternError for a bad pattern.
cow_1DArrayList<cow_String> rgx_split(const cow_String& pattern, const cow_String& text);

// The pieces with the separator between each two.
cow_String rgx_join(const cow_1DArrayList<cow_String>& pieces, const cow_String& separator);

#endif
