/// @file
/// The part of the side panel that says whose certificate signs.
#ifndef SIGNATORYPANEL_H
#define SIGNATORYPANEL_H

#include "deskactions.h"

#include <QGroupBox>
#include <QLabel>

namespace signdesk {

class SignatoryPanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit SignatoryPanel(const DeskActions &actions, QWidget *parent = nullptr);

    void show(const Signatory &signatory);

    using QWidget::show;

private:
    QLabel *m_owner;
};

} // namespace signdesk

#endif
