/// @file
/// One connection of the driver to a virtual pad's window.
#ifndef WINDOWCONNECTION_H
#define WINDOWCONNECTION_H

#include "recording.h"

#include <array>
#include <chrono>
#include <istream>
#include <memory>
#include <streambuf>
#include <string>
#include <vector>

namespace kvsim {

/// Reads a socket to its end. It owns the descriptor.
class SocketBuffer : public std::streambuf
{
public:
    explicit SocketBuffer(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~SocketBuffer() override;
    SocketBuffer(const SocketBuffer &) = delete;
    SocketBuffer &operator=(const SocketBuffer &) = delete;

    int descriptor() const { return m_descriptor; }

private:
    int_type underflow() override;

    int m_descriptor;
    std::array<char, 4096> m_bytes{};
};

class WindowConnection
{
public:
    using Clock = std::chrono::steady_clock;

    /// Connects, sends the first line and reads up to the window's answer to Initial. Throws std::runtime_error.
    explicit WindowConnection(const std::string &firstLine);

    const std::string &model() const { return m_reader->model(); }
    const std::vector<Event> &opening() const { return m_opening; }

    /// The window's answer to Initial.
    int answer() const { return m_opening.back().value; }

    /// When the window's time was 0.
    Clock::time_point begin() const { return m_begin; }

    /// False at the end, also when another thread called close(). Throws std::runtime_error for a malformed line.
    bool next(Event &event) { return m_reader->next(event); }

    /// False when the window does not take it, without waiting.
    bool send(const std::string &line);
    void close();

private:
    void readOpening();

    SocketBuffer m_buffer;
    std::istream m_stream{&m_buffer};
    std::unique_ptr<RecordingReader> m_reader;
    std::vector<Event> m_opening;
    Clock::time_point m_begin{};
};

} // namespace kvsim

#endif
