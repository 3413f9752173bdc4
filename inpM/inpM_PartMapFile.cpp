#include "inpM_PartMapFile.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "cow_Map.h"

const char inpM_PartMapFile::kMagic[8] = {'I', 'N', 'P', 'D', 'P', 'M', 'A', 'P'};

namespace {

// The fixed fields: magic, version, body length; the checksum follows the body.
constexpr std::size_t kVersionAt = 8;
constexpr std::size_t kLengthAt = 12;
constexpr std::size_t kHeaderSize = 20;
constexpr std::size_t kChecksumSize = 8;
// Scopes nest one level in practice; a deeper file is damaged, and the reader's stack
// must not follow it down.
constexpr int kMaxDepth = 32;

enum SetKind : unsigned char { kSortedSet = 0, kUnsortedSet = 1 };

// ---- writing

class Writer {
public:
    std::vector<unsigned char> bytes;

    void U8(unsigned v) { bytes.push_back(static_cast<unsigned char>(v)); }
    void U32(std::uint32_t v) {
        for (int i = 0; i < 4; ++i) U8((v >> (8 * i)) & 0xff);
    }
    void U64(std::uint64_t v) {
        for (int i = 0; i < 8; ++i) U8(static_cast<unsigned>((v >> (8 * i)) & 0xff));
    }
    void I32(int v) { U32(static_cast<std::uint32_t>(v)); }
    void F64(double v) {
        std::uint64_t bits;
        std::memcpy(&bits, &v, sizeof bits);
        U64(bits);
    }
    void Count(int n) { U32(static_cast<std::uint32_t>(n)); }
    void Text(const cow_String& s) {
        Count(s.Length());
        bytes.insert(bytes.end(), s.c_str(), s.c_str() + s.Length());
    }
    void Ids(const cow_1DArrayList<int>& ids) {
        Count(ids.Count());
        for (int i = 0; i < ids.Count(); ++i) I32(ids[i]);
    }

    void IdMaps(const inpM_InstanceIdMaps& maps) {
        Ids(maps.oldIds);
        Ids(maps.newIds);
        Count(maps.instances.Count());
        cow_ConstMapSortedIt<cow_String, inpM_InstanceIdMaps::Handle> it(maps.instances);
        for (it.First(); !it.IsDone(); it.Next()) {
            Text(it.CurrentKey());
            IdMaps(it.CurrentValue().ConstGet());
        }
    }

    void InstanceIds(const cow_Map<cow_String, cow_1DArrayList<int>>& byInstance) {
        Count(byInstance.Count());
        cow_ConstMapSortedIt<cow_String, cow_1DArrayList<int>> it(byInstance);
        for (it.First(); !it.IsDone(); it.Next()) {
            Text(it.CurrentKey());
            Ids(it.CurrentValue());
        }
    }

    void SortedLevels(const inpM_SortedSet& set) {
        Ids(set.ConstGetTopLevelIds());
        InstanceIds(set.ConstGetInstanceIdsMap());
        const cow_List<cow_String> nested = set.NestedSetNames();
        Count(nested.Count());
        for (int i = 0; i < nested.Count(); ++i) {
            Text(nested[i]);
            U8(set.ConstGetNestedSet(nested[i]).IsInternal());
            SortedLevels(set.ConstGetNestedSet(nested[i]));
        }
    }

    void Set(const inpM_BaseSet& set) {
        U8(set.IsUnsorted() ? kUnsortedSet : kSortedSet);
        U8(set.IsInternal());
        U8(set.renumbered);
        if (const inpM_SortedSet* sorted = dynamic_cast<const inpM_SortedSet*>(&set)) {
            SortedLevels(*sorted);
            return;
        }
        Ids(set.ConstGetTopLevelIds());
        InstanceIds(set.ConstGetInstanceIdsMap());
    }

    void SetMap(const inpM_SetMap& sets) {
        Count(sets.Count());
        cow_ConstMapSortedIt<cow_String, inpM_SetHandle> it(sets);
        for (it.First(); !it.IsDone(); it.Next()) {
            Text(it.CurrentKey());
            Set(it.CurrentValue().ConstGet());
        }
        Count(sets.instances.Count());
        cow_ConstMapSortedIt<cow_String, inpM_SetMap::Handle> scopes(sets.instances);
        for (scopes.First(); !scopes.IsDone(); scopes.Next()) {
            Text(scopes.CurrentKey());
            SetMap(scopes.CurrentValue().ConstGet());
        }
    }

