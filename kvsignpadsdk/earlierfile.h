/// @file
/// What an earlier file is beyond its content, and whether a new one under its name can be the same.
#ifndef EARLIERFILE_H
#define EARLIERFILE_H

#include <sys/stat.h>

namespace earlierfile {

/// Whether a new file can take over what this one is: a regular file of the user as whom the process runs, with one
/// name and no access rights beyond its mode.
/// @param file open, in whatever mode
/// @param status what the file is at the moment
bool mayBeReplaced(int file, struct stat &status);

/// Gives a new file the group and the mode of the earlier one; false when it cannot have them.
bool takeOver(int file, const struct stat &earlier);

} // namespace earlierfile

#endif
