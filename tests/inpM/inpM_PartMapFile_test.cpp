// The part map file: everything in a part map comes back, and a damaged file is
// refused whole, with the kind of damage and the byte where it was found.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "aio_ostream.h"
#include "inpM_PartMapFile.h"
#include "inpM_TestLists.h"

namespace {

using Bytes = std::vector<unsigned char>;

cow_String S(const char* s) { return cow_String(s); }

// A model with one of everything the format knows: nested id maps, sorted and
// unsorted sets with instance ids and a level below an instance, internal and
// renumbered sets, the three kinds of instance surface, an assembly surface with
// nodes of its own, and instances of the instance map below the root.
inpM_PartMap RichMap() {
    inpM_IdMap pumpNodes;
    pumpNodes.Insert(1, 5);
    pumpNodes.Insert(2, 6);
    inpM_IdMap nodeIds;
    nodeIds.Insert(7, 1);
    nodeIds.InsertInstance(S("PUMP-1"), pumpNodes);
    inpM_IdMap elementIds;
    elementIds.InsertInstance(S("PUMP-1"), pumpNodes);

    inpM_SortedSet below;
    below.Add(S("INNER"), List({9}));
    inpM_SortedSet all;
    all.Add(List({3, 1}));
    all.Add(S("PUMP-1"), List({2}));
    all.Add(S("VALVE-1"), below);
    all.renumbered = true;
    inpM_UnsortedSet order(List({5, 3, 5}), inpM_InternalSet);
    order.Add(S("PUMP-1"), List({2, 1}));
    inpM_SetMap nodeSets;
    nodeSets.InsertSet(S("ALL"), all);
    nodeSets.InsertSet(S("ORDER"), order);
    nodeSets.InsertNestedSet(S("PUMP-1"), S("CORNER"), CreateSet(List({1}), false, false).ConstGet());
    inpM_SetMap elementSets;
    elementSets.InsertNestedSet(S("PUMP-1"), S("QUAD"), CreateSet(List({1, 2}), true, false).ConstGet());

    inpM_ElementFaceIdSurface faces;
    faces.Add(S("S1"), List({1, 2}));
    faces.Add(S("S2"), List({3}));
    inpM_NodeAreaSurface nodes(true);
    nodes.Add(List({1}), 0.5);
    nodes.Add(List({2}), 1.25);
    inpM_SurfaceMap surfaces;
    surfaces.InsertPartInstanceSurface(S("PUMP-1"), S("TOP"), faces);
    surfaces.InsertPartInstanceSurface(S("PUMP-1"), S("EDGE"), nodes);
    surfaces.InsertPartInstanceSurface(S("PUMP-1"), S("CYL"), inpM_PartInstanceSurface(true));
    inpM_AssemblyInstanceSurface across;
    across.internal = true;
    across.Add(S("PUMP-1"), faces);
    inpM_NodeAreaSurface own;
    own.Add(List({7}), 2.5);
    across.Add(own);
    surfaces.InsertAssemblyInstanceSurface(S("ACROSS"), across);

    inpM_InstanceMap<cow_String> toPart(S("ROOT"));
    toPart.Insert(S("PUMP-1"), S("P"));
    toPart.Insert(S("VALVE-1"), S("V"));
    return inpM_PartMap(true, false, true, inpM_InstanceIdMaps(nodeIds), inpM_InstanceIdMaps(elementIds), nodeSets,
                        elementSets, surfaces, S("ASSEMBLY-1"), toPart);
}

template <class Map>
std::string Printed(const Map& map) {
    aio_ostringstream out;
    map.Print(out);
    out.flush();
    return out.str().c_str();
}

}  // namespace

