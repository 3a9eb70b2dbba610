#include "VELTRuntime/platform/object/pool.h"

namespace velt {

constinit thread_local Pool::List Pool::lists_[Pool::kSizes] = {};

namespace {
enum class ThreadState : unsigned char { Unarmed, Armed, Ended };
constinit thread_local ThreadState threadState __attribute__((tls_model("initial-exec"))) = ThreadState::Unarmed;
}  // namespace

/// Empties a thread's lists when the thread ends; what is freed later on that thread goes straight to malloc.
struct PoolThreadEnd {
    PoolThreadEnd() {
        threadState = ThreadState::Armed;
        for (auto& list : Pool::lists_) list.room = Pool::kKeptPerSize;
    }
    ~PoolThreadEnd() {
        threadState = ThreadState::Ended;
        Pool::trim();
        for (auto& list : Pool::lists_) list.room = 0;
    }
    PoolThreadEnd(const PoolThreadEnd&) = delete;
    PoolThreadEnd& operator=(const PoolThreadEnd&) = delete;
};

namespace {
[[maybe_unused]] void armThread() {
    static thread_local PoolThreadEnd end;
    (void)end;
}
}  // namespace

void* Pool::allocateFresh(std::size_t size) {
    // Blocks of a list are all of its largest size, so that any of them serves any request of the list.
    const std::size_t rounded = size <= kLargest ? blockSize(sizeClass(size)) : size;
    if (void* memory = std::malloc(rounded)) return memory;
    throw std::bad_alloc();
}

void Pool::freeFully(void* memory, [[maybe_unused]] std::size_t size) noexcept {
#if VELT_POOL_ENABLED
    if (size <= kLargest && threadState == ThreadState::Unarmed) armThread();
#endif
    std::free(memory);
}

void Pool::trim() noexcept {
    for (auto& list : lists_) {
        while (Block* block = list.first) {
            list.first = block->next;
            ++list.room;
            std::free(block);
        }
    }
}

}  // namespace velt
