// Generated from the header by bindings/generate, not to be edited.
package com.korvane.signpad;

import com.sun.jna.Callback;
import com.sun.jna.Library;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import java.util.List;
import java.util.Map;

/**
 * The library's functions as they are.
 *
 * <p>A C bool result is one byte, and JNA would read a Java boolean from four: it is a byte here, 0 or 1. Paths are
 * UTF-32LE with a closing zero, for JNA's WString passes an emoji as two characters. Texts that the library hands out are
 * pointers, which go back to the function that frees them. For everyday use there is {@link Pad}.
 */
public interface LowLevel extends Library {
    /** The version of the header that this was made from. */
    String VERSION = "1.0.5.1";

    /** Result of the functions that return int. -1 to -7 equal KVSPDAPI_RETURN_ID value for value. */
    interface ReturnCode {
        /** done */
        int SUCCESS = 0;
        /** general failure; also: no device instance is open */
        int FAIL = -1;
        /** wrong device type for the family, or an argument out of range */
        int INVALID_PARAMETERS = -2;
        /** the driver could not initialise USB access */
        int DRIVER_INIT_FAIL = -3;
        /** the driver could not open the pad */
        int DRIVER_OPEN_DEVICE_FAIL = -4;
        /** the driver could not claim the pad's USB interface */
        int DRIVER_CLAIM_INTERFACE_FAIL = -5;
        /** the driver could not start its reading thread */
        int DRIVER_CREATE_THREAD_FAIL = -6;
        /** the driver could not send a command to the pad */
        int DRIVER_SENT_CMD_FAIL = -7;
        /** no ink point stored, or no output could be produced */
        int INK_EMPTY = -8;
        /** never returned; a file that cannot be written is ARI_INK_EMPTY */
        int SAVE_FAILE = -9;
    }

    /** First argument of every function but the about boxes; each family accepts only its own value. */
    interface DeviceType {
        int NONE = 0;
        int S210 = 2;
        int R800 = 3;
        int M450 = 4;
        int S300 = 5;
        int S310X = 7;
    }

    /** Kind of Base64 text. The functions say which of the values they accept. */
    interface EncodedImageType {
        int BITMAP = 1;
        int JPEG = 2;
        int PNG = 3;
        /** the ink record: every stored point with its time */
        int INK = 6;
    }

    /** Item that GetDeviceInfo answers, with what it writes. */
    interface DeviceInfoItem {
        /** bool: the pad is connected */
        int STATUS = 1;
        /** struct _tagKVAXIS */
        int AXIS_X = 2;
        /** struct _tagKVAXIS */
        int AXIS_Y = 3;
        /** int: largest pressure that the pad reports */
        int PRESSURE = 4;
        /** zero-terminated text, 8 bytes */
        int VENDOR = 5;
        /** zero-terminated text, 6 bytes at most */
        int PRODUCT = 6;
        /** struct _tagKVSDKVERSION */
        int DRIVER_VERSION = 7;
    }

    /** Field of a decoded ink point that GetDecodeInkPointData answers. */
    interface InkDataType {
        int X = 1;
        int Y = 2;
        int STROKE_END = 3;
    }

    /** Resolution of a saved file: IDLI_150DPI means 150 dots per inch, any other value 300. */
    interface DpiLevel {
        int DPI_150 = 0;
        int DPI_300 = 1;
    }

    /** File type of SaveDrawingImage. */
    interface ImageType {
        int BITMAP = 1;
        int JPEG = 2;
        int PNG = 3;
        int PDF = 7;
        int SVG = 8;
    }

    /** Where an S310X instance places a newly captured fingerprint. */
    interface FingerprintPlacement {
        /** centred on the signing canvas */
        int NONE = 0;
        /** in a rectangle of the signing widget */
        int SAME_WIDGET = 1;
        /** in a widget of its own */
        int DIFFERENT_WIDGET = 2;
        /** on a canvas of its own, without a widget on the screen */
        int OWN_CANVAS = 3;
    }

    /** State of the pen in a packet from the pad. */
    interface PenStatus {
        /** touches the writing area */
        int DOWN = 0;
        /** moves while touching */
        int MOVE = 1;
        /** lifted */
        int UP = 2;
        int CANCEL = 3;
        int CONFIRM = 4;
    }

