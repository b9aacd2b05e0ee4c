// The chunk allocator: aligned, non-overlapping blocks; space of the block
// cut last reused at once; empty chunks pooled for the next pass, whichever
// thread frees their blocks; live blocks never handed out again.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <thread>
#include <vector>

#include "alloc/ChunkAllocator.h"

namespace {

using namespace quor::alloc;

bool aligned(const void* block) { return reinterpret_cast<std::uintptr_t>(block) % 16 == 0; }

// Runs `body` on a thread of its own, which gives up its chunk when it ends.
template <typename Body>
void onOwnThread(Body body) {
    std::thread worker(body);
    worker.join();
}

// A pass: many small blocks of mixed sizes, all freed at its end.
std::vector<void*> cutBlocks(std::size_t count) {
    std::vector<void*> blocks;
    blocks.reserve(count);
    for (std::size_t i = 0; i < count; ++i) blocks.push_back(allocate(8 + (i * 24) % 200));
    return blocks;
}

void releaseAll(const std::vector<void*>& blocks) {
    for (void* block : blocks) release(block);
}

TEST(ChunkAllocator, EverySizeUpToTwiceTheSmallLimitIsAlignedAndWritable) {
    std::vector<void*> blocks;
    for (std::size_t size = 0; size <= 2 * MAX_SMALL_BLOCK; ++size) {
        void* block = allocate(size);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(aligned(block)) << size;
        std::memset(block, 0xab, size);
        blocks.push_back(block);
    }
    releaseAll(blocks);
}

TEST(ChunkAllocator, LiveBlocksNeverOverlap) {
    std::vector<void*> blocks;
    std::vector<std::size_t> sizes;
    for (std::size_t i = 0; i < 20000; ++i) {
        const std::size_t size = (i * 37) % (MAX_SMALL_BLOCK + 300);
        blocks.push_back(allocate(size));
        sizes.push_back(size);
        std::memset(blocks.back(), static_cast<int>(i & 0xff), size);
        if (i % 3 == 0) {  // free some on the way, as a pass frees its temporaries
            release(blocks.back());
            blocks.back() = nullptr;
        }
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (blocks[i] == nullptr) continue;
        const auto* bytes = static_cast<const unsigned char*>(blocks[i]);
        for (std::size_t b = 0; b < sizes[i]; ++b) ASSERT_EQ(bytes[b], i & 0xff) << "block " << i << " byte " << b;
    }
    releaseAll(blocks);
}

TEST(ChunkAllocator, TheSpaceOfTheBlockCutLastIsReusedAtOnce) {
    void* first = allocate(40);
    release(first);
    void* second = allocate(40);
    EXPECT_EQ(first, second);
    release(second);
}

TEST(ChunkAllocator, ANextPassTakesTheChunksTheLastOneEmptied) {
    onOwnThread([] { releaseAll(cutBlocks(200000)); });
    const std::size_t madeAfterFirst = chunkStatistics().made;
    onOwnThread([] { releaseAll(cutBlocks(200000)); });
    EXPECT_EQ(chunkStatistics().made, madeAfterFirst);
}

TEST(ChunkAllocator, BlocksFreedOnAnotherThreadStillEmptyTheirChunks) {
    std::vector<void*> blocks;
    onOwnThread([&] { blocks = cutBlocks(200000); });
    const std::size_t pooledBefore = chunkStatistics().pooled;
    releaseAll(blocks);
    EXPECT_GT(chunkStatistics().pooled, pooledBefore);
    const std::size_t madeBefore = chunkStatistics().made;
    onOwnThread([] { releaseAll(cutBlocks(200000)); });
    EXPECT_EQ(chunkStatistics().made, madeBefore);
}

TEST(ChunkAllocator, ALiveBlockKeepsItsChunkOutOfThePool) {
    char* kept = nullptr;
    onOwnThread([&] {
        std::vector<void*> around = cutBlocks(1000);
        kept = static_cast<char*>(allocate(64));
        std::memset(kept, 'k', 64);
        std::vector<void*> after = cutBlocks(1000);
        releaseAll(around);
        releaseAll(after);
    });
    // Other passes fill whatever chunks the pool holds.
    onOwnThread([] {
        std::vector<void*> blocks = cutBlocks(400000);
        for (std::size_t i = 0; i < blocks.size(); ++i) std::memset(blocks[i], 'x', 8);
        releaseAll(blocks);
    });
    for (int i = 0; i < 64; ++i) ASSERT_EQ(kept[i], 'k') << i;
    release(kept);
}

TEST(ChunkAllocator, ThePoolKeepsAtMostItsLimitOfEmptyChunks) {
    // About twice as many chunks as the pool keeps, live at once.
    const std::size_t blocks = 2 * MAX_POOLED_CHUNKS * (CHUNK_SIZE / 1024);
    onOwnThread([&] {
        std::vector<void*> cut;
        cut.reserve(blocks);
        for (std::size_t i = 0; i < blocks; ++i) cut.push_back(allocate(1000));
        releaseAll(cut);
    });
    EXPECT_LE(chunkStatistics().pooled, MAX_POOLED_CHUNKS);
    EXPECT_GE(chunkStatistics().pooled, MAX_POOLED_CHUNKS / 2);
}

TEST(ChunkAllocator, LargeBlocksAreAlignedAndGoBackWhole) {
    const std::size_t size = 10 * 1024 * 1024;
    char* block = static_cast<char*>(allocate(size));
    EXPECT_TRUE(aligned(block));
    std::memset(block, 1, size);
    EXPECT_EQ(block[size - 1], 1);
    release(block);
}

TEST(ChunkAllocator, ABlockOfAHugePageOrMoreIsMappedFromAHugePageBoundary) {
    for (std::size_t size : {MAPPED_LARGE_MIN, MAPPED_LARGE_MIN + 4097, 3 * MAPPED_LARGE_MIN}) {
        char* block = static_cast<char*>(allocate(size));
        // The mapping starts on the boundary; the block follows its 16-byte
        // prefix, and is writable to its last byte.
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % HUGE_PAGE_SIZE, 16u) << size;
        std::memset(block, 7, size);
        EXPECT_EQ(block[size - 1], 7);
        release(block);
    }
}

