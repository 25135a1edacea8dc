#include "pagelayout.h"

#include <algorithm>

namespace signdesk {

namespace {

constexpr double kSmallestScale = 0.1; ///< pixels to the point
constexpr double kLargestScale = 6;
constexpr double kSmallestPage = 100; ///< pixels of a huge page's longer side
constexpr double kLongestColumn = 1e9; ///< pixels of all pages
constexpr double kBroadestPage = 1e7; ///< pixels of a page: a widget's coordinates go no further
constexpr double kMuchWider = 1.5;

} // namespace

void PageLayout::setPages(std::vector<QSizeF> sizes)
{
    m_sizes = std::move(sizes);
    m_tops = {0};
    m_widest = 0;
    m_longestSide = 0;
    for (const QSizeF &size : m_sizes) {
        m_tops.push_back(m_tops.back() + size.height());
        m_widest = std::max(m_widest, size.width());
        m_longestSide = std::max({m_longestSide, size.width(), size.height()});
    }
    setScale(m_scale);
}

void PageLayout::setScale(double pixelsPerPoint)
{
    const double most = std::min(kBroadestPage / m_longestSide, kLongestColumn / m_tops.back());
    const double least = std::min(kSmallestScale, kSmallestPage / m_longestSide);
    m_scale = std::min(std::clamp(pixelsPerPoint, least, kLargestScale), most);
}

double PageLayout::fitting(double width) const
{
    return width / std::min(m_widest, m_sizes.front().width() * kMuchWider);
}

double PageLayout::top(int page) const
{
    return kMargin * (page + 1) + m_tops[static_cast<size_t>(page)] * m_scale;
}

QSizeF PageLayout::size() const
{
    return {m_widest * m_scale + 2 * kMargin, top(count() - 1) + m_sizes.back().height() * m_scale + kMargin};
}

QRectF PageLayout::page(int index, double width) const
{
    const QSizeF size = pageSize(index) * m_scale;
    return {QPointF((std::max(width, this->size().width()) - size.width()) / 2, top(index)), size};
}

int PageLayout::pageAt(double y) const
{
    int first = 0, last = count() - 1;
    while (first < last) { // the last page that begins above
        const int middle = (first + last + 1) / 2;
        if (top(middle) - kMargin / 2 <= y)
            first = middle;
        else
            last = middle - 1;
    }
    return first;
}

} // namespace signdesk
