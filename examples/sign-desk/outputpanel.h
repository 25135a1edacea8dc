/// @file
/// The parts of the side panel where the signature leaves the desk: on its page, and alone.
#ifndef OUTPUTPANEL_H
#define OUTPUTPANEL_H

#include "deskactions.h"
#include "signatureoutput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>

namespace signdesk {

/// The signed document, and the end of a customer's turn.
class ResultPanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit ResultPanel(const DeskActions &actions, QWidget *parent = nullptr);
};

/// The signature alone.
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
