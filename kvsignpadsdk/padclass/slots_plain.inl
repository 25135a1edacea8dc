// Driver operations of pads without a screen.
KVSPDAPI_Initial m_pfn_KVSPDAPI_Initial = nullptr;
KVSPDAPI_UnInitial m_pfn_KVSPDAPI_UnInitial = nullptr;
KVSPDAPI_ClearDeviceContent m_pfn_KVSPDAPI_ClearDeviceContent = nullptr;
KVSPDAPI_GetDevicePadID m_pfn_KVSPDAPI_GetDevicePadID = nullptr;
KVSPDAPI_GetDevicePartsVersion m_pfn_KVSPDAPI_GetDevicePartsVersion = nullptr;
KVSPDAPI_SetDevicePenStyle m_pfn_KVSPDAPI_SetDevicePenStyle = nullptr;
