// Each exported function calls its one member of the host's class, with its arguments, between its two log lines.
#include "exportedcalls_table.h"
#include "openpad.h"

#include <cstdint>
#include <cstring>

namespace {

/// What the log must show between the frame's lines: the member of the host's class and how its enter line begins.
struct Forward
{
    const char *function;
    const char *member; ///< as its log key names it
    std::string enter;
};

void receiver(char *) { }
void eventReceiver(int) { }

std::vector<Forward> forwards(const PadCase &pad)
{
    const std::string text = hex(callBuffers.text);
    std::vector<Forward> all = {
        {"Clear", "ClearDeviceContent()", ""},
        {"GetHWPadID", "GetDevicePadID()", "enter, pPadID=" + text + ", nMaxCount=9"},
        {"GetHWVersion", "GetDevicePartsVersion()", "enter, pVersion=" + text + ", nMaxCount=9"},
        {"GetDeviceInfo", "GetDeviceInfo()", ""},
        {"SetPenStyle", "SetDevicePenStyle()", ""},
        {"SetPenWidth", "SetDevicePenWidth()", ""},
        {"SetPenColor", "SetDevicePenColor", ""},
        {"SignPadEventCallback", "SetSignPadEventCallback()", ""},
        {"GetDeviceConfirmOrCancelKeyStatus", "GetDeviceConfirmOrCancelKeyStatus()", ""},
        {"GetTotalInkPointsNumber", "GetTotalInkPointsNumber()", ""},
        {"GetInkPointData", "GetInkPointData()", ""},
        {"GetInkPointDataTimeInfo", "GetInkPointDataTimeInfo()", "enter, nIndex=5"},
        {"SetSaveClipImageMargin", "SetSaveClipImageMargin()", "Enter, bClipImage=1, nClipMarginX=3, nClipMarginY=4"},
        {"SaveDrawingImage", "SaveDrawingImage()",
            "enter, nImageTypeID=3, pImageFilePath=" + pathAsLogged() + ", nDPI=300"},
        {"Base64Encode", "Base64Encode()", "enter, nImageTypeID=6"},
        {"Base64EncodeEx", "Base64EncodeEx()", "enter, nImageTypeID=2, bEnableTransparentBackground=1"},
        {"GetSVGImageBase64Data", "GetSVGImageBase64Data()", "enter, nInkCount=-8"},
        {"Base64Decode", "Base64Decode()", "enter, nImageTypeID=6, pImageFilePath=" + pathAsLogged()},
        {"GetTotalDecodeInkPointsNumber", "GetTotalDecodeInkPointsNumber()", "enter..."},
        {"GetDecodeInkPointData", "GetDecodeInkPointData()", "enter, nIndex=2, nTypeID=1"},
        {"UnInitialDevice", "Shutdown()", "Enter..."},
    };
    if (pad.family->hasScreen) {
        all.push_back({"OpenLCD", "OpenDeviceLCD()", ""});
        all.push_back({"GetHWPenID", "GetDevicePenID()", "enter, pPenID=" + text + ", nMaxCount=9"});
        all.push_back({"DisplayHWVersion", "ShowVersionInfoOnDevice()", ""});
    }
    if (pad.family->type == KVS210_DEVICE) {
        all.push_back({"SetRealTimeSignBase64DataCallback", "SetRealTimeSignBase64DataCallback()", "Enter, nType=2"});
        if (pad.headless) {
            all.push_back({"InitialWPSSignCanvas", "InitialWPSSignCanvas()", ""});
            all.push_back({"WPSBase64Encode", "WPSBase64Encode()", ""});
        }
    }
    if (pad.family->type == KVS310X_DEVICE) {
        all.push_back({"SetDisplayedFPImageAt", "SetDisplayedFPImageAt()", ""});
        all.push_back({"GetFPImageBase64Data", "GetFPImageBase64Data()", ""});
    }
    return all;
}

const ExportedCall &row(const std::vector<ExportedCall> &rows, const std::string &function)
{
    for (const ExportedCall &candidate : rows) {
        if (candidate.function == function)
            return candidate;
    }
    throw std::runtime_error("no function " + function);
}

class Forwarding : public testing::TestWithParam<PadCase>
{
};

TEST_P(Forwarding, ReachesTheMemberOfTheHostsClass)
{
    const Family &family = *GetParam().family;
    const std::vector<ExportedCall> rows = exportedCalls(family);
    for (const Forward &forward : forwards(GetParam())) {
        SCOPED_TRACE(forward.function);
        const OpenPad pad(GetParam());
        callBuffers = freshCallBuffers();
        const ExportedCall &exported = row(rows, forward.function);
        const LogTail log;
        LogOn::set(true);
        const long result = exported.call(family.type);
        LogOn::set(false);
        if (exported.function == "GetFPImageBase64Data") // the one text that needs no ink
            KVS310X_FreeFPImageBase64Data(family.type, reinterpret_cast<char *>(result));
        const std::vector<LogEntry> entries = log.entries();
        ASSERT_GE(entries.size(), 3u);
        EXPECT_EQ(entries.front(), (LogEntry{exported.key(), exported.enterText(family.type)}));
        EXPECT_EQ(entries.back().key, exported.key());
        EXPECT_EQ(entries.back().text.rfind("leave", 0), 0u) << entries.back();
        const std::string memberKey = std::string(GetParam().className()) + "::" + forward.member;
        const auto member =
            std::find_if(entries.begin(), entries.end(), [&](const LogEntry &entry) { return entry.key == memberKey; });
        ASSERT_NE(member, entries.end()) << memberKey;
        EXPECT_EQ(member->text.compare(0, forward.enter.size(), forward.enter), 0) << *member;
        for (auto entry = entries.begin() + 1; entry != entries.end() - 1; ++entry)
            EXPECT_EQ(entry->key.find(family.prefix), std::string::npos) << "the frame logs no more than its two lines";
    }
}

TEST_P(Forwarding, TurnsTheDpiLevelInto150Or300)
{
    const OpenPad pad(GetParam());
    callBuffers = freshCallBuffers();
    for (const int level : {0, 1, 5, -1, 150}) {
        const LogTail log;
        LogOn::set(true);
        pad->SaveDrawingImage(pad.type(), 7, callBuffers.path, level);
        LogOn::set(false);
        const LogEntry wanted = {std::string(GetParam().className()) + "::SaveDrawingImage()",
            "enter, nImageTypeID=7, pImageFilePath=" + pathAsLogged() + ", nDPI=" + (level == 0 ? "150" : "300")};
        const std::vector<LogEntry> entries = log.entries();
        EXPECT_EQ(std::count(entries.begin(), entries.end(), wanted), 1) << level;
    }
}

TEST_P(Forwarding, GivesTheDriverWhatTheCallerGave)
{
    OpenPad pad(GetParam());
    char text[40] = "";
    pad.driver.forgetCalls();
    std::string expected;
    if (GetParam().family->hasScreen) {
        for (const bool on : {true, false}) {
            EXPECT_EQ(pad->OpenLCD(pad.type(), on), 0);
            EXPECT_EQ(pad->DisplayHWVersion(pad.type(), on), 0);
            EXPECT_EQ(pad->SetPenStyle(pad.type(), on), 0);
            const std::string flag = on ? "1" : "0";
            expected +=
                "OpenDeviceLCD " + flag + "\nShowVersionInfoOnDevice " + flag + "\nSetDevicePenStyle " + flag + "\n";
        }
        EXPECT_EQ(pad->GetHWPenID(pad.type(), text, 11), 0);
        expected += "GetDevicePenID 11\n";
    }
    EXPECT_EQ(pad->GetHWPadID(pad.type(), text, 12), 0);
    EXPECT_EQ(pad->GetHWVersion(pad.type(), text, 13), 0);
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    expected += "GetDevicePadID 12\nGetDevicePartsVersion 13\nClearDeviceContent\n";
    std::string calls = pad.driver.calls();
    if (!calls.empty() && calls.back() != '\n')
        calls += '\n';
    EXPECT_EQ(calls, expected);
}

TEST_P(Forwarding, ReturnsTheMembersResultUnchanged)
{
    OpenPad pad(GetParam());
    for (const int result : {-7, -3, 42}) {
        const LogTail log;
        LogOn::set(true);
        pad.driver.setResult("GetDevicePadID", result);
        EXPECT_EQ(pad->GetHWPadID(pad.type(), callBuffers.text, 9), result);
        pad.driver.setResult("ClearDeviceContent", result);
        EXPECT_EQ(pad->Clear(pad.type()), result);
        LogOn::set(false);
        const std::vector<LogEntry> entries = log.entries();
        for (const char *function : {"GetHWPadID()", "Clear()"}) {
            const LogEntry leave = {GetParam().family->prefix + std::string(function),
                "leave with nResult=" + std::to_string(result) + " !"};
            EXPECT_EQ(std::count(entries.begin(), entries.end(), leave), 1) << leave;
        }
    }
    EXPECT_EQ(pad->SetPenWidth(pad.type(), 11), -2);
    pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 3);
    EXPECT_EQ(pad->GetDecodeInkPointData(pad.type(), 0, 1), -8);
    pad.driver.setResult("ClearDeviceContent", 0);
}

