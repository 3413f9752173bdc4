// A scratch directory for tests that need real files; removed with everything in it.
#ifndef FND_TESTFILES_H
#define FND_TESTFILES_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class fnd_TempDir {
public:
    fnd_TempDir() {
        std::filesystem::path base = std::filesystem::temp_directory_path();
        m_path = (base / ("inpdeck-test-" + std::to_string(std::random_device()()))).string();
        std::filesystem::create_directories(m_path);
    }
    ~fnd_TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    fnd_TempDir(const fnd_TempDir&) = delete;
    fnd_TempDir& operator=(const fnd_TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }
    // Writes the bytes as they are and gives the path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(*this / name, std::ios::binary) << bytes;
        return *this / name;
    }

private:
    std::string m_path;
};

inline std::string fnd_ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

#endif
