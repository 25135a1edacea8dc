/// @file
/// Whose turn it is: one client has the pad, the others stand in a queue.
#ifndef PADDESK_H
#define PADDESK_H

#include "padrunner.h"

#include <QThread>
#include <QTimer>
#include <QVector>

#include <functional>

namespace bridge {

/// What a client hears of the pad and of the queue. On the main thread.
class PadClient
{
public:
    virtual ~PadClient() = default;
    virtual void onPoints(int first, const QByteArray &text) = 0;
    virtual void onTap(bool confirm) = 0;
    virtual void onLive(const QByteArray &type, const QByteArray &picture) = 0;
    virtual void onLost() = 0;
    virtual void onFound() = 0;
    /// How many are ahead; 1: this one is next.
    virtual void onQueue(int ahead) = 0;
    /// The pad is kept free for this one for a while.
    virtual void onFree() = 0;
};

/// On the main thread; the pad's own thread is inside. A client that goes must leave first.
class PadDesk : public QObject
{
    Q_OBJECT

public:
    using Done = std::function<void(const Outcome &)>;
    using Work = std::function<Outcome(PadRunner &)>;

    /// @param keepFreeMs how long the pad waits for the client whose turn it is
    PadDesk(std::filesystem::path driver, bool allowsUnsafeDriver, int keepFreeMs = 10000);
    ~PadDesk() override;

    /// Gives the pad to the client when nobody has it.
    /// @return 0, or how many are ahead in the queue, in which the client then stands
    int claim(PadClient *client);
    bool isHolder(const PadClient *client) const { return client == m_holder; }
    bool isOpen() const { return m_isOpen; }

    /// Opens the pad for the client that holds it; afterwards runs work on it. `done` is called later, and not at all
    /// for a client that has left meanwhile.
    void open(PadClient *client, const Opening &opening, Done done);
    void run(PadClient *client, Work work, Done done);
    /// The client has sent on what it got.
    void allowMore() { m_runner->allowMore(); }

    /// Gives the pad back, or leaves the queue.
    void leave(PadClient *client);

private:
    void post(PadClient *client, Work work, Done done);
    void callNext();
    void tellQueue();
    PadClient *receiverOf(int opening) const { return opening == m_opening ? m_holder : nullptr; }
    void connectRunner();

    QThread m_thread;
    PadRunner *m_runner;
    PadClient *m_holder = nullptr;
    PadClient *m_called = nullptr; ///< for whom the pad is kept free
    QVector<PadClient *> m_queue;
    QTimer m_keptFree;
    int m_opening = 0;
    bool m_isOpen = false;
};

} // namespace bridge

#endif
