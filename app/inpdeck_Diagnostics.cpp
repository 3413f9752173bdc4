#include "inpdeck_Diagnostics.h"

#include <cstdio>
#include <cstring>

#include "inp.h"
#include "inpdeck_Report.h"
#include "inpdeck_Text.h"

namespace inpdeck {

namespace {

int CountDataLines(const cow_1DArrayList<inp_Keyword>& keywords, int& count) {
    int lines = 0;
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& k = keywords.ConstGet(i);
        ++count;
        lines += k.data.NumberOfLines();
        lines += CountDataLines(k.suboptions, count);
    }
    return lines;
}

// The messages from `first` on, counted by level, in one line as compilers give it.
void ReportHidden(const wip_WIP& sink, int first) {
    int levels[3] = {0, 0, 0}, warnings = 0;
    for (int i = first; i < sink.Count(); ++i) {
        const wip_Record& r = sink.Record(i);
        if (!r.IsError())
            ++warnings;
        else if (r.level >= 0 && r.level <= 2)
            ++levels[r.level];
    }
    std::fprintf(stderr,
                 "inpdeck: %d more messages not shown: %d fatal, %d non-fatal, %d serious errors, %d warnings "
                 "(--max-messages 0 shows all)\n",
                 sink.Count() - first, levels[0], levels[1], levels[2], warnings);
}

}  // namespace

MessageLocation LocationOf(const char* text) {
    MessageLocation at;
    const char* file = std::strstr(text, "file \"");
    if (!file) return at;
    file += 6;
    const char* end = std::strstr(file, "\", line ");
    if (!end) return at;
    const char* digits = end + 8;
    int line = 0;
    for (; *digits >= '0' && *digits <= '9' && line < 100000000; ++digits) line = line * 10 + (*digits - '0');
    if (digits == end + 8 || line == 0) return at;
    at.file.assign(file, end);
    at.line = line;
    return at;
}

MessageLocation LocationOf(const wip_Record& record) {
    if (record.line <= 0) return LocationOf(record.text.c_str());
    MessageLocation at;
    at.file = record.file.c_str();
    at.line = record.line;
    return at;
}

int ReportMessages(const char* deck, const inp_Deck& model, double seconds, const DiagnosticsOptions& options) {
    const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    const int max = options.maxMessages;
    const int shown = max > 0 && max < sink.Count() ? max : sink.Count();
    for (int i = 0; i < shown; ++i) {
        const wip_Record& r = sink.Record(i);
        const MessageLocation at = options.gnu ? LocationOf(r) : MessageLocation();
        if (at.line > 0)
            std::fprintf(stderr, "%s:%d: %s: %s\n", OneLine(at.file.c_str()).c_str(), at.line,
                         r.IsError() ? "error" : "warning", OneLine(r.text.c_str()).c_str());
        else if (r.IsError())
            std::fprintf(stderr, "error[%d]: %s\n", r.level, OneLine(r.text.c_str()).c_str());
        else
            std::fprintf(stderr, "warning: %s\n", OneLine(r.text.c_str()).c_str());
    }
    if (shown < sink.Count()) ReportHidden(sink, shown);
    int keywords = 0;
    const int dataLines = CountDataLines(model.keywords, keywords);
    const ModelCounts m = CountModel(model);
    std::fprintf(stderr,
                 "inpdeck: %s: %d keywords, %d data lines; model: %d parts, %d instances, %d nodes, %d elements, "
                 "%d node sets, %d element sets, %d surfaces; errors: %d fatal, %d non-fatal, %d serious; "
                 "%d warnings; %.3f s\n",
                 deck, keywords, dataLines, m.parts, m.instances, m.nodes, m.elements, m.nodeSets, m.elementSets,
                 m.surfaces, sink.ErrorCount(0), sink.ErrorCount(1), sink.ErrorCount(2), sink.WarningCount(),
                 seconds);
    return sink.ErrorCount() > 0 ? 1 : 0;
}

}  // namespace inpdeck
