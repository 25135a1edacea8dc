/// @file
/// The window's last line: what to do next, and how fast packets and repaints come.
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

    void note(const QString &message) { m_note->setText(message); }
    void show(int points, const Rates &rates);

private:
    QLabel *m_note;
    QLabel *m_points;
    QLabel *m_packetRate;
    QLabel *m_repaintRate;
};

} // namespace signdesk

#endif
