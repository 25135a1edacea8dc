#include "padface.h"

#include "kvsignpadsdk_global.h"
#include "modelrows.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTabletEvent>
#include <QTouchEvent>

#include <algorithm>
#include <cmath>

namespace virtualpad {

namespace {

using Clock = std::chrono::steady_clock;

/// Like a real pad, it reports a pen that is slightly off the writing area.
constexpr double kBeyond = 0.02;
constexpr int kConfirm = 0;
constexpr int kCancel = 1;

std::int64_t nowUs()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now().time_since_epoch()).count();
}

double held(double share)
{
    return std::clamp(share, -kBeyond, 1 + kBeyond);
}

} // namespace

PadFace::PadFace(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_AcceptTouchEvents);
    setMinimumSize(320, 180);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Signature pad"));
    setAccessibleDescription(tr("Write with the mouse, a finger or a stylus"));
    setModel(*kModelRows[0]);
}

void PadFace::setModel(const ModelRow &model)
{
    if (m_model != &model)
        clearInk();
    m_model = &model;
    updateGeometry();
    update();
}

void PadFace::setDisplay(const PadDisplay &display)
{
    m_display = display;
    update();
}

void PadFace::clearInk()
{
    m_strokes.clear();
    update();
}

QSize PadFace::sizeHint() const
{
    constexpr double kWritingWidth = 560;
    const PadLook &look = lookOf(*m_model);
    const double height = static_cast<double>(m_model->rawSpanY) / m_model->rawSpanX;
    return QSizeF(kWritingWidth * (1 + look.left + look.right), kWritingWidth * (height + look.top + look.bottom))
        .toSize();
}

/// As large as fits, in the pad's proportions.
QRectF PadFace::body() const
{
    const QSizeF size = QSizeF(sizeHint()).scaled(QSizeF(width() - 16, height() - 16), Qt::KeepAspectRatio);
    return QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
}

QRectF PadFace::writingArea() const
{
    const PadLook &look = lookOf(*m_model);
    const QRectF all = body();
    const double unit = all.width() / (1 + look.left + look.right);
    return QRectF(
        all.x() + look.left * unit, all.y() + look.top * unit, unit, unit * m_model->rawSpanY / m_model->rawSpanX);
}

/// Confirm is 0, cancel 1. Buttons stand beside the writing area, one above the other; areas lie below it.
QRectF PadFace::button(int index) const
{
    const PadLook &look = lookOf(*m_model);
    const QRectF area = writingArea();
    if (look.hasButtons) {
        const double size = area.width() * 0.09;
        const double y = area.center().y() + (index == kConfirm ? -1.25 : 0.25) * size;
        return QRectF(area.right() + area.width() * 0.085 - size / 2, y, size, size);
    }
    const double height = area.width() * 0.07;
    const double width = area.width() * 0.22;
    const double x = index == kConfirm ? area.right() - width : area.left();
    return QRectF(x, area.bottom() + area.width() * 0.04, width, height);
}

QRectF PadFace::confirmArea() const
{
    return button(kConfirm);
}

QRectF PadFace::cancelArea() const
{
    return button(kCancel);
}

QRectF PadFace::sensorArea() const
{
    const QRectF area = writingArea();
    const QSizeF size(area.width() * 0.10, area.width() * 0.14);
    const QPointF corner(area.right() + area.width() * 0.17, area.center().y() - size.height() / 2);
    return m_model->hasFingerprintSensor ? QRectF(corner, size) : QRectF();
}

// --- pens

void PadFace::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        touch(Stage::Down, event->localPos(), kNoPressure);
}

void PadFace::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        touch(Stage::Move, event->localPos(), kNoPressure);
}

void PadFace::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        touch(Stage::Up, event->localPos(), kNoPressure);
}

void PadFace::tabletEvent(QTabletEvent *event)
{
    const bool touches = event->type() == QEvent::TabletPress
        || (event->type() == QEvent::TabletMove && (event->buttons() & Qt::LeftButton));
    if (event->type() == QEvent::TabletRelease)
        touch(Stage::Up, event->posF(), event->pressure());
    else if (touches)
        touch(event->type() == QEvent::TabletPress ? Stage::Down : Stage::Move, event->posF(), event->pressure());
    event->accept(); // so that Qt makes no mouse event of it
}

