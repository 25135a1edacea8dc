#include "cs300signobj.h"

#include "paddefined.h"

#define KV_PAD CS300SignObj
#include "padmembers.inl"
#include "padmembers_headless.inl"
#include "padmembers_screen.inl"

void RxS300SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS300SignObj>().RxS300SignPadRawData(nX, nY, nP, nPenStatus);
}

void CS300SignObj::RxS300SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
