#include "windowconnection.h"

#include "socketpath.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace kvsim {

namespace {

/// The descriptor of the one connection, kept apart for leaveToParent(): after a fork another thread of the parent may
/// have left the connection object half changed.
std::atomic<int> s_lastDescriptor{-1};

constexpr std::chrono::seconds kPatience{2}; // a window that hangs is as good as none

[[noreturn]] void fail(const std::string &what)
{
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

bool isOwnUser(int descriptor)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

int connectTo(const std::string &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    // Non-blocking: the window may hang with a full backlog, and connect() would then wait for ever.
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0)
        fail("socket");
    if (::connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0
        || !isOwnUser(descriptor)) {
        const int error = errno;
        ::close(descriptor);
        errno = error;
        fail(path);
    }
    fcntl(descriptor, F_SETFL, 0); // reads wait
    return descriptor;
}

} // namespace

SocketBuffer::SocketBuffer(int descriptor)
    : m_descriptor(descriptor)
{
    s_lastDescriptor = descriptor;
}

SocketBuffer::~SocketBuffer()
{
    int own = m_descriptor;
    s_lastDescriptor.compare_exchange_strong(own, -1);
    ::close(m_descriptor);
}

/// Waits until there is something to read. False when the deadline passes first.
bool SocketBuffer::waitForBytes() const
{
    using std::chrono::milliseconds;
    while (m_deadline) {
        const auto left = std::chrono::ceil<milliseconds>(*m_deadline - Clock::now());
        pollfd wanted{m_descriptor, POLLIN, 0};
        const int found = poll(&wanted, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
        if (found == 0)
            return false;
        if (found > 0 || errno != EINTR)
            break;
    }
    return true;
}

SocketBuffer::int_type SocketBuffer::underflow()
{
    if (!waitForBytes())
        return traits_type::eof();
    ssize_t count = 0;
    do
        count = read(m_descriptor, m_bytes.data(), m_bytes.size());
    while (count < 0 && errno == EINTR);
    if (count <= 0)
        return traits_type::eof();
    setg(m_bytes.data(), m_bytes.data(), m_bytes.data() + count);
    return traits_type::to_int_type(m_bytes[0]);
}

WindowConnection::WindowConnection(const std::string &firstLine)
    : m_buffer(connectTo(virtualPadSocket()))
{
    m_buffer.setDeadline(Clock::now() + kPatience);
    if (!send(firstLine))
        fail("the virtual pad does not listen");
    m_reader = std::make_unique<WindowReader>(m_stream);
    m_begin = Clock::now();
    m_buffer.setDeadline({});
}

bool WindowConnection::send(const std::string &line)
{
    const std::string bytes = line + "\n";
    const ssize_t count = ::send(m_buffer.descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return count == static_cast<ssize_t>(bytes.size());
}

void WindowConnection::leaveToParent()
{
    if (const int descriptor = s_lastDescriptor.exchange(-1); descriptor >= 0)
        ::close(descriptor);
}

void WindowConnection::close()
{
    shutdown(m_buffer.descriptor(), SHUT_RDWR);
}

} // namespace kvsim
