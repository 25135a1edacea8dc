/// @file
/// The secret by which programs that are no browser show that they are of this user.
#ifndef TOKENFILE_H
#define TOKENFILE_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace bridge {

/// $XDG_RUNTIME_DIR/kvsignpad/bridge-PORT.token, or likewise in the private folder that Qt takes for it.
QString tokenPath(quint16 port);

/// Makes 128 random bits in lower-case hexadecimal and writes them to a new file of mode 0600, in the place of an
/// earlier one.
/// @return nothing when the folder is not this user's alone, or the file cannot be written
std::optional<QByteArray> newToken(const QString &path);

} // namespace bridge

#endif
