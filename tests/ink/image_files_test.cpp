// BMP, JPEG and PNG files: pixels, resolution, and which format a name means.
#include "inkpicture.h"
#include "savedfiles.h"

#include <QtEndian>

#include <cmath>

namespace {

class ImageFiles : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kWidth = 240;
    static constexpr int kHeight = 130;

    ImageFiles()
        : pad(GetParam(), kWidth, kHeight)
        , picture(GetParam(), kWidth, kHeight)
    {
        for (const QColor &colour : {QColor(Qt::black), QColor(0, 90, 200), QColor(255, 255, 254), QColor(Qt::white)}) {
            picture.pen.colour = colour;
            setPen(pad, picture.pen);
            const auto packets = scribble(pad.type(), static_cast<unsigned>(colour.blue() + 1), 3);
            pad.driver.send(packets);
            picture.play(packets);
        }
    }

    OpenPad pad;
    InkPicture picture;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, ImageFiles, testing::ValuesIn(allPads()), padCaseName);

struct Resolution
{
    int level;
    int dotsPerMetre;
    int dotsPerInch;
};
// Any other level than 0 means 300.
const Resolution kResolutions[] = {{0, 5905, 150}, {1, 11811, 300}, {2, 11811, 300}, {-1, 11811, 300}};

TEST_P(ImageFiles, OfBmpAreOpaqueAndExact)
{
    for (const Resolution &resolution : kResolutions) {
        ASSERT_EQ(files.save(pad, ITI_BITMAP, "sig.bmp", resolution.level), ARI_SUCCESS);
        const QByteArray bytes = files.bytes("sig.bmp");
        ASSERT_GT(bytes.size(), 54);
        const auto number = [&](int at) { return qFromLittleEndian<qint32>(bytes.constData() + at); };
        EXPECT_EQ(bytes.left(2), "BM");
        EXPECT_EQ(number(2), bytes.size());
        EXPECT_EQ(number(18), kWidth);
        EXPECT_EQ(number(22), kHeight);
        EXPECT_EQ(number(38), resolution.dotsPerMetre);
        EXPECT_EQ(number(42), resolution.dotsPerMetre);
        const QImage read = QImage(files.path("sig.bmp")).convertToFormat(QImage::Format_ARGB32);
        EXPECT_EQ(difference(read, picture.image), "");
    }
}

// The data of the first chunk of a type.
QByteArray pngChunk(const QByteArray &png, const char *type)
{
    const int at = png.indexOf(type);
    return at < 4 ? QByteArray() : png.mid(at + 4, qFromBigEndian<qint32>(png.constData() + at - 4));
}

TEST_P(ImageFiles, OfPngAreTransparentWherePureWhiteIsAndOpaqueElsewhere)
{
    for (const Resolution &resolution : kResolutions) {
        ASSERT_EQ(files.save(pad, ITI_PNG, "sig.png", resolution.level), ARI_SUCCESS);
        const QByteArray bytes = files.bytes("sig.png");
        EXPECT_EQ(bytes.left(8), "\x89PNG\r\n\x1a\n");
        const QByteArray density = pngChunk(bytes, "pHYs");
        ASSERT_EQ(density.size(), 9);
        EXPECT_EQ(qFromBigEndian<qint32>(density.constData()), resolution.dotsPerMetre);
        EXPECT_EQ(qFromBigEndian<qint32>(density.constData() + 4), resolution.dotsPerMetre);
        EXPECT_EQ(density[8], 1);

        const QImage read = QImage(files.path("sig.png")).convertToFormat(QImage::Format_ARGB32);
        ASSERT_EQ(read.size(), picture.image.size());
        int transparent = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const QRgb drawn = picture.image.pixel(x, y);
                const bool white = drawn == 0xffffffff;
                transparent += white;
                ASSERT_EQ(qAlpha(read.pixel(x, y)), white ? 0 : 255) << x << ", " << y;
                if (!white) {
                    ASSERT_EQ(read.pixel(x, y), drawn) << x << ", " << y;
                }
            }
        }
        EXPECT_GT(transparent, 1000);
    }
}

TEST_P(ImageFiles, OfJpegAreCloseAndOnWhite)
{
    for (const Resolution &resolution : kResolutions) {
        ASSERT_EQ(files.save(pad, ITI_JPEG, "sig.jpg", resolution.level), ARI_SUCCESS);
        const QByteArray bytes = files.bytes("sig.jpg");
        EXPECT_EQ(bytes.mid(6, 4), "JFIF");
        EXPECT_EQ(bytes[13], 1) << "dots per inch";
        EXPECT_EQ(qFromBigEndian<qint16>(bytes.constData() + 14), resolution.dotsPerInch);
        EXPECT_EQ(qFromBigEndian<qint16>(bytes.constData() + 16), resolution.dotsPerInch);
        const QImage read(files.path("sig.jpg"));
        ASSERT_EQ(read.size(), picture.image.size());
        double sum = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x)
                sum += std::abs(qGray(read.pixel(x, y)) - qGray(picture.image.pixel(x, y)));
        }
        EXPECT_LT(sum / (kWidth * kHeight), 6);
    }
}

