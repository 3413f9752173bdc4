#include "rgx_ReIterator.h"

#include <exception>
#include <functional>
#include <memory>
#include <regex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <pthread.h>

namespace {

typedef std::pair<int, int> Span;  // offset and length in the text; -1 offset: no match

const std::regex& Compiled(const cow_String& pattern) {
    // Patterns are a handful of constants, so the cache stays small; a caller that
    // builds patterns on the fly only costs a recompile after the flush.
    static const size_t kCacheLimit = 64;
    thread_local std::unordered_map<std::string, std::regex> cache;
    std::string key(pattern.c_str(), static_cast<size_t>(pattern.Length()));
    auto it = cache.find(key);
    if (it != cache.end()) return it->second;
    std::regex compiled;
    try {
        compiled.assign(key, std::regex::ECMAScript);
    } catch (const std::regex_error& e) {
        atr_translate msg("Invalid regular expression \"%1$s\": %2$s");
        atr_SubstituteFormat(msg, 1, pattern);
        atr_SubstituteFormat(msg, 2, e.what());
        rgx_PatternError(msg.Result()).Throw(__FILE__, __LINE__);
    }
    if (cache.size() >= kCacheLimit) cache.clear();
    return cache.emplace(std::move(key), std::move(compiled)).first->second;
}

struct HelperCall {
    std::function<void()> work;
    std::exception_ptr failure;
};

void* RunHelper(void* arg) {
    HelperCall* call = static_cast<HelperCall*>(arg);
    try {
        call->work();
    } catch (...) {
        call->failure = std::current_exception();
    }
    return nullptr;
}

// Runs the work on the calling thread for a short text, else on a helper thread with
// room for the engine's recursion. False when the text is too long to search or no
// helper thread could be made.
bool RunSearch(int textLength, const std::function<void()>& work) {
    if (textLength <= rgx_ReIterator::kInlineLength) {
        work();
        return true;
    }
    if (textLength > rgx_ReIterator::kMaxLength) return false;
    // A few hundred bytes per character are measured; four kilobytes leave room for
    // heavier patterns and for instrumented builds.
    size_t stack = (size_t(16) << 20) + static_cast<size_t>(textLength) * 4096;
    HelperCall call{work, nullptr};
    pthread_attr_t attr;
    if (pthread_attr_init(&attr) != 0) return false;
    bool ok = pthread_attr_setstacksize(&attr, stack) == 0;
    pthread_t thread;
    ok = ok && pthread_create(&thread, &attr, &RunHelper, &call) == 0;
    pthread_attr_destroy(&attr);
    if (!ok) return false;
    pthread_join(thread, nullptr);
    if (call.failure) std::rethrow_exception(call.failure);
    return true;
}

cow_String Piece(const cow_String& text, int offset, int length) {
    return cow_String(text.c_str() + offset, length);
}

}  // namespace

cow_String rgx_ReIterator::Group(int i) const {
    if (i < 0 || i >= m_groups.Count()) return cow_String();
    return m_groups.ConstGet(i);
}

rgx_ReIterator rgx_match(const cow_String& pattern, const cow_String& text) {
    const std::regex& re = Compiled(pattern);
    const char* begin = text.c_str();
    const char* end = begin + text.Length();
    int count = 0;
    std::vector<Span> groups;
    auto search = [&]() {
        try {
            for (std::cregex_iterator it(begin, end, re), last; it != last; ++it) {
                if (count == 0) {
                    const std::cmatch& m = *it;
                    for (size_t g = 0; g < m.size(); ++g) {
                        if (m[g].matched)
                            groups.emplace_back(static_cast<int>(m[g].first - begin), static_cast<int>(m[g].length()));
                        else
                            groups.emplace_back(-1, 0);
                    }
                }
                ++count;
            }
        } catch (const std::regex_error&) {
            // An engine that gives up on a text (complexity, stack) has found nothing.
            count = 0;
            groups.clear();
        }
    };
    rgx_ReIterator result;
    if (!RunSearch(text.Length(), search)) return result;
    result.m_count = count;
    for (const Span& g : groups)
        result.m_groups.Append(g.first < 0 ? cow_String() : Piece(text, g.first, g.second));
    return result;
}

cow_1DArrayList<cow_String> rgx_split(const cow_String& pattern, const cow_String& text) {
    const std::regex& re = Compiled(pattern);
    const char* begin = text.c_str();
    const char* end = begin + text.Length();
    std::vector<Span> cuts;  // the matches that split
    bool searched = false;
    auto search = [&]() {
        try {
            for (std::cregex_iterator it(begin, end, re), last; it != last; ++it) {
                const std::cmatch& m = *it;
                if (m.length(0) == 0) continue;
                cuts.emplace_back(static_cast<int>(m[0].first - begin), static_cast<int>(m.length(0)));
            }
            searched = true;
        } catch (const std::regex_error&) {
            cuts.clear();
        }
    };
    cow_1DArrayList<cow_String> pieces;
    if (!RunSearch(text.Length(), search) || !searched) cuts.clear();
    int from = 0;
    for (const Span& cut : cuts) {
        pieces.Append(Piece(text, from, cut.first - from));
        from = cut.first + cut.second;
    }
    pieces.Append(Piece(text, from, text.Length() - from));
    return pieces;
}

cow_String rgx_join(const cow_1DArrayList<cow_String>& pieces, const cow_String& separator) {
    cow_String out;
    for (int i = 0; i < pieces.Count(); ++i) {
        if (i > 0) out.append(separator);
        out.append(pieces.ConstGet(i));
    }
    return out;
}
