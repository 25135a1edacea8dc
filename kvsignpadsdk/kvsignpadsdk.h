/// @file
/// The library's 156 functions, one family for each pad model. Applications include kvsignpadsdk_global.h.
///
/// What holds for all of them:
/// - nDeviceType must be the family's own DEVICE_TYPE_ID. Any other value: ARI_INVALID_PARAMETERS, null, false or
///   nothing, by the kind of result, and no other effect.
/// - They are meant for the application's GUI thread (a headless program: one thread), unless a function says more.
///   Pen packets arrive on the driver's thread beside them.
/// - Texts that are handed out belong to the caller until given to the free function of the same family.
/// - No exception leaves them.
#ifndef KVSIGNPADSDK_H
#define KVSIGNPADSDK_H

#include "kvsignpadsdk_global.h"

#ifdef __cplusplus
class QWidget;
#define KVSIGNPADSDK_CONST_REF(Record) const Record &
#else
typedef struct QWidget QWidget;
#define KVSIGNPADSDK_CONST_REF(Record) const Record *
#endif

KVSIGNPADSDK_BEGIN

/// Writes the diagnostics log "/tmp/kvsignpadsdk.log" while true. Only the application sets it; false at the start.
extern KVSIGNPADSDK_EXPORT bool g_bEnableLog;

// --- Device ---

/// Opens the pad and creates the one device instance of the process.
///
/// With a parent, a QWidget child of it shows the canvas at nX, nY, nWidth by nHeight pixels; without one the instance
/// is headless with a canvas of nWidth by nHeight pixels. While an instance is open the call changes nothing and
/// answers true; a program keeps to one host and one family between InitialDevice and UnInitialDevice. A canvas that
/// cannot be had (sizes of 0, negative, huge) does not fail the call: the outputs then have nothing to give.
/// @return false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot be
/// used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread and of a
/// living QApplication; the library is closed then and the call may be repeated.
KVSIGNPADSDK_EXPORT bool KVS210_InitialDevice(
    int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight);
KVSIGNPADSDK_EXPORT bool KVS300_InitialDevice(
    int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight);
KVSIGNPADSDK_EXPORT bool KVS310X_InitialDevice(
    int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight);
KVSIGNPADSDK_EXPORT bool KVR800_InitialDevice(
    int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight);
KVSIGNPADSDK_EXPORT bool KVM450_InitialDevice(
    int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight);

/// Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after the
/// QApplication is gone it is neither, and goes with its parent).
/// Call it on the thread that opened the pad, never from a callback. Texts handed out before must be freed before. In a
/// forked child, where the library's threads are not, it waits for none of them; a widget stays in its window there,
/// which is the parent's.
/// @return ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
KVSIGNPADSDK_EXPORT int KVS210_UnInitialDevice(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS300_UnInitialDevice(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS310X_UnInitialDevice(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVR800_UnInitialDevice(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVM450_UnInitialDevice(int nDeviceType);

/// Switches the pad's screen on or off; off also clears the canvas (stored points stay).
/// @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
KVSIGNPADSDK_EXPORT int KVS210_OpenLCD(int nDeviceType, bool bOn);
KVSIGNPADSDK_EXPORT int KVS300_OpenLCD(int nDeviceType, bool bOn);
KVSIGNPADSDK_EXPORT int KVS310X_OpenLCD(int nDeviceType, bool bOn);

/// Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay).
/// After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
/// @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
KVSIGNPADSDK_EXPORT int KVS210_Clear(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS300_Clear(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS310X_Clear(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVR800_Clear(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVM450_Clear(int nDeviceType);

/// Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero included.
/// @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
KVSIGNPADSDK_EXPORT int KVS210_GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVS300_GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVS310X_GetHWPenID(int nDeviceType, char *pPenID, int nMaxCount);

/// Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.
KVSIGNPADSDK_EXPORT int KVS210_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVS300_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVS310X_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVR800_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVM450_GetHWPadID(int nDeviceType, char *pPadID, int nMaxCount);

/// Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.
KVSIGNPADSDK_EXPORT int KVS210_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVS300_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVS310X_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVR800_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount);
KVSIGNPADSDK_EXPORT int KVM450_GetHWVersion(int nDeviceType, char *pVersion, int nMaxCount);

/// Shows or hides version information on the pad's screen.
/// @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
KVSIGNPADSDK_EXPORT int KVS210_DisplayHWVersion(int nDeviceType, bool bOn);
KVSIGNPADSDK_EXPORT int KVS300_DisplayHWVersion(int nDeviceType, bool bOn);
KVSIGNPADSDK_EXPORT int KVS310X_DisplayHWVersion(int nDeviceType, bool bOn);

/// Writes one item about the pad into pOutput, from the library's own knowledge of the model.
/// @param nIndex a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
/// @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput);
KVSIGNPADSDK_EXPORT int KVS300_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput);
KVSIGNPADSDK_EXPORT int KVS310X_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput);
KVSIGNPADSDK_EXPORT int KVR800_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput);
KVSIGNPADSDK_EXPORT int KVM450_GetDeviceInfo(int nDeviceType, int nIndex, void *pOutput);

// --- Pen ---

/// Lets the stroke width follow the pressure (true, the default) or keeps it fixed.
/// @return the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
KVSIGNPADSDK_EXPORT int KVS210_SetPenStyle(int nDeviceType, bool bPressureOn);
KVSIGNPADSDK_EXPORT int KVS300_SetPenStyle(int nDeviceType, bool bPressureOn);
KVSIGNPADSDK_EXPORT int KVS310X_SetPenStyle(int nDeviceType, bool bPressureOn);
KVSIGNPADSDK_EXPORT int KVR800_SetPenStyle(int nDeviceType, bool bPressureOn);
KVSIGNPADSDK_EXPORT int KVM450_SetPenStyle(int nDeviceType, bool bPressureOn);

/// Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).
/// @return ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_SetPenWidth(int nDeviceType, int nPenWidth);
KVSIGNPADSDK_EXPORT int KVS300_SetPenWidth(int nDeviceType, int nPenWidth);
KVSIGNPADSDK_EXPORT int KVS310X_SetPenWidth(int nDeviceType, int nPenWidth);
KVSIGNPADSDK_EXPORT int KVR800_SetPenWidth(int nDeviceType, int nPenWidth);
KVSIGNPADSDK_EXPORT int KVM450_SetPenWidth(int nDeviceType, int nPenWidth);

/// Sets the colour of strokes to come, 0 to 255 each (black at the start).
/// @return ARI_SUCCESS; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_SetPenColor(int nDeviceType, int nR, int nG, int nB);
KVSIGNPADSDK_EXPORT int KVS300_SetPenColor(int nDeviceType, int nR, int nG, int nB);
KVSIGNPADSDK_EXPORT int KVS310X_SetPenColor(int nDeviceType, int nR, int nG, int nB);
KVSIGNPADSDK_EXPORT int KVR800_SetPenColor(int nDeviceType, int nR, int nG, int nB);
KVSIGNPADSDK_EXPORT int KVM450_SetPenColor(int nDeviceType, int nR, int nG, int nB);

// --- Events ---

/// Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off.
/// It runs on the driver's thread with no lock held and may call the library, but for InitialDevice and
/// UnInitialDevice.
/// @return ARI_SUCCESS; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback);
KVSIGNPADSDK_EXPORT int KVS300_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback);
KVSIGNPADSDK_EXPORT int KVS310X_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback);
KVSIGNPADSDK_EXPORT int KVR800_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback);
KVSIGNPADSDK_EXPORT int KVM450_SignPadEventCallback(int nDeviceType, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback);

/// Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an instance).
KVSIGNPADSDK_EXPORT int KVS210_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS300_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS310X_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVR800_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVM450_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

// --- Ink points ---

/// Number of stored ink points.
/// @return above 0; ARI_INK_EMPTY for none, and without an instance.
KVSIGNPADSDK_EXPORT int KVS210_GetTotalInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS300_GetTotalInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS310X_GetTotalInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVR800_GetTotalInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVM450_GetTotalInkPointsNumber(int nDeviceType);

/// Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written although
/// the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd set.
/// @return ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
KVSIGNPADSDK_EXPORT int KVS210_GetInkPointData(int nDeviceType, KVSIGNPADSDK_CONST_REF(INKPOINTDATA) currentInkPoint);
KVSIGNPADSDK_EXPORT int KVS300_GetInkPointData(int nDeviceType, KVSIGNPADSDK_CONST_REF(INKPOINTDATA) currentInkPoint);
KVSIGNPADSDK_EXPORT int KVS310X_GetInkPointData(int nDeviceType, KVSIGNPADSDK_CONST_REF(INKPOINTDATA) currentInkPoint);
KVSIGNPADSDK_EXPORT int KVR800_GetInkPointData(int nDeviceType, KVSIGNPADSDK_CONST_REF(INKPOINTDATA) currentInkPoint);
KVSIGNPADSDK_EXPORT int KVM450_GetInkPointData(int nDeviceType, KVSIGNPADSDK_CONST_REF(INKPOINTDATA) currentInkPoint);

/// The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock of
/// their own and are not in step with the seconds).
/// @return a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
KVSIGNPADSDK_EXPORT char *KVS210_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
KVSIGNPADSDK_EXPORT char *KVS300_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
KVSIGNPADSDK_EXPORT char *KVS310X_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
KVSIGNPADSDK_EXPORT char *KVR800_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
KVSIGNPADSDK_EXPORT char *KVM450_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

/// Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.
KVSIGNPADSDK_EXPORT void KVS210_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo);
KVSIGNPADSDK_EXPORT void KVS300_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo);
KVSIGNPADSDK_EXPORT void KVS310X_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo);
KVSIGNPADSDK_EXPORT void KVR800_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo);
KVSIGNPADSDK_EXPORT void KVM450_FreeInkPointDataTimeInfo(int nDeviceType, char *pInkPointDataTimeInfo);

