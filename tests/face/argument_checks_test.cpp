// Arguments out of range are refused by the exported functions, in order, before any instance is asked.
#include "exportedcalls_table.h"
#include "openpad.h"

#include <climits>
#include <vector>

namespace {

char textBuffer[] = "VGV4dA==";
char infoBuffer[64];
wchar_t pathBuffer[] = L"/nowhere/at/all.png";

void receiver(char *) { }

long asNumber(const char *pointer)
{
    return reinterpret_cast<intptr_t>(pointer);
}

/// What is passed: a number, or a pair of numbers.
struct Values
{
    int a;
    int b = 0;
};

/// Refused with every pair of values, always with the same result and leave line.
struct BadCall
{
    bool (*exists)(const Family &);
    const char *function;
    long (*call)(const Family &f, int a, int b);
    std::vector<Values> values;
    long result;
    const char *leave;
};

#define KV_CALL(...) [](const Family &f [[maybe_unused]], int a, int b [[maybe_unused]]) -> long { return __VA_ARGS__; }
#define KV_TEXT(...) KV_CALL(asNumber(__VA_ARGS__))

const std::vector<Values> kTextTypes{{1}, {2}, {3}, {6}};
const std::vector<Values> kNoTextTypes{{INT_MIN}, {-1}, {0}, {4}, {5}, {7}, {INT_MAX}};
const std::vector<Values> kNoFileTypes{{INT_MIN}, {-1}, {0}, {4}, {5}, {6}, {9}, {INT_MAX}};
const std::vector<Values> kNoPushTypes{{INT_MIN}, {-1}, {0}, {1}, {4}, {6}, {INT_MAX}};

const BadCall kBadCalls[] = {
    {onAll, "Base64Encode", KV_TEXT(f.Base64Encode(f.type, a)), kNoTextTypes, 0,
        "leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && "
        "(nImageTypeID != EBITI_INK)) !"},
    {onAll, "Base64EncodeEx", KV_TEXT(f.Base64EncodeEx(f.type, a, false)), kNoTextTypes, 0,
        "leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && "
        "(nImageTypeID != EBITI_INK)) !"},
    {onAll, "Base64Decode", KV_CALL(f.Base64Decode(f.type, a, textBuffer, pathBuffer)), kNoTextTypes, -2,
        "leave with ARI_INVALID_PARAMETERS due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && "
        "(nImageTypeID != EBITI_INK)) !"},
    {onAll, "Base64Decode", KV_CALL(f.Base64Decode(f.type, a, nullptr, pathBuffer)), kNoTextTypes, -2,
        "leave with ARI_INVALID_PARAMETERS due to (nImageTypeID < EBITI_BITMAP) || ((nImageTypeID > EBITI_PNG) && "
        "(nImageTypeID != EBITI_INK)) !"},
    {onAll, "Base64Decode", KV_CALL(f.Base64Decode(f.type, a, nullptr, pathBuffer)), kTextTypes, -2,
        "leave with nullptr due to (pEncodedData : null or empty) !"},
    {onAll, "Base64Decode", KV_CALL(f.Base64Decode(f.type, a, "", pathBuffer)), kTextTypes, -2,
        "leave with nullptr due to (pEncodedData : null or empty) !"},
    {onAll, "SaveDrawingImage", KV_CALL(f.SaveDrawingImage(f.type, a, pathBuffer, 0)), kNoFileTypes, -2,
        "leave with ARI_INVALID_PARAMETERS due to nImageTypeID out of range !"},
    {onAll, "SetSaveClipImageMargin", KV_CALL(f.SetSaveClipImageMargin(f.type, true, a, b)),
        {{-1, 0}, {0, -1}, {-1, -1}, {INT_MIN, 5}, {5, INT_MIN}}, -2,
        "leave with ARI_INVALID_PARAMETERS due to (nClipMarginX < 0) || (nClipMarginY < 0) !"},
    {onAll, "GetDeviceInfo", KV_CALL(f.GetDeviceInfo(f.type, a, infoBuffer)), {{0}, {8}, {-1}, {INT_MIN}, {INT_MAX}},
        -2,
        "leave with ARI_INVALID_PARAMETERS due to (nIndex < DIID_GET_STATUS) || (nIndex > DIID_GET_DRV_VER) || "
        "(pOutput == nullptr) !"},
    {onAll, "GetDeviceInfo", KV_CALL(f.GetDeviceInfo(f.type, a, nullptr)), {{1}, {7}, {0}}, -2,
        "leave with ARI_INVALID_PARAMETERS due to (nIndex < DIID_GET_STATUS) || (nIndex > DIID_GET_DRV_VER) || "
        "(pOutput == nullptr) !"},
    {onAll, "GetDecodeInkPointData", KV_CALL(f.GetDecodeInkPointData(f.type, 0, a)),
        {{INT_MIN}, {-1}, {0}, {4}, {INT_MAX}}, -2,
        "leave with ARI_INVALID_PARAMETERS due to (nTypeID < INKDATATYPE_X) || (nTypeID > INKDATATYPE_STROKEEND) !"},

    {onS210, "SetRealTimeSignBase64DataCallback", KV_CALL(KVS210_SetRealTimeSignBase64DataCallback(f.type, a, nullptr)),
        {{0}, {1}, {2}, {3}, {6}}, 0,
        "leave false due to (nDeviceType != KVS210_DEVICE) || (pfnSignBase64DataCallback == nullptr) !"},
    {onS210, "SetRealTimeSignBase64DataCallback",
        KV_CALL(KVS210_SetRealTimeSignBase64DataCallback(f.type, a, receiver)), kNoPushTypes, 0,
        "leave false due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !"},
    {onS210, "WPSBase64Encode", KV_TEXT(KVS210_WPSBase64Encode(f.type, a)), kNoPushTypes, 0,
        "leave nullptr due to (nType != EBITI_JPEG) && (nImageTypeID != EBITI_PNG) !"},
    {onS210, "InitialWPSSignCanvas", KV_CALL(KVS210_InitialWPSSignCanvas(f.type, a, b)),
        {{0, 5}, {5, 0}, {0, 0}, {0, -3}}, 0, "leave false due to (nWidth == 0) || (nHeight == 0) !"},

    {onS310X, "GetFPImageBase64Data", KV_TEXT(KVS310X_GetFPImageBase64Data(f.type, a, true)),
        {{INT_MIN}, {-1}, {0}, {4}, {6}, {INT_MAX}}, 0,
        "leave with nullptr due to (nImageTypeID < EBITI_BITMAP) || (nImageTypeID > EBITI_PNG) !"},
};

void expectRefusal(const Family &family, const BadCall &bad, const Values &values)
{
    SCOPED_TRACE(family.prefix + std::string(bad.function));
    const LogTail log;
    const LogOn on;
    EXPECT_EQ(bad.call(family, values.a, values.b), bad.result) << values.a << ", " << values.b;
    const std::string key = family.prefix + std::string(bad.function) + "()";
    const std::vector<LogEntry> entries = log.entries();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].key, key);
    EXPECT_EQ(entries[1], (LogEntry{key, bad.leave}));
}

void expectRefusals(const Family &family)
{
    for (const BadCall &bad : kBadCalls) {
        if (!bad.exists(family))
            continue;
        for (const Values &values : bad.values)
            expectRefusal(family, bad, values);
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
