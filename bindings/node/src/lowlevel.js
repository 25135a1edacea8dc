// Generated from the header by bindings/generate, not to be edited.
//
// The library's functions as they are. Texts that it hands out are addresses here, and go back to the function that
// frees them. For everyday use there is open().

import koffi from 'koffi';

/** The version of the header that this was made from. */
export const VERSION = '1.0.5.1';

/** Result of the functions that return int. -1 to -7 equal KVSPDAPI_RETURN_ID value for value. */
export const ReturnCode = Object.freeze({
    SUCCESS: 0, // done
    FAIL: -1, // general failure; also: no device instance is open
    INVALID_PARAMETERS: -2, // wrong device type for the family, or an argument out of range
    DRIVER_INIT_FAIL: -3, // the driver could not initialise USB access
    DRIVER_OPEN_DEVICE_FAIL: -4, // the driver could not open the pad
    DRIVER_CLAIM_INTERFACE_FAIL: -5, // the driver could not claim the pad's USB interface
    DRIVER_CREATE_THREAD_FAIL: -6, // the driver could not start its reading thread
    DRIVER_SENT_CMD_FAIL: -7, // the driver could not send a command to the pad
    INK_EMPTY: -8, // no ink point stored, or no output could be produced
    SAVE_FAILE: -9, // never returned; a file that cannot be written is ARI_INK_EMPTY
});

/** First argument of every function but the about boxes; each family accepts only its own value. */
export const DeviceType = Object.freeze({
    NONE: 0,
    S210: 2,
    R800: 3,
    M450: 4,
    S300: 5,
    S310X: 7,
});

/** Kind of Base64 text. The functions say which of the values they accept. */
export const EncodedImageType = Object.freeze({
    BITMAP: 1,
    JPEG: 2,
    PNG: 3,
    INK: 6, // the ink record: every stored point with its time
});

/** Item that GetDeviceInfo answers, with what it writes. */
export const DeviceInfoItem = Object.freeze({
    STATUS: 1, // bool: the pad is connected
    AXIS_X: 2, // struct _tagKVAXIS
    AXIS_Y: 3, // struct _tagKVAXIS
    PRESSURE: 4, // int: largest pressure that the pad reports
    VENDOR: 5, // zero-terminated text, 8 bytes
    PRODUCT: 6, // zero-terminated text, 6 bytes at most
    DRIVER_VERSION: 7, // struct _tagKVSDKVERSION
});

/** Field of a decoded ink point that GetDecodeInkPointData answers. */
export const InkDataType = Object.freeze({
    X: 1,
    Y: 2,
    STROKE_END: 3,
});

/** Resolution of a saved file: IDLI_150DPI means 150 dots per inch, any other value 300. */
export const DpiLevel = Object.freeze({
    DPI_150: 0,
    DPI_300: 1,
});

/** File type of SaveDrawingImage. */
export const ImageType = Object.freeze({
    BITMAP: 1,
    JPEG: 2,
    PNG: 3,
    PDF: 7,
    SVG: 8,
});

/** Where an S310X instance places a newly captured fingerprint. */
export const FingerprintPlacement = Object.freeze({
    NONE: 0, // centred on the signing canvas
    SAME_WIDGET: 1, // in a rectangle of the signing widget
    DIFFERENT_WIDGET: 2, // in a widget of its own
    OWN_CANVAS: 3, // on a canvas of its own, without a widget on the screen
});

/** State of the pen in a packet from the pad. */
export const PenStatus = Object.freeze({
    DOWN: 0, // touches the writing area
    MOVE: 1, // moves while touching
    UP: 2, // lifted
    CANCEL: 3,
    CONFIRM: 4,
});

/** Result of the pad driver's operations. */
export const DriverReturnCode = Object.freeze({
    SUCCESS: 0,
    FAILED: -1,
    INVALID_PARAMETERS: -2,
    USB_INIT_FAIL: -3,
    USB_OPEN_DEVICE_FAIL: -4,
    USB_CLAIM_INTERFACE_FAIL: -5,
    USB_CREATE_THREAD_FAIL: -6,
    USB_SENT_CMD_FAIL: -7,
});

