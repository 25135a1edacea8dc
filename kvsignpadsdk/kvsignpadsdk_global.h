/// @file
/// Identifiers, records and callback types of the signature-pad library: the one header that an application includes.
///
/// It ends by including kvsignpadsdk.h with the 156 functions. It needs no Qt header, and a C compiler accepts it too.
/// Every enumeration's values travel across the library's boundary as int.
#ifndef KVSIGNPADSDK_GLOBAL_H
#define KVSIGNPADSDK_GLOBAL_H

#include <stdbool.h>
#include <stdint.h>
#include <time.h>
#include <wchar.h>

#define KVSIGNPADSDK_EXPORT __attribute__((visibility("default")))

#ifdef __cplusplus
#define KVSIGNPADSDK_BEGIN extern "C" {
#define KVSIGNPADSDK_END }
#else
#define KVSIGNPADSDK_BEGIN
#define KVSIGNPADSDK_END
#endif

/// Result of the functions that return int. -1 to -7 equal KVSPDAPI_RETURN_ID value for value.
enum API_RETURN_ID
{
    ARI_SUCCESS = 0, ///< done
    ARI_FAIL = -1, ///< general failure; also: no device instance is open
    ARI_INVALID_PARAMETERS = -2, ///< wrong device type for the family, or an argument out of range
    ARI_DRIVER_INIT_FAIL = -3, ///< the driver could not initialise USB access
    ARI_DRIVER_OPEN_DEVICE_FAIL = -4, ///< the driver could not open the pad
    ARI_DRIVER_CLAIM_INTERFACE_FAIL = -5, ///< the driver could not claim the pad's USB interface
    ARI_DRIVER_CREATE_THREAD_FAIL = -6, ///< the driver could not start its reading thread
    ARI_DRIVER_SENT_CMD_FAIL = -7, ///< the driver could not send a command to the pad
    ARI_INK_EMPTY = -8, ///< no ink point stored, or no output could be produced
    ARI_SAVE_FAILE = -9 ///< never returned; a file that cannot be written is ARI_INK_EMPTY
};

/// First argument of every function but the about boxes; each family accepts only its own value.
enum DEVICE_TYPE_ID
{
    NONE_DEVICE = 0,
    KVS210_DEVICE = 2,
    KVR800_DEVICE = 3,
    KVM450_DEVICE = 4,
    KVS300_DEVICE = 5,
    KVS310X_DEVICE = 7
};

/// Kind of Base64 text. The functions say which of the values they accept.
enum ENCODE_BASE64_IMAGE_TYPE_ID
{
    EBITI_BITMAP = 1,
    EBITI_JPEG = 2,
    EBITI_PNG = 3,
    EBITI_INK = 6 ///< the ink record: every stored point with its time
};

/// Item that GetDeviceInfo answers, with what it writes.
enum GET_DEVICE_INFO_ID_LIST
{
    DIID_GET_STATUS = 1, ///< bool: the pad is connected
    DIID_GET_AXIS_X = 2, ///< struct _tagKVAXIS
    DIID_GET_AXIS_Y = 3, ///< struct _tagKVAXIS
    DIID_GET_PRESSURE = 4, ///< int: largest pressure that the pad reports
    DIID_GET_VENDOR = 5, ///< zero-terminated text, 8 bytes
    DIID_GET_PRODUCT = 6, ///< zero-terminated text, 6 bytes at most
    DIID_GET_DRV_VER = 7 ///< struct _tagKVSDKVERSION
};

/// Field of a decoded ink point that GetDecodeInkPointData answers.
enum GET_INK_DATA_TYPE_ID
{
    INKDATATYPE_X = 1,
    INKDATATYPE_Y = 2,
    INKDATATYPE_STROKEEND = 3
};

/// Resolution of a saved file: IDLI_150DPI means 150 dots per inch, any other value 300.
enum IMAGE_DPI_LEVEL_ID
{
    IDLI_150DPI = 0,
    IDLI_300DPI = 1
};

/// File type of SaveDrawingImage.
enum IMAGE_TYPE_ID
{
    ITI_BITMAP = 1,
    ITI_JPEG = 2,
    ITI_PNG = 3,
    ITI_PDF = 7,
    ITI_SVG = 8
};

