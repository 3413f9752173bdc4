// Expansion rows of the keywords from I to P.
#include <cctype>

#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_Utils.h"

using namespace inp_rule;

namespace {

// Vocabularies that several rows of this file share.
constexpr const char* kAllPreselect[] = {"ALL", "PRESELECT", nullptr};
constexpr const char* kRampStep[] = {"RAMP", "STEP", nullptr};
constexpr const char* kSystem[] = {"C", "R", "S", nullptr};
constexpr const char* kOneTwo[] = {"1", "2", nullptr};
constexpr const char* kDebugNoYes[] = {"DEBUG", "NO", "YES", nullptr};

constexpr const char* kNameRequired = "The NAME parameter is required.";

// Material and matrix names end up as identifiers in the solver's files, which must
// begin with a letter; a quoted name is judged by its first character inside the quotes.
void CheckName(inp_KeywordExpansionVisitor& v, inp_Keyword& k, const char* text) {
    const inp_Item* name = k.parameters.Lookup(cow_String("name"));
    if (!name) return;  // reported by the row's Without step
    bool good = false;
    if (name->type == inp_Types::typeString) {
        const cow_String& s = name->stringValue;
        const int at = s.Length() > 1 && s.c_str()[0] == '"' ? 1 : 0;
        good = s.Length() > at && std::isalpha(static_cast<unsigned char>(s.c_str()[at]));
    }
    if (!good) v.errors.Append(inp_Utils::MessageInKeyword(k, atr_raw(text)));
}

// --- I -------------------------------------------------------------------------

constexpr const char* kImpedanceNames[] = {"nonreflecting", "property", "op", nullptr};
constexpr const char* kNonReflecting[] = {"PLANAR",        "CIRCULAR",       "SPHERICAL",      "ELLIPTICAL",
                                          "PROLATESPHEROIDAL", "IMPROVEDPLANE", "SECONDCIRCULAR", "SECONDSPHERICAL",
                                          nullptr};
const inp_ExpansionStep kImpedance[] = {Names(kImpedanceNames), Value("op", ModNew),
                                        Value("nonreflecting", kNonReflecting)};

constexpr const char* kImpedancePropertyNames[] = {"name", "input", "type", "data", nullptr};
constexpr const char* kImpedancePropertyType[] = {"TABULAR",    "CIRCULAR",      "SPHERE", "ELLIPTICAL",
                                                  "PROLATESPHEROID", "IMPROVEDPLANE", nullptr};
constexpr const char* kImpedanceData[] = {"IMPEDANCE", "ADMITTANCE", nullptr};
const inp_ExpansionStep kImpedanceProperty[] = {Names(kImpedancePropertyNames), Value("type", kImpedancePropertyType),
                                                Value("data", kImpedanceData), DataFile("input")};

constexpr const char* kImperfectionNames[] = {"file", "inc", "input", "nset", "step", "system", nullptr};
const inp_ExpansionStep kImperfection[] = {Names(kImperfectionNames), Value("system", kSystem), DataFile("input")};

constexpr const char* kImportNames[] = {"convert", "hourglass", "increment", "interval", "state",
                                        "step",    "update",    "iteration", "xdata",    nullptr};
const inp_ExpansionStep kImport[] = {
    Names(kImportNames), Value("state", NoYes), Value("update", NoYes),
    Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) {
        if (k.HasParameter(cow_String("hourglass")))
            v.warnings.Append(inp_Utils::MessageInKeyword(
                k, atr_raw("THE HOURGLASS PARAMETER HAS BEEN USED WITH *IMPORT. RESULTS SHOULD BE INTERPRETED WITH "
                           "CAUTION.")));
    }),
    Require("update")};

constexpr const char* kImportControlsNames[] = {"normaltol", nullptr};
const inp_ExpansionStep kImportControls[] = {Names(kImportControlsNames)};

constexpr const char* kIncidentWaveNames[] = {"op", "property", "accelerationamplitude", "pressureamplitude", nullptr};
const inp_ExpansionStep kIncidentWave[] = {Names(kIncidentWaveNames)};

constexpr const char* kIncidentWaveInteractionNames[] = {"op", "property", "accelerationamplitude",
                                                         "pressureamplitude", "undex", nullptr};
const inp_ExpansionStep kIncidentWaveInteraction[] = {Names(kIncidentWaveInteractionNames)};

constexpr const char* kNameType[] = {"name", "type", nullptr};
constexpr const char* kIncidentWaveInteractionPropertyType[] = {"PLANE", "SPHERE", "DIFFUSE", "AIRBLAST", nullptr};
const inp_ExpansionStep kIncidentWaveInteractionProperty[] = {Names(kNameType),
                                                              Value("type", kIncidentWaveInteractionPropertyType)};

