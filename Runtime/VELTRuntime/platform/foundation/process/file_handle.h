// NSFileHandle: a descriptor as an object, read at once or in the background; NSPipe: two of them.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <atomic>
#include <memory>
#include <string>
#include <string_view>

namespace velt {

/// What is posted when a background read is through, and the key under which its bytes (NSData) come.
VELT_EXPORT extern const char* const kReadCompletion;
VELT_EXPORT extern const char* const kReadToEndCompletion;
VELT_EXPORT extern const char* const kDataAvailable;
VELT_EXPORT extern const char* const kDataItem;

}  // namespace velt

class NSPipe;

/// A file, pipe or terminal by its descriptor. Reading and writing a closed handle, and failures of the system, raise
/// "NSFileHandleOperationException".
class VELT_EXPORT NSFileHandle final : public NSObject {
public:
    /// A handle of an open descriptor, which is closed with the handle when it owns it.
    explicit NSFileHandle(int descriptor, bool owns = true) : descriptor_(descriptor), owns_(owns) {}
    ~NSFileHandle() override;
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// The program's own standard streams, and the null device: one object each.
    static NSFileHandle& standardInput();
    static NSFileHandle& standardOutput();
    static NSFileHandle& standardError();
    static NSFileHandle& nullDevice();
    /// A handle of a file; null when it cannot be opened. Writing creates no file and keeps what is in it.
    static velt::Ref<NSFileHandle> forReading(const std::string& path);
    static velt::Ref<NSFileHandle> forWriting(const std::string& path);

    /// -1 when it is closed.
    int fileDescriptor() const;
    /// The same for a child, who expects reading to wait.
    int descriptorForChild();
    /// New data of what can be read, waiting for some; empty at the end.
    id availableData();
    /// The same without waiting; nil when there is nothing yet.
    id dataAvailableNow();
    /// New data of all up to the end; of so many bytes, fewer only at the end.
    id readDataToEndOfFile();
    id readDataOfLength(long length);
    /// Writes data (through VELT_CDATA), waiting while the other end is slow to read.
    void writeData(const id& data);
    void writeBytes(std::string_view bytes);
    /// Background reads end without a notification.
    void closeFile();

    // In the background, on the run loop of the calling thread: each posts one notification on that thread. A handle
    // has one background read at a time, the last that was asked for.
    void readInBackgroundAndNotify();
    void readToEndOfFileInBackgroundAndNotify();
    void waitForDataInBackgroundAndNotify();
    void cancelBackground();

    static void describe(velt::ClassBuilder<NSFileHandle>& c);

private:
    friend class NSPipe;
    struct Background;
    enum class Mode { Piece, ToEnd, Wait };
    int openDescriptor(std::string_view operation) const;
    void begin(Mode mode, std::string_view operation);
    void backgroundReady(const std::shared_ptr<Background>& background);
    bool takeBackground(Background& background);
    void post(const char* name, const id& data);

    std::atomic<int> descriptor_;
    const bool owns_;
    std::weak_ptr<Background> background_;
    bool mayStopBlocking_ = false;  // nobody else reads from it: the reading end of a pipe of ours
    bool neverBlocks_ = false;
    bool isAtEnd_ = false;  // of a pipe of ours: nobody writes into it any more
};

/// A pipe: what is written into one handle is read from the other.
class VELT_EXPORT NSPipe final : public NSObject {
public:
    NSPipe();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    velt::Ref<NSFileHandle> fileHandleForReading() const { return reading_; }
    velt::Ref<NSFileHandle> fileHandleForWriting() const { return writing_; }
    static void describe(velt::ClassBuilder<NSPipe>& c);

private:
    velt::Ref<NSFileHandle> reading_, writing_;
};
