// An example of each operation, from which the reference takes its listings; the tests compile and run all of it.
#include <kvsignpadsdk_global.h>

#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

static void on_tap(int key)
{
    printf("%s\n", key == 1 ? "confirmed" : "cancelled");
}

static int live_length;
static void on_live_image(char *text)
{
    while (text[live_length] != 0)
        ++live_length;
}

static void wait_for_confirm(int (*status)(int), int type)
{
    int key;
    while ((key = status(type)) < 0)
        usleep(20000);
    if (key != 1)
        exit(3);
}

static void device(void)
{
    //! [InitialDevice]
    if (!KVS300_InitialDevice(KVS300_DEVICE, NULL, 0, 0, 800, 452)) {
        fputs("no S300 pad: is its driver in the working directory?\n", stderr);
        exit(1);
    }
    //! [InitialDevice]
    //! [OpenLCD]
    KVS300_OpenLCD(KVS300_DEVICE, true);
    //! [OpenLCD]
    //! [GetHWPenID]
    char pen[64] = "";
    if (KVS300_GetHWPenID(KVS300_DEVICE, pen, sizeof pen) == ARI_SUCCESS)
        printf("pen %s\n", pen);
    //! [GetHWPenID]
    //! [GetHWPadID]
    char pad[64] = "";
    if (KVS300_GetHWPadID(KVS300_DEVICE, pad, sizeof pad) == ARI_SUCCESS)
        printf("pad %s\n", pad);
    //! [GetHWPadID]
    //! [GetHWVersion]
    char version[128] = "";
    if (KVS300_GetHWVersion(KVS300_DEVICE, version, sizeof version) == ARI_SUCCESS)
        printf("version %s\n", version);
    //! [GetHWVersion]
    //! [DisplayHWVersion]
    KVS300_DisplayHWVersion(KVS300_DEVICE, true);
    KVS300_DisplayHWVersion(KVS300_DEVICE, false);
    //! [DisplayHWVersion]
    //! [GetDeviceInfo]
    int pressure = 0;
    KVS300_GetDeviceInfo(KVS300_DEVICE, DIID_GET_PRESSURE, &pressure);
    bool connected = false;
    KVS300_GetDeviceInfo(KVS300_DEVICE, DIID_GET_STATUS, &connected);
    printf("pressure up to %d, %s\n", pressure, connected ? "connected" : "unplugged");
    //! [GetDeviceInfo]
}

static void capture(void)
{
    //! [SetPenStyle]
    KVS300_SetPenStyle(KVS300_DEVICE, true); // the harder, the wider
    //! [SetPenStyle]
    //! [SetPenWidth]
    KVS300_SetPenWidth(KVS300_DEVICE, 2);
    //! [SetPenWidth]
    //! [SetPenColor]
    KVS300_SetPenColor(KVS300_DEVICE, 0, 0, 128); // navy
    //! [SetPenColor]
    //! [SignPadEventCallback]
    KVS300_SignPadEventCallback(KVS300_DEVICE, on_tap); // on the driver's thread
    //! [SignPadEventCallback]
    //! [GetDeviceConfirmOrCancelKeyStatus]
    int key;
    while ((key = KVS300_GetDeviceConfirmOrCancelKeyStatus(KVS300_DEVICE)) < 0)
        usleep(20000);
    printf("key %d\n", key);
    //! [GetDeviceConfirmOrCancelKeyStatus]
}

static void ink(void)
{
    //! [GetTotalInkPointsNumber]
    const int points = KVS300_GetTotalInkPointsNumber(KVS300_DEVICE);
    if (points < 0)
        puts("nothing was written");
    //! [GetTotalInkPointsNumber]
    //! [GetInkPointData]
    for (int i = 0; i < points; ++i) {
        INKPOINTDATA point = {0};
        point.nIndex = i;
        if (KVS300_GetInkPointData(KVS300_DEVICE, &point) == ARI_SUCCESS && point.bStrokeEnd)
            printf("a stroke ends at %d, %d\n", point.nX, point.nY);
    }
    //! [GetInkPointData]
    //! [GetInkPointDataTimeInfo]
    char *time = KVS300_GetInkPointDataTimeInfo(KVS300_DEVICE, 0);
    if (time != NULL)
        printf("began %s\n", time);
    //! [GetInkPointDataTimeInfo]
    //! [FreeInkPointDataTimeInfo]
    KVS300_FreeInkPointDataTimeInfo(KVS300_DEVICE, time); // while the pad is open
    //! [FreeInkPointDataTimeInfo]
}