/// The first finger writes; the others rest on the pad.
bool PadFace::event(QEvent *event)
{
    const auto type = event->type();
    if (type == QEvent::TouchBegin || type == QEvent::TouchUpdate || type == QEvent::TouchEnd) {
        const auto points = static_cast<QTouchEvent *>(event)->touchPoints();
        if (!points.isEmpty()) {
            const bool isUp = points[0].state() == Qt::TouchPointReleased;
            const Stage stage = type == QEvent::TouchBegin ? Stage::Down : isUp ? Stage::Up : Stage::Move;
            touch(stage, points[0].pos(), kNoPressure);
        }
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

/// Pressure from the pen's speed, smoothed with the last pressure, because a hand does not change it at once.
double PadFace::speedPressure(std::int64_t now, const QPointF &share)
{
    const double seconds = static_cast<double>(std::max<std::int64_t>(now - m_lastUs, 1000)) / 1e6;
    const QPointF way = share - m_lastShare;
    const double speed = std::hypot(way.x(), way.y()) / seconds;
    return 0.7 * m_lastPressure + 0.3 * pressureOfSpeed(speed);
}

void PadFace::touch(Stage stage, const QPointF &place, double pressure)
{
    if (stage != Stage::Down && !m_isTouched)
        return;
    const std::int64_t now = std::max(nowUs(), m_lastUs);
    const QRectF area = writingArea();
    const QPointF share((place.x() - area.x()) / area.width(), (place.y() - area.y()) / area.height());
    if (pressure >= 0 && stage != Stage::Up)
        m_lastPressure = pressure;
    else if (pressure < 0)
        m_lastPressure = stage == Stage::Down ? pressureOfSpeed(1) : speedPressure(now, share);
    m_lastUs = now;
    m_lastShare = share;
    const PenPoint point{held(share.x()), held(share.y()), m_lastPressure};
    if (stage == Stage::Down)
        touchDown(now, point, place);
    else if (stage == Stage::Up)
        m_clock.up(now, point);
    else if (m_pressedButton < 0)
        m_clock.move(now, point);
    if (m_isTouched && m_pressedButton < 0 && stage != Stage::Up) {
        m_strokes.last().places.append(QPointF(std::clamp(share.x(), 0.0, 1.0), std::clamp(share.y(), 0.0, 1.0)));
        m_strokes.last().pressures.append(m_lastPressure);
    }
    if (stage == Stage::Up) {
        m_isTouched = false;
        m_pressedButton = -1;
    }
    if (!m_timer.isActive())
        m_timer.start(static_cast<int>(PacketClock::kPeriodUs / 1000), Qt::PreciseTimer, this);
    update();
}

/// A touch of the writing area or a button. Touching the body does nothing.
void PadFace::touchDown(std::int64_t now, const PenPoint &point, const QPointF &place)
{
    m_pressedButton = button(kConfirm).contains(place) ? kConfirm : button(kCancel).contains(place) ? kCancel : -1;
    if (sensorArea().contains(place))
        emit sensorTouched();
    m_isTouched = m_display.hasPower && (m_pressedButton >= 0 || writingArea().contains(place));
    if (!m_isTouched)
        return;
    constexpr int kStatus[] = {KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON, KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON};
    m_clock.down(now, point, m_pressedButton < 0 ? KVSPDARI_PS_PEN_DOWN : kStatus[m_pressedButton]);
    if (m_pressedButton < 0)
        m_strokes.append(Stroke());
}

void PadFace::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId())
        return QWidget::timerEvent(event);
    for (const DuePacket &packet : m_clock.due(nowUs()))
        emit packetDue(Clock::time_point(std::chrono::microseconds(packet.timeUs)), packet.point, packet.status);
    if (m_clock.isIdle())
        m_timer.stop();
}

// --- looks

void PadFace::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBody(painter);
    paintSurface(painter);
    for (const int index : {kConfirm, kCancel})
        paintButton(painter, index);
    paintSensor(painter);
}

void PadFace::paintBody(QPainter &painter) const
{
    const PadLook &look = lookOf(*m_model);
    const QRectF all = body();
    const double radius = all.width() * 0.025;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawRoundedRect(all.translated(3, 5), radius, radius);
    QLinearGradient shade(all.topLeft(), all.bottomLeft());
    shade.setColorAt(0, look.body.lighter(125));
    shade.setColorAt(1, look.body);
    painter.setBrush(shade);
    painter.drawRoundedRect(all, radius, radius);

    const QRectF area = writingArea();
    const double light = area.width() * 0.012;
    painter.setBrush(m_display.isOpen && m_display.hasPower ? QColor("#58d26b") : look.body.darker(160));
    painter.drawEllipse(QPointF(all.right() - radius * 1.4, all.top() + radius * 1.4), light, light);
    QFont font = painter.font();
    font.setPixelSize(std::max(9, static_cast<int>(area.width() * 0.024)));
    font.setLetterSpacing(QFont::PercentageSpacing, 115);
    painter.setFont(font);
    painter.setPen(QColor(255, 255, 255, 170));
    const QRectF title(area.left(), all.top(), area.width(), area.top() - all.top());
    painter.drawText(title, Qt::AlignLeft | Qt::AlignVCenter, m_model->name);
}

