/// @file
/// The hint below the page about what to do next, and the rates of packets and repaints at the window's lower edge.
#ifndef DESKSTATUS_H
#define DESKSTATUS_H

#include "rates.h"

#include <QLabel>
#include <QStatusBar>

namespace signdesk {

class DeskStatus : public QObject
{
    Q_OBJECT
public:
    explicit DeskStatus(QStatusBar &bar);

    /// The label that note() writes to. Its layout owns it.
    QLabel *line() const { return m_note; }

    void note(const QString &message);
    void show(int points, const Rates &rates);

private:
    QLabel *m_note;
    QLabel *m_points;
    QLabel *m_packetRate;
    QLabel *m_repaintRate;
};

} // namespace signdesk

#endif