/// Where an S310X instance places a newly captured fingerprint.
enum NEW_FP_PROCESS_ACTION_ID_LIST
{
    NFPPA_NONE = 0, ///< centred on the signing canvas
    NFPPA_SIGN_FP_SAME_WIDGET = 1, ///< in a rectangle of the signing widget
    NFPPA_SIGN_FP_DIFFERENT_WIDGET = 2, ///< in a widget of its own
    NFPPA_FP_ON_CANVAS_FROM_JS = 3 ///< on a canvas of its own, without a widget on the screen
};

/// State of the pen in a packet from the pad.
enum KVSPDAPI_PEN_STATUS
{
    KVSPDARI_PS_PEN_DOWN = 0, ///< touches the writing area
    KVSPDARI_PS_PEN_MOVE = 1, ///< moves while touching
    KVSPDARI_PS_PEN_UP = 2, ///< lifted
    KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON = 3,
    KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON = 4
};

/// Result of the pad driver's operations.
enum KVSPDAPI_RETURN_ID
{
    KVSPDARI_SUCCESS = 0,
    KVSPDARI_FAILED = -1,
    KVSPDART_INVALID_PARAMETERS = -2,
    KVSPDARI_LIBUSB_INIT_FAIL = -3,
    KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL = -4,
    KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL = -5,
    KVSPDARI_LIBUSB_CREATE_THREAD_FAIL = -6,
    KVSPDARI_LIBUSB_SENT_CMD_FAIL = -7
};

/// One ink point for the caller, in the pad's raw units. The caller fills nIndex, the library the rest.
typedef struct _INKPOINTDATA
{
    int32_t nIndex; ///< in: zero-based index of the wanted point
    int16_t nX; ///< out: raw x
    int16_t nY; ///< out: raw y
    int16_t nPressureValue; ///< out: raw pressure
    bool bStrokeEnd; ///< out: true on the point that closes a stroke
} INKPOINTDATA;

/// One stored ink point: the 24 bytes of an entry of the ink record.
typedef struct _POINTDATA
{
    int16_t nX; ///< raw x
    int16_t nY; ///< raw y
    int16_t nPressureValue; ///< raw pressure
    bool bStrokeEnd; ///< true only on the point that closes a stroke
    uint64_t ulTickCount; ///< milliseconds of the monotonic clock when the point was stored
    time_t pointTime; ///< seconds since the epoch when the point was stored
} POINTDATA;

/// How an instance maps raw values to its canvas. (The typedef's spelling is the interface's own.)
typedef struct _SignContext
{
    int32_t nSignWndWidth; ///< canvas width in pixels
    int32_t nSignWndHeight; ///< canvas height in pixels
    int32_t nSignRawOffset_X; ///< raw x that maps to canvas x 0
    int32_t nSignRawOffset_Y; ///< raw y that maps to canvas y 0
    double dblWidthRatioOfSignWndOverSignRaw; ///< canvas pixels per raw x unit
    double dblHeightRatioOfSignWndOverSignRaw; ///< canvas pixels per raw y unit
    double dblSignPressureRatio; ///< pen width in pixels per raw pressure unit
} SingContext;

/// Range of one axis of the pad, in raw units.
struct _tagKVAXIS
{
    int32_t nAXMin;
    int32_t nAXMax;
};

/// A version number of two parts.
struct _tagKVSDKVERSION
{
    int32_t nMajorVersion;
    int32_t nMinorVersion;
};

/// Receives 1 for a tap on the pad's confirm button and 0 for cancel. Called on the driver's thread, with no lock held.
typedef void (*SIGNPAD_EVENT_CALLBACK)(int);

/// Receives the live signature as a zero-terminated Base64 image, valid until it returns. Called on the driver's
/// thread, with no lock held.
typedef void (*SIGNPAD_SIGN_BASE64_DATA_CALLBACK)(char *);

/// Receives a pen packet from the driver: raw x, raw y, raw pressure, KVSPDAPI_PEN_STATUS.
typedef void (*NOTIFY_HWSIGNDATA)(int, int, int, int);

/// Receives a fingerprint image from the driver: grey bytes, their number, quality score.
typedef void (*NOTIFY_FPDATA)(unsigned char *, int, int);

#include "kvsignpadsdk.h"

#endif
