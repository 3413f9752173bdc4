#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"

#include <string>
#include <vector>

#include "inp_Visitor.h"
#include "nex_Exception.h"
#include "wip_WIP.h"

namespace {

using inp_test::Make;

// Records every operation by its name; DefaultAction records the keyword value.
class RecordingVisitor : public inp_Visitor {
public:
#define INP_KEYWORD(Ident, name, value) \
    void Visit##Ident(inp_Keyword& k) override { ops.push_back(#Ident); inp_Visitor::Visit##Ident(k); }
#define INP_KEYWORD_SPECIAL(Ident, name, value)
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL

    std::vector<std::string> ops;
    std::vector<int> defaults;

protected:
    void DefaultAction(inp_Keyword& k) override { defaults.push_back(k.keyword); }
};

// Keeps a trace of the context fields at each DefaultAction.
class ContextVisitor : public inp_Visitor {
public:
    std::vector<std::string> trace;

protected:
    void DefaultAction(inp_Keyword& k) override {
        trace.push_back(std::string(k.Name().c_str()) + " part=" + partName.c_str() + " asm=" + assemblyName.c_str() +
                        " inst=" + instanceName.c_str() + " step=" + stepName.c_str() +
                        " depth=" + std::to_string(substructureDepth));
    }
};

}  // namespace

TEST(Visitor, EveryRowReachesItsOwnOperation) {
    int checked = 0;
#define INP_KEYWORD(Ident, name, value)                                   \
    {                                                                     \
        RecordingVisitor v;                                               \
        inp_Keyword k = Make(static_cast<inp_KeywordEnm>(value));         \
        v.Visit(k);                                                       \
        ASSERT_EQ(v.ops, std::vector<std::string>{#Ident}) << name;       \
        ++checked;                                                        \
    }
#define INP_KEYWORD_SPECIAL(Ident, name, value)
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL
    EXPECT_EQ(checked, 467);
}

TEST(Visitor, ExceptionRowsOfTheDispatch) {
    RecordingVisitor v;
    inp_Keyword modal = Make(inp_kwModalPrint);
    inp_Keyword latent = Make(inp_kwLatentHeat);
    v.Visit(modal);
    v.Visit(latent);
    EXPECT_EQ(v.ops, (std::vector<std::string>{"Print", "M1"}));
    EXPECT_EQ(v.defaults, (std::vector<int>{inp_kwModalPrint, inp_kwLatentHeat}));

    // Blank and root keywords: no operation, no DefaultAction, but their suboptions.
    for (inp_KeywordEnm holder : {inp_kwUndefined, inp_kwModel}) {
        RecordingVisitor w;
        inp_Keyword k = Make(holder);
        k.suboptions.Append(Make(inp_kwNode));
        w.Visit(k);
        EXPECT_EQ(w.ops, std::vector<std::string>{"Node"});
        EXPECT_EQ(w.defaults, std::vector<int>{inp_kwNode});
    }

    // eof and values without a row take the internal check.
    for (int bad : {static_cast<int>(inp_kwEof), 999, -5}) {
        RecordingVisitor w;
        inp_Keyword k = Make(static_cast<inp_KeywordEnm>(bad));
        try {
            w.Visit(k);
            ADD_FAILURE() << "no exception for " << bad;
        } catch (const nex_AssertException& e) {
            EXPECT_EQ(e.Condition(), "\"Check inp_keywords\" == 0");
        }
    }
}

TEST(Visitor, PreOrderWalkAndAppendsDuringTheWalk) {
    inp_Keyword step = Make(inp_kwStep, {{"name", "Step-1"}});
    inp_Keyword stat = Make(inp_kwStatic);
    stat.suboptions.Append(Make(inp_kwControls));
    step.suboptions.Append(stat);
    step.suboptions.Append(Make(inp_kwBoundary));
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwNode));
    list.Append(step);

    // A pass that appends a keyword when it meets *BOUNDARY: it is walked as well.
    class Appender : public RecordingVisitor {
    public:
        cow_1DArrayList<inp_Keyword>* list = nullptr;
        void VisitBoundary(inp_Keyword& k) override {
            RecordingVisitor::VisitBoundary(k);
            if (list->Count() == 2) list->Append(Make(inp_kwEndStep));
        }
    } v;
    v.list = &list;
    v.VisitList(list);
    EXPECT_EQ(v.ops, (std::vector<std::string>{"Node", "Step", "Static", "Controls", "Boundary", "EndStep"}));
}

