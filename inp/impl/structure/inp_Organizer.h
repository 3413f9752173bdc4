// inp_Organizer: the deck hierarchy made from the parser's flat keyword list.
//
// Nothing in a deck's text says where a keyword belongs; its position and the suboption
// lists of the keyword table decide. A keyword goes under the innermost open keyword
// that lists it, and the open keywords that cannot hold it are closed on the way. Parts,
// instances and the assembly are blocks: only their closing keyword leaves them. From
// the first *STEP on, the top level takes only steps, so model data cannot follow
// history data. A keyword that fits nowhere is reported at once and dropped.
#ifndef INP_ORGANIZER_H
#define INP_ORGANIZER_H

#include "cow_1DArrayList.h"
#include "inp_Keyword.h"

class inp_Organizer {
public:
    explicit inp_Organizer(cow_1DArrayList<inp_Keyword> keywords);

    // The top-level keywords with their suboptions filled and `parent` set to the value
    // of the direct owner (0 at the top). Each misplaced keyword goes to the error sink
    // at level 1 when it is met; a misplaced keyword other than a closing keyword
    // without its opener adds one level-0 message at the end. An unclosed part,
    // instance or assembly is closed silently: the structural checks report it.
    // One call per object: the list it was given is replaced by the result.
    cow_1DArrayList<inp_Keyword> Organize();

private:
    cow_1DArrayList<inp_Keyword> m_keywords;
};

#endif
