/// @file
/// What is to be signed: the pages of a PDF, a picture, or a blank sheet.
#ifndef PAGES_H
#define PAGES_H

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace signdesk {

struct PageFile;

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr int kFineDotsPerInch = 300; ///< of pictures that are kept or printed
constexpr double kFineDots = kFineDotsPerInch / 72.0; ///< to the point

/// A picture of a page that somebody wants.
struct PageDrawing
{
    int page = 0;
    double dotsPerPoint = 1;
    QRect part; ///< in dots; null for the whole page

    bool operator==(const PageDrawing &other) const
    {
        return page == other.page && qFuzzyCompare(dotsPerPoint, other.dotsPerPoint) && part == other.part;
    }
};

class Pages
{
public:
    using Open = std::function<std::unique_ptr<Pages>()>;

    Pages() = default;
    virtual ~Pages() = default;
    Pages(const Pages &) = delete;
    Pages &operator=(const Pages &) = delete;

    virtual int count() const = 0;

    /// In points, 72 to the inch.
    virtual QSizeF size(int page) const = 0;

    /// Those of all pages, in order.
    std::vector<QSizeF> sizes() const;

    /// An opaque picture with that many dots to the point, or with fewer where memory demands it. Null when the page
    /// cannot be drawn.
    virtual QImage render(int page, double dotsPerPoint) const = 0;

    /// That part of the page's picture, in dots. The dots to the point are never fewer than asked for.
    virtual QImage renderPart(int page, double dotsPerPoint, const QRect &part) const;

    /// Either of the two above. It may give up, with any picture, as soon as `isUnwanted` says so.
    virtual QImage draw(const PageDrawing &drawing, const std::function<bool()> &isUnwanted) const;

    /// Where the text is on the page as it is shown, in points, in the order of reading; its case does not count.
    virtual std::vector<QRectF> find(int page, const QString &text) const;

    /// Opens the same pages once more, for another thread: these here serve one thread alone.
    virtual Open opener() const = 0;

    /// As a PDF document: its own bytes, or one page with the picture. Throws a Trouble when it cannot be made.
    virtual QByteArray pdf() const;
    virtual QByteArray password() const { return {}; }
    virtual bool isPdf() const { return false; }

    /// The same for each copy of a form, however it was filled in or signed.
    virtual QString identity() const = 0;

    /// The file that it was read from; null for a blank sheet.
    virtual const PageFile *file() const { return nullptr; }

    /// Whether the file has changed since it was opened. The pages stay as they were.
    bool isOutdated() const;
};

/// Limits the dots to the point for pages so large that their picture would take too much memory.
double affordableDots(const QSizeF &page, double dotsPerPoint);

/// One white A4 sheet.
std::unique_ptr<Pages> blankPages();

/// A PDF or a picture that Qt can read. Throws a Trouble, or a PasswordNeeded.
std::unique_ptr<Pages> openPages(const QString &path, const QByteArray &password = {});

/// The same from bytes, wherever they come from.
std::unique_ptr<Pages> pagesOf(PageFile file, const QByteArray &password = {});

/// Thrown for a PDF that the password given does not open.
struct PasswordNeeded
{
    bool wasWrong; ///< one was given
};

} // namespace signdesk

#endif
