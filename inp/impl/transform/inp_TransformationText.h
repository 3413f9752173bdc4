// Reading and writing the data lines of the transformation pass: numbers where a
// line may end early, three items written back, and new lines built item by item.
#ifndef INP_TRANSFORMATIONTEXT_H
#define INP_TRANSFORMATIONTEXT_H

#include <cstdio>

#include "cow_String.h"
#include "gsl_Point.h"
#include "gsl_Vector.h"
#include "inp_DataArray.h"
#include "inp_Keyword.h"
#include "inp_NodeGeometry.h"

namespace inp_transform {

using inp_node::Has;
using inp_node::kPi;
using inp_node::Number;
using inp_node::Text;
using inp_node::Triple;

// 0 for a keyword that holds no array at all.
inline int Lines(const inp_Keyword& keyword) { return keyword.data.HasValue() ? keyword.data.NumberOfLines() : 0; }

// The item exists and is not blank.
inline bool HasItem(const inp_Keyword& keyword, int line, int column) {
    return line >= 0 && line < Lines(keyword) && keyword.data.HasValue(line, column);
}

// The text of a parameter, `fallback` when the keyword lacks it.
inline cow_String ParameterText(const inp_Keyword& keyword, const char* parameter, const char* fallback = "") {
    return Has(keyword, parameter) ? Text(keyword, parameter) : cow_String(fallback);
}

inline gsl_Point PointAt(const inp_DataArray& data, int line, int column) { return Triple(data, line, column); }

inline gsl_Vector VectorAt(const inp_DataArray& data, int line, int column) {
    const gsl_Point p = Triple(data, line, column);
    return gsl_Vector(p.x, p.y, p.z);
}

// Items column to column + 2 of an existing line; the line grows if it is shorter.
inline void WriteTriple(inp_DataArray& data, int line, int column, double x, double y, double z) {
    data.Set(line, column, x);
    data.Set(line, column + 1, y);
    data.Set(line, column + 2, z);
}

inline inp_DataArray NewData() { return inp_DataArray(new inp_RawDataArrayImpl()); }

// One data line in the making.
class LineText {
public:
    void Add(const cow_String& item) {
        if (m_items++ > 0) m_text.append(',');
        m_text.append(item);
    }
    // The shortest text that reads back to the same double.
    void Add(double value) { Add(cow_String(value)); }
    void Add(const gsl_Point& p) {
        Add(p.x);
        Add(p.y);
        Add(p.z);
    }
    void Add(const gsl_Vector& v) { Add(gsl_Point(v.x, v.y, v.z)); }
    const char* c_str() const { return m_text.c_str(); }

private:
    cow_String m_text;
    int m_items = 0;
};

// A line copied item by item in the form passes compare, blank items kept or not.
inline LineText CopiedLine(const inp_DataArray& data, int line, bool skipBlank) {
    LineText text;
    for (int item = 0; item < data.NumberOfItems(line); ++item)
        if (!skipBlank || !data.IsBlank(line, item)) text.Add(data.AsString(line, item));
    return text;
}

// Three numbers in the form the C library's "%lg" gives.
inline cow_String ShortTriple(double x, double y, double z) {
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "%lg, %lg, %lg", x, y, z);
    return cow_String(buffer);
}

}  // namespace inp_transform

#endif
