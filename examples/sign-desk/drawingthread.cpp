#include "drawingthread.h"

#include <algorithm>
#include <thread>

namespace signdesk {

namespace {

std::unique_ptr<Pages> openedPages(const Pages::Open &open)
{
    try {
        return open();
    } catch (...) { // it was opened before, so there is no memory left: no page can be drawn
        return nullptr;
    }
}

QImage drawnPicture(const Pages *pages, const PageDrawing &drawing, const std::function<bool()> &isUnwanted)
{
    try {
        return pages == nullptr ? QImage() : pages->draw(drawing, isUnwanted);
    } catch (...) {
        return {};
    }
}

std::vector<QRectF> placesOf(const Pages *pages, int page, const QString &text)
{
    try {
        return pages == nullptr ? std::vector<QRectF>() : pages->find(page, text);
    } catch (...) {
        return {};
    }
}

} // namespace

void PageSearch::advance()
{
    --left;
    page = (page + 1) % count;
}

std::shared_ptr<DrawingThread> DrawingThread::start(const Pages::Open &open, const Listener &listener)
{
    const std::shared_ptr<DrawingThread> made(new DrawingThread);
    made->m_listener = listener;
    ++s_count;
    std::thread([made, open] {
        made->run(open);
        --s_count;
    }).detach();
    return made;
}

void DrawingThread::run(const Pages::Open &open)
{
    std::unique_ptr<Pages> pages = openedPages(open);
    std::unique_lock<std::mutex> locked(m_lock);
    while (!m_isEnding) {
        m_current = next();
        if (m_current.has_value())
            work(locked, pages.get(), *m_current);
        else
            m_changed.wait(locked);
    }
    locked.unlock();
    pages.reset();
    locked.lock();
    m_hasEnded = true;
    m_changed.notify_all();
}

/// Needs the lock.
std::optional<DrawingThread::Job> DrawingThread::next()
{
    for (const PageUse use : {PageUse::View, PageUse::Thumbnail}) {
        std::deque<PageDrawing> &wanted = m_wanted[static_cast<size_t>(use)];
        if (wanted.empty())
            continue;
        const PageDrawing first = wanted.front();
        wanted.pop_front();
        return Job{false, use, first, Clock::now()};
    }
    if (m_search.left > 0)
        return Job{true, PageUse::View, {m_search.page, 0, {}}, Clock::now()};
    return std::nullopt;
}

void DrawingThread::work(std::unique_lock<std::mutex> &locked, const Pages *pages, Job job)
{
    m_isUnwanted = false;
    const QString text = m_search.text;
    locked.unlock();
    QImage picture;
    std::vector<QRectF> places;
    if (job.isSearch)
        places = placesOf(pages, job.drawing.page, text);
    else
        picture = drawnPicture(pages, job.drawing, [this] { return m_isUnwanted.load(); });
    locked.lock();
    m_current.reset();
    if (!m_isEnding && !m_isUnwanted)
        finish(job, picture, places);
}

/// Needs the lock.
void DrawingThread::finish(const Job &job, const QImage &picture, const std::vector<QRectF> &places)
{
    if (!job.isSearch)
        return m_listener.drawn(job.use, job.drawing, picture);
    m_listener.searched(m_search, places);
    m_search.advance();
}

/// Needs the lock.
void DrawingThread::giveUpCurrent()
{
    if (!m_isUnwanted.exchange(true))
        m_unwantedSince = Clock::now();
}

void DrawingThread::want(PageUse use, const std::vector<PageDrawing> &drawings)
{
    const std::lock_guard<std::mutex> locked(m_lock);
    std::deque<PageDrawing> &wanted = m_wanted[static_cast<size_t>(use)];
    wanted.assign(drawings.begin(), drawings.end());
    if (m_current.has_value() && !m_current->isSearch && !m_isUnwanted) {
        const auto same = std::find(wanted.begin(), wanted.end(), m_current->drawing);
        if (m_current->use == use && same != wanted.end()) {
            wanted.erase(same); // it is being drawn
        } else if (m_current->use == use) {
            giveUpCurrent();
        } else if (use == PageUse::View && !wanted.empty()) {
            m_wanted[static_cast<size_t>(m_current->use)].push_back(m_current->drawing); // later
            giveUpCurrent();
        }
    }
    m_changed.notify_all();
}

void DrawingThread::find(const PageSearch &search)
{
    const std::lock_guard<std::mutex> locked(m_lock);
    m_search = search;
    m_search.left = search.text.isEmpty() ? 0 : search.left;
    if (m_current.has_value() && m_current->isSearch)
        giveUpCurrent();
    m_changed.notify_all();
}

void DrawingThread::end()
{
    const std::lock_guard<std::mutex> locked(m_lock);
    m_isEnding = true;
    m_listener = {};
    giveUpCurrent();
    m_changed.notify_all();
}

bool DrawingThread::waitForEnd(Clock::time_point deadline)
{
    std::unique_lock<std::mutex> locked(m_lock);
    return m_changed.wait_until(locked, deadline, [this] { return m_hasEnded; });
}

std::optional<DrawingThread::Stuck> DrawingThread::stuck(Clock::duration longest, Clock::duration longestUnwanted)
{
    const std::lock_guard<std::mutex> locked(m_lock);
    if (!m_current.has_value())
        return std::nullopt;
    const Clock::time_point now = Clock::now();
    if (m_isUnwanted ? now - m_unwantedSince > longestUnwanted : now - m_current->since > longest)
        return Stuck{m_current->drawing.page, !m_isUnwanted};
    return std::nullopt;
}

} // namespace signdesk
