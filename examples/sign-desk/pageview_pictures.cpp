// Which pictures of pages the view needs: of each page in sight, and of its neighbours.
#include "pageview.h"

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

constexpr double kMostDots =
    12e6; ///< of a page that is drawn as a whole; of a larger one what is in sight is drawn too
constexpr double kMostNeighbourDots = 6e6;

double areaOf(const QSizeF &size)
{
    return size.width() * size.height();
}

QRect alignedDots(const QRectF &pixels, double ratio)
{
    return QRectF(pixels.topLeft() * ratio, pixels.size() * ratio).toAlignedRect();
}

} // namespace

double PageView::dotsPerPoint() const
{
    return scale() * devicePixelRatioF();
}

double PageView::wholeDots(int page) const
{
    return std::min(dotsPerPoint(), std::sqrt(kMostDots / areaOf(m_layout.pageSize(page))));
}

/// What is in sight of a page, in the dots of its picture.
QRect PageView::visibleDots(int page) const
{
    const QRectF paper = pagePixels(page);
    const QRectF seen = QRectF(viewport()->rect()) & paper;
    return alignedDots(seen.translated(-paper.topLeft()), devicePixelRatioF());
}

const PageView::Part *PageView::partFor(int page) const
{
    const auto found = std::find_if(m_parts.begin(), m_parts.end(), [&](const Part &part) {
        return part.drawing.page == page && qFuzzyCompare(part.drawing.dotsPerPoint, dotsPerPoint());
    });
    return found == m_parts.end() ? nullptr : &*found;
}

/// Pictures of the pages in sight.
std::vector<PageDrawing> PageView::missing()
{
    std::vector<PageDrawing> wanted, parts;
    const auto [first, last] = visiblePages();
    for (int page = first; page <= last; ++page) {
        const double dots = wholeDots(page);
        if (!m_cache.holds(page, dots))
            wanted.push_back({page, dots, {}});
        const QRect seen = visibleDots(page);
        const Part *const part = partFor(page);
        if (dots < dotsPerPoint() && !seen.isEmpty() && (part == nullptr || !part->drawing.part.contains(seen)))
            parts.push_back({page, dotsPerPoint(), seen});
    }
    wanted.insert(wanted.end(), parts.begin(), parts.end());
    return wanted;
}

bool PageView::isDrawn()
{
    return missing().empty();
}

void PageView::wantPages()
{
    m_renderSoon.stop();
    std::vector<PageDrawing> wanted = missing();
    const auto [first, last] = visiblePages();
    for (const int page : {last + 1, first - 1}) {
        if (page < 0 || page >= pageCount())
            continue;
        const double dots = wholeDots(page);
        const bool isSmall = areaOf(m_layout.pageSize(page)) * dots * dots <= kMostNeighbourDots;
        if (isSmall && !m_cache.holds(page, dots))
            wanted.push_back({page, dots, {}});
    }
    m_renderer.want(PageUse::View, wanted);
}

void PageView::takePage(const PageDrawing &drawing, const QImage &picture)
{
    if (drawing.part.isNull()) {
        m_cache.put({drawing.page, drawing.dotsPerPoint, picture});
    } else {
        const auto [first, last] = visiblePages();
        m_parts.erase(std::remove_if(m_parts.begin(), m_parts.end(),
                          [&, first = first, last = last](const Part &part) {
                              const int page = part.drawing.page;
                              return page == drawing.page || page < first || page > last;
                          }),
            m_parts.end());
        m_parts.push_back({drawing, picture});
    }
    viewport()->update();
}

} // namespace signdesk
