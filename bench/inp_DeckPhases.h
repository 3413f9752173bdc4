// The road of one deck as the benchmark, the fuzzer and the corpus replay walk it: the
// phases of inp_Deck that exist, in the order a driver calls them.
//
// A new phase is one more row in kDeckPhases, in driver order; all three tools pick it
// up from here.
#ifndef INP_DECKPHASES_H
#define INP_DECKPHASES_H

#include <cstddef>

#include "aio_ostream.h"
#include "inp_Deck.h"

namespace inp_phases {

// Counts what is printed and keeps none of it, so that printing is timed without a
// file system or a growing string behind it.
class NullStream : public aio_ostream {
public:
    NullStream() : aio_ostream(64 * 1024) {}
    ~NullStream() override { FlushBuffer(); }
    std::size_t Bytes() const { return m_bytes; }

protected:
    bool Sink(const char*, std::size_t size) override {
        m_bytes += size;
        return true;
    }

private:
    std::size_t m_bytes = 0;
};

struct Phase {
    const char* name;
    void (*run)(inp_Deck& deck, const char* file);
    // Part of reading a deck in, which the benchmark holds to a multiple of the plain
    // fgets reader; printing is not.
    bool reads;
};

inline void RunParse(inp_Deck& deck, const char* file) { deck.Parse(cow_String(file)); }
inline void RunPrint(inp_Deck& deck, const char*) {
    NullStream out;
    deck.Print(out);
    out.flush();
}

const Phase kDeckPhases[] = {
    {"Parse", RunParse, true},
    {"ExpandKeywords", [](inp_Deck& d, const char*) { d.ExpandKeywords(); }, true},
    {"Classify", [](inp_Deck& d, const char*) { d.Classify(true); }, false},
    {"CheckOutOfPlace", [](inp_Deck& d, const char*) { d.CheckOutOfPlace(); }, false},
    {"setModelParameters", [](inp_Deck& d, const char*) { d.setModelParameters(); }, false},
    {"Print", RunPrint, false},
};
const int kDeckPhaseCount = static_cast<int>(sizeof kDeckPhases / sizeof kDeckPhases[0]);

}  // namespace inp_phases

#endif
