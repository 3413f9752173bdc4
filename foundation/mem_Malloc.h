// Raw memory of the library, with the contract of malloc, free and realloc: a null
// result means no memory and leaves a block handed to mem_Realloc as it was; mem_Free
// of null does nothing; mem_Realloc of null is mem_Malloc. Keeping the calls behind
// these names leaves one place to count or tune the library's raw allocations.
//
// A request of 0 bytes gives a block that holds nothing but is not null, so that a
// null result always means failure and mem_Realloc(p, 0) never frees p behind a
// caller's back (the runtime's realloc may do either).
#ifndef MEM_MALLOC_H
#define MEM_MALLOC_H

#include <cstddef>

void* mem_Malloc(std::size_t size);
void mem_Free(void* pointer);
void* mem_Realloc(void* pointer, std::size_t size);

#endif
