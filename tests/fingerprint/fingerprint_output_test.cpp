// The fingerprint in what a caller takes away: image files, Base64 texts, SVG, and its own image text.
#include "fingerprints.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <climits>

namespace {

constexpr int kDevice = KVS310X_DEVICE;
const QSize kSize(500, 400); // larger than the sensor's image, so that both hosts' layers hold it whole
const QRect kPlace(60, 40, 150, 200);

/// A pad with a merged fingerprint and, if asked for, ink.
class FingerprintOutput : public testing::TestWithParam<PadCase>
{
protected:
    FingerprintOutput()
        : pad(GetParam(), kSize.width(), kSize.height())
        , layer(layerOf(ridges(1), GetParam().headless ? kSize : QSize(kGreyWidth, kGreyHeight)))
        , print(printed(layer, middleOf(kSize), kSize))
    {
    }

    void sendFingerprint()
    {
        pad.driver.sendFingerprint(ridges(1), 10);
        expectBecomes([this] { return shown(pad); }, print);
    }

    int save(int type, const QString &name) const
    {
        return KVS310X_SaveDrawingImage(
            kDevice, type, const_cast<wchar_t *>(path(name).toStdWString().c_str()), IDLI_150DPI);
    }
    QString path(const QString &name) const { return directory.filePath(name); }

    FingerprintPad pad;
    QImage layer;
    QImage print;
    QTemporaryDir directory;
};
INSTANTIATE_TEST_SUITE_P(Hosts, FingerprintOutput, testing::ValuesIn(fingerprintPads()), padCaseName);

/// The pictures in an SVG file, decoded, with the place they are drawn at.
struct SvgPicture
{
    QPointF at;
    QImage image;
};

std::vector<SvgPicture> picturesOf(const QByteArray &svg)
{
    std::vector<SvgPicture> pictures;
    QXmlStreamReader reader(svg);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != QLatin1String("image"))
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const QString link = attributes.value("xlink:href").toString();
        const QByteArray bytes = QByteArray::fromBase64(link.mid(link.indexOf(',') + 1).toLatin1());
        pictures.push_back({{attributes.value("x").toDouble(), attributes.value("y").toDouble()},
            QImage::fromData(bytes).convertToFormat(QImage::Format_ARGB32)});
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return pictures;
}

QImage rendered(const QString &svgFile, const QSize &size)
{
    QProcess renderer;
    renderer.start("rsvg-convert",
        {"-w", QString::number(size.width()), "-h", QString::number(size.height()), "-b", "white", svgFile});
    EXPECT_TRUE(renderer.waitForFinished());
    return QImage::fromData(renderer.readAllStandardOutput()).convertToFormat(QImage::Format_ARGB32);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

TEST_P(FingerprintOutput, WithNeitherInkNorFingerprintThereIsNone)
{
    for (const int type : {ITI_BITMAP, ITI_JPEG, ITI_PNG, ITI_PDF, ITI_SVG})
        EXPECT_EQ(save(type, "none.png"), ARI_INK_EMPTY) << type;
    EXPECT_FALSE(QFile::exists(path("none.png")));
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG, EBITI_INK})
        EXPECT_TRUE(textOf(pad, type).isNull()) << type;
}

TEST_P(FingerprintOutput, AFingerprintAloneIsSaved)
{
    sendFingerprint();
    ASSERT_EQ(save(ITI_BITMAP, "print.bmp"), ARI_SUCCESS);
    EXPECT_EQ(difference(QImage(path("print.bmp")).convertToFormat(QImage::Format_ARGB32), print), "");
    ASSERT_EQ(save(ITI_PNG, "print.png"), ARI_SUCCESS);
    EXPECT_EQ(difference(QImage(path("print.png")).convertToFormat(QImage::Format_ARGB32),
                  whiteMadeTransparent(print).convertToFormat(QImage::Format_ARGB32)),
        "");
    ASSERT_EQ(save(ITI_JPEG, "print.jpg"), ARI_SUCCESS);
    EXPECT_EQ(QImage(path("print.jpg")).size(), kSize);
    ASSERT_EQ(save(ITI_PDF, "print.pdf"), ARI_SUCCESS);
    EXPECT_EQ(contents(path("print.pdf")).left(5), "%PDF-");
}

