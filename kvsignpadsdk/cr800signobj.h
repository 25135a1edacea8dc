/// @file
/// The R800 pad, headless in memory.
#ifndef CR800SIGNOBJ_H
#define CR800SIGNOBJ_H

#include "padclass/declared.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
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
