#include "textsearch.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace signdesk {

TextSearch::TextSearch(PageRenderer &renderer, QObject *parent)
    : QObject(parent)
    , m_renderer(renderer)
{
    connect(&m_renderer, &PageRenderer::searched, this, &TextSearch::take);
}

void TextSearch::begin(const QString &text, int firstPage)
{
    m_text = text;
    m_found = {};
    m_count = 0;
    m_isRunning = !text.isEmpty();
    m_pagesLeft = m_renderer.pageCount();
    m_renderer.find(text, firstPage);
    emit changed();
}

void TextSearch::take(int page, const std::vector<QRectF> &places)
{
    if (!m_isRunning)
        return;
    const bool isFirst = m_found.isEmpty() && !places.empty();
    if (!places.empty())
        m_found.places.emplace(page, places);
    m_count += static_cast<int>(places.size());
    m_isRunning = --m_pagesLeft > 0 && m_count < kMostPlaces;
    if (!m_isRunning)
        m_renderer.find({}, 0);
    if (isFirst) {
        m_found.page = page;
        m_found.index = 0;
        emit moved();
    }
    emit changed();
}

void TextSearch::go(bool isForward)
{
    if (m_found.isEmpty())
        return;
    auto page = m_found.places.find(m_found.page);
    if (isForward && ++m_found.index == page->second.size()) {
        page = std::next(page) == m_found.places.end() ? m_found.places.begin() : std::next(page);
        m_found.index = 0;
    } else if (!isForward && m_found.index-- == 0) {
        page = std::prev(page == m_found.places.begin() ? m_found.places.end() : page);
        m_found.index = page->second.size() - 1;
    }
    m_found.page = page->first;
    emit moved();
    emit changed();
}

int TextSearch::number() const
{
    if (m_found.isEmpty())
        return 0;
    const size_t before = std::accumulate(m_found.places.begin(), m_found.places.find(m_found.page), size_t{0},
        [](size_t sum, const auto &page) { return sum + page.second.size(); });
    return static_cast<int>(before + m_found.index) + 1;
}

} // namespace signdesk
