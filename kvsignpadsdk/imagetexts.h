/// @file
/// The signature as Base64 texts of BMP, JPEG, PNG and SVG files.
#ifndef IMAGETEXTS_H
#define IMAGETEXTS_H

#include "LogFileUtil.h"
#include "fastways/base64text.h"
#include "fastways/pngstream.h"
#include "imagefiles.h"
#include "inkbounds.h"
#include "inkpoints.h"
#include "inkrecord.h"
#include "mutexlock.h"
#include "owedmerge.h"
#include "privatefile.h"
#include "sharedfields.h"
#include "svgdrawing.h"

#include <QByteArray>
#include <QImage>

#include <exception>

namespace imagetexts {

/// The bytes of a complete file of this type, in default quality. Empty for an unknown type or an image that cannot be
/// written. With a kept stream a transparent PNG reuses what it shares with the stream's last image.
QByteArray fileOf(QImage image, int nImageTypeID, bool transparent, PngStream *kept = nullptr);

/// The fingerprint's rectangle. Another thread may be setting it.
template <class Pad>
QRect placeOfFingerprint(Pad &pad)
{
    const std::lock_guard<std::mutex> reading(pad.m_internals.pixelsLock);
    return pad.m_NewFPRect;
}

/// The part of the canvas that an image text shows. Call it with the canvas locked.
/// @throws std::bad_alloc
template <class Pad>
QImage chosen(Pad &pad, bool mayCutToFingerprint)
{
    owedmerge::makeUpLocked(pad);
    if (shared::get(pad.m_bClipImage))
        return inkbounds::partInside(pad.m_canvas, inkbounds::clipRect(pad, pad.m_canvas));
    if constexpr (Pad::row.has(CutsTextsToFingerprint)) {
        if (mayCutToFingerprint && shared::get(pad.m_bFPImageBase64DataOnly)
            && shared::get(pad.m_nNewFPProcessActionID) == NFPPA_SIGN_FP_SAME_WIDGET)
            return inkbounds::partInside(pad.m_canvas, placeOfFingerprint(pad));
    }
    (void)mayCutToFingerprint;
    return pad.m_canvas;
}

/// The stream that a live push keeps between its images; null when none is running.
template <class Pad>
PngStream *keptStream(Pad &pad)
{
    if constexpr (Pad::row.has(PushesLive))
        return shared::get(pad.m_pfnRealTimeSignBase64DataCallback) != nullptr ? &pad.m_internals.livePng : nullptr;
    return nullptr;
}

/// Encodes the canvas, which the caller has locked.
template <class Pad>
char *lockedImageText(Pad &pad, int nImageTypeID)
{
    static constexpr logging::Key key{Pad::row.scope, "EncodeBase64SignImage()"};
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d", nImageTypeID);
    char *pEncodeBase64Image =
        base64text::newTextOf([&] { return fileOf(chosen(pad, true), nImageTypeID, true, keptStream(pad)); });
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

template <class Pad>
char *imageText(Pad &pad, int nImageTypeID)
{
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    return lockedImageText(pad, nImageTypeID);
}

template <class Pad>
char *imageTextEx(Pad &pad, int nImageTypeID, bool bEnableTransparentBackground)
{
    static constexpr logging::Key key{Pad::row.scope, "EncodeBase64SignImageEx()"};
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d, bEnableTransparentBackground=%d", nImageTypeID,
        bEnableTransparentBackground);
    char *pEncodeBase64Image =
        base64text::newTextOf([&] { return fileOf(chosen(pad, false), nImageTypeID, bEnableTransparentBackground); });
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

/// Whether there is anything to encode: ink, or for an image a fingerprint alone, if the caller allows that.
template <class Pad>
bool hasContent(Pad &pad, int nImageTypeID, bool fingerprintWillDo)
{
    if (inkpoints::count(pad) > 0)
        return true;
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return fingerprintWillDo && nImageTypeID >= EBITI_BITMAP && nImageTypeID <= EBITI_PNG
            && shared::get(pad.m_nCurrentFPRawDataWithBestScore) != 0;
    return false;
}

/// What both Base64Encode functions do; `makeText` makes the text of an image type.
template <class Pad, class MakeText>
char *textOf(Pad &pad, const logging::Key &key, int nImageTypeID, bool fingerprintWillDo, MakeText makeText)
{
    if (!hasContent(pad, nImageTypeID, fingerprintWillDo)) {
        KV_LOG(key, "<%ld>-leave with nullptr due to None of sign image !");
        return nullptr;
    }
    char *pBase64Image = nullptr;
    if (nImageTypeID >= EBITI_BITMAP && nImageTypeID <= EBITI_PNG)
        pBase64Image = makeText();
    else if (nImageTypeID == EBITI_INK)
        pBase64Image = inkrecord::newText(pad, key);
    KV_LOG(key, "<%ld>-leave with pBase64Image=%lx !", logging::address(pBase64Image));
    return pBase64Image;
}

template <class Pad>
char *base64Encode(Pad &pad, int nImageTypeID)
{
    static constexpr logging::Key key{Pad::row.scope, "Base64Encode()"};
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d", nImageTypeID);
    return textOf(pad, key, nImageTypeID, true, [&] { return pad.EncodeBase64SignImage(nImageTypeID); });
}

template <class Pad>
char *base64EncodeEx(Pad &pad, int nImageTypeID, bool bEnableTransparentBackground)
{
    static constexpr logging::Key key{Pad::row.scope, "Base64EncodeEx()"};
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d, bEnableTransparentBackground=%d", nImageTypeID,
        bEnableTransparentBackground);
    return textOf(pad, key, nImageTypeID, false,
        [&] { return pad.EncodeBase64SignImageEx(nImageTypeID, bEnableTransparentBackground); });
}

/// Frees a text; `function` names the member for the log.
template <class Pad>
void freeText(Pad &, const char *function, char *pEncodedData)
{
    const logging::Key key{Pad::row.scope, function};
    KV_LOG(key, "<%ld>-enter, pEncodedData=%lx", logging::address(pEncodedData));
    if (pEncodedData != nullptr) {
        delete[] pEncodedData;
        KV_LOG(key, "<%ld>-after call delete[] pEncodedData !");
    }
    KV_LOG(key, "<%ld>-leave !");
}

/// Renames the file into place and returns its text, with the number of bytes and of characters. An empty text and
/// zeros when the file could not be written completely.
char *publishedText(PrivateFile &file, size_t &size, size_t &length);

/// Writes the drawing to its file and returns its text, with the number of bytes and of characters. An empty text and
/// zeros when that fails or memory runs out.
template <class Pad>
char *drawnText(Pad &pad, const logging::Key &key, size_t &size, size_t &length)
{
    try {
        const imagefiles::Cut cut = imagefiles::cut(pad, imagefiles::Wanted::Size);
        if (cut.clipped)
            KV_LOG(key, "<%ld>-after call CheckSignImageBoundingBox(), l=%d, t=%d, r=%d, b=%d", cut.box.left(),
                cut.box.top(), cut.box.right(), cut.box.bottom());
        PrivateFile file("/tmp/KVeSign.svg");
        svgdrawing::draw(pad, file.device(), cut.size, 150, cut.box.topLeft());
        return publishedText(file, size, length);
    } catch (const std::exception &) {
        size = 0;
        return base64text::newText(nullptr, 0, length);
    }
}

template <class Pad>
char *svgText(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "GetSVGImageBase64Data()"};
    const int nInkCount = pad.GetTotalInkPointsNumber();
    KV_LOG(key, "<%ld>-enter, nInkCount=%d", nInkCount);
    if (nInkCount <= 0) {
        KV_LOG(key, "<%ld>-leave with nullptr due to (nInkCount <= 0) !");
        return nullptr;
    }
    size_t size = 0;
    size_t nBase64Size = 0;
    char *pBase64Data = drawnText(pad, key, size, nBase64Size);
    if constexpr (Pad::row.has(LogsSvgFileClosed))
        KV_LOG(key, "<%ld>-after call f.close()...");
    KV_LOG(key, "<%ld>-byteArray size=%d", static_cast<int>(size));
    KV_LOG(key, "<%ld>-nBase64Size=%d", static_cast<int>(nBase64Size));
    KV_LOG(key, "<%ld>-leave with pBase64Data=%lx !", logging::address(pBase64Data));
    return pBase64Data;
}

} // namespace imagetexts

#endif
