#include "VELTRuntime/platform/foundation/file_contents.h"

#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/foundation/file_operations.h"
#include "VELTRuntime/platform/foundation/file_size_signal.h"
#include "VELTRuntime/platform/foundation/kept_owner.h"
#include "VELTRuntime/platform/foundation/path_text.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace velt {

namespace {

/// A file that is being written is called ".velt-PROCESS-NUMBER".
constexpr std::string_view kTemporaryPrefix = ".velt-";

bool fail(std::string* failure, const std::string& path) {
    const int reason = errno;
    if (failure) *failure = path + ": " + std::strerror(reason);
    errno = reason;
    return false;
}

bool writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Where a path leads when its last component is a symbolic link, even one whose target is not there yet; the path
/// itself otherwise. Nothing for links that lead to each other.
std::optional<std::string> linkTarget(std::string path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        char content[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), content, sizeof content);
        if (length <= 0 || length == sizeof content) return path;
        const std::string target(content, static_cast<std::size_t>(length));
        path = target.front() == '/' ? target : folderOf(path).append("/").append(target);
    }
    errno = ELOOP;
    return std::nullopt;
}

/// A new file of a name that nothing has yet, with the permissions that new files get. The name is left in `path`.
int createBeside(const std::string& target, std::string& path) {
    constexpr int kTries = 100;
    static std::atomic<unsigned> number = 0;
    for (int i = 0; i < kTries; ++i) {
        path = folderOf(target).append("/").append(kTemporaryPrefix) + std::to_string(::getpid()) + "-" +
               std::to_string(++number);
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;
}

/// The process that a temporary file of ours belongs to; nothing for any other name.
std::optional<pid_t> writerOf(std::string_view name) {
    if (!name.starts_with(kTemporaryPrefix)) return std::nullopt;
    name.remove_prefix(kTemporaryPrefix.size());
    pid_t writer = 0;
    unsigned number = 0;
    const char* end = name.data() + name.size();
    const auto first = std::from_chars(name.data(), end, writer);
    if (first.ec != std::errc() || writer <= 0 || first.ptr == end || *first.ptr != '-') return std::nullopt;
    const auto second = std::from_chars(first.ptr + 1, end, number);
    return second.ec == std::errc() && second.ptr == end ? std::optional(writer) : std::nullopt;
}

/// Removes what writers that were killed left in a folder. A writer on another machine that shares the folder is none
/// of our processes, but it does not leave its file alone for a minute either.
void removeLeftovers(const std::string& folder) {
    const auto names = namesInFolder(folder);
    for (const std::string& name : names.value_or(std::vector<std::string>())) {
        const auto writer = writerOf(name);
        if (!writer || ::kill(*writer, 0) == 0 || errno != ESRCH) continue;
        std::string path = folder;
        path.append("/").append(name);
        struct stat status {};
        constexpr time_t kLongAgo = 60;
        if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != ::geteuid()) continue;
        if (::time(nullptr) - status.st_mtime >= kLongAgo) ::unlink(path.c_str());
    }
}

/// Once a folder and process: looking through a large folder takes longer than writing a small file.
void removeLeftoversOnce(const std::string& folder) {
    // Settings are written at the program's end, when static objects have gone.
    static auto& mutex = *new std::mutex;
    static auto& done = *new std::set<std::string>;
    {
        const std::lock_guard lock(mutex);
        if (!done.insert(folder).second) return;
    }
    removeLeftovers(folder);
}

}  // namespace

std::optional<std::string> readFile(const std::string& path, std::string* failure) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status {};
    if (!file || ::fstat(file.value(), &status) != 0) {
        fail(failure, path);
        return std::nullopt;
    }
    std::string content;
    // The size is a hint: a file may grow, and some report none.
    content.resize(S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) + 1 : 65536);
    std::size_t length = 0;
    for (;;) {
        if (length == content.size()) content.resize(content.size() * 2);
        const ssize_t count = ::read(file.value(), content.data() + length, content.size() - length);
        if (count == 0) break;
        if (count < 0) {
            if (errno == EINTR) continue;
            fail(failure, path);
            return std::nullopt;
        }
        length += static_cast<std::size_t>(count);
    }
    content.resize(length);
    return content;
}

bool writeFileAtomically(const std::string& path, std::string_view content, std::string* failure) {
    const std::optional<std::string> followed = linkTarget(path);
    if (!followed) return fail(failure, path);
    const std::string& target = *followed;
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        errno = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
        return fail(failure, path);
    }
    // A file that its owner made read-only is not replaced behind his back.
    if (exists && ::access(target.c_str(), W_OK) != 0) return fail(failure, path);

    removeLeftoversOnce(folderOf(target));
    const FileSizeSignal scope;
    std::string temporary;
    Descriptor file(createBeside(target, temporary));
    if (!file) return fail(failure, path);
    const bool written = writeAll(file.value(), content) && (!exists || keepOwner(file.value(), old)) &&
                         ::fsync(file.value()) == 0 && file.close() && ::rename(temporary.c_str(), target.c_str()) == 0;
    if (!written) {
        const int reason = errno;
        ::unlink(temporary.c_str());
        errno = reason;
        return fail(failure, path);
    }
    const Descriptor folder(::open(folderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder) ::fsync(folder.value());  // the new name, too, survives a crash
    return true;
}

}  // namespace velt
