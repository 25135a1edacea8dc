/// @file
/// The driver's end of a virtual pad: a window that plays the pad, on the other side of a local socket.
///
/// The window sends a recording that never ends: a header, its state, and then events as they happen; the state again
/// whenever it changes. windowreader.h says what a state is: what holds from now on, whole, with the answer to Initial
/// as its last line. So a program that opens a faulty pad meets its faults from the first command on. The driver sends
/// a line for each operation that succeeded, as the journal of calls has it, and `ShowFPImageOnDevice WIDTH HEIGHT HEX`
/// for a picture. It begins with `Initial TYPE`; the window ends connections whose lines are longer than that or a
/// picture.
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

    /// The faults that the window asked for, its answer to Initial included.
    const std::vector<Event> &opening() const { return m_opening; }

    /// From now on the session gets what the window sends. A window that is closed is an unplugged pad; when one is
    /// open again it is told how things stand, and the pad is back.
    void start(std::shared_ptr<Session> session, int maxPressure);
    void stop();

    /// Tells the window of an operation. A line replaces the last one of the same operation for a window to come.
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
    std::thread m_thread; ///< last: it uses all of the above
};

} // namespace kvsim

#endif
