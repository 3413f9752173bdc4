#include "inp_Parser.h"

#include <string.h>

#include <cctype>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string>

#include "inp_CipherReader.h"
#include "inp_Exceptions.h"
#include "inp_KeywordLine.h"
#include "inp_KeywordTable.h"
#include "nex_Exception.h"
#include "omi_Timer.h"
#include "pnt_PrettyPrint.h"
#include "typ_DebugFlags.h"
#include "utl_FilePath.h"

namespace {

const unsigned kDebugFlag = 30;
const int kErrorsPerFile = 25;
// The keyword list of the main file is made for this many keywords, so that a large
// deck does not regrow its block table while it is read. Include files start small:
// the list's blocks are filled with made keywords, and a chain of a thousand small
// include files would otherwise make millions of them for nothing.
const int kExpectedKeywords = 16384;

// *INCLUDE is resolved before the expansion pass has normalised any parameter name,
// so its two parameters carry their own lists of abbreviations.
const char* const kInputNames[] = {"i", "in", "inp", "inpu", "input", nullptr};
const char* const kPasswordNames[] = {"p",      "pa",      "pas",      "pass",
                                      "passw", "passwo", "passwor", "password", nullptr};

bool IsOneOf(const cow_String& key, const char* const* names) {
    for (; *names; ++names)
        if (key == *names) return true;
    return false;
}

bool IsLineBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }
bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }


void AddLimited(cow_List<atr_String>& list, cow_List<inp_Parser::Place>& places, const atr_String& text,
                const inp_Parser::Place& place, const char* closing) {
    if (list.Count() > kErrorsPerFile) return;
    list.Append(text);
    places.Append(place);
    if (list.Count() > kErrorsPerFile) {
        list.Append(atr_String(closing));
        places.Append(inp_Parser::Place());
    }
}

inp_Parser::Place PlaceOf(const inp_KeywordException& e) { return inp_Parser::Place(e.fileName, e.lineNumber); }

}  // namespace

// An *INCLUDE past one of the parser's limits: the chain of files would nest deeper
// than it allows, or the deck has opened as many include files as it may. It is fatal
// like a circular include: the rest of that branch of the deck is missing.
class inp_IncludeLimitException : public inp_KeywordException {
public:
    inp_IncludeLimitException(int line, const cow_String& file, const atr_String& text)
        : inp_KeywordException(line, file, text) {}
    NEX_EXCEPTION_BODY(inp_IncludeLimitException)
};

namespace {

// What the head of a file tells about its text. A byte order mark would make the first
// line of the file a data line, and with it the first keyword would be lost; UTF-16
// and lines that end in a carriage return alone read as no keyword at all.
struct FileHead {
    bool byteOrderMark = false;
    bool utf16 = false;
    bool carriageReturnsOnly = false;
};

FileHead ReadHead(const char* path) {
    FileHead head;
    std::FILE* file = std::fopen(path, "rb");
    if (!file) return head;
    unsigned char bytes[4096];
    const size_t n = std::fread(bytes, 1, sizeof bytes, file);
    std::fclose(file);
    head.byteOrderMark = n >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF;
    if (n >= 2 && ((bytes[0] == 0xFF && bytes[1] == 0xFE) || (bytes[0] == 0xFE && bytes[1] == 0xFF))) {
        head.utf16 = true;
    } else if (n >= 4) {
        // Text of the ASCII range in UTF-16 has a NUL in every other place.
        const size_t checked = n < 64 ? n & ~size_t(1) : 64;
        bool evenNul = true, oddNul = true, evenText = true, oddText = true;
        for (size_t i = 0; i < checked; ++i) {
            const bool nul = bytes[i] == 0;
            bool& isNul = i % 2 ? oddNul : evenNul;
            bool& isText = i % 2 ? oddText : evenText;
            isNul = isNul && nul;
            isText = isText && !nul;
        }
        head.utf16 = (evenNul && oddText) || (oddNul && evenText);
    }
    head.carriageReturnsOnly = std::memchr(bytes, '\r', n) && !std::memchr(bytes, '\n', n);
    return head;
}

atr_String DepthMessage(const cow_String& name) {
    atr_translate t("Include file \"%1$s\" is not read: a chain of include files may hold at most %2$s files.");
    atr_SubstituteFormat(t, 1, name);
    atr_SubstituteFormat(t, 2, inp_Parser::kMaxIncludeDepth);
    return t.Result();
}

atr_String IncludeFilesMessage(const cow_String& name, const cow_String& file, int limit) {
    atr_translate t(
        "Include file \"%1$s\" in \"%2$s\" is not read, and the deck is read no further: a deck may open at most "
        "%3$s include files, repeats counted.");
    atr_SubstituteFormat(t, 1, name);
    atr_SubstituteFormat(t, 2, file);
    atr_SubstituteFormat(t, 3, limit);
    return t.Result();
}

atr_String LinesMessage(const cow_String& file, int line, long long limit) {
    atr_translate t(
        "Line %1$s of \"%2$s\" and all behind it are not read: a deck may have at most %3$s lines, the lines of "
        "include files and their repeats counted.");
    atr_SubstituteFormat(t, 1, line);
    atr_SubstituteFormat(t, 2, file);
    atr_SubstituteFormat(t, 3, cow_String(std::to_string(limit).c_str()));
    return t.Result();
}

}  // namespace

