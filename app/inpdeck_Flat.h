// --flat: a deck written as one flat deck, for solvers and tools that read no *PART,
// *INSTANCE or *ASSEMBLY.
//
// An assembly deck comes out as one *NODE block in global axes and ids, *ELEMENT blocks
// by type with global ids, every set and surface under its flat name (see inp_FlatNames)
// and every other keyword where it stood, its references rewritten to those ids and
// names. The keywords of a part stand once for each instance of it, their geometry
// (points, directions, local systems) carried into global axes by the instance's
// placement. The block keywords of parts, instances and the assembly are gone.
// A deck that had no parts is written as it was read, in normal form.
#ifndef INPDECK_FLAT_H
#define INPDECK_FLAT_H

#include <string>
#include <vector>

class aio_ostream;
class inp_Deck;

namespace inpdeck {

// Writes a deck that went through the phases up to Classify at least. The deck's own
// keywords and maps stay as they were. A deck that had no parts is read once more from
// its file, for the keywords before their conversion; what that reading reports is
// taken back out of the error sink. What the writing found amiss (a reference the model
// lacks, an element on a node without coordinates) comes back in `messages`, one text
// each. False when the stream failed.
bool WriteFlatDeck(aio_ostream& out, inp_Deck& deck, std::vector<std::string>& messages);

// The driver's option: the deck to FILE, "-" for standard output, and the messages as
// warnings on standard error. 0, or 2 when the file cannot be written.
int WriteFlat(const char* target, inp_Deck& deck);

}  // namespace inpdeck

#endif
