#include "inp_CipherReader.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "atr_String.h"
#include "inp_Exceptions.h"
#include "inp_Item.h"
#include "inp_KeywordLine.h"
#include "nex_Exception.h"
#include "omi_Timer.h"
#include "pnt_PrettyPrint.h"
#include "rgx_ReIterator.h"
#include "typ_DebugFlags.h"
#include "utl_Base64.h"

namespace {

const unsigned kDebugFlag = 30;
const char kMarker[] = "** encrypted input";
const int kHeaderFields = 7;
// What the writer puts in the header: nothing reads its fields but their count.
const char kHeader[] = "** enciphered input/inpdeck/format 1/rotor/base64/one line a line/end of header";
// The reader's line: what a plain file's line holds, and what a cipher line may hold.
const int kReaderLineLimit = 256;

bool IsComment(const char* line) {
    while (*line == ' ' || *line == '\t') ++line;
    return line[0] == '*' && line[1] == '*';
}

bool IsTrimmed(char c) { return c == ' ' || c == '\t' || c == '\r'; }

}  // namespace

// ---- reading --------------------------------------------------------------------

inp_CipherReader::inp_CipherReader(const cow_String& password, bool checkHeader)
    : m_password(password),
      m_checkHeader(checkHeader),
      m_atFirstEncryptedLine(true),
      m_decryptionTime(0.0),
      m_rotor(password) {}

// Data lines seldom hold a '*' at all, and looking for one first is cheaper than looking
// for the marker in every line.
bool inp_CipherReader::HasMarker(const char* line, std::size_t length) {
    const char* star = static_cast<const char*>(std::memchr(line, '*', length));
    return star && std::strstr(star, kMarker);
}

void inp_CipherReader::DecryptLine(char* buffer, int capacity, int lineNumber, const cow_String& fileName) {
    // Told only in the debug output; the clocks are a system call to read, twice a line.
    omi_Timer timer;
    if (typ_DebugFlags::GetDebugFlags(kDebugFlag) >= 1) timer.Start();
    if (m_password.IsEmpty()) {
        inp_EncryptionException(lineNumber, fileName,
                                atr_Format("The encrypted input file, \"%s\", requires a password.", fileName))
            .Throw(__FILE__, __LINE__);
    }
    if (IsComment(buffer)) return;

    cow_String plain;
    try {
        plain = m_rotor.Decrypt(utl_base64Decode(cow_String(buffer), true));
    } catch (const utl_Base64CodecError& e) {
        if (m_checkHeader) {
            atr_translate t(
                "The encrypted input file, \"%1$s\", cannot be decrypted due to the following; %2$s. Most likely the "
                "file is corrupt or the password is incorrect.");
            atr_SubstituteFormat(t, 1, fileName);
            atr_SubstituteFormat(t, 2, e.UserReport());
            inp_EncryptionException(lineNumber, fileName, t.Result()).Throw(__FILE__, __LINE__);
        }
    }
    timer.Stop();
    m_decryptionTime += timer.GetElapsedTime();

    if (m_atFirstEncryptedLine) {
        if (m_checkHeader) CheckHeader(plain, lineNumber, fileName);
        m_atFirstEncryptedLine = false;
    }
    // A NUL in the plain text ends the line, as it ends a line of a plain file.
    const int length = std::min(plain.Length(), capacity - 1);
    std::memcpy(buffer, plain.c_str(), static_cast<size_t>(length));
    buffer[length] = '\0';
}

void inp_CipherReader::CheckHeader(const cow_String& text, int lineNumber, const cow_String& fileName) const {
    if (typ_DebugFlags::GetDebugFlags(kDebugFlag) >= 2) pnt_debugPrint() << "Parse: Decrypt - " << text << endl;
    if (rgx_split("/", text).Count() != kHeaderFields) {
        inp_EncryptionException(
            lineNumber, fileName,
            atr_Format("Bad header. The encrypted input file, \"%s\", is either corrupt or the password is incorrect.",
                       fileName))
            .Throw(__FILE__, __LINE__);
    }
}

// ---- writing --------------------------------------------------------------------

inp_CipherWriter::inp_CipherWriter(const cow_String& password) : m_rotor(password), m_lineNumber(0) {
    CheckPassword(password);
}

void inp_CipherWriter::CheckPassword(const cow_String& password) {
    if (password.IsEmpty()) nex_TextException(atr_raw("The password is empty.")).Throw(__FILE__, __LINE__);
    // The reader keys its cipher with the value as *INCLUDE reads it; a password that
    // reads as something else would make a file that no deck can open.
    bool same = false;
    try {
        cow_Map<cow_String, inp_Item> parameters = inp_KeywordLine::ParseParameters("password=" + password, true);
        const inp_Item* item = parameters.Lookup(cow_String("password"));
        same = item && item->AsString() == password;
    } catch (const nex_Exception&) {
    }
    if (!same) {
        nex_TextException(atr_Format("The password \"%s\" does not stand in an *INCLUDE line as it is; take letters, "
                                     "digits and the characters of a file name, and no comma.",
                                     password))
            .Throw(__FILE__, __LINE__);
    }
}

cow_String inp_CipherWriter::EncryptLine(const char* line, int length) {
    cow_String out;
    if (++m_lineNumber == 1) {
        if (length >= 3 && !std::memcmp(line, "\xEF\xBB\xBF", 3)) {
            line += 3;
            length -= 3;
        }
        out.append(kMarker);
        out.append("\n");
        out.append(utl_base64Encode(m_rotor.Encrypt(cow_String(kHeader))));
        out.append("\n");
    }
    if (length > kReaderLineLimit) length = kReaderLineLimit;
    const void* nul = std::memchr(line, '\0', static_cast<size_t>(length));
    if (nul) length = static_cast<int>(static_cast<const char*>(nul) - line);
    int begin = 0;
    while (begin < length && IsTrimmed(line[begin])) ++begin;
    while (length > begin && IsTrimmed(line[length - 1])) --length;
    if (length - begin > kMaxPlainLength) {
        atr_translate t("Line %1$s holds %2$s characters; a line of an enciphered file holds at most %3$s.");
        atr_SubstituteFormat(t, 1, m_lineNumber);
        atr_SubstituteFormat(t, 2, length - begin);
        atr_SubstituteFormat(t, 3, kMaxPlainLength);
        nex_TextException(t.Result()).Throw(__FILE__, __LINE__);
    }
    out.append(utl_base64Encode(m_rotor.Encrypt(cow_String(line + begin, length - begin))));
    out.append("\n");
    return out;
}

cow_String inp_CipherWriter::EncipherText(const cow_String& plainText, const cow_String& password) {
    inp_CipherWriter writer(password);
    std::string out;
    const char* text = plainText.c_str();
    const int size = plainText.Length();
    for (int start = 0; start < size;) {
        const void* newline = std::memchr(text + start, '\n', static_cast<size_t>(size - start));
        const int end = newline ? static_cast<int>(static_cast<const char*>(newline) - text) : size;
        // The reader gives no line for a last one without a newline that is empty up
        // to a NUL; an empty cipher line would read as an empty line.
        if (!newline && text[start] == '\0') break;
        const cow_String lines = writer.EncryptLine(text + start, end - start);
        out.append(lines.c_str(), static_cast<size_t>(lines.Length()));
        start = end + 1;
    }
    return cow_String(out.data(), static_cast<int>(out.size()));
}
