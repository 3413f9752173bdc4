// Expansion rows of the keywords from Q to Z.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"

using namespace inp_rule;

namespace {

constexpr const char* kRestartNames[] = {"endstep", "frequency", "inc", "interval", "iteration", "numberinterval", "overlay", "read", "step", "timemarks", "write", nullptr};
const inp_ExpansionStep kRestart[] = {Names(kRestartNames)};

constexpr const char* kRigidSurfaceNames[] = {"elset", "filletradius", "name", "refnode", "type", nullptr};
constexpr const char* kRigidSurfaceType[] = {"CYLINDER", "REVOLUTION", "SEGMENTS", "USER", nullptr};
const inp_ExpansionStep kRigidSurface[] = {Names(kRigidSurfaceNames), Value("type", kRigidSurfaceType)};

constexpr const char* kStaticNames[] = {"adiabatic", "direct", "factor", "fullyplastic", "longterm", "riks", "stabilize", nullptr};
constexpr const char* kNoStop[] = {"NOSTOP", nullptr};
const inp_ExpansionStep kStatic[] = {Names(kStaticNames), ValueUnlessBool("direct", kNoStop)};

constexpr const char* kStepNames[] = {"amplitude", "dsa", "extrapolation", "inc", "name", "nlgeom", "perturbation", "unsymm", "solver", "convertsdi", nullptr};
constexpr const char* kStepAmplitude[] = {"STEP", "RAMP", nullptr};
constexpr const char* kExtrapolation[] = {"LINEAR", "PARABOLIC", "NO", nullptr};
constexpr const char* kDdm[] = {"DDM", nullptr};
constexpr const char* kYesNo[] = {"YES", "NO", nullptr};
const inp_ExpansionStep kStep[] = {Names(kStepNames),
                                   Value("amplitude", kStepAmplitude),
                                   Value("extrapolation", kExtrapolation),
                                   ValueUnlessBool("dsa", NoYes),
                                   ValueUnlessBool("nlgeom", NoYes),
                                   ValueUnlessBool("unsymm", NoYes),
                                   Value("solver", kDdm),
                                   Value("convertsdi", kYesNo)};

const inp_ExpansionRule kRules[] = {
    INP_RULE(Restart, kRestart),
    INP_RULE(RigidSurface, kRigidSurface),
    INP_RULE(Static, kStatic),
    INP_RULE(Step, kStep),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesQZ = {kRules, static_cast<int>(std::size(kRules))};
