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
    /// As wide as the panels want to be, in whatever font the screen gives them.
    explicit SidePanel(const QList<QWidget *> &panels, QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();

    int m_widest = 0; ///< the largest width that the panels have wanted, in pixels
};

} // namespace signdesk

#endif
