// The members that all pads with a screen forward in the same way.
#ifndef KV_PAD // so that an editor can parse this file by itself
#include "cs300signwidget.h"
#include "defined.h"
#define KV_PAD CS300SignWidget
#endif

int KV_PAD::OpenDeviceLCD(bool bOn) { return devicesettings::openLcd(*this, bOn); }
int KV_PAD::GetDevicePenID(char *pPenID, int nMaxCount) { return devicesettings::penId(*this, pPenID, nMaxCount); }
int KV_PAD::GetDeviceSecureID(char *pSecureID, int nMaxCount) { return devicesettings::secureId(*this, pSecureID, nMaxCount); }
int KV_PAD::ShowVersionInfoOnDevice(bool bOn) { return devicesettings::showVersion(*this, bOn); }
