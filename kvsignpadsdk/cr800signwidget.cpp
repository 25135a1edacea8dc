#include "cr800signwidget.h"

#include "padclass/defined.h"

#define KV_PAD CR800SignWidget
#include "padclass/members.inl"
#include "padclass/members_widget.inl"

void RxR800SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CR800SignWidget>().RxR800SignPadRawData(nX, nY, nP, nPenStatus);
}

void CR800SignWidget::RxR800SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
