#include "cs300signobj.h"

#include "padclass/defined.h"

#define KV_PAD CS300SignObj
#include "padclass/members.inl"
#include "padclass/members_headless.inl"
#include "padclass/members_screen.inl"

void RxS300SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CS300SignObj>().RxS300SignPadRawData(nX, nY, nP, nPenStatus);
}

void CS300SignObj::RxS300SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
