/// @file
/// The 156 exported functions, one line each by family, and the globals of the open instance. Nothing is done here.
#include "kvsignpadsdk_global.h"

#include "exported/device.h"
#include "exported/fingerprint.h"
#include "exported/images.h"
#include "exported/ink.h"
#include "exported/lifecycle.h"

void *g_pSignWidget = nullptr;
bool g_bUseSignObj = false;

using exported::M450;
using exported::R800;
using exported::S210;
using exported::S300;
using exported::S310X;

// clang-format off

// S210

bool KVS210_InitialDevice(int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight) { return exported::InitialDevice<S210>(nDeviceType, pParentWidget, nX, nY, nWidth, nHeight); }
int KVS210_UnInitialDevice(int nDeviceType) { return exported::UnInitialDevice<S210>(nDeviceType); }
int KVS210_OpenLCD(int nDeviceType, bool bOn) { return exported::OpenLCD<S210>(nDeviceType, bOn); }
int KVS210_Clear(int nDeviceType) { return exported::Clear<S210>(nDeviceType); }
int KVS210_GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount) { return exported::GetHWPenID<S210>(nDeviceType, pPenID, nMaxCount); }
int KVS210_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount) { return exported::GetHWPadID<S210>(nDeviceType, pPadID, nMaxCount); }
int KVS210_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount) { return exported::GetHWVersion<S210>(nDeviceType, pVersion, nMaxCount); }
int KVS210_DisplayHWVersion(int nDeviceType, bool bOn) { return exported::DisplayHWVersion<S210>(nDeviceType, bOn); }
int KVS210_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput) { return exported::GetDeviceInfo<S210>(nDeviceType, nIndex, pOutput); }
int KVS210_SetPenStyle(int nDeviceType, bool bPressureOn) { return exported::SetPenStyle<S210>(nDeviceType, bPressureOn); }
int KVS210_SetPenWidth(int nDeviceType, int nPenWidth) { return exported::SetPenWidth<S210>(nDeviceType, nPenWidth); }
int KVS210_SetPenColor(int nDeviceType, int nR, int nG, int nB) { return exported::SetPenColor<S210>(nDeviceType, nR, nG, nB); }
int KVS210_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback) { return exported::SignPadEventCallback<S210>(nDeviceType, pfnSignPadEventCallback); }
int KVS210_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType) { return exported::GetDeviceConfirmOrCancelKeyStatus<S210>(nDeviceType); }
int KVS210_GetTotalInkPointsNumber(int nDeviceType) { return exported::GetTotalInkPointsNumber<S210>(nDeviceType); }
int KVS210_GetInkPointData(int nDeviceType, const INKPOINTDATA &currentInkPoint) { return exported::GetInkPointData<S210>(nDeviceType, currentInkPoint); }
char *KVS210_GetInkPointDataTimeInfo(int nDeviceType, int nIndex) { return exported::GetInkPointDataTimeInfo<S210>(nDeviceType, nIndex); }
void KVS210_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo) { return exported::FreeInkPointDataTimeInfo<S210>(nDeviceType, pInkPointDataTimeInfo); }
int KVS210_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY) { return exported::SetSaveClipImageMargin<S210>(nDeviceType, bClipImage, nClipMarginX, nClipMarginY); }
int KVS210_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel) { return exported::SaveDrawingImage<S210>(nDeviceType, nImageTypeID, pImageFilePath, nDPILevel); }
char *KVS210_Base64Encode(int nDeviceType, int nImageTypeID) { return exported::Base64Encode<S210>(nDeviceType, nImageTypeID); }
void KVS210_Base64EncodeFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeFree<S210>(nDeviceType, pEncodedData); }
char *KVS210_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground) { return exported::Base64EncodeEx<S210>(nDeviceType, nImageTypeID, bEnableTransparentBackground); }
void KVS210_Base64EncodeExFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeExFree<S210>(nDeviceType, pEncodedData); }
char *KVS210_GetSVGImageBase64Data(int nDeviceType) { return exported::GetSVGImageBase64Data<S210>(nDeviceType); }
void KVS210_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData) { return exported::FreeSVGImageBase64Data<S210>(nDeviceType, pEncodedData); }
int KVS210_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath) { return exported::Base64Decode<S210>(nDeviceType, nImageTypeID, pEncodedData, pImageFilePath); }
int KVS210_GetTotalDecodeInkPointsNumber(int nDeviceType) { return exported::GetTotalDecodeInkPointsNumber<S210>(nDeviceType); }
int KVS210_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID) { return exported::GetDecodeInkPointData<S210>(nDeviceType, nIndex, nTypeID); }
void KVS210_AboutBox(QWidget *pParent) { return exported::AboutBox<S210>(pParent); }
void KVS210_GetAboutInfo(int nDeviceType, void *pOutput) { return exported::GetAboutInfo<S210>(nDeviceType, pOutput); }
bool KVS210_SetRealTimeSignBase64DataCallback(int nDeviceType, int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback) { return exported::SetRealTimeSignBase64DataCallback<S210>(nDeviceType, nType, pfnSignBase64DataCallback); }
bool KVS210_InitialWPSSignCanvas(int nDeviceType, int nWidth, int nHeight) { return exported::InitialWPSSignCanvas<S210>(nDeviceType, nWidth, nHeight); }
char *KVS210_WPSBase64Encode(int nDeviceType, int nImageTypeID) { return exported::WPSBase64Encode<S210>(nDeviceType, nImageTypeID); }
void KVS210_WPSBase64EncodeFree(int nDeviceType, char *pEncodedData) { return exported::WPSBase64EncodeFree<S210>(nDeviceType, pEncodedData); }

