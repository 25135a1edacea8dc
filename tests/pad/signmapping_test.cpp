// Raw pad units to canvas pixels.
#include "insidepads.h"
#include "logmessages.h"
#include "signmapping.h"

#include <array>

namespace {

using Mapped = std::array<double, 3>;

class SignMapping : public testing::TestWithParam<PadCase>
{
protected:
    int type() const { return GetParam().family->type; }
    RawArea area() const { return rawArea(type()); }
};

template <class Pad>
Mapped mapped(Pad &pad, int x, int y, int pressure)
{
    Mapped result = {-1, -1, -1};
    pad.ConvertSignRawDataToSignWndData(x, y, pressure, result[0], result[1], result[2]);
    return result;
}

/// A raw position on the canvas, in 64 bits and step by step.
double expectedPlace(int raw, int offset, int span, int size)
{
    long long distance = static_cast<long long>(raw) - offset;
    if (distance < 0)
        distance = 0;
    if (distance > span - 1)
        distance = span - 1;
    return static_cast<double>(distance) * (size / static_cast<double>(span));
}

double expectedRatio(int type, int level, int maximum)
{
    return type == KVR800_DEVICE || type == KVM450_DEVICE ? level * 3.0 / maximum : level / 306.0;
}

template <class Pad>
void expectContext(const Pad &pad, int type, int width, int height, double ratio)
{
    const RawArea area = rawArea(type);
    EXPECT_EQ(pad.m_SignContext.nSignWndWidth, width);
    EXPECT_EQ(pad.m_SignContext.nSignWndHeight, height);
    EXPECT_EQ(pad.m_SignContext.nSignRawOffset_X, area.offsetX);
    EXPECT_EQ(pad.m_SignContext.nSignRawOffset_Y, area.offsetY);
    EXPECT_DOUBLE_EQ(pad.m_SignContext.dblWidthRatioOfSignWndOverSignRaw, width / static_cast<double>(area.spanX));
    EXPECT_DOUBLE_EQ(pad.m_SignContext.dblHeightRatioOfSignWndOverSignRaw, height / static_cast<double>(area.spanY));
    EXPECT_DOUBLE_EQ(pad.m_SignContext.dblSignPressureRatio, ratio);
}

TEST_P(SignMapping, FollowsTheFormulaInsideAndOutsideTheWritingArea)
{
    const RawArea area = this->area();
    withNewInstance(GetParam(), 640, 333, [&](auto &pad) {
        const double ratio = expectedRatio(type(), 3, area.maxPressure);
        for (int step = -40; step <= 160; ++step) {
            const int x = area.offsetX + area.spanX * step / 120;
            const int y = area.offsetY + area.spanY * (120 - step) / 120;
            const int pressure = area.maxPressure * step / 100;
            const Mapped got = mapped(pad, x, y, pressure);
            EXPECT_DOUBLE_EQ(got[0], expectedPlace(x, area.offsetX, area.spanX, 640)) << x;
            EXPECT_DOUBLE_EQ(got[1], expectedPlace(y, area.offsetY, area.spanY, 333)) << y;
            EXPECT_DOUBLE_EQ(got[2], pressure * ratio) << pressure;
        }
    });
}

TEST_P(SignMapping, PutsTheBordersWhereTheClampLimitsSay)
{
    const RawArea area = this->area();
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        const double right = (area.spanX - 1) * (400.0 / area.spanX);
        const double bottom = (area.spanY - 1) * (200.0 / area.spanY);
        const int lastX = area.offsetX + area.spanX - 1;
        const int lastY = area.offsetY + area.spanY - 1;
        for (const int beyond : {0, 1, 2, 1000, 1000000}) {
            const Mapped low = mapped(pad, area.offsetX - beyond, area.offsetY - beyond, 0);
            EXPECT_EQ(low, (Mapped{0.0, 0.0, 0.0}));
            const Mapped high = mapped(pad, lastX + beyond, lastY + beyond, 0);
            EXPECT_DOUBLE_EQ(high[0], right);
            EXPECT_DOUBLE_EQ(high[1], bottom);
        }
        EXPECT_DOUBLE_EQ(mapped(pad, area.offsetX + 1, area.offsetY + 1, 0)[0], 400.0 / area.spanX);
        EXPECT_DOUBLE_EQ(mapped(pad, area.offsetX + 1, area.offsetY + 1, 0)[1], 200.0 / area.spanY);
        EXPECT_LT(mapped(pad, lastX - 1, 0, 0)[0], right);
        EXPECT_LT(mapped(pad, 0, lastY - 1, 0)[1], bottom);
    });
}

TEST_P(SignMapping, TakesAnyInt)
{
    const RawArea area = this->area();
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        const double ratio = expectedRatio(type(), 3, area.maxPressure);
        for (const int raw : {INT_MIN, INT_MIN + 1, INT_MAX, INT_MAX - 1, -1, 0}) {
            const Mapped got = mapped(pad, raw, raw, raw);
            EXPECT_DOUBLE_EQ(got[0], expectedPlace(raw, area.offsetX, area.spanX, 400));
            EXPECT_DOUBLE_EQ(got[1], expectedPlace(raw, area.offsetY, area.spanY, 200));
            EXPECT_DOUBLE_EQ(got[2], raw * ratio);
        }
    });
}

