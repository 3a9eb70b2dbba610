#include "VELTRuntime/platform/foundation/file_contents.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velt {

namespace {

/// A file descriptor that is closed with its scope.
class Descriptor {
public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int value() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }
    /// False when the system could not keep what was written.
    bool close() {
        const int closing = std::exchange(value_, -1);
        return closing < 0 || ::close(closing) == 0;
    }

private:
    int value_;
};

bool fail(std::string* failure, const std::string& path) {
    if (failure) *failure = path + ": " + std::strerror(errno);
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

/// Where a path leads when its last component is a symbolic link; the path itself otherwise.
std::string linkTarget(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(path.c_str(), nullptr), std::free);
    return resolved ? std::string(resolved.get()) : path;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

mode_t defaultMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
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
    const std::string target = linkTarget(path);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        errno = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
        return fail(failure, path);
    }
    // A file that its owner made read-only is not replaced behind his back.
    if (exists && ::access(target.c_str(), W_OK) != 0) return fail(failure, path);

    std::string temporary = folderOf(target) + "/.velt-XXXXXX";
    Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file) return fail(failure, path);
    const bool written = writeAll(file.value(), content) &&
                         ::fchmod(file.value(), exists ? old.st_mode & 07777 : defaultMode()) == 0 &&
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
