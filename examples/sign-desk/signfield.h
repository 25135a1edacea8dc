/// @file
/// The signature's field on a page, in points.
#ifndef SIGNFIELD_H
#define SIGNFIELD_H

#include <QRectF>

namespace signdesk {

/// The field nearest to the wished one that lies on the page, has the proportions of the pad's writing area and is
/// large enough to sign in.
QRectF fieldOnPage(const QRectF &wish, const QSizeF &page, double proportions);

/// The field on a new page: at the lower right, where people usually sign.
QRectF usualField(const QSizeF &page, double proportions);

/// A field of the same size for another signature: at its left, else above it, where there is room.
QRectF fieldBeside(const QRectF &field, const QSizeF &page);

/// A separate field for the fingerprint: beside the signature's field, or wherever there is room.
QRectF fingerprintField(const QRectF &signature, const QSizeF &page);

} // namespace signdesk

#endif
