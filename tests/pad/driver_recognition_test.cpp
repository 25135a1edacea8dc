// Which version texts name a pad of the model, and the pressure range that they tell.
#include "driverbinding.h"
#include "insidepads.h"
#include "logmessages.h"

#include <cstring>

namespace {

constexpr int kRefused = 0;

struct VersionCase
{
    const char *text;
    int s210, s300, s310x, r800, m450; ///< largest pressure, by family
};

const VersionCase kVersions[] = {
    {"KVT120", 1024, 0, 0, 0, 0},
    {"KVT120 2.07", 1024, 0, 0, 0, 0},
    {"KVS210L1", 1024, 0, 0, 0, 0},
    {"KVS210L1-0099", 1024, 0, 0, 0, 0},
    {"KVS210L10", 1024, 0, 0, 0, 0},
    {"KVT140L1", 1024, 0, 0, 0, 0},
    {"KVT140L1B", 1024, 0, 0, 0, 0},
    {"KVS190", 1024, 0, 0, 0, 0},
    {"KVS1901", 1024, 0, 0, 0, 0},
    {"KVN230", 1024, 0, 0, 0, 0},
    {"KVN230X", 1024, 0, 0, 0, 0},
    {"KVS210", 2048, 0, 0, 0, 0},
    {"KVS210L", 2048, 0, 0, 0, 0},
    {"KVS210L2", 2048, 0, 0, 0, 0},
    {"KVS210 L1", 2048, 0, 0, 0, 0},
    {"KVS210l1", 2048, 0, 0, 0, 0},
    {"KVT14", 2048, 0, 0, 0, 0},
    {"KVT140", 2048, 0, 0, 0, 0},
    {"KVT140L", 2048, 0, 0, 0, 0},
    {"KVT140L2", 2048, 0, 0, 0, 0},
    {"KVT149", 2048, 0, 0, 0, 0},
    {"KVS300", 0, 2048, 0, 0, 0},
    {"KVS300L1", 0, 2048, 0, 0, 0},
    {"KVS310X", 0, 0, 2048, 0, 0},
    {"KVS310X1", 0, 0, 2048, 0, 0},
    {"KVR800", 0, 0, 0, 8192, 0},
    {"KVR8000", 0, 0, 0, 8192, 0},
    {"KVM450", 0, 0, 0, 0, 8192},
    {"KVM450 v9", 0, 0, 0, 0, 8192},
    // Too short, of other case, or not at the beginning.
    {"", 0, 0, 0, 0, 0},
    {"KVT12", 0, 0, 0, 0, 0},
    {"KVT1", 0, 0, 0, 0, 0},
    {"KVS21", 0, 0, 0, 0, 0},
    {"KVS19", 0, 0, 0, 0, 0},
    {"KVN23", 0, 0, 0, 0, 0},
    {"KVS30", 0, 0, 0, 0, 0},
    {"KVS310", 0, 0, 0, 0, 0},
    {"KVS310x", 0, 0, 0, 0, 0},
    {"KVR80", 0, 0, 0, 0, 0},
    {"KVM45", 0, 0, 0, 0, 0},
    {"kvs300", 0, 0, 0, 0, 0},
    {" KVS300", 0, 0, 0, 0, 0},
    {"S300", 0, 0, 0, 0, 0},
    {"XKVR800", 0, 0, 0, 0, 0},
    {"0123456789012345678901234567890123456789KVS300", 0, 0, 0, 0, 0},
};

int expected(const VersionCase &version, int deviceType)
{
    switch (deviceType) {
    case KVS210_DEVICE:
        return version.s210;
    case KVS300_DEVICE:
        return version.s300;
    case KVS310X_DEVICE:
        return version.s310x;
    case KVR800_DEVICE:
        return version.r800;
    default:
        return version.m450;
    }
}

/// The pad's answer when it is opened with this text, or refused.
int pressureWith(const PadCase &row, const char *text)
{
    SimulatedDriver().setText("GetDevicePartsVersion", text);
    QWidget window;
    const Family &family = *row.family;
    if (!family.InitialDevice(family.type, row.headless ? nullptr : &window, 0, 0, 40, 20))
        return kRefused;
    int pressure = -1;
    family.GetDeviceInfo(family.type, DIID_GET_PRESSURE, &pressure);
    family.UnInitialDevice(family.type);
    settle();
    return pressure;
}

class DriverRecognition : public testing::TestWithParam<PadCase>
{
protected:
    std::string key(const char *member) const { return std::string(GetParam().className()) + "::" + member; }
    std::string ownText() const
    {
        return std::string("KV") + GetParam().family->widgetClass[1]
            + std::string(GetParam().family->widgetClass + 2)
                  .substr(0, std::strlen(GetParam().family->widgetClass) - 12);
    }
};

TEST_P(DriverRecognition, FollowsTheBeginningOfTheText)
{
    for (const VersionCase &version : kVersions)
        EXPECT_EQ(pressureWith(GetParam(), version.text), expected(version, GetParam().family->type)) << version.text;
}

TEST_P(DriverRecognition, RefusesAPadThatWritesNoText)
{
    const LogTail log;
    const LogOn on;
    EXPECT_EQ(pressureWith(GetParam(), nullptr), kRefused);
    EXPECT_EQ(messagesOf(log, key("IsDeviceConnected()")),
        (Lines{"<%ld>-enter...", "<%ld>-cVersion=, nResult=0", "<%ld>-leave with m_bDeviceConnected=0"}));
}

TEST_P(DriverRecognition, OnlyLogsTheResultOfTheQuery)
{
    for (const int result : {0, -7, 5}) {
        SimulatedDriver driver;
        driver.setResult("GetDevicePartsVersion", result);
        driver.setText("GetDevicePartsVersion", ownText().c_str());
        const LogTail log;
        const LogOn on;
        QWidget window;
        const Family &family = *GetParam().family;
        EXPECT_TRUE(family.InitialDevice(family.type, GetParam().headless ? nullptr : &window, 0, 0, 40, 20));
        EXPECT_EQ(messagesOf(log, key("IsDeviceConnected()")),
            (Lines{"<%ld>-enter...", "<%ld>-cVersion=" + ownText() + ", nResult=" + std::to_string(result),
                "<%ld>-leave with m_bDeviceConnected=1"}));
        family.UnInitialDevice(family.type);
        settle();
    }
}

TEST_P(DriverRecognition, ClosesThePadOfAnotherModelWithoutTouchingItBefore)
{
    SimulatedDriver driver;
    driver.setText("GetDevicePartsVersion", "KVX999");
    QWidget window;
    const Family &family = *GetParam().family;
    EXPECT_FALSE(family.InitialDevice(family.type, GetParam().headless ? nullptr : &window, 0, 0, 40, 20));
    const std::string start = "Initial " + std::to_string(family.type)
        + (family.type == KVS310X_DEVICE ? " fp=1" : " fp=0") + "\nGetDevicePartsVersion 32\n";
    EXPECT_EQ(
        driver.calls(), start + (family.hasScreen ? "OpenDeviceLCD 0\n" : "ClearDeviceContent\n") + "UnInitial\n");
    EXPECT_FALSE(driver.isOpen());
}

TEST_P(DriverRecognition, MakesTheListsForAPadOfAnotherModelToo)
{
    SimulatedDriver driver;
    driver.setText("GetDevicePartsVersion", "KVX999");
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        EXPECT_FALSE(pad.IsDeviceConnected());
        EXPECT_FALSE(pad.m_bDeviceConnected);
        EXPECT_NE(pad.m_pPointDataList, nullptr);
        EXPECT_NE(pad.m_pDecodedPointDataList, nullptr);
    });
    EXPECT_FALSE(driver.isOpen());
}

