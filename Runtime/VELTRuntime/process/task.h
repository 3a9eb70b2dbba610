// VLTask: a process whose output and end are reported to an object, as messages named by the program.
//
// The messages are sent by the run loop of the thread that made the task: nothing is reported before that loop runs,
// and nothing while the thread waits for the process.
#pragma once

#include "VELTRuntime/platform/foundation/process/task.h"

#include <string_view>

/// One process with two pipes for its output. The target gets "<name>_stdout:" and "<name>_stderr:" with each piece of
/// output (data) and "<name>stopped" when the process has ended, at once, so perhaps before the last piece. A message
/// that the target does not know is dropped without a report.
class VELT_EXPORT VLTask final : public NSObject {
public:
    VLTask() = default;
    ~VLTask() override;
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    velt::Ref<NSTask> mytask() const { return mytask_; }
    void setMytask(const id& task);
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }
    /// A string; copied when it is set.
    id sName() const { return sName_; }
    void setSName(const id& name);

    /// Neither pipe nor process is over. The error pipe begins as if it were at its end: a process that writes no
    /// errors is complete with the end of its output.
    void myinit();
    /// Makes the pipes, asks for the notifications and begins to read. The process is not launched.
    void connect();
    /// Writes data or text (through VELT_CDATA) to the process's standard input. Before the launch it gives the process
    /// a pipe for it, which takes no more than the system's limit for a pipe. Afterwards it waits while the process is
    /// slow to read, and what a process no longer reads is dropped.
    void writeInput(const id& value);
    void getStdout(const id& notification);
    void getStderr(const id& notification);
    void getStopped(const id& notification);
    /// Takes no more notifications; hands over what the pipes hold.
    void cleanUp();
    /// Asks the process to end, when it runs.
    void stop();
    /// Stops the process and takes the last of its output. Exceptions that programs raise are written to standard
    /// error.
    void finalize();

    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<VLTask>& c);

private:
    struct Stream;
    void takePiece(const id& notification, const Stream& stream);
    void deliver(std::string_view suffix, const id& data);
    void drain(const Stream& stream);
    void cleanUpWhenComplete();
    id readingHandle(const Stream& stream) const;

    velt::Ref<NSTask> mytask_;
    id target_;
    id sName_;
    bool stdoutEmpty_ = false;
    bool stderrEmpty_ = false;
    bool taskDidTerminate_ = false;
};

/// A new task, not yet launched, that reports to the owner; the name (ASCII) begins the names of its messages.
VELT_EXPORT id VELT_VLTASK_INIT(const id& owner, const char* name);
/// A new process of its own; both arguments are ignored.
VELT_EXPORT id VELT_NSTASK_INIT(const id& ignored, const char* ignoredName);

// Accessors of a task's process. With two arguments they set, through the language's conversions, and return nil; a
// launched process raises "NSInvalidArgumentException" when it is set. nil as the task gives nil, 0 or False; an object
// that is no task raises "NSInvalidArgumentException".

/// The executable's path.
VELT_EXPORT id VELT_VLTASK_PATH(const id& task);
VELT_EXPORT id VELT_VLTASK_PATH(const id& task, const id& path);
/// An array of arguments, without the program's name.
VELT_EXPORT id VELT_VLTASK_ARGUMENTS(const id& task);
VELT_EXPORT id VELT_VLTASK_ARGUMENTS(const id& task, const id& arguments);
/// The working folder.
VELT_EXPORT id VELT_VLTASK_CURRENTDIRECTORY(const id& task);
VELT_EXPORT id VELT_VLTASK_CURRENTDIRECTORY(const id& task, const id& path);
/// A dictionary of environment variables.
VELT_EXPORT id VELT_VLTASK_ENVIRONMENT(const id& task);
VELT_EXPORT id VELT_VLTASK_ENVIRONMENT(const id& task, const id& environment);
/// The process's number, an Integer; 0 before the launch. It cannot be set: with two arguments nothing happens.
VELT_EXPORT id VELT_VLTASK_PID(const id& task);
VELT_EXPORT id VELT_VLTASK_PID(const id& task, const id& ignored);
/// The exit status, or the number of the signal that ended the process: an Integer. Raises
/// "NSInvalidArgumentException" before the end.
VELT_EXPORT id VELT_VLTASK_EXITSTATUS(const id& task);
/// Boolean.
VELT_EXPORT id VELT_VLTASK_ISRUNNING(const id& task);
/// Stops and continues the process. Boolean: it could be done.
VELT_EXPORT id VELT_VLTASK_RESUME(const id& task);
VELT_EXPORT id VELT_VLTASK_SUSPEND(const id& task);
/// Launches the process and blocks until it has ended. Raises "NSInvalidArgumentException" when it cannot be launched.
/// The output is reported afterwards, by the run loop; a process that writes more than its pipes hold waits for ever.
VELT_EXPORT id VELT_VLTASK_LAUNCHANDWAIT(const id& task);
/// The same, and brings the process's window to the front when the second argument is true; raises "'Boolean' expected"
/// unless that is a number.
VELT_EXPORT id VELT_VLTASK_STARTANDWAIT(const id& task, const id& front);
/// Asks the process to end; nothing when it does not run.
VELT_EXPORT id VELT_VLTASK_STOP(const id& task);
/// Writes to the process's standard input; see VLTask::writeInput.
VELT_EXPORT id VELT_VLTASK_STDIN(const id& task, const id& value);
/// Write data or text (through VELT_CDATA) to this program's own standard output and error. They raise
/// "NSFileHandleOperationException" when that fails.
VELT_EXPORT id VELT_STDOUT(const id& value);
VELT_EXPORT id VELT_STDERR(const id& value);
