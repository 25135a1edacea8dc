// Members of pads with a screen: devicesettings.
int OpenDeviceLCD(bool bOn);
int GetDevicePenID(char *pPenID, int nMaxCount);
int GetDeviceSecureID(char *pSecureID, int nMaxCount);
int ShowVersionInfoOnDevice(bool bOn);
