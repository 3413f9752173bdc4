// libFuzzer target: any bytes as a deck with up to three include files beside it (see
// inp_FuzzDeck.h), read down every phase of the library. A crash, a sanitizer report,
// a leak or a hang is a finding; messages in the error sink are the expected outcome.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "inp_FuzzDeck.h"
#include "inp_Library.h"

namespace {

std::string g_dir;

void RemoveSandbox() {
    std::error_code ec;
    std::filesystem::remove_all(g_dir, ec);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    int count = 0;
    inp_initialize(count);
    char pattern[] = "/tmp/inpdeck-fuzz-XXXXXX";
    if (!mkdtemp(pattern)) std::abort();
    g_dir = pattern;
    std::atexit(RemoveSandbox);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Relative include names are looked up in the current directory first: keep them
    // inside the sandbox. Not at start-up, where a -jobs parent would move its job logs
    // into the sandbox with it.
    static const bool inSandbox = chdir(g_dir.c_str()) == 0;
    if (!inSandbox) std::abort();
    inp_fuzz::RunDeck(g_dir, data, size);
    return 0;
}
