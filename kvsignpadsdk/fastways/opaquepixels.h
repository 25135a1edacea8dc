/// @file
/// Loops over whole canvases, written so that the compiler vectorises them. They take 32-bit images.
#ifndef OPAQUEPIXELS_H
#define OPAQUEPIXELS_H

#include <QImage>

namespace opaquepixels {

/// True when every pixel's alpha is 255.
bool isOpaque(const QImage &image);

/// True when every pixel is opaque white.
bool isWhite(const QImage &image);

/// False for an image with a side beyond QPainter's coordinate limit (32767): Qt leaves the rest unpainted.
bool isPaintedWhole(const QImage &image);

/// Makes pure white fully transparent, in the premultiplied format, with Qt's own mask. Takes images of any kind.
void maskWhiteByQt(QImage &image);

/// A copy in the premultiplied format with pure white fully transparent. A null image when a pixel of the original is
/// not opaque, or when isPaintedWhole() is false.
QImage whiteTransparent(const QImage &image);

/// A second QImage over the image's memory that ignores its alpha. Do not use it once the original changes or is gone.
QImage viewWithoutAlpha(const QImage &image);

/// Remembers whether an image is opaque, and looks again only when its cacheKey() or its memory has changed. InkBrush
/// and MergeCache write without changing the key. That is safe here, because neither makes an opaque pixel translucent.
/// See "What a cache key tells" in docs/architecture.md.
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
