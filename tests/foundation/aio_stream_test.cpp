#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "aio_istream.h"
#include "aio_ostream.h"
#include "atr_String.h"
#include "fnd_TestFiles.h"

namespace {

struct Read {
    std::string text;  // the bytes stored, by gcount
    int state;
};

// Reads lines with one limit until a read sets eofbit or maxReads are done, clearing
// the state after each read the way the deck reader does.
std::vector<Read> ReadAll(aio_istream& in, int limit, size_t maxReads) {
    std::vector<Read> out;
    std::vector<char> buf(static_cast<size_t>(limit) + 1, 'X');
    for (size_t i = 0; i < maxReads; ++i) {
        in.getline(buf.data(), limit);
        out.push_back(Read{std::string(buf.data(), static_cast<size_t>(in.gcount())), in.state});
        EXPECT_EQ(buf[static_cast<size_t>(in.gcount())], '\0');
        bool end = in.eof();
        in.state = 0;
        if (end) break;
    }
    return out;
}

std::string Show(const std::vector<Read>& reads) {
    std::string s;
    for (const Read& r : reads) s += "[" + r.text + "|" + std::to_string(r.state) + "]";
    return s;
}

}  // namespace

TEST(AioIstream, GetlineSplitsLinesAndReportsEnds) {
    const int E = aio_ios::eofbit, L = aio_ios::limitbit, F = aio_ios::failbit;
    struct Case {
        const char* name;
        std::string bytes;
        int limit;
        std::vector<Read> expect;
    } cases[] = {
        {"last line without newline", "abc\ndef", 10, {{"abc", 0}, {"def", E}}},
        {"nothing behind the last newline", "abc\n", 10, {{"abc", 0}, {"", E | F}}},
        {"empty input", "", 10, {{"", E | F}}},
        {"empty lines are lines", "\n\n", 10, {{"", 0}, {"", 0}, {"", E | F}}},
        {"line of exactly limit-1 keeps the next line", "abc\nxyz\n", 4, {{"abc", 0}, {"xyz", 0}, {"", E | F}}},
        {"long line continues", "abcdefg\nh", 4, {{"abc", L}, {"def", L}, {"g", 0}, {"h", E}}},
        {"long last line", "abcd", 4, {{"abc", L}, {"d", E}}},
        {"full buffer then end", "abc", 4, {{"abc", E}}},
        {"CRLF loses the CR", "ab\r\ncd\r\n", 10, {{"ab", 0}, {"cd", 0}, {"", E | F}}},
        {"CRLF right behind a full buffer", "abc\r\nx", 4, {{"abc", 0}, {"x", E}}},
        {"CR as last stored byte before LF", "ab\r\nx", 4, {{"ab", 0}, {"x", E}}},
        {"lone CR is text", "a\rb\n\r", 10, {{"a\rb", 0}, {"\r", E}}},
        {"only one CR goes", "a\r\r\n", 10, {{"a\r", 0}, {"", E | F}}},
        {"NUL bytes are kept", std::string("a\0b\n\0", 5), 10, {{std::string("a\0b", 3), 0}, {std::string("\0", 1), E}}},
        {"limit 1 stores nothing", "\nab", 1, {{"", 0}, {"", L}}},  // and stays on "ab"
    };
    // Each case is read from memory and from a file, which must agree.
    fnd_TempDir dir;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        aio_istringstream mem(cow_String(c.bytes.data(), static_cast<int>(c.bytes.size())));
        size_t reads = c.expect.size();
        EXPECT_EQ(Show(ReadAll(mem, c.limit, reads)), Show(c.expect));

        aio_ifstream file(dir.Write("case.txt", c.bytes).c_str());
        EXPECT_EQ(Show(ReadAll(file, c.limit, reads)), Show(c.expect));
    }
}

TEST(AioIstream, LongLineIsCutAndTheRestDroppedByGet) {
    // What the deck reader does with a line beyond its 256 characters.
    std::string longLine(300, 'x');
    longLine[255] = 'y';
    aio_istringstream in(cow_String((longLine + "\nnext\n").c_str()));
    char buf[257];
    in.getline(buf, 257);
    EXPECT_EQ(std::strlen(buf), 256u);
    EXPECT_EQ(buf[255], 'y');
    EXPECT_EQ(in.state, aio_ios::limitbit);
    in.state = 0;
    int dropped = 0;
    for (int c = in.get(); c != '\n' && !in.eof(); c = in.get()) ++dropped;
    EXPECT_EQ(dropped, 44);
    in.getline(buf, 257);
    EXPECT_STREQ(buf, "next");
    EXPECT_EQ(in.state, 0);
}

TEST(AioIstream, GetGivesBytesThenEof) {
    aio_istringstream in(cow_String("a\xff\n", 3));
    EXPECT_EQ(in.peek(), 'a');
    EXPECT_EQ(in.get(), 'a');
    EXPECT_EQ(in.get(), 0xff);
    EXPECT_EQ(in.get(), '\n');
    EXPECT_EQ(in.state, 0);
    EXPECT_EQ(in.peek(), EOF);
    EXPECT_EQ(in.state, 0);
    EXPECT_EQ(in.get(), EOF);
    EXPECT_EQ(in.state, aio_ios::eofbit | aio_ios::failbit);
}

