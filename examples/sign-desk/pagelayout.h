/// @file
/// Pages in a column, one below the other: where each of them is. Numbers alone.
#ifndef PAGELAYOUT_H
#define PAGELAYOUT_H

#include <QRectF>
#include <QSizeF>

#include <vector>

namespace signdesk {

class PageLayout
{
public:
    static constexpr double kMargin = 20; ///< pixels around and between the pages

    /// In points. There is at least one page.
    void setPages(std::vector<QSizeF> sizes);
    const std::vector<QSizeF> &pages() const { return m_sizes; }

    /// Limits the scale, also so that no page and no number of pages exceeds what a screen's coordinates can say.
    void setScale(double pixelsPerPoint);
    double scale() const { return m_scale; }

    /// The scale at which the pages are as wide as that many pixels. One much wider than the first does not make all
    /// others small.
    double fitting(double width) const;

    int count() const { return static_cast<int>(m_sizes.size()); }
    QSizeF pageSize(int page) const { return m_sizes[static_cast<size_t>(page)]; }

    /// In pixels, with the margins.
    QSizeF size() const;

    /// In pixels of the column, whose width the caller may know to be larger.
    QRectF page(int index, double width) const;

    /// The page at this height, or the nearest one.
    int pageAt(double y) const;

private:
    double top(int page) const;

    std::vector<QSizeF> m_sizes{{595, 842}};
    std::vector<double> m_tops{0, 842}; ///< of each page, and the end of the last; in points, without gaps
    double m_widest = 595;
    double m_longestSide = 842;
    double m_scale = 1;
};

} // namespace signdesk

#endif
