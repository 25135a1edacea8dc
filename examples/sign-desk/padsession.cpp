#include "padsession.h"

#include "driverfile.h"
#include "trouble.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <mutex>

namespace signdesk {

namespace {

// The library's event callback has no argument for the session, so there is a global pointer to it.
std::mutex g_receiverLock;
PadSession *g_receiver = nullptr;

void setReceiver(PadSession *session)
{
    const std::lock_guard<std::mutex> lock(g_receiverLock);
    g_receiver = session;
}

Trouble noDriver(const QString &path)
{
    return {PadSession::tr("There is no pad driver: %1 does not exist.").arg(QDir::toNativeSeparators(path)),
        PadSession::tr("Install the driver that came with the pad, and start this program in the driver's "
                       "directory or with --driver-directory.")};
}

Trouble noPad(const PadFamily &model)
{
    return {PadSession::tr("No %1 was found.").arg(QLatin1String(model.model)),
        PadSession::tr("See that the pad is plugged in, that it is the chosen model, and that no other program uses "
                       "it. Then start signing again.")};
}

Trouble foreignDriver(const driverfile::Weakness &weakness)
{
    return {PadSession::tr("The pad driver is not used: others could have put another one in its place, since they may "
                           "write to %1.")
                .arg(QFile::decodeName(weakness.path.c_str())),
        PadSession::tr("Have that put right (%1), or start this program with --unsafe-driver.")
            .arg(QFile::decodeName(weakness.cure.c_str()))};
}

/// Throws a Trouble when others could replace the driver: the library loads whatever lies in the working directory.
void judgeDriver(bool acceptsAny)
{
    const QString driver = QDir::current().filePath(QLatin1String(driverfile::kName));
    if (!QFile::exists(driver))
        throw noDriver(driver);
    const std::optional<driverfile::Weakness> weakness =
        acceptsAny ? std::nullopt : driverfile::weaknessOf(QFile::encodeName(driver).toStdString());
    if (weakness.has_value())
        throw foreignDriver(*weakness);
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

void PadSession::open(const PadFamily &model, QWidget *parent, const QRect &place)
{
    close();
    judgeDriver(m_acceptsAnyDriver);
    const QList<QWidget *> before = childrenOf(*parent);
    if (!model.InitialDevice(model.type, parent, place.x(), place.y(), place.width(), place.height()))
        throw noPad(model);
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

bool PadSession::answers() const
{
    char version[128] = "";
    return isOpen() && m_model->GetHWVersion(m_model->type, version, sizeof version) == ARI_SUCCESS;
}

int PadSession::points() const
{
    return isOpen() ? std::max(0, m_model->GetTotalInkPointsNumber(m_model->type)) : 0;
}

bool PadSession::hasFingerprintAlone() const
{
    if (!isOpen() || !m_model->row.hasFingerprintSensor || points() > 0)
        return false;
    // Without ink the library gives the canvas only when there is a fingerprint on it.
    char *text = m_model->Base64Encode(m_model->type, EBITI_BITMAP);
    m_model->Base64EncodeFree(m_model->type, text);
    return text != nullptr;
}

int PadSession::lines() const
{
    const int count = points();
    int lines = 0;
    bool isInStroke = false;
    for (int i = 0; i < count; ++i) {
        INKPOINTDATA point = {};
        point.nIndex = i;
        if (m_model->GetInkPointData(m_model->type, point) != ARI_SUCCESS)
            break; // cleared meanwhile
        lines += isInStroke && !point.bStrokeEnd ? 1 : 0;
        isInStroke = !point.bStrokeEnd;
    }
    return lines;
}

/// Runs on the driver's thread.
void PadSession::receiveTap(int key)
{
    const std::lock_guard<std::mutex> lock(g_receiverLock);
    if (g_receiver != nullptr)
        g_receiver->passOn(key);
}

/// Runs on the driver's thread. The points are counted here, at the moment of the tap; the rest is done on the GUI
/// thread.
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
