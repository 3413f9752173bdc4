// The driver's command line, as keys and values, reached from anywhere through
// thr_GlobalSingleton<utl_CommandLine>::Instance().
//
// The library asks for two keys: "indir", the directory of an earlier job's results,
// and "oldjobcla", the library to import from. The driver fills the table, by Parse
// from its arguments ("key=value") or by Set. Keys are compared exactly, case
// included. Values are handed out as fresh strings, never shared with the table, so
// threads may read at the same time as long as nobody writes.
#ifndef UTL_COMMANDLINE_H
#define UTL_COMMANDLINE_H

#include <map>
#include <mutex>
#include <string>

#include "cow_1DArrayList.h"
#include "cow_String.h"
#include "thr_GlobalSingleton.h"

class utl_CommandLine {
public:
    utl_CommandLine() = default;
    utl_CommandLine(const utl_CommandLine&) = delete;
    utl_CommandLine& operator=(const utl_CommandLine&) = delete;

    bool IsMember(const cow_String& key) const;
    // The value of the key; empty for a key that is absent or has no value.
    cow_String ConstGetValue(const cow_String& key) const;

    void Set(const cow_String& key, const cow_String& value);
    void Remove(const cow_String& key);
    void Clear();

    // Reads argv[1] onwards. "key=value" sets the key to everything behind the first
    // "="; a later setting of a key wins. An argument without "=", or with nothing in
    // front of it, is no key: such arguments come back in order, for the driver to
    // use as it likes (the name of the input file, say).
    cow_1DArrayList<cow_String> Parse(int argc, const char* const* argv);

private:
    mutable std::mutex m_mutex;
    std::map<std::string, std::string> m_values;
};

template <>
utl_CommandLine& thr_GlobalSingleton<utl_CommandLine>::Instance();

#endif
