/// @file
/// A signature that the test draws itself, to compare with the library's canvas.
#ifndef INKPICTURE_H
#define INKPICTURE_H

#include "openpad.h"

#include <QColor>
#include <QPointF>

#include <climits>
#include <optional>

/// The pen settings of a pad. The initial values are those of a new pad.
struct PenSettings
{
    int level = 3;
    bool withPressure = true;
    QColor colour = Qt::black;
};

/// The raw pressure above which a pad drops a move. Typed in again here, independently of the library's table.
int moveLimit(const PadCase &pad);

/// What pen packets should leave on a pad's white canvas.
class InkPicture
{
public:
    InkPicture(const PadCase &pad, int width, int height);

    /// A raw position in canvas pixels.
    QPointF at(int rawX, int rawY) const;

    /// Pen width of a move with this raw pressure.
    double penWidth(int rawPressure) const;

    /// Handles the packets as a pad does.
    void play(const std::vector<KVSIM_PACKET> &packets);

    PenSettings pen;
    QImage image;

private:
    void drawTo(const QPointF &to, double width);

    int m_type;
    int m_moveLimit;
    std::optional<QPointF> m_last;
};

/// Sets the pen of an open pad.
void setPen(const OpenPad &pad, const PenSettings &pen);

/// A stroke through random positions in and around the writing area, with random pressures. The same for the same seed.
std::vector<KVSIM_PACKET> scribble(int deviceType, unsigned seed, int moves);

/// Empty when the images are equal in size and in every pixel, else the first difference.
std::string difference(const QImage &actual, const QImage &expected);

/// How many pixels are not white.
int inkPixels(const QImage &image);

#endif
