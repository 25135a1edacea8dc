#include "rates.h"

#include <QEvent>

namespace signdesk {

namespace {

constexpr qint64 kSpan = 1000; ///< milliseconds

} // namespace

void RateMeter::look(qint64 time, int count)
{
    if (!m_looks.empty() && count < m_looks.back().count)
        m_looks.clear();
    m_looks.push_back({time, count});
    while (m_looks.size() > 2 && m_looks[1].time <= time - kSpan)
        m_looks.pop_front();
}

double RateMeter::perSecond() const
{
    if (m_looks.size() < 2 || m_looks.back().time <= m_looks.front().time)
        return 0;
    return 1000.0 * (m_looks.back().count - m_looks.front().count)
        / static_cast<double>(m_looks.back().time - m_looks.front().time);
}

Rates::Rates(QObject *parent)
    : QObject(parent)
{
    m_clock.start();
}

void Rates::watch(QWidget *widget)
{
    if (m_widget != nullptr)
        m_widget->removeEventFilter(this);
    m_widget = widget;
    if (widget != nullptr)
        widget->installEventFilter(this);
    m_paints = 0;
    m_packets.reset();
    m_repaints.reset();
}

void Rates::look(int points)
{
    m_packets.look(m_clock.elapsed(), points);
    m_repaints.look(m_clock.elapsed(), m_paints);
}

bool Rates::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_widget && event->type() == QEvent::Paint)
        ++m_paints;
    return false;
}

} // namespace signdesk
