/// @file
/// A signature drawn by the test itself, to compare the library's canvas with.
#ifndef INKPICTURE_H
#define INKPICTURE_H

#include "openpad.h"

#include <QColor>
#include <QPointF>

#include <climits>
#include <optional>

/// The pen settings of a pad; as constructed, those of a new one.
struct PenSettings
{
    int level = 3;
    bool withPressure = true;
    QColor colour = Qt::black;
};

/// Above which raw pressure a pad drops a move: typed in a second time, row by row.
int moveLimit(const PadCase &pad);

/// One pad's picture: what the pen packets leave on a white canvas.
class InkPicture
{
public:
    InkPicture(const PadCase &pad, int width, int height);

    /// Where a raw position lies on the canvas.
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

/// A stroke through random positions of and around the writing area with random pressures, always the same for a seed.
std::vector<KVSIM_PACKET> scribble(int deviceType, unsigned seed, int moves);

/// Empty when the images are equal in size and in every pixel, else what differs first.
std::string difference(const QImage &actual, const QImage &expected);

/// How many pixels are not white.
int inkPixels(const QImage &image);

#endif
