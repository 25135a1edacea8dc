"""What C types cannot say about the header, for each operation and each value.

The generator fails on whatever the header declares and these tables do not place, and on whatever stands here and is
not in the header: so a new function, value or parameter cannot reach the bindings unseen.

Roles of parameters:
    device          the family's device type, always first
    null            a widget's address; bindings pass null (or a host's widget, where the language can have one)
    flag            true or false
    int             any number; `int:1..10` only these are accepted
    enum:NAME       a value of that enumeration; `enum:NAME:1,2` only these
    buffer:LENGTH   text that the library writes, at most as many bytes as the parameter LENGTH says, zero included
    length          the size of a buffer beside it, in bytes
    item            written by the library as the value of the enumeration beside it says (GetDeviceInfo)
    bytes:N         written by the library, at most N bytes, without a length
    point           a record that the library reads and writes, though it is declared const
    path            a file's name, one code point per wchar_t
    text            a zero-terminated text that the library reads
    owned           a text that the library handed out and takes back (null is ignored)
    callback        a function's address; null switches it off; `callback!`: null is refused

Results:
    code            API_RETURN_ID: 0 or an error
    flag            done or not
    count           above 0, or ARI_INK_EMPTY for none
    key             1 confirm, 0 cancel, -1 none: no error code
    coordinate      a number that may equal an error code
    text:OPERATION  a new text, or null; OPERATION takes it back
    none            nothing
"""

from __future__ import annotations

from dataclasses import dataclass


@dataclass(frozen=True)
class Meaning:
    group: str
    result: str
    parameters: dict[str, str]


def _operation(group: str, result: str, **parameters: str) -> Meaning:
    return Meaning(group, result, parameters)


_IMAGES = "enum:ENCODE_BASE64_IMAGE_TYPE_ID:1,2,3"
_LIVE = "enum:ENCODE_BASE64_IMAGE_TYPE_ID:2,3"
_TEXTS = "enum:ENCODE_BASE64_IMAGE_TYPE_ID"

OPERATIONS: dict[str, Meaning] = {
    "InitialDevice": _operation(
        "device", "flag", pParentWidget="null", nX="int", nY="int", nWidth="int", nHeight="int"
    ),
    "UnInitialDevice": _operation("device", "code"),
    "OpenLCD": _operation("device", "code", bOn="flag"),
    "Clear": _operation("device", "code"),
    "GetHWPenID": _operation("device", "code", pPenID="buffer:nMaxCount", nMaxCount="length"),
    "GetHWPadID": _operation("device", "code", pPadID="buffer:nMaxCount", nMaxCount="length"),
    "GetHWVersion": _operation("device", "code", pVersion="buffer:nMaxCount", nMaxCount="length"),
    "DisplayHWVersion": _operation("device", "code", bOn="flag"),
    "GetDeviceInfo": _operation("device", "code", nIndex="enum:GET_DEVICE_INFO_ID_LIST", pOutput="item"),
    "SetPenStyle": _operation("pen", "code", bPressureOn="flag"),
    "SetPenWidth": _operation("pen", "code", nPenWidth="int:1..10"),
    "SetPenColor": _operation("pen", "code", nR="int:0..255", nG="int:0..255", nB="int:0..255"),
    "SignPadEventCallback": _operation("events", "code", pfnSignPadEventCallback="callback"),
    "GetDeviceConfirmOrCancelKeyStatus": _operation("events", "key"),
    "GetTotalInkPointsNumber": _operation("ink", "count"),
    "GetInkPointData": _operation("ink", "code", currentInkPoint="point"),
    "GetInkPointDataTimeInfo": _operation("ink", "text:FreeInkPointDataTimeInfo", nIndex="int"),
    "FreeInkPointDataTimeInfo": _operation("ink", "none", pInkPointDataTimeInfo="owned"),
    "SetSaveClipImageMargin": _operation(
        "files", "code", bClipImage="flag", nClipMarginX="int:0..2147483647", nClipMarginY="int:0..2147483647"
    ),
    "SaveDrawingImage": _operation(
        "files", "code", nImageTypeID="enum:IMAGE_TYPE_ID", pImageFilePath="path", nDPILevel="enum:IMAGE_DPI_LEVEL_ID"
    ),
    "Base64Encode": _operation("texts", "text:Base64EncodeFree", nImageTypeID=_TEXTS),
    "Base64EncodeFree": _operation("texts", "none", pEncodedData="owned"),
    "Base64EncodeEx": _operation(
        "texts", "text:Base64EncodeExFree", nImageTypeID=_TEXTS, bEnableTransparentBackground="flag"
    ),
    "Base64EncodeExFree": _operation("texts", "none", pEncodedData="owned"),
    "GetSVGImageBase64Data": _operation("texts", "text:FreeSVGImageBase64Data"),
    "FreeSVGImageBase64Data": _operation("texts", "none", pEncodedData="owned"),
    "Base64Decode": _operation("decoding", "code", nImageTypeID=_TEXTS, pEncodedData="text", pImageFilePath="path"),
    "GetTotalDecodeInkPointsNumber": _operation("decoding", "count"),
    "GetDecodeInkPointData": _operation("decoding", "coordinate", nIndex="int", nTypeID="enum:GET_INK_DATA_TYPE_ID"),
    "AboutBox": _operation("about", "none", pParent="null"),
    "GetAboutInfo": _operation("about", "none", pOutput="bytes:128"),
    "SetRealTimeSignBase64DataCallback": _operation(
        "live push", "flag", nType=_LIVE, pfnSignBase64DataCallback="callback!"
    ),
    "InitialWPSSignCanvas": _operation("office canvas", "flag", nWidth="int", nHeight="int"),
    "WPSBase64Encode": _operation("office canvas", "text:WPSBase64EncodeFree", nImageTypeID=_LIVE),
    "WPSBase64EncodeFree": _operation("office canvas", "none", pEncodedData="owned"),
    "SetDisplayedFPImageAt": _operation(
        "fingerprint",
        "code",
        pParentWidget="null",
        nCanvasWidth="int",
        nCanvasHeight="int",
        nFPLeft="int",
        nFPTop="int",
        nFPWidth="int",
        nFPHeight="int",
    ),
    "GetFPImageBase64Data": _operation(
        "fingerprint", "text:FreeFPImageBase64Data", nImageTypeID=_IMAGES, bFPImageOnly="flag"
    ),
    "FreeFPImageBase64Data": _operation("fingerprint", "none", pFPImageBase64Data="owned"),
}

