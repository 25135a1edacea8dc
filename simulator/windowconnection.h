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

    /// What comes later counts as the end.
    void setDeadline(std::optional<Clock::time_point> deadline) { m_deadline = deadline; }

private:
    int_type underflow() override;
    bool waitForBytes() const;

    int m_descriptor;
    std::optional<Clock::time_point> m_deadline; ///< none: it may take for ever
    std::array<char, 4096> m_bytes{};
};

class WindowConnection
{
public:
    using Clock = std::chrono::steady_clock;

    /// Connects, sends the first line and reads the window's first state. Throws std::runtime_error, also when all that
    /// takes longer than a window needs.
    explicit WindowConnection(const std::string &firstLine);

    const WindowReader &window() const { return *m_reader; }

    /// When the window's time was 0.
    Clock::time_point begin() const { return m_begin; }

    /// False at the end, also when another thread called close(). Throws std::runtime_error for what is malformed.
    bool next(std::vector<Event> &events) { return m_reader->next(events); }

    /// In a forked child: gives up its share of the connection, so that the window notices when the parent ends.
    static void leaveToParent();

    /// False when the window does not take it, without waiting.
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
