// Classify on decks read from files: the model of every part, instance and the
// assembly, and the import rules.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"
#include "inp_ElementDataArray.h"
#include "inp_Utils.h"

using inp_test::TempDir;

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

std::vector<int> Ids(const cow_1DArrayList<int>& list) {
    std::vector<int> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i));
    return out;
}

// Only what Classify said is left in the sink.
void Classified(inp_Deck& deck, const std::string& path) {
    deck.Parse(path.c_str());
    deck.ExpandKeywords();
    Sink().Clear();
    deck.Classify(true);
}

}  // namespace

TEST(DeckClassify, AnAssemblyDeckGetsTheModelOfItsPartsAndInstances) {
    inp_Deck deck;
    Classified(deck, INP_EXAMPLES_DIR "/bracket_assembly.inp");
    EXPECT_EQ(inp_test::SinkRecords(), std::vector<std::string>{});

    const inp_CoordMap& part = deck.partCoordinates.instances.ConstGet(cow_String("BRACKET")).ConstGet();
    EXPECT_EQ(part.Count(), 10);
    EXPECT_DOUBLE_EQ(part.ConstGet(3).x, 2.0);
    EXPECT_EQ(deck.partElements.ConstGet(cow_String("BRACKET")).Count(), 4);
    EXPECT_EQ(Ids(deck.partNodeSets.ConstGetNestedSet(cow_String("BRACKET"), cow_String("ENDS")).ConstGetIds()),
              (std::vector<int>{1, 5, 101, 105}));

    // Both instances hold the part's one element table; the right one is moved.
    EXPECT_EQ(&deck.assemblyElements.ConstGet(cow_String("LEFT")), &deck.assemblyElements.ConstGet(cow_String("RIGHT")));
    const inp_CoordMap& right = deck.assemblyCoordinates.instances.ConstGet(cow_String("RIGHT")).ConstGet();
    EXPECT_DOUBLE_EQ(right.ConstGet(5).x, 14.0);
    EXPECT_TRUE(deck.instanceTransformations.ConstGet(cow_String("LEFT")).IsIdentity());

    const inpM_BaseSet& fixed = deck.assemblyNodeSets.ConstGetSet(cow_String("FIXED"));
    EXPECT_EQ(Ids(fixed.ConstGetSecondLevelIds(cow_String("LEFT"))), (std::vector<int>{1, 2, 3, 4, 5}));
    EXPECT_EQ(Ids(fixed.ConstGetSecondLevelIds(cow_String("RIGHT"))), (std::vector<int>{1}));
    EXPECT_EQ(Ids(deck.assemblyElementSets.ConstGetNestedSet(cow_String("RIGHT"), cow_String("WEB")).ConstGetIds()),
              (std::vector<int>{1, 2, 3, 4}));
}

TEST(DeckClassify, ExtractionMessagesReachTheSinkAndEveryPassRuns) {
    TempDir dir;
    const std::string deck =
        "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n*ELEMENT, TYPE=T3D2, ELSET=BARS\n1, 1, 2\n"
        "*ELEMENT, TYPE=XYZ\n2, 1, 2\n*NGEN, NSET=LINE\n1, 2, 3\n*END PART\n"
        "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*NSET, NSET=S\nI.1, NOPE, J.3\n"
        "*END ASSEMBLY\n";
    inp_Deck model;
    Classified(model, dir.Write("deck.inp", deck));
    const std::vector<std::string> records = inp_test::SinkRecords();
    // The element, node and layer passes of the parts, then those of the assembly; the
    // layer pass tells of the unknown type in its own words.
    ASSERT_EQ(records.size(), 4u);
    EXPECT_NE(records[0].find("Element type \"XYZ\" is not supported."), std::string::npos) << records[0];
    EXPECT_NE(records[1].find("Nodes cannot be generated between 1 and 2 with a step of 3."), std::string::npos)
        << records[1];
    EXPECT_NE(records[2].find("Element type XYZ is not supported."), std::string::npos) << records[2];
    EXPECT_NE(records[3].find("The following sets/ids do not exist:\nNOPE, J.3"), std::string::npos) << records[3];
    EXPECT_TRUE(model.assemblyNodeSets.IsMember(cow_String("S")));
}

