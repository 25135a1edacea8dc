/// @file
/// A button that does what a menu item does.
#ifndef ACTIONBUTTON_H
#define ACTIONBUTTON_H

#include <QAction>
#include <QPushButton>

namespace signdesk {

class ActionButton : public QPushButton
{
    Q_OBJECT
public:
    /// With a text of its own, for it has another mnemonic than the menu item. The tool tip names the shortcut.
    ActionButton(const QString &text, QAction *action, QWidget *parent = nullptr);

    /// Stands out as long as its action can be done.
    void setInviting()
    {
        m_isInviting = true;
        follow();
    }

private:
    void follow();

    QAction *m_action;
    bool m_isInviting = false;
};

} // namespace signdesk

#endif
