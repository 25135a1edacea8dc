/// @file
/// What to do next, below the page; and at the window's lower edge how fast packets and repaints come.
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

    /// The line that note() writes; whoever lays it out owns it.
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
