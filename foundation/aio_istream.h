// Input streams: the line reader under the deck parser, and its sources.
//
// Reading goes through one block buffer that is refilled from the source in large
// pieces; getline copies straight from it into the caller's buffer, so a line costs
// no allocation. Bytes are taken as they are, NUL bytes included: getline stores a
// NUL like any other byte and gcount() tells how many bytes it stored, so a caller
// that looks at the text as a C string sees it end at the first NUL, and one that
// uses gcount() sees all of it.
//
// Line ends: "\n", and "\r\n", whose "\r" is dropped with the newline so that files
// written on either system give the same lines. A "\r" anywhere else is text.
#ifndef AIO_ISTREAM_H
#define AIO_ISTREAM_H

#include <cstddef>
#include <cstdio>
#include <memory>

#include "aio_ios.h"
#include "cow_String.h"

class aio_istream : public aio_ios {
public:
    // Reads one line: up to and including its newline, storing at most limit - 1
    // bytes and a NUL behind them, without the newline.
    //   - The line ends within the limit: the newline is consumed. A line of exactly
    //     limit - 1 bytes counts as ending within the limit.
    //   - It goes on behind the limit: limitbit is set and the rest stays unread, so
    //     the next read continues the same line.
    //   - The input ends before a newline: eofbit is set and what was read is the
    //     line; failbit too if there was nothing at all. So a last line without a
    //     newline is given whole, and the read after it reports the end, and nothing
    //     behind the last newline of a file is a line.
    // A null buffer or a limit below 1 reads nothing and sets failbit.
    aio_istream& getline(char* buffer, int limit);

    // One byte as 0..255, or EOF (-1) with eofbit and failbit set.
    int get();
    // The next byte without taking it, or EOF; sets no bits.
    int peek();

    // Bytes stored by the last getline, or taken by the last get.
    int gcount() const { return m_gcount; }

protected:
    aio_istream();

    // Reads from the source into dst, at most max bytes: the count, 0 at the end of
    // the source, below 0 on an error (which ends the input like its end does).
    virtual long ReadSource(char* dst, std::size_t max);

    // How many bytes the source holds, when it knows (a regular file does). A small
    // file then costs no full block: the block is made anew for every file, and an
    // include file is often a few lines.
    bool m_sourceSizeKnown = false;
    std::size_t m_sourceSize = 0;

    // The input is this memory, which must outlive the stream; there is no source.
    void SetBlock(const char* data, std::size_t size);
    // Forgets all buffered input; with sourceEnded the stream reads nothing more.
    void ResetInput(bool sourceEnded);

private:
    static const std::size_t kBlockSize = 256 * 1024;

    // Makes at least count unread bytes available; false if the source ends first.
    bool Ensure(std::size_t count);

    const char* m_data;
    std::size_t m_pos;
    std::size_t m_end;
    bool m_sourceDone;
    std::unique_ptr<char[]> m_block;
    std::size_t m_blockSize = 0;
    int m_gcount;
};

// A file, read as bytes. A file that cannot be opened gives nothing: the first read
// sets eofbit and failbit. A directory reads the same way.
class aio_ifstream : public aio_istream {
public:
    aio_ifstream();
    explicit aio_ifstream(const char* name);
    ~aio_ifstream() override;

    // Closes what is open, clears the state and opens the file.
    void open(const char* name);
    bool is_open() const { return m_file != nullptr; }
    void close() override;

protected:
    long ReadSource(char* dst, std::size_t max) override;

private:
    std::FILE* m_file;
};

// A text in memory, read like a file; the stream keeps its own reference to it.
class aio_istringstream : public aio_istream {
public:
    explicit aio_istringstream(const cow_String& text);
    void close() override;

private:
    cow_String m_text;
};

#endif
