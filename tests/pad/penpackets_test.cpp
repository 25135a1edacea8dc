// Packets of the driver: what is stored and drawn, through the exported functions.
#include "openpad.h"
#include "paddifferences.h"

namespace {

constexpr int kDown = KVSPDARI_PS_PEN_DOWN;
constexpr int kMove = KVSPDARI_PS_PEN_MOVE;
constexpr int kUp = KVSPDARI_PS_PEN_UP;

struct Stored
{
    int x;
    int y;
    int pressure;
    bool strokeEnd;

    friend bool operator==(const Stored &a, const Stored &b)
    {
        return a.x == b.x && a.y == b.y && a.pressure == b.pressure && a.strokeEnd == b.strokeEnd;
    }
    friend void PrintTo(const Stored &point, std::ostream *out)
    {
        *out << "(" << point.x << " " << point.y << " " << point.pressure << (point.strokeEnd ? " end)" : ")");
    }
};

std::vector<Stored> storedIn(const OpenPad &pad)
{
    std::vector<Stored> points;
    const int count = pad->GetTotalInkPointsNumber(pad.type());
    for (int index = 0; index < count; ++index) {
        INKPOINTDATA point = {};
        point.nIndex = index;
        EXPECT_EQ(pad->GetInkPointData(pad.type(), point), ARI_SUCCESS);
        points.push_back({point.nX, point.nY, point.nPressureValue, point.bStrokeEnd});
    }
    return points;
}

using Points = std::vector<Stored>;

class PenPackets : public testing::TestWithParam<PadCase>
{
protected:
    RawArea area() const { return rawArea(GetParam().family->type); }
};

TEST_P(PenPackets, OfAStrokeAreStoredAndClosedByACopyOfTheLast)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 1001, 10, kDown}, {1100, 1011, 500, kMove}, {1200, 1021, 700, kMove},
        {1300, 1031, 900, kMove}, {9999, 8888, 77, kUp}});
    EXPECT_EQ(storedIn(pad),
        (Points{{1000, 1001, 10, false}, {1100, 1011, 500, false}, {1200, 1021, 700, false}, {1300, 1031, 900, false},
            {1300, 1031, 900, true}}));
}

TEST_P(PenPackets, DrawOneSegmentAMoveAndNothingElse)
{
    OpenPad pad(GetParam());
    const RawArea raw = area();
    const int left = raw.offsetX + raw.spanX / 4;
    const int right = raw.offsetX + raw.spanX * 3 / 4;
    const int top = raw.offsetY + raw.spanY / 4;
    const int bottom = raw.offsetY + raw.spanY * 3 / 4;
    const int p = raw.maxPressure / 4;
    pad.driver.send(left, top, p, kDown);
    EXPECT_EQ(pad.canvas().pixelColor(100, 50), QColor(Qt::white)) << "pen down draws nothing";
    pad.driver.send({{right, top, p, kMove}, {right, bottom, p, kMove}, {left, bottom, p, kMove}});
    const QImage drawn = pad.canvas();
    pad.driver.send(left, top, p, kUp);
    EXPECT_EQ(pad.canvas(), drawn) << "pen up draws nothing";
    for (const QPoint &middle : {QPoint(200, 50), QPoint(300, 100), QPoint(200, 150)})
        EXPECT_EQ(drawn.pixelColor(middle), QColor(Qt::black));
    for (const QPoint &away : {QPoint(100, 100), QPoint(200, 100), QPoint(50, 50), QPoint(350, 100)})
        EXPECT_EQ(drawn.pixelColor(away), QColor(Qt::white));
}

TEST_P(PenPackets, WithoutAPenDownAreIgnored)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 1000, 100, kMove}, {2000, 1000, 100, kMove}, {2000, 1000, 100, kUp}, {1, 1, 1, kUp}});
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
    // After a pen up as well.
    pad.driver.send({{1000, 1000, 100, kDown}, {1000, 1000, 100, kUp}, {2000, 1000, 100, kMove}, {1, 1, 1, kUp}});
    EXPECT_EQ(storedIn(pad), (Points{{1000, 1000, 100, false}, {1000, 1000, 100, true}}));
}

