// Continuation jobs in the driver: the part map a job leaves for the next, and the job
// that starts from one.
//
// `--save-partmap FILE` writes the part map of a job once its model is complete.
// `--oldpartmap FILE` makes the job a continuation of the one that wrote FILE: the
// organize phase takes the earlier model over instead of extracting one, with the
// passes that the library leaves to its driver: the import validity pass first, on the
// deck as written, then the take-over, then for a pure restart the restart node sets,
// element sets and surfaces. `--indir DIR` and `--oldjob NAME` become the command line
// keys "indir" and "oldjobcla" that the import rules read.
#ifndef INPDECK_CONTINUATION_H
#define INPDECK_CONTINUATION_H

#include "inp.h"

namespace inpdeck {

struct ContinuationOptions {
    const char* savePartMap = nullptr;
    const char* oldPartMap = nullptr;
    const char* inputDirectory = nullptr;
    const char* oldJob = nullptr;
};

// Before the first phase: sets the command line keys and reads the earlier part map.
// 0, or 2 with the reason on standard error when the part map cannot be used.
int PrepareContinuation(const ContinuationOptions& options);

// The organize phase: Classify for a new job, the continuation for one prepared above.
void Organize(inp_Deck& deck, bool fullConversion);

// The part map of the deck as the next job takes it over: for a new job its extracted
// model, for a continuation the earlier part map with what this job added.
inpM_PartMap PartMapOf(const inp_Deck& deck);

// After the phases: writes the part map when asked to. 0, 1 when the model is not
// complete (nothing written; the messages said why), 2 when the file cannot be written.
int SaveContinuation(const ContinuationOptions& options, const inp_Deck& deck);

}  // namespace inpdeck

#endif
