#include "checkeddevice.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kBuffered = 1 << 16;

} // namespace

qint64 CheckedDevice::writeData(const char *bytes, qint64 count)
{
    m_count += count;
    if (count > kBuffered) {
        flush();
        pass(bytes, count);
    } else {
        m_buffer.append(bytes, static_cast<int>(count));
        if (m_buffer.size() > kBuffered)
            flush();
    }
    return m_failed ? -1 : count;
}

bool CheckedDevice::flush()
{
    pass(m_buffer.constData(), m_buffer.size());
    m_buffer.resize(0);
    return !m_failed;
}

bool CheckedDevice::sync()
{
    if (!flush())
        return false;
    struct stat status = {};
    if (fsync(m_file.number()) != 0 || fstat(m_file.number(), &status) != 0)
        return fails();
    errno = ENOSPC;
    return status.st_size == m_count || fails();
}

bool CheckedDevice::fails()
{
    m_failed = true;
    setErrorString(QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

void CheckedDevice::pass(const char *bytes, qint64 count)
{
    while (count > 0 && !m_failed) {
        const ssize_t size = ::write(m_file.number(), bytes, static_cast<size_t>(count));
        if (size < 0 && errno != EINTR)
            fails();
        if (size > 0) {
            bytes += size;
            count -= size;
        }
    }
}
