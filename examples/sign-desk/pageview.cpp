#include "pageview.h"

#include <QScrollBar>

#include <algorithm>

namespace signdesk {

namespace {

constexpr double kSmallest = 0.3; ///< pixels per point
constexpr double kLargest = 6;

} // namespace

PageView::PageView(QWidget *parent)
    : QScrollArea(parent)
    , m_sheet(new PageSheet)
{
    setWidget(m_sheet);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Mid);
    setFocusPolicy(Qt::NoFocus); // the sheet takes it
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // else fitting the width would switch it on and off for ever
}

void PageView::setPage(const Pages &pages, int page)
{
    m_sheet->setPage(pages, page);
    applyFit();
    showField();
}

void PageView::zoomBy(double factor)
{
    m_fitsWidth = false;
    m_sheet->setScale(std::clamp(m_sheet->scale() * factor, kSmallest, kLargest));
    showField();
}

void PageView::fitWidth()
{
    m_fitsWidth = true;
    applyFit();
    showField();
}

void PageView::showField()
{
    const QRect field = m_sheet->fieldPixels();
    ensureVisible(field.center().x(), field.center().y(), field.width() / 2 + PageSheet::kMargin,
        field.height() / 2 + PageSheet::kMargin);
}

void PageView::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    applyFit();
    showField();
}

void PageView::applyFit()
{
    if (!m_fitsWidth)
        return;
    const double width = viewport()->width() - 2 * PageSheet::kMargin;
    m_sheet->setScale(std::clamp(width / m_sheet->pageSize().width(), kSmallest, kLargest));
}

} // namespace signdesk
