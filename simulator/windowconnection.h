/// @file
/// One connection of the driver to a virtual pad's window.
#ifndef WINDOWCONNECTION_H
#define WINDOWCONNECTION_H

#include "windowreader.h"

#include <array>
#include <chrono>
#include <istream>
#include <memory>
#include <optional>
#include <streambuf>
#include <string>
#include <vector>

namespace kvsim {

/// Reads a socket to its end. It owns the descriptor.
class SocketBuffer : public std::streambuf
{
public:
    using Clock = std::chrono::steady_clock;

    explicit SocketBuffer(int descriptor);
    ~SocketBuffer() override;
    SocketBuffer(const SocketBuffer &) = delete;
    SocketBuffer &operator=(const SocketBuffer &) = delete;

    int descriptor() const { return m_descriptor; }

    /// Reading past this moment gives the end of the stream.
    void setDeadline(std::optional<Clock::time_point> deadline) { m_deadline = deadline; }

private:
    int_type underflow() override;
    bool waitForBytes() const;

    int m_descriptor;
    std::optional<Clock::time_point> m_deadline; ///< none: waits without a limit
    std::array<char, 4096> m_bytes{};
};

class WindowConnection
{
public:
    using Clock = std::chrono::steady_clock;

    /// Connects, sends the first line and reads the window's first state. Throws std::runtime_error when one of these
    /// fails or the window takes too long.
    explicit WindowConnection(const std::string &firstLine);

    const WindowReader &window() const { return *m_reader; }

    /// The moment from which the window counts its times.
    Clock::time_point begin() const { return m_begin; }

    /// Returns false at the end, also when another thread called close(). Throws std::runtime_error for malformed
    /// lines.
    bool next(std::vector<Event> &events) { return m_reader->next(events); }

    /// For a forked child: closes its copy of the socket. While that is open the window does not notice that the parent
    /// has ended.
    static void leaveToParent();

    /// Does not wait. Returns false when the socket's buffer is full or the window is gone.
    bool send(const std::string &line);
    void close();

private:
    SocketBuffer m_buffer;
    std::istream m_stream{&m_buffer};
    std::unique_ptr<WindowReader> m_reader;
    Clock::time_point m_begin{};
};

} // namespace kvsim

#endif
