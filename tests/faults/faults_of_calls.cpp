/// @file
/// Failures of calls with arguments that are out of range. Where a pad is open, it is in good order and has been
/// written on with four points.
#include "faultrun.h"

#include <cstring>
#include <thread>

namespace {

char *buffer()
{
    static char bytes[256];
    return bytes;
}

void ignore(char *) { }

bool openedFromAnotherThread(FaultRun &run)
{
    QWidget window;
    bool opened = true;
    std::thread([&] { opened = run->InitialDevice(run.type, &window, 10, 10, 20, 20); }).join();
    return opened;
}

INKPOINTDATA point(int index)
{
    INKPOINTDATA data{};
    data.nIndex = index;
    return data;
}

/// Takes an image as a text of one type and decodes it as another.
int decode(FaultRun &run, int encodedType, int decodedType, const char *file)
{
    char *text = run->Base64Encode(run.type, encodedType);
    const int result = text == nullptr ? 1 : run->Base64Decode(run.type, decodedType, text, run.path(file).data());
    run->Base64EncodeFree(run.type, text);
    return result;
}

int decodedItem(FaultRun &run, int index, int item)
{
    return decode(run, EBITI_INK, EBITI_INK, "unused") == 0 ? run->GetDecodeInkPointData(run.type, index, item) : 1;
}

int placedOutside(FaultRun &run)
{
    QWidget other;
    other.resize(50, 50);
    return KVS310X_SetDisplayedFPImageAt(run.type, &other, 400, 200, 0, 0, 51, 50);
}

const Attempt kAttempts[] = {
    KV_ATTEMPT(InitialDevice, "parent of another thread", All, kClosed, "false", openedFromAnotherThread(run)),
    KV_ATTEMPT(FreeInkPointDataTimeInfo, "null", All, kStroke, "nothing",
        run.givenNull([&](char *text) { run->FreeInkPointDataTimeInfo(run.type, text); })),
    KV_ATTEMPT(Base64EncodeFree, "null", All, kStroke, "nothing",
        run.givenNull([&](char *text) { run->Base64EncodeFree(run.type, text); })),
    KV_ATTEMPT(Base64EncodeExFree, "null", All, kStroke, "nothing",
        run.givenNull([&](char *text) { run->Base64EncodeExFree(run.type, text); })),
    KV_ATTEMPT(FreeSVGImageBase64Data, "null", All, kStroke, "nothing",
        run.givenNull([&](char *text) { run->FreeSVGImageBase64Data(run.type, text); })),
    KV_ATTEMPT(WPSBase64EncodeFree, "null", S210Headless, kStroke, "nothing",
        run.givenNull([&](char *text) { KVS210_WPSBase64EncodeFree(run.type, text); })),
    KV_ATTEMPT(WPSBase64EncodeFree, "pad in a widget", S210Widget, kStroke, "kept",
        run.given([&](char *text) { KVS210_WPSBase64EncodeFree(run.type, text); })),
    KV_ATTEMPT(FreeFPImageBase64Data, "null", S310X, kStroke, "nothing",
        run.givenNull([&](char *text) { KVS310X_FreeFPImageBase64Data(run.type, text); })),
    KV_ATTEMPT(GetAboutInfo, "null", All, kClosed, "nothing",
        run.givenNull([&](char *text) { run->GetAboutInfo(run.type, text); })),
    KV_ATTEMPT(SetPenWidth, "width 0", All, kStroke, "-2", run->SetPenWidth(run.type, 0)),
    KV_ATTEMPT(SetPenWidth, "width 11", All, kStroke, "-2", run->SetPenWidth(run.type, 11)),
    KV_ATTEMPT(GetInkPointData, "index negative", All, kStroke, "-1", run->GetInkPointData(run.type, point(-1))),
    KV_ATTEMPT(GetInkPointData, "index too large", All, kStroke, "-1", run->GetInkPointData(run.type, point(4))),
    KV_ATTEMPT(
        GetInkPointDataTimeInfo, "index negative", All, kStroke, "null", run->GetInkPointDataTimeInfo(run.type, -1)),
    KV_ATTEMPT(
        GetInkPointDataTimeInfo, "index too large", All, kStroke, "null", run->GetInkPointDataTimeInfo(run.type, 4)),
    KV_ATTEMPT(SaveDrawingImage, "unknown type", All, kStroke, "-2",
        run->SaveDrawingImage(run.type, 4, run.path("a.png").data(), 0)),
    KV_ATTEMPT(SaveDrawingImage, "unknown suffix", All, kStroke, "-8",
        run->SaveDrawingImage(run.type, ITI_BITMAP, run.path("a.xyz").data(), 0)),
    KV_ATTEMPT(SaveDrawingImage, "path not writable", All, kStroke, "-8",
        run->SaveDrawingImage(run.type, ITI_PNG, run.path("no/a.png").data(), 0)),
    KV_ATTEMPT(SaveDrawingImage, "PDF not writable", All, kStroke, "-8",
        run->SaveDrawingImage(run.type, ITI_PDF, run.path("no/a.pdf").data(), 0)),
    KV_ATTEMPT(
        SetSaveClipImageMargin, "x negative", All, kStroke, "-2", run->SetSaveClipImageMargin(run.type, true, -1, 5)),
    KV_ATTEMPT(
        SetSaveClipImageMargin, "y negative", All, kStroke, "-2", run->SetSaveClipImageMargin(run.type, true, 5, -1)),
    KV_ATTEMPT(GetDeviceInfo, "item 0", All, kStroke, "-2", run->GetDeviceInfo(run.type, 0, buffer())),
    KV_ATTEMPT(GetDeviceInfo, "item 8", All, kStroke, "-2", run->GetDeviceInfo(run.type, 8, buffer())),
    KV_ATTEMPT(GetDeviceInfo, "null", All, kStroke, "-2", run->GetDeviceInfo(run.type, 1, nullptr)),
    KV_ATTEMPT(Base64Encode, "type 0", All, kStroke, "null", run->Base64Encode(run.type, 0)),
    KV_ATTEMPT(Base64EncodeEx, "type 0", All, kStroke, "null", run->Base64EncodeEx(run.type, 0, true)),
    KV_ATTEMPT(
        Base64Decode, "type 0", All, kStroke, "-2", run->Base64Decode(run.type, 0, "AAAA", run.path("a.png").data())),
    KV_ATTEMPT(Base64Encode, "type 4", All, kStroke, "null", run->Base64Encode(run.type, 4)),
    KV_ATTEMPT(Base64EncodeEx, "type 4", All, kStroke, "null", run->Base64EncodeEx(run.type, 4, true)),
    KV_ATTEMPT(
        Base64Decode, "type 4", All, kStroke, "-2", run->Base64Decode(run.type, 4, "AAAA", run.path("a.png").data())),
    KV_ATTEMPT(Base64Encode, "type 5", All, kStroke, "null", run->Base64Encode(run.type, 5)),
    KV_ATTEMPT(Base64EncodeEx, "type 5", All, kStroke, "null", run->Base64EncodeEx(run.type, 5, true)),
    KV_ATTEMPT(
        Base64Decode, "type 5", All, kStroke, "-2", run->Base64Decode(run.type, 5, "AAAA", run.path("a.png").data())),
    KV_ATTEMPT(Base64Encode, "type 7", All, kStroke, "null", run->Base64Encode(run.type, 7)),
    KV_ATTEMPT(Base64EncodeEx, "type 7", All, kStroke, "null", run->Base64EncodeEx(run.type, 7, true)),
    KV_ATTEMPT(
        Base64Decode, "type 7", All, kStroke, "-2", run->Base64Decode(run.type, 7, "AAAA", run.path("a.png").data())),
    KV_ATTEMPT(
        Base64Decode, "null", All, kStroke, "-2", run->Base64Decode(run.type, 6, nullptr, run.path("a.png").data())),
    KV_ATTEMPT(Base64Decode, "empty", All, kStroke, "-2", run->Base64Decode(run.type, 6, "", run.path("a.png").data())),
    KV_ATTEMPT(Base64Decode, "no image", All, kStroke, "-8",
        run->Base64Decode(run.type, EBITI_PNG, "AAAA", run.path("a.png").data())),
    KV_ATTEMPT(Base64Decode, "another format", All, kStroke, "-8", decode(run, EBITI_PNG, EBITI_BITMAP, "a.bmp")),
    KV_ATTEMPT(Base64Decode, "path not writable", All, kStroke, "-8", decode(run, EBITI_PNG, EBITI_PNG, "no/a.png")),
    KV_ATTEMPT(GetTotalDecodeInkPointsNumber, "nothing decoded", All, kStroke, "-8",
        run->GetTotalDecodeInkPointsNumber(run.type)),
    KV_ATTEMPT(GetTotalDecodeInkPointsNumber, "text too short", All, kStroke, "-8",
        run->Base64Decode(run.type, 6, "AAAA", run.path("a.png").data()) == 0
            ? run->GetTotalDecodeInkPointsNumber(run.type)
            : 1),
    KV_ATTEMPT(GetDecodeInkPointData, "item 0", All, kStroke, "-2", decodedItem(run, 0, 0)),
    KV_ATTEMPT(GetDecodeInkPointData, "item 4", All, kStroke, "-2", decodedItem(run, 0, 4)),
    KV_ATTEMPT(GetDecodeInkPointData, "nothing decoded", All, kStroke, "-8",
        run->GetDecodeInkPointData(run.type, 0, INKDATATYPE_X)),
    KV_ATTEMPT(GetDecodeInkPointData, "index negative", All, kStroke, "-2", decodedItem(run, -1, INKDATATYPE_X)),
    KV_ATTEMPT(GetDecodeInkPointData, "index too large", All, kStroke, "-2", decodedItem(run, 4, INKDATATYPE_X)),
    KV_ATTEMPT(SetRealTimeSignBase64DataCallback, "null", S210, kStroke, "false",
        KVS210_SetRealTimeSignBase64DataCallback(run.type, EBITI_PNG, nullptr)),
    KV_ATTEMPT(SetRealTimeSignBase64DataCallback, "type 1", S210, kStroke, "false",
        KVS210_SetRealTimeSignBase64DataCallback(run.type, 1, ignore)),
    KV_ATTEMPT(SetRealTimeSignBase64DataCallback, "type 4", S210, kStroke, "false",
        KVS210_SetRealTimeSignBase64DataCallback(run.type, 4, ignore)),
    KV_ATTEMPT(InitialWPSSignCanvas, "width 0", S210, kStroke, "false", KVS210_InitialWPSSignCanvas(run.type, 0, 20)),
    KV_ATTEMPT(InitialWPSSignCanvas, "height 0", S210, kStroke, "false", KVS210_InitialWPSSignCanvas(run.type, 20, 0)),
    KV_ATTEMPT(InitialWPSSignCanvas, "pad in a widget", S210Widget, kStroke, "false",
        KVS210_InitialWPSSignCanvas(run.type, 30, 20)),
    KV_ATTEMPT(WPSBase64Encode, "type 1", S210, kStroke, "null", KVS210_WPSBase64Encode(run.type, 1)),
    KV_ATTEMPT(WPSBase64Encode, "type 6", S210, kStroke, "null", KVS210_WPSBase64Encode(run.type, 6)),
    KV_ATTEMPT(
        WPSBase64Encode, "pad in a widget", S210Widget, kStroke, "null", KVS210_WPSBase64Encode(run.type, EBITI_PNG)),
    KV_ATTEMPT(WPSBase64Encode, "no office canvas", S210Headless, kStroke, "empty",
        KVS210_WPSBase64Encode(run.type, EBITI_PNG)),
    KV_ATTEMPT(SetDisplayedFPImageAt, "rectangle outside", S310X, kStroke, "-2",
        KVS310X_SetDisplayedFPImageAt(run.type, run.window(), 400, 200, 0, 0, 401, 200)),
    KV_ATTEMPT(SetDisplayedFPImageAt, "no parent", S310XWidget, kStroke, "-2",
        KVS310X_SetDisplayedFPImageAt(run.type, nullptr, 400, 200, 0, 0, 20, 20)),
    KV_ATTEMPT(
        SetDisplayedFPImageAt, "rectangle outside another window", S310XWidget, kStroke, "-2", placedOutside(run)),
    KV_ATTEMPT(GetFPImageBase64Data, "type 0", S310X, kStroke, "null", KVS310X_GetFPImageBase64Data(run.type, 0, true)),
    KV_ATTEMPT(GetFPImageBase64Data, "type 4", S310X, kStroke, "null", KVS310X_GetFPImageBase64Data(run.type, 4, true)),
    KV_ATTEMPT(GetFPImageBase64Data, "not placed", S310XHeadless, kStroke, "null",
        KVS310X_GetFPImageBase64Data(run.type, EBITI_PNG, true)),
};

} // namespace

std::vector<Attempt> callFailures()
{
    return {std::begin(kAttempts), std::end(kAttempts)};
}
