// libFuzzer target: any bytes as a part map file. A file is either refused whole (a
// message, a place inside the file, the map handed in untouched) or read whole, and a
// map that was read writes bytes that read back to the same bytes. Anything else, a
// crash, a sanitizer report, a leak or a hang is a finding.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "inpM_PartMapFile.h"

namespace {

void Finding(const char* what) {
    std::fprintf(stderr, "part map: %s\n", what);
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const inpM_PartMap sentinel(true, true, true, inpM_InstanceIdMaps(), inpM_InstanceIdMaps(), inpM_SetMap(),
                                       inpM_SetMap(), inpM_SurfaceMap(), cow_String("SENTINEL"),
                                       inpM_InstanceMap<cow_String>());
    inpM_PartMap map = sentinel;
    inpM_PartMapFile file;
    if (file.FromBytes(data, size, map) != inpM_PartMapFile::kNone) {
        if (file.message.IsEmpty()) Finding("refused without a message");
        if (file.offset < 0 || file.offset > static_cast<long long>(size)) Finding("refused at a place outside it");
        if (inpM_PartMapFile::ToBytes(map) != inpM_PartMapFile::ToBytes(sentinel)) Finding("half read");
        return 0;
    }
    const std::vector<unsigned char> written = inpM_PartMapFile::ToBytes(map);
    inpM_PartMap again;
    if (file.FromBytes(written.data(), written.size(), again) != inpM_PartMapFile::kNone)
        Finding("its own bytes are refused");
    if (inpM_PartMapFile::ToBytes(again) != written) Finding("its own bytes read back to another map");
    return 0;
}
