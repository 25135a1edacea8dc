#include "pagerenderer.h"

#include <algorithm>

namespace signdesk {

namespace {

using namespace std::chrono_literals;

constexpr auto kStuckLookEvery = 200ms;
constexpr auto kWaitAtEnd = 2s;
constexpr int kMostReplaced = 3;
constexpr PageUse kUses[] = {PageUse::View, PageUse::Thumbnail};

} // namespace

PageRenderer::PageRenderer(QObject *parent)
    : QObject(parent)
    , m_longest(60s)
    , m_longestUnwanted(2s)
{
    m_look.setInterval(kStuckLookEvery);
    connect(&m_look, &QTimer::timeout, this, &PageRenderer::lookWhetherStuck);
}

PageRenderer::~PageRenderer()
{
    leaveThread();
    const auto deadline = DrawingThread::Clock::now() + kWaitAtEnd;
    for (const std::shared_ptr<DrawingThread> &thread : m_left)
        thread->waitForEnd(deadline);
}

void PageRenderer::setPatience(DrawingThread::Clock::duration longest, DrawingThread::Clock::duration longestUnwanted)
{
    m_longest = longest;
    m_longestUnwanted = longestUnwanted;
}

void PageRenderer::setPages(const Pages &pages)
{
    leaveThread();
    m_open = pages.opener();
    m_count = pages.count();
    m_replaced = 0;
    for (const PageUse use : kUses)
        wanted(use).clear();
    m_search = {};
    startThread();
}

/// Runs on the thread, which cannot be ended meanwhile, so this object is still there.
DrawingThread::Listener PageRenderer::listener()
{
    const int round = ++m_round;
    return {[this, round](PageUse use, const PageDrawing &drawing, const QImage &picture) {
                QMetaObject::invokeMethod(
                    this,
                    [=] {
                        if (round == m_round)
                            take(use, drawing, picture);
                    },
                    Qt::QueuedConnection);
            },
        [this, round](const PageSearch &search, const std::vector<QRectF> &places) {
            QMetaObject::invokeMethod(
                this,
                [=] {
                    if (round == m_round)
                        takePlaces(search, places);
                },
                Qt::QueuedConnection);
        }};
}

void PageRenderer::startThread()
{
    m_thread = DrawingThread::start(m_open, listener());
}

void PageRenderer::leaveThread()
{
    if (m_thread == nullptr)
        return;
    m_thread->end();
    ++m_round; // what it has told and is still on its way no longer counts
    const auto hasEnded = [](const auto &thread) { return thread->waitForEnd({}); };
    m_left.erase(std::remove_if(m_left.begin(), m_left.end(), hasEnded), m_left.end());
    m_left.push_back(std::move(m_thread));
    m_thread = nullptr;
}

void PageRenderer::want(PageUse use, const std::vector<PageDrawing> &drawings)
{
    wanted(use) = drawings;
    m_look.start();
    if (m_thread != nullptr)
        m_thread->want(use, drawings);
    else
        QMetaObject::invokeMethod(this, &PageRenderer::giveUpAll, Qt::QueuedConnection);
}

void PageRenderer::find(const QString &text, int firstPage)
{
    m_search = {text, firstPage, text.isEmpty() ? 0 : m_count, m_count};
    m_look.start();
    if (m_thread != nullptr)
        m_thread->find(m_search);
    else
        QMetaObject::invokeMethod(this, &PageRenderer::giveUpAll, Qt::QueuedConnection);
}

void PageRenderer::take(PageUse use, const PageDrawing &drawing, const QImage &picture)
{
    std::vector<PageDrawing> &all = wanted(use);
    const auto found = std::find(all.begin(), all.end(), drawing);
    if (found == all.end())
        return;
    all.erase(found);
    emit drawn(use, drawing, picture);
}

void PageRenderer::takePlaces(const PageSearch &search, const std::vector<QRectF> &places)
{
    if (m_search.left == 0 || search.page != m_search.page || search.text != m_search.text)
        return; // of a search before
    m_search.advance();
    emit searched(search.page, places);
}

void PageRenderer::lookWhetherStuck()
{
    if (m_thread == nullptr || !isWaiting())
        m_look.stop();
    const auto stuck = m_thread == nullptr ? std::nullopt : m_thread->stuck(m_longest, m_longestUnwanted);
    if (!stuck.has_value())
        return;
    leaveThread();
    if (stuck->isWanted)
        giveUp(stuck->page);
    if (++m_replaced <= kMostReplaced)
        replaceThread();
    else
        giveUpAll();
}

bool PageRenderer::isWaiting() const
{
    const auto isEmpty = [](const std::vector<PageDrawing> &drawings) { return drawings.empty(); };
    return m_search.left > 0 || !std::all_of(m_wanted.begin(), m_wanted.end(), isEmpty);
}

/// Another thread goes on with what remains.
void PageRenderer::replaceThread()
{
    startThread();
    for (const PageUse use : kUses)
        m_thread->want(use, wanted(use));
    m_thread->find(m_search);
}

void PageRenderer::giveUp(int page)
{
    for (const PageUse use : kUses) {
        const std::vector<PageDrawing> all = wanted(use);
        for (const PageDrawing &drawing : all) {
            if (drawing.page == page)
                take(use, drawing, {});
        }
    }
    if (m_search.left > 0 && m_search.page == page)
        takePlaces(PageSearch(m_search), {});
}

void PageRenderer::giveUpAll()
{
    for (const PageUse use : kUses) {
        const std::vector<PageDrawing> all = wanted(use);
        for (const PageDrawing &drawing : all)
            take(use, drawing, {});
    }
    while (m_search.left > 0)
        takePlaces(PageSearch(m_search), {});
}

} // namespace signdesk
