// The order of steps in which the pad's screen, the canvas and the points are emptied.
#include "insidepads.h"
#include "logmessages.h"
#include "paddifferences.h"

#include <functional>

namespace {

class ClearContent : public testing::TestWithParam<PadCase>
{
protected:
    std::string key() const { return std::string(GetParam().className()) + "::ClearDeviceContent()"; }
};

std::function<int()> onClear;
int clearPad()
{
    return onClear();
}

/// Ink, points and clipping, as a signature leaves them.
template <class Pad>
void fillUp(Pad &pad)
{
    delete pad.m_pPointDataList;
    pad.m_pPointDataList = new std::vector<_POINTDATA>(1000);
    pad.m_canvas.fill(Qt::red);
    pad.m_bClipImage = true;
    pad.m_nSaveImageClipMarginX = 3;
}

template <class Pad>
bool isWhite(const Pad &pad)
{
    QImage white(pad.m_canvas.size(), QImage::Format_ARGB32);
    white.fill(Qt::white);
    return pad.m_canvas == white;
}

TEST_P(ClearContent, EmptiesTheCanvasBeforeThePadAndThePointsAfterIt)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        for (const int result : {0, -7, 5}) {
            fillUp(pad);
            int calls = 0;
            onClear = [&] {
                ++calls;
                EXPECT_TRUE(isWhite(pad));
                EXPECT_EQ(pad.m_pPointDataList->size(), 1000U);
                EXPECT_TRUE(pad.m_bClipImage);
                return result;
            };
            pad.m_pfn_KVSPDAPI_ClearDeviceContent = clearPad;
            EXPECT_EQ(pad.ClearDeviceContent(), result);
            EXPECT_EQ(calls, 1);
            EXPECT_TRUE(pad.m_pPointDataList->empty());
            EXPECT_EQ(pad.m_pPointDataList->capacity(), 0U);
            EXPECT_FALSE(pad.m_bClipImage);
            EXPECT_EQ(pad.m_nSaveImageClipMarginX, 3) << "the margins stay";
        }
    });
}

TEST_P(ClearContent, WithoutTheOperationOnlyPointsAndClippingGo)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        fillUp(pad);
        padparts::tapMark(pad) = true;
        EXPECT_EQ(pad.ClearDeviceContent(), ARI_FAIL);
        EXPECT_EQ(pad.m_canvas.pixelColor(7, 7), QColor(Qt::red));
        EXPECT_TRUE(padparts::tapMark(pad));
        EXPECT_TRUE(pad.m_pPointDataList->empty());
        EXPECT_EQ(pad.m_pPointDataList->capacity(), 0U);
        EXPECT_FALSE(pad.m_bClipImage);
    });
}

TEST_P(ClearContent, WithoutAPointListDoesTheRest)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        pad.m_canvas.fill(Qt::red);
        onClear = [] { return 0; };
        pad.m_pfn_KVSPDAPI_ClearDeviceContent = clearPad;
        EXPECT_EQ(pad.ClearDeviceContent(), ARI_SUCCESS);
        EXPECT_TRUE(isWhite(pad));
        EXPECT_EQ(pad.m_pPointDataList, nullptr);
    });
}

TEST_P(ClearContent, AfterATapThatClearedThePadLeavesItAlone)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        fillUp(pad);
        int calls = 0;
        onClear = [&] {
            ++calls;
            return -7;
        };
        pad.m_pfn_KVSPDAPI_ClearDeviceContent = clearPad;
        padparts::tapMark(pad) = true;
        const LogTail log;
        const LogOn on;
        EXPECT_EQ(pad.ClearDeviceContent(), ARI_SUCCESS);
        EXPECT_EQ(calls, 0);
        EXPECT_FALSE(padparts::tapMark(pad));
        EXPECT_TRUE(isWhite(pad));
        EXPECT_TRUE(pad.m_pPointDataList->empty());
        EXPECT_FALSE(pad.m_bClipImage);
        EXPECT_EQ(messagesOf(log, key()),
            (Lines{"<%ld>-enter...", differenceOf(GetParam()).markText, "<%ld>-leave with nResult=0 !"}));
        EXPECT_EQ(pad.ClearDeviceContent(), -7);
        EXPECT_EQ(calls, 1);
    });
}

TEST_P(ClearContent, TellsOfTheDriversCallWhereTapsMarkTheWholeArea)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        onClear = [] { return 5; };
        pad.m_pfn_KVSPDAPI_ClearDeviceContent = clearPad;
        const LogTail log;
        const LogOn on;
        EXPECT_EQ(pad.ClearDeviceContent(), 5);
        Lines expected = {"<%ld>-enter...", "<%ld>-leave with nResult=5 !"};
        if (differenceOf(GetParam()).confirmMarks)
            expected = {expected[0], "<%ld>-b4 call m_pfn_KVSPDAPI_ClearDeviceContent()...",
                "<%ld>-after call m_pfn_KVSPDAPI_ClearDeviceContent()...", expected[1]};
        EXPECT_EQ(messagesOf(log, key()), expected);
    });
}

TEST_P(ClearContent, ClearsTheFingerprintFirstInAWidgetAndLastWithoutOne)
{
    OpenPad open(GetParam());
    withOpenInstance(GetParam(), [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (kHasFingerprint<Pad>) {
            QWidget place;
            place.resize(300, 300);
            if constexpr (std::is_base_of_v<QWidget, Pad>)
                ASSERT_EQ(pad.SetDisplayedFPImageAt(&place, 0, 0, 100, 100), ARI_SUCCESS);
            else
                ASSERT_EQ(pad.SetDisplayedFPImageAt(300, 300, 0, 0, 100, 100), ARI_SUCCESS);
            const LogTail log;
            {
                const LogOn on;
                EXPECT_EQ(pad.ClearDeviceContent(), ARI_SUCCESS);
            }
            const std::string canvas = "[" + std::string(GetParam().className()) + "::ClearSignCanvas()]:<%ld>-leave !";
            Lines order;
            for (const std::string &message : messages(log)) {
                if (message == canvas || message == "[CS310XFPWidget::Clear()]:<%ld>-leave !")
                    order.push_back(message == canvas ? "canvas" : "fingerprint");
            }
            EXPECT_EQ(order, GetParam().headless ? (Lines{"canvas", "fingerprint"}) : (Lines{"fingerprint", "canvas"}));
        } else {
            EXPECT_NE(open.type(), KVS310X_DEVICE);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, ClearContent, testing::ValuesIn(allPads()), padCaseName);

} // namespace
