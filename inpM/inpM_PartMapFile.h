// inpM_PartMapFile: an inpM_PartMap on disk, for a driver that keeps the model of one
// job for the next.
//
// The format is the project's own, told in full in docs/partmap-format.md: a magic
// header, a format version, the length of the body, the body (the three flags, the id
// maps, the sets, the surfaces, the assembly's name, the instance-to-part map) and a
// checksum over all that stands before it. A file is written whole or not at all (a
// temporary beside it, renamed at the end), and read whole or not at all: a file that
// is truncated, corrupt, of another kind or of a newer version is refused with a
// message that says which and at what byte, and the map handed in stays as it was.
//
// Every count in a file is checked against the bytes left before anything is made of
// it, so a damaged file costs no more memory than its own size.
#ifndef INPM_PARTMAPFILE_H
#define INPM_PARTMAPFILE_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "cow_String.h"
#include "inpM_PartMap.h"

class inpM_PartMapFile {
public:
    // What was wrong with the last file read or written.
    enum Problem { kNone = 0, kUnreadable, kTruncated, kCorrupt, kForeign, kNewerVersion };

    static const std::uint32_t kFormatVersion = 1;
    // The bytes every part map file begins with.
    static const char kMagic[8];

    static std::vector<unsigned char> ToBytes(const inpM_PartMap& map);
    // The checksum of a file over its first `size` bytes, everything before the checksum.
    static std::uint64_t Checksum(const unsigned char* bytes, std::size_t size);
    // `name` names the bytes in messages. On any problem `map` is left alone.
    Problem FromBytes(const unsigned char* bytes, std::size_t size, inpM_PartMap& map,
                      const cow_String& name = cow_String("part map"));

    bool Write(const cow_String& path, const inpM_PartMap& map);
    Problem Read(const cow_String& path, inpM_PartMap& map);

    Problem problem = kNone;
    // The byte at which the problem was found.
    long long offset = 0;
    // One line for the user: the file, what is wrong and where.
    cow_String message;

private:
    Problem Fail(Problem kind, long long at, const cow_String& text);
};

#endif
