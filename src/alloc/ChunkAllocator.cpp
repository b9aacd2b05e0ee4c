#include "alloc/ChunkAllocator.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>

#include <sys/mman.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quor::alloc {

namespace {

// A chunk starts with its bookkeeping. Only the thread that cuts blocks
// from it (its owner) counts them, with plain loads and stores: counting
// with atomic read-modify-writes on every new and delete cost more than the
// merging this allocator saves. Other threads count the blocks they free in
// `remoteFreed`. The chunk is empty once its owner has stopped cutting
// (`sealed`) and every block it cut was freed, its own or by others
// (`ownerLive == remoteFreed`); whoever sees that first, and wins `claimed`,
// pools it.
struct Chunk {
    std::atomic<std::uint32_t> ownerLive;    // cut minus freed by the owner; the owner alone writes it
    std::atomic<std::uint32_t> remoteFreed;  // freed by other threads
    std::atomic<bool> sealed;
    std::atomic<bool> claimed;
    const void* owner;  // the owning thread's CurrentChunk
    std::uint64_t reserved;
};

// Eight bytes before every block. A small block's header says how far the
// block is from its chunk and how far the next block starts; a large block,
// taken from the C library, has zero for the distance (no small block sits
// at the chunk's start, where the bookkeeping is).
struct BlockHeader {
    std::uint32_t chunkOffset;
    std::uint32_t blockSize;
};

constexpr std::size_t ALIGNMENT = 16;
constexpr std::size_t HEADER = sizeof(BlockHeader);
// Where the first block of a chunk starts: after the bookkeeping and the
// block's header, on an aligned address. Blocks are then a multiple of
// ALIGNMENT apart, each header in the last 8 bytes of the block before.
constexpr std::size_t FIRST_BLOCK = sizeof(Chunk) + ALIGNMENT;
// A large block has 16 bytes in front: its capacity, then its header, so
// that it too is aligned.
constexpr std::size_t LARGE_PREFIX = 16;
constexpr std::size_t PAGE_SIZE = 4096;
constexpr std::size_t CHUNKS_PER_REGION = REGION_SIZE / CHUNK_SIZE;
static_assert(REGION_SIZE % CHUNK_SIZE == 0 && CHUNKS_PER_REGION <= MAX_POOLED_CHUNKS,
              "a region is cut into whole chunks, which the empty pool holds");
static_assert(sizeof(Chunk) % ALIGNMENT == 0, "blocks must start on an aligned address");
static_assert(CHUNK_SIZE <= UINT32_MAX, "offsets within a chunk are 32-bit");

// The chunk a thread is cutting from. Plain data, so reading it costs no
// guard; `sealer` gives the chunk up when the thread ends.
struct CurrentChunk {
    Chunk* chunk;
    char* next;
    char* limit;
    bool sealerArmed;
};
constinit thread_local CurrentChunk current{};

struct Pool {
    std::mutex lock;
    Chunk* empty[MAX_POOLED_CHUNKS];
    std::size_t pooled = 0;
    std::size_t made = 0;
    // Large blocks kept for reuse, oldest first, by their memory's start.
    char* kept[MAX_KEPT_LARGE_BLOCKS];
    std::size_t keptCount = 0;
    std::size_t keptBytes = 0;
};

// Never destroyed: blocks are freed during and after static destruction.
Pool& pool() {
    static Pool* shared = new Pool();
    return *shared;
}

// Memory straight from the kernel, on a huge-page boundary and asking for
// huge pages. A pass touches tens of megabytes it never touched before; in
// 4 KiB pages each one is a fault, which cost a document of 100,000 lines
// some 18,000 faults and a third of its time. In 2 MiB pages it is a few
// dozen. Where the kernel has no huge page to give, the memory is still
// good, only in small pages.
std::size_t wholePages(std::size_t size) { return (size + PAGE_SIZE - 1) & ~(PAGE_SIZE - 1); }

void* mapPages(std::size_t size) {
    if (size > SIZE_MAX / 2) throw std::bad_alloc();
    void* raw = mmap(nullptr, size + HUGE_PAGE_SIZE, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (raw == MAP_FAILED) throw std::bad_alloc();
    // Maps a huge page more than asked, and hands back what lies before
    // the first boundary and after the end.
    const auto start = reinterpret_cast<std::uintptr_t>(raw);
    const std::uintptr_t aligned = (start + HUGE_PAGE_SIZE - 1) & ~(HUGE_PAGE_SIZE - 1);
    const std::uintptr_t end = start + size + HUGE_PAGE_SIZE;
    if (aligned > start) munmap(raw, aligned - start);
    if (end > aligned + size) munmap(reinterpret_cast<void*>(aligned + size), end - (aligned + size));
    madvise(reinterpret_cast<void*>(aligned), size, MADV_HUGEPAGE);
    return reinterpret_cast<void*>(aligned);
}

void unmapPages(void* memory, std::size_t size) { munmap(memory, size); }

void putInPool(Chunk* chunk) {
    Pool& shared = pool();
    {
        std::lock_guard<std::mutex> guard(shared.lock);
        if (shared.pooled < MAX_POOLED_CHUNKS) {
            shared.empty[shared.pooled++] = chunk;
            return;
        }
        --shared.made;
    }
    chunk->~Chunk();
    unmapPages(chunk, CHUNK_SIZE);
}

// The memory of an empty chunk, pooled or new. New chunks are mapped a
// region at a time: the first is taken, the others pooled, as far as the
// pool has room (other threads may have filled it meanwhile).
void* takeFromPool() {
    Pool& shared = pool();
    {
        std::lock_guard<std::mutex> guard(shared.lock);
        if (shared.pooled > 0) return shared.empty[--shared.pooled];
    }
    char* region = static_cast<char*>(mapPages(REGION_SIZE));
    std::size_t chunk = 1;
    {
        std::lock_guard<std::mutex> guard(shared.lock);
        for (; chunk < CHUNKS_PER_REGION && shared.pooled < MAX_POOLED_CHUNKS; ++chunk) {
            shared.empty[shared.pooled++] = reinterpret_cast<Chunk*>(region + chunk * CHUNK_SIZE);
        }
        shared.made += chunk;
    }
    if (chunk < CHUNKS_PER_REGION) unmapPages(region + chunk * CHUNK_SIZE, (CHUNKS_PER_REGION - chunk) * CHUNK_SIZE);
    return region;
}

void poolOnce(Chunk* chunk) {
    if (!chunk->claimed.exchange(true, std::memory_order_acq_rel)) putInPool(chunk);
}

// Whether every block the owner cut has been freed. The fence pairs with the
// read-modify-write in releaseRemote: of an owner that has just written its
// count and a thread that has just freed the last block elsewhere, at least
// one sees the other's write.
bool allFreed(Chunk* chunk, std::uint32_t ownerLive) {
    std::atomic_thread_fence(std::memory_order_seq_cst);
    return ownerLive == chunk->remoteFreed.load(std::memory_order_acquire);
}

// The thread gives up its current chunk; its blocks keep it out of the pool
// until they are freed.
void sealCurrent() {
    if (Chunk* chunk = current.chunk) {
        chunk->sealed.store(true, std::memory_order_release);
        if (allFreed(chunk, chunk->ownerLive.load(std::memory_order_relaxed))) poolOnce(chunk);
    }
    current = CurrentChunk{nullptr, nullptr, nullptr, current.sealerArmed};
}

struct Sealer {
    ~Sealer() { sealCurrent(); }
};
thread_local Sealer sealer;

char* startChunk() {
    if (!current.sealerArmed) {
        current.sealerArmed = true;
        (void)&sealer;  // constructs it, so that it runs at thread exit
    }
    Chunk* fresh = new (takeFromPool()) Chunk{0, 0, false, false, &current, 0};
    sealCurrent();
    current.chunk = fresh;
    current.next = reinterpret_cast<char*>(fresh) + FIRST_BLOCK;
    current.limit = reinterpret_cast<char*>(fresh) + CHUNK_SIZE;
    return current.next;
}

std::size_t capacityOf(const char* memory) { return *reinterpret_cast<const std::size_t*>(memory); }

void forgetKept(Pool& shared, std::size_t index) {
    shared.keptBytes -= capacityOf(shared.kept[index]);
    for (std::size_t i = index + 1; i < shared.keptCount; ++i) shared.kept[i - 1] = shared.kept[i];
    --shared.keptCount;
}

// The smallest kept block that holds `size` bytes and is at most twice as
// large, taken out of the keep; null when there is none.
char* takeKept(std::size_t size) {
    Pool& shared = pool();
    std::lock_guard<std::mutex> guard(shared.lock);
    std::size_t best = shared.keptCount;
    for (std::size_t i = 0; i < shared.keptCount; ++i) {
        const std::size_t capacity = capacityOf(shared.kept[i]);
        if (capacity < size || capacity / 2 > size) continue;
        if (best == shared.keptCount || capacity < capacityOf(shared.kept[best])) best = i;
    }
    if (best == shared.keptCount) return nullptr;
    char* memory = shared.kept[best];
    forgetKept(shared, best);
    return memory;
}

// A large block's memory. Blocks of a huge page and more are mapped on
// their own; smaller ones come from the C library. Which it was follows
// from the capacity.
bool mappedOnItsOwn(std::size_t capacity) { return capacity >= MAPPED_LARGE_MIN; }

// Left to itself, the C library hands the top of its heap back to the
// kernel whenever a few hundred KiB lie free there, and maps each block of
// 128 KiB or more on its own and unmaps it when freed; the next pass or
// request then faults the same pages in again, hundreds of times for one
// completion over 10,000 lines. Fixed limits make it keep that memory: it
// maps nothing on its own below a huge page (larger blocks never reach it)
// and trims its heap only past LIBRARY_TRIM_THRESHOLD.
bool tuneLibraryAllocator() {
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, static_cast<int>(MAPPED_LARGE_MIN));
    mallopt(M_TRIM_THRESHOLD, static_cast<int>(LIBRARY_TRIM_THRESHOLD));
#endif
    return true;
}

char* takeLarge(std::size_t size) {
    if (mappedOnItsOwn(size)) return static_cast<char*>(mapPages(wholePages(size + LARGE_PREFIX)));
    static const bool tuned = tuneLibraryAllocator();
    (void)tuned;
    auto* memory = static_cast<char*>(std::malloc(size + LARGE_PREFIX));
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void freeLarge(char* memory) {
    const std::size_t capacity = capacityOf(memory);
    if (mappedOnItsOwn(capacity)) {
        unmapPages(memory, wholePages(capacity + LARGE_PREFIX));
    } else {
        std::free(memory);
    }
}

// Keeps a freed large block, handing back the oldest kept ones when the
// keep would pass its limits; false when the block is not to be kept.
bool keep(char* memory) {
    const std::size_t capacity = capacityOf(memory);
    if (capacity < KEPT_LARGE_MIN || capacity > MAX_KEPT_LARGE_BYTES) return false;
    Pool& shared = pool();
    char* handBack[MAX_KEPT_LARGE_BLOCKS];
    std::size_t handed = 0;
    {
        std::lock_guard<std::mutex> guard(shared.lock);
        while (shared.keptCount == MAX_KEPT_LARGE_BLOCKS || shared.keptBytes + capacity > MAX_KEPT_LARGE_BYTES) {
            handBack[handed++] = shared.kept[0];
            forgetKept(shared, 0);
        }
        shared.kept[shared.keptCount++] = memory;
        shared.keptBytes += capacity;
    }
    for (std::size_t i = 0; i < handed; ++i) freeLarge(handBack[i]);
    return true;
}

void* allocateLarge(std::size_t size) {
    if (size > SIZE_MAX - LARGE_PREFIX) throw std::bad_alloc();
    char* memory = size >= KEPT_LARGE_MIN ? takeKept(size) : nullptr;
    if (memory == nullptr) {
        memory = takeLarge(size);
        *reinterpret_cast<std::size_t*>(memory) = size;
    }
    auto* header = reinterpret_cast<BlockHeader*>(memory + LARGE_PREFIX - HEADER);
    *header = BlockHeader{0, 0};
    return memory + LARGE_PREFIX;
}

void releaseLarge(char* block) {
    char* memory = block - LARGE_PREFIX;
    if (!keep(memory)) freeLarge(memory);
}

void releaseRemote(Chunk* chunk) {
    const std::uint32_t freed = chunk->remoteFreed.fetch_add(1, std::memory_order_seq_cst) + 1;
    if (chunk->sealed.load(std::memory_order_seq_cst) && chunk->ownerLive.load(std::memory_order_seq_cst) == freed) {
        poolOnce(chunk);
    }
}

}  // namespace

void* allocate(std::size_t size) {
    if (size > MAX_SMALL_BLOCK) return allocateLarge(size);
    const std::size_t total = (size + HEADER + ALIGNMENT - 1) & ~(ALIGNMENT - 1);
    char* at = current.next;
    if (static_cast<std::size_t>(current.limit - at) < total) at = startChunk();
    current.next = at + total;
    Chunk* chunk = current.chunk;
    chunk->ownerLive.store(chunk->ownerLive.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    auto* header = reinterpret_cast<BlockHeader*>(at - HEADER);
    *header = BlockHeader{static_cast<std::uint32_t>(at - reinterpret_cast<char*>(chunk)),
                          static_cast<std::uint32_t>(total)};
    return at;
}

void release(void* block) noexcept {
    if (block == nullptr) return;
    char* at = static_cast<char*>(block);
    const BlockHeader header = *reinterpret_cast<const BlockHeader*>(at - HEADER);
    if (header.chunkOffset == 0) {
        releaseLarge(at);
        return;
    }
    auto* chunk = reinterpret_cast<Chunk*>(at - header.chunkOffset);
    if (chunk->owner != &current) {
        releaseRemote(chunk);
        return;
    }
    const std::uint32_t live = chunk->ownerLive.load(std::memory_order_relaxed) - 1;
    chunk->ownerLive.store(live, std::memory_order_relaxed);
    if (chunk == current.chunk) {
        // A block of the chunk being cut. The block cut last gives its space
        // back at once (the temporaries of a pass mostly die young), and a
        // chunk left with no block, none ever freed elsewhere, starts again
        // from its beginning.
        if (at + header.blockSize == current.next) current.next = at;
        if (live == 0 && chunk->remoteFreed.load(std::memory_order_relaxed) == 0) {
            current.next = reinterpret_cast<char*>(chunk) + FIRST_BLOCK;
        }
        return;
    }
    // A sealed chunk of this thread. With no block ever freed elsewhere, a
    // count of zero settles it: no other thread can hold one of its blocks.
    if (chunk->remoteFreed.load(std::memory_order_relaxed) == 0 ? live == 0 : allFreed(chunk, live)) {
        poolOnce(chunk);
    }
}

ChunkStatistics chunkStatistics() {
    Pool& shared = pool();
    std::lock_guard<std::mutex> guard(shared.lock);
    return ChunkStatistics{shared.made, shared.pooled, shared.keptCount, shared.keptBytes};
}

}  // namespace quor::alloc