void PadFace::paintSurface(QPainter &painter) const
{
    const PadLook &look = lookOf(*m_model);
    const QRectF area = writingArea();
    const bool isLit = m_display.isOpen && m_display.hasPower && (m_display.isScreenOn || !m_model->hasScreen);
    painter.setPen(QPen(look.body.darker(170), 2));
    painter.setBrush(isLit ? look.surfaceOn : look.surfaceOff);
    painter.drawRect(area);
    painter.save();
    painter.setClipRect(area);
    if (isLit && !m_display.picture.isNull()) {
        const QSizeF size = QSizeF(m_display.picture.size()).scaled(area.size() * 0.8, Qt::KeepAspectRatio);
        const QRectF place(area.right() - size.width() - area.height() * 0.1, area.center().y() - size.height() / 2,
            size.width(), size.height());
        painter.setCompositionMode(
            QPainter::CompositionMode_Multiply); // the ink stays visible below the picture's white
        painter.drawImage(place, m_display.picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    if (isLit || !m_model->hasScreen)
        paintInk(painter);
    if (isLit && !m_display.version.isEmpty()) {
        painter.setPen(look.ink);
        painter.drawText(area.adjusted(10, 8, -10, -8), Qt::AlignLeft | Qt::AlignTop, m_display.version);
    }
    painter.restore();
}

void PadFace::paintInk(QPainter &painter) const
{
    const QRectF area = writingArea();
    const auto placed = [&](const QPointF &share) {
        return QPointF(area.x() + share.x() * area.width(), area.y() + share.y() * area.height());
    };
    for (const Stroke &stroke : m_strokes)
        for (int i = 1; i < stroke.places.size(); ++i) {
            const double width = area.width() * (0.002 + 0.008 * stroke.pressures[i]);
            painter.setPen(QPen(lookOf(*m_model).ink, width, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(placed(stroke.places[i - 1]), placed(stroke.places[i]));
        }
}

/// A dark glass in a ring of metal.
void PadFace::paintSensor(QPainter &painter) const
{
    const QRectF place = sensorArea();
    if (place.isEmpty())
        return;
    const double radius = place.width() * 0.35;
    QLinearGradient glass(place.topLeft(), place.bottomRight());
    glass.setColorAt(0, QColor("#46505e"));
    glass.setColorAt(1, QColor("#101418"));
    painter.setPen(QPen(QColor("#9aa4b0"), place.width() * 0.05));
    painter.setBrush(glass);
    painter.drawRoundedRect(place, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 90), place.width() * 0.035, Qt::SolidLine, Qt::RoundCap));
    for (const double share : {0.2, 0.4, 0.6}) { // ridges
        const QSizeF size(place.width() * share, place.height() * share);
        const QRectF ridge(place.center() - QPointF(size.width() / 2, size.height() / 2), size);
        painter.drawArc(ridge, -30 * 16, 240 * 16);
    }
}

void PadFace::paintButton(QPainter &painter, int index) const
{
    const PadLook &look = lookOf(*m_model);
    const QRectF place = button(index);
    const QColor colour = index == kConfirm ? QColor("#3f9e58") : QColor("#b8473f");
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_pressedButton == index ? colour.darker(140) : colour);
    if (look.hasButtons)
        painter.drawEllipse(place);
    else
        painter.drawRoundedRect(place, place.height() * 0.3, place.height() * 0.3);
    const double size = place.height() * 0.2;
    const QPointF middle = place.center();
    painter.setPen(QPen(Qt::white, place.height() * 0.09, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (index == kConfirm) {
        const QPointF tick[] = {
            middle + QPointF(-size, 0), middle + QPointF(-size * 0.2, size * 0.8), middle + QPointF(size, -size * 0.8)};
        painter.drawPolyline(tick, 3);
    } else {
        painter.drawLine(middle + QPointF(-size, -size), middle + QPointF(size, size));
        painter.drawLine(middle + QPointF(-size, size), middle + QPointF(size, -size));
    }
}

} // namespace virtualpad
