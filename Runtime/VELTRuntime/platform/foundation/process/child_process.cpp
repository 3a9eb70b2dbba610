#include "VELTRuntime/platform/foundation/process/child_process.h"

#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "VELTRuntime/platform/object/exception.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
#include <sys/pidfd.h>  // the system's header does not say so itself everywhere
}

namespace velt {

namespace {

/// The arguments of one start, freed with their scope.
class Actions {
public:
    Actions() {
        posix_spawn_file_actions_init(&files_);
        posix_spawnattr_init(&attributes_);
    }
    ~Actions() {
        posix_spawn_file_actions_destroy(&files_);
        posix_spawnattr_destroy(&attributes_);
    }
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;

    void setFlags(bool newSession) {
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        const int session = newSession ? POSIX_SPAWN_SETSID : 0;
        posix_spawnattr_setflags(&attributes_,
                                 static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | session));
    }
    void setFolder(const std::string& folder) {
        if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&files_, folder.c_str());
    }
    /// A standard descriptor may itself be the source of another one: those are copied out of the way first.
    void setStandard(const std::array<int, 3>& sources) {
        for (int target = 0; target < 3; ++target) {
            int source = sources[static_cast<std::size_t>(target)];
            if (source < 0) continue;
            if (source < 3 && source != target) {
                copies_[copyCount_] = std::make_unique<Descriptor>(::fcntl(source, F_DUPFD_CLOEXEC, 3));
                source = copies_[copyCount_++]->value();
            }
            posix_spawn_file_actions_adddup2(&files_, source, target);
        }
        posix_spawn_file_actions_addclosefrom_np(&files_, 3);
    }
    int spawn(pid_t& identifier, const std::string& path, char* const* arguments, char* const* environment) {
        return posix_spawn(&identifier, path.c_str(), &files_, &attributes_, arguments, environment);
    }

private:
    posix_spawn_file_actions_t files_;
    posix_spawnattr_t attributes_;
    std::array<std::unique_ptr<Descriptor>, 3> copies_;
    std::size_t copyCount_ = 0;
};

std::string reasonOf(int error) { return std::strerror(error); }

/// The interpreter that a script's first line names; empty when it names none.
std::string interpreterOf(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    char text[256];
    const ssize_t count = file ? ::read(file.value(), text, sizeof text) : 0;
    const std::string_view head(text, count > 0 ? static_cast<std::size_t>(count) : 0);
    if (!head.starts_with("#!")) return {};
    const std::string_view line = head.substr(2, head.find('\n') == head.npos ? head.npos : head.find('\n') - 2);
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == line.npos) return {};
    return std::string(line.substr(begin, line.find_first_of(" \t\r", begin) - begin));
}

/// The system gives one number for whatever went wrong on the way; the files tell what it was.
[[noreturn]] void raiseNotStarted(const SpawnRequest& request, const std::string& path, int error) {
    const std::string subject = "cannot launch '" + request.path + "'";
    struct stat status;
    if (!request.folder.empty()) {
        if (::stat(request.folder.c_str(), &status) != 0) {
            raise(kInvalidArgumentException, subject + " in '" + request.folder + "': " + reasonOf(errno));
        }
        if (!S_ISDIR(status.st_mode)) error = ENOTDIR;
        if (error == ENOTDIR || ::access(request.folder.c_str(), X_OK) != 0) {
            raise(kInvalidArgumentException, subject + " in '" + request.folder + "': " + reasonOf(error));
        }
    }
    if (error == EACCES && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) error = EISDIR;
    if ((error == ENOENT || error == EACCES) && ::access(path.c_str(), X_OK) == 0) {
        const std::string interpreter = interpreterOf(path);
        if (!interpreter.empty()) {
            raise(kInvalidArgumentException, subject + ": interpreter '" + interpreter + "': " + reasonOf(error));
        }
    }
    raise(kInvalidArgumentException, subject + ": " + reasonOf(error));
}

void requireNoZeroBytes(const SpawnRequest& request, const std::string& text, const char* what) {
    if (text.find('\0') == text.npos) return;
    raise(kInvalidArgumentException, "cannot launch '" + request.path + "': " + what + " holds a zero byte");
}

std::vector<char*> pointersTo(const std::vector<std::string>& texts, const std::string* first = nullptr) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 2);
    if (first) pointers.push_back(const_cast<char*>(first->c_str()));
    for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// The child changes its folder before it executes, so that a relative path has to be made absolute here.
std::string executablePath(const SpawnRequest& request) {
    if (request.folder.empty() || request.path.starts_with('/')) return request.path;
    char here[PATH_MAX];
    return ::getcwd(here, sizeof here) ? std::string(here) + "/" + request.path : request.path;
}

}  // namespace

ChildProcess::ChildProcess(const SpawnRequest& request) {
    requireNoZeroBytes(request, request.path, "the path");
    requireNoZeroBytes(request, request.folder, "the working folder");
    for (const std::string& argument : request.arguments) requireNoZeroBytes(request, argument, "an argument");
    if (request.environment) {
        for (const std::string& entry : *request.environment) requireNoZeroBytes(request, entry, "the environment");
    }
    UncollectedChildren::all().collectEnded();

    const std::string path = executablePath(request);
    const std::vector<char*> arguments = pointersTo(request.arguments, &request.path);
    const std::vector<char*> own = request.environment ? pointersTo(*request.environment) : std::vector<char*>();
    Actions actions;
    actions.setFlags(request.newSession);
    actions.setStandard(request.standard);
    actions.setFolder(request.folder);
    const int error = actions.spawn(identifier_, path, arguments.data(), request.environment ? own.data() : environ);
    if (error != 0) raiseNotStarted(request, path, error);

    const int descriptor = ::pidfd_open(identifier_, 0);
    const int reason = errno;
    state_ = std::make_shared<ChildState>(descriptor);
    if (descriptor >= 0) return;
    if (reason == ESRCH) {  // the program ignores its children's end, and this one is over
        state_->setLost();
        return;
    }
    ::kill(identifier_, SIGKILL);
    ::waitpid(identifier_, nullptr, 0);
    raise(kInvalidArgumentException, "cannot launch '" + request.path + "': " + reasonOf(reason));
}

ChildProcess::~ChildProcess() {
    if (!end()) {
        collectUnasked();
    } else {
        closeDescriptor();
    }
}

PipeEnds makePipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) raiseDescriptorFailure("pipe", errno);
    for (int& end : ends) {
        if (end > 2) continue;
        // A standard stream was closed: its number must not become a pipe that everything is written to.
        const int moved = ::fcntl(end, F_DUPFD_CLOEXEC, 3);
        ::close(end);
        end = moved;
    }
    return {ends[0], ends[1]};
}

}  // namespace velt
