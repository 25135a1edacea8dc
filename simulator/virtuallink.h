/// @file
/// The driver's end of a virtual pad: a window that plays the pad, on the other side of a local socket.
///
/// The window sends a recording that never ends: a header, its state, then events as they happen, and its state again
/// whenever that changes. A state (see windowreader.h) lists everything that holds from now on and ends with the answer
/// to Initial. It comes before anything else, so a program that opens a faulty pad meets the faults from its first
/// command on.
///
/// The driver begins with `Initial TYPE`. It then sends a line for each operation that succeeded, in the words of the
/// journal of calls, and `ShowFPImageOnDevice WIDTH HEIGHT HEX` for a picture. The window ends a connection that sends
/// a longer line than these.
#ifndef VIRTUALLINK_H
#define VIRTUALLINK_H

#include "session.h"

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace kvsim {

/// No window answers on the socket.
class NoVirtualPad : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class WindowConnection;

class VirtualLink
{
public:
    /// Connects to the window and waits for its answer to Initial. Throws NoVirtualPad.
    explicit VirtualLink(const ModelRow &pad);
    ~VirtualLink();
    VirtualLink(const VirtualLink &) = delete;
    VirtualLink &operator=(const VirtualLink &) = delete;

    /// The faults that the window asked for, including its answer to Initial.
    const std::vector<Event> &opening() const { return m_opening; }

    /// Passes what the window sends to the session from now on. Closing the window unplugs the pad. When one is opened
    /// again, it is told the last operations, and the pad is plugged in.
    void start(std::shared_ptr<Session> session, int maxPressure);
    void stop();

    /// Tells the window of an operation. The last line of each operation is kept for a window that is opened later.
    void tell(const std::string &line);

    static std::string pictureLine(const unsigned char *image, int width, int height);

private:
    using Clock = std::chrono::steady_clock;

    void run();
    void playConnection();
    bool reconnect();
    void setIn(std::vector<Event> faults);

    const ModelRow &m_pad;
    int m_maxPressure = 0;
    std::vector<Event> m_opening;
    std::shared_ptr<Session> m_session;

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_changed;
    std::shared_ptr<WindowConnection> m_connection; ///< null: the window is closed
    std::map<std::string, std::string> m_told; ///< last line by operation
    bool m_stopping = false;
    std::thread m_thread; ///< the last member, because it uses all others
};

} // namespace kvsim

#endif
