#include "penpanel.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPainter>

namespace signdesk {

namespace {

QIcon swatch(const QColor &colour)
{
    QPixmap picture(32, 32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 80), 2));
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(2, 2, 28, 28), 6, 6);
    return QIcon(picture);
}

} // namespace

PenPanel::PenPanel(QWidget *parent)
    : QGroupBox(tr("Pen"), parent)
    , m_width(new QSpinBox)
    , m_colour(new QComboBox)
    , m_pressure(new QCheckBox(tr("Width &by pressure")))
{
    m_width->setRange(1, 10);
    m_width->setAccessibleDescription(tr("From 1, fine, to 10, broad; for what is written from now on"));
    m_colour->setAccessibleDescription(tr("Of the whole signature: it is chosen before anything is written"));
    m_pressure->setAccessibleDescription(tr("Off: all strokes are equally broad"));
    addColour(tr("Black"), QColor(20, 20, 20));
    addColour(tr("Dark blue"), QColor(13, 33, 99));
    addColour(tr("Blue"), QColor(26, 82, 190));
    addColour(tr("Green"), QColor(14, 102, 60));
    addColour(tr("Red"), QColor(170, 24, 24));
    m_colour->addItem(tr("Other..."));
    setPen({2, QColor(13, 33, 99), true});

    auto *const form = new QFormLayout(this);
    form->addRow(tr("W&idth"), m_width);
    form->addRow(tr("C&olour"), m_colour);
    form->addRow(m_pressure);
    connect(m_width, qOverload<int>(&QSpinBox::valueChanged), this, &PenPanel::penChanged);
    connect(m_pressure, &QCheckBox::toggled, this, &PenPanel::penChanged);
    connect(m_colour, qOverload<int>(&QComboBox::activated), this, &PenPanel::chooseColour);
}

void PenPanel::addColour(const QString &name, const QColor &colour)
{
    m_colour->addItem(swatch(colour), name, colour);
}

void PenPanel::setHasInk(bool has)
{
    m_colour->setEnabled(!has);
}

Pen PenPanel::pen() const
{
    return {m_width->value(), m_colour->itemData(m_lastColour).value<QColor>(), m_pressure->isChecked()};
}

void PenPanel::setPen(const Pen &pen)
{
    int index = m_colour->findData(pen.colour);
    if (index < 0) {
        index = m_colour->count() - 1;
        m_colour->insertItem(index, swatch(pen.colour), pen.colour.name(), pen.colour);
    }
    m_lastColour = index;
    m_colour->setCurrentIndex(index);
    m_width->setValue(pen.width);
    m_pressure->setChecked(pen.followsPressure);
}

void PenPanel::chooseColour(int index)
{
    if (m_colour->itemData(index).isValid()) {
        m_lastColour = index;
    } else {
        const QColor chosen = QColorDialog::getColor(pen().colour, this, tr("Colour of the pen"));
        m_colour->setCurrentIndex(m_lastColour);
        if (chosen.isValid())
            setPen({m_width->value(), chosen, m_pressure->isChecked()});
    }
    emit penChanged();
}

} // namespace signdesk
