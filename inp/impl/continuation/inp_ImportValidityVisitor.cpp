#include "inp_ImportValidityVisitor.h"

#include "atr_String.h"
#include "inp_Utils.h"
#include "thr_GlobalSingleton.h"
#include "utl_CommandLine.h"

namespace {

const char* const kImportParameters[] = {"instance", "referenceconfiguration", "library", "state",
                                         "step",     "increment",              "interval", "iteration"};

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

bool HoldsImportParameters(const inp_Keyword& keyword) {
    for (const char* name : kImportParameters)
        if (Has(keyword, name)) return true;
    return false;
}

const char kLibraryMissing[] =
    "LIBRARY parameter or oldjob command line parameter must be defined when importing components.";

}  // namespace

inp_ImportValidityVisitor::~inp_ImportValidityVisitor() = default;

#define INP_IMPORT_KEPT_DEFINITION(Ident) \
    void inp_ImportValidityVisitor::Visit##Ident(inp_Keyword&) {}
INP_IMPORT_KEPT_KEYWORDS(INP_IMPORT_KEPT_DEFINITION)
#undef INP_IMPORT_KEPT_DEFINITION

void inp_ImportValidityVisitor::VisitListAndReport(cow_1DArrayList<inp_Keyword>& keywords) {
    VisitList(keywords);
    if (importRequested) {
        if (importData.library.IsEmpty()) errors.Append(atr_raw(kLibraryMissing));
        if (hasImportOutsideModel && hasImportedInstance) {
            errors.Append(atr_raw("*IMPORT cannot be used in the new import procedure keyword interface."));
            if (hasMapSolution)
                errors.Append(atr_raw("*MAP SOLUTION (rezoning) cannot be used in the import procedure."));
        }
    }
    Report();
}

// The mesh of an imported instance comes from the earlier job: a keyword that would
// change it is dropped.
void inp_ImportValidityVisitor::DefaultAction(inp_Keyword& keyword) {
    if (importedInstance.IsEmpty()) return;
    warnings.Append(inp_Utils::MessageInKeyword(
        keyword, atr_Format("Keyword cannot be used inside the imported component \"%1$s\"", importedInstance)));
    keyword = inp_Keyword();
}

void inp_ImportValidityVisitor::VisitAssembly(inp_Keyword& keyword) {
    inModelDefinition = true;
    if (HoldsImportParameters(keyword))
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Import with *ASSEMBLY is not implemented.")));
}

void inp_ImportValidityVisitor::VisitPart(inp_Keyword& keyword) {
    inModelDefinition = true;
    if (HoldsImportParameters(keyword))
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Import with *PART is not implemented.")));
}

void inp_ImportValidityVisitor::VisitInstance(inp_Keyword& keyword) {
    inModelDefinition = true;
    if (!Has(keyword, "instance")) {
        if (Has(keyword, "library"))
            errors.Append(inp_Utils::MessageInKeyword(
                keyword, atr_raw("When importing an instance, INSTANCE parameter is required.")));
        return;
    }
    importRequested = hasImportedInstance = true;
    if (Has(keyword, "part"))
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("*INSTANCE cannot import a PART component.")));
    importedInstance = keyword.parameters.ConstGet(cow_String("instance")).AsString();

    const utl_CommandLine& commandLine = thr_GlobalSingleton<utl_CommandLine>::Instance();
    const cow_String oldJob("oldjobcla");
    auto checkGivenLibrary = [&]() {
        if (!Has(keyword, "library")) return;
        inp_ImportKwdData given;
        given.readLibrary(keyword);
        importData.checkLibrary(given, keyword, warnings);
    };
    if (!importData.library.IsEmpty()) {
        checkGivenLibrary();
    } else if (commandLine.IsMember(oldJob)) {
        importData.library = commandLine.ConstGetValue(oldJob);
        checkGivenLibrary();
    } else if (Has(keyword, "library")) {
        importData.readLibrary(keyword);
    } else {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw(kLibraryMissing)));
    }
}

void inp_ImportValidityVisitor::VisitEndInstance(inp_Keyword& keyword) {
    if (!importedInstance.IsEmpty() && !hasImportInInstance)
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Instance \"%1$s\" is to be imported but *IMPORT option is misssing.",
                                importedInstance)));
    hasImportInInstance = false;
    importedInstance = cow_String();
}

void inp_ImportValidityVisitor::VisitImport(inp_Keyword& keyword) {
    if (!inModelDefinition) {
        hasImportOutsideModel = true;
        return;
    }
    importRequested = hasImportInInstance = true;
    importData.kind = 2;
    importData.componentName = importedInstance;
    if (importData.isDefined) {
        inp_ImportKwdData record;
        record.readFromImportKw(keyword, errors);
        importData.checkAgainstImportKw(record, keyword, warnings);
    } else {
        importData.readFromImportKw(keyword, errors);
    }
}

void inp_ImportValidityVisitor::VisitMapSolution(inp_Keyword&) { hasMapSolution = true; }
