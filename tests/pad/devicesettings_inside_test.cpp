// Missing driver operations, and the fields that the pen settings write.
#include "insidepads.h"
#include "logmessages.h"

namespace {

class SettingsInside : public testing::TestWithParam<PadCase>
{
protected:
    int type() const { return GetParam().family->type; }
    bool scalesByOwnMaximum() const { return type() == KVR800_DEVICE || type() == KVM450_DEVICE; }
};

TEST_P(SettingsInside, WithoutADriverEveryForwardFails)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        char buffer[8] = "#######";
        EXPECT_EQ(pad.GetDevicePadID(buffer, 8), ARI_FAIL);
        EXPECT_EQ(pad.GetDevicePartsVersion(buffer, 8), ARI_FAIL);
        EXPECT_EQ(pad.SetDevicePenStyle(false), ARI_FAIL);
        EXPECT_TRUE(pad.m_bWithPressureValue) << "the setting is taken only with the operation";
        EXPECT_EQ(pad.ClearDeviceContent(), ARI_FAIL);
        if constexpr (kHasScreen<std::decay_t<decltype(pad)>>) {
            EXPECT_EQ(pad.GetDevicePenID(buffer, 8), ARI_FAIL);
            EXPECT_EQ(pad.GetDeviceSecureID(buffer, 8), ARI_FAIL);
            EXPECT_EQ(pad.ShowVersionInfoOnDevice(true), ARI_FAIL);
            EXPECT_EQ(pad.OpenDeviceLCD(true), ARI_FAIL);
        }
        EXPECT_EQ(std::string(buffer), "#######");
    });
}

TEST_P(SettingsInside, WithoutTheScreenSwitchTheCanvasStays)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        if constexpr (kHasScreen<std::decay_t<decltype(pad)>>) {
            pad.m_canvas.fill(Qt::red);
            EXPECT_EQ(pad.OpenDeviceLCD(false), ARI_FAIL);
            EXPECT_EQ(pad.m_canvas.pixelColor(7, 7), QColor(Qt::red));
        } else {
            EXPECT_EQ(pad.m_canvas.pixelColor(7, 7), QColor(Qt::white));
        }
    });
}

int askedSize = 0;
int answerSecureId(char *pText, int nMaxCount)
{
    askedSize = nMaxCount;
    pText[0] = 'S';
    return -5;
}

TEST_P(SettingsInside, TheSecureIdentifierIsTheDrivers)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        if constexpr (kHasScreen<std::decay_t<decltype(pad)>>) {
            pad.m_pfn_KVSPDAPI_GetDeviceSecureID = answerSecureId;
            char byte = '#';
            const LogTail log;
            const LogOn on;
            EXPECT_EQ(pad.GetDeviceSecureID(&byte, 17), -5);
            EXPECT_EQ(askedSize, 17);
            EXPECT_EQ(byte, 'S');
            const Lines lines = messagesOf(log, std::string(GetParam().className()) + "::GetDeviceSecureID()");
            ASSERT_EQ(lines.size(), 2U);
            EXPECT_EQ(lines[0].rfind("<%ld>-enter, pSecureID=", 0), 0U);
            EXPECT_EQ(lines[1], "<%ld>-leave with nResult=-5");
        } else {
            EXPECT_FALSE(GetParam().family->hasScreen);
        }
    });
}

int penStyleCalls = 0;
int refusePenStyle(bool)
{
    ++penStyleCalls;
    return -7;
}

TEST_P(SettingsInside, ThePenStyleIsTakenBeforeThePadAnswers)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        pad.m_pfn_KVSPDAPI_SetDevicePenStyle = refusePenStyle;
        penStyleCalls = 0;
        const bool inPad = kHasScreen<std::decay_t<decltype(pad)>>;
        EXPECT_EQ(pad.SetDevicePenStyle(false), inPad ? -7 : 0);
        EXPECT_FALSE(pad.m_bWithPressureValue);
        EXPECT_EQ(pad.SetDevicePenStyle(true), inPad ? -7 : 0);
        EXPECT_TRUE(pad.m_bWithPressureValue);
        EXPECT_EQ(penStyleCalls, inPad ? 2 : 0);
    });
}

TEST_P(SettingsInside, TheWidthGivesTheRatioOfTheModel)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        EXPECT_EQ(pad.m_SignContext.dblSignPressureRatio, scalesByOwnMaximum() ? 9.0 / 8192 : 3 / 306.0);
        for (const int maximum : {8192, 2048, 1024, 4096}) {
            pad.m_nMaxPressureValue = maximum;
            for (int width = 1; width <= 10; ++width) {
                EXPECT_EQ(pad.SetDevicePenWidth(width), ARI_SUCCESS);
                EXPECT_EQ(pad.m_nSignWidthLevel, width);
                EXPECT_DOUBLE_EQ(pad.m_SignContext.dblSignPressureRatio,
                    scalesByOwnMaximum() ? width * 3.0 / maximum : width / 306.0);
            }
        }
    });
}

TEST_P(SettingsInside, ARefusedWidthChangesNothing)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        EXPECT_EQ(pad.SetDevicePenWidth(7), ARI_SUCCESS);
        const double ratio = pad.m_SignContext.dblSignPressureRatio;
        for (const int width : {0, 11, -7, INT_MIN, INT_MAX}) {
            EXPECT_EQ(pad.SetDevicePenWidth(width), ARI_INVALID_PARAMETERS);
            EXPECT_EQ(pad.m_nSignWidthLevel, 7);
            EXPECT_EQ(pad.m_SignContext.dblSignPressureRatio, ratio);
        }
    });
}

TEST_P(SettingsInside, TheColourIsOpaque)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        EXPECT_EQ(pad.m_drawColor, QColor(Qt::black));
        pad.m_drawColor = QColor(1, 2, 3, 100);
        EXPECT_EQ(pad.SetDevicePenColor(10, 20, 255), ARI_SUCCESS);
        EXPECT_EQ(pad.m_drawColor, QColor(10, 20, 255, 255));
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, SettingsInside, testing::ValuesIn(allPads()), padCaseName);

} // namespace
