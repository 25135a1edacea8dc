/// @file
/// Files with fixed names in a directory shared with other users: making sure that they are ours.
#ifndef OWNFILE_H
#define OWNFILE_H

#include <sys/stat.h>

namespace ownfile {

/// Whether it is a regular file of the process's effective user.
bool isOurs(const struct stat &status);

/// Opens a file for appending, and creates it readable by its owner only. Follows no link and does not block. Returns a
/// negative descriptor for anything but a regular file of our own with a single name.
int openToAppend(const char *path);

} // namespace ownfile

#endif
