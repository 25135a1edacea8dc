// The faster ways of the other outputs give the pixels and bytes of the plain ones.
#include "fastways/base64text.h"
#include "fastways/bitmapfile.h"
#include "fastways/jpegfile.h"
#include "fastways/opaquepixels.h"
#include "fastways/pngstream.h"
#include "fastways/svgwriter.h"
#include "inkbounds.h"
#include "pixelformats.h"
#include "recordedink.h"

#include <QBuffer>
#include <QColorSpace>

#include <fstream>
#include <random>
#include <sys/resource.h>
#include <unistd.h>

namespace {

QImage randomImage(std::mt19937 &random, const QSize &size, bool opaque)
{
    QImage image = whiteCanvas(size);
    const auto share = random() % 101;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb pixel = static_cast<QRgb>(random());
            if (random() % 100 < share)
                image.setPixel(x, y, opaque ? pixel | 0xff000000U : pixel);
        }
    }
    return image;
}

QSize randomSize(std::mt19937 &random)
{
    return {1 + static_cast<int>(random() % 70), 1 + static_cast<int>(random() % 40)};
}

TEST(FastTransparency, EqualsQtsMask)
{
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        const QImage image = randomImage(random, randomSize(random), i % 4 != 0);
        QImage expected = image;
        plain::makeWhiteTransparent(expected);
        QImage result = image;
        inkbounds::makeWhiteTransparent(result);
        EXPECT_EQ(result, expected);
        EXPECT_EQ(result.format(), expected.format());
        EXPECT_EQ(result.dotsPerMeterX(), expected.dotsPerMeterX());
    }
}

// Qt paints no farther than 32767 pixels; images thicker than one row of pieces, whose last piece is a smaller one.
TEST(FastTransparency, EqualsQtsMaskOfLongImages)
{
    std::mt19937 random(2);
    for (const QSize &size : {QSize(32767, 3), QSize(32768, 3), QSize(2, 32767), QSize(2, 32768), QSize(70000, 2),
             QSize(1, 70000), QSize(100, 400)}) {
        for (const bool opaque : {true, false}) {
            QImage result = randomImage(random, size, opaque);
            QImage expected = result;
            plain::makeWhiteTransparent(expected);
            inkbounds::makeWhiteTransparent(result);
            EXPECT_EQ(result, expected) << size.width() << " x " << size.height();
            EXPECT_EQ(result.format(), expected.format());
        }
    }
}

TEST(PixelFormats, EqualQtsConversion)
{
    std::mt19937 random(3);
    const QImage::Format formats[] = {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32};
    for (const QSize &size : {QSize(1, 1), QSize(63, 41), QSize(300, 301), QSize(40000, 2), QSize(2, 40000)}) {
        for (const QImage::Format from : formats) {
            QImage image = randomImage(random, size, false).convertToFormat(from);
            image.setDotsPerMeterX(4321);
            for (const QImage::Format to : formats) {
                const QImage converted = pixelformats::converted(image, to);
                EXPECT_EQ(converted, image.convertToFormat(to)) << from << " to " << to;
                EXPECT_EQ(converted.format(), to);
                EXPECT_EQ(converted.dotsPerMeterX(), 4321);
            }
        }
    }
    EXPECT_TRUE(pixelformats::converted(QImage(), QImage::Format_RGB32).isNull());
}

TEST(FastTransparency, LeavesImagesThatAreNotOpaqueToQt)
{
    QImage image = whiteCanvas({9, 9});
    EXPECT_FALSE(opaquepixels::whiteTransparent(image).isNull());
    image.setPixel(8, 8, 0x00ffffff);
    EXPECT_TRUE(opaquepixels::whiteTransparent(image).isNull());
    EXPECT_FALSE(opaquepixels::isOpaque(image));
    EXPECT_FALSE(opaquepixels::whiteTransparent(whiteCanvas({32767, 1})).isNull());
    EXPECT_TRUE(opaquepixels::whiteTransparent(whiteCanvas({32768, 1})).isNull()) << "Qt paints no farther";
}

TEST(OpacityMemo, SeesEveryChangeThroughTheImage)
{
    opaquepixels::Memo memo;
    QImage image = whiteCanvas({9, 9});
    EXPECT_TRUE(memo.isOpaque(image));
    image.setPixel(4, 4, 0x10ffffff);
    EXPECT_FALSE(memo.isOpaque(image));
    image.fill(Qt::white);
    EXPECT_TRUE(memo.isOpaque(image));
    image = QImage();
    memo.isOpaque(image);
    image = whiteCanvas({3, 3});
    image.setPixel(0, 0, 0);
    EXPECT_FALSE(memo.isOpaque(image));
}