    /** Result of the pad driver's operations. */
    interface DriverReturnCode {
        int SUCCESS = 0;
        int FAILED = -1;
        int INVALID_PARAMETERS = -2;
        int USB_INIT_FAIL = -3;
        int USB_OPEN_DEVICE_FAIL = -4;
        int USB_CLAIM_INTERFACE_FAIL = -5;
        int USB_CREATE_THREAD_FAIL = -6;
        int USB_SENT_CMD_FAIL = -7;
    }

    /** One ink point for the caller, in the pad's raw units. The caller fills nIndex, the library the rest. */
    final class InkPointData extends Structure {
        /** in: zero-based index of the wanted point */
        public int nIndex;
        /** out: raw x */
        public short nX;
        /** out: raw y */
        public short nY;
        /** out: raw pressure */
        public short nPressureValue;
        /** out: true on the point that closes a stroke */
        public byte bStrokeEnd;

        /** All zero. */
        public InkPointData() {}

        @Override
        protected List<String> getFieldOrder() {
            return List.of("nIndex", "nX", "nY", "nPressureValue", "bStrokeEnd");
        }
    }

    /** One stored ink point: the 24 bytes of an entry of the ink record. */
    final class PointData extends Structure {
        /** raw x */
        public short nX;
        /** raw y */
        public short nY;
        /** raw pressure */
        public short nPressureValue;
        /** true only on the point that closes a stroke */
        public byte bStrokeEnd;
        /** milliseconds of the monotonic clock when the point was stored */
        public long ulTickCount;
        /** seconds since the epoch when the point was stored */
        public long pointTime;

        /** All zero. */
        public PointData() {}

        @Override
        protected List<String> getFieldOrder() {
            return List.of("nX", "nY", "nPressureValue", "bStrokeEnd", "ulTickCount", "pointTime");
        }
    }

    /** How an instance maps raw values to its canvas. (The typedef's spelling is the interface's own.) */
    final class SignContext extends Structure {
        /** canvas width in pixels */
        public int nSignWndWidth;
        /** canvas height in pixels */
        public int nSignWndHeight;
        /** raw x that maps to canvas x 0 */
        public int nSignRawOffset_X;
        /** raw y that maps to canvas y 0 */
        public int nSignRawOffset_Y;
        /** canvas pixels per raw x unit */
        public double dblWidthRatioOfSignWndOverSignRaw;
        /** canvas pixels per raw y unit */
        public double dblHeightRatioOfSignWndOverSignRaw;
        /** pen width in pixels per raw pressure unit */
        public double dblSignPressureRatio;

        /** All zero. */
        public SignContext() {}

        @Override
        protected List<String> getFieldOrder() {
            return List.of("nSignWndWidth", "nSignWndHeight", "nSignRawOffset_X", "nSignRawOffset_Y",
                    "dblWidthRatioOfSignWndOverSignRaw", "dblHeightRatioOfSignWndOverSignRaw",
                    "dblSignPressureRatio");
        }
    }

    /** Range of one axis of the pad, in raw units. */
    final class Axis extends Structure {
        public int nAXMin;
        public int nAXMax;

        /** All zero. */
        public Axis() {}

        @Override
        protected List<String> getFieldOrder() {
            return List.of("nAXMin", "nAXMax");
        }
    }

    /** A version number of two parts. */
    final class SdkVersion extends Structure {
        public int nMajorVersion;
        public int nMinorVersion;

        /** All zero. */
        public SdkVersion() {}

        @Override
        protected List<String> getFieldOrder() {
            return List.of("nMajorVersion", "nMinorVersion");
        }
    }

    /**
     * Receives 1 for a tap on the pad's confirm button and 0 for cancel. Called on the driver's thread, with no lock
     * held.
     *
     * <p>Keep a reference to it for as long as it is set.
     */
    interface EventCallback extends Callback {
        /** What the library calls. */
        void invoke(int value);
    }

    /**
     * Receives the live signature as a zero-terminated Base64 image, valid until it returns. Called on the driver's
     * thread, with no lock held.
     *
     * <p>Keep a reference to it for as long as it is set.
     */
    interface LiveImageCallback extends Callback {
        /** What the library calls. */
        void invoke(Pointer text);
    }

