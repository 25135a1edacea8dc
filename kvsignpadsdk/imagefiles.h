/// @file
/// The signature as a BMP, JPEG, PNG, PDF or SVG file.
#ifndef IMAGEFILES_H
#define IMAGEFILES_H

#include "LogFileUtil.h"
#include "fastways/pngrows.h"
#include "filepaths.h"
#include "imageresolution.h"
#include "inkbounds.h"
#include "inkpoints.h"
#include "replacedfile.h"
#include "sharedfields.h"
#include "svgdrawing.h"

#include <QImage>
#include <QString>

#include <utility>

namespace imagefiles {

/// Writes the image in the format of the path's suffix. Returns false for an unknown suffix, a null image or an
/// unwritable path. An existing file changes only when the new one is complete.
bool saveBySuffix(QImage image, WhiteIs white, const QString &path);

/// Writes an A4 page with the image at the top left inside the margins, one pixel a dot. White is opaque. Returns false
/// when there is no memory for the picture; true even when the disk refuses the end of the file, and an existing file
/// then keeps its contents.
/// @throws std::bad_alloc
bool savePdf(QImage image, const QString &path, int nDPI);

/// True when the instance holds a fingerprint that has not been cleared.
template <class Pad>
bool holdsFingerprint(Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return shared::get(pad.m_nCurrentFPRawDataWithBestScore) > 0;
    else
        return false;
}

/// What is saved: a copy of the canvas or of the clip rectangle, so that saving needs no canvas lock.
struct Cut
{
    QImage image; ///< null when only the size is wanted and nothing is clipped
    QSize size;
    bool clipped = false;
    QRect box{QPoint(-1, -1), QPoint(-2, -2)};
};

enum class Wanted
{
    Pixels,
    Size
};

template <class Pad>
Cut cut(Pad &pad, Wanted wanted)
{
    Cut result;
    result.clipped = shared::get(pad.m_bClipImage);
    if (wanted == Wanted::Pixels || result.clipped)
        result.image = inkbounds::snapshot(pad);
    else
        result.size = inkbounds::canvasSize(pad);
    if (result.clipped) {
        result.box = inkbounds::clipRect(pad, result.image);
        result.image = inkbounds::partInside(result.image, result.box);
    }
    if (wanted == Wanted::Pixels || result.clipped)
        result.size = result.image.size(); // 0 by 0 when the image is null
    return result;
}

template <class Pad>
bool saveAs(Pad &pad, int nImageTypeID, const QString &path, int nDPI, Cut &cut)
{
    switch (nImageTypeID) {
    case ITI_PDF:
        return pad.SaveDrawingImageAsPDFFile(cut.image, path, nDPI);
    case ITI_SVG:
        return pad.SaveDrawingImageAsSVGFile(cut.image, path, nDPI, cut.box);
    case ITI_BITMAP:
    case ITI_JPEG:
    case ITI_PNG:
        imageresolution::set(cut.image, nDPI);
        return saveBySuffix(
            std::move(cut.image), nImageTypeID == ITI_PNG ? WhiteIs::Transparent : WhiteIs::Opaque, path);
    default:
        return false;
    }
}

template <class Pad>
int save(Pad &pad, int nImageTypeID, wchar_t *pImageFilePath, int nDPI)
{
    static constexpr logging::Key key{Pad::row.scope, "SaveDrawingImage()"};
    KV_LOG_WIDE(key, "<%ld>-enter, nImageTypeID=%d, pImageFilePath=%x, nDPI=%d", nImageTypeID,
        logging::shortAddress(pImageFilePath), nDPI);
    int nResult = ARI_INK_EMPTY;
    if (pad.GetTotalInkPointsNumber() > 0 || holdsFingerprint(pad)) {
        Cut image = cut(pad, Wanted::Pixels);
        if (image.clipped)
            KV_LOG_WIDE(key, "<%ld>-after call CheckSignImageBoundingBox(), l=%d, t=%d, r=%d, b=%d", image.box.left(),
                image.box.top(), image.box.right(), image.box.bottom());
        if (saveAs(pad, nImageTypeID, filepaths::fromWide(pImageFilePath), nDPI, image))
            nResult = ARI_SUCCESS;
    }
    KV_LOG_WIDE(key, "<%ld>-leave with nResult=%d", nResult);
    return nResult;
}

template <class Pad>
bool saveAsPdf(Pad &, const QImage &image, const QString &path, int nDPI)
{
    static constexpr logging::Key key{Pad::row.scope, "SaveDrawingImageAsPDFFile()"};
    KV_LOG(key, "<%ld>-enter, nDPI=%d", nDPI);
    const bool bRet = savePdf(image, path, nDPI);
    KV_LOG(key, "<%ld>-leave with bRet=%d", bRet);
    return bRet;
}

/// Draws the stored points again as lines. Returns true even when the file could not be written.
template <class Pad>
bool saveAsSvg(Pad &pad, const QImage &image, const QString &path, int nDPI, const QRect &box)
{
    ReplacedFile file(path);
    svgdrawing::draw(pad, file, image.size(), nDPI, box.topLeft());
    file.commit();
    return true;
}

} // namespace imagefiles

#endif
