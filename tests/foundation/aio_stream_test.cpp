#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "aio_istream.h"
#include "aio_ostream.h"
#include "atr_String.h"
#include "fnd_TestFiles.h"

namespace {

// Up to maxReads lines, each as "[bytes|state]", stopping after a read that sets
// eofbit; the state is cleared after each read, as the deck reader does.
std::string ReadAll(aio_istream& in, int limit, size_t maxReads) {
    std::string out;
    std::vector<char> buf(static_cast<size_t>(limit) + 1);
    for (size_t i = 0; i < maxReads; ++i) {
        in.getline(buf.data(), limit);
        EXPECT_EQ(buf[static_cast<size_t>(in.gcount())], '\0');
        out += "[" + std::string(buf.data(), static_cast<size_t>(in.gcount())) + "|" + std::to_string(in.state) + "]";
        bool end = in.eof();
        in.state = 0;
        if (end) break;
    }
    return out;
}

cow_String Cow(const std::string& s) { return cow_String(s.data(), static_cast<int>(s.size())); }

}  // namespace

TEST(AioIstream, GetlineSplitsLinesAndReportsEnds) {
    // States: 1 end of input, 2 line goes on behind the limit, 4 nothing read.
    struct Case {
        std::string bytes;
        int limit;
        size_t reads;
        std::string expect;
    } cases[] = {
        {"abc\ndef", 10, 2, "[abc|0][def|1]"},           // last line without newline
        {"abc\n", 10, 2, "[abc|0][|5]"},                 // nothing behind the last newline
        {"", 10, 1, "[|5]"},
        {"\n\n", 10, 3, "[|0][|0][|5]"},
        {"abc\nxyz\n", 4, 3, "[abc|0][xyz|0][|5]"},      // exactly limit-1 keeps the next line
        {"abcdefg\nh", 4, 4, "[abc|2][def|2][g|0][h|1]"},
        {"abc", 4, 1, "[abc|1]"},
        {"ab\r\ncd\r\n", 10, 3, "[ab|0][cd|0][|5]"},
        {"abc\r\nx", 4, 2, "[abc|0][x|1]"},              // CRLF right behind a full buffer
        {"ab\r\nx", 4, 2, "[ab|0][x|1]"},
        {"a\rb\n\r", 10, 2, "[a\rb|0][\r|1]"},           // a lone CR is text
        {"a\r\r\n", 10, 2, "[a\r|0][|5]"},               // only one CR goes
        {std::string("a\0b\n\0", 5), 10, 2, std::string("[a\0b|0][\0|1]", 12)},
        {"\nab", 1, 2, "[|0][|2]"},
    };
    // From memory and from a file alike.
    fnd_TempDir dir;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bytes);
        aio_istringstream mem(Cow(c.bytes));
        EXPECT_EQ(ReadAll(mem, c.limit, c.reads), c.expect);
        aio_ifstream file(dir.Write("case.txt", c.bytes).c_str());
        EXPECT_EQ(ReadAll(file, c.limit, c.reads), c.expect);
    }
}

TEST(AioIstream, LongLineIsCutAndTheRestDroppedByGet) {
    aio_istringstream in(Cow(std::string(300, 'x') + "\nnext\n\xff"));
    char buf[257];
    in.getline(buf, 257);
    EXPECT_EQ(std::strlen(buf), 256u);
    EXPECT_EQ(in.state, aio_ios::limitbit);
    in.state = 0;
    int dropped = 0;
    while (in.get() != '\n') ++dropped;
    EXPECT_EQ(dropped, 44);
    in.getline(buf, 257);
    EXPECT_STREQ(buf, "next");
    EXPECT_EQ(in.peek(), 0xff);
    EXPECT_EQ(in.get(), 0xff);
    EXPECT_EQ(in.state, 0);
    EXPECT_EQ(in.get(), EOF);
    EXPECT_EQ(in.state, aio_ios::eofbit | aio_ios::failbit);
}

