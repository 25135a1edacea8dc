// The members of pads with a screen. The file devicesettings does their work.
int OpenDeviceLCD(bool bOn);
int GetDevicePenID(char *pPenID, int nMaxCount);
int GetDeviceSecureID(char *pSecureID, int nMaxCount);
int ShowVersionInfoOnDevice(bool bOn);
