// Sparse bit vector: blocks of 1024 bits made on demand, freed when empty.
#include "omi_BlkBitVect.h"

#include <algorithm>

namespace {

using Word = std::uint64_t;

inline unsigned LowestBit(Word w) { return static_cast<unsigned>(__builtin_ctzll(w)); }
inline unsigned HighestBit(Word w) { return 63u - static_cast<unsigned>(__builtin_clzll(w)); }

// Masks of the bits at or above, and at or below, a position in a word.
inline Word FromBit(unsigned bit) { return ~Word(0) << bit; }
inline Word UpToBit(unsigned bit) { return bit == 63 ? ~Word(0) : (Word(1) << (bit + 1)) - 1; }

}  // namespace

omi_BlkBitVect::omi_BlkBitVect() : count_(0) {}

omi_BlkBitVect::omi_BlkBitVect(const omi_BlkBitVect& other) : present_(other.present_), count_(other.count_)
{
    blocks_.reserve(other.blocks_.size());
    for (const auto& block : other.blocks_) {
        if (block) {
            Word* copy = new Word[blockWords];
            std::copy(block.get(), block.get() + blockWords, copy);
            blocks_.emplace_back(copy);
        } else {
            blocks_.emplace_back();
        }
    }
}

omi_BlkBitVect& omi_BlkBitVect::operator=(const omi_BlkBitVect& other)
{
    if (this != &other) {
        omi_BlkBitVect copy(other);
        blocks_.swap(copy.blocks_);
        present_.swap(copy.present_);
        count_ = copy.count_;
    }
    return *this;
}

omi_BlkBitVect::~omi_BlkBitVect() = default;

omi_BlkBitVect::Word* omi_BlkBitVect::MakeBlock(unsigned block)
{
    if (block >= blocks_.size()) {
        // Whole summary words, so the walker never reads past the summary.
        const std::size_t slots = (static_cast<std::size_t>(block) / wordBits + 1) * wordBits;
        blocks_.reserve(slots);
        blocks_.resize(slots);
        present_.resize(slots / wordBits, 0);
    }
    Word* words = new Word[blockWords]();
    blocks_[block].reset(words);
    present_[block >> wordShift] |= Word(1) << (block & (wordBits - 1));
    return words;
}

bool omi_BlkBitVect::SetBit(unsigned index)
{
    const unsigned block = index >> blockShift;
    Word* words = block < blocks_.size() ? blocks_[block].get() : nullptr;
    if (words == nullptr)
        words = MakeBlock(block);
    Word& word = words[(index >> wordShift) & (blockWords - 1)];
    const Word bit = Word(1) << (index & (wordBits - 1));
    if ((word & bit) != 0)
        return false;
    word |= bit;
    ++count_;
    return true;
}

bool omi_BlkBitVect::UnsetBit(unsigned index)
{
    const unsigned block = index >> blockShift;
    if (block >= blocks_.size())
        return false;
    Word* words = blocks_[block].get();
    if (words == nullptr)
        return false;
    Word& word = words[(index >> wordShift) & (blockWords - 1)];
    const Word bit = Word(1) << (index & (wordBits - 1));
    if ((word & bit) == 0)
        return false;
    word &= ~bit;
    --count_;
    // An empty block must go: the walker trusts the summary that every
    // existing block holds a set bit.
    if (word == 0 && std::all_of(words, words + blockWords, [](Word w) { return w == 0; })) {
        blocks_[block].reset();
        present_[block >> wordShift] &= ~(Word(1) << (block & (wordBits - 1)));
    }
    return true;
}

void omi_BlkBitVect::Clear()
{
    for (auto& block : blocks_)
        block.reset();
    std::fill(present_.begin(), present_.end(), 0);
    count_ = 0;
}

std::size_t omi_BlkBitVect::MemoryBytes() const
{
    std::size_t bytes = sizeof(*this) + blocks_.capacity() * sizeof(blocks_[0]) + present_.capacity() * sizeof(Word);
    for (const Word w : present_)
        bytes += static_cast<std::size_t>(__builtin_popcountll(w)) * blockWords * sizeof(Word);
    return bytes;
}