// S300

bool KVS300_InitialDevice(int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight) { return exported::InitialDevice<S300>(nDeviceType, pParentWidget, nX, nY, nWidth, nHeight); }
int KVS300_UnInitialDevice(int nDeviceType) { return exported::UnInitialDevice<S300>(nDeviceType); }
int KVS300_OpenLCD(int nDeviceType, bool bOn) { return exported::OpenLCD<S300>(nDeviceType, bOn); }
int KVS300_Clear(int nDeviceType) { return exported::Clear<S300>(nDeviceType); }
int KVS300_GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount) { return exported::GetHWPenID<S300>(nDeviceType, pPenID, nMaxCount); }
int KVS300_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount) { return exported::GetHWPadID<S300>(nDeviceType, pPadID, nMaxCount); }
int KVS300_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount) { return exported::GetHWVersion<S300>(nDeviceType, pVersion, nMaxCount); }
int KVS300_DisplayHWVersion(int nDeviceType, bool bOn) { return exported::DisplayHWVersion<S300>(nDeviceType, bOn); }
int KVS300_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput) { return exported::GetDeviceInfo<S300>(nDeviceType, nIndex, pOutput); }
int KVS300_SetPenStyle(int nDeviceType, bool bPressureOn) { return exported::SetPenStyle<S300>(nDeviceType, bPressureOn); }
int KVS300_SetPenWidth(int nDeviceType, int nPenWidth) { return exported::SetPenWidth<S300>(nDeviceType, nPenWidth); }
int KVS300_SetPenColor(int nDeviceType, int nR, int nG, int nB) { return exported::SetPenColor<S300>(nDeviceType, nR, nG, nB); }
int KVS300_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback) { return exported::SignPadEventCallback<S300>(nDeviceType, pfnSignPadEventCallback); }
int KVS300_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType) { return exported::GetDeviceConfirmOrCancelKeyStatus<S300>(nDeviceType); }
int KVS300_GetTotalInkPointsNumber(int nDeviceType) { return exported::GetTotalInkPointsNumber<S300>(nDeviceType); }
int KVS300_GetInkPointData(int nDeviceType, const INKPOINTDATA &currentInkPoint) { return exported::GetInkPointData<S300>(nDeviceType, currentInkPoint); }
char *KVS300_GetInkPointDataTimeInfo(int nDeviceType, int nIndex) { return exported::GetInkPointDataTimeInfo<S300>(nDeviceType, nIndex); }
void KVS300_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo) { return exported::FreeInkPointDataTimeInfo<S300>(nDeviceType, pInkPointDataTimeInfo); }
int KVS300_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY) { return exported::SetSaveClipImageMargin<S300>(nDeviceType, bClipImage, nClipMarginX, nClipMarginY); }
int KVS300_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel) { return exported::SaveDrawingImage<S300>(nDeviceType, nImageTypeID, pImageFilePath, nDPILevel); }
char *KVS300_Base64Encode(int nDeviceType, int nImageTypeID) { return exported::Base64Encode<S300>(nDeviceType, nImageTypeID); }
void KVS300_Base64EncodeFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeFree<S300>(nDeviceType, pEncodedData); }
char *KVS300_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground) { return exported::Base64EncodeEx<S300>(nDeviceType, nImageTypeID, bEnableTransparentBackground); }
void KVS300_Base64EncodeExFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeExFree<S300>(nDeviceType, pEncodedData); }
char *KVS300_GetSVGImageBase64Data(int nDeviceType) { return exported::GetSVGImageBase64Data<S300>(nDeviceType); }
void KVS300_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData) { return exported::FreeSVGImageBase64Data<S300>(nDeviceType, pEncodedData); }
int KVS300_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath) { return exported::Base64Decode<S300>(nDeviceType, nImageTypeID, pEncodedData, pImageFilePath); }
int KVS300_GetTotalDecodeInkPointsNumber(int nDeviceType) { return exported::GetTotalDecodeInkPointsNumber<S300>(nDeviceType); }
int KVS300_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID) { return exported::GetDecodeInkPointData<S300>(nDeviceType, nIndex, nTypeID); }
void KVS300_AboutBox(QWidget *pParent) { return exported::AboutBox<S300>(pParent); }
void KVS300_GetAboutInfo(int nDeviceType, void *pOutput) { return exported::GetAboutInfo<S300>(nDeviceType, pOutput); }

