#include "padrunner.h"

#include "driverfile.h"
#include "journal.h"
#include "modelrules.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace bridge {

namespace {

// Half of a frame of the screen, and a quarter when the pen writes.
constexpr int kPollMs = 8;
constexpr int kPollWhileWritingMs = 4;
constexpr int kWritingMs = 1000;
constexpr int kSeekMs = 1000;

// A page gets no more at once: a few seconds of the fastest pen.
constexpr int kMostPoints = 2000;

qint64 monotonicMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

struct PadRunner::LiveBox
{
    std::mutex mutex;
    bool isOn = true;
    bool isNew = false;
    QByteArray picture;
};

PadRunner::PadRunner(std::filesystem::path driver, bool allowsUnsafeDriver)
    : m_driver(std::move(driver))
    , m_allowsUnsafeDriver(allowsUnsafeDriver)
    , m_timer(this)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PadRunner::poll);
}

PadRunner::~PadRunner()
{
    close();
}

const kv::detail::Family &PadRunner::family() const
{
    return kv::detail::kFamilies[static_cast<std::size_t>(m_wanted.model)];
}

Outcome PadRunner::open(int opening, const Opening &wanted)
{
    close();
    m_opening = opening;
    m_wanted = wanted;
    m_zero = monotonicMs();
    m_first = 0;
    Outcome outcome = openPad();
    if (!outcome.error) {
        m_maySend = true;
        m_timer.start(kPollMs);
        outcome.members.insert(QStringLiteral("area"), area());
    }
    return outcome;
}

Outcome PadRunner::openPad()
{
    if (!m_allowsUnsafeDriver) {
        if (const auto weakness = driverfile::weaknessIn(m_driver.empty() ? "." : m_driver.string())) {
            Journal::say(QString::fromStdString("driver refused: " + weakness->sentence()));
            return failed("no-driver");
        }
    }
    return outcomeOf([this](Outcome &) {
        m_pad.emplace(m_wanted.model, m_wanted.size, m_driver);
        m_taken = 0;
        m_taps.clear();
        m_isLost = false;
        m_presence = std::make_unique<PadPresence>([this] { return m_pad->isConnected(); });
        m_sinceLook.start();
        applyPen();
        if (m_liveKind)
            setLive(true, *m_liveKind);
    });
}

void PadRunner::applyPen()
{
    if (m_wanted.penWidth)
        m_pad->setPenWidth(*m_wanted.penWidth);
    if (m_wanted.penColor)
        m_pad->setPenColor(*m_wanted.penColor);
    if (m_wanted.penPressure)
        m_pad->setPenPressure(*m_wanted.penPressure);
}

Outcome PadRunner::setPen(std::optional<int> width, std::optional<kv::Color> color, std::optional<bool> pressure)
{
    if (!m_pad)
        return failed(m_isLost ? "lost" : "not-open");
    sendPoints();
    m_wanted.penWidth = width ? width : m_wanted.penWidth;
    m_wanted.penColor = color ? color : m_wanted.penColor;
    m_wanted.penPressure = pressure ? pressure : m_wanted.penPressure;
    return outcomeOf([this](Outcome &) { applyPen(); });
}

Outcome PadRunner::clear()
{
    if (!m_pad)
        return failed(m_isLost ? "lost" : "not-open");
    return outcomeOf([this](Outcome &) {
        m_pad->clear();
        m_taken = 0;
        m_first = 0;
        m_taps.clear();
    });
}

Outcome PadRunner::picture(const PictureWish &wish)
{
    if (!m_pad)
        return failed(m_isLost ? "lost" : "not-open");
    return pictureOf(*m_pad, family(), wish);
}

Outcome PadRunner::setLive(bool on, kv::ImageKind kind)
{
    if (!m_pad)
        return failed(m_isLost ? "lost" : "not-open");
    return outcomeOf([&](Outcome &) {
        if (m_live) {
            const std::lock_guard<std::mutex> lock(m_live->mutex);
            m_live->isOn = false;
        }
        m_live.reset();
        m_liveKind.reset();
        if (!on)
            return;
        auto box = std::make_shared<LiveBox>();
        m_pad->onLiveImage(kind, [box](const kv::Bytes &picture) {
            const std::lock_guard<std::mutex> lock(box->mutex);
            box->isNew = box->isOn;
            if (box->isOn)
                box->picture = bytesOf(picture);
        });
        m_live = box;
        m_liveKind = kind;
    });
}

Outcome PadRunner::placeFingerprint(kv::Rect place, kv::Size canvas)
{
    if (!m_pad)
        return failed(m_isLost ? "lost" : "not-open");
    return outcomeOf([&](Outcome &) { m_pad->placeFingerprint(place, canvas); });
}

