#include <gtest/gtest.h>

#include <string>

#include "fnd_Lifetime.h"
#include "inp_KeywordTable.h"
#include "inp.h"

namespace {
std::string Log() {
    std::string out;
    cow_1DArrayList<cow_String> log = fnd_LifetimeLog();
    for (int i = 0; i < log.Count(); ++i) out += std::string(log.ConstGet(i).c_str()) + " ";
    return out;
}
}  // namespace

TEST(Library, InitialiseTwiceCountsOnceAndFinalisesOnTheLastCall) {
    ASSERT_EQ(inp_initializeCount(), 0);
    fnd_ClearLifetimeLog();
    int count = 0;
    inp_initialize(count);
    inp_initialize(count);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(inp_initializeCount(), 2);
    std::string up = Log();
    EXPECT_EQ(up.find("mem_initialize typ_initialize thr_initialize pnt_initialize omni_initialize atr_initialize "
                      "cow_initialize nex_initialize wip_initialize utl_initialize uti_initialize inpM_initialize "
                      "shp_initialize gsl_initialize "),
              0u)
        << up;
    EXPECT_EQ(up.find("mem_initialize", 1), std::string::npos) << "initialisers ran twice";

    thr_ThreadSingleton<inp_KeywordTable>::Instance();
    fnd_ClearLifetimeLog();
    inp_finalize(count);
    EXPECT_EQ(Log(), "");  // not the last call
    EXPECT_TRUE(thr_ThreadSingleton<inp_KeywordTable>::Exists());
    inp_finalize(count);
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(thr_ThreadSingleton<inp_KeywordTable>::Exists());
    EXPECT_EQ(Log().find("gsl_finalize shp_finalize inpM_finalize"), 0u);
    inp_finalize(count);  // one too many: nothing happens
    EXPECT_EQ(count, 0);
}

TEST(Deck, StartsEmptyWithModelParametersAtTheirStartValues) {
    inp_Deck deck;
    EXPECT_TRUE(deck.partMapUsable);
    EXPECT_FALSE(deck.isAssemblyDeck);
    EXPECT_EQ(deck.partCoordinates.Count(), 0);
    EXPECT_EQ(deck.assemblyCoordinates.Count(), 0);
    EXPECT_TRUE(deck.assemblyNodeSets.IsEmpty());
    EXPECT_EQ(deck.nodeIdMap.NumberIds(), 0);
    EXPECT_EQ(deck.secondElementIdMap.NumberIds(), 0);
    const inp_ModelParameters& p = deck.modelParameters;
    EXPECT_EQ(p.maxSolutionVariables, 1);
    EXPECT_EQ(p.maxTemperaturePoints, 1);
    EXPECT_EQ(p.maxSectionPoints, 1);
    EXPECT_FALSE(p.hasSymmetricModelGeneration || p.hasThicknessTemperatures || p.hasLeadingImport ||
                 p.hasGeneralStatic || p.hasImportedInstance || p.hasPartsOrInstances);
}
