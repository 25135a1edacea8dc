// What of the pages is in sight, and how large.
#include "pageview.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace signdesk {

namespace {

constexpr qint64 kMostPictureBytes = 192 << 20; ///< of pictures of pages
constexpr int kRenderAfter = 40; ///< milliseconds from a change to its drawing
constexpr int kLineStep = 40; ///< pixels that a turn of the wheel or an arrow of the bar scrolls by
constexpr double kWheelStep = 1.1;
constexpr double kWheelAngle = 120; ///< of a turn

} // namespace

PageView::PageView(PageRenderer &renderer, const FoundPlaces &found, QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_renderer(renderer)
    , m_found(found)
    , m_cache(kMostPictureBytes)
    , m_ink(new InkView(viewport()))
{
    m_ink->hide();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Mid);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // else fitting the width would switch it on and off for ever
    verticalScrollBar()->setSingleStep(kLineStep);
    horizontalScrollBar()->setSingleStep(kLineStep);
    setAccessibleName(tr("Page to sign"));
    setAccessibleDescription(tr("The arrow keys move the signature's field by a millimetre, with Ctrl by ten; plus and "
                                "minus change its size. Page Up, Page Down, Home and End show other parts of the "
                                "pages."));
    m_renderSoon.setSingleShot(true);
    m_renderSoon.setInterval(kRenderAfter);
    connect(&m_renderSoon, &QTimer::timeout, this, &PageView::wantPages);
    connect(&m_renderer, &PageRenderer::drawn, this,
        [this](PageUse use, const PageDrawing &drawing, const QImage &picture) {
            if (use == PageUse::View)
                takePage(drawing, picture);
        });
}

void PageView::setPages(const Pages &pages)
{
    std::vector<QSizeF> sizes = pages.sizes();
    const bool isAlike = sizes == m_layout.pages();
    if (isAlike)
        m_cache.setOutdated();
    else
        m_cache.clear();
    m_parts.clear();
    m_layout.setPages(std::move(sizes));
    m_shownPage.reset();
    m_formField = {};
    setField(std::min(m_fieldPage, pageCount() - 1), m_field);
    if (!isAlike) {
        applyFit();
        updateBars();
    }
    follow();
    wantPages();
}

QPointF PageView::offset() const
{
    return {static_cast<double>(horizontalScrollBar()->value()), static_cast<double>(verticalScrollBar()->value())};
}

QRectF PageView::pagePixels(int page) const
{
    return m_layout.page(page, viewport()->width()).translated(-offset());
}

/// Keeps the size in pixels when the field is only moved.
QRect PageView::pixelsOf(int page, const QRectF &points) const
{
    const QPointF at = pagePixels(page).topLeft() + points.topLeft() * scale();
    return {at.toPoint(), (points.size() * scale()).toSize()};
}

std::pair<int, int> PageView::visiblePages() const
{
    const double top = offset().y();
    return {m_layout.pageAt(top), m_layout.pageAt(top + viewport()->height())};
}

/// The page that was asked for; after other scrolling the upper one in sight, or the one below it when that fills more
/// of the view.
int PageView::seenPage() const
{
    if (m_shownPage.has_value())
        return *m_shownPage;
    const int upper = m_layout.pageAt(offset().y());
    const QRectF pixels = pagePixels(upper);
    const bool isLeaving = pixels.bottom() < std::min(pixels.height(), viewport()->height() * 1.0) / 2;
    return isLeaving ? std::min(upper + 1, pageCount() - 1) : upper;
}

void PageView::showPage(int page)
{
    const int wanted = std::clamp(page, 0, pageCount() - 1);
    verticalScrollBar()->setValue(qRound(m_layout.page(wanted, viewport()->width()).top() - PageLayout::kMargin / 2));
    m_shownPage = wanted; // which is not at the top when it is one of the last
    follow();
}

