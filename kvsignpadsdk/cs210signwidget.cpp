#include "cs210signwidget.h"

#include "livepush.h"
#include "padclass/defined.h"

#define KV_PAD CS210SignWidget
#include "padclass/members.inl"
#include "padclass/members_screen.inl"
#include "padclass/members_widget.inl"

void RxS210SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS210SignWidget>().RxS210SignPadRawData(nX, nY, nP, nPenStatus);
}

void CS210SignWidget::RxS210SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}

bool CS210SignWidget::SetRealTimeSignBase64DataCallback(
    int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback)
{
    return livepush::setReceiver(*this, nType, pfnSignBase64DataCallback);
}

void CS210SignWidget::CheckIfNeedToSendRealTimeSignBase64Data()
{
    livepush::push(*this);
}
