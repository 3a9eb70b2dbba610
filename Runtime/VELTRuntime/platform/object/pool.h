// A small per-thread store of freed blocks in front of malloc: values come and go too fast for the general heap.
#pragma once

#include "VELTRuntime/export.h"

#include <cstddef>
#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VELT_POOL_ENABLED 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define VELT_POOL_ENABLED 0
#endif
#endif
#ifndef VELT_POOL_ENABLED
#define VELT_POOL_ENABLED 1
#endif

namespace velt {

/// Blocks of up to kLargest bytes, each a malloc block of its own; a freed block waits in its thread's list of its
/// size until that list is full. Blocks may be freed by another thread than the one that took them.
class Pool {
public:
    static constexpr std::size_t kGrain = 16;
    static constexpr std::size_t kLargest = 168;
    static constexpr unsigned kKeptPerSize = 256;

    static void* allocate(std::size_t size) {
#if VELT_POOL_ENABLED
        if (size <= kLargest) {
            List& list = lists_[sizeClass(size)];
            if (Block* block = list.first) [[likely]] {
                list.first = block->next;
                ++list.room;
                return block;
            }
        }
#endif
        return allocateFresh(size);
    }

    static void free(void* memory, std::size_t size) noexcept {
#if VELT_POOL_ENABLED
        if (size <= kLargest) {
            List& list = lists_[sizeClass(size)];
            if (list.room > 0) [[likely]] {
                --list.room;
                list.first = new (memory) Block{list.first};
                return;
            }
        }
#endif
        freeFully(memory, size);
    }

    /// Gives the calling thread's waiting blocks back to malloc.
    VELT_EXPORT static void trim() noexcept;

private:
    struct Block {
        Block* next;
    };
    struct List {
        Block* first;
        unsigned room;
    };
    // malloc's blocks end eight bytes beyond a multiple of sixteen: 24, 40, 56 and so on waste none of them.
    static constexpr std::size_t kSizes = (kLargest - 8) / kGrain;
    static constexpr std::size_t sizeClass(std::size_t size) { return size <= 24 ? 0 : (size - 9) / kGrain; }
    static constexpr std::size_t blockSize(std::size_t sizeClass) { return (sizeClass + 1) * kGrain + 8; }

    VELT_EXPORT static void* allocateFresh(std::size_t size);
    VELT_EXPORT static void freeFully(void* memory, std::size_t size) noexcept;

    // All rooms start at 0: the first free on a thread goes the long way, which arms the lists.
    VELT_EXPORT static constinit thread_local List lists_[kSizes] __attribute__((tls_model("initial-exec")));
    friend struct PoolThreadEnd;
};

}  // namespace velt
