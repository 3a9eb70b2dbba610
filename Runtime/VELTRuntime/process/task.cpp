#include "VELTRuntime/process/task.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/ioctl.h>

using namespace velt;

/// What is particular to one of the two pipes.
struct VLTask::Stream {
    std::string_view suffix;
    bool VLTask::*isEmpty;
    id (NSTask::*pipe)() const;

    static const Stream output, errors;
};
const VLTask::Stream VLTask::Stream::output{"_stdout:", &VLTask::stdoutEmpty_, &NSTask::standardOutput};
const VLTask::Stream VLTask::Stream::errors{"_stderr:", &VLTask::stderrEmpty_, &NSTask::standardError};

namespace {

/// More can be written to a pipe that nobody reads yet; it is made larger where the system allows that.
bool hasRoom(int descriptor, std::size_t size) {
    int waiting = 0;
    if (::ioctl(descriptor, FIONREAD, &waiting) != 0) return true;
    const std::size_t needed = static_cast<std::size_t>(waiting) + size;
    const auto holds = [descriptor](std::size_t bytes) {
        const int capacity = ::fcntl(descriptor, F_GETPIPE_SZ);
        return capacity < 0 || bytes <= static_cast<std::size_t>(capacity);
    };
    // A part of a page may stay unused at the end of each piece.
    constexpr std::size_t kSlack = 4096, kLargest = std::size_t{1} << 30;
    if (holds(needed + kSlack)) return true;
    if (needed > kLargest) return false;
    ::fcntl(descriptor, F_SETPIPE_SZ, static_cast<int>(needed + kSlack));
    return holds(needed + kSlack);
}

void logException(const NSException& exception) noexcept {
    std::fprintf(stderr, "VLTask exception %s\n", exception.what());
}

}  // namespace

Class& VLTask::entry() {
    static Class& cls = declareClass<VLTask>("VLTask", &NSObject::entry());
    return cls;
}

VLTask::~VLTask() {
    try {
        finalize();
    } catch (...) {
        endWithCurrentException();
    }
}

void VLTask::setMytask(const id& task) { mytask_ = Ref<NSTask>(to<NSTask>(task)); }

void VLTask::setSName(const id& name) {
    if (!name.isNil() && !isString(name)) raiseCast("'String' expected");
    sName_ = velt::copy(name);
}

void VLTask::myinit() {
    stdoutEmpty_ = false;
    stderrEmpty_ = true;
    taskDidTerminate_ = false;
}

void VLTask::connect() {
    const id self(this);
    mytask_->setStandardOutput(make<NSPipe>());
    mytask_->setStandardError(make<NSPipe>());
    const id output = readingHandle(Stream::output), errors = readingHandle(Stream::errors);
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    center.addObserver(self, VELT_SELECTOR("get_stdout:"), frozenString(kReadCompletion), output);
    center.addObserver(self, VELT_SELECTOR("get_stderr:"), frozenString(kReadCompletion), errors);
    center.addObserver(self, VELT_SELECTOR("get_stopped:"), frozenString(kTaskDidTerminate), mytask_);
    as<NSFileHandle>(output)->readInBackgroundAndNotify();
    as<NSFileHandle>(errors)->readInBackgroundAndNotify();
}

/// nil when the program gave the process another stream.
id VLTask::readingHandle(const Stream& stream) const {
    if (!mytask_) return nil;
    const id pipe = (mytask_.get()->*stream.pipe)();
    return is<NSPipe>(pipe) ? id(as<NSPipe>(pipe)->fileHandleForReading()) : nil;
}

void VLTask::writeInput(const id& value) {
    const id data = VELT_CDATA(value);
    const std::string_view bytes = dataOf(data)->characters();
    if (!mytask_) return;
    const bool isLaunched = mytask_->isLaunched();
    if (mytask_->standardInput().isNil() && !isLaunched) mytask_->setStandardInput(make<NSPipe>());
    const id stream = mytask_->standardInput();
    const id handle = send(stream, VELT_SELECTOR("fileHandleForWriting"));
    if (handle.isNil()) raise(kInvalidArgumentException, "the task was launched without a pipe for its input");
    const int descriptor = as<NSFileHandle>(handle)->fileDescriptor();
    if (descriptor < 0) raiseDescriptorFailure("writeData:", EBADF);
    if (!isLaunched && !hasRoom(descriptor, bytes.size())) {
        raise(kInvalidArgumentException, "the input is more than a pipe holds before the task is launched");
    }
    const int error = writeAll(descriptor, bytes);
    // Whether a process reads all of its input is its own affair, and no program can know it beforehand.
    if (error != 0 && error != EPIPE) raiseDescriptorFailure("writeData:", error);
}

