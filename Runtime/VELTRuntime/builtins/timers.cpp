#include "VELTRuntime/builtins/timers.h"

#include "VELTRuntime/platform/foundation/thread.h"
#include "VELTRuntime/platform/foundation/timer.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

using namespace velt;

namespace {

/// A thread's answer, False for nil.
id answer(const id& thread, Selector question) {
    return thread.isNil() ? VELT_ID(BOOL{0}) : sendMessage(thread, question, {});
}

}  // namespace

id VELT_NSTIMER_INIT(const id& owner, const char* method) {
    const Selector selector = methodNamed(owner, method);
    return selector ? id(NSTimer::scheduled(0, owner, selector, nil, false)) : id();
}

id VELT_NSTIMER_INIT(const id& owner, const char* method, const id& seconds) {
    const Selector selector = methodNamed(owner, method);
    return selector ? id(NSTimer::scheduled(VELT_CDOUBLE(seconds), owner, selector, nil, false)) : id();
}

id VELT_NSTIMER_STOP(const id& timer) {
    send(timer, VELT_SELECTOR("invalidate"));
    return nil;
}

id VELT_NSTHREAD_INIT(const id& owner, const char* method) {
    const Selector selector = methodNamed(owner, method);
    return selector ? id(make<NSThread>(owner, selector, nil)) : id();
}

id VELT_NSTHREAD_START(const id& thread) {
    send(thread, VELT_SELECTOR("start"));
    return nil;
}

id VELT_NSTHREAD_CANCEL(const id& thread) {
    send(thread, VELT_SELECTOR("cancel"));
    return nil;
}

id VELT_NSTHREAD_ISEXECUTING(const id& thread) { return answer(thread, VELT_SELECTOR("isExecuting")); }
id VELT_NSTHREAD_ISFINISHED(const id& thread) { return answer(thread, VELT_SELECTOR("isFinished")); }
id VELT_NSTHREAD_ISCANCELLED(const id& thread) { return answer(thread, VELT_SELECTOR("isCancelled")); }
