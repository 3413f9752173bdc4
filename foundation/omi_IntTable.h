// omi_IntTable<T>: the sparse table of records by signed id, and its iterator.
//
// Ids are mostly positive, but generated and renumbered ids may go negative,
// so the table is two unsigned tables: negative keys under their magnitude,
// keys of 0 and above as they are. A caller that knows the sign of its key
// may go to a half directly. Copies are deep; tables travel behind counted
// handles rather than by value.
//
// The plain iteration order is ascending signed order, which every
// renumbering relies on to keep ids in their relative order. It needs no
// comparison: the negative half is walked from its largest magnitude down,
// then the other half from its lowest key up.
#ifndef OMI_INTTABLE_H
#define OMI_INTTABLE_H

#include "omi_UintTable.h"

#include <cassert>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

template <class T>
class omi_IntTable {
public:
    omi_IntTable() : negative_(new omi_UintTable<T>()), positive_(new omi_UintTable<T>()) {}

    omi_IntTable(const omi_IntTable& other)
        : negative_(new omi_UintTable<T>(*other.negative_)), positive_(new omi_UintTable<T>(*other.positive_))
    {
    }

    omi_IntTable& operator=(const omi_IntTable& other)
    {
        if (this != &other) {
            omi_IntTable copy(other);
            negative_.swap(copy.negative_);
            positive_.swap(copy.positive_);
        }
        return *this;
    }

    virtual ~omi_IntTable() = default;

    // The key's place in its half. Well defined for every int, INT_MIN
    // included (its magnitude 2^31 fits an unsigned).
    static unsigned Magnitude(int key) { return 0u - static_cast<unsigned>(key); }

    // True for a new key; an existing key's value is overwritten.
    bool Insert(int key, const T& value)
    {
        return key < 0 ? negative_->Insert(Magnitude(key), value)
                       : positive_->Insert(static_cast<unsigned>(key), value);
    }

    bool Insert(int key, T&& value)
    {
        return key < 0 ? negative_->Insert(Magnitude(key), std::move(value))
                       : positive_->Insert(static_cast<unsigned>(key), std::move(value));
    }

    // The key must be present: callers ask HasKey first.
    const T& ConstGet(int key) const
    {
        return key < 0 ? negative_->ConstGet(Magnitude(key)) : positive_->ConstGet(static_cast<unsigned>(key));
    }

    T& Get(int key)
    {
        return key < 0 ? negative_->Get(Magnitude(key)) : positive_->Get(static_cast<unsigned>(key));
    }

    bool HasKey(int key) const
    {
        return key < 0 ? negative_->HasKey(Magnitude(key)) : positive_->HasKey(static_cast<unsigned>(key));
    }

    // False when the key was absent.
    bool Remove(int key)
    {
        return key < 0 ? negative_->Remove(Magnitude(key)) : positive_->Remove(static_cast<unsigned>(key));
    }

    int Count() const { return negative_->Count() + positive_->Count(); }

    void Clear()
    {
        negative_->Clear();
        positive_->Clear();
    }

    omi_UintTable<T>& NegativeHalf() { return *negative_; }
    const omi_UintTable<T>& NegativeHalf() const { return *negative_; }
    omi_UintTable<T>& PositiveHalf() { return *positive_; }
    const omi_UintTable<T>& PositiveHalf() const { return *positive_; }

    std::size_t MemoryBytes() const { return sizeof(*this) + negative_->MemoryBytes() + positive_->MemoryBytes(); }

private:
    std::unique_ptr<omi_UintTable<T>> negative_;
    std::unique_ptr<omi_UintTable<T>> positive_;
};

// Walks a table in ascending signed key order or, with a comparison, in the
// order of qsort over Entry records (key and value pointer): the comparison
// receives two `const Entry*`. Writing to the table during a walk is not
// supported.
template <class T>
class omi_IntTableIterator {
public:
    struct Entry {
        int key;
        const T* value;
    };
    using Compare = int (*)(const void*, const void*);

    explicit omi_IntTableIterator(const omi_IntTable<T>& table)
        : negative_(table.NegativeHalf(), omi_UintTableIterator<T>::descending),
          positive_(table.PositiveHalf(), omi_UintTableIterator<T>::ascending),
          table_(&table),
          compare_(nullptr)
    {
    }

    omi_IntTableIterator(const omi_IntTable<T>& table, Compare compare)
        : negative_(table.NegativeHalf(), omi_UintTableIterator<T>::descending),
          positive_(table.PositiveHalf(), omi_UintTableIterator<T>::ascending),
          table_(&table),
          compare_(compare)
    {
    }

    void First()
    {
        if (compare_ != nullptr) {
            FirstSorted();
            return;
        }
        negative_.First();
        inNegative_ = !negative_.IsDone();
        if (!inNegative_)
            positive_.First();
        done_ = !inNegative_ && positive_.IsDone();
    }

    void Next()
    {
        if (done_)
            return;
        if (compare_ != nullptr) {
            done_ = ++position_ >= sorted_.size();
            return;
        }
        if (inNegative_) {
            negative_.Next();
            if (!negative_.IsDone())
                return;
            inNegative_ = false;
            positive_.First();
        } else {
            positive_.Next();
        }
        done_ = positive_.IsDone();
    }

    bool IsDone() const { return done_; }

    int CurrentKey() const
    {
        assert(!done_);
        if (compare_ != nullptr)
            return sorted_[position_].key;
        // Converting 2^31 gives INT_MIN, the one key of that magnitude.
        return inNegative_ ? static_cast<int>(0u - negative_.CurrentKey()) : static_cast<int>(positive_.CurrentKey());
    }

    const T& CurrentValue() const
    {
        assert(!done_);
        if (compare_ != nullptr)
            return *sorted_[position_].value;
        return inNegative_ ? negative_.CurrentValue() : positive_.CurrentValue();
    }

private:
    void FirstSorted()
    {
        omi_FillSorted<omi_IntTableIterator>(sorted_, *table_, compare_);
        position_ = 0;
        done_ = sorted_.empty();
    }

    omi_UintTableIterator<T> negative_;
    omi_UintTableIterator<T> positive_;
    const omi_IntTable<T>* table_;
    Compare compare_;
    bool inNegative_ = false;
    bool done_ = true;
    std::vector<Entry> sorted_;
    std::size_t position_ = 0;
};

#endif
