// The heap of the library's small blocks: the text of a data line, the packed values
// of a node or an element line, the chunks of the id tables. A million-element deck makes millions of them, and
// the general allocator spends more time on them than the parser spends reading the
// lines: it takes each from the top of its heap, with a header of its own, and the
// kernel faults the heap in four kilobytes at a time.
//
// Here a block of up to kLargestBlock bytes comes from a chunk of 2 MB that holds
// blocks of one size only (sizes step by 8 bytes up to 256, wider above, so that the
// 1024-record chunks of the id tables fit exactly), so a block needs no header, its
// size is known from the chunk it lies in, and an allocation is a bump of an offset
// or the pop of the chunk's free list. Chunks are cut from one address range that is
// reserved once and committed only as pages are touched; once a size has filled a
// chunk, its further chunks ask the kernel for huge pages. A chunk whose last block is
// freed goes back to the system, but for the last few, whose pages the next chunks
// take without a fault. Larger blocks, and every block when the range cannot
// be reserved (a strict overcommit policy, a tight address space limit), come from
// mem_Malloc.
//
// The contract is that of malloc and free: any thread may free a block that another
// thread allocated, a null result means no memory, and mem_BlockFree of null does
// nothing. A block must go back through mem_BlockFree, never through free.
#ifndef MEM_BLOCKHEAP_H
#define MEM_BLOCKHEAP_H

#include <cstddef>

const std::size_t kLargestBlock = 65536;

void* mem_BlockMalloc(std::size_t size);
// As mem_BlockMalloc, with the block's bytes set to zero.
void* mem_BlockCalloc(std::size_t size);
void mem_BlockFree(void* block);
// mem_BlockFree of each, null ones skipped, taking the heap's lock once: a pass that
// lets go of a large keyword's lines frees them by the thousand.
void mem_BlockFreeMany(void* const* blocks, std::size_t count);

// What the heap holds now, for tests and for a driver that reports its memory.
struct mem_BlockHeapStats {
    bool reserved = false;       // false: every block comes from mem_Malloc
    std::size_t chunksInUse = 0; // chunks that hold at least one block or serve a size
    std::size_t blocksInUse = 0;
    std::size_t chunksKept = 0;  // emptied chunks that keep their pages for the next ones
};
mem_BlockHeapStats mem_BlockHeapState();

#endif
