/// @file
/// What is to be signed: the pages of a PDF, a picture, or a blank sheet.
#ifndef PAGES_H
#define PAGES_H

#include <QImage>
#include <QSizeF>
#include <QString>

#include <memory>

namespace signdesk {

constexpr double kPointsPerMillimetre = 72 / 25.4;

class Pages
{
public:
    Pages() = default;
    virtual ~Pages() = default;
    Pages(const Pages &) = delete;
    Pages &operator=(const Pages &) = delete;

    virtual int count() const = 0;

    /// In points, 72 to the inch.
    virtual QSizeF size(int page) const = 0;

    /// An opaque picture with that many dots to the point, or with fewer where memory demands it. Null when the page
    /// cannot be drawn.
    virtual QImage render(int page, double dotsPerPoint) const = 0;

    /// Whether the file has changed since it was opened. The pages stay as they were.
    virtual bool isOutdated() const { return false; }
};

/// Limits the dots to the point for pages so large that their picture would take too much memory.
double affordableDots(const QSizeF &page, double dotsPerPoint);

/// One white A4 sheet.
std::unique_ptr<Pages> blankPages();

/// A PDF or a picture that Qt can read. Throws a Trouble.
std::unique_ptr<Pages> openPages(const QString &path);

} // namespace signdesk

#endif
