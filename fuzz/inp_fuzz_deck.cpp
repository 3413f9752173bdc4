// libFuzzer target: any bytes as a deck with up to three include files beside it (see
// inp_FuzzDeck.h), read down every phase of the library. A crash, a sanitizer report,
// a leak or a hang is a finding; messages in the error sink are the expected outcome.
#include <cstdint>

#include "inp_FuzzDeck.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    inp_fuzz::Initialize();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    inp_fuzz::EnterSandbox();
    inp_fuzz::RunDeck(inp_fuzz::Sandbox(), data, size);
    // Messages left in the sink past the input look like a leak to the fuzzer, which
    // then runs the input a second time under the leak checker.
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
    return 0;
}
