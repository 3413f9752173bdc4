// The record of an import request, and the pass that fills it from *INSTANCE and
// *IMPORT: what ends up in the record when the deck gives things twice.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_ImportValidityVisitor.h"
#include "thr_GlobalSingleton.h"
#include "utl_CommandLine.h"

namespace {

using inp_test::In;
using inp_test::Make;
using inp_test::ToVector;
using Strings = std::vector<std::string>;

cow_String S(const char* s) { return cow_String(s); }

// The pass over keywords built in code; the record and the messages it left.
struct Pass {
    inp_ImportValidityVisitor visitor;
    cow_1DArrayList<inp_Keyword> list;
    Strings errors, warnings;
    explicit Pass(const std::vector<inp_Keyword>& keywords) {
        for (const inp_Keyword& k : keywords) list.Append(k);
        visitor.VisitList(list);
        errors = ToVector(visitor.errors);
        warnings = ToVector(visitor.warnings);
    }
};

std::string Ignored(const char* parameter, const char* value) {
    return In("IMPORT", std::string("The \"") + parameter + "\" parameter has been already defined. The current value \"" +
                            value + "\" will be ignored.");
}

}  // namespace

TEST(ImportKwdData, ReadFromComponentKeywords) {
    struct Case {
        inp_Keyword keyword;
        bool read;
        int kind;
        const char* component;
    };
    const Case cases[] = {
        {Make(inp_kwInstance, {{"instance", "A"}}), false, 0, ""},
        {Make(inp_kwInstance, {{"referenceconfiguration", "NO"}, {"instance", "A"}}), true, 2, "A"},
        {Make(inp_kwInstance, {{"referenceconfiguration", "NO"}, {"instance", "A"}, {"part", "P"}}), true, 1, "P"},
        {Make(inp_kwInstance, {{"referenceconfiguration", "NO"}}), false, 0, ""},
        {Make(inp_kwPart, {{"referenceconfiguration", "NO"}, {"part", "P"}}), true, 1, "P"},
        {Make(inp_kwAssembly, {{"referenceconfiguration", "NO"}, {"assembly", "W"}}), true, 3, "W"},
        {Make(inp_kwStep, {{"referenceconfiguration", "NO"}}), false, 0, ""},
    };
    for (const Case& c : cases) {
        inp_ImportKwdData data;
        EXPECT_EQ(data.readFromKw(c.keyword), c.read) << c.component;
        EXPECT_EQ(data.isDefined, c.read);
        EXPECT_EQ(data.kind, c.kind);
        EXPECT_EQ(data.componentName, S(c.component));
    }
    inp_ImportKwdData data;
    ASSERT_TRUE(data.readFromKw(Make(inp_kwInstance, {{"referenceconfiguration", "UPDATED"}, {"instance", "A"},
                                                      {"state", "NO"}, {"library", "job1"}, {"step", "3"},
                                                      {"iteration", "7"}})));
    EXPECT_TRUE(data.update);
    EXPECT_FALSE(data.state);
    EXPECT_EQ(data.library, S("job1"));
    EXPECT_EQ(data.step, 3);
    EXPECT_EQ(data.iteration, 7);
    EXPECT_EQ(data.increment, -1);
}

TEST(ImportKwdData, LibraryPathAndParametersOfAnImport) {
    utl_CommandLine& commandLine = thr_GlobalSingleton<utl_CommandLine>::Instance();
    commandLine.Set(S("indir"), S("/tmp/x"));
    inp_ImportKwdData data;
    data.library = S("job1");
    const utl_FilePath& path = data.getLibraryPath();
    EXPECT_EQ(path.PathName(), S("/tmp/x/job1.odb"));
    EXPECT_EQ(&data.getLibraryPath(), &path);
    data.library = S("job2");
    EXPECT_EQ(data.getLibraryPath().PathName(), S("/tmp/x/job2.odb"));
    commandLine.Remove(S("indir"));

    auto parameters = [](const inp_ImportKwdData& d) {
        Strings out;
        cow_ConstMapSortedIt<cow_String, inp_Item> it(d.getImportKwdParameterMap());
        for (it.First(); !it.IsDone(); it.Next())
            out.push_back(std::string(it.CurrentKey().c_str()) + "=" + it.CurrentValue().AsString().c_str() +
                          (it.CurrentValue().type == inp_Types::typeInt ? "(int)" : ""));
        return out;
    };
    EXPECT_EQ(parameters(inp_ImportKwdData()), Strings{"update=NO"});
    inp_ImportKwdData given;
    given.update = true;
    given.state = false;
    given.step = 2;
    given.increment = 4;
    given.iteration = 9;
    EXPECT_EQ(parameters(given), (Strings{"increment=4(int)", "state=NO", "step=2(int)", "update=YES"}));
    given.increment = -1;
    EXPECT_EQ(parameters(given), (Strings{"iteration=9(int)", "state=NO", "step=2(int)", "update=YES"}));
}