constexpr const char* kIncidentWavePropertyType[] = {"PLANE", "SPHERE", nullptr};
const inp_ExpansionStep kIncidentWaveProperty[] = {Names(kNameType), Value("type", kIncidentWavePropertyType)};

constexpr const char* kOpNames[] = {"op", nullptr};
const inp_ExpansionStep kIncidentWaveReflection[] = {Names(kOpNames), Value("op", ModNew)};

constexpr const char* kIncludeNames[] = {"input", "password", nullptr};
const inp_ExpansionStep kInclude[] = {Names(kIncludeNames),
                                      WithoutBlank("input", "The \"input\" parameter is required.")};

constexpr const char* kVariableNames[] = {"variable", nullptr};
const inp_ExpansionStep kIncrementationOutput[] = {Names(kVariableNames), Value("variable", kAllPreselect)};

constexpr const char* kInertiaReliefNames[] = {"fixed", "orientation", "remove", nullptr};
const inp_ExpansionStep kInertiaRelief[] = {Names(kInertiaReliefNames)};

constexpr const char* kInitialConditionsNames[] = {
    "absoluteexteriortolerance", "eoffset", "exteriortolerance", "file",     "geostatic", "inc",
    "input",                     "interpolate", "midside",       "normal",   "rebar",     "sectionpoints",
    "step",                      "type",    "user",              "variable", "unbalancedstress", nullptr};
constexpr const char* kInitialConditionsType[] = {
    "ACOUSTICSTATICPRESSURE", "CONCENTRATION",  "CONTACT",          "FIELD",          "FLUIDPRESSURE",
    "HARDENING",              "INITIALGAP",     "MASSFLOWRATE",     "NONAXI",         "OLDMESH",
    "PLASTICSTRAIN",          "POREPRESSURE",   "POROSITY",         "PRESSURESTRESS", "RATIO",
    "RELATIVEDENSITY",        "ROTATINGVELOCITY", "SATURATION",     "SOLUTION",       "SPUDEMBEDMENT",
    "SPUDPRELOAD",            "STRESS",         "TEMPERATURE",      "VELOCITY",       "SPECIFICENERGY",
    "STEP",                   "RAMP",           "REFCOORDINATE",    nullptr};

// Initial conditions read from a results file are mapped by element and node numbers of
// one flat mesh; only these kinds are looked up by position and survive instancing.
void CheckInitialConditionsFile(inp_KeywordExpansionVisitor& v, inp_Keyword& k) {
    const inp_Item* type = k.parameters.Lookup(cow_String("type"));
    if (!type || !k.HasParameter(cow_String("file"))) return;
    const cow_String value = type->AsString();
    if (value == "TEMPERATURE" || value == "PRESSURESTRESS" || value == "FIELD") return;
    atr_translate t(
        "Option is currently not supported in a model defined in terms of an assembly of part instances: *INITIAL "
        "CONDITIONS, TYPE=%s, FILE=");
    atr_SubstituteFormat(t, 1, value);
    v.ReportUnsupportedInAssembly(k, t.Result());
}
const inp_ExpansionStep kInitialConditions[] = {
    Names(kInitialConditionsNames), Value("type", kInitialConditionsType), Value("unbalancedstress", kRampStep),
    DataFile("input"), Call(CheckInitialConditionsFile)};

constexpr const char* kInstanceNames[] = {"instance", "library", "name", "part", "superelement", nullptr};
const inp_ExpansionStep kInstance[] = {Names(kInstanceNames)};

constexpr const char* kIntegratedOutputNames[] = {"section", "surface", "variable", nullptr};
const inp_ExpansionStep kIntegratedOutput[] = {Names(kIntegratedOutputNames), Value("variable", kAllPreselect)};

constexpr const char* kIntegratedOutputSectionNames[] = {
    "name", "orientation", "position", "projectorientation", "refnode", "refnodemotion", "surface", nullptr};
constexpr const char* kPosition[] = {"INPUT", "CENTER", nullptr};
constexpr const char* kRefNodeMotion[] = {"INDEPENDENT", "AVERAGE", "AVERAGETRANSLATION", nullptr};
const inp_ExpansionStep kIntegratedOutputSection[] = {
    Names(kIntegratedOutputSectionNames), Value("position", kPosition),    Value("projectorientation", NoYes),
    Value("refnodemotion", kRefNodeMotion), Require("name"), Require("surface")};

constexpr const char* kInteractionOutputNames[] = {"name", "nset", "variable", nullptr};
const inp_ExpansionStep kInteractionOutput[] = {Names(kInteractionOutputNames), Value("variable", kAllPreselect)};

