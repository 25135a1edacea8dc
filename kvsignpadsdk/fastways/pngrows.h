/// @file
/// Rows of a signature as PNG stores them: white kept or made transparent, and the filter that libpng would choose.
#ifndef PNGROWS_H
#define PNGROWS_H

#include <QRgb>

#include <vector>

/// What becomes of pure white.
enum class WhiteIs
{
    Transparent, ///< all four bytes of the pixel become 0
    Opaque
};

/// Takes the rows of an image from top to bottom. Filters are computed only where this row or the one above has ink. In
/// the rest all pixels are blank, so each filter gives the same known value everywhere, except in the leftmost pixel:
/// PNG takes the bytes before a row as 0.
class PngRows
{
public:
    PngRows(int width, WhiteIs white);

    /// Starts over below the given row of the image, or at its top with null.
    void startBelow(const QRgb *above);

    /// The next row, filtered, with the filter byte in front: 4 * width + 1 bytes, valid until the next call. Null when
    /// a pixel of the row is not opaque.
    const unsigned char *next(const QRgb *pixels);

private:
    /// Bytes of a row that may be other than 0, as a range of pixels.
    struct Range
    {
        int first = 0;
        int end = 0;
    };
    /// A row of RGBA bytes with a pixel of zeros in front.
    struct Row
    {
        std::vector<unsigned char> bytes;
        Range ink;
    };

    bool take(const QRgb *pixels, Row &row) const;
    Range closelyLookedAt() const;
    int blankOnBlank();
    int bestOf(const Range &range);
    template <int filter>
    unsigned filtered(const Range &range);
    void blankOutside(int filter, const Range &range);

    int m_width;
    QRgb m_blank; ///< a pixel without ink
    Row m_above;
    Row m_here;
    std::vector<unsigned char> m_candidates[5]; ///< by filter type, each with the filter byte in front
    Range m_written[5]; ///< where a candidate may differ from that of a blank row, apart from the leftmost pixel
};

#endif
