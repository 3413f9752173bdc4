// A scratch directory for tests that need real files; removed with everything in it.
#ifndef FND_TESTFILES_H
#define FND_TESTFILES_H

#include <cstdio>
#include <cstdlib>
#include <string>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

class fnd_TempDir {
public:
    fnd_TempDir() {
        const char* base = std::getenv("TMPDIR");
        std::string pattern = std::string(base && *base ? base : "/tmp") + "/inpdeck-test-XXXXXX";
        char* made = ::mkdtemp(&pattern[0]);
        m_path = made ? made : "";
    }
    ~fnd_TempDir() { RemoveTree(m_path); }
    fnd_TempDir(const fnd_TempDir&) = delete;
    fnd_TempDir& operator=(const fnd_TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }

    // Writes the bytes as they are; the name is relative to the directory.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::string path = *this / name;
        std::FILE* f = std::fopen(path.c_str(), "wb");
        if (f) {
            std::fwrite(bytes.data(), 1, bytes.size(), f);
            std::fclose(f);
        }
        return path;
    }
    std::string MakeDir(const std::string& name) const {
        std::string path = *this / name;
        ::mkdir(path.c_str(), 0755);
        return path;
    }

private:
    static void RemoveTree(const std::string& path) {
        if (path.empty()) return;
        struct stat info;
        if (::lstat(path.c_str(), &info) != 0) return;
        if (S_ISDIR(info.st_mode)) {
            if (DIR* dir = ::opendir(path.c_str())) {
                while (dirent* entry = ::readdir(dir)) {
                    std::string name = entry->d_name;
                    if (name != "." && name != "..") RemoveTree(path + "/" + name);
                }
                ::closedir(dir);
            }
            ::rmdir(path.c_str());
        } else {
            ::unlink(path.c_str());
        }
    }

    std::string m_path;
};

inline std::string fnd_ReadFile(const std::string& path) {
    std::string out;
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return out;
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, n);
    std::fclose(f);
    return out;
}

#endif