constexpr const char* kInteractionPrintNames[] = {"frequency", "name", "nset", "summary", "totals", nullptr};
const inp_ExpansionStep kInteractionPrint[] = {Names(kInteractionPrintNames), Value("summary", NoYes),
                                               Value("totals", NoYes)};

constexpr const char* kInterfaceNames[] = {"elset", "name", nullptr};
const inp_ExpansionStep kInterface[] = {Names(kInterfaceNames)};

constexpr const char* kElsetNames[] = {"elset", nullptr};
const inp_ExpansionStep kIts[] = {Names(kElsetNames)};

// --- J, K, L ------------------------------------------------------------------

constexpr const char* kElsetOrientationNames[] = {"elset", "orientation", nullptr};
const inp_ExpansionStep kJoint[] = {Names(kElsetOrientationNames)};

constexpr const char* kJointedMaterialNames[] = {"dependencies", "jointdirection", "noseparation", "shearretention",
                                                 nullptr};
const inp_ExpansionStep kJointedMaterial[] = {Names(kJointedMaterialNames)};

constexpr const char* kJointElasticityNames[] = {"dependencies", "moduli", "ndim", nullptr};
constexpr const char* kModuli[] = {"GENERAL", "SPUDCAN", nullptr};
constexpr const char* kTwoThree[] = {"2", "3", nullptr};
const inp_ExpansionStep kJointElasticity[] = {Names(kJointElasticityNames), Value("moduli", kModuli),
                                              Value("ndim", kTwoThree)};

constexpr const char* kDependenciesType[] = {"dependencies", "type", nullptr};
constexpr const char* kJointPlasticityType[] = {"CLAY", "MEMBER", "SAND", nullptr};
const inp_ExpansionStep kJointPlasticity[] = {Names(kDependenciesType), Value("type", kJointPlasticityType)};

constexpr const char* kKappaType[] = {"PRESSURE", "TEMPERATURE", nullptr};
const inp_ExpansionStep kKappa[] = {Names(kDependenciesType), Value("type", kKappaType)};

constexpr const char* kKinematicCouplingNames[] = {"refnode", "orientation", nullptr};
const inp_ExpansionStep kKinematicCoupling[] = {Names(kKinematicCouplingNames)};

constexpr const char* kNameNames[] = {"name", nullptr};
const inp_ExpansionStep kLoadCase[] = {Names(kNameNames)};

// --- M -------------------------------------------------------------------------

constexpr const char* kMapSolutionNames[] = {"inc", "method", "step", "guess", "unbalancedstress", nullptr};
constexpr const char* kMapSolutionMethod[] = {"INTERPOLATE", "EXTRUDEOLDMESH", "SLICEOLDMESH", "XUNFOLD",
                                              "YUNFOLD",     "XYUNFOLD",       "ROTATE",       nullptr};
const inp_ExpansionStep kMapSolution[] = {Names(kMapSolutionNames), Value("method", kMapSolutionMethod),
                                          Value("unbalancedstress", kRampStep)};

constexpr const char* kMassNames[] = {"alpha", "composite", "elset", nullptr};
const inp_ExpansionStep kMass[] = {Names(kMassNames)};

constexpr const char* kMassDiffusionNames[] = {"dcmax", "end", "steadystate", nullptr};
const inp_ExpansionStep kMassDiffusion[] = {Names(kMassDiffusionNames)};

constexpr const char* kMassFlowRateNames[] = {"amplitude", "input", "op", "user", nullptr};
const inp_ExpansionStep kMassFlowRate[] = {Names(kMassFlowRateNames), Value("op", ModNew), DataFile("input")};

constexpr const char* kMaterialNames[] = {"name", "rtol", "strainrateregularization", "sratefactor", nullptr};
constexpr const char* kStrainRateRegularization[] = {"LINEAR", "LOGARITHMIC", nullptr};
const inp_ExpansionStep kMaterial[] = {
    Names(kMaterialNames), Value("strainrateregularization", kStrainRateRegularization),
    Without("name", kNameRequired, false, false), Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) {
        CheckName(v, k, "The material name must be an alphanumeric string starting with an alphabet. ");
    })};

constexpr const char* kMatrixNames[] = {"input", "type", nullptr};
constexpr const char* kMatrixType[] = {"MASS", "STIFFNESS", nullptr};
const inp_ExpansionStep kMatrix[] = {Names(kMatrixNames), Value("type", kMatrixType), DataFile("input")};