TEST(PartMapFile, EverythingComesBack) {
    const inpM_PartMap written = RichMap();
    const Bytes bytes = inpM_PartMapFile::ToBytes(written);
    inpM_PartMap read;
    inpM_PartMapFile file;
    ASSERT_EQ(file.FromBytes(bytes.data(), bytes.size(), read), inpM_PartMapFile::kNone) << file.message.c_str();
    EXPECT_TRUE(file.message.IsEmpty());
    EXPECT_EQ(inpM_PartMapFile::ToBytes(read), bytes);

    EXPECT_TRUE(read.IsAssemblyModel());
    EXPECT_FALSE(read.HasFakeParts());
    EXPECT_TRUE(read.ReservedFlag());
    EXPECT_EQ(read.AssemblyName(), S("ASSEMBLY-1"));
    EXPECT_EQ(read.InstanceToPart().ConstGet(), S("ROOT"));
    EXPECT_EQ(Names(read.InstanceToPart().Instances()), (std::vector<std::string>{"PUMP-1", "VALVE-1"}));
    EXPECT_EQ(read.InstanceToPart().ConstGet(S("VALVE-1")), S("V"));
    const inpM_IdMap nodeIds(read.NodeIdMaps());
    EXPECT_EQ(nodeIds.ConstGet(7), 1);
    EXPECT_EQ(nodeIds.ConstGet(S("PUMP-1")).ConstGet(2), 6);
    EXPECT_EQ(inpM_IdMap(read.ElementIdMaps()).ConstGet(S("PUMP-1")).ConstGet(1), 5);

    EXPECT_EQ(Printed(read.NodeSets()), Printed(written.NodeSets()));
    EXPECT_EQ(Printed(read.ElementSets()), Printed(written.ElementSets()));
    EXPECT_EQ(Printed(read.Surfaces()), Printed(written.Surfaces()));
    // What the printed form leaves out: kinds, flags and the level below an instance.
    const inpM_BaseSet& all = read.NodeSets().ConstGetSet(S("ALL"));
    EXPECT_TRUE(all.renumbered);
    EXPECT_FALSE(all.IsUnsorted());
    EXPECT_EQ(Ints(all.ConstGetIds()), (std::vector<int>{1, 2, 3, 9}));
    const inpM_SortedSet& sorted = dynamic_cast<const inpM_SortedSet&>(all);
    EXPECT_EQ(Names(sorted.NestedSetNames()), std::vector<std::string>{"VALVE-1"});
    EXPECT_EQ(Ints(sorted.ConstGetNestedSet(S("VALVE-1")).ConstGetSecondLevelIds(S("INNER"))), std::vector<int>{9});
    const inpM_BaseSet& order = read.NodeSets().ConstGetSet(S("ORDER"));
    EXPECT_TRUE(order.IsUnsorted());
    EXPECT_TRUE(order.IsInternal());
    EXPECT_EQ(Ints(order.ConstGetTopLevelIds()), (std::vector<int>{5, 3, 5}));
    EXPECT_TRUE(read.ElementSets().ConstGetNestedSet(S("PUMP-1"), S("QUAD")).IsInternal());
    const inpM_PartInstanceSurface& cylinder = read.Surfaces().ConstGetPartInstanceSurface(S("PUMP-1"), S("CYL"));
    EXPECT_EQ(cylinder.SurfaceType(), inpM_AnalyticalSurface);
    EXPECT_TRUE(cylinder.internal);
    EXPECT_DOUBLE_EQ(
        read.Surfaces().ConstGetPartInstanceSurface(S("PUMP-1"), S("EDGE")).ConstGetNodeAreaList().ConstGet(2), 1.25);
    const inpM_AssemblyInstanceSurface& across = read.Surfaces().ConstGetAssemblyInstanceSurface(S("ACROSS"));
    EXPECT_TRUE(across.internal);
    EXPECT_DOUBLE_EQ(across.assemblyNodes.ConstGetNodeAreaList().ConstGet(7), 2.5);

    // An empty map is a file too.
    const Bytes empty = inpM_PartMapFile::ToBytes(inpM_PartMap());
    EXPECT_EQ(file.FromBytes(empty.data(), empty.size(), read), inpM_PartMapFile::kNone);
    EXPECT_TRUE(read.NodeSets().IsEmpty());
    EXPECT_TRUE(read.AssemblyName().IsEmpty());
}

