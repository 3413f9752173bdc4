// Deck printing: the normal form of a deck, written so that Parse reads it back.
//
// What was typed is not echoed; the keyword objects are written out. Keyword names are
// canonical (lower case, no blanks), parameters stand in the iteration order of their
// map, values as the passes left them, and data items in the upper-case form of
// AsString. Comments and *INCLUDE leave no trace. A keyword line longer than the wrap
// width goes on in continuation lines (a line ending in a comma), which the reader
// joins with nothing between, so the parameter list reads back unchanged. Data lines
// are never wrapped: they have no continuation.

#include "aio_ostream.h"
#include "atr_Number.h"
#include "inp_Deck.h"
#include "inp_Keyword.h"
#include "inp_KeywordTable.h"

namespace {

// A keyword line is wrapped before it reaches this width.
const int kWrapWidth = 132;

}  // namespace

void inp_Keyword::Print(aio_ostream& out, bool recursive) const {
    const cow_String name = thr_ThreadSingleton<inp_KeywordTable>::Instance().Name(keyword);
    out.put('*');
    out << name;
    int width = name.Length() + 1;

    cow_ConstMapIterator<cow_String, inp_Item> it(parameters);
    for (it.First(); !it.IsDone(); it.Next()) {
        const cow_String& key = it.CurrentKey();
        const inp_Item& item = it.CurrentValue();
        const cow_String value = item.AsString();
        // A flag's value is not written, but its text ("TRUE", "None") still counts
        // towards the width, so that the wrap does not depend on the type.
        const int k = key.Length(), v = value.Length();
        width += k + 2 + v + 1;
        if (width < kWrapWidth) {
            out.print(", ");
        } else {
            out.put(',');
            out.put('\n');
            out.flush();
            width = k + v + 1;
        }
        out << key;
        if (item.type != inp_Types::typeBool && item.type != inp_Types::typeNone) {
            out.put('=');
            out << value;
        }
    }
    out.put('\n');
    out.flush();

    const int lines = data.NumberOfLines();
    for (int i = 0; i < lines; ++i) {
        data.PrintLine(i, out);
        out.put('\n');
        out.flush();
    }

    if (!recursive) return;
    // The hierarchy is written flat, parent first; closing keywords such as *endpart
    // are keywords of their own in the list.
    for (int i = 0; i < suboptions.Count(); ++i) suboptions.ConstGet(i).Print(out, true);
}

namespace {

// Items of an element line; a longer element goes on in lines that end in a comma.
const int kElementItemsPerLine = 16;

void PutNumber(aio_ostream& out, int value, bool first) {
    char buffer[32];
    int used = 0;
    if (!first) {
        buffer[used++] = ',';
        buffer[used++] = ' ';
    }
    used += atr_WriteInt(value, buffer + used);
    out.write(buffer, static_cast<size_t>(used));
}

// The nodes of a part as one *NODE block, ids ascending, each coordinate in the
// shortest text that reads back to the same double.
void PrintNodes(const inp_CoordMap& part, aio_ostream& out) {
    const cow_IntTable<inp_Coord> table = part.ConstGet();
    if (table.Count() == 0) return;
    out.print("*node\n");
    omi_IntTableIterator<inp_Coord> it(table.ConstGet());
    char buffer[4 * 40];
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Coord& c = it.CurrentValue();
        int used = atr_WriteInt(it.CurrentKey(), buffer);
        for (double value : {c.x, c.y, c.z}) {
            buffer[used++] = ',';
            buffer[used++] = ' ';
            used += atr_WriteDouble(value, buffer + used);
        }
        buffer[used++] = '\n';
        out.write(buffer, static_cast<size_t>(used));
        out.flush();
    }
}

// The elements of one type of a part, under the *ELEMENT keyword that stands for them.
void PrintElements(const omi_IntTable<inp_Element>& table, const cow_String& type, aio_ostream& out) {
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Element& element = it.CurrentValue();
        if (!(element.type == type)) continue;
        PutNumber(out, it.CurrentKey(), true);
        for (int i = 0; i < element.numNodes; ++i) {
            const bool lineFull = (i + 1) % kElementItemsPerLine == 0;
            PutNumber(out, element.nodes[i], false);
            if (lineFull && i + 1 < element.numNodes) {
                out.print(",\n");
                PutNumber(out, element.nodes[++i], true);
            }
        }
        out.put('\n');
        out.flush();
    }
}

// A parameter's text whatever its type: a part may be named 12.
cow_String Text(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

}  // namespace

// A converted flat deck keeps its mesh in the part maps, and its part holds only one
// *ELEMENT keyword per type, without data. The printed deck must carry the mesh, so a
// part is written with its nodes and each such keyword with its elements; the *NODE
// keywords of the part (reference nodes of rigid bodies) are in the map already.
void inp_Deck::PrintPartWithMesh(const inp_Keyword& part, aio_ostream& out) const {
    part.Print(out, false);
    const cow_String name = Text(part, "name");
    const bool hasNodes = partCoordinates.instances.IsMember(name);
    const bool hasElements = partElements.IsMember(name);
    if (hasNodes) PrintNodes(partCoordinates.instances.ConstGet(name).ConstGet(), out);
    for (int i = 0; i < part.suboptions.Count(); ++i) {
        const inp_Keyword& keyword = part.suboptions.ConstGet(i);
        if (keyword.keyword == inp_kwNode && hasNodes) continue;
        const bool standsForElements =
            keyword.keyword == inp_kwElement && keyword.data.NumberOfLines() == 0 && hasElements;
        keyword.Print(out, !standsForElements);
        if (standsForElements)
            PrintElements(partElements.ConstGet(name), Text(keyword, "type"),
                          out);
    }
}

void inp_Deck::Print(aio_ostream& out) {
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        if (meshInPartMaps && keyword.keyword == inp_kwPart)
            PrintPartWithMesh(keyword, out);
        else
            keyword.Print(out, true);
    }
}
