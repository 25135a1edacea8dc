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

/// Writes the image as the path's suffix says; false for an unknown suffix, a null image or an unwritable path.
/// A file is only touched when the image could be encoded, and keeps what it held when it cannot be written.
bool saveBySuffix(QImage image, WhiteIs white, const QString &path);

/// Writes an A4 page with the image at the top left of the area inside the margins, one pixel a dot. White is opaque.
/// True too when the page could not be written to an end: then an earlier file keeps what it held. False when there is
/// no memory for the picture.
/// @throws std::bad_alloc
bool savePdf(QImage image, const QString &path, int nDPI);

/// True when the instance holds a fingerprint that has not been cleared.
template <class Pad>
bool hasFingerprint(Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return shared::get(pad.m_nCurrentFPRawDataWithBestScore) > 0;
    else
        return false;
}

/// What the outputs without the canvas lock take: the canvas or the clip rectangle's part of it.
struct Cut
{
    QImage image; ///< null where only the size was asked for and nothing is cut
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
        result.size = result.image.size(); // 0 by 0 where there are no pixels
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
    if (pad.GetTotalInkPointsNumber() > 0 || hasFingerprint(pad)) {
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

/// Draws the stored points anew; true even when the file could not be written.
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
