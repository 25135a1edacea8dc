/// @file
/// Files with fixed names in a directory that other users share: whose they are.
#ifndef OWNFILE_H
#define OWNFILE_H

#include <sys/stat.h>

namespace ownfile {

/// A regular file of the user as whom the process runs.
bool isOurs(const struct stat &status);

/// Opens a file to append to it, made for its owner alone where there is none. Neither follows a link nor takes what is
/// not a regular file of our own with this one name: a negative descriptor then, at once.
int openToAppend(const char *path);

} // namespace ownfile

#endif
