#include "padsession.h"

#include "driverfile.h"
#include "modelrules.h"
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

} // namespace

PadSession::PadSession(QObject *parent)
    : QObject(parent)
{
}

PadSession::~PadSession()
{
    close();
}

void PadSession::open(const PadFamily &model)
{
    close();
    judgeDriver(m_acceptsAnyDriver);
    m_host = std::make_unique<QWidget>();
    const int height = canvasHeight(model.row, kCanvasWidth);
    m_host->resize(kCanvasWidth, height);
    // The library makes its canvas when its widget is shown, so the widget is shown, but on no screen.
    m_host->setAttribute(Qt::WA_DontShowOnScreen);
    m_host->setAttribute(Qt::WA_QuitOnClose, false);
    m_host->show();
    if (!model.InitialDevice(model.type, m_host.get(), 0, 0, kCanvasWidth, height))
        throw noPad(model);
    m_model = &model;
    ++m_round;
    setReceiver(this);
    model.SignPadEventCallback(model.type, receiveTap);
    placeFingerprint();
}

void PadSession::placeFingerprint()
{
    if (!m_model->row.hasFingerprintSensor)
        return;
    constexpr int kTimes = 2; // as fine as a page is printed
    m_printHost = std::make_unique<QWidget>();
    m_printHost->resize(kTimes * kFingerprintWidth, kTimes * kFingerprintHeight);
    m_model->SetDisplayedFPImageAt(
        m_model->type, m_printHost.get(), 0, 0, 0, 0, m_printHost->width(), m_printHost->height());
}

void PadSession::close()
{
    if (!isOpen())
        return;
    setReceiver(nullptr);
    ++m_round;
    m_model->UnInitialDevice(m_model->type);
    m_model = nullptr;
    // The library calls deleteLater() on its own widgets. These hold them, so they must be deleted after them.
    m_host.release()->deleteLater();
    if (m_printHost != nullptr)
        m_printHost.release()->deleteLater();
    m_pens.clear();
}

QSize PadSession::canvas() const
{
    return {kCanvasWidth, canvasHeight(m_model->row, kCanvasWidth)};
}

void PadSession::setPen(const Pen &pen)
{
    if (!isOpen())
        return;
    m_pens.push_back({points(), pen});
    m_model->SetPenWidth(m_model->type, pen.width);
    m_model->SetPenColor(m_model->type, pen.colour.red(), pen.colour.green(), pen.colour.blue());
    m_model->SetPenStyle(m_model->type, pen.followsPressure);
}

bool PadSession::clear()
{
    if (!isOpen())
        return false;
    ++m_round;
    const bool obeyed = m_model->Clear(m_model->type) == ARI_SUCCESS;
    if (!m_pens.empty())
        m_pens = {{0, m_pens.back().pen}};
    return obeyed;
}

bool PadSession::update(documents::Ink &ink)
{
    const int count = points();
    const bool isSame = m_takenRound == m_round && count >= m_taken && isOpen();
    if (!isSame) {
        ink = {};
        m_taken = 0;
        m_isInStroke = false;
        m_takenRound = m_round;
    }
    if (!isOpen())
        return isSame;
    ink.canvas = canvas();
    if (!m_pens.empty())
        ink.colour = m_pens.back().pen.colour;
    while (m_taken < count && take(m_taken, ink))
        ++m_taken;
    return isSame;
}

/// False when the point is gone: the pad was cleared meanwhile.
bool PadSession::take(int index, documents::Ink &ink)
{
    INKPOINTDATA point = {};
    point.nIndex = index;
    if (m_model->GetInkPointData(m_model->type, point) != ARI_SUCCESS)
        return false;
    const ModelRow &row = m_model->row;
    const double x = std::clamp(point.nX - row.rawOffsetX, 0, row.rawSpanX - 1) * ink.canvas.width() / row.rawSpanX;
    const double y = std::clamp(point.nY - row.rawOffsetY, 0, row.rawSpanY - 1) * ink.canvas.height() / row.rawSpanY;
    if (m_isInStroke && !point.bStrokeEnd)
        ink.lines.push_back({m_last, {x, y}, widthOf(point, index)});
    m_isInStroke = !point.bStrokeEnd;
    m_last = {x, y};
    return true;
}

/// In pixels of the canvas.
double PadSession::widthOf(const INKPOINTDATA &point, int index) const
{
    Pen pen;
    for (const PenSince &since : m_pens) {
        if (since.point <= index)
            pen = since.pen;
    }
    const ModelRow &row = m_model->row;
    return pen.followsPressure ? point.nPressureValue * pressureRatio(row, pen.width, row.maxPressure)
                               : fixedWidth(row, pen.width);
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

QByteArray PadSession::fingerprintAs(int type) const
{
    if (!isOpen() || !m_model->row.hasFingerprintSensor)
        return {};
    char *text = m_model->GetFPImageBase64Data(m_model->type, type, true);
    const QByteArray file = QByteArray::fromBase64(text);
    m_model->FreeFPImageBase64Data(m_model->type, text);
    return file;
}

QImage PadSession::fingerprint() const
{
    const QImage print = withoutPaper(QImage::fromData(fingerprintAs(EBITI_BITMAP), "BMP"));
    for (int y = 0; y < print.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(print.constScanLine(y));
        if (std::any_of(line, line + print.width(), [](QRgb pixel) { return qAlpha(pixel) > 0; }))
            return print;
    }
    return {};
}

QByteArray PadSession::fingerprintFile() const
{
    return fingerprint().isNull() ? QByteArray() : fingerprintAs(EBITI_PNG);
}

bool PadSession::hasFingerprintAlone() const
{
    return points() == 0 && !fingerprint().isNull();
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

QImage withoutPaper(const QImage &image)
{
    QImage ink = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < ink.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(ink.scanLine(y));
        for (int x = 0; x < ink.width(); ++x) {
            const QRgb pixel = line[x];
            const int alpha = 255 - std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)});
            const auto full = [=](int part) { return alpha == 0 ? 0 : 255 - (255 - part) * 255 / alpha; };
            line[x] = qRgba(full(qRed(pixel)), full(qGreen(pixel)), full(qBlue(pixel)), alpha);
        }
    }
    return ink;
}

} // namespace signdesk