bool PageView::scrollBy(const QKeyEvent &key)
{
    QScrollBar &bar = *verticalScrollBar();
    const bool isFar = key.modifiers().testFlag(Qt::ControlModifier);
    const QRectF page = m_layout.page(seenPage(), viewport()->width());
    switch (key.key()) {
    case Qt::Key_PageDown:
        bar.setValue(bar.value() + viewport()->height() - kLineStep);
        return true;
    case Qt::Key_PageUp:
        bar.setValue(bar.value() - viewport()->height() + kLineStep);
        return true;
    case Qt::Key_Home:
        isFar ? bar.setValue(bar.minimum()) : showPage(seenPage());
        return true;
    case Qt::Key_End:
        bar.setValue(isFar ? bar.maximum() : qRound(page.bottom() + PageLayout::kMargin / 2) - viewport()->height());
        return true;
    default:
        return false;
    }
}

/// The point in the viewport that stays where it is while the scale changes: in the field when it is in sight, because
/// somebody may be signing in it.
QPointF PageView::anchor() const
{
    const QPointF field = QRectF(fieldPixels()).center();
    const QRectF seen = viewport()->rect();
    return seen.contains(field) ? field : seen.center();
}

void PageView::setScale(double pixelsPerPoint, const QPointF &anchor)
{
    const int page = m_layout.pageAt(anchor.y() + offset().y());
    const QPointF point = onPage(page, anchor);
    const double before = scale();
    m_layout.setScale(pixelsPerPoint);
    updateBars();
    const QPointF now = m_layout.page(page, viewport()->width()).topLeft() + point * scale() - anchor;
    horizontalScrollBar()->setValue(qRound(now.x()));
    verticalScrollBar()->setValue(qRound(now.y()));
    if (!qFuzzyCompare(before, scale()))
        m_parts.clear();
    follow();
}

void PageView::zoomBy(double factor)
{
    m_fitsWidth = false;
    setScale(scale() * factor, anchor());
}

void PageView::fitWidth()
{
    m_fitsWidth = true;
    applyFit();
}

void PageView::applyFit()
{
    if (m_fitsWidth)
        setScale(m_layout.fitting(viewport()->width() - 2 * PageLayout::kMargin), anchor());
}

void PageView::updateBars()
{
    const QSizeF size = m_layout.size();
    const auto set = [](QScrollBar &bar, double all, int seen) {
        bar.setRange(0, std::max(0, qRound(all) - seen));
        bar.setPageStep(seen);
    };
    set(*verticalScrollBar(), size.height(), viewport()->height());
    set(*horizontalScrollBar(), size.width(), viewport()->width());
}

/// After anything that moves what is shown.
void PageView::follow()
{
    m_ink->setGeometry(fieldPixels());
    viewport()->update();
    if (!m_renderSoon.isActive()) // pages are drawn in time also while something moves without a pause
        m_renderSoon.start();
    const int seen = seenPage();
    if (seen == m_seenPage)
        return;
    m_seenPage = seen;
    emit seenPageChanged(seen);
}

void PageView::bringIntoSight(const QRect &pixels)
{
    const auto move = [](QScrollBar &bar, int first, int last, int length) {
        const int margin = static_cast<int>(PageLayout::kMargin);
        const int moved = std::max(0, last + margin - length);
        bar.setValue(bar.value() + moved + std::min(0, first - moved - margin));
    };
    move(*verticalScrollBar(), pixels.top(), pixels.bottom(), viewport()->height());
    move(*horizontalScrollBar(), pixels.left(), pixels.right(), viewport()->width());
}

void PageView::showField()
{
    bringIntoSight(fieldPixels());
    m_keepsField = true;
}

void PageView::showFound()
{
    if (!m_found.isEmpty())
        bringIntoSight(pixelsOf(m_found.page, m_found.present()));
    viewport()->update();
}

/// A field that was in sight stays so.
void PageView::resizeEvent(QResizeEvent *event)
{
    const bool keepsField = m_keepsField;
    QAbstractScrollArea::resizeEvent(event);
    updateBars();
    applyFit();
    if (keepsField)
        showField();
    m_keepsField = keepsField;
    follow();
}

void PageView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    m_keepsField = viewport()->rect().contains(fieldPixels().center());
    m_shownPage.reset();
    follow();
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    m_fitsWidth = false;
    setScale(scale() * std::pow(kWheelStep, event->angleDelta().y() / kWheelAngle), event->position());
    event->accept();
}

} // namespace signdesk
