#include "inpdeck_Encipher.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "inp_CipherReader.h"
#include "inpdeck_Text.h"
#include "nex_Exception.h"

namespace inpdeck {

namespace {

int Fail(const char* text, const std::string& detail) {
    std::fprintf(stderr, "inpdeck: encipher: %s%s\n", text, OneLine(detail.c_str()).c_str());
    return 2;
}

bool ReadWhole(const char* path, std::string& text) {
    std::FILE* f = std::fopen(path, "rb");
    if (!f) return false;
    char block[65536];
    size_t n;
    while ((n = std::fread(block, 1, sizeof block, f)) > 0) text.append(block, n);
    const bool ok = !std::ferror(f);
    std::fclose(f);
    return ok;
}

bool WriteWhole(const char* path, const cow_String& text) {
    std::FILE* f = std::fopen(path, "wb");
    if (!f) return false;
    const size_t size = static_cast<size_t>(text.Length());
    bool ok = std::fwrite(text.c_str(), 1, size, f) == size;
    ok = std::fclose(f) == 0 && ok;
    if (!ok) std::remove(path);
    return ok;
}

}  // namespace

int Encipher(int argc, char** argv) {
    const char* password = nullptr;
    const char* files[2] = {nullptr, nullptr};
    int fileCount = 0;
    for (int i = 0; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--password")) {
            if (i + 1 >= argc) return Fail("missing value after ", "--password");
            password = argv[++i];
        } else if (argv[i][0] == '-' && argv[i][1] != '\0') {
            return Fail("unknown option: ", argv[i]);
        } else if (fileCount == 2) {
            return Fail("more than two files: ", argv[i]);
        } else {
            files[fileCount++] = argv[i];
        }
    }
    if (!password) return Fail("a password is needed (--password TEXT)", "");
    if (fileCount < 2) return Fail("an input and an output file are needed", "");

    try {
        inp_CipherWriter::CheckPassword(cow_String(password));
    } catch (const nex_Exception& e) {
        return Fail("", e.UserReport().c_str());
    }
    std::string plain;
    if (!ReadWhole(files[0], plain)) return Fail("cannot read ", std::string("\"") + files[0] + "\"");
    cow_String enciphered;
    try {
        enciphered = inp_CipherWriter::EncipherText(cow_String(plain.data(), static_cast<int>(plain.size())),
                                                    cow_String(password));
    } catch (const nex_Exception& e) {
        std::fprintf(stderr, "inpdeck: encipher: \"%s\": %s\n", OneLine(files[0]).c_str(),
                     OneLine(e.UserReport().c_str()).c_str());
        return 1;
    }
    if (!WriteWhole(files[1], enciphered)) return Fail("cannot write ", std::string("\"") + files[1] + "\"");
    return 0;
}

}  // namespace inpdeck
