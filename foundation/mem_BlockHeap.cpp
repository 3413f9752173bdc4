#include "mem_BlockHeap.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstring>
#include <mutex>

#include "mem_Malloc.h"

#if defined(__SANITIZE_ADDRESS__)
#define MEM_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MEM_ASAN 1
#endif
#endif

#ifdef MEM_ASAN
#include <sanitizer/asan_interface.h>
// The sanitizer sees into the chunks as it sees into malloc's heap: a block is
// addressable from its allocation to its free, and not a byte beyond what was asked.
#define MEM_POISON(p, n) ASAN_POISON_MEMORY_REGION((p), (n))
#define MEM_UNPOISON(p, n) ASAN_UNPOISON_MEMORY_REGION((p), (n))
#else
#define MEM_POISON(p, n) ((void)(p), (void)(n))
#define MEM_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace {

const unsigned kChunkBits = 21;  // 2 MB: the size of a huge page
const std::size_t kChunkBytes = std::size_t(1) << kChunkBits;
const std::uint32_t kChunkCount = 32768;  // 64 GB of addresses, committed only where touched
// Block sizes: steps of 8 bytes for the text of lines and the values of a record,
// wider steps above, up to the chunks of the id tables (1024 records of a few words).
struct SizeRange {
    std::size_t upTo;
    std::size_t step;
};
const SizeRange kRanges[] = {{256, 8}, {1024, 64}, {4096, 256}, {kLargestBlock, 1024}};
const int kClasses = 32 + 12 + 12 + 60;

int ClassOf(std::size_t size) {
    int first = 0;
    std::size_t from = 0;
    for (const SizeRange& r : kRanges) {
        if (size <= r.upTo) return first + static_cast<int>((size > from ? size - from - 1 : 0) / r.step);
        first += static_cast<int>((r.upTo - from) / r.step);
        from = r.upTo;
    }
    return -1;
}

std::uint32_t ClassBytes(int k) {
    std::size_t from = 0;
    for (const SizeRange& r : kRanges) {
        const int count = static_cast<int>((r.upTo - from) / r.step);
        if (k < count) return static_cast<std::uint32_t>(from + static_cast<std::size_t>(k + 1) * r.step);
        k -= count;
        from = r.upTo;
    }
    return 0;
}

const std::uint32_t kNone = 0xffffffffu;
// A chunk that keeps serving its size after its last block went keeps this much of
// its pages, which the next small deck reuses without a fault (a driver that reads
// many small decks, a fuzzer); beyond it they go back to the system, as the pages of
// a large deck that was freed should.
const std::uint32_t kKeptBytes = 256 * 1024;
// Emptied chunks that keep their pages for the next chunk any size asks for. A pass
// that frees one form of a large keyword while it builds another (raw lines into
// packed ones, lines into a table) then refills the pages it has just emptied instead
// of having the kernel clear fresh ones, which was a quarter of its time.
const std::uint32_t kWarmChunks = 8;

struct Chunk {
    std::uint32_t bump;      // bytes from the start that blocks have taken
    std::uint32_t live;      // blocks in use
    std::uint32_t freeHead;  // offset + 1 of the first freed block, 0 when none
    std::int32_t sizeClass;  // of every block in it, while it serves a size
    std::uint32_t prev;      // list of the partly used chunks of its size, or of the empty chunks
    std::uint32_t next;
    bool partial;            // on its size's list of partly used chunks
    bool huge;               // asked for huge pages: the kernel may have filled all of it
};

struct Heap {
    std::mutex lock;
    char* base = nullptr;
    Chunk* chunks = nullptr;
    std::uint32_t fresh = 0;      // chunks below it have been used
    std::uint32_t empty = kNone;  // chunks given back, for reuse
    std::uint32_t warm = kNone;   // emptied chunks that still have their pages
    std::uint32_t warmCount = 0;
    std::uint32_t current[kClasses];
    std::uint32_t partial[kClasses];
    bool huge[kClasses];  // the size has filled a chunk: its next ones ask for huge pages
    std::size_t chunksInUse = 0;
    std::size_t blocksInUse = 0;