void PadRunner::close()
{
    m_timer.stop();
    m_presence.reset();
    m_pad.reset();
    m_live.reset();
    m_liveKind.reset();
    m_isLost = false;
}

void PadRunner::poll()
{
    if (!m_pad) {
        seek();
        return;
    }
    try {
        sendTaps();
        sendLive();
        watch();
    } catch (const std::exception &) {
        Journal::say(QStringLiteral("the pad could not be asked"));
    }
    const bool isWriting = m_sincePoint.isValid() && m_sincePoint.elapsed() < kWritingMs;
    if (m_pad && m_timer.interval() != (isWriting ? kPollWhileWritingMs : kPollMs))
        m_timer.setInterval(isWriting ? kPollWhileWritingMs : kPollMs);
}

/// A tap goes out after the points that were stored before it, however long a slow page makes them wait.
void PadRunner::sendTaps()
{
    while (const std::optional<kv::Tap> tap = m_pad->wait(std::chrono::milliseconds(0)))
        m_taps.push_back({*tap, m_pad->points()});
    sendPoints();
    while (!m_taps.empty() && m_taps.front().after <= m_taken) {
        emit tapped(m_opening, m_taps.front().tap == kv::Tap::Confirm);
        m_taps.pop_front();
    }
}

void PadRunner::sendPoints()
{
    const int stored = m_pad->points();
    if (stored == m_taken || !m_maySend)
        return;
    m_sincePoint.start();
    const qint64 now = monotonicMs();
    const int end = std::min(stored, m_taken + kMostPoints);
    QByteArray text;
    text.reserve((end - m_taken) * 28);
    for (int i = m_taken; i < end; ++i)
        text += textOf(i, now) + ',';
    text.chop(1);
    m_maySend = false;
    emit points(m_opening, m_first + m_taken, text);
    m_taken = end;
}

/// The library tells a point's time as a text whose milliseconds are those of the monotonic clock.
QByteArray PadRunner::textOf(int index, qint64 now)
{
    INKPOINTDATA point{};
    point.nIndex = index;
    family().GetInkPointData(family().type, point);
    qint64 time = now;
    if (char *text = family().GetInkPointDataTimeInfo(family().type, index)) {
        const char *dot = std::strrchr(text, '.');
        if (dot)
            time -= ((now - std::atoi(dot + 1)) % 1000 + 1000) % 1000;
        family().FreeInkPointDataTimeInfo(family().type, text);
    }
    return '[' + QByteArray::number(point.nX) + ',' + QByteArray::number(point.nY) + ','
        + QByteArray::number(point.nPressureValue) + ',' + QByteArray::number(std::max<qint64>(0, time - m_zero)) + ','
        + (point.bStrokeEnd ? '1' : '0') + ']';
}

void PadRunner::sendLive()
{
    if (!m_live || !m_maySend)
        return;
    QByteArray picture;
    {
        const std::lock_guard<std::mutex> lock(m_live->mutex);
        if (!std::exchange(m_live->isNew, false))
            return;
        picture = m_live->picture;
    }
    m_maySend = false;
    emit live(m_opening, *m_liveKind == kv::ImageKind::Png ? "image/png" : "image/jpeg", picture);
}

void PadRunner::watch()
{
    if (m_sinceLook.elapsed() >= m_presence->pause().count()) {
        m_presence->look(m_pad->points());
        m_sinceLook.start();
    }
    // What was written goes out first, for it goes with the pad.
    if (!m_presence->isAway() || m_taken < m_pad->points())
        return;
    m_first += m_taken;
    m_presence.reset();
    m_pad.reset();
    m_isLost = true;
    m_timer.setInterval(kSeekMs);
    emit lost(m_opening);
}

void PadRunner::seek()
{
    if (openPad().error)
        return;
    m_timer.setInterval(kPollMs);
    emit found(m_opening);
}

QJsonObject PadRunner::area() const
{
    const ModelRow &model = *modelOfType(family().type);
    const int most = m_pad->maxPressure();
    return {{QStringLiteral("left"), model.rawOffsetX}, {QStringLiteral("top"), model.rawOffsetY},
        {QStringLiteral("width"), model.rawSpanX}, {QStringLiteral("height"), model.rawSpanY},
        {QStringLiteral("perPressure"), pressureRatio(model, 1, most)}, {QStringLiteral("fixed"), fixedWidth(model, 1)},
        {QStringLiteral("maxPressure"), most}};
}

} // namespace bridge
