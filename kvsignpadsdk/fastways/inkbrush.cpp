#include "inkbrush.h"

#include "inkpen.h"
#include "plainways.h"

InkBrush::Kept::Kept(QImage &canvas)
    : view(const_cast<uchar *>(canvas.constBits()), canvas.width(), canvas.height(), canvas.bytesPerLine(),
        canvas.format())
    , painter(&view)
{
    inkpen::setHint(painter);
}

bool InkBrush::Kept::isFor(const QImage &canvas) const
{
    return view.constBits() == canvas.constBits() && view.size() == canvas.size() && view.format() == canvas.format();
}

bool InkBrush::mayDrawOn(QImage &canvas)
{
    if (canvas.isNull() || !canvas.isDetached()) {
        release();
        return false;
    }
    if (m_kept != nullptr && !m_kept->isFor(canvas))
        release();
    if (m_kept == nullptr)
        m_kept = std::make_unique<Kept>(canvas);
    return true;
}

void InkBrush::setPen(double width, const QColor &colour)
{
    QPen &pen = m_pens[m_nextPen];
    m_nextPen = 1 - m_nextPen;
    // setWidthF() rejects widths below 0 or from 32768 on; QPen's constructor accepts them.
    const bool mayBeSet = width >= 0 && width < 32768;
    if (!mayBeSet || pen.color() != colour || pen.capStyle() != Qt::RoundCap)
        pen = inkpen::penFor(width, colour);
    else
        pen.setWidthF(width);
    m_kept->painter.setPen(pen);
}

bool InkBrush::draw(QImage &canvas, const QPointF &from, const QPointF &to, double width, const QColor &colour)
{
    if (plainways::only || !mayDrawOn(canvas))
        return false;
    setPen(width, colour);
    inkpen::drawWith(m_kept->painter, from, to, width);
    return true;
}
