/// @file
/// The exported functions about the fingerprint, written once for all families.
#ifndef EXPORTEDFINGERPRINT_H
#define EXPORTEDFINGERPRINT_H

#include "frame.h"

namespace exported {

template <class Family>
int SetDisplayedFPImageAt(int nDeviceType, QWidget *pParentWidget, int nCanvasWidth, int nCanvasHeight, int nFPLeft,
    int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{Family::prefix, "SetDisplayedFPImageAt()"};
    KV_LOG(key,
        "<%ld>-Enter, nDeviceType=%d, pParentWidget=%lx, nCanvasWidth=%d, nCanvasHeight=%d, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        nDeviceType, logging::address(pParentWidget), nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth,
        nFPHeight);
    return answer<Family>(key, nDeviceType, [=](auto &pad) {
        if constexpr (std::decay_t<decltype(pad)>::row.host == Host::Headless)
            return pad.SetDisplayedFPImageAt(nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
        else
            return pad.SetDisplayedFPImageAt(pParentWidget, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    });
}

template <class Family>
char *GetFPImageBase64Data(int nDeviceType, int nImageTypeID, bool bFPImageOnly)
{
    static constexpr logging::Key key{Family::prefix, "GetFPImageBase64Data()"};
    KV_LOG(
        key, "<%ld>-Enter, nDeviceType=%d, nImageTypeID=%d, bFPImageOnly=%d", nDeviceType, nImageTypeID, bFPImageOnly);
    if (!isOurs<Family>(key, nDeviceType, "nullptr"))
        return nullptr;
    if (nImageTypeID < EBITI_BITMAP || nImageTypeID > EBITI_PNG) {
        KV_LOG(key, "<%ld>-leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || (nImageTypeID > EBITI_PNG) !");
        return nullptr;
    }
    return text<Family>(key, [=](auto &pad) { return pad.GetFPImageBase64Data(nImageTypeID, bFPImageOnly); });
}

template <class Family>
void FreeFPImageBase64Data(int nDeviceType, char *pFPImageBase64Data)
{
    static constexpr logging::Key key{Family::prefix, "FreeFPImageBase64Data()"};
    KV_LOG(
        key, "<%ld>-Enter, nDeviceType=%d, pFPImageBase64Data=%lx", nDeviceType, logging::address(pFPImageBase64Data));
    release<Family>(key, nDeviceType, [=](auto &pad) { pad.FreeFPImageBase64Data(pFPImageBase64Data); });
}

} // namespace exported

#endif