/** Colours by name: red, green, blue. */
export const COLORS = Object.freeze({
    aqua: [0, 255, 255],
    black: [0, 0, 0],
    blue: [0, 0, 255],
    darkblue: [0, 0, 139],
    darkgreen: [0, 100, 0],
    darkred: [139, 0, 0],
    fuchsia: [255, 0, 255],
    gray: [128, 128, 128],
    green: [0, 128, 0],
    indigo: [75, 0, 130],
    lime: [0, 255, 0],
    maroon: [128, 0, 0],
    midnightblue: [25, 25, 112],
    navy: [0, 0, 128],
    olive: [128, 128, 0],
    purple: [128, 0, 128],
    red: [255, 0, 0],
    silver: [192, 192, 192],
    teal: [0, 128, 128],
    white: [255, 255, 255],
    yellow: [255, 255, 0],
});

/** Each model's prefix and device type. */
export const FAMILIES = Object.freeze({
    S210: ['KVS210', DeviceType.S210],
    S300: ['KVS300', DeviceType.S300],
    S310X: ['KVS310X', DeviceType.S310X],
    R800: ['KVR800', DeviceType.R800],
    M450: ['KVM450', DeviceType.M450],
});

/** Which function takes a text back, by the operation that hands it out. */
export const GIVES_BACK = Object.freeze({
    GetInkPointDataTimeInfo: 'FreeInkPointDataTimeInfo',
    Base64Encode: 'Base64EncodeFree',
    Base64EncodeEx: 'Base64EncodeExFree',
    GetSVGImageBase64Data: 'FreeSVGImageBase64Data',
    WPSBase64Encode: 'WPSBase64EncodeFree',
    GetFPImageBase64Data: 'FreeFPImageBase64Data',
});

const RECORDS = {
    InkPointData: { nIndex: 'int32_t', nX: 'int16_t', nY: 'int16_t', nPressureValue: 'int16_t', bStrokeEnd: 'bool' },
    PointData: {
        nX: 'int16_t', nY: 'int16_t', nPressureValue: 'int16_t', bStrokeEnd: 'bool', ulTickCount: 'uint64_t',
        pointTime: 'int64_t'
    },
    SignContext: {
        nSignWndWidth: 'int32_t', nSignWndHeight: 'int32_t', nSignRawOffset_X: 'int32_t', nSignRawOffset_Y:
        'int32_t', dblWidthRatioOfSignWndOverSignRaw: 'double', dblHeightRatioOfSignWndOverSignRaw: 'double',
        dblSignPressureRatio: 'double'
    },
    Axis: { nAXMin: 'int32_t', nAXMax: 'int32_t' },
    SdkVersion: { nMajorVersion: 'int32_t', nMinorVersion: 'int32_t' },
};

