// What a pen leaves on the canvas, pixel by pixel against a picture that the test draws itself.
#include "inkpicture.h"
#include "logmessages.h"

#include <cmath>

namespace {

class Strokes : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kWidth = 400;
    static constexpr int kHeight = 200;

    // Sends the packets to an open pad and to the picture, and compares.
    static void expectSame(OpenPad &pad, InkPicture &picture, const std::vector<KVSIM_PACKET> &packets)
    {
        pad.driver.send(packets);
        picture.play(packets);
        EXPECT_EQ(difference(pad.canvas(), picture.image), "");
    }
};

INSTANTIATE_TEST_SUITE_P(AllPads, Strokes, testing::ValuesIn(allPads()), padCaseName);

TEST_P(Strokes, DrawOneSegmentPerMoveWithTheWidthOfItsEnd)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    InkPicture picture(GetParam(), kWidth, kHeight);
    for (unsigned seed = 1; seed <= 3; ++seed)
        expectSame(pad, picture, scribble(pad.type(), seed, 25));
    EXPECT_GT(inkPixels(picture.image), 1000);
}

TEST_P(Strokes, FollowLevelStyleAndColour)
{
    const QColor colours[] = {Qt::black, QColor(200, 10, 30), QColor(1, 254, 255), QColor(255, 255, 254), Qt::white};
    OpenPad pad(GetParam(), kWidth, kHeight);
    InkPicture picture(GetParam(), kWidth, kHeight);
    for (int level = 1; level <= 10; ++level) {
        for (const bool withPressure : {true, false}) {
            picture.pen = {level, withPressure, colours[(2 * level + withPressure) % 5]};
            setPen(pad, picture.pen);
            const unsigned seed = static_cast<unsigned>(100 + level + 20 * withPressure);
            expectSame(pad, picture, scribble(pad.type(), seed, 3));
        }
    }
}

TEST_P(Strokes, ChangeOnlyWhatComesAfterASettingNotWhatWasDrawn)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    InkPicture picture(GetParam(), kWidth, kHeight);
    std::vector<KVSIM_PACKET> first = scribble(pad.type(), 7, 5);
    std::vector<KVSIM_PACKET> second = scribble(pad.type(), 8, 5);
    first.pop_back();
    second.front().status = KVSPDARI_PS_PEN_MOVE;
    expectSame(pad, picture, first);
    picture.pen = {9, true, Qt::blue};
    setPen(pad, picture.pen);
    expectSame(pad, picture, second);
}

TEST_P(Strokes, TakeEveryPressureThatThePadLetsThrough)
{
    const int largest = rawArea(GetParam().family->type).maxPressure;
    for (const int pressure : {0, 1, 30, 102, 103, largest - 1, largest, largest + 1, 40000, -1, -500, -40000}) {
        OpenPad pad(GetParam(), kWidth, kHeight);
        InkPicture picture(GetParam(), kWidth, kHeight);
        std::vector<KVSIM_PACKET> packets = stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.6, 0.7, 0.5}, {0.5, 0.2, 0.5}});
        for (KVSIM_PACKET &packet : packets)
            packet.pressure = pressure;
        SCOPED_TRACE(pressure);
        expectSame(pad, picture, packets);
    }
}

TEST_P(Strokes, SurvivePressuresAndPositionsAtTheEndsOfInt)
{
    const int ends[] = {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX};
    OpenPad pad(GetParam(), kWidth, kHeight);
    InkPicture picture(GetParam(), kWidth, kHeight);
    std::vector<KVSIM_PACKET> packets = {{INT_MIN, INT_MAX, 500, 0}};
    for (const int x : ends) {
        for (const int y : ends)
            packets.push_back({x, y, 500, 1});
    }
    packets.push_back({INT_MAX, INT_MIN, INT_MIN, 2});
    expectSame(pad, picture, packets);

    for (const int pressure : ends) {
        SCOPED_TRACE(pressure);
        packets = stroke(pad.type(), {{0.1, 0.1, 0.3}, {0.4, 0.5, 0.3}});
        packets[1].pressure = pressure;
        EXPECT_EQ(pad->Clear(pad.type()), 0);
        picture.image.fill(Qt::white);
        expectSame(pad, picture, packets);
    }
}

TEST_P(Strokes, DrawADiscWhereTheMoveEndsAtTheLastPoint)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    InkPicture picture(GetParam(), kWidth, kHeight);
    picture.pen = {10, false, Qt::black};
    setPen(pad, picture.pen);
    expectSame(pad, picture, stroke(pad.type(), {{0.5, 0.5, 0.5}, {0.5, 0.5, 0.5}}));

    const QImage canvas = pad.canvas();
    const std::vector<KVSIM_PACKET> packets = stroke(pad.type(), {{0.5, 0.5, 0.5}});
    const QPointF centre = picture.at(packets[0].x, packets[0].y);
    const double radius = picture.penWidth(0) / 2;
    EXPECT_GE(radius, 5);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double distance = std::hypot(x + 0.5 - centre.x(), y + 0.5 - centre.y());
            if (distance < radius - 1.2) {
                ASSERT_EQ(canvas.pixel(x, y), 0xff000000) << x << ", " << y;
            } else if (distance > radius + 1.2) {
                ASSERT_EQ(canvas.pixel(x, y), 0xffffffff) << x << ", " << y;
            }
        }
    }
}

