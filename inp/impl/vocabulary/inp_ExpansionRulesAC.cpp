// Expansion rows of the keywords from A to C.
//
// One block per keyword, in the order of the keyword table, and the list of rows at
// the bottom in the same order. Keywords of this range that take no parameter at all
// (acousticmedium, bond, centroid, contactexclusions and their kind) have no row: the
// engine reports each of their parameters as unknown.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_Utils.h"

using namespace inp_rule;

namespace {

// Vocabularies that more than one keyword of this range uses.
constexpr const char* kOneTwo[] = {"1", "2", nullptr};
constexpr const char* kRegionType[] = {"EULERIAN", "LAGRANGIAN", "SLIDING", nullptr};
constexpr const char* kMotionType[] = {"ACCELERATION", "DISPLACEMENT", "VELOCITY", nullptr};
constexpr const char* kRotaryInertia[] = {"EXACT", "ISOTROPIC", nullptr};
constexpr const char* kCrackingType[] = {"DISPLACEMENT", "GFI", "STRAIN", nullptr};
constexpr const char* kBucklingCurve[] = {"TYPE1", "TYPE2", "TYPE3", nullptr};
constexpr const char* kSlipDirection[] = {"SLIPDIRECTION", nullptr};
constexpr const char* kIndependentComponents[] = {"POSITION", "CONSTITUTIVEMOTION", nullptr};
constexpr const char* kAll[] = {"ALL", nullptr};
constexpr const char* kBetaEnforcement[] = {"SEQUENTIAL", "SIMULTANEOUS", nullptr};
constexpr const char* kBetaStages[] = {"BOTH", "FLOW", "YIELD", nullptr};
constexpr const char* kFlowRule[] = {"ASSOCIATIVE", "NONASSOCIATIVE", nullptr};
constexpr const char* kCoSimulationProgram[] = {"MADYMO", "MPCCI", "USER", "USER0", nullptr};

// The many material keywords whose one parameter is the number of field dependencies.
constexpr const char* kDependenciesNames[] = {"dependencies", nullptr};
const inp_ExpansionStep kDependenciesOnly[] = {Names(kDependenciesNames)};

// Concentrated loads of the kind "amplitude, op".
constexpr const char* kAmplitudeOpNames[] = {"amplitude", "op", nullptr};
const inp_ExpansionStep kAmplitudeOp[] = {Names(kAmplitudeOpNames), Value("op", ModNew)};

// Concentrated fluxes that may stand in an adaptive mesh region.
constexpr const char* kAmplitudeOpRegionNames[] = {"amplitude", "op", "regiontype", nullptr};
const inp_ExpansionStep kAmplitudeOpRegion[] = {Names(kAmplitudeOpRegionNames), Value("op", ModNew),
                                                Value("regiontype", kRegionType)};

// The two cracking laws that measure softening by displacement, fracture energy or strain.
constexpr const char* kCrackingNames[] = {"dependencies", "type", nullptr};
const inp_ExpansionStep kCracking[] = {Names(kCrackingNames), Value("type", kCrackingType)};

constexpr const char* kAdaptiveMeshNames[] = {"controls", "elset", "frequency", "initialmeshsweeps", "meshsweeps", "op", nullptr};
const inp_ExpansionStep kAdaptiveMesh[] = {Names(kAdaptiveMeshNames), Value("op", ModNew)};

constexpr const char* kAdaptiveMeshConstraintNames[] = {"amplitude", "constrainttype", "op", "type", "user", nullptr};
constexpr const char* kConstraintType[] = {"LAGRANGIAN", "SPATIAL", nullptr};
constexpr const char* kDisplacementVelocity[] = {"DISPLACEMENT", "VELOCITY", nullptr};
const inp_ExpansionStep kAdaptiveMeshConstraint[] = {Names(kAdaptiveMeshConstraintNames),
                                                     Value("constrainttype", kConstraintType), Value("op", ModNew),
                                                     Value("type", kDisplacementVelocity)};

constexpr const char* kAdaptiveMeshControlsNames[] = {
    "advection",          "curvaturerefinement", "diagonaladvection",      "geometricenhancement",
    "initialfeatureangle", "meshconstraintangle", "momentumadvection",      "name",
    "meshingpredictor",   "reset",               "smoothingobjective",     "transitionfeatureangle",
    "xhyper",             "xtransition",         nullptr};
constexpr const char* kAdvection[] = {"FIRSTORDER", "SECONDORDER", nullptr};
constexpr const char* kMomentumAdvection[] = {"ELEMENTCENTERPROJECTION", "HALFINDEXSHIFT", nullptr};
constexpr const char* kMeshingPredictor[] = {"CURRENT", "PREVIOUS", nullptr};
constexpr const char* kSmoothingObjective[] = {"GRADED", "UNIFORM", "INITIALGRADATION", nullptr};
const inp_ExpansionStep kAdaptiveMeshControls[] = {Names(kAdaptiveMeshControlsNames),
                                                   Value("advection", kAdvection),
                                                   Value("diagonaladvection", NoYes),
                                                   Value("geometricenhancement", NoYes),
                                                   Value("momentumadvection", kMomentumAdvection),
                                                   Value("meshingpredictor", kMeshingPredictor),
                                                   Value("smoothingobjective", kSmoothingObjective),
                                                   Value("xhyper", NoYes),
                                                   Value("xtransition", NoYes)};

constexpr const char* kAmplitudeNames[] = {"begin", "definition", "fixedinterval", "input", "name", "smooth", "time", "value", nullptr};
constexpr const char* kAmplitudeDefinition[] = {"BUBBLE", "DECAY", "EQUALLYSPACED", "MODULATED", "PERIODIC", "HICKS", "SOLUTIONDEPENDENT", "TABULAR", "SMOOTHSTEP", nullptr};
constexpr const char* kAmplitudeTime[] = {"STEPTIME", "TOTALTIME", nullptr};
constexpr const char* kAmplitudeValue[] = {"ABSOLUTE", "RELATIVE", nullptr};
const inp_ExpansionStep kAmplitude[] = {Names(kAmplitudeNames), Value("definition", kAmplitudeDefinition),
                                        Value("time", kAmplitudeTime), Value("value", kAmplitudeValue),
                                        DataFile("input")};

constexpr const char* kAnnealNames[] = {"reftemp", "temperature", nullptr};
const inp_ExpansionStep kAnneal[] = {Names(kAnnealNames)};

constexpr const char* kAquaNames[] = {"input", nullptr};
const inp_ExpansionStep kAqua[] = {Names(kAquaNames), DataFile("input")};

constexpr const char* kAssemblyNames[] = {"name", nullptr};
const inp_ExpansionStep kAssembly[] = {Names(kAssemblyNames)};

constexpr const char* kAsymmetricAxisymmetricNames[] = {"angle", "mode", nullptr};
const inp_ExpansionStep kAsymmetricAxisymmetric[] = {Names(kAsymmetricAxisymmetricNames)};

constexpr const char* kAxialNames[] = {"dependencies", "elastic", "linear", nullptr};
const inp_ExpansionStep kAxial[] = {Names(kAxialNames)};

constexpr const char* kBaseMotionNames[] = {"amplitude", "basename", "dof", "loadcase", "scale", "type", nullptr};
const inp_ExpansionStep kBaseMotion[] = {Names(kBaseMotionNames), Value("type", kMotionType)};

constexpr const char* kBeamAddedInertiaNames[] = {"alpha", "composite", nullptr};
const inp_ExpansionStep kBeamAddedInertia[] = {Names(kBeamAddedInertiaNames)};

constexpr const char* kBeamFluidInertiaNames[] = {"full", "half", nullptr};
const inp_ExpansionStep kBeamFluidInertia[] = {Names(kBeamFluidInertiaNames)};

constexpr const char* kBeamGeneralSectionNames[] = {"density", "dependencies", "elset", "name", "poisson", "rotaryinertia", "section", "zero", "control", nullptr};
constexpr const char* kBeamGeneralSectionShape[] = {"ARBITRARY", "BOX", "CIRCULAR", "GENERAL", "HEX", "I-BEAM", "L-BEAM", "MESHED", "NONLINEARGENERAL", "PIPE", "RECTANGULAR", "TRAPEZOID", nullptr};
const inp_ExpansionStep kBeamGeneralSection[] = {Names(kBeamGeneralSectionNames),
                                                 Value("rotaryinertia", kRotaryInertia),
                                                 Value("section", kBeamGeneralSectionShape)};

constexpr const char* kBeamSectionNames[] = {"elset", "material", "poisson", "rotaryinertia", "section", "temperature", "control", nullptr};
constexpr const char* kBeamSectionShape[] = {"ARBITRARY", "BOX", "CIRCULAR", "ELBOW", "HEX", "I-BEAM", "L-BEAM", "PIPE", "RECTANGULAR", "TRAPEZOID", nullptr};
constexpr const char* kBeamSectionTemperature[] = {"GRADIENTS", "VALUES", nullptr};
const inp_ExpansionStep kBeamSection[] = {Names(kBeamSectionNames), Value("rotaryinertia", kRotaryInertia),
                                          Value("section", kBeamSectionShape),
                                          Value("temperature", kBeamSectionTemperature)};

constexpr const char* kBiaxialTestDataNames[] = {"dependencies", "direction", "smooth", "strainratio", nullptr};
const inp_ExpansionStep kBiaxialTestData[] = {Names(kBiaxialTestDataNames), Value("direction", kOneTwo)};

constexpr const char* kBlockageNames[] = {"dependencies", "pressure", nullptr};
const inp_ExpansionStep kBlockage[] = {Names(kBlockageNames)};

constexpr const char* kBoundaryNames[] = {"amplitude", "basename", "fixed", "inc", "loadcase", "op", "regiontype", "step", "submodel", "timescale", "type", "user", nullptr};
const inp_ExpansionStep kBoundary[] = {Names(kBoundaryNames), Value("loadcase", kOneTwo), Value("op", ModNew),
                                       Value("regiontype", kRegionType), Value("type", kMotionType)};

constexpr const char* kBrittleFailureNames[] = {"dependencies", "cracks", nullptr};
const inp_ExpansionStep kBrittleFailure[] = {Names(kBrittleFailureNames)};

constexpr const char* kBrittleShearNames[] = {"dependencies", "type", nullptr};
constexpr const char* kBrittleShearType[] = {"POWERLAW", "RETENTIONFACTOR", nullptr};
const inp_ExpansionStep kBrittleShear[] = {Names(kBrittleShearNames), Value("type", kBrittleShearType)};

constexpr const char* kBuckleNames[] = {"eigensolver", nullptr};
constexpr const char* kBuckleEigensolver[] = {"SUBSPACE", "LANCZOS", nullptr};
const inp_ExpansionStep kBuckle[] = {Names(kBuckleNames), Value("eigensolver", kBuckleEigensolver)};

constexpr const char* kBucklingReductionFactorsNames[] = {"axis1", "axis2", nullptr};
const inp_ExpansionStep kBucklingReductionFactors[] = {Names(kBucklingReductionFactorsNames),
                                                       Value("axis1", kBucklingCurve), Value("axis2", kBucklingCurve)};

constexpr const char* kCapacityNames[] = {"type", nullptr};
constexpr const char* kCapacityType[] = {"POLYNOMIAL", "TABULAR", nullptr};
const inp_ExpansionStep kCapacity[] = {Names(kCapacityNames), Value("type", kCapacityType),
                                       WithoutBlank("type", "The TYPE parameter is required.")};

constexpr const char* kCapCreepNames[] = {"dependencies", "law", "mechanism", nullptr};
constexpr const char* kCapCreepLaw[] = {"SINGHM", "STRAIN", "TIME", "USER", nullptr};
constexpr const char* kCapCreepMechanism[] = {"COHESION", "CONSOLIDATION", nullptr};
const inp_ExpansionStep kCapCreep[] = {Names(kCapCreepNames), Value("law", kCapCreepLaw),
                                       Value("mechanism", kCapCreepMechanism)};

constexpr const char* kCavityDefinitionNames[] = {"ambienttemp", "name", nullptr};
const inp_ExpansionStep kCavityDefinition[] = {Names(kCavityDefinitionNames)};

constexpr const char* kCechargeNames[] = {"amplitude", "loadcase", "op", nullptr};
const inp_ExpansionStep kCecharge[] = {Names(kCechargeNames), Value("loadcase", kOneTwo), Value("op", ModNew)};

constexpr const char* kCfilmNames[] = {"amplitude", "filmamplitude", "op", "regiontype", "user", nullptr};
const inp_ExpansionStep kCfilm[] = {Names(kCfilmNames), Value("op", ModNew), Value("regiontype", kRegionType)};

constexpr const char* kChangeFrictionNames[] = {"elset", "interaction", "reset", "amplitude", nullptr};
const inp_ExpansionStep kChangeFriction[] = {Names(kChangeFrictionNames)};

constexpr const char* kClayPlasticityNames[] = {"dependencies", "hardening", "intercept", nullptr};
constexpr const char* kClayHardeningLaw[] = {"EXPONENTIAL", "TABULAR", nullptr};
const inp_ExpansionStep kClayPlasticity[] = {Names(kClayPlasticityNames), Value("hardening", kClayHardeningLaw)};

constexpr const char* kClearanceNames[] = {"bolt", "cpset", "master", "slave", "tabular", "value", "input", nullptr};
const inp_ExpansionStep kClearance[] = {Names(kClearanceNames), DataFile("input")};

constexpr const char* kCloadNames[] = {"amplitude", "cyclicmode", "follower", "loadcase", "op", "regiontype", "sectornumber", nullptr};
const inp_ExpansionStep kCload[] = {Names(kCloadNames), Value("op", ModNew), Value("regiontype", kRegionType),
                                    Value("sectornumber", kOneTwo)};

constexpr const char* kCohesiveSectionNames[] = {"controls", "elset", "material", "orientation", "response", "stackdirection", "thickness", nullptr};
constexpr const char* kCohesiveResponse[] = {"TRACTIONSEPARATION", "CONTINUUM", "GASKET", nullptr};
constexpr const char* kStackDirection[] = {"1", "2", "3", "ORIENTATION", nullptr};
constexpr const char* kCohesiveThickness[] = {"GEOMETRY", "SPECIFIED", nullptr};
const inp_ExpansionStep kCohesiveSection[] = {Names(kCohesiveSectionNames), Value("response", kCohesiveResponse),
                                              Value("stackdirection", kStackDirection),
                                              Value("thickness", kCohesiveThickness)};

constexpr const char* kCombinedTestDataNames[] = {"shrinf", "volinf", nullptr};
const inp_ExpansionStep kCombinedTestData[] = {Names(kCombinedTestDataNames)};

constexpr const char* kComplexFrequencyNames[] = {"eigensolver", "frictiondamping", "propertyevaluation", nullptr};
constexpr const char* kComplexEigensolver[] = {"PROJECTION", "BILANCZOS", nullptr};
constexpr const char* kFrictionDamping[] = {"NO", "YES", "NEGATIVEONLY", nullptr};
const inp_ExpansionStep kComplexFrequency[] = {Names(kComplexFrequencyNames),
                                               Value("eigensolver", kComplexEigensolver),
                                               Value("frictiondamping", kFrictionDamping)};

constexpr const char* kConcreteCompressionDamageNames[] = {"dependencies", "tensionrecovery", nullptr};
const inp_ExpansionStep kConcreteCompressionDamage[] = {Names(kConcreteCompressionDamageNames)};

constexpr const char* kConcreteTensionDamageNames[] = {"compressionrecovery", "dependencies", "type", nullptr};
constexpr const char* kDisplacementStrain[] = {"DISPLACEMENT", "STRAIN", nullptr};
const inp_ExpansionStep kConcreteTensionDamage[] = {Names(kConcreteTensionDamageNames),
                                                    Value("type", kDisplacementStrain)};

constexpr const char* kConductivityNames[] = {"dependencies", "type", nullptr};
constexpr const char* kConductivityType[] = {"ANISOTROPIC", "ISOTROPIC", "ORTHOTROPIC", "SHORTFIBER", nullptr};
const inp_ExpansionStep kConductivity[] = {Names(kConductivityNames), Value("type", kConductivityType)};

// A marker that an interactive editor leaves in a deck it could not reconcile; the
// deck is not trusted as it stands, whatever the keyword holds.
void ReportConflicts(inp_KeywordExpansionVisitor& visitor, inp_Keyword& keyword) {
    visitor.errors.Append(inp_Utils::MessageInKeyword(
        keyword, atr_raw("Keyword *Conflicts is generated by MERLIX/Studio to highlight changes made via the Keywords "
                         "Editor that conflict with changes made subsequently via the native GUI.")));
}
const inp_ExpansionStep kConflicts[] = {Call(ReportConflicts)};

constexpr const char* kConnectorBehaviorNames[] = {"name", "integration", nullptr};
constexpr const char* kConnectorIntegration[] = {"EXPLICIT", "IMPLICIT", nullptr};
const inp_ExpansionStep kConnectorBehavior[] = {Names(kConnectorBehaviorNames),
                                                Value("integration", kConnectorIntegration)};

constexpr const char* kConnectorContactForceNames[] = {"dependencies", "direct", "independentcomponent", "tangentialcomponent", nullptr};
const inp_ExpansionStep kConnectorContactForce[] = {Names(kConnectorContactForceNames),
                                                    ValueUnlessInt("independentcomponent", kSlipDirection),
                                                    ValueUnlessInt("tangentialcomponent", kSlipDirection)};

constexpr const char* kConnectorDamageEvolutionNames[] = {"affectedcomponents", "degradation", "dependencies", "softening", "type", nullptr};
constexpr const char* kDegradation[] = {"MAXIMUM", "MULTIPLICATIVE", nullptr};
constexpr const char* kSoftening[] = {"LINEAR", "EXPONENTIAL", "TABULAR", nullptr};
constexpr const char* kDamageEvolutionType[] = {"MOTION", "ENERGY", nullptr};
const inp_ExpansionStep kConnectorDamageEvolution[] = {Names(kConnectorDamageEvolutionNames),
                                                       Value("degradation", kDegradation),
                                                       Value("softening", kSoftening),
                                                       Value("type", kDamageEvolutionType),
                                                       WithoutStringBlank("type", "The TYPE parameter is required.")};

constexpr const char* kConnectorDamageInitiationNames[] = {"component", "criterion", "dependencies", "properties", "user", nullptr};
constexpr const char* kDamageCriterion[] = {"FORCE", "MOTION", "PLASTICMOTION", nullptr};
const inp_ExpansionStep kConnectorDamageInitiation[] = {Names(kConnectorDamageInitiationNames),
                                                        Value("criterion", kDamageCriterion)};

constexpr const char* kConnectorDampingNames[] = {"component", "coupled", "dependencies", "independentcomponents", "nonlinear", "periodic", nullptr};
const inp_ExpansionStep kConnectorDamping[] = {Names(kConnectorDampingNames),
                                               Value("independentcomponents", kIndependentComponents)};

constexpr const char* kConnectorDerivedComponentNames[] = {"dependencies", "independentcomponents", "name", "operator", "sign", "user", nullptr};
constexpr const char* kDerivedOperator[] = {"NORM", "SUM", nullptr};
constexpr const char* kSign[] = {"POSITIVE", "NEGATIVE", nullptr};
const inp_ExpansionStep kConnectorDerivedComponent[] = {
    Names(kConnectorDerivedComponentNames), Value("independentcomponents", kIndependentComponents),
    WithoutStringBlank("name", "The NAME parameter is required."), Value("operator", kDerivedOperator),
    Value("sign", kSign)};

constexpr const char* kConnectorElasticityNames[] = {"component", "coupled", "dependencies", "direction", "independentcomponents", "model", "moduli", "motiondependencies", "nonlinear", "periodic", "rigid", nullptr};
constexpr const char* kModuli[] = {"LONGTERM", "INSTANTANEOUS", nullptr};
constexpr const char* kLoadingDirection[] = {"LOADING", "UNLOADING", nullptr};
constexpr const char* kElasticityModel[] = {"EXPONENTIAL", "QUADRATIC", "TRANSITIONSLOPE", nullptr};
const inp_ExpansionStep kConnectorElasticity[] = {Names(kConnectorElasticityNames),
                                                  Value("moduli", kModuli),
                                                  Value("independentcomponents", kIndependentComponents),
                                                  Value("direction", kLoadingDirection),
                                                  Value("model", kElasticityModel)};

constexpr const char* kConnectorFailureNames[] = {"component", "release", nullptr};
const inp_ExpansionStep kConnectorFailure[] = {Names(kConnectorFailureNames), ValueUnlessInt("release", kAll)};

constexpr const char* kConnectorFrictionNames[] = {
    "betacomponent", "betaenforcement", "betastages", "component",   "contactforce", "debug", "dependencies",
    "flow",          "independentcomponents",        "interaction", "predefined",   "stickstiffness", "xold",
    nullptr};
const inp_ExpansionStep kConnectorFriction[] = {Names(kConnectorFrictionNames),
                                                Value("betaenforcement", kBetaEnforcement),
                                                Value("betastages", kBetaStages),
                                                Value("flow", kFlowRule),
                                                Value("xold", NoYes),
                                                ValueUnlessInt("component", kSlipDirection),
                                                ValueUnlessInt("independentcomponents", kIndependentComponents)};

constexpr const char* kConnectorHardeningNames[] = {"definition", "dependencies", "properties", "rate", "type", "user", nullptr};
constexpr const char* kHardeningDefinition[] = {"EXPONENTIALLAW", "HALFCYCLE", "STABILIZED", "TABULAR", "PARAMETERS", nullptr};
constexpr const char* kHardeningType[] = {"ISOTROPIC", "KINEMATIC", nullptr};
const inp_ExpansionStep kConnectorHardening[] = {Names(kConnectorHardeningNames),
                                                 Value("definition", kHardeningDefinition),
                                                 Value("type", kHardeningType)};

constexpr const char* kConnectorLoadNames[] = {"amplitude", "loadcase", "op", nullptr};
const inp_ExpansionStep kConnectorLoad[] = {Names(kConnectorLoadNames), Value("op", ModNew)};

constexpr const char* kConnectorLockNames[] = {"component", "lock", "dependencies", nullptr};
const inp_ExpansionStep kConnectorLock[] = {Names(kConnectorLockNames), ValueUnlessInt("lock", kAll)};

constexpr const char* kConnectorMotionNames[] = {"amplitude", "fixed", "loadcase", "op", "type", "user", nullptr};
const inp_ExpansionStep kConnectorMotion[] = {Names(kConnectorMotionNames), Value("op", ModNew),
                                              Value("type", kMotionType)};

// The values run ahead of the names here: a value is expanded only under a full
// parameter name, and an abbreviated name keeps the value as written.
constexpr const char* kConnectorPlasticityNames[] = {"component", "betacomponent", "betaenforcement", "betastages", "debug", "flow", nullptr};
const inp_ExpansionStep kConnectorPlasticity[] = {Value("betaenforcement", kBetaEnforcement),
                                                  Value("betastages", kBetaStages), Value("flow", kFlowRule),
                                                  Names(kConnectorPlasticityNames)};

constexpr const char* kConnectorPotentialNames[] = {"dependencies", "exponent", "operator", nullptr};
constexpr const char* kPotentialOperator[] = {"SUM", "MAX", nullptr};
const inp_ExpansionStep kConnectorPotential[] = {Names(kConnectorPotentialNames),
                                                 Value("operator", kPotentialOperator)};

// The first data line names one connection type, or a translational and a rotational
// one; they are completed ahead of the parameters.
constexpr const char* kConnectionType[] = {
    "BEAM",         "WELD",          "HINGE",       "UJOINT",    "CVJOINT",
    "TRANSLATOR",   "CYLINDRICAL",   "PLANAR",      "BUSHING",   "LINK",
    "JOIN",         "SLOT",          "SLIDE-PLANE", "CARTESIAN", "RADIAL-THRUST",
    "PROJECTIONCARTESIAN",           "AXIAL",       "ACCELEROMETER",
    "ALIGN",        "CARDAN",        "CONSTANTVELOCITY",         "EULER",
    "FLEXION-TORSION",               "PROJECTIONFLEXION-TORSION",
    "ROTATION-ACCELEROMETER",        "REVOLUTE",    "ROTATION",  "UNIVERSAL",
    "FLOW-CONVERTER",                "RETRACTOR",   "SLIPRING",  nullptr};
constexpr const char* kConnectorSectionNames[] = {"behavior", "controls", "elimination", "elset", nullptr};
const inp_ExpansionStep kConnectorSection[] = {DataValue(0, 0, kConnectionType), DataValue(0, 1, kConnectionType),
                                               Names(kConnectorSectionNames), Value("elimination", NoYes)};

constexpr const char* kConnectorStopNames[] = {"component", nullptr};
const inp_ExpansionStep kConnectorStop[] = {Names(kConnectorStopNames)};

constexpr const char* kConstraintControlsNames[] = {"nochecks", "nochanges", "checkfrequency", "terminateanalysis", "print", nullptr};
constexpr const char* kTerminateAnalysis[] = {"NO", "FIRSTOCCURRENCE", "CONVERGED", nullptr};
const inp_ExpansionStep kConstraintControls[] = {Names(kConstraintControlsNames),
                                                 Value("terminateanalysis", kTerminateAnalysis),
                                                 Value("print", NoYes)};

constexpr const char* kContactNames[] = {"name", "op", nullptr};
const inp_ExpansionStep kContact[] = {Names(kContactNames), Value("op", ModNew)};

constexpr const char* kContactClearanceNames[] = {"adjust", "clearance", "name", "searchabove", "searchbelow", nullptr};
const inp_ExpansionStep kContactClearance[] = {Names(kContactClearanceNames), Value("adjust", NoYes),
                                               WithoutBlank("name", "The NAME parameter is required.")};

constexpr const char* kContactControlsNames[] = {
    "absolutepenetrationtolerance", "approach",     "automatictolerances", "cpset",     "fastlocaltrk",
    "frictiononset",                "global",       "globtrkinc",          "lagrangemultiplier",
    "master",                       "maxchp",       "perrmx",              "relativepenetrationtolerance",
    "reset",                        "rfactor",      "r0factor",            "scalepenalty", "separate",
    "slave",                        "slidedistance", "stabilize",          "stiffnessscalefactor",
    "tangentfraction",              "uerrmx",       "warpcheckperiod",     "warpcutoff", nullptr};
constexpr const char* kFrictionOnset[] = {"IMMEDIATE", "DELAYED", nullptr};
const inp_ExpansionStep kContactControls[] = {Names(kContactControlsNames), Value("fastlocaltrk", NoYes),
                                              Value("frictiononset", kFrictionOnset)};

constexpr const char* kContactControlsAssignmentNames[] = {"automaticoverclosureresolution", "contactthicknessreduction", "nodalerosion", "type", nullptr};
constexpr const char* kOverclosureResolution[] = {"ADJUSTNODES", "STOREOFFSETS", nullptr};
constexpr const char* kThicknessReduction[] = {"ALL", "NOPERIMSELF", "SELF", nullptr};
constexpr const char* kScalePenalty[] = {"SCALEPENALTY", nullptr};
const inp_ExpansionStep kContactControlsAssignment[] = {
    Names(kContactControlsAssignmentNames), Value("automaticoverclosureresolution", kOverclosureResolution),
    Value("contactthicknessreduction", kThicknessReduction), Value("nodalerosion", NoYes),
    Value("type", kScalePenalty)};

constexpr const char* kContactDampingNames[] = {"definition", "tangentfraction", nullptr};
constexpr const char* kDampingDefinition[] = {"DAMPINGCOEFFICIENT", "CRITICALDAMPINGFRACTION", nullptr};
const inp_ExpansionStep kContactDamping[] = {Names(kContactDampingNames), Value("definition", kDampingDefinition)};

constexpr const char* kContactFileNames[] = {"frequency", "master", "nset", "slave", nullptr};
const inp_ExpansionStep kContactFile[] = {Names(kContactFileNames)};

constexpr const char* kContactFormulationNames[] = {"type", nullptr};
constexpr const char* kContactFormulationType[] = {"AIRBAG", "PUREMASTER-SLAVE", nullptr};
const inp_ExpansionStep kContactFormulation[] = {Names(kContactFormulationNames),
                                                 Value("type", kContactFormulationType),
                                                 WithoutBlank("type", "The TYPE parameter is required.")};

// ALL EXTERIOR compresses to allexterior, and a bare ALL would be taken for it (or
// for ALL ELEMENT BASED) without notice. The first entry, with its blank, can only be
// reached by an abbreviation of three letters or fewer, which is then refused.
constexpr const char* kAbbreviatedAll = "all ";
constexpr const char* kContactInclusionsNames[] = {kAbbreviatedAll, "allelementbased", "allexterior", nullptr};
void RefuseAbbreviatedAll(inp_KeywordExpansionVisitor& visitor, inp_Keyword& keyword) {
    if (!keyword.HasParameter(cow_String(kAbbreviatedAll))) return;
    visitor.errors.Append(
        inp_Utils::MessageInKeyword(keyword, atr_raw("The parameter ALL EXTERIOR cannot be abbreviated to ALL.")));
    visitor.BlankKeyword(keyword);
}
const inp_ExpansionStep kContactInclusions[] = {Names(kContactInclusionsNames), Call(RefuseAbbreviatedAll)};

constexpr const char* kContactInterferenceNames[] = {"amplitude", "op", "shrink", "type", nullptr};
constexpr const char* kInterferenceType[] = {"CONTACTPAIR", "ELEMENT", nullptr};
const inp_ExpansionStep kContactInterference[] = {Names(kContactInterferenceNames), Value("op", ModNew),
                                                  Value("type", kInterferenceType)};

constexpr const char* kContactOutputNames[] = {"cpset", "filter", "generalcontact", "master", "nset", "slave", "surface", "variable", nullptr};
constexpr const char* kOutputVariable[] = {"ALL", "PRESELECT", nullptr};
const inp_ExpansionStep kContactOutput[] = {Names(kContactOutputNames), Value("variable", kOutputVariable)};

constexpr const char* kContactPairNames[] = {
    "accuracy", "adjust", "cpset", "extensionzone", "hcrit", "interaction", "mechanicalconstraint", "nothickness",
    "op", "penalty", "slidedistance", "smallsliding", "smooth", "tied", "type", "weight", "usereducedintegration",
    nullptr};
constexpr const char* kAddDelete[] = {"ADD", "DELETE", nullptr};
constexpr const char* kMechanicalConstraint[] = {"KINEMATIC", "PENALTY", nullptr};
constexpr const char* kContactPairType[] = {"NODETOSURFACE", "SURFACETOSURFACE", nullptr};
const inp_ExpansionStep kContactPair[] = {Names(kContactPairNames), Value("op", kAddDelete),
                                          Value("mechanicalconstraint", kMechanicalConstraint),
                                          Value("type", kContactPairType)};

constexpr const char* kContactPrintNames[] = {"frequency", "master", "nset", "slave", "summary", "totals", nullptr};
const inp_ExpansionStep kContactPrint[] = {Names(kContactPrintNames), Value("summary", NoYes),
                                           Value("totals", NoYes)};

constexpr const char* kContactResponseNames[] = {"master", "nset", "slave", nullptr};
const inp_ExpansionStep kContactResponse[] = {Names(kContactResponseNames)};

constexpr const char* kContourIntegralNames[] = {"contours", "crackname", "cracktipnodes", "direction", "frequency", "normal", "output", "surfacenormal", "symm", "type", nullptr};
constexpr const char* kCrackDirection[] = {"MTS", "MERR", "KII0", nullptr};
constexpr const char* kContourOutput[] = {"BOTH", "FILE", nullptr};
constexpr const char* kContourType[] = {"C", "J", "KFACTORS", "T-STRESS", nullptr};
const inp_ExpansionStep kContourIntegral[] = {Names(kContourIntegralNames), Value("direction", kCrackDirection),
                                              Value("output", kContourOutput), Value("type", kContourType)};

constexpr const char* kControlsNames[] = {"analysis", "parameters", "field", "reset", "type", nullptr};
constexpr const char* kControlsAnalysis[] = {"DISCONTINUOUS", nullptr};
constexpr const char* kControlsParameters[] = {"CONSTRAINTS", "FIELD", "LINESEARCH", "TIMEINCREMENTATION", nullptr};
constexpr const char* kControlsField[] = {
    "CONCENTRATION",     "DISPLACEMENT", "ELECTRICALPOTENTIAL", "GLOBAL",      "HYDROSTATICFLUIDPRESSURE",
    "POREFLUIDPRESSURE", "ROTATION",     "TEMPERATURE",         "MATERIALFLOW", nullptr};
constexpr const char* kDirectCyclic[] = {"DIRECTCYCLIC", nullptr};
const inp_ExpansionStep kControls[] = {Names(kControlsNames), Value("analysis", kControlsAnalysis),
                                       Value("parameters", kControlsParameters), Value("field", kControlsField),
                                       Value("type", kDirectCyclic)};

constexpr const char* kCorrelationNames[] = {"complex", "input", "psd", "type", "user", nullptr};
constexpr const char* kCorrelationType[] = {"CORRELATED", "MOVINGNOISE", "UNCORRELATED", nullptr};
const inp_ExpansionStep kCorrelation[] = {Names(kCorrelationNames), Value("complex", NoYes),
                                          Value("type", kCorrelationType), DataFile("input")};

constexpr const char* kCoSimulationNames[] = {"externalinterface", "name", "program", nullptr};
const inp_ExpansionStep kCoSimulation[] = {Names(kCoSimulationNames),
                                           Value("externalinterface", kCoSimulationProgram),
                                           Value("program", kCoSimulationProgram)};

constexpr const char* kCoSimulationRegionNames[] = {"export", "import", "regionid", "type", nullptr};
constexpr const char* kRegionKind[] = {"SURFACE", "VOLUME", nullptr};
const inp_ExpansionStep kCoSimulationRegion[] = {Names(kCoSimulationRegionNames), Value("type", kRegionKind)};

constexpr const char* kCouplingNames[] = {"constraintname", "influenceradius", "orientation", "refnode", "surface", nullptr};
const inp_ExpansionStep kCoupling[] = {Names(kCouplingNames), Require("constraintname"), Require("refnode"),
                                       Require("surface")};

constexpr const char* kCoupledTemperatureDisplacementNames[] = {"cetol", "deltmx", "explicit", "nocreep", "steadystate", "stabilize", "factor", "creep", nullptr};
constexpr const char* kCreepIntegration[] = {"EXPLICIT", "NONE", nullptr};
const inp_ExpansionStep kCoupledTemperatureDisplacement[] = {Names(kCoupledTemperatureDisplacementNames),
                                                             Value("creep", kCreepIntegration)};

constexpr const char* kCoupledThermalElectricalNames[] = {"deltmx", "end", "mxdem", "steadystate", nullptr};
constexpr const char* kStepEnd[] = {"PERIOD", "SS", nullptr};
const inp_ExpansionStep kCoupledThermalElectrical[] = {Names(kCoupledThermalElectricalNames),
                                                       Value("end", kStepEnd)};

constexpr const char* kCreepNames[] = {"dependencies", "law", nullptr};
constexpr const char* kCreepLaw[] = {"HYPERB", "STRAIN", "TIME", "USER", nullptr};
const inp_ExpansionStep kCreep[] = {Names(kCreepNames), Value("law", kCreepLaw)};

constexpr const char* kCreepStrainRateControlNames[] = {"amplitude", "dependencies", "elset", "op", nullptr};
const inp_ExpansionStep kCreepStrainRateControl[] = {Names(kCreepStrainRateControlNames), Value("op", ModNew)};

constexpr const char* kCrushableFoamNames[] = {"dependencies", "hardening", nullptr};
constexpr const char* kFoamHardening[] = {"ISOTROPIC", "VOLUMETRIC", nullptr};
const inp_ExpansionStep kCrushableFoam[] = {Names(kCrushableFoamNames), Value("hardening", kFoamHardening)};

constexpr const char* kCyclicNames[] = {"nc", "type", nullptr};
constexpr const char* kCyclicType[] = {"AXIS", "POINT", nullptr};
const inp_ExpansionStep kCyclic[] = {Names(kCyclicNames), Value("type", kCyclicType)};

constexpr const char* kCyclicHardeningNames[] = {"dependencies", "parameters", "properties", "rate", "user", nullptr};
const inp_ExpansionStep kCyclicHardening[] = {Names(kCyclicHardeningNames)};

constexpr const char* kCyclicSymmetryModelNames[] = {"n", nullptr};
const inp_ExpansionStep kCyclicSymmetryModel[] = {Names(kCyclicSymmetryModelNames)};

const inp_ExpansionRule kRules[] = {
    INP_RULE(AdaptiveMesh, kAdaptiveMesh),
    INP_RULE(AdaptiveMeshConstraint, kAdaptiveMeshConstraint),
    INP_RULE(AdaptiveMeshControls, kAdaptiveMeshControls),
    INP_RULE(Amplitude, kAmplitude),
    INP_RULE(Anneal, kAnneal),
    INP_RULE(AnnealTemperature, kDependenciesOnly),
    INP_RULE(Aqua, kAqua),
    INP_RULE(Assembly, kAssembly),
    INP_RULE(AsymmetricAxisymmetric, kAsymmetricAxisymmetric),
    INP_RULE(Axial, kAxial),
    INP_RULE(BaseMotion, kBaseMotion),
    INP_RULE(BeamAddedInertia, kBeamAddedInertia),
    INP_RULE(BeamFluidInertia, kBeamFluidInertia),
    INP_RULE(BeamGeneralSection, kBeamGeneralSection),
    INP_RULE(BeamSection, kBeamSection),
    INP_EMPTY_RULE(BeamSectionGenerate),
    INP_RULE(BiaxialTestData, kBiaxialTestData),
    INP_RULE(Blockage, kBlockage),
    INP_RULE(Boundary, kBoundary),
    INP_RULE(BrittleCracking, kCracking),
    INP_RULE(BrittleFailure, kBrittleFailure),
    INP_RULE(BrittleShear, kBrittleShear),
    INP_RULE(Buckle, kBuckle),
    INP_RULE(BucklingReductionFactors, kBucklingReductionFactors),
    INP_RULE(Capacity, kCapacity),
    INP_RULE(CapCreep, kCapCreep),
    INP_RULE(CapHardening, kDependenciesOnly),
    INP_RULE(CapPlasticity, kDependenciesOnly),
    INP_RULE(CastIronCompressionHardening, kDependenciesOnly),
    INP_RULE(CastIronPlasticity, kDependenciesOnly),
    INP_RULE(CastIronTensionHardening, kDependenciesOnly),
    INP_RULE(CavityDefinition, kCavityDefinition),
    INP_RULE(Cecharge, kCecharge),
    INP_RULE(Cecurrent, kAmplitudeOp),
    INP_RULE(Cfilm, kCfilm),
    INP_RULE(Cflow, kAmplitudeOp),
    INP_RULE(Cflux, kAmplitudeOpRegion),
    INP_RULE(ChangeFriction, kChangeFriction),
    INP_RULE(ClayHardening, kDependenciesOnly),
    INP_RULE(ClayPlasticity, kClayPlasticity),
    INP_RULE(Clearance, kClearance),
    INP_RULE(Cload, kCload),
    INP_RULE(CohesiveSection, kCohesiveSection),
    INP_RULE(CombinedTestData, kCombinedTestData),
    INP_RULE(ComplexFrequency, kComplexFrequency),
    INP_RULE(Concrete, kDependenciesOnly),
    INP_RULE(ConcreteCompressionDamage, kConcreteCompressionDamage),
    INP_RULE(ConcreteCompressionHardening, kDependenciesOnly),
    INP_RULE(ConcreteDamagedPlasticity, kDependenciesOnly),
    INP_RULE(ConcreteTensionDamage, kConcreteTensionDamage),
    INP_RULE(ConcreteTensionStiffening, kCracking),
    INP_RULE(Conductivity, kConductivity),
    INP_RULE(Conflicts, kConflicts),
    INP_RULE(ConnectorBehavior, kConnectorBehavior),
    INP_RULE(ConnectorContactForce, kConnectorContactForce),
    INP_RULE(ConnectorDamageEvolution, kConnectorDamageEvolution),
    INP_RULE(ConnectorDamageInitiation, kConnectorDamageInitiation),
    INP_RULE(ConnectorDamping, kConnectorDamping),
    INP_RULE(ConnectorDerivedComponent, kConnectorDerivedComponent),
    INP_RULE(ConnectorElasticity, kConnectorElasticity),
    INP_RULE(ConnectorFailure, kConnectorFailure),
    INP_RULE(ConnectorFriction, kConnectorFriction),
    INP_RULE(ConnectorHardening, kConnectorHardening),
    INP_RULE(ConnectorLoad, kConnectorLoad),
    INP_RULE(ConnectorLock, kConnectorLock),
    INP_RULE(ConnectorMotion, kConnectorMotion),
    INP_RULE(ConnectorPlasticity, kConnectorPlasticity),
    INP_RULE(ConnectorPotential, kConnectorPotential),
    INP_RULE(ConnectorSection, kConnectorSection),
    INP_RULE(ConnectorStop, kConnectorStop),
    INP_RULE(ConstraintControls, kConstraintControls),
    INP_RULE(Contact, kContact),
    INP_RULE(ContactClearance, kContactClearance),
    INP_RULE(ContactControls, kContactControls),
    INP_RULE(ContactControlsAssignment, kContactControlsAssignment),
    INP_RULE(ContactDamping, kContactDamping),
    INP_RULE(ContactFile, kContactFile),
    INP_RULE(ContactFormulation, kContactFormulation),
    INP_RULE(ContactInclusions, kContactInclusions),
    INP_RULE(ContactInterference, kContactInterference),
    INP_RULE(ContactOutput, kContactOutput),
    INP_RULE(ContactPair, kContactPair),
    INP_RULE(ContactPrint, kContactPrint),
    INP_RULE(ContactResponse, kContactResponse),
    INP_RULE(ContourIntegral, kContourIntegral),
    INP_RULE(Controls, kControls),
    INP_RULE(Correlation, kCorrelation),
    INP_RULE(CoSimulation, kCoSimulation),
    INP_RULE(CoSimulationRegion, kCoSimulationRegion),
    INP_RULE(Coupling, kCoupling),
    INP_RULE(CoupledTemperatureDisplacement, kCoupledTemperatureDisplacement),
    INP_RULE(CoupledThermalElectrical, kCoupledThermalElectrical),
    INP_RULE(Cradiate, kAmplitudeOpRegion),
    INP_RULE(Creep, kCreep),
    INP_RULE(CreepStrainRateControl, kCreepStrainRateControl),
    INP_RULE(CrushableFoam, kCrushableFoam),
    INP_RULE(CrushableFoamHardening, kDependenciesOnly),
    INP_RULE(Cyclic, kCyclic),
    INP_RULE(CyclicHardening, kCyclicHardening),
    INP_RULE(CyclicSymmetryModel, kCyclicSymmetryModel),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesAC = {kRules, static_cast<int>(std::size(kRules))};
