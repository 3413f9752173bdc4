#include "utl_FilePath.h"

#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string Text(const cow_String& s) { return std::string(s.c_str(), static_cast<size_t>(s.Length())); }

// A text with a NUL inside names no file the system can open; treat it as missing
// rather than look up the part in front of the NUL.
bool HasInnerNul(const std::string& s) { return s.find('\0') != std::string::npos; }

bool IsRegularFile(const std::string& path) {
    if (path.empty() || HasInnerNul(path)) return false;
    struct stat info;
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

std::string CurrentDirectory() {
    std::vector<char> buf(PATH_MAX > 0 ? PATH_MAX : 4096);
    for (int tries = 0; tries < 8; ++tries) {
        if (::getcwd(buf.data(), buf.size())) return std::string(buf.data());
        buf.resize(buf.size() * 2);
    }
    return std::string();
}

// "." and ".." and empty segments resolved by text alone; ".." at the root stays there.
std::string Lexical(const std::string& absolute) {
    std::vector<std::string> parts;
    size_t i = 0;
    while (i <= absolute.size()) {
        size_t j = absolute.find('/', i);
        if (j == std::string::npos) j = absolute.size();
        std::string part = absolute.substr(i, j - i);
        if (part == "..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
        i = j + 1;
    }
    std::string out;
    for (const std::string& p : parts) out.append("/").append(p);
    return out.empty() ? std::string("/") : out;
}

bool Resolve(const std::string& path, std::string& out) {
    char* resolved = ::realpath(path.c_str(), nullptr);
    if (!resolved) return false;
    out = resolved;
    std::free(resolved);
    return true;
}

}  // namespace

utl_FilePath::utl_FilePath(const cow_String& name, const cow_String& directory)
    : m_name(name), m_directory(directory) {}

void utl_FilePath::SetFilePath(const cow_String& name, const cow_String& directory) {
    m_name = name;
    m_directory = directory;
}

cow_String utl_FilePath::PathName() const {
    if (m_directory.IsEmpty() || m_name.StartsWith("/")) return m_name;
    cow_String out(m_directory);
    if (!out.EndsWith("/")) out.append("/");
    return out.append(m_name);
}

bool utl_FilePath::Exists() const { return IsRegularFile(Text(PathName())); }

bool utl_FilePath::IsReadable() const {
    std::string path = Text(PathName());
    return IsRegularFile(path) && ::access(path.c_str(), R_OK) == 0;
}

cow_String utl_FilePath::FileName() const {
    const char* s = m_name.c_str();
    int n = m_name.Length();
    int start = 0;
    for (int i = 0; i < n; ++i)
        if (s[i] == '/' || s[i] == '\\') start = i + 1;
    return m_name.Substr(start);
}

cow_String utl_FilePath::AbsolutePathName() const {
    std::string path = Text(PathName());
    if (path.empty() || HasInnerNul(path)) return cow_String(path.c_str(), static_cast<int>(path.size()));
    if (path[0] != '/') {
        std::string cwd = CurrentDirectory();
        path = (cwd.empty() ? std::string("/") : cwd) + "/" + path;
    }
    std::string out;
    if (Resolve(path, out)) return cow_String(out.c_str(), static_cast<int>(out.size()));

    // The file is not there (yet): resolve the longest leading directory that is,
    // so that a link in front of a missing file still leads to one spelling.
    std::string tidy = Lexical(path);
    size_t cut = tidy.size();
    while (cut > 0) {
        cut = tidy.rfind('/', cut - 1);
        if (cut == std::string::npos) break;
        std::string head = cut == 0 ? std::string("/") : tidy.substr(0, cut);
        std::string resolved;
        if (Resolve(head, resolved)) {
            if (resolved == "/") resolved.clear();
            out = resolved + tidy.substr(cut);
            return cow_String(out.c_str(), static_cast<int>(out.size()));
        }
        if (cut == 0) break;
    }
    return cow_String(tidy.c_str(), static_cast<int>(tidy.size()));
}
