// Pattern texts and their recognisers.
//
// Each recogniser below is derived from its pattern by hand. Lazy quantifiers do not
// change which texts an anchored pattern accepts, so only the language matters. Where
// a class on the right of a repetition also covers the trailing `[ \t]*` (every
// `[^,=\n]*` does), the trailing blanks are simply part of that run. Character classes
// are ASCII ranges, never the locale's, as in the patterns.
#include "inp_Types.h"

namespace {

const char kStringPat[] = "^[ \t]*([a-zA-Z_][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]*\")[ \t]*$";
const char kIntegerPat[] = "^[ \t]*([-+]?[0-9]+)[ \t]*$";
const char kDoublePat[] =
    "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[eE][-+]?[0-9]+)[ \t]*$";
const char kDoublePatD[] =
    "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[dD][-+]?[0-9]+)[ \t]*$";
const char kParameterNamePat[] = "^[ \t]*([a-zA-Z][-a-zA-Z0-9 \t]*?[a-zA-Z0-9]*)[ \t]*$";
const char kSetNamePat[] =
    "^[ \t]*((([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\"))(\\.(([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\")))*?)[ \t]*$";
const char kScopedIdPat[] = "^[ \t]*(([a-zA-Z_][^\\.]*|\"[^\"]+\")\\.)*[0-9]+[ \t]*$";
const char kFileNamePat[] = "^[ \t]*([a-zA-Z0-9_$%/\\.][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]+\")[ \t]*$";
const char kSuperelementIDPat[] = "^[ \t]*([Zz][0-9]+)[ \t]*$";
const char kUserElementIDPat[] = "^[ \t]*([Vv]*[Uu][0-9]+)[ \t]*$";
const char kFakeName[] = "FAKE";

inline bool IsBlank(char c) { return c == ' ' || c == '\t'; }
inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }
inline bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
inline bool IsNameStart(char c) { return IsLetter(c) || c == '_'; }
inline bool IsSign(char c) { return c == '+' || c == '-'; }
// The characters that `[^,=\n]` refuses: they end a name.
inline bool EndsName(char c) { return c == ',' || c == '=' || c == '\n'; }

int SkipBlanks(const char* s, int i, int n) {
    while (i < n && IsBlank(s[i])) ++i;
    return i;
}

int SkipDigits(const char* s, int i, int n) {
    while (i < n && IsDigit(s[i])) ++i;
    return i;
}

// `[ \t]*$` from i.
bool OnlyBlanksFrom(const char* s, int i, int n) { return SkipBlanks(s, i, n) == n; }

// `[^,=\n]*$` from i.
bool NameRunToEnd(const char* s, int i, int n) {
    for (; i < n; ++i)
        if (EndsName(s[i])) return false;
    return true;
}

// `"[^"\n]*"` (minChars 0) or `"[^"\n]+"` (minChars 1) at i, which holds the opening
// quote. Gives the index behind the closing quote, or -1.
int QuotedEnd(const char* s, int i, int n, int minChars) {
    int j = i + 1;
    while (j < n && s[j] != '"' && s[j] != '\n') ++j;
    if (j >= n || s[j] != '"' || j - (i + 1) < minChars) return -1;
    return j + 1;
}

// `^[ \t]*("[^"\n]+")[ \t]*$` (or with `*` for minChars 0), the quoted alternative that
// several patterns share; i is the first non-blank and holds a quote.
bool QuotedToEnd(const char* s, int i, int n, int minChars) {
    int j = QuotedEnd(s, i, n, minChars);
    return j >= 0 && OnlyBlanksFrom(s, j, n);
}

// Both double patterns: `[-+]?[0-9]*\.[0-9]*` or `[-+]?[0-9]*\.?[0-9]*[xX][-+]?[0-9]+`
// between blanks. Together they are: an optional sign, digits, an optional point with
// digits, an optional exponent with at least one digit, and a point or an exponent.
bool MatchNumberWithMark(const char* s, int n, char lower, char upper) {
    int i = SkipBlanks(s, 0, n);
    if (i < n && IsSign(s[i])) ++i;
    i = SkipDigits(s, i, n);
    bool point = false, exponent = false;
    if (i < n && s[i] == '.') {
        point = true;
        i = SkipDigits(s, i + 1, n);
    }
    if (i < n && (s[i] == lower || s[i] == upper)) {
        ++i;
        if (i < n && IsSign(s[i])) ++i;
        int digits = SkipDigits(s, i, n);
        if (digits == i) return false;
        exponent = true;
        i = digits;
    }
    return (point || exponent) && OnlyBlanksFrom(s, i, n);
}

}  // namespace

const char* inp_Types::stringPat() { return kStringPat; }
const char* inp_Types::integerPat() { return kIntegerPat; }
const char* inp_Types::doublePat() { return kDoublePat; }
const char* inp_Types::doublePatD() { return kDoublePatD; }
const char* inp_Types::parameterNamePat() { return kParameterNamePat; }
const char* inp_Types::setNamePat() { return kSetNamePat; }
const char* inp_Types::scopedIdPat() { return kScopedIdPat; }
const char* inp_Types::fileNamePat() { return kFileNamePat; }
const char* inp_Types::superelementIDPat() { return kSuperelementIDPat; }
const char* inp_Types::userElementIDPat() { return kUserElementIDPat; }
const char* inp_Types::fakeName() { return kFakeName; }