TEST_P(FingerprintOutput, AfterAClearNothingIsSaved)
{
    sendFingerprint();
    EXPECT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    EXPECT_EQ(save(ITI_PNG, "cleared.png"), ARI_INK_EMPTY);
    EXPECT_TRUE(textOf(pad, EBITI_PNG).isNull());
}

// The drawing holds the fingerprint as a picture of its own, centred at full size whatever the canvas shows.
TEST_P(FingerprintOutput, TheSvgFileCarriesTheLayer)
{
    sendFingerprint();
    ASSERT_EQ(save(ITI_SVG, "print.svg"), ARI_SUCCESS);
    const auto pictures = picturesOf(contents(path("print.svg")));
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(pictures[0].at, QPointF((500 - 208) / 2, (400 - 288) / 2));
    EXPECT_EQ(difference(pictures[0].image, layer), "");
    const QRect sensor(146, 56, kGreyWidth, kGreyHeight);
    EXPECT_EQ(
        difference(rendered(path("print.svg"), kSize).copy(sensor), layer.copy(0, 0, kGreyWidth, kGreyHeight)), "");

    pad.driver.send(twoStrokes(kDevice));
    ASSERT_EQ(save(ITI_SVG, "both.svg"), ARI_SUCCESS);
    const QByteArray both = contents(path("both.svg"));
    EXPECT_EQ(picturesOf(both).size(), 1u);
    EXPECT_GT(both.indexOf("<polyline"), both.indexOf("<image")) << "the strokes are drawn over it";
}

// On a canvas with less room the halves are rounded towards minus infinity.
TEST_P(FingerprintOutput, OnASmallCanvasTheSvgPictureBeginsOutside)
{
    KVS310X_UnInitialDevice(kDevice);
    FingerprintPad small(GetParam(), 101, 51);
    small.driver.sendFingerprint(ridges(1), 10);
    ASSERT_TRUE(becomes([&] { return !shown(small).isNull(); }));
    ASSERT_EQ(save(ITI_SVG, "small.svg"), ARI_SUCCESS);
    const auto pictures = picturesOf(contents(path("small.svg")));
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(pictures[0].at, QPointF(-54, -119)); // (101 - 208) / 2 = -53.5 and (51 - 288) / 2 = -118.5
    EXPECT_EQ(pictures[0].image.size(), GetParam().headless ? QSize(101, 51) : QSize(kGreyWidth, kGreyHeight));
}

TEST_P(FingerprintOutput, TheSvgTextNeedsInk)
{
    sendFingerprint();
    EXPECT_TRUE(svgTextOf(pad).isNull());
    pad.driver.send(twoStrokes(kDevice));
    const auto pictures = picturesOf(svgTextOf(pad).bytes());
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(difference(pictures[0].image, layer), "");
}

TEST_P(FingerprintOutput, AFingerprintAloneIsEncodedButNotByTheExForm)
{
    sendFingerprint();
    EXPECT_EQ(textOf(pad, EBITI_BITMAP).bytes(), fileOf(print, "BMP"));
    EXPECT_EQ(textOf(pad, EBITI_JPEG).bytes(), fileOf(print, "JPG"));
    EXPECT_EQ(textOf(pad, EBITI_PNG).bytes(), fileOf(whiteMadeTransparent(print), "PNG"));
    for (const int type : {int{EBITI_INK}, 0, 4, 5, 7, -1})
        EXPECT_TRUE(textOf(pad, type).isNull()) << type;
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG, EBITI_INK})
        EXPECT_TRUE(exTextOf(pad, type, true).isNull()) << type;
    pad.driver.send(twoStrokes(kDevice));
    const QImage both = anded(print, drawn(GetParam(), twoStrokes(kDevice), kSize.width(), kSize.height()));
    EXPECT_EQ(exTextOf(pad, EBITI_BITMAP, false).bytes(), fileOf(both, "BMP"));
    EXPECT_EQ(textOf(pad, EBITI_PNG).bytes(), fileOf(whiteMadeTransparent(both), "PNG"));
}

