/// @file
/// Copies a file's content over another file's.
#ifndef COPIEDBYTES_H
#define COPIEDBYTES_H

namespace copiedbytes {

/// Overwrites a file with all bytes of another one and cuts off the rest. Returns false, with errno set, when they
/// could not be written. Safe in signal handlers: it makes system calls only. The file positions do not matter and
/// stay.
bool copy(int from, int to);

} // namespace copiedbytes

#endif
