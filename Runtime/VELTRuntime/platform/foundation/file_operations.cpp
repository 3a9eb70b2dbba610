#include "VELTRuntime/platform/foundation/file_operations.h"

#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/foundation/file_size_signal.h"
#include "VELTRuntime/platform/foundation/kept_owner.h"
#include "VELTRuntime/platform/foundation/path_text.h"
#include "VELTRuntime/platform/foundation/tree_removal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace velt {

namespace {

bool fail(std::string* failure, const std::string& path, int reason = errno) {
    if (failure) *failure = path + ": " + std::strerror(reason);
    errno = reason;
    return false;
}

bool isSameItem(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

/// Whether a path, which need not exist, lies within a folder.
bool liesWithin(const std::string& path, const struct stat& folder) {
    std::error_code ignored;
    std::filesystem::path above = std::filesystem::canonical(folderOf(path), ignored);
    for (; !above.empty(); above = above.parent_path()) {
        struct stat status {};
        if (::stat(above.c_str(), &status) == 0 && isSameItem(status, folder)) return true;
        if (above == above.parent_path()) break;
    }
    return false;
}

std::array<timespec, 2> timesOf(const struct stat& status) { return {status.st_atim, status.st_mtim}; }

/// Copies bytes until the end; the system does it by itself where it can.
bool copyBytes(int from, int to) {
    bool bySystem = true;
    std::unique_ptr<char[]> buffer;
    constexpr std::size_t kBuffer = std::size_t{1} << 17;
    for (bool first = true;; first = false) {
        if (bySystem) {
            const ssize_t count = ::copy_file_range(from, nullptr, to, nullptr, std::size_t{1} << 30, 0);
            if (count > 0 || (count < 0 && errno == EINTR)) continue;
            if (count == 0 && !first) return true;
            if (count < 0 && (errno == ENOSPC || errno == EFBIG || errno == EDQUOT || errno == EIO)) return false;
            bySystem = false;  // not between these files; some also claim to be empty
            continue;
        }
        if (!buffer) buffer = std::make_unique<char[]>(kBuffer);
        const ssize_t count = ::read(from, buffer.get(), kBuffer);
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        for (ssize_t done = 0; done < count;) {
            const ssize_t written = ::write(to, buffer.get() + done, static_cast<std::size_t>(count - done));
            if (written < 0 && errno != EINTR) return false;
            done += std::max<ssize_t>(written, 0);
        }
    }
}

/// Makes a second tree of one: of copies or of hard links.
class TreeMaker {
public:
    enum class Files { Copied, Linked };
    TreeMaker(Files files, std::string* failure) : files_(files), failure_(failure) {}

    bool make(const std::string& from, const std::string& to) {
        struct stat status {};
        if (::lstat(from.c_str(), &status) != 0) return fail(failure_, from);
        if (S_ISDIR(status.st_mode) && liesWithin(to, status)) return fail(failure_, to, EINVAL);
        const FileSizeSignal sizeLimit;
        if (makeItem(from, to) && finishFolders()) return true;
        const int reason = errno;
        if (made_) removeItem(to);
        errno = reason;
        return false;
    }

private:
    bool makeItem(const std::string& from, const std::string& to) {
        struct stat status {};
        if (::lstat(from.c_str(), &status) != 0) return fail(failure_, from);
        if (S_ISDIR(status.st_mode)) return makeFolderOf(from, to, status);
        if (files_ == Files::Linked) {
            if (::linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0) != 0) return fail(failure_, to);
            made_ = true;
            return true;
        }
        if (S_ISREG(status.st_mode)) return copyFile(from, to);
        if (S_ISLNK(status.st_mode)) return copyLink(from, to, status);
        if (!S_ISFIFO(status.st_mode)) return fail(failure_, from, ENOTSUP);  // a socket, a device
        if (::mkfifo(to.c_str(), 0600) != 0) return fail(failure_, to);
        made_ = true;
        return ::chmod(to.c_str(), status.st_mode & 07777) == 0 || fail(failure_, to);
    }

    bool makeFolderOf(const std::string& from, const std::string& to, const struct stat& status) {
        if (::mkdir(to.c_str(), 0700) != 0) return fail(failure_, to);
        made_ = true;
        folders_.push_back({to, status});
        const auto names = namesInFolder(from, failure_);
        if (!names) return false;
        return std::all_of(names->begin(), names->end(),
                           [&](const std::string& name) { return makeItem(from + "/" + name, to + "/" + name); });
    }

    bool copyFile(const std::string& from, const std::string& to) {
        const Descriptor source(::open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
        struct stat status {};
        if (!source || ::fstat(source.value(), &status) != 0) return fail(failure_, from);
        Descriptor target(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (!target) return fail(failure_, to);
        made_ = true;
        const bool copied = copyBytes(source.value(), target.value()) && keepOwner(target.value(), status) &&
                            ::futimens(target.value(), timesOf(status).data()) == 0 && target.close();
        return copied || fail(failure_, to);
    }

    bool copyLink(const std::string& from, const std::string& to, const struct stat& status) {
        std::error_code error;
        const std::filesystem::path target = std::filesystem::read_symlink(from, error);
        if (error) return fail(failure_, from, error.value());
        if (::symlink(target.c_str(), to.c_str()) != 0) return fail(failure_, to);
        made_ = true;
        ::utimensat(AT_FDCWD, to.c_str(), timesOf(status).data(), AT_SYMLINK_NOFOLLOW);
        return true;
    }

    /// Last, and the inner ones first: filling a folder changes its time, and needs the right to write.
    bool finishFolders() {
        for (auto made = folders_.rbegin(); made != folders_.rend(); ++made) {
            const Descriptor folder(::open(made->path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
            if (!folder || !keepOwner(folder.value(), made->status) ||
                ::futimens(folder.value(), timesOf(made->status).data()) != 0) {
                return fail(failure_, made->path);
            }
        }
        return true;
    }

    struct MadeFolder {
        std::string path;
        struct stat status;
    };
    Files files_;
    std::string* failure_;
    bool made_ = false;  // the first of what is made; all else lies within it
    std::vector<MadeFolder> folders_;
};

/// Renames unless there is something at the new path.
bool renameToFree(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // A file system without that call, or a folder that would come to lie within itself: the plain call knows.
    struct stat status {};
    if (::lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return ::rename(from.c_str(), to.c_str()) == 0;
}

bool isDots(const std::string& path) {
    const std::string name = path.substr(path.rfind('/') + 1);
    return name == "." || name == "..";
}

}  // namespace

bool copyItem(const std::string& from, const std::string& to, std::string* failure) {
    return TreeMaker(TreeMaker::Files::Copied, failure).make(withoutSlashes(from), withoutSlashes(to));
}

bool linkItem(const std::string& from, const std::string& to, std::string* failure) {
    return TreeMaker(TreeMaker::Files::Linked, failure).make(withoutSlashes(from), withoutSlashes(to));
}

bool moveItem(const std::string& from, const std::string& to, std::string* failure) {
    const std::string source = withoutSlashes(from), target = withoutSlashes(to);
    if (renameToFree(source, target)) return true;
    if (errno != EXDEV) return fail(failure, errno == ENOENT ? source : target);
    // Should the old one not go altogether, the new one stays: it may be the only whole one.
    return copyItem(source, target, failure) && removeItem(source, failure);
}

bool removeItem(const std::string& path, std::string* failure) {
    const std::string target = withoutSlashes(path);
    struct stat status {};
    if (::lstat(target.c_str(), &status) != 0) return fail(failure, path);
    if (target == "/" || isDots(target)) return fail(failure, path, EINVAL);
    const bool removed = S_ISDIR(status.st_mode) ? removeTree(target) : ::unlink(target.c_str()) == 0;
    return removed || fail(failure, path);
}

bool makeFolder(const std::string& path, std::string* failure) {
    return ::mkdir(path.c_str(), 0777) == 0 || fail(failure, path);
}

bool makeFolders(const std::string& path, std::string* failure) {
    std::error_code error;
    std::filesystem::create_directories(withoutSlashes(path), error);
    return !error || fail(failure, path, error.value());
}

std::optional<std::vector<std::string>> namesInFolder(const std::string& path, std::string* failure) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir(path.c_str()), ::closedir);
    if (!folder) {
        fail(failure, path);
        return std::nullopt;
    }
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = ::readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    if (errno != 0) {
        fail(failure, path);
        return std::nullopt;
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace velt
