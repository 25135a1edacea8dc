#include "tokenfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bridge {

namespace {

bool isPrivateFolder(const QByteArray &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid()
        && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

bool writeNew(const QByteArray &path, const QByteArray &text)
{
    unlink(path.constData());
    const int file = open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    const bool written = write(file, text.constData(), static_cast<std::size_t>(text.size())) == text.size();
    return close(file) == 0 && written;
}

} // namespace

QString tokenPath(quint16 port)
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
        + QStringLiteral("/kvsignpad/bridge-%1.token").arg(port);
}

std::optional<QByteArray> newToken(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    if (mkdir(folder.constData(), 0700) != 0 && errno != EEXIST)
        return std::nullopt;
    char bits[16];
    if (!isPrivateFolder(folder) || getrandom(bits, sizeof bits, 0) != sizeof bits)
        return std::nullopt;
    const QByteArray token = QByteArray(bits, sizeof bits).toHex();
    return writeNew(QFile::encodeName(path), token + '\n') ? std::optional(token) : std::nullopt;
}

} // namespace bridge
