// The layer nodes of stacked elements: made behind the node and element passes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_ElementVisitor.h"
#include "inp_NodeGenerationVisitor.h"
#include "inp_NodeVisitor.h"

using inp_test::In;
using inp_test::MakeWithData;
using inp_test::Params;
using inp_test::ToVector;

namespace {

// The node and element passes over part P, then the node generation pass.
struct Walk {
    Walk(const std::vector<const char*>& nodeLines, const Params& elementParams,
         const std::vector<const char*>& elementLines)
        : nodes(true), elements(true) {
        nodes.partName = elements.partName = cow_String("P");
        nodes.coordMap.instances.Insert(cow_String("P"), inp_CoordMap::Handle(new inp_CoordMap()));
        elements.elements.Insert(cow_String("P"), omi_IntTable<inp_Element>());
        inp_Keyword node = MakeWithData(inp_kwNode, {}, nodeLines);
        nodes.VisitNode(node);
        element = MakeWithData(inp_kwElement, elementParams, elementLines);
        elements.VisitElement(element);
    }
    inp_NodeGenerationVisitor Generation() const {
        inp_NodeGenerationVisitor g(nodes.coordMap, elements.elements, elements.setMap, true, false, true,
                                    cow_String());
        g.partName = cow_String("P");
        return g;
    }
    inp_NodeVisitor nodes;
    inp_ElementVisitor elements;
    inp_Keyword element;
};

const inp_CoordMap& Part(const inp_NodeGenerationVisitor& g) {
    return g.coordMap.instances.ConstGet(cow_String("P")).ConstGet();
}

}  // namespace

TEST(NodeGenerationVisitor, AsymmetricLayersTakeTheBottomCoordinates) {
    Walk w({"1, 1., 0., 0.", "2, 2., 0., 0.", "3, 3., 0., 0.", "4, 4., 0., 0.", "5, 5., 0., 0.", "6, 6., 0., 0.",
            "7, 7., 0., 0.", "8, 8., 0., 0.", "100001, 9., 9., 9."},
           {{"type", "CAXA81"}}, {"1, 1, 2, 3, 4, 5, 6, 7, 8"});
    inp_NodeGenerationVisitor g = w.Generation();
    g.VisitElement(w.element);
    EXPECT_TRUE(g.errors.IsEmpty());
    for (int k = 1; k <= 8; ++k) {
        ASSERT_TRUE(Part(g).HasId(100000 + k)) << k;
        EXPECT_EQ(Part(g).ConstGet(100000 + k).x, static_cast<double>(k)) << k;
    }
    EXPECT_EQ(Part(g).ConstGet(100001).y, 0.0);  // what *NODE gave is replaced
}

TEST(NodeGenerationVisitor, GasketLayersAreMadeOnlyWhereMissing) {
    Walk w({"1, 1., 0., 0.", "2, 2., 0., 0.", "3, 3., 0., 0.", "4, 4., 0., 0.", "101, 7., 7., 7."},
           {{"type", "GK3D8"}, {"offset", "100"}}, {"1, 1, 2, 3, 4"});
    inp_NodeGenerationVisitor g = w.Generation();
    g.VisitElement(w.element);
    EXPECT_EQ(Part(g).ConstGet(101).x, 7.0);
    ASSERT_TRUE(Part(g).HasId(104));
    EXPECT_EQ(Part(g).ConstGet(104).x, 0.0);
    EXPECT_TRUE(g.errors.IsEmpty());
}

TEST(NodeGenerationVisitor, IncompleteStacksAreReported) {
    Walk w({"1, 1., 0., 0."}, {{"type", "CAXA81"}}, {"1, 1, 2, 3, 4, 5, 6, 7, 8"});
    // A deck whose element lines do not match what the element pass stored.
    inp_Keyword changed = MakeWithData(inp_kwElement, {{"type", "CAXA81"}}, {"1, 1, 2, 3, 4"});
    inp_NodeGenerationVisitor g = w.Generation();
    g.VisitElement(changed);
    inp_Keyword unknown = MakeWithData(inp_kwElement, {{"type", "NOPE"}}, {"1, 1"});
    g.VisitElement(unknown);
    EXPECT_EQ(ToVector(g.errors),
              (std::vector<std::string>{
                  In("ELEMENT", "Internal error: number of nodes in asymmetric element of type \"CAXA81\", number = 1 "
                                "is less than expected:\n1, 2, 3, 4"),
                  In("ELEMENT", "Element type NOPE is not supported.")}));
}
