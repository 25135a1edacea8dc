/// @file
/// The eleven operations of a pad driver, as driverinterface.h describes them. Start reading here.
#include "driverinterface.h"
#include "simulator.h"

#include <type_traits>

using kvsim::Simulator;

/// In a namespace because driverinterface.h has types of the same names. C linkage makes them the same functions
/// anyway.
namespace driver {
extern "C" {
#pragma GCC visibility push(default)

int KVSPDAPI_Initial(int nDeviceType, NOTIFY_HWSIGNDATA pfnPenPacket, NOTIFY_FPDATA pfnFingerprint)
{
    return Simulator::instance().initial(nDeviceType, pfnPenPacket, pfnFingerprint);
}

int KVSPDAPI_UnInitial()
{
    return Simulator::instance().unInitial();
}

int KVSPDAPI_OpenDeviceLCD(bool bOn)
{
    return Simulator::instance().openLcd(bOn);
}

int KVSPDAPI_ClearDeviceContent()
{
    return Simulator::instance().clearContent();
}

int KVSPDAPI_GetDevicePenID(char *pText, int nMaxCount)
{
    return Simulator::instance().writeText("GetDevicePenID", pText, nMaxCount);
}

int KVSPDAPI_GetDevicePadID(char *pText, int nMaxCount)
{
    return Simulator::instance().writeText("GetDevicePadID", pText, nMaxCount);
}

int KVSPDAPI_GetDeviceSecureID(char *pText, int nMaxCount)
{
    return Simulator::instance().writeText("GetDeviceSecureID", pText, nMaxCount);
}

int KVSPDAPI_GetDevicePartsVersion(char *pText, int nMaxCount)
{
    return Simulator::instance().writeText("GetDevicePartsVersion", pText, nMaxCount);
}

int KVSPDAPI_ShowVersionInfoOnDevice(bool bOn)
{
    return Simulator::instance().plainCommand("ShowVersionInfoOnDevice", bOn);
}

int KVSPDAPI_SetDevicePenStyle(bool bWithPressureValue)
{
    return Simulator::instance().plainCommand("SetDevicePenStyle", bWithPressureValue);
}

int KVSPDAPI_ShowFPImageOnDevice(unsigned char *pImage, int nLength, int nWidth, int nHeight, bool *pbAbort)
{
    return Simulator::instance().showPicture(pImage, nLength, nWidth, nHeight, pbAbort);
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
