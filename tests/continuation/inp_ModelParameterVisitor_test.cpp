#include <gtest/gtest.h>

#include <string>

#include "inp.h"
#include "../support/inp_TestFiles.h"

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

// The record after reading, expanding and organizing a deck; the pass itself says nothing.
inp_ModelParameters ParametersOf(const std::string& text) {
    inp_test::TempDir dir;
    std::string path = dir.Write("deck.inp", "*HEADING\n" + text);
    inp_Deck deck;
    deck.Parse(path.c_str());
    deck.ExpandKeywords();
    deck.ReorganizeKeywords(false);
    Sink().Clear();
    deck.setModelParameters();
    EXPECT_EQ(Sink().Count(), 0) << text;
    return deck.modelParameters;
}

struct NumbersCase {
    const char* deck;
    int solutionVariables, temperaturePoints, sectionPoints;
};

TEST(ModelParameters, NumbersRiseFromOneAndNeverFall) {
    const NumbersCase cases[] = {
        {"", 1, 1, 1},
        {"*MATERIAL, NAME=M\n*DEPVAR\n0\n", 1, 1, 1},
        {"*MATERIAL, NAME=M\n*DEPVAR\n12\n*MATERIAL, NAME=N\n*DEPVAR\n5\n", 12, 1, 1},
        {"*MATERIAL, NAME=M\n*DEPVAR\n", 1, 1, 1},
        {"*SHELL GENERAL SECTION, ELSET=E, VARIABLES=20\n1.\n", 20, 1, 1},
        {"*USER ELEMENT, TYPE=U1, NODES=2, COORDINATES=3, VARIABLES=7\n1, 2\n", 7, 1, 1},
        {"*BEAM SECTION, SECTION=ARBITRARY, TEMPERATURE=VALUES, ELSET=E, MATERIAL=M\n4, 0., 0., 1., 0., 0.1\n", 1,
         5, 1},
        {"*BEAM SECTION, SECTION=RECT, TEMPERATURE=VALUES, ELSET=E, MATERIAL=M\n4, 5\n", 1, 1, 1},
        {"*SHELL SECTION, ELSET=E, MATERIAL=M, TEMPERATURE=3\n0.1, 7\n", 1, 3, 7},
        {"*SHELL SECTION, ELSET=E, COMPOSITE, TEMPERATURE=3\n0.1, 3, M\n0.1, 3, M\n0.1, 3, M\n0.1, 3, M\n", 1, 9, 9},
        // A blank or zero count of section points is the default of 3; layers share points.
        {"*SHELL SECTION, ELSET=E, COMPOSITE\n0.1, 5, STEEL\n0.2, , STEEL\n", 1, 1, 7},
        {"*SHELL SECTION, ELSET=E, COMPOSITE\n0.1\n0.2\n", 1, 1, 5},
        {"*SHELL SECTION, ELSET=E, MATERIAL=M, TEMPERATURE=GRADIENT\n0.1, 5\n", 1, 1, 5},
        {"*SHELL SECTION, ELSET=E, MATERIAL=M, TEMPERATURE=3\n", 1, 1, 1},
        // The larger value wins whichever comes first.
        {"*SHELL SECTION, ELSET=A, MATERIAL=M\n0.1, 9\n*SHELL SECTION, ELSET=B, MATERIAL=M\n0.1, 5\n", 1, 1, 9},
    };
    for (const NumbersCase& c : cases) {
        inp_ModelParameters p = ParametersOf(c.deck);
        EXPECT_EQ(p.maxSolutionVariables, c.solutionVariables) << c.deck;
        EXPECT_EQ(p.maxTemperaturePoints, c.temperaturePoints) << c.deck;
        EXPECT_EQ(p.maxSectionPoints, c.sectionPoints) << c.deck;
    }
}

TEST(ModelParameters, FlagsFollowTheKeywordsAndTheirOrder) {
    inp_ModelParameters empty = ParametersOf("");
    EXPECT_FALSE(empty.hasSymmetricModelGeneration || empty.hasThicknessTemperatures || empty.hasLeadingImport ||
                 empty.hasGeneralStatic || empty.hasImportedInstance);
    // Even an empty flat deck is converted into one part and its instance.
    EXPECT_TRUE(empty.hasPartsOrInstances);

    for (const char* type : {"DS4", "ds8", "S8RT"})
        EXPECT_TRUE(ParametersOf(std::string("*ELEMENT, TYPE=") + type + "\n1, 1, 2, 3, 4\n").hasThicknessTemperatures)
            << type;
    for (const char* type : {"S8R", "DS", "C3D8"})
        EXPECT_FALSE(ParametersOf(std::string("*ELEMENT, TYPE=") + type + "\n1, 1, 2, 3, 4\n").hasThicknessTemperatures)
            << type;

    EXPECT_TRUE(ParametersOf("*IMPORT\nE1\n*PART, NAME=P\n*END PART\n").hasLeadingImport);
    inp_ModelParameters late = ParametersOf(
        "*PART, NAME=P\n*END PART\n*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*END ASSEMBLY\n"
        "*IMPORT\nE1\n");
    EXPECT_FALSE(late.hasLeadingImport);
    EXPECT_TRUE(late.hasPartsOrInstances);
    EXPECT_FALSE(late.hasImportedInstance);

    const std::string step = "*STEP, PERTURBATION\n*STATIC\n*END STEP\n";
    EXPECT_FALSE(ParametersOf(step).hasGeneralStatic);
    EXPECT_TRUE(ParametersOf(step + "*STEP\n*STATIC\n*END STEP\n").hasGeneralStatic);
    EXPECT_TRUE(ParametersOf("*STEP\n*STATIC\n*END STEP\n").hasGeneralStatic);

    EXPECT_TRUE(ParametersOf("*SYMMETRIC MODEL GENERATION, REVOLVE\n").hasSymmetricModelGeneration);
}

TEST(ModelParameters, ASecondRunStartsFromTheRecord) {
    inp_test::TempDir dir;
    inp_Deck deck;
    deck.Parse(dir.Write("deck.inp", "*HEADING\n*MATERIAL, NAME=M\n*DEPVAR\n4\n").c_str());
    deck.ExpandKeywords();
    deck.modelParameters.maxSolutionVariables = 9;
    deck.setModelParameters();
    EXPECT_EQ(deck.modelParameters.maxSolutionVariables, 9);
    deck.modelParameters.maxSolutionVariables = 2;
    deck.setModelParameters();
    EXPECT_EQ(deck.modelParameters.maxSolutionVariables, 4);
    Sink().Clear();
}

}  // namespace