// S310X

bool KVS310X_InitialDevice(int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight) { return exported::InitialDevice<S310X>(nDeviceType, pParentWidget, nX, nY, nWidth, nHeight); }
int KVS310X_UnInitialDevice(int nDeviceType) { return exported::UnInitialDevice<S310X>(nDeviceType); }
int KVS310X_OpenLCD(int nDeviceType, bool bOn) { return exported::OpenLCD<S310X>(nDeviceType, bOn); }
int KVS310X_Clear(int nDeviceType) { return exported::Clear<S310X>(nDeviceType); }
int KVS310X_GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount) { return exported::GetHWPenID<S310X>(nDeviceType, pPenID, nMaxCount); }
int KVS310X_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount) { return exported::GetHWPadID<S310X>(nDeviceType, pPadID, nMaxCount); }
int KVS310X_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount) { return exported::GetHWVersion<S310X>(nDeviceType, pVersion, nMaxCount); }
int KVS310X_DisplayHWVersion(int nDeviceType, bool bOn) { return exported::DisplayHWVersion<S310X>(nDeviceType, bOn); }
int KVS310X_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput) { return exported::GetDeviceInfo<S310X>(nDeviceType, nIndex, pOutput); }
int KVS310X_SetPenStyle(int nDeviceType, bool bPressureOn) { return exported::SetPenStyle<S310X>(nDeviceType, bPressureOn); }
int KVS310X_SetPenWidth(int nDeviceType, int nPenWidth) { return exported::SetPenWidth<S310X>(nDeviceType, nPenWidth); }
int KVS310X_SetPenColor(int nDeviceType, int nR, int nG, int nB) { return exported::SetPenColor<S310X>(nDeviceType, nR, nG, nB); }
int KVS310X_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback) { return exported::SignPadEventCallback<S310X>(nDeviceType, pfnSignPadEventCallback); }
int KVS310X_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType) { return exported::GetDeviceConfirmOrCancelKeyStatus<S310X>(nDeviceType); }
int KVS310X_GetTotalInkPointsNumber(int nDeviceType) { return exported::GetTotalInkPointsNumber<S310X>(nDeviceType); }
int KVS310X_GetInkPointData(int nDeviceType, const INKPOINTDATA &currentInkPoint) { return exported::GetInkPointData<S310X>(nDeviceType, currentInkPoint); }
char *KVS310X_GetInkPointDataTimeInfo(int nDeviceType, int nIndex) { return exported::GetInkPointDataTimeInfo<S310X>(nDeviceType, nIndex); }
void KVS310X_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo) { return exported::FreeInkPointDataTimeInfo<S310X>(nDeviceType, pInkPointDataTimeInfo); }
int KVS310X_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY) { return exported::SetSaveClipImageMargin<S310X>(nDeviceType, bClipImage, nClipMarginX, nClipMarginY); }
int KVS310X_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel) { return exported::SaveDrawingImage<S310X>(nDeviceType, nImageTypeID, pImageFilePath, nDPILevel); }
char *KVS310X_Base64Encode(int nDeviceType, int nImageTypeID) { return exported::Base64Encode<S310X>(nDeviceType, nImageTypeID); }
void KVS310X_Base64EncodeFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeFree<S310X>(nDeviceType, pEncodedData); }
char *KVS310X_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground) { return exported::Base64EncodeEx<S310X>(nDeviceType, nImageTypeID, bEnableTransparentBackground); }
void KVS310X_Base64EncodeExFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeExFree<S310X>(nDeviceType, pEncodedData); }
char *KVS310X_GetSVGImageBase64Data(int nDeviceType) { return exported::GetSVGImageBase64Data<S310X>(nDeviceType); }
void KVS310X_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData) { return exported::FreeSVGImageBase64Data<S310X>(nDeviceType, pEncodedData); }
int KVS310X_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath) { return exported::Base64Decode<S310X>(nDeviceType, nImageTypeID, pEncodedData, pImageFilePath); }
int KVS310X_GetTotalDecodeInkPointsNumber(int nDeviceType) { return exported::GetTotalDecodeInkPointsNumber<S310X>(nDeviceType); }
int KVS310X_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID) { return exported::GetDecodeInkPointData<S310X>(nDeviceType, nIndex, nTypeID); }
void KVS310X_AboutBox(QWidget *pParent) { return exported::AboutBox<S310X>(pParent); }
void KVS310X_GetAboutInfo(int nDeviceType, void *pOutput) { return exported::GetAboutInfo<S310X>(nDeviceType, pOutput); }
int KVS310X_SetDisplayedFPImageAt(int nDeviceType, QWidget *pParentWidget, int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight) { return exported::SetDisplayedFPImageAt<S310X>(nDeviceType, pParentWidget, nCanvasWidth, nCanvasHeight, nFPLeft, nFPTop, nFPWidth, nFPHeight); }
char *KVS310X_GetFPImageBase64Data(int nDeviceType, int nImageTypeID, bool bFPImageOnly) { return exported::GetFPImageBase64Data<S310X>(nDeviceType, nImageTypeID, bFPImageOnly); }
void KVS310X_FreeFPImageBase64Data(int nDeviceType, char *pFPImageBase64Data) { return exported::FreeFPImageBase64Data<S310X>(nDeviceType, pFPImageBase64Data); }