TEST(Visitor, ContextFields) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwPart, {{"name", "P"}}));
    list.Append(Make(inp_kwNode));
    list.Append(Make(inp_kwEndPart));
    list.Append(Make(inp_kwPart));  // no name: no DefaultAction, name unchanged
    list.Append(Make(inp_kwAssembly, {{"name", "A"}}));
    list.Append(Make(inp_kwInstance, {{"instance", "I"}}));
    list.Append(Make(inp_kwInstance));  // neither name nor instance: name stays, DefaultAction runs
    list.Append(Make(inp_kwEndInstance));
    list.Append(Make(inp_kwEndAssembly));
    list.Append(Make(inp_kwAssembly));  // missing name (expansion reported it): empty
    list.Append(Make(inp_kwStep, {{"name", "S"}}));
    list.Append(Make(inp_kwSubstructurePath, {{"enterelement", "3"}}));
    list.Append(Make(inp_kwSubstructurePath, {{"enterelement", "3"}, {"leave", nullptr}}));
    list.Append(Make(inp_kwSubstructurePath, {{"leave", nullptr}}));
    list.Append(Make(inp_kwSubstructurePath, {{"leave", nullptr}}));  // at depth 0 stays 0
    list.Append(Make(inp_kwEndStep));
    ContextVisitor v;
    v.VisitList(list);
    const std::vector<std::string> expected = {
        "part part=P asm= inst= step= depth=0",
        "node part=P asm= inst= step= depth=0",
        "endpart part=P asm= inst= step= depth=0",
        "assembly part= asm=A inst= step= depth=0",
        "instance part= asm=A inst=I step= depth=0",
        "instance part= asm=A inst=I step= depth=0",
        "endinstance part= asm=A inst=I step= depth=0",
        "endassembly part= asm=A inst= step= depth=0",
        "assembly part= asm= inst= step= depth=0",
        "step part= asm= inst= step=S depth=0",
        "substructurepath part= asm= inst= step=S depth=1",
        "substructurepath part= asm= inst= step=S depth=1",
        "substructurepath part= asm= inst= step=S depth=1",
        "substructurepath part= asm= inst= step=S depth=0",
        "endstep part= asm= inst= step=S depth=0",
    };
    EXPECT_EQ(v.trace, expected);
    EXPECT_TRUE(v.stepName.IsEmpty());

    ContextVisitor w;
    w.instanceName = "KEEP";
    w.SetInstanceName(Make(inp_kwInstance));
    EXPECT_EQ(w.instanceName, "KEEP");
    w.SetInstanceName(Make(inp_kwInstance, {{"name", "N"}, {"instance", "I"}}));
    EXPECT_EQ(w.instanceName, "N");
    EXPECT_TRUE(w.trace.empty());
}

TEST(Visitor, ReportOrderAndLevels) {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    sink.Clear();
    RecordingVisitor v;
    v.seriousErrors.Append(atr_String("serious"));
    v.errors.Append(atr_String("e1")).Append(atr_String("e2"));
    v.warnings.Append(atr_String("w"));
    cow_1DArrayList<inp_Keyword> empty;
    v.VisitListAndReport(empty);
    ASSERT_EQ(sink.Count(), 4);
    EXPECT_FALSE(sink.Record(0).IsError());
    EXPECT_EQ(sink.Record(0).text, "w");
    EXPECT_EQ(sink.Record(1).text, "e1");
    EXPECT_EQ(sink.Record(1).level, 1);
    EXPECT_EQ(sink.Record(2).text, "e2");
    EXPECT_EQ(sink.Record(3).text, "serious");
    EXPECT_EQ(sink.Record(3).level, 2);
    EXPECT_EQ(v.errors.Count(), 2);  // lists stay
    sink.Clear();
    RecordingVisitor quiet;
    quiet.VisitListAndReport(empty);
    EXPECT_EQ(sink.Count(), 0);
}
