// `inpdeck encipher`: makes an enciphered include file from a plain one.
#ifndef INPDECK_ENCIPHER_H
#define INPDECK_ENCIPHER_H

namespace inpdeck {

// `encipher --password TEXT IN OUT`, given the arguments behind "encipher". Writes OUT
// so that `*INCLUDE, INPUT=OUT, PASSWORD=TEXT` reads the lines that IN would give.
// Gives the exit status: 0 written, 1 IN holds a line that an enciphered file cannot
// carry, 2 a usage error or a file that cannot be read or written.
int Encipher(int argc, char** argv);

}  // namespace inpdeck

#endif