inp_Parser::inp_Parser(const cow_String& fileName, const cow_String& includeDirectory,
                       const cow_1DArrayList<cow_String>& enclosingFiles, const cow_String& password,
                       bool checkHeader)
    : m_lineNumber(0),
      m_fileName(fileName),
      m_includeDirectory(includeDirectory),
      m_stashed(false),
      m_lineLength(0),
      m_eof(false),
      m_password(password),
      m_hasPassword(!password.IsEmpty()),
      m_checkHeader(checkHeader),
      m_keywords(enclosingFiles.IsEmpty() ? kExpectedKeywords : 0),
      m_enclosingFiles(enclosingFiles),
      m_leadingCount(0),
      m_leadingRaw(nullptr),
      m_leadingTargetLines(0),
      m_memoryErrors(0),
      m_couldNotOpen(false) {
    m_work = &m_ownWork;
    m_buffer[0] = '\0';
    m_enclosingFiles.Append(fileName);
}

inp_Parser::~inp_Parser() { close(); }

void inp_Parser::SetWorkLimits(int includeFiles, long long lines) {
    m_work->maxIncludeFiles = includeFiles;
    m_work->maxLines = lines;
}

cow_1DArrayList<cow_String> inp_Parser::LeadingLines() const {
    cow_1DArrayList<cow_String> lines;
    const char* p = m_leadingText.data();
    for (int i = 0; i < m_leadingCount && !m_leadingText.empty(); ++i) {
        lines.Append(cow_String(p));
        p += strlen(p) + 1;
    }
    return lines;
}

// ---- the line reader ------------------------------------------------------------

const char* inp_Parser::ReadLine() {
    ++m_lineNumber;
    if (m_stashed) {
        m_stashed = false;
        m_lineLength = static_cast<int>(strlen(m_buffer));
        return m_buffer;
    }
    m_lineLength = 0;
    if ((state & (eofbit | failbit)) || m_work->exhausted) {
        m_eof = true;
        m_buffer[0] = '\0';
        return m_buffer;
    }
    getline(m_buffer, kLineLimit + 1);
    if (state & failbit) {
        m_eof = true;
        m_buffer[0] = '\0';
        return m_buffer;
    }
    if (++m_work->lines > m_work->maxLines) {
        m_work->exhausted = true;
        AddFatalError(LinesMessage(m_fileName, m_lineNumber, m_work->maxLines), Place(m_fileName, m_lineNumber));
        m_eof = true;
        m_buffer[0] = '\0';
        return m_buffer;
    }
    // The limit bit, not the length of the text, tells that the line goes on: a line
    // with a NUL byte in it looks shorter than it was read.
    if (state & limitbit) DropRestOfLine();
    size_t length = strlen(m_buffer);
    if (m_hasPassword || inp_CipherReader::HasMarker(m_buffer, length)) {
        if (!m_cipher) m_cipher.reset(new inp_CipherReader(m_password, m_checkHeader));
        m_cipher->DecryptLine(m_buffer, sizeof m_buffer, m_lineNumber, m_fileName);
        length = strlen(m_buffer);
    }

    char* begin = m_buffer;
    char* end = m_buffer + length;
    if (begin == end) {
        if (state & eofbit) m_eof = true;
        return m_buffer;
    }
    while (begin < end && IsLineBlank(*begin)) ++begin;
    while (end > begin && IsLineBlank(end[-1])) --end;
    *end = '\0';
    m_lineLength = static_cast<int>(end - begin);
    return begin;
}

