/// @file
/// The operations of the recorder, exported under a driver's names. Start reading here.
#include "recorder.h"

#include <type_traits>

using kvrec::RealDriver;
using kvrec::Recorder;

namespace driver {
extern "C" {
#pragma GCC visibility push(default)

int KVSPDAPI_Initial(int nDeviceType, NOTIFY_HWSIGNDATA pfnPenPacket, NOTIFY_FPDATA pfnFingerprint)
{
    return Recorder::instance().initial(nDeviceType, pfnPenPacket, pfnFingerprint);
}

int KVSPDAPI_UnInitial()
{
    return Recorder::instance().unInitial();
}

int KVSPDAPI_OpenDeviceLCD(bool bOn)
{
    return Recorder::instance().openLcd(bOn);
}

int KVSPDAPI_ClearDeviceContent()
{
    return Recorder::instance().clearContent();
}

int KVSPDAPI_GetDevicePenID(char *pText, int nMaxCount)
{
    return Recorder::instance().query("GetDevicePenID", &RealDriver::GetDevicePenID, pText, nMaxCount);
}

int KVSPDAPI_GetDevicePadID(char *pText, int nMaxCount)
{
    return Recorder::instance().query("GetDevicePadID", &RealDriver::GetDevicePadID, pText, nMaxCount);
}

int KVSPDAPI_GetDeviceSecureID(char *pText, int nMaxCount)
{
    return Recorder::instance().query("GetDeviceSecureID", &RealDriver::GetDeviceSecureID, pText, nMaxCount);
}

int KVSPDAPI_GetDevicePartsVersion(char *pText, int nMaxCount)
{
    return Recorder::instance().query("GetDevicePartsVersion", &RealDriver::GetDevicePartsVersion, pText, nMaxCount);
}

int KVSPDAPI_ShowVersionInfoOnDevice(bool bOn)
{
    return Recorder::instance().showVersion(bOn);
}

int KVSPDAPI_SetDevicePenStyle(bool bWithPressureValue)
{
    return Recorder::instance().setPenStyle(bWithPressureValue);
}

int KVSPDAPI_ShowFPImageOnDevice(unsigned char *pImage, int nLength, int nWidth, int nHeight, bool *pbAbort)
{
    return Recorder::instance().showPicture(pImage, nLength, nWidth, nHeight, pbAbort);
}

#pragma GCC visibility pop
}
} // namespace driver

/// Fails to compile when an operation's signature is not the one that the library calls.
#define KV_CHECK(operation) static_assert(std::is_same_v<decltype(&driver::operation), ::operation>)
KV_CHECK(KVSPDAPI_Initial);
KV_CHECK(KVSPDAPI_UnInitial);
KV_CHECK(KVSPDAPI_OpenDeviceLCD);
KV_CHECK(KVSPDAPI_ClearDeviceContent);
KV_CHECK(KVSPDAPI_GetDevicePenID);
KV_CHECK(KVSPDAPI_GetDevicePadID);
KV_CHECK(KVSPDAPI_GetDeviceSecureID);
KV_CHECK(KVSPDAPI_GetDevicePartsVersion);
KV_CHECK(KVSPDAPI_ShowVersionInfoOnDevice);
KV_CHECK(KVSPDAPI_SetDevicePenStyle);
KV_CHECK(KVSPDAPI_ShowFPImageOnDevice);
