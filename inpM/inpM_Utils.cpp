#include "inpM_Utils.h"

namespace {

// Shared by both list forms: the items are already texts.
template <class List, class ToText>
atr_String Collect(const atr_String& head, const List& list, ToText toText) {
    atr_String out(head);
    out.append("\n");
    for (int i = 0; i < list.Count(); ++i) {
        if (i > 0) out.append(i % inpM_Utils::kItemsPerLine == 0 ? ",\n" : ", ");
        out.append(toText(list.ConstGet(i)));
    }
    return out;
}

}  // namespace

atr_String inpM_Utils::FormatCollectedErrors(const atr_String& head, const cow_1DArrayList<int>& list) {
    return Collect(head, list, [](int id) { return cow_String(id); });
}

atr_String inpM_Utils::FormatCollectedErrors(const atr_String& head, const cow_List<cow_String>& list) {
    return Collect(head, list, [](const cow_String& name) { return name; });
}

cow_String inpM_Utils::RemoveQuotes(const cow_String& name) {
    int n = name.Length();
    if (n >= 2 && name[0] == '"' && name[n - 1] == '"') return name.Substr(1, n - 2);
    return name;
}
