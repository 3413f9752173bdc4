// Base64 (the standard alphabet with "+" and "/") for the lines of enciphered input
// files, which carry binary cipher text in a text file.
//
// Decoding is strict about what it cannot understand and lenient about what does no
// harm: the "=" padding may be left off, and unused low bits of the last character
// are ignored. Everything else that is not base64 raises utl_Base64CodecError, whose
// message says what was wrong and where; it is written to follow "due to the
// following; " in the message of an unreadable file, so it has no capital and no
// full stop.
#ifndef UTL_BASE64_H
#define UTL_BASE64_H

#include "cow_String.h"
#include "nex_Exception.h"

class utl_Base64CodecError : public nex_TextException {
public:
    utl_Base64CodecError() = default;
    explicit utl_Base64CodecError(const atr_String& message) : nex_TextException(message) {}
    NEX_EXCEPTION_BODY(utl_Base64CodecError)
};

// The bytes that the text codes; they may include NUL. With skipWhiteSpace, blanks,
// tabs, carriage returns and newlines anywhere in the text are passed over, as a line
// of a text file may carry them; without it they are bad characters.
cow_String utl_base64Decode(const cow_String& text, bool skipWhiteSpace);

// The text of the bytes, padded with "=" to a multiple of four, on one line.
cow_String utl_base64Encode(const cow_String& bytes);

#endif
