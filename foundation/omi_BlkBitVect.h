// omi_BlkBitVect: a sparse bit vector over unsigned indices, and its walker.
//
// The id tables mark the occupied slots of each block here, so a vector may
// cover a million indices with only a handful set. Bits are kept in blocks
// of 1024 (sixteen 64-bit words) behind a directory; a block exists only
// while one of its bits is set. A summary word per 64 directory slots tells
// which blocks exist, so the walker skips empty stretches 64 blocks at a time
// instead of probing each slot.
#ifndef OMI_BLKBITVECT_H
#define OMI_BLKBITVECT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

class omi_BlkBitVect {
public:
    omi_BlkBitVect();
    omi_BlkBitVect(const omi_BlkBitVect& other);
    omi_BlkBitVect& operator=(const omi_BlkBitVect& other);
    virtual ~omi_BlkBitVect();

    // Both give whether the bit changed, which spares callers that keep
    // their own counts a separate test.
    bool SetBit(unsigned index);
    bool UnsetBit(unsigned index);
    bool TestBit(unsigned index) const
    {
        const unsigned block = index >> blockShift;
        if (block >= blocks_.size())
            return false;
        const Word* words = blocks_[block].get();
        return words != nullptr &&
               ((words[(index >> wordShift) & (blockWords - 1)] >> (index & (wordBits - 1))) & 1u) != 0;
    }

    // Drops every block; the directory keeps its size.
    void Clear();

    unsigned Count() const { return count_; }
    bool IsEmpty() const { return count_ == 0; }

    // Bytes held by the directory, the summary and the bit blocks (without
    // the allocator's own overhead).
    std::size_t MemoryBytes() const;

private:
    friend class omi_BlkBitVectTrav;

    using Word = std::uint64_t;
    static constexpr unsigned wordBits = 64;
    static constexpr unsigned wordShift = 6;
    static constexpr unsigned blockWords = 16;
    static constexpr unsigned blockShift = 10;  // 1024 bits a block
    static constexpr unsigned noBlock = ~0u;

    Word* MakeBlock(unsigned block);
    // First existing block at or after `from`, last at or before `from`;
    // noBlock when there is none.
    unsigned NextBlock(unsigned from) const;
    unsigned PrevBlock(unsigned from) const;
    // Find the set bit nearest to word i of a block, upwards or downwards;
    // `w` is word i already masked to the bits still in question.
    static bool ScanUp(const Word* words, unsigned i, Word w, unsigned block, unsigned& index);
    static bool ScanDown(const Word* words, unsigned i, Word w, unsigned block, unsigned& index);

    std::vector<std::unique_ptr<Word[]>> blocks_;
    std::vector<Word> present_;  // bit b: blocks_[b] exists
    unsigned count_;
};

// Walks the set bits of a vector that must outlive the walker. Each
// operation starts from the index it is given, so a walk survives changes
// to the vector between steps. On false the index is left as it was.
class omi_BlkBitVectTrav {
public:
    explicit omi_BlkBitVectTrav(const omi_BlkBitVect* vector) : vector_(vector) {}

    bool First(unsigned& index) const;
    bool Last(unsigned& index) const;
    // The lowest set bit above `index`, the highest set bit below it.
    bool Next(unsigned& index) const;
    bool Prev(unsigned& index) const;

private:
    const omi_BlkBitVect* vector_;
};

#endif