TEST(AioIstream, BadArgumentsAndUnusableFilesReadNothing) {
    aio_istringstream in(cow_String("abc\n"));
    in.getline(nullptr, 10);
    EXPECT_EQ(in.state, aio_ios::failbit);
    in.state = 0;
    char buf[4] = {'q', 'q', 'q', 'q'};
    in.getline(buf, 0);
    in.getline(buf, -5);
    EXPECT_EQ(in.state, aio_ios::failbit);
    EXPECT_EQ(buf[0], 'q');  // nothing written
    in.state = 0;
    in.getline(buf, 4);
    EXPECT_STREQ(buf, "abc");

    fnd_TempDir dir;
    std::string paths[] = {dir / "missing.inp", dir.MakeDir("sub")};
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        aio_ifstream file;
        file.open(path.c_str());
        EXPECT_EQ(file.state, 0);  // the failure shows at the first read
        file.getline(buf, 4);
        EXPECT_EQ(file.state, aio_ios::eofbit | aio_ios::failbit);
        EXPECT_STREQ(buf, "");
        file.state = 0;
        EXPECT_EQ(file.get(), EOF);
        EXPECT_TRUE(file.eof());
    }
    aio_ifstream none(nullptr);
    EXPECT_FALSE(none.is_open());
    EXPECT_EQ(none.get(), EOF);
}

TEST(AioIstream, CloseTwiceAndReopen) {
    fnd_TempDir dir;
    std::string a = dir.Write("a.txt", "first\n");
    std::string b = dir.Write("b.txt", "second\n");
    aio_ifstream in(a.c_str());
    EXPECT_TRUE(in.is_open());
    char buf[16];
    in.getline(buf, 16);
    EXPECT_STREQ(buf, "first");
    in.close();
    in.close();
    EXPECT_FALSE(in.is_open());
    in.getline(buf, 16);
    EXPECT_EQ(in.state, aio_ios::eofbit | aio_ios::failbit);
    in.open(b.c_str());
    EXPECT_EQ(in.state, 0);
    in.getline(buf, 16);
    EXPECT_STREQ(buf, "second");

    aio_istringstream text(cow_String("x\n"));
    text.close();
    text.close();
    EXPECT_EQ(text.get(), EOF);
}

TEST(AioIstream, LargeFileReadsBackAcrossBlockBoundaries) {
    // Line ends fall on every offset around the refills, among them a "\r\n" split
    // between two blocks; the lines must come back whole and without their CR.
    const size_t kBlock = 256 * 1024;
    std::string bytes;
    std::vector<std::string> lines;
    for (int i = 0; bytes.size() < 3 * kBlock; ++i) {
        std::string line = "line " + std::to_string(i) + std::string(static_cast<size_t>(i % 97), '.');
        if (bytes.size() < kBlock && bytes.size() + line.size() + 2 > kBlock) {
            line = std::string(kBlock - bytes.size() - 1, 'c');  // its CR ends the block
        }
        lines.push_back(line);
        bytes += line + (i % 3 == 0 || line[0] == 'c' ? "\r\n" : "\n");
    }
    ASSERT_EQ(bytes[kBlock - 1], '\r');
    ASSERT_EQ(bytes[kBlock], '\n');
    fnd_TempDir dir;
    aio_ifstream in(dir.Write("big.txt", bytes).c_str());
    std::vector<char> buf(kBlock + 1);
    size_t n = 0;
    for (;;) {
        in.getline(buf.data(), static_cast<int>(buf.size()));
        if (in.state & aio_ios::failbit) break;
        ASSERT_LT(n, lines.size());
        ASSERT_EQ(std::string(buf.data()), lines[n]) << "line " << n;
        ASSERT_EQ(in.state & aio_ios::limitbit, 0);
        ++n;
    }
    EXPECT_EQ(n, lines.size());
}

TEST(AioOstream, PrintsChainsAndCollectsInMemory) {
    aio_ostringstream out;
    out.print("a=").print_int(0).put(',').print_int(-42).put(',').print_int(INT_MAX).put(',').print_int(INT_MIN).flush();
    out << cow_String(" s\0t", 4) << atr_String(" m") << " c" << ' ' << 7;
    out.print(nullptr);
    EXPECT_EQ(std::string(out.str().c_str(), static_cast<size_t>(out.str().Length())),
              std::string("a=0,-42,2147483647,-2147483648 s\0t m c 7", 40));
    EXPECT_EQ(out.state, 0);
    out.reset();
    EXPECT_EQ(out.str(), "");
}

TEST(AioOstream, FileStreamsWriteEverything) {
    fnd_TempDir dir;
    std::string path = dir / "out.txt";
    std::string expect;
    {
        aio_ofstream out(path.c_str());
        ASSERT_TRUE(out.is_open());
        std::string big(200 * 1024, 'b');  // larger than the buffer
        for (int i = 0; i < 5000; ++i) {
            out.print("row ").print_int(i).put('\n');
            expect += "row " + std::to_string(i) + "\n";
        }
        out.write(big.data(), big.size());
        expect += big;
        out.put('!');
        expect += "!";
        out.close();
        out.close();
        EXPECT_EQ(out.state, 0);
    }
    EXPECT_EQ(fnd_ReadFile(path), expect);

    {
        aio_ofstream unclosed(path.c_str());
        unclosed.print("destroyed, not closed");
    }
    EXPECT_EQ(fnd_ReadFile(path), "destroyed, not closed");

    aio_ofstream bad((dir / "no/such/dir/x.txt").c_str());
    EXPECT_FALSE(bad.is_open());
    EXPECT_EQ(bad.state, aio_ios::failbit);
    bad.print("x").flush();
    EXPECT_TRUE(bad.fail());

    std::FILE* f = std::tmpfile();
    ASSERT_NE(f, nullptr);
    {
        aio_ostdstream std_out(f);
        std_out.print("to a FILE ").print_int(1);
        std_out.flush();
        std_out.put('\n');
    }
    std::rewind(f);
    char buf[32] = {};
    ASSERT_NE(std::fgets(buf, sizeof buf, f), nullptr);
    EXPECT_STREQ(buf, "to a FILE 1\n");
    std::fclose(f);
}