constexpr const char* kMatrixAssembleNames[] = {"stiffness", "mass", "damping", nullptr};
const inp_ExpansionStep kMatrixAssemble[] = {
    Names(kMatrixAssembleNames),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *MATRIX ASSEMBLE")};

constexpr const char* kMatrixGenerateNames[] = {"damping", "mass", "load", "propertyevaluation", "stiffness", nullptr};
const inp_ExpansionStep kMatrixGenerate[] = {Names(kMatrixGenerateNames), Value("damping", NoYes),
                                             Value("mass", NoYes), Value("load", NoYes), Value("stiffness", NoYes)};

// `input` stays on the keyword: the matrix file is read by the solver, not here.
constexpr const char* kMatrixInputNames[] = {"input", "matrixpath", "name", "type", "scalefactor", nullptr};
constexpr const char* kMatrixInputType[] = {"SYMMETRIC", "UNSYMMETRIC", nullptr};
const inp_ExpansionStep kMatrixInput[] = {
    Names(kMatrixInputNames),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *MATRIX INPUT"),
    Without("name", kNameRequired, false, false), Value("type", kMatrixInputType),
    Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) {
        CheckName(v, k, "The matrix name must be an alphanumeric string starting with an alphabet. ");
    })};

constexpr const char* kMembraneSectionNames[] = {"controls",    "elset",   "material", "nodalthickness",
                                                 "orientation", "poisson", "density",  nullptr};
const inp_ExpansionStep kMembraneSection[] = {Names(kMembraneSectionNames)};

constexpr const char* kModalDampingNames[] = {"modal", "rayleigh", "structural", "definition", nullptr};
constexpr const char* kModalDampingModal[] = {"COMPOSITE", "DIRECT", nullptr};
constexpr const char* kModalDampingDefinition[] = {"MODENUMBERS", "FREQUENCYRANGE", nullptr};
const inp_ExpansionStep kModalDamping[] = {Names(kModalDampingNames), Value("modal", kModalDampingModal),
                                           Value("definition", kModalDampingDefinition)};

constexpr const char* kModalDynamicNames[] = {"continue", nullptr};
const inp_ExpansionStep kModalDynamic[] = {Names(kModalDynamicNames), Value("continue", NoYes)};

constexpr const char* kFrequencyNames[] = {"frequency", nullptr};
const inp_ExpansionStep kModalFile[] = {Names(kFrequencyNames)};

const inp_ExpansionStep kModalOutput[] = {Names(kVariableNames), Value("variable", kAllPreselect)};

// A bare ADD stays a flag: it asks for the default way of adding.
constexpr const char* kModelChangeNames[] = {"add", "remove", "type", "activate", nullptr};
constexpr const char* kModelChangeAdd[] = {"STRAINFREE", "WITHSTRAIN", nullptr};
constexpr const char* kModelChangeType[] = {"CONTACTPAIR", "ELEMENT", nullptr};
const inp_ExpansionStep kModelChange[] = {Names(kModelChangeNames), ValueUnlessBool("add", kModelChangeAdd),
                                          Value("type", kModelChangeType)};

constexpr const char* kMohrCoulombNames[] = {"dependencies", "eccentricity", "deviatoriceccentricity", nullptr};
const inp_ExpansionStep kMohrCoulomb[] = {Names(kMohrCoulombNames)};

constexpr const char* kDependenciesNames[] = {"dependencies", nullptr};
const inp_ExpansionStep kMohrCoulombHardening[] = {Names(kDependenciesNames)};

constexpr const char* kMonitorNames[] = {"dof", "frequency", "node", nullptr};
const inp_ExpansionStep kMonitor[] = {Names(kMonitorNames)};

constexpr const char* kMotionNames[] = {"amplitude", "rotation", "translation", "type", "user", nullptr};
constexpr const char* kMotionType[] = {"DISPLACEMENT", "VELOCITY", nullptr};
const inp_ExpansionStep kMotion[] = {Names(kMotionNames), Value("type", kMotionType)};

constexpr const char* kMpcNames[] = {"input", "mode", "user", nullptr};
constexpr const char* kMpcMode[] = {"DOF", "NODE", nullptr};
const inp_ExpansionStep kMpc[] = {Names(kMpcNames), Value("mode", kMpcMode), DataFile("input")};

constexpr const char* kMullinsEffectNames[] = {"beta", "dependencies", "m",    "properties",
                                               "r",    "testdatainput", "user", nullptr};
const inp_ExpansionStep kMullinsEffect[] = {Names(kMullinsEffectNames)};

// One row serves *M1, *M2 and *LATENT HEAT.
constexpr const char* kM1Names[] = {"dependencies", "elastic", "linear", nullptr};
const inp_ExpansionStep kM1[] = {Names(kM1Names)};

