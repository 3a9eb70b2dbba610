#include "VELTRuntime/platform/foundation/process/file_handle.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <optional>
#include <sched.h>
#include <unistd.h>
#include <utility>

using namespace velt;

namespace velt {
const char* const kReadCompletion = "NSFileHandleReadCompletionNotification";
const char* const kReadToEndCompletion = "NSFileHandleReadToEndOfFileCompletionNotification";
const char* const kDataAvailable = "NSFileHandleDataAvailableNotification";
const char* const kDataItem = "NSFileHandleNotificationDataItem";
}  // namespace velt

/// A background read. The run loop that watches the descriptor keeps it, and the handle with it: it goes with that
/// loop, so that a handle never reaches for the loop of a thread that has ended.
struct NSFileHandle::Background {
    RunLoop* loop;
    int descriptor;
    Mode mode;
    bool wanted = true;  // a further piece is
    Bytes gathered;
};

namespace {

Ref<NSFileHandle> opened(const std::string& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC);
    return descriptor < 0 ? Ref<NSFileHandle>() : make<NSFileHandle>(descriptor);
}

}  // namespace

Class& NSFileHandle::entry() {
    static Class& cls = declareClass<NSFileHandle>("NSFileHandle", &NSObject::entry());
    return cls;
}

NSFileHandle::~NSFileHandle() {
    if (owns_ && descriptor_ >= 0) ::close(descriptor_);
}

// Never freed: threads may use them to the very end.
NSFileHandle& NSFileHandle::standardInput() {
    static NSFileHandle& handle = *make<NSFileHandle>(STDIN_FILENO, false).release();
    return handle;
}
NSFileHandle& NSFileHandle::standardOutput() {
    static NSFileHandle& handle = *make<NSFileHandle>(STDOUT_FILENO, false).release();
    return handle;
}
NSFileHandle& NSFileHandle::standardError() {
    static NSFileHandle& handle = *make<NSFileHandle>(STDERR_FILENO, false).release();
    return handle;
}
NSFileHandle& NSFileHandle::nullDevice() {
    static NSFileHandle& handle = *make<NSFileHandle>(::open("/dev/null", O_RDWR | O_CLOEXEC), false).release();
    return handle;
}

Ref<NSFileHandle> NSFileHandle::forReading(const std::string& path) { return opened(path, O_RDONLY); }
Ref<NSFileHandle> NSFileHandle::forWriting(const std::string& path) { return opened(path, O_WRONLY); }

int NSFileHandle::fileDescriptor() const { return descriptor_; }

int NSFileHandle::descriptorForChild() {
    const int descriptor = descriptor_;
    if (neverBlocks_) ::fcntl(descriptor, F_SETFL, 0);
    mayStopBlocking_ = neverBlocks_ = false;
    return descriptor;
}

int NSFileHandle::openDescriptor(std::string_view operation) const {
    const int descriptor = descriptor_;
    if (descriptor < 0) raiseDescriptorFailure(operation, EBADF);
    return descriptor;
}

id NSFileHandle::availableData() {
    return make<NSData>(takePiece(readPiece(openDescriptor("availableData"), "availableData")));
}

id NSFileHandle::dataAvailableNow() {
    const int descriptor = openDescriptor("availableData");
    if (isAtEnd_) return make<NSData>();
    return waitReadable(descriptor, 0) ? availableData() : nil;
}

id NSFileHandle::readDataToEndOfFile() {
    const int descriptor = openDescriptor("readDataToEndOfFile");
    const Ref<NSMutableData> data = make<NSMutableData>();
    for (;;) {
        const std::string_view piece = readPiece(descriptor, "readDataToEndOfFile");
        if (piece.empty()) return data;
        data->append(piece);
    }
}