unsigned omi_BlkBitVect::NextBlock(unsigned from) const
{
    if (from >= blocks_.size())
        return noBlock;
    std::size_t s = from >> wordShift;
    Word w = present_[s] & FromBit(from & (wordBits - 1));
    while (w == 0) {
        if (++s >= present_.size())
            return noBlock;
        w = present_[s];
    }
    return static_cast<unsigned>(s * wordBits) + LowestBit(w);
}

unsigned omi_BlkBitVect::PrevBlock(unsigned from) const
{
    if (blocks_.empty())
        return noBlock;
    if (from >= blocks_.size())
        from = static_cast<unsigned>(blocks_.size() - 1);
    std::size_t s = from >> wordShift;
    Word w = present_[s] & UpToBit(from & (wordBits - 1));
    while (w == 0) {
        if (s == 0)
            return noBlock;
        w = present_[--s];
    }
    return static_cast<unsigned>(s * wordBits) + HighestBit(w);
}

bool omi_BlkBitVect::ScanUp(const Word* words, unsigned i, Word w, unsigned block, unsigned& index)
{
    for (;;) {
        if (w != 0) {
            index = (block << blockShift) + i * wordBits + LowestBit(w);
            return true;
        }
        if (++i == blockWords)
            return false;
        w = words[i];
    }
}

bool omi_BlkBitVect::ScanDown(const Word* words, unsigned i, Word w, unsigned block, unsigned& index)
{
    for (;;) {
        if (w != 0) {
            index = (block << blockShift) + i * wordBits + HighestBit(w);
            return true;
        }
        if (i-- == 0)
            return false;
        w = words[i];
    }
}

bool omi_BlkBitVectTrav::First(unsigned& index) const
{
    const unsigned block = vector_->NextBlock(0);
    if (block == omi_BlkBitVect::noBlock)
        return false;
    const Word* words = vector_->blocks_[block].get();
    return omi_BlkBitVect::ScanUp(words, 0, words[0], block, index);
}

bool omi_BlkBitVectTrav::Last(unsigned& index) const
{
    const unsigned block = vector_->PrevBlock(omi_BlkBitVect::noBlock);
    if (block == omi_BlkBitVect::noBlock)
        return false;
    const Word* words = vector_->blocks_[block].get();
    const unsigned last = omi_BlkBitVect::blockWords - 1;
    return omi_BlkBitVect::ScanDown(words, last, words[last], block, index);
}

bool omi_BlkBitVectTrav::Next(unsigned& index) const
{
    if (index == ~0u)
        return false;
    const unsigned from = index + 1;
    const unsigned block = from >> omi_BlkBitVect::blockShift;
    const auto& blocks = vector_->blocks_;
    if (block < blocks.size() && blocks[block]) {
        const Word* words = blocks[block].get();
        const unsigned i = (from >> omi_BlkBitVect::wordShift) & (omi_BlkBitVect::blockWords - 1);
        if (omi_BlkBitVect::ScanUp(words, i, words[i] & FromBit(from & 63), block, index))
            return true;
    }
    const unsigned next = vector_->NextBlock(block + 1);
    if (next == omi_BlkBitVect::noBlock)
        return false;
    const Word* words = blocks[next].get();
    return omi_BlkBitVect::ScanUp(words, 0, words[0], next, index);
}

bool omi_BlkBitVectTrav::Prev(unsigned& index) const
{
    if (index == 0)
        return false;
    const unsigned from = index - 1;
    const unsigned block = from >> omi_BlkBitVect::blockShift;
    const auto& blocks = vector_->blocks_;
    if (block < blocks.size() && blocks[block]) {
        const Word* words = blocks[block].get();
        const unsigned i = (from >> omi_BlkBitVect::wordShift) & (omi_BlkBitVect::blockWords - 1);
        if (omi_BlkBitVect::ScanDown(words, i, words[i] & UpToBit(from & 63), block, index))
            return true;
    }
    if (block == 0)
        return false;
    const unsigned prev = vector_->PrevBlock(block - 1);
    if (prev == omi_BlkBitVect::noBlock)
        return false;
    const Word* words = blocks[prev].get();
    const unsigned last = omi_BlkBitVect::blockWords - 1;
    return omi_BlkBitVect::ScanDown(words, last, words[last], prev, index);
}