// --- N -------------------------------------------------------------------------

constexpr const char* kNcopyNames[] = {"changenumber", "multiple", "newset", "oldset",
                                       "pole",         "reflect",  "shift",  nullptr};
constexpr const char* kReflect[] = {"LINE", "MIRROR", "POINT", nullptr};
const inp_ExpansionStep kNcopy[] = {Names(kNcopyNames), Value("reflect", kReflect)};

constexpr const char* kNfillNames[] = {"bias", "nset", "singular", "twostep", nullptr};
const inp_ExpansionStep kNfill[] = {Names(kNfillNames)};

constexpr const char* kNgenNames[] = {"line", "nset", "system", nullptr};
constexpr const char* kNgenLine[] = {"C", "P", nullptr};
constexpr const char* kNgenSystem[] = {"C", "RC", "S", nullptr};
const inp_ExpansionStep kNgen[] = {Names(kNgenNames), Value("line", kNgenLine), Value("system", kNgenSystem)};

constexpr const char* kNmapNames[] = {"nset", "type", nullptr};
constexpr const char* kNmapType[] = {"BLENDED", "CYLINDRICAL", "DIAMOND", "RECTANGULAR", "SPHERICAL", "TOROIDAL", nullptr};
const inp_ExpansionStep kNmap[] = {
    Names(kNmapNames), Value("type", kNmapType),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *NMAP")};

constexpr const char* kNodalThicknessNames[] = {"generate", "input", nullptr};
const inp_ExpansionStep kNodalThickness[] = {Names(kNodalThicknessNames), DataFile("input")};

constexpr const char* kNodeNames[] = {"input", "nset", "system", nullptr};
const inp_ExpansionStep kNode[] = {Names(kNodeNames), Value("system", kSystem), DataFile("input")};

constexpr const char* kNodeFileNames[] = {"frequency", "global", "lastmode", "mode", "nset", nullptr};
const inp_ExpansionStep kNodeFile[] = {Names(kNodeFileNames), Value("global", NoYes)};

constexpr const char* kNodeOutputNames[] = {"filter", "nset", "tracerset", "variable", nullptr};
const inp_ExpansionStep kNodeOutput[] = {Names(kNodeOutputNames), Value("variable", kAllPreselect)};

constexpr const char* kNodePrintNames[] = {"frequency", "global", "lastmode", "mode",
                                           "nset",      "summary", "totals",  nullptr};
const inp_ExpansionStep kNodePrint[] = {Names(kNodePrintNames), Value("global", NoYes), Value("summary", NoYes),
                                        Value("totals", NoYes)};

constexpr const char* kNsetOnlyNames[] = {"nset", nullptr};
const inp_ExpansionStep kNodeResponse[] = {Names(kNsetOnlyNames)};

constexpr const char* kNonStructuralMassNames[] = {"distribution", "elset", "surface", "units", nullptr};
constexpr const char* kDistribution[] = {"MASSPROPORTIONAL", "VOLUMEPROPORTIONAL", nullptr};
constexpr const char* kUnits[] = {"MASSPERAREA", "MASSPERLENGTH", "MASSPERVOLUME", "TOTALMASS", nullptr};
const inp_ExpansionStep kNonStructuralMass[] = {Names(kNonStructuralMassNames), Value("distribution", kDistribution),
                                                Value("units", kUnits)};

constexpr const char* kTypeNames[] = {"type", nullptr};
constexpr const char* kNormalType[] = {"CONTACTSURFACE", "ELEMENT", nullptr};
const inp_ExpansionStep kNormal[] = {Names(kTypeNames), Value("type", kNormalType)};

constexpr const char* kNsetNames[] = {"elset", "generate", "instance", "nset", "internal", "unsorted", nullptr};
const inp_ExpansionStep kNset[] = {Names(kNsetNames), WithoutBlank("nset", "The NSET parameter is required."),
                                   Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) { v.TrimDataLines(k, 16); })};

// --- O -------------------------------------------------------------------------

constexpr const char* kOrientationNames[] = {"definition", "name", "orthogonal", "system", "projection", nullptr};
constexpr const char* kOrientationDefinition[] = {"COORDINATES", "NODES", "OFFSETTONODES", nullptr};
constexpr const char* kOrientationSystem[] = {"CYLINDRICAL", "RECTANGULAR", "SPHERICAL", "USER", "ZRECTANGULAR",
                                              nullptr};
const inp_ExpansionStep kOrientation[] = {Names(kOrientationNames), Value("definition", kOrientationDefinition),
                                          Value("orthogonal", NoYes), Value("system", kOrientationSystem)};

