// The names of the exported functions, for KV_FUNCTION(family, operation) as the includer defines it.

#define KV_ALL_FAMILIES(operation)                                                                                     \
    KV_SCREEN_FAMILIES(operation)                                                                                      \
    KV_FUNCTION(KVR800, operation)                                                                                     \
    KV_FUNCTION(KVM450, operation)
#define KV_SCREEN_FAMILIES(operation)                                                                                  \
    KV_FUNCTION(KVS210, operation)                                                                                     \
    KV_FUNCTION(KVS300, operation)                                                                                     \
    KV_FUNCTION(KVS310X, operation)

// clang-format off
KV_ALL_FAMILIES(InitialDevice)
KV_ALL_FAMILIES(UnInitialDevice)
KV_SCREEN_FAMILIES(OpenLCD)
KV_ALL_FAMILIES(Clear)
KV_SCREEN_FAMILIES(GetHWPenID)
KV_ALL_FAMILIES(GetHWPadID)
KV_ALL_FAMILIES(GetHWVersion)
KV_SCREEN_FAMILIES(DisplayHWVersion)
KV_ALL_FAMILIES(SetPenStyle)
KV_ALL_FAMILIES(SetPenWidth)
KV_ALL_FAMILIES(SetPenColor)
KV_ALL_FAMILIES(SignPadEventCallback)
KV_ALL_FAMILIES(GetDeviceConfirmOrCancelKeyStatus)
KV_ALL_FAMILIES(GetTotalInkPointsNumber)
KV_ALL_FAMILIES(GetInkPointData)
KV_ALL_FAMILIES(GetInkPointDataTimeInfo)
KV_ALL_FAMILIES(FreeInkPointDataTimeInfo)
KV_ALL_FAMILIES(SaveDrawingImage)
KV_ALL_FAMILIES(SetSaveClipImageMargin)
KV_ALL_FAMILIES(GetDeviceInfo)
KV_ALL_FAMILIES(AboutBox)
KV_ALL_FAMILIES(GetAboutInfo)
KV_ALL_FAMILIES(Base64Encode)
KV_ALL_FAMILIES(Base64EncodeFree)
KV_ALL_FAMILIES(Base64EncodeEx)
KV_ALL_FAMILIES(Base64EncodeExFree)
KV_ALL_FAMILIES(Base64Decode)
KV_ALL_FAMILIES(GetTotalDecodeInkPointsNumber)
KV_ALL_FAMILIES(GetDecodeInkPointData)
KV_ALL_FAMILIES(GetSVGImageBase64Data)
KV_ALL_FAMILIES(FreeSVGImageBase64Data)
KV_FUNCTION(KVS210, SetRealTimeSignBase64DataCallback)
KV_FUNCTION(KVS210, InitialWPSSignCanvas)
KV_FUNCTION(KVS210, WPSBase64Encode)
KV_FUNCTION(KVS210, WPSBase64EncodeFree)
KV_FUNCTION(KVS310X, SetDisplayedFPImageAt)
KV_FUNCTION(KVS310X, GetFPImageBase64Data)
KV_FUNCTION(KVS310X, FreeFPImageBase64Data)
// clang-format on

#undef KV_ALL_FAMILIES
#undef KV_SCREEN_FAMILIES
