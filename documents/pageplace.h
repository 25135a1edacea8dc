/// @file
/// Converts between places on a page as it is shown and the page's own space: boxes, rotation, user unit.
#ifndef DOCUMENTS_PAGEPLACE_H
#define DOCUMENTS_PAGEPLACE_H

#include "pagetree.h"

#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace documents {

class PagePlace
{
public:
    explicit PagePlace(TreePage page);

    /// Millimetres, as shown.
    QSizeF size() const;

    /// Clockwise, 0, 90, 180 or 270.
    int rotation() const { return m_rotation; }

    /// Maps millimetres from the shown page's top left, y downwards, to the page's own space.
    QTransform toPage() const;

    /// A rectangle of the page's own space, in millimetres of the shown page.
    QRectF shown(const QRectF &own) const { return toPage().inverted().mapRect(own); }

private:
    QRectF m_box; ///< the part that is shown, in the page's own units
    int m_rotation = 0;
    double m_pointsPerUnit = 1;
};

/// An array of four numbers as a rectangle; a null rectangle for anything else.
QRectF rectangleOf(QPDFObjectHandle array);

/// The rectangle as four numbers.
QPDFObjectHandle arrayOf(const QRectF &rectangle);

/// A number as PDF has it: no exponent, no zeros at the end.
std::string numberText(double number, int decimals = 4);

} // namespace documents

#endif
