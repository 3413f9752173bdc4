// Keyword messages and generation sequences.
#include "inp_Utils.h"

#include <string>

#include "inp_DataArray.h"
#include "inp_Keyword.h"
#include "omi_Timer.h"
#include "pnt_PrettyPrint.h"
#include "typ_DebugFlags.h"

namespace {

const char* const kAnalyticalSurfaceTypes[] = {"SEGMENTS", "CYLINDER", "REVOLUTION", "USER", "BEZIER", "BSPLINE"};

// The file as the user knows it. Only a backslash counts as a separator: names with
// forward slashes are shown whole.
cow_String ShownFileName(const cow_String& fileName) {
    int slash = fileName.rfind("\\", 1);
    return slash < fileName.Length() ? fileName.Substr(slash + 1) : fileName;
}

atr_String ListMessage(const inp_Keyword& keyword, const atr_String& text, const cow_String& joined) {
    atr_translate t("%s:\n%s");
    atr_SubstituteFormat(t, 1, text);
    atr_SubstituteFormat(t, 2, joined);
    return inp_Utils::MessageInKeyword(keyword, t.Result());
}

}  // namespace

atr_String inp_Utils::MessageInKeyword(const inp_Keyword& keyword, const atr_String& text) {
    atr_translate name("in keyword *%s");
    atr_SubstituteFormat(name, 1, keyword.Name().ToUpper());
    atr_String out = name.Result();
    if (!keyword.fileName.IsEmpty()) {
        atr_translate file(", file \"%s\"");
        atr_SubstituteFormat(file, 1, ShownFileName(keyword.fileName));
        out.append(file.Result());
    }
    if (keyword.lineNumber != 0) {
        atr_translate line(", line %d:");
        atr_SubstituteFormat(line, 1, keyword.lineNumber);
        out.append(line.Result());
    }
    out.append(' ');
    return out.append(text);
}

atr_String inp_Utils::MessageInKeyword(const inp_Keyword& keyword, const atr_String& text,
                                       const cow_1DArrayList<int>& ids) {
    cow_String joined;
    for (int i = 0; i < ids.Count(); ++i) {
        if (i > 0) joined.append(", ");
        joined.append(cow_String(ids[i]));
    }
    return ListMessage(keyword, text, joined);
}

atr_String inp_Utils::MessageInKeyword(const inp_Keyword& keyword, const atr_String& text,
                                       const cow_List<cow_String>& names) {
    cow_String joined;
    for (int i = 0; i < names.Count(); ++i) {
        if (i > 0) joined.append(", ");
        joined.append(names[i]);
    }
    return ListMessage(keyword, text, joined);
}

bool inp_Utils::IsAnalyticalSurfaceType(const cow_String& type) {
    for (const char* known : kAnalyticalSurfaceTypes)
        if (type == known) return true;
    return false;
}

bool inp_Utils::HasScopeSeparator(const cow_String& name) {
    bool quoted = false;
    for (const char* p = name.c_str(); *p; ++p) {
        if (*p == '"')
            quoted = !quoted;
        else if (*p == '.' && !quoted)
            return true;
    }
    return false;
}

cow_List<cow_String> inp_Utils::SplitScopedSet(const cow_String& name) {
    cow_List<cow_String> segments;
    const char* text = name.c_str();
    const char* start = text;
    bool quoted = false;
    for (const char* p = text;; ++p) {
        if (*p == '"') {
            quoted = !quoted;
        } else if (*p == '\0' || (*p == '.' && !quoted)) {
            segments.Append(cow_String(start, static_cast<int>(p - start)));
            if (*p == '\0') break;
            start = p + 1;
        }
    }
    return segments;
}

bool inp_Utils::IsSetName(const cow_String& name) { return inp_Types::MatchSetName(name); }

bool inp_Utils::IsScopedSetName(const cow_List<cow_String>& segments) {
    return segments.Count() > 1 && inp_Types::MatchSetName(segments.Last());
}

namespace {
thread_local long long t_maxGeneratedIds = inp_Utils::kMaxGeneratedIds;
}  // namespace

long long inp_Utils::MaxGeneratedIds() { return t_maxGeneratedIds; }

inp_Utils::GenerationLimit::GenerationLimit(long long most) : m_previous(t_maxGeneratedIds) {
    if (most > 0 && most < t_maxGeneratedIds) t_maxGeneratedIds = most;
}

inp_Utils::GenerationLimit::~GenerationLimit() { t_maxGeneratedIds = m_previous; }

atr_String inp_Utils::TooManyGenerated(const cow_String& context) {
    return atr_Format("The generation on the %s keyword gives more than %s ids.", context,
                      cow_String(std::to_string(MaxGeneratedIds()).c_str()));
}

