// One fuzz input as a deck on disk, read down the whole road of phases.
//
// The input is cut at the ASCII file separator byte (0x1C): the first piece is the
// deck, `deck.inp`, and each further piece an include file beside it, `inc1.inp`,
// `inc2.inp` and so on, which the deck (or another include file) can name in an
// *INCLUDE. Pieces past kMaxIncludeFiles stay in the last include file, separator and
// all. An input that begins with the group separator byte (0x1D) has that byte dropped
// and its include files written enciphered with the password kPassword, for an
// `*INCLUDE, INPUT=inc1.inp, PASSWORD=secret` to read. Shared by the libFuzzer target
// and the corpus replay of the test suite, so that a kept input runs in the test
// exactly as it ran in the fuzzer.
#ifndef INP_FUZZDECK_H
#define INP_FUZZDECK_H

#include <stdlib.h>
#include <unistd.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "../bench/inp_DeckPhases.h"
#include "aio_ostream.h"
#include "inp_CipherReader.h"
#include "inp_Deck.h"
#include "inp_Library.h"
#include "nex_Exception.h"
#include "inpdeck_Flat.h"
#include "wip_WIP.h"

namespace inp_fuzz {

const char kFileSeparator = '\x1c';
const char kEncipherIncludes = '\x1d';
const char kPassword[] = "secret";
const int kMaxIncludeFiles = 3;
// The reader's work limits for a fuzz input. A deck of four files that includes them
// over and over reaches these within a few thousand lines, and the fuzzer spends its
// time on what the files say rather than on reading them again: at 64 files and 200000
// lines such inputs took up to a second each under the sanitizers, three quarters of
// the time of the kept corpus. Both messages stay within reach.
const int kFuzzIncludeFiles = 8;
const long long kFuzzLines = 5000;
// And of the generators: one *NGEN line from 210000 down to 0 made a deck of 210000
// nodes and sets to match, which walked every phase in 1.8 s under the sanitizers and
// stopped the run as a timeout, though its time only grows with what it asks for.
const long long kFuzzGeneratedIds = 20000;

inline std::string IncludeName(int i) { return "inc" + std::to_string(i) + ".inp"; }

// A deck whose include files stand in `dir`, with the fuzzer's work limits.
inline void Prepare(inp_Deck& deck, const std::string& dir) {
    deck.includeDirectory = cow_String(dir.c_str());
    deck.maxIncludeFiles = kFuzzIncludeFiles;
    deck.maxLines = kFuzzLines;
    deck.maxGeneratedIds = kFuzzGeneratedIds;
}

inline bool WriteBytes(const std::string& path, const char* data, std::size_t size) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) return false;
    const bool ok = std::fwrite(data, 1, size, f) == size;
    return std::fclose(f) == 0 && ok;
}

// A piece that the writer refuses (a line too long for an enciphered file) goes in
// plain, and the reader fails on it instead.
inline bool WriteEnciphered(const std::string& path, const char* data, std::size_t size) {
    try {
        const cow_String text =
            inp_CipherWriter::EncipherText(cow_String(data, static_cast<int>(size)), cow_String(kPassword));
        return WriteBytes(path, text.c_str(), static_cast<std::size_t>(text.Length()));
    } catch (const nex_Exception&) {
        return WriteBytes(path, data, size);
    }
}

// Writes the files into `dir` (which must exist) and gives the deck's path. Include
// files that this input does not have are removed, so that no input sees the files of
// the one before it.
inline std::string WriteDeck(const std::string& dir, const std::uint8_t* data, std::size_t size) {
    const char* text = reinterpret_cast<const char*>(data);
    const bool encipher = size > 0 && text[0] == kEncipherIncludes;
    std::size_t start = encipher ? 1 : 0;
    int piece = 0;
    for (; piece <= kMaxIncludeFiles; ++piece) {
        std::size_t end = start;
        while (end < size && (text[end] != kFileSeparator || piece == kMaxIncludeFiles)) ++end;
        const std::string name = piece == 0 ? "deck.inp" : IncludeName(piece);
        if (piece > 0 && encipher)
            WriteEnciphered(dir + "/" + name, text + start, end - start);
        else
            WriteBytes(dir + "/" + name, text + start, end - start);
        if (end >= size) break;
        start = end + 1;
    }
    for (int i = piece + 1; i <= kMaxIncludeFiles; ++i) std::remove((dir + "/" + IncludeName(i)).c_str());
    return dir + "/deck.inp";
}

