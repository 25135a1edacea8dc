#include "papercolours.h"

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

constexpr double kEnough = 4.5; ///< for letters

double luminance(const QColor &colour)
{
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor accentOnPaper(const QPalette &palette)
{
    QColor colour = palette.color(QPalette::Active, QPalette::Highlight).toRgb();
    while (contrast(colour, Qt::white) < kEnough)
        colour = QColor(colour.red() * 9 / 10, colour.green() * 9 / 10, colour.blue() * 9 / 10);
    return colour;
}

} // namespace signdesk
