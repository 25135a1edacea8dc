#include "exportedcalls_table.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>

CallBuffers callBuffers = freshCallBuffers();

CallBuffers freshCallBuffers()
{
    return {"VGV4dA==", L"/nowhere/at/all.png", {7, 1, 2, 3, true}};
}

std::string hex(unsigned long value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%lx", value);
    return text;
}

std::string hex(const void *pointer)
{
    return hex(reinterpret_cast<std::uintptr_t>(pointer));
}

bool matches(const std::string &text, const std::string &pattern)
{
    const size_t star = pattern.find('*');
    if (star == std::string::npos)
        return text == pattern;
    const std::string head = pattern.substr(0, star);
    const std::string tail = pattern.substr(star + 1);
    if (text.size() <= head.size() + tail.size() || text.compare(0, head.size(), head) != 0
        || text.compare(text.size() - tail.size(), tail.size(), tail) != 0)
        return false;
    const std::string middle = text.substr(head.size(), text.size() - head.size() - tail.size());
    return std::all_of(middle.begin(), middle.end(), [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; });
}

std::string ExportedCall::enterText(int deviceType) const
{
    std::string text = enter;
    return text.replace(text.find('#'), 1, std::to_string(deviceType));
}

std::string ExportedCall::wrongTypeText() const
{
    if (!wrongTypeLeave.empty())
        return wrongTypeLeave;
    static const char *const results[] = {" with false", " with ARI_INVALID_PARAMETERS", " with nullptr", ""};
    return std::string("leave") + results[static_cast<int>(kind)] + " due to (nDeviceType != " + family->deviceName
        + ") !";
}

namespace {

void eventReceiver(int) { }
void pushReceiver(char *) { }

long asNumber(const char *pointer)
{
    return static_cast<long>(reinterpret_cast<std::intptr_t>(pointer));
}

struct Rows
{
    const Family &family;
    std::vector<ExportedCall> rows;

