#include "deskstatus.h"

#include <QAccessible>

namespace signdesk {

DeskStatus::DeskStatus(QStatusBar &bar)
    : QObject(&bar)
    , m_note(new QLabel)
    , m_points(new QLabel)
    , m_packetRate(new QLabel)
    , m_repaintRate(new QLabel)
{
    m_note->setContentsMargins(14, 8, 14, 8);
    m_note->setWordWrap(true);
    bar.setContentsMargins(8, 0, 8, 0);
    for (QLabel *label : {m_points, m_packetRate, m_repaintRate}) {
        label->setMargin(3);
        bar.addPermanentWidget(label);
    }
    m_points->setObjectName(QStringLiteral("points"));
    m_packetRate->setObjectName(QStringLiteral("packetRate"));
    m_repaintRate->setObjectName(QStringLiteral("repaintRate"));
    m_note->setObjectName(QStringLiteral("note"));
}

void DeskStatus::note(const QString &message)
{
    m_note->setText(message);
    QAccessibleEvent said(m_note, QAccessible::Alert); // makes screen readers read it out at once
    QAccessible::updateAccessibility(&said);
}

void DeskStatus::show(int points, const Rates &rates)
{
    m_points->setText(tr("%1 points").arg(points));
    m_packetRate->setText(tr("%1 packets/s").arg(qRound(rates.packetsPerSecond())));
    m_repaintRate->setText(tr("%1 repaints/s").arg(qRound(rates.repaintsPerSecond())));
}

} // namespace signdesk
