#include "displaythread.h"

#include <QAbstractEventDispatcher>

#include <system_error>

namespace displaythread {

namespace {

/// An event dispatcher that does nothing and needs no file descriptors.
class NoEvents : public QAbstractEventDispatcher
{
public:
    bool processEvents(QEventLoop::ProcessEventsFlags) override { return false; }
    bool hasPendingEvents() override { return false; }
    void registerSocketNotifier(QSocketNotifier *) override { }
    void unregisterSocketNotifier(QSocketNotifier *) override { }
    void registerTimer(int, int, Qt::TimerType, QObject *) override { }
    bool unregisterTimer(int) override { return false; }
    bool unregisterTimers(QObject *) override { return false; }
    QList<TimerInfo> registeredTimers(QObject *) const override { return {}; }
    int remainingTime(int) override { return -1; }
    void wakeUp() override { }
    void interrupt() override { }
    void flush() override { }
};

} // namespace

void start(QThread &thread, const logging::Key &key)
{
    auto dispatcher = std::make_unique<NoEvents>();
    thread.setEventDispatcher(dispatcher.get());
    thread.start(QThread::InheritPriority);
    if (!thread.isRunning()) {
        KV_LOG(key, "<%ld>-leave due to (m_pShowFPImageOnDeviceThread->isRunning() == false) !");
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
    static_cast<void>(dispatcher.release()); // the thread deletes it at its end
}

} // namespace displaythread
