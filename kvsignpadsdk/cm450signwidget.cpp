#include "cm450signwidget.h"

#include "paddefined.h"

#define KV_PAD CM450SignWidget
#include "padmembers.inl"
#include "padmembers_widget.inl"

void RxM450SignPadRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CM450SignWidget>().RxM450SignPadRawData(nX, nY, nP, nPenStatus);
}

void CM450SignWidget::RxM450SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
