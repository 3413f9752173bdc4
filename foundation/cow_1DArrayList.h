// Counted sequences over cow_1DArray: a count of live elements and the array.
//
// Slots beyond the count hold a default element, so that removing an element
// releases what it referenced. cow_1DArrayList is the list of keywords and indices;
// cow_List (cow_List.h) adds cheap Prepend and is the list of messages.
#ifndef COW_1DARRAYLIST_H
#define COW_1DARRAYLIST_H

#include <algorithm>
#include <vector>

#include "cow_1DArray.h"

template <class T>
class cow_ListBase {
public:
    cow_ListBase() : m_count(0) {}
    explicit cow_ListBase(int expected) : m_count(0), m_array(expected) {}

    int Count() const { return m_count; }
    bool IsEmpty() const { return m_count == 0; }
    const T& ConstGet(int i) const { return m_array.PartialArrayConstGet(i); }
    T& Get(int i) {
        if (i >= m_count) m_count = i + 1;
        return m_array.Get(i);
    }
    const T& operator[](int i) const { return ConstGet(i); }
    const T& Last() const { return ConstGet(m_count - 1); }

    bool IsMember(const T& t) const { return IndexOf(t) >= 0; }
    int IndexOf(const T& t) const {
        for (int i = 0; i < m_count; ++i)
            if (ConstGet(i) == t) return i;
        return -1;
    }

    // A new heap array of copies; the caller owns it.
    T* GetCArray(int& n) const {
        n = m_count;
        T* out = new T[static_cast<size_t>(m_count > 0 ? m_count : 1)];
        for (int i = 0; i < m_count; ++i) out[i] = ConstGet(i);
        return out;
    }

    bool operator==(const cow_ListBase& o) const {
        if (m_count != o.m_count) return false;
        for (int i = 0; i < m_count; ++i)
            if (!(ConstGet(i) == o.ConstGet(i))) return false;
        return true;
    }
    bool operator!=(const cow_ListBase& o) const { return !(*this == o); }

protected:
    void AppendOne(const T& t) {
        T copy(t);  // t may live in this list's own storage
        m_array.Get(m_count) = std::move(copy);
        ++m_count;
    }
    void InsertAt(int index, const T& t) {
        if (index >= m_count) {
            AppendOne(t);
            return;
        }
        T copy(t);
        m_array.Get(m_count) = ConstGet(m_count - 1);
        for (int j = m_count - 1; j > index; --j) m_array.Get(j) = ConstGet(j - 1);
        m_array.Get(index) = std::move(copy);
        ++m_count;
    }
    void RemoveAt(int index) {
        if (index < 0 || index >= m_count) return;
        for (int j = index; j < m_count - 1; ++j) m_array.Get(j) = ConstGet(j + 1);
        m_array.Get(m_count - 1) = T();
        --m_count;
    }
    void ClearStorage() {
        m_count = 0;
        m_array.Grow(0);
    }

    int m_count;
    cow_1DArray<T> m_array;
};

template <class T>
class cow_1DArrayList : public cow_ListBase<T> {
    using Base = cow_ListBase<T>;

public:
    cow_1DArrayList() = default;
    explicit cow_1DArrayList(int expected) : Base(expected) {}

    bool Append(const T& t) {
        this->AppendOne(t);
        return true;
    }
    bool Append(const cow_1DArrayList& other) {
        cow_1DArrayList keep(other);  // other may be this list
        for (int i = 0; i < keep.Count(); ++i) this->AppendOne(keep.ConstGet(i));
        return true;
    }
    bool AppendUnlessMember(const T& t) {
        if (this->IsMember(t)) return false;
        this->AppendOne(t);
        return true;
    }
    // Inserts before index; index == Count() appends.
    bool Insert(int index, const T& t) {
        this->InsertAt(index, t);
        return true;
    }
    bool Remove(int index) {
        this->RemoveAt(index);
        return true;
    }
    bool RemoveMember(const T& t) {
        int i = this->IndexOf(t);
        if (i < 0) return false;
        this->RemoveAt(i);
        return true;
    }
    T Pop() {
        T last = this->ConstGet(this->m_count - 1);
        this->RemoveAt(this->m_count - 1);
        return last;
    }
    // Elements from `from` up to, not including, `to`; `to` is clamped to the count.
    cow_1DArrayList Slice(int from, int to) const {
        if (to > this->m_count) to = this->m_count;
        if (from < 0) from = 0;
        cow_1DArrayList out;
        for (int i = from; i < to; ++i) out.AppendOne(this->ConstGet(i));
        return out;
    }
    void ClearAll() { this->ClearStorage(); }
};

#endif
