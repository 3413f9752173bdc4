// The expansion rules of the keywords, as data.
//
// Each keyword that checks its parameters has one row: a short list of steps that the
// expansion pass runs in order. Most rows are a parameter table and a few value
// vocabularies; a keyword that does more than the tables can say adds a Call step with
// a function of its own. The rows live in four files by the first letter of the
// keyword, and one index over all of them finds a keyword's row by its value.
//
// Tables are null-ended arrays of `const char*`. Parameter names are lower case with
// blanks removed; value words are upper case with blanks removed. Order matters: the
// first entry that an abbreviation fits wins.
//
// Keywords come in three families:
//  - a row with steps: the steps run;
//  - a row without steps (INP_EMPTY_RULE): the keyword is not looked at, and its
//    parameters stay as the parser read them;
//  - no row: the keyword takes no parameter, and each one it has is reported unknown.
//
// A step that blanks the keyword ends its row: later steps never see a blank keyword.
#ifndef INP_EXPANSIONRULE_H
#define INP_EXPANSIONRULE_H

#include <iterator>

#include "inp_keywords.h"

class inp_Keyword;
class inp_KeywordExpansionVisitor;

enum class inp_ExpansionStepKind : unsigned char {
    Names,            // ExpandParameterNames with `table`
    Value,            // ExpandParameterValue with `table`, when `name` is there
    ValueUnlessBool,  // the same, unless the item is a flag (a bare NLGEOM stays a flag)
    ValueUnlessInt,   // the same, unless the item is an integer (a number may stand for a word)
    DataFile,         // ReadDataFile on the value of `name`, which is then removed
    Require,          // RequireParameter
    RequireValue,     // RequireValue
    Without,          // `text` into errors when `name` is missing (or, asString, no string)
    Unsupported,      // ReportUnsupportedInAssembly(`text`), always or when `name` is there
    DataValue,        // ExpandDataValue on (line, item), when the item is there and not blank
    Call,             // `call`, for what the tables cannot say
};

using inp_ExpansionCall = void (*)(inp_KeywordExpansionVisitor& visitor, inp_Keyword& keyword);

struct inp_ExpansionStep {
    inp_ExpansionStepKind kind;
    const char* name;
    const char* const* table;
    const char* text;
    bool blank;     // Without: the keyword is blanked behind the message
    bool asString;  // Without: the item must also be a string item
    int line;
    int item;
    inp_ExpansionCall call;
};

struct inp_ExpansionRule {
    inp_KeywordEnm keyword;
    const inp_ExpansionStep* steps;  // null for a row without steps
    int count;
};

struct inp_ExpansionRuleList {
    const inp_ExpansionRule* rules;
    int count;
};

// The row of a keyword, or null when it has none.
const inp_ExpansionRule* inp_FindExpansionRule(inp_KeywordEnm keyword);

// The four files of rows, by the first letter of the keyword.
extern const inp_ExpansionRuleList inp_expansionRulesAC;
extern const inp_ExpansionRuleList inp_expansionRulesDH;
extern const inp_ExpansionRuleList inp_expansionRulesIP;
extern const inp_ExpansionRuleList inp_expansionRulesQZ;

// Steps, as the rows write them.
namespace inp_rule {

using Table = const char* const*;

constexpr inp_ExpansionStep Step(inp_ExpansionStepKind kind, const char* name, Table table, const char* text) {
    return inp_ExpansionStep{kind, name, table, text, false, false, 0, 0, nullptr};
}
constexpr inp_ExpansionStep Names(Table names) { return Step(inp_ExpansionStepKind::Names, nullptr, names, nullptr); }
constexpr inp_ExpansionStep Value(const char* name, Table words) {
    return Step(inp_ExpansionStepKind::Value, name, words, nullptr);
}
constexpr inp_ExpansionStep ValueUnlessBool(const char* name, Table words) {
    return Step(inp_ExpansionStepKind::ValueUnlessBool, name, words, nullptr);
}
constexpr inp_ExpansionStep ValueUnlessInt(const char* name, Table words) {
    return Step(inp_ExpansionStepKind::ValueUnlessInt, name, words, nullptr);
}
constexpr inp_ExpansionStep DataFile(const char* name) {
    return Step(inp_ExpansionStepKind::DataFile, name, nullptr, nullptr);
}
constexpr inp_ExpansionStep Require(const char* name) {
    return Step(inp_ExpansionStepKind::Require, name, nullptr, nullptr);
}
constexpr inp_ExpansionStep RequireValue(const char* name) {
    return Step(inp_ExpansionStepKind::RequireValue, name, nullptr, nullptr);
}
// "Without NAME: text" keeps the keyword; the Blank forms remove it for all later passes.
constexpr inp_ExpansionStep Without(const char* name, const char* text, bool blank, bool asString) {
    return inp_ExpansionStep{inp_ExpansionStepKind::Without, name, nullptr, text, blank, asString, 0, 0, nullptr};
}
constexpr inp_ExpansionStep WithoutBlank(const char* name, const char* text) { return Without(name, text, true, false); }
constexpr inp_ExpansionStep WithoutStringBlank(const char* name, const char* text) {
    return Without(name, text, true, true);
}
constexpr inp_ExpansionStep Unsupported(const char* text) {
    return Step(inp_ExpansionStepKind::Unsupported, nullptr, nullptr, text);
}
constexpr inp_ExpansionStep UnsupportedWith(const char* name, const char* text) {
    return Step(inp_ExpansionStepKind::Unsupported, name, nullptr, text);
}
constexpr inp_ExpansionStep DataValue(int line, int item, Table words) {
    return inp_ExpansionStep{inp_ExpansionStepKind::DataValue, nullptr, words, nullptr, false, false, line, item, nullptr};
}
constexpr inp_ExpansionStep Call(inp_ExpansionCall call) {
    return inp_ExpansionStep{inp_ExpansionStepKind::Call, nullptr, nullptr, nullptr, false, false, 0, 0, call};
}

// Vocabularies that many keywords share.
inline constexpr const char* NoYes[] = {"NO", "YES", nullptr};
inline constexpr const char* ModNew[] = {"MOD", "NEW", nullptr};

}  // namespace inp_rule

#define INP_RULE(Ident, steps) \
    inp_ExpansionRule { inp_kw##Ident, steps, static_cast<int>(std::size(steps)) }
#define INP_EMPTY_RULE(Ident) \
    inp_ExpansionRule { inp_kw##Ident, nullptr, 0 }

#endif