    void NodeAreas(const inpM_NodeAreaList& nodes) {
        Count(nodes.Count());
        inpM_NodeAreaListIT it(nodes);
        for (it.First(); !it.IsDone(); it.Next()) {
            I32(it.CurrentKey());
            F64(it.CurrentValue());
        }
    }

    void Surface(const inpM_PartInstanceSurface& surface) {
        U8(surface.SurfaceType());
        U8(surface.internal);
        if (surface.SurfaceType() == inpM_ElementSurface) InstanceIds(surface.ConstGetFaceIdElementIdsMap());
        if (surface.SurfaceType() == inpM_NodeSurface) NodeAreas(surface.ConstGetNodeAreaList());
    }

    void Surfaces(const cow_Map<cow_String, inpM_SurfaceHandle>& surfaces) {
        Count(surfaces.Count());
        cow_ConstMapSortedIt<cow_String, inpM_SurfaceHandle> it(surfaces);
        for (it.First(); !it.IsDone(); it.Next()) {
            Text(it.CurrentKey());
            Surface(it.CurrentValue().ConstGet());
        }
    }

    void SurfaceMap(const inpM_SurfaceMap& map) {
        Count(map.partInstanceSurfaces.Count());
        cow_ConstMapSortedIt<cow_String, inpM_PartInstanceSurfaceMap> scopes(map.partInstanceSurfaces);
        for (scopes.First(); !scopes.IsDone(); scopes.Next()) {
            Text(scopes.CurrentKey());
            Surfaces(scopes.CurrentValue());
        }
        Count(map.assemblyInstanceSurfaces.Count());
        cow_ConstMapSortedIt<cow_String, inpM_AssemblyInstanceSurface> it(map.assemblyInstanceSurfaces);
        for (it.First(); !it.IsDone(); it.Next()) {
            const inpM_AssemblyInstanceSurface& surface = it.CurrentValue();
            Text(it.CurrentKey());
            U8(surface.internal);
            Surfaces(surface.instanceSurfaces);
            U8(surface.assemblyNodes.internal);
            NodeAreas(surface.assemblyNodes.ConstGetNodeAreaList());
        }
    }

    void InstanceMap(const inpM_InstanceMap<cow_String>& map) {
        U8(map.item.HasValue());
        if (map.item.HasValue()) Text(map.item.ConstGet());
        const cow_List<cow_String> names = map.Instances();
        Count(names.Count());
        for (int i = 0; i < names.Count(); ++i) {
            Text(names[i]);
            InstanceMap(map.instances->ConstGet(names[i]));
        }
    }
};

// ---- reading

// A damaged body: the byte where reading stopped and why.
struct BodyError {
    std::size_t at;
    const char* what;
};

class Reader {
public:
    Reader(const unsigned char* bytes, std::size_t end, std::size_t at) : m_bytes(bytes), m_end(end), m_at(at) {}

    std::size_t At() const { return m_at; }
    std::size_t Left() const { return m_end - m_at; }

    unsigned U8() {
        Need(1, "a field runs past the end of the body");
        return m_bytes[m_at++];
    }
    bool Flag() {
        const std::size_t at = m_at;
        const unsigned v = U8();
        if (v > 1) throw BodyError{at, "a flag is neither 0 nor 1"};
        return v == 1;
    }
    std::uint32_t U32() {
        Need(4, "a field runs past the end of the body");
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i) v |= static_cast<std::uint32_t>(m_bytes[m_at++]) << (8 * i);
        return v;
    }
    std::uint64_t U64() {
        const std::uint64_t low = U32();
        return low | (static_cast<std::uint64_t>(U32()) << 32);
    }
    int I32() { return static_cast<int>(U32()); }
    double F64() {
        const std::uint64_t bits = U64();
        double v;
        std::memcpy(&v, &bits, sizeof v);
        return v;
    }
    // A count of entries of at least `entrySize` bytes each, which the bytes left must hold.
    int Count(std::size_t entrySize) {
        const std::size_t at = m_at;
        const std::uint32_t n = U32();
        if (n > 0x7fffffffu || static_cast<std::uint64_t>(n) * entrySize > Left())
            throw BodyError{at, "a count is larger than the bytes that follow it"};
        return static_cast<int>(n);
    }
    cow_String Text() {
        const int n = Count(1);
        cow_String s(reinterpret_cast<const char*>(m_bytes + m_at), n);
        m_at += static_cast<std::size_t>(n);
        return s;
    }
    cow_1DArrayList<int> Ids() {
        const int n = Count(4);
        cow_1DArrayList<int> ids(n);
        for (int i = 0; i < n; ++i) ids.Append(I32());
        return ids;
    }
    // A name that must not stand twice in its map.
    template <class Map>
    cow_String Key(const Map& map) {
        const std::size_t at = m_at;
        cow_String name = Text();
        if (map.IsMember(name)) throw BodyError{at, "a name stands twice in one map"};
        return name;
    }

