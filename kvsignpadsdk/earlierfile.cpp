#include "earlierfile.h"

#include <cerrno>
#include <cstring>
#include <sys/xattr.h>
#include <unistd.h>

namespace earlierfile {

namespace {

// Whether the file has access lists or other attributes that a new file would lack. Those that begin with "security."
// do not count, because the kernel gives them to new files by its own rules.
bool hasRightsBeyondItsMode(int file)
{
    char names[4096];
    const ssize_t size = ::flistxattr(file, names, sizeof names);
    if (size < 0)
        return errno != ENOTSUP;
    for (const char *name = names; name < names + size; name += std::strlen(name) + 1) {
        if (std::strncmp(name, "security.", 9) != 0)
            return true;
    }
    return false;
}

} // namespace

bool mayBeReplaced(int file, struct stat &status)
{
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid()
        && status.st_nlink == 1 && !hasRightsBeyondItsMode(file);
}

// The group first: chown() clears the set-user-ID and set-group-ID bits.
bool takeOver(int file, const struct stat &earlier)
{
    struct stat fresh
    {
    };
    if (::fstat(file, &fresh) != 0)
        return false;
    if (fresh.st_gid != earlier.st_gid && ::fchown(file, static_cast<uid_t>(-1), earlier.st_gid) != 0)
        return false;
    ::fremovexattr(file, "system.posix_acl_access"); // inherited from the folder's default list
    return ::fchmod(file, earlier.st_mode & 07777) == 0;
}

} // namespace earlierfile
