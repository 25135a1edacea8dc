/// @file
/// Finds out whether anybody but the user and root could replace the driver before it is loaded.
///
/// The library loads `libkvsignpaddrv.so` from the working directory, no matter who may write there. Programs that sign
/// ask here first.
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
/// Others are all but the effective user and root. A group counts as others unless it is root's or the user's private
/// one (of the same name, without another member). An access list that lets somebody write counts as others. In a
/// folder with the sticky bit, such as /tmp, entries of the user or root are safe; but not in the driver's own folder,
/// from which a driver may load further libraries. Owners that a user namespace does not map count as root.
///
/// @param file absolute, or from the working directory; bytes as the file system has them
/// @return the first weakness, from the root folder on; nothing when there is none. A file that does not exist or
/// cannot be reached is not judged, because it cannot be loaded either; the folders on the way to it are. Any thread
/// may call it. Throws nothing but std::bad_alloc.
std::optional<Weakness> weaknessOf(const std::string &file);

/// The same for `libkvsignpaddrv.so` in a directory.
std::optional<Weakness> weaknessIn(const std::string &directory);

} // namespace driverfile

#endif