TEST_P(Forwarding, FillsTheCallersRecordAlthoughItIsDeclaredConst)
{
    OpenPad pad(GetParam());
    const std::vector<KVSIM_PACKET> packets = stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}});
    pad.driver.send(packets);
    INKPOINTDATA point{2, 0, 0, 0, false};
    const INKPOINTDATA &constant = point;
    EXPECT_EQ(pad->GetInkPointData(pad.type(), constant), 0);
    EXPECT_EQ(point.nX, packets[1].x);
    EXPECT_EQ(point.nY, packets[1].y);
    EXPECT_EQ(point.nPressureValue, packets[1].pressure);
    EXPECT_TRUE(point.bStrokeEnd);
}

TEST_P(Forwarding, FreesInTheOpenInstance)
{
    using Free = void (*)(int, char *);
    const Family &family = *GetParam().family;
    std::vector<std::pair<std::string, Free>> frees = {{"FreeInkPointDataTimeInfo", family.FreeInkPointDataTimeInfo},
        {"Base64EncodeFree", family.Base64EncodeFree}, {"Base64EncodeExFree", family.Base64EncodeExFree},
        {"FreeSVGImageBase64Data", family.FreeSVGImageBase64Data}};
    if (family.type == KVS210_DEVICE && GetParam().headless)
        frees.emplace_back("WPSBase64EncodeFree", KVS210_WPSBase64EncodeFree);
    if (family.type == KVS310X_DEVICE)
        frees.emplace_back("FreeFPImageBase64Data", KVS310X_FreeFPImageBase64Data);
    const OpenPad pad(GetParam());
    for (const auto &[function, free] : frees) {
        char *const text = new char[8](); // the leak checker knows whether it was freed
        const LogTail log;
        LogOn::set(true);
        free(family.type, text);
        free(family.type, nullptr);
        LogOn::set(false);
        const std::vector<LogEntry> entries = log.entries();
        const LogEntry freed = {std::string(GetParam().className()) + "::" + function + "()", ""};
        const auto deletes = std::count_if(entries.begin(), entries.end(), [&freed = freed](const LogEntry &entry) {
            return entry.key == freed.key && entry.text.rfind("after call delete[] p", 0) == 0;
        });
        EXPECT_EQ(deletes, 1) << function;
        EXPECT_EQ(entries.back(), (LogEntry{family.prefix + function + "()", "leave !"}));
    }
}

