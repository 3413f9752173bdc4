#include <gtest/gtest.h>

#include <thread>

#include "omi_Timer.h"
#include "pnt_PrettyPrint.h"
#include "typ_DebugFlags.h"

TEST(TypDebugFlags, LevelsPerFlag) {
    typ_DebugFlags::SetDebugFlags(30, 2);
    typ_DebugFlags::SetDebugFlags(typ_DebugFlags::kFlagCount, 5);  // ignored
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 2);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(29), 0);
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(typ_DebugFlags::kFlagCount), 0);
    typ_DebugFlags::ResetDebugFlags();
    EXPECT_EQ(typ_DebugFlags::GetDebugFlags(30), 0);
}

TEST(PntPrettyPrint, BlocksPrefixTheirLinesPerThread) {
    pnt_PrettyPrint& out = pnt_debugPrint();
    out.SetCapture(true);
    out.ClearCaptured();
    out << "plain " << 1 << endl;
    out.StartDebug("/src/inp/impl/frame/inp_Deck.cpp", 210);
    out << "Expand Keywords - Elapsed time: " << 0.25 << "  CPU time: " << 0.125 << endl;
    out << cow_String("s") << ' ' << -3 << ' ' << 7u << ' ' << 8L << ' ' << 1e-7 << endl;
    out.StartDebug("C:\\build\\inp_Parser.cpp", 7);
    out << "inner";  // left open: the block's end ends it
    out.EndDebug();
    out << "outer again";
    std::thread([] { pnt_debugPrint() << "another thread's line, not captured here"; }).join();
    out.EndDebug();
    out.EndDebug();  // one too many: harmless
    out << "after" << endl;
    out.Flush();  // no line open: no empty line
    EXPECT_EQ(out.Captured(),
              "plain 1\n"
              "inp_Deck.cpp:210: Expand Keywords - Elapsed time: 0.25  CPU time: 0.125\n"
              "inp_Deck.cpp:210: s -3 7 8 1e-07\n"
              "inp_Parser.cpp:7: inner\n"
              "inp_Deck.cpp:210: outer again\n"
              "after\n");
    out.ClearCaptured();
    out.SetCapture(false);
}

TEST(OmiTimer, ReadsAreFixedByStop) {
    omi_Timer timer;
    EXPECT_EQ(timer.GetElapsedTime(), 0.0);  // never started
    timer.Start();
    double running = timer.GetElapsedTime();
    timer.Stop();
    double elapsed = timer.GetElapsedTime(), cpu = timer.GetTotalCpuTime();
    EXPECT_GE(elapsed, running);
    EXPECT_GE(cpu, 0.0);
    volatile double sink = 0;
    for (int i = 0; i < 100000; ++i) sink = sink + i;
    timer.Stop();
    EXPECT_EQ(timer.GetElapsedTime(), elapsed);
    EXPECT_EQ(timer.GetTotalCpuTime(), cpu);
}