void inp_Parser::DropRestOfLine() {
    state = 0;
    for (;;) {
        const int c = get();
        if (c == '\n' || (state & eofbit)) break;
    }
}

bool inp_Parser::IsKeyword(const char* text) {
    while (IsSpace(*text)) ++text;
    if (*text != '*') return false;
    ++text;
    while (IsSpace(*text)) ++text;
    return std::isalpha(static_cast<unsigned char>(*text)) != 0;
}

bool inp_Parser::IsComment(const char* text) { return text[0] == '*' && text[1] == '*'; }

void inp_Parser::Stash(const char* stash) {
    if (m_stashed) NEX_ASSERT(!strcmp(stash, m_buffer));
    // The line usually points into m_buffer itself, behind its leading blanks.
    memmove(m_buffer, stash, strlen(stash) + 1);
    m_stashed = true;
    --m_lineNumber;
}

void inp_Parser::SkipToKeyword(bool collect) {
    // Only an include file's leading lines have a taker (the keyword in front of the
    // *INCLUDE); a main file's are counted and dropped.
    const bool keep = collect && m_enclosingFiles.Count() > 1;
    if (collect) {
        m_leadingText.clear();
        m_leadingCount = 0;
        if (m_leadingRaw) m_leadingTargetLines = m_leadingRaw->NumberOfLines();
    }
    for (;;) {
        const char* line = ReadLine();
        if (m_eof) return;
        if (IsKeyword(line)) {
            Stash(line);
            return;
        }
        if (!collect || IsComment(line)) continue;
        if (keep && m_leadingRaw)
            m_leadingRaw->Append(line, m_lineLength);
        else if (keep)
            m_leadingText.append(line, static_cast<size_t>(m_lineLength) + 1);
        ++m_leadingCount;
    }
}

// ---- the parse loop ---------------------------------------------------------------

cow_1DArrayList<inp_Keyword> inp_Parser::Parse(bool strict) {
    omi_Timer timer;
    if (typ_DebugFlags::GetDebugFlags(kDebugFlag) >= 1) timer.Start();

    // Only a regular file is opened: a device or a pipe named as an include file could
    // block the reader or feed it without end.
    if (utl_FilePath(m_fileName, cow_String()).IsReadable()) open(m_fileName.c_str());
    if (!is_open()) {
        m_couldNotOpen = true;
        open(nullptr);  // the first read then finds the end
    }

    CheckHead();
    try {
        SkipToKeyword(true);
        while (!m_eof) ParseLoop(strict);
    } catch (const inp_EncryptionException& e) {
        AddFatalError(e.UserReport(), PlaceOf(e));
        m_keywords.ClearAll();
        m_leadingText.clear();
        m_leadingCount = 0;
        if (m_leadingRaw) m_leadingRaw->RemoveLinesFrom(m_leadingTargetLines);
    } catch (const inp_MemoryException&) {
        // A leading line that found no room in the keyword it streams into.
        ++m_memoryErrors;
    } catch (const std::bad_alloc&) {
        ++m_memoryErrors;
    }

    // A main file that cannot be read is the caller's to report; an include file was
    // found readable a moment ago, so losing it now is the deck's problem.
    if (m_couldNotOpen && m_enclosingFiles.Count() > 1)
        AddFatalError(inp_UnreadableIncludeFileException(0, m_fileName, m_fileName).UserReport());

    if (m_memoryErrors > 0) {
        AddFatalError(atr_Format("Memory errors occured while parsing %s keywords. The errors were likely due to running "
                              "out of physical memory or swap space.",
                              cow_String(m_memoryErrors)));
    }

    timer.Stop();
    if (typ_DebugFlags::GetDebugFlags(kDebugFlag) >= 1) {
        pnt_PrettyPrint& debug = pnt_debugPrint();
        debug.StartDebug(__FILE__, __LINE__);
        debug << "Parse - File: " << m_fileName << "  Elapsed time: " << timer.GetElapsedTime()
              << "  Decryption time: " << (m_cipher ? m_cipher->DecryptionTime() : 0.0)
              << "  CPU time: " << timer.GetTotalCpuTime() << endl;
        debug.EndDebug();
    }

    close();
    return m_keywords;
}

