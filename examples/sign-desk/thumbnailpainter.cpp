#include "thumbnailpainter.h"

#include "papercolours.h"
#include "thumbnailmodel.h"

#include <QPainter>

namespace signdesk {

namespace {

constexpr int kAbove = 10; ///< pixels
constexpr int kMark = 18;

QRect paperIn(const QRect &cell, const QSizeF &page)
{
    const QRect room(cell.center().x() - ThumbnailPainter::kPicture.width() / 2, cell.top() + kAbove,
        ThumbnailPainter::kPicture.width(), ThumbnailPainter::kPicture.height());
    QRect paper({}, page.scaled(room.size(), Qt::KeepAspectRatio).toSize().expandedTo({1, 1}));
    paper.moveCenter(room.center());
    return paper;
}

void paintMark(QPainter &painter, const QPoint &centre, const QColor &colour)
{
    const double size = kMark;
    QRectF circle(0, 0, size, size);
    circle.moveCenter(centre);
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(colour);
    painter.drawEllipse(circle);
    const QPointF at = circle.topLeft();
    const QPointF check[] = {
        at + QPointF(0.28, 0.52) * size, at + QPointF(0.44, 0.68) * size, at + QPointF(0.72, 0.36) * size};
    painter.drawPolyline(check, 3);
}

} // namespace

void ThumbnailPainter::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    const QPalette &palette = option.palette;
    const QRect paper = paperIn(option.rect, index.data(ThumbnailModel::SizeRole).toSizeF());
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (isChosen)
        painter->fillRect(option.rect, palette.highlight());
    painter->fillRect(paper, Qt::white);
    const auto picture = index.data(ThumbnailModel::PictureRole).value<QImage>();
    if (!picture.isNull())
        painter->drawImage(paper, picture);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(palette.color(QPalette::Mid), 1));
    painter->drawRect(QRectF(paper).adjusted(-0.5, -0.5, 0.5, 0.5));
    if (index.data(ThumbnailModel::SignedRole).toBool())
        paintMark(*painter, paper.topRight(), accentOnPaper(palette));
    painter->setPen(palette.color(isChosen ? QPalette::HighlightedText : QPalette::Text));
    const QRect below(option.rect.left(), option.rect.top() + kAbove + kPicture.height(), option.rect.width(),
        option.rect.height() - kAbove - kPicture.height());
    painter->drawText(below, Qt::AlignCenter, index.data().toString());
    painter->restore();
}

} // namespace signdesk
