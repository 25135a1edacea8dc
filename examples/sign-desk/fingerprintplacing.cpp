#include "fingerprintplacing.h"

#include "signfield.h"
#include "trouble.h"

#include <algorithm>

namespace signdesk {

namespace {

QSize fingerprintOfHeight(int height)
{
    return {std::max(1, height * kFingerprintWidth / kFingerprintHeight), std::max(1, height)};
}

} // namespace

FingerprintPlacing::FingerprintPlacing(PadSession &session, PageSheet &sheet, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_sheet(sheet)
{
}

void FingerprintPlacing::setPlace(FingerprintPlace place)
{
    m_place = place;
    apply();
}

void FingerprintPlacing::apply()
{
    if (!m_session.isOpen() || !m_session.model().row.hasFingerprintSensor)
        return;
    end();
    QWidget *host = &m_sheet;
    QRect place = inField();
    if (m_place == FingerprintPlace::OwnField) {
        m_ownField = host = new QWidget(&m_sheet);
        host->setAccessibleName(tr("Fingerprint"));
        m_sheet.setFingerprintWidget(host);
        host->show();
        place = host->rect();
    }
    const PadFamily &pad = m_session.model();
    if (pad.SetDisplayedFPImageAt(pad.type, host, 0, 0, place.left(), place.top(), place.width(), place.height())
        != ARI_SUCCESS)
        throw Trouble{tr("The fingerprint has no room in this field."), tr("Make the signature's field larger.")};
}

void FingerprintPlacing::end()
{
    m_sheet.setFingerprintWidget(nullptr);
    delete m_ownField;
}

QByteArray FingerprintPlacing::imageFile(int type) const
{
    QByteArray file;
    if (m_session.isOpen() && m_session.model().row.hasFingerprintSensor) {
        const PadFamily &pad = m_session.model();
        char *text = pad.GetFPImageBase64Data(pad.type, type, true);
        file = QByteArray::fromBase64(text);
        pad.FreeFPImageBase64Data(pad.type, text);
    }
    if (file.isEmpty())
        throw Trouble{tr("There is no picture of the fingerprint."),
            tr("See that the computer has memory to spare. Nothing was written; the fingerprint is still here.")};
    return file;
}

QImage FingerprintPlacing::picture() const
{
    return withoutPaper(QImage::fromData(imageFile(EBITI_BITMAP), "BMP"));
}

QByteArray FingerprintPlacing::pngFile() const
{
    return imageFile(EBITI_PNG);
}

QRectF FingerprintPlacing::rectangle() const
{
    if (m_place == FingerprintPlace::OwnField)
        return fingerprintField(m_sheet.field(), m_sheet.pageSize());
    const QRectF rectangle = inField();
    return {m_sheet.field().topLeft() + rectangle.topLeft() / m_sheet.scale(), rectangle.size() / m_sheet.scale()};
}

/// In pixels of the signing widget.
QRect FingerprintPlacing::inField() const
{
    const QSize field = m_sheet.fieldPixels().size();
    const QSize half = fingerprintOfHeight(field.height() / 2);
    if (m_place != FingerprintPlace::RightEnd)
        return {QPoint((field.width() - half.width()) / 2, (field.height() - half.height()) / 2), half};
    const QSize tall = fingerprintOfHeight(field.height() * 9 / 10);
    const int gap = (field.height() - tall.height()) / 2;
    return {QPoint(field.width() - gap - tall.width(), gap), tall};
}

QImage withoutPaper(const QImage &image)
{
    QImage ink = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < ink.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(ink.scanLine(y));
        for (int x = 0; x < ink.width(); ++x) {
            const QRgb pixel = line[x];
            const int alpha = 255 - std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)});
            const auto full = [=](int part) { return alpha == 0 ? 0 : 255 - (255 - part) * 255 / alpha; };
            line[x] = qRgba(full(qRed(pixel)), full(qGreen(pixel)), full(qBlue(pixel)), alpha);
        }
    }
    return ink;
}

} // namespace signdesk
