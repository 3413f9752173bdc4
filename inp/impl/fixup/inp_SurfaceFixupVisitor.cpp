// The operations that read and write surface names; the per-keyword rows that use them
// are in inp_SurfaceFixupKeywords.cpp.
#include "inp_SurfaceFixupVisitor.h"

#include "inp_Item.h"
#include "inp_Types.h"

namespace {

// 0 for a keyword that holds no array at all.
int NumberOfLines(const inp_Keyword& keyword) { return keyword.data.HasValue() ? keyword.data.NumberOfLines() : 0; }

}  // namespace

inp_SurfaceFixupVisitor::inp_SurfaceFixupVisitor(const inpM_SurfaceMap& surfaces) : surfaces(surfaces) {}

inp_SurfaceFixupVisitor::~inp_SurfaceFixupVisitor() = default;

void inp_SurfaceFixupVisitor::DefaultAction(inp_Keyword&) {}

cow_String inp_SurfaceFixupVisitor::ReplaceName(const cow_String& name) const {
    return ReplaceSurfaceName(name, assemblyName, instanceName, partName);
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceData(inp_Keyword& keyword, const cow_List<int>& columns, int stride,
                                                 int firstLine) const {
    if (stride < 1) stride = 1;
    if (firstLine < 0) firstLine = 0;
    inp_DataArray& data = keyword.data;
    const long long lines = NumberOfLines(keyword);
    for (long long selected = firstLine; selected < lines; selected += stride) {
        const int line = static_cast<int>(selected);
        for (int column = 0; column < data.NumberOfItems(line); ++column) {
            if (!columns.IsMember(column) || data.IsBlank(line, column)) continue;
            data.Set(line, column, ReplaceName(data.AsString(line, column)));
        }
    }
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceAllData(inp_Keyword& keyword) const {
    inp_DataArray& data = keyword.data;
    const int lines = NumberOfLines(keyword);
    for (int line = 0; line < lines; ++line)
        for (int column = 0; column < data.NumberOfItems(line); ++column)
            data.Set(line, column, ReplaceName(data.AsString(line, column)));
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceParameter(inp_Keyword& keyword, const cow_String& parameter) const {
    const inp_Item* item = keyword.parameters.Lookup(parameter);
    if (!item) return;
    keyword.parameters.Insert(parameter, inp_Item(ReplaceName(item->AsString())));
}

void inp_SurfaceFixupVisitor::ReplaceSurfaceColumn(inp_Keyword& keyword, int column, int firstLine) const {
    ReplaceSurfaceData(keyword, cow_List<int>().Append(column), 1, firstLine);
}

void inp_SurfaceFixupVisitor::ReplaceWeldSurfaces(inp_Keyword& keyword, bool exponentD) const {
    int firstLine = 0;
    if (NumberOfLines(keyword) > 0 && keyword.data.NumberOfItems(0) > 0) {
        const cow_String first = keyword.data.AsString(0, 0);
        if (inp_Types::MatchDouble(first) || (exponentD && inp_Types::MatchDoubleD(first))) firstLine = 1;
    }
    cow_List<int> columns;
    for (int column = 0; column < 8; ++column) columns.Append(column);
    ReplaceSurfaceData(keyword, columns, 1, firstLine);
}
