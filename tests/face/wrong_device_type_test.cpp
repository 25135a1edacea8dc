// A device type of another family, or none at all, is refused by every function before anything else happens.
#include "exportedcalls_table.h"
#include "openpad.h"

#include <climits>
#include <cstring>
#include <map>

namespace {

const int kTypes[] = {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, INT_MAX};

bool sameBuffers(const CallBuffers &a, const CallBuffers &b)
{
    return std::memcmp(a.text, b.text, sizeof a.text) == 0 && std::memcmp(a.path, b.path, sizeof a.path) == 0
        && a.point.nIndex == b.point.nIndex && a.point.nX == b.point.nX && a.point.nY == b.point.nY
        && a.point.nPressureValue == b.point.nPressureValue && a.point.bStrokeEnd == b.point.bStrokeEnd;
}

/// Calls one function with every wrong type, and checks its result, the buffers and that it logs exactly two lines.
void expectRefusals(const ExportedCall &row)
{
    for (int type : kTypes) {
        if (type == row.family->type)
            continue;
        SCOPED_TRACE(row.name() + " with " + std::to_string(type));
        const LogTail log;
        const LogOn on;
        callBuffers = freshCallBuffers();
        EXPECT_EQ(row.call(type), row.wrongTypeResult);
        EXPECT_TRUE(sameBuffers(callBuffers, freshCallBuffers()));
        const std::vector<LogEntry> expected = {{row.key(), row.enterText(type)}, {row.key(), row.wrongTypeLeave}};
        EXPECT_EQ(log.entries(), expected);
    }
}

TEST(WrongDeviceType, TheTableHasEveryFunctionButTheAboutBox)
{
    const std::map<std::string, size_t> counts = {
        {"KVS300_", 31}, {"KVS210_", 35}, {"KVS310X_", 34}, {"KVR800_", 28}, {"KVM450_", 28}};
    for (const Family &family : kFamilies)
        EXPECT_EQ(exportedCalls(family).size() + 1, counts.at(family.prefix)) << family.prefix;
}

class WrongDeviceType : public testing::TestWithParam<PadCase>
{
};

TEST_P(WrongDeviceType, IsRefusedWithoutAnInstance)
{
    const Family &family = *GetParam().family;
    const SimulatedDriver driver;
    for (const ExportedCall &row : exportedCalls(family))
        expectRefusals(row);
    EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), -8) << "nothing was opened";
    EXPECT_EQ(family.Clear(family.type), -1) << "nothing was opened";
}

TEST_P(WrongDeviceType, TouchesNoOpenInstance)
{
    OpenPad pad(GetParam());
    ASSERT_TRUE(pad.isOpen());
    pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    pad.driver.send(0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    const QImage before = pad.canvas();
    const bool shown = pad.widget() != nullptr && pad.widget()->isVisible();
    pad.driver.forgetCalls();

    for (const ExportedCall &row : exportedCalls(*GetParam().family))
        expectRefusals(row);

    EXPECT_EQ(pad.driver.calls(), "");
    EXPECT_TRUE(pad.driver.isOpen());
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 3);
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()), 1) << "the tap was not asked for before";
    EXPECT_EQ(pad.canvas(), before) << "neither cleared nor clipped";
    EXPECT_EQ(pad.widget() != nullptr && pad.widget()->isVisible(), shown);
}

TEST_P(WrongDeviceType, IsReportedBeforeAnyArgument)
{
    const Family &family = *GetParam().family;
    const int wrong = family.type + 1;
    const LogTail log;
    const LogOn on;
    EXPECT_EQ(family.SaveDrawingImage(wrong, 4, nullptr, 0), -2);
    EXPECT_EQ(family.SetSaveClipImageMargin(wrong, true, -1, -1), -2);
    EXPECT_EQ(family.GetDeviceInfo(wrong, 0, nullptr), -2);
    EXPECT_EQ(family.Base64Encode(wrong, 4), nullptr);
    EXPECT_EQ(family.Base64EncodeEx(wrong, 4, true), nullptr);
    EXPECT_EQ(family.Base64Decode(wrong, 4, nullptr, nullptr), -2);
    EXPECT_EQ(family.GetDecodeInkPointData(wrong, 0, 0), -2);
    const std::vector<LogEntry> entries = log.entries();
    ASSERT_EQ(entries.size(), 14u);
    for (size_t i = 1; i < entries.size(); i += 2)
        EXPECT_NE(entries[i].text.find(std::string("(nDeviceType != ") + family.deviceName + ") !"), std::string::npos)
            << entries[i];
}

INSTANTIATE_TEST_SUITE_P(Pads, WrongDeviceType, testing::ValuesIn(allPads()), padCaseName);

TEST(WrongDeviceType, IsReportedBeforeTheArgumentsOfOneFamilysFunctions)
{
    const LogTail log;
    const LogOn on;
    EXPECT_FALSE(KVS210_SetRealTimeSignBase64DataCallback(5, 1, nullptr));
    EXPECT_FALSE(KVS210_InitialWPSSignCanvas(5, 0, 0));
    EXPECT_EQ(KVS210_WPSBase64Encode(5, 1), nullptr);
    EXPECT_EQ(KVS310X_GetFPImageBase64Data(5, 4, false), nullptr);
    const std::vector<LogEntry> entries = log.entries();
    ASSERT_EQ(entries.size(), 8u);
    EXPECT_EQ(entries[1].text,
        "leave false due to (nDeviceType != KVS210_DEVICE) || (pfnSignBase64DataCallback == nullptr) !");
    EXPECT_EQ(entries[3].text, "leave false due to (nDeviceType != KVS210_DEVICE) !");
    EXPECT_EQ(entries[5].text, "leave with nullptr due to (nDeviceType != KVS210_DEVICE) !");
    EXPECT_EQ(entries[7].text, "leave with nullptr due to (nDeviceType != KVS310X_DEVICE) !");
}

} // namespace
