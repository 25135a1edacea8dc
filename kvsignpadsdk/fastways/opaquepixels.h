/// @file
/// Loops over whole canvases that the compiler can vectorise. They take 32-bit images.
#ifndef OPAQUEPIXELS_H
#define OPAQUEPIXELS_H

#include <QImage>

namespace opaquepixels {

/// True when every pixel's alpha is 255.
bool isOpaque(const QImage &image);

/// True when every pixel is opaque white.
bool isWhite(const QImage &image);

/// False where a side is longer than QPainter paints: what Qt makes of such an image ends there.
bool isPaintedWhole(const QImage &image);

/// Makes pure white fully transparent, in the premultiplied format, with Qt's own mask. Takes images of any kind.
void maskWhiteByQt(QImage &image);

/// A copy in which pure white is fully transparent, in the premultiplied format; a null image when a pixel of the
/// original is not opaque, and for one that QPainter does not paint whole.
QImage whiteTransparent(const QImage &image);

/// The image's memory as an image without an alpha channel. It must not outlive or see a change of the original.
QImage viewWithoutAlpha(const QImage &image);

/// Remembers whether an image is opaque. Drawing on views of its memory keeps that and does not count as a change;
/// every change through the image itself does.
class Memo
{
public:
    bool isOpaque(const QImage &image);

private:
    const uchar *m_bits = nullptr;
    qint64 m_key = 0;
    bool m_opaque = false;
};

} // namespace opaquepixels

#endif
