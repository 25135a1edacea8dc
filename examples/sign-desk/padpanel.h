/// @file
/// The part of the side panel where a signature begins and ends.
#ifndef PADPANEL_H
#define PADPANEL_H

#include "deskactions.h"
#include "padfamilies.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace signdesk {

class PadPanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit PadPanel(const DeskActions &actions, QWidget *parent = nullptr);

    const PadFamily &model() const;
    void setModel(const PadFamily &model);
    /// The keyboard's next key goes to the button that the clerk needs next.
    void focusConfirm() { m_confirm->setFocus(Qt::OtherFocusReason); }

    void follow(SigningState state, bool isPadAway);

signals:
    void modelChanged();

private:
    QPushButton *m_confirm = nullptr;
    QComboBox *m_model;
    QLabel *m_light;
    QLabel *m_state;
};

} // namespace signdesk

#endif
