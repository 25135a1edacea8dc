#include "statefolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace signdesk {

namespace {

constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;
constexpr off_t kMostBytes = off_t{1} << 30; ///< of a file that is read

QString stateHome()
{
    const QString told = qEnvironmentVariable("XDG_STATE_HOME");
    // A relative path there has to be ignored.
    return QDir::isAbsolutePath(told) ? told : QDir::homePath() + QLatin1String("/.local/state");
}

OpenedFile ownFolder(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    const QByteArray name = QFile::encodeName(path);
    ::mkdir(name.constData(), kFolderMode);
    OpenedFile folder(::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!folder.isOpen() || ::fstat(folder.number(), &status) != 0 || status.st_uid != ::geteuid())
        return OpenedFile();
    const bool isPrivate = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return isPrivate || ::fchmod(folder.number(), kFolderMode) == 0 ? std::move(folder) : OpenedFile();
}

bool isOurs(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid()
        && status.st_nlink == 1 && status.st_size <= kMostBytes;
}

bool writeAll(int file, const QByteArray &content)
{
    int done = 0;
    while (done < content.size()) {
        const ssize_t size = ::write(file, content.constData() + done, static_cast<size_t>(content.size() - done));
        if (size <= 0)
            return false;
        done += static_cast<int>(size);
    }
    return ::fsync(file) == 0;
}

} // namespace

OpenedFile::~OpenedFile()
{
    if (isOpen())
        ::close(m_number);
}

OpenedFile &OpenedFile::operator=(OpenedFile &&other) noexcept
{
    std::swap(m_number, other.m_number);
    return *this;
}

StateFolder::StateFolder()
    : m_path(stateHome() + QLatin1String("/kv-sign-desk"))
    , m_folder(ownFolder(m_path))
{
}

OpenedFile StateFolder::open(const QByteArray &name, int flags) const
{
    // O_NONBLOCK: a pipe must not make the desk wait for its other end.
    return OpenedFile(::openat(
        m_folder.number(), name.constData(), flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kFileMode));
}

bool StateFolder::write(const QByteArray &name, const QByteArray &content) const
{
    const QByteArray beside = name + ".new";
    remove(beside); // of a desk that was killed while it wrote
    bool isWritten = false;
    {
        const OpenedFile file = open(beside, O_WRONLY | O_CREAT | O_EXCL);
        isWritten = file.isOpen() && writeAll(file.number(), content);
    }
    if (isWritten && rename(beside, name))
        return true;
    remove(beside);
    return false;
}

std::optional<QByteArray> StateFolder::read(const QByteArray &name) const
{
    const OpenedFile opened = open(name, O_RDONLY);
    if (!opened.isOpen() || !isOurs(opened.number()))
        return std::nullopt;
    QFile file;
    return file.open(opened.number(), QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

bool StateFolder::has(const QByteArray &name) const
{
    struct stat status = {};
    return ::fstatat(m_folder.number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

void StateFolder::remove(const QByteArray &name) const
{
    if (::unlinkat(m_folder.number(), name.constData(), 0) == 0)
        ::fsync(m_folder.number());
}

bool StateFolder::rename(const QByteArray &from, const QByteArray &to) const
{
    return ::renameat(m_folder.number(), from.constData(), m_folder.number(), to.constData()) == 0
        && ::fsync(m_folder.number()) == 0;
}

OpenedFile StateFolder::lock(const QByteArray &name) const
{
    OpenedFile file = open(name, O_RDWR | O_CREAT);
    const bool isLocked = file.isOpen() && isOurs(file.number()) && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
    return isLocked ? std::move(file) : OpenedFile();
}

} // namespace signdesk