    template <class Call>
    void add(const char *function, Kind kind, Call call, const std::string &enter, long without,
        const std::string &leaveWithout, const std::string &wrongTypeLeave = "")
    {
        rows.push_back({&family, function, kind, call, enter, without, leaveWithout, wrongTypeLeave});
    }
    template <class Call>
    void addInt(const char *function, Call call, const std::string &arguments = "")
    {
        add(function, Kind::Int, call, "Enter, nDeviceType=#" + arguments, -1, "leave with nResult=-1 !");
    }
    template <class Free>
    void addFree(const char *function, const char *argument, Free free)
    {
        const auto call = [free](int type) {
            free(type, callBuffers.text);
            return 0L;
        };
        add(function, Kind::Void, call, std::string("Enter, nDeviceType=#, ") + argument + "=" + hex(callBuffers.text),
            0, "leave !");
    }
};

#define KV_CALL(...) [&family = rows.family](int type) -> long { return __VA_ARGS__; }

void addLifecycle(Rows &rows)
{
    rows.add("InitialDevice", Kind::Bool, KV_CALL(family.InitialDevice(type, nullptr, 1, 2, 30, 40)),
        "Enter, nDeviceType=#, pParentWidget=0, nX=1, nY=2, nWidth=30, nHeight=40", 1, "leave with bRet=1 !");
    rows.add("UnInitialDevice", Kind::Int, KV_CALL(family.UnInitialDevice(type)), "Enter, nDeviceType=#", 0,
        "leave with ARI_SUCCESS...");
}

void addDevice(Rows &rows)
{
    const std::string text = hex(callBuffers.text);
    if (rows.family.hasScreen) {
        rows.addInt("OpenLCD", KV_CALL(family.OpenLCD(type, true)), ", bOn=1");
        rows.addInt(
            "GetHWPenID", KV_CALL(family.GetHWPenID(type, callBuffers.text, 9)), ", pPenID=" + text + ", nMaxCount=9");
        rows.addInt("DisplayHWVersion", KV_CALL(family.DisplayHWVersion(type, true)), ", bOn=1");
    }
    rows.addInt("Clear", KV_CALL(family.Clear(type)));
    rows.addInt(
        "GetHWPadID", KV_CALL(family.GetHWPadID(type, callBuffers.text, 9)), ", pPadID=" + text + ", nMaxCount=9");
    rows.addInt("GetHWVersion", KV_CALL(family.GetHWVersion(type, callBuffers.text, 9)),
        ", pVersion=" + text + ", nMaxCount=9");
    rows.addInt(
        "GetDeviceInfo", KV_CALL(family.GetDeviceInfo(type, 4, callBuffers.text)), ", nIndex=4, pOutput=" + text);
    rows.addInt("SetPenStyle", KV_CALL(family.SetPenStyle(type, false)), ", bPressureOn=0");
    rows.addInt("SetPenWidth", KV_CALL(family.SetPenWidth(type, 8)), ", nPenWidth=8");
    rows.addInt("SetPenColor", KV_CALL(family.SetPenColor(type, 10, 20, 30)), ", nR=10, nG=20, nB=30");
    rows.addInt("SignPadEventCallback", KV_CALL(family.SignPadEventCallback(type, eventReceiver)),
        ", pfnSignPadEventCallback=" + hex(reinterpret_cast<void *>(eventReceiver)));
    rows.addInt("GetDeviceConfirmOrCancelKeyStatus", KV_CALL(family.GetDeviceConfirmOrCancelKeyStatus(type)));
}

void addPoints(Rows &rows)
{
    rows.add("GetTotalInkPointsNumber", Kind::Int, KV_CALL(family.GetTotalInkPointsNumber(type)),
        "Enter, nDeviceType=#", -8, "leave with nInkCount=-8 !");
    rows.addInt(
        "GetInkPointData", KV_CALL(family.GetInkPointData(type, callBuffers.point)), ", currentInkPoint.nIndex=7");
    rows.add("GetInkPointDataTimeInfo", Kind::Pointer, KV_CALL(asNumber(family.GetInkPointDataTimeInfo(type, 5))),
        "Enter, nDeviceType=#, nIndex=5", 0, "leave with *=0 !");
    rows.addFree("FreeInkPointDataTimeInfo", "pInkPointDataTimeInfo", rows.family.FreeInkPointDataTimeInfo);
    rows.addInt("SetSaveClipImageMargin", KV_CALL(family.SetSaveClipImageMargin(type, true, 3, 4)),
        ", bClipImage=1, nClipMarginX=3, nClipMarginY=4");
}

void addOutputs(Rows &rows)
{
    // Paths are printed as "%x", in 32 bits.
    const std::string path = hex(static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(callBuffers.path)));
    rows.addInt("SaveDrawingImage", KV_CALL(family.SaveDrawingImage(type, 3, callBuffers.path, 1)),
        ", nImageTypeID=3, pImageFilePath=" + path + ", nDPILevel=1");
    rows.add("Base64Encode", Kind::Pointer, KV_CALL(asNumber(family.Base64Encode(type, 6))),
        "Enter, nDeviceType=#, nImageTypeID=6", 0, "leave with pEncodeBase64Image=0 !");
    rows.addFree("Base64EncodeFree", "pEncodedData", rows.family.Base64EncodeFree);
    rows.add("Base64EncodeEx", Kind::Pointer, KV_CALL(asNumber(family.Base64EncodeEx(type, 2, true))),
        "Enter, nDeviceType=#, nImageTypeID=2, bEnableTransparentBackground=1", 0, "leave with pEncodeBase64Image=0 !");
    rows.addFree("Base64EncodeExFree", "pEncodedData", rows.family.Base64EncodeExFree);
    rows.add("GetSVGImageBase64Data", Kind::Pointer, KV_CALL(asNumber(family.GetSVGImageBase64Data(type))),
        "Enter, nDeviceType=#", 0, "leave with *=0 !");
    rows.addFree("FreeSVGImageBase64Data", "pEncodedData", rows.family.FreeSVGImageBase64Data);
    rows.addInt("Base64Decode", KV_CALL(family.Base64Decode(type, 6, callBuffers.text, callBuffers.path)),
        ", nImageTypeID=6, pEncodedData=" + hex(callBuffers.text) + ", pImageFilePath=" + path);
    rows.add("GetTotalDecodeInkPointsNumber", Kind::Int, KV_CALL(family.GetTotalDecodeInkPointsNumber(type)),
        "Enter, nDeviceType=#", -8, "leave with *=-8 !");
    rows.addInt("GetDecodeInkPointData", KV_CALL(family.GetDecodeInkPointData(type, 2, 1)), ", nIndex=2, nTypeID=1");
}

