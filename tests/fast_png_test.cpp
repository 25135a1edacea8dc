// The PNG stream makes the bytes of Qt's own writer, whatever the canvas shows and however it changed.
#include "pngstream.h"
#include "recordedink.h"

#include <random>

namespace {

QByteArray byQt(const QImage &image)
{
    char *text = plain::imageText(image, "PNG", true);
    const QByteArray bytes = QByteArray::fromBase64(text);
    delete[] text;
    return bytes;
}

class FastPng : public testing::Test
{
protected:
    void expectEqual(const QImage &image)
    {
        const QByteArray expected = byQt(image);
        ASSERT_FALSE(expected.isEmpty());
        EXPECT_EQ(PngStream(PngStream::Memory::None).encoded(image), expected);
        EXPECT_EQ(kept.encoded(image), expected);
    }

    PngStream kept{PngStream::Memory::BetweenImages};
};

TEST_F(FastPng, GrowingSignaturesInColours)
{
    const QColor colours[] = {Qt::black, Qt::red, QColor(0, 0, 120, 60)};
    const QSize sizes[] = {{400, 200}, {317, 151}, {640, 480}};
    int turn = 0;
    for (const std::string &name : recordingNames()) {
        const QSize size = sizes[turn % 3];
        const QColor colour = colours[turn++ % 3];
        QImage canvas = whiteCanvas(size);
        int drawn = 0;
        for (const plain::Segment &segment : segmentsOf(recordedPackets(name, KVS210_DEVICE), KVS210_DEVICE, size)) {
            drawSegmentOrDot(canvas, segment, colour);
            if (drawn++ % 40 == 0)
                expectEqual(canvas);
        }
    }
}

TEST_F(FastPng, RandomImages)
{
    std::mt19937 random(7);
    for (int i = 0; i < 12; ++i) {
        QImage image = whiteCanvas({150 + static_cast<int>(random() % 200), 60 + static_cast<int>(random() % 200)});
        const auto share = 1 + random() % 100; // of noise, in percent
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (random() % 100 < share)
                    image.setPixel(x, y, 0xff000000U | static_cast<QRgb>(random()));
            }
        }
        expectEqual(image);
    }
}

TEST_F(FastPng, ChangesAnywhereAndNowhere)
{
    QImage image = whiteCanvas({400, 200});
    for (const int y : {199, 0, 100, 101, 99, 8, 7, 9, 150}) {
        image.setPixel(y * 2, y, 0xff00ff00);
        expectEqual(image);
        expectEqual(image); // unchanged
    }
    image.fill(Qt::white);
    expectEqual(image);
    image.fill(Qt::black);
    expectEqual(image);
    image = whiteCanvas({401, 200});
    expectEqual(image);
    image.setDotsPerMeterX(5905);
    expectEqual(image);
    expectEqual(whiteCanvas({400, 200}));
}

TEST_F(FastPng, StepsAsideWhereItsAssumptionsEnd)
{
    const QImage good = whiteCanvas({400, 200});
    QImage glassy = good;
    glassy.setPixel(399, 199, 0xfeffffff);
    EXPECT_TRUE(kept.encoded(glassy).isEmpty());
    EXPECT_TRUE(kept.encoded(whiteCanvas({20, 20})).isEmpty()) << "libpng treats small images in another way";
    EXPECT_TRUE(kept.encoded(whiteCanvas({20000, 1})).isEmpty());
    EXPECT_TRUE(kept.encoded(whiteCanvas({1, 20000})).isEmpty());
    EXPECT_TRUE(kept.encoded(good.convertToFormat(QImage::Format_RGB32)).isEmpty());
    EXPECT_TRUE(kept.encoded(QImage()).isEmpty());
    expectEqual(good);
}

// Through the exported functions, where a fallback would not be seen in the bytes.
TEST(PushedPng, IsBase64EncodeOfTheMoment)
{
    static QByteArray pushed;
    const Family &family = kS210Family;
    OpenPad pad({&family, true});
    KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_PNG, [](char *text) { pushed = text; });
    const auto packets = recordedPackets("initials", KVS210_DEVICE);
    QImage canvas = whiteCanvas({400, 200});
    const auto segments = segmentsOf(packets, KVS210_DEVICE, canvas.size());
    size_t drawn = 0;
    for (const KVSIM_PACKET &packet : packets) {
        pad.driver.send({packet});
        if (packet.status != KVSPDARI_PS_PEN_MOVE)
            continue;
        drawSegmentOrDot(canvas, segments[drawn++], Qt::black);
        if (drawn % 25 == 0) {
            EXPECT_EQ(QByteArray::fromBase64(pushed), byQt(canvas)) << drawn;
        }
    }
}

} // namespace
