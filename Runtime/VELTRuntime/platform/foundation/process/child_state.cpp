#include "VELTRuntime/platform/foundation/process/child_state.h"

#include "VELTRuntime/platform/foundation/process/descriptor_io.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <pthread.h>
#include <sys/epoll.h>
#include <sys/single_threaded.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

extern "C" {
#include <sys/pidfd.h>  // the system's header does not say so itself everywhere
}

namespace velt {

namespace {

/// How a child ended, or nothing while it runs.
std::optional<ProcessEnd> collected(int descriptor) {
    siginfo_t info{};
    int result;
    do {
        result = ::waitid(static_cast<idtype_t>(P_PIDFD), static_cast<id_t>(descriptor), &info, WEXITED | WNOHANG);
    } while (result < 0 && errno == EINTR);
    if (result < 0) return ProcessEnd{false, -1};
    if (info.si_pid == 0) return std::nullopt;
    return ProcessEnd{info.si_code != CLD_EXITED, info.si_status};
}

}  // namespace

ChildState::~ChildState() {
    const int descriptor = descriptor_;
    if (descriptor >= 0) ::close(descriptor);
}

void ChildState::setLost() {
    const std::lock_guard lock(mutex_);
    end_ = ProcessEnd{false, -1};
}

void ChildState::closeDescriptor() {
    int descriptor;
    {
        const std::lock_guard lock(mutex_);
        if (!end_ || waiting_ > 0 || descriptor_ < 0) return;
        descriptor = descriptor_.exchange(-1);
    }
    UncollectedChildren::all().forget(*this, descriptor);
    ::close(descriptor);
}

std::optional<ProcessEnd> ChildState::end() {
    const std::lock_guard lock(mutex_);
    if (!end_) end_ = collected(descriptor_);
    return end_;
}

bool ChildState::wait(int milliseconds) {
    {
        const std::lock_guard lock(mutex_);
        if (!end_) end_ = collected(descriptor_);
        if (end_) return true;
        ++waiting_;
    }
    waitReadable(descriptor_, milliseconds);
    const std::lock_guard lock(mutex_);
    --waiting_;
    if (!end_) end_ = collected(descriptor_);
    return end_.has_value();
}

bool ChildState::signal(int number) {
    const std::lock_guard lock(mutex_);
    return !end_ && ::pidfd_send_signal(descriptor_, number, nullptr, 0) == 0;
}

UncollectedChildren::UncollectedChildren() : events_(::epoll_create1(EPOLL_CLOEXEC)) {}

UncollectedChildren& UncollectedChildren::all() {
    static UncollectedChildren& children = *new UncollectedChildren;  // used to the very end
    return children;
}

void UncollectedChildren::add(const std::shared_ptr<ChildState>& child) {
    if (child->descriptor() < 0) return;
    const std::lock_guard lock(mutex_);
    if (!children_.try_emplace(child.get(), child).second) return;
    epoll_event event{};
    event.events = EPOLLIN | EPOLLONESHOT;
    event.data.ptr = child.get();
    ::epoll_ctl(events_, EPOLL_CTL_ADD, child->descriptor(), &event);
    if (!hasThread_ && !__libc_single_threaded) startThread();
}

void UncollectedChildren::forget(const ChildState& child, int descriptor) {
    std::shared_ptr<ChildState> forgotten;
    const std::lock_guard lock(mutex_);
    const auto found = children_.find(&child);
    if (found == children_.end()) return;
    ::epoll_ctl(events_, EPOLL_CTL_DEL, descriptor, nullptr);
    forgotten = std::move(found->second);
    children_.erase(found);
}

void UncollectedChildren::collectEnded() {
    {
        const std::lock_guard lock(mutex_);
        if (children_.empty()) return;
    }
    collect(0);
}

void UncollectedChildren::collect(int milliseconds) {
    std::array<epoll_event, 64> events;
    const int count = ::epoll_wait(events_, events.data(), static_cast<int>(events.size()), milliseconds);
    std::vector<std::shared_ptr<ChildState>> ended;  // closed after the lock is given back
    const std::lock_guard lock(mutex_);
    for (int i = 0; i < count; ++i) {
        // One that was forgotten meanwhile is not looked at, though its event has come.
        const auto found = children_.find(static_cast<const ChildState*>(events[static_cast<std::size_t>(i)].data.ptr));
        if (found == children_.end() || !found->second->end()) continue;
        const int descriptor = found->second->descriptor();
        if (descriptor >= 0) ::epoll_ctl(events_, EPOLL_CTL_DEL, descriptor, nullptr);
        ended.push_back(std::move(found->second));
        children_.erase(found);
    }
}

/// No signal of the program's is handled on the thread.
void UncollectedChildren::startThread() {
    sigset_t all, before;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        std::thread([this] {
            for (;;) collect(-1);
        }).detach();
        hasThread_ = true;
    } catch (const std::system_error&) {
        // There are too many threads already: the next start collects them.
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace velt
