"""The library's functions as they are: generated from the header by bindings/generate, not to be edited.

Texts that the library hands out are addresses here, and the caller gives them back to the function that the operation
names. For everyday use there is kvsignpad.Pad.
"""

from __future__ import annotations

import ctypes
import enum
from typing import Any, Callable, Mapping, NamedTuple

VERSION = "1.0.5.1"


class ReturnCode(enum.IntEnum):
    """Result of the functions that return int. -1 to -7 equal KVSPDAPI_RETURN_ID value for value."""

    SUCCESS = 0  # done
    FAIL = -1  # general failure; also: no device instance is open
    INVALID_PARAMETERS = -2  # wrong device type for the family, or an argument out of range
    DRIVER_INIT_FAIL = -3  # the driver could not initialise USB access
    DRIVER_OPEN_DEVICE_FAIL = -4  # the driver could not open the pad
    DRIVER_CLAIM_INTERFACE_FAIL = -5  # the driver could not claim the pad's USB interface
    DRIVER_CREATE_THREAD_FAIL = -6  # the driver could not start its reading thread
    DRIVER_SENT_CMD_FAIL = -7  # the driver could not send a command to the pad
    INK_EMPTY = -8  # no ink point stored, or no output could be produced
    SAVE_FAILE = -9  # never returned; a file that cannot be written is ARI_INK_EMPTY


class DeviceType(enum.IntEnum):
    """First argument of every function but the about boxes; each family accepts only its own value."""

    NONE = 0
    S210 = 2
    R800 = 3
    M450 = 4
    S300 = 5
    S310X = 7


class EncodedImageType(enum.IntEnum):
    """Kind of Base64 text. The functions say which of the values they accept."""

    BITMAP = 1
    JPEG = 2
    PNG = 3
    INK = 6  # the ink record: every stored point with its time


class DeviceInfoItem(enum.IntEnum):
    """Item that GetDeviceInfo answers, with what it writes."""

    STATUS = 1  # bool: the pad is connected
    AXIS_X = 2  # struct _tagKVAXIS
    AXIS_Y = 3  # struct _tagKVAXIS
    PRESSURE = 4  # int: largest pressure that the pad reports
    VENDOR = 5  # zero-terminated text, 8 bytes
    PRODUCT = 6  # zero-terminated text, 6 bytes at most
    DRIVER_VERSION = 7  # struct _tagKVSDKVERSION


class InkDataType(enum.IntEnum):
    """Field of a decoded ink point that GetDecodeInkPointData answers."""

    X = 1
    Y = 2
    STROKE_END = 3


class DpiLevel(enum.IntEnum):
    """Resolution of a saved file: IDLI_150DPI means 150 dots per inch, any other value 300."""

    DPI_150 = 0
    DPI_300 = 1


class ImageType(enum.IntEnum):
    """File type of SaveDrawingImage."""

    BITMAP = 1
    JPEG = 2
    PNG = 3
    PDF = 7
    SVG = 8


class FingerprintPlacement(enum.IntEnum):
    """Where an S310X instance places a newly captured fingerprint."""

    NONE = 0  # centred on the signing canvas
    SAME_WIDGET = 1  # in a rectangle of the signing widget
    DIFFERENT_WIDGET = 2  # in a widget of its own
    OWN_CANVAS = 3  # on a canvas of its own, without a widget on the screen


class PenStatus(enum.IntEnum):
    """State of the pen in a packet from the pad."""

    DOWN = 0  # touches the writing area
    MOVE = 1  # moves while touching
    UP = 2  # lifted
    CANCEL = 3
    CONFIRM = 4


class DriverReturnCode(enum.IntEnum):
    """Result of the pad driver's operations."""

    SUCCESS = 0
    FAILED = -1
    INVALID_PARAMETERS = -2
    USB_INIT_FAIL = -3
    USB_OPEN_DEVICE_FAIL = -4
    USB_CLAIM_INTERFACE_FAIL = -5
    USB_CREATE_THREAD_FAIL = -6
    USB_SENT_CMD_FAIL = -7


class InkPointData(ctypes.Structure):
    """One ink point for the caller, in the pad's raw units. The caller fills nIndex, the library the rest."""

    _fields_ = [
        ("nIndex", ctypes.c_int32),  # in: zero-based index of the wanted point
        ("nX", ctypes.c_int16),  # out: raw x
        ("nY", ctypes.c_int16),  # out: raw y
        ("nPressureValue", ctypes.c_int16),  # out: raw pressure
        ("bStrokeEnd", ctypes.c_bool),  # out: true on the point that closes a stroke
    ]


