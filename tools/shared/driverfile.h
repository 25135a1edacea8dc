/// @file
/// Who besides the own user and root could put another driver in the place of the one that is about to be loaded.
///
/// The library loads `libkvsignpaddrv.so` from the working directory, whoever may write there. Programs that sign ask
/// here first.
#ifndef DRIVERFILE_H
#define DRIVERFILE_H

#include <optional>
#include <string>

namespace driverfile {

inline constexpr char kName[] = "libkvsignpaddrv.so";

struct Weakness
{
    std::string path; ///< the file or the folder, absolute
    std::string what; ///< "can be written by everybody"
    std::string cure; ///< "chmod o-w /opt/pad"

    /// "/opt/pad can be written by everybody; cure: chmod o-w /opt/pad"
    std::string sentence() const { return path + ' ' + what + "; cure: " + cure; }
};

/// Whether others could change what is loaded from this file, now or between this answer and the loading: the file,
/// its folder, the folders above it, and the same for everything that a symbolic link on the way leads to.
///
/// Others are all but the effective user and root. The own user's private group (of the same name, without another
/// member), and root's, are no others; an access list that lets someone write is. In a folder with the sticky bit, such
/// as /tmp, what belongs to the own user or to root is safe; but not in the driver's own folder, from where a driver
/// may load libraries of its own. Owners that a user namespace does not map count as root.
///
/// @param file absolute, or from the working directory; bytes as the file system has them
/// @return the first weakness, from the root folder on; nothing when there is none. A file that does not exist or
/// cannot be reached is not judged, only the folders on the way to it: it cannot be loaded either.
/// Any thread may call it. Throws nothing but std::bad_alloc.
std::optional<Weakness> weaknessOf(const std::string &file);

/// The same for `libkvsignpaddrv.so` in a directory.
std::optional<Weakness> weaknessIn(const std::string &directory);

} // namespace driverfile

#endif
