/// @file
/// The M450 pad, headless in memory.
#ifndef CM450SIGNOBJ_H
#define CM450SIGNOBJ_H

#include "padclass/declared.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
void RxM450SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CM450SignObj
{
public:
    static constexpr const PadRow &row = padrows::kM450Obj;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxM450SignObjRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    CM450SignObj(int nWidth, int nHeight);
    ~CM450SignObj();
    CM450SignObj(const CM450SignObj &) = delete;
    CM450SignObj &operator=(const CM450SignObj &) = delete;

#include "padclass/declarations.inl"

    void RxM450SignPadRawData(int nX, int nY, int nP, int nPenStatus);

    QImage m_canvas;
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_plain.inl"
#include "padclass/fields.inl"
    QMutex m_mutexUpdateCanvas;
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    PadInternals m_internals;
};

#endif
