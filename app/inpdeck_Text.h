// Text that came from a deck, made safe for the user's terminal.
#ifndef INPDECK_TEXT_H
#define INPDECK_TEXT_H

#include <string>

namespace inpdeck {

// The text on one line: a line break inside it (the lists of some messages) becomes a
// blank, and every byte that could drive the terminal instead of showing (control
// bytes, ESC among them, and bytes above 127 that are no valid UTF-8) becomes a '?'.
std::string OneLine(const char* text);

// The length of the UTF-8 sequence at `p` when it is valid and encodes no control
// character, else 0.
int PrintableUtf8Length(const unsigned char* p);

}  // namespace inpdeck

#endif
