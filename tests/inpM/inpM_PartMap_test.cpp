#include <gtest/gtest.h>

#include "inpM_PartMap.h"
#include "inpM_TestLists.h"

namespace {

cow_String S(const char* s) { return cow_String(s); }

}  // namespace

TEST(PartMap, CarriesTheModelAndDropsInternalSets) {
    inpM_SetMap nodeSets;
    nodeSets.InsertSet(S("USER"), CreateSet(List({1}), false, false).ConstGet());
    nodeSets.InsertNestedSet(S("PART-1-1"), S("_INTERNAL"), CreateSet(List({2}), true, false).ConstGet());
    inpM_IdMap nodeIds;
    nodeIds.Insert(5, 1);
    inpM_InstanceMap<cow_String> toPart;
    toPart.Insert(S("PART-1-1"), S("PART-1"));
    inpM_PartMap partMap(true, false, false, inpM_InstanceIdMaps(nodeIds), inpM_InstanceIdMaps(), nodeSets, nodeSets,
                         inpM_SurfaceMap(), S("Assembly-1"), toPart);
    EXPECT_TRUE(partMap.IsAssemblyModel());
    EXPECT_FALSE(partMap.HasFakeParts());
    EXPECT_EQ(partMap.AssemblyName(), S("Assembly-1"));
    EXPECT_EQ(partMap.InstanceToPart().ConstGet(S("PART-1-1")), S("PART-1"));
    EXPECT_EQ(inpM_IdMap(partMap.NodeIdMaps()).ConstGet(5), 1);

    partMap.RemoveRedundantInternalSets();
    EXPECT_TRUE(partMap.NodeSets().IsMember(S("USER")));
    EXPECT_FALSE(partMap.NodeSets().HasNestedSet(S("PART-1-1"), S("_INTERNAL")));
    EXPECT_FALSE(partMap.ElementSets().HasNestedSet(S("PART-1-1"), S("_INTERNAL")));
    EXPECT_TRUE(nodeSets.HasNestedSet(S("PART-1-1"), S("_INTERNAL")));  // the caller's map is not touched
}