// R800

bool KVR800_InitialDevice(int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight) { return exported::InitialDevice<R800>(nDeviceType, pParentWidget, nX, nY, nWidth, nHeight); }
int KVR800_UnInitialDevice(int nDeviceType) { return exported::UnInitialDevice<R800>(nDeviceType); }
int KVR800_Clear(int nDeviceType) { return exported::Clear<R800>(nDeviceType); }
int KVR800_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount) { return exported::GetHWPadID<R800>(nDeviceType, pPadID, nMaxCount); }
int KVR800_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount) { return exported::GetHWVersion<R800>(nDeviceType, pVersion, nMaxCount); }
int KVR800_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput) { return exported::GetDeviceInfo<R800>(nDeviceType, nIndex, pOutput); }
int KVR800_SetPenStyle(int nDeviceType, bool bPressureOn) { return exported::SetPenStyle<R800>(nDeviceType, bPressureOn); }
int KVR800_SetPenWidth(int nDeviceType, int nPenWidth) { return exported::SetPenWidth<R800>(nDeviceType, nPenWidth); }
int KVR800_SetPenColor(int nDeviceType, int nR, int nG, int nB) { return exported::SetPenColor<R800>(nDeviceType, nR, nG, nB); }
int KVR800_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback) { return exported::SignPadEventCallback<R800>(nDeviceType, pfnSignPadEventCallback); }
int KVR800_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType) { return exported::GetDeviceConfirmOrCancelKeyStatus<R800>(nDeviceType); }
int KVR800_GetTotalInkPointsNumber(int nDeviceType) { return exported::GetTotalInkPointsNumber<R800>(nDeviceType); }
int KVR800_GetInkPointData(int nDeviceType, const INKPOINTDATA &currentInkPoint) { return exported::GetInkPointData<R800>(nDeviceType, currentInkPoint); }
char *KVR800_GetInkPointDataTimeInfo(int nDeviceType, int nIndex) { return exported::GetInkPointDataTimeInfo<R800>(nDeviceType, nIndex); }
void KVR800_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo) { return exported::FreeInkPointDataTimeInfo<R800>(nDeviceType, pInkPointDataTimeInfo); }
int KVR800_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY) { return exported::SetSaveClipImageMargin<R800>(nDeviceType, bClipImage, nClipMarginX, nClipMarginY); }
int KVR800_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel) { return exported::SaveDrawingImage<R800>(nDeviceType, nImageTypeID, pImageFilePath, nDPILevel); }
char *KVR800_Base64Encode(int nDeviceType, int nImageTypeID) { return exported::Base64Encode<R800>(nDeviceType, nImageTypeID); }
void KVR800_Base64EncodeFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeFree<R800>(nDeviceType, pEncodedData); }
char *KVR800_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground) { return exported::Base64EncodeEx<R800>(nDeviceType, nImageTypeID, bEnableTransparentBackground); }
void KVR800_Base64EncodeExFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeExFree<R800>(nDeviceType, pEncodedData); }
char *KVR800_GetSVGImageBase64Data(int nDeviceType) { return exported::GetSVGImageBase64Data<R800>(nDeviceType); }
void KVR800_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData) { return exported::FreeSVGImageBase64Data<R800>(nDeviceType, pEncodedData); }
int KVR800_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath) { return exported::Base64Decode<R800>(nDeviceType, nImageTypeID, pEncodedData, pImageFilePath); }
int KVR800_GetTotalDecodeInkPointsNumber(int nDeviceType) { return exported::GetTotalDecodeInkPointsNumber<R800>(nDeviceType); }
int KVR800_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID) { return exported::GetDecodeInkPointData<R800>(nDeviceType, nIndex, nTypeID); }
void KVR800_AboutBox(QWidget *pParent) { return exported::AboutBox<R800>(pParent); }
void KVR800_GetAboutInfo(int nDeviceType, void *pOutput) { return exported::GetAboutInfo<R800>(nDeviceType, pOutput); }

