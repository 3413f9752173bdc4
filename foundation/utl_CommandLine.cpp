#include "utl_CommandLine.h"

#include <cstring>

template <>
utl_CommandLine& thr_GlobalSingleton<utl_CommandLine>::Instance() {
    static utl_CommandLine instance;
    return instance;
}

namespace {
std::string Text(const cow_String& s) { return std::string(s.c_str(), static_cast<size_t>(s.Length())); }
}  // namespace

bool utl_CommandLine::IsMember(const cow_String& key) const {
    std::lock_guard<std::mutex> hold(m_mutex);
    return m_values.count(Text(key)) != 0;
}

cow_String utl_CommandLine::ConstGetValue(const cow_String& key) const {
    std::lock_guard<std::mutex> hold(m_mutex);
    auto it = m_values.find(Text(key));
    if (it == m_values.end()) return cow_String();
    return cow_String(it->second.data(), static_cast<int>(it->second.size()));
}

void utl_CommandLine::Set(const cow_String& key, const cow_String& value) {
    std::lock_guard<std::mutex> hold(m_mutex);
    m_values[Text(key)] = Text(value);
}

void utl_CommandLine::Remove(const cow_String& key) {
    std::lock_guard<std::mutex> hold(m_mutex);
    m_values.erase(Text(key));
}

void utl_CommandLine::Clear() {
    std::lock_guard<std::mutex> hold(m_mutex);
    m_values.clear();
}

cow_1DArrayList<cow_String> utl_CommandLine::Parse(int argc, const char* const* argv) {
    cow_1DArrayList<cow_String> others;
    if (!argv) return others;
    for (int i = 1; i < argc; ++i) {
        const char* arg = argv[i];
        if (!arg) continue;
        const char* eq = std::strchr(arg, '=');
        if (!eq || eq == arg) {
            others.Append(cow_String(arg));
            continue;
        }
        std::lock_guard<std::mutex> hold(m_mutex);
        m_values[std::string(arg, eq)] = std::string(eq + 1);
    }
    return others;
}
