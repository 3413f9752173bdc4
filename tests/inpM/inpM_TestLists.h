// Lists of the model maps as std::vector, so that tests compare whole lists.
#ifndef INPM_TESTLISTS_H
#define INPM_TESTLISTS_H

#include <string>
#include <vector>

#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_String.h"
#include "inpM_IdMap.h"
#include "omi_IntTable.h"

inline std::vector<int> Ints(const cow_1DArrayList<int>& list) {
    std::vector<int> v;
    for (int i = 0; i < list.Count(); ++i) v.push_back(list[i]);
    return v;
}

inline cow_1DArrayList<int> List(std::initializer_list<int> ids) {
    cow_1DArrayList<int> list;
    for (int id : ids) list.Append(id);
    return list;
}

inline std::vector<std::string> Names(const cow_List<cow_String>& names) {
    std::vector<std::string> v;
    for (int i = 0; i < names.Count(); ++i) v.push_back(names[i].c_str());
    return v;
}

using IdPairs = std::vector<std::pair<int, int>>;

// The pairs of a table in its iteration order.
template <class T>
std::vector<std::pair<int, T>> Pairs(const omi_IntTable<T>& table) {
    std::vector<std::pair<int, T>> v;
    omi_IntTableIterator<T> it(table);
    for (it.First(); !it.IsDone(); it.Next()) v.emplace_back(it.CurrentKey(), it.CurrentValue());
    return v;
}

// Old id to new id at one level of an id map.
inline IdPairs Pairs(const inpM_IdMap& map) { return Pairs(map.ids.ConstGet()); }

#endif
