#include "fingerprintplacing.h"

#include "signfield.h"

#include <modelrows.h>

namespace signdesk {

namespace {

constexpr double kHalf = 0.5; ///< of the field's height
constexpr double kTall = 0.9;

QSizeF fingerprintOfHeight(double height)
{
    return {height * kFingerprintWidth / kFingerprintHeight, height};
}

} // namespace

QRectF fingerprintRectangle(FingerprintPlace place, const QRectF &field, const QSizeF &page, bool isInside)
{
    if (place == FingerprintPlace::OwnField && !isInside)
        return fingerprintField(field, page);
    if (place == FingerprintPlace::Centre) {
        QRectF half({}, fingerprintOfHeight(field.height() * kHalf));
        half.moveCenter(field.center());
        return half;
    }
    const QSizeF tall = fingerprintOfHeight(field.height() * kTall);
    const double gap = (field.height() - tall.height()) / 2;
    return {QPointF(field.right() - gap - tall.width(), field.top() + gap), tall};
}

} // namespace signdesk
