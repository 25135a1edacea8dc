#include "privatefile.h"

#include "ownfile.h"
#include "uncancelled.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isOursOrFree(const QByteArray &path)
{
    struct stat status;
    if (::lstat(path.constData(), &status) != 0)
        return true;
    return ownfile::isOurs(status);
}

} // namespace

// Not QFile: a QPainter or QSvgGenerator that writes through it would not learn of a short write.
qint64 PrivateFile::Device::writeData(const char *bytes, qint64 size)
{
    const Uncancelled whole; // destructors of painters call this, and a cancellation in a destructor ends the process
    for (qint64 done = 0; done < size && !failed;) {
        const ssize_t now = ::write(descriptor, bytes + done, static_cast<size_t>(size - done));
        if (now > 0) {
            done += now;
            written += static_cast<size_t>(now);
        } else {
            failed = now == 0 || errno != EINTR;
        }
    }
    return failed ? -1 : size;
}

PrivateFile::PrivateFile(const char *path)
    : m_path(path)
{
    if (!isOursOrFree(m_path))
        return;
    const Uncancelled begun; // no destructor runs for a cancelled constructor, so the file would stay
    QByteArray ownPath = m_path + ".XXXXXX";
    m_device.descriptor = ::mkostemp(ownPath.data(), O_CLOEXEC); // mode 0600
    if (m_device.descriptor < 0)
        return;
    m_ownPath = ownPath;
    m_device.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

PrivateFile::~PrivateFile()
{
    const Uncancelled closed;
    if (m_device.descriptor >= 0)
        ::close(m_device.descriptor);
    if (!m_ownPath.isEmpty())
        ::unlink(m_ownPath.constData());
}

bool PrivateFile::read(char *to) const
{
    for (size_t done = 0; done < size();) {
        const ssize_t now = ::pread(m_device.descriptor, to + done, size() - done, static_cast<off_t>(done));
        if (now > 0)
            done += static_cast<size_t>(now);
        else if (now == 0 || errno != EINTR)
            return false;
    }
    return true;
}

bool PrivateFile::publish()
{
    if (size() == 0 || !isOursOrFree(m_path) || ::rename(m_ownPath.constData(), m_path.constData()) != 0)
        return false;
    m_ownPath.clear();
    return true;
}
