// Enciphered input files: the reader that turns their lines back into plain text, and
// the writer that makes them.
//
// Such a file is read through `*INCLUDE, INPUT=file, PASSWORD=text`. It is a text file
// of lines, each either
//   - a comment (`**` after leading blanks), which stays plain and reads as a comment, or
//   - a cipher line: one plain line through the rotor cipher keyed by the password, in
//     base64.
// A line "** encrypted input" marks the file, so that a reader without a password can
// tell it from a plain deck and say that it needs one. The first cipher line is the
// header, whose plain text has seven fields separated by "/" and is itself a comment;
// a wrong password shows there, as deciphered noise does not split into seven fields.
//
// The rotor runs on from line to line, so the lines are deciphered strictly in file
// order, with one reader per file. An include file named inside an enciphered file is
// a file of its own, plain or enciphered with the password of its own *INCLUDE.
//
// This keeps a casual reader out of a shipped include file. It is no protection against
// anybody who sets out to break it.
#ifndef INP_CIPHERREADER_H
#define INP_CIPHERREADER_H

#include <cstddef>

#include "cow_String.h"
#include "uti_Rotor.h"

class inp_CipherReader {
public:
    // With `checkHeader` false, a line that is no base64 reads as an empty line and the
    // header is not looked at.
    inp_CipherReader(const cow_String& password, bool checkHeader);

    // The marker of an enciphered file stands somewhere in the line.
    static bool HasMarker(const char* line, std::size_t length);

    // Replaces the line in `buffer` by its plain text, which is cut to `capacity` - 1
    // characters. A comment is left as it is. Raises inp_EncryptionException, with the
    // line and file given, when there is no password, when a line is no base64 and when
    // the header does not fit.
    void DecryptLine(char* buffer, int capacity, int lineNumber, const cow_String& fileName);

    // Seconds spent deciphering so far.
    double DecryptionTime() const { return m_decryptionTime; }

private:
    void CheckHeader(const cow_String& text, int lineNumber, const cow_String& fileName) const;

    cow_String m_password;
    bool m_checkHeader;
    bool m_atFirstEncryptedLine;
    double m_decryptionTime;
    uti_Rotor m_rotor;
};

// The inverse of inp_CipherReader: plain lines in, the lines of an enciphered file out.
class inp_CipherWriter {
public:
    // A plain line of the file holds at most this many characters once the reader has
    // trimmed it: the base64 of more would not fit in the reader's line of 256.
    static constexpr int kMaxPlainLength = 192;

    // Raises CheckPassword's exception.
    explicit inp_CipherWriter(const cow_String& password);

    // Raises nex_TextException for a password that an *INCLUDE line cannot carry as it
    // stands: empty, or changed by the reading of a parameter value (a comma cuts it, a
    // number is rewritten, a character no value may hold makes it invalid).
    static void CheckPassword(const cow_String& password);

    // The lines of the file for the next line of the plain file (without its newline),
    // each closed by a newline; the first call puts the marker and the header in front.
    // The line is taken as the reader would take it from a plain file: cut at 256
    // characters or a NUL, blanks, tabs and carriage returns trimmed at both ends, a
    // byte order mark dropped from the first line. Raises nex_TextException for a line
    // longer than kMaxPlainLength after that.
    cow_String EncryptLine(const char* line, int length);

    // A whole plain text, cut into lines at newlines as the reader cuts it.
    static cow_String EncipherText(const cow_String& plainText, const cow_String& password);

private:
    uti_Rotor m_rotor;
    int m_lineNumber;
};

#endif
