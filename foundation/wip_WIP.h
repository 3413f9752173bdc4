// The error sink: every message of the library leaves through the calling thread's
// wip_WIP, reached as thr_ThreadSingleton<wip_WIP>::Instance().
//
// The library only writes. A driver or a test reads the records back in the order
// they came in, each with its kind (error or warning) and, for errors, its level:
//   0  deck-level and fatal parse errors,
//   1  errors of a pass, non-fatal parse errors, misplaced keywords,
//   2  serious errors of a pass.
// Clear() forgets all records, for a driver that reads the sink between phases.
#ifndef WIP_WIP_H
#define WIP_WIP_H

#include "atr_String.h"
#include "cow_List.h"
#include "thr_ThreadSingleton.h"

enum wip_errorLevelEnm : int { wip_Fatal = 0, wip_Error = 1, wip_Serious = 2 };

struct wip_Record {
    enum Kind { kError, kWarning };
    Kind kind = kError;
    int level = 0;  // errors only
    atr_String text;
    // Where the message arose, when the writer knew it apart from the text (a parse
    // message, whose text names no place): the file as the deck named it and the line.
    // Line 0 when not known; the text is the message either way.
    atr_String file;
    int line = 0;
    bool IsError() const { return kind == kError; }
};

class wip_WIPBase {
public:
    virtual ~wip_WIPBase() = default;
    virtual void Error(const atr_String& text, wip_errorLevelEnm level) = 0;
    virtual void ErrorList(const cow_List<atr_String>& texts, wip_errorLevelEnm level) = 0;
    virtual void Warning(const atr_String& text) = 0;
    virtual void WarningList(const cow_List<atr_String>& texts) = 0;
};

class wip_WIP : public wip_WIPBase {
public:
    void Error(const atr_String& text, wip_errorLevelEnm level) override;
    // An error whose place is known: the record keeps the file and line beside the text.
    void ErrorAt(const atr_String& text, wip_errorLevelEnm level, const atr_String& file, int line);
    void ErrorList(const cow_List<atr_String>& texts, wip_errorLevelEnm level) override;
    void Warning(const atr_String& text) override;
    void WarningList(const cow_List<atr_String>& texts) override;

    // Reading back.
    int Count() const { return m_records.Count(); }
    const wip_Record& Record(int i) const { return m_records.ConstGet(i); }
    int ErrorCount() const { return m_errors; }
    int ErrorCount(int level) const;  // errors of exactly that level
    int WarningCount() const { return m_records.Count() - m_errors; }
    bool HasErrorAtOrBelow(int level) const;  // e.g. level 0: was anything fatal reported?
    void Clear();

private:
    cow_List<wip_Record> m_records;
    int m_errors = 0;
};

inline bool operator==(const wip_Record& a, const wip_Record& b) {
    return a.kind == b.kind && a.level == b.level && a.text == b.text;
}

#endif