TEST(DeckClassify, ImportRules) {
    TempDir dir;
    const std::string both = "*HEADING\n*IMPORT, UPDATE=NO\n*MAP SOLUTION\n*IMPORT, UPDATE=NO\n*MAP SOLUTION\n";
    inp_Deck deck;
    Classified(deck, dir.Write("both.inp", both));
    const std::vector<std::string> records = inp_test::SinkRecords();
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records[0], "E0: *IMPORT and *MAP SOLUTION (rezoning) cannot be used in the same analysis. ");
    // With the full conversion an import job is not held to the part map rule here;
    // the plain road is.
    EXPECT_EQ(records.size(), 1u);
    inp_Deck plain;
    plain.Parse(dir.Write("import.inp", "*HEADING\n*IMPORT, UPDATE=NO\n").c_str());
    plain.ExpandKeywords();
    Sink().Clear();
    plain.ReorganizeKeywords(false);
    EXPECT_EQ(inp_test::SinkRecords().back(),
              "E0: An import analysis requires the part map from a previous job. Please use the -oldpartmap command "
              "line option to specify it.");
}

TEST(DeckClassify, CompletedElementsPrintAndReadBack) {
    TempDir dir;
    const std::string deck =
        "*PART, NAME=P\n*ELEMENT, TYPE=CAXA81, ELSET=E\n1, 1, 2, 3, 4, 5, 6, 7, 8\n*END PART\n"
        "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*END ASSEMBLY\n";
    inp_Deck first;
    Classified(first, dir.Write("deck.inp", deck));
    aio_ostringstream printed;
    first.Print(printed);
    printed.flush();
    const std::string text = printed.str().c_str();
    EXPECT_NE(text.find("100006, 100007, \n100008\n"), std::string::npos) << text;

    inp_Deck second;
    Classified(second, dir.Write("printed.inp", text));
    EXPECT_EQ(inp_test::SinkRecords(), std::vector<std::string>{});
    const inp_Element& element = second.partElements.ConstGet(cow_String("P")).ConstGet(1);
    ASSERT_EQ(element.numNodes, 16);
    EXPECT_EQ(element.nodes[15], 100008);
}

// The flat conversion gives the mesh lines back as its tables take them in; a keyword
// list that a caller still holds keeps every line, and the model is whole either way.
TEST(DeckClassify, AFlatDeckLetsGoOfItsMeshLinesButNotOfThoseACallerHolds) {
    TempDir dir;
    std::string deck = "*NODE, NSET=ALL\n";
    for (int n = 1; n <= 8; ++n) deck += std::to_string(n) + ", " + std::to_string(n) + ".5, 0, 0\n";
    deck += "*ELEMENT, TYPE=C3D8, ELSET=E\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"
            "*ELEMENT, TYPE=CAXA81\n2, 1, 2, 3, 4, 5, 6, 7, 8\n";
    inp_Deck model;
    model.Parse(dir.Write("flat.inp", deck).c_str());
    model.ExpandKeywords();
    // A flat deck's connectivity stays text: its conversion reads it once.
    ASSERT_EQ(model.keywords.Count(), 3);
    EXPECT_NE(dynamic_cast<const inp_RawDataArrayImpl*>(&model.keywords[1].data.ConstGet()), nullptr);

    const cow_1DArrayList<inp_Keyword> held = model.keywords;
    Sink().Clear();
    model.Classify(true);
    EXPECT_EQ(inp_test::SinkRecords(), std::vector<std::string>{});
    for (int i = 0; i < held.Count(); ++i) {
        ASSERT_EQ(held[i].data.NumberOfLines(), i == 0 ? 8 : 1);
        EXPECT_GT(held[i].data.NumberOfItems(0), 0) << i;
    }
    const omi_IntTable<inp_Element>& elements = model.partElements.ConstGet(cow_String("PART-1"));
    ASSERT_TRUE(elements.HasKey(1) && elements.HasKey(2));
    EXPECT_EQ(elements.ConstGet(1).numNodes, 8);
    EXPECT_EQ(elements.ConstGet(2).numNodes, 16);  // the stacked element read its own lines
    // The deck's eight nodes and the layer the stacked element made.
    EXPECT_EQ(model.partCoordinates.instances.ConstGet(cow_String("PART-1"))->Count(), 16);

    aio_ostringstream printed;
    model.Print(printed);
    printed.flush();
    const std::string text = printed.str().c_str();
    EXPECT_NE(text.find("8, 8.5, 0., 0."), std::string::npos) << text;
    EXPECT_NE(text.find("1, 1, 2, 3, 4, 5, 6, 7, 8\n"), std::string::npos) << text;
}

