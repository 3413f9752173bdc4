// Small operations that every pass shares: the location prefix of keyword messages,
// name classifiers and the expansion of generation sequences (start, end, increment).
//
// Nothing here raises. Errors of a generation are handed back for the caller to put
// into its visitor's list.
#ifndef INP_UTILS_H
#define INP_UTILS_H

#include "atr_String.h"
#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_String.h"

class inp_DataArray;
class inp_Keyword;
class omi_Timer;

class inp_Utils {
public:
    struct Generation {
        cow_1DArrayList<int> ids;
        cow_List<atr_String> errors;
    };

    // `in keyword *NAME, file "x", line n: text`; the file part is left out for a
    // keyword that has no file, the line part (with its colon) for one without line.
    static atr_String MessageInKeyword(const inp_Keyword& keyword, const atr_String& text);
    // The same with ":\n" and the elements joined by ", " behind the text.
    static atr_String MessageInKeyword(const inp_Keyword& keyword, const atr_String& text,
                                       const cow_1DArrayList<int>& ids);
    static atr_String MessageInKeyword(const inp_Keyword& keyword, const atr_String& text,
                                       const cow_List<cow_String>& names);

    // The timing line of a phase, written to the debug stream when the library's debug
    // flag is 1 or more: the text, the elapsed time, then "  CPU time: " and the CPU time.
    static void TimingLine(const char* file, int line, const char* text, const omi_Timer& timer);
    // Starts `timer` only when its timing line will be written: the CPU clock is a
    // system call to read, and on a small deck the reads of every phase cost more than
    // the phases.
    static void StartTiming(omi_Timer& timer);

    // One of the surface types that are given by geometry, not by elements; exact, upper case.
    static bool IsAnalyticalSurfaceType(const cow_String& type);
    // A period outside double quotes: the name is scoped.
    static bool HasScopeSeparator(const cow_String& name);
    // The segments of a scoped name between its periods; a period between double quotes
    // belongs to its segment, and the quotes stay. A name without a period is one segment.
    static cow_List<cow_String> SplitScopedSet(const cow_String& name);
    // The whole text is a set name, scoped or not.
    static bool IsSetName(const cow_String& name);
    // More than one segment, the last of them a set name: `Pump-1.Top`, not `Pump-1.12`.
    static bool IsScopedSetName(const cow_List<cow_String>& segments);

    // Two or three scope segments as one name without periods, joined by "_": for a
    // driver that writes a model out flat. A segment in double quotes loses them, and
    // the result is quoted when any segment was.
    static cow_String CreateFlattenedName(const cow_String& a, const cow_String& b);
    static cow_String CreateFlattenedName(const cow_String& a, const cow_String& b, const cow_String& c);

    // No model holds more ids than this; a generator asked for more is refused with
    // TooManyGenerated rather than left to exhaust the memory of the machine.
    static constexpr long long kMaxGeneratedIds = 100000000;
    // The most ids one generator gives on this thread: kMaxGeneratedIds, or less while
    // a GenerationLimit stands (a deck whose caller asked for less, as a fuzzer does).
    static long long MaxGeneratedIds();
    class GenerationLimit {
    public:
        // `most` of 0 or less, or above kMaxGeneratedIds, leaves the limit as it is.
        explicit GenerationLimit(long long most);
        ~GenerationLimit();
        GenerationLimit(const GenerationLimit&) = delete;
        GenerationLimit& operator=(const GenerationLimit&) = delete;

    private:
        long long m_previous;
    };
    // Names MaxGeneratedIds().
    static atr_String TooManyGenerated(const cow_String& context);

    // Ids run from 1 to kMaxId. A generator adds and multiplies ids, increments and
    // shifts that may each lie anywhere in the int range, so it works out the lowest and
    // the highest id it would make in 64 bits and asks here before it makes any: an id
    // that wrapped round the int range would land on some other node or element.
    static constexpr long long kMaxId = 999999999;
    // True when `lowest` to `highest` lie in the range; otherwise `message` takes the
    // text, which names the keyword (`context`) and the id that is out of range.
    static bool IdsInRange(long long lowest, long long highest, const cow_String& context, atr_String& message);

    // The ids of one data line, start, end and an optional increment, as the sequence
    // they stand for. `context` names the keyword in the messages.
    static Generation ExpandGeneration(const cow_1DArrayList<int>& ids, const cow_String& context);
    // ExpandGeneration on the non-blank items of each line, all results joined in order.
    static Generation ExpandDataGeneration(const inp_DataArray& data, const cow_String& context);
};

#endif
