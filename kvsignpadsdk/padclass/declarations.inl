// The members that every instance class has. The comment above each group names the files that do its work.

// driverbinding
bool LoadKVSignPadDriver();
bool IsDeviceConnected();
bool ShutdownKVSignPadDriver();
void Shutdown();

// devicesettings
int ClearDeviceContent();
int GetDevicePadID(char *pPadID, int nMaxCount);
int GetDevicePartsVersion(char *pVersion, int nMaxCount);
int SetDevicePenStyle(bool bWithPressureValue);
int SetDevicePenWidth(int nPenWidth);
int SetDevicePenColor(int nR, int nG, int nB);
int GetDeviceInfo(int nIndex, void *pOutput);

// signmapping, canvashost, strokes
void ConvertSignRawDataToSignWndData(int nSignRawX, int nSignRawY, int nSignRawP, double &dblX, double &dblY, double &dblP);
void clearCanvas(QImage &image, int nWidth, int nHeight);
void StartSignOnCanvas(double dblX, double dblY, double dblPressure);
void ClearSignCanvas();

// penpackets
int SetSignPadEventCallback(SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback);
int GetDeviceConfirmOrCancelKeyStatus();

// inkpoints
int GetTotalInkPointsNumber();
int GetInkPointData(_INKPOINTDATA &nInkPointData);
char *GetInkPointDataTimeInfo(int nIndex);
void FreeInkPointDataTimeInfo(char *pInkPointDataTimeInfo);

// inkbounds
int SetSaveClipImageMargin(bool bClipImage, int nClipMarginX, int nClipMarginY);
void CheckSignImageBoundingBox(QRect &rcBoundBox);
void MakeAsTransparentImage(QImage &image, QColor color);

// imagefiles
int SaveDrawingImage(int nImageTypeID, wchar_t *pImageFilePath, int nDPI);
bool SaveDrawingImageAsPDFFile(QImage image, QString strImageFilePath, int nDPI);
bool SaveDrawingImageAsSVGFile(QImage image, QString strImageFilePath, int nDPI, QRect rcBoundBox);

// imagetexts
char *Base64Encode(int nImageTypeID);
void Base64EncodeFree(char *pEncodedData);
char *Base64EncodeEx(int nImageTypeID, bool bEnableTransparentBackground);
void Base64EncodeExFree(char *pEncodedData);
char *EncodeBase64SignImage(int nImageTypeID);
char *EncodeBase64SignImageEx(int nImageTypeID, bool bEnableTransparentBackground);
char *GetSVGImageBase64Data();
void FreeSVGImageBase64Data(char *pEncodedData);

// inkrecord
int Base64Decode(int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath);
int GetTotalDecodeInkPointsNumber();
int GetDecodeInkPointData(int nIndex, int nTypeID);
