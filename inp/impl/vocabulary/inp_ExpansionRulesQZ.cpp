// Expansion rows of the keywords from Q to Z.
//
// remeshtrigger has an empty row: its parameters stay as the parser read them, unchecked.
// The keywords of this range that take no parameter at all have no row.
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"

using namespace inp_rule;

namespace {

// Vocabularies that more than one row of this file uses.
constexpr const char* kRegionType[] = {"EULERIAN", "LAGRANGIAN", "SLIDING", nullptr};
constexpr const char* kPolarSpin[] = {"POLAR", "SPIN", nullptr};
constexpr const char* kGlobalLocal[] = {"GLOBAL", "LOCAL", nullptr};
constexpr const char* kStackDirection[] = {"1", "2", "3", "ORIENTATION", nullptr};
constexpr const char* kNoStop[] = {"NOSTOP", nullptr};
constexpr const char* kOneTwo[] = {"1", "2", nullptr};
constexpr const char* kRampStep[] = {"RAMP", "STEP", nullptr};
constexpr const char* kStepAmplitude[] = {"STEP", "RAMP", nullptr};
constexpr const char* kBrittleDuctile[] = {"BRITTLE", "DUCTILE", nullptr};
constexpr const char* kYesNo[] = {"YES", "NO", nullptr};

constexpr const char* kRadiateNames[] = {"amplitude", "op", "regiontype", nullptr};
const inp_ExpansionStep kRadiate[] = {Names(kRadiateNames), Value("op", ModNew), Value("regiontype", kRegionType)};

constexpr const char* kRadiationFileNames[] = {"cavity", "elset", "frequency", "surface", nullptr};
const inp_ExpansionStep kRadiationFile[] = {Names(kRadiationFileNames)};

constexpr const char* kRadiationOutputNames[] = {"cavity", "elset", "surface", "variable", nullptr};
constexpr const char* kRadiationOutputVariable[] = {"ALL", nullptr};
const inp_ExpansionStep kRadiationOutput[] = {Names(kRadiationOutputNames),
                                              Value("variable", kRadiationOutputVariable)};

constexpr const char* kRadiationPrintNames[] = {"cavity", "elset", "frequency", "summary", "surface", "totals", nullptr};
const inp_ExpansionStep kRadiationPrint[] = {Names(kRadiationPrintNames), Value("summary", NoYes),
                                             Value("totals", NoYes)};

// radiationsymmetry, substructureloadcase and surfaceproperty: a name and nothing else.
constexpr const char* kOnlyName[] = {"name", nullptr};
const inp_ExpansionStep kNameOnly[] = {Names(kOnlyName)};

constexpr const char* kRadiationViewfactorNames[] = {"blocking", "cavity", "mdisp", "nset", "off", "range", "reflection", "symmetry", "vtol", nullptr};
constexpr const char* kRadiationViewfactorBlocking[] = {"ALL", "NO", "PARTIAL", nullptr};
const inp_ExpansionStep kRadiationViewfactor[] = {
    Names(kRadiationViewfactorNames), Value("blocking", kRadiationViewfactorBlocking), Value("reflection", NoYes)};

constexpr const char* kRateDependentNames[] = {"dependencies", "type", nullptr};
constexpr const char* kRateDependentType[] = {"JOHNSONCOOK", "POWERLAW", "YIELDRATIO", nullptr};
const inp_ExpansionStep kRateDependent[] = {Names(kRateDependentNames), Value("type", kRateDependentType)};

// ratios, shearretention, solubility, specificheat, thermalexpansion and voidnucleation:
// material data whose one parameter is the number of field variables it depends on.
constexpr const char* kOnlyDependencies[] = {"dependencies", nullptr};
const inp_ExpansionStep kDependenciesOnly[] = {Names(kOnlyDependencies)};

constexpr const char* kRebarNames[] = {"element", "geometry", "isodirection", "material", "name", "orientation", "single", nullptr};
constexpr const char* kRebarElement[] = {"AXIMEMBRANE", "AXISHELL", "BEAM", "CONTINUUM", "MEMBRANE", "SHELL", nullptr};
constexpr const char* kRebarGeometry[] = {"ISOPARAMETRIC", "SKEW", nullptr};
const inp_ExpansionStep kRebar[] = {Names(kRebarNames), Value("element", kRebarElement),
                                    Value("geometry", kRebarGeometry)};

constexpr const char* kRebarLayerNames[] = {"angularspacing", "orientation", "geometry", nullptr};
const inp_ExpansionStep kRebarLayer[] = {Names(kRebarLayerNames)};

constexpr const char* kReflectionNames[] = {"type", nullptr};
constexpr const char* kReflectionType[] = {"LINE", "PLANE", "ZCONST", nullptr};
const inp_ExpansionStep kReflection[] = {Names(kReflectionNames), Value("type", kReflectionType)};

// INPUT is not read as a data file here: the parameter stays on the keyword.
constexpr const char* kReleaseNames[] = {"input", nullptr};
const inp_ExpansionStep kRelease[] = {Names(kReleaseNames)};

constexpr const char* kResponseSpectrumNames[] = {"comp", "sum", nullptr};
constexpr const char* kResponseSpectrumComp[] = {"ALGEBRAIC", "SRSS", nullptr};
constexpr const char* kResponseSpectrumSum[] = {"ABS", "CQC", "NRL", "SRSS", "TENP", nullptr};
const inp_ExpansionStep kResponseSpectrum[] = {Names(kResponseSpectrumNames), Value("comp", kResponseSpectrumComp),
                                               Value("sum", kResponseSpectrumSum)};

// The engine reads READ, STEP and INC ahead of this row, under their full names only.
constexpr const char* kRestartNames[] = {"endstep", "frequency", "inc", "interval", "iteration", "numberinterval", "overlay", "read", "step", "timemarks", "write", nullptr};
const inp_ExpansionStep kRestart[] = {Names(kRestartNames)};

constexpr const char* kRetainedEigenModesNames[] = {"generate", nullptr};
const inp_ExpansionStep kRetainedEigenModes[] = {Names(kRetainedEigenModesNames)};

constexpr const char* kRetainedNodalDofsNames[] = {"sorted", nullptr};
const inp_ExpansionStep kRetainedNodalDofs[] = {Names(kRetainedNodalDofsNames), Value("sorted", NoYes)};

constexpr const char* kRigidBodyNames[] = {"analyticalsurface", "elset", "isothermal", "refnode", "pinnset", "position", "tienset", "density", "nodalthickness", "offset", "type", "angle1", "angle2", "nodea", "nodeb", nullptr};
constexpr const char* kRigidBodyPosition[] = {"INPUT", "CENTEROFMASS", nullptr};
const inp_ExpansionStep kRigidBody[] = {Names(kRigidBodyNames),     Value("position", kRigidBodyPosition),
                                        Value("isothermal", NoYes), Require("refnode"),
                                        RequireValue("refnode"),    RequireValue("analyticalsurface")};

constexpr const char* kRigidSurfaceNames[] = {"elset", "filletradius", "name", "refnode", "type", nullptr};
constexpr const char* kRigidSurfaceType[] = {"CYLINDER", "REVOLUTION", "SEGMENTS", "USER", nullptr};
const inp_ExpansionStep kRigidSurface[] = {Names(kRigidSurfaceNames), Value("type", kRigidSurfaceType)};

constexpr const char* kRotaryInertiaNames[] = {"alpha", "composite", "elset", "orientation", nullptr};
const inp_ExpansionStep kRotaryInertia[] = {Names(kRotaryInertiaNames)};

constexpr const char* kSectionControlsNames[] = {"name", "distortioncontrol", "elementdeletion", "kinematicsplit", "hourglass", "initialgapopening", "lengthratio", "maxdegradation", "oldhgstd", "secondorderaccuracy", "stressrate", "viscosity", "weightfactor", "xscalefactor", "xstressrate", nullptr};
constexpr const char* kSectionControlsElementdeletion[] = {"NO", "YES", "INSTANTANEOUS", nullptr};
constexpr const char* kSectionControlsKinematicsplit[] = {"AVERAGESTRAIN", "ORTHOGONAL", "CENTROID", nullptr};
constexpr const char* kSectionControlsHourglass[] = {"STIFFNESS", "RELAXSTIFFNESS", "VISCOUS", "COMBINED", "ENHANCED", "OLDHGSTD", nullptr};
const inp_ExpansionStep kSectionControls[] = {Names(kSectionControlsNames),
                                              Value("distortioncontrol", NoYes),
                                              Value("elementdeletion", kSectionControlsElementdeletion),
                                              Value("kinematicsplit", kSectionControlsKinematicsplit),
                                              Value("hourglass", kSectionControlsHourglass),
                                              Value("secondorderaccuracy", NoYes),
                                              Value("stressrate", kPolarSpin),
                                              Value("xstressrate", kPolarSpin)};

// sectionfile and sectionprint ask for the same section output.
constexpr const char* kSectionOutputNames[] = {"name", "surface", "axes", "frequency", "update", nullptr};
const inp_ExpansionStep kSectionOutput[] = {Names(kSectionOutputNames), Value("axes", kGlobalLocal),
                                            Value("update", NoYes)};

constexpr const char* kSectionOriginNames[] = {"origin", nullptr};
constexpr const char* kSectionOriginOrigin[] = {"CENTROID", "SHEARCENTER", nullptr};
const inp_ExpansionStep kSectionOrigin[] = {Names(kSectionOriginNames), Value("origin", kSectionOriginOrigin)};

constexpr const char* kSelectCyclicSymmetryModesNames[] = {"even", "nmin", "nmax", nullptr};
const inp_ExpansionStep kSelectCyclicSymmetryModes[] = {Names(kSelectCyclicSymmetryModesNames)};

constexpr const char* kSelectEigenmodesNames[] = {"generate", "definition", nullptr};
constexpr const char* kSelectEigenmodesDefinition[] = {"MODENUMBERS", "FREQUENCYRANGE", nullptr};
const inp_ExpansionStep kSelectEigenmodes[] = {Names(kSelectEigenmodesNames),
                                               Value("definition", kSelectEigenmodesDefinition)};

constexpr const char* kSfilmNames[] = {"amplitude", "filmamplitude", "op", nullptr};
const inp_ExpansionStep kSfilm[] = {Names(kSfilmNames), Value("op", ModNew)};

// sflow, sload and sradiate: the surface loads without a film of their own.
constexpr const char* kAmplitudeOpNames[] = {"amplitude", "op", nullptr};
const inp_ExpansionStep kAmplitudeOp[] = {Names(kAmplitudeOpNames), Value("op", ModNew)};

constexpr const char* kShearFailureNames[] = {"dependencies", "elementdeletion", "type", nullptr};
constexpr const char* kShearFailureType[] = {"JOHNSONCOOK", "TABULAR", nullptr};
const inp_ExpansionStep kShearFailure[] = {Names(kShearFailureNames), Value("elementdeletion", NoYes),
                                           Value("type", kShearFailureType)};

constexpr const char* kShearTestDataNames[] = {"dependencies", "shrinf", "smooth", nullptr};
const inp_ExpansionStep kShearTestData[] = {Names(kShearTestDataNames)};

constexpr const char* kShellGeneralSectionNames[] = {"composite", "controls", "density", "dependencies", "elset", "iproperties", "material", "nodalthickness", "offset", "orientation", "poisson", "properties", "stackdirection", "thicknessmodulus", "unsymm", "user", "variables", "zero", nullptr};
const inp_ExpansionStep kShellGeneralSection[] = {Names(kShellGeneralSectionNames),
                                                  Value("stackdirection", kStackDirection)};

constexpr const char* kShellSectionNames[] = {"elset", "composite", "controls", "material", "nodalthickness", "offset", "orientation", "poisson", "sectionintegration", "stackdirection", "temperature", "thicknessmodulus", "density", nullptr};
constexpr const char* kShellSectionSectionintegration[] = {"SIMPSON", "GAUSS", nullptr};
const inp_ExpansionStep kShellSection[] = {Names(kShellSectionNames),
                                           Value("sectionintegration", kShellSectionSectionintegration),
                                           Value("stackdirection", kStackDirection)};

constexpr const char* kShellToSolidCouplingNames[] = {"constraintname", "positiontolerance", "influencedistance", "alignedmesh", "couplingconstraintfactor", nullptr};
const inp_ExpansionStep kShellToSolidCoupling[] = {Names(kShellToSolidCouplingNames), Value("alignedmesh", NoYes)};

constexpr const char* kSimpedanceNames[] = {"nonreflecting", "property", "op", nullptr};
constexpr const char* kSimpedanceNonreflecting[] = {"PLANAR", "CIRCULAR", "SPHERICAL", "ELLIPTICAL", "PROLATESPHEROIDAL", "IMPROVEDPLANE", "SECONDCIRCULAR", "SECONDSPHERICAL", nullptr};
const inp_ExpansionStep kSimpedance[] = {Names(kSimpedanceNames), Value("op", ModNew),
                                         Value("nonreflecting", kSimpedanceNonreflecting)};

constexpr const char* kSlideLineNames[] = {"elset", "generate", "smooth", "type", "extensionzone", nullptr};
constexpr const char* kSlideLineType[] = {"LINEAR", "PARABOLIC", nullptr};
const inp_ExpansionStep kSlideLine[] = {Names(kSlideLineNames), Value("type", kSlideLineType)};

constexpr const char* kSoilsNames[] = {"cetol", "consolidation", "creep", "end", "nocreep", "utol", "stabilize", "factor", nullptr};
constexpr const char* kSoilsEnd[] = {"PERIOD", "SS", nullptr};
constexpr const char* kSoilsCreep[] = {"NONE", nullptr};
const inp_ExpansionStep kSoils[] = {Names(kSoilsNames), Value("end", kSoilsEnd), Value("creep", kSoilsCreep)};

constexpr const char* kSolidSectionNames[] = {"elset", "controls", "composite", "material", "order", "orientation", "stackdirection", "refnode", nullptr};
const inp_ExpansionStep kSolidSection[] = {Names(kSolidSectionNames)};

constexpr const char* kSolutionTechniqueNames[] = {"reformkernel", "type", nullptr};
constexpr const char* kSolutionTechniqueType[] = {"CONTACTITERATIONS", "QUASI-NEWTON", "SEPARATED", nullptr};
const inp_ExpansionStep kSolutionTechnique[] = {Names(kSolutionTechniqueNames), Value("type", kSolutionTechniqueType)};

constexpr const char* kSolverControlsNames[] = {"preconditioner", "reset", "contact", nullptr};
constexpr const char* kSolverControlsPreconditioner[] = {"LUMPED", "DIRICHLET", nullptr};
constexpr const char* kSolverControlsContact[] = {"INTERFACE", "DOMAIN", nullptr};
const inp_ExpansionStep kSolverControls[] = {Names(kSolverControlsNames),
                                             Value("preconditioner", kSolverControlsPreconditioner),
                                             Value("contact", kSolverControlsContact)};

constexpr const char* kSorptionNames[] = {"law", "type", nullptr};
constexpr const char* kSorptionLaw[] = {"LOG", "TABULAR", nullptr};
constexpr const char* kSorptionType[] = {"ABSORPTION", "EXSORPTION", "SCANNING", nullptr};
const inp_ExpansionStep kSorption[] = {Names(kSorptionNames), Value("law", kSorptionLaw), Value("type", kSorptionType)};

constexpr const char* kSpatialDistributionNames[] = {"input", "name", "position", "type", nullptr};
constexpr const char* kSpatialDistributionPosition[] = {"ELEMENTFACES", "NODES", nullptr};
constexpr const char* kSpatialDistributionType[] = {"SCALAR", "VECTOR", nullptr};
const inp_ExpansionStep kSpatialDistribution[] = {
    Names(kSpatialDistributionNames), Value("position", kSpatialDistributionPosition),
    Value("type", kSpatialDistributionType), WithoutStringBlank("name", "The NAME parameter is required."),
    DataFile("input")};

constexpr const char* kSpectrumNames[] = {"g", "input", "name", "type", nullptr};
constexpr const char* kSpectrumType[] = {"ACCELERATION", "DISPLACEMENT", "G", "VELOCITY", nullptr};
const inp_ExpansionStep kSpectrum[] = {Names(kSpectrumNames), Value("type", kSpectrumType), DataFile("input")};

constexpr const char* kSpotWeldNames[] = {"adjustorientation", "numberoflayers", "orientation", "property", "radiusofinfluence", "referencenodeset", "searchradius", "weightingmethod", nullptr};
constexpr const char* kSpotWeldWeightingmethod[] = {"UNIFORM", "LINEAR", "QUADRATIC", "CUBIC", nullptr};
const inp_ExpansionStep kSpotWeld[] = {Names(kSpotWeldNames), Value("adjustorientation", NoYes),
                                       Value("weightingmethod", kSpotWeldWeightingmethod),
                                       WithoutStringBlank("property", "The PROPERTY parameter is required."),
                                       WithoutBlank("referencenodeset", "The REFERENCENODESET parameter is required.")};

constexpr const char* kSpotWeldInteractionNames[] = {"interactionname", nullptr};
const inp_ExpansionStep kSpotWeldInteraction[] = {
    Names(kSpotWeldInteractionNames),
    WithoutStringBlank("interactionname", "The INTERACTIONNAME parameter is required.")};

constexpr const char* kSpotWeldPropertyNames[] = {"mass", "massscaling", "name", "section", nullptr};
constexpr const char* kSpotWeldPropertySection[] = {"CIRC", "RECT", "GENERAL", nullptr};
const inp_ExpansionStep kSpotWeldProperty[] = {Names(kSpotWeldPropertyNames), Value("massscaling", NoYes),
                                               Value("section", kSpotWeldPropertySection),
                                               WithoutStringBlank("name", "The NAME parameter is required.")};

constexpr const char* kSpringNames[] = {"dependencies", "elset", "nonlinear", "orientation", "rtol", nullptr};
const inp_ExpansionStep kSpring[] = {Names(kSpringNames)};

constexpr const char* kStaticNames[] = {"adiabatic", "direct", "factor", "fullyplastic", "longterm", "riks", "stabilize", nullptr};
const inp_ExpansionStep kStatic[] = {Names(kStaticNames), ValueUnlessBool("direct", kNoStop)};

constexpr const char* kSteadyStateDetectionNames[] = {"elset", "sampling", nullptr};
constexpr const char* kSteadyStateDetectionSampling[] = {"PLANEBYPLANE", "UNIFORM", nullptr};
const inp_ExpansionStep kSteadyStateDetection[] = {Names(kSteadyStateDetectionNames),
                                                   Value("sampling", kSteadyStateDetectionSampling)};

constexpr const char* kSteadyStateDynamicsNames[] = {"direct", "subspaceprojection", "interval", "stiffnesschange", "dampingchange", "frequencyscale", "realonly", "travelingwave", nullptr};
constexpr const char* kSteadyStateDynamicsSubspaceprojection[] = {"ALLFREQUENCIES", "CONSTANT", "EIGENFREQUENCY", "PROPERTYCHANGE", nullptr};
constexpr const char* kSteadyStateDynamicsInterval[] = {"RANGE", "EIGENFREQUENCY", nullptr};
constexpr const char* kSteadyStateDynamicsFrequencyscale[] = {"LOGARITHMIC", "LINEAR", nullptr};
const inp_ExpansionStep kSteadyStateDynamics[] = {
    Names(kSteadyStateDynamicsNames), Value("subspaceprojection", kSteadyStateDynamicsSubspaceprojection),
    Value("interval", kSteadyStateDynamicsInterval), Value("frequencyscale", kSteadyStateDynamicsFrequencyscale),
    Value("travelingwave", kOneTwo)};

constexpr const char* kSteadyStateTransportNames[] = {"direct", "inertia", "longterm", "mullins", "elset", "passbypass", "initialstate", "factor", "stabilize", nullptr};
constexpr const char* kSteadyStateTransportInertia[] = {"NO", "YES", "WITHJACOBIAN", "SYMMETRIC", nullptr};
const inp_ExpansionStep kSteadyStateTransport[] = {Names(kSteadyStateTransportNames), Value("direct", kNoStop),
                                                   Value("inertia", kSteadyStateTransportInertia),
                                                   Value("mullins", kRampStep)};

constexpr const char* kStepNames[] = {"amplitude", "dsa", "extrapolation", "inc", "name", "nlgeom", "perturbation", "unsymm", "solver", "convertsdi", nullptr};
constexpr const char* kExtrapolation[] = {"LINEAR", "PARABOLIC", "NO", nullptr};
constexpr const char* kDdm[] = {"DDM", nullptr};
const inp_ExpansionStep kStep[] = {Names(kStepNames),
                                   Value("amplitude", kStepAmplitude),
                                   Value("extrapolation", kExtrapolation),
                                   ValueUnlessBool("dsa", NoYes),
                                   ValueUnlessBool("nlgeom", NoYes),
                                   ValueUnlessBool("unsymm", NoYes),
                                   Value("solver", kDdm),
                                   Value("convertsdi", kYesNo)};

constexpr const char* kSubmodelNames[] = {"absoluteexteriortolerance", "exteriortolerance", "globalelset", "shellthickness", "acoustictostructure", "shelltosolid", "displacementbased", "stressbased", nullptr};
const inp_ExpansionStep kSubmodel[] = {Names(kSubmodelNames)};

constexpr const char* kSubstructureCopyNames[] = {"newlibrary", "newtype", "oldlibrary", "oldtype", nullptr};
const inp_ExpansionStep kSubstructureCopy[] = {
    Names(kSubstructureCopyNames), Unsupported("Option is currently not supported in a model defined in terms of an "
                                               "assembly of part instances: *SUBSTRUCTURE COPY")};

constexpr const char* kSubstructureDeleteNames[] = {"type", "library", nullptr};
const inp_ExpansionStep kSubstructureDelete[] = {
    Names(kSubstructureDeleteNames), Unsupported("The following option is currently not supported in a model defined "
                                                 "in terms of an assembly of part instances: *SUBSTRUCTURE DELETE")};

constexpr const char* kSubstructureDirectoryNames[] = {"library", nullptr};
const inp_ExpansionStep kSubstructureDirectory[] = {
    Names(kSubstructureDirectoryNames),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *SUBSTRUCTURE DIRECTORY")};

constexpr const char* kSubstructureGenerateNames[] = {"gravityload", "library", "massmatrix", "nset", "overwrite", "propertyevaluation", "recoverymatrix", "type", nullptr};
const inp_ExpansionStep kSubstructureGenerate[] = {
    Names(kSubstructureGenerateNames), Value("gravityload", NoYes), Value("massmatrix", NoYes),
    Value("recoverymatrix", NoYes),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *SUBSTRUCTURE GENERATE")};

constexpr const char* kSubstructureMatrixOutputNames[] = {"filename", "gravityload", "mass", "outputfile", "recoverymatrix", "sload", "stiffness", nullptr};
constexpr const char* kSubstructureMatrixOutputOutputfile[] = {"ODB", "RESULTSFILE", "USERDEFINED", nullptr};
const inp_ExpansionStep kSubstructureMatrixOutput[] = {Names(kSubstructureMatrixOutputNames),
                                                       Value("gravityload", NoYes),
                                                       Value("mass", NoYes),
                                                       Value("outputfile", kSubstructureMatrixOutputOutputfile),
                                                       Value("recoverymatrix", NoYes),
                                                       Value("sload", NoYes),
                                                       Value("stiffness", NoYes)};

constexpr const char* kSubstructurePathNames[] = {"enterelement", "leave", nullptr};
const inp_ExpansionStep kSubstructurePath[] = {
    Names(kSubstructurePathNames), Unsupported("The following option is currently not supported in a model defined in "
                                               "terms of an assembly of part instances: *SUBSTRUCTURE PATH")};

constexpr const char* kSubstructurePropertyNames[] = {"elset", "positiontol", "norotation", nullptr};
const inp_ExpansionStep kSubstructureProperty[] = {
    Names(kSubstructurePropertyNames),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *SUBSTRUCTURE PROPERTY")};

constexpr const char* kSurfaceNames[] = {"combine", "crop", "filletradius", "internal", "length", "maxratio", "name", "nooffset", "nothick", "property", "refnode", "regiontype", "scalethick", "trim", "type", nullptr};
constexpr const char* kSurfaceType[] = {"CUTTINGSURFACE", "ELEMENT", "NODE", "SEGMENTS", "BEZIER", "BSPLINE", "CYLINDER", "REVOLUTION", "USER", nullptr};
constexpr const char* kSurfaceCombine[] = {"DIFFERENCE", "INTERSECTION", "UNION", nullptr};
const inp_ExpansionStep kSurface[] = {Names(kSurfaceNames),
                                      Value("regiontype", kRegionType),
                                      Value("trim", NoYes),
                                      Value("type", kSurfaceType),
                                      Value("combine", kSurfaceCombine),
                                      WithoutStringBlank("name", "The NAME parameter is required.")};

constexpr const char* kSurfaceBehaviorNames[] = {"augmentedlagrange", "directenforcement", "noseparation", "penalty", "pressure-overclosure", "softened", "tabular", "viscousdamping", nullptr};
constexpr const char* kSurfaceBehaviorPressureOverclosure[] = {"EXPONENTIAL", "HARD", "LINEAR", "SCALEFACTOR", "TABULAR", nullptr};
const inp_ExpansionStep kSurfaceBehavior[] = {Names(kSurfaceBehaviorNames),
                                              Value("pressure-overclosure", kSurfaceBehaviorPressureOverclosure)};

constexpr const char* kSurfaceFlawNames[] = {"input", "side", nullptr};
constexpr const char* kSurfaceFlawSide[] = {"NEGATIVE", "POSITIVE", nullptr};
const inp_ExpansionStep kSurfaceFlaw[] = {Names(kSurfaceFlawNames), Value("side", kSurfaceFlawSide), DataFile("input")};

constexpr const char* kSurfaceInteractionNames[] = {"corotational", "depvar", "name", "padthickness", "properties", "ucrack", "unsymm", "user", nullptr};
const inp_ExpansionStep kSurfaceInteraction[] = {Names(kSurfaceInteractionNames)};

constexpr const char* kSurfacePropertyAssignmentNames[] = {"property", nullptr};
constexpr const char* kSurfacePropertyAssignmentProperty[] = {"FEATUREEDGECRITERIA", "OFFSETFRACTION", "POLARITY", "THICKNESS", nullptr};
const inp_ExpansionStep kSurfacePropertyAssignment[] = {
    Names(kSurfacePropertyAssignmentNames), Value("property", kSurfacePropertyAssignmentProperty),
    WithoutBlank("property", "The PROPERTY parameter is required.")};

constexpr const char* kSurfaceSectionNames[] = {"elset", "density", nullptr};
const inp_ExpansionStep kSurfaceSection[] = {Names(kSurfaceSectionNames)};

constexpr const char* kSwellingNames[] = {"dependencies", "law", nullptr};
constexpr const char* kSwellingLaw[] = {"INPUT", "USER", nullptr};
const inp_ExpansionStep kSwelling[] = {Names(kSwellingNames), Value("law", kSwellingLaw)};

constexpr const char* kSymmetricModelGenerationNames[] = {"reflect", "revolve", "elementoffset", "filename", "nodeoffset", "tolerance", "transport", "periodic", nullptr};
constexpr const char* kSymmetricModelGenerationReflect[] = {"LINE", "PLANE", nullptr};
constexpr const char* kSymmetricModelGenerationPeriodic[] = {"CONSTANT", "VARIABLE", nullptr};
const inp_ExpansionStep kSymmetricModelGeneration[] = {
    Names(kSymmetricModelGenerationNames), Value("reflect", kSymmetricModelGenerationReflect),
    Value("periodic", kSymmetricModelGenerationPeriodic),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *SYMMETRIC MODEL GENERATION")};

constexpr const char* kSymmetricResultsTransferNames[] = {"step", "inc", "unbalancedstress", "iteration", nullptr};
const inp_ExpansionStep kSymmetricResultsTransfer[] = {
    Names(kSymmetricResultsTransferNames), Value("unbalancedstress", kRampStep),
    Unsupported("The following option is currently not supported in a model defined in terms of an assembly of part "
                "instances: *SYMMETRIC RESULTS TRANSFER")};

constexpr const char* kTemperatureNames[] = {"absoluteexteriortolerance", "amplitude", "binc", "bstep", "btramp", "einc", "estep", "exteriortolerance", "file", "input", "interpolate", "midside", "op", "user", nullptr};
const inp_ExpansionStep kTemperature[] = {Names(kTemperatureNames), Value("op", ModNew), DataFile("input")};

constexpr const char* kTensileFailureNames[] = {"elementdeletion", "dependencies", "pressure", "shear", nullptr};
const inp_ExpansionStep kTensileFailure[] = {Names(kTensileFailureNames), Value("elementdeletion", NoYes),
                                             Value("pressure", kBrittleDuctile), Value("shear", kBrittleDuctile)};

constexpr const char* kTensionStiffeningNames[] = {"dependencies", "type", nullptr};
constexpr const char* kTensionStiffeningType[] = {"DISPLACEMENT", "STRAIN", nullptr};
const inp_ExpansionStep kTensionStiffening[] = {Names(kTensionStiffeningNames), Value("type", kTensionStiffeningType)};

constexpr const char* kTieNames[] = {"accuracy", "adjust", "constraintratio", "cyclicsymmetry", "explicitconstraint", "name", "nobeam", "norotation", "nothickness", "positiontolerance", "tiednset", "type", nullptr};
constexpr const char* kTieType[] = {"NODETOSURFACE", "SURFACETOSURFACE", nullptr};
const inp_ExpansionStep kTie[] = {Names(kTieNames), Value("type", kTieType), Value("adjust", NoYes),
                                  Value("explicitconstraint", NoYes)};

// As for release, INPUT stays on the keyword.
constexpr const char* kTimePointsNames[] = {"generate", "input", "name", nullptr};
const inp_ExpansionStep kTimePoints[] = {Names(kTimePointsNames)};

constexpr const char* kTorqueNames[] = {"dependencies", "elastic", "linear", nullptr};
const inp_ExpansionStep kTorque[] = {Names(kTorqueNames)};

constexpr const char* kTorquePrintNames[] = {"frequency", nullptr};
const inp_ExpansionStep kTorquePrint[] = {Names(kTorquePrintNames)};

constexpr const char* kTracerParticleNames[] = {"tracerset", "particlebirthstages", nullptr};
const inp_ExpansionStep kTracerParticle[] = {Names(kTracerParticleNames)};

constexpr const char* kTransformNames[] = {"nset", "type", nullptr};
constexpr const char* kTransformType[] = {"C", "R", "S", nullptr};
const inp_ExpansionStep kTransform[] = {Names(kTransformNames), Value("type", kTransformType),
                                        WithoutBlank("nset", "The NSET parameter is required.")};

constexpr const char* kTransportVelocityNames[] = {"amplitude", "user", "upwindin", nullptr};
const inp_ExpansionStep kTransportVelocity[] = {Names(kTransportVelocityNames)};

constexpr const char* kTriaxialTestDataNames[] = {"a", "b", "pt", nullptr};
const inp_ExpansionStep kTriaxialTestData[] = {Names(kTriaxialTestDataNames)};

constexpr const char* kTrsNames[] = {"definition", nullptr};
constexpr const char* kTrsDefinition[] = {"USER", "WLF", nullptr};
const inp_ExpansionStep kTrs[] = {Names(kTrsNames), Value("definition", kTrsDefinition)};

constexpr const char* kUelPropertyNames[] = {"alpha", "beta", "elset", nullptr};
const inp_ExpansionStep kUelProperty[] = {Names(kUelPropertyNames)};
// The names are written in lower case: parameter names reach the table in lower case and
// match case-sensitively, so a table in any other case would refuse every parameter.
constexpr const char* kUndexChargePropertyNames[] = {"huntergeers", "hicks", nullptr};
const inp_ExpansionStep kUndexChargeProperty[] = {Names(kUndexChargePropertyNames)};

constexpr const char* kUniaxialTestDataNames[] = {"dependencies", "direction", "smooth", nullptr};
const inp_ExpansionStep kUniaxialTestData[] = {Names(kUniaxialTestDataNames), Value("direction", kOneTwo)};

constexpr const char* kUserElementNames[] = {"coordinates", "file", "increment", "iproperties", "linear", "nodes", "oldelement", "properties", "step", "type", "unsymm", "variables", nullptr};
const inp_ExpansionStep kUserElement[] = {
    Names(kUserElementNames), UnsupportedWith("file",
                                              "The following option is currently not supported in a model defined in "
                                              "terms of an assembly of part instances: *USER ELEMENT, FILE=")};

constexpr const char* kUserMaterialNames[] = {"constants", "type", "unsymm", nullptr};
constexpr const char* kUserMaterialType[] = {"MECHANICAL", "THERMAL", nullptr};
const inp_ExpansionStep kUserMaterial[] = {Names(kUserMaterialNames), Value("type", kUserMaterialType)};

constexpr const char* kVariableMassScalingNames[] = {"crosssectionnodes", "direction", "dt", "dtdeviation", "elset", "extrudedlength", "feedrate", "type", "frequency", "numberinterval", nullptr};
constexpr const char* kVariableMassScalingType[] = {"UNIFORM", "BELOWMIN", "ROLLING", "SETEQUALDT", nullptr};
const inp_ExpansionStep kVariableMassScaling[] = {Names(kVariableMassScalingNames),
                                                  Value("type", kVariableMassScalingType)};

constexpr const char* kViewfactorOutputNames[] = {"cavity", "frequency", nullptr};
const inp_ExpansionStep kViewfactorOutput[] = {Names(kViewfactorOutputNames)};

constexpr const char* kViscoNames[] = {"cetol", "explicit", "stabilize", "factor", "creep", nullptr};
constexpr const char* kViscoCreep[] = {"EXPLICIT", nullptr};
const inp_ExpansionStep kVisco[] = {Names(kViscoNames), Value("creep", kViscoCreep)};

constexpr const char* kViscoelasticNames[] = {"datat2f", "errtol", "frequency", "maxiter", "nmax", "preload", "time", "type", nullptr};
constexpr const char* kViscoelasticFrequency[] = {"FORMULA", "CREEPTESTDATA", "PRONY", "RELAXATIONTESTDATA", "TABULAR", nullptr};
constexpr const char* kViscoelasticPreload[] = {"UNIAXIAL", "VOLUMETRIC", nullptr};
constexpr const char* kViscoelasticTime[] = {"CREEPTESTDATA", "FREQUENCYDATA", "PRONY", "RELAXATIONTESTDATA", nullptr};
constexpr const char* kViscoelasticType[] = {"ISOTROPIC", "TRACTION", nullptr};
const inp_ExpansionStep kViscoelastic[] = {Names(kViscoelasticNames), Value("frequency", kViscoelasticFrequency),
                                           Value("preload", kViscoelasticPreload), Value("time", kViscoelasticTime),
                                           Value("type", kViscoelasticType)};

constexpr const char* kViscousNames[] = {"dependencies", "law", nullptr};
constexpr const char* kViscousLaw[] = {"STRAIN", "TIME", "USER", nullptr};
const inp_ExpansionStep kViscous[] = {Names(kViscousNames), Value("law", kViscousLaw)};

constexpr const char* kVolumetricTestDataNames[] = {"dependencies", "smooth", "volinf", nullptr};
const inp_ExpansionStep kVolumetricTestData[] = {Names(kVolumetricTestDataNames)};

constexpr const char* kWaveNames[] = {"datafile", "input", "minimum", "quadratic", "stochastic", "type", "waveperiod", nullptr};
constexpr const char* kWaveType[] = {"AIRY", "GRIDDED", "STOKES", "USER", nullptr};
const inp_ExpansionStep kWave[] = {Names(kWaveNames), Value("type", kWaveType), DataFile("input")};

const inp_ExpansionRule kRules[] = {
    INP_RULE(Radiate, kRadiate),
    INP_RULE(RadiationFile, kRadiationFile),
    INP_RULE(RadiationOutput, kRadiationOutput),
    INP_RULE(RadiationPrint, kRadiationPrint),
    INP_RULE(RadiationSymmetry, kNameOnly),
    INP_RULE(RadiationViewfactor, kRadiationViewfactor),
    INP_RULE(RateDependent, kRateDependent),
    INP_RULE(Ratios, kDependenciesOnly),
    INP_RULE(Rebar, kRebar),
    INP_RULE(RebarLayer, kRebarLayer),
    INP_RULE(Reflection, kReflection),
    INP_RULE(Release, kRelease),
    INP_EMPTY_RULE(RemeshTrigger),
    INP_RULE(ResponseSpectrum, kResponseSpectrum),
    INP_RULE(Restart, kRestart),
    INP_RULE(RetainedEigenModes, kRetainedEigenModes),
    INP_RULE(RetainedNodalDofs, kRetainedNodalDofs),
    INP_RULE(RigidBody, kRigidBody),
    INP_RULE(RigidSurface, kRigidSurface),
    INP_RULE(RotaryInertia, kRotaryInertia),
    INP_RULE(SectionControls, kSectionControls),
    INP_RULE(SectionFile, kSectionOutput),
    INP_RULE(SectionOrigin, kSectionOrigin),
    INP_RULE(SectionPrint, kSectionOutput),
    INP_RULE(SelectCyclicSymmetryModes, kSelectCyclicSymmetryModes),
    INP_RULE(SelectEigenmodes, kSelectEigenmodes),
    INP_RULE(Sfilm, kSfilm),
    INP_RULE(Sflow, kAmplitudeOp),
    INP_RULE(ShearFailure, kShearFailure),
    INP_RULE(ShearRetention, kDependenciesOnly),
    INP_RULE(ShearTestData, kShearTestData),
    INP_RULE(ShellGeneralSection, kShellGeneralSection),
    INP_RULE(ShellSection, kShellSection),
    INP_RULE(ShellToSolidCoupling, kShellToSolidCoupling),
    INP_RULE(Simpedance, kSimpedance),
    INP_RULE(SlideLine, kSlideLine),
    INP_RULE(Sload, kAmplitudeOp),
    INP_RULE(Soils, kSoils),
    INP_RULE(SolidSection, kSolidSection),
    INP_RULE(Solubility, kDependenciesOnly),
    INP_RULE(SolutionTechnique, kSolutionTechnique),
    INP_RULE(SolverControls, kSolverControls),
    INP_RULE(Sorption, kSorption),
    INP_RULE(SpatialDistribution, kSpatialDistribution),
    INP_RULE(SpecificHeat, kDependenciesOnly),
    INP_RULE(Spectrum, kSpectrum),
    INP_RULE(SpotWeld, kSpotWeld),
    INP_RULE(SpotWeldInteraction, kSpotWeldInteraction),
    INP_RULE(SpotWeldProperty, kSpotWeldProperty),
    INP_RULE(Spring, kSpring),
    INP_RULE(Sradiate, kAmplitudeOp),
    INP_RULE(Static, kStatic),
    INP_RULE(SteadyStateDetection, kSteadyStateDetection),
    INP_RULE(SteadyStateDynamics, kSteadyStateDynamics),
    INP_RULE(SteadyStateTransport, kSteadyStateTransport),
    INP_RULE(Step, kStep),
    INP_RULE(Submodel, kSubmodel),
    INP_RULE(SubstructureCopy, kSubstructureCopy),
    INP_RULE(SubstructureDelete, kSubstructureDelete),
    INP_RULE(SubstructureDirectory, kSubstructureDirectory),
    INP_RULE(SubstructureGenerate, kSubstructureGenerate),
    INP_RULE(SubstructureLoadCase, kNameOnly),
    INP_RULE(SubstructureMatrixOutput, kSubstructureMatrixOutput),
    INP_RULE(SubstructurePath, kSubstructurePath),
    INP_RULE(SubstructureProperty, kSubstructureProperty),
    INP_RULE(Surface, kSurface),
    INP_RULE(SurfaceBehavior, kSurfaceBehavior),
    INP_RULE(SurfaceFlaw, kSurfaceFlaw),
    INP_RULE(SurfaceInteraction, kSurfaceInteraction),
    INP_RULE(SurfaceProperty, kNameOnly),
    INP_RULE(SurfacePropertyAssignment, kSurfacePropertyAssignment),
    INP_RULE(SurfaceSection, kSurfaceSection),
    INP_RULE(Swelling, kSwelling),
    INP_RULE(SymmetricModelGeneration, kSymmetricModelGeneration),
    INP_RULE(SymmetricResultsTransfer, kSymmetricResultsTransfer),
    INP_RULE(Temperature, kTemperature),
    INP_RULE(TensileFailure, kTensileFailure),
    INP_RULE(TensionStiffening, kTensionStiffening),
    INP_RULE(ThermalExpansion, kDependenciesOnly),
    INP_RULE(Tie, kTie),
    INP_RULE(TimePoints, kTimePoints),
    INP_RULE(Torque, kTorque),
    INP_RULE(TorquePrint, kTorquePrint),
    INP_RULE(TracerParticle, kTracerParticle),
    INP_RULE(Transform, kTransform),
    INP_RULE(TransportVelocity, kTransportVelocity),
    INP_RULE(TriaxialTestData, kTriaxialTestData),
    INP_RULE(Trs, kTrs),
    INP_RULE(UelProperty, kUelProperty),
    INP_RULE(UndexChargeProperty, kUndexChargeProperty),
    INP_RULE(UniaxialTestData, kUniaxialTestData),
    INP_RULE(UserElement, kUserElement),
    INP_RULE(UserMaterial, kUserMaterial),
    INP_RULE(VariableMassScaling, kVariableMassScaling),
    INP_RULE(ViewfactorOutput, kViewfactorOutput),
    INP_RULE(Visco, kVisco),
    INP_RULE(Viscoelastic, kViscoelastic),
    INP_RULE(Viscous, kViscous),
    INP_RULE(VoidNucleation, kDependenciesOnly),
    INP_RULE(VolumetricTestData, kVolumetricTestData),
    INP_RULE(Wave, kWave),
};

}  // namespace

const inp_ExpansionRuleList inp_expansionRulesQZ = {kRules, static_cast<int>(std::size(kRules))};