constexpr const char* kOrnlNames[] = {"a", "h", "material", "reset", nullptr};
constexpr const char* kOrnlMaterial[] = {"SS", nullptr};
const inp_ExpansionStep kOrnl[] = {Names(kOrnlNames), Value("material", kOrnlMaterial)};

constexpr const char* kOutputNames[] = {"diagnostics", "field",    "frequency",    "filter",     "history",
                                        "modelist",    "numberinterval", "op",     "timeinterval", "timemarks",
                                        "timepoints",  "variable", nullptr};
constexpr const char* kOutputOp[] = {"ADD", "NEW", "REPLACE", nullptr};
const inp_ExpansionStep kOutput[] = {Names(kOutputNames), Value("op", kOutputOp), Value("variable", kAllPreselect),
                                     Value("diagnostics", NoYes)};

// --- P -------------------------------------------------------------------------

constexpr const char* kParameterShapeVariationNames[] = {"parameter", "system", "input", "file", "step",
                                                         "inc",       "mode",   "nset",  "value", nullptr};
const inp_ExpansionStep kParameterShapeVariation[] = {
    Names(kParameterShapeVariationNames), Value("system", kSystem), DataFile("input"),
    UnsupportedWith("file", "Option is currently not supported in a model defined in terms of an assembly of part "
                            "instances: *PARAMETER SHAPE VARIATION, FILE=")};

constexpr const char* kPartNames[] = {"inc", "instance", "library", "name", "part", "step", "state", "update", nullptr};
const inp_ExpansionStep kPart[] = {Names(kPartNames), Value("state", NoYes), Value("update", NoYes)};

constexpr const char* kPeriodicNames[] = {"nr", "type", nullptr};
constexpr const char* kPeriodicType[] = {"2D", "3D", "ZDIR", nullptr};
const inp_ExpansionStep kPeriodic[] = {Names(kPeriodicNames), Value("type", kPeriodicType)};

constexpr const char* kPermeabilityNames[] = {"specific", "type", "dependencies", nullptr};
constexpr const char* kPermeabilityType[] = {"ANISOTROPIC", "ISOTROPIC", "ORTHOTROPIC", "SATURATION", "VELOCITY",
                                             nullptr};
// Only the permeability proper needs the fluid's specific weight; the saturation and
// velocity tables are factors on it.
void CheckPermeabilitySpecific(inp_KeywordExpansionVisitor& v, inp_Keyword& k) {
    const inp_Item* type = k.parameters.Lookup(cow_String("type"));
    const cow_String value = type ? type->AsString() : cow_String("ISOTROPIC");
    if (value == "ANISOTROPIC" || value == "ISOTROPIC" || value == "ORTHOTROPIC")
        v.RequireParameter(k, cow_String("specific"));
}
const inp_ExpansionStep kPermeability[] = {Names(kPermeabilityNames), Value("type", kPermeabilityType),
                                           Call(CheckPermeabilitySpecific)};

constexpr const char* kPhysicalConstantsNames[] = {"absolutezero", "stefanboltzmann", "universalgasconstant", nullptr};
const inp_ExpansionStep kPhysicalConstants[] = {Names(kPhysicalConstantsNames)};

constexpr const char* kPiezoelectricType[] = {"E", "S", nullptr};
const inp_ExpansionStep kPiezoelectric[] = {Names(kDependenciesType), Value("type", kPiezoelectricType)};

const inp_ExpansionStep kPipeSoilInteraction[] = {Names(kElsetOrientationNames)};

constexpr const char* kPipeSoilStiffnessNames[] = {"dependencies", "direction", "type", "properties", "variables",
                                                   nullptr};
constexpr const char* kPipeSoilDirection[] = {"AXIAL", "VERTICAL", "HORIZONTAL", "1", "2", "3", nullptr};
constexpr const char* kPipeSoilType[] = {"LINEAR", "NONLINEAR", "CLAY", "SAND", "USER", nullptr};
const inp_ExpansionStep kPipeSoilStiffness[] = {Names(kPipeSoilStiffnessNames), Value("direction", kPipeSoilDirection),
                                                Value("type", kPipeSoilType)};

constexpr const char* kPlanarTestDataNames[] = {"dependencies", "smooth", nullptr};
const inp_ExpansionStep kPlanarTestData[] = {Names(kPlanarTestDataNames)};

constexpr const char* kPlasticNames[] = {"datatype", "dependencies", "hardening", "properties", "rate", nullptr};
constexpr const char* kPlasticDataType[] = {"HALFCYCLE", "PARAMETERS", "STABILIZED", nullptr};
constexpr const char* kHardening[] = {"ISOTROPIC", "JOHNSONCOOK", "KINEMATIC", "COMBINED", "USER", nullptr};
const inp_ExpansionStep kPlastic[] = {Names(kPlasticNames), Value("datatype", kPlasticDataType),
                                      Value("hardening", kHardening)};

