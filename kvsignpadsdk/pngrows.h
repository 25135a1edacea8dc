/// @file
/// Rows of a transparent signature as PNG stores them: white made transparent, and the filter that libpng would choose.
#ifndef PNGROWS_H
#define PNGROWS_H

#include <QRgb>

#include <vector>

/// Takes the rows of an image from top to bottom. Only the part of a row that differs from blank is looked at closely,
/// here or in the row above: outside of it every filter gives zeros.
class PngRows
{
public:
    explicit PngRows(int width);

    /// Starts anew below a row that stands in the image, or at the top with null.
    void startBelow(const QRgb *above);

    /// The next row with its filter byte in front, 4 * width + 1 bytes, valid until the next call. Null for a row with
    /// a pixel that is not opaque.
    const unsigned char *next(const QRgb *pixels);

private:
    /// Bytes of a row that may be other than 0, as a range of pixels.
    struct Range
    {
        int first = 0;
        int end = 0;
    };
    /// A row of RGBA bytes with a blank pixel in front.
    struct Row
    {
        std::vector<unsigned char> bytes;
        Range ink;
    };

    bool take(const QRgb *pixels, Row &row) const;
    Range closelyLookedAt() const;
    unsigned char *blankOutside(int filter, const Range &range);

    int m_width;
    Row m_above;
    Row m_here;
    std::vector<unsigned char> m_candidates[5]; ///< by filter type, each with the filter byte in front
    Range m_written[5]; ///< what of a candidate may be other than 0
};

#endif
