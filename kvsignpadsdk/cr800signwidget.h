/// @file
/// The R800 pad, shown in a Qt widget.
#ifndef CR800SIGNWIDGET_H
#define CR800SIGNWIDGET_H

#include "padclass/declared.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
void RxR800SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CR800SignWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr const PadRow &row = padrows::kR800Widget;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxR800SignPadRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    explicit CR800SignWidget(QWidget *pParent);
    ~CR800SignWidget() override;

#include "padclass/declarations.inl"
#include "padclass/declarations_widget.inl"

    void RxR800SignPadRawData(int nX, int nY, int nP, int nPenStatus);

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