class PointData(ctypes.Structure):
    """One stored ink point: the 24 bytes of an entry of the ink record."""

    _fields_ = [
        ("nX", ctypes.c_int16),  # raw x
        ("nY", ctypes.c_int16),  # raw y
        ("nPressureValue", ctypes.c_int16),  # raw pressure
        ("bStrokeEnd", ctypes.c_bool),  # true only on the point that closes a stroke
        ("ulTickCount", ctypes.c_uint64),  # milliseconds of the monotonic clock when the point was stored
        ("pointTime", ctypes.c_int64),  # seconds since the epoch when the point was stored
    ]


class SignContext(ctypes.Structure):
    """How an instance maps raw values to its canvas. (The typedef's spelling is the interface's own.)"""

    _fields_ = [
        ("nSignWndWidth", ctypes.c_int32),  # canvas width in pixels
        ("nSignWndHeight", ctypes.c_int32),  # canvas height in pixels
        ("nSignRawOffset_X", ctypes.c_int32),  # raw x that maps to canvas x 0
        ("nSignRawOffset_Y", ctypes.c_int32),  # raw y that maps to canvas y 0
        ("dblWidthRatioOfSignWndOverSignRaw", ctypes.c_double),  # canvas pixels per raw x unit
        ("dblHeightRatioOfSignWndOverSignRaw", ctypes.c_double),  # canvas pixels per raw y unit
        ("dblSignPressureRatio", ctypes.c_double),  # pen width in pixels per raw pressure unit
    ]


class Axis(ctypes.Structure):
    """Range of one axis of the pad, in raw units."""

    _fields_ = [
        ("nAXMin", ctypes.c_int32),
        ("nAXMax", ctypes.c_int32),
    ]


class SdkVersion(ctypes.Structure):
    """A version number of two parts."""

    _fields_ = [
        ("nMajorVersion", ctypes.c_int32),
        ("nMinorVersion", ctypes.c_int32),
    ]


# Receives 1 for a tap on the pad's confirm button and 0 for cancel. Called on the driver's thread, with no lock held.
EventCallback = ctypes.CFUNCTYPE(None, ctypes.c_int)


# Receives the live signature as a zero-terminated Base64 image, valid until it returns. Called on the driver's
# thread, with no lock held.
LiveImageCallback = ctypes.CFUNCTYPE(None, ctypes.c_char_p)



class Operation(NamedTuple):
    """One operation, the same for every family that has it."""

    families: tuple[str, ...]
    result: Any
    parameters: tuple[Any, ...]
    gives_back: str
    doc: str


class Library:
    """The loaded library: its functions by their names (`library.KVS300_Clear`), or by family and operation."""

    def __init__(self, path: str) -> None:
        self.cdll = ctypes.CDLL(path)
        self._functions: dict[str, Callable[..., Any]] = {}
        for name, operation in OPERATIONS.items():
            for family in operation.families:
                function = self.cdll[f"{family}_{name}"]
                function.restype = operation.result
                function.argtypes = list(operation.parameters)
                function.__doc__ = operation.doc
                self._functions[f"{family}_{name}"] = function

    def __getattr__(self, name: str) -> Callable[..., Any]:
        try:
            return self._functions[name]
        except KeyError:
            raise AttributeError(f"the library has no function {name}") from None

    def __dir__(self) -> list[str]:
        return sorted(self._functions)

    @property
    def log_enabled(self) -> bool:
        """Whether the library writes its log (g_bEnableLog)."""
        return ctypes.c_bool.in_dll(self.cdll, "g_bEnableLog").value

    @log_enabled.setter
    def log_enabled(self, on: bool) -> None:
        ctypes.c_bool.in_dll(self.cdll, "g_bEnableLog").value = on


# Each model's prefix and device type.
FAMILIES: Mapping[str, tuple[str, DeviceType]] = {
    "S210": ("KVS210", DeviceType.S210),
    "S300": ("KVS300", DeviceType.S300),
    "S310X": ("KVS310X", DeviceType.S310X),
    "R800": ("KVR800", DeviceType.R800),
    "M450": ("KVM450", DeviceType.M450),
}


