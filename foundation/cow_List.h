// cow_List: the counted sequence with constant-time Prepend (messages, name lists).
#ifndef COW_LIST_H
#define COW_LIST_H

#include "cow_1DArrayList.h"

template <class T>
class cow_List : public cow_ListBase<T> {
    using Base = cow_ListBase<T>;

public:
    cow_List() = default;
    explicit cow_List(int expected) : Base(expected) {}

    cow_List& Append(const T& t) {
        this->AppendOne(t);
        return *this;
    }
    cow_List& Append(const cow_List& other) {
        cow_List keep(other);  // other may be this list
        for (int i = 0; i < keep.Count(); ++i) this->AppendOne(keep.ConstGet(i));
        return *this;
    }
    cow_List& AppendUnlessMember(const T& t) {
        if (!this->IsMember(t)) this->AppendOne(t);
        return *this;
    }
    // Uses the room in front of the first element: no element moves.
    cow_List& Prepend(const T& t) {
        T copy(t);
        this->m_array.GetHead() = std::move(copy);
        ++this->m_count;
        return *this;
    }
    // Inserts behind index; index == Count() appends.
    cow_List& InsertAfter(int index, const T& t) {
        this->InsertAt(index + 1, t);
        return *this;
    }
    cow_List& RemoveIndex(int index) {
        this->RemoveAt(index);
        return *this;
    }
    cow_List& RemoveFirst() {
        if (this->m_count > 0) {
            this->m_array.DropHead();
            --this->m_count;
        }
        return *this;
    }
    cow_List& RemoveLast() {
        this->RemoveAt(this->m_count - 1);
        return *this;
    }
    cow_List& Clear() {
        this->ClearStorage();
        return *this;
    }
    // Ascending by operator<.
    cow_List& Sort() {
        std::vector<T> v;
        v.reserve(static_cast<size_t>(this->m_count));
        for (int i = 0; i < this->m_count; ++i) v.push_back(this->ConstGet(i));
        std::sort(v.begin(), v.end());
        for (int i = 0; i < this->m_count; ++i) this->m_array.Get(i) = v[static_cast<size_t>(i)];
        return *this;
    }
};

#endif