TEST(FastBounds, EqualTheScanOfEveryPixel)
{
    std::mt19937 random(2);
    for (int i = 0; i < 300; ++i) {
        QImage image = whiteCanvas(randomSize(random));
        for (auto dots = random() % 12; dots > 0; --dots)
            image.setPixel(static_cast<int>(random() % static_cast<size_t>(image.width())),
                static_cast<int>(random() % static_cast<size_t>(image.height())), static_cast<QRgb>(random()));
        const QRect expected = plain::boundingBox(image);
        const inkbounds::Box quiet = inkbounds::scanQuietly(image);
        EXPECT_EQ(QRect(QPoint(quiet.left, quiet.top), QPoint(quiet.right, quiet.bottom)), expected);
    }
    const inkbounds::Box none = inkbounds::scanQuietly(QImage());
    EXPECT_EQ(none.left, 99999);
    EXPECT_EQ(none.bottom, -1);
}

TEST(FastBitmap, EqualsQtsWriter)
{
    std::mt19937 random(3);
    for (int i = 0; i < 200; ++i) {
        QImage image = randomImage(random, randomSize(random), i % 2 == 0);
        image.setDotsPerMeterX(static_cast<int>(random() % 20000));
        image.setDotsPerMeterY(static_cast<int>(random() % 20000));
        QByteArray expected;
        QBuffer buffer(&expected);
        buffer.open(QIODevice::WriteOnly);
        ASSERT_TRUE(image.save(&buffer, "BMP"));
        EXPECT_EQ(bitmapfile::encoded(image), expected);
    }
    EXPECT_TRUE(bitmapfile::encoded(QImage()).isEmpty());
    EXPECT_TRUE(bitmapfile::encoded(whiteCanvas({4, 4}).convertToFormat(QImage::Format_Mono)).isEmpty());
}

QByteArray jpegByQt(const QImage &image)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "JPEG") ? file : QByteArray();
}

TEST(FastJpeg, EqualsQtsWriter)
{
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i) {
        const QImage image = randomImage(random, randomSize(random), i % 2 == 0);
        const QByteArray expected = jpegByQt(image);
        ASSERT_FALSE(expected.isEmpty());
        EXPECT_EQ(jpegfile::encoded(image), expected);
    }
    for (const std::string &name : recordingNames()) {
        const QSize size(500, 300);
        QImage canvas = whiteCanvas(size);
        for (const plain::Segment &segment : segmentsOf(recordedPackets(name, KVM450_DEVICE), KVM450_DEVICE, size))
            drawSegmentOrDot(canvas, segment, QColor(0, 0, 160, 90));
        EXPECT_EQ(jpegfile::encoded(canvas), jpegByQt(canvas)) << name;
    }
}

TEST(FastJpeg, EqualsQtsFileAtAnyResolution)
{
    QImage image = whiteCanvas({30, 20});
    for (const int x : {3937, 5905, 11811, 1, 0, 3780}) {
        for (const int y : {x, 2835}) {
            image.setDotsPerMeterX(x);
            image.setDotsPerMeterY(y);
            EXPECT_EQ(jpegfile::encoded(image), jpegByQt(image)) << x << ", " << y;
        }
    }
}

TEST(FastJpeg, LeavesOtherImagesToQt)
{
    EXPECT_TRUE(jpegfile::encoded(QImage()).isEmpty());
    QImage image = whiteCanvas({30, 20});
    EXPECT_FALSE(jpegfile::encoded(image).isEmpty());
    EXPECT_TRUE(jpegfile::encoded(image.convertToFormat(QImage::Format_Indexed8)).isEmpty());
    image.setText("Title", "signature");
    EXPECT_TRUE(jpegfile::encoded(image).isEmpty());
    image = whiteCanvas({30, 20});
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    EXPECT_TRUE(jpegfile::encoded(image).isEmpty());
    const QImage wide = whiteCanvas({65501, 1}); // more than the format holds
    EXPECT_TRUE(jpegfile::encoded(wide).isEmpty());
    EXPECT_TRUE(jpegByQt(wide).isEmpty());
}

QByteArray byPlain(const QImage &image, const char *format, bool transparent)
{
    char *text = plain::imageText(image, format, transparent);
    const QByteArray bytes = QByteArray::fromBase64(text);
    delete[] text;
    return bytes;
}

void expectEveryWayEqual(const QImage &image, PngStream &kept)
{
    EXPECT_EQ(bitmapfile::encoded(image), byPlain(image, "BMP", false));
    EXPECT_EQ(jpegfile::encoded(image), byPlain(image, "JPG", false));
    const QByteArray png = kept.encoded(image);
    if (image.width() * image.height() > 5000) { // smaller ones are Qt's
        EXPECT_EQ(png, byPlain(image, "PNG", true));
        PngStream opaque(PngStream::Memory::None, WhiteIs::Opaque);
        EXPECT_EQ(opaque.encoded(image), byPlain(image, "PNG", false));
    }
    QImage expected = image;
    plain::makeWhiteTransparent(expected);
    EXPECT_EQ(opaquepixels::whiteTransparent(image), expected);
}