INSTANTIATE_TEST_SUITE_P(Pads, Forwarding, testing::ValuesIn(allPads()), padCaseName);

TEST(ForwardingToOneHost, TheOfficeCanvasIsOnlyHeadless)
{
    const OpenPad pad(PadCase{&kS210Family, false});
    const LogTail log;
    LogOn::set(true);
    char text[] = "never freed";
    EXPECT_FALSE(KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 30, 10));
    EXPECT_EQ(KVS210_WPSBase64Encode(KVS210_DEVICE, 3), nullptr);
    KVS210_WPSBase64EncodeFree(KVS210_DEVICE, text);
    LogOn::set(false);
    EXPECT_EQ(log.entries().size(), 6u) << "no line but the frames' own";
    EXPECT_STREQ(text, "never freed");
}

TEST(ForwardingToOneHost, TheFingerprintsPlaceIsOnACanvasOrOnAWidget)
{
    {
        // The canvas size is what a headless instance gets: a rectangle inside 100 by 90 pixels.
        const OpenPad pad(PadCase{&kS310XFamily, true});
        EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(7, nullptr, 100, 90, 0, 0, 100, 90), 0);
        EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(7, nullptr, 100, 90, 1, 0, 100, 90), -2);
        EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(7, nullptr, 100, 90, 0, 1, 100, 90), -2);
    }
    // A widget has its own size, 400 by 200, whatever canvas size is named, and looks at the parent.
    const OpenPad pad(PadCase{&kS310XFamily, false});
    EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(7, pad.window(), 1, 1, 0, 0, 400, 200), 0);
    EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(7, pad.window(), 9999, 9999, 1, 0, 400, 200), -2);
    EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(7, nullptr, 100, 90, 0, 0, 10, 10), -2);
}

TEST(ForwardingToOneHost, BothHostsTakeTheLiveReceiver)
{
    for (const bool headless : {true, false}) {
        const OpenPad pad(PadCase{&kS210Family, headless});
        EXPECT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(2, 2, receiver));
        EXPECT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(2, 3, receiver));
        EXPECT_EQ(KVS210_SignPadEventCallback(2, eventReceiver), 0);
    }
}

} // namespace