TEST_P(PenPackets, OfAPenUpWithNothingStoredStoreNothing)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 1000, 100, kDown}, {2000, 1000, 100, kMove}});
    EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
    pad.driver.send({{2000, 1000, 100, kUp}, {2000, 1000, 100, kMove}});
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
}

TEST_P(PenPackets, ClearingLeavesTheStrokeOpen)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 1000, 100, kDown}, {2000, 1000, 100, kMove}});
    EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
    pad.driver.send({{2100, 1100, 200, kMove}, {1, 1, 1, kUp}});
    EXPECT_EQ(storedIn(pad), (Points{{2100, 1100, 200, false}, {2100, 1100, 200, true}}));
}

TEST_P(PenPackets, OfASecondPenDownStartANewStrokeWithoutClosingTheOld)
{
    OpenPad pad(GetParam());
    const RawArea raw = area();
    const int p = raw.maxPressure / 4;
    const int y = raw.offsetY + raw.spanY / 2;
    const int quarter = raw.spanX / 4;
    pad.driver.send({{raw.offsetX, y, p, kDown}, {raw.offsetX + quarter, y, p, kMove},
        {raw.offsetX + 3 * quarter, y, p, kDown}, {raw.offsetX + 4 * quarter, y, p, kMove}});
    for (const Stored &point : storedIn(pad))
        EXPECT_FALSE(point.strokeEnd);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 4);
    const QImage canvas = pad.canvas();
    EXPECT_EQ(canvas.pixelColor(50, 100), QColor(Qt::black));
    EXPECT_EQ(canvas.pixelColor(200, 100), QColor(Qt::white)) << "the new stroke starts at its own point";
    EXPECT_EQ(canvas.pixelColor(350, 100), QColor(Qt::black));
}

TEST_P(PenPackets, OfOtherStatusesChangeNothing)
{
    OpenPad pad(GetParam());
    const std::vector<KVSIM_PACKET> others = {{1, 2, 3, -1}, {1, 2, 3, 5}, {1, 2, 3, INT_MIN}, {1, 2, 3, INT_MAX},
        {1, 2, 3, 256}, {1, 2, 3, -2}, {1, 2, 3, 6}};
    pad.driver.send(others);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()), -1);
    pad.driver.send(1000, 1000, 100, kDown);
    pad.driver.send(others);
    pad.driver.send({{1500, 1000, 100, kMove}, {1, 1, 1, kUp}});
    EXPECT_EQ(storedIn(pad), (Points{{1000, 1000, 100, false}, {1500, 1000, 100, false}, {1500, 1000, 100, true}}));
}

TEST_P(PenPackets, AbovePressureLimitAreSkippedAndTheStrokeGoesOn)
{
    OpenPad pad(GetParam());
    const int limit = area().maxPressure;
    const bool filtered = differenceOf(GetParam()).hardestMove(limit) == limit;
    pad.driver.send({{1000, 1000, limit + 1, kDown}, {1100, 1000, limit, kMove}});
    EXPECT_EQ(storedIn(pad), (Points{{1000, 1000, limit + 1, false}, {1100, 1000, limit, false}}))
        << "a pen down is not checked, the limit itself is valid";
    const QImage before = pad.canvas();
    pad.driver.send(area().offsetX + area().spanX, 1200, limit + 1, kMove);
    EXPECT_EQ(pad.canvas() == before, filtered);
    EXPECT_EQ(storedIn(pad).size(), filtered ? 2U : 3U);
    pad.driver.send({{1300, 1100, 0, kMove}, {1, 1, 1, kUp}});
    EXPECT_EQ(storedIn(pad).size(), filtered ? 4U : 5U);
    EXPECT_EQ(storedIn(pad).back(), (Stored{1300, 1100, 0, true}));
}

