// The debug stream: timing lines and trace lines of the phases go here, to standard
// error unless a test captures them.
//
// Each thread has its own stream (pnt_debugPrint), which collects a line and writes
// it whole at `endl`, so lines of two threads never mix inside a line. Between
// StartDebug(file, line) and EndDebug every line begins with the place that opened
// the block, as "file:line: " with the directories of the file left out; outside a
// block lines are written as they are. Blocks may nest; the innermost place is used
// and EndDebug goes back to the one around it.
#ifndef PNT_PRETTYPRINT_H
#define PNT_PRETTYPRINT_H

#include <string>
#include <vector>

#include "cow_String.h"

class pnt_PrettyPrint {
public:
    typedef pnt_PrettyPrint& (*Manipulator)(pnt_PrettyPrint&);

    pnt_PrettyPrint();
    ~pnt_PrettyPrint();
    pnt_PrettyPrint(const pnt_PrettyPrint&) = delete;
    pnt_PrettyPrint& operator=(const pnt_PrettyPrint&) = delete;

    void StartDebug(const char* file, int line);
    // Ends a line left open, then closes the innermost block. Harmless with no block.
    void EndDebug();

    pnt_PrettyPrint& operator<<(const char* text);
    pnt_PrettyPrint& operator<<(const atr_StringBase& text);
    pnt_PrettyPrint& operator<<(char c);
    pnt_PrettyPrint& operator<<(int value);
    pnt_PrettyPrint& operator<<(unsigned value);
    pnt_PrettyPrint& operator<<(long value);
    pnt_PrettyPrint& operator<<(double value);  // as printf's "%g"
    pnt_PrettyPrint& operator<<(Manipulator manipulator) { return manipulator(*this); }

    // Ends the current line (what `endl` does) and writes it out.
    void EndLine();
    // Ends a line left open, if any; writes no empty line.
    void Flush() {
        if (m_lineOpen) EndLine();
    }

    // Capturing: while on, finished lines collect in memory instead of going to
    // standard error. Turning it off keeps what was captured until ClearCaptured.
    void SetCapture(bool on) { m_capture = on; }
    bool IsCapturing() const { return m_capture; }
    cow_String Captured() const { return cow_String(m_captured.data(), static_cast<int>(m_captured.size())); }
    void ClearCaptured() { m_captured.clear(); }

private:
    struct Place {
        std::string file;
        int line;
    };
    void BeginLineIfNeeded();
    void Emit(const std::string& text);

    std::string m_line;  // the line being written, prefix included
    bool m_lineOpen;
    std::vector<Place> m_blocks;
    bool m_capture;
    std::string m_captured;
};

// The calling thread's debug stream.
pnt_PrettyPrint& pnt_debugPrint();

// Ends the line: pnt_debugPrint() << "text" << endl.
pnt_PrettyPrint& endl(pnt_PrettyPrint& stream);

#endif
