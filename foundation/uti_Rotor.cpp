#include "uti_Rotor.h"

#include <cstdint>
#include <string>

namespace {

std::uint64_t Fnv1a(const cow_String& key) {
    std::uint64_t h = 14695981039346656037ull;
    const unsigned char* s = reinterpret_cast<const unsigned char*>(key.c_str());
    for (int i = 0; i < key.Length(); ++i) {
        h ^= s[i];
        h *= 1099511628211ull;
    }
    return h;
}

std::uint64_t SplitMix(std::uint64_t& state) {
    std::uint64_t z = (state += 0x9e3779b97f4a7c15ull);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
    return z ^ (z >> 31);
}

}  // namespace

uti_Rotor::uti_Rotor(const cow_String& key) {
    std::uint64_t state = Fnv1a(key);
    for (unsigned i = 0; i < 256; ++i) m_wiring[i] = static_cast<unsigned char>(i);
    for (unsigned i = 255; i > 0; --i) {
        unsigned j = static_cast<unsigned>(SplitMix(state) % (i + 1));
        unsigned char t = m_wiring[i];
        m_wiring[i] = m_wiring[j];
        m_wiring[j] = t;
    }
    for (unsigned i = 0; i < 256; ++i) m_inverse[m_wiring[i]] = static_cast<unsigned char>(i);
    m_fastStart = static_cast<unsigned>(SplitMix(state) & 255);
    m_slowStart = static_cast<unsigned>(SplitMix(state) & 255);
    Reset();
}

void uti_Rotor::Reset() {
    m_fast = m_fastStart;
    m_slow = m_slowStart;
}

void uti_Rotor::Step() {
    m_fast = (m_fast + 1) & 255;
    if (m_fast == m_fastStart) m_slow = (m_slow + 1) & 255;
}

cow_String uti_Rotor::Encrypt(const cow_String& plain) {
    std::string out(static_cast<size_t>(plain.Length()), '\0');
    const unsigned char* s = reinterpret_cast<const unsigned char*>(plain.c_str());
    for (int i = 0; i < plain.Length(); ++i) {
        unsigned t = m_wiring[(s[i] + m_fast) & 255];
        out[static_cast<size_t>(i)] = static_cast<char>(m_wiring[(t + m_slow) & 255]);
        Step();
    }
    return cow_String(out.data(), static_cast<int>(out.size()));
}

cow_String uti_Rotor::Decrypt(const cow_String& cipher) {
    std::string out(static_cast<size_t>(cipher.Length()), '\0');
    const unsigned char* s = reinterpret_cast<const unsigned char*>(cipher.c_str());
    for (int i = 0; i < cipher.Length(); ++i) {
        unsigned t = (m_inverse[s[i]] - m_slow) & 255;
        out[static_cast<size_t>(i)] = static_cast<char>((m_inverse[t] - m_fast) & 255);
        Step();
    }
    return cow_String(out.data(), static_cast<int>(out.size()));
}
