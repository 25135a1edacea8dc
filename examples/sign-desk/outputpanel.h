/// @file
/// The part of the side panel where the signature leaves the desk.
#ifndef OUTPUTPANEL_H
#define OUTPUTPANEL_H

#include "deskactions.h"
#include "signatureoutput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

namespace signdesk {

class OutputPanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit OutputPanel(const DeskActions &actions, QWidget *parent = nullptr);

    OutputOptions options() const;

private:
    QCheckBox *m_cutsToInk;
    QComboBox *m_resolution;
};

} // namespace signdesk

#endif
