#include "VELTRuntime/platform/foundation/timer.h"

#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <cmath>

using velt::Ref;
using velt::RunLoop;
using velt::Selector;

namespace {

/// A timer that repeats without a pause would keep its run loop from everything else.
constexpr double kLeastInterval = 0.0001;

double secondsNow() { return NSDate::now()->timeIntervalSinceReferenceDate(); }

}  // namespace

NSTimer::NSTimer(double interval, bool repeats, const id& target, Selector selector, const id& userInfo)
    : interval_(interval > kLeastInterval ? interval : kLeastInterval), repeats_(repeats), selector_(selector),
      target_(target), userInfo_(userInfo) {}

NSTimer::~NSTimer() = default;

Ref<NSTimer> NSTimer::scheduled(double seconds, const id& target, Selector selector, const id& userInfo, bool repeats) {
    Ref<NSTimer> timer = velt::make<NSTimer>(seconds, repeats, target, selector, userInfo);
    timer->schedule(repeats ? timer->interval_ : seconds);
    return timer;
}

void NSTimer::schedule(double seconds) {
    const double wait = seconds > 0 ? seconds : 0;  // what is no number too
    const std::lock_guard lock(mutex_);
    if (!valid_) return;
    due_ = secondsNow() + wait;
    handle_ = RunLoop::current().after(wait, [kept = Ref<NSTimer>(this)] { kept->timeHasCome(); });
}

void NSTimer::timeHasCome() {
    if (!isValid()) return;
    const double due = due_;
    fire();
    if (!repeats_) return;
    // In step with the first time; times that passed meanwhile are left out.
    const double now = secondsNow();
    double next = due + interval_;
    if (next <= now) next += std::ceil((now - next) / interval_) * interval_;
    const std::lock_guard lock(mutex_);
    if (!valid_ || handle_.isWaiting()) return;  // put off by its own message
    due_ = next;
    handle_ = RunLoop::current().after(next - now, [kept = Ref<NSTimer>(this)] { kept->timeHasCome(); });
}

void NSTimer::fire() {
    id target;
    {
        const std::lock_guard lock(mutex_);
        if (!valid_) return;
        target = target_;
    }
    const Ref<NSTimer> kept(this);
    if (selector_.argumentCount() == 0) {
        velt::send(target, selector_);
    } else {
        velt::send(target, selector_, id(kept));
    }
    if (!repeats_) invalidate();
}

void NSTimer::invalidate() {
    RunLoop::Handle handle;
    id target, userInfo;  // dropped after the lock
    {
        const std::lock_guard lock(mutex_);
        valid_ = false;
        handle = std::exchange(handle_, {});
        target = std::exchange(target_, nil);
        userInfo = std::exchange(userInfo_, nil);
    }
    handle.cancel();
}

bool NSTimer::isValid() const {
    const std::lock_guard lock(mutex_);
    return valid_;
}

id NSTimer::userInfo() const {
    const std::lock_guard lock(mutex_);
    return userInfo_;
}

id NSTimer::fireDate() const {
    const std::lock_guard lock(mutex_);
    return velt::make<NSDate>(due_);
}

void NSTimer::setFireDate(const id& date) {
    if (!velt::is<NSDate>(date)) velt::raiseClassExpected(NSDate::entry());
    RunLoop::Handle before;
    {
        const std::lock_guard lock(mutex_);
        before = std::exchange(handle_, {});
    }
    before.cancel();
    const double due = velt::as<NSDate>(date)->timeIntervalSinceReferenceDate();
    schedule(due - secondsNow());
    const std::lock_guard lock(mutex_);
    due_ = due;
}

void NSTimer::describe(velt::ClassBuilder<NSTimer>& c) {
    c.property("isValid", &NSTimer::isValid)
        .property("timeInterval", &NSTimer::timeInterval)
        .property("userInfo", &NSTimer::userInfo)
        .property("fireDate", &NSTimer::fireDate, &NSTimer::setFireDate)
        .method("fire", &NSTimer::fire)
        .method("invalidate", &NSTimer::invalidate)
        .classMethod("scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:",
                     [](const id&, const id* a) {
                         const double seconds = VELT_CDOUBLE(a[0]);
                         const Selector selector = Selector::named(velt::utf8(VELT_CSTRING(a[2])));
                         return id(NSTimer::scheduled(seconds, a[1], selector, a[3], VELT_CBOOL(a[4])));
                     })
        .owns(&NSTimer::target_)
        .owns(&NSTimer::userInfo_);
}
