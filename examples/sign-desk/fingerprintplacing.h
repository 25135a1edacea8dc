/// @file
/// Where a pad with a sensor puts the fingerprint, and what of it goes onto the page.
#ifndef FINGERPRINTPLACING_H
#define FINGERPRINTPLACING_H

#include "padsession.h"
#include "pagesheet.h"

#include <QImage>

namespace signdesk {

enum class FingerprintPlace
{
    Centre, ///< of the signature's field
    RightEnd, ///< of the signature's field
    OwnField ///< on the page
};

class FingerprintPlacing : public QObject
{
    Q_OBJECT
public:
    FingerprintPlacing(PadSession &session, PageSheet &sheet, QObject *parent = nullptr);

    void setPlace(FingerprintPlace place);

    /// To be called when the pad was opened, and when the field's size has changed. Throws a Trouble.
    void apply();

    /// Before the pad is closed.
    void end();

    /// The fingerprint's rectangle: dark ridges on transparent paper, for whatever lies below. Both throw a Trouble
    /// when there is none.
    QImage picture() const;
    QByteArray pngFile() const;

    /// On the page, in points.
    QRectF rectangle() const;

private:
    QRect inField() const;
    QByteArray imageFile(int type) const;

    PadSession &m_session;
    PageSheet &m_sheet;
    FingerprintPlace m_place = FingerprintPlace::Centre;
    QPointer<QWidget> m_ownField;
};

/// White becomes transparent, and what is lighter than its own full colour as transparent as it is light.
QImage withoutPaper(const QImage &image);

} // namespace signdesk

#endif
