/// @file
/// A file's content into another one's place.
#ifndef COPIEDBYTES_H
#define COPIEDBYTES_H

namespace copiedbytes {

/// Writes a file over with all of another one's bytes, and ends it there; false when it has not taken them, with errno
/// set. It only makes system calls, as a signal handler must. Where either file stands does not matter and stays.
bool copy(int from, int to);

} // namespace copiedbytes

#endif
