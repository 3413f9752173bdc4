// libFuzzer target: any bytes as a deck (see inp_FuzzDeck.h), read and expanded, then
// printed and read back. A deck whose printed text reads back to other keywords is a
// finding, as a crash, a sanitizer report, a leak or a hang is.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "inp_FuzzDeck.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    inp_fuzz::Initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    inp_fuzz::EnterSandbox();
    const std::string problem = inp_fuzz::RoundTrip(inp_fuzz::Sandbox(), data, size);
    if (!problem.empty()) {
        std::fprintf(stderr, "round trip: the printed deck %s\n", problem.c_str());
        std::abort();
    }
    return 0;
}