    void IdMaps(inpM_InstanceIdMaps& maps, int depth) {
        Deeper(depth);
        maps.oldIds = Ids();
        const std::size_t at = m_at;
        maps.newIds = Ids();
        if (maps.newIds.Count() != maps.oldIds.Count()) throw BodyError{at, "an id map has unpaired ids"};
        const int n = Count(16);
        for (int i = 0; i < n; ++i) {
            const cow_String name = Key(maps.instances);
            inpM_InstanceIdMaps child;
            IdMaps(child, depth + 1);
            maps.instances.Insert(name, inpM_InstanceIdMaps::Handle(new inpM_InstanceIdMaps(child)));
        }
    }

    template <class SetT>
    void InstanceIds(SetT& set) {
        const int n = Count(8);
        cow_Map<cow_String, cow_1DArrayList<int>> seen;
        for (int i = 0; i < n; ++i) {
            const cow_String name = Key(seen);
            const cow_1DArrayList<int> ids = Ids();
            seen.Insert(name, ids);
            set.Add(name, ids);
        }
    }

    void SortedLevels(inpM_SortedSet& set, int depth) {
        Deeper(depth);
        set.Add(Ids());
        InstanceIds(set);
        const int n = Count(17);
        cow_Map<cow_String, int> seen;
        for (int i = 0; i < n; ++i) {
            const cow_String name = Key(seen);
            seen.Insert(name, 0);
            inpM_SortedSet nested(Flag() ? inpM_InternalSet : inpM_UserSet);
            SortedLevels(nested, depth + 1);
            set.InsertNestedSet(name, nested);
        }
    }

    inpM_SetHandle Set() {
        const std::size_t at = m_at;
        const unsigned kind = U8();
        if (kind != kSortedSet && kind != kUnsortedSet) throw BodyError{at, "a set is of no known kind"};
        const inpM_SetTypeFlag flag = Flag() ? inpM_InternalSet : inpM_UserSet;
        const bool renumbered = Flag();
        if (kind == kSortedSet) {
            inpM_SortedSet set(flag);
            SortedLevels(set, 0);
            set.renumbered = renumbered;
            return CreateSet(set);
        }
        inpM_UnsortedSet set(flag);
        set.Add(Ids());
        InstanceIds(set);
        set.renumbered = renumbered;
        return CreateSet(set);
    }

    void SetMap(inpM_SetMap& sets, int depth) {
        Deeper(depth);
        const int n = Count(15);
        for (int i = 0; i < n; ++i) {
            const cow_String name = Key(sets);
            sets.Insert(name, Set());
        }
        const int scopes = Count(12);
        for (int i = 0; i < scopes; ++i) {
            const cow_String name = Key(sets.instances);
            inpM_SetMap child;
            SetMap(child, depth + 1);
            sets.instances.Insert(name, inpM_SetMap::Handle(new inpM_SetMap(child)));
        }
    }

    void NodeAreas(inpM_NodeAreaSurface& surface) {
        const int n = Count(12);
        for (int i = 0; i < n; ++i) {
            const std::size_t at = m_at;
            cow_1DArrayList<int> id;
            id.Append(I32());
            if (surface.ConstGetNodeAreaList().HasKey(id[0])) throw BodyError{at, "a node stands twice in one surface"};
            surface.Add(id, F64());
        }
    }

    inpM_SurfaceHandle Surface() {
        const std::size_t at = m_at;
        const unsigned type = U8();
        if (type > inpM_AnalyticalSurface) throw BodyError{at, "a surface is of no known kind"};
        const bool internal = Flag();
        if (type == inpM_ElementSurface) {
            inpM_ElementFaceIdSurface surface(internal);
            const int n = Count(8);
            cow_Map<cow_String, int> seen;
            for (int i = 0; i < n; ++i) {
                const cow_String face = Key(seen);
                seen.Insert(face, 0);
                surface.Add(face, Ids());
            }
            return inpM_SurfaceHandle(surface.Copy());
        }
        if (type == inpM_NodeSurface) {
            inpM_NodeAreaSurface surface(internal);
            NodeAreas(surface);
            return inpM_SurfaceHandle(surface.Copy());
        }
        return inpM_SurfaceHandle(new inpM_PartInstanceSurface(internal));
    }