void inp_Parser::CheckHead() {
    if (m_couldNotOpen) return;
    const FileHead head = ReadHead(m_fileName.c_str());
    if (head.byteOrderMark)
        for (int i = 0; i < 3; ++i) get();
    if (head.utf16) {
        m_warnings.Append(atr_Format(
            "File \"%s\" seems to be UTF-16 text, of which no keyword can be read; save it as ASCII or UTF-8.",
            m_fileName));
    } else if (head.carriageReturnsOnly) {
        m_warnings.Append(atr_Format("File \"%s\" ends its lines with carriage returns alone and reads as one line; "
                                     "save it with line feeds as line ends.",
                                     m_fileName));
    }
}

// One keyword, and where reading resumes when it fails. Kept apart from Parse so that
// the frames an include chain stacks up stay small.
void inp_Parser::ParseLoop(bool strict) {
    try {
        inp_Keyword keyword = ParseKeyword(strict);
        if (typ_DebugFlags::GetDebugFlags(kDebugFlag) >= 2)
            pnt_debugPrint() << atr_Format("Creating keyword: \"%s\".", keyword.Name()) << endl;
        if (keyword.keyword == inp_kwInclude)
            m_keywords.Append(ParseInclude(keyword, strict));
        else
            m_keywords.Append(keyword);
        return;
    } catch (const inp_NoInputParameterException& e) {
        AddFatalError(e.UserReport(), PlaceOf(e));
    } catch (const inp_MissingIncludeFileException& e) {
        if (strict) AddFatalError(e.UserReport(), PlaceOf(e));
    } catch (const inp_UnreadableIncludeFileException& e) {
        AddFatalError(e.UserReport(), PlaceOf(e));
    } catch (const inp_CircularIncludeFileException& e) {
        AddFatalError(e.UserReport(), PlaceOf(e));
    } catch (const inp_IncludeLimitException& e) {
        AddFatalError(e.UserReport(), PlaceOf(e));
    } catch (const inp_KeywordException& e) {
        AddError(e.UserReport(), PlaceOf(e));
    } catch (const inp_MemoryException&) {
        ++m_memoryErrors;
    } catch (const std::bad_alloc&) {
        ++m_memoryErrors;
    } catch (...) {
        AddError(atr_String("Unknown exception"));
    }
    // The failed keyword is not kept: its data lines go with it.
    SkipToKeyword(false);
}

inp_Keyword inp_Parser::ParseKeyword(bool strict) {
    const char* data = ReadLine();
    const int line = m_lineNumber;
    NEX_ASSERT(data != 0);
    NEX_ASSERT(IsKeyword(data));

    cow_String text = JoinContinuationLines(data, strict);
    inp_Keyword keyword;
    keyword.lineNumber = line;
    keyword.fileName = m_fileName;

    int comma = 0;
    const cow_String given = inp_KeywordLine::GivenName(text, comma);
    const inp_KeywordTable& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
    cow_String resolved;
    // A blank keyword prints as "*undefined keyword"; reading that back gives a blank
    // keyword again, which the next phase drops.
    const bool blank = given == "undefinedkeyword";
    const int matches = blank ? 1 : table.Match(given, resolved);
    if (matches == 0) inp_UnknownKeywordException(line, m_fileName, given).Throw(__FILE__, __LINE__);
    if (matches > 1) inp_AmbiguousKeywordException(line, m_fileName, given).Throw(__FILE__, __LINE__);
    keyword.keyword = blank ? inp_kwUndefined : table.Enum(resolved);

    if (comma < text.Length()) {
        cow_String list = text.Substr(comma + 1);
        list.LeftTrim(" \t").RightTrim(" \t");
        try {
            keyword.parameters = ParseParameters(list, strict);
        } catch (const inp_ParameterException& e) {
            cow_String name(given);
            inp_KeywordParameterException(line, m_fileName, name.ToUpper(), e).Throw(__FILE__, __LINE__);
        }
    }

    // What follows *INCLUDE is read by ParseInclude, into the keyword it belongs to.
    if (keyword.keyword != inp_kwInclude) ReadData(keyword.data);
    return keyword;
}

