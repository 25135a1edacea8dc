// Image texts decoded back to files, and everything that is not one.
#include "returnedtext.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <climits>

namespace {

struct Format
{
    int type;
    const char *name;
    const char *head; ///< first bytes of such a file
};
constexpr Format kFormats[] = {{1, "BMP", "BM"}, {2, "JPG", "\xff\xd8\xff"}, {3, "PNG", "\x89PNG\r\n"}};

QByteArray contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

// A colourful picture, so that no format stores it in a line or two.
QImage picture(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 37 % 256, y * 91 % 256, (x * y) % 256));
    }
    return image;
}

class ImageDecode : public testing::TestWithParam<PadCase>
{
protected:
    int decode(const QByteArray &bytes, int type, const QString &path)
    {
        return decodeWide(bytes, type, path.toStdWString());
    }
    int decodeWide(const QByteArray &bytes, int type, std::wstring path)
    {
        return pad->Base64Decode(pad.type(), type, base64::encoded(bytes).constData(), path.data());
    }
    QString in(const char *name) const { return directory.filePath(name); }
    QStringList files() const { return QDir(directory.path()).entryList(QDir::Files | QDir::Hidden | QDir::System); }

    OpenPad pad{GetParam(), 120, 80};
    QTemporaryDir directory;
};

// One pad for what depends on the text alone.
class ImageDecodeOnOnePad : public ImageDecode
{
};

std::vector<PadCase> onePad()
{
    return {{&kS300Family, true}};
}

} // namespace

TEST_P(ImageDecode, OwnTextsComeBackInTheFormatOfTheTypeWhateverTheSuffix)
{
    pad.driver.send(twoStrokes(pad.type()));
    for (const Format &format : kFormats) {
        const QByteArray bytes = textOf(pad, format.type).bytes();
        for (const char *name : {"sign", "sign.png", "sign.bmp", "sign.jpg", "sign.txt", "Unterschrift-\xc3\xa4.dat"}) {
            ASSERT_EQ(decode(bytes, format.type, in(name)), ARI_SUCCESS) << format.name << ' ' << name;
            const QByteArray written = contents(in(name));
            EXPECT_TRUE(written.startsWith(format.head)) << format.name << ' ' << name;
            EXPECT_EQ(written, fileOf(QImage::fromData(bytes, format.name), format.name));
        }
    }
    const QImage bitmap = QImage::fromData(textOf(pad, 1).bytes(), "BMP");
    ASSERT_EQ(decode(textOf(pad, 1).bytes(), 1, in("again")), ARI_SUCCESS);
    EXPECT_EQ(difference(QImage(in("again"), "BMP"), bitmap), "");
}

TEST_P(ImageDecode, DataOfAnotherFormatDoNotLoad)
{
    const QImage image = picture(20, 10);
    for (const Format &data : kFormats) {
        for (const Format &asked : kFormats) {
            const bool same = data.type == asked.type;
            EXPECT_EQ(decode(fileOf(image, data.name), asked.type, in("out")), same ? ARI_SUCCESS : ARI_INK_EMPTY)
                << data.name << " as " << asked.name;
            EXPECT_EQ(QFile::remove(in("out")), same) << data.name << " as " << asked.name;
        }
    }
    const QByteArray svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>";
    for (const Format &asked : kFormats)
        EXPECT_EQ(decode(svg, asked.type, in("out")), ARI_INK_EMPTY);
    // With the end of a JPEG behind it, too.
    EXPECT_EQ(decode(fileOf(image, "PNG") + "\xff\xda\xff\xd9", EBITI_JPEG, in("out")), ARI_INK_EMPTY);
    EXPECT_EQ(decode(fileOf(image, "BMP") + "\xff\xda\xff\xd9", EBITI_JPEG, in("out")), ARI_INK_EMPTY);
    EXPECT_EQ(files(), QStringList());
}

TEST_P(ImageDecode, PathsThatCannotBeWritten)
{
    ASSERT_TRUE(QDir(directory.path()).mkdir("folder"));
    const std::wstring base = directory.path().toStdWString();
    const std::wstring paths[] = {L"", base + L"/folder", base + L"/missing/a.png", L"/dev/full", L"/proc/a.png",
        base + L"/\xd800.png", base + L"/" + static_cast<wchar_t>(0x110000), base + L"/" + static_cast<wchar_t>(-1),
        base + L"/" + std::wstring(300, L'n')};
    for (const Format &format : kFormats) {
        const QByteArray bytes = fileOf(picture(20, 10), format.name);
        for (const std::wstring &path : paths)
            EXPECT_EQ(decodeWide(bytes, format.type, path), ARI_INK_EMPTY)
                << QString::fromStdWString(path).toStdString();
        EXPECT_EQ(
            pad->Base64Decode(pad.type(), format.type, base64::encoded(bytes).constData(), nullptr), ARI_INK_EMPTY);
    }
    EXPECT_EQ(files(), QStringList());
    EXPECT_TRUE(QDir(in("folder")).isEmpty());
}

