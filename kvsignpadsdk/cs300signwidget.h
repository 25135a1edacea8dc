/// @file
/// The S300 pad, shown in a Qt widget.
#ifndef CS300SIGNWIDGET_H
#define CS300SIGNWIDGET_H

#include "padclass/declared.h"

/// Registered with the driver, which calls it on its own thread; passes the packet on to the open instance.
void RxS300SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CS300SignWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr const PadRow &row = padrows::kS300Widget;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxS300SignPadRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    explicit CS300SignWidget(QWidget *pParent);
    ~CS300SignWidget() override;

#include "padclass/declarations.inl"
#include "padclass/declarations_screen.inl"
#include "padclass/declarations_widget.inl"

    void RxS300SignPadRawData(int nX, int nY, int nP, int nPenStatus);

    // The order of the fields is fixed.
    QImage m_canvas;
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
