#include "actionbutton.h"

namespace signdesk {

ActionButton::ActionButton(const QString &text, QAction *action, QWidget *parent)
    : QPushButton(text, parent)
    , m_action(action)
{
    connect(this, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, this, &ActionButton::follow);
    setAccessibleDescription(action->statusTip());
    follow();
}

void ActionButton::follow()
{
    setEnabled(m_action->isEnabled());
    setDefault(m_isInviting && isEnabled());
    const QString shortcut = m_action->shortcut().toString(QKeySequence::NativeText);
    setToolTip(
        shortcut.isEmpty() ? m_action->statusTip() : QStringLiteral("%1 (%2)").arg(m_action->statusTip(), shortcut));
}

} // namespace signdesk
