/// @file
/// The clerk's settings at the right of the window: panels in a column, which scrolls on low screens.
#ifndef SIDEPANEL_H
#define SIDEPANEL_H

#include <QScrollArea>

namespace signdesk {

class SidePanel : public QScrollArea
{
    Q_OBJECT
public:
    /// As wide as the panels want to be now.
    explicit SidePanel(const QList<QWidget *> &panels, QWidget *parent = nullptr);
};

} // namespace signdesk

#endif
