#include <gtest/gtest.h>

#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include "fnd_TestFiles.h"
#include "utl_FilePath.h"

namespace {

cow_String Cow(const std::string& s) { return cow_String(s.c_str()); }

// Runs a test body with the current directory set to dir, and back.
class ChangeDir {
public:
    explicit ChangeDir(const std::string& dir) {
        char buf[4096];
        if (::getcwd(buf, sizeof buf)) m_old = buf;
        EXPECT_EQ(::chdir(dir.c_str()), 0);
    }
    ~ChangeDir() {
        if (!m_old.empty()) {
            EXPECT_EQ(::chdir(m_old.c_str()), 0);
        }
    }

private:
    std::string m_old;
};

}  // namespace

TEST(UtlFilePath, JoinsNameAndDirectory) {
    struct Case {
        const char* name;
        const char* directory;
        const char* path;
        const char* fileName;
    } cases[] = {
        {"a.inp", "", "a.inp", "a.inp"},
        {"a.inp", "inc", "inc/a.inp", "a.inp"},
        {"a.inp", "inc/", "inc/a.inp", "a.inp"},
        {"sub/a.inp", "/jobs", "/jobs/sub/a.inp", "a.inp"},
        {"/abs/a.inp", "/jobs", "/abs/a.inp", "a.inp"},
        {"D:\\jobs\\a.inp", "", "D:\\jobs\\a.inp", "a.inp"},
        {"dir/", "", "dir/", ""},
        {"", "", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.name) + " in " + c.directory);
        utl_FilePath p(cow_String(c.name), cow_String(c.directory));
        EXPECT_EQ(p.PathName(), c.path);
        EXPECT_EQ(p.FileName(), c.fileName);
    }
    utl_FilePath p;
    EXPECT_EQ(p.PathName(), "");
    EXPECT_FALSE(p.Exists());
    p.SetFilePath(cow_String("b"), cow_String("d"));
    EXPECT_EQ(p.Name(), "b");
    EXPECT_EQ(p.Directory(), "d");
    EXPECT_EQ(p, utl_FilePath(cow_String("b"), cow_String("d")));
}

TEST(UtlFilePath, ExistsAndReadableOnlyForFiles) {
    fnd_TempDir dir;
    dir.Write("deck.inp", "*HEADING\n");
    dir.MakeDir("folder");
    ASSERT_EQ(::symlink((dir / "deck.inp").c_str(), (dir / "link.inp").c_str()), 0);
    ASSERT_EQ(::symlink((dir / "gone.inp").c_str(), (dir / "dangling.inp").c_str()), 0);
    struct Case {
        const char* name;
        bool exists;
    } cases[] = {
        {"deck.inp", true}, {"link.inp", true}, {"folder", false}, {"missing.inp", false}, {"dangling.inp", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        utl_FilePath inDir(cow_String(c.name), Cow(dir.Path()));
        EXPECT_EQ(inDir.Exists(), c.exists);
        EXPECT_EQ(inDir.IsReadable(), c.exists);
    }
    {
        ChangeDir here(dir.Path());
        EXPECT_TRUE(utl_FilePath(cow_String("deck.inp"), cow_String()).Exists());
        EXPECT_FALSE(utl_FilePath(cow_String("deck.inp"), cow_String("folder")).Exists());
    }
    // A name with a NUL inside names no file, not the file in front of the NUL.
    std::string withNul = dir / "deck.inp";
    withNul.push_back('\0');
    withNul += "x";
    utl_FilePath nul(cow_String(withNul.data(), static_cast<int>(withNul.size())), cow_String());
    EXPECT_FALSE(nul.Exists());
    EXPECT_FALSE(nul.IsReadable());
    EXPECT_EQ(nul.AbsolutePathName().Length(), static_cast<int>(withNul.size()));

    if (::geteuid() != 0) {  // the superuser reads everything
        ::chmod((dir / "deck.inp").c_str(), 0);
        utl_FilePath locked(cow_String("deck.inp"), Cow(dir.Path()));
        EXPECT_TRUE(locked.Exists());
        EXPECT_FALSE(locked.IsReadable());
    }
}

TEST(UtlFilePath, AbsolutePathNameIsOneSpellingPerFile) {
    fnd_TempDir dir;
    dir.MakeDir("real");
    dir.Write("real/deck.inp", "x");
    ASSERT_EQ(::symlink((dir / "real").c_str(), (dir / "alias").c_str()), 0);
    char resolved[4096];
    ASSERT_NE(::realpath(dir.Path().c_str(), resolved), nullptr);
    std::string root = resolved;

    ChangeDir here(dir.Path());
    struct Case {
        const char* name;
        std::string directory;
        std::string absolute;
    } cases[] = {
        {"real/deck.inp", "", root + "/real/deck.inp"},
        {"deck.inp", "alias", root + "/real/deck.inp"},
        {"./real//../alias/./deck.inp", "", root + "/real/deck.inp"},
        {"deck.inp", dir / "alias", root + "/real/deck.inp"},
        // Missing files: the directory part that exists is resolved, the rest tidied.
        {"alias/new.inp", "", root + "/real/new.inp"},
        {"alias/no/../new.inp", "", root + "/real/new.inp"},
        {"alias/no/more.inp", "", root + "/real/no/more.inp"},
        {"/no-such-root-dir/../x/./y.inp", "", "/x/y.inp"},
        {"..", "/", "/"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.name) + " in " + c.directory);
        EXPECT_EQ(utl_FilePath(cow_String(c.name), Cow(c.directory)).AbsolutePathName(), Cow(c.absolute));
    }
}