id NSFileHandle::readDataOfLength(long length) {
    const int descriptor = openDescriptor("readDataOfLength:");
    if (length < 0) raise(kInvalidArgumentException, "readDataOfLength: a length below zero");
    const auto wanted = static_cast<std::size_t>(length);
    constexpr std::size_t kFirstRoom = std::size_t{1} << 20;
    Bytes bytes;
    std::size_t filled = 0;
    while (filled < wanted) {
        // Room for what comes, not for what was asked for: programs ask for more than there is.
        if (filled == bytes.size()) bytes.resize(std::min(wanted, std::max(2 * filled, kFirstRoom)));
        const ssize_t count = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (count == 0) break;
        if (count > 0) {
            filled += static_cast<std::size_t>(count);
        } else if (errno == EAGAIN) {
            waitReadable(descriptor, -1);
        } else if (errno != EINTR) {
            raiseDescriptorFailure("readDataOfLength:", errno);
        }
    }
    bytes.resize(filled);
    return make<NSData>(std::move(bytes));
}

void NSFileHandle::writeData(const id& data) {
    const id bytes = VELT_CDATA(data);
    writeBytes(dataOf(bytes)->characters());
}

void NSFileHandle::writeBytes(std::string_view bytes) {
    const int error = writeAll(openDescriptor("writeData:"), bytes);
    if (error != 0) raiseDescriptorFailure("writeData:", error);
}

void NSFileHandle::closeFile() {
    const auto background = background_.lock();
    const int descriptor = descriptor_.exchange(-1);
    if (descriptor < 0 || !owns_) return cancelBackground();
    if (!background || background->loop->isCurrent()) {
        cancelBackground();
        ::close(descriptor);
        return;
    }
    // Another thread waits on the descriptor: it is closed there, lest a new file of that number is waited on.
    background_.reset();
    background->loop->perform([background, descriptor] {
        background->loop->unwatch(background->descriptor);
        ::close(descriptor);
    });
}

void NSFileHandle::readInBackgroundAndNotify() { begin(Mode::Piece, "readInBackgroundAndNotify"); }
void NSFileHandle::readToEndOfFileInBackgroundAndNotify() {
    begin(Mode::ToEnd, "readToEndOfFileInBackgroundAndNotify");
}
void NSFileHandle::waitForDataInBackgroundAndNotify() { begin(Mode::Wait, "waitForDataInBackgroundAndNotify"); }

void NSFileHandle::begin(Mode mode, std::string_view operation) {
    const int descriptor = openDescriptor(operation);
    RunLoop& loop = RunLoop::current();
    if (const auto background = background_.lock(); background && background->loop == &loop) {
        background->mode = mode;
        background->wanted = true;
        return;
    }
    cancelBackground();
    if (mayStopBlocking_ && !neverBlocks_) neverBlocks_ = ::fcntl(descriptor, F_SETFL, O_NONBLOCK) == 0;
    const auto background = std::make_shared<Background>(Background{&loop, descriptor, mode, true, {}});
    background_ = background;
    loop.watch(descriptor, [self = Ref<NSFileHandle>(this), background] { self->backgroundReady(background); });
}

void NSFileHandle::cancelBackground() {
    const auto background = background_.lock();
    background_.reset();
    if (!background) return;
    const auto unwatch = [background] { background->loop->unwatch(background->descriptor); };
    if (background->loop->isCurrent()) {
        unwatch();
    } else {
        background->loop->perform(unwatch);
    }
}

