#include "aio_ostream.h"

#include <cstring>
#include <new>
#include <unistd.h>

namespace {
const std::size_t kFileBufferSize = 256 * 1024;

// Whether a standard stream may have someone reading it line by line.
bool IsInteractive(std::FILE* file) { return file && isatty(fileno(file)); }
}  // namespace

aio_ostream::aio_ostream(std::size_t bufferSize, bool blockFlush)
    : m_capacity(bufferSize), m_used(0), m_triedBuffer(false), m_blockFlush(blockFlush) {}

void aio_ostream::FlushBuffer() {
    if (m_used == 0) return;
    if (!Sink(m_buffer.get(), m_used)) state |= failbit;
    m_used = 0;
}

aio_ostream& aio_ostream::write(const char* data, std::size_t size) {
    if (!data || size == 0) return *this;
    if (!m_buffer && !m_triedBuffer && m_capacity > 0) {
        m_triedBuffer = true;
        m_buffer.reset(new (std::nothrow) char[m_capacity]);
        // Without the memory the stream still works, one Sink per write.
        if (!m_buffer) m_capacity = 0;
    }
    if (m_used + size > m_capacity) FlushBuffer();
    if (size >= m_capacity) {
        if (!Sink(data, size)) state |= failbit;
        return *this;
    }
    std::memcpy(m_buffer.get() + m_used, data, size);
    m_used += size;
    return *this;
}

aio_ostream& aio_ostream::print(const char* text) {
    if (!text) return *this;
    return write(text, std::strlen(text));
}

aio_ostream& aio_ostream::print_int(int value) {
    char digits[16];
    char* end = digits + sizeof digits;
    char* p = end;
    // Unsigned arithmetic, so that the most negative int has a magnitude too.
    unsigned magnitude = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    do {
        *--p = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude);
    if (value < 0) *--p = '-';
    return write(p, static_cast<std::size_t>(end - p));
}

aio_ostream& aio_ostream::put(char c) {
    if (m_buffer && m_used < m_capacity) {
        m_buffer[m_used++] = c;
        return *this;
    }
    return write(&c, 1);
}

aio_ostream& aio_ostream::flush() {
    if (m_blockFlush && m_buffer) return *this;
    return sync();
}

aio_ostream& aio_ostream::sync() {
    FlushBuffer();
    if (!SinkFlush()) state |= failbit;
    return *this;
}

aio_ostream& operator<<(aio_ostream& out, const cow_String& text) {
    return out.write(text.c_str(), static_cast<std::size_t>(text.Length()));
}

aio_ostream& operator<<(aio_ostream& out, const atr_StringBase& text) {
    return out.write(text.c_str(), static_cast<std::size_t>(text.Length()));
}

aio_ostream& operator<<(aio_ostream& out, const char* text) { return out.print(text); }
aio_ostream& operator<<(aio_ostream& out, char c) { return out.put(c); }
aio_ostream& operator<<(aio_ostream& out, int value) { return out.print_int(value); }

aio_ofstream::aio_ofstream() : aio_ostream(kFileBufferSize, true), m_file(nullptr) {}

aio_ofstream::aio_ofstream(const char* name) : aio_ofstream() { open(name); }

aio_ofstream::~aio_ofstream() { close(); }

void aio_ofstream::open(const char* name) {
    close();
    state = 0;
    m_file = name ? std::fopen(name, "wb") : nullptr;
    if (m_file)
        std::setvbuf(m_file, nullptr, _IONBF, 0);  // our buffer is enough
    else
        state |= failbit;
}

void aio_ofstream::close() {
    if (!m_file) return;
    FlushBuffer();
    if (std::fclose(m_file) != 0) state |= failbit;
    m_file = nullptr;
}

bool aio_ofstream::Sink(const char* data, std::size_t size) {
    return m_file && std::fwrite(data, 1, size, m_file) == size;
}

bool aio_ofstream::SinkFlush() { return m_file && std::fflush(m_file) == 0; }

aio_ostdstream::aio_ostdstream(std::FILE* file)
    : aio_ostream(kFileBufferSize, !IsInteractive(file)), m_file(file) {
    if (!m_file) state |= failbit;
}

aio_ostdstream::~aio_ostdstream() { close(); }

void aio_ostdstream::close() {
    if (!m_file) return;
    sync();
    m_file = nullptr;
}

bool aio_ostdstream::Sink(const char* data, std::size_t size) {
    return m_file && std::fwrite(data, 1, size, m_file) == size;
}

bool aio_ostdstream::SinkFlush() { return m_file && std::fflush(m_file) == 0; }

aio_ostringstream::aio_ostringstream() : aio_ostream(0) {}

cow_String aio_ostringstream::str() const { return cow_String(m_text.data(), static_cast<int>(m_text.size())); }

bool aio_ostringstream::Sink(const char* data, std::size_t size) {
    m_text.append(data, size);
    return true;
}
