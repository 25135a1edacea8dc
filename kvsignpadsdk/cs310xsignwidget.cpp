#include "cs310xsignwidget.h"

#include "cs310xwidget_showfpimageondevicethread.h"
#include "displaythread.h"
#include "fingerprintplacement.h"
#include "padclass/defined.h"

#include <QScopedValueRollback>

#define KV_PAD CS310XSignWidget
#include "padclass/members.inl"
#include "padclass/members_fingerprint.inl"
#include "padclass/members_screen.inl"
#include "padclass/members_widget.inl"

void RxS310XSignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS310XSignWidget>().RxS310XSignPadRawData(nX, nY, nP, nPenStatus);
}

void CS310XSignWidget::RxS310XSignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}

void RxS310XSignPadFPRawDataCallback(unsigned char *pucRawData, int nDataLength, int nScore)
{
    openinstance::as<CS310XSignWidget>().RxS310XSignPadFPRawData(pucRawData, nDataLength, nScore);
}

void CS310XSignWidget::startDisplayThread(const logging::Key &key)
{
    m_pShowFPImageOnDeviceThread =
        displaythread::started(std::make_unique<CS310XWidget_ShowFPImageOnDeviceThread>(this), key);
}

int CS310XSignWidget::SetDisplayedFPImageAt(
    QWidget *pParentWidget, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)
{
    static constexpr logging::Key key{row.scope, "SetDisplayedFPImageAt()"};
    KV_LOG(key, "<%ld>-Enter, pParentWidget=%lx, nFPLeft=%d, nFPTop=%d, nFPWidth=%d, nFPHeight=%d",
        logging::address(pParentWidget), nFPLeft, nFPTop, nFPWidth, nFPHeight);
    if (pParentWidget == parentWidget())
        return placeOnThis(key, fingerprintplace::rectangle(nFPLeft, nFPTop, nFPWidth, nFPHeight));
    if (pParentWidget == nullptr) {
        KV_LOG(key, "<%ld>-leave with ARI_INVALID_PARAMETERS due to pParentWidget == nullptr !");
        return ARI_INVALID_PARAMETERS;
    }
    if (!widgetthread::canHaveChildren(*pParentWidget)) {
        KV_LOG(key,
            "<%ld>-leave with ARI_FAIL due to (qApp == nullptr) || (pParentWidget->thread() != QThread::currentThread()) "
            "!");
        return ARI_FAIL;
    }
    CS310XFPWidget &widget = fingerprintplacement::addWidget(*this, pParentWidget);
    const int nResult = widget.SetDisplayedFPImageAt(pParentWidget, nFPLeft, nFPTop, nFPWidth, nFPHeight);
    if (nResult != ARI_SUCCESS) {
        KV_LOG(key, "<%ld>-leave due to m_pNewFPWidget->SetDisplayedFPImageAt() failed, nResult=%d", nResult);
        return nResult;
    }
    widget.show();
    fingerprintplacement::setAction(*this, NFPPA_SIGN_FP_DIFFERENT_WIDGET);
    KV_LOG(key, "<%ld>-leave with ARI_SUCCESS...");
    return ARI_SUCCESS;
}

int CS310XSignWidget::placeOnThis(const logging::Key &key, const QRect &rectangle)
{
    {
        const std::lock_guard<std::mutex> writing(m_internals.pixelsLock);
        m_NewFPRect = rectangle;
    }
    const int nResult = fingerprintplace::checkInside(key, rectangle, rect());
    if (nResult != ARI_SUCCESS)
        return nResult;
    fingerprintplacement::setAction(*this, NFPPA_SIGN_FP_SAME_WIDGET);
    KV_LOG(key, "<%ld>-leave with ARI_SUCCESS...");
    return ARI_SUCCESS;
}

char *CS310XSignWidget::GetFPImageBase64Data(int nImageTypeID, bool bFPImageOnly)
{
    static constexpr logging::Key key{row.scope, "GetFPImageBase64Data()"};
    KV_LOG(key, "<%ld>-enter, nImageTypeID=%d, bFPImageOnly=%d", nImageTypeID, bFPImageOnly);
    char *pFPImageBase64Data = nullptr;
    switch (shared::get(m_nNewFPProcessActionID)) {
    case NFPPA_NONE:
    case NFPPA_SIGN_FP_SAME_WIDGET: {
        // Set for this call only, and under the canvas lock, so that a Base64Encode() meanwhile is not cropped.
        const MutexLock locked(m_mutexUpdateCanvas);
        const QScopedValueRollback<bool> only(m_bFPImageBase64DataOnly, bFPImageOnly);
        pFPImageBase64Data = imagetexts::lockedImageText(*this, nImageTypeID);
        break;
    }
    case NFPPA_SIGN_FP_DIFFERENT_WIDGET:
        pFPImageBase64Data = fingerprintplacement::imageText(*this, nImageTypeID, bFPImageOnly);
        break;
    default:
        break;
    }
    KV_LOG(key, "<%ld>-leave with pFPImageBase64Data=%lx !", logging::address(pFPImageBase64Data));
    return pFPImageBase64Data;
}
