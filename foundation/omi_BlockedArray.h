// omi_BlockedArray<T>: an array indexed by unsigned, stored in fixed chunks.
//
// A block of an id table covers a million indices but may hold a few of them,
// so its values sit in chunks (1024 elements with the usual parameter) that
// are made at the first write that falls into them. Only the chunk table
// grows with the highest index written, and it grows by a fixed step so that
// filling a block densely reallocates it rarely and never copies values.
// Reading an element is two array reads: the chunk pointer and the element.
#ifndef OMI_BLOCKEDARRAY_H
#define OMI_BLOCKEDARRAY_H

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <new>
#include <vector>

#include "mem_BlockHeap.h"

template <class T>
class omi_BlockedArray {
public:
    // `chunkBits` is the base 2 logarithm of the chunk size; a `growStep`
    // of 0 stands for 128 slots.
    explicit omi_BlockedArray(int chunkBits = 10, int growStep = 24)
        : chunkShift_(static_cast<unsigned>(chunkBits)),
          chunkMask_((1u << chunkBits) - 1),
          growStep_(growStep == 0 ? 128u : static_cast<unsigned>(growStep))
    {
        assert(chunkBits > 0 && chunkBits < 32 && growStep >= 0);
    }

    omi_BlockedArray(const omi_BlockedArray& other)
        : chunkShift_(other.chunkShift_), chunkMask_(other.chunkMask_), growStep_(other.growStep_)
    {
        chunks_.reserve(other.chunks_.size());
        for (const auto& chunk : other.chunks_) {
            if (chunk) {
                chunks_.emplace_back(NewChunk(chunk.get()), ChunkDeleter{ChunkSize()});
            } else {
                chunks_.emplace_back(nullptr, ChunkDeleter{ChunkSize()});
            }
        }
    }

    omi_BlockedArray& operator=(const omi_BlockedArray& other)
    {
        if (this != &other) {
            omi_BlockedArray copy(other);
            chunks_.swap(copy.chunks_);
            chunkShift_ = copy.chunkShift_;
            chunkMask_ = copy.chunkMask_;
            growStep_ = copy.growStep_;
        }
        return *this;
    }

    ~omi_BlockedArray() = default;

    // Writable element; makes its chunk (value-initialised) when missing.
    T& Get(unsigned index)
    {
        const unsigned chunk = index >> chunkShift_;
        T* values = chunk < chunks_.size() ? chunks_[chunk].get() : nullptr;
        if (values == nullptr)
            values = MakeChunk(chunk);
        return values[index & chunkMask_];
    }

    void Set(unsigned index, const T& value) { Get(index) = value; }

    // The chunk of `index` must exist.
    const T& ConstGet(unsigned index) const
    {
        assert(HasChunk(index));
        return chunks_[index >> chunkShift_].get()[index & chunkMask_];
    }

    // The element, or null when its chunk was never written.
    const T* Find(unsigned index) const
    {
        const unsigned chunk = index >> chunkShift_;
        if (chunk >= chunks_.size() || !chunks_[chunk])
            return nullptr;
        return &chunks_[chunk].get()[index & chunkMask_];
    }

    bool HasChunk(unsigned index) const { return Find(index) != nullptr; }

    unsigned ChunkSize() const { return chunkMask_ + 1; }
    unsigned ChunkSlots() const { return static_cast<unsigned>(chunks_.size()); }
    unsigned ChunkCount() const
    {
        unsigned n = 0;
        for (const auto& chunk : chunks_)
            n += chunk ? 1u : 0u;
        return n;
    }

    void Clear() { chunks_.clear(); }

    // Bytes of the chunk table and the chunks, without allocator overhead.
    std::size_t MemoryBytes() const
    {
        return sizeof(*this) + chunks_.capacity() * sizeof(chunks_[0]) +
               static_cast<std::size_t>(ChunkCount()) * ChunkSize() * sizeof(T);
    }

private:
    // Chunks live on the block heap, where chunks of one size pack into pages that
    // the kernel can back with huge pages; the values are constructed in place.
    struct ChunkDeleter {
        unsigned count = 0;  // a null chunk never calls its deleter
        void operator()(T* values) const
        {
            for (unsigned i = 0; i < count; ++i)
                values[i].~T();
            mem_BlockFree(values);
        }
    };
    using ChunkPtr = std::unique_ptr<T, ChunkDeleter>;

    // A chunk of value-initialised elements, or of copies of `from`.
    T* NewChunk(const T* from)
    {
        const unsigned count = ChunkSize();
        T* values = static_cast<T*>(mem_BlockMalloc(sizeof(T) * count));
        if (!values)
            throw std::bad_alloc();
        unsigned made = 0;
        try {
            for (; made < count; ++made) {
                if (from)
                    new (values + made) T(from[made]);
                else
                    new (values + made) T();
            }
        } catch (...) {
            while (made > 0)
                values[--made].~T();
            mem_BlockFree(values);
            throw;
        }
        return values;
    }

    T* MakeChunk(unsigned chunk)
    {
        if (chunk >= chunks_.size()) {
            const std::size_t slots = (static_cast<std::size_t>(chunk) / growStep_ + 1) * growStep_;
            chunks_.reserve(slots);  // exact: vector growth alone would double
            chunks_.resize(slots);
        }
        T* values = NewChunk(nullptr);
        chunks_[chunk] = ChunkPtr(values, ChunkDeleter{ChunkSize()});
        return values;
    }

    static_assert(alignof(T) <= 8, "blocks of the block heap are aligned to 8 bytes");
    std::vector<ChunkPtr> chunks_;
    unsigned chunkShift_;
    unsigned chunkMask_;
    unsigned growStep_;
};

#endif
