/// @file
/// The S210 pad, shown in a Qt widget.
#ifndef CS210SIGNWIDGET_H
#define CS210SIGNWIDGET_H

#include "padclass/declared.h"
#include "padclass/liveinternals.h"

/// Registered with the driver: hands what it gets to the open instance, on the driver's thread.
void RxS210SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus);

class CS210SignWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr const PadRow &row = padrows::kS210Widget;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxS210SignPadRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = nullptr;

    explicit CS210SignWidget(QWidget *pParent);
    ~CS210SignWidget() override;

#include "padclass/declarations.inl"
#include "padclass/declarations_screen.inl"
#include "padclass/declarations_widget.inl"

    void RxS210SignPadRawData(int nX, int nY, int nP, int nPenStatus);
    bool SetRealTimeSignBase64DataCallback(int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback);
    void CheckIfNeedToSendRealTimeSignBase64Data();

    QImage m_canvas;
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_screen.inl"
#include "padclass/fields.inl"
    QMutex m_mutexUpdateCanvas;
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    int m_nRealTimeSignBase64Data_ImageTypeID = 0;
    SIGNPAD_SIGN_BASE64_DATA_CALLBACK m_pfnRealTimeSignBase64DataCallback = nullptr;
    LiveInternals m_internals;
};

#endif
