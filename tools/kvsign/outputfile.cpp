#include "outputfile.h"

#include "earlierfile.h"
#include "failure.h"
#include "signalpause.h"
#include "terminal.h"
#include "unwritable.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t kCopiedAtOnce = 1 << 16;
constexpr int kMostLinks = 40;

/// Follows symbolic links, even to a missing file. Absolute, because the working directory changes later.
QString endOfLinks(const QString &path)
{
    QFileInfo place(QFileInfo(path).absoluteFilePath());
    for (int links = 0; place.isSymLink() && links < kMostLinks; ++links)
        place = QFileInfo(place.symLinkTarget());
    return place.absoluteFilePath();
}

/// An unused name in the folder of a file.
QByteArray nameBeside(const QByteArray &file)
{
    const QByteArray folder = file.left(file.lastIndexOf('/') + 1);
    return folder + ".kvsign-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
}

bool mayBeReplaced(const QByteArray &path)
{
    const plainio::Descriptor file(open(path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat status = {};
    return file.isOpen() && earlierfile::mayBeReplaced(file.number(), status);
}

QByteArray linkTo(int descriptor)
{
    return "/proc/self/fd/" + QByteArray::number(descriptor);
}

} // namespace

OutputFile::OutputFile(const QString &path)
    : m_name(path == "-" ? QString("standard output") : path)
    , m_path(path == "-" ? path : QFileInfo(path).absoluteFilePath())
{
    m_device.setObjectName(m_name);
    const QFileInfo there(path);
    if (path != "-" && (!there.exists() || there.isFile() || there.isDir()))
        stage(endOfLinks(path));
    else
        m_device.setFile(plainio::unnamedFile());
}

OutputFile::~OutputFile() = default;

/// Creates the file that will replace the target, or be copied into it.
void OutputFile::stage(const QString &path)
{
    m_target = QFile::encodeName(path);
    struct stat earlier = {};
    const bool replaces = stat(m_target.constData(), &earlier) == 0;
    if (replaces && S_ISDIR(earlier.st_mode)) {
        errno = EISDIR;
        fail();
    }
    if (replaces && access(m_target.constData(), W_OK) != 0)
        fail();
    if (stageBeside(path, replaces ? &earlier : nullptr))
        return;
    if (!replaces)
        fail();
    m_staged.reset();
    m_kept = std::make_unique<KeptPlace>(m_target, m_name);
    m_device.setFile(plainio::unnamedFile());
}

/// Returns false when the folder accepts no new file, or none with the earlier file's owner and mode.
bool OutputFile::stageBeside(const QString &path, const struct stat *earlier)
{
    if (earlier != nullptr && !mayBeReplaced(m_target))
        return false;
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    plainio::Descriptor file;
    if (access("/proc/self/fd", X_OK) == 0)
        file = plainio::Descriptor(open(folder.constData(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666));
    if (!file.isOpen()) { // some file systems have no files without a name
        m_staged = std::make_unique<Leftover>(Leftover::Kind::File, nameBeside(m_target));
        file = plainio::Descriptor(open(m_staged->path().constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    }
    if (!file.isOpen() || (earlier != nullptr && !earlierfile::takeOver(file.number(), *earlier)))
        return false;
    m_device.setFile(std::move(file));
    return true;
}

void OutputFile::finish()
{
    if (isRegular() ? !m_device.sync() : !m_device.flush())
        throw unwritable(m_device);
}

void OutputFile::commit(const std::vector<OutputFile *> &files, const std::function<void()> &tell)
{
    for (OutputFile *file : files)
        file->finish();
    try {
        for (OutputFile *file : files) {
            if (file->isRegular())
                file->place();
        }
        for (OutputFile *file : files) {
            if (!file->isRegular())
                file->passOn();
        }
        tell();
        flushOutput();
    } catch (...) {
        for (OutputFile *file : files) {
            file->m_kept.reset();
            file->m_earlier.reset();
            file->m_placed.reset();
        }
        throw;
    }
    const SignalPause pause;
    for (OutputFile *file : files)
        file->settle();
}

void OutputFile::place()
{
    if (m_kept != nullptr) {
        m_kept->write(m_device.descriptor());
        return;
    }
    struct stat there = {};
    if (lstat(m_target.constData(), &there) == 0) {
        replace();
        return;
    }
    m_placed = std::make_unique<Leftover>(Leftover::Kind::File, m_target);
    const QByteArray from = m_staged != nullptr ? m_staged->path() : linkTo(m_device.descriptor());
    if (linkat(AT_FDCWD, from.constData(), AT_FDCWD, m_target.constData(), AT_SYMLINK_FOLLOW) == 0) {
        m_staged.reset();
        return;
    }
    m_placed->release();
    if (errno == EEXIST || m_staged != nullptr) // another process was faster, or the file system has no hard links
        replace();
    else
        fail();
}

/// The earlier file is kept under another name until everything is done.
void OutputFile::replace()
{
    nameStaged();
    m_earlier = std::make_unique<Leftover>(Leftover::Kind::Earlier, nameBeside(m_target), m_target);
    const char *const target = m_target.constData(), *const aside = m_earlier->path().constData();
    struct stat there = {};
    const bool replaces = lstat(target, &there) == 0;
    if (replaces && S_ISDIR(there.st_mode)) {
        errno = EISDIR;
        fail();
    }
    if (replaces && link(target, aside) != 0 && rename(target, aside) != 0)
        fail();
    if (!replaces)
        m_placed = std::make_unique<Leftover>(Leftover::Kind::File, m_target);
    if (rename(m_staged->path().constData(), target) != 0)
        fail();
    m_staged->release();
}

void OutputFile::nameStaged()
{
    if (m_staged != nullptr)
        return;
    m_staged = std::make_unique<Leftover>(Leftover::Kind::File, nameBeside(m_target));
    const QByteArray from = linkTo(m_device.descriptor());
    if (linkat(AT_FDCWD, from.constData(), AT_FDCWD, m_staged->path().constData(), AT_SYMLINK_FOLLOW) != 0)
        fail();
}

/// Pipes and devices get the content as a stream.
void OutputFile::passOn()
{
    const bool isStandard = m_path == "-";
    if (isStandard)
        flushOutput();
    plainio::Descriptor target;
    if (!isStandard)
        target = plainio::openForWriting(m_path);
    std::vector<char> piece(kCopiedAtOnce);
    for (qint64 place = 0; place < m_device.count();) {
        const ssize_t size = pread(m_device.descriptor(), piece.data(), piece.size(), place);
        if (size <= 0)
            fail();
        plainio::writeAll(isStandard ? STDOUT_FILENO : target.number(), piece.data(), size, m_name);
        place += size;
    }
}

void OutputFile::settle()
{
    if (m_earlier != nullptr) {
        m_earlier->release();
        unlink(m_earlier->path().constData());
    }
    if (m_placed != nullptr)
        m_placed->release();
    if (m_kept != nullptr)
        m_kept->release();
}

void OutputFile::fail() const
{
    plainio::throwErrno(m_name);
}
