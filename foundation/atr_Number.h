// Numbers to text and back, without an allocation: the conversions every data line of a
// deck goes through.
#ifndef ATR_NUMBER_H
#define ATR_NUMBER_H

// Room for any text atr_WriteDouble or atr_WriteInt writes, with its NUL.
const int atr_kNumberChars = 32;

// Writes the shortest text that reads back to the same double, as printf's "%.Pg" writes
// it with P the least of 15, 16 or 17 digits that reads back, and with a point added when
// the text would otherwise look like an integer: 0.1 and not 0.10000000000000001, 1000.
// and not 1000. `out` holds atr_kNumberChars; gives the length, the text ends in a NUL.
int atr_WriteDouble(double value, char* out);

// Writes the decimal text of an int; same buffer contract.
int atr_WriteInt(int value, char* out);

// Reads a double as strtod does and sets *end as strtod sets it. Plain decimals with up
// to 15 significant digits and a small exponent are converted here, exactly (both the
// digits and the power of ten are exact doubles, so one rounding gives the nearest
// double); the rest goes to strtod.
double atr_ReadDouble(const char* text, char** end);

#endif
