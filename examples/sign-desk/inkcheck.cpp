#include "inkcheck.h"

#include "inkpainting.h"
#include "pages.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

constexpr double kEnough = 0.97; ///< of the lines; the rest is left to rounding where lines are thin
constexpr int kNear = 160; ///< difference of two colours that count as alike; black and white differ by 765

int distance(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other))
        + std::abs(qBlue(one) - qBlue(other));
}

/// Whether something near the wanted colour is at this dot or beside it.
bool isNear(const QImage &seen, const QPoint &dot, QRgb wanted)
{
    for (int y = dot.y() - 1; y <= dot.y() + 1; ++y) {
        for (int x = dot.x() - 1; x <= dot.x() + 1; ++x) {
            if (seen.valid(x, y) && distance(seen.pixel(x, y), wanted) < kNear)
                return true;
        }
    }
    return false;
}

/// The share of the lines whose middles have what they should have.
double linesSeen(const QImage &seen, const QImage &wanted, const documents::Ink &ink, const QRectF &canvas)
{
    const double scale = canvas.width() / ink.canvas.width();
    int found = 0;
    for (const documents::InkLine &line : ink.lines) {
        const QPoint dot = (canvas.topLeft() + (line.from + line.to) / 2 * scale).toPoint();
        const QPoint inside(std::clamp(dot.x(), 0, wanted.width() - 1), std::clamp(dot.y(), 0, wanted.height() - 1));
        found += isNear(seen, inside, wanted.pixel(inside)) ? 1 : 0;
    }
    return ink.lines.empty() ? 1 : static_cast<double>(found) / static_cast<double>(ink.lines.size());
}

/// The share of the fingerprint's dark dots that are there.
double pictureSeen(const QImage &seen, const QImage &wanted, const documents::Ink &ink, const QRectF &canvas)
{
    if (ink.picture.isNull())
        return 1;
    const double scale = canvas.width() / ink.canvas.width();
    const QRect part = QRectF(canvas.topLeft() + ink.picturePlace.topLeft() * scale, ink.picturePlace.size() * scale)
                           .toAlignedRect()
                           .intersected(wanted.rect());
    int dark = 0, found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (distance(wanted.pixel(x, y), qRgb(255, 255, 255)) < 2 * kNear)
                continue;
            ++dark;
            found += isNear(seen, {x, y}, wanted.pixel(x, y)) ? 1 : 0;
        }
    }
    return dark == 0 ? 1 : static_cast<double>(found) / dark;
}

} // namespace

bool hasInk(const Pages &pages, int page, const QRectF &place, const documents::Ink &ink)
{
    const QRect part = QRectF(place.topLeft() * kFineDots, place.size() * kFineDots).toAlignedRect();
    const QImage seen = pages.renderPart(page, kFineDots, part);
    if (seen.size() != part.size())
        return false;
    const QRectF canvas =
        canvasIn(QRectF(place.topLeft() * kFineDots - part.topLeft(), place.size() * kFineDots), ink.canvas);
    QImage wanted(part.size(), QImage::Format_RGB32);
    wanted.fill(Qt::white);
    QPainter painter(&wanted);
    paintPicture(painter, ink, canvas);
    paintLines(painter, ink, canvas);
    painter.end();
    constexpr double kEnoughOfPicture = 0.8; // dots are resampled by another program
    return linesSeen(seen, wanted, ink, canvas) >= kEnough
        && pictureSeen(seen, wanted, ink, canvas) >= kEnoughOfPicture;
}

} // namespace signdesk
