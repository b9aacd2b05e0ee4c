// Puts the chunk allocator behind every `new` and `delete` of the program.
// The other forms of the operators (arrays, nothrow, sized delete) reach
// these through the standard library's own definitions; the over-aligned
// forms keep the standard library's allocator, with which they pair.
#include <new>

#include "alloc/ChunkAllocator.h"

void* operator new(std::size_t size) { return quor::alloc::allocate(size); }
void operator delete(void* block) noexcept { quor::alloc::release(block); }
void operator delete(void* block, std::size_t) noexcept { quor::alloc::release(block); }