    /** Colours by name, as 0xRRGGBB. */
    Map<String, Integer> COLORS =
            Map.ofEntries(
                    Map.entry("aqua", 0x00FFFF),
                    Map.entry("black", 0x000000),
                    Map.entry("blue", 0x0000FF),
                    Map.entry("darkblue", 0x00008B),
                    Map.entry("darkgreen", 0x006400),
                    Map.entry("darkred", 0x8B0000),
                    Map.entry("fuchsia", 0xFF00FF),
                    Map.entry("gray", 0x808080),
                    Map.entry("green", 0x008000),
                    Map.entry("indigo", 0x4B0082),
                    Map.entry("lime", 0x00FF00),
                    Map.entry("maroon", 0x800000),
                    Map.entry("midnightblue", 0x191970),
                    Map.entry("navy", 0x000080),
                    Map.entry("olive", 0x808000),
                    Map.entry("purple", 0x800080),
                    Map.entry("red", 0xFF0000),
                    Map.entry("silver", 0xC0C0C0),
                    Map.entry("teal", 0x008080),
                    Map.entry("white", 0xFFFFFF),
                    Map.entry("yellow", 0xFFFF00));

    /** The families that have an operation, where not all have it. */
    Map<String, List<String>> FAMILIES =
            Map.ofEntries(
                    Map.entry("OpenLCD", List.of("KVS210", "KVS300", "KVS310X")),
                    Map.entry("GetHWPenID", List.of("KVS210", "KVS300", "KVS310X")),
                    Map.entry("DisplayHWVersion", List.of("KVS210", "KVS300", "KVS310X")),
                    Map.entry("SetRealTimeSignBase64DataCallback", List.of("KVS210")),
                    Map.entry("InitialWPSSignCanvas", List.of("KVS210")),
                    Map.entry("WPSBase64Encode", List.of("KVS210")),
                    Map.entry("WPSBase64EncodeFree", List.of("KVS210")),
                    Map.entry("SetDisplayedFPImageAt", List.of("KVS310X")),
                    Map.entry("GetFPImageBase64Data", List.of("KVS310X")),
                    Map.entry("FreeFPImageBase64Data", List.of("KVS310X")));

    /**
     * Opens the pad and creates the one device instance of the process.
     *
     * <p>With a parent, a QWidget child of it shows the canvas at nX, nY, nWidth by nHeight pixels; without one the
     * instance is headless with a canvas of nWidth by nHeight pixels. While an instance is open the call changes
     * nothing and answers true; a program keeps to one host and one family between InitialDevice and UnInitialDevice.
     * A canvas that cannot be had (sizes of 0, negative, huge) does not fail the call: the outputs then have nothing
     * to give.
     *
     * @return false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot
     *     be used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread
     *     and of a living QApplication; the library is closed then and the call may be repeated.
     */
    byte KVS210_InitialDevice(int nDeviceType, Pointer pParentWidget, int nX, int nY, int nWidth, int nHeight);
    byte KVS300_InitialDevice(int nDeviceType, Pointer pParentWidget, int nX, int nY, int nWidth, int nHeight);
    byte KVS310X_InitialDevice(int nDeviceType, Pointer pParentWidget, int nX, int nY, int nWidth, int nHeight);
    byte KVR800_InitialDevice(int nDeviceType, Pointer pParentWidget, int nX, int nY, int nWidth, int nHeight);
    byte KVM450_InitialDevice(int nDeviceType, Pointer pParentWidget, int nX, int nY, int nWidth, int nHeight);

    /**
     * Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after the
     * QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the pad, never
     * from a callback. Texts handed out before must be freed before. In a forked child, where the library's threads
     * are not, it waits for none of them; a widget stays in its window there, which is the parent's.
     *
     * @return ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
     */
    int KVS210_UnInitialDevice(int nDeviceType);
    int KVS300_UnInitialDevice(int nDeviceType);
    int KVS310X_UnInitialDevice(int nDeviceType);
    int KVR800_UnInitialDevice(int nDeviceType);
    int KVM450_UnInitialDevice(int nDeviceType);

    /**
     * Switches the pad's screen on or off; off also clears the canvas (stored points stay).
     *
     * @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
     */
    int KVS210_OpenLCD(int nDeviceType, boolean bOn);
    int KVS300_OpenLCD(int nDeviceType, boolean bOn);
    int KVS310X_OpenLCD(int nDeviceType, boolean bOn);

