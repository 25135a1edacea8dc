/// @file
/// Draws the pad (body, writing area, buttons) and takes the touches of mouse, finger and stylus.
#ifndef PADFACE_H
#define PADFACE_H

#include "packetclock.h"
#include "padlook.h"

#include <QBasicTimer>
#include <QImage>
#include <QPolygonF>
#include <QWidget>

#include <chrono>

struct ModelRow;

namespace virtualpad {

/// What the pad shows, besides the ink.
struct PadDisplay
{
    bool hasPower = true; ///< it is plugged in
    bool isOpen = false; ///< a program has the pad open
    bool isScreenOn = false;
    QString version; ///< empty: not shown
    QImage picture; ///< null: none
};

class PadFace : public QWidget
{
    Q_OBJECT
public:
    explicit PadFace(QWidget *parent = nullptr);

    void setModel(const ModelRow &model);
    void setDisplay(const PadDisplay &display);
    const PadDisplay &display() const { return m_display; }
    void clearInk();
    bool hasInk() const { return !m_strokes.isEmpty(); }

    QRectF writingArea() const;
    QRectF confirmArea() const;
    QRectF cancelArea() const;
    QRectF sensorArea() const; ///< empty on pads without one

    QSize sizeHint() const override;

signals:
    void sensorTouched();

    /// Moments of the machine's steady clock.
    void packetDue(std::chrono::steady_clock::time_point time, const virtualpad::PenPoint &point, int status);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void tabletEvent(QTabletEvent *event) override;
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    enum class Stage
    {
        Down,
        Move,
        Up
    };
    static constexpr double kNoPressure = -1; ///< the device has none

    QRectF body() const;
    QRectF button(int index) const;
    void touch(Stage stage, const QPointF &place, double pressure);
    void touchDown(std::int64_t now, const PenPoint &point, const QPointF &place);
    double speedPressure(std::int64_t now, const QPointF &share);
    void paintBody(QPainter &painter) const;
    void paintSurface(QPainter &painter) const;
    void paintInk(QPainter &painter) const;
    void paintButton(QPainter &painter, int index) const;
    void paintSensor(QPainter &painter) const;

    const ModelRow *m_model = nullptr;
    PadDisplay m_display;
    PacketClock m_clock;
    QBasicTimer m_timer;
    struct Stroke
    {
        QPolygonF places; ///< shares of the writing area
        QVector<double> pressures;
    };
    QVector<Stroke> m_strokes;
    bool m_isTouched = false;
    int m_pressedButton = -1;
    std::int64_t m_lastUs = 0;
    QPointF m_lastShare;
    double m_lastPressure = 0;
};

} // namespace virtualpad

#endif