    void Surfaces(cow_Map<cow_String, inpM_SurfaceHandle>& surfaces) {
        const int n = Count(6);
        for (int i = 0; i < n; ++i) {
            const cow_String name = Key(surfaces);
            surfaces.Insert(name, Surface());
        }
    }

    void SurfaceMap(inpM_SurfaceMap& map) {
        const int scopes = Count(8);
        for (int i = 0; i < scopes; ++i) {
            const cow_String scope = Key(map.partInstanceSurfaces);
            inpM_PartInstanceSurfaceMap surfaces;
            Surfaces(surfaces);
            map.partInstanceSurfaces.Insert(scope, surfaces);
        }
        const int n = Count(14);
        for (int i = 0; i < n; ++i) {
            const cow_String name = Key(map.assemblyInstanceSurfaces);
            inpM_AssemblyInstanceSurface surface;
            surface.internal = Flag();
            Surfaces(surface.instanceSurfaces);
            surface.assemblyNodes.internal = Flag();
            NodeAreas(surface.assemblyNodes);
            map.assemblyInstanceSurfaces.Insert(name, surface);
        }
    }

    void InstanceMap(inpM_InstanceMap<cow_String>& map, int depth) {
        Deeper(depth);
        if (Flag()) map.item = new cow_String(Text());
        const int n = Count(9);
        for (int i = 0; i < n; ++i) {
            const std::size_t at = m_at;
            const cow_String name = Text();
            if (map.IsMember(name)) throw BodyError{at, "a name stands twice in one map"};
            inpM_InstanceMap<cow_String> child;
            InstanceMap(child, depth + 1);
            if (!map.instances) map.instances = new inpM_InstanceMap<cow_String>::Levels();
            map.instances->Insert(name, child);
        }
    }

private:
    void Need(std::size_t n, const char* what) const {
        if (Left() < n) throw BodyError{m_at, what};
    }
    void Deeper(int depth) const {
        if (depth > kMaxDepth) throw BodyError{m_at, "scopes nest deeper than any model does"};
    }

    const unsigned char* m_bytes;
    std::size_t m_end;
    std::size_t m_at;
};

cow_String Decimal(unsigned long long v) {
    char text[24];
    std::snprintf(text, sizeof text, "%llu", v);
    return cow_String(text);
}

}  // namespace

std::uint64_t inpM_PartMapFile::Checksum(const unsigned char* bytes, std::size_t size) {
    std::uint64_t hash = 14695981039346656037ull;  // FNV-1a, 64 bits
    for (std::size_t i = 0; i < size; ++i) {
        hash ^= bytes[i];
        hash *= 1099511628211ull;
    }
    return hash;
}

std::vector<unsigned char> inpM_PartMapFile::ToBytes(const inpM_PartMap& map) {
    Writer body;
    body.U8(map.IsAssemblyModel());
    body.U8(map.HasFakeParts());
    body.U8(map.ReservedFlag());
    body.IdMaps(map.NodeIdMaps());
    body.IdMaps(map.ElementIdMaps());
    body.SetMap(map.NodeSets());
    body.SetMap(map.ElementSets());
    body.SurfaceMap(map.Surfaces());
    body.Text(map.AssemblyName());
    body.InstanceMap(map.InstanceToPart());

    Writer file;
    file.bytes.insert(file.bytes.end(), kMagic, kMagic + sizeof kMagic);
    file.U32(kFormatVersion);
    file.U64(body.bytes.size());
    file.bytes.insert(file.bytes.end(), body.bytes.begin(), body.bytes.end());
    file.U64(Checksum(file.bytes.data(), file.bytes.size()));
    return file.bytes;
}

inpM_PartMapFile::Problem inpM_PartMapFile::Fail(Problem kind, long long at, const cow_String& text) {
    problem = kind;
    offset = at;
    message = text;
    return kind;
}

