// The model report: what an analyst checks first in a deck that reads without error,
// one row per part, the assembly and each instance, and the placement of each
// instance as its *INSTANCE lines would give it.
#ifndef INPDECK_REPORT_H
#define INPDECK_REPORT_H

#include <cstdio>

class inp_Deck;

namespace inpdeck {

// What the model of a deck holds, counted over the assembly and all its instances.
struct ModelCounts {
    int parts = 0, instances = 0, nodes = 0, elements = 0, nodeSets = 0, elementSets = 0, surfaces = 0;
};
ModelCounts CountModel(const inp_Deck& deck);

void PrintModelReport(std::FILE* out, const inp_Deck& deck);

}  // namespace inpdeck

#endif