// M450

bool KVM450_InitialDevice(int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight) { return exported::InitialDevice<M450>(nDeviceType, pParentWidget, nX, nY, nWidth, nHeight); }
int KVM450_UnInitialDevice(int nDeviceType) { return exported::UnInitialDevice<M450>(nDeviceType); }
int KVM450_Clear(int nDeviceType) { return exported::Clear<M450>(nDeviceType); }
int KVM450_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount) { return exported::GetHWPadID<M450>(nDeviceType, pPadID, nMaxCount); }
int KVM450_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount) { return exported::GetHWVersion<M450>(nDeviceType, pVersion, nMaxCount); }
int KVM450_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput) { return exported::GetDeviceInfo<M450>(nDeviceType, nIndex, pOutput); }
int KVM450_SetPenStyle(int nDeviceType, bool bPressureOn) { return exported::SetPenStyle<M450>(nDeviceType, bPressureOn); }
int KVM450_SetPenWidth(int nDeviceType, int nPenWidth) { return exported::SetPenWidth<M450>(nDeviceType, nPenWidth); }
int KVM450_SetPenColor(int nDeviceType, int nR, int nG, int nB) { return exported::SetPenColor<M450>(nDeviceType, nR, nG, nB); }
int KVM450_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback) { return exported::SignPadEventCallback<M450>(nDeviceType, pfnSignPadEventCallback); }
int KVM450_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType) { return exported::GetDeviceConfirmOrCancelKeyStatus<M450>(nDeviceType); }
int KVM450_GetTotalInkPointsNumber(int nDeviceType) { return exported::GetTotalInkPointsNumber<M450>(nDeviceType); }
int KVM450_GetInkPointData(int nDeviceType, const INKPOINTDATA &currentInkPoint) { return exported::GetInkPointData<M450>(nDeviceType, currentInkPoint); }
char *KVM450_GetInkPointDataTimeInfo(int nDeviceType, int nIndex) { return exported::GetInkPointDataTimeInfo<M450>(nDeviceType, nIndex); }
void KVM450_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo) { return exported::FreeInkPointDataTimeInfo<M450>(nDeviceType, pInkPointDataTimeInfo); }
int KVM450_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY) { return exported::SetSaveClipImageMargin<M450>(nDeviceType, bClipImage, nClipMarginX, nClipMarginY); }
int KVM450_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel) { return exported::SaveDrawingImage<M450>(nDeviceType, nImageTypeID, pImageFilePath, nDPILevel); }
char *KVM450_Base64Encode(int nDeviceType, int nImageTypeID) { return exported::Base64Encode<M450>(nDeviceType, nImageTypeID); }
void KVM450_Base64EncodeFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeFree<M450>(nDeviceType, pEncodedData); }
char *KVM450_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground) { return exported::Base64EncodeEx<M450>(nDeviceType, nImageTypeID, bEnableTransparentBackground); }
void KVM450_Base64EncodeExFree(int nDeviceType, char *pEncodedData) { return exported::Base64EncodeExFree<M450>(nDeviceType, pEncodedData); }
char *KVM450_GetSVGImageBase64Data(int nDeviceType) { return exported::GetSVGImageBase64Data<M450>(nDeviceType); }
void KVM450_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData) { return exported::FreeSVGImageBase64Data<M450>(nDeviceType, pEncodedData); }
int KVM450_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath) { return exported::Base64Decode<M450>(nDeviceType, nImageTypeID, pEncodedData, pImageFilePath); }
int KVM450_GetTotalDecodeInkPointsNumber(int nDeviceType) { return exported::GetTotalDecodeInkPointsNumber<M450>(nDeviceType); }
int KVM450_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID) { return exported::GetDecodeInkPointData<M450>(nDeviceType, nIndex, nTypeID); }
void KVM450_AboutBox(QWidget *pParent) { return exported::AboutBox<M450>(pParent); }
void KVM450_GetAboutInfo(int nDeviceType, void *pOutput) { return exported::GetAboutInfo<M450>(nDeviceType, pOutput); }
// clang-format on
