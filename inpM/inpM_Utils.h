// inpM_Utils: message and name helpers shared by the model maps and the passes
// that fill them.
//
// Passes that find many faults of one kind (undefined nodes, missing sets) report
// them as one message rather than one per id, so that a deck with a thousand bad
// references gives a readable report.
#ifndef INPM_UTILS_H
#define INPM_UTILS_H

#include "atr_String.h"
#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"

class inpM_Utils {
public:
    // The head, then the elements on the lines below it, joined by ", ", with a
    // line break after every kItemsPerLine elements.
    static atr_String FormatCollectedErrors(const atr_String& head, const cow_1DArrayList<int>& list);
    static atr_String FormatCollectedErrors(const atr_String& head, const cow_List<cow_String>& list);

    // The name without the double quotes that enclose it; other names unchanged.
    static cow_String RemoveQuotes(const cow_String& name);

    // The keys of a map in ascending byte order: the order in which every map
    // walks its scopes, so that results do not depend on the history of insertion.
    template <class V>
    static cow_List<cow_String> SortedKeys(const cow_Map<cow_String, V>& map) {
        cow_List<cow_String> keys(map.Count());
        cow_ConstMapSortedIt<cow_String, V> it(map);
        for (it.First(); !it.IsDone(); it.Next()) keys.Append(it.CurrentKey());
        return keys;
    }

    static const int kItemsPerLine = 16;
};

#endif
