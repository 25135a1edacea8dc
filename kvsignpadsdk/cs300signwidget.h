/// @file
/// The S300 pad, shown in a Qt widget.
#ifndef CS300SIGNWIDGET_H
#define CS300SIGNWIDGET_H

#include "padclass/declared.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
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