TEST(AioIstream, UnusableInputReadsNothing) {
    fnd_TempDir dir;
    std::filesystem::create_directory(dir / "sub");
    char buf[8] = "q";
    for (std::string path : {dir / "missing.inp", dir / "sub"}) {
        SCOPED_TRACE(path);
        aio_ifstream file(path.c_str());
        EXPECT_EQ(file.state, 0);  // the failure shows at the first read
        file.getline(buf, 8);
        EXPECT_EQ(file.state, aio_ios::eofbit | aio_ios::failbit);
    }
    aio_ifstream in(dir.Write("a.txt", "first\n").c_str());
    in.getline(nullptr, 10);
    in.getline(buf, 0);
    EXPECT_EQ(in.state, aio_ios::failbit);
    in.close();
    in.close();
    EXPECT_EQ(in.get(), EOF);
    in.open(dir.Write("b.txt", "second\n").c_str());
    EXPECT_EQ(in.state, 0);
    in.getline(buf, 8);
    EXPECT_STREQ(buf, "second");
}

TEST(AioIstream, LargeFileReadsBackAcrossBlockBoundaries) {
    // Lines of every length around the 256 KiB refills, one "\r\n" split between
    // two blocks; all must come back whole and without their CR.
    const size_t kBlock = 256 * 1024;
    std::string bytes;
    std::vector<std::string> lines;
    for (int i = 0; bytes.size() < 3 * kBlock; ++i) {
        std::string line = "line " + std::to_string(i) + std::string(static_cast<size_t>(i % 97), '.');
        if (bytes.size() < kBlock && bytes.size() + line.size() + 2 > kBlock) line.assign(kBlock - bytes.size() - 1, 'c');
        lines.push_back(line);
        bytes += line + (i % 3 == 0 || line[0] == 'c' ? "\r\n" : "\n");
    }
    ASSERT_EQ(bytes.substr(kBlock - 1, 2), "\r\n");
    fnd_TempDir dir;
    aio_ifstream in(dir.Write("big.txt", bytes).c_str());
    std::vector<char> buf(kBlock + 1);
    size_t n = 0;
    for (in.getline(buf.data(), int(buf.size())); !in.fail(); in.getline(buf.data(), int(buf.size())), ++n) {
        ASSERT_LT(n, lines.size());
        ASSERT_EQ(buf.data(), lines[n]) << "line " << n;
    }
    EXPECT_EQ(n, lines.size());
}

TEST(AioOstream, WritesToMemoryFilesAndStandardStreams) {
    aio_ostringstream mem;
    mem.print("a=").print_int(0).put(',').print_int(-42).put(',').print_int(INT_MIN).flush();
    mem << cow_String(" s\0t", 4) << atr_String(" m") << " c" << ' ' << 7;
    EXPECT_EQ(mem.str(), Cow(std::string("a=0,-42,-2147483648 s\0t m c 7", 29)));

    fnd_TempDir dir;
    std::string expect, big(200 * 1024, 'b');  // larger than the buffer
    {
        aio_ofstream file((dir / "out.txt").c_str());
        for (int i = 0; i < 5000; ++i) file.print("row ").print_int(i).put('\n');
        file.write(big.data(), big.size()).put('!');
        for (int i = 0; i < 5000; ++i) expect += "row " + std::to_string(i) + "\n";
        expect += big + "!";
        // Destroyed without close: the buffer still reaches the file.
    }
    EXPECT_EQ(fnd_ReadFile(dir / "out.txt"), expect);

    aio_ofstream bad((dir / "no/such/x.txt").c_str());
    EXPECT_EQ(bad.state, aio_ios::failbit);
    bad.close();

    // A file gets its bytes in blocks: flushing every line writes nothing yet, sync
    // writes everything.
    {
        aio_ofstream file((dir / "lines.txt").c_str());
        for (int i = 0; i < 1000; ++i) file.print("line\n").flush();
        EXPECT_EQ(std::filesystem::file_size(dir / "lines.txt"), 0u);
        file.sync();
        EXPECT_EQ(std::filesystem::file_size(dir / "lines.txt"), 5000u);
        file.print("tail").flush();
    }
    EXPECT_EQ(std::filesystem::file_size(dir / "lines.txt"), 5004u);

    std::FILE* f = std::tmpfile();
    ASSERT_NE(f, nullptr);
    aio_ostdstream(f).print("to a FILE ").print_int(1);
    std::rewind(f);
    char buf[32] = {};
    EXPECT_NE(std::fgets(buf, sizeof buf, f), nullptr);
    EXPECT_STREQ(buf, "to a FILE 1");
    std::fclose(f);
}
