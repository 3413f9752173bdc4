#include "inpM_OmiSet.h"

#include <algorithm>

void inpM_OmiSet::Normalize() const {
    Storage& s = m_storage.SharedGet();
    if (s.sorted == s.items.size()) return;
    auto middle = s.items.begin() + static_cast<std::ptrdiff_t>(s.sorted);
    std::sort(middle, s.items.end());
    std::inplace_merge(s.items.begin(), middle, s.items.end());
    s.items.erase(std::unique(s.items.begin(), s.items.end()), s.items.end());
    s.sorted = s.items.size();
}

void inpM_OmiSet::Insert(int id) {
    Storage& s = m_storage.Get();
    bool inOrder = s.sorted == s.items.size() && (s.items.empty() || s.items.back() < id);
    s.items.push_back(id);
    if (inOrder) s.sorted = s.items.size();
}

void inpM_OmiSet::Insert(const cow_1DArrayList<int>& ids) {
    if (ids.IsEmpty()) return;
    Storage& s = m_storage.Get();
    s.items.reserve(s.items.size() + static_cast<std::size_t>(ids.Count()));
    for (int i = 0; i < ids.Count(); ++i) {
        int id = ids[i];
        bool inOrder = s.sorted == s.items.size() && (s.items.empty() || s.items.back() < id);
        s.items.push_back(id);
        if (inOrder) s.sorted = s.items.size();
    }
}

void inpM_OmiSet::Insert(const inpM_OmiSet& other) {
    if (other.IsEmpty()) return;
    if (IsEmpty()) {
        m_storage = other.m_storage;  // share until written
        return;
    }
    const std::vector<int>& add = other.Items();
    Storage& s = m_storage.Get();
    s.items.insert(s.items.end(), add.begin(), add.end());
}

bool inpM_OmiSet::Remove(int id) {
    if (!IsMember(id)) return false;
    Storage& s = m_storage.Get();
    s.items.erase(std::lower_bound(s.items.begin(), s.items.end(), id));
    s.sorted = s.items.size();
    return true;
}

bool inpM_OmiSet::IsMember(int id) const {
    const std::vector<int>& items = Items();
    return std::binary_search(items.begin(), items.end(), id);
}

int inpM_OmiSet::Size() const { return static_cast<int>(Items().size()); }

void inpM_OmiSet::Clear() { m_storage = new Storage(); }

const std::vector<int>& inpM_OmiSet::Items() const {
    Normalize();
    return m_storage->items;
}

cow_1DArrayList<int> inpM_OmiSet::ConstGetArrayCounterpart() const {
    const std::vector<int>& items = Items();
    cow_1DArrayList<int> out(static_cast<int>(items.size()));
    for (int id : items) out.Append(id);
    return out;
}