constexpr const char* kPorousElasticNames[] = {"dependencies", "shear", nullptr};
constexpr const char* kPorousElasticShear[] = {"G", "POISSON", nullptr};
const inp_ExpansionStep kPorousElastic[] = {Names(kPorousElasticNames), Value("shear", kPorousElasticShear)};

constexpr const char* kPorousMetalPlasticityNames[] = {"dependencies", "relativedensity", nullptr};
const inp_ExpansionStep kPorousMetalPlasticity[] = {Names(kPorousMetalPlasticityNames)};

constexpr const char* kPostOutputNames[] = {"step", "iteration", nullptr};
const inp_ExpansionStep kPostOutput[] = {Names(kPostOutputNames)};

const inp_ExpansionStep kPotential[] = {Names(kDependenciesNames)};

constexpr const char* kPreTensionSectionNames[] = {"element", "surface", "node", nullptr};
const inp_ExpansionStep kPreTensionSection[] = {Names(kPreTensionSectionNames)};

constexpr const char* kPreprintNames[] = {"contact", "coupling", "echo",      "gasket",
                                          "history", "model",    "parvalues", "parsubstitution", nullptr};
constexpr const char* kDebug[] = {"DEBUG", nullptr};
const inp_ExpansionStep kPreprint[] = {
    Names(kPreprintNames),       Value("contact", kDebugNoYes), Value("coupling", kDebug),
    Value("echo", NoYes),        Value("gasket", kDebugNoYes),  Value("history", NoYes),
    Value("model", NoYes),       Value("parvalues", NoYes),     Value("parsubstitution", NoYes)};

constexpr const char* kPressurePenetrationNames[] = {"amplitude", "average",         "loadcase", "master",
                                                     "op",        "penetrationtime", "slave",    nullptr};
const inp_ExpansionStep kPressurePenetration[] = {Names(kPressurePenetrationNames), Value("loadcase", kOneTwo),
                                                  Value("op", ModNew)};

constexpr const char* kPressureStressNames[] = {"amplitude", "binc", "bstep", "einc", "estep",
                                                "file",      "input", "op",   "user", nullptr};
const inp_ExpansionStep kPressureStress[] = {Names(kPressureStressNames), Value("op", ModNew), DataFile("input")};

// One row serves *PRINT and *MODAL PRINT.
constexpr const char* kPrintNames[] = {"allke",    "contact",  "criticalelement", "dmass",
                                       "etotal",   "mspei",    "frequency",       "plasticity",
                                       "residual", "solve",    "modelchange",     "adaptivemesh", nullptr};
const inp_ExpansionStep kPrint[] = {
    Names(kPrintNames),          Value("allke", NoYes),       Value("contact", NoYes),  Value("criticalelement", NoYes),
    Value("dmass", NoYes),       Value("etotal", NoYes),      Value("mspei", NoYes),    Value("plasticity", NoYes),
    Value("residual", NoYes),    Value("solve", NoYes),       Value("modelchange", NoYes),
    Value("adaptivemesh", NoYes)};

constexpr const char* kPsdDefinitionNames[] = {"dbreference", "g", "input", "name", "type", "user", nullptr};
constexpr const char* kPsdDefinitionType[] = {"BASE", "DB", "FORCE", nullptr};
const inp_ExpansionStep kPsdDefinition[] = {Names(kPsdDefinitionNames), Value("type", kPsdDefinitionType),
                                            DataFile("input")};

