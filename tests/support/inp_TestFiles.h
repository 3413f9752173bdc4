// Small decks on disk for tests: a temporary directory that cleans up after itself,
// and the shortest ways to read a deck and look at what came out.
#ifndef INP_TESTFILES_H
#define INP_TESTFILES_H

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "aio_ostream.h"
#include "inp_Deck.h"
#include "inp_Parser.h"
#include "inp_Visitor.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

namespace inp_test {

class TempDir {
public:
    TempDir() {
        std::random_device seed;
        std::filesystem::path base = std::filesystem::temp_directory_path();
        for (;;) {
            m_path = base / ("inpdeck-test-" + std::to_string(seed()));
            if (std::filesystem::create_directory(m_path)) break;
        }
        m_path = std::filesystem::canonical(m_path);
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::string operator/(const std::string& name) const { return (m_path / name).string(); }

    // Writes the bytes as they are (no newline added) and gives the absolute path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::filesystem::path p = m_path / name;
        std::filesystem::create_directories(p.parent_path());
        std::ofstream out(p, std::ios::binary);
        out << bytes;
        return p.string();
    }

private:
    std::filesystem::path m_path;
};

// Runs a block with the current directory set to `dir`, and restores it.
class InDirectory {
public:
    explicit InDirectory(const std::filesystem::path& dir) : m_old(std::filesystem::current_path()) {
        std::filesystem::current_path(dir);
    }
    ~InDirectory() { std::filesystem::current_path(m_old); }

private:
    std::filesystem::path m_old;
};

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// What one parser run gave.
struct ParseResult {
    cow_1DArrayList<inp_Keyword> keywords;
    std::vector<std::string> errors;
    std::vector<std::string> fatal;
    std::vector<std::string> missing;
    std::vector<std::string> leading;
    std::vector<std::string> warnings;
    // "FILE:LINE" of each message of errors and fatal, ":0" where it has no place.
    std::vector<std::string> errorPlaces;
    std::vector<std::string> fatalPlaces;
};

inline std::vector<std::string> ToVector(const cow_List<inp_Parser::Place>& places) {
    std::vector<std::string> out;
    for (int i = 0; i < places.Count(); ++i)
        out.push_back(std::string(places.ConstGet(i).file.c_str()) + ":" + std::to_string(places.ConstGet(i).line));
    return out;
}

inline std::vector<std::string> ToVector(const cow_List<atr_String>& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i).c_str());
    return out;
}

inline std::vector<std::string> ToVector(const cow_List<cow_String>& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i).c_str());
    return out;
}

inline std::vector<std::string> ToVector(const cow_1DArrayList<cow_String>& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i).c_str());
    return out;
}

// A keyword built in code, with (name, value) parameters; a null value makes a flag.
using Params = std::vector<std::pair<const char*, const char*>>;
inline inp_Keyword Make(inp_KeywordEnm value, const Params& params = {}) {
    inp_Keyword k(value);
    for (const auto& p : params) {
        if (p.second)
            k.parameters.Insert(cow_String(p.first), inp_Item(cow_String(p.second)));
        else
            k.parameters.Insert(cow_String(p.first), inp_Item(true));
    }
    return k;
}

// The same with raw data lines.
inline inp_Keyword MakeWithData(inp_KeywordEnm value, const Params& params, const std::vector<const char*>& lines) {
    inp_Keyword k = Make(value, params);
    for (const char* line : lines) k.data.Append(line);
    return k;
}

// A message about a keyword built in code, which has no file and no line.
inline std::string In(const char* upperName, const std::string& text) {
    return std::string("in keyword *") + upperName + " " + text;
}

// One keyword through a pass as the only member of a list. The keyword takes back the
// list's copy, because parameters are copied on write and a rewrite lands in the copy.
inline void Walk(inp_Visitor& visitor, inp_Keyword& keyword) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(keyword);
    visitor.VisitList(list);
    keyword = list[0];
}

// A data line as its items in their compared form, joined by ","; empty past the end.
inline std::string Line(const inp_Keyword& k, int line) {
    std::string text;
    for (int j = 0; line < k.data.NumberOfLines() && j < k.data.NumberOfItems(line); ++j)
        text += (j ? "," : "") + std::string(k.data.AsString(line, j).c_str());
    return text;
}

// A parameter's value as text, or "<absent>".
inline std::string Value(const inp_Keyword& k, const char* name) {
    const inp_Item* item = k.parameters.Lookup(cow_String(name));
    return item ? item->AsString().c_str() : "<absent>";
}

// A parser as inp_Deck::Parse builds it, or, with `parent`, as an *INCLUDE in that
// file would build it for a child.
inline ParseResult ParseFile(const std::string& path, bool strict = true, const std::string& includeDirectory = "",
                             const std::string& parent = "") {
    cow_1DArrayList<cow_String> enclosing;
    if (!parent.empty()) enclosing.Append(cow_String(parent.c_str()));
    inp_Parser parser(cow_String(path.c_str()), cow_String(includeDirectory.c_str()), enclosing, cow_String(), true);
    ParseResult r;
    r.keywords = parser.Parse(strict);
    r.errors = ToVector(parser.Errors());
    r.fatal = ToVector(parser.FatalErrors());
    r.missing = ToVector(parser.MissingFiles());
    r.leading = ToVector(parser.LeadingLines());
    r.warnings = ToVector(parser.Warnings());
    r.errorPlaces = ToVector(parser.ErrorPlaces());
    r.fatalPlaces = ToVector(parser.FatalErrorPlaces());
    return r;
}

// The thread's sink records in order, "E<level>: text" or "W: text".
inline std::vector<std::string> SinkRecords() {
    const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    std::vector<std::string> out;
    for (int i = 0; i < sink.Count(); ++i) {
        const wip_Record& r = sink.Record(i);
        out.push_back((r.IsError() ? "E" + std::to_string(r.level) : std::string("W")) + ": " + r.text.c_str());
    }
    return out;
}

// The normal form of a keyword list, as the deck printer writes it.
inline std::string Printed(const cow_1DArrayList<inp_Keyword>& keywords) {
    aio_ostringstream out;
    for (int i = 0; i < keywords.Count(); ++i) keywords.ConstGet(i).Print(out, true);
    out.flush();
    return out.str().c_str();
}

inline std::string Printed(const inp_Keyword& keyword, bool recursive = true) {
    aio_ostringstream out;
    keyword.Print(out, recursive);
    out.flush();
    return out.str().c_str();
}

// A deck that bench/gendeck writes into `dir` (N elements a side, the variant named), or
// an empty path where python3 or the generator fails.
inline std::string GeneratedDeck(int n, const std::string& variant, const TempDir& dir) {
    const std::string command = std::string("python3 \"") + INP_EXAMPLES_DIR + "/../bench/gendeck\" " +
                                std::to_string(n) + " " + variant + " \"" + dir.Path().string() + "\" 2>/dev/null";
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return std::string();
    char buffer[4096] = {0};
    const bool read = std::fgets(buffer, sizeof buffer, pipe) != nullptr;
    if (pclose(pipe) != 0 || !read) return std::string();
    std::string deck(buffer);
    while (!deck.empty() && (deck.back() == '\n' || deck.back() == '\r')) deck.pop_back();
    return deck;
}

}  // namespace inp_test

#endif
