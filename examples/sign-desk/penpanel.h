/// @file
/// The part of the side panel for the pen.
#ifndef PENPANEL_H
#define PENPANEL_H

#include "padsession.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QSpinBox>

namespace signdesk {

class PenPanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit PenPanel(QWidget *parent = nullptr);

    Pen pen() const;
    void setPen(const Pen &pen);

    /// A signature has one colour.
    void setHasInk(bool has);

signals:
    /// For strokes to come.
    void penChanged();

private:
    void addColour(const QString &name, const QColor &colour);
    void chooseColour(int index);

    QSpinBox *m_width;
    QComboBox *m_colour;
    QCheckBox *m_pressure;
    int m_lastColour = 0;
};

} // namespace signdesk

#endif
