// Expansion rows of the keywords from I to P.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"

using namespace inp_rule;

namespace {

constexpr const char* kInstanceNames[] = {"instance", "library", "name", "part", "superelement", nullptr};
const inp_ExpansionStep kInstance[] = {Names(kInstanceNames)};

constexpr const char* kNmapNames[] = {"nset", "type", nullptr};
constexpr const char* kNmapType[] = {"BLENDED", "CYLINDRICAL", "DIAMOND", "RECTANGULAR", "SPHERICAL", "TOROIDAL", nullptr};
const inp_ExpansionStep kNmap[] = {
    Names(kNmapNames), Value("type", kNmapType),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *NMAP")};

constexpr const char* kNodeNames[] = {"input", "nset", "system", nullptr};
constexpr const char* kSystem[] = {"C", "R", "S", nullptr};
const inp_ExpansionStep kNode[] = {Names(kNodeNames), Value("system", kSystem), DataFile("input")};

constexpr const char* kNsetNames[] = {"elset", "generate", "instance", "nset", "internal", "unsorted", nullptr};
const inp_ExpansionStep kNset[] = {Names(kNsetNames), WithoutBlank("nset", "The NSET parameter is required."),
                                   Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) { v.TrimDataLines(k, 16); })};

constexpr const char* kPartNames[] = {"inc", "instance", "library", "name", "part", "step", "state", "update", nullptr};
const inp_ExpansionStep kPart[] = {Names(kPartNames), Value("state", NoYes), Value("update", NoYes)};

const inp_ExpansionRule kRules[] = {
    INP_RULE(Instance, kInstance),
    INP_RULE(Nmap, kNmap),
    INP_RULE(Node, kNode),
    INP_RULE(Nset, kNset),
    INP_RULE(Part, kPart),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesIP = {kRules, static_cast<int>(std::size(kRules))};
