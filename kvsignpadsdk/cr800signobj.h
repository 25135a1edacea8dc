/// @file
/// The R800 pad, headless in memory.
#ifndef CR800SIGNOBJ_H
#define CR800SIGNOBJ_H

#include "padclass/declared.h"

/// Registered with the driver, which calls it on its own thread; passes the packet on to the open instance.
void RxR800SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CR800SignObj
{
public:
    static constexpr const PadRow &row = padrows::kR800Obj;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxR800SignObjRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    CR800SignObj(int nWidth, int nHeight);
    ~CR800SignObj();
    CR800SignObj(const CR800SignObj &) = delete;
    CR800SignObj &operator=(const CR800SignObj &) = delete;

#include "padclass/declarations.inl"

    void RxR800SignPadRawData(int nX, int nY, int nP, int nPenStatus);

    // The order of the fields is fixed.
    QImage m_canvas;
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
    KVSPDAPI_Initial m_pfn_KVSPDAPI_Initial = nullptr;
    KVSPDAPI_UnInitial m_pfn_KVSPDAPI_UnInitial = nullptr;
    KVSPDAPI_ClearDeviceContent m_pfn_KVSPDAPI_ClearDeviceContent = nullptr;
    KVSPDAPI_GetDevicePadID m_pfn_KVSPDAPI_GetDevicePadID = nullptr;
    KVSPDAPI_GetDevicePartsVersion m_pfn_KVSPDAPI_GetDevicePartsVersion = nullptr;
    KVSPDAPI_SetDevicePenStyle m_pfn_KVSPDAPI_SetDevicePenStyle = nullptr;
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
    QMutex m_mutexUpdateCanvas;
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    PadInternals m_internals;
};

#endif
