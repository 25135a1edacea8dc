/// @file
/// Failures caused by a pad or its driver, each with a script that causes it.
#include "faultrun.h"

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

char buffer[256];

/// The pad is pulled out while the pen is down.
constexpr Setup kPulledOut{"0 600 600 800 0\n5 1200 900 900 1\nunplug 6\n10 1800 700 900 1\n15 1800 700 0 2\n"};
/// It is pulled out before the pen comes down.
constexpr Setup kPulledOutBefore{"unplug 1\n2 600 600 800 0\n5 1200 900 900 1\n15 1800 700 0 2\n"};
/// A pen that is never down: moves and ups without a down, statuses that there are not, doubles, extremes, bursts.
constexpr Setup kStrange{"0 600 600 800 2\nrepeat 0 1\n1 600 600 800 1\nraw 2 2147483647 -2147483648 2147483647 1\n"
                         "3 600 600 800 5\n3 600 600 800 -1\nstall 4 3\n5 600 600 800 2\nrepeat 6 2000\n"};
/// The pen touches and does not move: a point, and nothing drawn.
constexpr Setup kTouchOnly{"0 600 600 800 0\n15 600 600 0 2\n"};
/// Fingers that no sensor should report: no image, and scores that are not above nothing.
constexpr Setup kBadFingers{"fingerprint 0 - 90\nfingerprint 1 finger.pgm 0\nfingerprint 2 finger.pgm -5\n"};
constexpr Setup kFingerAlone{"fingerprint 0 finger.pgm 40\nfingerprint 1 finger.pgm 30\n"};

/// How many drivers that lack an operation which this model needs were taken all the same.
int opensWithoutAnOperation(FaultRun &run)
{
    std::vector<const char *> needed{
        "Initial", "UnInitial", "ClearDeviceContent", "GetDevicePadID", "GetDevicePartsVersion", "SetDevicePenStyle"};
    if (run->hasScreen)
        needed.insert(needed.end(), {"GetDevicePenID", "GetDeviceSecureID", "ShowVersionInfoOnDevice"});
    if (run.type == KVS310X_DEVICE)
        needed.push_back("ShowFPImageOnDevice");
    int opened = 0;
    for (const char *operation : needed) {
        const std::string directory = std::string("without/") + operation;
        opened += run.open({"", directory.c_str()});
        run.close();
    }
    return opened;
}

int inkPoint(FaultRun &run)
{
    INKPOINTDATA data{};
    return run->GetInkPointData(run.type, data);
}

int clipped(FaultRun &run)
{
    return run->SetSaveClipImageMargin(run.type, true, 5, 5);
}

/// The temporary file's name is taken by a directory meanwhile.
char *svgWithBlockedFile(FaultRun &run)
{
    constexpr const char *kFile = "/tmp/KVeSign.svg";
    std::remove(kFile);
    EXPECT_EQ(mkdir(kFile, S_IRWXU), 0);
    char *text = run->GetSVGImageBase64Data(run.type);
    rmdir(kFile);
    return text;
}

