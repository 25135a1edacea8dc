/// @file
/// Where on the page the fingerprint of a pad with a sensor goes.
#ifndef FINGERPRINTPLACING_H
#define FINGERPRINTPLACING_H

#include <QRectF>

namespace signdesk {

enum class FingerprintPlace
{
    Centre, ///< of the signature's field
    RightEnd, ///< of the signature's field
    OwnField ///< on the page
};

/// For a signature's field on a page, both in points.
/// @param isInside in the field, whatever the place says: a form's field holds all of its signature
QRectF fingerprintRectangle(FingerprintPlace place, const QRectF &field, const QSizeF &page, bool isInside);

} // namespace signdesk

#endif
