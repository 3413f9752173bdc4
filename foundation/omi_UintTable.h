// omi_UintTable<T>: a sparse two-level table over unsigned keys, with its
// blocks and iterators.
//
// Node and element ids run to nine digits with millions of entries, often in
// a few dense runs far apart. The high bits of a key pick a block from a
// small array of block pointers, the low bits a slot in the block; a block is
// a chunked value array and a bit vector of the slots in use. A lookup is
// thus two array reads and a bit test whatever the number of keys, and a few
// ids near 999999999 cost only the blocks and chunks they fall into. A block
// is made at the first key in its range and dropped with its last key.
#ifndef OMI_UINTTABLE_H
#define OMI_UINTTABLE_H

#include "omi_BlkBitVect.h"
#include "omi_BlockedArray.h"

#include <cassert>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

template <class T>
class omi_UintTableBlock {
public:
    omi_UintTableBlock(int chunkBits, int growStep) : values(chunkBits, growStep) {}

    std::size_t MemoryBytes() const
    {
        return values.MemoryBytes() + used.MemoryBytes() + sizeof(*this) - sizeof(values) - sizeof(used);
    }

    omi_BlockedArray<T> values;
    omi_BlkBitVect used;  // a slot's value counts only while its bit is set
};

template <class T>
class omi_UintTable {
public:
    // `topBits` high bits of a key choose the block; `chunkBits` and
    // `growStep` size the value array of each block.
    explicit omi_UintTable(int topBits = 12, int chunkBits = 10, int growStep = 24)
        : blocks_(initialSlots),
          count_(0),
          slots_(initialSlots),
          mask_((1u << (32 - topBits)) - 1),
          shift_(static_cast<unsigned>(32 - topBits)),
          chunkBits_(chunkBits),
          growStep_(growStep)
    {
        assert(topBits > 0 && topBits < 32);
    }

    omi_UintTable(const omi_UintTable& other)
        : count_(other.count_),
          slots_(other.slots_),
          mask_(other.mask_),
          shift_(other.shift_),
          chunkBits_(other.chunkBits_),
          growStep_(other.growStep_)
    {
        blocks_.reserve(other.slots_);
        for (const auto& block : other.blocks_)
            blocks_.emplace_back(block ? new omi_UintTableBlock<T>(*block) : nullptr);
    }

    omi_UintTable& operator=(const omi_UintTable& other)
    {
        if (this != &other) {
            omi_UintTable copy(other);
            blocks_.swap(copy.blocks_);
            count_ = copy.count_;
            slots_ = copy.slots_;
            mask_ = copy.mask_;
            shift_ = copy.shift_;
            chunkBits_ = copy.chunkBits_;
            growStep_ = copy.growStep_;
        }
        return *this;
    }

    ~omi_UintTable() = default;

    // True for a new key; an existing key's value is overwritten.
    bool Insert(unsigned key, const T& value)
    {
        const unsigned index = key & mask_;
        omi_UintTableBlock<T>* block = BlockOf(key);
        block->values.Set(index, value);
        return Mark(block, index);
    }

    // The same, moving the value in: a record that owns memory is not copied.
    bool Insert(unsigned key, T&& value)
    {
        const unsigned index = key & mask_;
        omi_UintTableBlock<T>* block = BlockOf(key);
        block->values.Get(index) = std::move(value);
        return Mark(block, index);
    }

    // The key must be present: callers ask HasKey first.
    const T& ConstGet(unsigned key) const
    {
        assert(HasKey(key));
        return blocks_[key >> shift_]->values.ConstGet(key & mask_);
    }

    T& Get(unsigned key)
    {
        assert(HasKey(key));
        return blocks_[key >> shift_]->values.Get(key & mask_);
    }

    bool HasKey(unsigned key) const
    {
        const unsigned top = key >> shift_;
        if (top >= slots_)
            return false;
        const omi_UintTableBlock<T>* block = blocks_[top].get();
        return block != nullptr && block->used.TestBit(key & mask_);
    }

    // False when the key was absent.
    bool Remove(unsigned key)
    {
        const unsigned top = key >> shift_;
        if (top >= slots_ || !blocks_[top])
            return false;
        omi_UintTableBlock<T>& block = *blocks_[top];
        const unsigned index = key & mask_;
        if (!block.used.UnsetBit(index))
            return false;
        --count_;
        if (block.used.IsEmpty())
            blocks_[top].reset();
        else
            block.values.Get(index) = T();  // let go of what the value holds
        return true;
    }

    int Count() const { return count_; }

    // Drops every block; the slot array keeps its size.
    void Clear()
    {
        for (auto& block : blocks_)
            block.reset();
        count_ = 0;
    }

    // The layout, for iterators and for memory accounting.
    unsigned Slots() const { return slots_; }
    unsigned Shift() const { return shift_; }
    const omi_UintTableBlock<T>* Block(unsigned top) const { return blocks_[top].get(); }
    unsigned BlockCount() const
    {
        unsigned n = 0;
        for (const auto& block : blocks_)
            n += block ? 1u : 0u;
        return n;
    }

