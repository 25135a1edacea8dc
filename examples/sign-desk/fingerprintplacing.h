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

    /// Call it after opening the pad and after the field has changed its size. Throws a Trouble.
    void apply();

    /// Call it before the pad is closed.
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

/// Makes white transparent, and lighter shades of a colour that colour with less opacity.
QImage withoutPaper(const QImage &image);

} // namespace signdesk

#endif
