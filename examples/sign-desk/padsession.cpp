#include "padsession.h"

#include "trouble.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <mutex>

namespace signdesk {

namespace {

// The library's receiver of taps has no argument that could name the session.
std::mutex g_receiverLock;
PadSession *g_receiver = nullptr;

void setReceiver(PadSession *session)
{
    const std::lock_guard<std::mutex> lock(g_receiverLock);
    g_receiver = session;
}

Trouble cannotOpen(const PadModel &model)
{
    const QString driver = QDir::current().filePath("libkvsignpaddrv.so");
    if (!QFile::exists(driver))
        return {PadSession::tr("There is no pad driver: %1 does not exist.").arg(QDir::toNativeSeparators(driver)),
            PadSession::tr("Install the driver that came with the pad, and start this program in the driver's "
                           "directory or with --driver-directory.")};
    return {PadSession::tr("No %1 was found.").arg(QLatin1String(model.name)),
        PadSession::tr("See that the pad is plugged in, that it is the chosen model, and that no other program uses "
                       "it. Then start signing again.")};
}

QList<QWidget *> childrenOf(const QWidget &parent)
{
    return parent.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

PadSession::PadSession(QObject *parent)
    : QObject(parent)
{
}

PadSession::~PadSession()
{
    close();
}

void PadSession::open(const PadModel &model, QWidget *parent, const QRect &place)
{
    close();
    const QList<QWidget *> before = childrenOf(*parent);
    if (!model.InitialDevice(model.type, parent, place.x(), place.y(), place.width(), place.height()))
        throw cannotOpen(model);
    for (QWidget *child : childrenOf(*parent)) {
        if (!before.contains(child))
            m_widget = child;
    }
    m_model = &model;
    ++m_round;
    setReceiver(this);
    model.SignPadEventCallback(model.type, receiveTap);
}

void PadSession::close()
{
    if (!isOpen())
        return;
    setReceiver(nullptr);
    ++m_round;
    m_model->UnInitialDevice(m_model->type);
    m_model = nullptr;
    m_widget = nullptr;
}

void PadSession::setPen(const Pen &pen)
{
    if (!isOpen())
        return;
    m_model->SetPenWidth(m_model->type, pen.width);
    m_model->SetPenColor(m_model->type, pen.colour.red(), pen.colour.green(), pen.colour.blue());
    m_model->SetPenStyle(m_model->type, pen.followsPressure);
}

bool PadSession::clear()
{
    if (!isOpen())
        return false;
    ++m_round;
    return m_model->Clear(m_model->type) == ARI_SUCCESS;
}

int PadSession::points() const
{
    return isOpen() ? std::max(0, m_model->GetTotalInkPointsNumber(m_model->type)) : 0;
}

/// On the driver's thread.
void PadSession::receiveTap(int key)
{
    const std::lock_guard<std::mutex> lock(g_receiverLock);
    if (g_receiver != nullptr)
        g_receiver->passOn(key);
}

/// On the driver's thread: counts what the signer confirms, and leaves the rest to the GUI thread.
void PadSession::passOn(int key)
{
    const int round = m_round;
    const int confirmed = points();
    QMetaObject::invokeMethod(
        this,
        [=] {
            if (round == m_round)
                emit tapped(key == 1, confirmed);
        },
        Qt::QueuedConnection);
}

} // namespace signdesk
