// The messages of a run as the user reads them on standard error: one line each, the
// first N of them, a count of the rest, and the summary line.
#ifndef INPDECK_DIAGNOSTICS_H
#define INPDECK_DIAGNOSTICS_H

class inp_Deck;

namespace inpdeck {

struct DiagnosticsOptions {
    int maxMessages = 1000;  // 0: all
};

// Writes the messages and the summary line; the exit status of the messages.
int ReportMessages(const char* deck, const inp_Deck& model, double seconds, const DiagnosticsOptions& options);

}  // namespace inpdeck

#endif
