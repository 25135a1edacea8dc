/// @file
/// The signature's field on a page, in points.
#ifndef SIGNFIELD_H
#define SIGNFIELD_H

#include <QRectF>

namespace signdesk {

/// As near to the wish as it can lie on the page: `proportions` of a pad's writing area, not too small to sign.
QRectF fieldOnPage(const QRectF &wish, const QSizeF &page, double proportions);

/// Where a new page's field lies: at the lower right, where one signs.
QRectF usualField(const QSizeF &page, double proportions);

/// A fingerprint's own field: beside the signature's, or where else there is room.
QRectF fingerprintField(const QRectF &signature, const QSizeF &page);

} // namespace signdesk

#endif
