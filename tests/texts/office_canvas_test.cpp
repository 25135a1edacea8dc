// The office canvas of the headless S210: the signing canvas stretched to a size of the caller's.
#include "returnedtext.h"

#include <QPainter>

#include <climits>

namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;

Text officeText(int type, int device = KVS210_DEVICE)
{
    return {KVS210_DEVICE, KVS210_WPSBase64Encode(device, type), KVS210_WPSBase64EncodeFree};
}

QImage stretched(const QImage &canvas, int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRectF(0, 0, width, height), canvas, QRectF(0, 0, canvas.width(), canvas.height()));
    return image;
}

class OfficeCanvas : public testing::Test
{
protected:
    void sign()
    {
        const auto packets = twoStrokes(pad.type());
        pad.driver.send(packets);
        signature = drawn({&kS210Family, true}, packets, kWidth, kHeight);
    }
    static bool make(int width, int height, int device = KVS210_DEVICE)
    {
        return KVS210_InitialWPSSignCanvas(device, width, height);
    }

    OpenPad pad{{&kS210Family, true}, kWidth, kHeight};
    QImage signature;
};

} // namespace

TEST_F(OfficeCanvas, ShowsTheSignatureStretchedInXAndYByThemselves)
{
    sign();
    for (const auto &[width, height] :
        {std::pair(300, 100), std::pair(kWidth, kHeight), std::pair(57, 211), std::pair(1, 1)}) {
        ASSERT_TRUE(make(width, height));
        const QImage expected = stretched(signature, width, height);
        EXPECT_EQ(officeText(EBITI_JPEG).bytes(), fileOf(expected, "JPG")) << width;
        const QImage png =
            QImage::fromData(officeText(EBITI_PNG).bytes(), "PNG").convertToFormat(QImage::Format_ARGB32);
        ASSERT_EQ(png.size(), QSize(width, height));
        EXPECT_EQ(officeText(EBITI_PNG).bytes(), fileOf(whiteMadeTransparent(expected), "PNG")) << width;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const bool white = expected.pixel(x, y) == 0xffffffff;
                ASSERT_EQ(qAlpha(png.pixel(x, y)), white ? 0 : 255) << x << ',' << y;
                if (!white) {
                    ASSERT_EQ(png.pixel(x, y), expected.pixel(x, y)) << x << ',' << y;
                }
            }
        }
    }
}

TEST_F(OfficeCanvas, SixHundredByThreeHundredOnThreeHundredByOneHundred)
{
    pad->UnInitialDevice(pad.type());
    ASSERT_TRUE(pad->InitialDevice(pad.type(), nullptr, 0, 0, 600, 300));
    ASSERT_TRUE(make(300, 100));
    pad.driver.send(twoStrokes(pad.type()));
    const QImage png = QImage::fromData(officeText(EBITI_PNG).bytes(), "PNG");
    EXPECT_EQ(png.size(), QSize(300, 100));
    EXPECT_EQ(qAlpha(png.pixel(0, 0)), 0);
    EXPECT_GT(inkPixels(pad.canvas()), 0);
}

TEST_F(OfficeCanvas, TransparencyOfAPngIsPaintedOverByTheNextText)
{
    sign();
    ASSERT_TRUE(make(70, 80));
    const QByteArray jpeg = officeText(EBITI_JPEG).text();
    const QByteArray png = officeText(EBITI_PNG).text();
    EXPECT_EQ(officeText(EBITI_JPEG).text(), jpeg);
    EXPECT_EQ(officeText(EBITI_PNG).text(), png);
    // What was written before does not shine through, where it was ink and where it was none.
    pad->Clear(pad.type());
    const auto other = stroke(pad.type(), {{0.1, 0.9, 0.5}, {0.9, 0.1, 0.5}});
    pad.driver.send(other);
    const QImage expected = stretched(drawn({&kS210Family, true}, other, kWidth, kHeight), 70, 80);
    EXPECT_EQ(officeText(EBITI_PNG).bytes(), fileOf(whiteMadeTransparent(expected), "PNG"));
    EXPECT_EQ(officeText(EBITI_JPEG).bytes(), fileOf(expected, "JPG"));
}

