// Details of strokes that only show inside an instance: colours with alpha, the last point, a fingerprint pad's layers.
#include "inkpicture.h"
#include "insidepads.h"

namespace {

class StrokesInside : public testing::TestWithParam<PadCase>
{
};

INSTANTIATE_TEST_SUITE_P(AllPads, StrokesInside, testing::ValuesIn(allPads()), padCaseName);

TEST_P(StrokesInside, OfAColourWithAlphaAreDarkerWhereTheyOverlap)
{
    OpenPad pad(GetParam());
    InkPicture picture(GetParam(), 400, 200);
    picture.pen = {10, false, QColor(10, 60, 200, 100)};
    setPen(pad, picture.pen);
    withOpenInstance(GetParam(), [&](auto &instance) { instance.m_drawColor = picture.pen.colour; });
    const auto packets = stroke(pad.type(), {{0.1, 0.5, 0.5}, {0.5, 0.5, 0.5}, {0.9, 0.5, 0.5}});
    pad.driver.send(packets);
    picture.play(packets);
    const QImage canvas = pad.canvas();
    EXPECT_EQ(difference(canvas, picture.image), "");
    const auto darkness = [&](int x) { return 255 - qGray(canvas.pixel(x, 100)); };
    EXPECT_GT(darkness(100), 20);
    EXPECT_NEAR(darkness(100), darkness(300), 1);
    EXPECT_GT(darkness(200), darkness(100) + 20);
}

TEST_P(StrokesInside, StartAtTheLastPointWhichEachSegmentMoves)
{
    OpenPad pad(GetParam());
    const InkPicture picture(GetParam(), 400, 200);
    const auto packets = stroke(pad.type(), {{0.25, 0.75, 0.5}, {0.5, 0.25, 0.5}});
    for (size_t i = 0; i < 3; ++i) {
        pad.driver.send({packets[i]});
        const KVSIM_PACKET &last = packets[i == 0 ? 0 : 1];
        withOpenInstance(GetParam(), [&](auto &instance) {
            EXPECT_EQ(QPointF(instance.m_dblLastSignWndX, instance.m_dblLastSignWndY), picture.at(last.x, last.y));
        });
    }
}

TEST_P(StrokesInside, KeepFormatAndSizeOfTheCanvasTheyAndAClearTouch)
{
    OpenPad pad(GetParam(), 123, 45);
    const auto expectCanvas = [&](const char *when, bool white) {
        withOpenInstance(GetParam(), [&](auto &instance) {
            EXPECT_EQ(instance.m_canvas.size(), QSize(123, 45)) << when;
            EXPECT_EQ(instance.m_canvas.format(), QImage::Format_ARGB32) << when;
            EXPECT_EQ(inkPixels(instance.m_canvas) == 0, white) << when;
            EXPECT_EQ(instance.m_canvas.pixel(122, 0) >> 24, 255u) << when;
        });
    };
    expectCanvas("new", true);
    pad.driver.send(scribble(pad.type(), 3, 6));
    expectCanvas("signed", false);
    withOpenInstance(GetParam(), [&](auto &instance) {
        const size_t points = instance.m_pPointDataList->size();
        instance.m_bPenDown = true;
        instance.ClearSignCanvas();
        EXPECT_EQ(instance.m_pPointDataList->size(), points);
        EXPECT_TRUE(instance.m_bPenDown);
    });
    expectCanvas("cleared", true);
}

TEST_P(StrokesInside, OfAFingerprintPadGoOnTheInkLayerAndAClearEmptiesAllLayers)
{
    OpenPad pad(GetParam(), 300, 300);
    const auto packets = scribble(pad.type(), 3, 6);
    InkPicture picture(GetParam(), 300, 300);
    picture.play(packets);
    withOpenInstance(GetParam(), [&](auto &instance) {
        if constexpr (kHasFingerprint<std::decay_t<decltype(instance)>>) {
            pad.driver.send(packets);
            EXPECT_EQ(difference(instance.m_SignCanvas, picture.image), "");
            EXPECT_EQ(inkPixels(instance.m_FPOnlyCanvas), 0);
            instance.m_FPOnlyCanvas.fill(Qt::red);
            instance.m_nCurrentFPRawDataWithBestScore = 50;
            instance.ClearSignCanvas();
            EXPECT_EQ(instance.m_nCurrentFPRawDataWithBestScore, 0);
            for (const QImage *layer : {&instance.m_canvas, &instance.m_SignCanvas, &instance.m_FPOnlyCanvas})
                EXPECT_EQ(inkPixels(*layer), 0);
        } else {
            EXPECT_NE(pad.type(), KVS310X_DEVICE);
        }
    });
}

TEST_P(StrokesInside, MergeTheFingerprintLayerWithEachSegment)
{
    if (GetParam().family->type != KVS310X_DEVICE)
        return;
    OpenPad pad(GetParam(), 300, 300);
    withOpenInstance(GetParam(), [&](auto &instance) {
        if constexpr (kHasFingerprint<std::decay_t<decltype(instance)>>) {
            instance.m_FPOnlyCanvas.fill(Qt::red);
            pad.driver.send(stroke(pad.type(), {{0.01, 0.5, 0.1}, {0.99, 0.5, 0.1}}));
            // The fingerprint stands centred, 150 high and 108.3 wide: red paper, and the black line over it.
            EXPECT_EQ(instance.m_canvas.pixel(150, 100), 0xffff0000);
            EXPECT_EQ(instance.m_canvas.pixel(150, 150), 0xff000000);
            EXPECT_EQ(instance.m_canvas.pixel(150, 60), 0xffffffff);
            EXPECT_EQ(instance.m_SignCanvas.pixel(150, 100), 0xffffffff);
        }
    });
}

} // namespace
