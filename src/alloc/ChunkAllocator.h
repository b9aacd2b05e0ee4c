#pragma once

#include <cstddef>

namespace quor::alloc {

// The allocator behind `operator new` in quorls and quor.
//
// One pass over a document makes hundreds of thousands of small objects
// (tokens' texts, tree nodes, symbols, scopes, types) and drops them all
// together at its end. The C library's allocator merges every freed block
// with its neighbours and, once the merged space passes 64 KiB, sweeps all
// its small free lists at each further free; over a tree of tens of
// megabytes those sweeps and merges cost a quarter of a pass, and grow
// faster than the document because they miss the cache.
//
// Here a small block is cut from the current chunk of its thread by moving
// a pointer, and each chunk counts its live blocks. Freeing a block only
// lowers the count (or, for the block cut last, moves the pointer back);
// a chunk whose count reaches zero is empty and goes to a pool from which
// the next pass takes it whole. Blocks of any thread may be freed on any
// other. Larger requests go to the C library, or straight to the kernel
// from a huge page up, but the largest of them (a document's token array,
// the checker's record) are kept when freed, a few at a time, for the next
// pass to take again: handing such a block back unmaps it, and mapping it
// again costs page faults for all the next pass touches.
//
// Chunks are mapped a region at a time, and regions and the largest blocks
// on huge-page boundaries with huge pages asked for, so that memory new to
// the process faults in 2 MiB at a time rather than 4 KiB.
inline constexpr std::size_t MAX_SMALL_BLOCK = 1024;
inline constexpr std::size_t CHUNK_SIZE = 256 * 1024;
inline constexpr std::size_t HUGE_PAGE_SIZE = 2 * 1024 * 1024;
inline constexpr std::size_t REGION_SIZE = HUGE_PAGE_SIZE;
// Large blocks of at least this size are mapped on their own.
inline constexpr std::size_t MAPPED_LARGE_MIN = HUGE_PAGE_SIZE;
// Empty chunks kept for the next pass; beyond these they go back to the
// kernel, so that memory taken by one huge document is given back.
inline constexpr std::size_t MAX_POOLED_CHUNKS = 256;

// Large blocks of at least this size are kept for reuse when freed, up to
// the two limits below; a request takes a kept block at most twice its size.
inline constexpr std::size_t KEPT_LARGE_MIN = 256 * 1024;
inline constexpr std::size_t MAX_KEPT_LARGE_BLOCKS = 16;
inline constexpr std::size_t MAX_KEPT_LARGE_BYTES = 128 * 1024 * 1024;

// The blocks in between, larger than a small block and smaller than a huge
// page, come from the C library, whose heap is handed back to the kernel
// only once this much of its top lies free.
inline constexpr std::size_t LIBRARY_TRIM_THRESHOLD = 64 * 1024 * 1024;

// At least `size` bytes, aligned to 16; throws std::bad_alloc when memory
// runs out.
void* allocate(std::size_t size);
// Gives back a block from `allocate`, on any thread; null is ignored.
void release(void* block) noexcept;

// Chunks mapped so far and not handed back, empty chunks in the pool, and
// large blocks kept for reuse, for tests and benchmarks.
struct ChunkStatistics {
    std::size_t made = 0;
    std::size_t pooled = 0;
    std::size_t keptLargeBlocks = 0;
    std::size_t keptLargeBytes = 0;
};
ChunkStatistics chunkStatistics();

}  // namespace quor::alloc
