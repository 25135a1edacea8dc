/* What the scenarios produce when C makes the calls: the pictures that every other language's are compared with.
 *
 *     reference SCENARIO MODEL DRIVER-DIRECTORY
 *
 * Writes its files into the working directory. Built by run, beside the program under test. */
#include <kvsignpadsdk_global.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

/* The five families behind one row of pointers. */
struct Family
{
    const char *model;
    int type;
    bool (*InitialDevice)(int, QWidget *, int, int, int, int);
    int (*UnInitialDevice)(int);
    int (*SetPenWidth)(int, int);
    int (*SetPenColor)(int, int, int, int);
    int (*KeyStatus)(int);
    int (*SaveDrawingImage)(int, int, wchar_t *, int);
    char *(*Base64EncodeEx)(int, int, bool);
    void (*Base64EncodeExFree)(int, char *);
    char *(*GetSVGImageBase64Data)(int);
    void (*FreeSVGImageBase64Data)(int, char *);
};

#define FAMILY(NAME, MODEL)                                                                                            \
    {                                                                                                                  \
        MODEL, NAME##_DEVICE, NAME##_InitialDevice, NAME##_UnInitialDevice, NAME##_SetPenWidth, NAME##_SetPenColor,    \
            NAME##_GetDeviceConfirmOrCancelKeyStatus, NAME##_SaveDrawingImage, NAME##_Base64EncodeEx,                  \
            NAME##_Base64EncodeExFree, NAME##_GetSVGImageBase64Data, NAME##_FreeSVGImageBase64Data                     \
    }

static const struct Family kFamilies[] = {
    FAMILY(KVS210, "S210"),
    FAMILY(KVS300, "S300"),
    FAMILY(KVS310X, "S310X"),
    FAMILY(KVR800, "R800"),
    FAMILY(KVM450, "M450"),
};

static void must(bool done, const char *what)
{
    if (!done) {
        fprintf(stderr, "reference: %s\n", what);
        exit(1);
    }
}

/* Texts are written as they are: whoever compares decodes them. */
static void writeText(const char *name, const char *text)
{
    must(text && *text, name);
    FILE *file = fopen(name, "w");
    must(file && fputs(text, file) >= 0 && fclose(file) == 0, name);
}

static void openPad(const struct Family *pad, const char *driver)
{
    const int before = openat(AT_FDCWD, ".", O_RDONLY | O_DIRECTORY);
    must(before >= 0 && chdir(driver) == 0, "the driver's directory");
    must(pad->InitialDevice(pad->type, NULL, 0, 0, 400, 226), "the pad does not open");
    must(fchdir(before) == 0, "the working directory");
    pad->SetPenWidth(pad->type, 2);
    pad->SetPenColor(pad->type, 0, 0, 128);
}

/* The simulated pad writes from now on. */
static void begin(void)
{
    int (*endDelay)(void) = NULL;
    void *driver = dlopen("libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD);
    *(void **)&endDelay = driver ? dlsym(driver, "KVSIM_EndDelay") : NULL;
    must(endDelay && endDelay() == 0, "the recording does not begin");
    dlclose(driver);
}

static void waitForTap(const struct Family *pad)
{
    while (pad->KeyStatus(pad->type) < 0)
        usleep(2000);
}

static void text(const struct Family *pad, int kind, bool transparent, const char *name)
{
    char *encoded = pad->Base64EncodeEx(pad->type, kind, transparent);
    writeText(name, encoded);
    pad->Base64EncodeExFree(pad->type, encoded);
}

static void save(const struct Family *pad, int kind, wchar_t *name)
{
    must(pad->SaveDrawingImage(pad->type, kind, name, IDLI_300DPI) == ARI_SUCCESS, "a file was not written");
}

static void takeAll(const struct Family *pad)
{
    text(pad, EBITI_PNG, true, "text.png.base64");
    text(pad, EBITI_PNG, false, "opaque.png.base64");
    text(pad, EBITI_JPEG, false, "text.jpg.base64");
    text(pad, EBITI_BITMAP, false, "text.bmp.base64");
    text(pad, EBITI_INK, false, "record.ink.base64");
    char *svg = pad->GetSVGImageBase64Data(pad->type);
    writeText("text.svg.base64", svg);
    pad->FreeSVGImageBase64Data(pad->type, svg);
    save(pad, ITI_PNG, (wchar_t[]){L"saved.png"});
    save(pad, ITI_JPEG, (wchar_t[]){L"saved.jpg"});
    save(pad, ITI_BITMAP, (wchar_t[]){L"saved.bmp"});
    save(pad, ITI_PDF, (wchar_t[]){L"saved.pdf"});
    save(pad, ITI_SVG, (wchar_t[]){L"saved.svg"});
}

/* Placed on a canvas of its own, the fingerprint leaves the signing canvas alone. */
static void placeFingerprint(const struct Family *pad)
{
    must(KVS310X_SetDisplayedFPImageAt(pad->type, NULL, 300, 200, 10, 20, 104, 144) == ARI_SUCCESS, "its place");
}

static void takeFingerprint(const struct Family *pad)
{
    char *encoded = KVS310X_GetFPImageBase64Data(pad->type, EBITI_PNG, true);
    writeText("fingerprint.png.base64", encoded);
    KVS310X_FreeFPImageBase64Data(pad->type, encoded);
}

int main(int argc, char **argv)
{
    must(argc == 4, "usage: reference SCENARIO MODEL DRIVER-DIRECTORY");
    const struct Family *pad = kFamilies;
    while (pad < kFamilies + 5 && strcmp(pad->model, argv[2]) != 0)
        ++pad;
    must(pad < kFamilies + 5, "no such model");
    openPad(pad, argv[3]);
    const bool fingerprint = strcmp(argv[1], "fingerprint") == 0;
    if (fingerprint)
        placeFingerprint(pad);
    begin();
    waitForTap(pad);
    takeAll(pad);
    if (fingerprint)
        takeFingerprint(pad);
    pad->UnInitialDevice(pad->type);
    return 0;
}
