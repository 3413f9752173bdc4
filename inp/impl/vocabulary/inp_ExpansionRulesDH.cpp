// Expansion rows of the keywords from D to H.
//
// Word tables and whole rows that several keywords share stand first; then one block
// per keyword that has a row of its own, in the order of the vocabulary (which is not
// quite alphabetical); the index list at the bottom, in that order too, names every
// keyword of the range that has a row, shared or empty.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_Utils.h"

using namespace inp_rule;

namespace {

// Value vocabularies used by more than one keyword.
constexpr const char* kOneTwo[] = {"1", "2", nullptr};
constexpr const char* kRegionType[] = {"EULERIAN", "LAGRANGIAN", "SLIDING", nullptr};
constexpr const char* kAnisotropy[] = {"ANISOTROPIC", "ISOTROPIC", "ORTHOTROPIC", "SHORTFIBER", nullptr};
constexpr const char* kCoupling[] = {"CONTINUUM", "STRUCTURAL", "LOCALIZEDSTRUCTURAL", nullptr};
constexpr const char* kWeighting[] = {"UNIFORM", "LINEAR", "QUADRATIC", "CUBIC", nullptr};
constexpr const char* kDetailOffSummary[] = {"DETAIL", "OFF", "SUMMARY", nullptr};
constexpr const char* kPosition[] = {"AVERAGEDATNODES", "CENTROIDAL", "INTEGRATIONPOINTS", "NODES", nullptr};
constexpr const char* kAllPreselect[] = {"ALL", "PRESELECT", nullptr};
constexpr const char* kModuli[] = {"INSTANTANEOUS", "LONGTERM", nullptr};
constexpr const char* kMixture[] = {"MASSFRACTION", "MOLARFRACTION", nullptr};
constexpr const char* kForceStress[] = {"FORCE", "STRESS", nullptr};

// Behaviour that the tables cannot say.

// Short-fibre material data comes from a moulding interface that knows nothing of
// parts and instances.
void ReportShortFiber(inp_KeywordExpansionVisitor& visitor, inp_Keyword& keyword) {
    const inp_Item* type = keyword.parameters.Lookup(cow_String("type"));
    if (type && type->AsString() == "SHORTFIBER")
        visitor.ReportUnsupportedInAssembly(
            keyword, atr_raw("Type=SHORTFIBER (used for CMOLD) is currently not supported in a model defined in "
                             "terms of an assembly of part instances."));
}

// A display body without its instance cannot be placed at all, which is why this is
// serious; the keyword stays, so that later passes can report on it in their turn.
void RequireDisplayedInstance(inp_KeywordExpansionVisitor& visitor, inp_Keyword& keyword) {
    const inp_Item* instance = keyword.parameters.Lookup(cow_String("instance"));
    if (!instance || instance->type != inp_Types::typeString)
        visitor.seriousErrors.Append(
            inp_Utils::MessageInKeyword(keyword, atr_raw("Instance parameter value is invalid or unset")));
}

void TrimSetLines(inp_KeywordExpansionVisitor& visitor, inp_Keyword& keyword) { visitor.TrimDataLines(keyword, 16); }

// Rows that several keywords share word for word.
constexpr const char* kDependenciesNames[] = {"dependencies", nullptr};
const inp_ExpansionStep kDependenciesOnly[] = {Names(kDependenciesNames)};

constexpr const char* kElsetNames[] = {"elset", nullptr};
const inp_ExpansionStep kElsetOnly[] = {Names(kElsetNames)};

constexpr const char* kNameNames[] = {"name", nullptr};
const inp_ExpansionStep kNameOnly[] = {Names(kNameNames)};

constexpr const char* kDependenciesUserNames[] = {"dependencies", "user", nullptr};
const inp_ExpansionStep kDependenciesUser[] = {Names(kDependenciesUserNames)};

constexpr const char* kElsetFrequencyNames[] = {"elset", "frequency", nullptr};
const inp_ExpansionStep kElsetFrequency[] = {Names(kElsetFrequencyNames)};

constexpr const char* kAmplitudeOpNames[] = {"amplitude", "op", nullptr};
const inp_ExpansionStep kAmplitudeOp[] = {Names(kAmplitudeOpNames), Value("op", ModNew)};

constexpr const char* kChargeNames[] = {"amplitude", "loadcase", "op", nullptr};
const inp_ExpansionStep kCharge[] = {Names(kChargeNames), Value("loadcase", kOneTwo), Value("op", ModNew)};

constexpr const char* kDependenciesTypeNames[] = {"dependencies", "type", nullptr};
const inp_ExpansionStep kAnisotropicProperty[] = {Names(kDependenciesTypeNames), Value("type", kAnisotropy)};

constexpr const char* kFluidExchangeLoadNames[] = {"amplitude", "blockage", "op", "outflowonly", nullptr};
const inp_ExpansionStep kFluidExchangeLoad[] = {Names(kFluidExchangeLoadNames), Value("op", ModNew)};

constexpr const char* kFluidInflatorLoadNames[] = {"amplitude", "inflationtimeamplitude", "massflowamplitude", "op",
                                                   nullptr};
const inp_ExpansionStep kFluidInflatorLoad[] = {Names(kFluidInflatorLoadNames), Value("op", ModNew)};

// Each keyword with a row of its own.

constexpr const char* kDamageInitiationNames[] = {
    "alpha", "criterion", "definition", "dependencies",        "feq",   "fnn",
    "fnt",   "frequency", "ks",         "numberimperfections", "omega", nullptr};
constexpr const char* kDamageCriterion[] = {"DUCTILE", "FLD",   "FLSD",  "HASHIN", "JOHNSONCOOK", "MAXE", "MAXS",
                                            "MK",      "MSFLD", "QUADE", "QUADS",  "SHEAR",       nullptr};
constexpr const char* kDamageDefinition[] = {"FLD", "MSFLD", nullptr};
const inp_ExpansionStep kDamageInitiation[] = {Names(kDamageInitiationNames), Value("criterion", kDamageCriterion),
                                               Value("definition", kDamageDefinition)};

constexpr const char* kDamageEvolutionNames[] = {
    "degradation", "dependencies", "mixedmodebehavior", "modemixratio", "power", "softening", "type", nullptr};
constexpr const char* kDegradation[] = {"MAXIMUM", "MULTIPLICATIVE", nullptr};
constexpr const char* kSoftening[] = {"EXPONENTIAL", "LINEAR", "TABULAR", nullptr};
constexpr const char* kDamageEvolutionType[] = {"DISPLACEMENT", "ENERGY", nullptr};
const inp_ExpansionStep kDamageEvolution[] = {Names(kDamageEvolutionNames), Value("degradation", kDegradation),
                                              Value("softening", kSoftening), Value("type", kDamageEvolutionType)};

constexpr const char* kDampingNames[] = {"alpha", "beta", "composite", nullptr};
const inp_ExpansionStep kDamping[] = {Names(kDampingNames)};

constexpr const char* kDashpotNames[] = {"dependencies", "elset", "nonlinear", "orientation", "rtol", nullptr};
const inp_ExpansionStep kDashpot[] = {Names(kDashpotNames)};

constexpr const char* kDebondNames[] = {"frequency", "master", "output", "slave", "timeincrement", nullptr};
const inp_ExpansionStep kDebond[] = {Names(kDebondNames)};

constexpr const char* kDepvarNames[] = {"delete", nullptr};
const inp_ExpansionStep kDepvar[] = {Names(kDepvarNames)};

constexpr const char* kDesignResponseNames[] = {"frequency", "modelist", "op", nullptr};
constexpr const char* kDesignResponseOp[] = {"NEW", "ADD", "REPLACE", nullptr};
const inp_ExpansionStep kDesignResponse[] = {Names(kDesignResponseNames), Value("op", kDesignResponseOp)};

// A design shape variation is read exactly as a parameter shape variation, down to the
// text of its message.
const inp_ExpansionStep kDesignShapeVariation[] = {
    Call([](inp_KeywordExpansionVisitor& v, inp_Keyword& k) { v.ApplyRule(k, inp_kwParameterShapeVariation); })};

// `regiontype` is not in the table, so it is reported unknown and stays under the name
// the user wrote; its value is completed all the same, as long as that name is the
// full one. Later passes do not read it.
const inp_ExpansionStep kDflux[] = {Names(kAmplitudeOpNames), Value("op", ModNew), Value("regiontype", kRegionType)};

constexpr const char* kDiagnosticsNames[] = {"adaptivemesh",          "contactinitialoverclosure",
                                             "cutoffratio",           "deformationspeedcheck",
                                             "detectcrossedsurfaces", "plasticity",
                                             "warningratio",          "warpedsurface",
                                             "xspeedchecktype",       nullptr};
constexpr const char* kAdaptiveMeshDiagnostics[] = {"DETAIL", "OFF", "STEPSUMMARY", "SUMMARY", nullptr};
constexpr const char* kDetailSummary[] = {"DETAIL", "SUMMARY", nullptr};
constexpr const char* kOffOn[] = {"OFF", "ON", nullptr};
constexpr const char* kSpeedCheckType[] = {"INCREMENT", "RATE", nullptr};
const inp_ExpansionStep kDiagnostics[] = {Names(kDiagnosticsNames),
                                          Value("adaptivemesh", kAdaptiveMeshDiagnostics),
                                          Value("contactinitialoverclosure", kDetailSummary),
                                          Value("deformationspeedcheck", kDetailOffSummary),
                                          Value("detectcrossedsurfaces", kOffOn),
                                          Value("plasticity", kDetailOffSummary),
                                          Value("warpedsurface", kDetailOffSummary),
                                          Value("xspeedchecktype", kSpeedCheckType)};

constexpr const char* kDiffusivityNames[] = {"dependencies", "law", "type", nullptr};
constexpr const char* kDiffusionLaw[] = {"FICK", "GENERAL", nullptr};
const inp_ExpansionStep kDiffusivity[] = {Names(kDiffusivityNames), Value("law", kDiffusionLaw),
                                          Value("type", kAnisotropy)};

constexpr const char* kDirectCyclicNames[] = {"cetol", "deltmx", "continue", "timepoints", nullptr};
const inp_ExpansionStep kDirectCyclic[] = {Names(kDirectCyclicNames)};

constexpr const char* kDisplayBodyNames[] = {"instance", nullptr};
const inp_ExpansionStep kDisplayBody[] = {Names(kDisplayBodyNames), Call(RequireDisplayedInstance)};

constexpr const char* kDistributingNames[] = {"weightingmethod", "constraintfactor", "coupling",
                                              "structuralweightingmethod", nullptr};
const inp_ExpansionStep kDistributing[] = {Names(kDistributingNames), Value("coupling", kCoupling),
                                           Value("structuralweightingmethod", kWeighting),
                                           Value("weightingmethod", kWeighting)};

constexpr const char* kDistributingCouplingNames[] = {"elset", "mass", "couplingconstraintfactor", nullptr};
const inp_ExpansionStep kDistributingCoupling[] = {Names(kDistributingCouplingNames)};

constexpr const char* kDistributionNames[] = {"name", "location", "set", "type", "input", nullptr};
constexpr const char* kDistributionType[] = {"SCALAR", "SHELL3DSTIFFNESS", "ORIENTATION", nullptr};
constexpr const char* kDistributionLocation[] = {"ELEMENT", "NODE", nullptr};
const inp_ExpansionStep kDistribution[] = {Names(kDistributionNames), Value("type", kDistributionType),
                                           Value("location", kDistributionLocation), DataFile("input")};

// *DLOAD and *DSLOAD differ only in the three submodel parameters at the end.
constexpr const char* kDloadNames[] = {"amplitude",         "cyclicmode",   "loadcase",    "op",
                                       "regiontype",        "sectornumber", "orientation", "follower",
                                       "constantresultant", "refnode",      nullptr};
const inp_ExpansionStep kDload[] = {Names(kDloadNames), Value("loadcase", kOneTwo), Value("op", ModNew),
                                    Value("regiontype", kRegionType), Value("sectornumber", kOneTwo),
                                    Value("follower", NoYes), Value("constantresultant", NoYes)};

constexpr const char* kDruckerPragerNames[] = {"dependencies", "eccentricity", "shearcriterion", "testdata", nullptr};
constexpr const char* kShearCriterion[] = {"EXPONENTFORM", "HYPERBOLIC", "LINEAR", nullptr};
const inp_ExpansionStep kDruckerPrager[] = {Names(kDruckerPragerNames), Value("shearcriterion", kShearCriterion)};

constexpr const char* kDruckerPragerCreepNames[] = {"dependencies", "law", nullptr};
constexpr const char* kCreepLaw[] = {"SINGHM", "STRAIN", "TIME", "USER", nullptr};
const inp_ExpansionStep kDruckerPragerCreep[] = {Names(kDruckerPragerCreepNames), Value("law", kCreepLaw)};

constexpr const char* kDruckerPragerHardeningNames[] = {"dependencies", "rate", "type", nullptr};
constexpr const char* kHardeningType[] = {"COMPRESSION", "SHEAR", "TENSION", nullptr};
const inp_ExpansionStep kDruckerPragerHardening[] = {Names(kDruckerPragerHardeningNames),
                                                     Value("type", kHardeningType)};

constexpr const char* kDsaControlsNames[] = {"formulation", "reset", "sizingfrequency", "tolerance", "verif",
                                             "deform",      nullptr};
constexpr const char* kFormulation[] = {"INCREMENTAL", "TOTAL", nullptr};
const inp_ExpansionStep kDsaControls[] = {Names(kDsaControlsNames), Value("formulation", kFormulation)};

constexpr const char* kDsloadNames[] = {
    "amplitude", "cyclicmode",        "loadcase", "op",       "regiontype", "sectornumber", "orientation",
    "follower",  "constantresultant", "refnode",  "submodel", "step",       "inc",          nullptr};
const inp_ExpansionStep kDsload[] = {Names(kDsloadNames), Value("loadcase", kOneTwo), Value("op", ModNew),
                                     Value("regiontype", kRegionType), Value("sectornumber", kOneTwo),
                                     Value("follower", NoYes), Value("constantresultant", NoYes)};

constexpr const char* kDynamicNames[] = {
    "adiabatic", "alpha", "directusercontrol", "elementbyelement", "explicit", "fixedtimeincrementation", "global",
    "haftol", "initial", "improveddtmethod", "nohaf", "scalefactor", "subspace", "vectors", "xgf", "xgs", "xms",
    nullptr};
constexpr const char* kNoStop[] = {"NOSTOP", nullptr};
const inp_ExpansionStep kDynamic[] = {Names(kDynamicNames), ValueUnlessBool("directusercontrol", kNoStop),
                                      Value("initial", NoYes), Value("improveddtmethod", NoYes), Value("xgs", NoYes)};

constexpr const char* kDynamicTemperatureDisplacementNames[] = {
    "directusercontrol", "elementbyelement", "explicit", "fixedtimeincrementation",
    "improveddtmethod",  "scalefactor",      nullptr};
const inp_ExpansionStep kDynamicTemperatureDisplacement[] = {Names(kDynamicTemperatureDisplacementNames),
                                                             Value("improveddtmethod", NoYes)};

constexpr const char* kElasticNames[] = {"dependencies", "moduli", "type", nullptr};
constexpr const char* kElasticType[] = {"ANISOTROPIC", "COUPLEDTRACTION", "ENGINEERINGCONSTANTS",
                                        "ISOTROPIC",   "LAMINA",          "ORTHOTROPIC",
                                        "SHORTFIBER",  "TRACTION",        nullptr};
const inp_ExpansionStep kElastic[] = {Names(kElasticNames), Value("type", kElasticType), Value("moduli", kModuli),
                                      Call(ReportShortFiber)};

constexpr const char* kElcopyNames[] = {"elementshift", "newset", "oldset", "reflect", "shiftnodes", nullptr};
const inp_ExpansionStep kElcopy[] = {Names(kElcopyNames)};

constexpr const char* kElementNames[] = {"type", "elset", "file", "input", "offset", "solidelementnumbering", nullptr};
const inp_ExpansionStep kElement[] = {Names(kElementNames), DataFile("input")};

constexpr const char* kElementMatrixOutputNames[] = {"dload", "elset",      "filename",  "frequency",
                                                     "mass",  "outputfile", "stiffness", nullptr};
constexpr const char* kOutputFile[] = {"RESULTSFILE", "USERDEFINED", nullptr};
const inp_ExpansionStep kElementMatrixOutput[] = {Names(kElementMatrixOutputNames), Value("dload", NoYes),
                                                  Value("mass", NoYes), Value("outputfile", kOutputFile),
                                                  Value("stiffness", NoYes)};

constexpr const char* kElementOutputNames[] = {"elset",    "directions", "rebar", "variable",
                                               "position", "tracerset",  nullptr};
const inp_ExpansionStep kElementOutput[] = {Names(kElementOutputNames), Value("variable", kAllPreselect),
                                            Value("position", kPosition), Value("directions", NoYes)};

constexpr const char* kElFileNames[] = {"directions", "elset",    "frequency", "lastmode",
                                        "mode",       "position", "rebar",     nullptr};
const inp_ExpansionStep kElFile[] = {Names(kElFileNames), Value("directions", NoYes), Value("position", kPosition)};

constexpr const char* kElgenNames[] = {"allnodes", "elset", nullptr};
const inp_ExpansionStep kElgen[] = {Names(kElgenNames)};

constexpr const char* kElPrintNames[] = {"elset", "frequency", "lastmode", "mode", "position",
                                         "rebar", "summary",   "totals",   nullptr};
const inp_ExpansionStep kElPrint[] = {Names(kElPrintNames), Value("position", kPosition), Value("summary", NoYes),
                                      Value("totals", NoYes)};

constexpr const char* kElsetSetNames[] = {"elset", "generate", "instance", "internal", nullptr};
const inp_ExpansionStep kElset[] = {Names(kElsetSetNames), WithoutBlank("elset", "The ELSET parameter is required."),
                                    Call(TrimSetLines)};

constexpr const char* kEmbeddedElementNames[] = {"absoluteexteriortolerance", "exteriortolerance", "hostelset",
                                                 "roundofftolerance", nullptr};
const inp_ExpansionStep kEmbeddedElement[] = {Names(kEmbeddedElementNames)};

constexpr const char* kEnergyOutputNames[] = {"elset", "variable", nullptr};
const inp_ExpansionStep kEnergyOutput[] = {Names(kEnergyOutputNames), Value("variable", kAllPreselect)};

constexpr const char* kEosNames[] = {"density", "type", nullptr};
constexpr const char* kEosType[] = {"JWL", "USUP", "IDEALGAS", nullptr};
constexpr const char* kEosDensity[] = {"INITIAL", "REFERENCE", nullptr};
const inp_ExpansionStep kEos[] = {Names(kEosNames), Value("type", kEosType), Value("density", kEosDensity)};

constexpr const char* kEosShearType[] = {"ELASTIC", "VISCOUS", nullptr};
const inp_ExpansionStep kEosShear[] = {Names(kDependenciesTypeNames), Value("type", kEosShearType)};

constexpr const char* kEpjointNames[] = {"elset", "orientation", "section", nullptr};
constexpr const char* kEpjointSection[] = {"SPUDCAN", nullptr};
const inp_ExpansionStep kEpjoint[] = {Names(kEpjointNames), Value("section", kEpjointSection)};

constexpr const char* kEquationNames[] = {"input", nullptr};
const inp_ExpansionStep kEquation[] = {Names(kEquationNames), DataFile("input")};

constexpr const char* kExpansionNames[] = {"dependencies", "porefluid", "type", "user", "zero", nullptr};
const inp_ExpansionStep kExpansion[] = {Names(kExpansionNames), Value("type", kAnisotropy), Call(ReportShortFiber)};

constexpr const char* kExtremeElementValueNames[] = {"elset", "max", "min", "abs", "output", nullptr};
const inp_ExpansionStep kExtremeElementValue[] = {Names(kExtremeElementValueNames), Value("output", NoYes)};

constexpr const char* kExtremeNodeValueNames[] = {"max", "min", "nset", "abs", "output", nullptr};
const inp_ExpansionStep kExtremeNodeValue[] = {Names(kExtremeNodeValueNames), Value("output", NoYes)};

constexpr const char* kExtremeValueNames[] = {"halt", nullptr};
const inp_ExpansionStep kExtremeValue[] = {Names(kExtremeValueNames), Value("halt", NoYes)};

constexpr const char* kFabricNames[] = {"balanced", "poisson", nullptr};
const inp_ExpansionStep kFabric[] = {Names(kFabricNames), Value("balanced", NoYes)};

constexpr const char* kFastenerNames[] = {"adjustorientation",
                                          "coupling",
                                          "elset",
                                          "interactionname",
                                          "numberoflayers",
                                          "orientation",
                                          "property",
                                          "radiusofinfluence",
                                          "referencenodeset",
                                          "searchradius",
                                          "structuralweightingmethod",
                                          "type",
                                          "unsorted",
                                          "weightingmethod",
                                          nullptr};
constexpr const char* kFastenerType[] = {"SPOTWELD", "RIVET", nullptr};
const inp_ExpansionStep kFastener[] = {
    Names(kFastenerNames),
    Value("adjustorientation", NoYes),
    WithoutStringBlank("interactionname", "The INTERACTIONNAME parameter is required."),
    Value("coupling", kCoupling),
    Value("weightingmethod", kWeighting),
    Value("structuralweightingmethod", kWeighting),
    Value("type", kFastenerType),
    WithoutStringBlank("property", "The PROPERTY parameter is required.")};

constexpr const char* kFastenerFailureNames[] = {"averaginginterval", "cutofffrequency", "dependencies", "type",
                                                 nullptr};
constexpr const char* kFastenerFailureType[] = {"DURATION", "DAMAGE", nullptr};
const inp_ExpansionStep kFastenerFailure[] = {Names(kFastenerFailureNames), Value("type", kFastenerFailureType)};

constexpr const char* kFastenerPropertyNames[] = {
    "mass", "massscaling", "name", "section", "penaltystiffness", "bulkfactor", "couplingconstraintfactor", nullptr};
constexpr const char* kFastenerSection[] = {"CIRC", "RECT", "GENERAL", nullptr};
const inp_ExpansionStep kFastenerProperty[] = {Names(kFastenerPropertyNames), Value("massscaling", NoYes),
                                               Value("section", kFastenerSection),
                                               WithoutStringBlank("name", "The NAME parameter is required.")};

constexpr const char* kFieldNames[] = {"amplitude", "binc",   "bstep", "einc", "estep",    "file",
                                       "input",     "number", "op",    "user", "variable", nullptr};
const inp_ExpansionStep kField[] = {Names(kFieldNames), Value("op", ModNew), DataFile("input")};

constexpr const char* kFileFormatNames[] = {"ascii", "zeroincrement", nullptr};
const inp_ExpansionStep kFileFormat[] = {Names(kFileFormatNames)};

constexpr const char* kFileOutputNames[] = {"numberinterval", "timemarks", nullptr};
const inp_ExpansionStep kFileOutput[] = {Names(kFileOutputNames)};

constexpr const char* kFilmNames[] = {"amplitude", "filmamplitude", "op", "regiontype", nullptr};
const inp_ExpansionStep kFilm[] = {Names(kFilmNames), Value("op", ModNew), Value("regiontype", kRegionType)};

constexpr const char* kFilmPropertyNames[] = {"dependencies", "name", nullptr};
const inp_ExpansionStep kFilmProperty[] = {Names(kFilmPropertyNames)};

constexpr const char* kFilterNames[] = {"name", "type", nullptr};
constexpr const char* kFilterType[] = {"BUTTERWORTH", "CHEBYS1", "CHEBYS2", nullptr};
const inp_ExpansionStep kFilter[] = {Names(kFilterNames), Value("type", kFilterType)};

constexpr const char* kFixedMassScalingNames[] = {"dt", "dtdeviation", "elset", "factor", "type", nullptr};
constexpr const char* kMassScalingType[] = {"UNIFORM", "BELOWMIN", "SETEQUALDT", nullptr};
const inp_ExpansionStep kFixedMassScaling[] = {Names(kFixedMassScalingNames), Value("type", kMassScalingType)};

constexpr const char* kFluidCavityNames[] = {"addedvolume",
                                             "adiabatic",
                                             "ambientpressure",
                                             "ambienttemperature",
                                             "behavior",
                                             "minimumvolume",
                                             "mixture",
                                             "name",
                                             "refnode",
                                             "surface",
                                             nullptr};
const inp_ExpansionStep kFluidCavity[] = {Names(kFluidCavityNames), Value("mixture", kMixture)};

constexpr const char* kFluidDensityNames[] = {"pressure", "temperature", nullptr};
const inp_ExpansionStep kFluidDensity[] = {Names(kFluidDensityNames)};

constexpr const char* kFluidExchangeNames[] = {"effectivearea", "name", "property", "surface", nullptr};
const inp_ExpansionStep kFluidExchange[] = {Names(kFluidExchangeNames)};

constexpr const char* kNameTypeNames[] = {"name", "type", nullptr};
constexpr const char* kFluidExchangeType[] = {"BULKVISCOSITY",     "ORIFICE",    "FABRICLEAKAGE",     "MASSFLUX",
                                              "MASSRATELEAKAGE",   "VOLUMEFLUX", "VOLUMERATELEAKAGE", "ENERGYFLUX",
                                              "ENERGYRATELEAKAGE", nullptr};
const inp_ExpansionStep kFluidExchangeProperty[] = {Names(kNameTypeNames), Value("type", kFluidExchangeType)};

constexpr const char* kFluidExpansionNames[] = {"dependencies", "zero", nullptr};
const inp_ExpansionStep kFluidExpansion[] = {Names(kFluidExpansionNames)};

constexpr const char* kFluidInflatorNames[] = {"name", "property", nullptr};
const inp_ExpansionStep kFluidInflator[] = {Names(kFluidInflatorNames)};

constexpr const char* kFluidInflatorMixtureNames[] = {"numberspecies", "type", nullptr};
const inp_ExpansionStep kFluidInflatorMixture[] = {Names(kFluidInflatorMixtureNames), Value("type", kMixture)};

constexpr const char* kFluidInflatorPropertyNames[] = {"dischargecoefficient", "effectivearea", "name",
                                                       "tankvolume",           "type",          nullptr};
constexpr const char* kInflatorType[] = {"DUALPRESSURE", "PRESSUREANDMASS", "TANKTEST", "TEMPERATUREANDMASS", nullptr};
const inp_ExpansionStep kFluidInflatorProperty[] = {Names(kFluidInflatorPropertyNames), Value("type", kInflatorType)};

constexpr const char* kFluidLinkNames[] = {"dependencies", "elset", "type", nullptr};
constexpr const char* kFluidLinkType[] = {"FUNCTION", "TABULAR", nullptr};
const inp_ExpansionStep kFluidLink[] = {Names(kFluidLinkNames), Value("type", kFluidLinkType)};

constexpr const char* kFluidPropertyNames[] = {"ambient", "elset", "name", "refnode", "type", nullptr};
constexpr const char* kFluidPropertyType[] = {"HYDRAULIC", "PNEUMATIC", "USER", nullptr};
const inp_ExpansionStep kFluidProperty[] = {Names(kFluidPropertyNames), Value("type", kFluidPropertyType)};

constexpr const char* kFoamNames[] = {"dependencies", "hardening", nullptr};
constexpr const char* kFoamHardening[] = {"EXPONENTIAL", "TABULAR", nullptr};
const inp_ExpansionStep kFoam[] = {Names(kFoamNames), Value("hardening", kFoamHardening)};

constexpr const char* kFractureCriterionNames[] = {"dependencies", "distance", "nset", "symmetry",
                                                   "tolerance",    "type",     nullptr};
constexpr const char* kFractureType[] = {"COD", "CRACKLENGTH", "CRITICALSTRESS", nullptr};
const inp_ExpansionStep kFractureCriterion[] = {Names(kFractureCriterionNames), Value("type", kFractureType)};

constexpr const char* kFrameSectionNames[] = {"density",     "dependencies", "elset",    "section",         "zero",
                                              "yieldstress", "pinned",       "buckling", "plasticdefaults", nullptr};
constexpr const char* kFrameSection[] = {"BOX", "CIRC", "GENERAL", "I", "PIPE", "RECTANGULAR", nullptr};
const inp_ExpansionStep kFrameSectionRow[] = {Names(kFrameSectionNames), Value("section", kFrameSection)};

constexpr const char* kFrequencyNames[] = {"eigensolver",
                                           "normalization",
                                           "propertyevaluation",
                                           "acousticcoupling",
                                           "numberinterval",
                                           "userboundaries",
                                           "bias",
                                           "residualmodes",
                                           "nset",
                                           nullptr};
constexpr const char* kEigensolver[] = {"SUBSPACE", "LANCZOS", "AMS", nullptr};
constexpr const char* kNormalization[] = {"DISPLACEMENT", "MASS", nullptr};
constexpr const char* kOnOff[] = {"ON", "OFF", nullptr};
constexpr const char* kResidualModes[] = {"YES", "NO", "ON", "OFF", nullptr};
const inp_ExpansionStep kFrequency[] = {Names(kFrequencyNames), Value("eigensolver", kEigensolver),
                                        Value("normalization", kNormalization), Value("acousticcoupling", kOnOff),
                                        Value("residualmodes", kResidualModes)};

constexpr const char* kFrictionNames[] = {
    "anisotropic",      "dependencies",       "depvar", "elasticslip", "lagrange", "properties", "rough",
    "sliptolerance",    "sheartractionslope", "taumax", "user",        "velmstx",  "velmsty",    "velmstz",
    "exponentialdecay", "testdata",           nullptr};
const inp_ExpansionStep kFriction[] = {Names(kFrictionNames)};

constexpr const char* kGapConductanceNames[] = {"dependencies", "pressure", "user", nullptr};
const inp_ExpansionStep kGapConductance[] = {Names(kGapConductanceNames)};

constexpr const char* kGapFlowNames[] = {"dependencies", "type", "kmax", nullptr};
constexpr const char* kGapFlowType[] = {"NEWTONIAN", "POWERLAW", nullptr};
const inp_ExpansionStep kGapFlow[] = {Names(kGapFlowNames), Value("type", kGapFlowType)};

constexpr const char* kGasketElasticityNames[] = {"component", "dependencies", "variable", nullptr};
constexpr const char* kGasketComponent[] = {"MEMBRANE", "TRANSVERSESHEAR", nullptr};
const inp_ExpansionStep kGasketElasticity[] = {Names(kGasketElasticityNames), Value("component", kGasketComponent),
                                               Value("variable", kForceStress)};

constexpr const char* kGasketSectionNames[] = {"behavior", "elset", "material", "orientation", "stabilizationstiffness",
                                               nullptr};
const inp_ExpansionStep kGasketSection[] = {Names(kGasketSectionNames)};

constexpr const char* kGasketThicknessBehaviorNames[] = {
    "dependencies", "direction", "slopedrop", "tensilestiffnessfactor", "type", "variable", "yieldonset", nullptr};
constexpr const char* kGasketDirection[] = {"LOADING", "UNLOADING", nullptr};
constexpr const char* kGasketThicknessType[] = {"ELASTIC-PLASTIC", "DAMAGE", nullptr};
const inp_ExpansionStep kGasketThicknessBehavior[] = {
    Names(kGasketThicknessBehaviorNames), Value("direction", kGasketDirection), Value("type", kGasketThicknessType),
    Value("variable", kForceStress)};

constexpr const char* kHeatCapNames[] = {"dependencies", "elset", nullptr};
const inp_ExpansionStep kHeatCap[] = {Names(kHeatCapNames), WithoutBlank("elset", "The ELSET parameter is required.")};

constexpr const char* kHeatTransferNames[] = {"deltmx", "end", "mxdem", "steadystate", nullptr};
constexpr const char* kHeatTransferEnd[] = {"PERIOD", "SS", nullptr};
const inp_ExpansionStep kHeatTransfer[] = {Names(kHeatTransferNames), Value("end", kHeatTransferEnd)};

constexpr const char* kHyperelasticNames[] = {"arruda-boyce",
                                              "beta",
                                              "direct",
                                              "mooney-rivlin",
                                              "moduli",
                                              "marlow",
                                              "n",
                                              "neohooke",
                                              "ogden",
                                              "poisson",
                                              "polynomial",
                                              "properties",
                                              "reducedpolynomial",
                                              "testdatainput",
                                              "type",
                                              "user",
                                              "vanderwaals",
                                              "yeoh",
                                              nullptr};
constexpr const char* kCompressibility[] = {"INCOMPRESSIBLE", "COMPRESSIBLE", nullptr};
const inp_ExpansionStep kHyperelastic[] = {Names(kHyperelasticNames), Value("moduli", kModuli),
                                           Value("type", kCompressibility)};

constexpr const char* kHyperfoamNames[] = {"n", "poisson", "testdatainput", "moduli", nullptr};
const inp_ExpansionStep kHyperfoam[] = {Names(kHyperfoamNames), Value("moduli", kModuli)};

constexpr const char* kHypoelasticNames[] = {"user", nullptr};
const inp_ExpansionStep kHypoelastic[] = {Names(kHypoelasticNames)};

const inp_ExpansionRule kRules[] = {
    INP_RULE(DamageInitiation, kDamageInitiation),
    INP_RULE(DamageEvolution, kDamageEvolution),
    INP_RULE(Damping, kDamping),
    INP_RULE(Dashpot, kDashpot),
    INP_RULE(Debond, kDebond),
    INP_RULE(Decharge, kCharge),
    INP_RULE(Decurrent, kAmplitudeOp),
    INP_RULE(Density, kDependenciesOnly),
    INP_RULE(Depvar, kDepvar),
    INP_RULE(DesignResponse, kDesignResponse),
    INP_RULE(DesignShapeVariation, kDesignShapeVariation),
    INP_EMPTY_RULE(DesignValue),
    INP_EMPTY_RULE(DesignVariation),
    INP_RULE(Dflow, kAmplitudeOp),
    INP_RULE(Dflux, kDflux),
    INP_RULE(Diagnostics, kDiagnostics),
    INP_RULE(Dielectric, kAnisotropicProperty),
    INP_RULE(Diffusivity, kDiffusivity),
    INP_RULE(DirectCyclic, kDirectCyclic),
    INP_RULE(DisplayBody, kDisplayBody),
    INP_RULE(Distributing, kDistributing),
    INP_RULE(DistributingCoupling, kDistributingCoupling),
    INP_RULE(Distribution, kDistribution),
    INP_RULE(Dload, kDload),
    INP_RULE(DragChain, kElsetOnly),
    INP_RULE(DruckerPrager, kDruckerPrager),
    INP_RULE(DruckerPragerCreep, kDruckerPragerCreep),
    INP_RULE(DruckerPragerHardening, kDruckerPragerHardening),
    INP_RULE(DsaControls, kDsaControls),
    INP_RULE(Dsecharge, kCharge),
    INP_RULE(Dsecurrent, kAmplitudeOp),
    INP_RULE(Dsflow, kAmplitudeOp),
    INP_RULE(Dsflux, kAmplitudeOp),
    INP_RULE(Dsload, kDsload),
    INP_RULE(Dynamic, kDynamic),
    INP_RULE(DynamicTemperatureDisplacement, kDynamicTemperatureDisplacement),
    INP_RULE(Elastic, kElastic),
    INP_RULE(Elcopy, kElcopy),
    INP_RULE(ElectricalConductivity, kAnisotropicProperty),
    INP_RULE(Element, kElement),
    INP_RULE(ElementMatrixOutput, kElementMatrixOutput),
    INP_RULE(ElementOutput, kElementOutput),
    INP_EMPTY_RULE(ElementProperties),
    INP_RULE(ElementResponse, kElsetOnly),
    INP_RULE(ElFile, kElFile),
    INP_RULE(Elgen, kElgen),
    INP_RULE(ElPrint, kElPrint),
    INP_RULE(Elset, kElset),
    INP_RULE(EmbeddedElement, kEmbeddedElement),
    INP_RULE(Emissivity, kDependenciesOnly),
    INP_EMPTY_RULE(EndLoadCase),
    INP_RULE(EnergyFile, kElsetFrequency),
    INP_RULE(EnergyOutput, kEnergyOutput),
    INP_RULE(EnergyPrint, kElsetFrequency),
    INP_RULE(Eos, kEos),
    INP_RULE(EosShear, kEosShear),
    INP_RULE(Epjoint, kEpjoint),
    INP_RULE(Equation, kEquation),
    INP_RULE(Expansion, kExpansion),
    INP_RULE(ExtremeElementValue, kExtremeElementValue),
    INP_RULE(ExtremeNodeValue, kExtremeNodeValue),
    INP_RULE(ExtremeValue, kExtremeValue),
    INP_RULE(Fabric, kFabric),
    INP_RULE(FailStrain, kDependenciesOnly),
    INP_RULE(FailStress, kDependenciesOnly),
    INP_EMPTY_RULE(Failure),
    INP_RULE(FailureRatios, kDependenciesOnly),
    INP_RULE(Fastener, kFastener),
    INP_RULE(FastenerFailure, kFastenerFailure),
    INP_RULE(FastenerProperty, kFastenerProperty),
    INP_RULE(Field, kField),
    INP_RULE(FileFormat, kFileFormat),
    INP_RULE(FileOutput, kFileOutput),
    INP_RULE(Film, kFilm),
    INP_RULE(FilmProperty, kFilmProperty),
    INP_RULE(Filter, kFilter),
    INP_RULE(FixedMassScaling, kFixedMassScaling),
    INP_RULE(Flow, kAmplitudeOp),
    INP_RULE(FluidBehavior, kNameOnly),
    INP_RULE(FluidBulkModulus, kDependenciesOnly),
    INP_RULE(FluidCavity, kFluidCavity),
    INP_RULE(FluidDensity, kFluidDensity),
    INP_RULE(FluidExchange, kFluidExchange),
    INP_RULE(FluidExchangeActivation, kFluidExchangeLoad),
    INP_RULE(FluidExchangeInteraction, kFluidExchangeLoad),
    INP_RULE(FluidExchangeProperty, kFluidExchangeProperty),
    INP_RULE(FluidExpansion, kFluidExpansion),
    INP_RULE(FluidFlux, kAmplitudeOp),
    INP_RULE(FluidInflator, kFluidInflator),
    INP_RULE(FluidInflatorActivation, kFluidInflatorLoad),
    INP_RULE(FluidInflatorInteraction, kFluidInflatorLoad),
    INP_RULE(FluidInflatorMixture, kFluidInflatorMixture),
    INP_RULE(FluidInflatorProperty, kFluidInflatorProperty),
    INP_RULE(FluidLeakoff, kDependenciesUser),
    INP_RULE(FluidLink, kFluidLink),
    INP_RULE(FluidProperty, kFluidProperty),
    INP_RULE(Foam, kFoam),
    INP_RULE(FoamHardening, kDependenciesOnly),
    INP_RULE(FractureCriterion, kFractureCriterion),
    INP_RULE(FrameSection, kFrameSectionRow),
    INP_RULE(Frequency, kFrequency),
    INP_RULE(Friction, kFriction),
    INP_RULE(Gap, kElsetOnly),
    INP_RULE(GapConductance, kGapConductance),
    INP_RULE(GapElectricalConductance, kDependenciesUser),
    INP_RULE(GapFlow, kGapFlow),
    INP_RULE(GasketBehavior, kNameOnly),
    INP_RULE(GasketContactArea, kDependenciesOnly),
    INP_RULE(GasketElasticity, kGasketElasticity),
    INP_RULE(GasketSection, kGasketSection),
    INP_RULE(GasketThicknessBehavior, kGasketThicknessBehavior),
    INP_RULE(HeatCap, kHeatCap),
    INP_RULE(HeatTransfer, kHeatTransfer),
    INP_RULE(Hyperelastic, kHyperelastic),
    INP_RULE(Hyperfoam, kHyperfoam),
    INP_RULE(Hypoelastic, kHypoelastic),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesDH = {kRules, static_cast<int>(std::size(kRules))};
