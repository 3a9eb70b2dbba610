// A child process: started without copying this one's memory, known by a descriptor of its own. No handler of the
// program is touched, no other child of it is waited for, and none of ours stays a zombie.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/platform/foundation/process/child_state.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velt {

/// What to start. Texts are bytes as the system takes them.
struct SpawnRequest {
    /// The executable; a relative path begins at this program's working folder, not at `folder`.
    std::string path;
    /// Without the program's own name.
    std::vector<std::string> arguments;
    /// "NAME=value" each; this program's environment when there is none.
    std::optional<std::vector<std::string>> environment;
    /// The working folder; empty for this program's own.
    std::string folder;
    /// Descriptors that become the child's standard input, output and error; -1 for this program's own. No other
    /// descriptor is passed on.
    std::array<int, 3> standard{-1, -1, -1};
    /// It leads a session of its own: signals of this program's terminal do not reach it.
    bool newSession = false;
};

/// A started child. All functions may be called from any thread.
class VELT_EXPORT ChildProcess {
public:
    /// Starts it with no signal blocked, and with every signal below the real-time ones at its default. Raises
    /// "NSInvalidArgumentException" with the path and the system's reason when it cannot be started.
    explicit ChildProcess(const SpawnRequest& request);
    /// A child that still runs goes on, and is collected when it has ended.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t identifier() const { return identifier_; }
    /// Can be read once the process has ended.
    int descriptor() const { return state_->descriptor(); }
    /// Gives the descriptor back once the process has ended; all else is still known.
    void closeDescriptor() { state_->closeDescriptor(); }
    /// Its end may never be asked for, and it is to leave no zombie behind all the same.
    void collectUnasked() { UncollectedChildren::all().add(state_); }
    /// How it ended; nothing while it runs.
    std::optional<ProcessEnd> end() { return state_->end(); }
    /// Blocks the thread until it has ended, at most some milliseconds unless that is -1. False when it still runs.
    bool wait(int milliseconds = -1) { return state_->wait(milliseconds); }
    /// False when the process has ended or may not be signalled.
    bool signal(int number) { return state_->signal(number); }

private:
    pid_t identifier_ = 0;
    std::shared_ptr<ChildState> state_;
};

/// Both ends of a new pipe: closed when another program is executed, above the three standard descriptors.
struct PipeEnds {
    int reading;
    int writing;
};
/// Raises "NSFileHandleOperationException" when there are no descriptors left.
VELT_EXPORT PipeEnds makePipe();

}  // namespace velt