TEST_P(Strokes, LeaveOfAMoveWithoutLengthWhatAThinPenLeaves)
{
    // Widths just up to and just above one pixel: level 1, pressures around 306 (FixedDivisor) and 2731 (OwnMaximum).
    for (const int pressure : {0, 10, 305, 306, 307, 2730, 2731, 2732}) {
        if (pressure > rawArea(GetParam().family->type).maxPressure)
            continue;
        OpenPad pad(GetParam(), kWidth, kHeight);
        InkPicture picture(GetParam(), kWidth, kHeight);
        picture.pen.level = 1;
        setPen(pad, picture.pen);
        std::vector<KVSIM_PACKET> packets = stroke(pad.type(), {{0.3, 0.6, 0.1}, {0.3, 0.6, 0.1}});
        packets[1].pressure = pressure;
        SCOPED_TRACE(pressure);
        expectSame(pad, picture, packets);
    }
}

TEST_P(Strokes, AreAsThickAsTheFixedWidthSays)
{
    const bool threefold = GetParam().family->type == KVR800_DEVICE || GetParam().family->type == KVM450_DEVICE;
    for (const int level : {2, 10}) {
        OpenPad pad(GetParam(), kWidth, kHeight);
        setPen(pad, {level, false, Qt::black});
        pad.driver.send(stroke(pad.type(), {{0.1, 0.5, 0.1}, {0.5, 0.5, 1}, {0.9, 0.5, 0}}));
        const QImage canvas = pad.canvas();
        for (const int x : {60, 150, 250, 340}) {
            double thickness = 0;
            for (int y = 0; y < kHeight; ++y)
                thickness += (255 - qGray(canvas.pixel(x, y))) / 255.0;
            EXPECT_NEAR(thickness, threefold ? level * 3 : level, 0.1) << "level " << level << ", column " << x;
        }
    }
}

TEST_P(Strokes, OfATapLeaveNoMark)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    const std::vector<KVSIM_PACKET> tap = stroke(pad.type(), {{0.5, 0.5, 1}});
    pad.driver.send(tap);
    pad.driver.send(tap);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 4);
    EXPECT_EQ(inkPixels(pad.canvas()), 0);
    EXPECT_EQ(pad.canvas().size(), QSize(kWidth, kHeight));
}

TEST_P(Strokes, AreGoneAfterClearAndNewOnesStartOnWhite)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    pad.driver.send(scribble(pad.type(), 4, 20));
    EXPECT_GT(inkPixels(pad.canvas()), 0);
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
    InkPicture picture(GetParam(), kWidth, kHeight);
    expectSame(pad, picture, stroke(pad.type(), {{0.5, 0.5, 1}}));
    EXPECT_EQ(inkPixels(picture.image), 0);
    expectSame(pad, picture, scribble(pad.type(), 5, 4));
}

TEST_P(Strokes, AreGoneWhenThePadsScreenIsSwitchedOffButTheirPointsStay)
{
    if (!GetParam().family->hasScreen) {
        EXPECT_EQ(GetParam().family->OpenLCD, nullptr);
        return;
    }
    OpenPad pad(GetParam(), kWidth, kHeight);
    pad.driver.send(scribble(pad.type(), 6, 9));
    EXPECT_EQ(pad->OpenLCD(pad.type(), true), 0);
    EXPECT_GT(inkPixels(pad.canvas()), 0);
    EXPECT_EQ(pad->OpenLCD(pad.type(), false), 0);
    EXPECT_EQ(inkPixels(pad.canvas()), 0);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 11);
}

TEST_P(Strokes, AreShownByTheWidgetSoonAfter)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    if (GetParam().headless) {
        EXPECT_EQ(pad.widget(), nullptr);
        return;
    }
    InkPicture picture(GetParam(), kWidth, kHeight);
    const std::vector<KVSIM_PACKET> packets = scribble(pad.type(), 11, 12);
    LogTail painting("/tmp/kvsignpadsdk_inthread.log");
    {
        const LogOn logOn;
        pad.driver.send(packets);
        settle();
    }
    picture.play(packets);
    EXPECT_EQ(messagesOf(painting, std::string(GetParam().className()) + "::paintEvent()").size(), 2u);
    EXPECT_EQ(difference(pad.widget()->grab().toImage().convertToFormat(QImage::Format_ARGB32), picture.image), "");
}

TEST_P(Strokes, WriteTheirLogLines)
{
    OpenPad pad(GetParam(), kWidth, kHeight);
    const std::vector<KVSIM_PACKET> packets = stroke(pad.type(), {{0.1, 0.2, 0.3}, {0.5, 0.25, 0.5}});
    const LogTail log;
    {
        const LogOn logOn;
        pad.driver.send(packets);
        EXPECT_EQ(pad->Clear(pad.type()), 0);
    }
    const InkPicture picture(GetParam(), kWidth, kHeight);
    const QPointF to = picture.at(packets[1].x, packets[1].y);
    const std::string scope = GetParam().className() + std::string("::");
    const QString entered = QString::asprintf(
        "<%%ld>-enter, dblX=%f, dblY=%f, dblPressure=%f", to.x(), to.y(), picture.penWidth(packets[1].pressure));
    EXPECT_EQ(messagesOf(log, scope + "StartSignOnCanvas()"), (Lines{entered.toStdString(), "<%ld>-leave !"}));
    EXPECT_EQ(messagesOf(log, scope + "ClearSignCanvas()").size(), 2u);
}

} // namespace
