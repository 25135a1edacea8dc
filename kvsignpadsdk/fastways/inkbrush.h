/// @file
/// Draws segments with one painter that stays open: opening a QPainter costs more than drawing a short segment.
#ifndef INKBRUSH_H
#define INKBRUSH_H

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPen>

#include <memory>

/// The painter works on a second QImage over the canvas's memory, so the canvas itself never detaches and its
/// cacheKey() stays the same. Memo and MergeCache build on that: see "What a cache key tells" in docs/architecture.md.
///
/// A canvas that shares its memory with another QImage is declined, because drawing would change that image too. The
/// plain way then detaches the canvas.
class InkBrush
{
public:
    /// Returns false without drawing when the caller must draw the plain way.
    bool draw(QImage &canvas, const QPointF &from, const QPointF &to, double width, const QColor &colour);

    /// Closes the painter. Call it before the canvas's memory is freed.
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
    // Two pens, used in turn. QPen is copy-on-write, and the painter holds a copy of the pen that it was given last:
    // changing that pen would allocate, changing the other one does not.
    QPen m_pens[2];
    int m_nextPen = 0;
};

#endif