// --- Files ---

/// Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
/// @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_SetSaveClipImageMargin(
    int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY);
KVSIGNPADSDK_EXPORT int KVS300_SetSaveClipImageMargin(
    int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY);
KVSIGNPADSDK_EXPORT int KVS310X_SetSaveClipImageMargin(
    int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY);
KVSIGNPADSDK_EXPORT int KVR800_SetSaveClipImageMargin(
    int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY);
KVSIGNPADSDK_EXPORT int KVM450_SetSaveClipImageMargin(
    int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY);

/// Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails leaves it as
/// it was, unless it is a link, another user's or in a folder that takes no new file: such a one is written in place.
/// @param nImageTypeID IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes white
/// transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew.
/// @param pImageFilePath zero-terminated, one code point per wchar_t.
/// @param nDPILevel 0 means 150 dots per inch, any other value 300.
/// @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when the
/// file could not be written (an SVG that could not be written is not noticed, nor a disk that is full before a PDF's
/// end); ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_SaveDrawingImage(
    int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel);
KVSIGNPADSDK_EXPORT int KVS300_SaveDrawingImage(
    int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel);
KVSIGNPADSDK_EXPORT int KVS310X_SaveDrawingImage(
    int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel);
KVSIGNPADSDK_EXPORT int KVR800_SaveDrawingImage(
    int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel);
KVSIGNPADSDK_EXPORT int KVM450_SaveDrawingImage(
    int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel);

// --- Base64 texts ---

/// The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
/// @return a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
/// instance or for another type.
KVSIGNPADSDK_EXPORT char *KVS210_Base64Encode(int nDeviceType, int nImageTypeID);
KVSIGNPADSDK_EXPORT char *KVS300_Base64Encode(int nDeviceType, int nImageTypeID);
KVSIGNPADSDK_EXPORT char *KVS310X_Base64Encode(int nDeviceType, int nImageTypeID);
KVSIGNPADSDK_EXPORT char *KVR800_Base64Encode(int nDeviceType, int nImageTypeID);
KVSIGNPADSDK_EXPORT char *KVM450_Base64Encode(int nDeviceType, int nImageTypeID);

