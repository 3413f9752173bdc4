// The messages of a run as the user reads them on standard error: one line each, the
// first N of them, a count of the rest, and the summary line.
#ifndef INPDECK_DIAGNOSTICS_H
#define INPDECK_DIAGNOSTICS_H

#include <string>

class inp_Deck;
struct wip_Record;

namespace inpdeck {

// Where a message's text says it stands: `file "NAME", line N`, as the library writes
// the place of a keyword ahead of its message. Empty file and line 0 when the text
// names no file and line.
struct MessageLocation {
    std::string file;
    int line = 0;
};
MessageLocation LocationOf(const char* text);
// Where a message arose: the place the record carries (a parse message), else the one
// its text names, else none.
MessageLocation LocationOf(const wip_Record& record);

struct DiagnosticsOptions {
    int maxMessages = 1000;  // 0: all
    // Messages whose file and line are known (LocationOf) as compilers write them,
    // `FILE:LINE: error: TEXT`, so that an editor can jump to the place.
    bool gnu = false;
};

// Writes the messages and the summary line; the exit status of the messages.
int ReportMessages(const char* deck, const inp_Deck& model, double seconds, const DiagnosticsOptions& options);

}  // namespace inpdeck

#endif