    /**
     * Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay). After
     * a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
     *
     * @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
     */
    int KVS210_Clear(int nDeviceType);
    int KVS300_Clear(int nDeviceType);
    int KVS310X_Clear(int nDeviceType);
    int KVR800_Clear(int nDeviceType);
    int KVM450_Clear(int nDeviceType);

    /**
     * Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero included.
     *
     * @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
     */
    int KVS210_GetHWPenID(int nDeviceType, byte[] pPenID, int nMaxCount);
    int KVS300_GetHWPenID(int nDeviceType, byte[] pPenID, int nMaxCount);
    int KVS310X_GetHWPenID(int nDeviceType, byte[] pPenID, int nMaxCount);

    /** Asks the driver for the pad's identifier, as GetHWPenID does for the pen's. */
    int KVS210_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);
    int KVS300_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);
    int KVS310X_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);
    int KVR800_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);
    int KVM450_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);

    /** Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier. */
    int KVS210_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);
    int KVS300_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);
    int KVS310X_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);
    int KVR800_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);
    int KVM450_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);

    /**
     * Shows or hides version information on the pad's screen.
     *
     * @return the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
     */
    int KVS210_DisplayHWVersion(int nDeviceType, boolean bOn);
    int KVS300_DisplayHWVersion(int nDeviceType, boolean bOn);
    int KVS310X_DisplayHWVersion(int nDeviceType, boolean bOn);

    /**
     * Writes one item about the pad into pOutput, from the library's own knowledge of the model.
     *
     * @param nIndex a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
     * @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
     */
    int KVS210_GetDeviceInfo(int nDeviceType, int nIndex, Pointer pOutput);
    int KVS300_GetDeviceInfo(int nDeviceType, int nIndex, Pointer pOutput);
    int KVS310X_GetDeviceInfo(int nDeviceType, int nIndex, Pointer pOutput);
    int KVR800_GetDeviceInfo(int nDeviceType, int nIndex, Pointer pOutput);
    int KVM450_GetDeviceInfo(int nDeviceType, int nIndex, Pointer pOutput);

    /**
     * Lets the stroke width follow the pressure (true, the default) or keeps it fixed.
     *
     * @return the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
     */
    int KVS210_SetPenStyle(int nDeviceType, boolean bPressureOn);
    int KVS300_SetPenStyle(int nDeviceType, boolean bPressureOn);
    int KVS310X_SetPenStyle(int nDeviceType, boolean bPressureOn);
    int KVR800_SetPenStyle(int nDeviceType, boolean bPressureOn);
    int KVM450_SetPenStyle(int nDeviceType, boolean bPressureOn);

    /**
     * Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).
     *
     * @return ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.
     */
    int KVS210_SetPenWidth(int nDeviceType, int nPenWidth);
    int KVS300_SetPenWidth(int nDeviceType, int nPenWidth);
    int KVS310X_SetPenWidth(int nDeviceType, int nPenWidth);
    int KVR800_SetPenWidth(int nDeviceType, int nPenWidth);
    int KVM450_SetPenWidth(int nDeviceType, int nPenWidth);

    /**
     * Sets the colour of strokes to come, 0 to 255 each (black at the start).
     *
     * @return ARI_SUCCESS; ARI_FAIL without an instance.
     */
    int KVS210_SetPenColor(int nDeviceType, int nR, int nG, int nB);
    int KVS300_SetPenColor(int nDeviceType, int nR, int nG, int nB);
    int KVS310X_SetPenColor(int nDeviceType, int nR, int nG, int nB);
    int KVR800_SetPenColor(int nDeviceType, int nR, int nG, int nB);
    int KVM450_SetPenColor(int nDeviceType, int nR, int nG, int nB);

    /**
     * Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on the
     * driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
     *
     * @return ARI_SUCCESS; ARI_FAIL without an instance.
     */
    int KVS210_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);
    int KVS300_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);
    int KVS310X_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);
    int KVR800_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);
    int KVM450_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);

    /**
     * Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an instance).
     */
    int KVS210_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
    int KVS300_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
    int KVS310X_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
    int KVR800_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);
    int KVM450_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

    /**
     * Number of stored ink points.
     *
     * @return above 0; ARI_INK_EMPTY for none, and without an instance.
     */
    int KVS210_GetTotalInkPointsNumber(int nDeviceType);
    int KVS300_GetTotalInkPointsNumber(int nDeviceType);
    int KVS310X_GetTotalInkPointsNumber(int nDeviceType);
    int KVR800_GetTotalInkPointsNumber(int nDeviceType);
    int KVM450_GetTotalInkPointsNumber(int nDeviceType);

    /**
     * Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
     * although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd set.
     *
     * @return ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
     */
    int KVS210_GetInkPointData(int nDeviceType, InkPointData currentInkPoint);
    int KVS300_GetInkPointData(int nDeviceType, InkPointData currentInkPoint);
    int KVS310X_GetInkPointData(int nDeviceType, InkPointData currentInkPoint);
    int KVR800_GetInkPointData(int nDeviceType, InkPointData currentInkPoint);
    int KVM450_GetInkPointData(int nDeviceType, InkPointData currentInkPoint);

    /**
     * The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock of
     * their own and are not in step with the seconds).
     *
     * @return a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
     */
    Pointer KVS210_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
    Pointer KVS300_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
    Pointer KVS310X_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
    Pointer KVR800_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);
    Pointer KVM450_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

    /** Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance. */
    void KVS210_FreeInkPointDataTimeInfo(int nDeviceType, Pointer pInkPointDataTimeInfo);
    void KVS300_FreeInkPointDataTimeInfo(int nDeviceType, Pointer pInkPointDataTimeInfo);
    void KVS310X_FreeInkPointDataTimeInfo(int nDeviceType, Pointer pInkPointDataTimeInfo);
    void KVR800_FreeInkPointDataTimeInfo(int nDeviceType, Pointer pInkPointDataTimeInfo);
    void KVM450_FreeInkPointDataTimeInfo(int nDeviceType, Pointer pInkPointDataTimeInfo);

    /**
     * Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
     *
     * @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.
     */
    int KVS210_SetSaveClipImageMargin(int nDeviceType, boolean bClipImage, int nClipMarginX, int nClipMarginY);
    int KVS300_SetSaveClipImageMargin(int nDeviceType, boolean bClipImage, int nClipMarginX, int nClipMarginY);
    int KVS310X_SetSaveClipImageMargin(int nDeviceType, boolean bClipImage, int nClipMarginX, int nClipMarginY);
    int KVR800_SetSaveClipImageMargin(int nDeviceType, boolean bClipImage, int nClipMarginX, int nClipMarginY);
    int KVM450_SetSaveClipImageMargin(int nDeviceType, boolean bClipImage, int nClipMarginX, int nClipMarginY);

    /**
     * Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails leaves it
     * as it was, unless it is a link, another user's or in a folder that takes no new file: such a one is written in
     * place.
     *
     * @param nImageTypeID IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes
     *     white transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew.
     * @param pImageFilePath zero-terminated, one code point per wchar_t.
     * @param nDPILevel 0 means 150 dots per inch, any other value 300.
     * @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when
     *     the file could not be written (an SVG that could not be written is not noticed, nor a disk that is full
     *     before a PDF's end); ARI_FAIL without an instance.
     */
    int KVS210_SaveDrawingImage(int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);
    int KVS300_SaveDrawingImage(int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);
    int KVS310X_SaveDrawingImage(int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);
    int KVR800_SaveDrawingImage(int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);
    int KVM450_SaveDrawingImage(int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);

    /**
     * The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
     *
     * @return a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
     *     instance or for another type.
     */
    Pointer KVS210_Base64Encode(int nDeviceType, int nImageTypeID);
    Pointer KVS300_Base64Encode(int nDeviceType, int nImageTypeID);
    Pointer KVS310X_Base64Encode(int nDeviceType, int nImageTypeID);
    Pointer KVR800_Base64Encode(int nDeviceType, int nImageTypeID);
    Pointer KVM450_Base64Encode(int nDeviceType, int nImageTypeID);

    /** Frees a text of Base64Encode; null is ignored. Needs the instance. */
    void KVS210_Base64EncodeFree(int nDeviceType, Pointer pEncodedData);
    void KVS300_Base64EncodeFree(int nDeviceType, Pointer pEncodedData);
    void KVS310X_Base64EncodeFree(int nDeviceType, Pointer pEncodedData);
    void KVR800_Base64EncodeFree(int nDeviceType, Pointer pEncodedData);
    void KVM450_Base64EncodeFree(int nDeviceType, Pointer pEncodedData);

    /** Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree. */
    Pointer KVS210_Base64EncodeEx(int nDeviceType, int nImageTypeID, boolean bEnableTransparentBackground);
    Pointer KVS300_Base64EncodeEx(int nDeviceType, int nImageTypeID, boolean bEnableTransparentBackground);
    Pointer KVS310X_Base64EncodeEx(int nDeviceType, int nImageTypeID, boolean bEnableTransparentBackground);
    Pointer KVR800_Base64EncodeEx(int nDeviceType, int nImageTypeID, boolean bEnableTransparentBackground);
    Pointer KVM450_Base64EncodeEx(int nDeviceType, int nImageTypeID, boolean bEnableTransparentBackground);

    /** Frees a text of Base64EncodeEx; null is ignored. Needs the instance. */
    void KVS210_Base64EncodeExFree(int nDeviceType, Pointer pEncodedData);
    void KVS300_Base64EncodeExFree(int nDeviceType, Pointer pEncodedData);
    void KVS310X_Base64EncodeExFree(int nDeviceType, Pointer pEncodedData);
    void KVR800_Base64EncodeExFree(int nDeviceType, Pointer pEncodedData);
    void KVM450_Base64EncodeExFree(int nDeviceType, Pointer pEncodedData);

    /**
     * The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and stays.
     *
     * @return a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or
     *     instance.
     */
    Pointer KVS210_GetSVGImageBase64Data(int nDeviceType);
    Pointer KVS300_GetSVGImageBase64Data(int nDeviceType);
    Pointer KVS310X_GetSVGImageBase64Data(int nDeviceType);
    Pointer KVR800_GetSVGImageBase64Data(int nDeviceType);
    Pointer KVM450_GetSVGImageBase64Data(int nDeviceType);

    /** Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance. */
    void KVS210_FreeSVGImageBase64Data(int nDeviceType, Pointer pEncodedData);
    void KVS300_FreeSVGImageBase64Data(int nDeviceType, Pointer pEncodedData);
    void KVS310X_FreeSVGImageBase64Data(int nDeviceType, Pointer pEncodedData);
    void KVR800_FreeSVGImageBase64Data(int nDeviceType, Pointer pEncodedData);
    void KVM450_FreeSVGImageBase64Data(int nDeviceType, Pointer pEncodedData);

    /**
     * Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into decoded
     * points for the two functions below. Any earlier decoded points are gone. Characters outside the alphabet are
     * skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for what would cost too
     * much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG or BMP of more than 16
     * million pixels that has less than a byte for 1000 of them.
     *
     * @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does
     *     not load in its format or cannot be written; ARI_FAIL without an instance.
     */
    int KVS210_Base64Decode(int nDeviceType, int nImageTypeID, String pEncodedData, byte[] pImageFilePath);
    int KVS300_Base64Decode(int nDeviceType, int nImageTypeID, String pEncodedData, byte[] pImageFilePath);
    int KVS310X_Base64Decode(int nDeviceType, int nImageTypeID, String pEncodedData, byte[] pImageFilePath);
    int KVR800_Base64Decode(int nDeviceType, int nImageTypeID, String pEncodedData, byte[] pImageFilePath);
    int KVM450_Base64Decode(int nDeviceType, int nImageTypeID, String pEncodedData, byte[] pImageFilePath);

    /**
     * Number of decoded points.
     *
     * @return above 0; ARI_INK_EMPTY for none, and without an instance.
     */
    int KVS210_GetTotalDecodeInkPointsNumber(int nDeviceType);
    int KVS300_GetTotalDecodeInkPointsNumber(int nDeviceType);
    int KVS310X_GetTotalDecodeInkPointsNumber(int nDeviceType);
    int KVR800_GetTotalDecodeInkPointsNumber(int nDeviceType);
    int KVM450_GetTotalDecodeInkPointsNumber(int nDeviceType);

    /**
     * One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error code.
     *
     * @return the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without
     *     decoded points; ARI_FAIL without an instance.
     */
    int KVS210_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
    int KVS300_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
    int KVS310X_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
    int KVR800_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);
    int KVM450_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

    /**
     * Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing without
     * them. pParent may be null.
     */
    void KVS210_AboutBox(Pointer pParent);
    void KVS300_AboutBox(Pointer pParent);
    void KVS310X_AboutBox(Pointer pParent);
    void KVR800_AboutBox(Pointer pParent);
    void KVM450_AboutBox(Pointer pParent);

    /** Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored. */
    void KVS210_GetAboutInfo(int nDeviceType, Pointer pOutput);
    void KVS300_GetAboutInfo(int nDeviceType, Pointer pOutput);
    void KVS310X_GetAboutInfo(int nDeviceType, Pointer pOutput);
    void KVR800_GetAboutInfo(int nDeviceType, Pointer pOutput);
    void KVM450_GetAboutInfo(int nDeviceType, Pointer pOutput);

    /**
     * Hands the whole signature to the receiver after every pen movement, as EBITI_JPEG or EBITI_PNG, on the driver's
     * thread; the next packet waits for it. The text is valid until the receiver returns. The receiver may call the
     * library, but for InitialDevice and UnInitialDevice. It stays set as long as the instance lives.
     *
     * @return true; false for another type or nDeviceType, a null receiver or without an instance.
     */
    byte KVS210_SetRealTimeSignBase64DataCallback(
            int nDeviceType, int nType, LiveImageCallback pfnSignBase64DataCallback);

    /**
     * Creates the office canvas of a headless instance, in pixels.
     *
     * @return true; false for a size of 0, another nDeviceType, a widget instance or none.
     */
    byte KVS210_InitialWPSSignCanvas(int nDeviceType, int nWidth, int nHeight);

    /**
     * The signature stretched to the office canvas, as the Base64 text of an EBITI_JPEG or EBITI_PNG (white
     * transparent).
     *
     * @return a new text for WPSBase64EncodeFree, empty without an office canvas; null without ink or headless
     *     instance.
     */
    Pointer KVS210_WPSBase64Encode(int nDeviceType, int nImageTypeID);

    /** Frees a text of WPSBase64Encode; null is ignored. Needs the headless instance. */
    void KVS210_WPSBase64EncodeFree(int nDeviceType, Pointer pEncodedData);

    /**
     * Places the fingerprint. Widget instance: in a rectangle of the signing widget when pParentWidget is its parent,
     * else in a new widget that covers pParentWidget. Headless: on a canvas of nCanvasWidth by nCanvasHeight pixels.
     * The rectangle is in pixels and lies wholly inside that widget or canvas.
     *
     * <p>A new place takes over from the former one. A widget that was replaced stays in its window with its last
     * picture, also after UnInitialDevice; the newest one is hidden and deleted by UnInitialDevice. A refused
     * rectangle takes over too. Later fingerprints are painted into the part of it that lies inside the widget or
     * canvas: on the signing widget in place of the former rectangle, in another window on a new empty widget that is
     * not shown, headless on a new white canvas of 640 by 480 pixels. Only which kind of place was accepted last does
     * not change. Place the fingerprint once more then.
     *
     * @return ARI_SUCCESS; ARI_INVALID_PARAMETERS for a rectangle outside or a null parent; ARI_FAIL without an
     *     instance, and for a new widget without a QApplication or on another thread than pParentWidget's.
     */
    int KVS310X_SetDisplayedFPImageAt(
            int nDeviceType, Pointer pParentWidget, int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int nFPWidth, int nFPHeight);

    /**
     * The picture that carries the fingerprint, as Base64 text of EBITI_BITMAP, EBITI_JPEG or EBITI_PNG (white
     * transparent); bFPImageOnly cuts it to the fingerprint's rectangle.
     *
     * @return a new text for FreeFPImageBase64Data, empty when there is no picture to write: the canvas could not be
     *     had, or the rectangle is empty. Null when a headless instance has accepted no place yet, when the window
     *     that held the newest one is gone, for another type, and without an instance.
     */
    Pointer KVS310X_GetFPImageBase64Data(int nDeviceType, int nImageTypeID, boolean bFPImageOnly);

    /** Frees a text of GetFPImageBase64Data; null is ignored. Needs the instance. */
    void KVS310X_FreeFPImageBase64Data(int nDeviceType, Pointer pFPImageBase64Data);
}
