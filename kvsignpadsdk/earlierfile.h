/// @file
/// Whether a new file can replace an existing one without anybody noticing: same owner, group, mode and names.
#ifndef EARLIERFILE_H
#define EARLIERFILE_H

#include <sys/stat.h>

namespace earlierfile {

/// True for a regular file that belongs to the process's effective user, has a single name, and no access lists or
/// attributes beyond its mode.
/// @param file an open descriptor of it, for reading or writing
/// @param status filled with the file's status
bool mayBeReplaced(int file, struct stat &status);

/// Gives a new file the group and the mode of the earlier one. Returns false when the system refuses.
bool takeOver(int file, const struct stat &earlier);

} // namespace earlierfile

#endif