// Reads the deck down every phase and writes a deck with parts as a flat deck into a
// stream that keeps nothing, as the driver's --flat does. The sink is emptied first:
// it is per thread and would otherwise grow with every input of a long run.
// `afterPhase`, if given, sees the sink after each phase. Gives how many records the
// road left in the sink.
inline int RunDeck(const std::string& dir, const std::uint8_t* data, std::size_t size,
                   void (*afterPhase)(const inp_phases::Phase&, const wip_WIP&) = nullptr) {
    const std::string deckPath = WriteDeck(dir, data, size);
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    sink.Clear();
    inp_Deck deck;
    Prepare(deck, dir);
    for (int i = 0; i < inp_phases::kDeckPhaseCount; ++i) {
        inp_phases::kDeckPhases[i].run(deck, deckPath.c_str());
        if (afterPhase) afterPhase(inp_phases::kDeckPhases[i], sink);
    }
    // A deck without parts is written flat by reading and printing it again, the road
    // that the round-trip target walks for every input: here it would double the cost
    // of most inputs and reach nothing new.
    if (deck.isAssemblyDeck) {
        inp_phases::NullStream flat;
        std::vector<std::string> messages;
        inpdeck::WriteFlatDeck(flat, deck, messages);
    }
    return sink.Count();
}

// The directory of a fuzzing process for the files of its inputs, removed at exit. On
// a RAM file system where the machine has one: every input writes its files, and on a
// disk that held the fuzzer to some seventy inputs a second.
inline std::string& Sandbox() {
    static std::string path;
    return path;
}

inline void MakeSandbox() {
    char inMemory[] = "/dev/shm/inpdeck-fuzz-XXXXXX";
    char onDisk[] = "/tmp/inpdeck-fuzz-XXXXXX";
    const char* made = mkdtemp(inMemory);
    if (!made) made = mkdtemp(onDisk);
    if (!made) std::abort();
    Sandbox() = made;
    std::atexit([] {
        std::error_code ec;
        std::filesystem::remove_all(Sandbox(), ec);
    });
}

// What a fuzz target does once, before its first input.
inline void Initialize() {
    int count = 0;
    inp_initialize(count);
    MakeSandbox();
}

// Relative include names are looked up in the current directory first: keep them inside
// the sandbox. Called on the first input, not at start-up, where a -jobs parent would
// move its job logs into the sandbox with it.
inline void EnterSandbox() {
    static const bool inSandbox = chdir(Sandbox().c_str()) == 0;
    if (!inSandbox) std::abort();
}

inline std::string PrintedText(inp_Deck& deck) {
    aio_ostringstream out;
    deck.Print(out);
    out.flush();
    const cow_String text = out.str();
    return std::string(text.c_str(), static_cast<std::size_t>(text.Length()));
}

// The text in upper case. A raw data item prints in upper case and a packed one as its
// number is written (`1.5e+83`): a printed deck read back, before its expansion has
// packed it again, can differ from itself in that alone.
inline std::string Upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// Whatever Print writes must read back to the same keywords: the deck, once read and
// expanded, is printed and read again, and what it reads back to must print the same
// text (but for the case of packed numbers) before its expansion, and the very same
// text after it. Gives what went wrong, or an empty text.
inline std::string RoundTrip(const std::string& dir, const std::uint8_t* data, std::size_t size) {
    const std::string deckPath = WriteDeck(dir, data, size);
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    sink.Clear();
    inp_Deck deck;
    Prepare(deck, dir);
    deck.Parse(cow_String(deckPath.c_str()));
    deck.ExpandKeywords();
    const std::string printed = PrintedText(deck);

    const std::string printedPath = dir + "/printed.inp";
    WriteBytes(printedPath, printed.data(), printed.size());
    inp_Deck back;
    Prepare(back, dir);
    back.Parse(cow_String(printedPath.c_str()));
    std::string problem;
    if (Upper(PrintedText(back)) != Upper(printed)) {
        problem = "reads back to other keywords";
    } else {
        back.ExpandKeywords();
        if (PrintedText(back) != printed) problem = "changes in a second expansion";
    }
    sink.Clear();
    return problem;
}

}  // namespace inp_fuzz

#endif