TEST_P(PenPackets, WithoutPressureDrawALineOfOnePixel)
{
    OpenPad pad(GetParam());
    const RawArea raw = area();
    const int y = raw.offsetY + raw.spanY / 2;
    pad.driver.send({{raw.offsetX, y, 0, kDown}, {raw.offsetX + raw.spanX, y, 0, kMove}});
    const QImage canvas = pad.canvas();
    int dark = 0;
    for (int row = 0; row < canvas.height(); ++row)
        dark += canvas.pixelColor(200, row) != QColor(Qt::white) ? 1 : 0;
    EXPECT_EQ(dark, 1);
}

TEST_P(PenPackets, OfAnyIntAreNarrowedTo16Bits)
{
    OpenPad pad(GetParam());
    pad.driver.send({{INT_MIN, INT_MAX, INT_MAX, kDown}, {INT_MAX, INT_MIN, INT_MIN, kMove}, {70000, -70000, 0, kMove},
        {0, 0, 0, kUp}});
    EXPECT_EQ(storedIn(pad),
        (Points{{0, -1, -1, false}, {-1, 0, 0, false}, {4464, -4464, 0, false}, {4464, -4464, 0, true}}));
}

TEST_P(PenPackets, OfTheHardestPressureDoNoHarm)
{
    OpenPad pad(GetParam());
    pad.driver.send({{0, 0, 0, kDown}, {INT_MAX, INT_MAX, INT_MAX, kMove}, {0, INT_MAX, INT_MAX / 2, kMove}});
    const bool filtered = differenceOf(GetParam()).hardestMove(1) != INT_MAX;
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), filtered ? 1 : 3);
    EXPECT_EQ(pad.canvas().size(), QSize(400, 200));
}

TEST_P(PenPackets, FromInsideInitialAreIgnored)
{
    SimulatedDriver driver;
    const KVSIM_PACKET early[] = {{1000, 1000, 100, kDown}, {2000, 1000, 100, kMove}, {2000, 1000, 100, kUp},
        {0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON}};
    const auto set =
        reinterpret_cast<decltype(&KVSIM_SetReadingThreadPackets)>(driver.control("KVSIM_SetReadingThreadPackets"));
    set(early, 4);
    const Family &family = *GetParam().family;
    QWidget window;
    for (int round = 0; round < 5; ++round) {
        ASSERT_TRUE(family.InitialDevice(family.type, GetParam().headless ? nullptr : &window, 0, 0, 400, 200));
        EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), ARI_INK_EMPTY);
        EXPECT_EQ(family.GetDeviceConfirmOrCancelKeyStatus(family.type), -1);
        driver.send(2000, 1000, 100, kMove);
        EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), ARI_INK_EMPTY) << "no stroke is open";
        EXPECT_EQ(family.UnInitialDevice(family.type), ARI_SUCCESS);
        settle();
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, PenPackets, testing::ValuesIn(allPads()), padCaseName);

TEST(PenPacketsOfOlderPads, OfTheS210FamilyHaveTheLimitOfTheirVersion)
{
    for (const bool headless : {false, true}) {
        SimulatedDriver().setText("GetDevicePartsVersion", "KVS210L1");
        QWidget window;
        SimulatedDriver *driver = nullptr;
        ASSERT_TRUE(KVS210_InitialDevice(KVS210_DEVICE, headless ? nullptr : &window, 0, 0, 400, 200));
        SimulatedDriver opened;
        driver = &opened;
        driver->send({{1000, 1000, 100, kDown}, {1000, 1000, 1024, kMove}, {1000, 1000, 1025, kMove}});
        EXPECT_EQ(KVS210_GetTotalInkPointsNumber(KVS210_DEVICE), 2);
        KVS210_UnInitialDevice(KVS210_DEVICE);
        settle();
    }
}

} // namespace