/// Frees a text of Base64Encode; null is ignored. Needs the instance.
KVSIGNPADSDK_EXPORT void KVS210_Base64EncodeFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVS300_Base64EncodeFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVS310X_Base64EncodeFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVR800_Base64EncodeFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVM450_Base64EncodeFree(int nDeviceType, char *pEncodedData);

/// Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
KVSIGNPADSDK_EXPORT char *KVS210_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground);
KVSIGNPADSDK_EXPORT char *KVS300_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground);
KVSIGNPADSDK_EXPORT char *KVS310X_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground);
KVSIGNPADSDK_EXPORT char *KVR800_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground);
KVSIGNPADSDK_EXPORT char *KVM450_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground);

/// Frees a text of Base64EncodeEx; null is ignored. Needs the instance.
KVSIGNPADSDK_EXPORT void KVS210_Base64EncodeExFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVS300_Base64EncodeExFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVS310X_Base64EncodeExFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVR800_Base64EncodeExFree(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVM450_Base64EncodeExFree(int nDeviceType, char *pEncodedData);

/// The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and stays.
/// @return a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or instance.
KVSIGNPADSDK_EXPORT char *KVS210_GetSVGImageBase64Data(int nDeviceType);
KVSIGNPADSDK_EXPORT char *KVS300_GetSVGImageBase64Data(int nDeviceType);
KVSIGNPADSDK_EXPORT char *KVS310X_GetSVGImageBase64Data(int nDeviceType);
KVSIGNPADSDK_EXPORT char *KVR800_GetSVGImageBase64Data(int nDeviceType);
KVSIGNPADSDK_EXPORT char *KVM450_GetSVGImageBase64Data(int nDeviceType);

/// Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.
KVSIGNPADSDK_EXPORT void KVS210_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVS300_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVS310X_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVR800_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData);
KVSIGNPADSDK_EXPORT void KVM450_FreeSVGImageBase64Data(int nDeviceType, char *pEncodedData);

/// Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into decoded
/// points for the two functions below. Any earlier decoded points are gone. Characters outside the alphabet are
/// skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for what would cost too
/// much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG or BMP of more than 16
/// million pixels that has less than a byte for 1000 of them.
/// @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does not
/// load in its format or cannot be written; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_Base64Decode(
    int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath);
KVSIGNPADSDK_EXPORT int KVS300_Base64Decode(
    int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath);
KVSIGNPADSDK_EXPORT int KVS310X_Base64Decode(
    int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath);
KVSIGNPADSDK_EXPORT int KVR800_Base64Decode(
    int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath);
KVSIGNPADSDK_EXPORT int KVM450_Base64Decode(
    int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath);

/// Number of decoded points.
/// @return above 0; ARI_INK_EMPTY for none, and without an instance.
KVSIGNPADSDK_EXPORT int KVS210_GetTotalDecodeInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS300_GetTotalDecodeInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVS310X_GetTotalDecodeInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVR800_GetTotalDecodeInkPointsNumber(int nDeviceType);
KVSIGNPADSDK_EXPORT int KVM450_GetTotalDecodeInkPointsNumber(int nDeviceType);

/// One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error code.
/// @return the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without decoded
/// points; ARI_FAIL without an instance.
KVSIGNPADSDK_EXPORT int KVS210_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
KVSIGNPADSDK_EXPORT int KVS300_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
KVSIGNPADSDK_EXPORT int KVS310X_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
KVSIGNPADSDK_EXPORT int KVR800_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
KVSIGNPADSDK_EXPORT int KVM450_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

// --- About ---

/// Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing without
/// them. pParent may be null.
KVSIGNPADSDK_EXPORT void KVS210_AboutBox(QWidget *pParent);
KVSIGNPADSDK_EXPORT void KVS300_AboutBox(QWidget *pParent);
KVSIGNPADSDK_EXPORT void KVS310X_AboutBox(QWidget *pParent);
KVSIGNPADSDK_EXPORT void KVR800_AboutBox(QWidget *pParent);
KVSIGNPADSDK_EXPORT void KVM450_AboutBox(QWidget *pParent);

/// Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
KVSIGNPADSDK_EXPORT void KVS210_GetAboutInfo(int nDeviceType, void *pOutput);
KVSIGNPADSDK_EXPORT void KVS300_GetAboutInfo(int nDeviceType, void *pOutput);
KVSIGNPADSDK_EXPORT void KVS310X_GetAboutInfo(int nDeviceType, void *pOutput);
KVSIGNPADSDK_EXPORT void KVR800_GetAboutInfo(int nDeviceType, void *pOutput);
KVSIGNPADSDK_EXPORT void KVM450_GetAboutInfo(int nDeviceType, void *pOutput);

// --- Live push and office canvas ---

/// Hands the whole signature to the receiver after every pen movement, as EBITI_JPEG or EBITI_PNG, on the driver's
/// thread; the next packet waits for it. The text is valid until the receiver returns. The receiver may call the
/// library, but for InitialDevice and UnInitialDevice. It stays set as long as the instance lives.
/// @return true; false for another type or nDeviceType, a null receiver or without an instance.
KVSIGNPADSDK_EXPORT bool KVS210_SetRealTimeSignBase64DataCallback(
    int nDeviceType, int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback);

/// Creates the office canvas of a headless instance, in pixels.
/// @return true; false for a size of 0, another nDeviceType, a widget instance or none.
KVSIGNPADSDK_EXPORT bool KVS210_InitialWPSSignCanvas(int nDeviceType, int nWidth, int nHeight);

/// The signature stretched to the office canvas, as the Base64 text of an EBITI_JPEG or EBITI_PNG (white transparent).
/// @return a new text for WPSBase64EncodeFree, empty without an office canvas; null without ink or headless instance.
KVSIGNPADSDK_EXPORT char *KVS210_WPSBase64Encode(int nDeviceType, int nImageTypeID);

/// Frees a text of WPSBase64Encode; null is ignored. Needs the headless instance.
KVSIGNPADSDK_EXPORT void KVS210_WPSBase64EncodeFree(int nDeviceType, char *pEncodedData);

// --- Fingerprint ---

/// Places the fingerprint. Widget instance: in a rectangle of the signing widget when pParentWidget is its parent, else
/// in a new widget that covers pParentWidget. Headless: on a canvas of nCanvasWidth by nCanvasHeight pixels. The
/// rectangle is in pixels and lies wholly inside that widget or canvas.
///
/// A new place takes over from the former one. A widget that was replaced stays in its window with its last picture,
/// also after UnInitialDevice; the newest one is hidden and deleted by UnInitialDevice.
/// A refused rectangle takes over too. Later fingerprints are painted into the part of it that lies inside the widget
/// or canvas: on the signing widget in place of the former rectangle, in another window on a new empty widget that is
/// not shown, headless on a new white canvas of 640 by 480 pixels. Only which kind of place was accepted last does not
/// change. Place the fingerprint once more then.
/// @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for a rectangle outside or a null parent; ARI_FAIL without an instance,
/// and for a new widget without a QApplication or on another thread than pParentWidget's.
KVSIGNPADSDK_EXPORT int KVS310X_SetDisplayedFPImageAt(int nDeviceType, QWidget *pParentWidget, int nCanvasWidth,
    int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

/// The picture that carries the fingerprint, as Base64 text of EBITI_BITMAP, EBITI_JPEG or EBITI_PNG (white
/// transparent); bFPImageOnly cuts it to the fingerprint's rectangle.
/// @return a new text for FreeFPImageBase64Data, empty when there is no picture to write: the canvas could not be had,
/// or the rectangle is empty. Null when a headless instance has accepted no place yet, when the window that held
/// the newest one is gone, for another type, and without an instance.
KVSIGNPADSDK_EXPORT char *KVS310X_GetFPImageBase64Data(int nDeviceType, int nImageTypeID, bool bFPImageOnly);

/// Frees a text of GetFPImageBase64Data; null is ignored. Needs the instance.
KVSIGNPADSDK_EXPORT void KVS310X_FreeFPImageBase64Data(int nDeviceType, char *pFPImageBase64Data);

KVSIGNPADSDK_END

#endif
