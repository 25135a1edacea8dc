#include "cs310xsignobj.h"

#include "cs310xobj_showfpimageondevicethread.h"
#include "displaythread.h"
#include "fingerprintplacement.h"
#include "inkbounds.h"
#include "padclass/defined.h"
#include "widgetthread.h"

#define KV_PAD CS310XSignObj
#include "padclass/members.inl"
#include "padclass/members_fingerprint.inl"
#include "padclass/members_headless.inl"
#include "padclass/members_screen.inl"

void RxS310XSignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS310XSignObj>().RxS310XSignPadRawData(nX, nY, nP, nPenStatus);
}

void CS310XSignObj::RxS310XSignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}

void RxS310XSignObjFPRawDataCallback(unsigned char *pucRawData, int nDataLength, int nScore)
{
    openinstance::as<CS310XSignObj>().RxS310XSignPadFPRawData(pucRawData, nDataLength, nScore);
}

void CS310XSignObj::startDisplayThread(const logging::Key &key)
{
    m_pShowFPImageOnDeviceThread =
        displaythread::started(std::make_unique<CS310XObj_ShowFPImageOnDeviceThread>(this), key);
}

int CS310XSignObj::SetDisplayedFPImageAt(
    int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{row.scope, "SetDisplayedFPImageAt()"};
    KV_LOG(key, "<%ld>-Enter, nCanvasWidth=%d, nCanvasHeight=%d, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    int nResult = ARI_FAIL;
    if (widgetthread::canHaveWidgets()) {
        nResult = fingerprintplacement::addWidget(*this, nullptr)
                      .SetDisplayedFPImageAt(nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    } else {
        auto canvas = std::make_unique<FingerprintCanvas>();
        nResult =
            fingerprintplace::placeOnCanvas(*canvas, nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight);
        const std::lock_guard<std::mutex> writing(m_internals.pixelsLock);
        m_pNewFPWidget = nullptr;
        m_internals.canvas = std::move(canvas);
    }
    if (nResult != ARI_SUCCESS) {
        KV_LOG(key, "<%ld>-leave due to m_pNewFPWidget->SetDisplayedFPImageAt() failed, nResult=%d", nResult);
        return nResult;
    }
    fingerprintplacement::setAction(*this, NFPPA_FP_ON_CANVAS_FROM_JS);
    KV_LOG(key, "<%ld>-leave with ARI_SUCCESS...");
    return ARI_SUCCESS;
}

char *CS310XSignObj::GetFPImageBase64Data(int nImageTypeID, bool bFPImageOnly)
{
    static constexpr logging::Key key{row.scope, "GetFPImageBase64Data()"};
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d, bFPImageOnly=%d", nImageTypeID, bFPImageOnly);
    char *pFPImageBase64Data = nullptr;
    if (shared::get(m_nNewFPProcessActionID) == NFPPA_FP_ON_CANVAS_FROM_JS)
        pFPImageBase64Data = fingerprintplacement::imageText(*this, nImageTypeID, bFPImageOnly);
    KV_LOG(key, "<%ld>-leave with pFPImageBase64Data=%lx !", logging::address(pFPImageBase64Data));
    return pFPImageBase64Data;
}
