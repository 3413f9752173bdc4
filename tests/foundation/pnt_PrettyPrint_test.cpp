#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "omi_Timer.h"
#include "pnt_PrettyPrint.h"
#include "typ_DebugFlags.h"

TEST(TypDebugFlags, LevelsPerFlag) {
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 0);
    typ_DebugFlags::SetDebugFlags(30, 2);
    typ_DebugFlags::SetDebugFlags(31, 1);
    typ_DebugFlags::SetDebugFlags(typ_DebugFlags::kFlagCount, 5);  // ignored
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 2);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(31), 1);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(29), 0);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(typ_DebugFlags::kFlagCount), 0);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(0xffffffffu), 0);
    int fromThread = -1;
    std::thread t([&] { fromThread = typ_DebugFlags::GetDebugFlags(30); });
    t.join();
    EXPECT_EQ(fromThread, 2);  // process-wide
    typ_DebugFlags::ResetDebugFlags();
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 0);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(31), 0);
}

TEST(PntPrettyPrint, BlocksPrefixTheirLines) {
    pnt_PrettyPrint& out = pnt_debugPrint();
    out.SetCapture(true);
    out.ClearCaptured();

    out << "plain " << 1 << endl;
    out.StartDebug("/src/inp/impl/inp_Deck.cpp", 210);
    out << "Expand Keywords - Elapsed time: " << 0.25 << "  CPU time: " << 0.125 << endl;
    out << cow_String("second") << ' ' << -3 << ' ' << 7u << ' ' << 8L << endl;
    out.StartDebug("C:\\build\\inp_Parser.cpp", 7);
    out << "inner";  // left open: the next block boundary ends it
    out.EndDebug();
    out << "outer again" << endl;
    out << "open at the end";
    out.EndDebug();
    out.EndDebug();  // one too many: harmless
    out << "after" << endl;
    out.Flush();     // no line open: writes nothing
    out.StartDebug(nullptr, 0);
    out << 1e-7 << endl;
    out.EndDebug();

    EXPECT_EQ(out.Captured(),
              "plain 1\n"
              "inp_Deck.cpp:210: Expand Keywords - Elapsed time: 0.25  CPU time: 0.125\n"
              "inp_Deck.cpp:210: second -3 7 8\n"
              "inp_Parser.cpp:7: inner\n"
              "inp_Deck.cpp:210: outer again\n"
              "inp_Deck.cpp:210: open at the end\n"
              "after\n"
              ":0: 1e-07\n");
    out.ClearCaptured();
    out.SetCapture(false);
}

TEST(PntPrettyPrint, EachThreadHasItsOwnStream) {
    pnt_PrettyPrint& mine = pnt_debugPrint();
    mine.SetCapture(true);
    mine.ClearCaptured();
    mine << "half a line from main";
    pnt_PrettyPrint* theirs = nullptr;
    cow_String theirText;
    std::thread t([&] {
        theirs = &pnt_debugPrint();
        theirs->SetCapture(true);
        *theirs << "thread line" << endl;
        theirText = theirs->Captured();
        theirs->SetCapture(false);
    });
    t.join();
    EXPECT_NE(theirs, &mine);
    EXPECT_EQ(theirText, "thread line\n");
    mine << endl;
    EXPECT_EQ(mine.Captured(), "half a line from main\n");
    mine.ClearCaptured();
    mine.SetCapture(false);
}

TEST(OmiTimer, ReadsAreFixedByStop) {
    omi_Timer never;
    EXPECT_EQ(never.GetElapsedTime(), 0.0);
    EXPECT_EQ(never.GetTotalCpuTime(), 0.0);

    omi_Timer timer;
    timer.Start();
    double running1 = timer.GetElapsedTime();
    volatile double sink = 0;
    for (int i = 0; i < 100000; ++i) sink = sink + i;
    double running2 = timer.GetElapsedTime();
    EXPECT_GE(running1, 0.0);
    EXPECT_GE(running2, running1);  // the clock is steady
    timer.Stop();
    double elapsed = timer.GetElapsedTime();
    double cpu = timer.GetTotalCpuTime();
    EXPECT_GE(elapsed, running2);
    EXPECT_GE(cpu, 0.0);
    for (int i = 0; i < 100000; ++i) sink = sink + i;
    EXPECT_EQ(timer.GetElapsedTime(), elapsed);
    EXPECT_EQ(timer.GetTotalCpuTime(), cpu);
    timer.Stop();  // a second Stop keeps the first reading
    EXPECT_EQ(timer.GetElapsedTime(), elapsed);
}
