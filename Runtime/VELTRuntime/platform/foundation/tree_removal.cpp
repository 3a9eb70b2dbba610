#include "VELTRuntime/platform/foundation/tree_removal.h"

#include "VELTRuntime/platform/foundation/descriptor.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace velt {

namespace {

/// A folder deeper than this is moved up into the top one and removed from there: each level takes a descriptor, and a
/// path to it would be too long for the system.
constexpr unsigned kMostLevels = 64;

class TreeRemoval {
public:
    bool remove(const std::string& path) {
        const Descriptor folder(openFolder(AT_FDCWD, path.c_str()));
        if (!folder) return false;
        top_ = folder.value();
        do {
            moved_ = false;
            if (!empty(top_, 1)) return false;
        } while (moved_);
        return ::rmdir(path.c_str()) == 0;
    }

private:
    static int openFolder(int parent, const char* name) {
        return ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }

    /// Names are read before any goes: what a reading under way still gives after a removal is not defined.
    static bool namesIn(int folder, std::vector<std::string>& names) {
        const int again = openFolder(folder, ".");
        if (again < 0) return false;
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(::fdopendir(again), ::closedir);
        if (!entries) {
            ::close(again);
            return false;
        }
        errno = 0;
        while (const dirent* entry = ::readdir(entries.get())) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..") names.emplace_back(name);
        }
        return errno == 0;
    }

    bool empty(int folder, unsigned level) {
        std::vector<std::string> names;
        if (!namesIn(folder, names)) return false;
        for (const std::string& name : names) {
            if (!removeEntry(folder, name.c_str(), level)) return false;
        }
        return true;
    }

    bool removeEntry(int folder, const char* name, unsigned level) {
        struct stat status {};
        if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0) return errno == ENOENT;
        if (!S_ISDIR(status.st_mode)) return ::unlinkat(folder, name, 0) == 0 || errno == ENOENT;
        if (::unlinkat(folder, name, AT_REMOVEDIR) == 0) return true;
        if (errno != ENOTEMPTY && errno != EEXIST) return false;
        if (level >= kMostLevels) return moveUp(folder, name);
        {
            const Descriptor inner(openFolder(folder, name));
            if (!inner || !empty(inner.value(), level + 1)) return false;
        }
        return ::unlinkat(folder, name, AT_REMOVEDIR) == 0;
    }

    bool moveUp(int folder, const char* name) {
        for (;;) {
            const std::string fresh = ".velt-removed-" + std::to_string(++number_);
            if (::renameat2(folder, name, top_, fresh.c_str(), RENAME_NOREPLACE) == 0) {
                moved_ = true;
                return true;
            }
            if (errno != EEXIST) return false;
        }
    }

    int top_ = -1;
    bool moved_ = false;
    unsigned number_ = 0;
};

}  // namespace

bool removeTree(const std::string& path) { return TreeRemoval().remove(path); }

}  // namespace velt