TEST_P(FingerprintOutput, ItsTextTakesOnlyThreeImageTypes)
{
    sendFingerprint();
    ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(kDevice, pad.window(), 300, 300, 0, 0, 50, 50), ARI_SUCCESS);
    for (const int type : {0, 4, 5, int{EBITI_INK}, 7, -1, INT_MAX, INT_MIN})
        EXPECT_TRUE(fingerprintText(pad, type, false).isNull()) << type;
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG})
        EXPECT_GT(fingerprintText(pad, type, false).text().size(), 100) << type;
    const int other = KVS300_DEVICE;
    EXPECT_EQ(KVS310X_GetFPImageBase64Data(other, EBITI_PNG, false), nullptr);
    KVS310X_FreeFPImageBase64Data(kDevice, nullptr);
}

TEST_P(FingerprintOutput, WithoutAPlacementOnlyTheWidgetHasAText)
{
    sendFingerprint();
    for (const bool only : {false, true}) {
        const Text text = fingerprintText(pad, EBITI_BITMAP, only);
        ASSERT_EQ(text.isNull(), GetParam().headless);
        if (!text.isNull()) {
            EXPECT_EQ(text.bytes(), fileOf(print, "BMP")) << "the whole canvas, whatever is asked for";
        }
    }
}

TEST_P(FingerprintOutput, ItsTextShowsTheWholePlaceOrTheFingerprintAlone)
{
    const bool headless = GetParam().headless;
    QWidget other;
    other.resize(320, 260);
    QWidget *const parents[] = {headless ? nullptr : pad.window(), headless ? nullptr : &other};
    int score = 0;
    for (QWidget *parent : parents) {
        ++score;
        const QSize whole = parent == &other ? other.size() : kSize;
        ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(kDevice, parent, kSize.width(), kSize.height(), kPlace.left(),
                      kPlace.top(), kPlace.width(), kPlace.height()),
            ARI_SUCCESS);
        pad.driver.sendFingerprint(ridges(score), score);
        const QSize layerSize = headless ? kSize : QSize(kGreyWidth, kGreyHeight);
        const QImage placed = printed(layerOf(ridges(score), layerSize), kPlace, whole);
        expectBecomes([&] { return fingerprintImage(pad); }, placed);
        const QImage cut = placed.copy(kPlace);
        EXPECT_EQ(fingerprintText(pad, EBITI_BITMAP, true).bytes(), fileOf(cut, "BMP"));
        EXPECT_EQ(shown(pad).size(), kSize) << "Base64Encode never cuts";
        EXPECT_EQ(fingerprintText(pad, EBITI_JPEG, true).bytes(), fileOf(cut, "JPG"));
        EXPECT_EQ(fingerprintText(pad, EBITI_PNG, true).bytes(), fileOf(whiteMadeTransparent(cut), "PNG"));
        EXPECT_EQ(fingerprintText(pad, EBITI_PNG, false).bytes(), fileOf(whiteMadeTransparent(placed), "PNG"));
    }
}

// A widget that became smaller than the fingerprint's place: what lies outside is transparent. A place that was refused
// counts too, as it stays.
TEST_P(FingerprintOutput, ARectangleBeyondTheCanvasIsPadded)
{
    if (GetParam().headless)
        return; // its places keep their canvas
    const auto place = [&](const QRect &at) {
        return KVS310X_SetDisplayedFPImageAt(kDevice, pad.window(), 0, 0, at.left(), at.top(), at.width(), at.height());
    };
    pad.driver.send(twoStrokes(kDevice));
    ASSERT_EQ(place(kPlace), ARI_SUCCESS);
    pad.widget()->resize(130, 100);
    settle();
    const auto expectPadded = [&](const QRect &at) {
        const QImage part = pad.canvas().copy(at);
        EXPECT_EQ(part.size(), at.size());
        EXPECT_EQ(part.pixel(at.width() - 1, at.height() - 1), 0u);
        EXPECT_EQ(fingerprintText(pad, EBITI_PNG, true).bytes(), fileOf(whiteMadeTransparent(part), "PNG"));
        EXPECT_EQ(fingerprintText(pad, EBITI_BITMAP, true).bytes(), fileOf(part, "BMP"));
    };
    expectPadded(kPlace);
    EXPECT_EQ(place({200, 300, 60, 50}), ARI_INVALID_PARAMETERS);
    expectPadded({200, 300, 60, 50});
}