bool inp_Types::MatchString(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    if (i >= n) return false;
    if (IsNameStart(s[i])) return NameRunToEnd(s, i + 1, n);
    if (s[i] == '"') return QuotedToEnd(s, i, n, 0);
    return false;
}

bool inp_Types::MatchInteger(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    if (i < n && IsSign(s[i])) ++i;
    int digits = SkipDigits(s, i, n);
    return digits > i && OnlyBlanksFrom(s, digits, n);
}

bool inp_Types::MatchDouble(const char* s, int n) { return MatchNumberWithMark(s, n, 'e', 'E'); }

bool inp_Types::MatchDoubleD(const char* s, int n) { return MatchNumberWithMark(s, n, 'd', 'D'); }

// A letter, then `[-a-zA-Z0-9 \t]*?[a-zA-Z0-9]*[ \t]*`: the two tails and the blanks
// all lie inside the first class, so together they are any run of it.
bool inp_Types::MatchParameterName(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    if (i >= n || !IsLetter(s[i])) return false;
    for (++i; i < n; ++i) {
        char c = s[i];
        if (!(IsLetter(c) || IsDigit(c) || c == '-' || IsBlank(c))) return false;
    }
    return true;
}

// Segments joined by periods, a segment being a name (`[a-zA-Z_][^,=\n]*`) or a
// non-empty quoted text. A name may itself hold periods and quotes, so a period after a
// name either continues the name or separates the next segment: both are followed at
// once, as a set of states.
bool inp_Types::MatchSetName(const char* s, int n) {
    enum : unsigned {
        kSegmentStart = 1u << 0,  // behind a separating period
        kInName = 1u << 1,        // inside a name; may end here
        kQuoteOpened = 1u << 2,   // behind an opening quote
        kInQuote = 1u << 3,       // inside a quote, at least one character read
        kQuoteClosed = 1u << 4,   // behind a closing quote
        kTrailing = 1u << 5,      // in the blanks behind a closing quote
    };
    int i = SkipBlanks(s, 0, n);
    unsigned states = kSegmentStart;
    for (; i < n && states; ++i) {
        char c = s[i];
        unsigned next = 0;
        if (states & kSegmentStart) {
            if (IsNameStart(c)) next |= kInName;
            else if (c == '"') next |= kQuoteOpened;
        }
        if (states & kInName) {
            if (!EndsName(c)) next |= kInName;
            if (c == '.') next |= kSegmentStart;
        }
        if (states & (kQuoteOpened | kInQuote)) {
            if (c == '"') {
                if (states & kInQuote) next |= kQuoteClosed;
            } else if (c != '\n') {
                next |= kInQuote;
            }
        }
        if (states & kQuoteClosed) {
            if (c == '.') next |= kSegmentStart;
            else if (IsBlank(c)) next |= kTrailing;
        }
        if ((states & kTrailing) && IsBlank(c)) next |= kTrailing;
        states = next;
    }
    return i == n && (states & (kInName | kQuoteClosed | kTrailing)) != 0;
}

// Any number of `name.` or `"quoted".`, then digits. A name here is `[a-zA-Z_][^\.]*`,
// so it ends at the next period, and a quoted text `"[^"]+"` at the next quote: each
// step has one way to go.
bool inp_Types::MatchScopedId(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    for (;;) {
        if (i >= n) return false;
        if (IsDigit(s[i])) break;
        int j;
        if (IsNameStart(s[i])) {
            j = i + 1;
            while (j < n && s[j] != '.') ++j;
        } else if (s[i] == '"') {
            j = i + 1;
            while (j < n && s[j] != '"') ++j;
            if (j >= n || j == i + 1) return false;
            ++j;
        } else {
            return false;
        }
        if (j >= n || s[j] != '.') return false;
        i = j + 1;
    }
    return OnlyBlanksFrom(s, SkipDigits(s, i, n), n);
}

bool inp_Types::MatchFileName(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    if (i >= n) return false;
    char c = s[i];
    if (IsLetter(c) || IsDigit(c) || c == '_' || c == '$' || c == '%' || c == '/' || c == '.')
        return NameRunToEnd(s, i + 1, n);
    if (c == '"') return QuotedToEnd(s, i, n, 1);
    return false;
}

bool inp_Types::MatchSuperelementID(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    if (i >= n || (s[i] != 'Z' && s[i] != 'z')) return false;
    int digits = SkipDigits(s, i + 1, n);
    return digits > i + 1 && OnlyBlanksFrom(s, digits, n);
}

bool inp_Types::MatchUserElementID(const char* s, int n) {
    int i = SkipBlanks(s, 0, n);
    while (i < n && (s[i] == 'V' || s[i] == 'v')) ++i;
    if (i >= n || (s[i] != 'U' && s[i] != 'u')) return false;
    int digits = SkipDigits(s, i + 1, n);
    return digits > i + 1 && OnlyBlanksFrom(s, digits, n);
}
