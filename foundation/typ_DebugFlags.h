// Debug flags: one integer level per numbered flag, 0 unless a driver sets it.
//
// Each library of the product owns a flag number; this library asks only for flag 30
// (level 1: a timing line per phase, level 2: per-keyword lines as well). The levels
// are process-wide and read without a lock, so a pass may ask as often as it likes.
#ifndef TYP_DEBUGFLAGS_H
#define TYP_DEBUGFLAGS_H

class typ_DebugFlags {
public:
    // Flags at or above kFlagCount always read 0, and setting them has no effect.
    static const unsigned kFlagCount = 256;

    static int GetDebugFlags(unsigned flag);
    static void SetDebugFlags(unsigned flag, int level);
    // Every flag back to 0.
    static void ResetDebugFlags();
};

#endif
