#include "cr800signobj.h"

#include "paddefined.h"

#define KV_PAD CR800SignObj
#include "padmembers.inl"
#include "padmembers_headless.inl"

void RxR800SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CR800SignObj>().RxR800SignPadRawData(nX, nY, nP, nPenStatus);
}

void CR800SignObj::RxR800SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
