#include "cs300signwidget.h"

#include "padclass/defined.h"

#define KV_PAD CS300SignWidget
#include "padclass/members.inl"
#include "padclass/members_screen.inl"
#include "padclass/members_widget.inl"

void RxS300SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS300SignWidget>().RxS300SignPadRawData(nX, nY, nP, nPenStatus);
}

void CS300SignWidget::RxS300SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