static void outputs(void)
{
    //! [SetSaveClipImageMargin]
    KVS300_SetSaveClipImageMargin(KVS300_DEVICE, true, 20, 20); // the ink and 20 pixels around it
    //! [SetSaveClipImageMargin]
    //! [SaveDrawingImage]
    wchar_t path[] = L"signature.png";
    if (KVS300_SaveDrawingImage(KVS300_DEVICE, ITI_PNG, path, IDLI_300DPI) != ARI_SUCCESS)
        fputs("signature.png was not written\n", stderr);
    //! [SaveDrawingImage]
    //! [Base64Encode]
    char *record = KVS300_Base64Encode(KVS300_DEVICE, EBITI_INK);
    //! [Base64Encode]
    if (record == NULL)
        exit(1);
    //! [Base64Decode]
    if (KVS300_Base64Decode(KVS300_DEVICE, EBITI_INK, record, NULL) != ARI_SUCCESS)
        fputs("that is no ink record\n", stderr);
    //! [Base64Decode]
    //! [Base64EncodeFree]
    KVS300_Base64EncodeFree(KVS300_DEVICE, record);
    //! [Base64EncodeFree]
    //! [GetTotalDecodeInkPointsNumber]
    const int decoded = KVS300_GetTotalDecodeInkPointsNumber(KVS300_DEVICE);
    //! [GetTotalDecodeInkPointsNumber]
    //! [GetDecodeInkPointData]
    for (int i = 0; i < decoded; ++i) {
        const int x = KVS300_GetDecodeInkPointData(KVS300_DEVICE, i, INKDATATYPE_X);
        const int y = KVS300_GetDecodeInkPointData(KVS300_DEVICE, i, INKDATATYPE_Y);
        if (i == 0)
            printf("the first of %d decoded points is %d, %d\n", decoded, x, y);
    }
    //! [GetDecodeInkPointData]
    //! [Base64EncodeEx]
    char *opaque = KVS300_Base64EncodeEx(KVS300_DEVICE, EBITI_PNG, false); // white stays white
    //! [Base64EncodeEx]
    //! [Base64EncodeExFree]
    KVS300_Base64EncodeExFree(KVS300_DEVICE, opaque);
    //! [Base64EncodeExFree]
    //! [GetSVGImageBase64Data]
    char *drawing = KVS300_GetSVGImageBase64Data(KVS300_DEVICE);
    //! [GetSVGImageBase64Data]
    //! [FreeSVGImageBase64Data]
    KVS300_FreeSVGImageBase64Data(KVS300_DEVICE, drawing);
    //! [FreeSVGImageBase64Data]
}

static void finish(void)
{
    //! [GetAboutInfo]
    char about[128] = "";
    KVS300_GetAboutInfo(KVS300_DEVICE, about);
    puts(about);
    //! [GetAboutInfo]
    //! [AboutBox]
    KVS300_AboutBox(NULL); // in a program with a QApplication; elsewhere it shows nothing
    //! [AboutBox]
    //! [Clear]
    KVS300_Clear(KVS300_DEVICE); // for the next signature
    //! [Clear]
    //! [UnInitialDevice]
    KVS300_UnInitialDevice(KVS300_DEVICE);
    //! [UnInitialDevice]
}

static void office(void)
{
    if (!KVS210_InitialDevice(KVS210_DEVICE, NULL, 0, 0, 800, 485))
        exit(1);
    //! [SetRealTimeSignBase64DataCallback]
    KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_PNG, on_live_image);
    //! [SetRealTimeSignBase64DataCallback]
    //! [InitialWPSSignCanvas]
    KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 400, 200);
    //! [InitialWPSSignCanvas]
    wait_for_confirm(KVS210_GetDeviceConfirmOrCancelKeyStatus, KVS210_DEVICE);
    //! [WPSBase64Encode]
    char *stretched = KVS210_WPSBase64Encode(KVS210_DEVICE, EBITI_PNG);
    //! [WPSBase64Encode]
    if (stretched == NULL || stretched[0] == 0 || live_length == 0)
        exit(1);
    //! [WPSBase64EncodeFree]
    KVS210_WPSBase64EncodeFree(KVS210_DEVICE, stretched);
    //! [WPSBase64EncodeFree]
    KVS210_UnInitialDevice(KVS210_DEVICE);
}

static void fingerprint(void)
{
    setenv("KVSIM_RECORDING", "signature-finger", 1);
    if (!KVS310X_InitialDevice(KVS310X_DEVICE, NULL, 0, 0, 800, 434))
        exit(1);
    //! [SetDisplayedFPImageAt]
    KVS310X_SetDisplayedFPImageAt(KVS310X_DEVICE, NULL, 640, 480, 20, 20, 104, 144);
    //! [SetDisplayedFPImageAt]
    wait_for_confirm(KVS310X_GetDeviceConfirmOrCancelKeyStatus, KVS310X_DEVICE);
    //! [GetFPImageBase64Data]
    char *finger = KVS310X_GetFPImageBase64Data(KVS310X_DEVICE, EBITI_PNG, true);
    //! [GetFPImageBase64Data]
    if (finger == NULL || finger[0] == 0)
        exit(1);
    //! [FreeFPImageBase64Data]
    KVS310X_FreeFPImageBase64Data(KVS310X_DEVICE, finger);
    //! [FreeFPImageBase64Data]
    KVS310X_UnInitialDevice(KVS310X_DEVICE);
}

int main(void)
{
    device();
    capture();
    ink();
    outputs();
    finish();
    office();
    fingerprint();
    return 0;
}