TEST(ChunkAllocator, ThreadsStartingChunksAtOnceLeaveThePoolWithinItsLimit) {
    // Each thread needs several fresh chunks at about the same moment, so
    // regions are mapped while others fill the pool.
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([] {
            std::vector<void*> blocks = cutBlocks(20000);
            for (void* block : blocks) std::memset(block, 'r', 8);
            releaseAll(blocks);
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_LE(chunkStatistics().pooled, MAX_POOLED_CHUNKS);
    EXPECT_GE(chunkStatistics().made, chunkStatistics().pooled);
}

TEST(ChunkAllocator, AFreedLargeBlockIsTakenAgainByARequestOfAboutItsSize) {
    // An odd size, so that no block kept by the tests before is a closer fit.
    const std::size_t size = 3 * KEPT_LARGE_MIN + 12345;
    void* first = allocate(size);
    release(first);
    void* second = allocate(size - 16);
    EXPECT_EQ(second, first);
    release(second);
}

TEST(ChunkAllocator, AKeptLargeBlockIsNotGivenToARequestOfLessThanHalfItsSize) {
    const std::size_t size = 8 * KEPT_LARGE_MIN;
    void* big = allocate(size);
    release(big);
    void* small = allocate(size / 2 - 16);
    EXPECT_NE(small, big);
    void* again = allocate(size);
    EXPECT_EQ(again, big);
    release(small);
    release(again);
}

TEST(ChunkAllocator, TheKeepOfLargeBlocksStaysWithinItsLimits) {
    std::vector<void*> blocks;
    for (std::size_t i = 0; i < 3 * MAX_KEPT_LARGE_BLOCKS; ++i) blocks.push_back(allocate(KEPT_LARGE_MIN + i * 4096));
    releaseAll(blocks);
    EXPECT_EQ(chunkStatistics().keptLargeBlocks, MAX_KEPT_LARGE_BLOCKS);
    void* huge = allocate(MAX_KEPT_LARGE_BYTES / 2 + 1);
    void* other = allocate(MAX_KEPT_LARGE_BYTES / 2 + 1);
    release(huge);
    release(other);
    EXPECT_LE(chunkStatistics().keptLargeBytes, MAX_KEPT_LARGE_BYTES);
    void* beyond = allocate(MAX_KEPT_LARGE_BYTES + 1);
    const std::size_t keptBefore = chunkStatistics().keptLargeBytes;
    release(beyond);
    EXPECT_EQ(chunkStatistics().keptLargeBytes, keptBefore);
}

TEST(ChunkAllocator, ARequestNoMemoryCanHoldThrowsBadAlloc) {
    EXPECT_THROW(allocate(SIZE_MAX), std::bad_alloc);
    EXPECT_THROW(allocate(SIZE_MAX - 8), std::bad_alloc);
}

#if !defined(__SANITIZE_ADDRESS__)
// The sanitizers bring an allocator of their own for the C library's part.
long minorFaults() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

// Blocks between a small and a kept one come from the C library, whose heap
// is kept once grown: freeing such blocks and taking them again, as every
// pass and request does, faults no page in anew.
TEST(ChunkAllocator, MediumBlocksFreedAndTakenAgainFaultNoPagesAnew) {
    constexpr std::size_t BLOCK = 100 * 1024;
    constexpr std::size_t COUNT = 40;
    auto pass = [] {
        std::vector<void*> blocks;
        for (std::size_t i = 0; i < COUNT; ++i) {
            blocks.push_back(allocate(BLOCK));
            std::memset(blocks.back(), 1, BLOCK);
        }
        for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) release(*block);
    };
    pass();
    const long before = minorFaults();
    for (int i = 0; i < 5; ++i) pass();
    EXPECT_LT(minorFaults() - before, 100);
}
#endif

TEST(ChunkAllocator, ReleasingNullDoesNothing) {
    release(nullptr);
    void* block = allocate(16);
    EXPECT_TRUE(aligned(block));
    release(block);
}

}  // namespace
