// The PNG stream makes the bytes of Qt's own writer, whatever the canvas shows and however it changed.
#include "fastways/pngstream.h"
#include "recordedink.h"
#include "savedfiles.h"

#include <random>

namespace {

QByteArray byQt(const QImage &image, WhiteIs white = WhiteIs::Transparent)
{
    char *text = plain::imageText(image, "PNG", white == WhiteIs::Transparent);
    const QByteArray bytes = QByteArray::fromBase64(text);
    delete[] text;
    return bytes;
}

class FastPng : public testing::Test
{
protected:
    void expectEqual(const QImage &image)
    {
        expectEqual(image, WhiteIs::Transparent, kept);
        expectEqual(image, WhiteIs::Opaque, keptOpaque);
    }

    static void expectEqual(const QImage &image, WhiteIs white, PngStream &kept)
    {
        const QByteArray expected = byQt(image, white);
        ASSERT_FALSE(expected.isEmpty());
        EXPECT_EQ(PngStream(PngStream::Memory::None, white).encoded(image), expected);
        EXPECT_EQ(kept.encoded(image), expected);
    }

    PngStream kept{PngStream::Memory::BetweenImages};
    PngStream keptOpaque{PngStream::Memory::BetweenImages, WhiteIs::Opaque};
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
    EXPECT_TRUE(kept.encoded(whiteCanvas({32768, 2})).isEmpty()) << "Qt leaves the last column white";
    EXPECT_TRUE(kept.encoded(whiteCanvas({2, 32768})).isEmpty());
    expectEqual(good);
}

// Ink at every place of a row where a range begins or ends, with rows above that begin and end elsewhere.
TEST_F(FastPng, InkAtTheEdges)
{
    const int width = 130;
    for (const int first : {0, 1, 2, 64, 127, 128, 129}) {
        QImage image = whiteCanvas({width, 60});
        int y = 0;
        for (const int last : {129, 128, 1, 0, 64}) {
            for (int x = std::min(first, last); x <= std::max(first, last); x += 1 + x % 3)
                image.setPixel(x, y, 0xff000000U | static_cast<QRgb>(x * 65793));
            y += 1 + y % 4; // next to each other, and with blank rows between
        }
        expectEqual(image);
        expectEqual(image.mirrored(false, true));
    }
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

class PngOutputs : public testing::TestWithParam<PadCase>
{
};

INSTANTIATE_TEST_SUITE_P(AllPads, PngOutputs, testing::ValuesIn(allPads()), padCaseName);

TEST_P(PngOutputs, AreThoseOfQtsWriter)
{
    OpenPad pad(GetParam(), 331, 170);
    SavedFiles files;
    pad->SetPenColor(pad.type(), 30, 60, 200);
    pad.driver.send(recordedPackets("signature", pad.type()));
    for (const bool clipped : {false, true}) {
        pad->SetSaveClipImageMargin(pad.type(), clipped, 3, 9);
        QImage canvas = pad.canvas();
        canvas.setDotsPerMeterX(whiteCanvas({1, 1}).dotsPerMeterX());
        canvas.setDotsPerMeterY(whiteCanvas({1, 1}).dotsPerMeterY());
        for (const WhiteIs white : {WhiteIs::Transparent, WhiteIs::Opaque}) {
            const bool transparent = white == WhiteIs::Transparent;
            char *text = pad->Base64EncodeEx(pad.type(), EBITI_PNG, transparent);
            EXPECT_EQ(QByteArray::fromBase64(text), byQt(canvas, white)) << clipped << transparent;
            pad->Base64EncodeExFree(pad.type(), text);
            ASSERT_EQ(files.save(pad, transparent ? ITI_PNG : ITI_BITMAP, "pad.png"), ARI_SUCCESS);
            ASSERT_TRUE(plain::saveImage(canvas, files.path("qt.png").toUtf8(), transparent));
            EXPECT_EQ(files.bytes("pad.png"), files.bytes("qt.png")) << clipped << transparent;
        }
    }
}

} // namespace
