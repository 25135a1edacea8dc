QMutex m_mutexUpdateShowFPImageRawDataOnDevice; ///< guards the newest picture and the next flag
bool m_bNewFPImageRawDataOnDeviceAvailable = false;
bool m_bStartShowFPImageRawDataOnDevice = false; ///< display thread only
bool m_bAlreadyShownFPImageRawDataOnDevice = false; ///< display thread only
