// Running the driver as a user does: a shell command line, its standard output and
// error in files, and its exit status.
#ifndef INPDECK_TESTING_H
#define INPDECK_TESTING_H

#include <cstdlib>
#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"

namespace inpdeck_test {

using inp_test::ReadFile;
using inp_test::TempDir;

struct DriverRun {
    int status = -1;
    std::string out;
    std::string err;
};

inline std::string Quoted(const std::string& s) { return "'" + s + "'"; }

inline DriverRun RunDriver(const TempDir& dir, const std::string& args) {
    const std::string out = dir / "stdout", err = dir / "stderr", rc = dir / "status";
    const std::string command = Quoted(INPDECK_EXE) + " " + args + " >" + Quoted(out) + " 2>" + Quoted(err) +
                                "; echo $? >" + Quoted(rc);
    DriverRun r;
    if (std::system(command.c_str()) != 0) return r;
    r.status = std::atoi(ReadFile(rc).c_str());
    r.out = ReadFile(out);
    r.err = ReadFile(err);
    return r;
}

inline std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (size_t start = 0, end; start < text.size(); start = end + 1) {
        end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        lines.push_back(text.substr(start, end - start));
    }
    return lines;
}

}  // namespace inpdeck_test

#endif
