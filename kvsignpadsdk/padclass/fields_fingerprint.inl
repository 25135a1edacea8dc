// Fields of the fingerprint, between the common fields and the canvas lock.
int m_nCurrentFPRawDataWithBestScore = 0;
QRect m_NewFPRect; ///< the fingerprint's place on the sign widget
int m_nNewFPProcessActionID = NFPPA_NONE;
CS310XFPWidget *m_pNewFPWidget = nullptr; ///< newest place of its own
bool m_bFPImageBase64DataOnly = false;
unsigned char m_ucShowFPImageRawDataOnDevice[29952] = {}; ///< newest picture for the pad
unsigned char m_ucCurrentFPImageRawDataOnDevice[29952] = {}; ///< the display thread's copy, being sent
bool m_bGoToShutDown = false; ///< ends the display thread; the driver watches it too
