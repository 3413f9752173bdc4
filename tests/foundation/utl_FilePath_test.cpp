#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <unistd.h>

#include "fnd_TestFiles.h"
#include "utl_FilePath.h"

namespace fs = std::filesystem;

namespace {
cow_String Cow(const std::string& s) { return cow_String(s.data(), static_cast<int>(s.size())); }
}  // namespace

TEST(UtlFilePath, JoinsNameAndDirectory) {
    const char* cases[][4] = {
        // name, directory, path, file name
        {"a.inp", "", "a.inp", "a.inp"},
        {"a.inp", "inc/", "inc/a.inp", "a.inp"},
        {"sub/a.inp", "/jobs", "/jobs/sub/a.inp", "a.inp"},
        {"/abs/a.inp", "/jobs", "/abs/a.inp", "a.inp"},
        {"D:\\jobs\\a.inp", "", "D:\\jobs\\a.inp", "a.inp"},
        {"dir/", "", "dir/", ""},
    };
    for (auto& c : cases) {
        SCOPED_TRACE(c[0]);
        utl_FilePath p{cow_String(c[0]), cow_String(c[1])};
        EXPECT_EQ(p.PathName(), c[2]);
        EXPECT_EQ(p.FileName(), c[3]);
    }
}

TEST(UtlFilePath, ExistsAndReadableOnlyForFiles) {
    fnd_TempDir dir;
    dir.Write("deck.inp", "*HEADING\n");
    fs::create_directory(dir / "folder");
    fs::create_symlink(dir / "deck.inp", dir / "link.inp");
    fs::create_symlink(dir / "gone.inp", dir / "dangling.inp");
    std::string withNul = "deck.inp";
    withNul.push_back('\0');
    struct Case {
        std::string name;
        bool exists;
    } cases[] = {{"deck.inp", true},     {"link.inp", true},     {"folder", false},
                 {"missing.inp", false}, {"dangling.inp", false}, {withNul, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        utl_FilePath p(Cow(c.name), Cow(dir.Path()));
        EXPECT_EQ(p.Exists(), c.exists);
        EXPECT_EQ(p.IsReadable(), c.exists);
    }
    if (::geteuid() != 0) {  // the superuser reads everything
        fs::permissions(dir / "deck.inp", fs::perms::none);
        EXPECT_TRUE(utl_FilePath(cow_String("deck.inp"), Cow(dir.Path())).Exists());
        EXPECT_FALSE(utl_FilePath(cow_String("deck.inp"), Cow(dir.Path())).IsReadable());
    }
}

TEST(UtlFilePath, AbsolutePathNameIsOneSpellingPerFile) {
    fnd_TempDir dir;
    fs::create_directory(dir / "real");
    dir.Write("real/deck.inp", "x");
    fs::create_symlink(dir / "real", dir / "alias");
    std::string root = fs::canonical(dir.Path()).string();
    fs::path old = fs::current_path();
    fs::current_path(dir.Path());
    std::string cases[][3] = {
        {"real/deck.inp", "", root + "/real/deck.inp"},
        {"./real//../alias/./deck.inp", "", root + "/real/deck.inp"},
        {"deck.inp", dir / "alias", root + "/real/deck.inp"},
        // Missing files: the leading part that exists is resolved, the rest tidied.
        {"alias/no/../new.inp", "", root + "/real/new.inp"},
        {"alias/no/more.inp", "", root + "/real/no/more.inp"},
        {"/no-such-root-dir/../x/./y.inp", "", "/x/y.inp"},
        {"..", "/", "/"},
    };
    for (auto& c : cases) {
        SCOPED_TRACE(c[0] + " in " + c[1]);
        EXPECT_EQ(utl_FilePath(Cow(c[0]), Cow(c[1])).AbsolutePathName(), Cow(c[2]));
    }
    fs::current_path(old);
}