// Every cut and a choice of flipped bytes: refused, with the map left as it was.
TEST(PartMapFile, DamageIsRefusedWholeWithItsKindAndPlace) {
    const Bytes bytes = inpM_PartMapFile::ToBytes(RichMap());
    const inpM_PartMap sentinel(false, true, false, inpM_InstanceIdMaps(), inpM_InstanceIdMaps(), inpM_SetMap(),
                                inpM_SetMap(), inpM_SurfaceMap(), S("UNTOUCHED"), inpM_InstanceMap<cow_String>());
    const Bytes untouched = inpM_PartMapFile::ToBytes(sentinel);
    auto refused = [&](const Bytes& damaged, std::size_t size, inpM_PartMapFile::Problem kind, long long at,
                       const std::string& text, const std::string& what) {
        inpM_PartMap target = sentinel;
        inpM_PartMapFile file;
        EXPECT_EQ(file.FromBytes(damaged.data(), size, target, S("pm")), kind) << what << ": " << file.message.c_str();
        EXPECT_EQ(file.problem, kind) << what;
        EXPECT_EQ(file.offset, at) << what;
        EXPECT_EQ(std::string(file.message.c_str()).rfind("\"pm\" " + text, 0), 0u) << what << ": "
                                                                                  << file.message.c_str();
        EXPECT_EQ(inpM_PartMapFile::ToBytes(target), untouched) << what;
    };

    for (std::size_t cut = 0; cut < bytes.size(); ++cut)
        refused(bytes, cut, inpM_PartMapFile::kTruncated, static_cast<long long>(cut),
                "is truncated: it ends at byte " + std::to_string(cut), "cut at " + std::to_string(cut));

    const std::size_t checksumAt = bytes.size() - 8;
    struct Flip {
        std::size_t at;
        unsigned char value;
        inpM_PartMapFile::Problem kind;
        long long reportedAt;
        std::string text;
    };
    const std::vector<Flip> flips = {
        {0, 'X', inpM_PartMapFile::kForeign, 0, "is not a part map file: its header differs at byte 0"},
        {7, 'p', inpM_PartMapFile::kForeign, 7, "is not a part map file: its header differs at byte 7"},
        {8, 2, inpM_PartMapFile::kNewerVersion, 8, "has format version 2 at byte 8, newer than version 1"},
        {8, 0, inpM_PartMapFile::kCorrupt, 8, "is corrupt: format version 0 at byte 8"},
        {12, static_cast<unsigned char>(bytes[12] + 1), inpM_PartMapFile::kTruncated,
         static_cast<long long>(bytes.size()), "is truncated"},
        {12, static_cast<unsigned char>(bytes[12] - 1), inpM_PartMapFile::kCorrupt,
         static_cast<long long>(bytes.size() - 1), "is corrupt: bytes follow the checksum"},
        {21, 1, inpM_PartMapFile::kCorrupt, static_cast<long long>(checksumAt), "is corrupt: the checksum at byte"},
        {bytes.size() / 2, static_cast<unsigned char>(bytes[bytes.size() / 2] ^ 0x10), inpM_PartMapFile::kCorrupt,
         static_cast<long long>(checksumAt), "is corrupt: the checksum"},
        {bytes.size() - 1, static_cast<unsigned char>(bytes.back() ^ 1), inpM_PartMapFile::kCorrupt,
         static_cast<long long>(checksumAt), "is corrupt: the checksum"},
    };
    for (const Flip& flip : flips) {
        Bytes damaged = bytes;
        damaged[flip.at] = flip.value;
        refused(damaged, damaged.size(), flip.kind, flip.reportedAt, flip.text, "byte " + std::to_string(flip.at));
    }
}