inpM_PartMapFile::Problem inpM_PartMapFile::FromBytes(const unsigned char* bytes, std::size_t size,
                                                      inpM_PartMap& map, const cow_String& name) {
    problem = kNone;
    offset = 0;
    message = cow_String();
    const cow_String file = "\"" + name + "\"";
    auto truncated = [&](unsigned long long needed) {
        return Fail(kTruncated, static_cast<long long>(size),
                    file + " is truncated: it ends at byte " + Decimal(size) + ", where a part map needs " +
                        Decimal(needed) + " bytes");
    };
    const std::size_t magicSeen = size < sizeof kMagic ? size : sizeof kMagic;
    for (std::size_t i = 0; i < magicSeen; ++i)
        if (bytes[i] != static_cast<unsigned char>(kMagic[i]))
            return Fail(kForeign, static_cast<long long>(i),
                        file + " is not a part map file: its header differs at byte " + Decimal(i));
    if (size < kHeaderSize + kChecksumSize) return truncated(kHeaderSize + kChecksumSize);

    Reader header(bytes, kHeaderSize, kVersionAt);
    const std::uint32_t version = header.U32();
    if (version == 0)
        return Fail(kCorrupt, kVersionAt, file + " is corrupt: format version 0 at byte " + Decimal(kVersionAt));
    if (version > kFormatVersion)
        return Fail(kNewerVersion, kVersionAt,
                    file + " has format version " + Decimal(version) + " at byte " + Decimal(kVersionAt) +
                        ", newer than version " + Decimal(kFormatVersion) + " that this program reads");
    const std::uint64_t length = Reader(bytes, kHeaderSize, kLengthAt).U64();
    if (length > size - kHeaderSize - kChecksumSize) {
        // A length near the top of the range is damage, not a file; it still reads as one too long.
        const unsigned long long most = ~0ull - kHeaderSize - kChecksumSize;
        return truncated(length > most ? ~0ull : length + kHeaderSize + kChecksumSize);
    }
    const std::size_t end = kHeaderSize + static_cast<std::size_t>(length);
    if (size > end + kChecksumSize)
        return Fail(kCorrupt, static_cast<long long>(end + kChecksumSize),
                    file + " is corrupt: bytes follow the checksum at byte " + Decimal(end + kChecksumSize));
    Reader trailer(bytes, size, end);
    if (trailer.U64() != Checksum(bytes, end))
        return Fail(kCorrupt, static_cast<long long>(end),
                    file + " is corrupt: the checksum at byte " + Decimal(end) + " does not match the contents");

    // Everything into fresh maps; the caller's map changes only when all of it was read.
    Reader body(bytes, end, kHeaderSize);
    try {
        const bool isAssemblyModel = body.Flag(), hasFakeParts = body.Flag(), reserved = body.Flag();
        inpM_InstanceIdMaps nodeIds, elementIds;
        body.IdMaps(nodeIds, 0);
        body.IdMaps(elementIds, 0);
        inpM_SetMap nodeSets, elementSets;
        body.SetMap(nodeSets, 0);
        body.SetMap(elementSets, 0);
        inpM_SurfaceMap surfaces;
        body.SurfaceMap(surfaces);
        const cow_String assemblyName = body.Text();
        inpM_InstanceMap<cow_String> instanceToPart;
        body.InstanceMap(instanceToPart, 0);
        if (body.Left() != 0) throw BodyError{body.At(), "the body goes on after its last field"};
        map = inpM_PartMap(isAssemblyModel, hasFakeParts, reserved, nodeIds, elementIds, nodeSets, elementSets,
                           surfaces, assemblyName, instanceToPart);
    } catch (const BodyError& e) {
        return Fail(kCorrupt, static_cast<long long>(e.at),
                    file + " is corrupt at byte " + Decimal(e.at) + ": " + e.what);
    }
    return kNone;
}

bool inpM_PartMapFile::Write(const cow_String& path, const inpM_PartMap& map) {
    problem = kNone;
    offset = 0;
    message = cow_String();
    const std::vector<unsigned char> bytes = ToBytes(map);
    // A file that is there is whole: the bytes go to a temporary that takes the name at the end.
    const std::string target(path.c_str(), static_cast<std::size_t>(path.Length()));
    const std::string temporary = target + ".partial";
    std::FILE* f = std::fopen(temporary.c_str(), "wb");
    bool ok = f && std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    if (f) ok = std::fclose(f) == 0 && ok;
    ok = ok && std::rename(temporary.c_str(), target.c_str()) == 0;
    if (ok) return true;
    std::remove(temporary.c_str());
    Fail(kUnreadable, 0, "cannot write the part map file \"" + path + "\"");
    return false;
}

inpM_PartMapFile::Problem inpM_PartMapFile::Read(const cow_String& path, inpM_PartMap& map) {
    problem = kNone;
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return Fail(kUnreadable, 0, "cannot read the part map file \"" + path + "\"");
    std::vector<unsigned char> bytes;
    unsigned char block[65536];
    std::size_t n;
    while ((n = std::fread(block, 1, sizeof block, f)) > 0) bytes.insert(bytes.end(), block, block + n);
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    if (failed) return Fail(kUnreadable, static_cast<long long>(bytes.size()),
                            "cannot read the part map file \"" + path + "\"");
    return FromBytes(bytes.data(), bytes.size(), map, path);
}
