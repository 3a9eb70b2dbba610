#include "VELTRuntime/builtins/performing.h"

#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/class_object.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <future>
#include <optional>

using namespace velt;

namespace {

/// One message on its way.
struct Message {
    id receiver;
    Selector selector;
    id argument;

    void send() const {
        const bool takesArgument = selector.argumentCount() > 0;
        sendMessage(receiver, selector, std::span<const id>(&argument, takesArgument ? 1 : 0));
    }
};

void sendLater(const id& receiver, Selector selector, const id& argument, double seconds) {
    if (receiver.isNil()) return;
    RunLoop::current().after(
        seconds, [message = Message{receiver, selector, argument}] { message.send(); }, receiver.word());
}

/// Lets the main thread send and waits; what the message raises is raised here. A run-time failure comes over as a
/// copy: each thread ends the one that it caught.
void sendOnMainThread(const Message& message) {
    std::promise<std::optional<NSException>> sent;
    RunLoop::main().perform([&] {
        try {
            message.send();
            sent.set_value(std::nullopt);
        } catch (const NSException& exception) {
            sent.set_value(exception);
        } catch (...) {
            sent.set_exception(std::current_exception());
        }
    });
    if (const std::optional<NSException> raised = sent.get_future().get()) throw NSException(*raised);
}

/// What every object answers by name about messages to come.
[[maybe_unused]] const bool described = [] {
    ClassBuilder<NSObject>(NSObject::entry())
        .method("performSelector:withObject:afterDelay:",
                [](const id& self, const id* a) {
                    sendLater(self, toSelector(a[0]), a[1], VELT_CDOUBLE(a[2]));
                    return id();
                })
        .method("performSelectorOnMainThread:withObject:waitUntilDone:",
                [](const id& self, const id* a) {
                    return VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(self, a[0], a[1], a[2]);
                })
        .method("cancelPreviousPerformRequestsWithTarget:", [](const id&, const id* a) {
            RunLoop::current().cancelAll(a[0].word());
            return id();
        });
    return true;
}();

}  // namespace

id VELT_NSOBJECT_PERFORMSELECTORDELAYED(const id& object, const id& selector, const id& argument, const id& delay) {
    const Selector named = toSelector(selector);
    sendLater(object, named, argument, VELT_CDOUBLE(delay));
    return nil;
}

id VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(const id& object, const id& selector, const id& argument) {
    sendLater(object, toSelector(selector), argument, 0.0);
    return nil;
}

id VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(const id& object, const id& selector, const id& argument, const id& wait) {
    const Message message{object, toSelector(selector), argument};
    const bool waits = VELT_CBOOL(wait) != 0;
    if (!waits) {
        RunLoop::main().perform([message] { message.send(); });
    } else if (RunLoop::main().isCurrent()) {
        message.send();
    } else {
        sendOnMainThread(message);
    }
    return nil;
}
