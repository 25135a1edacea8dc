/// @file
/// Stands in for a virtual pad's window and sends the driver exactly the bytes that a test wants.
#ifndef FAKEWINDOW_H
#define FAKEWINDOW_H

#include "socketpath.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

/// Accepts one program. After the program's first line, the test's function sends the greeting on a thread of its own.
class FakeWindow
{
public:
    explicit FakeWindow(std::function<void(FakeWindow &)> greet)
        : m_listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = kvsim::virtualPadSocket();
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        unlink(path.c_str());
        EXPECT_EQ(bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_listener, 5), 0);
        m_thread = std::thread([this, greet = std::move(greet)] {
            m_program = accept(m_listener, nullptr, nullptr);
            char byte = 0;
            while (read(m_program, &byte, 1) == 1 && byte != '\n')
                continue;
            greet(*this);
        });
    }
    ~FakeWindow()
    {
        shutdown(m_listener, SHUT_RDWR);
        if (m_thread.joinable())
            m_thread.join();
        close();
        ::close(m_listener);
    }
    FakeWindow(const FakeWindow &) = delete;
    FakeWindow &operator=(const FakeWindow &) = delete;

    /// Returns false if the program no longer listens.
    bool say(const std::string &text) const
    {
        return send(m_program, text.data(), text.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
    }

    /// Waits for the end of the greeting.
    void join() { m_thread.join(); }

    void close()
    {
        if (m_program >= 0)
            ::close(m_program);
        m_program = -1;
    }

private:
    int m_listener;
    int m_program = -1;
    std::thread m_thread;
};

#endif
