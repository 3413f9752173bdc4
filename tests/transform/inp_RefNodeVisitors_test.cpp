// The reference, tracer and transformed nodes a driver collects before it carries a
// deck of instances into global axes.
#include <gtest/gtest.h>

#include "inp_TransformTesting.h"

using inp_test::Ids;
using inp_test::RenumberedModel;

namespace {

// Renumbered, the assembly's node 7 is 1, PUMP-1's nodes 1 to 5 are 2 to 6 and Q's are
// 7 to 11: the root first, then the instances in byte order.
const char* const kDeck =
    "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n5, 2., 0., 0.\n"
    "*ELEMENT, TYPE=T3D2, ELSET=BAR\n1, 1, 2\n*NSET, NSET=TOP\n3, 4\n*NSET, NSET=A\n5\n*END PART\n"
    "*ASSEMBLY, NAME=Assembly-1\n"
    "*INSTANCE, NAME=Pump-1, PART=P\n*END INSTANCE\n"
    "*INSTANCE, NAME=Q, PART=P\n"
    "*TRANSFORM, NSET=A\n1., 0., 0., 0., 1., 0.\n"
    "*TRANSFORM, NSET=Pump-1.A\n1., 0., 0., 0., 1., 0.\n"
    "*RIGID BODY, REF NODE=2, ELSET=BAR\n"
    "*RIGID BODY, REF NODE=TOP, ELSET=BAR\n"
    "*RIGID BODY, REF NODE=Pump-1.TOP, ELSET=BAR\n"
    "*END INSTANCE\n"
    "*NODE\n7, 5., 5., 5.\n"
    "*NSET, NSET=A\n7\n*NSET, NSET=\"Pump-1.A\"\nPump-1.1\n"
    "*TRANSFORM, NSET=A\n1., 0., 0., 0., 1., 0.\n"
    "*TRANSFORM, NSET=Pump-1.A\n1., 0., 0., 0., 1., 0.\n"
    "*TRANSFORM, NSET=\"Pump-1.A\"\n1., 0., 0., 0., 1., 0.\n"
    "*TRANSFORM, NSET=NONE\n1., 0., 0., 0., 1., 0.\n"
    "*RIGID BODY, REF NODE=7, ELSET=Pump-1.BAR\n"
    "*RIGID BODY, REF NODE=8, ELSET=Pump-1.BAR\n"
    "*RIGID BODY, REF NODE=Pump-1.3, ELSET=Pump-1.BAR\n"
    "*RIGID BODY, REF NODE=Assembly-1.Pump-1.3, ELSET=Pump-1.BAR\n"
    "*RIGID BODY, REF NODE=Pump-1.TOP, ELSET=Pump-1.BAR\n"
    "*RIGID BODY, REF NODE=Pump-1.9, ELSET=Pump-1.BAR\n"
    "*RIGID BODY, REF NODE=Nowhere.TOP, ELSET=Pump-1.BAR\n"
    "*KINEMATIC COUPLING, REF NODE=7\nPump-1.1, 1\n"
    "*END ASSEMBLY\n"
    "*STEP\n*STATIC\n"
    "*TRACER PARTICLE, TRACER SET=T1\n7, Pump-1.2\nPump-1.TOP\n"
    "*TRACER PARTICLE, TRACER SET=T2\n7\n"
    "*TRACER PARTICLE, TRACER SET=T1\nPump-1.5\n"
    "*TRACER PARTICLE\n7\n"
    "*END STEP\n";

}  // namespace

TEST(RefNodeVisitors, ReferenceNodesByIdAndSetInEveryScope) {
    RenumberedModel model(kDeck);
    inp_CollectRefNodesVisitor refs(model.nodeSets, model.nodeIds);
    refs.VisitList(model.deck.keywords);
    // Q: 2 and TOP of Q; PUMP-1.TOP inside Q names no set of Q. The assembly: 7, the
    // unknown 8 gives nothing, PUMP-1.3 twice (the assembly name in front is ignored),
    // PUMP-1.TOP, the unknown PUMP-1.9 and NOWHERE.TOP nothing,
    // and the kinematic coupling's 7 once more.
    EXPECT_EQ(Ids(refs.refNodes), (std::vector<int>{8, 9, 10, 1, 4, 4, 4, 5, 1}));
    EXPECT_EQ(refs.errors.Count() + refs.warnings.Count() + refs.seriousErrors.Count(), 0);
}

TEST(RefNodeVisitors, TracerSetsKeepTheLastKeywordOfTheirName) {
    RenumberedModel model(kDeck);
    inp_CollectRefNodesVisitor refs(model.nodeSets, model.nodeIds);
    refs.VisitList(model.deck.keywords);
    ASSERT_EQ(refs.tracerNodes.Count(), 2);
    EXPECT_EQ(Ids(refs.tracerNodes.ConstGet(cow_String("T1"))), (std::vector<int>{6}));
    EXPECT_EQ(Ids(refs.tracerNodes.ConstGet(cow_String("T2"))), (std::vector<int>{1}));

    // The first T1 alone: reading order, sets expanded.
    cow_1DArrayList<inp_Keyword> first;
    first.Append(inp_test::MakeWithData(inp_kwTracerParticle, {{"tracerset", "T1"}}, {"7, PUMP-1.2", "PUMP-1.TOP"}));
    inp_CollectRefNodesVisitor one(model.nodeSets, model.nodeIds);
    one.VisitList(first);
    EXPECT_EQ(Ids(one.tracerNodes.ConstGet(cow_String("T1"))), (std::vector<int>{1, 3, 4, 5}));
}

TEST(RefNodeVisitors, TransformedNodesTakeTheSetNameWhole) {
    RenumberedModel model(kDeck);
    ASSERT_EQ(model.records, std::vector<std::string>{});
    inp_CollectTransformedNodesVisitor transformed(model.nodeSets);
    transformed.VisitList(model.deck.keywords);
    // In Q: its own A (node 5 of Q); PUMP-1.A is no set of Q. At the assembly level: A;
    // PUMP-1.A is not split into PUMP-1's set A, only the quoted name "PUMP-1.A" finds
    // the set of that whole name; NONE adds nothing.
    EXPECT_EQ(Ids(transformed.transformedNodes), (std::vector<int>{11, 1, 2}));
}