const inp_ExpansionRule kRules[] = {
    INP_RULE(Impedance, kImpedance),
    INP_RULE(ImpedanceProperty, kImpedanceProperty),
    INP_RULE(Imperfection, kImperfection),
    INP_RULE(Import, kImport),
    INP_RULE(ImportControls, kImportControls),
    INP_RULE(IncidentWave, kIncidentWave),
    INP_RULE(IncidentWaveInteraction, kIncidentWaveInteraction),
    INP_RULE(IncidentWaveInteractionProperty, kIncidentWaveInteractionProperty),
    INP_RULE(IncidentWaveProperty, kIncidentWaveProperty),
    INP_RULE(IncidentWaveReflection, kIncidentWaveReflection),
    INP_EMPTY_RULE(IncidentWaveFluidProperty),
    INP_RULE(Include, kInclude),
    INP_RULE(IncrementationOutput, kIncrementationOutput),
    INP_RULE(InertiaRelief, kInertiaRelief),
    INP_RULE(InitialConditions, kInitialConditions),
    INP_RULE(Instance, kInstance),
    INP_RULE(IntegratedOutput, kIntegratedOutput),
    INP_RULE(IntegratedOutputSection, kIntegratedOutputSection),
    INP_RULE(InteractionOutput, kInteractionOutput),
    INP_RULE(InteractionPrint, kInteractionPrint),
    INP_RULE(Interface, kInterface),
    INP_RULE(Its, kIts),
    INP_RULE(Joint, kJoint),
    INP_RULE(JointedMaterial, kJointedMaterial),
    INP_RULE(JointElasticity, kJointElasticity),
    INP_RULE(JointPlasticity, kJointPlasticity),
    INP_RULE(Kappa, kKappa),
    INP_EMPTY_RULE(Kinematic),
    INP_RULE(KinematicCoupling, kKinematicCoupling),
    INP_RULE(LoadCase, kLoadCase),
    INP_RULE(MapSolution, kMapSolution),
    INP_RULE(Mass, kMass),
    INP_RULE(MassDiffusion, kMassDiffusion),
    INP_RULE(MassFlowRate, kMassFlowRate),
    INP_RULE(Material, kMaterial),
    INP_RULE(Matrix, kMatrix),
    INP_RULE(MatrixAssemble, kMatrixAssemble),
    INP_RULE(MatrixGenerate, kMatrixGenerate),
    INP_RULE(MatrixInput, kMatrixInput),
    INP_RULE(MembraneSection, kMembraneSection),
    INP_RULE(ModalDamping, kModalDamping),
    INP_RULE(ModalDynamic, kModalDynamic),
    INP_RULE(ModalFile, kModalFile),
    INP_RULE(ModalOutput, kModalOutput),
    INP_RULE(ModelChange, kModelChange),
    INP_RULE(MohrCoulomb, kMohrCoulomb),
    INP_RULE(MohrCoulombHardening, kMohrCoulombHardening),
    INP_RULE(Monitor, kMonitor),
    INP_RULE(Motion, kMotion),
    INP_RULE(Mpc, kMpc),
    INP_RULE(MullinsEffect, kMullinsEffect),
    INP_RULE(M1, kM1),
    INP_RULE(LatentHeat, kM1),  // dispatched to VisitM1, looked up under its own value
    INP_RULE(M2, kM1),
    INP_RULE(Ncopy, kNcopy),
    INP_RULE(Nfill, kNfill),
    INP_RULE(Ngen, kNgen),
    INP_RULE(Nmap, kNmap),
    INP_RULE(NodalThickness, kNodalThickness),
    INP_RULE(Node, kNode),
    INP_RULE(NodeFile, kNodeFile),
    INP_RULE(NodeOutput, kNodeOutput),
    INP_RULE(NodePrint, kNodePrint),
    INP_RULE(NodeResponse, kNodeResponse),
    INP_RULE(NonStructuralMass, kNonStructuralMass),
    INP_RULE(Normal, kNormal),
    INP_RULE(Nset, kNset),
    INP_RULE(Orientation, kOrientation),
    INP_RULE(Ornl, kOrnl),
    INP_RULE(Output, kOutput),
    INP_RULE(ParameterShapeVariation, kParameterShapeVariation),
    INP_RULE(Part, kPart),
    INP_RULE(Periodic, kPeriodic),
    INP_RULE(Permeability, kPermeability),
    INP_RULE(PhysicalConstants, kPhysicalConstants),
    INP_RULE(Piezoelectric, kPiezoelectric),
    INP_RULE(PipeSoilInteraction, kPipeSoilInteraction),
    INP_RULE(PipeSoilStiffness, kPipeSoilStiffness),
    INP_RULE(PlanarTestData, kPlanarTestData),
    INP_RULE(Plastic, kPlastic),
    INP_RULE(PorousElastic, kPorousElastic),
    INP_RULE(PorousMetalPlasticity, kPorousMetalPlasticity),
    INP_RULE(PostOutput, kPostOutput),
    INP_RULE(Potential, kPotential),
    INP_RULE(PreTensionSection, kPreTensionSection),
    INP_RULE(Preprint, kPreprint),
    INP_RULE(PressurePenetration, kPressurePenetration),
    INP_RULE(PressureStress, kPressureStress),
    INP_RULE(Print, kPrint),
    INP_RULE(ModalPrint, kPrint),  // dispatched to VisitPrint, looked up under its own value
    INP_RULE(PsdDefinition, kPsdDefinition),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesIP = {kRules, static_cast<int>(std::size(kRules))};
