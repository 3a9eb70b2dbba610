// NSTask: another program that runs as a child process.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <memory>
#include <mutex>

namespace velt {

class ChildProcess;
class RunLoop;

/// Posted when a task has ended, on the thread that launched it.
VELT_EXPORT extern const char* const kTaskDidTerminate;

}  // namespace velt

/// A process with its path, arguments, environment, working folder and standard streams. What it is to run with is set
/// before it is launched and raises "NSInvalidArgumentException" afterwards, as do questions about a launch that has
/// not been. A task that nobody holds any more runs on; its end is still noticed.
class VELT_EXPORT NSTask final : public NSObject {
public:
    NSTask() = default;
    ~NSTask() override;
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// A string.
    id launchPath() const { return launchPath_; }
    void setLaunchPath(const id& path);
    /// An array of strings, or of data for arguments of any bytes. Copied.
    id arguments() const { return arguments_; }
    void setArguments(const id& arguments);
    /// A dictionary of strings; the program's own environment unless it was set. Copied.
    id environment() const;
    void setEnvironment(const id& environment);
    /// A string; the program's own working folder unless it was set.
    id currentDirectoryPath() const;
    void setCurrentDirectoryPath(const id& path);
    /// Pipes or file handles; the program's own streams unless they were set. A pipe's end that is the child's is
    /// closed here when it is launched.
    id standardInput() const { return standard_[0]; }
    id standardOutput() const { return standard_[1]; }
    id standardError() const { return standard_[2]; }
    void setStandardInput(const id& stream) { setStandard(0, stream); }
    void setStandardOutput(const id& stream) { setStandard(1, stream); }
    void setStandardError(const id& stream) { setStandard(2, stream); }

    /// Starts the process. Raises "NSInvalidArgumentException" with the path and the system's reason when it cannot be
    /// started; then it may be tried again. The end is posted on this thread's run loop.
    void launch();
    /// SIGTERM, SIGINT. Nothing when it has ended.
    void terminate();
    void interrupt();
    /// SIGSTOP, and SIGCONT once it was called as often as suspend. False when the process has ended.
    bool suspend();
    bool resume();
    bool isLaunched() const;
    bool isRunning() const;
    /// Blocks the thread; nothing is delivered meanwhile.
    void waitUntilExit();
    /// 0 before the launch.
    long processIdentifier() const;
    /// The exit status, or the number of the signal that ended it; -1 when another part of the program took it from the
    /// system. Raises while it runs.
    long terminationStatus() const;
    /// 1 when it exited, 2 when a signal ended it. Raises while it runs.
    long terminationReason() const;
    /// The child; empty before the launch.
    std::shared_ptr<velt::ChildProcess> child() const;

    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<NSTask>& c);

private:
    struct Watch;
    void requireNotLaunched() const;
    std::shared_ptr<velt::ChildProcess> launchedChild() const;
    void setStandard(std::size_t index, const id& stream);
    void watchEnd();
    void stopWatching(const Watch& watch);
    void announceEnd();

    id launchPath_, arguments_, environment_, currentDirectoryPath_;
    id standard_[3];
    mutable std::mutex mutex_;  // guards what follows
    std::shared_ptr<velt::ChildProcess> child_;
    std::weak_ptr<Watch> watch_;
    unsigned suspensions_ = 0;
};