/// The watch stays while each notification asks for the next piece: a long output costs no more than its reads, and
/// what else waits on the loop gets its turn after a moment.
///
/// A writer that is faster than the pipe is emptied would wake this thread for every piece, which costs more than the
/// reading. So an empty pipe that had a piece just now is looked at a few times more, the processor left to the writer
/// in between.
void NSFileHandle::backgroundReady(const std::shared_ptr<Background>& background) {
    using Clock = std::chrono::steady_clock;
    constexpr auto kTurn = std::chrono::microseconds(1000), kPatience = std::chrono::microseconds(50);
    constexpr int kLooks = 20;
    const auto goesOn = [&] {
        return background->wanted && background_.lock() == background && descriptor_ == background->descriptor;
    };
    const Clock::time_point begin = Clock::now();
    Clock::time_point lastPiece = begin;
    bool hadPiece = false;
    for (int looks = 0; goesOn();) {
        const bool tookPiece = takeBackground(*background);
        const Clock::time_point now = Clock::now();
        if (tookPiece) {
            hadPiece = true;
            looks = 0;
            lastPiece = now;
            if (now - begin > kTurn) break;
        } else {
            if (!hadPiece || !neverBlocks_ || ++looks > kLooks || now - lastPiece > kPatience) break;
            ::sched_yield();
        }
    }
    if (!background->wanted && background_.lock() == background) cancelBackground();
}

/// Takes what there is; false when there is nothing yet.
bool NSFileHandle::takeBackground(Background& background) {
    // A loop that ran within another's delivery may have read what this one was told of.
    if ((background.mode == Mode::Wait || !neverBlocks_) && !waitReadable(background.descriptor, 0)) return false;
    if (background.mode == Mode::Wait) {
        background.wanted = false;
        post(kDataAvailable, nil);
        return true;
    }
    std::optional<std::string_view> piece;
    try {
        piece = readPieceNow(background.descriptor, "read");
    } catch (const NSException&) {
        piece.emplace();  // a terminal whose other end has gone fails where others end
    }
    if (!piece) return false;
    isAtEnd_ = piece->empty() && mayStopBlocking_;
    if (background.mode == Mode::Piece) {
        background.wanted = false;
        post(kReadCompletion, make<NSData>(takePiece(*piece)));
        return true;
    }
    background.gathered.insert(background.gathered.end(), piece->begin(), piece->end());
    if (piece->empty()) {
        background.wanted = false;
        const id data = make<NSData>(std::exchange(background.gathered, Bytes()));
        post(kReadToEndCompletion, data);
    }
    return true;
}

void NSFileHandle::post(const char* name, const id& data) {
    id information;
    if (!data.isNil()) {
        std::array<id, 2> entry{frozenString(kDataItem), data};
        information = make<NSDictionary>(MovedValues{entry});
    }
    NSNotificationCenter::defaultCenter().post(frozenString(name), id(this), information);
}

void NSFileHandle::describe(ClassBuilder<NSFileHandle>& c) {
    c.property("fileDescriptor", &NSFileHandle::fileDescriptor)
        .property("availableData", &NSFileHandle::availableData)
        .method("readDataToEndOfFile", &NSFileHandle::readDataToEndOfFile)
        .method("readDataOfLength:", &NSFileHandle::readDataOfLength)
        .method("writeData:", &NSFileHandle::writeData)
        .method("closeFile", &NSFileHandle::closeFile)
        .method("readInBackgroundAndNotify", &NSFileHandle::readInBackgroundAndNotify)
        .method("readToEndOfFileInBackgroundAndNotify", &NSFileHandle::readToEndOfFileInBackgroundAndNotify)
        .method("waitForDataInBackgroundAndNotify", &NSFileHandle::waitForDataInBackgroundAndNotify);
}

Class& NSPipe::entry() {
    static Class& cls = declareClass<NSPipe>("NSPipe", &NSObject::entry());
    return cls;
}

NSPipe::NSPipe() {
    const PipeEnds ends = makePipe();
    reading_ = make<NSFileHandle>(ends.reading);
    reading_->mayStopBlocking_ = true;
    writing_ = make<NSFileHandle>(ends.writing);
}

void NSPipe::describe(ClassBuilder<NSPipe>& c) {
    c.property("fileHandleForReading", &NSPipe::fileHandleForReading)
        .property("fileHandleForWriting", &NSPipe::fileHandleForWriting)
        .owns(&NSPipe::reading_)
        .owns(&NSPipe::writing_);
}
