/// @file
/// The S310X pad, shown in a Qt widget.
#ifndef CS310XSIGNWIDGET_H
#define CS310XSIGNWIDGET_H

#include "padclass/declared.h"
#include "padclass/fingerprintinternals.h"
#include "sharedfields.h"

class CS310XFPWidget;
class CS310XWidget_ShowFPImageOnDeviceThread;

/// Registered with the driver: each hands what it gets to the open instance, on the driver's thread.
void RxS310XSignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus);
void RxS310XSignPadFPRawDataCallback(unsigned char *pucRawData, int nDataLength, int nScore);

class CS310XSignWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr const PadRow &row = padrows::kS310XWidget;
    static constexpr NOTIFY_HWSIGNDATA penPacketCallback = RxS310XSignPadRawDataCallback;
    static constexpr NOTIFY_FPDATA fingerprintCallback = RxS310XSignPadFPRawDataCallback;

    explicit CS310XSignWidget(QWidget *pParent);
    ~CS310XSignWidget() override;

#include "padclass/declarations.inl"
#include "padclass/declarations_fingerprint.inl"
#include "padclass/declarations_screen.inl"
#include "padclass/declarations_widget.inl"

    void RxS310XSignPadRawData(int nX, int nY, int nP, int nPenStatus);
    int SetDisplayedFPImageAt(QWidget *pParentWidget, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

    int placeOnThis(const logging::Key &key, const QRect &rectangle);

    QImage m_canvas; ///< what is shown and encoded: ink and fingerprint merged
    QImage m_SignCanvas; ///< ink only
    QImage m_FPOnlyCanvas; ///< the accepted fingerprint at its top left
    QColor m_drawColor = Qt::black;
    QLibrary *m_plibKVSignPadDriver = nullptr; ///< owned
#include "padclass/slots_screen.inl"
    KVSPDAPI_ShowFPImageOnDevice m_pfn_KVSPDAPI_ShowFPImageOnDevice = nullptr;
#include "padclass/fields.inl"
#include "padclass/fields_fingerprint.inl"
    CS310XWidget_ShowFPImageOnDeviceThread *m_pShowFPImageOnDeviceThread = nullptr; ///< owned
#include "padclass/fields_display.inl"
    alignas(shared::kApart) QMutex m_mutexUpdateCanvas; ///< away from what the display thread writes without a pause
    bool m_bPenDownOnCancelButton = false; ///< tapped since the last clear
    FingerprintInternals m_internals;
};

#endif
