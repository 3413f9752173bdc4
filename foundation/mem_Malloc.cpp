#include "mem_Malloc.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

// Every block starts behind a header that tells how it was made; 16 bytes keep the
// block as aligned as malloc's.
struct Header {
    std::size_t bytes;   // the block's size, header included, for a mapped block
    std::uint64_t kind;  // kHeap or kMapped
};
static_assert(sizeof(Header) == 16, "the header keeps the block 16-aligned");

const std::uint64_t kHeap = 0x48454150u;
const std::uint64_t kMapped = 0x4d415050u;

Header* HeaderOf(void* block) { return static_cast<Header*>(block) - 1; }

// A mapping this large is an array of a large deck (line slots, ids): the kernel may
// back it with huge pages, which it then faults in a five-hundredth as often.
const std::size_t kHugeBytes = std::size_t(4) << 20;

void AdviseHuge(void* mapping, std::size_t bytes) {
#ifdef MADV_HUGEPAGE
    if (bytes >= kHugeBytes) madvise(mapping, bytes, MADV_HUGEPAGE);
#else
    (void)mapping;
    (void)bytes;
#endif
}

void* Mapped(std::size_t bytes) {
    void* p = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (p == MAP_FAILED) return nullptr;
    AdviseHuge(p, bytes);
    Header* header = static_cast<Header*>(p);
    header->bytes = bytes;
    header->kind = kMapped;
    return header + 1;
}

void* Heap(std::size_t bytes) {
    Header* header = static_cast<Header*>(std::malloc(bytes));
    if (!header) return nullptr;
    header->bytes = bytes;
    header->kind = kHeap;
    return header + 1;
}

bool Overflows(std::size_t size) { return size > SIZE_MAX - sizeof(Header); }

}  // namespace

void* mem_Malloc(std::size_t size) {
    if (Overflows(size)) return nullptr;
    const std::size_t bytes = size + sizeof(Header);
    return bytes >= kMappedBytes ? Mapped(bytes) : Heap(bytes);
}

void* mem_Calloc(std::size_t count, std::size_t size) {
    if (size != 0 && count > SIZE_MAX / size) return nullptr;
    const std::size_t total = count * size;
    void* block = mem_Malloc(total);
    // Fresh mappings are zero already.
    if (block && HeaderOf(block)->kind == kHeap) std::memset(block, 0, total);
    return block;
}

void mem_Free(void* pointer) {
    if (!pointer) return;
    Header* header = HeaderOf(pointer);
    if (header->kind == kMapped)
        munmap(header, header->bytes);
    else
        std::free(header);
}

void* mem_Realloc(void* pointer, std::size_t size) {
    if (!pointer) return mem_Malloc(size);
    if (Overflows(size)) return nullptr;
    Header* header = HeaderOf(pointer);
    const std::size_t bytes = size + sizeof(Header);
    if (header->kind == kHeap && bytes < kMappedBytes) {
        Header* grown = static_cast<Header*>(std::realloc(header, bytes));
        if (!grown) return nullptr;
        grown->bytes = bytes;
        return grown + 1;
    }
#ifdef MREMAP_MAYMOVE
    if (header->kind == kMapped && bytes >= kMappedBytes) {
        void* moved = mremap(header, header->bytes, bytes, MREMAP_MAYMOVE);
        if (moved == MAP_FAILED) return nullptr;
        AdviseHuge(moved, bytes);
        Header* grown = static_cast<Header*>(moved);
        grown->bytes = bytes;
        return grown + 1;
    }
#endif
    // Across the threshold, or without mremap: a new block and a copy.
    void* block = mem_Malloc(size);
    if (!block) return nullptr;
    const std::size_t old = header->bytes - sizeof(Header);
    std::memcpy(block, pointer, old < size ? old : size);
    mem_Free(pointer);
    return block;
}
