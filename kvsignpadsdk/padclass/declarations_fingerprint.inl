// Members of both fingerprint classes: fingerprint, fingerprintplacement.
void RxS310XSignPadFPRawData(unsigned char *pucRawData, int nDataLength, int nScore);
bool AreWeGoingToShutDown();
void CheckIfAnyNewFPImageRawDataOnDeviceAvailable();
void ProcessShowFPImgaeRawDataOnDevice();
void MergeSignCanvasAndFPCanvas();
char *GetFPImageBase64Data(int nImageTypeID, bool bFPImageOnly);
void FreeFPImageBase64Data(char *pFPImageBase64Data);

// For the shared templates.
QImage fingerprintLayer();
void startDisplayThread(const logging::Key &key);
void stopDisplayThread(const logging::Key &key);
void updateFingerprintPlace();
void clearFingerprintPlace();
void releaseFingerprintPlaces();
