/// @file
/// The S310X pad, headless in memory.
#ifndef CS310XSIGNOBJ_H
#define CS310XSIGNOBJ_H

#include "padclass/declared.h"
#include "padclass/fingerprintinternals.h"
#include "sharedfields.h"

class CS310XFPWidget;
class CS310XObj_ShowFPImageOnDeviceThread;

/// Registered with the driver: each hands what it gets to the open instance, on the driver's thread.
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

    QImage m_canvas; ///< what is shown and encoded: ink and fingerprint merged
    QImage m_SignCanvas; ///< ink only
    QImage m_FPOnlyCanvas; ///< the accepted fingerprint at its top left
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_screen.inl"
    KVSPDAPI_ShowFPImageOnDevice m_pfn_KVSPDAPI_ShowFPImageOnDevice = nullptr;
#include "padclass/fields.inl"
#include "padclass/fields_fingerprint.inl"
    CS310XObj_ShowFPImageOnDeviceThread *m_pShowFPImageOnDeviceThread = nullptr; ///< owned
#include "padclass/fields_display.inl"
    alignas(shared::kApart) QMutex m_mutexUpdateCanvas; ///< away from what the display thread writes without a pause
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    FingerprintInternals m_internals;
};

#endif