// A part's connectivity of plain ids is packed by the expansion and prints as written;
// lines with anything else stay text.
TEST(DeckClassify, APartsPlainConnectivityIsPackedAndPrintsAsWritten) {
    TempDir dir;
    const std::string elements = "*ELEMENT, TYPE=C3D20, ELSET=E\n"
                                 "7, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, \n"
                                 "16, 17, 18, 19, 20\n";
    std::string deck = "*PART, NAME=P\n*NODE\n";
    for (int n = 1; n <= 20; ++n) deck += std::to_string(n) + ", " + std::to_string(n) + ", 0, 0\n";
    deck += elements + "*ELEMENT, TYPE=C3D8\n8, 1, 2, 3, 4, 5, 6, 7, N8\n*END PART\n";
    inp_Deck model;
    model.Parse(dir.Write("parts.inp", deck).c_str());
    model.ExpandKeywords();
    const cow_1DArrayList<inp_Keyword>& part = model.keywords[0].suboptions.Count() > 0
                                                   ? model.keywords[0].suboptions
                                                   : model.keywords;
    int packed = 0, raw = 0;
    for (int i = 0; i < part.Count(); ++i) {
        if (part[i].keyword != inp_kwElement) continue;
        packed += dynamic_cast<const inp_ElementDataArrayImpl*>(&part[i].data.ConstGet()) != nullptr;
        raw += dynamic_cast<const inp_RawDataArrayImpl*>(&part[i].data.ConstGet()) != nullptr;
    }
    EXPECT_EQ(packed, 1);
    EXPECT_EQ(raw, 1);
    aio_ostringstream printed;
    model.Print(printed);
    printed.flush();
    const std::string text = printed.str().c_str();
    EXPECT_NE(text.find("*element, type=C3D20, elset=E\n" + elements.substr(elements.find('\n') + 1)),
              std::string::npos)
        << text;
}

// A caller may hold the generators of a deck to fewer ids than the library's own limit;
// the next deck has the whole limit again.
TEST(DeckClassify, ACallersGenerationLimitHoldsForItsDeckAlone) {
    TempDir dir;
    const std::string path = dir.Write("gen.inp",
                                       "*NODE\n1, 0., 0., 0.\n100, 99., 0., 0.\n*NGEN, NSET=LINE\n1, 100, 1\n"
                                       "*NSET, NSET=MANY, GENERATE\n1, 50, 1\n*NSET, NSET=FEW, GENERATE\n1, 5, 1\n");
    auto refusals = [](const std::vector<std::string>& records, const std::string& limit) {
        std::vector<std::string> found;
        for (const std::string& r : records)
            for (const char* keyword : {"*NGEN", "*NSET"})
                if (r.find(std::string("The generation on the ") + keyword + " keyword gives more than " + limit +
                           " ids.") != std::string::npos)
                    found.push_back(keyword);
        return found;
    };
    {
        inp_Deck deck;
        deck.maxGeneratedIds = 20;
        deck.Parse(path.c_str());
        Sink().Clear();
        deck.ExpandKeywords();
        deck.Classify(true);
        EXPECT_EQ(refusals(inp_test::SinkRecords(), "20"), (std::vector<std::string>{"*NGEN", "*NSET"}))
            << ::testing::PrintToString(inp_test::SinkRecords());
        EXPECT_EQ(inp_Utils::MaxGeneratedIds(), inp_Utils::kMaxGeneratedIds);
    }
    inp_Deck deck;
    deck.Parse(path.c_str());
    Sink().Clear();
    deck.ExpandKeywords();
    deck.Classify(true);
    EXPECT_EQ(inp_test::SinkRecords(), std::vector<std::string>{});
    EXPECT_EQ(deck.partCoordinates.instances.ConstGet(cow_String("PART-1")).ConstGet().Count(), 100);
}