struct Name
{
    int type;
    const char *name;
    const char *head; ///< what the file begins with; empty: refused
};
const Name kNames[] = {
    {ITI_BITMAP, "a.bmp", "BM"},
    {ITI_BITMAP, "a.BMP", "BM"},
    {ITI_BITMAP, "a.png", "\x89PNG"},
    {ITI_BITMAP, "a.jpg", "\xff\xd8"},
    {ITI_BITMAP, "a.pdf", ""},
    {ITI_JPEG, "a.jpg", "\xff\xd8"},
    {ITI_JPEG, "a.JPEG", "\xff\xd8"},
    {ITI_JPEG, "a.tar.jpeg", "\xff\xd8"},
    {ITI_JPEG, "a", ""},
    {ITI_JPEG, "a.", ""},
    {ITI_JPEG, "a.txt", ""},
    {ITI_JPEG, "a.jpgx", ""},
    {ITI_JPEG, "a.jpg ", ""},
    {ITI_PNG, "a.png", "\x89PNG"},
    {ITI_PNG, ".png", "\x89PNG"},
    {ITI_PNG, "a.bmp", "BM"},
    {ITI_PNG, "a.jpg", "\xff\xd8"},
    {ITI_PNG, "a.ppm", "P6"},
    {ITI_PNG, "a.svg", ""},
    {ITI_PDF, "a.png", "%PDF-"},
    {ITI_PDF, "a", "%PDF-"},
    {ITI_SVG, "a.png", "<?xml"},
    {ITI_SVG, "a", "<?xml"},
};

TEST_P(ImageFiles, HaveTheFormatThatTheirNameEndsIn)
{
    for (const Name &row : kNames) {
        SCOPED_TRACE(testing::Message() << "type " << row.type << ", " << row.name);
        QFile::remove(files.path(row.name));
        const bool refused = *row.head == '\0';
        EXPECT_EQ(files.save(pad, row.type, row.name), refused ? ARI_INK_EMPTY : ARI_SUCCESS);
        if (refused)
            EXPECT_FALSE(QFile::exists(files.path(row.name)));
        else
            EXPECT_TRUE(files.bytes(row.name).startsWith(row.head));
    }
}

TEST_P(ImageFiles, OfPngStayOpaqueForABitmapAndTheTypeAloneDecides)
{
    ASSERT_EQ(files.save(pad, ITI_BITMAP, "opaque.png"), ARI_SUCCESS);
    EXPECT_EQ(difference(QImage(files.path("opaque.png")).convertToFormat(QImage::Format_ARGB32), picture.image), "");
    ASSERT_EQ(files.save(pad, ITI_JPEG, "opaque.png"), ARI_SUCCESS);
    EXPECT_EQ(difference(QImage(files.path("opaque.png")).convertToFormat(QImage::Format_ARGB32), picture.image), "");
}

TEST_P(ImageFiles, LeaveCanvasPointsAndClippingAsTheyAre)
{
    const char *const kExtensions[] = {"bmp", "jpg", "png", "pdf", "svg"};
    const int kTypes[] = {ITI_BITMAP, ITI_JPEG, ITI_PNG, ITI_PDF, ITI_SVG};
    const int points = pad->GetTotalInkPointsNumber(pad.type());
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 3, 4), 0);
    const QImage clipped = pad.canvas();
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(files.save(pad, kTypes[i], QString("sig.") + kExtensions[i]), ARI_SUCCESS);
        EXPECT_EQ(files.save(pad, kTypes[i], "no/such/directory"), kTypes[i] == ITI_SVG ? ARI_SUCCESS : ARI_INK_EMPTY);
    }
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), points);
    EXPECT_EQ(difference(pad.canvas(), clipped), "");
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), false, 0, 0), 0);
    EXPECT_EQ(difference(pad.canvas(), picture.image), "");
}

TEST_P(ImageFiles, AreNotTouchedWithoutInk)
{
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    files.write("old.png", "old");
    for (const int type : {ITI_BITMAP, ITI_JPEG, ITI_PNG, ITI_PDF, ITI_SVG}) {
        EXPECT_EQ(files.save(pad, type, "old.png"), ARI_INK_EMPTY) << type;
        EXPECT_EQ(files.save(pad, type, "new.png"), ARI_INK_EMPTY) << type;
    }
    EXPECT_EQ(files.names(), std::vector<std::string>{"old.png"});
    EXPECT_EQ(files.bytes("old.png"), "old");
}

} // namespace
