#include "VELTRuntime/platform/foundation/loop_driver.h"

#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/object/exception.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/eventfd.h>

namespace velt {

LoopDriver::~LoopDriver() = default;

namespace {

class PollingDriver final : public LoopDriver {
public:
    explicit PollingDriver(LoopCalls calls)
        : calls_(std::move(calls)), wakes_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
        if (!wakes_) {
            raise(kInternalInconsistencyException, std::string("a run loop cannot be made: ") + std::strerror(errno));
        }
        watched_.push_back({wakes_.value(), POLLIN, 0});
    }
    void wake() override {
        const eventfd_t one = 1;
        ::eventfd_write(wakes_.value(), one);
    }
    void wakeAt(LoopTime time) override { time_ = time; }
    void watch(int descriptor) override { watched_.push_back({descriptor, POLLIN, 0}); }
    void unwatch(int descriptor) override {
        std::erase_if(watched_, [descriptor](const pollfd& row) { return row.fd == descriptor; });
    }
    void wait() override {
        calls_.idle();
        timespec limit{};
        const bool isLimited = time_ != LoopTime::max();
        if (isLimited) limit = fromNow(time_);
        // What is called back may change the list; those that it takes out are not called any more.
        std::vector<pollfd> ready = watched_;
        if (::ppoll(ready.data(), ready.size(), isLimited ? &limit : nullptr, nullptr) < 0) return;  // a signal
        if (ready.front().revents) {
            eventfd_t count = 0;
            ::eventfd_read(wakes_.value(), &count);
        }
        calls_.pass();
        for (std::size_t i = 1; i < ready.size(); ++i) {
            const auto isStill = [&](const pollfd& row) { return row.fd == ready[i].fd; };
            if (ready[i].revents && std::any_of(watched_.begin(), watched_.end(), isStill)) {
                calls_.readable(ready[i].fd);
            }
        }
    }

private:
    static timespec fromNow(LoopTime time) {
        const auto wait = std::max(time - LoopClock::now(), LoopClock::duration::zero());
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(wait);
        return {seconds.count(), std::chrono::nanoseconds(wait - seconds).count()};
    }

    LoopCalls calls_;
    Descriptor wakes_;
    std::vector<pollfd> watched_;  // the wakes first
    LoopTime time_ = LoopTime::max();
};

}  // namespace

std::unique_ptr<LoopDriver> makePollingDriver(LoopCalls calls) {
    return std::make_unique<PollingDriver>(std::move(calls));
}

}  // namespace velt