cow_String inp_Parser::JoinContinuationLines(const char* first, bool strict) {
    cow_String text(first);
    while (text.Length() > 0 && text[text.Length() - 1] == ',') {
        for (;;) {
            const char* cdata = ReadLine();
            NEX_ASSERT(cdata != 0);
            if (!*cdata) {
                // A blank line or the end of the file closes the list.
                text.RightTrim(", ");
                return text;
            }
            if (IsKeyword(cdata)) {
                if (strict) {
                    inp_InvalidContinuationLineException(
                        m_lineNumber, m_fileName,
                        atr_Format("A keyword has been detected on what is supposed to be a continuation line. Please "
                                "check that a trailing comma has not been mistakenly placed in: %s",
                                text))
                        .Throw(__FILE__, __LINE__);
                }
                continue;
            }
            if (IsComment(cdata)) continue;
            text.append(cdata);
            break;
        }
    }
    return text;
}

cow_Map<cow_String, inp_Item> inp_Parser::ParseParameters(const cow_String& text, bool strict) {
    return inp_KeywordLine::ParseParameters(text, strict);
}

void inp_Parser::ReadData(inp_DataArray& data) {
    for (;;) {
        const char* line = ReadLine();
        if (m_eof) return;
        if (IsKeyword(line)) {
            Stash(line);
            return;
        }
        if (IsComment(line)) continue;
        data.Append(line, m_lineLength);
    }
}

// ---- include files ----------------------------------------------------------------

cow_String inp_Parser::LocateInclude(const inp_Keyword& include, cow_String& password) {
    cow_String name;
    bool haveName = false, havePassword = false;
    cow_ConstMapIterator<cow_String, inp_Item> it(include.parameters);
    for (it.First(); !it.IsDone(); it.Next()) {
        if (!haveName && IsOneOf(it.CurrentKey(), kInputNames)) {
            name = it.CurrentValue().AsString();
            haveName = true;
        } else if (!havePassword && IsOneOf(it.CurrentKey(), kPasswordNames)) {
            password = it.CurrentValue().AsString();
            havePassword = true;
        }
    }

    const int line = m_lineNumber;
    if (name.IsEmpty()) inp_NoInputParameterException(line, m_fileName).Throw(__FILE__, __LINE__);
    if (name.StartsWith("<") && name.EndsWith(">"))
        inp_ParameterizedIncludeFileException(line, m_fileName, name).Throw(__FILE__, __LINE__);

    // A deck that names one file over and over (a list of parts in one file, or an
    // include that comes round again) asked the file system each time, with a walk of
    // every directory above the file; within one read the answer stays the same.
    const std::string key(name.c_str(), static_cast<std::size_t>(name.Length()));
    auto known = m_work->located.find(key);
    if (known == m_work->located.end()) known = m_work->located.emplace(key, Locate(name)).first;
    const Location& where = known->second;
    if (!where.exists) {
        // "None" is what a value of no type reads as, which a lenient parse lets
        // through; it names no file that anybody wrote.
        if (name != "None") m_missingFiles.AppendUnlessMember(where.fileName);
        inp_MissingIncludeFileException(line, m_fileName, name).Throw(__FILE__, __LINE__);
    }
    if (!where.readable) inp_UnreadableIncludeFileException(line, m_fileName, name).Throw(__FILE__, __LINE__);

    // Only the chain above this file counts: one file may be included twice in a row.
    const cow_String absolute = where.absolute;
    if (m_enclosingFiles.IsMember(absolute))
        inp_CircularIncludeFileException(line, m_fileName, name).Throw(__FILE__, __LINE__);
    if (m_enclosingFiles.Count() >= kMaxIncludeDepth)
        inp_IncludeLimitException(line, m_fileName, DepthMessage(name)).Throw(__FILE__, __LINE__);
    if (m_work->includeFiles >= m_work->maxIncludeFiles) {
        m_work->exhausted = true;
        inp_IncludeLimitException(line, m_fileName, IncludeFilesMessage(name, m_fileName, m_work->maxIncludeFiles))
            .Throw(__FILE__, __LINE__);
    }
    ++m_work->includeFiles;

    m_includedFiles.Append(name);
    m_includedSet.insert(std::string_view(m_includedFiles.Last().c_str()));
    return absolute;
}

