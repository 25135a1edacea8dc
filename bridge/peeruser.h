/// @file
/// Whose process is at the other end of a connection on loopback.
#ifndef PEERUSER_H
#define PEERUSER_H

#include <QByteArray>
#include <QHostAddress>

#include <optional>
#include <sys/types.h>

namespace bridge {

/// The owner of a TCP connection that goes from `from` to `to`, in a table as the kernel shows it in /proc/net/tcp and
/// tcp6. Pure.
std::optional<uid_t> ownerIn(const QByteArray &table, const QHostAddress &from, quint16 fromPort, quint16 toPort);

/// The same from the kernel's tables of now. Nothing when the connection is not there any more.
std::optional<uid_t> ownerOf(const QHostAddress &from, quint16 fromPort, quint16 toPort);

} // namespace bridge

#endif
