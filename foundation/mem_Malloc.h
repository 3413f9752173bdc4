// Raw memory of the library, with the contract of malloc, free and realloc: a null
// result means no memory and leaves a block handed to mem_Realloc as it was; mem_Free
// of null does nothing; mem_Realloc of null is mem_Malloc. Keeping the calls behind
// these names leaves one place to count or tune the library's raw allocations.
//
// A request of 0 bytes gives a block that holds nothing but is not null, so that a
// null result always means failure and mem_Realloc(p, 0) never frees p behind a
// caller's back (the runtime's realloc may do either).
//
// A block of kMappedBytes or more is a mapping of its own, which mem_Free gives back to
// the system at once. The runtime's malloc maps large blocks too, but raises its
// threshold for that each time it frees one: after the first large deck is freed,
// the arrays of the next come from its heap, which keeps their pages once they are
// freed, and a process's peak grows with what it has read before.
#ifndef MEM_MALLOC_H
#define MEM_MALLOC_H

#include <cstddef>

const std::size_t kMappedBytes = 256 * 1024;

void* mem_Malloc(std::size_t size);
// mem_Malloc of count * size bytes, set to zero; null when the product overflows.
void* mem_Calloc(std::size_t count, std::size_t size);
void mem_Free(void* pointer);
void* mem_Realloc(void* pointer, std::size_t size);

#endif
