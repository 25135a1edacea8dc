#include "windowconnection.h"

#include "socketpath.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace kvsim {

namespace {

constexpr int kPatienceSeconds = 2; // a window that hangs is as good as none

[[noreturn]] void fail(const std::string &what)
{
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

void setPatience(int descriptor, int seconds)
{
    timeval patience{};
    patience.tv_sec = seconds;
    setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
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
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        fail("socket");
    if (::connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0
        || !isOwnUser(descriptor)) {
        const int error = errno;
        ::close(descriptor);
        errno = error;
        fail(path);
    }
    return descriptor;
}

} // namespace

SocketBuffer::~SocketBuffer()
{
    ::close(m_descriptor);
}

SocketBuffer::int_type SocketBuffer::underflow()
{
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
    setPatience(m_buffer.descriptor(), kPatienceSeconds);
    if (!send(firstLine))
        fail("the virtual pad does not listen");
    readOpening();
    setPatience(m_buffer.descriptor(), 0);
}

void WindowConnection::readOpening()
{
    m_reader = std::make_unique<RecordingReader>(m_stream, "virtual pad");
    m_begin = Clock::now();
    const auto isAnswer = [](const Event &event) {
        return event.kind == Event::Kind::Answer && event.operation == "Initial";
    };
    do {
        if (!m_reader->next(m_opening.emplace_back()))
            throw std::runtime_error("the virtual pad does not answer");
    } while (!isAnswer(m_opening.back()));
}

bool WindowConnection::send(const std::string &line)
{
    const std::string bytes = line + "\n";
    const ssize_t count = ::send(m_buffer.descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return count == static_cast<ssize_t>(bytes.size());
}

void WindowConnection::close()
{
    shutdown(m_buffer.descriptor(), SHUT_RDWR);
}

} // namespace kvsim
