// Arguments out of range are refused by the exported functions, in order, before any instance is asked.
#include "logfile.h"
#include "openpad.h"

#include <climits>
#include <functional>

namespace {

struct BadCall
{
    std::string function;
    std::function<long(const Family &)> call;
    long result;
    std::string leave;
};

char textBuffer[] = "VGV4dA==";
char infoBuffer[64];
wchar_t pathBuffer[] = L"/nowhere/at/all.png";

long asNumber(const char *pointer)
{
    return reinterpret_cast<intptr_t>(pointer);
}

constexpr char kTextTypeCondition[] =
    "(nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && (nImageTypeID != EBITI_INK)) !";

void addTextTypes(std::vector<BadCall> &bad)
{
    const std::string pointerLeave = std::string("leave with nullptr due to ") + kTextTypeCondition;
    const std::string intLeave = std::string("leave with ARI_INVALID_PARAMETERS due to ") + kTextTypeCondition;
    for (int id : {INT_MIN, -1, 0, 4, 5, 7, INT_MAX}) {
        bad.push_back(
            {"Base64Encode", [id](const Family &f) { return asNumber(f.Base64Encode(f.type, id)); }, 0, pointerLeave});
        bad.push_back({"Base64EncodeEx",
            [id](const Family &f) { return asNumber(f.Base64EncodeEx(f.type, id, false)); }, 0, pointerLeave});
        bad.push_back({"Base64Decode",
            [id](const Family &f) -> long { return f.Base64Decode(f.type, id, textBuffer, pathBuffer); }, -2,
            intLeave});
        bad.push_back({"Base64Decode",
            [id](const Family &f) -> long { return f.Base64Decode(f.type, id, nullptr, pathBuffer); }, -2, intLeave});
    }
    for (int id : {1, 2, 3, 6}) {
        for (const char *text : {static_cast<const char *>(nullptr), ""}) {
            bad.push_back(
                {"Base64Decode", [=](const Family &f) -> long { return f.Base64Decode(f.type, id, text, pathBuffer); },
                    -2, "leave with nullptr due to (pEncodedData : null or empty) !"});
        }
    }
}

void addFileTypesAndMargins(std::vector<BadCall> &bad)
{
    for (int id : {INT_MIN, -1, 0, 4, 5, 6, 9, INT_MAX}) {
        bad.push_back({"SaveDrawingImage",
            [id](const Family &f) -> long { return f.SaveDrawingImage(f.type, id, pathBuffer, 0); }, -2,
            "leave with ARI_INVALID_PARAMETERS due to nImageTypeID out of range !"});
    }
    const std::pair<int, int> margins[] = {{-1, 0}, {0, -1}, {-1, -1}, {INT_MIN, 5}, {5, INT_MIN}};
    for (const auto &[x, y] : margins) {
        bad.push_back({"SetSaveClipImageMargin",
            [x = x, y = y](const Family &f) -> long { return f.SetSaveClipImageMargin(f.type, true, x, y); }, -2,
            "leave with ARI_INVALID_PARAMETERS due to (nClipMarginX < 0) || (nClipMarginY < 0) !"});
    }
}

void addSelectors(std::vector<BadCall> &bad)
{
    const std::pair<int, void *> info[] = {{0, infoBuffer}, {8, infoBuffer}, {-1, infoBuffer}, {INT_MIN, infoBuffer},
        {INT_MAX, infoBuffer}, {1, nullptr}, {7, nullptr}, {0, nullptr}};
    for (const auto &[index, output] : info) {
        bad.push_back({"GetDeviceInfo",
            [index = index, output = output](
                const Family &f) -> long { return f.GetDeviceInfo(f.type, index, output); },
            -2,
            "leave with ARI_INVALID_PARAMETERS due to (nIndex < DIID_GET_STATUS) || (nIndex > DIID_GET_DRV_VER) || "
            "(pOutput == nullptr) !"});
    }
    for (int id : {INT_MIN, -1, 0, 4, INT_MAX}) {
        bad.push_back({"GetDecodeInkPointData",
            [id](const Family &f) -> long { return f.GetDecodeInkPointData(f.type, 0, id); }, -2,
            "leave with ARI_INVALID_PARAMETERS due to (nTypeID < INKDATATYPE_X) || (nTypeID > INKDATATYPE_STROKEEND) !"});
    }
}

void receiver(char *) { }

void addLivePush(std::vector<BadCall> &bad)
{
    for (int id : {0, 1, 2, 3, 6}) {
        bad.push_back({"SetRealTimeSignBase64DataCallback",
            [id](const Family &f) -> long { return KVS210_SetRealTimeSignBase64DataCallback(f.type, id, nullptr); }, 0,
            "leave false due to (nDeviceType != KVS210_DEVICE) || (pfnSignBase64DataCallback == nullptr) !"});
    }
    for (int id : {INT_MIN, -1, 0, 1, 4, 6, INT_MAX}) {
        bad.push_back({"SetRealTimeSignBase64DataCallback",
            [id](const Family &f) -> long { return KVS210_SetRealTimeSignBase64DataCallback(f.type, id, receiver); }, 0,
            "leave false due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !"});
        bad.push_back(
            {"WPSBase64Encode", [id](const Family &f) { return asNumber(KVS210_WPSBase64Encode(f.type, id)); }, 0,
                "leave nullptr due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !"});
    }
    const std::pair<int, int> sizes[] = {{0, 5}, {5, 0}, {0, 0}, {0, -3}};
    for (const auto &[width, height] : sizes) {
        bad.push_back({"InitialWPSSignCanvas",
            [width = width, height = height](
                const Family &f) -> long { return KVS210_InitialWPSSignCanvas(f.type, width, height); },
            0, "leave false due to (nWidth == 0) || (nHeight == 0) !"});
    }
}

std::vector<BadCall> badCalls(const Family &family)
{
    std::vector<BadCall> bad;
    addTextTypes(bad);
    addFileTypesAndMargins(bad);
    addSelectors(bad);
    if (family.type == KVS210_DEVICE)
        addLivePush(bad);
    if (family.type == KVS310X_DEVICE) {
        for (int id : {INT_MIN, -1, 0, 4, 6, INT_MAX}) {
            bad.push_back({"GetFPImageBase64Data",
                [id](const Family &f) { return asNumber(KVS310X_GetFPImageBase64Data(f.type, id, true)); }, 0,
                "leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || (nImageTypeID > EBITI_PNG) !"});
        }
    }
    return bad;
}

void expectRefusals(const Family &family)
{
    for (const BadCall &bad : badCalls(family)) {
        SCOPED_TRACE(family.prefix + bad.function);
        const LogTail log;
        const LogOn on;
        EXPECT_EQ(bad.call(family), bad.result);
        const std::string key = family.prefix + bad.function + "()";
        const std::vector<LogEntry> entries = log.entries();
        ASSERT_EQ(entries.size(), 2u);
        EXPECT_EQ(entries[0].key, key);
        EXPECT_EQ(entries[1], (LogEntry{key, bad.leave}));
    }
}

class ArgumentChecks : public testing::TestWithParam<PadCase>
{
};

TEST_P(ArgumentChecks, ComeBeforeTheInstanceIsMissed)
{
    expectRefusals(*GetParam().family);
}

TEST_P(ArgumentChecks, KeepBadCallsFromTheInstance)
{
    OpenPad pad(GetParam());
    ASSERT_TRUE(pad.isOpen());
    pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    ASSERT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 2, 3), 0);
    const QImage clipped = pad.canvas();
    ASSERT_LT(clipped.width(), 400);
    pad.driver.forgetCalls();

    expectRefusals(*GetParam().family);

    EXPECT_EQ(pad.driver.calls(), "");
    EXPECT_EQ(pad.canvas(), clipped) << "the margins are the ones that were accepted";
}