TEST_P(SignMapping, NeitherClampsNorOffsetsThePressure)
{
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        const double ratio = expectedRatio(type(), 3, area().maxPressure);
        EXPECT_EQ(mapped(pad, 5000, 5000, 0)[2], 0.0);
        EXPECT_DOUBLE_EQ(mapped(pad, 5000, 5000, area().maxPressure * 10)[2], area().maxPressure * 10 * ratio);
        EXPECT_DOUBLE_EQ(mapped(pad, 5000, 5000, -100)[2], -100 * ratio);
        const double atMost = mapped(pad, 5000, 5000, area().maxPressure)[2];
        EXPECT_DOUBLE_EQ(atMost, area().maxPressure == 8192 ? 9.0 : 2048 * 3 / 306.0);
    });
}

TEST_P(SignMapping, OfACanvasWithoutSizeIsZero)
{
    withNewInstance(GetParam(), 0, 0, [&](auto &pad) {
        EXPECT_EQ(mapped(pad, INT_MAX, INT_MAX, 0), (Mapped{0.0, 0.0, 0.0}));
        expectContext(pad, type(), 0, 0, expectedRatio(type(), 3, area().maxPressure));
    });
}

TEST_P(SignMapping, OfAWidgetThatWasNeverResizedIsZero)
{
    withClass(GetParam(), [](auto kind) {
        using Pad = typename decltype(kind)::Type;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            Pad pad(nullptr);
            EXPECT_EQ(mapped(pad, 5000, 5000, 500), (Mapped{0.0, 0.0, 0.0}));
        } else {
            Pad pad(-40, -20);
            EXPECT_EQ(pad.m_SignContext.nSignWndWidth, -40);
            EXPECT_LT(mapped(pad, 5000, 5000, 0)[0], 0.0);
        }
    });
}

TEST_P(SignMapping, AWidgetsContextFollowsItsSizeAndTheSettings)
{
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        const int maximum = area().maxPressure;
        expectContext(pad, type(), 400, 200, expectedRatio(type(), 3, maximum));
        pad.SetDevicePenWidth(7);
        expectContext(pad, type(), 400, 200, expectedRatio(type(), 7, maximum));
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            pad.m_nMaxPressureValue = 1024;
            for (const QSize &size : {QSize(200, 100), QSize(801, 77), QSize(1, 1)}) {
                pad.resize(size);
                QResizeEvent resized(size, QSize());
                QCoreApplication::sendEvent(&pad, &resized);
                expectContext(pad, type(), size.width(), size.height(), expectedRatio(type(), 7, 1024));
            }
        }
    });
}

TEST_P(SignMapping, OfAnOpenPadIsThatOfItsCanvas)
{
    OpenPad open(GetParam(), 500, 250);
    withOpenInstance(GetParam(),
        [&](auto &pad) { expectContext(pad, type(), 500, 250, expectedRatio(type(), 3, area().maxPressure)); });
}

TEST_P(SignMapping, IsLoggedByOneClassOnly)
{
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        const LogTail log;
        const LogOn on;
        mapped(pad, 1, 2, 3);
        const std::string key = std::string(GetParam().className()) + "::ConvertSignRawDataToSignWndData()";
        Lines expected;
        if (std::string(GetParam().className()) == "CS310XSignWidget")
            expected = {"<%ld>-enter, nSignRawX=1, nSignRawY=2, nSignRawP=3", "<%ld>-leave !"};
        EXPECT_EQ(messagesOf(log, key), expected);
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, SignMapping, testing::ValuesIn(allPads()), padCaseName);

// --- worked examples

TEST(SignMappingExamples, S300)
{
    CS300SignObj pad(460, 260);
    EXPECT_EQ(mapped(pad, 200, 200, 0), (Mapped{0.0, 0.0, 0.0}));
    EXPECT_EQ(mapped(pad, 100, 50, 0), (Mapped{0.0, 0.0, 0.0}));
    for (const int beyond : {0, 1, 30000}) {
        EXPECT_DOUBLE_EQ(mapped(pad, 2499 + beyond, 1499 + beyond, 0)[0], 2299 * 460 / 2300.0);
        EXPECT_DOUBLE_EQ(mapped(pad, 2499 + beyond, 1499 + beyond, 0)[1], 1299 * 260 / 1300.0);
    }
    CS300SignObj whole(2300, 1300);
    EXPECT_EQ(whole.m_SignContext.dblWidthRatioOfSignWndOverSignRaw, 1.0);
    EXPECT_EQ(whole.m_SignContext.dblHeightRatioOfSignWndOverSignRaw, 1.0);
    EXPECT_EQ(mapped(whole, 1234, 567, 306), (Mapped{1034.0, 367.0, 3.0}));
}

TEST(SignMappingExamples, R800)
{
    CR800SignObj pad(800, 600);
    const Mapped centre = mapped(pad, 15485, 10240, 8192);
    EXPECT_DOUBLE_EQ(centre[0], 400.0);
    EXPECT_DOUBLE_EQ(centre[1], 300.0);
    EXPECT_DOUBLE_EQ(centre[2], 9.0);
}

} // namespace
