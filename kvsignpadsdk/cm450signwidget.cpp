#include "cm450signwidget.h"

#include "padclass/defined.h"

#define KV_PAD CM450SignWidget
#include "padclass/members.inl"
#include "padclass/members_widget.inl"

void RxM450SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CM450SignWidget>().RxM450SignPadRawData(nX, nY, nP, nPenStatus);
}

void CM450SignWidget::RxM450SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
