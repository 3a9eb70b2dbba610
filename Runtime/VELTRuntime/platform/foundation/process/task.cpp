#include "VELTRuntime/platform/foundation/process/task.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"
#include "VELTRuntime/platform/foundation/process_info.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <climits>
#include <csignal>
#include <unistd.h>

using namespace velt;

namespace velt {
const char* const kTaskDidTerminate = "NSTaskDidTerminateNotification";
}  // namespace velt

/// Kept by the run loop that waits for the end, as the task is until then.
struct NSTask::Watch {
    RunLoop* loop;
    std::shared_ptr<ChildProcess> child;
};

namespace {

/// Bytes as the system takes them: those of data, the UTF-8 text of anything else.
std::string systemText(const id& value) {
    if (const NSData* data = dataOf(value)) return std::string(data->characters());
    return utf8(VELT_CSTRING(value));
}

/// The descriptor that a child gets for a stream, -1 for the program's own.
int childDescriptor(const id& stream, bool isInput) {
    if (stream.isNil()) return -1;
    Ref<NSFileHandle> handle;
    if (is<NSPipe>(stream)) {
        handle = isInput ? as<NSPipe>(stream)->fileHandleForReading() : as<NSPipe>(stream)->fileHandleForWriting();
    } else {
        handle = Ref<NSFileHandle>(as<NSFileHandle>(stream));
    }
    if (handle->fileDescriptor() < 0) raise(kInvalidArgumentException, "a standard stream of the task is closed");
    return handle->descriptorForChild();
}

id textOrNil(const id& value) {
    if (!value.isNil() && !isString(value)) raiseCast("'String' expected");
    return velt::copy(value);
}

}  // namespace

Class& NSTask::entry() {
    static Class& cls = declareClass<NSTask>("NSTask", &NSObject::entry());
    return cls;
}

NSTask::~NSTask() = default;

void NSTask::requireNotLaunched() const {
    if (isLaunched()) raise(kInvalidArgumentException, "task already launched");
}

std::shared_ptr<ChildProcess> NSTask::child() const {
    const std::lock_guard lock(mutex_);
    return child_;
}

std::shared_ptr<ChildProcess> NSTask::launchedChild() const {
    auto launched = child();
    if (!launched) raise(kInvalidArgumentException, "task not launched");
    return launched;
}

bool NSTask::isLaunched() const { return child() != nullptr; }

void NSTask::setLaunchPath(const id& path) {
    requireNotLaunched();
    launchPath_ = textOrNil(path);
}

void NSTask::setArguments(const id& arguments) {
    requireNotLaunched();
    const NSArray* array = to<NSArray>(arguments);
    arguments_ = array ? id(make<NSMutableArray>(array->items())) : nil;
}

id NSTask::environment() const {
    return environment_.isNil() ? NSProcessInfo::processInfo().environment() : environment_;
}

void NSTask::setEnvironment(const id& environment) {
    requireNotLaunched();
    const NSDictionary* dictionary = to<NSDictionary>(environment);
    environment_ = dictionary ? id(make<NSMutableDictionary>(*dictionary)) : nil;
}

id NSTask::currentDirectoryPath() const {
    if (!currentDirectoryPath_.isNil()) return currentDirectoryPath_;
    char here[PATH_MAX];
    return ::getcwd(here, sizeof here) ? string(here) : nil;
}

void NSTask::setCurrentDirectoryPath(const id& path) {
    requireNotLaunched();
    currentDirectoryPath_ = textOrNil(path);
}

void NSTask::setStandard(std::size_t index, const id& stream) {
    requireNotLaunched();
    if (!stream.isNil() && !is<NSPipe>(stream) && !is<NSFileHandle>(stream)) raiseCast("'NSFileHandle' expected");
    standard_[index] = stream;
}

void NSTask::launch() {
    requireNotLaunched();
    if (launchPath_.isNil()) raise(kInvalidArgumentException, "the task has no launch path");
    SpawnRequest request;
    request.path = utf8(launchPath_);
    if (const NSArray* arguments = arrayOf(arguments_)) {
        for (const id& argument : arguments->items()) request.arguments.push_back(systemText(argument));
    }
    if (const NSDictionary* environment = dictionaryOf(environment_)) {
        auto& entries = request.environment.emplace();
        environment->forEach(
            [&](const id& name, const id& value) { entries.push_back(systemText(name) + "=" + systemText(value)); });
    }
    if (!currentDirectoryPath_.isNil()) request.folder = utf8(currentDirectoryPath_);
    for (std::size_t i = 0; i < 3; ++i) request.standard[i] = childDescriptor(standard_[i], i == 0);

    auto child = std::make_shared<ChildProcess>(request);
    child->collectUnasked();
    {
        const std::lock_guard lock(mutex_);
        child_ = std::move(child);
    }
    // The ends that the child has now; a reader sees the end once the child has closed its own.
    for (std::size_t i = 0; i < 3; ++i) {
        if (!is<NSPipe>(standard_[i])) continue;
        NSPipe& pipe = *as<NSPipe>(standard_[i]);
        (i == 0 ? pipe.fileHandleForReading() : pipe.fileHandleForWriting())->closeFile();
    }
    watchEnd();
}

