#include "placepanel.h"

#include "pages.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

#include <algorithm>

namespace signdesk {

PlacePanel::PlacePanel(QWidget *parent)
    : QGroupBox(tr("Place of the signature"), parent)
    , m_form(new QFormLayout(this))
    , m_formField(new QComboBox)
    , m_page(new QSpinBox)
    , m_pageCount(new QLabel)
    , m_fingerprint(new QComboBox)
{
    m_formField->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_formField->setMinimumContentsLength(10);
    m_formField->setAccessibleDescription(tr("The field of the document's form that the signature fills"));
    m_form->addRow(tr("Empt&y field"), m_formField);
    connect(m_formField, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] {
        enable();
        emit formFieldChosen(formField());
    });
    auto *const pages = new QHBoxLayout;
    pages->addWidget(m_page, 1);
    pages->addWidget(m_pageCount);
    auto *const pageName = new QLabel(tr("P&age"));
    pageName->setBuddy(m_page);
    m_form->addRow(pageName, pages);
    m_left = addLength(tr("L&eft"), tr("From the page's left edge, in millimetres"));
    m_top = addLength(tr("To&p"), tr("From the page's upper edge, in millimetres"));
    m_width = addLength(tr("Si&ze"), tr("The width of the field, in millimetres; its height follows from the pad"));
    // In the order of FingerprintPlace.
    m_fingerprint->addItems({tr("Centre of the field"), tr("Right end of the field"), tr("Field of its own")});
    m_fingerprint->setAccessibleDescription(tr("Where the page shows the finger on the pad's sensor"));
    m_form->addRow(tr("Fin&gerprint"), m_fingerprint);
    connect(m_page, qOverload<int>(&QSpinBox::valueChanged), this, [this](int page) { emit pageChosen(page - 1); });
    connect(m_fingerprint, qOverload<int>(&QComboBox::currentIndexChanged), this,
        [this] { emit fingerprintPlaceChosen(fingerprintPlace()); });
    m_page->setAccessibleDescription(tr("The page that is to bear the signature"));
    setTabOrder(m_width, m_fingerprint);
    setPageCount(1);
    setFormFields({});
    setHasFingerprintSensor(false);
}

QDoubleSpinBox *PlacePanel::addLength(const QString &label, const QString &description)
{
    auto *const box = new QDoubleSpinBox;
    box->setDecimals(1);
    box->setRange(0, 2000);
    box->setSuffix(tr(" mm"));
    box->setKeyboardTracking(false);
    box->setAccessibleDescription(description);
    box->setToolTip(description);
    m_form->addRow(label, box);
    connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &PlacePanel::chooseField);
    return box;
}

void PlacePanel::setPageCount(int count)
{
    const QSignalBlocker quiet(m_page);
    m_page->setRange(1, count);
    m_page->setValue(1);
    m_pageCount->setText(tr("of %1").arg(count));
    enable();
}

void PlacePanel::setPage(int page)
{
    const QSignalBlocker quiet(m_page);
    m_page->setValue(page + 1);
}

void PlacePanel::setFormFields(const QStringList &names)
{
    const QSignalBlocker quiet(m_formField);
    m_formField->clear();
    m_formField->addItem(tr("None: a free place"));
    for (const QString &name : names)
        m_formField->addItem(name, name);
    m_form->labelForField(m_formField)->setVisible(!names.isEmpty());
    m_formField->setVisible(!names.isEmpty());
    enable();
}

QString PlacePanel::formField() const
{
    return m_formField->currentData().toString();
}

void PlacePanel::setFormField(const QString &name)
{
    m_formField->setCurrentIndex(std::max(0, m_formField->findData(name)));
}

void PlacePanel::setField(const QRectF &field, const QSizeF &page)
{
    const auto show = [](QDoubleSpinBox &box, double points, double most) {
        const QSignalBlocker quiet(&box);
        box.setMaximum(most / kPointsPerMillimetre);
        box.setValue(points / kPointsPerMillimetre);
    };
    show(*m_left, field.x(), page.width());
    show(*m_top, field.y(), page.height());
    show(*m_width, field.width(), page.width());
}

void PlacePanel::chooseField()
{
    emit fieldChosen({m_left->value() * kPointsPerMillimetre, m_top->value() * kPointsPerMillimetre,
        m_width->value() * kPointsPerMillimetre, 0});
}

FingerprintPlace PlacePanel::fingerprintPlace() const
{
    return static_cast<FingerprintPlace>(m_fingerprint->currentIndex());
}

void PlacePanel::setHasFingerprintSensor(bool has)
{
    m_form->labelForField(m_fingerprint)->setVisible(has);
    m_fingerprint->setVisible(has);
}

void PlacePanel::setLocked(bool isLocked)
{
    m_isLocked = isLocked;
    enable();
}

void PlacePanel::enable()
{
    const bool isFree = formField().isEmpty();
    m_formField->setEnabled(!m_isLocked);
    m_page->setEnabled(!m_isLocked && isFree && m_page->maximum() > 1);
    for (QDoubleSpinBox *box : {m_left, m_top, m_width}) {
        if (box != nullptr)
            box->setEnabled(isFree);
    }
    m_fingerprint->setEnabled(!m_isLocked);
}

} // namespace signdesk
