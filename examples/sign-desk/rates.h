/// @file
/// How many packets come from the pad and how often the signing widget is painted, per second.
#ifndef RATES_H
#define RATES_H

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <deque>

namespace signdesk {

/// The rate of a growing count over the last second or so.
class RateMeter
{
public:
    /// @param time milliseconds of any steady clock. When the count shrinks, counting starts again.
    void look(qint64 time, int count);
    double perSecond() const;
    void reset() { m_looks.clear(); }

private:
    struct Look
    {
        qint64 time;
        int count;
    };
    std::deque<Look> m_looks;
};

class Rates : public QObject
{
    Q_OBJECT
public:
    explicit Rates(QObject *parent = nullptr);

    /// Counts this widget's paint events from now on; null stops.
    void watch(QWidget *widget);

    /// Each packet that the library accepts is one stored point.
    void look(int points);

    double packetsPerSecond() const { return m_packets.perSecond(); }
    double repaintsPerSecond() const { return m_repaints.perSecond(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QPointer<QWidget> m_widget;
    QElapsedTimer m_clock;
    int m_paints = 0;
    RateMeter m_packets;
    RateMeter m_repaints;
};

} // namespace signdesk

#endif
