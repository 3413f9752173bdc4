// inp_Parser: one input file to a flat list of keywords.
//
// The deck language is line oriented: a line is a comment (`**...`), a keyword line
// (`*` and a letter) or a data line of the keyword before it. The parser is itself the
// input stream of its file and reads it once, front to back, through a fixed buffer of
// one line: a line is at most 256 characters, and what stands behind is dropped.
//
// `*INCLUDE, INPUT=file` is followed by a child parser over that file, whose keywords
// take the place of the `*INCLUDE`; the include keyword itself never reaches the deck.
// Data runs across file boundaries both ways: lines at the top of an include file
// belong to the keyword before the `*INCLUDE`, and lines behind the `*INCLUDE` to the
// last keyword the include file gave. `PASSWORD=` goes with an enciphered include
// file (inp_CipherReader), whose lines are turned into plain text as they are read;
// the password serves that file alone, not the files it includes.
//
// A deck is reported on, never refused. A bad keyword is dropped with its data lines
// and reading goes on at the next keyword line; what went wrong lands in two lists,
// fatal and non-fatal, that the caller reads after Parse (inp_Deck::Parse hands them
// to the error sink). Each list takes at most 26 messages of its own file and a
// closing line; the lists of include files are merged in whole.
#ifndef INP_PARSER_H
#define INP_PARSER_H

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "aio_istream.h"
#include "atr_String.h"
#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_DataArray.h"
#include "inp_Keyword.h"

class inp_CipherReader;

class inp_Parser : public aio_ifstream {
public:
    // A line holds at most this many characters; the rest of a longer line is dropped.
    static constexpr int kLineLimit = 256;
    // How many files may stand in one chain of includes, the main file counted. Each
    // level holds an open file and under 1 KB of stack in an optimised build, so a full
    // chain stays near 2 MB of stack; past this the *INCLUDE is refused with a fatal
    // error, so that a runaway chain ends in a message and not in a stack overflow.
    static constexpr int kMaxIncludeDepth = 2000;
    // The work one deck may ask for in all: include files opened and lines read, the
    // main file and every repeat of an include file counted. The cycle test stops a
    // file from including itself, but a file that includes the next one twice doubles
    // the work with every level, and 30 levels are more than any machine can read.
    // Past either limit the deck is read no further, with one fatal error.
    static constexpr int kMaxIncludeFiles = 20000;
    static constexpr long long kMaxLines = 50000000;

    // Opens nothing yet. The file name is appended to `enclosingFiles`, the chain from
    // the main file down to this one.
    inp_Parser(const cow_String& fileName, const cow_String& includeDirectory,
               const cow_1DArrayList<cow_String>& enclosingFiles, const cow_String& password, bool checkHeader);
    ~inp_Parser() override;
    inp_Parser(const inp_Parser&) = delete;
    inp_Parser& operator=(const inp_Parser&) = delete;

    // Reads the whole file and gives its keywords. `strict` is false only for lenient
    // callers: parameter names and values that fit no pattern then pass, a keyword line
    // met in place of a continuation line is skipped, and a missing include file is
    // only recorded in MissingFiles.
    cow_1DArrayList<inp_Keyword> Parse(bool strict);
    // Sets the two limits of the work for this parser and its include files, in place
    // of kMaxIncludeFiles and kMaxLines; before Parse.
    void SetWorkLimits(int includeFiles, long long lines);

    // For the caller, after Parse.
    const cow_List<atr_String>& Errors() const { return m_errors; }
    const cow_List<atr_String>& FatalErrors() const { return m_fatalErrors; }
    // Where a message of Errors() or FatalErrors() arose, one for each in the same
    // order: the file as this parser named it and the line, or line 0 for a message
    // of no one line (a closing "No more ..." line, memory trouble).
    struct Place {
        Place() : line(0) {}
        Place(const cow_String& inFile, int atLine) : file(inFile), line(atLine) {}
        cow_String file;
        int line;
    };
    const cow_List<Place>& ErrorPlaces() const { return m_errorPlaces; }
    const cow_List<Place>& FatalErrorPlaces() const { return m_fatalPlaces; }
    // Files that are read but seem not to be plain deck text (UTF-16, or lines ended by
    // carriage returns alone), of this file and all below it.
    const cow_List<atr_String>& Warnings() const { return m_warnings; }
    // File names as written in *INCLUDE, of this file and all below it, each once.
    const cow_1DArrayList<cow_String>& IncludedFiles() const { return m_includedFiles; }
    // Base names of this file's include files that were not found.
    const cow_1DArrayList<cow_String>& MissingFiles() const { return m_missingFiles; }
    // Data lines that stood before the first keyword of this file, comments left out.
    // Kept for an include file only: a main file's leading lines have no taker. Empty
    // when they went to a target of StreamLeadingLinesTo.
    cow_1DArrayList<cow_String> LeadingLines() const;
    const cow_1DArrayList<cow_String>& EnclosingFiles() const { return m_enclosingFiles; }

private:
    const char* ReadLine();
    void DropRestOfLine();
    static bool IsKeyword(const char* text);
    static bool IsComment(const char* text);
    void Stash(const char* text);
    void SkipToKeyword(bool collect);

