// The owner and the permissions that a copy or a replacement of a file takes over.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

namespace velt {

/// Gives an open file the owner, the group and the permissions of another one, as far as the system allows: only the
/// super-user can give files away, and what runs as its owner or group may not run as another. False, with the reason
/// in `errno`, when the permissions could not be set.
inline bool keepOwner(int file, const struct stat& old) {
    struct stat fresh {};
    if (::fstat(file, &fresh) != 0) return false;
    const bool isGroupKept = fresh.st_gid == old.st_gid || ::fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0;
    const bool isOwnerKept = fresh.st_uid == old.st_uid || ::fchown(file, old.st_uid, static_cast<gid_t>(-1)) == 0;
    return ::fchmod(file, old.st_mode & (isOwnerKept && isGroupKept ? 07777 : 0777)) == 0;
}

}  // namespace velt
