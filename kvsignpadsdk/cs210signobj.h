/// @file
/// The S210 pad, headless in memory.
#ifndef CS210SIGNOBJ_H
#define CS210SIGNOBJ_H

#include "padclass/declared.h"
#include "padclass/liveinternals.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
void RxS210SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CS210SignObj
{
public:
    static constexpr const PadRow &row = padrows::kS210Obj;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxS210SignObjRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    CS210SignObj(int nWidth, int nHeight);
    ~CS210SignObj();
    CS210SignObj(const CS210SignObj &) = delete;
    CS210SignObj &operator=(const CS210SignObj &) = delete;

#include "padclass/declarations.inl"
#include "padclass/declarations_screen.inl"

    void RxS210SignPadRawData(int nX, int nY, int nP, int nPenStatus);
    bool SetRealTimeSignBase64DataCallback(int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback);
    void CheckIfNeedToSendRealTimeSignBase64Data();
    bool InitialWPSSignCanvas(int nWidth, int nHeight);
    char *WPSBase64Encode(int nImageTypeID);
    char *WPSEncodeBase64SignImage(int nImageTypeID);
    void WPSBase64EncodeFree(char *pEncodedData);

    QImage m_canvas;
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_screen.inl"
#include "padclass/fields.inl"
    QMutex m_mutexUpdateCanvas;
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    int m_nRealTimeSignBase64Data_ImageTypeID = 0;
    SIGNPAD_SIGN_BASE64_DATA_CALLBACK m_pfnRealTimeSignBase64DataCallback = nullptr;
    QImage m_WPSSignCanvas; ///< null until it is given a size
    LiveInternals m_internals;
};

#endif