TEST_P(ArgumentChecks, LetEveryValueInRangeThrough)
{
    const Family &f = *GetParam().family;
    for (int id : {1, 2, 3, 7, 8})
        EXPECT_EQ(f.SaveDrawingImage(f.type, id, pathBuffer, 0), -1) << id;
    for (int id : {1, 2, 3, 6})
        EXPECT_EQ(f.Base64Decode(f.type, id, textBuffer, pathBuffer), -1) << id;
    for (int index = 1; index <= 7; ++index)
        EXPECT_EQ(f.GetDeviceInfo(f.type, index, infoBuffer), -1) << index;
    for (int id = 1; id <= 3; ++id)
        EXPECT_EQ(f.GetDecodeInkPointData(f.type, 0, id), -1) << id;
    EXPECT_EQ(f.SetSaveClipImageMargin(f.type, true, 0, 0), -1);

    OpenPad pad(GetParam());
    pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    for (int id : {1, 2, 3, 6}) {
        char *const text = f.Base64Encode(f.type, id);
        EXPECT_NE(text, nullptr) << id;
        f.Base64EncodeFree(f.type, text);
        char *const textEx = f.Base64EncodeEx(f.type, id, true);
        EXPECT_NE(textEx, nullptr) << id;
        f.Base64EncodeExFree(f.type, textEx);
    }
    for (int index = 1; index <= 7; ++index)
        EXPECT_EQ(f.GetDeviceInfo(f.type, index, infoBuffer), 0) << index;
    EXPECT_EQ(f.SetSaveClipImageMargin(f.type, true, 0, 0), 0);
    EXPECT_EQ(f.SetSaveClipImageMargin(f.type, false, INT_MAX, INT_MAX), 0);
}

INSTANTIATE_TEST_SUITE_P(Pads, ArgumentChecks, testing::ValuesIn(allPads()), padCaseName);

} // namespace
