#include "replacedfile.h"

#include "earlierfile.h"
#include "filepaths.h"
#include "uncancelled.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

namespace {

constexpr size_t kPiece = 1 << 16; // bytes written at a time

bool writeAll(int file, const char *data, size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(file, data, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

// Random, so that nobody can plant a file under this name beforehand.
QByteArray unpredictableName()
{
    unsigned char random[12];
    if (::getrandom(random, sizeof random, 0) != sizeof random)
        return {};
    return ".kv-" + QByteArray(reinterpret_cast<const char *>(random), sizeof random).toHex();
}

// With these errors writing in place would fail too, and lose the earlier file.
bool isFull(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EIO;
}

// With these the file could be written in place, but hardly safely: the earlier file would be gone if that failed.
bool isShortOfMeans(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOMEM;
}

} // namespace

ReplacedFile::ReplacedFile(const QString &path)
    : m_path(filepaths::inLocale(path))
{
    if (m_path.isEmpty())
        return;
    const Beside beside = [this] {
        const Uncancelled begun; // no destructor runs for a cancelled constructor, so the new file would stay
        return beginBeside();
    }();
    if (beside == Beside::Impossible)
        openInPlace();
    if (m_file >= 0)
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

ReplacedFile::~ReplacedFile()
{
    const Uncancelled closed;
    if (m_created)
        ::unlink(m_path.constData());
    closeAll();
}

void ReplacedFile::closeAll()
{
    if (!m_besideName.isEmpty())
        ::unlinkat(m_folder, m_besideName.constData(), 0);
    m_besideName.clear();
    for (int *descriptor : {&m_file, &m_folder}) {
        if (*descriptor >= 0)
            ::close(*descriptor);
        *descriptor = -1;
    }
}

ReplacedFile::Beside ReplacedFile::beginBeside()
{
    struct stat earlier
    {
    };
    const bool replaces = ::lstat(m_path.constData(), &earlier) == 0;
    if (replaces ? !S_ISREG(earlier.st_mode) : errno != ENOENT)
        return Beside::Impossible;
    if (replaces) {
        const int file = ::open(m_path.constData(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (file < 0)
            return Beside::Refused;
        const bool may = earlierfile::mayBeReplaced(file, earlier);
        ::close(file);
        if (!may)
            return Beside::Impossible;
    }
    return createBeside(replaces, earlier);
}

ReplacedFile::Beside ReplacedFile::createBeside(bool replaces, const struct stat &earlier)
{
    m_besideName = unpredictableName();
    const QByteArray folder = m_path.left(m_path.lastIndexOf('/') + 1);
    m_folder = ::open(folder.isEmpty() ? "." : folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (m_folder >= 0 && !m_besideName.isEmpty())
        m_file = ::openat(m_folder, m_besideName.constData(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
            replaces ? 0600 : 0666);
    if (m_file >= 0 && (!replaces || earlierfile::takeOver(m_file, earlier)))
        return Beside::Begun;
    const bool refused = m_file < 0 && (isFull(errno) || (replaces && isShortOfMeans(errno)));
    if (m_file < 0)
        m_besideName.clear();
    closeAll();
    return refused ? Beside::Refused : Beside::Impossible;
}

void ReplacedFile::openInPlace()
{
    {
        const Uncancelled created; // between open() and m_created a cancellation would leave the file behind
        m_file = ::open(m_path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        m_created = m_file >= 0;
    }
    if (!m_created) // may be cancelled: for a pipe, open() waits until somebody reads it
        m_file = ::open(m_path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
}

qint64 ReplacedFile::readData(char *, qint64)
{
    return -1;
}

qint64 ReplacedFile::writeData(const char *data, qint64 size)
{
    const Uncancelled written; // destructors of painters call this, and a cancellation in a destructor ends the process
    const auto bytes = static_cast<size_t>(size);
    if (m_besideName.isEmpty() || m_waiting.size() + bytes < kPiece) {
        m_waiting.insert(m_waiting.end(), data, data + size);
        return size;
    }
    m_failed = !flush() || !writeAll(m_file, data, bytes);
    return m_failed ? -1 : size;
}

bool ReplacedFile::flush()
{
    m_failed = m_failed || !writeAll(m_file, m_waiting.data(), m_waiting.size());
    m_waiting.clear();
    return !m_failed;
}

bool ReplacedFile::commit()
{
    const Uncancelled written; // a cancelled thread must not leave half a file behind
    if (m_file < 0 || m_failed)
        return false;
    setOpenMode(QIODevice::NotOpen);
    const bool beside = !m_besideName.isEmpty();
    const bool done = beside ? flush() && rename() : writeInPlace();
    if (done)
        m_created = false;
    return done;
}

bool ReplacedFile::rename()
{
    // Some file systems report a full disk only at close(). Close a duplicate: copyInPlace() still needs the
    // descriptor.
    const int copy = ::dup(m_file);
    if (copy >= 0 && ::close(copy) != 0)
        return false;
    const QByteArray name = m_path.mid(m_path.lastIndexOf('/') + 1);
    if (::renameat(m_folder, m_besideName.constData(), m_folder, name.constData()) != 0)
        return copyInPlace();
    m_besideName.clear();
    return true;
}

// For a file that cannot be replaced by rename(), such as one mounted by itself into a container.
bool ReplacedFile::copyInPlace()
{
    const off_t size = ::lseek(m_file, 0, SEEK_END);
    m_waiting.resize(static_cast<size_t>(std::max<off_t>(size, 0)));
    if (size < 0 || ::pread(m_file, m_waiting.data(), m_waiting.size(), 0) != size)
        return false;
    closeAll();
    openInPlace();
    return m_file >= 0 && writeInPlace();
}

bool ReplacedFile::writeInPlace()
{
    struct stat status
    {
    };
    const bool regular = ::fstat(m_file, &status) == 0 && S_ISREG(status.st_mode);
    if (regular && ::ftruncate(m_file, 0) != 0)
        return false;
    const bool written = flush();
    const int file = m_file;
    m_file = -1;
    return ::close(file) == 0 && written;
}