// While the signature grows, in the colours of ink, whole and cut to it.
TEST(FastImages, OfEveryRecordingOnEveryModel)
{
    const QColor colours[] = {Qt::black, QColor(0, 0, 160, 90), Qt::red};
    const QSize size(300, 150);
    int turn = 0;
    for (const Family &family : kFamilies) {
        for (const std::string &name : recordingNames()) {
            SCOPED_TRACE(family.prefix + name);
            PngStream kept(PngStream::Memory::BetweenImages);
            const QColor colour = colours[turn++ % 3];
            const auto segments = segmentsOf(recordedPackets(name, family.type), family.type, size);
            QImage canvas = whiteCanvas(size);
            for (size_t i = 0; i < segments.size(); ++i) {
                drawSegmentOrDot(canvas, segments[i], colour);
                if (i + 1 != segments.size() && i != segments.size() / 2)
                    continue;
                const inkbounds::Box box = inkbounds::scanQuietly(canvas);
                EXPECT_EQ(QRect(QPoint(box.left, box.top), QPoint(box.right, box.bottom)), plain::boundingBox(canvas));
                expectEveryWayEqual(canvas, kept);
                const QRect clip = inkbounds::withMargins(box, size.width(), size.height(), 5, 7);
                expectEveryWayEqual(inkbounds::partInside(canvas, clip), kept);
            }
        }
    }
}

// Sanitizers reserve address space without end, so that a limit means nothing to them.
#ifndef KV_SANITIZED
TEST(FastJpeg, IsEmptyWhereMemoryRunsOutInTheMiddle)
{
    std::mt19937 random(6);
    const QImage image = randomImage(random, {3000, 3000}, true);
    jpegfile::encoded(whiteCanvas({9, 9})); // what is made once is there
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_AS, &limit), 0);
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlimit tight{pages * static_cast<rlim_t>(::getpagesize()) + (rlim_t{1} << 20), limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &tight), 0);
    const QByteArray result = jpegfile::encoded(image);
    ::setrlimit(RLIMIT_AS, &limit);
    EXPECT_EQ(result.size(), 0);
    EXPECT_GT(jpegfile::encoded(image).size(), 4 << 20) << "more than may lie about unused";
}
#endif

TEST(FastBase64, EqualsQts)
{
    std::mt19937 random(4);
    for (int size = 0; size < 300; ++size) {
        QByteArray bytes;
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(random());
        int length = 0;
        char *text = base64text::newText(bytes, &length);
        EXPECT_EQ(QByteArray(text), bytes.toBase64());
        EXPECT_EQ(length, bytes.toBase64().size());
        delete[] text;
    }
}

QByteArray svg(const std::vector<svglines::Line> &lines, const QColor &colour, bool quick)
{
    svglines::Drawing drawing{{431, 207}, 150, colour, {}, svglines::linesOf(lines), lines.size()};
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    if (quick) {
        EXPECT_TRUE(svgwriter::writeQuickly(buffer, drawing));
    } else {
        svglines::writePlainly(buffer, drawing);
    }
    return text;
}

void expectSameSvg(const std::vector<plain::Segment> &segments, const QColor &colour)
{
    std::vector<svglines::Line> lines;
    for (const plain::Segment &segment : segments)
        lines.push_back({segment.from, segment.to, segment.width});
    EXPECT_EQ(svg(lines, colour, true), svg(lines, colour, false));
}

TEST(FastSvg, RecordingsOfEveryModel)
{
    for (const Family &family : kFamilies) {
        for (const std::string &name : recordingNames())
            expectSameSvg(
                segmentsOf(recordedPackets(name, family.type), family.type, {431, 207}), QColor(1, 2, 200, 99));
    }
}

// Coordinates such as those of a canvas as large as the pad's area, where Qt and the C++ library round differently.
TEST(FastSvg, NumbersOfEveryForm)
{
    std::mt19937 random(5);
    std::vector<plain::Segment> segments;
    const double scales[] = {1, 0.5, 0.25, 0.03125, 1.0 / 1024, 1e-5, 1e5, 1234.5678, 0.1};
    for (int i = 0; i < 20000; ++i) {
        const auto number = [&] { return (static_cast<int>(random() % 2000001) - 1000000) * scales[random() % 9]; };
        const QPointF from(number(), number());
        segments.push_back({from, i % 7 == 0 ? from : QPointF(number(), number()), i % 11 == 0 ? 0 : number()});
    }
    // As on a canvas of a negative size, at its left edge.
    segments.push_back({{-0.0, -1.0}, {-0.0, 3.0}, 2.0});
    expectSameSvg(segments, Qt::black);
}

} // namespace
