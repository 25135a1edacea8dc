#include "pagecache.h"

#include <algorithm>
#include <numeric>

namespace signdesk {

void PageCache::setOutdated()
{
    for (Entry &entry : m_entries)
        entry.dotsPerPoint = 0;
}

void PageCache::put(Entry entry)
{
    m_entries.remove_if([&](const Entry &old) { return old.page == entry.page; });
    m_entries.push_front(std::move(entry));
    for (qint64 held = bytes(); held > m_mostBytes && m_entries.size() > 1; m_entries.pop_back())
        held -= m_entries.back().picture.sizeInBytes();
}

const PageCache::Entry *PageCache::find(int page)
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [=](const Entry &entry) { return entry.page == page; });
    if (found == m_entries.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, found);
    return &m_entries.front();
}

bool PageCache::holds(int page, double dotsPerPoint)
{
    const Entry *const entry = find(page);
    return entry != nullptr && qFuzzyCompare(entry->dotsPerPoint, dotsPerPoint);
}

qint64 PageCache::bytes() const
{
    return std::accumulate(m_entries.begin(), m_entries.end(), qint64{0},
        [](qint64 sum, const Entry &entry) { return sum + entry.picture.sizeInBytes(); });
}

} // namespace signdesk
