#include "wip_WIP.h"

void wip_WIP::Error(const atr_String& text, wip_errorLevelEnm level) { ErrorAt(text, level, atr_String(), 0); }

void wip_WIP::ErrorAt(const atr_String& text, wip_errorLevelEnm level, const atr_String& file, int line) {
    wip_Record r;
    r.kind = wip_Record::kError;
    r.level = level;
    r.text = text;
    r.file = file;
    r.line = line;
    m_records.Append(r);
    ++m_errors;
}

void wip_WIP::ErrorList(const cow_List<atr_String>& texts, wip_errorLevelEnm level) {
    for (int i = 0; i < texts.Count(); ++i) Error(texts.ConstGet(i), level);
}

void wip_WIP::Warning(const atr_String& text) {
    wip_Record r;
    r.kind = wip_Record::kWarning;
    r.text = text;
    m_records.Append(r);
}

void wip_WIP::WarningList(const cow_List<atr_String>& texts) {
    for (int i = 0; i < texts.Count(); ++i) Warning(texts.ConstGet(i));
}

int wip_WIP::ErrorCount(int level) const {
    int n = 0;
    for (int i = 0; i < m_records.Count(); ++i) {
        const wip_Record& r = m_records.ConstGet(i);
        if (r.IsError() && r.level == level) ++n;
    }
    return n;
}

bool wip_WIP::HasErrorAtOrBelow(int level) const {
    for (int i = 0; i < m_records.Count(); ++i) {
        const wip_Record& r = m_records.ConstGet(i);
        if (r.IsError() && r.level <= level) return true;
    }
    return false;
}

void wip_WIP::Clear() {
    m_records.Clear();
    m_errors = 0;
}