    Heap() {
        for (int k = 0; k < kClasses; ++k) {
            current[k] = kNone;
            partial[k] = kNone;
            huge[k] = false;
        }
        const std::size_t bytes = kChunkBytes * kChunkCount;
        void* range = mmap(nullptr, bytes + kChunkBytes, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        void* table = mmap(nullptr, sizeof(Chunk) * kChunkCount, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (range == MAP_FAILED || table == MAP_FAILED) {
            if (range != MAP_FAILED) munmap(range, bytes + kChunkBytes);
            if (table != MAP_FAILED) munmap(table, sizeof(Chunk) * kChunkCount);
            return;
        }
        // Chunks on huge-page boundaries, so that the kernel can back a whole chunk
        // with one page.
        const std::uintptr_t start = reinterpret_cast<std::uintptr_t>(range);
        const std::uintptr_t aligned = (start + kChunkBytes - 1) & ~(kChunkBytes - 1);
        base = reinterpret_cast<char*>(aligned);
        chunks = static_cast<Chunk*>(table);
    }

    char* Start(std::uint32_t c) const { return base + static_cast<std::size_t>(c) * kChunkBytes; }

    bool Owns(const void* p) const {
        const char* q = static_cast<const char*>(p);
        return base && q >= base && q < base + kChunkBytes * kChunkCount;
    }

    void Unlink(std::uint32_t c, std::uint32_t& head) {
        Chunk& ch = chunks[c];
        if (ch.prev != kNone) chunks[ch.prev].next = ch.next; else head = ch.next;
        if (ch.next != kNone) chunks[ch.next].prev = ch.prev;
        ch.prev = ch.next = kNone;
    }

    void Push(std::uint32_t c, std::uint32_t& head) {
        Chunk& ch = chunks[c];
        ch.prev = kNone;
        ch.next = head;
        if (head != kNone) chunks[head].prev = c;
        head = c;
    }

    // A chunk for size class k, once its current one is full: one of its partly used
    // chunks, else an empty one, else kNone when the range is used up.
    std::uint32_t NextChunk(int k) {
        const bool hadOne = current[k] != kNone;
        std::uint32_t c = partial[k];
        if (c != kNone) {
            Unlink(c, partial[k]);
            chunks[c].partial = false;
        } else {
            if (warm != kNone) {
                c = warm;
                Unlink(c, warm);
                --warmCount;
            } else if (empty != kNone) {
                c = empty;
                Unlink(c, empty);
            } else if (fresh < kChunkCount) {
                c = fresh++;
            } else {
                return kNone;
            }
            Chunk& ch = chunks[c];
            ch.bump = 0;
            ch.live = 0;
            ch.freeHead = 0;
            ch.sizeClass = k;
            ch.partial = false;
            ch.prev = ch.next = kNone;
            MEM_POISON(Start(c), kChunkBytes);
            ++chunksInUse;
            if (hadOne) huge[k] = true;
#ifdef MADV_HUGEPAGE
            if (huge[k] && !ch.huge) ch.huge = madvise(Start(c), kChunkBytes, MADV_HUGEPAGE) == 0;
#endif
        }
        current[k] = c;
        return c;
    }

    void* Allocate(std::size_t size) {
        const int k = ClassOf(size);
        const std::uint32_t blockBytes = ClassBytes(k);
        std::lock_guard<std::mutex> guard(lock);
        std::uint32_t c = current[k];
        if (c == kNone || (chunks[c].freeHead == 0 && chunks[c].bump + blockBytes > kChunkBytes)) {
            c = NextChunk(k);
            if (c == kNone) return nullptr;
        }
        Chunk& ch = chunks[c];
        char* p;
        if (ch.freeHead != 0) {
            p = Start(c) + (ch.freeHead - 1);
            MEM_UNPOISON(p, sizeof ch.freeHead);
            std::memcpy(&ch.freeHead, p, sizeof ch.freeHead);
            MEM_POISON(p, sizeof ch.freeHead);
        } else {
            p = Start(c) + ch.bump;
            ch.bump += blockBytes;
        }
        ++ch.live;
        ++blocksInUse;
        MEM_UNPOISON(p, size);
        return p;
    }

    // Gives the chunk's pages back. On huge pages the kernel filled the whole chunk at
    // the first touch, beyond what blocks took.
    void Discard(std::uint32_t c) {
        const Chunk& ch = chunks[c];
        madvise(Start(c), ch.huge ? kChunkBytes : (ch.bump + 4095u) & ~std::size_t(4095), MADV_DONTNEED);
    }

    void Release(std::uint32_t c) {
        Chunk& ch = chunks[c];
        const bool keep = warmCount < kWarmChunks;
        if (!keep) Discard(c);
        ch.bump = 0;
        ch.freeHead = 0;
        --chunksInUse;
        if (keep) {
            ++warmCount;
            Push(c, warm);
        } else {
            Push(c, empty);
        }
    }

    void Free(void* block) {
        std::lock_guard<std::mutex> guard(lock);
        FreeLocked(block);
    }

    // With the lock held.
    void FreeLocked(void* block) {
        char* p = static_cast<char*>(block);
        const std::uint32_t c = static_cast<std::uint32_t>((p - base) >> kChunkBits);
        Chunk& ch = chunks[c];
        const int k = ch.sizeClass;
        MEM_UNPOISON(p, sizeof ch.freeHead);
        std::memcpy(p, &ch.freeHead, sizeof ch.freeHead);
        MEM_POISON(p, ClassBytes(k));
        ch.freeHead = static_cast<std::uint32_t>(p - Start(c)) + 1;
        --ch.live;
        --blocksInUse;
        if (ch.live == 0) {
            if (c == current[k]) {
                // Still the chunk its size allocates from: start it over.
                if (ch.huge || ch.bump > kKeptBytes) Discard(c);
                ch.bump = 0;
                ch.freeHead = 0;
            } else {
                if (ch.partial) Unlink(c, partial[k]);
                ch.partial = false;
                Release(c);
            }
        } else if (c != current[k] && !ch.partial) {
            ch.partial = true;
            Push(c, partial[k]);
        }
    }
};

// Never destroyed: a block may be freed by a static destructor after any other.
Heap& TheHeap() {
    static Heap* heap = new Heap;
    return *heap;
}

}  // namespace

void* mem_BlockMalloc(std::size_t size) {
    Heap& heap = TheHeap();
    if (size <= kLargestBlock && heap.base) {
        if (void* p = heap.Allocate(size)) return p;
    }
    return mem_Malloc(size);
}

void* mem_BlockCalloc(std::size_t size) {
    void* p = mem_BlockMalloc(size);
    if (p) std::memset(p, 0, size);
    return p;
}

void mem_BlockFree(void* block) {
    if (!block) return;
    Heap& heap = TheHeap();
    if (heap.Owns(block))
        heap.Free(block);
    else
        mem_Free(block);
}

void mem_BlockFreeMany(void* const* blocks, std::size_t count) {
    Heap& heap = TheHeap();
    {
        std::lock_guard<std::mutex> guard(heap.lock);
        for (std::size_t i = 0; i < count; ++i)
            if (blocks[i] && heap.Owns(blocks[i])) heap.FreeLocked(blocks[i]);
    }
    for (std::size_t i = 0; i < count; ++i)
        if (blocks[i] && !heap.Owns(blocks[i])) mem_Free(blocks[i]);
}

mem_BlockHeapStats mem_BlockHeapState() {
    Heap& heap = TheHeap();
    std::lock_guard<std::mutex> guard(heap.lock);
    mem_BlockHeapStats stats;
    stats.reserved = heap.base != nullptr;
    stats.chunksInUse = heap.chunksInUse;
    stats.chunksKept = heap.warmCount;
    stats.blocksInUse = heap.blocksInUse;
    return stats;
}
