// The accessors of tasks: messages to the task and to its process. Receivers are not checked.
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/process/task.h"
#include "VELTRuntime/process/window_activation.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

using namespace velt;

namespace {

id processOf(const id& task) { return send(task, VELT_SELECTOR("task")); }

/// A property of the process; nil of a nil task.
id get(const id& task, Selector selector) { return send(processOf(task), selector); }
id getText(const id& task, Selector selector) {
    const id text = get(task, selector);
    return isString(text) ? VELT_ID(static_cast<NSString*>(&asMutableString(text))) : text;
}
id getInteger(const id& task, Selector selector) {
    const id number = get(task, selector);
    return number.isNil() ? VELT_ID(0L) : number;
}
id getBoolean(const id& task, Selector selector) {
    const id boolean = get(task, selector);
    return boolean.isNil() ? VELT_ID(BOOL{0}) : boolean;
}
id set(const id& task, Selector selector, const id& value) {
    send(processOf(task), selector, value);
    return nil;
}

/// A process shows its window some time after its launch, or never.
void bringToFrontWhenKnown(const id& process) {
    if (!is<NSTask>(process)) return;
    constexpr int kBetweenTries = 10;  // milliseconds
    const auto child = as<NSTask>(process)->child();
    if (!child) return;
    const WindowActivation activation;
    while (activation.bringToFront(child->identifier()) == kProcessNotFound) {
        if (!activation.isPossible() || child->wait(kBetweenTries)) return;
    }
}

}  // namespace

id VELT_VLTASK_INIT(const id& owner, const char* name) {
    const Ref<VLTask> task = make<VLTask>();
    task->setMytask(make<NSTask>());
    task->setTarget(owner);
    task->setSName(string(name ? name : ""));
    task->myinit();
    task->connect();
    return task;
}

id VELT_NSTASK_INIT(const id&, const char*) { return make<NSTask>(); }

id VELT_VLTASK_PATH(const id& task) { return getText(task, VELT_SELECTOR("launchPath")); }
id VELT_VLTASK_PATH(const id& task, const id& path) {
    return set(task, VELT_SELECTOR("setLaunchPath:"), VELT_CSTRING(path));
}
id VELT_VLTASK_ARGUMENTS(const id& task) { return get(task, VELT_SELECTOR("arguments")); }
id VELT_VLTASK_ARGUMENTS(const id& task, const id& arguments) {
    return set(task, VELT_SELECTOR("setArguments:"), VELT_CARRAY(arguments));
}
id VELT_VLTASK_CURRENTDIRECTORY(const id& task) { return getText(task, VELT_SELECTOR("currentDirectoryPath")); }
id VELT_VLTASK_CURRENTDIRECTORY(const id& task, const id& path) {
    return set(task, VELT_SELECTOR("setCurrentDirectoryPath:"), VELT_CSTRING(path));
}
id VELT_VLTASK_ENVIRONMENT(const id& task) { return get(task, VELT_SELECTOR("environment")); }
id VELT_VLTASK_ENVIRONMENT(const id& task, const id& environment) {
    return set(task, VELT_SELECTOR("setEnvironment:"), VELT_CDICTIONARY(environment));
}
id VELT_VLTASK_PID(const id& task) { return getInteger(task, VELT_SELECTOR("processIdentifier")); }
id VELT_VLTASK_PID(const id&, const id&) { return nil; }
id VELT_VLTASK_EXITSTATUS(const id& task) { return getInteger(task, VELT_SELECTOR("terminationStatus")); }
id VELT_VLTASK_ISRUNNING(const id& task) { return getBoolean(task, VELT_SELECTOR("isRunning")); }
id VELT_VLTASK_RESUME(const id& task) { return getBoolean(task, VELT_SELECTOR("resume")); }
id VELT_VLTASK_SUSPEND(const id& task) { return getBoolean(task, VELT_SELECTOR("suspend")); }

id VELT_VLTASK_LAUNCHANDWAIT(const id& task) {
    const id process = processOf(task);
    send(process, VELT_SELECTOR("launch"));
    send(process, VELT_SELECTOR("waitUntilExit"));
    return nil;
}

id VELT_VLTASK_STARTANDWAIT(const id& task, const id& front) {
    if (!isNumber(front)) raiseCast("'Boolean' expected");
    const id process = processOf(task);
    send(process, VELT_SELECTOR("launch"));
    if (VELT_CBOOL(front)) bringToFrontWhenKnown(process);
    send(process, VELT_SELECTOR("waitUntilExit"));
    return nil;
}

id VELT_VLTASK_STOP(const id& task) {
    send(task, VELT_SELECTOR("_stop"));
    return nil;
}

id VELT_VLTASK_STDIN(const id& task, const id& value) {
    const id data = VELT_CDATA(value);
    send(task, VELT_SELECTOR("__stdinp:"), data);
    return nil;
}

id VELT_STDOUT(const id& value) {
    NSFileHandle::standardOutput().writeData(value);
    return nil;
}

id VELT_STDERR(const id& value) {
    NSFileHandle::standardError().writeData(value);
    return nil;
}