void NSTask::watchEnd() {
    RunLoop& loop = RunLoop::current();
    const auto launched = child();
    if (launched->descriptor() < 0) {
        loop.perform([self = Ref<NSTask>(this)] { self->announceEnd(); });
        return;
    }
    const auto watch = std::make_shared<Watch>(Watch{&loop, launched});
    {
        const std::lock_guard lock(mutex_);
        watch_ = watch;
    }
    loop.watch(launched->descriptor(), [self = Ref<NSTask>(this), watch] {
        if (!watch->child->end()) return;
        self->stopWatching(*watch);
        self->announceEnd();
    });
}

void NSTask::stopWatching(const Watch& watch) {
    watch.loop->unwatch(watch.child->descriptor());
    watch.child->closeDescriptor();
}

void NSTask::announceEnd() { NSNotificationCenter::defaultCenter().post(frozenString(kTaskDidTerminate), id(this)); }

void NSTask::terminate() { launchedChild()->signal(SIGTERM); }
void NSTask::interrupt() { launchedChild()->signal(SIGINT); }

bool NSTask::suspend() {
    const auto launched = launchedChild();
    if (!launched->signal(SIGSTOP)) return false;
    const std::lock_guard lock(mutex_);
    ++suspensions_;
    return true;
}

bool NSTask::resume() {
    const auto launched = launchedChild();
    {
        const std::lock_guard lock(mutex_);
        if (suspensions_ > 1) {
            --suspensions_;
            return !launched->end();
        }
        suspensions_ = 0;
    }
    return launched->signal(SIGCONT);
}

bool NSTask::isRunning() const {
    const auto launched = child();
    return launched && !launched->end();
}

void NSTask::waitUntilExit() {
    const auto launched = launchedChild();
    launched->wait();
    std::shared_ptr<Watch> watch;
    {
        const std::lock_guard lock(mutex_);
        watch = watch_.lock();
    }
    // The descriptor is not kept until the loop runs: a program may wait for many tasks and never run its loop.
    if (!watch || !watch->loop->isCurrent()) return;
    RunLoop& loop = *watch->loop;
    loop.perform([self = Ref<NSTask>(this)] { self->announceEnd(); });
    stopWatching(*watch);
}

long NSTask::processIdentifier() const {
    const auto launched = child();
    return launched ? launched->identifier() : 0;
}

long NSTask::terminationStatus() const {
    const auto end = launchedChild()->end();
    if (!end) raise(kInvalidArgumentException, "task still running");
    return end->status;
}

long NSTask::terminationReason() const {
    const auto end = launchedChild()->end();
    if (!end) raise(kInvalidArgumentException, "task still running");
    return end->bySignal ? 2 : 1;
}

void NSTask::visitOwned(OwnedVisitor& visitor) {
    for (id* owned : {&launchPath_, &arguments_, &environment_, &currentDirectoryPath_}) visitor.visit(*owned);
    for (id& stream : standard_) visitor.visit(stream);
    NSObject::visitOwned(visitor);
}

void NSTask::describe(ClassBuilder<NSTask>& c) {
    c.property("launchPath", &NSTask::launchPath, &NSTask::setLaunchPath)
        .property("arguments", &NSTask::arguments, &NSTask::setArguments)
        .property("environment", &NSTask::environment, &NSTask::setEnvironment)
        .property("currentDirectoryPath", &NSTask::currentDirectoryPath, &NSTask::setCurrentDirectoryPath)
        .property("standardInput", &NSTask::standardInput, &NSTask::setStandardInput)
        .property("standardOutput", &NSTask::standardOutput, &NSTask::setStandardOutput)
        .property("standardError", &NSTask::standardError, &NSTask::setStandardError)
        .property("isRunning", &NSTask::isRunning)
        .property("processIdentifier", &NSTask::processIdentifier)
        .property("terminationStatus", &NSTask::terminationStatus)
        .property("terminationReason", &NSTask::terminationReason)
        .method("launch", &NSTask::launch)
        .method("terminate", &NSTask::terminate)
        .method("interrupt", &NSTask::interrupt)
        .method("suspend", &NSTask::suspend)
        .method("resume", &NSTask::resume)
        .method("waitUntilExit", &NSTask::waitUntilExit);
}