void VLTask::deliver(std::string_view suffix, const id& data) {
    if (sName_.isNil()) return;
    const Selector selector = Selector::named(utf8(sName_).append(suffix));
    const id target = target_;  // the method may set another one
    if (!respondsTo(target, selector)) return;
    if (selector.argumentCount() == 0) {
        send(target, selector);
    } else {
        send(target, selector, data);
    }
}

void VLTask::takePiece(const id& notification, const Stream& stream) {
    const NSNotification* told = to<NSNotification>(notification);
    const NSDictionary* information = told ? dictionaryOf(told->userInfo()) : nullptr;
    const id data = information ? information->objectForKey(frozenString(kDataItem)) : nil;
    const NSData* bytes = dataOf(data);
    if (bytes && bytes->length() > 0) {
        this->*stream.isEmpty = false;
        deliver(stream.suffix, data);
        const id handle = told->object();
        if (is<NSFileHandle>(handle) && as<NSFileHandle>(handle)->fileDescriptor() >= 0) {
            as<NSFileHandle>(handle)->readInBackgroundAndNotify();
        }
        return;
    }
    this->*stream.isEmpty = true;
    cleanUpWhenComplete();
}

void VLTask::getStdout(const id& notification) { takePiece(notification, Stream::output); }
void VLTask::getStderr(const id& notification) { takePiece(notification, Stream::errors); }

void VLTask::getStopped(const id&) {
    deliver("stopped", nil);
    if (taskDidTerminate_) return;
    taskDidTerminate_ = true;
    cleanUpWhenComplete();
}

void VLTask::cleanUpWhenComplete() {
    if (stdoutEmpty_ && stderrEmpty_ && taskDidTerminate_) cleanUp();
}

void VLTask::cleanUp() {
    NSNotificationCenter::defaultCenter().removeObserver(id(this));
    drain(Stream::output);
    drain(Stream::errors);
}

/// What is there now: another process that got the pipe from this one may hold it open for long.
void VLTask::drain(const Stream& stream) {
    const id handle = readingHandle(stream);
    if (handle.isNil()) return;
    NSFileHandle& reading = *as<NSFileHandle>(handle);
    reading.cancelBackground();
    while (reading.fileDescriptor() >= 0) {
        const id data = reading.dataAvailableNow();
        if (data.isNil() || dataOf(data)->length() == 0) return;
        deliver(stream.suffix, data);
    }
}

void VLTask::stop() {
    if (mytask_ && mytask_->isRunning()) mytask_->terminate();
}

void VLTask::finalize() {
    try {
        stop();
        cleanUp();
    } catch (const NSException& exception) {
        logException(exception);
    }
    try {
        mytask_ = nullptr;
        sName_ = nil;
        NSNotificationCenter::defaultCenter().removeObserver(id(this));
    } catch (const NSException& exception) {
        logException(exception);
    }
}

/// The process is not shown: it knows no way back to the task, and a task that goes with a cycle still has to end it.
void VLTask::visitOwned(OwnedVisitor& visitor) {
    visitor.visit(target_);
    NSObject::visitOwned(visitor);
}

void VLTask::describe(ClassBuilder<VLTask>& c) {
    c.property("mytask", &VLTask::mytask, &VLTask::setMytask)
        .property("target", &VLTask::target, &VLTask::setTarget)
        .property("sName", &VLTask::sName, &VLTask::setSName)
        .property("stdoutEmpty", &VLTask::stdoutEmpty_)
        .property("stderrEmpty", &VLTask::stderrEmpty_)
        .property("taskDidTerminate", &VLTask::taskDidTerminate_)
        .method("myinit", &VLTask::myinit)
        .method("finalize", &VLTask::finalize)
        .method("task", &VLTask::mytask)
        .method("__stdinp:", &VLTask::writeInput)
        .method("get_stdout:", &VLTask::getStdout)
        .method("get_stderr:", &VLTask::getStderr)
        .method("get_stopped:", &VLTask::getStopped)
        .method("_cleanup", &VLTask::cleanUp)
        .method("_stop", &VLTask::stop);
}