    // Bytes of the slot array and the blocks, without allocator overhead.
    std::size_t MemoryBytes() const
    {
        std::size_t bytes = sizeof(*this) + blocks_.capacity() * sizeof(blocks_[0]);
        for (const auto& block : blocks_)
            if (block)
                bytes += block->MemoryBytes();
        return bytes;
    }

private:
    // The block of the key, made when absent.
    omi_UintTableBlock<T>* BlockOf(unsigned key)
    {
        const unsigned top = key >> shift_;
        if (top >= slots_)
            Grow(top);
        omi_UintTableBlock<T>* block = blocks_[top].get();
        if (block == nullptr) {
            block = new omi_UintTableBlock<T>(chunkBits_, growStep_);
            blocks_[top].reset(block);
        }
        return block;
    }

    bool Mark(omi_UintTableBlock<T>* block, unsigned index)
    {
        if (!block->used.SetBit(index))
            return false;
        ++count_;
        return true;
    }

    static constexpr unsigned initialSlots = 2;

    void Grow(unsigned top)
    {
        const unsigned slots = (top / 64 + 1) * 64;
        blocks_.reserve(slots);  // exact: vector growth alone would double
        blocks_.resize(slots);
        slots_ = slots;
    }

    std::vector<std::unique_ptr<omi_UintTableBlock<T>>> blocks_;
    int count_;
    unsigned slots_;
    unsigned mask_;
    unsigned shift_;
    int chunkBits_;
    int growStep_;
};

// Walks one table, by default in ascending key order. With a comparison,
// First collects every entry as an Entry (key and value pointer) and sorts
// them with qsort, so the comparison receives two `const Entry*`. Writing to
// the table during a walk is not supported.
// Fills `sorted` with every entry of a plain walk over the table and sorts it with the
// C library's qsort, as the sorted iterators of both table kinds do.
template <class PlainIterator, class Entry, class Table>
void omi_FillSorted(std::vector<Entry>& sorted, const Table& table, int (*compare)(const void*, const void*))
{
    sorted.clear();
    sorted.reserve(static_cast<std::size_t>(table.Count()));
    PlainIterator plain(table);
    for (plain.First(); !plain.IsDone(); plain.Next())
        sorted.push_back(Entry{plain.CurrentKey(), &plain.CurrentValue()});
    if (!sorted.empty())
        std::qsort(sorted.data(), sorted.size(), sizeof(Entry), compare);
}

template <class T>
class omi_UintTableIterator {
public:
    struct Entry {
        unsigned key;
        const T* value;
    };
    using Compare = int (*)(const void*, const void*);
    enum Direction { ascending, descending };

    explicit omi_UintTableIterator(const omi_UintTable<T>& table, Direction direction = ascending)
        : table_(&table), compare_(nullptr), direction_(direction)
    {
    }

    omi_UintTableIterator(const omi_UintTable<T>& table, Compare compare)
        : table_(&table), compare_(compare), direction_(ascending)
    {
    }

    void First()
    {
        if (compare_ != nullptr) {
            FirstSorted();
            return;
        }
        if (direction_ == ascending)
            EnterBlockUpFrom(0);
        else
            EnterBlockDownFrom(table_->Slots());
    }

    void Next()
    {
        if (done_)
            return;
        if (compare_ != nullptr) {
            done_ = ++position_ >= sorted_.size();
            return;
        }
        const omi_BlkBitVectTrav trav(&block_->used);
        if (direction_ == ascending) {
            if (!trav.Next(bit_))
                EnterBlockUpFrom(top_ + 1);
        } else {
            if (!trav.Prev(bit_))
                EnterBlockDownFrom(top_);
        }
    }

    bool IsDone() const { return done_; }

    unsigned CurrentKey() const
    {
        assert(!done_);
        return compare_ != nullptr ? sorted_[position_].key : (top_ << table_->Shift()) | bit_;
    }

    const T& CurrentValue() const
    {
        assert(!done_);
        return compare_ != nullptr ? *sorted_[position_].value : block_->values.ConstGet(bit_);
    }

private:
    // Enter the first block at or above `top`, or the last block below it.
    void EnterBlockUpFrom(unsigned top)
    {
        for (; top < table_->Slots(); ++top) {
            const omi_UintTableBlock<T>* block = table_->Block(top);
            if (block != nullptr && omi_BlkBitVectTrav(&block->used).First(bit_)) {
                Enter(top, block);
                return;
            }
        }
        done_ = true;
    }

    void EnterBlockDownFrom(unsigned top)
    {
        while (top-- > 0) {
            const omi_UintTableBlock<T>* block = table_->Block(top);
            if (block != nullptr && omi_BlkBitVectTrav(&block->used).Last(bit_)) {
                Enter(top, block);
                return;
            }
        }
        done_ = true;
    }

    void Enter(unsigned top, const omi_UintTableBlock<T>* block)
    {
        top_ = top;
        block_ = block;
        done_ = false;
    }

    void FirstSorted()
    {
        omi_FillSorted<omi_UintTableIterator>(sorted_, *table_, compare_);
        position_ = 0;
        done_ = sorted_.empty();
    }

    const omi_UintTable<T>* table_;
    Compare compare_;
    Direction direction_;
    unsigned top_ = 0;
    unsigned bit_ = 0;
    const omi_UintTableBlock<T>* block_ = nullptr;
    bool done_ = true;
    std::vector<Entry> sorted_;
    std::size_t position_ = 0;
};

#endif
