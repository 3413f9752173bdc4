// An assembly deck read as a driver reads it for a flat deck: parsed, expanded and
// classified, then renumbered so that ids and set members are the flat model's.
#ifndef INP_TRANSFORMTESTING_H
#define INP_TRANSFORMTESTING_H

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"

namespace inp_test {

struct RenumberedModel {
    explicit RenumberedModel(const std::string& text) {
        thr_ThreadSingleton<wip_WIP>::Instance().Clear();
        TempDir dir;
        deck.Parse(dir.Write("deck.inp", text).c_str());
        deck.ExpandKeywords();
        deck.Classify(true);
        records = SinkRecords();
        coordinates = deck.assemblyCoordinates;
        nodeIds = coordinates.Renumber(1, false);
        nodeSets = deck.assemblyNodeSets;
        nodeSets.Renumber(nodeIds, false);
    }

    inp_Deck deck;
    // What reading the deck said: a test deck is meant to be clean.
    std::vector<std::string> records;
    inp_CoordMap coordinates;
    inpM_IdMap nodeIds;
    inpM_SetMap nodeSets;
};

inline std::vector<int> Ids(const cow_1DArrayList<int>& list) {
    std::vector<int> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list[i]);
    return out;
}

}  // namespace inp_test

#endif
