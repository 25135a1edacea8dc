// The members that all pads with a screen forward alike.
#ifndef KV_PAD // an editor that looks at this file alone
#include "cs300signwidget.h"
#include "defined.h"
#define KV_PAD CS300SignWidget
#endif

int KV_PAD::OpenDeviceLCD(bool bOn) { return devicesettings::openLcd(*this, bOn); }
int KV_PAD::GetDevicePenID(char *pPenID, int nMaxCount) { return devicesettings::penId(*this, pPenID, nMaxCount); }
int KV_PAD::GetDeviceSecureID(char *pSecureID, int nMaxCount) { return devicesettings::secureId(*this, pSecureID, nMaxCount); }
int KV_PAD::ShowVersionInfoOnDevice(bool bOn) { return devicesettings::showVersion(*this, bOn); }