// Two imported instances: the first values stand, the later ones are named as ignored.
TEST(ImportValidity, FirstValuesStandAndLaterOnesAreIgnored) {
    const Pass pass({Make(inp_kwAssembly, {{"name", "W"}}),
                     Make(inp_kwInstance, {{"instance", "A"}, {"library", "X"}}),
                     Make(inp_kwImport, {{"update", "NO"}, {"step", "2"}}), Make(inp_kwMass, {{"elset", "E"}}),
                     Make(inp_kwCload), Make(inp_kwEndInstance),
                     Make(inp_kwInstance, {{"instance", "B"}, {"library", "Y"}}),
                     Make(inp_kwImport, {{"update", "YES"}, {"step", "3"}}), Make(inp_kwEndInstance),
                     Make(inp_kwInstance, {{"instance", "C"}}), Make(inp_kwImport, {{"update", "NO"}, {"step", "-1"}}),
                     Make(inp_kwEndInstance)});
    EXPECT_EQ(pass.warnings,
              (Strings{In("CLOAD", "Keyword cannot be used inside the imported component \"A\""),
                       In("INSTANCE", "The \"LIBRARY\" parameter has been already defined. The current value \"Y\" "
                                      "will be ignored."),
                       Ignored("UPDATE", "YES"), Ignored("STEP", "3"), Ignored("STEP", "default")}));
    EXPECT_EQ(pass.errors,
              Strings{In("IMPORT", "The value of \"STEP\" parameter is not valid. It will be ignored.")});
    const inp_ImportKwdData& data = pass.visitor.ImportData();
    EXPECT_EQ(data.library, S("X"));
    EXPECT_EQ(data.step, 2);
    EXPECT_FALSE(data.update);
    EXPECT_EQ(data.kind, 2);
    EXPECT_EQ(data.componentName, S("C"));
    EXPECT_EQ(pass.list.ConstGet(3).keyword, inp_kwMass);
    EXPECT_EQ(pass.list.ConstGet(4).keyword, inp_kwUndefined);
}

TEST(ImportValidity, ComponentsThatCannotBeImported) {
    const Pass pass({Make(inp_kwPart, {{"name", "P"}, {"state", "NO"}}), Make(inp_kwEndPart),
                     Make(inp_kwAssembly, {{"name", "W"}, {"library", "X"}}),
                     Make(inp_kwInstance, {{"name", "D"}, {"part", "P"}, {"library", "X"}}),
                     Make(inp_kwEndInstance), Make(inp_kwInstance, {{"instance", "E"}, {"part", "P"}}),
                     Make(inp_kwEndInstance)});
    EXPECT_EQ(pass.errors,
              (Strings{In("PART", "Import with *PART is not implemented."),
                       In("ASSEMBLY", "Import with *ASSEMBLY is not implemented."),
                       In("INSTANCE", "When importing an instance, INSTANCE parameter is required."),
                       In("INSTANCE", "*INSTANCE cannot import a PART component."),
                       In("INSTANCE", "LIBRARY parameter or oldjob command line parameter must be defined when "
                                      "importing components."),
                       In("ENDINSTANCE", "Instance \"E\" is to be imported but *IMPORT option is misssing.")}));
    EXPECT_TRUE(pass.warnings.empty());
    EXPECT_TRUE(pass.visitor.importedInstance.IsEmpty());
    EXPECT_TRUE(pass.visitor.importRequested && pass.visitor.hasImportedInstance && pass.visitor.inModelDefinition);
}