const Attempt kAttempts[] = {
    KV_ATTEMPT(InitialDevice, "driver answers -1", All, kClosed, "false", run.open({"answer 0 Initial -1\n"})),
    KV_ATTEMPT(InitialDevice, "driver answers -2", All, kClosed, "false", run.open({"answer 0 Initial -2\n"})),
    KV_ATTEMPT(InitialDevice, "driver answers -3", All, kClosed, "false", run.open({"answer 0 Initial -3\n"})),
    KV_ATTEMPT(InitialDevice, "driver answers -4", All, kClosed, "false", run.open({"answer 0 Initial -4\n"})),
    KV_ATTEMPT(InitialDevice, "driver answers -5", All, kClosed, "false", run.open({"answer 0 Initial -5\n"})),
    KV_ATTEMPT(InitialDevice, "driver answers -6", All, kClosed, "false", run.open({"answer 0 Initial -6\n"})),
    KV_ATTEMPT(InitialDevice, "driver answers -7", All, kClosed, "false", run.open({"answer 0 Initial -7\n"})),
    KV_ATTEMPT(InitialDevice, "no driver file", All, kClosed, "false", run.open({"", "without"})),
    KV_ATTEMPT(InitialDevice, "driver file broken", All, kClosed, "false", run.open({"", "broken"})),
    KV_ATTEMPT(InitialDevice, "operation missing", All, kClosed, "0", opensWithoutAnOperation(run)),
    KV_ATTEMPT(InitialDevice, "pad unplugged", All, kClosed, "false", run.open({"unplug 0\n"})),
    KV_ATTEMPT(
        InitialDevice, "another model", All, kClosed, "false", run.open({"text 0 GetDevicePartsVersion KVX999 1.0\n"})),
    KV_ATTEMPT(InitialDevice, "no version text", All, kClosed, "false", run.open({"text 0 GetDevicePartsVersion\n"})),
    KV_ATTEMPT(
        OpenLCD, "operation missing", Screen, (Setup{"", "without/OpenDeviceLCD"}), "-1", run->OpenLCD(run.type, true)),
    KV_ATTEMPT(
        OpenLCD, "driver refuses", Screen, (Setup{"answer 1 OpenDeviceLCD -5\n"}), "-5", run->OpenLCD(run.type, true)),
    KV_ATTEMPT(OpenLCD, "pad unplugged", Screen, kPulledOut, "-7", run->OpenLCD(run.type, true)),
    KV_ATTEMPT(Clear, "driver refuses", All, (Setup{"answer 1 ClearDeviceContent -5\n"}), "-5", run->Clear(run.type)),
    KV_ATTEMPT(Clear, "pad unplugged", All, kPulledOut, "-7", run->Clear(run.type)),
    KV_ATTEMPT(GetHWPenID, "driver refuses", Screen, (Setup{"answer 1 GetDevicePenID -5\n"}), "-5",
        run->GetHWPenID(run.type, buffer, 32)),
    KV_ATTEMPT(GetHWPenID, "pad unplugged", Screen, kPulledOut, "-7", run->GetHWPenID(run.type, buffer, 32)),
    KV_ATTEMPT(GetHWPadID, "driver refuses", All, (Setup{"answer 1 GetDevicePadID -5\n"}), "-5",
        run->GetHWPadID(run.type, buffer, 32)),
    KV_ATTEMPT(GetHWPadID, "pad unplugged", All, kPulledOut, "-7", run->GetHWPadID(run.type, buffer, 32)),
    KV_ATTEMPT(GetHWVersion, "driver refuses", All, (Setup{"answer 1 GetDevicePartsVersion -5\n"}), "-5",
        run->GetHWVersion(run.type, buffer, 32)),
    KV_ATTEMPT(GetHWVersion, "pad unplugged", All, kPulledOut, "-7", run->GetHWVersion(run.type, buffer, 32)),
    KV_ATTEMPT(DisplayHWVersion, "driver refuses", Screen, (Setup{"answer 1 ShowVersionInfoOnDevice -5\n"}), "-5",
        run->DisplayHWVersion(run.type, true)),
    KV_ATTEMPT(DisplayHWVersion, "pad unplugged", Screen, kPulledOut, "-7", run->DisplayHWVersion(run.type, true)),
    KV_ATTEMPT(SetPenStyle, "driver refuses", Screen, (Setup{"answer 1 SetDevicePenStyle -5\n"}), "-5",
        run->SetPenStyle(run.type, true)),
    KV_ATTEMPT(SetPenStyle, "pad unplugged", Screen, kPulledOut, "-7", run->SetPenStyle(run.type, true)),
    KV_ATTEMPT(GetDeviceConfirmOrCancelKeyStatus, "no key pressed", All, kStrange, "-1",
        run->GetDeviceConfirmOrCancelKeyStatus(run.type)),
    KV_ATTEMPT(GetTotalInkPointsNumber, "no ink", All, kStrange, "-8", run->GetTotalInkPointsNumber(run.type)),
    KV_ATTEMPT(GetTotalInkPointsNumber, "no ink", All, kPulledOutBefore, "-8", run->GetTotalInkPointsNumber(run.type)),
    KV_ATTEMPT(GetInkPointDataTimeInfo, "no ink", All, kStrange, "null", run->GetInkPointDataTimeInfo(run.type, 0)),
    KV_ATTEMPT(
        GetInkPointDataTimeInfo, "no ink", All, kPulledOutBefore, "null", run->GetInkPointDataTimeInfo(run.type, 0)),
    KV_ATTEMPT(SaveDrawingImage, "no ink", All, kStrange, "-8",
        run->SaveDrawingImage(run.type, ITI_SVG, run.path("a.svg").data(), 0)),
    KV_ATTEMPT(SaveDrawingImage, "no ink", All, kPulledOutBefore, "-8",
        run->SaveDrawingImage(run.type, ITI_SVG, run.path("a.svg").data(), 0)),
    KV_ATTEMPT(Base64Encode, "no ink", All, kStrange, "null", run->Base64Encode(run.type, EBITI_INK)),
    KV_ATTEMPT(Base64Encode, "no ink", All, kPulledOutBefore, "null", run->Base64Encode(run.type, EBITI_INK)),
    KV_ATTEMPT(Base64EncodeEx, "no ink", All, kStrange, "null", run->Base64EncodeEx(run.type, EBITI_PNG, true)),
    KV_ATTEMPT(Base64EncodeEx, "no ink", All, kPulledOutBefore, "null", run->Base64EncodeEx(run.type, EBITI_PNG, true)),
    KV_ATTEMPT(GetSVGImageBase64Data, "no ink", All, kStrange, "null", run->GetSVGImageBase64Data(run.type)),
    KV_ATTEMPT(GetSVGImageBase64Data, "no ink", All, kPulledOutBefore, "null", run->GetSVGImageBase64Data(run.type)),
    KV_ATTEMPT(GetInkPointData, "no ink", All, kStrange, "-1", inkPoint(run)),
    KV_ATTEMPT(SaveDrawingImage, "neither ink nor finger", S310X, kBadFingers, "-8",
        run->SaveDrawingImage(run.type, ITI_PNG, run.path("a.png").data(), 0)),
    KV_ATTEMPT(
        Base64Encode, "neither ink nor finger", S310X, kBadFingers, "null", run->Base64Encode(run.type, EBITI_PNG)),
    KV_ATTEMPT(
        Base64Encode, "record of a finger alone", S310X, kFingerAlone, "null", run->Base64Encode(run.type, EBITI_INK)),
    KV_ATTEMPT(
        Base64EncodeEx, "finger alone", S310X, kFingerAlone, "null", run->Base64EncodeEx(run.type, EBITI_PNG, true)),
    KV_ATTEMPT(
        GetSVGImageBase64Data, "finger alone", S310X, kFingerAlone, "null", run->GetSVGImageBase64Data(run.type)),
    KV_ATTEMPT(SaveDrawingImage, "nothing left after clipping", All, kTouchOnly, "-8",
        clipped(run) == 0 ? run->SaveDrawingImage(run.type, ITI_PNG, run.path("a.png").data(), 0) : 1),
    KV_ATTEMPT(Base64Encode, "nothing left after clipping", All, kTouchOnly, "empty",
        clipped(run) == 0 ? run->Base64Encode(run.type, EBITI_PNG) : nullptr),
    KV_ATTEMPT(Base64EncodeEx, "nothing left after clipping", All, kTouchOnly, "empty",
        clipped(run) == 0 ? run->Base64EncodeEx(run.type, EBITI_JPEG, false) : nullptr),
    KV_ATTEMPT(GetFPImageBase64Data, "nothing left after clipping", S310XWidget, kTouchOnly, "empty",
        clipped(run) == 0 ? KVS310X_GetFPImageBase64Data(run.type, EBITI_PNG, true) : nullptr),
    KV_ATTEMPT(GetSVGImageBase64Data, "temporary file blocked", All, kStroke, "empty", svgWithBlockedFile(run)),
    KV_ATTEMPT(WPSBase64Encode, "no ink", S210Headless, kStrange, "null",
        KVS210_InitialWPSSignCanvas(run.type, 30, 20) ? KVS210_WPSBase64Encode(run.type, EBITI_PNG) : nullptr),
};

} // namespace

std::vector<Attempt> padFailures()
{
    return {std::begin(kAttempts), std::end(kAttempts)};
}
