// How the pages and the signature's field look. Paper is white in every theme.
#include "pageview.h"

#include "papercolours.h"

#include <QPainter>

namespace signdesk {

namespace {

void paintShadow(QPainter &painter, const QRectF &page)
{
    painter.setPen(Qt::NoPen);
    for (int i = 4; i > 0; --i) {
        painter.setBrush(QColor(0, 0, 0, 12));
        painter.drawRoundedRect(page.adjusted(-i, 2 - i, i, 2 + i), i + 1, i + 1);
    }
}

} // namespace

void PageView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(viewport());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const auto [first, last] = visiblePages();
    for (int page = first; page <= last; ++page)
        paintPage(painter, page);
    paintField(painter);
    paintFingerprint(painter);
}

void PageView::paintPage(QPainter &painter, int page)
{
    const QRectF exact = pagePixels(page);
    const QRect paper(exact.topLeft().toPoint(), exact.size().toSize());
    const QRect seen = paper & viewport()->rect().adjusted(-8, -8, 8, 8); // a page may be millions of pixels broad
    paintShadow(painter, seen);
    painter.fillRect(seen, Qt::white);
    paintPicture(painter, page, paper);
    paintFound(painter, page);
}

/// A picture of the present scale is painted dot by dot; an older one stands in for it as it is.
void PageView::paintPicture(QPainter &painter, int page, const QRect &paper)
{
    const PageCache::Entry *const entry = m_cache.find(page);
    if (entry == nullptr || entry->picture.isNull()) {
        painter.setPen(Qt::darkGray);
        painter.drawText(paper & viewport()->rect(), Qt::AlignCenter,
            entry == nullptr ? tr("Page %1").arg(page + 1) : tr("This page cannot be shown."));
        return;
    }
    painter.save();
    painter.setClipRect(paper);
    QImage picture = entry->picture;
    picture.setDevicePixelRatio(devicePixelRatioF());
    if (qFuzzyCompare(entry->dotsPerPoint, dotsPerPoint()))
        painter.drawImage(paper.topLeft(), picture);
    else
        painter.drawImage(paper, picture);
    if (const Part *const part = partFor(page); part != nullptr) {
        QImage sharp = part->picture;
        sharp.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(paper.topLeft() + QPointF(part->drawing.part.topLeft()) / devicePixelRatioF(), sharp);
    }
    painter.restore();
}

void PageView::paintFound(QPainter &painter, int page) const
{
    const auto places = m_found.places.find(page);
    if (places == m_found.places.end())
        return;
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_Multiply); // as a marker does, so that the text stays readable
    for (const QRectF &place : places->second)
        painter.fillRect(pixelsOf(page, place).adjusted(-2, -1, 2, 1), QColor(kMarker));
    painter.restore();
    if (page != m_found.page)
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(accentOnPaper(palette()), 2));
    painter.drawRect(pixelsOf(page, m_found.present()).adjusted(-3, -2, 3, 2));
}

void PageView::paintFingerprint(QPainter &painter) const
{
    if (m_fingerprintPlace.isEmpty())
        return;
    const QRect place = pixelsOf(m_fieldPage, m_fingerprintPlace);
    if (!m_field.contains(m_fingerprintPlace)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(accentOnPaper(palette()), 1.5));
        painter.drawRect(QRectF(place).adjusted(-2, -2, 2, 2));
    }
    painter.drawImage(place, m_fingerprint);
}

void PageView::paintField(QPainter &painter) const
{
    const bool isEmpty = !m_ink->isVisibleTo(this);
    const QColor accent = accentOnPaper(palette());
    QColor light = accent;
    light.setAlpha(28);
    const QRectF frame = QRectF(fieldPixels()).adjusted(-2, -2, 2, 2);
    painter.setBrush(isEmpty ? QBrush(light) : QBrush(Qt::NoBrush));
    painter.setPen(QPen(accent, hasFocus() ? 3 : 1.5, isEmpty ? Qt::DashLine : Qt::SolidLine));
    painter.drawRect(frame);
    if (isEmpty) {
        painter.setPen(accent.darker(120));
        painter.drawText(frame, Qt::AlignCenter, tr("Signature"));
    }
    if (m_formField.isEmpty()) {
        painter.setPen(QPen(accent, 1.5));
        painter.setBrush(Qt::white);
        painter.drawEllipse(handle());
    }
}

} // namespace signdesk