// Declared as C does; koffi reads them.
const FUNCTIONS = [
    // Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of it shows the
    // canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a canvas of nWidth by
    // nHeight pixels. While an instance is open the call changes nothing and answers true; a program keeps to one host
    // and one family between InitialDevice and UnInitialDevice. A canvas that cannot be had (sizes of 0, negative,
    // huge) does not fail the call: the outputs then have nothing to give.
    'bool KVS210_InitialDevice(int nDeviceType, void *pParentWidget, int nX, int nY, int nWidth, int nHeight)',
    'bool KVS300_InitialDevice(int nDeviceType, void *pParentWidget, int nX, int nY, int nWidth, int nHeight)',
    'bool KVS310X_InitialDevice(int nDeviceType, void *pParentWidget, int nX, int nY, int nWidth, int nHeight)',
    'bool KVR800_InitialDevice(int nDeviceType, void *pParentWidget, int nX, int nY, int nWidth, int nHeight)',
    'bool KVM450_InitialDevice(int nDeviceType, void *pParentWidget, int nX, int nY, int nWidth, int nHeight)',
    // Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after the
    // QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the pad, never
    // from a callback. Texts handed out before must be freed before. In a forked child, where the library's threads
    // are not, it waits for none of them; a widget stays in its window there, which is the parent's.
    "int KVS210_UnInitialDevice(int nDeviceType)",
    "int KVS300_UnInitialDevice(int nDeviceType)",
    "int KVS310X_UnInitialDevice(int nDeviceType)",
    "int KVR800_UnInitialDevice(int nDeviceType)",
    "int KVM450_UnInitialDevice(int nDeviceType)",
    // Switches the pad's screen on or off; off also clears the canvas (stored points stay).
    "int KVS210_OpenLCD(int nDeviceType, bool bOn)",
    "int KVS300_OpenLCD(int nDeviceType, bool bOn)",
    "int KVS310X_OpenLCD(int nDeviceType, bool bOn)",
    // Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay). After
    // a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
    "int KVS210_Clear(int nDeviceType)",
    "int KVS300_Clear(int nDeviceType)",
    "int KVS310X_Clear(int nDeviceType)",
    "int KVR800_Clear(int nDeviceType)",
    "int KVM450_Clear(int nDeviceType)",
    // Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero included.
    "int KVS210_GetHWPenID(int nDeviceType, _Out_ uint8_t *pPenID, int nMaxCount)",
    "int KVS300_GetHWPenID(int nDeviceType, _Out_ uint8_t *pPenID, int nMaxCount)",
    "int KVS310X_GetHWPenID(int nDeviceType, _Out_ uint8_t *pPenID, int nMaxCount)",
    // Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.
    "int KVS210_GetHWPadID(int nDeviceType, _Out_ uint8_t *pPadID, int nMaxCount)",
    "int KVS300_GetHWPadID(int nDeviceType, _Out_ uint8_t *pPadID, int nMaxCount)",
    "int KVS310X_GetHWPadID(int nDeviceType, _Out_ uint8_t *pPadID, int nMaxCount)",
    "int KVR800_GetHWPadID(int nDeviceType, _Out_ uint8_t *pPadID, int nMaxCount)",
    "int KVM450_GetHWPadID(int nDeviceType, _Out_ uint8_t *pPadID, int nMaxCount)",
    // Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.
    "int KVS210_GetHWVersion(int nDeviceType, _Out_ uint8_t *pVersion, int nMaxCount)",
    "int KVS300_GetHWVersion(int nDeviceType, _Out_ uint8_t *pVersion, int nMaxCount)",
    "int KVS310X_GetHWVersion(int nDeviceType, _Out_ uint8_t *pVersion, int nMaxCount)",
    "int KVR800_GetHWVersion(int nDeviceType, _Out_ uint8_t *pVersion, int nMaxCount)",
    "int KVM450_GetHWVersion(int nDeviceType, _Out_ uint8_t *pVersion, int nMaxCount)",
    // Shows or hides version information on the pad's screen.
    "int KVS210_DisplayHWVersion(int nDeviceType, bool bOn)",
    "int KVS300_DisplayHWVersion(int nDeviceType, bool bOn)",
    "int KVS310X_DisplayHWVersion(int nDeviceType, bool bOn)",
    // Writes one item about the pad into pOutput, from the library's own knowledge of the model.
    "int KVS210_GetDeviceInfo(int nDeviceType, int nIndex, _Out_ uint8_t *pOutput)",
    "int KVS300_GetDeviceInfo(int nDeviceType, int nIndex, _Out_ uint8_t *pOutput)",
    "int KVS310X_GetDeviceInfo(int nDeviceType, int nIndex, _Out_ uint8_t *pOutput)",
    "int KVR800_GetDeviceInfo(int nDeviceType, int nIndex, _Out_ uint8_t *pOutput)",
    "int KVM450_GetDeviceInfo(int nDeviceType, int nIndex, _Out_ uint8_t *pOutput)",
    // Lets the stroke width follow the pressure (true, the default) or keeps it fixed.
    'int KVS210_SetPenStyle(int nDeviceType, bool bPressureOn)',
    'int KVS300_SetPenStyle(int nDeviceType, bool bPressureOn)',
    'int KVS310X_SetPenStyle(int nDeviceType, bool bPressureOn)',
    'int KVR800_SetPenStyle(int nDeviceType, bool bPressureOn)',
    'int KVM450_SetPenStyle(int nDeviceType, bool bPressureOn)',
    // Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).
    "int KVS210_SetPenWidth(int nDeviceType, int nPenWidth)",
    "int KVS300_SetPenWidth(int nDeviceType, int nPenWidth)",
    "int KVS310X_SetPenWidth(int nDeviceType, int nPenWidth)",
    "int KVR800_SetPenWidth(int nDeviceType, int nPenWidth)",
    "int KVM450_SetPenWidth(int nDeviceType, int nPenWidth)",
    // Sets the colour of strokes to come, 0 to 255 each (black at the start).
    'int KVS210_SetPenColor(int nDeviceType, int nR, int nG, int nB)',
    'int KVS300_SetPenColor(int nDeviceType, int nR, int nG, int nB)',
    'int KVS310X_SetPenColor(int nDeviceType, int nR, int nG, int nB)',
    'int KVR800_SetPenColor(int nDeviceType, int nR, int nG, int nB)',
    'int KVM450_SetPenColor(int nDeviceType, int nR, int nG, int nB)',
    // Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on the
    // driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
    "int KVS210_SignPadEventCallback(int nDeviceType, void *pfnSignPadEventCallback)",
    "int KVS300_SignPadEventCallback(int nDeviceType, void *pfnSignPadEventCallback)",
    "int KVS310X_SignPadEventCallback(int nDeviceType, void *pfnSignPadEventCallback)",
    "int KVR800_SignPadEventCallback(int nDeviceType, void *pfnSignPadEventCallback)",
    "int KVM450_SignPadEventCallback(int nDeviceType, void *pfnSignPadEventCallback)",
    // Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an instance).
    'int KVS210_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType)',
    'int KVS300_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType)',
    'int KVS310X_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType)',
    'int KVR800_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType)',
    'int KVM450_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType)',
    // Number of stored ink points.
    'int KVS210_GetTotalInkPointsNumber(int nDeviceType)',
    'int KVS300_GetTotalInkPointsNumber(int nDeviceType)',
    'int KVS310X_GetTotalInkPointsNumber(int nDeviceType)',
    'int KVR800_GetTotalInkPointsNumber(int nDeviceType)',
    'int KVM450_GetTotalInkPointsNumber(int nDeviceType)',
    // Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
    // although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd set.
    "int KVS210_GetInkPointData(int nDeviceType, _Inout_ InkPointData *currentInkPoint)",
    "int KVS300_GetInkPointData(int nDeviceType, _Inout_ InkPointData *currentInkPoint)",
    "int KVS310X_GetInkPointData(int nDeviceType, _Inout_ InkPointData *currentInkPoint)",
    "int KVR800_GetInkPointData(int nDeviceType, _Inout_ InkPointData *currentInkPoint)",
    "int KVM450_GetInkPointData(int nDeviceType, _Inout_ InkPointData *currentInkPoint)",
    // The local time at which a point was stored, as '2024-03-05 14:07:09.789' (the milliseconds come from a clock of
    // their own and are not in step with the seconds).
    'void *KVS210_GetInkPointDataTimeInfo(int nDeviceType, int nIndex)',
    'void *KVS300_GetInkPointDataTimeInfo(int nDeviceType, int nIndex)',
    'void *KVS310X_GetInkPointDataTimeInfo(int nDeviceType, int nIndex)',
    'void *KVR800_GetInkPointDataTimeInfo(int nDeviceType, int nIndex)',
    'void *KVM450_GetInkPointDataTimeInfo(int nDeviceType, int nIndex)',
    // Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.
    'void KVS210_FreeInkPointDataTimeInfo(int nDeviceType, void *pInkPointDataTimeInfo)',
    'void KVS300_FreeInkPointDataTimeInfo(int nDeviceType, void *pInkPointDataTimeInfo)',
    'void KVS310X_FreeInkPointDataTimeInfo(int nDeviceType, void *pInkPointDataTimeInfo)',
    'void KVR800_FreeInkPointDataTimeInfo(int nDeviceType, void *pInkPointDataTimeInfo)',
    'void KVM450_FreeInkPointDataTimeInfo(int nDeviceType, void *pInkPointDataTimeInfo)',
    // Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
    'int KVS210_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY)',
    'int KVS300_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY)',
    'int KVS310X_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY)',
    'int KVR800_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY)',
    'int KVM450_SetSaveClipImageMargin(int nDeviceType, bool bClipImage, int nClipMarginX, int nClipMarginY)',
    // Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails leaves it
    // as it was, unless it is a link, another user's or in a folder that takes no new file: such a one is written in
    // place.
    "int KVS210_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel)",
    "int KVS300_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel)",
    "int KVS310X_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel)",
    "int KVR800_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel)",
    "int KVM450_SaveDrawingImage(int nDeviceType, int nImageTypeID, wchar_t *pImageFilePath, int nDPILevel)",
    // The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
    'void *KVS210_Base64Encode(int nDeviceType, int nImageTypeID)',
    'void *KVS300_Base64Encode(int nDeviceType, int nImageTypeID)',
    'void *KVS310X_Base64Encode(int nDeviceType, int nImageTypeID)',
    'void *KVR800_Base64Encode(int nDeviceType, int nImageTypeID)',
    'void *KVM450_Base64Encode(int nDeviceType, int nImageTypeID)',
    // Frees a text of Base64Encode; null is ignored. Needs the instance.
    'void KVS210_Base64EncodeFree(int nDeviceType, void *pEncodedData)',
    'void KVS300_Base64EncodeFree(int nDeviceType, void *pEncodedData)',
    'void KVS310X_Base64EncodeFree(int nDeviceType, void *pEncodedData)',
    'void KVR800_Base64EncodeFree(int nDeviceType, void *pEncodedData)',
    'void KVM450_Base64EncodeFree(int nDeviceType, void *pEncodedData)',
    // Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
    "void *KVS210_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground)",
    "void *KVS300_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground)",
    "void *KVS310X_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground)",
    "void *KVR800_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground)",
    "void *KVM450_Base64EncodeEx(int nDeviceType, int nImageTypeID, bool bEnableTransparentBackground)",
    // Frees a text of Base64EncodeEx; null is ignored. Needs the instance.
    'void KVS210_Base64EncodeExFree(int nDeviceType, void *pEncodedData)',
    'void KVS300_Base64EncodeExFree(int nDeviceType, void *pEncodedData)',
    'void KVS310X_Base64EncodeExFree(int nDeviceType, void *pEncodedData)',
    'void KVR800_Base64EncodeExFree(int nDeviceType, void *pEncodedData)',
    'void KVM450_Base64EncodeExFree(int nDeviceType, void *pEncodedData)',
    // The signature as the Base64 text of an SVG file; the file '/tmp/KVeSign.svg' is written on the way and stays.
    'void *KVS210_GetSVGImageBase64Data(int nDeviceType)',
    'void *KVS300_GetSVGImageBase64Data(int nDeviceType)',
    'void *KVS310X_GetSVGImageBase64Data(int nDeviceType)',
    'void *KVR800_GetSVGImageBase64Data(int nDeviceType)',
    'void *KVM450_GetSVGImageBase64Data(int nDeviceType)',
    // Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.
    'void KVS210_FreeSVGImageBase64Data(int nDeviceType, void *pEncodedData)',
    'void KVS300_FreeSVGImageBase64Data(int nDeviceType, void *pEncodedData)',
    'void KVS310X_FreeSVGImageBase64Data(int nDeviceType, void *pEncodedData)',
    'void KVR800_FreeSVGImageBase64Data(int nDeviceType, void *pEncodedData)',
    'void KVM450_FreeSVGImageBase64Data(int nDeviceType, void *pEncodedData)',
    // Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into decoded
    // points for the two functions below. Any earlier decoded points are gone. Characters outside the alphabet are
    // skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for what would cost too
    // much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG or BMP of more than 16
    // million pixels that has less than a byte for 1000 of them.
    'int KVS210_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)',
    'int KVS300_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)',
    'int KVS310X_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)',
    'int KVR800_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)',
    'int KVM450_Base64Decode(int nDeviceType, int nImageTypeID, const char *pEncodedData, wchar_t *pImageFilePath)',
    // Number of decoded points.
    'int KVS210_GetTotalDecodeInkPointsNumber(int nDeviceType)',
    'int KVS300_GetTotalDecodeInkPointsNumber(int nDeviceType)',
    'int KVS310X_GetTotalDecodeInkPointsNumber(int nDeviceType)',
    'int KVR800_GetTotalDecodeInkPointsNumber(int nDeviceType)',
    'int KVM450_GetTotalDecodeInkPointsNumber(int nDeviceType)',
    // One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error code.
    'int KVS210_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID)',
    'int KVS300_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID)',
    'int KVS310X_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID)',
    'int KVR800_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID)',
    'int KVM450_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID)',
    // Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing without
    // them. pParent may be null.
    'void KVS210_AboutBox(void *pParent)',
    'void KVS300_AboutBox(void *pParent)',
    'void KVS310X_AboutBox(void *pParent)',
    'void KVR800_AboutBox(void *pParent)',
    'void KVM450_AboutBox(void *pParent)',
    // Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
    "void KVS210_GetAboutInfo(int nDeviceType, _Out_ uint8_t *pOutput)",
    "void KVS300_GetAboutInfo(int nDeviceType, _Out_ uint8_t *pOutput)",
    "void KVS310X_GetAboutInfo(int nDeviceType, _Out_ uint8_t *pOutput)",
    "void KVR800_GetAboutInfo(int nDeviceType, _Out_ uint8_t *pOutput)",
    "void KVM450_GetAboutInfo(int nDeviceType, _Out_ uint8_t *pOutput)",
    // Hands the whole signature to the receiver after every pen movement, as EBITI_JPEG or EBITI_PNG, on the driver's
    // thread; the next packet waits for it. The text is valid until the receiver returns. The receiver may call the
    // library, but for InitialDevice and UnInitialDevice. It stays set as long as the instance lives.
    "bool KVS210_SetRealTimeSignBase64DataCallback(int nDeviceType, int nType, void *pfnSignBase64DataCallback)",
    // Creates the office canvas of a headless instance, in pixels.
    'bool KVS210_InitialWPSSignCanvas(int nDeviceType, int nWidth, int nHeight)',
    // The signature stretched to the office canvas, as the Base64 text of an EBITI_JPEG or EBITI_PNG (white
    // transparent).
    'void *KVS210_WPSBase64Encode(int nDeviceType, int nImageTypeID)',
    // Frees a text of WPSBase64Encode; null is ignored. Needs the headless instance.
    'void KVS210_WPSBase64EncodeFree(int nDeviceType, void *pEncodedData)',
    // Places the fingerprint. Widget instance: in a rectangle of the signing widget when pParentWidget is its parent,
    // else in a new widget that covers pParentWidget. Headless: on a canvas of nCanvasWidth by nCanvasHeight pixels.
    // The rectangle is in pixels and lies wholly inside that widget or canvas. A new place takes over from the former
    // one. A widget that was replaced stays in its window with its last picture, also after UnInitialDevice; the
    // newest one is hidden and deleted by UnInitialDevice. A refused rectangle takes over too. Later fingerprints are
    // painted into the part of it that lies inside the widget or canvas: on the signing widget in place of the former
    // rectangle, in another window on a new empty widget that is not shown, headless on a new white canvas of 640 by
    // 480 pixels. Only which kind of place was accepted last does not change. Place the fingerprint once more then.
    'int KVS310X_SetDisplayedFPImageAt(int nDeviceType, void *pParentWidget, int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight)',
    // The picture that carries the fingerprint, as Base64 text of EBITI_BITMAP, EBITI_JPEG or EBITI_PNG (white
    // transparent); bFPImageOnly cuts it to the fingerprint's rectangle.
    "void *KVS310X_GetFPImageBase64Data(int nDeviceType, int nImageTypeID, bool bFPImageOnly)",
    // Frees a text of GetFPImageBase64Data; null is ignored. Needs the instance.
    'void KVS310X_FreeFPImageBase64Data(int nDeviceType, void *pFPImageBase64Data)',
];

/** Loads the library and gives its functions by their names. */
export function load(path) {
    for (const [name, fields] of Object.entries(RECORDS)) {
        if (!declared.has(name)) {
            koffi.struct(name, fields);
            declared.add(name);
        }
    }
    const library = koffi.load(path);
    return Object.fromEntries(
        FUNCTIONS.map((declaration) => {
            const name = declaration.slice(0, declaration.indexOf('(')).split(/[ *]/).pop();
            return [name, library.func(declaration)];
        }),
    );
}

const declared = new Set();