WITHOUT_DEVICE_TYPE = frozenset({"AboutBox"})


@dataclass(frozen=True)
class Naming:
    """An enumeration's name in the bindings, and its values'."""

    name: str
    values: dict[str, str]


ENUMERATIONS: dict[str, Naming] = {
    "API_RETURN_ID": Naming(
        "ReturnCode",
        {
            "ARI_SUCCESS": "SUCCESS",
            "ARI_FAIL": "FAIL",
            "ARI_INVALID_PARAMETERS": "INVALID_PARAMETERS",
            "ARI_DRIVER_INIT_FAIL": "DRIVER_INIT_FAIL",
            "ARI_DRIVER_OPEN_DEVICE_FAIL": "DRIVER_OPEN_DEVICE_FAIL",
            "ARI_DRIVER_CLAIM_INTERFACE_FAIL": "DRIVER_CLAIM_INTERFACE_FAIL",
            "ARI_DRIVER_CREATE_THREAD_FAIL": "DRIVER_CREATE_THREAD_FAIL",
            "ARI_DRIVER_SENT_CMD_FAIL": "DRIVER_SENT_CMD_FAIL",
            "ARI_INK_EMPTY": "INK_EMPTY",
            "ARI_SAVE_FAILE": "SAVE_FAILE",
        },
    ),
    "DEVICE_TYPE_ID": Naming("DeviceType", {}),  # model_of names its values
    "ENCODE_BASE64_IMAGE_TYPE_ID": Naming(
        "EncodedImageType",
        {"EBITI_BITMAP": "BITMAP", "EBITI_JPEG": "JPEG", "EBITI_PNG": "PNG", "EBITI_INK": "INK"},
    ),
    "GET_DEVICE_INFO_ID_LIST": Naming(
        "DeviceInfoItem",
        {
            "DIID_GET_STATUS": "STATUS",
            "DIID_GET_AXIS_X": "AXIS_X",
            "DIID_GET_AXIS_Y": "AXIS_Y",
            "DIID_GET_PRESSURE": "PRESSURE",
            "DIID_GET_VENDOR": "VENDOR",
            "DIID_GET_PRODUCT": "PRODUCT",
            "DIID_GET_DRV_VER": "DRIVER_VERSION",
        },
    ),
    "GET_INK_DATA_TYPE_ID": Naming(
        "InkDataType", {"INKDATATYPE_X": "X", "INKDATATYPE_Y": "Y", "INKDATATYPE_STROKEEND": "STROKE_END"}
    ),
    "IMAGE_DPI_LEVEL_ID": Naming("DpiLevel", {"IDLI_150DPI": "DPI_150", "IDLI_300DPI": "DPI_300"}),
    "IMAGE_TYPE_ID": Naming(
        "ImageType",
        {"ITI_BITMAP": "BITMAP", "ITI_JPEG": "JPEG", "ITI_PNG": "PNG", "ITI_PDF": "PDF", "ITI_SVG": "SVG"},
    ),
    "NEW_FP_PROCESS_ACTION_ID_LIST": Naming(
        "FingerprintPlacement",
        {
            "NFPPA_NONE": "NONE",
            "NFPPA_SIGN_FP_SAME_WIDGET": "SAME_WIDGET",
            "NFPPA_SIGN_FP_DIFFERENT_WIDGET": "DIFFERENT_WIDGET",
            "NFPPA_FP_ON_CANVAS_FROM_JS": "OWN_CANVAS",
        },
    ),
    "KVSPDAPI_PEN_STATUS": Naming(
        "PenStatus",
        {
            "KVSPDARI_PS_PEN_DOWN": "DOWN",
            "KVSPDARI_PS_PEN_MOVE": "MOVE",
            "KVSPDARI_PS_PEN_UP": "UP",
            "KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON": "CANCEL",
            "KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON": "CONFIRM",
        },
    ),
    "KVSPDAPI_RETURN_ID": Naming(
        "DriverReturnCode",
        {
            "KVSPDARI_SUCCESS": "SUCCESS",
            "KVSPDARI_FAILED": "FAILED",
            "KVSPDART_INVALID_PARAMETERS": "INVALID_PARAMETERS",
            "KVSPDARI_LIBUSB_INIT_FAIL": "USB_INIT_FAIL",
            "KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL": "USB_OPEN_DEVICE_FAIL",
            "KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL": "USB_CLAIM_INTERFACE_FAIL",
            "KVSPDARI_LIBUSB_CREATE_THREAD_FAIL": "USB_CREATE_THREAD_FAIL",
            "KVSPDARI_LIBUSB_SENT_CMD_FAIL": "USB_SENT_CMD_FAIL",
        },
    ),
}



