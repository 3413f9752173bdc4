// The rotor cipher of enciphered input files.
//
// Keeps a deck from being read by eye; it is no protection against an attacker. Two
// rotors share one wiring, a permutation of the 256 byte values shuffled from the key.
// A byte goes through the wiring at the offset of the fast rotor, then again at the
// offset of the slow one. The fast rotor steps after every byte and carries the slow
// one on each full turn, so the substitution repeats only after 65536 bytes.
//
// The rotor positions run on from one call to the next: a file is enciphered and
// deciphered with one object, line after line, in file order. An object serves one
// direction; Reset goes back to the starting positions of the key.
//
// Key schedule: a 64-bit FNV-1a hash of the key's bytes seeds a splitmix64 sequence;
// its values drive a Fisher-Yates shuffle of the wiring (downwards from the last
// position, the value modulo i + 1 picking the partner of position i), and the next
// two values, modulo 256, are the starting positions of the fast and the slow rotor.
#ifndef UTI_ROTOR_H
#define UTI_ROTOR_H

#include "cow_String.h"

class uti_Rotor {
public:
    explicit uti_Rotor(const cow_String& key = cow_String());

    cow_String Encrypt(const cow_String& plain);
    cow_String Decrypt(const cow_String& cipher);
    void Reset();

private:
    void Step();

    unsigned char m_wiring[256];
    unsigned char m_inverse[256];
    unsigned m_fastStart;
    unsigned m_slowStart;
    unsigned m_fast;
    unsigned m_slow;
};

#endif