// --- with a driver that the simulator cannot be

std::string answeredText;

int fillWholeBuffer(char *pText, int nMaxCount)
{
    std::memset(pText, 'x', static_cast<size_t>(nMaxCount));
    std::memcpy(pText, answeredText.data(), answeredText.size());
    return -1;
}

TEST_P(DriverRecognition, TakesATextThatFillsTheBufferWithoutAZero)
{
    answeredText = ownText();
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        pad.m_pfn_KVSPDAPI_GetDevicePartsVersion = fillWholeBuffer;
        pad.m_nMaxPressureValue = 77;
        const LogTail log;
        const LogOn on;
        EXPECT_TRUE(driverbinding::recognise(pad, logging::Key{"here::", "recognise()"}));
        EXPECT_EQ(pad.m_nMaxPressureValue, rawArea(GetParam().family->type).maxPressure);
        const std::string filled = answeredText + std::string(32 - answeredText.size(), 'x');
        EXPECT_EQ(messagesOf(log, "here::recognise()"), Lines{"<%ld>-cVersion=" + filled + ", nResult=-1"});
    });
}

TEST_P(DriverRecognition, KeepsThePressureRangeWhenThePadIsRefused)
{
    answeredText = "?";
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        pad.m_pfn_KVSPDAPI_GetDevicePartsVersion = fillWholeBuffer;
        pad.m_nMaxPressureValue = 77;
        EXPECT_FALSE(driverbinding::recognise(pad, logging::Key{"here::", "recognise()"}));
        EXPECT_EQ(pad.m_nMaxPressureValue, 77);
    });
}

TEST_P(DriverRecognition, ResolvesTheOperationsOfTheModelInOrder)
{
    const int type = GetParam().family->type;
    Lines expectedNames = {
        "Initial", "UnInitial", "ClearDeviceContent", "GetDevicePadID", "GetDevicePartsVersion", "SetDevicePenStyle"};
    if (GetParam().family->hasScreen)
        expectedNames = {"Initial", "UnInitial", "OpenDeviceLCD", "ClearDeviceContent", "GetDevicePenID",
            "GetDevicePadID", "GetDeviceSecureID", "GetDevicePartsVersion", "ShowVersionInfoOnDevice",
            "SetDevicePenStyle"};
    if (type == KVS310X_DEVICE)
        expectedNames.push_back("ShowFPImageOnDevice");
    for (std::string &name : expectedNames)
        name.insert(0, "KVSPDAPI_");
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        Lines names;
        driverbinding::forEachOperation(pad, [&](auto &slot, const char *name, bool) {
            EXPECT_EQ(slot, nullptr) << name;
            names.push_back(name);
        });
        EXPECT_EQ(names, expectedNames);
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, DriverRecognition, testing::ValuesIn(allPads()), padCaseName);

} // namespace
