/// @file
/// The S310X pad, headless in memory.
#ifndef CS310XSIGNOBJ_H
#define CS310XSIGNOBJ_H

#include "padclass/declared.h"
#include "padclass/fingerprintinternals.h"
#include "sharedfields.h"

class CS310XFPWidget;
class CS310XObj_ShowFPImageOnDeviceThread;

/// Registered with the driver, which calls them on its own thread; they pass packets and images on to the open
/// instance.
void RxS310XSignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus);
void RxS310XSignObjFPRawDataCallback(unsigned char *pucRawData, int nDataLength, int nScore);

class CS310XSignObj
{
public:
    static constexpr const PadRow &row = padrows::kS310XObj;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxS310XSignObjRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = RxS310XSignObjFPRawDataCallback;

    CS310XSignObj(int nWidth, int nHeight);
    ~CS310XSignObj();
    CS310XSignObj(const CS310XSignObj &) = delete;
    CS310XSignObj &operator=(const CS310XSignObj &) = delete;

#include "padclass/declarations.inl"
#include "padclass/declarations_fingerprint.inl"
#include "padclass/declarations_screen.inl"

    void RxS310XSignPadRawData(int nX, int nY, int nP, int nPenStatus);
    int SetDisplayedFPImageAt(
        int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

    // The order of the fields is fixed.
    QImage m_canvas; ///< what is shown and encoded: ink and fingerprint merged
    QImage m_SignCanvas; ///< ink only
    QImage m_FPOnlyCanvas; ///< the accepted fingerprint at its top left
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
    KVSPDAPI_Initial m_pfn_KVSPDAPI_Initial = nullptr;
    KVSPDAPI_UnInitial m_pfn_KVSPDAPI_UnInitial = nullptr;
    KVSPDAPI_OpenDeviceLCD m_pfn_KVSPDAPI_OpenDeviceLCD = nullptr;
    KVSPDAPI_ClearDeviceContent m_pfn_KVSPDAPI_ClearDeviceContent = nullptr;
    KVSPDAPI_GetDevicePenID m_pfn_KVSPDAPI_GetDevicePenID = nullptr;
    KVSPDAPI_GetDevicePadID m_pfn_KVSPDAPI_GetDevicePadID = nullptr;
    KVSPDAPI_GetDeviceSecureID m_pfn_KVSPDAPI_GetDeviceSecureID = nullptr;
    KVSPDAPI_GetDevicePartsVersion m_pfn_KVSPDAPI_GetDevicePartsVersion = nullptr;
    KVSPDAPI_ShowVersionInfoOnDevice m_pfn_KVSPDAPI_ShowVersionInfoOnDevice = nullptr;
    KVSPDAPI_SetDevicePenStyle m_pfn_KVSPDAPI_SetDevicePenStyle = nullptr;
    KVSPDAPI_ShowFPImageOnDevice m_pfn_KVSPDAPI_ShowFPImageOnDevice = nullptr;
    bool m_bPenDown = false; ///< a stroke is in progress
    SingContext m_SignContext{}; ///< raw units to canvas pixels
    int m_nSignWidthLevel = 3; ///< 1 to 10
    double m_dblLastSignWndX = 0; ///< where the next segment starts, in canvas pixels
    double m_dblLastSignWndY = 0;
    bool m_bDeviceConnected = false;
    int m_nMaxPressureValue = row.model.maxPressure;
    bool m_bWithPressureValue = true; ///< the stroke width follows the pressure
    SIGNPAD_EVENT_CALLBACK m_pfnSignPadEventCallback = nullptr;
    std::vector<_POINTDATA> *m_pPointDataList = nullptr; ///< owned; null until the pad is connected
    bool m_bClipImage = false;
    int m_nSaveImageClipMarginX = 0; ///< canvas pixels
    int m_nSaveImageClipMarginY = 0;
    std::vector<_POINTDATA> *m_pDecodedPointDataList = nullptr; ///< owned
    int m_nPressDeviceConfirmOrCancelKey = -1; ///< last tap: 1 confirm, 0 cancel, -1 none or already asked for
    int m_nCurrentFPRawDataWithBestScore = 0;
    QRect m_NewFPRect; ///< the fingerprint's place on the sign widget
    int m_nNewFPProcessActionID = NFPPA_NONE;
    CS310XFPWidget *m_pNewFPWidget = nullptr; ///< newest place of its own
    bool m_bFPImageBase64DataOnly = false;
    unsigned char m_ucShowFPImageRawDataOnDevice[29952] = {}; ///< newest picture for the pad
    unsigned char m_ucCurrentFPImageRawDataOnDevice[29952] = {}; ///< the display thread's copy, being sent
    bool m_bGoToShutDown = false; ///< ends the display thread; the driver watches it too
    CS310XObj_ShowFPImageOnDeviceThread *m_pShowFPImageOnDeviceThread = nullptr; ///< owned
    QMutex m_mutexUpdateShowFPImageRawDataOnDevice; ///< guards the newest picture and the next flag
    bool m_bNewFPImageRawDataOnDeviceAvailable = false;
    bool m_bStartShowFPImageRawDataOnDevice = false; ///< display thread only
    bool m_bAlreadyShownFPImageRawDataOnDevice = false; ///< display thread only
    alignas(
        shared::kApart) QMutex m_mutexUpdateCanvas; ///< not in a cache line that the display thread keeps writing to
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    FingerprintInternals m_internals;
};

#endif
