// The structural checks as a driver meets them: decks read, expanded and organized,
// then checked, with only what the check said left in the sink.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"

using inp_test::TempDir;

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

std::vector<std::string> Check(const std::string& text) {
    TempDir dir;
    inp_Deck deck;
    deck.Parse(dir.Write("deck.inp", text).c_str());
    deck.ExpandKeywords();
    deck.ReorganizeKeywords(false);
    Sink().Clear();
    deck.CheckOutOfPlace();
    return inp_test::SinkRecords();
}

const char kPart[] = "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n*END PART\n";
const std::string kPairs =
    "E1: Node and element data may only be defined in the instance or the part, not both.  The following "
    "instance/part pairs attempt to do so:\n";

}  // namespace

TEST(CheckOutOfPlace, NodesAndElementsBelongToThePartOrItsInstancesNotBoth) {
    struct Case {
        std::string deck;
        std::vector<std::string> records;
    };
    const Case cases[] = {
        {std::string(kPart) +
             "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*NODE\n2, 1., 0., 0.\n*END INSTANCE\n*END ASSEMBLY\n",
         {kPairs + " Instance: I Part:P"}},
        {"*PART, NAME=P\n*END PART\n*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*NODE\n2, 1., 0., 0.\n"
         "*END INSTANCE\n*END ASSEMBLY\n",
         {}},
        // Generators define too; a node set does not.
        {"*PART, NAME=P\n*NGEN\n1, 3\n*END PART\n*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*ELGEN\n1, 2\n"
         "*END INSTANCE\n*END ASSEMBLY\n",
         {kPairs + " Instance: I Part:P"}},
        {"*PART, NAME=P\n*NSET, NSET=N\n1\n*END PART\n*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*NODE\n"
         "2, 1., 0., 0.\n*END INSTANCE\n*END ASSEMBLY\n",
         {}},
        {std::string(kPart) +
             "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=J, PART=P\n*NODE\n2, 1., 0., 0.\n*END INSTANCE\n"
             "*INSTANCE, NAME=I, PART=P\n*NODE\n3, 1., 0., 0.\n*END INSTANCE\n*END ASSEMBLY\n",
         {kPairs + " Instance: I Part:P Instance: J Part:P"}},
        // An instance without a part, which expansion reported, is passed over.
        {std::string(kPart) + "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I\n*NODE\n2, 1., 0., 0.\n*END INSTANCE\n"
                              "*END ASSEMBLY\n",
         {}},
        {"*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D8\n1, 1, 1, 1, 1, 1, 1, 1, 1\n", {}},
    };
    for (const Case& c : cases) EXPECT_EQ(Check(c.deck), c.records) << c.deck;
}

TEST(CheckOutOfPlace, AnalyticalSurfacesAndTheirRigidBodies) {
    const std::string deck =
        "*PART, NAME=P\n"
        "*SURFACE, TYPE=CYLINDER, NAME=S\nSTART, 1., 0.\n"
        "*SURFACE, TYPE=CYLINDER, NAME=T\nSTART, 1., 0.\n"
        "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=S\n"
        "*END PART\n"
        "*PART, NAME=Q\n*SURFACE, TYPE=ELEMENT, NAME=E\n*END PART\n"
        "*ASSEMBLY, NAME=A\n"
        "*INSTANCE, NAME=I, PART=P\n"
        "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=T\n"
        "*SURFACE, TYPE=REVOLUTION, NAME=U\nSTART, 1., 0.\n"
        "*END INSTANCE\n"
        "*SURFACE, TYPE=CYLINDER, NAME=W\nSTART, 1., 0.\n"
        "*RIGID BODY, REF NODE=I.1, ANALYTICAL SURFACE=I.S\n"
        "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=X\n"
        "*RIGID BODY, REF NODE=1, ELSET=I.E, ANALYTICAL SURFACE=I.Z\n"
        "*RIGID BODY, REF NODE=1, ANALYTICAL SURFACE=I.Z\n"
        "*END ASSEMBLY\n";
    const std::string rigidPart =
        "E1: A part that contains a rigid body definition (part: P) cannot be referenced by an assembly-level rigid "
        "body definition. ";
    EXPECT_EQ(
        Check(deck),
        (std::vector<std::string>{
            "W: An assembly level rigid body definition references an assembly level analytical rigid surface (X). "
            "Analytical rigid surfaces must be defined at the part or part instance levels.",
            "W: Analytical rigid surface Z of part instance I is referenced by multiple rigid bodies. A part instance "
            "may contain only one analytical rigid surface and it is permitted to be referenced by only one rigid "
            "body definition.",
            "W: *SURFACE keyword defining analytical rigid surface T of part P is not associated with a rigid body "
            "definition.",
            "W: If a rigid body definition is defined at the part or part instance level, the corresponding "
            "analytical rigid surface definition must be defined at the same level. Analytical rigid surface T "
            "violates this rule with regard to part P and part instance I.",
            "W: *SURFACE keyword defining analytical rigid surface U of part instance I is not associated with a "
            "rigid body definition.",
            "W: Analytical rigid surface Z of part instance I is not defined, but is referenced by a rigid body "
            "definition at the assembly level.",
            "E1: Analytical rigid surface W was defined at the assembly level. Analytical rigid surfaces can only be "
            "defined within a part or part instance.",
            rigidPart,  // REF NODE=I.1
            rigidPart,  // ELSET=I.E
            "E1: Only one analytical surface is allowed per part. This rule is violated by part P",
        }));
}

TEST(CheckOutOfPlace, WritesItsTimingLineAtDebugLevelOne) {
    pnt_PrettyPrint& out = pnt_debugPrint();
    out.SetCapture(true);
    typ_DebugFlags::SetDebugFlags(30, 1);
    inp_Deck().CheckOutOfPlace();
    typ_DebugFlags::ResetDebugFlags();
    const std::string captured = out.Captured().c_str();
    out.ClearCaptured();
    out.SetCapture(false);
    EXPECT_NE(captured.find("inp_Deck.cpp:"), std::string::npos) << captured;
    EXPECT_NE(captured.find(": Checking out of place keywords - Elapsed time: "), std::string::npos) << captured;
}