// With clipping on, it comes first: the ink of that place with the margins, not the rectangle.
TEST_P(FingerprintOutput, ClippingComesBeforeTheRectangle)
{
    Grey dot = evenGrey(200); // one dark block: columns 50 to 69, rows 100 to 119
    for (int y = 100; y < 120; ++y)
        for (int x = 50; x < 70; ++x)
            at(dot, x, y) = 0;
    // Unscaled, so that the block lies where it can be told: 60 + 50, 40 + 100.
    const QRect unscaled(60, 40, kGreyWidth, kGreyHeight);
    QWidget other;
    other.resize(kSize);
    const bool headless = GetParam().headless;
    int score = 0;
    for (QWidget *parent : {headless ? nullptr : pad.window(), headless ? nullptr : &other}) {
        ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(
                      kDevice, parent, kSize.width(), kSize.height(), 60, 40, kGreyWidth, kGreyHeight),
            ARI_SUCCESS);
        pad.driver.sendFingerprint(dot, ++score);
        const QImage placed = printed(layerOf(dot, kSize), unscaled, kSize);
        expectBecomes([&] { return fingerprintImage(pad); }, placed);
        ASSERT_EQ(KVS310X_SetSaveClipImageMargin(kDevice, true, 3, 7), ARI_SUCCESS);
        for (const bool only : {false, true})
            EXPECT_EQ(difference(fingerprintImage(pad, EBITI_BITMAP, only), placed.copy(107, 133, 26, 34)), "");
        ASSERT_EQ(KVS310X_SetSaveClipImageMargin(kDevice, false, 3, 7), ARI_SUCCESS);
        EXPECT_EQ(fingerprintImage(pad).size(), kSize);
    }
    EXPECT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    ASSERT_EQ(KVS310X_SetSaveClipImageMargin(kDevice, true, 3, 7), ARI_SUCCESS);
    EXPECT_EQ(fingerprintText(pad, EBITI_PNG, false).text(), "") << "nothing to cut out: an empty text";
}

// Nothing shows a headless place; asking for its image brings it up to date, without waiting for the pad's screen.
TEST(HeadlessFingerprintCanvas, IsUpToDateWhenAskedFor)
{
    const PadCase headless{&kS310XFamily, true};
    FingerprintPad pad(headless, kSize.width(), kSize.height(), 10000);
    ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(kDevice, nullptr, 208, 288, 0, 0, 208, 288), ARI_SUCCESS);
    const QImage white = printed({}, {}, {208, 288});
    EXPECT_EQ(difference(fingerprintImage(pad), white), "");
    pad.driver.sendFingerprint(ridges(1), 10);
    EXPECT_EQ(difference(fingerprintImage(pad), layerOf(ridges(1), {208, 288})), "");
    pad.driver.sendFingerprint(ridges(2), 9);
    EXPECT_EQ(difference(fingerprintImage(pad), layerOf(ridges(1), {208, 288})), "");
    ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(kDevice, nullptr, 300, 300, 10, 5, 208, 288), ARI_SUCCESS);
    EXPECT_EQ(difference(fingerprintImage(pad, EBITI_BITMAP, true), layerOf(ridges(1), {208, 288})), "");
    EXPECT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    EXPECT_EQ(difference(fingerprintImage(pad, EBITI_BITMAP, true), white), "");
}
