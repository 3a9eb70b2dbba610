#include "VELTRuntime/platform/foundation/process/child_process.h"

#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "VELTRuntime/platform/foundation/process/program_start.h"
#include "VELTRuntime/platform/object/exception.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velt {

namespace {

/// What becomes the standard streams. A standard descriptor may itself be the source of another one: those are copied
/// out of the way first, until the child is there.
class StandardSources {
public:
    explicit StandardSources(const std::array<int, 3>& sources) : sources_(sources) {
        for (std::size_t target = 0; target < 3; ++target) {
            int& source = sources_[target];
            if (source < 0 || source >= 3 || source == static_cast<int>(target)) continue;
            copies_[target] = std::make_unique<Descriptor>(::fcntl(source, F_DUPFD_CLOEXEC, 3));
            source = copies_[target]->value();
        }
    }
    const std::array<int, 3>& descriptors() const { return sources_; }

private:
    std::array<int, 3> sources_;
    std::array<std::unique_ptr<Descriptor>, 3> copies_;
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
    const StandardSources standard(request.standard);
    const StartResult started = startProgram({.path = path.c_str(),
                                              .arguments = arguments.data(),
                                              .environment = request.environment ? own.data() : environ,
                                              .folder = request.folder.empty() ? nullptr : request.folder.c_str(),
                                              .standard = standard.descriptors(),
                                              .newSession = request.newSession});
    if (started.error != 0) raiseNotStarted(request, path, started.error);

    identifier_ = started.identifier;
    state_ = std::make_shared<ChildState>(started.descriptor);
    if (started.descriptor >= 0) return;
    if (started.descriptorError == ESRCH) {  // the program ignores its children's end, and this one is over
        state_->setLost();
        return;
    }
    ::kill(identifier_, SIGKILL);
    ::waitpid(identifier_, nullptr, 0);
    raise(kInvalidArgumentException, "cannot launch '" + request.path + "': " + reasonOf(started.descriptorError));
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
        const int moved = ::fcntl(end, F_DUPFD_CLOEXEC, 3), error = errno;
        ::close(end);
        end = moved;
        if (moved >= 0) continue;
        for (const int made : ends) {
            if (made >= 0) ::close(made);
        }
        raiseDescriptorFailure("pipe", error);
    }
    return {ends[0], ends[1]};
}

}  // namespace velt
