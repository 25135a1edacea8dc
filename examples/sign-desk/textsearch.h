/// @file
/// Looks for a text on all pages, beside the window, and goes from one place to the next.
#ifndef TEXTSEARCH_H
#define TEXTSEARCH_H

#include "foundplaces.h"
#include "pagerenderer.h"

namespace signdesk {

class TextSearch : public QObject
{
    Q_OBJECT
public:
    static constexpr int kMostPlaces = 9999; ///< then the search ends

    /// The renderer lives as long as this search.
    explicit TextSearch(PageRenderer &renderer, QObject *parent = nullptr);

    /// Ends the search before and looks for that text from that page on. The first place found there is the present
    /// one.
    void begin(const QString &text, int firstPage);
    void end() { begin({}, 0); }

    /// To the next place, or to the one before it, all around the document.
    void go(bool isForward);

    QString text() const { return m_text; }
    bool isRunning() const { return m_isRunning; }
    const FoundPlaces &found() const { return m_found; }
    int count() const { return m_count; }
    int number() const; ///< of the present place among all that are found, from 1; 0 when there is none

signals:
    /// There is another present place.
    void moved();

    /// Any of the above has changed.
    void changed();

private:
    void take(int page, const std::vector<QRectF> &places);

    PageRenderer &m_renderer;
    QString m_text;
    FoundPlaces m_found;
    int m_count = 0;
    int m_pagesLeft = 0;
    bool m_isRunning = false;
};

} // namespace signdesk

#endif
