#include "thumbnaillist.h"

#include "thumbnailpainter.h"

#include <QScrollBar>

#include <algorithm>

namespace signdesk {

namespace {

constexpr int kThumbnailsAfter = 60; ///< milliseconds without another change

} // namespace

ThumbnailList::ThumbnailList(PageRenderer &renderer, QWidget *parent)
    : QListView(parent)
    , m_renderer(renderer)
    , m_model(renderer)
{
    setModel(&m_model);
    setItemDelegate(new ThumbnailPainter(this));
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFixedWidth(ThumbnailPainter::kCell.width() + verticalScrollBar()->sizeHint().width());
    setAccessibleName(tr("Pages"));
    setAccessibleDescription(tr("All pages as small pictures; the chosen one is shown"));
    m_renderSoon.setSingleShot(true);
    m_renderSoon.setInterval(kThumbnailsAfter);
    connect(&m_renderSoon, &QTimer::timeout, this, &ThumbnailList::wantPages);
}

void ThumbnailList::setPages(const Pages &pages)
{
    m_model.setPages(pages);
    m_renderSoon.start();
}

void ThumbnailList::setPage(int page)
{
    if (currentIndex().row() == page)
        return;
    m_isQuiet = true;
    setCurrentIndex(m_model.index(page));
    m_isQuiet = false;
}

void ThumbnailList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!m_isQuiet && current.isValid())
        emit pageChosen(current.row());
}

void ThumbnailList::wantPages()
{
    if (!isVisible())
        return m_renderer.want(PageUse::Thumbnail, {});
    const int height = ThumbnailPainter::kCell.height();
    const int first = verticalScrollBar()->value() / height;
    const int last = (verticalScrollBar()->value() + viewport()->height()) / height + 1; // and the next one
    m_model.want(first, last, (QSizeF(ThumbnailPainter::kPicture) * devicePixelRatioF()).toSize());
}

void ThumbnailList::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    m_renderSoon.start();
}

void ThumbnailList::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    m_renderSoon.start();
}

void ThumbnailList::showEvent(QShowEvent *event)
{
    QListView::showEvent(event);
    m_renderSoon.start();
}

void ThumbnailList::hideEvent(QHideEvent *event)
{
    QListView::hideEvent(event);
    m_renderSoon.start();
}

} // namespace signdesk
