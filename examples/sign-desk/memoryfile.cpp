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

QByteArray MemoryFile::content()
{
    return m_file.isOpen() && m_file.seek(0) ? m_file.readAll() : QByteArray();
}

} // namespace signdesk
