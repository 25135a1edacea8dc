/// @file
/// Where a virtual pad's window and the driver meet.
#ifndef SOCKETPATH_H
#define SOCKETPATH_H

#include <string>

namespace kvsim {

/// The socket's path, in a directory that only this user can enter: the user's runtime directory, or one of our own in
/// /tmp, which is made if need be. Throws std::runtime_error when neither can be trusted.
std::string virtualPadSocket();

} // namespace kvsim

#endif
