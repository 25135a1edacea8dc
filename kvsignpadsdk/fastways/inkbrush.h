/// @file
/// Draws segments with a painter that is kept open, for less than a painter a segment costs.
#ifndef INKBRUSH_H
#define INKBRUSH_H

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPen>

#include <memory>

/// Paints on a view of the canvas's memory in the canvas's own format. A canvas whose memory is shared at the moment is
/// declined: the plain way then gives it memory of its own, so that no other image changes with it.
class InkBrush
{
public:
    /// False, and nothing drawn, where the plain way must be taken.
    bool draw(QImage &canvas, const QPointF &from, const QPointF &to, double width, const QColor &colour);

    /// Forgets the canvas. To be called before its memory goes.
    void release() { m_kept.reset(); }

private:
    struct Kept
    {
        explicit Kept(QImage &canvas);
        bool isFor(const QImage &canvas) const;

        QImage view;
        QPainter painter;
    };

    bool mayDrawOn(QImage &canvas);
    void setPen(double width, const QColor &colour);

    std::unique_ptr<Kept> m_kept;
    // The painter shares the pen that it was given last; the other one is changed without an allocation.
    QPen m_pens[2];
    int m_nextPen = 0;
};

#endif
