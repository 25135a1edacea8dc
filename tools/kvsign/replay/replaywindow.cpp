#include "replaywindow.h"

#include "../interruption.h"
#include "../terminal.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int kFrame = 16; // milliseconds
constexpr int kInterruptionLook = 100; // milliseconds
constexpr int kStatusHeight = 26;
constexpr int kMoment = 700; // milliseconds that the whole signature stays when the window closes itself
constexpr int kBorder = 10;
constexpr char kKeys[] = "space: pause, R: again, Esc: close";
constexpr QRgb kPaper = 0xffffffff;
constexpr QRgb kStatusBack = 0xffeceff1;
constexpr QRgb kStatusText = 0xff37474f;

} // namespace

ReplayWindow::ReplayWindow(InkInput &input, const PictureSettings &settings, double speed, bool closesAtEnd)
    : m_input(input)
    , m_settings(settings)
    , m_speed(speed)
    , m_closesAtEnd(closesAtEnd)
{
    // Draw in device pixels, so that the ink is sharp on scaled screens.
    const double ratio = devicePixelRatioF();
    m_settings.scale *= ratio;
    m_settings.part = QRectF(m_settings.part.topLeft() * ratio, m_settings.part.size() * ratio);
    if (!m_settings.background.isValid())
        m_settings.background = QColor(kPaper);
    setFixedSize(settings.size() + QSize(0, kStatusHeight));
    setAccessibleName("The signature as it is written");
    setWindowTitle(QString("%1 - kvsign replay").arg(QFileInfo(input.name()).fileName()));
    m_timer.callOnTimeout(this, [this] { step(); });
    m_interruptions.callOnTimeout(this, [this] {
        if (isInterrupted())
            endWith({kCancelled, "interrupted"});
    });
    m_interruptions.start(kInterruptionLook);
    restart();
}

void ReplayWindow::restart()
{
    m_picture = std::make_unique<RasterPicture>(m_settings, false);
    m_times = std::make_unique<ReplayTimes>(m_speed);
    m_points = &m_input.points("replaying");
    m_atEnd = !m_points->next(m_next);
    m_nextDue = m_times->dueAt(m_next);
    m_count = 0;
    m_shownUntil = 0;
    m_running.start();
    m_timer.start(kFrame);
}

void ReplayWindow::togglePause()
{
    if (m_timer.isActive()) {
        m_shownUntil += static_cast<double>(m_running.elapsed());
        m_timer.stop();
    } else if (!m_atEnd) {
        m_running.start();
        m_timer.start(kFrame);
    }
    update();
}

void ReplayWindow::step()
{
    guarded([this] { drawDue(); });
    update();
    if (!m_atEnd)
        return;
    m_timer.stop();
    if (m_closesAtEnd)
        QTimer::singleShot(kMoment, this, &QWidget::close);
}

/// Keeps a Failure until the window is closed: exceptions must not pass through Qt's event loop.
template <class Step>
void ReplayWindow::guarded(Step step)
{
    try {
        step();
    } catch (const Failure &failure) {
        endWith(failure);
    }
}

void ReplayWindow::endWith(const Failure &failure)
{
    m_failure = std::make_unique<Failure>(failure);
    m_timer.stop();
    close();
}

void ReplayWindow::drawDue()
{
    const double now = m_shownUntil + static_cast<double>(m_running.elapsed());
    while (!m_atEnd && m_nextDue <= now) {
        m_picture->put(m_next);
        m_drawn = m_next;
        ++m_count;
        m_atEnd = !m_points->next(m_next);
        if (!m_atEnd)
            m_nextDue = m_times->dueAt(m_next);
    }
}

QString ReplayWindow::status() const
{
    const char *state = m_atEnd ? "end" : m_timer.isActive() ? "" : "pause";
    return QString("%1 points    x %2   y %3   pressure %4    %5")
        .arg(grouped(m_count))
        .arg(m_drawn.nX)
        .arg(m_drawn.nY)
        .arg(m_drawn.nPressureValue)
        .arg(state);
}

void ReplayWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect canvas(0, 0, width(), height() - kStatusHeight);
    painter.drawImage(canvas, m_picture->image());
    const QRect line(0, canvas.height(), width(), kStatusHeight);
    painter.fillRect(line, QColor(kStatusBack));
    painter.setPen(QColor(kStatusText));
    const QRect text = line.adjusted(kBorder, 0, -kBorder, 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, status());
    const QFontMetrics metrics = painter.fontMetrics();
    if (metrics.horizontalAdvance(status()) + metrics.horizontalAdvance(kKeys) + kBorder < text.width())
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignRight, kKeys);
}

void ReplayWindow::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
        return togglePause();
    case Qt::Key_R:
        return guarded([this] { restart(); });
    case Qt::Key_Escape:
    case Qt::Key_Q:
        close();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void replayInWindow(InkInput &input, const PictureSettings &settings, double speed, bool closesAtEnd)
{
    ReplayWindow window(input, settings, speed, closesAtEnd);
    window.show();
    QApplication::exec();
    if (window.failure() != nullptr)
        throw Failure(*window.failure());
}
