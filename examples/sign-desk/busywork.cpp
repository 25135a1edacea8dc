#include "busywork.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace signdesk {

namespace {

using namespace std::chrono_literals;

constexpr int kQuiet = 500; ///< milliseconds without a dialog
constexpr int kLookEvery = 20; ///< milliseconds
constexpr int kSteps = 1000; ///< of the dialog's bar

struct BusyWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::BusyWork)
};

struct Cancelled
{
};

/// What the thread and the window share; it lives as long as either.
struct Shared
{
    Progress progress;
    std::function<void(Progress &)> work;
    std::exception_ptr error;
    bool isFinished = false;
    std::mutex lock;
    std::condition_variable changed;

    void run()
    {
        std::exception_ptr thrown;
        try {
            work(progress);
        } catch (...) {
            thrown = std::current_exception();
        }
        work = nullptr; // what it owns goes with its thread
        const std::lock_guard<std::mutex> locked(lock);
        error = thrown;
        isFinished = true;
        changed.notify_all();
    }

    bool waitFor(std::chrono::milliseconds time)
    {
        std::unique_lock<std::mutex> locked(lock);
        return changed.wait_for(locked, time, [this] { return isFinished; });
    }
};

/// While it lives the pointer waits, and the window takes no clicks and keys until the dialog is there.
class Waiting
{
public:
    Waiting(QWidget *parent, const QString &what, Shared &shared)
        : m_dialog(what, BusyWords::tr("Cancel"), 0, 0, parent)
        , m_shared(shared)
    {
        m_dialog.setWindowTitle(QApplication::applicationDisplayName());
        m_dialog.setWindowModality(Qt::ApplicationModal);
        m_dialog.setMinimumDuration(3600000); // shown by hand
        m_dialog.setAutoClose(false);
        m_dialog.setAutoReset(false);
        m_dialog.reset();
        QApplication::setOverrideCursor(Qt::BusyCursor);
    }
    ~Waiting() { QApplication::restoreOverrideCursor(); }
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

    /// False when the clerk cancelled.
    bool wait()
    {
        QElapsedTimer time;
        time.start();
        while (!m_shared.waitFor(0ms) && time.elapsed() < kQuiet)
            turn(QEventLoop::ExcludeUserInputEvents);
        if (m_shared.waitFor(0ms))
            return true;
        m_dialog.show();
        while (!m_shared.waitFor(0ms) && !m_dialog.wasCanceled())
            turn(QEventLoop::AllEvents);
        return m_shared.waitFor(0ms);
    }

private:
    void turn(QEventLoop::ProcessEventsFlags flags)
    {
        QEventLoop loop;
        QTimer::singleShot(kLookEvery, &loop, &QEventLoop::quit);
        loop.exec(flags);
        const double share = m_shared.progress.share();
        m_dialog.setMaximum(share < 0 ? 0 : kSteps);
        if (share >= 0 && m_dialog.isVisible())
            m_dialog.setValue(static_cast<int>(share * kSteps));
    }

    QProgressDialog m_dialog;
    Shared &m_shared;
};

} // namespace

void Progress::show(qint64 done, qint64 total)
{
    if (m_isCancelled)
        throw Cancelled();
    m_share = total <= 0 ? -1 : static_cast<double>(done) / static_cast<double>(total);
}

bool runBeside(QWidget *parent, const QString &what, const std::function<void(Progress &)> &work)
{
    const auto shared = std::make_shared<Shared>();
    shared->work = work;
    std::thread([shared] { shared->run(); }).detach();
    if (!shared->waitFor(30ms)) { // most work is done by then, and nobody sees anything
        Waiting waiting(parent, what, *shared);
        if (!waiting.wait()) {
            shared->progress.cancel();
            return false;
        }
    }
    if (shared->error != nullptr)
        std::rethrow_exception(shared->error);
    return true;
}

} // namespace signdesk