OPERATIONS: Mapping[str, Operation] = {
    "InitialDevice": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_bool,
        (ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int),
        "",
        "Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of "
        "it shows the canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a "
        "canvas of nWidth by nHeight pixels. While an instance is open the call changes nothing and answers "
        "true; a program keeps to one host and one family between InitialDevice and UnInitialDevice. A canvas "
        "that cannot be had (sizes of 0, negative, huge) does not fail the call: the outputs then have "
        "nothing to give.\n\n"
        "Returns false when nDeviceType is another family's, the driver \"./libkvsignpaddrv.so\" (working "
        "directory) cannot be used, the pad is not this model, memory or threads are out, or the parent is "
        "not a widget of this thread and of a living QApplication; the library is closed then and the call "
        "may be repeated."
    ),
    "UnInitialDevice": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int,),
        "",
        "Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; "
        "after the QApplication is gone it is neither, and goes with its parent). Call it on the thread that "
        "opened the pad, never from a callback. Texts handed out before must be freed before. In a forked "
        "child, where the library's threads are not, it waits for none of them; a widget stays in its window "
        "there, which is the parent's.\n\n"
        "Returns ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's "
        "nDeviceType."
    ),
    "OpenLCD": Operation(
        ("KVS210", "KVS300", "KVS310X"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_bool),
        "",
        "Switches the pad's screen on or off; off also clears the canvas (stored points stay).\n\n"
        "Returns the driver's result; ARI_FAIL without an instance or when the driver has no such operation."
    ),
    "Clear": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int,),
        "",
        "Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins "
        "stay). After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone "
        "and answers 0.\n\n"
        "Returns the driver's result; ARI_FAIL without an instance or when the driver has no such operation."
    ),
    "GetHWPenID": Operation(
        ("KVS210", "KVS300", "KVS310X"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_char_p, ctypes.c_int),
        "",
        "Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero "
        "included.\n\n"
        "Returns the driver's result; ARI_FAIL without an instance or when the driver has no such operation."
    ),
    "GetHWPadID": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_char_p, ctypes.c_int),
        "",
        "Asks the driver for the pad's identifier, as GetHWPenID does for the pen's."
    ),
    "GetHWVersion": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_char_p, ctypes.c_int),
        "",
        "Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier."
    ),
    "DisplayHWVersion": Operation(
        ("KVS210", "KVS300", "KVS310X"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_bool),
        "",
        "Shows or hides version information on the pad's screen.\n\n"
        "Returns the driver's result; ARI_FAIL without an instance or when the driver has no such operation."
    ),
    "GetDeviceInfo": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_int, ctypes.c_void_p),
        "",
        "Writes one item about the pad into pOutput, from the library's own knowledge of the model.\n\n"
        "nIndex: a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold "
        "it.\n\n"
        "Returns ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an "
        "instance."
    ),
    "SetPenStyle": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_bool),
        "",
        "Lets the stroke width follow the pressure (true, the default) or keeps it fixed.\n\n"
        "Returns the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or "
        "operation."
    ),
    "SetPenWidth": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_int),
        "",
        "Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).\n\n"
        "Returns ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance."
    ),
    "SetPenColor": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int),
        "",
        "Sets the colour of strokes to come, 0 to 255 each (black at the start).\n\n"
        "Returns ARI_SUCCESS; ARI_FAIL without an instance."
    ),
    "SignPadEventCallback": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, EventCallback),
        "",
        "Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It "
        "runs on the driver's thread with no lock held and may call the library, but for InitialDevice and "
        "UnInitialDevice.\n\n"
        "Returns ARI_SUCCESS; ARI_FAIL without an instance."
    ),
    "GetDeviceConfirmOrCancelKeyStatus": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int,),
        "",
        "Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without "
        "an instance)."
    ),
    "GetTotalInkPointsNumber": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int,),
        "",
        "Number of stored ink points.\n\n"
        "Returns above 0; ARI_INK_EMPTY for none, and without an instance."
    ),
    "GetInkPointData": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.POINTER(InkPointData)),
        "",
        "Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is "
        "written although the parameter is declared const. A stroke ends with a copy of its last point that "
        "has bStrokeEnd set.\n\n"
        "Returns ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an "
        "instance."
    ),
    "GetInkPointDataTimeInfo": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_void_p,
        (ctypes.c_int, ctypes.c_int),
        "FreeInkPointDataTimeInfo",
        "The local time at which a point was stored, as \"2024-03-05 14:07:09.789\" (the milliseconds come from "
        "a clock of their own and are not in step with the seconds).\n\n"
        "Returns a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an "
        "instance."
    ),
    "FreeInkPointDataTimeInfo": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance."
    ),
    "SetSaveClipImageMargin": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_bool, ctypes.c_int, ctypes.c_int),
        "",
        "Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut "
        "off.\n\n"
        "Returns ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance."
    ),
    "SaveDrawingImage": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_int, ctypes.c_wchar_p, ctypes.c_int),
        "",
        "Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that "
        "fails leaves it as it was, unless it is a link, another user's or in a folder that takes no new "
        "file: such a one is written in place.\n\n"
        "nImageTypeID: IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG "
        "makes white transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew.\n\n"
        "pImageFilePath: zero-terminated, one code point per wchar_t.\n\n"
        "nDPILevel: 0 means 150 dots per inch, any other value 300.\n\n"
        "Returns ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without "
        "memory or when the file could not be written (an SVG that could not be written is not noticed, nor a "
        "disk that is full before a PDF's end); ARI_FAIL without an instance."
    ),
    "Base64Encode": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_void_p,
        (ctypes.c_int, ctypes.c_int),
        "Base64EncodeFree",
        "The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or "
        "EBITI_INK.\n\n"
        "Returns a new text for Base64EncodeFree, empty when the image could not be written; null without "
        "ink, without an instance or for another type."
    ),
    "Base64EncodeFree": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Frees a text of Base64Encode; null is ignored. Needs the instance."
    ),
    "Base64EncodeEx": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_void_p,
        (ctypes.c_int, ctypes.c_int, ctypes.c_bool),
        "Base64EncodeExFree",
        "Base64Encode with the choice whether a PNG's white becomes transparent. Free it with "
        "Base64EncodeExFree."
    ),
    "Base64EncodeExFree": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Frees a text of Base64EncodeEx; null is ignored. Needs the instance."
    ),
    "GetSVGImageBase64Data": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_void_p,
        (ctypes.c_int,),
        "FreeSVGImageBase64Data",
        "The signature as the Base64 text of an SVG file; the file \"/tmp/KVeSign.svg\" is written on the way "
        "and stays.\n\n"
        "Returns a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without "
        "ink or instance."
    ),
    "FreeSVGImageBase64Data": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance."
    ),
    "Base64Decode": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_int, ctypes.c_char_p, ctypes.c_wchar_p),
        "",
        "Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) "
        "into decoded points for the two functions below. Any earlier decoded points are gone. Characters "
        "outside the alphabet are skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut "
        "off too, but for what would cost too much: more pixels than any canvas has (2^29), a JPEG of more "
        "than 100 scans, and a JPEG or BMP of more than 16 million pixels that has less than a byte for 1000 "
        "of them.\n\n"
        "Returns ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when "
        "the image does not load in its format or cannot be written; ARI_FAIL without an instance."
    ),
    "GetTotalDecodeInkPointsNumber": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int,),
        "",
        "Number of decoded points.\n\n"
        "Returns above 0; ARI_INK_EMPTY for none, and without an instance."
    ),
    "GetDecodeInkPointData": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_int, ctypes.c_int),
        "",
        "One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an "
        "error code.\n\n"
        "Returns the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY "
        "without decoded points; ARI_FAIL without an instance."
    ),
    "AboutBox": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        None,
        (ctypes.c_void_p,),
        "",
        "Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows "
        "nothing without them. pParent may be null."
    ),
    "GetAboutInfo": Operation(
        ("KVS210", "KVS300", "KVS310X", "KVR800", "KVM450"),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is "
        "ignored."
    ),
    "SetRealTimeSignBase64DataCallback": Operation(
        ("KVS210",),
        ctypes.c_bool,
        (ctypes.c_int, ctypes.c_int, LiveImageCallback),
        "",
        "Hands the whole signature to the receiver after every pen movement, as EBITI_JPEG or EBITI_PNG, on "
        "the driver's thread; the next packet waits for it. The text is valid until the receiver returns. The "
        "receiver may call the library, but for InitialDevice and UnInitialDevice. It stays set as long as "
        "the instance lives.\n\n"
        "Returns true; false for another type or nDeviceType, a null receiver or without an instance."
    ),
    "InitialWPSSignCanvas": Operation(
        ("KVS210",),
        ctypes.c_bool,
        (ctypes.c_int, ctypes.c_int, ctypes.c_int),
        "",
        "Creates the office canvas of a headless instance, in pixels.\n\n"
        "Returns true; false for a size of 0, another nDeviceType, a widget instance or none."
    ),
    "WPSBase64Encode": Operation(
        ("KVS210",),
        ctypes.c_void_p,
        (ctypes.c_int, ctypes.c_int),
        "WPSBase64EncodeFree",
        "The signature stretched to the office canvas, as the Base64 text of an EBITI_JPEG or EBITI_PNG "
        "(white transparent).\n\n"
        "Returns a new text for WPSBase64EncodeFree, empty without an office canvas; null without ink or "
        "headless instance."
    ),
    "WPSBase64EncodeFree": Operation(
        ("KVS210",),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Frees a text of WPSBase64Encode; null is ignored. Needs the headless instance."
    ),
    "SetDisplayedFPImageAt": Operation(
        ("KVS310X",),
        ctypes.c_int,
        (ctypes.c_int, ctypes.c_void_p, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int),
        "",
        "Places the fingerprint. Widget instance: in a rectangle of the signing widget when pParentWidget is "
        "its parent, else in a new widget that covers pParentWidget. Headless: on a canvas of nCanvasWidth by "
        "nCanvasHeight pixels. The rectangle is in pixels and lies wholly inside that widget or canvas. A new "
        "place takes over from the former one. A widget that was replaced stays in its window with its last "
        "picture, also after UnInitialDevice; the newest one is hidden and deleted by UnInitialDevice. A "
        "refused rectangle takes over too. Later fingerprints are painted into the part of it that lies "
        "inside the widget or canvas: on the signing widget in place of the former rectangle, in another "
        "window on a new empty widget that is not shown, headless on a new white canvas of 640 by 480 pixels. "
        "Only which kind of place was accepted last does not change. Place the fingerprint once more then.\n\n"
        "Returns ARI_SUCCESS; ARI_INVALID_PARAMETERS for a rectangle outside or a null parent; ARI_FAIL "
        "without an instance, and for a new widget without a QApplication or on another thread than "
        "pParentWidget's."
    ),
    "GetFPImageBase64Data": Operation(
        ("KVS310X",),
        ctypes.c_void_p,
        (ctypes.c_int, ctypes.c_int, ctypes.c_bool),
        "FreeFPImageBase64Data",
        "The picture that carries the fingerprint, as Base64 text of EBITI_BITMAP, EBITI_JPEG or EBITI_PNG "
        "(white transparent); bFPImageOnly cuts it to the fingerprint's rectangle.\n\n"
        "Returns a new text for FreeFPImageBase64Data, empty when there is no picture to write: the canvas "
        "could not be had, or the rectangle is empty. Null when a headless instance has accepted no place "
        "yet, when the window that held the newest one is gone, for another type, and without an instance."
    ),
    "FreeFPImageBase64Data": Operation(
        ("KVS310X",),
        None,
        (ctypes.c_int, ctypes.c_void_p),
        "",
        "Frees a text of GetFPImageBase64Data; null is ignored. Needs the instance."
    ),
}


# Colours by name.
COLORS: Mapping[str, tuple[int, int, int]] = {
    "aqua": (0, 255, 255),
    "black": (0, 0, 0),
    "blue": (0, 0, 255),
    "darkblue": (0, 0, 139),
    "darkgreen": (0, 100, 0),
    "darkred": (139, 0, 0),
    "fuchsia": (255, 0, 255),
    "gray": (128, 128, 128),
    "green": (0, 128, 0),
    "indigo": (75, 0, 130),
    "lime": (0, 255, 0),
    "maroon": (128, 0, 0),
    "midnightblue": (25, 25, 112),
    "navy": (0, 0, 128),
    "olive": (128, 128, 0),
    "purple": (128, 0, 128),
    "red": (255, 0, 0),
    "silver": (192, 192, 192),
    "teal": (0, 128, 128),
    "white": (255, 255, 255),
    "yellow": (255, 255, 0),
}
