#include "paddesk.h"

namespace bridge {

PadDesk::PadDesk(std::filesystem::path driver, bool allowsUnsafeDriver, int keepFreeMs)
    : m_runner(new PadRunner(std::move(driver), allowsUnsafeDriver))
{
    m_runner->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_runner, &QObject::deleteLater);
    connectRunner();
    m_keptFree.setSingleShot(true);
    m_keptFree.setInterval(keepFreeMs);
    connect(&m_keptFree, &QTimer::timeout, this, [this] {
        m_called = nullptr;
        callNext();
    });
    m_thread.start();
}

PadDesk::~PadDesk()
{
    // The runner is deleted, and closes the pad, on its own thread before that ends.
    m_thread.quit();
    m_thread.wait();
}

void PadDesk::connectRunner()
{
    connect(m_runner, &PadRunner::points, this, [this](int opening, int first, const QByteArray &text) {
        if (PadClient *client = receiverOf(opening))
            client->onPoints(first, text);
    });
    connect(m_runner, &PadRunner::tapped, this, [this](int opening, bool confirm) {
        if (PadClient *client = receiverOf(opening))
            client->onTap(confirm);
    });
    connect(m_runner, &PadRunner::live, this, [this](int opening, const QByteArray &type, const QByteArray &picture) {
        if (PadClient *client = receiverOf(opening))
            client->onLive(type, picture);
    });
    connect(m_runner, &PadRunner::lost, this, [this](int opening) {
        if (PadClient *client = receiverOf(opening))
            client->onLost();
    });
    connect(m_runner, &PadRunner::found, this, [this](int opening) {
        if (PadClient *client = receiverOf(opening))
            client->onFound();
    });
}

int PadDesk::claim(PadClient *client)
{
    if (!m_holder && (!m_called || m_called == client) && (m_queue.isEmpty() || m_called == client)) {
        m_keptFree.stop();
        m_called = nullptr;
        m_holder = client;
        tellQueue();
        return 0;
    }
    if (m_holder != client && m_called != client && !m_queue.contains(client))
        m_queue.append(client);
    return m_queue.indexOf(client) + 1;
}

void PadDesk::open(PadClient *client, const Opening &opening, Done done)
{
    const int number = ++m_opening;
    post(
        client, [number, opening](PadRunner &runner) { return runner.open(number, opening); },
        [this, done = std::move(done)](const Outcome &outcome) {
            m_isOpen = !outcome.error;
            done(outcome);
        });
}

void PadDesk::run(PadClient *client, Work work, Done done)
{
    post(client, std::move(work), std::move(done));
}

void PadDesk::post(PadClient *client, Work work, Done done)
{
    const int opening = m_opening;
    PadRunner *runner = m_runner;
    QMetaObject::invokeMethod(
        runner,
        [this, runner, client, opening, work = std::move(work), done = std::move(done)] {
            const Outcome outcome = work(*runner);
            QMetaObject::invokeMethod(
                this,
                [this, client, opening, outcome, done] {
                    if (client == m_holder && opening == m_opening)
                        done(outcome);
                },
                Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void PadDesk::leave(PadClient *client)
{
    const bool wasAhead = m_holder == client || m_called == client;
    m_queue.removeAll(client);
    if (m_holder == client) {
        m_holder = nullptr;
        m_isOpen = false;
        ++m_opening; // whatever is on its way is for nobody
        QMetaObject::invokeMethod(m_runner, &PadRunner::close, Qt::QueuedConnection);
    }
    if (m_called == client) {
        m_called = nullptr;
        m_keptFree.stop();
    }
    if (wasAhead)
        callNext();
    else
        tellQueue();
}

void PadDesk::callNext()
{
    if (!m_queue.isEmpty()) {
        m_called = m_queue.takeFirst();
        m_keptFree.start();
        tellQueue();
        m_called->onFree();
        return;
    }
    tellQueue();
}

void PadDesk::tellQueue()
{
    for (int i = 0; i < m_queue.size(); ++i)
        m_queue[i]->onQueue(i + 1);
}

} // namespace bridge
