// Canvases of every size that a caller may ask for, those that cannot be had included.
#include "openpad.h"

#include <QTemporaryDir>

#include <climits>

namespace {

struct Size
{
    int width;
    int height;
};

class CanvasSizes : public testing::TestWithParam<PadCase>
{
};

TEST_P(CanvasSizes, WithoutPixelsOpenAndGiveNoOutput)
{
    for (const Size &size : {Size{0, 0}, Size{0, 200}, Size{400, 0}, Size{-1, -1}, Size{-400, 200},
             Size{INT_MIN, INT_MIN}, Size{INT_MAX, INT_MAX}}) {
        if (!GetParam().headless && size.width == INT_MAX)
            continue; // a widget is never that large
        SCOPED_TRACE(testing::Message() << size.width << "x" << size.height);
        SimulatedDriver driver;
        QWidget window;
        if (!GetParam().headless)
            window.show();
        const Family &family = *GetParam().family;
        const int type = family.type;
        QWidget *parent = GetParam().headless ? nullptr : &window;
        ASSERT_TRUE(family.InitialDevice(type, parent, 0, 0, size.width, size.height));
        settle();
        driver.send(stroke(type, {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}, {0.9, 0.9, 0.5}}));
        EXPECT_EQ(family.GetTotalInkPointsNumber(type), 4) << "points need no canvas";
        const QTemporaryDir directory;
        std::wstring path = directory.filePath("sign.png").toStdWString();
        EXPECT_EQ(family.SaveDrawingImage(type, ITI_PNG, path.data(), IDLI_150DPI), ARI_INK_EMPTY);
        family.Base64EncodeExFree(type, family.Base64EncodeEx(type, EBITI_BITMAP, false));
        family.FreeSVGImageBase64Data(type, family.GetSVGImageBase64Data(type));
        EXPECT_EQ(family.Clear(type), ARI_SUCCESS);
        EXPECT_EQ(family.UnInitialDevice(type), ARI_SUCCESS);
        settle();
    }
}

TEST_P(CanvasSizes, OfOnePixelAndOfManyAreDrawnOn)
{
    for (const Size &size : {Size{1, 1}, Size{3, 2000}, Size{2000, 3}, Size{1920, 1080}}) {
        OpenPad pad(GetParam(), size.width, size.height);
        pad.driver.send(stroke(pad.type(), {{0.0, 0.0, 1}, {1.0, 1.0, 1}}));
        const QImage canvas = pad.canvas();
        ASSERT_EQ(canvas.size(), QSize(size.width, size.height));
        EXPECT_EQ(canvas.pixelColor(size.width / 2, size.height / 2), QColor(Qt::black));
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, CanvasSizes, testing::ValuesIn(allPads()), padCaseName);

} // namespace