// The current directory first, then the include directory.
inp_Parser::Location inp_Parser::Locate(const cow_String& name) const {
    Location where;
    utl_FilePath path(name, cow_String());
    if (!path.Exists()) {
        path.SetFilePath(name, m_includeDirectory);
        if (!path.Exists()) {
            where.fileName = path.FileName();
            return where;
        }
    }
    where.exists = true;
    where.readable = path.IsReadable();
    if (where.readable) where.absolute = path.AbsolutePathName();
    return where;
}

cow_1DArrayList<inp_Keyword> inp_Parser::ParseInclude(const inp_Keyword& include, bool strict) {
    cow_String password;
    const cow_String absolute = LocateInclude(include, password);

    // On the heap: a chain of includes stacks one parser per file, and the line buffer
    // and stream state of each would otherwise sit in the frames.
    std::unique_ptr<inp_Parser> child(
        new inp_Parser(absolute, m_includeDirectory, m_enclosingFiles, password, m_checkHeader));
    child->m_work = m_work;
    if (!m_keywords.IsEmpty()) child->StreamLeadingLinesTo(m_keywords.Last().data);
    cow_1DArrayList<inp_Keyword> keywords = child->Parse(strict);
    MergeChild(*child);

    // Lines at the top of the include file continue the keyword in front of *INCLUDE;
    // they went there while the child read them, unless that array was not raw. With
    // no keyword in front, in this file, they are lost.
    if (!m_keywords.IsEmpty()) {
        inp_DataArray target = m_keywords.Last().data;
        const char* p = child->m_leadingText.data();
        for (int i = 0; i < child->m_leadingCount && !child->m_leadingText.empty(); ++i) {
            target.Append(p);
            p += strlen(p) + 1;
        }
        if (typ_DebugFlags::GetDebugFlags(kDebugFlag) >= 2) {
            pnt_debugPrint() << child->m_leadingCount << " lines added to keyword \"" << m_keywords.Last().Name()
                             << "\" from input file \"." << absolute << "\"." << endl;
        }
    }
    child.reset();

    // Lines behind *INCLUDE continue the last keyword the include file gave, or else
    // the one in front of the *INCLUDE. With neither, they stay for the next
    // ParseKeyword, which refuses them as no keyword line.
    if (!keywords.IsEmpty()) {
        inp_DataArray target = keywords.Last().data;
        ReadData(target);
    } else if (!m_keywords.IsEmpty()) {
        inp_DataArray target = m_keywords.Last().data;
        ReadData(target);
    }
    return keywords;
}

void inp_Parser::StreamLeadingLinesTo(const inp_DataArray& target) {
    if (!target.HasValue()) return;
    inp_RawDataArrayImpl* raw = dynamic_cast<inp_RawDataArrayImpl*>(&target.SharedGet());
    if (!raw) return;
    m_leadingTarget = target;
    m_leadingRaw = raw;
}

void inp_Parser::MergeChild(inp_Parser& child) {
    m_errors.Append(child.m_errors);
    m_errorPlaces.Append(child.m_errorPlaces);
    m_fatalErrors.Append(child.m_fatalErrors);
    m_fatalPlaces.Append(child.m_fatalPlaces);
    m_warnings.Append(child.m_warnings);
    for (int i = 0; i < child.m_includedFiles.Count(); ++i) {
        const cow_String& name = child.m_includedFiles.ConstGet(i);
        if (m_includedSet.count(std::string_view(name.c_str()))) continue;
        m_includedFiles.Append(name);
        m_includedSet.insert(std::string_view(m_includedFiles.Last().c_str()));
    }
}

void inp_Parser::AddFatalError(const atr_String& text, const Place& place) {
    AddLimited(m_fatalErrors, m_fatalPlaces, text, place, "No more fatal errors will be reported ...");
}

void inp_Parser::AddError(const atr_String& text, const Place& place) {
    AddLimited(m_errors, m_errorPlaces, text, place, "No more (non-fatal) errors will be reported ...");
}
