// Output streams: where the printed deck and the driver's reports go.
//
// Writes collect in a buffer and go to the destination when it is full, on sync, and
// when the stream closes or is destroyed. A flush hands the buffer on too where someone
// may be watching the destination as it fills (a terminal); a file or a pipe gets its
// bytes in large blocks instead, since the deck printer flushes every line and a
// million lines must not cost a million system calls. A write that the destination
// refuses sets failbit; the bytes are lost and later writes are still tried.
#ifndef AIO_OSTREAM_H
#define AIO_OSTREAM_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

#include "aio_ios.h"
#include "cow_String.h"

class aio_ostream : public aio_ios {
public:
    aio_ostream& print(const char* text);  // null writes nothing
    aio_ostream& write(const char* data, std::size_t size);
    aio_ostream& print_int(int value);
    aio_ostream& put(char c);
    // The end of a unit of output: see above for when the bytes go out.
    aio_ostream& flush();
    // Hands everything written so far to the destination, whatever it is.
    aio_ostream& sync();

protected:
    // bufferSize 0: every write goes to Sink at once. `blockFlush`: flush leaves the
    // buffer to fill.
    explicit aio_ostream(std::size_t bufferSize, bool blockFlush = false);

    // Hands bytes to the destination; false if it refused them.
    virtual bool Sink(const char* data, std::size_t size) = 0;
    // Pushes on whatever the destination buffers itself.
    virtual bool SinkFlush() { return true; }

    // For the destructors of derived classes, which must empty the buffer while their
    // Sink is still there.
    void FlushBuffer();

private:
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_capacity;
    std::size_t m_used;
    bool m_triedBuffer;
    bool m_blockFlush;
};

aio_ostream& operator<<(aio_ostream& out, const cow_String& text);
aio_ostream& operator<<(aio_ostream& out, const atr_StringBase& text);
aio_ostream& operator<<(aio_ostream& out, const char* text);
aio_ostream& operator<<(aio_ostream& out, char c);
aio_ostream& operator<<(aio_ostream& out, int value);

// A file of our own, created or emptied on open. A file that cannot be opened sets
// failbit at once, and every write then fails.
class aio_ofstream : public aio_ostream {
public:
    aio_ofstream();
    explicit aio_ofstream(const char* name);
    ~aio_ofstream() override;

    void open(const char* name);
    bool is_open() const { return m_file != nullptr; }
    // Flushes and closes; calling it again does nothing.
    void close() override;

protected:
    bool Sink(const char* data, std::size_t size) override;
    bool SinkFlush() override;

private:
    std::FILE* m_file;
};

// A standard stream of the runtime (stdout, stderr) or any FILE the caller owns: it
// is flushed, never closed, by this object.
class aio_ostdstream : public aio_ostream {
public:
    explicit aio_ostdstream(std::FILE* file);
    ~aio_ostdstream() override;
    void close() override;

protected:
    bool Sink(const char* data, std::size_t size) override;
    bool SinkFlush() override;

private:
    std::FILE* m_file;
};

// Writes into memory; str() gives everything written so far.
class aio_ostringstream : public aio_ostream {
public:
    aio_ostringstream();
    cow_String str() const;
    // Forgets what was written.
    void reset() { m_text.clear(); }

protected:
    bool Sink(const char* data, std::size_t size) override;

private:
    std::string m_text;
};

#endif
