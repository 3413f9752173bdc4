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

// The bytes with the body length and the checksum made to fit: the checksum turns nearly
// every mutation away at the door, and this copy reaches the parser of the body.
std::vector<unsigned char> Repaired(const std::uint8_t* data, std::size_t size) {
    std::vector<unsigned char> bytes(data, data + size);
    if (size < 28) return bytes;
    const std::uint64_t length = size - 28;
    for (int i = 0; i < 8; ++i) bytes[12 + i] = static_cast<unsigned char>((length >> (8 * i)) & 0xff);
    const std::uint64_t checksum = inpM_PartMapFile::Checksum(bytes.data(), size - 8);
    for (int i = 0; i < 8; ++i) bytes[size - 8 + i] = static_cast<unsigned char>((checksum >> (8 * i)) & 0xff);
    return bytes;
}

void ReadOne(const std::uint8_t* data, std::size_t size) {
    static const inpM_PartMap sentinel(true, true, true, inpM_InstanceIdMaps(), inpM_InstanceIdMaps(), inpM_SetMap(),
                                       inpM_SetMap(), inpM_SurfaceMap(), cow_String("SENTINEL"),
                                       inpM_InstanceMap<cow_String>());
    inpM_PartMap map = sentinel;
    inpM_PartMapFile file;
    if (file.FromBytes(data, size, map) != inpM_PartMapFile::kNone) {
        if (file.message.IsEmpty()) Finding("refused without a message");
        if (file.offset < 0 || file.offset > static_cast<long long>(size)) Finding("refused at a place outside it");
        if (inpM_PartMapFile::ToBytes(map) != inpM_PartMapFile::ToBytes(sentinel)) Finding("half read");
        return;
    }
    const std::vector<unsigned char> written = inpM_PartMapFile::ToBytes(map);
    inpM_PartMap again;
    if (file.FromBytes(written.data(), written.size(), again) != inpM_PartMapFile::kNone)
        Finding("its own bytes are refused");
    if (inpM_PartMapFile::ToBytes(again) != written) Finding("its own bytes read back to another map");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ReadOne(data, size);
    const std::vector<unsigned char> repaired = Repaired(data, size);
    ReadOne(repaired.data(), repaired.size());
    return 0;
}
