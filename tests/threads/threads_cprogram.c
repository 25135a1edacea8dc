/* A program without Qt and without C++: a C program that only has the public header and the shared library. It calls
 * every headless function of every model, with the simulated driver of the working directory, and ends with 0 when all
 * answered as they should. */
#include "kvsignpadsdk_global.h"

#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static int failures = 0;
static const char *model = "";
/* Written on the driver's thread. */
static _Atomic int taps = 0;
static _Atomic int pushes = 0;

#define EXPECT(condition)                                                                                              \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            fprintf(stderr, "%s:%d: %s: %s\n", __FILE__, __LINE__, model, #condition);                                 \
            ++failures;                                                                                                \
        }                                                                                                              \
    } while (0)

static void tapped(int key)
{
    taps += key == 1;
}

static void pushed(char *text)
{
    pushes += text[0] != '\0';
}

static wchar_t *path(const char *directory, const char *name)
{
    static wchar_t text[512];
    swprintf(text, 512, L"%s/%s", directory, name);
    return text;
}

static int startsWith(const char *text, const char *start)
{
    return text != NULL && strncmp(text, start, strlen(start)) == 0;
}

/* A text of a file starts with the file's magic bytes, here already as Base64. */
#define EXPECT_TEXT(family, call, release, start)                                                                      \
    do {                                                                                                               \
        char *text = call;                                                                                             \
        EXPECT(startsWith(text, start));                                                                               \
        family##_##release(family##_DEVICE, text);                                                                     \
    } while (0)

