/// @file
/// Pictures of pages that were drawn lately, as many as memory should hold.
#ifndef PAGECACHE_H
#define PAGECACHE_H

#include <QImage>

#include <list>

namespace signdesk {

class PageCache
{
public:
    struct Entry
    {
        int page;
        double dotsPerPoint; ///< 0 when the page has changed since
        QImage picture; ///< null for a page that cannot be drawn
    };

    explicit PageCache(qint64 mostBytes)
        : m_mostBytes(mostBytes)
    {
    }

    void clear() { m_entries.clear(); }

    /// The pages have changed; their pictures stand in until there are new ones.
    void setOutdated();

    /// Replaces the page's earlier picture, and drops those that were not asked for longest. The new one stays,
    /// however large.
    void put(Entry entry);

    /// The page's picture at whatever scale; null without one.
    const Entry *find(int page);

    bool holds(int page, double dotsPerPoint);
    qint64 bytes() const;

private:
    qint64 m_mostBytes;
    std::list<Entry> m_entries; ///< that which was asked for last comes first
};

} // namespace signdesk

#endif
