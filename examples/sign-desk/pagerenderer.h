/// @file
/// Has pages drawn and searched beside the window, and gives up a page that takes for ever.
#ifndef PAGERENDERER_H
#define PAGERENDERER_H

#include "drawingthread.h"

#include <QObject>
#include <QTimer>

namespace signdesk {

class PageRenderer : public QObject
{
    Q_OBJECT
public:
    explicit PageRenderer(QObject *parent = nullptr);

    /// Waits for a thread that can end soon, but not for one that a page holds.
    ~PageRenderer() override;

    /// Other pages. What was wanted before is forgotten.
    void setPages(const Pages &pages);

    int pageCount() const { return m_count; }

    /// Asks for these pictures in this order, and no longer for others of this use.
    void want(PageUse use, const std::vector<PageDrawing> &drawings);

    /// Looks for the text on all pages from that one on, and no longer for another text. An empty text ends the search.
    void find(const QString &text, int firstPage);

    /// A page that takes longer cannot be drawn. What nobody wants any more is left to its thread after that time.
    void setPatience(DrawingThread::Clock::duration longest, DrawingThread::Clock::duration longestUnwanted);

    /// Whether a thread still draws that nobody waits for; then the process must not end in the ordinary way, which
    /// takes away from it what it uses.
    static bool hasThreads() { return DrawingThread::count() > 0; }

signals:
    /// A null picture is a page that cannot be drawn.
    void drawn(signdesk::PageUse use, const signdesk::PageDrawing &drawing, const QImage &picture);

    /// Comes once for each page of a search, in order.
    void searched(int page, const std::vector<QRectF> &places);

private:
    DrawingThread::Listener listener();
    void startThread();
    void leaveThread();
    void take(PageUse use, const PageDrawing &drawing, const QImage &picture);
    void takePlaces(const PageSearch &search, const std::vector<QRectF> &places);
    void lookWhetherStuck();
    void replaceThread();
    void giveUp(int page);
    void giveUpAll();
    bool isWaiting() const;
    std::vector<PageDrawing> &wanted(PageUse use) { return m_wanted[static_cast<size_t>(use)]; }

    Pages::Open m_open;
    int m_count = 1;
    std::shared_ptr<DrawingThread> m_thread; ///< null without pages, or when too many were left behind
    std::vector<std::shared_ptr<DrawingThread>> m_left; ///< threads that were told to end
    int m_round = 0; ///< counts the threads
    int m_replaced = 0; ///< threads that a page of this document holds
    std::array<std::vector<PageDrawing>, kPageUses> m_wanted; ///< and not drawn yet
    PageSearch m_search;
    QTimer m_look;
    DrawingThread::Clock::duration m_longest;
    DrawingThread::Clock::duration m_longestUnwanted;
};

} // namespace signdesk

#endif