bool inp_Utils::IdsInRange(long long lowest, long long highest, const cow_String& context, atr_String& message) {
    if (lowest >= 1 && highest <= kMaxId) return true;
    atr_translate t("The generation on the %1$s keyword gives the id %2$s, outside the range of ids from 1 to %3$s.");
    atr_SubstituteFormat(t, 1, context);
    atr_SubstituteFormat(t, 2, cow_String(std::to_string(lowest < 1 ? lowest : highest).c_str()));
    atr_SubstituteFormat(t, 3, cow_String(std::to_string(kMaxId).c_str()));
    message = t.Result();
    return false;
}

// Arithmetic in 64 bits: ids come from atoi and may lie anywhere in the int range.
inp_Utils::Generation inp_Utils::ExpandGeneration(const cow_1DArrayList<int>& ids, const cow_String& context) {
    Generation result;
    if (ids.Count() < 2) {
        atr_translate t(
            "There are fewer than 2 items on a data line for which a generation sequence (start id, end id, "
            "optional increment number) is expected.  The keyword in question is related to %s.  Please check "
            "input data.");
        atr_SubstituteFormat(t, 1, context);
        result.errors.Append(t.Result());
        return result;
    }
    long long start = ids[0], end = ids[1];
    long long increment = ids.Count() > 2 && ids[2] != 0 ? ids[2] : 1;
    long long distance = end - start;
    bool rightWay = distance == 0 || (distance > 0 ? increment > 0 : increment < 0);
    if (!rightWay || distance % increment != 0) {
        atr_translate t("Increment of %1$s cannot be used to step from %2$s to %3$s on %4$s keyword.");
        atr_SubstituteFormat(t, 1, static_cast<int>(increment));
        atr_SubstituteFormat(t, 2, ids[0]);
        atr_SubstituteFormat(t, 3, ids[1]);
        atr_SubstituteFormat(t, 4, context);
        result.errors.Append(t.Result());
        return result;
    }
    long long count = distance / increment + 1;
    // No model holds that many ids; a sequence this long is a typing error, and building
    // it would exhaust the memory of the machine before anything could be reported.
    if (count > MaxGeneratedIds()) {
        result.errors.Append(TooManyGenerated(context));
        return result;
    }
    for (long long k = 0; k < count; ++k) result.ids.Append(static_cast<int>(start + k * increment));
    return result;
}

inp_Utils::Generation inp_Utils::ExpandDataGeneration(const inp_DataArray& data, const cow_String& context) {
    Generation result;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        cow_1DArrayList<int> ids;
        for (int item = 0; item < data.NumberOfItems(line); ++item)
            if (!data.IsBlank(line, item)) ids.Append(data.AsInt(line, item));
        Generation one = ExpandGeneration(ids, context);
        result.ids.Append(one.ids);
        result.errors.Append(one.errors);
    }
    return result;
}

namespace {
const unsigned kTimingFlag = 30;
}  // namespace

void inp_Utils::StartTiming(omi_Timer& timer) {
    if (typ_DebugFlags::GetDebugFlags(kTimingFlag) >= 1) timer.Start();
}

void inp_Utils::TimingLine(const char* file, int line, const char* text, const omi_Timer& timer) {
    if (typ_DebugFlags::GetDebugFlags(kTimingFlag) < 1) return;
    pnt_PrettyPrint& debug = pnt_debugPrint();
    debug.StartDebug(file, line);
    debug << text << timer.GetElapsedTime() << "  CPU time: " << timer.GetTotalCpuTime() << endl;
    debug.EndDebug();
}

namespace {

bool IsQuoted(const std::string& text) { return text.size() >= 2 && text.front() == '"' && text.back() == '"'; }

std::string WithoutEndQuotes(std::string text) {
    size_t first = text.find_first_not_of('"');
    if (first == std::string::npos) return std::string();
    size_t last = text.find_last_not_of('"');
    return text.substr(first, last - first + 1);
}

}  // namespace

cow_String inp_Utils::CreateFlattenedName(const cow_String& a, const cow_String& b) {
    std::string first(a.c_str()), second(b.c_str());
    const bool quoted = IsQuoted(first) || IsQuoted(second);
    if (IsQuoted(first)) first = WithoutEndQuotes(first);
    if (IsQuoted(second)) second = WithoutEndQuotes(second);
    std::string joined = first + "_" + second;
    if (quoted) joined = "\"" + joined + "\"";
    return cow_String(joined.c_str());
}

cow_String inp_Utils::CreateFlattenedName(const cow_String& a, const cow_String& b, const cow_String& c) {
    return CreateFlattenedName(a, CreateFlattenedName(b, c));
}