TEST_F(OfficeCanvas, IsMadeAnewInTheNewSize)
{
    sign();
    for (const QSize &size : {QSize(40, 30), QSize(300, 20), QSize(5, 5)}) {
        ASSERT_TRUE(make(size.width(), size.height()));
        EXPECT_EQ(QImage::fromData(officeText(EBITI_PNG).bytes()).size(), size);
    }
}

TEST_F(OfficeCanvas, DoesNotClip)
{
    sign();
    ASSERT_TRUE(make(70, 80));
    const QByteArray whole = officeText(EBITI_PNG).text();
    pad->SetSaveClipImageMargin(pad.type(), true, 2, 2);
    EXPECT_EQ(officeText(EBITI_PNG).text(), whole);
}

TEST_F(OfficeCanvas, NullWithoutAPoint)
{
    ASSERT_TRUE(make(70, 80));
    EXPECT_TRUE(officeText(EBITI_PNG).isNull());
    sign();
    EXPECT_FALSE(officeText(EBITI_PNG).isNull());
    pad->Clear(pad.type());
    EXPECT_TRUE(officeText(EBITI_PNG).isNull());
    EXPECT_TRUE(officeText(EBITI_JPEG).isNull());
}

TEST_F(OfficeCanvas, EmptyTextWhereThereIsNoCanvas)
{
    sign();
    const auto expectEmpty = [](const char *why) {
        for (const int type : {EBITI_JPEG, EBITI_PNG}) {
            const Text text = officeText(type);
            ASSERT_FALSE(text.isNull()) << why;
            EXPECT_EQ(text.text(), "") << why;
        }
    };
    expectEmpty("never made");
    const std::pair<int, int> sizes[] = {
        {-1, 10}, {10, -1}, {-5, -5}, {INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}, {INT_MAX, 1}};
    for (const auto &[width, height] : sizes) {
        ASSERT_TRUE(make(10, 10));
        EXPECT_TRUE(make(width, height)) << width;
        expectEmpty("bad size");
    }
    ASSERT_TRUE(make(10, 10));
    EXPECT_NE(officeText(EBITI_PNG).text(), "");
}

TEST_F(OfficeCanvas, RefusedArgumentsLeaveTheCanvas)
{
    sign();
    ASSERT_TRUE(make(70, 80));
    for (const auto &[width, height] : {std::pair(0, 5), std::pair(5, 0), std::pair(0, 0)})
        EXPECT_FALSE(make(width, height));
    for (const int device : {INT_MIN, 0, 1, 3, 4, 5, 7, INT_MAX}) {
        EXPECT_FALSE(make(5, 5, device)) << device;
        EXPECT_TRUE(officeText(EBITI_PNG, device).isNull()) << device;
    }
    for (const int type : {INT_MIN, -1, 0, 1, 4, 5, 6, INT_MAX})
        EXPECT_TRUE(officeText(type).isNull()) << type;
    EXPECT_EQ(QImage::fromData(officeText(EBITI_PNG).bytes()).size(), QSize(70, 80));
}

TEST_F(OfficeCanvas, NothingOfItOutlivesTheInstance)
{
    ASSERT_TRUE(make(70, 80));
    pad->UnInitialDevice(pad.type());
    EXPECT_FALSE(make(70, 80));
    EXPECT_TRUE(officeText(EBITI_PNG).isNull());
    ASSERT_TRUE(pad->InitialDevice(pad.type(), nullptr, 0, 0, kWidth, kHeight));
    sign();
    const Text text = officeText(EBITI_PNG);
    ASSERT_FALSE(text.isNull());
    EXPECT_EQ(text.text(), "");
}

TEST(OfficeCanvasOfAWidget, IsRefused)
{
    OpenPad pad({&kS210Family, false}, kWidth, kHeight);
    pad.driver.send(twoStrokes(pad.type()));
    EXPECT_FALSE(KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 300, 100));
    EXPECT_EQ(KVS210_WPSBase64Encode(KVS210_DEVICE, EBITI_PNG), nullptr);
    EXPECT_EQ(KVS210_WPSBase64Encode(KVS210_DEVICE, EBITI_JPEG), nullptr);
    KVS210_WPSBase64EncodeFree(KVS210_DEVICE, nullptr);
    EXPECT_FALSE(textOf(pad, EBITI_PNG).isNull());
}