    inp_Keyword ParseKeyword(bool strict);
    cow_String JoinContinuationLines(const char* first, bool strict);
    cow_Map<cow_String, inp_Item> ParseParameters(const cow_String& text, bool strict);
    // Appends the following data lines, up to the next keyword line or the end.
    void ReadData(inp_DataArray& data);

    cow_1DArrayList<inp_Keyword> ParseInclude(const inp_Keyword& include, bool strict);
    cow_String LocateInclude(const inp_Keyword& include, cow_String& password);
    struct Location {
        bool exists = false;
        bool readable = false;
        cow_String absolute;
        cow_String fileName;  // of a missing file, for the list of missing files
    };
    Location Locate(const cow_String& name) const;
    void MergeChild(inp_Parser& child);
    // Lets the leading lines of this (include) file go straight into `target` as they
    // are read, instead of into m_leadingText. Only a raw array is taken.
    void StreamLeadingLinesTo(const inp_DataArray& target);

    // Looks at the start of the file before it is read: a UTF-8 byte order mark is
    // stepped over, and a file that will read as nothing that makes sense is warned of.
    void CheckHead();

    void AddFatalError(const atr_String& text, const Place& place = Place());
    void AddError(const atr_String& text, const Place& place = Place());
    void ParseLoop(bool strict);

    // What the whole deck has read so far. The main file's parser owns it; each child
    // points to its parent's.
    struct Work {
        int includeFiles = 0;
        long long lines = 0;
        int maxIncludeFiles = kMaxIncludeFiles;
        long long maxLines = kMaxLines;
        bool exhausted = false;
        // Where each name that an *INCLUDE gave was found, or that it was not.
        std::unordered_map<std::string, Location> located;
    };
    Work m_ownWork;
    Work* m_work;

    int m_lineNumber;
    cow_String m_fileName;
    cow_String m_includeDirectory;
    bool m_stashed;
    int m_lineLength;  // of the text the last ReadLine gave
    bool m_eof;
    char m_buffer[kLineLimit + 2];
    cow_String m_password;
    bool m_hasPassword;
    bool m_checkHeader;
    // Made at the first line that needs it: most files are plain.
    std::unique_ptr<inp_CipherReader> m_cipher;
    cow_1DArrayList<inp_Keyword> m_keywords;
    cow_1DArrayList<cow_String> m_enclosingFiles;
    // Leading lines, each behind a NUL, in one growing text: they are few in a main
    // file but may be a whole mesh in an include file, and this keeps them to no
    // allocation of their own per line until they land in a keyword's data.
    std::string m_leadingText;
    int m_leadingCount;
    // The target of StreamLeadingLinesTo, if any, and how many lines it had before this
    // file gave any: a file that fails to decipher takes its lines back. Streaming keeps
    // a mesh in an include file from standing in memory twice.
    inp_DataArray m_leadingTarget;
    inp_RawDataArrayImpl* m_leadingRaw;
    int m_leadingTargetLines;
    cow_1DArrayList<cow_String> m_includedFiles;
    // The same names, for the membership test of the merge: views of the strings that
    // m_includedFiles holds and never lets go. In a chain of includes every level holds
    // the names of all levels below it, so a linear test would be quadratic per level.
    std::unordered_set<std::string_view> m_includedSet;
    cow_1DArrayList<cow_String> m_missingFiles;
    cow_List<atr_String> m_errors;
    cow_List<atr_String> m_fatalErrors;
    cow_List<Place> m_errorPlaces;
    cow_List<Place> m_fatalPlaces;
    cow_List<atr_String> m_warnings;
    int m_memoryErrors;
    bool m_couldNotOpen;
};

#endif
