// Expansion rows of the keywords from D to H.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"

using namespace inp_rule;

namespace {

constexpr const char* kDynamicNames[] = {"adiabatic", "alpha", "directusercontrol", "elementbyelement", "explicit", "fixedtimeincrementation", "global", "haftol", "initial", "improveddtmethod", "nohaf", "scalefactor", "subspace", "vectors", "xgf", "xgs", "xms", nullptr};
constexpr const char* kNoStop[] = {"NOSTOP", nullptr};
const inp_ExpansionStep kDynamic[] = {Names(kDynamicNames), ValueUnlessBool("directusercontrol", kNoStop),
                                      Value("initial", NoYes), Value("improveddtmethod", NoYes), Value("xgs", NoYes)};

constexpr const char* kElementNames[] = {"type", "elset", "file", "input", "offset", "solidelementnumbering", nullptr};
const inp_ExpansionStep kElement[] = {Names(kElementNames), DataFile("input")};

constexpr const char* kElsetNames[] = {"elset", "generate", "instance", "internal", nullptr};
const inp_ExpansionStep kElset[] = {Names(kElsetNames), WithoutBlank("elset", "The ELSET parameter is required."),
                                    Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) { v.TrimDataLines(k, 16); })};

const inp_ExpansionRule kRules[] = {
    INP_RULE(Dynamic, kDynamic),
    INP_RULE(Element, kElement),
    INP_RULE(Elset, kElset),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesDH = {kRules, static_cast<int>(std::size(kRules))};
