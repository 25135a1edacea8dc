#include "signfield.h"

#include "pages.h"

#include <modelrows.h>

#include <algorithm>

namespace signdesk {

namespace {

constexpr double kSmallestWidth = 30 * kPointsPerMillimetre;
constexpr double kUsualWidth = 90 * kPointsPerMillimetre;
constexpr double kMargin = 15 * kPointsPerMillimetre;
constexpr double kGap = 5 * kPointsPerMillimetre;
constexpr double kSensorProportions = double{kFingerprintWidth} / kFingerprintHeight;

/// Moves the field inside the page. One that is too large is aligned with the left and top edge.
QPointF inside(const QRectF &rectangle, const QSizeF &page)
{
    return {std::max(0.0, std::min(rectangle.x(), page.width() - rectangle.width())),
        std::max(0.0, std::min(rectangle.y(), page.height() - rectangle.height()))};
}

} // namespace

QRectF fieldOnPage(const QRectF &wish, const QSizeF &page, double proportions)
{
    const double widest = std::min(page.width(), page.height() * proportions);
    const double width = std::min(std::max(wish.width(), kSmallestWidth), widest);
    const QRectF field(wish.topLeft(), QSizeF(width, width / proportions));
    return {inside(field, page), field.size()};
}

QRectF usualField(const QSizeF &page, double proportions)
{
    const double width = std::min(kUsualWidth, page.width() * 0.5);
    const double height = width / proportions;
    const QRectF field(page.width() - kMargin - width, page.height() - 2 * kMargin - height, width, height);
    return fieldOnPage(field, page, proportions);
}

QRectF fieldBeside(const QRectF &field, const QSizeF &page)
{
    const QPointF steps[] = {
        {-field.width() - kGap, 0}, {0, -field.height() - kGap}, {field.width() + kGap, 0}, {0, field.height() + kGap}};
    for (const QPointF &step : steps) {
        const QRectF beside = field.translated(step);
        if (QRectF({}, page).contains(beside))
            return beside;
    }
    return field;
}

QRectF fingerprintField(const QRectF &signature, const QSizeF &page)
{
    const QSizeF size(signature.height() * kSensorProportions, signature.height());
    QPointF at(signature.right() + kGap, signature.y());
    if (at.x() + size.width() > page.width())
        at.setX(signature.x() - kGap - size.width());
    if (at.x() < 0)
        at = {signature.x(), signature.y() - kGap - size.height()};
    return {inside(QRectF(at, size), page), size};
}

} // namespace signdesk
