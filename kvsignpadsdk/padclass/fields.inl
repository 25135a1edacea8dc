// Fields that every instance class has between its driver operations and its canvas lock.
bool m_bPenDown = false; ///< a stroke is in progress
SingContext m_SignContext {}; ///< raw units to canvas pixels
int m_nSignWidthLevel = 3; ///< 1 to 10
double m_dblLastSignWndX = 0; ///< where the next segment starts, in canvas pixels
double m_dblLastSignWndY = 0;
bool m_bDeviceConnected = false;
int m_nMaxPressureValue = row.model.maxPressure;
bool m_bWithPressureValue = true; ///< the stroke width follows the pressure
SIGNPAD_EVENT_CALLBACK m_pfnSignPadEventCallback = nullptr;
std::vector<_POINTDATA> *m_pPointDataList = nullptr; ///< owned; null until the pad is connected
bool m_bClipImage = false;
int m_nSaveImageClipMarginX = 0; ///< canvas pixels
int m_nSaveImageClipMarginY = 0;
std::vector<_POINTDATA> *m_pDecodedPointDataList = nullptr; ///< owned
int m_nPressDeviceConfirmOrCancelKey = -1; ///< last tap: 1 confirm, 0 cancel, -1 none or already asked for
