/// @file
/// The M450 pad, shown in a Qt widget.
#ifndef CM450SIGNWIDGET_H
#define CM450SIGNWIDGET_H

#include "padclass/declared.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
void RxM450SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CM450SignWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr const PadRow &row = padrows::kM450Widget;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxM450SignPadRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    explicit CM450SignWidget(QWidget *pParent);
    ~CM450SignWidget() override;

#include "padclass/declarations.inl"
#include "padclass/declarations_widget.inl"

    void RxM450SignPadRawData(int nX, int nY, int nP, int nPenStatus);

    QImage m_canvas;
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_plain.inl"
#include "padclass/fields.inl"
    QMutex m_mutexUpdateCanvas;
    bool m_bPenDownOnDeviceConfirmOrCancelArea = false; ///< tapped since the last clear
    PadInternals m_internals;
};

#endif
