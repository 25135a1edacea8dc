#include "exportedcalls_table.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>

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

std::string pathAsLogged()
{
    return hex(static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(callBuffers.path)));
}

namespace {

void eventReceiver(int) { }
void pushReceiver(char *) { }

long asNumber(const char *pointer)
{
    return static_cast<long>(reinterpret_cast<std::intptr_t>(pointer));
}

/// With the family's own type the function writes a text, so only a refused call gets the watched buffer.
void getAboutInfo(const Family &family, int type)
{
    char own[128];
    family.GetAboutInfo(type, type == family.type ? own : callBuffers.text);
}

// The functions of one family alone.
const auto SetRealTimeSignBase64DataCallback = KVS210_SetRealTimeSignBase64DataCallback;
const auto InitialWPSSignCanvas = KVS210_InitialWPSSignCanvas;
const auto WPSBase64Encode = KVS210_WPSBase64Encode;
const auto WPSBase64EncodeFree = KVS210_WPSBase64EncodeFree;
const auto SetDisplayedFPImageAt = KVS310X_SetDisplayedFPImageAt;
const auto GetFPImageBase64Data = KVS310X_GetFPImageBase64Data;
const auto FreeFPImageBase64Data = KVS310X_FreeFPImageBase64Data;

struct Answer
{
    long result;
    const char *leave;
};

/// Kind of result. It says how a function answers when it refuses.
enum class Kind
{
    Bool,
    Int,
    Pointer,
    Void
};

struct Row
{
    bool (*exists)(const Family &);
    const char *function;
    Kind kind;
    long (*call)(const Family &f, int type);
    const char *enter; ///< # for the device type; {text}, {path}, {event}, {push} for the addresses of what is passed
    std::optional<Answer> withoutInstance = std::nullopt; ///< nothing: the kind's
    const char *wrongTypeLeave = nullptr; ///< null: the kind's
};

#define KV_CALL(...) [](const Family &f [[maybe_unused]], int type) -> long { return __VA_ARGS__; }
#define KV_TEXT(...) [](const Family &f [[maybe_unused]], int type) -> long { return asNumber(__VA_ARGS__); }
#define KV_VOID(...)                                                                                                   \
    [](const Family &f [[maybe_unused]], int type) -> long {                                                           \
        __VA_ARGS__;                                                                                                   \
        return 0;                                                                                                      \
    }

const Row kRows[] = {
    {onAll, "InitialDevice", Kind::Bool, KV_CALL(f.InitialDevice(type, nullptr, 1, 2, 30, 40)),
        "Enter, nDeviceType=#, pParentWidget=0, nX=1, nY=2, nWidth=30, nHeight=40", Answer{1, "leave with bRet=1 !"}},
    {onAll, "UnInitialDevice", Kind::Int, KV_CALL(f.UnInitialDevice(type)), "Enter, nDeviceType=#",
        Answer{0, "leave with ARI_SUCCESS..."}},

    {onScreens, "OpenLCD", Kind::Int, KV_CALL(f.OpenLCD(type, true)), "Enter, nDeviceType=#, bOn=1"},
    {onScreens, "GetHWPenID", Kind::Int, KV_CALL(f.GetHWPenID(type, callBuffers.text, 9)),
        "Enter, nDeviceType=#, pPenID={text}, nMaxCount=9"},
    {onScreens, "DisplayHWVersion", Kind::Int, KV_CALL(f.DisplayHWVersion(type, true)), "Enter, nDeviceType=#, bOn=1"},
    {onAll, "Clear", Kind::Int, KV_CALL(f.Clear(type)), "Enter, nDeviceType=#"},
    {onAll, "GetHWPadID", Kind::Int, KV_CALL(f.GetHWPadID(type, callBuffers.text, 9)),
        "Enter, nDeviceType=#, pPadID={text}, nMaxCount=9"},
    {onAll, "GetHWVersion", Kind::Int, KV_CALL(f.GetHWVersion(type, callBuffers.text, 9)),
        "Enter, nDeviceType=#, pVersion={text}, nMaxCount=9"},
    {onAll, "GetDeviceInfo", Kind::Int, KV_CALL(f.GetDeviceInfo(type, 4, callBuffers.text)),
        "Enter, nDeviceType=#, nIndex=4, pOutput={text}"},
    {onAll, "SetPenStyle", Kind::Int, KV_CALL(f.SetPenStyle(type, false)), "Enter, nDeviceType=#, bPressureOn=0"},
    {onAll, "SetPenWidth", Kind::Int, KV_CALL(f.SetPenWidth(type, 8)), "Enter, nDeviceType=#, nPenWidth=8"},
    {onAll, "SetPenColor", Kind::Int, KV_CALL(f.SetPenColor(type, 10, 20, 30)),
        "Enter, nDeviceType=#, nR=10, nG=20, nB=30"},
    {onAll, "SignPadEventCallback", Kind::Int, KV_CALL(f.SignPadEventCallback(type, eventReceiver)),
        "Enter, nDeviceType=#, pfnSignPadEventCallback={event}"},
    {onAll, "GetDeviceConfirmOrCancelKeyStatus", Kind::Int, KV_CALL(f.GetDeviceConfirmOrCancelKeyStatus(type)),
        "Enter, nDeviceType=#"},

    {onAll, "GetTotalInkPointsNumber", Kind::Int, KV_CALL(f.GetTotalInkPointsNumber(type)), "Enter, nDeviceType=#",
        Answer{-8, "leave with nInkCount=-8 !"}},
    {onAll, "GetInkPointData", Kind::Int, KV_CALL(f.GetInkPointData(type, callBuffers.point)),
        "Enter, nDeviceType=#, currentInkPoint.nIndex=7"},
    {onAll, "GetInkPointDataTimeInfo", Kind::Pointer, KV_TEXT(f.GetInkPointDataTimeInfo(type, 5)),
        "Enter, nDeviceType=#, nIndex=5"},
    {onAll, "FreeInkPointDataTimeInfo", Kind::Void, KV_VOID(f.FreeInkPointDataTimeInfo(type, callBuffers.text)),
        "Enter, nDeviceType=#, pInkPointDataTimeInfo={text}"},
    {onAll, "SetSaveClipImageMargin", Kind::Int, KV_CALL(f.SetSaveClipImageMargin(type, true, 3, 4)),
        "Enter, nDeviceType=#, bClipImage=1, nClipMarginX=3, nClipMarginY=4"},

    {onAll, "SaveDrawingImage", Kind::Int, KV_CALL(f.SaveDrawingImage(type, 3, callBuffers.path, 1)),
        "Enter, nDeviceType=#, nImageTypeID=3, pImageFilePath={path}, nDPILevel=1"},
    {onAll, "Base64Encode", Kind::Pointer, KV_TEXT(f.Base64Encode(type, 6)), "Enter, nDeviceType=#, nImageTypeID=6",
        Answer{0, "leave with pEncodeBase64Image=0 !"}},
    {onAll, "Base64EncodeFree", Kind::Void, KV_VOID(f.Base64EncodeFree(type, callBuffers.text)),
        "Enter, nDeviceType=#, pEncodedData={text}"},
    {onAll, "Base64EncodeEx", Kind::Pointer, KV_TEXT(f.Base64EncodeEx(type, 2, true)),
        "Enter, nDeviceType=#, nImageTypeID=2, bEnableTransparentBackground=1",
        Answer{0, "leave with pEncodeBase64Image=0 !"}},
    {onAll, "Base64EncodeExFree", Kind::Void, KV_VOID(f.Base64EncodeExFree(type, callBuffers.text)),
        "Enter, nDeviceType=#, pEncodedData={text}"},
    {onAll, "GetSVGImageBase64Data", Kind::Pointer, KV_TEXT(f.GetSVGImageBase64Data(type)), "Enter, nDeviceType=#"},
    {onAll, "FreeSVGImageBase64Data", Kind::Void, KV_VOID(f.FreeSVGImageBase64Data(type, callBuffers.text)),
        "Enter, nDeviceType=#, pEncodedData={text}"},
    {onAll, "Base64Decode", Kind::Int, KV_CALL(f.Base64Decode(type, 6, callBuffers.text, callBuffers.path)),
        "Enter, nDeviceType=#, nImageTypeID=6, pEncodedData={text}, pImageFilePath={path}"},
    {onAll, "GetTotalDecodeInkPointsNumber", Kind::Int, KV_CALL(f.GetTotalDecodeInkPointsNumber(type)),
        "Enter, nDeviceType=#", Answer{-8, "leave with *=-8 !"}},
    {onAll, "GetDecodeInkPointData", Kind::Int, KV_CALL(f.GetDecodeInkPointData(type, 2, 1)),
        "Enter, nDeviceType=#, nIndex=2, nTypeID=1"},

    {onAll, "GetAboutInfo", Kind::Void, KV_VOID(getAboutInfo(f, type)), "enter, nDeviceType=#"},

    {onS210, "SetRealTimeSignBase64DataCallback", Kind::Bool,
        KV_CALL(SetRealTimeSignBase64DataCallback(type, 2, pushReceiver)),
        "Enter, nDeviceType=#, nType=2, pfnSignBase64DataCallback={push}", std::nullopt,
        "leave false due to (nDeviceType != KVS210_DEVICE) || (pfnSignBase64DataCallback == nullptr) !"},
    {onS210, "InitialWPSSignCanvas", Kind::Bool, KV_CALL(InitialWPSSignCanvas(type, 30, 10)),
        "Enter, nDeviceType=#, nWidth=30, nHeight=10", std::nullopt,
        "leave false due to (nDeviceType != KVS210_DEVICE) !"},
    {onS210, "WPSBase64Encode", Kind::Pointer, KV_TEXT(WPSBase64Encode(type, 3)),
        "Enter, nDeviceType=#, nImageTypeID=3"},
    {onS210, "WPSBase64EncodeFree", Kind::Void, KV_VOID(WPSBase64EncodeFree(type, callBuffers.text)),
        "Enter, nDeviceType=#, pEncodedData={text}"},

    {onS310X, "SetDisplayedFPImageAt", Kind::Int, KV_CALL(SetDisplayedFPImageAt(type, nullptr, 100, 90, 1, 2, 30, 40)),
        "Enter, nDeviceType=#, pParentWidget=0, nCanvasWidth=100, nCanvasHeight=90, nFPLeft=1, nFPTop=2, nFPWidth=30, "
        "nFPHeight=40"},
    {onS310X, "GetFPImageBase64Data", Kind::Pointer, KV_TEXT(GetFPImageBase64Data(type, 3, true)),
        "Enter, nDeviceType=#, nImageTypeID=3, bFPImageOnly=1"},
    {onS310X, "FreeFPImageBase64Data", Kind::Void, KV_VOID(FreeFPImageBase64Data(type, callBuffers.text)),
        "Enter, nDeviceType=#, pFPImageBase64Data={text}"},
};

/// What the functions of a kind answer where their row says nothing else.
struct KindRow
{
    Kind kind;
    Answer withoutInstance;
    long wrongTypeResult;
    const char *wrongTypeLeave; ///< followed by the reason
};

const KindRow kKinds[] = {
    {Kind::Bool, {0, "leave with *=0 !"}, 0, "leave with false"},
    {Kind::Int, {-1, "leave with nResult=-1 !"}, -2, "leave with ARI_INVALID_PARAMETERS"},
    {Kind::Pointer, {0, "leave with *=0 !"}, 0, "leave with nullptr"},
    {Kind::Void, {0, "leave !"}, 0, "leave"},
};

const KindRow &rowOf(Kind kind)
{
    return *std::find_if(std::begin(kKinds), std::end(kKinds), [kind](const KindRow &row) { return row.kind == kind; });
}

void replace(std::string &text, const char *name, const std::string &value)
{
    if (const size_t at = text.find(name); at != std::string::npos)
        text.replace(at, std::strlen(name), value);
}

std::string withAddresses(std::string enter)
{
    replace(enter, "{text}", hex(callBuffers.text));
    replace(enter, "{path}", pathAsLogged());
    replace(enter, "{event}", hex(reinterpret_cast<void *>(eventReceiver)));
    replace(enter, "{push}", hex(reinterpret_cast<void *>(pushReceiver)));
    return enter;
}

ExportedCall callOf(const Family &family, const Row &row)
{
    const KindRow &kind = rowOf(row.kind);
    const Answer without = row.withoutInstance.value_or(kind.withoutInstance);
    const std::string reason = std::string(" due to (nDeviceType != ") + family.deviceName + ") !";
    return {&family, row.function, row.call, withAddresses(row.enter), without.result, without.leave,
        kind.wrongTypeResult, row.wrongTypeLeave != nullptr ? row.wrongTypeLeave : kind.wrongTypeLeave + reason};
}

} // namespace

std::string ExportedCall::enterText(int deviceType) const
{
    std::string text = enter;
    replace(text, "#", std::to_string(deviceType));
    return text;
}

std::vector<ExportedCall> exportedCalls(const Family &family)
{
    std::vector<ExportedCall> calls;
    for (const Row &row : kRows) {
        if (row.exists(family))
            calls.push_back(callOf(family, row));
    }
    return calls;
}