def model_of(device_type: str) -> str:
    """KVS300_DEVICE is the S300."""
    return device_type.removesuffix("_DEVICE").removeprefix("KV")


# What a model has that others have not, by an operation that tells.
FEATURES: dict[str, str] = {
    "OpenLCD": "a screen",
    "SetRealTimeSignBase64DataCallback": "live images",
    "InitialWPSSignCanvas": "an office canvas",
    "SetDisplayedFPImageAt": "a fingerprint sensor",
}

# Records and their names in the bindings.
RECORDS: dict[str, str] = {
    "_INKPOINTDATA": "InkPointData",
    "_POINTDATA": "PointData",
    "_SignContext": "SignContext",
    "_tagKVAXIS": "Axis",
    "_tagKVSDKVERSION": "SdkVersion",
}

# What bindings pass to the library. The other two are between the library and its driver.
CALLBACKS: dict[str, str] = {
    "SIGNPAD_EVENT_CALLBACK": "EventCallback",
    "SIGNPAD_SIGN_BASE64_DATA_CALLBACK": "LiveImageCallback",
}
DRIVER_CALLBACKS = frozenset({"NOTIFY_HWSIGNDATA", "NOTIFY_FPDATA"})

VARIABLES: dict[str, str] = {"g_bEnableLog": "bool"}

# What GetDeviceInfo writes for each value of GET_DEVICE_INFO_ID_LIST.
DEVICE_INFO: dict[str, str] = {
    "DIID_GET_STATUS": "bool",
    "DIID_GET_AXIS_X": "_tagKVAXIS",
    "DIID_GET_AXIS_Y": "_tagKVAXIS",
    "DIID_GET_PRESSURE": "int32_t",
    "DIID_GET_VENDOR": "text:8",
    "DIID_GET_PRODUCT": "text:6",
    "DIID_GET_DRV_VER": "_tagKVSDKVERSION",
}
