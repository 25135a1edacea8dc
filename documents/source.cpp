#include "source.h"

#include "problem.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace documents {

namespace {

constexpr qint64 kPiece = 1 << 18;

Problem systemProblem(const QString &name)
{
    return {Problem::Kind::File, QString("%1: %2").arg(name, QString::fromLocal8Bit(std::strerror(errno)))};
}

int openedForReading(const QString &path)
{
    // Without O_NONBLOCK, opening a named pipe would wait. It is refused below.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        throw systemProblem(path);
    return descriptor;
}

int unnamedFile(const QString &name)
{
    const QString folder = QDir::tempPath();
    if (folder.isEmpty()) // it would be the root
        throw Problem{
            Problem::Kind::File, QString("TMPDIR=%1: there is no such folder").arg(qEnvironmentVariable("TMPDIR"))};
    QByteArray pattern = QFile::encodeName(folder) + "/kv-document-XXXXXX";
    const int descriptor = mkostemp(pattern.data(), O_CLOEXEC);
    if (descriptor < 0)
        throw systemProblem(name);
    unlink(pattern.constData());
    return descriptor;
}

} // namespace

Source::Source(const QString &name, int descriptor)
    : m_name(name)
    , m_descriptor(descriptor)
{
    try {
        rememberState();
    } catch (...) {
        close(descriptor);
        throw;
    }
}

void Source::rememberState()
{
    struct stat status = {};
    if (fstat(m_descriptor, &status) != 0)
        throw systemProblem(m_name);
    if (!S_ISREG(status.st_mode))
        throw Problem{Problem::Kind::File, QString("%1: is no regular file").arg(m_name)};
    m_size = status.st_size;
    m_modified = status.st_mtim;
}

Source::Source(const QString &path)
    : Source(path, openedForReading(path))
{
}

Source Source::temporary(const QString &name)
{
    return Source(name, unnamedFile(name));
}

Source Source::ofBytes(const QString &name, const QByteArray &bytes)
{
    const int descriptor = memfd_create("kv-document", MFD_CLOEXEC);
    if (descriptor < 0)
        throw systemProblem(name);
    Source source(name, descriptor);
    source.write(0, bytes.constData(), bytes.size());
    source.rememberState();
    return source;
}

Source::Source(Source &&other) noexcept
    : m_name(std::move(other.m_name))
    , m_descriptor(other.m_descriptor)
    , m_size(other.m_size)
    , m_modified(other.m_modified)
{
    other.m_descriptor = -1;
}

Source::~Source()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

qint64 Source::readSome(qint64 place, char *bytes, qint64 count) const
{
    qint64 done = 0;
    while (done < count) {
        const ssize_t size = pread(m_descriptor, bytes + done, static_cast<size_t>(count - done), place + done);
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0)
            throw systemProblem(m_name);
        if (size == 0)
            break;
        done += size;
    }
    return done;
}

QByteArray Source::read(qint64 place, qint64 count) const
{
    QByteArray bytes(static_cast<int>(count), Qt::Uninitialized);
    if (readSome(place, bytes.data(), count) != count)
        throw Problem{Problem::Kind::File, QString("%1: became shorter while it was read").arg(m_name)};
    return bytes;
}

void Source::forEach(qint64 begin, qint64 end, const std::function<void(const char *, qint64)> &take) const
{
    while (begin < end) {
        const QByteArray piece = read(begin, std::min(kPiece, end - begin));
        take(piece.constData(), piece.size());
        begin += piece.size();
    }
}

void Source::write(qint64 place, const char *bytes, qint64 count)
{
    for (qint64 done = 0; done < count;) {
        const ssize_t size = pwrite(m_descriptor, bytes + done, static_cast<size_t>(count - done), place + done);
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            throw systemProblem(m_name);
        done += size;
    }
    m_size = std::max(m_size, place + count);
}

void Source::needUnchanged() const
{
    struct stat now = {};
    const bool isSame = fstat(m_descriptor, &now) == 0 && now.st_size == m_size
        && now.st_mtim.tv_sec == m_modified.tv_sec && now.st_mtim.tv_nsec == m_modified.tv_nsec;
    if (!isSame)
        throw Problem{Problem::Kind::File, QString("%1: was changed while it was open; try again").arg(m_name)};
}

} // namespace documents
