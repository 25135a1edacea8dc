// Generated from the header by bindings/generate, not to be edited.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Korvane.Signpad
{
    /// <summary>
    /// The library's functions as they are. Texts that it hands out are addresses here, and go back to the function that
    /// frees them; paths are UTF-32 with a closing zero. For everyday use there is <see cref="Pad"/>.
    /// </summary>
    public static class LowLevel
    {
        /// <summary>The version of the header that this was made from.</summary>
        public const string Version = "1.0.5.1";

        private const string Sdk = "libkvsignpadsdk.so.1";

        /// <summary>
        /// One ink point for the caller, in the pad's raw units. The caller fills nIndex, the library the rest.
        /// </summary>
        [StructLayout(LayoutKind.Sequential)]
        public struct InkPointData
        {
            /// <summary>in: zero-based index of the wanted point</summary>
            public int nIndex;
            /// <summary>out: raw x</summary>
            public short nX;
            /// <summary>out: raw y</summary>
            public short nY;
            /// <summary>out: raw pressure</summary>
            public short nPressureValue;
            /// <summary>out: true on the point that closes a stroke</summary>
            [MarshalAs(UnmanagedType.I1)]
            public bool bStrokeEnd;
        }

        /// <summary>One stored ink point: the 24 bytes of an entry of the ink record.</summary>
        [StructLayout(LayoutKind.Sequential)]
        public struct PointData
        {
            /// <summary>raw x</summary>
            public short nX;
            /// <summary>raw y</summary>
            public short nY;
            /// <summary>raw pressure</summary>
            public short nPressureValue;
            /// <summary>true only on the point that closes a stroke</summary>
            [MarshalAs(UnmanagedType.I1)]
            public bool bStrokeEnd;
            /// <summary>milliseconds of the monotonic clock when the point was stored</summary>
            public ulong ulTickCount;
            /// <summary>seconds since the epoch when the point was stored</summary>
            public long pointTime;
        }

        /// <summary>
        /// How an instance maps raw values to its canvas. (The typedef's spelling is the interface's own.)
        /// </summary>
        [StructLayout(LayoutKind.Sequential)]
        public struct SignContext
        {
            /// <summary>canvas width in pixels</summary>
            public int nSignWndWidth;
            /// <summary>canvas height in pixels</summary>
            public int nSignWndHeight;
            /// <summary>raw x that maps to canvas x 0</summary>
            public int nSignRawOffset_X;
            /// <summary>raw y that maps to canvas y 0</summary>
            public int nSignRawOffset_Y;
            /// <summary>canvas pixels per raw x unit</summary>
            public double dblWidthRatioOfSignWndOverSignRaw;
            /// <summary>canvas pixels per raw y unit</summary>
            public double dblHeightRatioOfSignWndOverSignRaw;
            /// <summary>pen width in pixels per raw pressure unit</summary>
            public double dblSignPressureRatio;
        }

        /// <summary>Range of one axis of the pad, in raw units.</summary>
        [StructLayout(LayoutKind.Sequential)]
        public struct Axis
        {
            /// <summary>nAXMin</summary>
            public int nAXMin;
            /// <summary>nAXMax</summary>
            public int nAXMax;
        }

        /// <summary>A version number of two parts.</summary>
        [StructLayout(LayoutKind.Sequential)]
        public struct SdkVersion
        {
            /// <summary>nMajorVersion</summary>
            public int nMajorVersion;
            /// <summary>nMinorVersion</summary>
            public int nMinorVersion;
        }

        /// <summary>
        /// Receives 1 for a tap on the pad's confirm button and 0 for cancel. Called on the driver's thread, with no
        /// lock held. Keep a reference to it for as long as it is set.
        /// </summary>
        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        public delegate void EventCallback(int value);

        /// <summary>
        /// Receives the live signature as a zero-terminated Base64 image, valid until it returns. Called on the
        /// driver's thread, with no lock held. Keep a reference to it for as long as it is set.
        /// </summary>
        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
        public delegate void LiveImageCallback(IntPtr text);

        /// <summary>Colours by name, as 0xRRGGBB.</summary>
        public static readonly IReadOnlyDictionary<string, int> Colors = new Dictionary<string, int>
        {
            { "aqua", 0x00FFFF },
            { "black", 0x000000 },
            { "blue", 0x0000FF },
            { "darkblue", 0x00008B },
            { "darkgreen", 0x006400 },
            { "darkred", 0x8B0000 },
            { "fuchsia", 0xFF00FF },
            { "gray", 0x808080 },
            { "green", 0x008000 },
            { "indigo", 0x4B0082 },
            { "lime", 0x00FF00 },
            { "maroon", 0x800000 },
            { "midnightblue", 0x191970 },
            { "navy", 0x000080 },
            { "olive", 0x808000 },
            { "purple", 0x800080 },
            { "red", 0xFF0000 },
            { "silver", 0xC0C0C0 },
            { "teal", 0x008080 },
            { "white", 0xFFFFFF },
            { "yellow", 0xFFFF00 },
        };

        /// <summary>
        /// Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of it shows
        /// the canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a canvas of nWidth
        /// by nHeight pixels. While an instance is open the call changes nothing and answers true; a program keeps to
        /// one host and one family between InitialDevice and UnInitialDevice. A canvas that cannot be had (sizes of 0,
        /// negative, huge) does not fail the call: the outputs then have nothing to give.
        /// </summary>
        /// <returns>
        /// false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot be
        /// used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread and
        /// of a living QApplication; the library is closed then and the call may be repeated.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVS210_InitialDevice(
            int nDeviceType, IntPtr pParentWidget, int nX, int nY, int nWidth, int nHeight);

        /// <summary>
        /// Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of it shows
        /// the canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a canvas of nWidth
        /// by nHeight pixels. While an instance is open the call changes nothing and answers true; a program keeps to
        /// one host and one family between InitialDevice and UnInitialDevice. A canvas that cannot be had (sizes of 0,
        /// negative, huge) does not fail the call: the outputs then have nothing to give.
        /// </summary>
        /// <returns>
        /// false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot be
        /// used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread and
        /// of a living QApplication; the library is closed then and the call may be repeated.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVS300_InitialDevice(
            int nDeviceType, IntPtr pParentWidget, int nX, int nY, int nWidth, int nHeight);

        /// <summary>
        /// Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of it shows
        /// the canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a canvas of nWidth
        /// by nHeight pixels. While an instance is open the call changes nothing and answers true; a program keeps to
        /// one host and one family between InitialDevice and UnInitialDevice. A canvas that cannot be had (sizes of 0,
        /// negative, huge) does not fail the call: the outputs then have nothing to give.
        /// </summary>
        /// <returns>
        /// false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot be
        /// used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread and
        /// of a living QApplication; the library is closed then and the call may be repeated.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVS310X_InitialDevice(
            int nDeviceType, IntPtr pParentWidget, int nX, int nY, int nWidth, int nHeight);

        /// <summary>
        /// Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of it shows
        /// the canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a canvas of nWidth
        /// by nHeight pixels. While an instance is open the call changes nothing and answers true; a program keeps to
        /// one host and one family between InitialDevice and UnInitialDevice. A canvas that cannot be had (sizes of 0,
        /// negative, huge) does not fail the call: the outputs then have nothing to give.
        /// </summary>
        /// <returns>
        /// false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot be
        /// used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread and
        /// of a living QApplication; the library is closed then and the call may be repeated.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVR800_InitialDevice(
            int nDeviceType, IntPtr pParentWidget, int nX, int nY, int nWidth, int nHeight);

        /// <summary>
        /// Opens the pad and creates the one device instance of the process. With a parent, a QWidget child of it shows
        /// the canvas at nX, nY, nWidth by nHeight pixels; without one the instance is headless with a canvas of nWidth
        /// by nHeight pixels. While an instance is open the call changes nothing and answers true; a program keeps to
        /// one host and one family between InitialDevice and UnInitialDevice. A canvas that cannot be had (sizes of 0,
        /// negative, huge) does not fail the call: the outputs then have nothing to give.
        /// </summary>
        /// <returns>
        /// false when nDeviceType is another family's, the driver "./libkvsignpaddrv.so" (working directory) cannot be
        /// used, the pad is not this model, memory or threads are out, or the parent is not a widget of this thread and
        /// of a living QApplication; the library is closed then and the call may be repeated.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVM450_InitialDevice(
            int nDeviceType, IntPtr pParentWidget, int nX, int nY, int nWidth, int nHeight);

        /// <summary>
        /// Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after
        /// the QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the
        /// pad, never from a callback. Texts handed out before must be freed before. In a forked child, where the
        /// library's threads are not, it waits for none of them; a widget stays in its window there, which is the
        /// parent's.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_UnInitialDevice(int nDeviceType);

        /// <summary>
        /// Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after
        /// the QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the
        /// pad, never from a callback. Texts handed out before must be freed before. In a forked child, where the
        /// library's threads are not, it waits for none of them; a widget stays in its window there, which is the
        /// parent's.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_UnInitialDevice(int nDeviceType);

        /// <summary>
        /// Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after
        /// the QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the
        /// pad, never from a callback. Texts handed out before must be freed before. In a forked child, where the
        /// library's threads are not, it waits for none of them; a widget stays in its window there, which is the
        /// parent's.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_UnInitialDevice(int nDeviceType);

        /// <summary>
        /// Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after
        /// the QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the
        /// pad, never from a callback. Texts handed out before must be freed before. In a forked child, where the
        /// library's threads are not, it waits for none of them; a widget stays in its window there, which is the
        /// parent's.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_UnInitialDevice(int nDeviceType);

        /// <summary>
        /// Ends the work with the pad and frees the instance (a widget is hidden and deleted by the event loop; after
        /// the QApplication is gone it is neither, and goes with its parent). Call it on the thread that opened the
        /// pad, never from a callback. Texts handed out before must be freed before. In a forked child, where the
        /// library's threads are not, it waits for none of them; a widget stays in its window there, which is the
        /// parent's.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS, also without an instance; ARI_INVALID_PARAMETERS for another family's nDeviceType.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_UnInitialDevice(int nDeviceType);

        /// <summary>Switches the pad's screen on or off; off also clears the canvas (stored points stay).</summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_OpenLCD(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bOn);

        /// <summary>Switches the pad's screen on or off; off also clears the canvas (stored points stay).</summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_OpenLCD(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bOn);

        /// <summary>Switches the pad's screen on or off; off also clears the canvas (stored points stay).</summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_OpenLCD(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bOn);

        /// <summary>
        /// Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay).
        /// After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_Clear(int nDeviceType);

        /// <summary>
        /// Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay).
        /// After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_Clear(int nDeviceType);

        /// <summary>
        /// Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay).
        /// After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_Clear(int nDeviceType);

        /// <summary>
        /// Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay).
        /// After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_Clear(int nDeviceType);

        /// <summary>
        /// Empties the pad's screen, the canvas and the stored points, and switches clipping off (the margins stay).
        /// After a tap on cancel the pad has cleared itself: the first call then leaves the driver alone and answers 0.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_Clear(int nDeviceType);

        /// <summary>
        /// Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero included.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetHWPenID(int nDeviceType, byte[] pPenID, int nMaxCount);

        /// <summary>
        /// Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero included.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetHWPenID(int nDeviceType, byte[] pPenID, int nMaxCount);

        /// <summary>
        /// Asks the driver for the pen's identifier: at most nMaxCount bytes into the caller's buffer, zero included.
        /// </summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetHWPenID(int nDeviceType, byte[] pPenID, int nMaxCount);

        /// <summary>Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);

        /// <summary>Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);

        /// <summary>Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);

        /// <summary>Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);

        /// <summary>Asks the driver for the pad's identifier, as GetHWPenID does for the pen's.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetHWPadID(int nDeviceType, byte[] pPadID, int nMaxCount);

        /// <summary>Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);

        /// <summary>Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);

        /// <summary>Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);

        /// <summary>Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);

        /// <summary>Asks the driver for the pad's version text, as GetHWPenID does for the pen's identifier.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetHWVersion(int nDeviceType, byte[] pVersion, int nMaxCount);

        /// <summary>Shows or hides version information on the pad's screen.</summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_DisplayHWVersion(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bOn);

        /// <summary>Shows or hides version information on the pad's screen.</summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_DisplayHWVersion(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bOn);

        /// <summary>Shows or hides version information on the pad's screen.</summary>
        /// <returns>
        /// the driver's result; ARI_FAIL without an instance or when the driver has no such operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_DisplayHWVersion(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bOn);

        /// <summary>
        /// Writes one item about the pad into pOutput, from the library's own knowledge of the model.
        /// </summary>
        /// <remarks>
        /// nIndex: a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetDeviceInfo(int nDeviceType, int nIndex, IntPtr pOutput);

        /// <summary>
        /// Writes one item about the pad into pOutput, from the library's own knowledge of the model.
        /// </summary>
        /// <remarks>
        /// nIndex: a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetDeviceInfo(int nDeviceType, int nIndex, IntPtr pOutput);

        /// <summary>
        /// Writes one item about the pad into pOutput, from the library's own knowledge of the model.
        /// </summary>
        /// <remarks>
        /// nIndex: a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetDeviceInfo(int nDeviceType, int nIndex, IntPtr pOutput);

        /// <summary>
        /// Writes one item about the pad into pOutput, from the library's own knowledge of the model.
        /// </summary>
        /// <remarks>
        /// nIndex: a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetDeviceInfo(int nDeviceType, int nIndex, IntPtr pOutput);

        /// <summary>
        /// Writes one item about the pad into pOutput, from the library's own knowledge of the model.
        /// </summary>
        /// <remarks>
        /// nIndex: a GET_DEVICE_INFO_ID_LIST value, which says what is written; the caller's buffer must hold it.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another index or a null pOutput; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetDeviceInfo(int nDeviceType, int nIndex, IntPtr pOutput);

        /// <summary>Lets the stroke width follow the pressure (true, the default) or keeps it fixed.</summary>
        /// <returns>
        /// the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_SetPenStyle(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bPressureOn);

        /// <summary>Lets the stroke width follow the pressure (true, the default) or keeps it fixed.</summary>
        /// <returns>
        /// the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_SetPenStyle(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bPressureOn);

        /// <summary>Lets the stroke width follow the pressure (true, the default) or keeps it fixed.</summary>
        /// <returns>
        /// the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SetPenStyle(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bPressureOn);

        /// <summary>Lets the stroke width follow the pressure (true, the default) or keeps it fixed.</summary>
        /// <returns>
        /// the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_SetPenStyle(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bPressureOn);

        /// <summary>Lets the stroke width follow the pressure (true, the default) or keeps it fixed.</summary>
        /// <returns>
        /// the driver's result on pads with a screen, else ARI_SUCCESS; ARI_FAIL without an instance or operation.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_SetPenStyle(int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bPressureOn);

        /// <summary>Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_SetPenWidth(int nDeviceType, int nPenWidth);

        /// <summary>Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_SetPenWidth(int nDeviceType, int nPenWidth);

        /// <summary>Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SetPenWidth(int nDeviceType, int nPenWidth);

        /// <summary>Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_SetPenWidth(int nDeviceType, int nPenWidth);

        /// <summary>Sets the pen's width level for strokes to come, 1 to 10 (3 at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS outside 1 to 10; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_SetPenWidth(int nDeviceType, int nPenWidth);

        /// <summary>Sets the colour of strokes to come, 0 to 255 each (black at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_SetPenColor(int nDeviceType, int nR, int nG, int nB);

        /// <summary>Sets the colour of strokes to come, 0 to 255 each (black at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_SetPenColor(int nDeviceType, int nR, int nG, int nB);

        /// <summary>Sets the colour of strokes to come, 0 to 255 each (black at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SetPenColor(int nDeviceType, int nR, int nG, int nB);

        /// <summary>Sets the colour of strokes to come, 0 to 255 each (black at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_SetPenColor(int nDeviceType, int nR, int nG, int nB);

        /// <summary>Sets the colour of strokes to come, 0 to 255 each (black at the start).</summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_SetPenColor(int nDeviceType, int nR, int nG, int nB);

        /// <summary>
        /// Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on
        /// the driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);

        /// <summary>
        /// Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on
        /// the driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);

        /// <summary>
        /// Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on
        /// the driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);

        /// <summary>
        /// Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on
        /// the driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);

        /// <summary>
        /// Sets the receiver of taps on the pad's confirm (1) and cancel (0) buttons; null switches it off. It runs on
        /// the driver's thread with no lock held and may call the library, but for InitialDevice and UnInitialDevice.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_SignPadEventCallback(int nDeviceType, EventCallback pfnSignPadEventCallback);

        /// <summary>
        /// Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an
        /// instance).
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

        /// <summary>
        /// Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an
        /// instance).
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

        /// <summary>
        /// Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an
        /// instance).
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

        /// <summary>
        /// Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an
        /// instance).
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

        /// <summary>
        /// Answers the last tap once: 1 confirm, 0 cancel, -1 none since the last call (also ARI_FAIL without an
        /// instance).
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetDeviceConfirmOrCancelKeyStatus(int nDeviceType);

        /// <summary>Number of stored ink points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetTotalInkPointsNumber(int nDeviceType);

        /// <summary>Number of stored ink points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetTotalInkPointsNumber(int nDeviceType);

        /// <summary>Number of stored ink points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetTotalInkPointsNumber(int nDeviceType);

        /// <summary>Number of stored ink points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetTotalInkPointsNumber(int nDeviceType);

        /// <summary>Number of stored ink points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetTotalInkPointsNumber(int nDeviceType);

        /// <summary>
        /// Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
        /// although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd
        /// set.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetInkPointData(int nDeviceType, ref InkPointData currentInkPoint);

        /// <summary>
        /// Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
        /// although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd
        /// set.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetInkPointData(int nDeviceType, ref InkPointData currentInkPoint);

        /// <summary>
        /// Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
        /// although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd
        /// set.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetInkPointData(int nDeviceType, ref InkPointData currentInkPoint);

        /// <summary>
        /// Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
        /// although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd
        /// set.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetInkPointData(int nDeviceType, ref InkPointData currentInkPoint);

        /// <summary>
        /// Fills the caller's record with the point at its nIndex (zero-based), in raw units. The record is written
        /// although the parameter is declared const. A stroke ends with a copy of its last point that has bStrokeEnd
        /// set.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_FAIL, and the record as it was, for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetInkPointData(int nDeviceType, ref InkPointData currentInkPoint);

        /// <summary>
        /// The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock
        /// of their own and are not in step with the seconds).
        /// </summary>
        /// <returns>
        /// a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS210_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

        /// <summary>
        /// The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock
        /// of their own and are not in step with the seconds).
        /// </summary>
        /// <returns>
        /// a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS300_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

        /// <summary>
        /// The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock
        /// of their own and are not in step with the seconds).
        /// </summary>
        /// <returns>
        /// a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS310X_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

        /// <summary>
        /// The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock
        /// of their own and are not in step with the seconds).
        /// </summary>
        /// <returns>
        /// a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVR800_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

        /// <summary>
        /// The local time at which a point was stored, as "2024-03-05 14:07:09.789" (the milliseconds come from a clock
        /// of their own and are not in step with the seconds).
        /// </summary>
        /// <returns>
        /// a new text for FreeInkPointDataTimeInfo; null for an index out of range or without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVM450_GetInkPointDataTimeInfo(int nDeviceType, int nIndex);

        /// <summary>Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_FreeInkPointDataTimeInfo(int nDeviceType, IntPtr pInkPointDataTimeInfo);

        /// <summary>Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS300_FreeInkPointDataTimeInfo(int nDeviceType, IntPtr pInkPointDataTimeInfo);

        /// <summary>Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_FreeInkPointDataTimeInfo(int nDeviceType, IntPtr pInkPointDataTimeInfo);

        /// <summary>Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVR800_FreeInkPointDataTimeInfo(int nDeviceType, IntPtr pInkPointDataTimeInfo);

        /// <summary>Frees a text of GetInkPointDataTimeInfo; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVM450_FreeInkPointDataTimeInfo(int nDeviceType, IntPtr pInkPointDataTimeInfo);

        /// <summary>
        /// Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_SetSaveClipImageMargin(
            int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bClipImage, int nClipMarginX, int nClipMarginY);

        /// <summary>
        /// Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_SetSaveClipImageMargin(
            int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bClipImage, int nClipMarginX, int nClipMarginY);

        /// <summary>
        /// Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SetSaveClipImageMargin(
            int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bClipImage, int nClipMarginX, int nClipMarginY);

        /// <summary>
        /// Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_SetSaveClipImageMargin(
            int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bClipImage, int nClipMarginX, int nClipMarginY);

        /// <summary>
        /// Cuts later outputs to the inked area plus margins in canvas pixels; two margins of 0 switch the cut off.
        /// </summary>
        /// <returns>ARI_SUCCESS; ARI_INVALID_PARAMETERS for a negative margin; ARI_FAIL without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_SetSaveClipImageMargin(
            int nDeviceType, [MarshalAs(UnmanagedType.I1)] bool bClipImage, int nClipMarginX, int nClipMarginY);

        /// <summary>
        /// Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails
        /// leaves it as it was, unless it is a link, another user's or in a folder that takes no new file: such a one
        /// is written in place.
        /// </summary>
        /// <remarks>
        /// nImageTypeID: IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes white
        /// transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew. pImageFilePath: zero-
        /// terminated, one code point per wchar_t. nDPILevel: 0 means 150 dots per inch, any other value 300.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when the
        /// file could not be written (an SVG that could not be written is not noticed, nor a disk that is full before a
        /// PDF's end); ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_SaveDrawingImage(
            int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);

        /// <summary>
        /// Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails
        /// leaves it as it was, unless it is a link, another user's or in a folder that takes no new file: such a one
        /// is written in place.
        /// </summary>
        /// <remarks>
        /// nImageTypeID: IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes white
        /// transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew. pImageFilePath: zero-
        /// terminated, one code point per wchar_t. nDPILevel: 0 means 150 dots per inch, any other value 300.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when the
        /// file could not be written (an SVG that could not be written is not noticed, nor a disk that is full before a
        /// PDF's end); ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_SaveDrawingImage(
            int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);

        /// <summary>
        /// Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails
        /// leaves it as it was, unless it is a link, another user's or in a folder that takes no new file: such a one
        /// is written in place.
        /// </summary>
        /// <remarks>
        /// nImageTypeID: IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes white
        /// transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew. pImageFilePath: zero-
        /// terminated, one code point per wchar_t. nDPILevel: 0 means 150 dots per inch, any other value 300.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when the
        /// file could not be written (an SVG that could not be written is not noticed, nor a disk that is full before a
        /// PDF's end); ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SaveDrawingImage(
            int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);

        /// <summary>
        /// Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails
        /// leaves it as it was, unless it is a link, another user's or in a folder that takes no new file: such a one
        /// is written in place.
        /// </summary>
        /// <remarks>
        /// nImageTypeID: IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes white
        /// transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew. pImageFilePath: zero-
        /// terminated, one code point per wchar_t. nDPILevel: 0 means 150 dots per inch, any other value 300.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when the
        /// file could not be written (an SVG that could not be written is not noticed, nor a disk that is full before a
        /// PDF's end); ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_SaveDrawingImage(
            int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);

        /// <summary>
        /// Writes the signature to a file. An earlier file of that name is replaced as a whole; a save that fails
        /// leaves it as it was, unless it is a link, another user's or in a folder that takes no new file: such a one
        /// is written in place.
        /// </summary>
        /// <remarks>
        /// nImageTypeID: IMAGE_TYPE_ID. For BMP, JPEG and PNG the path's suffix chooses the format; ITI_PNG makes white
        /// transparent. PDF puts the picture on an A4 page, SVG draws the stored points anew. pImageFilePath: zero-
        /// terminated, one code point per wchar_t. nDPILevel: 0 means 150 dots per inch, any other value 300.
        /// </remarks>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type; ARI_INK_EMPTY without ink, without memory or when the
        /// file could not be written (an SVG that could not be written is not noticed, nor a disk that is full before a
        /// PDF's end); ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_SaveDrawingImage(
            int nDeviceType, int nImageTypeID, byte[] pImageFilePath, int nDPILevel);

        /// <summary>
        /// The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
        /// </summary>
        /// <returns>
        /// a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
        /// instance or for another type.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS210_Base64Encode(int nDeviceType, int nImageTypeID);

        /// <summary>
        /// The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
        /// </summary>
        /// <returns>
        /// a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
        /// instance or for another type.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS300_Base64Encode(int nDeviceType, int nImageTypeID);

        /// <summary>
        /// The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
        /// </summary>
        /// <returns>
        /// a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
        /// instance or for another type.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS310X_Base64Encode(int nDeviceType, int nImageTypeID);

        /// <summary>
        /// The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
        /// </summary>
        /// <returns>
        /// a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
        /// instance or for another type.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVR800_Base64Encode(int nDeviceType, int nImageTypeID);

        /// <summary>
        /// The signature as a Base64 text: EBITI_BITMAP, EBITI_JPEG, EBITI_PNG (white transparent) or EBITI_INK.
        /// </summary>
        /// <returns>
        /// a new text for Base64EncodeFree, empty when the image could not be written; null without ink, without an
        /// instance or for another type.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVM450_Base64Encode(int nDeviceType, int nImageTypeID);

        /// <summary>Frees a text of Base64Encode; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_Base64EncodeFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64Encode; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS300_Base64EncodeFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64Encode; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_Base64EncodeFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64Encode; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVR800_Base64EncodeFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64Encode; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVM450_Base64EncodeFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>
        /// Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS210_Base64EncodeEx(
            int nDeviceType, int nImageTypeID, [MarshalAs(UnmanagedType.I1)] bool bEnableTransparentBackground);

        /// <summary>
        /// Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS300_Base64EncodeEx(
            int nDeviceType, int nImageTypeID, [MarshalAs(UnmanagedType.I1)] bool bEnableTransparentBackground);

        /// <summary>
        /// Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS310X_Base64EncodeEx(
            int nDeviceType, int nImageTypeID, [MarshalAs(UnmanagedType.I1)] bool bEnableTransparentBackground);

        /// <summary>
        /// Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVR800_Base64EncodeEx(
            int nDeviceType, int nImageTypeID, [MarshalAs(UnmanagedType.I1)] bool bEnableTransparentBackground);

        /// <summary>
        /// Base64Encode with the choice whether a PNG's white becomes transparent. Free it with Base64EncodeExFree.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVM450_Base64EncodeEx(
            int nDeviceType, int nImageTypeID, [MarshalAs(UnmanagedType.I1)] bool bEnableTransparentBackground);

        /// <summary>Frees a text of Base64EncodeEx; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_Base64EncodeExFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64EncodeEx; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS300_Base64EncodeExFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64EncodeEx; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_Base64EncodeExFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64EncodeEx; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVR800_Base64EncodeExFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of Base64EncodeEx; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVM450_Base64EncodeExFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>
        /// The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and
        /// stays.
        /// </summary>
        /// <returns>
        /// a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS210_GetSVGImageBase64Data(int nDeviceType);

        /// <summary>
        /// The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and
        /// stays.
        /// </summary>
        /// <returns>
        /// a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS300_GetSVGImageBase64Data(int nDeviceType);

        /// <summary>
        /// The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and
        /// stays.
        /// </summary>
        /// <returns>
        /// a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS310X_GetSVGImageBase64Data(int nDeviceType);

        /// <summary>
        /// The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and
        /// stays.
        /// </summary>
        /// <returns>
        /// a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVR800_GetSVGImageBase64Data(int nDeviceType);

        /// <summary>
        /// The signature as the Base64 text of an SVG file; the file "/tmp/KVeSign.svg" is written on the way and
        /// stays.
        /// </summary>
        /// <returns>
        /// a new text for FreeSVGImageBase64Data, empty when the file could not be had; null without ink or instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVM450_GetSVGImageBase64Data(int nDeviceType);

        /// <summary>Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_FreeSVGImageBase64Data(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS300_FreeSVGImageBase64Data(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_FreeSVGImageBase64Data(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVR800_FreeSVGImageBase64Data(int nDeviceType, IntPtr pEncodedData);

        /// <summary>Frees a text of GetSVGImageBase64Data; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVM450_FreeSVGImageBase64Data(int nDeviceType, IntPtr pEncodedData);

        /// <summary>
        /// Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into
        /// decoded points for the two functions below. Any earlier decoded points are gone. Characters outside the
        /// alphabet are skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for
        /// what would cost too much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG
        /// or BMP of more than 16 million pixels that has less than a byte for 1000 of them.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does not
        /// load in its format or cannot be written; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_Base64Decode(
            int nDeviceType, int nImageTypeID, byte[] pEncodedData, byte[] pImageFilePath);

        /// <summary>
        /// Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into
        /// decoded points for the two functions below. Any earlier decoded points are gone. Characters outside the
        /// alphabet are skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for
        /// what would cost too much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG
        /// or BMP of more than 16 million pixels that has less than a byte for 1000 of them.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does not
        /// load in its format or cannot be written; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_Base64Decode(
            int nDeviceType, int nImageTypeID, byte[] pEncodedData, byte[] pImageFilePath);

        /// <summary>
        /// Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into
        /// decoded points for the two functions below. Any earlier decoded points are gone. Characters outside the
        /// alphabet are skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for
        /// what would cost too much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG
        /// or BMP of more than 16 million pixels that has less than a byte for 1000 of them.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does not
        /// load in its format or cannot be written; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_Base64Decode(
            int nDeviceType, int nImageTypeID, byte[] pEncodedData, byte[] pImageFilePath);

        /// <summary>
        /// Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into
        /// decoded points for the two functions below. Any earlier decoded points are gone. Characters outside the
        /// alphabet are skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for
        /// what would cost too much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG
        /// or BMP of more than 16 million pixels that has less than a byte for 1000 of them.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does not
        /// load in its format or cannot be written; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_Base64Decode(
            int nDeviceType, int nImageTypeID, byte[] pEncodedData, byte[] pImageFilePath);

        /// <summary>
        /// Turns a text back: an image text into a file of that format at the path, an ink record (EBITI_INK) into
        /// decoded points for the two functions below. Any earlier decoded points are gone. Characters outside the
        /// alphabet are skipped. Of images all that Qt loads is written, a JPEG or BMP that is cut off too, but for
        /// what would cost too much: more pixels than any canvas has (2^29), a JPEG of more than 100 scans, and a JPEG
        /// or BMP of more than 16 million pixels that has less than a byte for 1000 of them.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for another type or an empty text; ARI_INK_EMPTY when the image does not
        /// load in its format or cannot be written; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_Base64Decode(
            int nDeviceType, int nImageTypeID, byte[] pEncodedData, byte[] pImageFilePath);

        /// <summary>Number of decoded points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetTotalDecodeInkPointsNumber(int nDeviceType);

        /// <summary>Number of decoded points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetTotalDecodeInkPointsNumber(int nDeviceType);

        /// <summary>Number of decoded points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetTotalDecodeInkPointsNumber(int nDeviceType);

        /// <summary>Number of decoded points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetTotalDecodeInkPointsNumber(int nDeviceType);

        /// <summary>Number of decoded points.</summary>
        /// <returns>above 0; ARI_INK_EMPTY for none, and without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetTotalDecodeInkPointsNumber(int nDeviceType);

        /// <summary>
        /// One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error
        /// code.
        /// </summary>
        /// <returns>
        /// the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without decoded
        /// points; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS210_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

        /// <summary>
        /// One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error
        /// code.
        /// </summary>
        /// <returns>
        /// the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without decoded
        /// points; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS300_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

        /// <summary>
        /// One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error
        /// code.
        /// </summary>
        /// <returns>
        /// the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without decoded
        /// points; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

        /// <summary>
        /// One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error
        /// code.
        /// </summary>
        /// <returns>
        /// the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without decoded
        /// points; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVR800_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

        /// <summary>
        /// One field of a decoded point: x, y or stroke end (GET_INK_DATA_TYPE_ID). A coordinate may equal an error
        /// code.
        /// </summary>
        /// <returns>
        /// the value; ARI_INVALID_PARAMETERS for another field or an index out of range; ARI_INK_EMPTY without decoded
        /// points; ARI_FAIL without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVM450_GetDecodeInkPointData(int nDeviceType, int nIndex, int nTypeID);

        /// <summary>
        /// Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing
        /// without them. pParent may be null.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_AboutBox(IntPtr pParent);

        /// <summary>
        /// Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing
        /// without them. pParent may be null.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS300_AboutBox(IntPtr pParent);

        /// <summary>
        /// Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing
        /// without them. pParent may be null.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_AboutBox(IntPtr pParent);

        /// <summary>
        /// Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing
        /// without them. pParent may be null.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVR800_AboutBox(IntPtr pParent);

        /// <summary>
        /// Shows the about box, modal, until the user closes it. Needs a QApplication and its thread: shows nothing
        /// without them. pParent may be null.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVM450_AboutBox(IntPtr pParent);

        /// <summary>
        /// Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_GetAboutInfo(int nDeviceType, IntPtr pOutput);

        /// <summary>
        /// Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS300_GetAboutInfo(int nDeviceType, IntPtr pOutput);

        /// <summary>
        /// Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_GetAboutInfo(int nDeviceType, IntPtr pOutput);

        /// <summary>
        /// Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVR800_GetAboutInfo(int nDeviceType, IntPtr pOutput);

        /// <summary>
        /// Writes the library's name, version and maker as text; pOutput holds at least 128 bytes. Null is ignored.
        /// </summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVM450_GetAboutInfo(int nDeviceType, IntPtr pOutput);

        /// <summary>
        /// Hands the whole signature to the receiver after every pen movement, as EBITI_JPEG or EBITI_PNG, on the
        /// driver's thread; the next packet waits for it. The text is valid until the receiver returns. The receiver
        /// may call the library, but for InitialDevice and UnInitialDevice. It stays set as long as the instance lives.
        /// </summary>
        /// <returns>true; false for another type or nDeviceType, a null receiver or without an instance.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVS210_SetRealTimeSignBase64DataCallback(
            int nDeviceType, int nType, LiveImageCallback pfnSignBase64DataCallback);

        /// <summary>Creates the office canvas of a headless instance, in pixels.</summary>
        /// <returns>true; false for a size of 0, another nDeviceType, a widget instance or none.</returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        [return: MarshalAs(UnmanagedType.I1)]
        public static extern bool KVS210_InitialWPSSignCanvas(int nDeviceType, int nWidth, int nHeight);

        /// <summary>
        /// The signature stretched to the office canvas, as the Base64 text of an EBITI_JPEG or EBITI_PNG (white
        /// transparent).
        /// </summary>
        /// <returns>
        /// a new text for WPSBase64EncodeFree, empty without an office canvas; null without ink or headless instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS210_WPSBase64Encode(int nDeviceType, int nImageTypeID);

        /// <summary>Frees a text of WPSBase64Encode; null is ignored. Needs the headless instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS210_WPSBase64EncodeFree(int nDeviceType, IntPtr pEncodedData);

        /// <summary>
        /// Places the fingerprint. Widget instance: in a rectangle of the signing widget when pParentWidget is its
        /// parent, else in a new widget that covers pParentWidget. Headless: on a canvas of nCanvasWidth by
        /// nCanvasHeight pixels. The rectangle is in pixels and lies wholly inside that widget or canvas. A new place
        /// takes over from the former one. A widget that was replaced stays in its window with its last picture, also
        /// after UnInitialDevice; the newest one is hidden and deleted by UnInitialDevice. A refused rectangle takes
        /// over too. Later fingerprints are painted into the part of it that lies inside the widget or canvas: on the
        /// signing widget in place of the former rectangle, in another window on a new empty widget that is not shown,
        /// headless on a new white canvas of 640 by 480 pixels. Only which kind of place was accepted last does not
        /// change. Place the fingerprint once more then.
        /// </summary>
        /// <returns>
        /// ARI_SUCCESS; ARI_INVALID_PARAMETERS for a rectangle outside or a null parent; ARI_FAIL without an instance,
        /// and for a new widget without a QApplication or on another thread than pParentWidget's.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern int KVS310X_SetDisplayedFPImageAt(
            int nDeviceType, IntPtr pParentWidget, int nCanvasWidth, int nCanvasHeight, int nFPLeft, int nFPTop, int
            nFPWidth, int nFPHeight);

        /// <summary>
        /// The picture that carries the fingerprint, as Base64 text of EBITI_BITMAP, EBITI_JPEG or EBITI_PNG (white
        /// transparent); bFPImageOnly cuts it to the fingerprint's rectangle.
        /// </summary>
        /// <returns>
        /// a new text for FreeFPImageBase64Data, empty when there is no picture to write: the canvas could not be had,
        /// or the rectangle is empty. Null when a headless instance has accepted no place yet, when the window that
        /// held the newest one is gone, for another type, and without an instance.
        /// </returns>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern IntPtr KVS310X_GetFPImageBase64Data(
            int nDeviceType, int nImageTypeID, [MarshalAs(UnmanagedType.I1)] bool bFPImageOnly);

        /// <summary>Frees a text of GetFPImageBase64Data; null is ignored. Needs the instance.</summary>
        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]
        public static extern void KVS310X_FreeFPImageBase64Data(int nDeviceType, IntPtr pFPImageBase64Data);
    }

    /// <summary>Result of the functions that return int. -1 to -7 equal KVSPDAPI_RETURN_ID value for value.</summary>
    public enum ReturnCode
    {
        /// <summary>done</summary>
        Success = 0,
        /// <summary>general failure; also: no device instance is open</summary>
        Fail = -1,
        /// <summary>wrong device type for the family, or an argument out of range</summary>
        InvalidParameters = -2,
        /// <summary>the driver could not initialise USB access</summary>
        DriverInitFail = -3,
        /// <summary>the driver could not open the pad</summary>
        DriverOpenDeviceFail = -4,
        /// <summary>the driver could not claim the pad's USB interface</summary>
        DriverClaimInterfaceFail = -5,
        /// <summary>the driver could not start its reading thread</summary>
        DriverCreateThreadFail = -6,
        /// <summary>the driver could not send a command to the pad</summary>
        DriverSentCmdFail = -7,
        /// <summary>no ink point stored, or no output could be produced</summary>
        InkEmpty = -8,
        /// <summary>never returned; a file that cannot be written is ARI_INK_EMPTY</summary>
        SaveFaile = -9,
    }

    /// <summary>First argument of every function but the about boxes; each family accepts only its own value.</summary>
    public enum DeviceType
    {
        /// <summary>NONE_DEVICE</summary>
        None = 0,
        /// <summary>KVS210_DEVICE</summary>
        S210 = 2,
        /// <summary>KVR800_DEVICE</summary>
        R800 = 3,
        /// <summary>KVM450_DEVICE</summary>
        M450 = 4,
        /// <summary>KVS300_DEVICE</summary>
        S300 = 5,
        /// <summary>KVS310X_DEVICE</summary>
        S310X = 7,
    }

    /// <summary>Kind of Base64 text. The functions say which of the values they accept.</summary>
    public enum EncodedImageType
    {
        /// <summary>EBITI_BITMAP</summary>
        Bitmap = 1,
        /// <summary>EBITI_JPEG</summary>
        Jpeg = 2,
        /// <summary>EBITI_PNG</summary>
        Png = 3,
        /// <summary>the ink record: every stored point with its time</summary>
        Ink = 6,
    }

    /// <summary>Item that GetDeviceInfo answers, with what it writes.</summary>
    public enum DeviceInfoItem
    {
        /// <summary>bool: the pad is connected</summary>
        Status = 1,
        /// <summary>struct _tagKVAXIS</summary>
        AxisX = 2,
        /// <summary>struct _tagKVAXIS</summary>
        AxisY = 3,
        /// <summary>int: largest pressure that the pad reports</summary>
        Pressure = 4,
        /// <summary>zero-terminated text, 8 bytes</summary>
        Vendor = 5,
        /// <summary>zero-terminated text, 6 bytes at most</summary>
        Product = 6,
        /// <summary>struct _tagKVSDKVERSION</summary>
        DriverVersion = 7,
    }

    /// <summary>Field of a decoded ink point that GetDecodeInkPointData answers.</summary>
    public enum InkDataType
    {
        /// <summary>INKDATATYPE_X</summary>
        X = 1,
        /// <summary>INKDATATYPE_Y</summary>
        Y = 2,
        /// <summary>INKDATATYPE_STROKEEND</summary>
        StrokeEnd = 3,
    }

    /// <summary>Resolution of a saved file: IDLI_150DPI means 150 dots per inch, any other value 300.</summary>
    public enum DpiLevel
    {
        /// <summary>IDLI_150DPI</summary>
        Dpi150 = 0,
        /// <summary>IDLI_300DPI</summary>
        Dpi300 = 1,
    }

    /// <summary>File type of SaveDrawingImage.</summary>
    public enum ImageType
    {
        /// <summary>ITI_BITMAP</summary>
        Bitmap = 1,
        /// <summary>ITI_JPEG</summary>
        Jpeg = 2,
        /// <summary>ITI_PNG</summary>
        Png = 3,
        /// <summary>ITI_PDF</summary>
        Pdf = 7,
        /// <summary>ITI_SVG</summary>
        Svg = 8,
    }

    /// <summary>Where an S310X instance places a newly captured fingerprint.</summary>
    public enum FingerprintPlacement
    {
        /// <summary>centred on the signing canvas</summary>
        None = 0,
        /// <summary>in a rectangle of the signing widget</summary>
        SameWidget = 1,
        /// <summary>in a widget of its own</summary>
        DifferentWidget = 2,
        /// <summary>on a canvas of its own, without a widget on the screen</summary>
        OwnCanvas = 3,
    }

    /// <summary>State of the pen in a packet from the pad.</summary>
    public enum PenStatus
    {
        /// <summary>touches the writing area</summary>
        Down = 0,
        /// <summary>moves while touching</summary>
        Move = 1,
        /// <summary>lifted</summary>
        Up = 2,
        /// <summary>KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON</summary>
        Cancel = 3,
        /// <summary>KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON</summary>
        Confirm = 4,
    }

    /// <summary>Result of the pad driver's operations.</summary>
    public enum DriverReturnCode
    {
        /// <summary>KVSPDARI_SUCCESS</summary>
        Success = 0,
        /// <summary>KVSPDARI_FAILED</summary>
        Failed = -1,
        /// <summary>KVSPDART_INVALID_PARAMETERS</summary>
        InvalidParameters = -2,
        /// <summary>KVSPDARI_LIBUSB_INIT_FAIL</summary>
        UsbInitFail = -3,
        /// <summary>KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL</summary>
        UsbOpenDeviceFail = -4,
        /// <summary>KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL</summary>
        UsbClaimInterfaceFail = -5,
        /// <summary>KVSPDARI_LIBUSB_CREATE_THREAD_FAIL</summary>
        UsbCreateThreadFail = -6,
        /// <summary>KVSPDARI_LIBUSB_SENT_CMD_FAIL</summary>
        UsbSentCmdFail = -7,
    }

    /// <summary>The pad models.</summary>
    public enum Model
    {
        /// <summary>With a screen, live images and an office canvas.</summary>
        S210,
        /// <summary>With a screen.</summary>
        S300,
        /// <summary>With a screen and a fingerprint sensor.</summary>
        S310X,
        /// <summary>Without a screen of its own.</summary>
        R800,
        /// <summary>Without a screen of its own.</summary>
        M450,
    }
}