void addAbout(Rows &rows)
{
    const auto call = [&family = rows.family](int type) {
        // With the family's own type this writes a text, so only refused calls get the watched buffer.
        char own[128];
        family.GetAboutInfo(type, type == family.type ? own : callBuffers.text);
        return 0L;
    };
    rows.add("GetAboutInfo", Kind::Void, call, "enter, nDeviceType=#", 0, "leave !");
}

void addLivePush(Rows &rows)
{
    rows.add(
        "SetRealTimeSignBase64DataCallback", Kind::Bool,
        [](int type) -> long { return KVS210_SetRealTimeSignBase64DataCallback(type, 2, pushReceiver); },
        "Enter, nDeviceType=#, nType=2, pfnSignBase64DataCallback=" + hex(reinterpret_cast<void *>(pushReceiver)), 0,
        "leave with *=0 !",
        "leave false due to (nDeviceType != KVS210_DEVICE) || (pfnSignBase64DataCallback == nullptr) !");
    rows.add(
        "InitialWPSSignCanvas", Kind::Bool, [](int type) -> long { return KVS210_InitialWPSSignCanvas(type, 30, 10); },
        "Enter, nDeviceType=#, nWidth=30, nHeight=10", 0, "leave with *=0 !",
        "leave false due to (nDeviceType != KVS210_DEVICE) !");
    rows.add(
        "WPSBase64Encode", Kind::Pointer, [](int type) { return asNumber(KVS210_WPSBase64Encode(type, 3)); },
        "Enter, nDeviceType=#, nImageTypeID=3", 0, "leave with *=0 !");
    rows.addFree("WPSBase64EncodeFree", "pEncodedData", KVS210_WPSBase64EncodeFree);
}

void addFingerprint(Rows &rows)
{
    rows.addInt(
        "SetDisplayedFPImageAt",
        [](int type) -> long { return KVS310X_SetDisplayedFPImageAt(type, nullptr, 100, 90, 1, 2, 30, 40); },
        ", pParentWidget=0, nCanvasWidth=100, nCanvasHeight=90, nFPLeft=1, nFPTop=2, nFPWidth=30, nFPHeight=40");
    rows.add(
        "GetFPImageBase64Data", Kind::Pointer,
        [](int type) { return asNumber(KVS310X_GetFPImageBase64Data(type, 3, true)); },
        "Enter, nDeviceType=#, nImageTypeID=3, bFPImageOnly=1", 0, "leave with *=0 !");
    rows.addFree("FreeFPImageBase64Data", "pFPImageBase64Data", KVS310X_FreeFPImageBase64Data);
}

} // namespace

std::vector<ExportedCall> exportedCalls(const Family &family)
{
    Rows rows{family, {}};
    addLifecycle(rows);
    addDevice(rows);
    addPoints(rows);
    addOutputs(rows);
    addAbout(rows);
    if (family.type == KVS210_DEVICE)
        addLivePush(rows);
    if (family.type == KVS310X_DEVICE)
        addFingerprint(rows);
    return rows.rows;
}
