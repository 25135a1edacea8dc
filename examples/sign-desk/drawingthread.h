/// @file
/// A thread that draws pages and looks for text on them, from a document that it has opened for itself. A hostile page
/// may take for ever, so nobody has to wait for it.
#ifndef DRAWINGTHREAD_H
#define DRAWINGTHREAD_H

#include "pages.h"

#include <array>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace signdesk {

/// In the order in which they are drawn.
enum class PageUse
{
    View,
    Thumbnail
};
constexpr size_t kPageUses = 2;

/// A text that is looked for page by page, up to the last one and on from the first one.
struct PageSearch
{
    QString text;
    int page = 0; ///< the next
    int left = 0; ///< pages that remain
    int count = 1; ///< of the document's pages

    void advance();
};

class DrawingThread
{
public:
    using Clock = std::chrono::steady_clock;

    /// What the thread tells, on the thread itself and while it cannot be ended.
    struct Listener
    {
        std::function<void(PageUse use, const PageDrawing &drawing, const QImage &picture)> drawn;
        std::function<void(const PageSearch &search, const std::vector<QRectF> &places)> searched;
    };

    static std::shared_ptr<DrawingThread> start(const Pages::Open &open, const Listener &listener);

    /// Replaces what was wanted for this use; drawings that are no longer wanted are given up.
    void want(PageUse use, const std::vector<PageDrawing> &drawings);

    /// Replaces the earlier search. An empty text ends it.
    void find(const PageSearch &search);

    /// Afterwards the listener hears nothing more. The thread ends as soon as the page at hand lets it.
    void end();
    bool waitForEnd(Clock::time_point deadline);

    struct Stuck
    {
        int page;
        bool isWanted;
    };

    /// The page that takes longer than that; or longer than that after nobody wants it any more.
    std::optional<Stuck> stuck(Clock::duration longest, Clock::duration longestUnwanted);

    /// Threads of this kind in the whole process, with those that were ended and go on.
    static int count() { return s_count; }

private:
    struct Job
    {
        bool isSearch = false;
        PageUse use = PageUse::View;
        PageDrawing drawing; ///< or only its page
        Clock::time_point since;
    };

    DrawingThread() = default;
    void run(const Pages::Open &open);
    std::optional<Job> next();
    void work(std::unique_lock<std::mutex> &locked, const Pages *pages, Job job);
    void finish(const Job &job, const QImage &picture, const std::vector<QRectF> &places);
    void giveUpCurrent();

    std::mutex m_lock; // for all below but m_isUnwanted
    std::condition_variable m_changed;
    Listener m_listener;
    bool m_isEnding = false;
    bool m_hasEnded = false;
    std::array<std::deque<PageDrawing>, kPageUses> m_wanted;
    PageSearch m_search;
    std::optional<Job> m_current;
    Clock::time_point m_unwantedSince;
    std::atomic<bool> m_isUnwanted{false}; ///< what is drawn now

    static inline std::atomic<int> s_count{0};
};

} // namespace signdesk

#endif
