// The model of a deck as one JSON document for programs: the deck, its messages, the
// parts, the instances with their placements, and per scope the nodes, elements, sets
// and surfaces. The schema is docs/json-schema.md; kJsonSchemaVersion rises with
// every change a reader could notice.
#ifndef INPDECK_JSON_H
#define INPDECK_JSON_H

#include <cstdio>

class inp_Deck;

namespace inpdeck {

constexpr int kJsonSchemaVersion = 1;

// Streams the document straight from the maps; false when the file refused a write.
bool WriteModelJson(std::FILE* out, const char* deckName, const inp_Deck& deck);

}  // namespace inpdeck

#endif
