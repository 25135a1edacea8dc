// Packets with positions, pressures and states up to the ends of int, and more packets than anybody signs.
#include "inkpicture.h"
#include "returnedtext.h"

#include <climits>
#include <cstring>

namespace {

constexpr int kExtremes[] = {INT_MIN, INT_MIN + 1, -65536, -1, 0, 32767, 32768, 65535, 1000000, INT_MAX - 1, INT_MAX};

class BadPackets : public testing::TestWithParam<PadCase>
{
protected:
    BadPackets()
        : pad(GetParam(), 80, 50)
        , area(rawArea(type))
    {
    }

    INKPOINTDATA last() const
    {
        INKPOINTDATA point{};
        point.nIndex = pad->GetTotalInkPointsNumber(type) - 1;
        EXPECT_EQ(pad->GetInkPointData(type, point), ARI_SUCCESS);
        return point;
    }

    void expectOutputs() const
    {
        EXPECT_EQ(pad.canvas().size(), QSize(80, 50));
        EXPECT_FALSE(svgTextOf(pad).bytes().isEmpty());
        EXPECT_FALSE(textOf(pad, EBITI_INK).isNull());
    }

    const int type = GetParam().family->type;
    OpenPad pad;
    const RawArea area;
};

} // namespace

// Far outside is the same as at the border of the writing area.
TEST_P(BadPackets, Positions)
{
    InkPicture picture(GetParam(), 80, 50);
    const auto toBorder = [](int value, int offset, int span) {
        return static_cast<int>(std::clamp<long long>(value, offset, 1LL * offset + span - 1));
    };
    pad.driver.send(area.offsetX, area.offsetY, 0, KVSPDARI_PS_PEN_DOWN);
    picture.play({{area.offsetX, area.offsetY, 0, KVSPDARI_PS_PEN_DOWN}});
    for (const int x : kExtremes) {
        for (const int y : kExtremes) {
            pad.driver.send(x, y, 300, KVSPDARI_PS_PEN_MOVE);
            picture.play({{toBorder(x, area.offsetX, area.spanX), toBorder(y, area.offsetY, area.spanY), 300,
                KVSPDARI_PS_PEN_MOVE}});
            EXPECT_EQ(last().nX, static_cast<int16_t>(x));
            EXPECT_EQ(last().nY, static_cast<int16_t>(y));
        }
    }
    EXPECT_EQ(difference(pad.canvas(), picture.image), "");
    expectOutputs();
}

TEST_P(BadPackets, Pressures)
{
    pad.driver.send(area.offsetX + 50, area.offsetY + 50, INT_MAX, KVSPDARI_PS_PEN_DOWN);
    int count = 1;
    int kept = INT_MAX;
    for (const int pressure : kExtremes) {
        pad.driver.send(area.offsetX + area.spanX / 2, area.offsetY + area.spanY / 2, pressure, KVSPDARI_PS_PEN_MOVE);
        pad.driver.send(area.offsetX + 50, area.offsetY + 50, pressure, KVSPDARI_PS_PEN_MOVE);
        if (pressure <= moveLimit(GetParam())) {
            count += 2;
            kept = pressure;
        }
        EXPECT_EQ(pad->GetTotalInkPointsNumber(type), count) << pressure;
        EXPECT_EQ(last().nPressureValue, static_cast<int16_t>(kept)) << pressure;
    }
    expectOutputs();
}

TEST_P(BadPackets, States)
{
    pad.driver.send(area.offsetX, area.offsetY, 10, KVSPDARI_PS_PEN_DOWN);
    for (const int state : kExtremes) {
        if (state != KVSPDARI_PS_PEN_DOWN)
            pad.driver.send(area.offsetX + 50, area.offsetY + 50, 10, state);
    }
    EXPECT_EQ(pad->GetTotalInkPointsNumber(type), 1);
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(type), -1);
    pad.driver.send(area.offsetX + 50, area.offsetY + 50, 10, KVSPDARI_PS_PEN_MOVE);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(type), 2) << "the stroke is still open";
}

INSTANTIATE_TEST_SUITE_P(AllPads, BadPackets, testing::ValuesIn(allPads()), padCaseName);

TEST(ManyPackets, AMillionPointsAreKept)
{
    constexpr int kPoints = 1'000'000;
    OpenPad pad({&kS300Family, true}, 8, 8);
    std::vector<KVSIM_PACKET> packets(kPoints, {500, 500, 0, KVSPDARI_PS_PEN_MOVE});
    packets.front().status = KVSPDARI_PS_PEN_DOWN;
    for (int i = 0; i < kPoints; ++i)
        packets[static_cast<size_t>(i)].x = i % 30000;
    pad.driver.send(packets);
    ASSERT_EQ(pad->GetTotalInkPointsNumber(pad.type()), kPoints);
    INKPOINTDATA point{};
    point.nIndex = kPoints - 1;
    EXPECT_EQ(pad->GetInkPointData(pad.type(), point), ARI_SUCCESS);
    EXPECT_EQ(point.nX, (kPoints - 1) % 30000);

    const Text record = textOf(pad, EBITI_INK);
    EXPECT_EQ(std::strlen(record.pointer()), (kPoints * 24u + 1 + 2) / 3 * 4);
    EXPECT_EQ(pad->Base64Decode(pad.type(), EBITI_INK, record.pointer(), nullptr), ARI_SUCCESS);
    EXPECT_EQ(pad->GetTotalDecodeInkPointsNumber(pad.type()), kPoints);
    EXPECT_EQ(pad->GetDecodeInkPointData(pad.type(), kPoints - 1, INKDATATYPE_X), (kPoints - 1) % 30000);

    EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
}
