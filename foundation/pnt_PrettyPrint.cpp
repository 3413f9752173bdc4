#include "pnt_PrettyPrint.h"

#include <cstdio>

namespace {

const char* BaseName(const char* path) {
    const char* base = path;
    for (const char* p = path; *p; ++p)
        if (*p == '/' || *p == '\\') base = p + 1;
    return base;
}

}  // namespace

pnt_PrettyPrint::pnt_PrettyPrint() : m_lineOpen(false), m_capture(false) {}

pnt_PrettyPrint::~pnt_PrettyPrint() {
    // A line left open at thread end is still worth seeing.
    Flush();
}

void pnt_PrettyPrint::StartDebug(const char* file, int line) {
    Flush();
    m_blocks.push_back(Place{BaseName(file ? file : ""), line});
}

void pnt_PrettyPrint::EndDebug() {
    Flush();
    if (!m_blocks.empty()) m_blocks.pop_back();
}

void pnt_PrettyPrint::BeginLineIfNeeded() {
    if (m_lineOpen) return;
    m_lineOpen = true;
    m_line.clear();
    if (m_blocks.empty()) return;
    const Place& place = m_blocks.back();
    char number[16];
    std::snprintf(number, sizeof number, "%d", place.line);
    m_line.append(place.file).append(":").append(number).append(": ");
}

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(const char* text) {
    BeginLineIfNeeded();
    if (text) m_line.append(text);
    return *this;
}

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(const atr_StringBase& text) {
    BeginLineIfNeeded();
    m_line.append(text.c_str(), static_cast<size_t>(text.Length()));
    return *this;
}

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(char c) {
    BeginLineIfNeeded();
    m_line.push_back(c);
    return *this;
}

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(int value) { return *this << static_cast<long>(value); }

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(unsigned value) {
    char buf[24];
    std::snprintf(buf, sizeof buf, "%u", value);
    return *this << buf;
}

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(long value) {
    char buf[24];
    std::snprintf(buf, sizeof buf, "%ld", value);
    return *this << buf;
}

pnt_PrettyPrint& pnt_PrettyPrint::operator<<(double value) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%g", value);
    return *this << buf;
}

void pnt_PrettyPrint::EndLine() {
    BeginLineIfNeeded();
    m_line.push_back('\n');
    Emit(m_line);
    m_line.clear();
    m_lineOpen = false;
}

void pnt_PrettyPrint::Emit(const std::string& text) {
    if (m_capture) {
        m_captured.append(text);
        return;
    }
    // One write per line: standard error is unbuffered, and a line of another thread
    // then lands before or after this one, not inside it.
    std::fwrite(text.data(), 1, text.size(), stderr);
}

pnt_PrettyPrint& pnt_debugPrint() {
    thread_local pnt_PrettyPrint stream;
    return stream;
}

pnt_PrettyPrint& endl(pnt_PrettyPrint& stream) {
    stream.EndLine();
    return stream;
}
