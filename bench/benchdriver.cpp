// A driver for measurements. It only keeps the callbacks, so that a benchmark can call them on its own thread and
// measure the cost of the library alone.
#include "modelrows.h"

#include <cstdio>
#include <string>

namespace {

NOTIFY_HWSIGNDATA penPacket = nullptr;
NOTIFY_FPDATA fingerprint = nullptr;
int openedType = 0;

int write(char *text, int size, const char *value)
{
    std::snprintf(text, static_cast<size_t>(size), "%s", value);
    return 0;
}

} // namespace

extern "C" {
#pragma GCC visibility push(default)
NOTIFY_HWSIGNDATA KVBENCH_PenPacket()
{
    return penPacket;
}
NOTIFY_FPDATA KVBENCH_Fingerprint()
{
    return fingerprint;
}

int KVSPDAPI_Initial(int nDeviceType, NOTIFY_HWSIGNDATA pfnPenPacket, NOTIFY_FPDATA pfnFingerprint)
{
    openedType = nDeviceType;
    penPacket = pfnPenPacket;
    fingerprint = pfnFingerprint;
    return 0;
}
int KVSPDAPI_UnInitial()
{
    return 0;
}
int KVSPDAPI_OpenDeviceLCD(bool)
{
    return 0;
}
int KVSPDAPI_ClearDeviceContent()
{
    return 0;
}
int KVSPDAPI_GetDevicePenID(char *text, int size)
{
    return write(text, size, "pen");
}
int KVSPDAPI_GetDevicePadID(char *text, int size)
{
    return write(text, size, "pad");
}
int KVSPDAPI_GetDeviceSecureID(char *text, int size)
{
    return write(text, size, "secure");
}
int KVSPDAPI_GetDevicePartsVersion(char *text, int size)
{
    return write(text, size, (std::string("KV") + modelOfType(openedType)->name).c_str());
}
int KVSPDAPI_ShowVersionInfoOnDevice(bool)
{
    return 0;
}
int KVSPDAPI_SetDevicePenStyle(bool)
{
    return 0;
}
int KVSPDAPI_ShowFPImageOnDevice(unsigned char *, int, int, int, bool *)
{
    return 0;
}
#pragma GCC visibility pop
}