// A body that the checksum vouches for but that does not hold together: a count
// larger than the file (nothing is allocated for it), a flag that is no flag.
TEST(PartMapFile, BodyThatDoesNotHoldTogetherIsCorrupt) {
    auto file = [](const Bytes& body) {
        const Bytes empty = inpM_PartMapFile::ToBytes(inpM_PartMap());
        Bytes bytes(empty.begin(), empty.begin() + 12);
        for (int i = 0; i < 8; ++i) bytes.push_back(static_cast<unsigned char>((body.size() >> (8 * i)) & 0xff));
        bytes.insert(bytes.end(), body.begin(), body.end());
        const unsigned long long hash = inpM_PartMapFile::Checksum(bytes.data(), bytes.size());
        for (int i = 0; i < 8; ++i) bytes.push_back(static_cast<unsigned char>((hash >> (8 * i)) & 0xff));
        return bytes;
    };
    struct Case {
        Bytes body;
        long long at;
        std::string text;
    };
    const std::vector<Case> cases = {
        {{0, 0, 0, 0xf0, 0xff, 0xff, 0x7f}, 23, "a count is larger than the bytes that follow it"},
        {{0, 0, 0, 0xff, 0xff, 0xff, 0xff}, 23, "a count is larger than the bytes that follow it"},
        {{0, 2, 0}, 21, "a flag is neither 0 nor 1"},
        {{1, 0}, 22, "a field runs past the end of the body"},
    };
    for (const Case& c : cases) {
        const Bytes bytes = file(c.body);
        inpM_PartMap target;
        inpM_PartMapFile reader;
        EXPECT_EQ(reader.FromBytes(bytes.data(), bytes.size(), target, S("pm")), inpM_PartMapFile::kCorrupt);
        EXPECT_EQ(reader.offset, c.at);
        EXPECT_EQ(std::string(reader.message.c_str()),
                  "\"pm\" is corrupt at byte " + std::to_string(c.at) + ": " + c.text);
    }
}

TEST(PartMapFile, FilesOnDisk) {
    inp_test::TempDir dir;
    const cow_String path((dir / "job.pm").c_str());
    inpM_PartMapFile file;
    ASSERT_TRUE(file.Write(path, RichMap())) << file.message.c_str();
    inpM_PartMap read;
    EXPECT_EQ(file.Read(path, read), inpM_PartMapFile::kNone);
    EXPECT_EQ(inpM_PartMapFile::ToBytes(read), inpM_PartMapFile::ToBytes(RichMap()));

    const cow_String missing((dir / "none.pm").c_str());
    EXPECT_EQ(file.Read(missing, read), inpM_PartMapFile::kUnreadable);
    EXPECT_EQ(std::string(file.message.c_str()), "cannot read the part map file \"" + std::string(missing.c_str()) +
                                                     "\"");
    const cow_String deck(dir.Write("deck.inp", "*HEADING\n").c_str());
    EXPECT_EQ(file.Read(deck, read), inpM_PartMapFile::kForeign);
    EXPECT_FALSE(file.Write(cow_String((dir / "no/such/dir.pm").c_str()), RichMap()));
    EXPECT_EQ(file.problem, inpM_PartMapFile::kUnreadable);
}

// The fuzzer's seeds stay files of the current format, and each writes itself again.
TEST(PartMapFile, FuzzSeedsReadAndWriteThemselves) {
    const std::string seeds = std::string(INP_EXAMPLES_DIR) + "/../fuzz/partmap-seeds";
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(seeds)) {
        const std::string text = inp_test::ReadFile(entry.path().string());
        const Bytes bytes(text.begin(), text.end());
        inpM_PartMap read;
        inpM_PartMapFile file;
        EXPECT_EQ(file.FromBytes(bytes.data(), bytes.size(), read), inpM_PartMapFile::kNone)
            << entry.path() << ": " << file.message.c_str();
        EXPECT_EQ(inpM_PartMapFile::ToBytes(read), bytes) << entry.path();
        ++files;
    }
    EXPECT_GE(files, 3);
}