#define EXPECT_SAVED(family, type, name)                                                                               \
    EXPECT(family##_SaveDrawingImage(family##_DEVICE, type, path(directory, name), IDLI_150DPI) == ARI_SUCCESS)

#define WAIT_FOR_THE_SIGNATURE()                                                                                       \
    do {                                                                                                               \
        for (int i = 0; taps == 0 && i < 60000; ++i)                                                                   \
            usleep(1000);                                                                                              \
        EXPECT(taps == 1);                                                                                             \
    } while (0)

#define DEFINE_TRY(family)                                                                                             \
    static void try##family(const char *directory)                                                                     \
    {                                                                                                                  \
        model = #family;                                                                                               \
        taps = 0;                                                                                                      \
        EXPECT(family##_GetTotalInkPointsNumber(family##_DEVICE) == ARI_INK_EMPTY);                                    \
        EXPECT(family##_InitialDevice(family##_DEVICE, NULL, 0, 0, 400, 200));                                         \
        EXPECT(family##_SignPadEventCallback(family##_DEVICE, tapped) == ARI_SUCCESS);                                 \
        EXPECT(family##_SetPenStyle(family##_DEVICE, true) == ARI_SUCCESS);                                            \
        EXPECT(family##_SetPenWidth(family##_DEVICE, 4) == ARI_SUCCESS);                                               \
        EXPECT(family##_SetPenColor(family##_DEVICE, 0, 0, 120) == ARI_SUCCESS);                                       \
        ask##family();                                                                                                 \
        EXPECT(family##_Clear(family##_DEVICE) == ARI_SUCCESS);                                                        \
        WAIT_FOR_THE_SIGNATURE();                                                                                      \
        EXPECT(family##_GetDeviceConfirmOrCancelKeyStatus(family##_DEVICE) == 1);                                      \
        takePoints##family();                                                                                          \
        takeImages##family(directory);                                                                                 \
        EXPECT(family##_UnInitialDevice(family##_DEVICE) == ARI_SUCCESS);                                              \
    }

#define DEFINE_ASK(family)                                                                                             \
    static void ask##family(void)                                                                                      \
    {                                                                                                                  \
        char text[128] = "";                                                                                           \
        bool connected = false;                                                                                        \
        EXPECT(family##_GetHWPadID(family##_DEVICE, text, sizeof text) == ARI_SUCCESS && text[0] != '\0');             \
        EXPECT(family##_GetHWVersion(family##_DEVICE, text, sizeof text) == ARI_SUCCESS);                              \
        EXPECT(startsWith(text, #family));                                                                             \
        EXPECT(family##_GetDeviceInfo(family##_DEVICE, DIID_GET_STATUS, &connected) == ARI_SUCCESS && connected);      \
        EXPECT(family##_GetDeviceInfo(family##_DEVICE, DIID_GET_PRODUCT, text) == ARI_SUCCESS);                        \
        EXPECT(strcmp(text, &#family[2]) == 0);                                                                        \
        family##_GetAboutInfo(family##_DEVICE, text);                                                                  \
        EXPECT(startsWith(text, "About"));                                                                             \
    }

#define DEFINE_TAKE_POINTS(family)                                                                                     \
    static void takePoints##family(void)                                                                               \
    {                                                                                                                  \
        const int count = family##_GetTotalInkPointsNumber(family##_DEVICE);                                           \
        INKPOINTDATA point = {count - 1, 0, 0, 0, false};                                                              \
        char *record = family##_Base64Encode(family##_DEVICE, EBITI_INK);                                              \
        EXPECT(count > 10);                                                                                            \
        EXPECT(family##_GetInkPointData(family##_DEVICE, &point) == ARI_SUCCESS && point.bStrokeEnd);                  \
        EXPECT_TEXT(family, family##_GetInkPointDataTimeInfo(family##_DEVICE, 0), FreeInkPointDataTimeInfo, "20");     \
        EXPECT(record != NULL && strlen(record) == ((size_t)count * 24 + 1 + 2) / 3 * 4);                              \
        EXPECT(family##_Base64Decode(family##_DEVICE, EBITI_INK, record, NULL) == ARI_SUCCESS);                        \
        EXPECT(family##_GetTotalDecodeInkPointsNumber(family##_DEVICE) == count);                                      \
        EXPECT(family##_GetDecodeInkPointData(family##_DEVICE, count - 1, INKDATATYPE_X) == point.nX);                 \
        family##_Base64EncodeFree(family##_DEVICE, record);                                                            \
    }

#define DEFINE_TAKE_IMAGES(family)                                                                                     \
    static void takeImages##family(const char *directory)                                                              \
    {                                                                                                                  \
        char *png = family##_Base64Encode(family##_DEVICE, EBITI_PNG);                                                 \
        EXPECT(startsWith(png, "iVBORw0KGgo"));                                                                        \
        EXPECT(family##_Base64Decode(family##_DEVICE, EBITI_PNG, png, path(directory, "b.png")) == ARI_SUCCESS);       \
        family##_Base64EncodeFree(family##_DEVICE, png);                                                               \
        EXPECT_TEXT(family, family##_Base64Encode(family##_DEVICE, EBITI_BITMAP), Base64EncodeFree, "Qk");             \
        EXPECT_TEXT(family, family##_Base64EncodeEx(family##_DEVICE, EBITI_JPEG, true), Base64EncodeExFree, "/9j/");   \
        EXPECT(family##_SetSaveClipImageMargin(family##_DEVICE, true, 5, 5) == ARI_SUCCESS);                           \
        EXPECT_TEXT(family, family##_GetSVGImageBase64Data(family##_DEVICE), FreeSVGImageBase64Data, "PD94bWw");       \
        EXPECT_SAVED(family, ITI_BITMAP, "a.bmp");                                                                     \
        EXPECT_SAVED(family, ITI_JPEG, "a.jpg");                                                                       \
        EXPECT_SAVED(family, ITI_PNG, "a.png");                                                                        \
        EXPECT_SAVED(family, ITI_PDF, "a.pdf");                                                                        \
        EXPECT_SAVED(family, ITI_SVG, "a.svg");                                                                        \
    }

#define DEFINE_ALL(family)                                                                                             \
    DEFINE_ASK(family)                                                                                                 \
    DEFINE_TAKE_POINTS(family)                                                                                         \
    DEFINE_TAKE_IMAGES(family)                                                                                         \
    DEFINE_TRY(family)

DEFINE_ALL(KVS210)
DEFINE_ALL(KVS300)
DEFINE_ALL(KVS310X)
DEFINE_ALL(KVR800)
DEFINE_ALL(KVM450)

/* The functions of pads with a screen. */
#define TRY_SCREEN(family)                                                                                             \
    do {                                                                                                               \
        char text[64] = "";                                                                                            \
        model = #family;                                                                                               \
        EXPECT(family##_InitialDevice(family##_DEVICE, NULL, 0, 0, 400, 200));                                         \
        EXPECT(family##_OpenLCD(family##_DEVICE, true) == ARI_SUCCESS);                                                \
        EXPECT(family##_OpenLCD(family##_DEVICE, false) == ARI_SUCCESS);                                               \
        EXPECT(family##_DisplayHWVersion(family##_DEVICE, true) == ARI_SUCCESS);                                       \
        EXPECT(family##_GetHWPenID(family##_DEVICE, text, sizeof text) == ARI_SUCCESS && text[0] != '\0');             \
        EXPECT(family##_UnInitialDevice(family##_DEVICE) == ARI_SUCCESS);                                              \
    } while (0)

static void tryLivePush(void)
{
    model = "KVS210 live push";
    taps = 0;
    EXPECT(KVS210_InitialDevice(KVS210_DEVICE, NULL, 0, 0, 200, 100));
    EXPECT(KVS210_SignPadEventCallback(KVS210_DEVICE, tapped) == ARI_SUCCESS);
    EXPECT(KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_PNG, pushed));
    EXPECT(KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 300, 100));
    EXPECT(KVS210_Clear(KVS210_DEVICE) == ARI_SUCCESS);
    WAIT_FOR_THE_SIGNATURE();
    EXPECT(pushes > 10);
    EXPECT_TEXT(KVS210, KVS210_WPSBase64Encode(KVS210_DEVICE, EBITI_JPEG), WPSBase64EncodeFree, "/9j/");
    EXPECT(KVS210_UnInitialDevice(KVS210_DEVICE) == ARI_SUCCESS);
}

static void tryFingerprint(void)
{
    model = "KVS310X fingerprint";
    taps = 0;
    setenv("KVSIM_RECORDING", "signature-finger", 1);
    EXPECT(KVS310X_InitialDevice(KVS310X_DEVICE, NULL, 0, 0, 400, 200));
    EXPECT(KVS310X_SignPadEventCallback(KVS310X_DEVICE, tapped) == ARI_SUCCESS);
    EXPECT(KVS310X_SetDisplayedFPImageAt(KVS310X_DEVICE, NULL, 300, 400, 10, 10, 208, 288) == ARI_SUCCESS);
    EXPECT(KVS310X_Clear(KVS310X_DEVICE) == ARI_SUCCESS);
    WAIT_FOR_THE_SIGNATURE();
    EXPECT_TEXT(
        KVS310X, KVS310X_GetFPImageBase64Data(KVS310X_DEVICE, EBITI_PNG, true), FreeFPImageBase64Data, "iVBORw0KGgo");
    EXPECT(KVS310X_UnInitialDevice(KVS310X_DEVICE) == ARI_SUCCESS);
}

/* Nobody may have made an application object behind the program's back. */
static void expectNoApplication(void)
{
    void **application = (void **)dlsym(RTLD_DEFAULT, "_ZN16QCoreApplication4selfE");
    model = "the process";
    EXPECT(application != NULL && *application == NULL);
}

static void removeDirectory(const char *directory)
{
    const char *names[] = {"a.bmp", "a.jpg", "a.png", "a.pdf", "a.svg", "b.png"};
    char file[512];
    for (size_t i = 0; i < sizeof names / sizeof names[0]; ++i) {
        snprintf(file, sizeof file, "%s/%s", directory, names[i]);
        EXPECT(remove(file) == 0);
    }
    EXPECT(rmdir(directory) == 0);
}

int main(void)
{
    char name[] = "/tmp/kvsignpadsdk-cprogram.XXXXXX";
    const char *directory = mkdtemp(name);
    setenv("KVSIM_SPEED", "max", 1);
    setenv("KVSIM_DELAY_MS", "20", 1);
    setenv("KVSIM_SCREEN_MS", "1", 1);
    tryKVS210(directory);
    tryKVS300(directory);
    tryKVS310X(directory);
    tryKVR800(directory);
    tryKVM450(directory);
    TRY_SCREEN(KVS210);
    TRY_SCREEN(KVS300);
    TRY_SCREEN(KVS310X);
    tryLivePush();
    tryFingerprint();
    expectNoApplication();
    removeDirectory(directory);
    return failures == 0 ? 0 : 1;
}
