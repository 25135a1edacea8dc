// The members that all instance classes forward in the same way. Whoever includes this defines KV_PAD as its class.
#ifndef KV_PAD // so that an editor can parse this file by itself
#include "cs300signwidget.h"
#include "defined.h"
#define KV_PAD CS300SignWidget
#endif

bool KV_PAD::LoadKVSignPadDriver() { return driverbinding::load(*this); }
bool KV_PAD::IsDeviceConnected() { return driverbinding::connect(*this); }
bool KV_PAD::ShutdownKVSignPadDriver() { return driverbinding::unload(*this); }
void KV_PAD::Shutdown() { driverbinding::shutdown(*this); }

int KV_PAD::ClearDeviceContent() { return devicesettings::clearContent(*this); }
int KV_PAD::GetDevicePadID(char *pPadID, int nMaxCount) { return devicesettings::padId(*this, pPadID, nMaxCount); }
int KV_PAD::GetDevicePartsVersion(char *pVersion, int nMaxCount) { return devicesettings::partsVersion(*this, pVersion, nMaxCount); }
int KV_PAD::SetDevicePenStyle(bool bWithPressureValue) { return devicesettings::setPenStyle(*this, bWithPressureValue); }
int KV_PAD::SetDevicePenWidth(int nPenWidth) { return devicesettings::setPenWidth(*this, nPenWidth); }
int KV_PAD::SetDevicePenColor(int nR, int nG, int nB) { return devicesettings::setPenColor(*this, nR, nG, nB); }
int KV_PAD::GetDeviceInfo(int nIndex, void *pOutput) { return devicesettings::info(*this, nIndex, pOutput); }

void KV_PAD::ConvertSignRawDataToSignWndData(int nSignRawX, int nSignRawY, int nSignRawP, double &dblX, double &dblY, double &dblP)
{
    signmapping::convert(*this, nSignRawX, nSignRawY, nSignRawP, dblX, dblY, dblP);
}
void KV_PAD::clearCanvas(QImage &image, int nWidth, int nHeight) { canvashost::clearCanvas(image, nWidth, nHeight); }
void KV_PAD::StartSignOnCanvas(double dblX, double dblY, double dblPressure) { strokes::startSign(*this, dblX, dblY, dblPressure); }
void KV_PAD::ClearSignCanvas() { strokes::clear(*this); }

int KV_PAD::SetSignPadEventCallback(SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback) { return penpackets::setEventCallback(*this, pfnSignPadEventCallback); }
int KV_PAD::GetDeviceConfirmOrCancelKeyStatus() { return penpackets::takeKeyStatus(*this); }

int KV_PAD::GetTotalInkPointsNumber() { return inkpoints::total(*this); }
int KV_PAD::GetInkPointData(_INKPOINTDATA &nInkPointData) { return inkpoints::get(*this, nInkPointData); }
char *KV_PAD::GetInkPointDataTimeInfo(int nIndex) { return inkpoints::timeInfo(*this, nIndex); }
void KV_PAD::FreeInkPointDataTimeInfo(char *pInkPointDataTimeInfo) { inkpoints::freeTimeInfo(*this, pInkPointDataTimeInfo); }

int KV_PAD::SetSaveClipImageMargin(bool bClipImage, int nClipMarginX, int nClipMarginY) { return inkbounds::setClipMargin(*this, bClipImage, nClipMarginX, nClipMarginY); }
void KV_PAD::CheckSignImageBoundingBox(QRect &rcBoundBox) { rcBoundBox = inkbounds::clipRect(*this, inkbounds::snapshot(*this)); }
void KV_PAD::MakeAsTransparentImage(QImage &image, QColor color) { inkbounds::makeAsTransparentImage(*this, image, color); }

int KV_PAD::SaveDrawingImage(int nImageTypeID, wchar_t *pImageFilePath, int nDPI) { return imagefiles::save(*this, nImageTypeID, pImageFilePath, nDPI); }
bool KV_PAD::SaveDrawingImageAsPDFFile(QImage image, QString strImageFilePath, int nDPI) { return imagefiles::saveAsPdf(*this, image, strImageFilePath, nDPI); }
bool KV_PAD::SaveDrawingImageAsSVGFile(QImage image, QString strImageFilePath, int nDPI, QRect rcBoundBox) { return imagefiles::saveAsSvg(*this, image, strImageFilePath, nDPI, rcBoundBox); }

char *KV_PAD::Base64Encode(int nImageTypeID) { return imagetexts::base64Encode(*this, nImageTypeID); }
void KV_PAD::Base64EncodeFree(char *pEncodedData) { imagetexts::freeText(*this, "Base64EncodeFree()", pEncodedData); }
char *KV_PAD::Base64EncodeEx(int nImageTypeID, bool bEnableTransparentBackground) { return imagetexts::base64EncodeEx(*this, nImageTypeID, bEnableTransparentBackground); }
void KV_PAD::Base64EncodeExFree(char *pEncodedData) { imagetexts::freeText(*this, "Base64EncodeExFree()", pEncodedData); }
char *KV_PAD::EncodeBase64SignImage(int nImageTypeID) { return imagetexts::imageText(*this, nImageTypeID); }
char *KV_PAD::EncodeBase64SignImageEx(int nImageTypeID, bool bEnableTransparentBackground) { return imagetexts::imageTextEx(*this, nImageTypeID, bEnableTransparentBackground); }
char *KV_PAD::GetSVGImageBase64Data() { return imagetexts::svgText(*this); }
void KV_PAD::FreeSVGImageBase64Data(char *pEncodedData) { imagetexts::freeText(*this, "FreeSVGImageBase64Data()", pEncodedData); }

int KV_PAD::Base64Decode(int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath) { return inkrecord::decode(*this, nImageTypeID, pEncodedData, pImageFilePath); }
int KV_PAD::GetTotalDecodeInkPointsNumber() { return inkrecord::totalDecoded(*this); }
int KV_PAD::GetDecodeInkPointData(int nIndex, int nTypeID) { return inkrecord::decodedData(*this, nIndex, nTypeID); }
