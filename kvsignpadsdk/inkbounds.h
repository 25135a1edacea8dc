/// @file
/// Where the ink is on a canvas: bounding box, clip margins, white made transparent.
#ifndef INKBOUNDS_H
#define INKBOUNDS_H

#include "LogFileUtil.h"
#include "owedmerge.h"
#include "sharedfields.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <mutex>

namespace inkbounds {

/// Inclusive corners of the inked area, before margins. The initial values mean that nothing was found.
struct Box
{
    int left = 99999;
    int top = 99999;
    int right = -1;
    int bottom = -1;
};

/// The box of all pixels that are not white, whatever their alpha. Takes 32-bit images.
Box scan(const QImage &canvas);

/// The two ways of scan(): with a log line for each change while the log is on, else fast and without lines. They agree
/// wherever ink can be; QPainter draws none beyond pixel 32767, and only Box's initial 99999 would tell them apart.
Box scanLogged(const QImage &canvas);
Box scanQuietly(const QImage &canvas);

/// The box widened by the margins, but at most to 0 at the left and top, and to the canvas's size at the right and
/// bottom.
QRect withMargins(const Box &box, int width, int height, int marginX, int marginY);

/// A copy of the part inside the rectangle, as by QImage::copy(): what lies outside the canvas is transparent. A null
/// rectangle gives the whole canvas; any other empty one, or one larger than any canvas, gives a null image.
/// @throws std::bad_alloc
QImage partInside(const QImage &canvas, const QRect &rectangle);

/// Makes every pixel that equals the colour, alpha included, transparent. Takes 32-bit images.
void makeColourTransparent(QImage &image, const QColor &colour);

/// Makes pure white fully transparent, in the premultiplied format, with the result of opaquepixels::maskWhiteByQt():
/// beyond pixel 32767 of a side, QPainter's limit, white stays. Takes 32-bit images.
/// @throws std::bad_alloc
void makeWhiteTransparent(QImage &image);

/// A deep copy of the shown canvas, for callers that may not take the canvas lock.
/// @throws std::bad_alloc
template <class Pad>
QImage snapshot(Pad &pad)
{
    owedmerge::makeUp(pad);
    const std::lock_guard<std::mutex> reading(pad.m_internals.pixelsLock);
    return partInside(pad.m_canvas, QRect());
}

template <class Pad>
QSize canvasSize(Pad &pad)
{
    const std::lock_guard<std::mutex> reading(pad.m_internals.pixelsLock);
    return pad.m_canvas.size();
}

/// The clip rectangle of a canvas, with the instance's margins. Writes the log lines of the scan.
template <class Pad>
QRect clipRect(Pad &pad, const QImage &canvas)
{
    static constexpr logging::Key key{Pad::row.scope, "CheckSignImageBoundingBox()"};
    KV_LOG(key, "<%ld>-Enter, nWidth=%d, nHeight=%d", canvas.width(), canvas.height());
    const Box box = scan(canvas);
    KV_LOG(key, "<%ld>-nLeft=%d, nRight=%d, nTop=%d, nBottom=%d", box.left, box.right, box.top, box.bottom);
    const QRect rect = withMargins(box, canvas.width(), canvas.height(), shared::get(pad.m_nSaveImageClipMarginX),
        shared::get(pad.m_nSaveImageClipMarginY));
    KV_LOG(key, "<%ld>-leave with rcBoundBox.Left=%d, Right=%d, Top=%d, Bottom=%d", rect.left(), rect.right(),
        rect.top(), rect.bottom());
    return rect;
}

template <class Pad>
int setClipMargin(Pad &pad, bool bClipImage, int nClipMarginX, int nClipMarginY)
{
    static constexpr logging::Key key{Pad::row.scope, "SetSaveClipImageMargin()"};
    KV_LOG(key, "<%ld>-Enter, bClipImage=%d, nClipMarginX=%d, nClipMarginY=%d", bClipImage, nClipMarginX, nClipMarginY);
    const bool clip = bClipImage && (nClipMarginX != 0 || nClipMarginY != 0);
    shared::set(pad.m_nSaveImageClipMarginX, nClipMarginX);
    shared::set(pad.m_nSaveImageClipMarginY, nClipMarginY);
    shared::set(pad.m_bClipImage, clip);
    KV_LOG(key, "<%ld>-leave with m_bClipImage=%d", clip);
    return ARI_SUCCESS;
}

template <class Pad>
void makeAsTransparentImage(Pad &, QImage &image, const QColor &color)
{
    static constexpr logging::Key key{Pad::row.scope, "MakeAsTransparentImage()"};
    KV_LOG(key, "<%ld>-Enter, nWidth=%d, nHeight=%d", image.width(), image.height());
    makeColourTransparent(image, color);
    KV_LOG(key, "<%ld>-leave");
}

} // namespace inkbounds

#endif