TEST_P(ImageDecode, FileInPlaceIsReplacedBySuccessAndKeptByFailure)
{
    ASSERT_EQ(decode(fileOf(picture(60, 50), "BMP"), EBITI_BITMAP, in("out")), ARI_SUCCESS);
    const QByteArray before = contents(in("out"));
    EXPECT_EQ(decode("garbage", EBITI_PNG, in("out")), ARI_INK_EMPTY);
    EXPECT_EQ(contents(in("out")), before);
    ASSERT_EQ(decode(fileOf(picture(6, 5), "PNG"), EBITI_PNG, in("out")), ARI_SUCCESS);
    EXPECT_EQ(difference(QImage(in("out"), "PNG").convertToFormat(QImage::Format_ARGB32), picture(6, 5)), "");
    EXPECT_LT(contents(in("out")).size(), before.size());
}

TEST_P(ImageDecodeOnOnePad, Garbage)
{
    unsigned state = 1;
    for (int size = 0; size < 300; size += 7) {
        QByteArray noise;
        for (int i = 0; i < size; ++i)
            noise += static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
        for (const Format &format : kFormats) {
            for (const QByteArray &bytes : {noise + 'x', format.head + noise, QByteArray(size + 1, '\0')})
                EXPECT_EQ(decode(bytes, format.type, in("out")), ARI_INK_EMPTY) << format.name << ' ' << size;
        }
    }
    std::wstring path = in("out").toStdWString();
    for (const Format &format : kFormats)
        EXPECT_EQ(pad->Base64Decode(pad.type(), format.type, "!\n?=", path.data()), ARI_INK_EMPTY);
    EXPECT_EQ(files(), QStringList());
}

// What Qt's own loader makes of such bytes; of a cut bitmap the missing rows are black.
QImage loadedByQt(const QByteArray &bytes, const Format &format)
{
    QImage image = QImage::fromData(bytes, format.name);
    if (format.type != EBITI_BITMAP || image.isNull())
        return image;
    const int rowBytes = (image.width() * 3 + 3) / 4 * 4;
    const int rows = (bytes.size() - 54) / rowBytes;
    for (int y = 0; y < image.height() - rows; ++y)
        std::fill_n(reinterpret_cast<QRgb *>(image.scanLine(y)), image.width(), 0xff000000);
    return image;
}

class CutImages : public ImageDecodeOnOnePad
{
protected:
    void expectAsQtLoadsIt(const QByteArray &cut, const Format &format)
    {
        const QImage expected = loadedByQt(cut, format);
        ASSERT_EQ(decode(cut, format.type, in("out")), expected.isNull() ? ARI_INK_EMPTY : ARI_SUCCESS)
            << format.name << ' ' << cut.size();
        if (!expected.isNull()) {
            EXPECT_EQ(contents(in("out")), fileOf(expected, format.name)) << format.name << ' ' << cut.size();
        }
        EXPECT_EQ(QFile::remove(in("out")), !expected.isNull());
        ++(expected.isNull() ? refused : loaded)[format.type];
    }

    int loaded[4] = {};
    int refused[4] = {};
};

TEST_P(CutImages, AreWhatQtLoads)
{
    for (const Format &format : kFormats) {
        const QByteArray whole = fileOf(picture(19, 13), format.name);
        for (int size = 1; size < whole.size(); ++size)
            expectAsQtLoadsIt(whole.left(size), format);
        EXPECT_GT(refused[format.type], 50) << format.name;
    }
    EXPECT_GT(loaded[EBITI_BITMAP], 500) << "once the header is whole";
    EXPECT_GT(loaded[EBITI_JPEG], 50) << "once the first scan begins";
}

TEST_P(CutImages, AreWhatQtLoadsOfALargerPicture)
{
    for (const Format &format : kFormats) {
        const QByteArray whole = fileOf(picture(300, 200), format.name);
        for (int size = 1; size < whole.size(); size += 3989)
            expectAsQtLoadsIt(whole.left(size), format);
    }
    EXPECT_GT(loaded[EBITI_BITMAP], 10);
    EXPECT_GT(loaded[EBITI_JPEG], 2);
}

// A scan's marker behind the end belongs to something else.
TEST_P(ImageDecodeOnOnePad, AWholeJpegWithMarkersBehindItsEnd)
{
    const QByteArray whole = fileOf(picture(19, 13), "JPG");
    for (const QByteArray &behind : {QByteArray("\xff\xda"), QByteArray("\xff\xda").repeated(200), whole}) {
        ASSERT_EQ(decode(whole + behind, EBITI_JPEG, in("out")), ARI_SUCCESS);
        EXPECT_EQ(contents(in("out")), fileOf(QImage::fromData(whole, "JPG"), "JPG"));
    }
}

TEST_P(ImageDecodeOnOnePad, BytesAfterTheImageDoNoHarm)
{
    for (const Format &format : kFormats) {
        EXPECT_EQ(decode(fileOf(picture(19, 13), format.name) + "after", format.type, in("out")), ARI_SUCCESS)
            << format.name;
        EXPECT_EQ(QImage(in("out"), format.name).size(), QSize(19, 13));
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, ImageDecode, testing::ValuesIn(allPads()), padCaseName);
INSTANTIATE_TEST_SUITE_P(OnePad, ImageDecodeOnOnePad, testing::ValuesIn(onePad()), padCaseName);
INSTANTIATE_TEST_SUITE_P(OnePad, CutImages, testing::ValuesIn(onePad()), padCaseName);
