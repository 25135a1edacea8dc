#include "privatefile.h"

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
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
}

} // namespace

PrivateFile::PrivateFile(const char *path)
    : m_path(path)
{
    if (!isOursOrFree(m_path))
        return;
    QByteArray ownPath = m_path + ".XXXXXX";
    const int descriptor = ::mkostemp(ownPath.data(), O_CLOEXEC); // mode 0600
    if (descriptor < 0)
        return;
    m_ownPath = ownPath;
    if (m_file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        m_buffer.open(QIODevice::WriteOnly);
    else
        ::close(descriptor);
}

PrivateFile::~PrivateFile()
{
    m_file.close();
    if (!m_ownPath.isEmpty())
        ::unlink(m_ownPath.constData());
}

QByteArray PrivateFile::publish()
{
    const QByteArray bytes = m_buffer.data();
    if (!m_file.isOpen() || m_file.write(bytes) != bytes.size() || !isOursOrFree(m_path)
        || ::rename(m_ownPath.constData(), m_path.constData()) != 0)
        return {};
    m_ownPath.clear();
    m_file.close();
    return bytes;
}
