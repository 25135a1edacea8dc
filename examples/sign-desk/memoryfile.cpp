#include "memoryfile.h"

#include <sys/mman.h>
#include <unistd.h>

namespace signdesk {

MemoryFile::MemoryFile()
{
    const int descriptor = ::memfd_create("sign-desk", MFD_CLOEXEC);
    if (descriptor >= 0 && !m_file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        ::close(descriptor);
}

QString MemoryFile::path() const
{
    return m_file.isOpen() ? QStringLiteral("/proc/self/fd/%1").arg(m_file.handle()) : QString();
}

bool MemoryFile::write(const QByteArray &content)
{
    qint64 done = 0;
    while (m_file.isOpen() && done < content.size()) {
        const ssize_t size =
            ::pwrite(m_file.handle(), content.constData() + done, static_cast<size_t>(content.size() - done), done);
        if (size <= 0)
            return false;
        done += size;
    }
    return m_file.isOpen() && ::ftruncate(m_file.handle(), done) == 0;
}

QByteArray MemoryFile::content()
{
    return m_file.isOpen() && m_file.seek(0) ? m_file.readAll() : QByteArray();
}

} // namespace signdesk
