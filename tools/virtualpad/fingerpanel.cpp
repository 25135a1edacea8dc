#include "fingerpanel.h"

#include "greyimage.h"
#include "modelrows.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

namespace virtualpad {

namespace {

/// A fingerprint that is built into the driver, and its score.
struct Finger
{
    const char *name;
    const char *file;
    int score;
};

constexpr Finger kFingers[] = {
    {QT_TRANSLATE_NOOP("virtualpad::FingerPanel", "Faint finger"), "finger-faint.pgm", 28},
    {QT_TRANSLATE_NOOP("virtualpad::FingerPanel", "Fair finger"), "finger-fair.pgm", 55},
    {QT_TRANSLATE_NOOP("virtualpad::FingerPanel", "Clear finger"), "finger-clear.pgm", 86},
    {QT_TRANSLATE_NOOP("virtualpad::FingerPanel", "No image"), "-", 50},
};

} // namespace

FingerPanel::FingerPanel(QWidget *parent)
    : QWidget(parent)
    , m_finger(new QComboBox)
    , m_score(new QSpinBox)
    , m_touch(new QPushButton(tr("Lay &finger on")))
{
    for (const Finger &finger : kFingers)
        m_finger->addItem(tr(finger.name), QString::fromLatin1(finger.file));
    m_finger->addItem(tr("From a picture..."));
    m_finger->setAccessibleName(tr("Finger"));
    m_score->setRange(-1000, 1000);
    m_score->setAccessibleName(tr("Score"));
    auto *const score = new QLabel(tr("S&core:"));
    score->setBuddy(m_score);
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(m_finger);
    layout->addWidget(score);
    layout->addWidget(m_score);
    layout->addWidget(m_touch);
    layout->addStretch();
    connect(m_finger, QOverload<int>::of(&QComboBox::activated), this, &FingerPanel::chooseFinger);
    connect(m_touch, &QPushButton::clicked, this, &FingerPanel::layOn);
    m_finger->setCurrentIndex(2);
    chooseFinger();
}

void FingerPanel::layOn()
{
    emit fingerLaidOn(m_finger->currentData().toString(), m_score->value());
}

void FingerPanel::chooseFinger()
{
    if (m_finger->currentData().isNull())
        choosePicture();
    m_finger->setCurrentIndex(m_finger->currentData().isNull() ? m_chosen : m_finger->currentIndex());
    m_chosen = m_finger->currentIndex();
    if (m_chosen < static_cast<int>(std::size(kFingers)))
        m_score->setValue(kFingers[m_chosen].score);
}

/// Converts any picture to the sensor's size, into a file that the driver can be told of.
void FingerPanel::choosePicture()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Picture of a finger"), QString(), tr("Pictures (*.pgm *.png *.jpg *.jpeg *.bmp);;All files (*)"));
    if (file.isEmpty())
        return;
    const QString copy = m_directory.filePath(QStringLiteral("finger-%1.pgm").arg(++m_pictures));
    const QImage picture =
        QImage(file).scaled(kFingerprintWidth, kFingerprintHeight).convertToFormat(QImage::Format_Grayscale8);
    if (picture.isNull() || !picture.save(copy, "PGM")) {
        QMessageBox::warning(this, tr("Picture of a finger"), tr("%1 cannot be read as a picture.").arg(file));
        return;
    }
    m_finger->insertItem(m_finger->count() - 1, QFileInfo(file).fileName(), copy);
    m_finger->setCurrentIndex(m_finger->count() - 2);
}

} // namespace virtualpad
