/// @file
/// What the clerk sets, at the window's right: panels in a column, scrolled where the screen is low.
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
