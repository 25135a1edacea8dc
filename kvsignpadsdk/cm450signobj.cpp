#include "cm450signobj.h"

#include "padclass/defined.h"

#define KV_PAD CM450SignObj
#include "padclass/members.inl"
#include "padclass/members_headless.inl"

void RxM450SignObjRawDataCallback(int nX, int nY, int nP, int nPenStatus)
{
    openinstance::as<CM450SignObj>().RxM450SignPadRawData(nX, nY, nP, nPenStatus);
}

void CM450SignObj::RxM450SignPadRawData(int nX, int nY, int nP, int nPenStatus)
{
    penpackets::handle(*this, nX, nY, nP, nPenStatus);
}
