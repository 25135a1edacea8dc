/// @file
/// The S300 pad, headless in memory.
#ifndef CS300SIGNOBJ_H
#define CS300SIGNOBJ_H

#include "padclass/declared.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
void RxS300SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CS300SignObj
{
public:
    static constexpr const PadRow &row = padrows::kS300Obj;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxS300SignObjRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    CS300SignObj(int nWidth, int nHeight);
    ~CS300SignObj();
    CS300SignObj(const CS300SignObj &) = delete;
    CS300SignObj &operator=(const CS300SignObj &) = delete;

#include "padclass/declarations.inl"
#include "padclass/declarations_screen.inl"

    void RxS300SignPadRawData(int nX, int nY, int nP, int nPenStatus);

    QImage m_canvas;
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_screen.inl"
#include "padclass/fields.inl"
    QMutex m_mutexUpdateCanvas;
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    PadInternals m_internals;
};

#endif
