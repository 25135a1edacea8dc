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
    /// The text differs from the menu item's because it needs another mnemonic. The tool tip shows the shortcut.
    ActionButton(const QString &text, QAction *action, QWidget *parent = nullptr);

    /// Highlights the button while its action is enabled.
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
