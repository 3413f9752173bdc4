#include "aio_istream.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstring>
#include <new>

aio_istream::aio_istream() : m_data(nullptr), m_pos(0), m_end(0), m_sourceDone(false), m_gcount(0) {}

long aio_istream::ReadSource(char*, std::size_t) { return 0; }

void aio_istream::SetBlock(const char* data, std::size_t size) {
    m_data = data;
    m_pos = 0;
    m_end = data ? size : 0;
    m_sourceDone = true;
}

void aio_istream::ResetInput(bool sourceEnded) {
    // The next source may want a block of another size.
    m_block.reset();
    m_data = nullptr;
    m_pos = 0;
    m_end = 0;
    m_sourceDone = sourceEnded;
    m_gcount = 0;
}

bool aio_istream::Ensure(std::size_t count) {
    if (m_end - m_pos >= count) return true;
    if (m_sourceDone) return false;
    if (!m_block) {
        // Room for a line end that straddles two refills, whatever the source said.
        m_blockSize = m_sourceSizeKnown && m_sourceSize + 2 < kBlockSize ? m_sourceSize + 2 : kBlockSize;
        m_block.reset(new (std::nothrow) char[m_blockSize]);
        if (!m_block) {
            // Without a buffer nothing more can be read; end the input rather than fail
            // later in a less obvious place.
            m_sourceDone = true;
            return false;
        }
    }
    // Keep the unread tail: a line end may straddle two refills.
    std::size_t left = m_end - m_pos;
    if (left > 0 && m_data + m_pos != m_block.get()) std::memmove(m_block.get(), m_data + m_pos, left);
    m_data = m_block.get();
    m_pos = 0;
    m_end = left;
    while (m_end < count) {
        long got = ReadSource(m_block.get() + m_end, m_blockSize - m_end);
        if (got <= 0) {
            m_sourceDone = true;
            return false;
        }
        m_end += static_cast<std::size_t>(got);
    }
    return true;
}

aio_istream& aio_istream::getline(char* buffer, int limit) {
    m_gcount = 0;
    if (!buffer || limit < 1) {
        state |= failbit;
        return *this;
    }
    const std::size_t room = static_cast<std::size_t>(limit) - 1;
    std::size_t n = 0;
    bool took = false;  // any byte taken, text or newline
    for (;;) {
        if (m_pos == m_end && !Ensure(1)) {
            state |= took ? eofbit : (eofbit | failbit);
            break;
        }
        const char* p = m_data + m_pos;
        std::size_t avail = m_end - m_pos;
        std::size_t scan = avail < room - n ? avail : room - n;
        const char* newline = static_cast<const char*>(std::memchr(p, '\n', scan));
        if (newline) {
            std::size_t k = static_cast<std::size_t>(newline - p);
            std::memcpy(buffer + n, p, k);
            n += k;
            m_pos += k + 1;
            took = true;
            if (n > 0 && buffer[n - 1] == '\r') --n;
            break;
        }
        std::memcpy(buffer + n, p, scan);
        n += scan;
        m_pos += scan;
        if (scan > 0) took = true;
        if (n < room) continue;

        // The buffer is full: the line ends here only if its end comes next.
        if (!Ensure(1)) {
            state |= took ? eofbit : (eofbit | failbit);
            break;
        }
        char next = m_data[m_pos];
        if (next == '\n') {
            ++m_pos;
            if (n > 0 && buffer[n - 1] == '\r') --n;
            break;
        }
        if (next == '\r' && Ensure(2) && m_data[m_pos + 1] == '\n') {
            m_pos += 2;
            break;
        }
        state |= limitbit;
        break;
    }
    buffer[n] = '\0';
    m_gcount = static_cast<int>(n);
    return *this;
}

int aio_istream::get() {
    if (m_pos == m_end && !Ensure(1)) {
        m_gcount = 0;
        state |= eofbit | failbit;
        return EOF;
    }
    m_gcount = 1;
    return static_cast<unsigned char>(m_data[m_pos++]);
}

int aio_istream::peek() {
    if (m_pos == m_end && !Ensure(1)) return EOF;
    return static_cast<unsigned char>(m_data[m_pos]);
}

aio_ifstream::aio_ifstream() : m_file(nullptr) {}

aio_ifstream::aio_ifstream(const char* name) : m_file(nullptr) { open(name); }

aio_ifstream::~aio_ifstream() { close(); }

void aio_ifstream::open(const char* name) {
    close();
    state = 0;
    m_file = name ? std::fopen(name, "rb") : nullptr;
    // Our own block is the buffer; a second one inside the FILE would only copy.
    if (m_file) std::setvbuf(m_file, nullptr, _IONBF, 0);
    ResetInput(m_file == nullptr);
    struct stat info;
    m_sourceSizeKnown = m_file && fstat(fileno(m_file), &info) == 0 && S_ISREG(info.st_mode);
    m_sourceSize = m_sourceSizeKnown ? static_cast<std::size_t>(info.st_size) : 0;
}

void aio_ifstream::close() {
    if (m_file) {
        std::fclose(m_file);
        m_file = nullptr;
    }
    ResetInput(true);
}

long aio_ifstream::ReadSource(char* dst, std::size_t max) {
    if (!m_file) return 0;
    std::size_t got = std::fread(dst, 1, max, m_file);
    if (got == 0) return std::ferror(m_file) ? -1 : 0;
    return static_cast<long>(got);
}

aio_istringstream::aio_istringstream(const cow_String& text) : m_text(text) {
    SetBlock(m_text.c_str(), static_cast<std::size_t>(m_text.Length()));
}

void aio_istringstream::close() { ResetInput(true); }
