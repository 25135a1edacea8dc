// The members that both fingerprint classes have. The files fingerprint and fingerprintplacement do their work.
void RxS310XSignPadFPRawData(unsigned char *pucRawData, int nDataLength, int nScore);
bool AreWeGoingToShutDown();
void CheckIfAnyNewFPImageRawDataOnDeviceAvailable();
void ProcessShowFPImgaeRawDataOnDevice();
void MergeSignCanvasAndFPCanvas();
char *GetFPImageBase64Data(int nImageTypeID, bool bFPImageOnly);
void FreeFPImageBase64Data(char *pFPImageBase64Data);

// Called by the templates that all instance classes share.
QImage fingerprintLayer();
void startDisplayThread(const logging::Key &key);
void stopDisplayThread(const logging::Key &key);
void updateFingerprintPlace();
void clearFingerprintPlace();
void releaseFingerprintPlaces();
