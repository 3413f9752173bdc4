// Expansion rows of the keywords from A to C.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"

using namespace inp_rule;

namespace {

constexpr const char* kAmplitudeNames[] = {"begin", "definition", "fixedinterval", "input", "name", "smooth", "time", "value", nullptr};
constexpr const char* kAmplitudeDefinition[] = {"BUBBLE", "DECAY", "EQUALLYSPACED", "MODULATED", "PERIODIC", "HICKS", "SOLUTIONDEPENDENT", "TABULAR", "SMOOTHSTEP", nullptr};
constexpr const char* kAmplitudeTime[] = {"STEPTIME", "TOTALTIME", nullptr};
constexpr const char* kAmplitudeValue[] = {"ABSOLUTE", "RELATIVE", nullptr};
const inp_ExpansionStep kAmplitude[] = {Names(kAmplitudeNames), Value("definition", kAmplitudeDefinition),
                                        Value("time", kAmplitudeTime), Value("value", kAmplitudeValue),
                                        DataFile("input")};

constexpr const char* kAssemblyNames[] = {"name", nullptr};
const inp_ExpansionStep kAssembly[] = {Names(kAssemblyNames)};

constexpr const char* kBoundaryNames[] = {"amplitude", "basename", "fixed", "inc", "loadcase", "op", "regiontype", "step", "submodel", "timescale", "type", "user", nullptr};
constexpr const char* kOneTwo[] = {"1", "2", nullptr};
constexpr const char* kRegionType[] = {"EULERIAN", "LAGRANGIAN", "SLIDING", nullptr};
constexpr const char* kMotionType[] = {"ACCELERATION", "DISPLACEMENT", "VELOCITY", nullptr};
const inp_ExpansionStep kBoundary[] = {Names(kBoundaryNames), Value("loadcase", kOneTwo), Value("op", ModNew),
                                       Value("regiontype", kRegionType), Value("type", kMotionType)};

const inp_ExpansionRule kRules[] = {
    INP_RULE(Amplitude, kAmplitude),
    INP_RULE(Assembly, kAssembly),
    INP_RULE(Boundary, kBoundary),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesAC = {kRules, static_cast<int>(std::size(kRules))};
