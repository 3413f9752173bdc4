#include "mem_Malloc.h"

#include <cstdlib>

void* mem_Malloc(std::size_t size) { return std::malloc(size ? size : 1); }

void mem_Free(void* pointer) { std::free(pointer); }

void* mem_Realloc(void* pointer, std::size_t size) { return std::realloc(pointer, size ? size : 1); }
