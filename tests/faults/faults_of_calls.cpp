/// @file
/// Failures of calls: of another family, without a pad, with arguments that are out of range. A pad in good order has
/// been written on with four points where a pad is open.
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

std::string aboutInfo(FaultRun &run, int type)
{
    char text[128] = "untouched";
    run->GetAboutInfo(type, text);
    return text;
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

} // namespace

const std::vector<Attempt> &callFailures()
{
    static const std::vector<Attempt> attempts{
        KV_ATTEMPT(InitialDevice, "wrong device type", All, kClosed, "false",
            run->InitialDevice(run.wrong(), run.window(), 10, 10, 400, 200)),
        KV_ATTEMPT(InitialDevice, "parent of another thread", All, kClosed, "false", openedFromAnotherThread(run)),
        KV_ATTEMPT(UnInitialDevice, "wrong device type", All, kStroke, "-2", run->UnInitialDevice(run.wrong())),
        KV_ATTEMPT(OpenLCD, "wrong device type", Screen, kStroke, "-2", run->OpenLCD(run.wrong(), true)),
        KV_ATTEMPT(OpenLCD, "no pad open", Screen, kClosed, "-1", run->OpenLCD(run.type, true)),
        KV_ATTEMPT(Clear, "wrong device type", All, kStroke, "-2", run->Clear(run.wrong())),
        KV_ATTEMPT(Clear, "no pad open", All, kClosed, "-1", run->Clear(run.type)),
        KV_ATTEMPT(GetHWPenID, "wrong device type", Screen, kStroke, "-2", run->GetHWPenID(run.wrong(), buffer(), 32)),
        KV_ATTEMPT(GetHWPenID, "no pad open", Screen, kClosed, "-1", run->GetHWPenID(run.type, buffer(), 32)),
        KV_ATTEMPT(GetHWPadID, "wrong device type", All, kStroke, "-2", run->GetHWPadID(run.wrong(), buffer(), 32)),
        KV_ATTEMPT(GetHWPadID, "no pad open", All, kClosed, "-1", run->GetHWPadID(run.type, buffer(), 32)),
        KV_ATTEMPT(GetHWVersion, "wrong device type", All, kStroke, "-2", run->GetHWVersion(run.wrong(), buffer(), 32)),
        KV_ATTEMPT(GetHWVersion, "no pad open", All, kClosed, "-1", run->GetHWVersion(run.type, buffer(), 32)),
        KV_ATTEMPT(
            DisplayHWVersion, "wrong device type", Screen, kStroke, "-2", run->DisplayHWVersion(run.wrong(), true)),
        KV_ATTEMPT(DisplayHWVersion, "no pad open", Screen, kClosed, "-1", run->DisplayHWVersion(run.type, true)),
        KV_ATTEMPT(SetPenStyle, "wrong device type", All, kStroke, "-2", run->SetPenStyle(run.wrong(), true)),
        KV_ATTEMPT(SetPenStyle, "no pad open", All, kClosed, "-1", run->SetPenStyle(run.type, true)),
        KV_ATTEMPT(SetPenWidth, "wrong device type", All, kStroke, "-2", run->SetPenWidth(run.wrong(), 3)),
        KV_ATTEMPT(SetPenWidth, "no pad open", All, kClosed, "-1", run->SetPenWidth(run.type, 3)),
        KV_ATTEMPT(SetPenColor, "wrong device type", All, kStroke, "-2", run->SetPenColor(run.wrong(), 1, 2, 3)),
        KV_ATTEMPT(SetPenColor, "no pad open", All, kClosed, "-1", run->SetPenColor(run.type, 1, 2, 3)),
        KV_ATTEMPT(SignPadEventCallback, "wrong device type", All, kStroke, "-2",
            run->SignPadEventCallback(run.wrong(), nullptr)),
        KV_ATTEMPT(
            SignPadEventCallback, "no pad open", All, kClosed, "-1", run->SignPadEventCallback(run.type, nullptr)),
        KV_ATTEMPT(GetDeviceConfirmOrCancelKeyStatus, "wrong device type", All, kStroke, "-2",
            run->GetDeviceConfirmOrCancelKeyStatus(run.wrong())),
        KV_ATTEMPT(GetDeviceConfirmOrCancelKeyStatus, "no pad open", All, kClosed, "-1",
            run->GetDeviceConfirmOrCancelKeyStatus(run.type)),
        KV_ATTEMPT(GetTotalInkPointsNumber, "wrong device type", All, kStroke, "-2",
            run->GetTotalInkPointsNumber(run.wrong())),
        KV_ATTEMPT(GetTotalInkPointsNumber, "no pad open", All, kClosed, "-8", run->GetTotalInkPointsNumber(run.type)),
        KV_ATTEMPT(
            GetInkPointData, "wrong device type", All, kStroke, "-2", run->GetInkPointData(run.wrong(), point(0))),
        KV_ATTEMPT(GetInkPointData, "no pad open", All, kClosed, "-1", run->GetInkPointData(run.type, point(0))),
        KV_ATTEMPT(GetInkPointDataTimeInfo, "wrong device type", All, kStroke, "null",
            run->GetInkPointDataTimeInfo(run.wrong(), 0)),
        KV_ATTEMPT(
            GetInkPointDataTimeInfo, "no pad open", All, kClosed, "null", run->GetInkPointDataTimeInfo(run.type, 0)),
        KV_ATTEMPT(SaveDrawingImage, "wrong device type", All, kStroke, "-2",
            run->SaveDrawingImage(run.wrong(), 3, run.path("a.png").data(), 0)),
        KV_ATTEMPT(SaveDrawingImage, "no pad open", All, kClosed, "-1",
            run->SaveDrawingImage(run.type, 3, run.path("a.png").data(), 0)),
        KV_ATTEMPT(SetSaveClipImageMargin, "wrong device type", All, kStroke, "-2",
            run->SetSaveClipImageMargin(run.wrong(), true, 1, 1)),
        KV_ATTEMPT(SetSaveClipImageMargin, "no pad open", All, kClosed, "-1",
            run->SetSaveClipImageMargin(run.type, true, 1, 1)),
        KV_ATTEMPT(GetDeviceInfo, "wrong device type", All, kStroke, "-2",
            run->GetDeviceInfo(run.wrong(), DIID_GET_STATUS, buffer())),
        KV_ATTEMPT(
            GetDeviceInfo, "no pad open", All, kClosed, "-1", run->GetDeviceInfo(run.type, DIID_GET_STATUS, buffer())),
        KV_ATTEMPT(Base64Encode, "wrong device type", All, kStroke, "null", run->Base64Encode(run.wrong(), 3)),
        KV_ATTEMPT(Base64Encode, "no pad open", All, kClosed, "null", run->Base64Encode(run.type, 3)),
        KV_ATTEMPT(
            Base64EncodeEx, "wrong device type", All, kStroke, "null", run->Base64EncodeEx(run.wrong(), 3, true)),
        KV_ATTEMPT(Base64EncodeEx, "no pad open", All, kClosed, "null", run->Base64EncodeEx(run.type, 3, true)),
        KV_ATTEMPT(Base64Decode, "wrong device type", All, kStroke, "-2",
            run->Base64Decode(run.wrong(), 6, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(Base64Decode, "no pad open", All, kClosed, "-1",
            run->Base64Decode(run.type, 6, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(GetTotalDecodeInkPointsNumber, "wrong device type", All, kStroke, "-2",
            run->GetTotalDecodeInkPointsNumber(run.wrong())),
        KV_ATTEMPT(GetTotalDecodeInkPointsNumber, "no pad open", All, kClosed, "-8",
            run->GetTotalDecodeInkPointsNumber(run.type)),
        KV_ATTEMPT(GetDecodeInkPointData, "wrong device type", All, kStroke, "-2",
            run->GetDecodeInkPointData(run.wrong(), 0, INKDATATYPE_X)),
        KV_ATTEMPT(GetDecodeInkPointData, "no pad open", All, kClosed, "-1",
            run->GetDecodeInkPointData(run.type, 0, INKDATATYPE_X)),
        KV_ATTEMPT(
            GetSVGImageBase64Data, "wrong device type", All, kStroke, "null", run->GetSVGImageBase64Data(run.wrong())),
        KV_ATTEMPT(GetSVGImageBase64Data, "no pad open", All, kClosed, "null", run->GetSVGImageBase64Data(run.type)),
        KV_ATTEMPT(FreeInkPointDataTimeInfo, "wrong device type", All, kStroke, "kept",
            run.given([&](char *text) { run->FreeInkPointDataTimeInfo(run.wrong(), text); })),
        KV_ATTEMPT(FreeInkPointDataTimeInfo, "no pad open", All, kClosed, "kept",
            run.given([&](char *text) { run->FreeInkPointDataTimeInfo(run.type, text); })),
        KV_ATTEMPT(FreeInkPointDataTimeInfo, "null", All, kStroke, "nothing",
            run.givenNull([&](char *text) { run->FreeInkPointDataTimeInfo(run.type, text); })),
        KV_ATTEMPT(Base64EncodeFree, "wrong device type", All, kStroke, "kept",
            run.given([&](char *text) { run->Base64EncodeFree(run.wrong(), text); })),
        KV_ATTEMPT(Base64EncodeFree, "no pad open", All, kClosed, "kept",
            run.given([&](char *text) { run->Base64EncodeFree(run.type, text); })),
        KV_ATTEMPT(Base64EncodeFree, "null", All, kStroke, "nothing",
            run.givenNull([&](char *text) { run->Base64EncodeFree(run.type, text); })),
        KV_ATTEMPT(Base64EncodeExFree, "wrong device type", All, kStroke, "kept",
            run.given([&](char *text) { run->Base64EncodeExFree(run.wrong(), text); })),
        KV_ATTEMPT(Base64EncodeExFree, "no pad open", All, kClosed, "kept",
            run.given([&](char *text) { run->Base64EncodeExFree(run.type, text); })),
        KV_ATTEMPT(Base64EncodeExFree, "null", All, kStroke, "nothing",
            run.givenNull([&](char *text) { run->Base64EncodeExFree(run.type, text); })),
        KV_ATTEMPT(FreeSVGImageBase64Data, "wrong device type", All, kStroke, "kept",
            run.given([&](char *text) { run->FreeSVGImageBase64Data(run.wrong(), text); })),
        KV_ATTEMPT(FreeSVGImageBase64Data, "no pad open", All, kClosed, "kept",
            run.given([&](char *text) { run->FreeSVGImageBase64Data(run.type, text); })),
        KV_ATTEMPT(FreeSVGImageBase64Data, "null", All, kStroke, "nothing",
            run.givenNull([&](char *text) { run->FreeSVGImageBase64Data(run.type, text); })),
        KV_ATTEMPT(WPSBase64EncodeFree, "wrong device type", S210, kStroke, "kept",
            run.given([&](char *text) { KVS210_WPSBase64EncodeFree(run.wrong(), text); })),
        KV_ATTEMPT(WPSBase64EncodeFree, "no pad open", S210, kClosed, "kept",
            run.given([&](char *text) { KVS210_WPSBase64EncodeFree(run.type, text); })),
        KV_ATTEMPT(FreeFPImageBase64Data, "wrong device type", S310X, kStroke, "kept",
            run.given([&](char *text) { KVS310X_FreeFPImageBase64Data(run.wrong(), text); })),
        KV_ATTEMPT(FreeFPImageBase64Data, "no pad open", S310X, kClosed, "kept",
            run.given([&](char *text) { KVS310X_FreeFPImageBase64Data(run.type, text); })),
        KV_ATTEMPT(WPSBase64EncodeFree, "null", S210Headless, kStroke, "nothing",
            run.givenNull([&](char *text) { KVS210_WPSBase64EncodeFree(run.type, text); })),
        KV_ATTEMPT(WPSBase64EncodeFree, "pad in a widget", S210Widget, kStroke, "kept",
            run.given([&](char *text) { KVS210_WPSBase64EncodeFree(run.type, text); })),
        KV_ATTEMPT(FreeFPImageBase64Data, "null", S310X, kStroke, "nothing",
            run.givenNull([&](char *text) { KVS310X_FreeFPImageBase64Data(run.type, text); })),
        KV_ATTEMPT(SetRealTimeSignBase64DataCallback, "wrong device type", S210, kStroke, "false",
            KVS210_SetRealTimeSignBase64DataCallback(run.wrong(), EBITI_PNG, ignore)),
        KV_ATTEMPT(SetRealTimeSignBase64DataCallback, "no pad open", S210, kClosed, "false",
            KVS210_SetRealTimeSignBase64DataCallback(run.type, EBITI_PNG, ignore)),
        KV_ATTEMPT(InitialWPSSignCanvas, "wrong device type", S210, kStroke, "false",
            KVS210_InitialWPSSignCanvas(run.wrong(), 30, 20)),
        KV_ATTEMPT(
            InitialWPSSignCanvas, "no pad open", S210, kClosed, "false", KVS210_InitialWPSSignCanvas(run.type, 30, 20)),
        KV_ATTEMPT(WPSBase64Encode, "wrong device type", S210, kStroke, "null",
            KVS210_WPSBase64Encode(run.wrong(), EBITI_PNG)),
        KV_ATTEMPT(WPSBase64Encode, "no pad open", S210, kClosed, "null", KVS210_WPSBase64Encode(run.type, EBITI_PNG)),
        KV_ATTEMPT(SetDisplayedFPImageAt, "wrong device type", S310X, kStroke, "-2",
            KVS310X_SetDisplayedFPImageAt(run.wrong(), run.window(), 400, 200, 0, 0, 20, 20)),
        KV_ATTEMPT(SetDisplayedFPImageAt, "no pad open", S310X, kClosed, "-1",
            KVS310X_SetDisplayedFPImageAt(run.type, run.window(), 400, 200, 0, 0, 20, 20)),
        KV_ATTEMPT(GetFPImageBase64Data, "wrong device type", S310X, kStroke, "null",
            KVS310X_GetFPImageBase64Data(run.wrong(), EBITI_PNG, true)),
        KV_ATTEMPT(GetFPImageBase64Data, "no pad open", S310X, kClosed, "null",
            KVS310X_GetFPImageBase64Data(run.type, EBITI_PNG, true)),
        KV_ATTEMPT(GetAboutInfo, "wrong device type", All, kClosed, "untouched", aboutInfo(run, run.wrong())),
        KV_ATTEMPT(GetAboutInfo, "null", All, kClosed, "nothing",
            run.givenNull([&](char *text) { run->GetAboutInfo(run.type, text); })),
        KV_ATTEMPT(SetPenWidth, "width 0", All, kStroke, "-2", run->SetPenWidth(run.type, 0)),
        KV_ATTEMPT(SetPenWidth, "width 11", All, kStroke, "-2", run->SetPenWidth(run.type, 11)),
        KV_ATTEMPT(GetInkPointData, "index negative", All, kStroke, "-1", run->GetInkPointData(run.type, point(-1))),
        KV_ATTEMPT(GetInkPointData, "index too large", All, kStroke, "-1", run->GetInkPointData(run.type, point(4))),
        KV_ATTEMPT(GetInkPointDataTimeInfo, "index negative", All, kStroke, "null",
            run->GetInkPointDataTimeInfo(run.type, -1)),
        KV_ATTEMPT(GetInkPointDataTimeInfo, "index too large", All, kStroke, "null",
            run->GetInkPointDataTimeInfo(run.type, 4)),
        KV_ATTEMPT(SaveDrawingImage, "unknown type", All, kStroke, "-2",
            run->SaveDrawingImage(run.type, 4, run.path("a.png").data(), 0)),
        KV_ATTEMPT(SaveDrawingImage, "unknown suffix", All, kStroke, "-8",
            run->SaveDrawingImage(run.type, ITI_BITMAP, run.path("a.xyz").data(), 0)),
        KV_ATTEMPT(SaveDrawingImage, "path not writable", All, kStroke, "-8",
            run->SaveDrawingImage(run.type, ITI_PNG, run.path("no/a.png").data(), 0)),
        KV_ATTEMPT(SaveDrawingImage, "PDF not writable", All, kStroke, "-8",
            run->SaveDrawingImage(run.type, ITI_PDF, run.path("no/a.pdf").data(), 0)),
        KV_ATTEMPT(SetSaveClipImageMargin, "x negative", All, kStroke, "-2",
            run->SetSaveClipImageMargin(run.type, true, -1, 5)),
        KV_ATTEMPT(SetSaveClipImageMargin, "y negative", All, kStroke, "-2",
            run->SetSaveClipImageMargin(run.type, true, 5, -1)),
        KV_ATTEMPT(GetDeviceInfo, "item 0", All, kStroke, "-2", run->GetDeviceInfo(run.type, 0, buffer())),
        KV_ATTEMPT(GetDeviceInfo, "item 8", All, kStroke, "-2", run->GetDeviceInfo(run.type, 8, buffer())),
        KV_ATTEMPT(GetDeviceInfo, "null", All, kStroke, "-2", run->GetDeviceInfo(run.type, 1, nullptr)),
        KV_ATTEMPT(Base64Encode, "type 0", All, kStroke, "null", run->Base64Encode(run.type, 0)),
        KV_ATTEMPT(Base64EncodeEx, "type 0", All, kStroke, "null", run->Base64EncodeEx(run.type, 0, true)),
        KV_ATTEMPT(Base64Decode, "type 0", All, kStroke, "-2",
            run->Base64Decode(run.type, 0, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(Base64Encode, "type 4", All, kStroke, "null", run->Base64Encode(run.type, 4)),
        KV_ATTEMPT(Base64EncodeEx, "type 4", All, kStroke, "null", run->Base64EncodeEx(run.type, 4, true)),
        KV_ATTEMPT(Base64Decode, "type 4", All, kStroke, "-2",
            run->Base64Decode(run.type, 4, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(Base64Encode, "type 5", All, kStroke, "null", run->Base64Encode(run.type, 5)),
        KV_ATTEMPT(Base64EncodeEx, "type 5", All, kStroke, "null", run->Base64EncodeEx(run.type, 5, true)),
        KV_ATTEMPT(Base64Decode, "type 5", All, kStroke, "-2",
            run->Base64Decode(run.type, 5, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(Base64Encode, "type 7", All, kStroke, "null", run->Base64Encode(run.type, 7)),
        KV_ATTEMPT(Base64EncodeEx, "type 7", All, kStroke, "null", run->Base64EncodeEx(run.type, 7, true)),
        KV_ATTEMPT(Base64Decode, "type 7", All, kStroke, "-2",
            run->Base64Decode(run.type, 7, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(Base64Decode, "null", All, kStroke, "-2",
            run->Base64Decode(run.type, 6, nullptr, run.path("a.png").data())),
        KV_ATTEMPT(
            Base64Decode, "empty", All, kStroke, "-2", run->Base64Decode(run.type, 6, "", run.path("a.png").data())),
        KV_ATTEMPT(Base64Decode, "no image", All, kStroke, "-8",
            run->Base64Decode(run.type, EBITI_PNG, "AAAA", run.path("a.png").data())),
        KV_ATTEMPT(Base64Decode, "another format", All, kStroke, "-8", decode(run, EBITI_PNG, EBITI_BITMAP, "a.bmp")),
        KV_ATTEMPT(
            Base64Decode, "path not writable", All, kStroke, "-8", decode(run, EBITI_PNG, EBITI_PNG, "no/a.png")),
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
        KV_ATTEMPT(
            InitialWPSSignCanvas, "width 0", S210, kStroke, "false", KVS210_InitialWPSSignCanvas(run.type, 0, 20)),
        KV_ATTEMPT(
            InitialWPSSignCanvas, "height 0", S210, kStroke, "false", KVS210_InitialWPSSignCanvas(run.type, 20, 0)),
        KV_ATTEMPT(InitialWPSSignCanvas, "pad in a widget", S210Widget, kStroke, "false",
            KVS210_InitialWPSSignCanvas(run.type, 30, 20)),
        KV_ATTEMPT(WPSBase64Encode, "type 1", S210, kStroke, "null", KVS210_WPSBase64Encode(run.type, 1)),
        KV_ATTEMPT(WPSBase64Encode, "type 6", S210, kStroke, "null", KVS210_WPSBase64Encode(run.type, 6)),
        KV_ATTEMPT(WPSBase64Encode, "pad in a widget", S210Widget, kStroke, "null",
            KVS210_WPSBase64Encode(run.type, EBITI_PNG)),
        KV_ATTEMPT(WPSBase64Encode, "no office canvas", S210Headless, kStroke, "empty",
            KVS210_WPSBase64Encode(run.type, EBITI_PNG)),
        KV_ATTEMPT(SetDisplayedFPImageAt, "rectangle outside", S310X, kStroke, "-2",
            KVS310X_SetDisplayedFPImageAt(run.type, run.window(), 400, 200, 0, 0, 401, 200)),
        KV_ATTEMPT(SetDisplayedFPImageAt, "no parent", S310XWidget, kStroke, "-2",
            KVS310X_SetDisplayedFPImageAt(run.type, nullptr, 400, 200, 0, 0, 20, 20)),
        KV_ATTEMPT(
            SetDisplayedFPImageAt, "rectangle outside another window", S310XWidget, kStroke, "-2", placedOutside(run)),
        KV_ATTEMPT(
            GetFPImageBase64Data, "type 0", S310X, kStroke, "null", KVS310X_GetFPImageBase64Data(run.type, 0, true)),
        KV_ATTEMPT(
            GetFPImageBase64Data, "type 4", S310X, kStroke, "null", KVS310X_GetFPImageBase64Data(run.type, 4, true)),
        KV_ATTEMPT(GetFPImageBase64Data, "not placed", S310XHeadless, kStroke, "null",
            KVS310X_GetFPImageBase64Data(run.type, EBITI_PNG, true)),
    };
    return attempts;
}
