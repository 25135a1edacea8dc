#include "cr800signobj.h"

#include "padclass/defined.h"

#define KV_PAD CR800SignObj
#include "padclass/members.inl"
#include "padclass/members_headless.inl"

void RxR800SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CR800SignObj>().RxR800SignPadRawData(nX, nY, nP, nPenStatus);
}

void CR800SignObj::RxR800SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
