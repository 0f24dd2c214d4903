#include "shell/startheap.h"

#include <cstdlib>
#include <memory>

#ifdef __GLIBC__

#include <malloc.h>
#include <sys/mman.h>

namespace {

constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;
constexpr std::size_t kFirstPart = 8 * kLargePage;
// What the library would have found out by itself, had it not been told.
constexpr int kOrdinaryThreshold = 1024 * 1024;
// Until the screen stands nothing is worth giving back, and no picture a mapping of its own.
constexpr int kOfTheStart = 4 * static_cast<int>(kFirstPart);

void *firstPart = nullptr;
std::size_t firstPartSize = 0;

// The whole large pages in it.
void findFirstPart(void *room)
{
    std::size_t left = kFirstPart;
    firstPart = std::align(kLargePage, kLargePage, room, left);
    firstPartSize = left / kLargePage * kLargePage;
}

} // namespace

void prepareStartHeap()
{
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, kOfTheStart);
    mallopt(M_TRIM_THRESHOLD, kOfTheStart);
    if (void *const room = std::malloc(kFirstPart)) {
        findFirstPart(room);
        // A wish: where the system has no large pages, or does not give them, all is as ever.
        madvise(firstPart, firstPartSize, MADV_HUGEPAGE);
        std::free(room);
    }
}

void settleStartHeap()
{
    mallopt(M_MMAP_THRESHOLD, kOrdinaryThreshold);
    mallopt(M_TRIM_THRESHOLD, kOrdinaryThreshold);
    malloc_trim(0);
    // What was given back must not come again as a part of a large page.
    if (firstPart)
        madvise(firstPart, firstPartSize, MADV_NOHUGEPAGE);
}

#else

void prepareStartHeap() { }
void settleStartHeap() { }

#endif
