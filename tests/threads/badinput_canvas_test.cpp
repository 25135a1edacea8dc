// Impossible canvas sizes: the pad opens all the same and keeps its points, and each output fails in its own way.
#include "returnedtext.h"

#include <QTemporaryDir>

#include <climits>

namespace {

struct Size
{
    int width;
    int height;
    bool exists;
};

constexpr Size kSizes[] = {{0, 0, false}, {0, 50, false}, {50, 0, false}, {-1, -1, false}, {-50, 50, false},
    {50, INT_MIN, false}, {INT_MIN, INT_MIN, false}, {INT_MAX, INT_MAX, false}, {600000, 1000, false},
    {100000, 100000, false}, {1, 1, true}, {1, 300, true}, {300, 1, true}};

class BadCanvas : public testing::TestWithParam<PadCase>
{
protected:
    int save(OpenPad &pad, int fileType, const char *name)
    {
        std::wstring path = directory.filePath(name).toStdWString();
        return pad->SaveDrawingImage(pad.type(), fileType, path.data(), IDLI_300DPI);
    }

    void expectPixelOutputs(OpenPad &pad, const Size &size)
    {
        const int expected = size.exists ? ARI_SUCCESS : ARI_INK_EMPTY;
        EXPECT_EQ(save(pad, ITI_BITMAP, "a.bmp"), expected);
        EXPECT_EQ(save(pad, ITI_JPEG, "a.jpg"), expected);
        EXPECT_EQ(save(pad, ITI_PNG, "a.png"), expected);
        for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
            const Text text = textOf(pad, type);
            EXPECT_FALSE(text.isNull());
            EXPECT_EQ(text.text().isEmpty(), !size.exists) << type;
        }
    }

    void expectOtherOutputs(OpenPad &pad)
    {
        EXPECT_EQ(save(pad, ITI_PDF, "a.pdf"), ARI_SUCCESS);
        EXPECT_EQ(save(pad, ITI_SVG, "a.svg"), ARI_SUCCESS);
        EXPECT_TRUE(svgTextOf(pad).bytes().trimmed().endsWith("</svg>"));
        const Text record = textOf(pad, EBITI_INK);
        EXPECT_EQ(pad->Base64Decode(pad.type(), EBITI_INK, record.pointer(), nullptr), ARI_SUCCESS);
        EXPECT_EQ(pad->GetTotalDecodeInkPointsNumber(pad.type()), 9);
    }

    void sign(OpenPad &pad)
    {
        pad.driver.send(twoStrokes(pad.type()));
        settle();
        ASSERT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 9);
    }

    QTemporaryDir directory;
};

} // namespace

TEST_P(BadCanvas, Sizes)
{
    for (const Size &size : kSizes) {
        SCOPED_TRACE(testing::Message() << size.width << " by " << size.height);
        OpenPad pad(GetParam(), size.width, size.height);
        ASSERT_TRUE(pad.isOpen());
        sign(pad);
        if (pad.type() == KVS310X_DEVICE)
            pad.driver.sendFingerprint(std::vector<unsigned char>(208 * 288, 1), 1);
        expectPixelOutputs(pad, size);
        expectOtherOutputs(pad);
        pad->SetSaveClipImageMargin(pad.type(), true, 2, 2);
        expectPixelOutputs(pad, size);
        expectOtherOutputs(pad);
        pad.driver.send(stroke(pad.type(), {{0.9, 0.9, 0.5}, {0.9, 0.9, 0.5}})); // a dot
        EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
        sign(pad);
    }
}

TEST_P(BadCanvas, SizesOfOnePixelAndOfManyAreDrawnOn)
{
    for (const QSize &size : {QSize(1, 1), QSize(3, 2000), QSize(2000, 3), QSize(1920, 1080)}) {
        OpenPad pad(GetParam(), size.width(), size.height());
        pad.driver.send(stroke(pad.type(), {{0.0, 0.0, 1}, {1.0, 1.0, 1}}));
        const QImage canvas = pad.canvas();
        ASSERT_EQ(canvas.size(), size);
        EXPECT_EQ(canvas.pixelColor(size.width() / 2, size.height() / 2), QColor(Qt::black));
    }
}

TEST_P(BadCanvas, Positions)
{
    if (GetParam().headless) {
        OpenPad pad(GetParam(), 10, 10); // a headless pad has no position: any is taken
        pad->UnInitialDevice(pad.type());
        EXPECT_TRUE(pad->InitialDevice(pad.type(), nullptr, INT_MIN, INT_MAX, 60, 40));
        return;
    }
    for (const int at : {INT_MIN, -100000, 100000, INT_MAX}) {
        OpenPad pad(GetParam(), 10, 10);
        pad->UnInitialDevice(pad.type());
        settle();
        ASSERT_TRUE(pad->InitialDevice(pad.type(), pad.window(), at, at, 60, 40));
        sign(pad);
        EXPECT_EQ(pad.canvas().size(), QSize(60, 40));
        EXPECT_EQ(pad.widget()->size(), QSize(60, 40));
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, BadCanvas, testing::ValuesIn(allPads()), padCaseName);

class BadWidgetSize : public testing::TestWithParam<const Family *>
{
};

TEST_P(BadWidgetSize, AWidgetThatIsResizedToNothingAndBack)
{
    OpenPad pad({GetParam(), false}, 60, 40);
    for (const QSize &size : {QSize(0, 0), QSize(60, 0), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX), QSize(70, 30)}) {
        pad.widget()->resize(size);
        settle();
        pad->Clear(pad.type());
        pad.driver.send(twoStrokes(pad.type()));
        settle();
        EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 9);
        EXPECT_EQ(pad.canvas().isNull(), size != QSize(70, 30));
    }
    EXPECT_EQ(pad.canvas(), drawn({GetParam(), false}, twoStrokes(pad.type()), 70, 30));
}

INSTANTIATE_TEST_SUITE_P(WidgetPads, BadWidgetSize,
    testing::Values(&kS210Family, &kS300Family, &kS310XFamily, &kR800Family, &kM450Family),
    [](const auto &row) { return row.param->widgetClass; });
