// Bitmap texts of every kind that other programs write, complete and cut off: decoded as far as they go.
#include "returnedtext.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

QByteArray number(int64_t value, int size)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> 8 * i & 0xff);
    return bytes;
}

QByteArray fileHeader(int headers, int pixels)
{
    return "BM" + number(headers + pixels, 4) + number(0, 4) + number(headers, 4);
}

// The usual header of 40 bytes. Two colours follow for pictures of up to 8 bits.
QByteArray infoHeader(int width, int height, int bits, int compression, int size)
{
    QByteArray header = number(40, 4) + number(width, 4) + number(height, 4) + number(1, 2) + number(bits, 2)
        + number(compression, 4) + number(size, 4) + number(2835, 4) + number(2835, 4) + number(bits <= 8 ? 2 : 0, 4)
        + number(0, 4);
    if (bits <= 8)
        header += QByteArray("\x00\x00\x00\x00\xff\xff\xff\x00", 8);
    return header;
}

QByteArray bitmap(int width, int height, int bits, const QByteArray &pixels, int compression = 0)
{
    const QByteArray info = infoHeader(width, height, bits, compression, pixels.size());
    return fileHeader(14 + info.size(), pixels.size()) + info + pixels;
}

// The oldest header: 12 bytes, short fields, colours of three bytes.
QByteArray oldBitmap(int width, int height, const QByteArray &pixels)
{
    const QByteArray info = number(12, 4) + number(width, 2) + number(height, 2) + number(1, 2) + number(24, 2);
    return fileHeader(14 + info.size(), pixels.size()) + info + pixels;
}

struct Kind
{
    const char *name;
    QByteArray bytes;
};

// Five by three pixels each. A line's bytes are filled up to a multiple of four.
std::vector<Kind> kinds()
{
    const QByteArray packed("\x05\x01\x00\x00\x05\x00\x00\x00\x05\x01\x00\x01", 12);
    return {{"1 bit", bitmap(5, 3, 1, QByteArray(12, '\x55'))}, {"4 bits", bitmap(5, 3, 4, QByteArray(12, '\x10'))},
        {"8 bits", bitmap(5, 3, 8, QByteArray(24, '\x01'))}, {"8 bits packed", bitmap(5, 3, 8, packed, 1)},
        {"16 bits", bitmap(5, 3, 16, QByteArray(36, '\x21'))}, {"24 bits", bitmap(5, 3, 24, QByteArray(48, '\x21'))},
        {"24 bits from the top", bitmap(5, -3, 24, QByteArray(48, '\x21'))},
        {"32 bits", bitmap(5, 3, 32, QByteArray(60, '\x21'))}, {"old", oldBitmap(5, 3, QByteArray(48, '\x21'))}};
}

class BitmapKinds : public testing::Test
{
protected:
    int decode(const QByteArray &bytes)
    {
        std::wstring path = out.toStdWString();
        return pad->Base64Decode(pad.type(), EBITI_BITMAP, base64::encoded(bytes).constData(), path.data());
    }

    OpenPad pad{{&kS300Family, true}};
    QTemporaryDir directory;
    QString out = directory.filePath("out");
};

} // namespace

TEST_F(BitmapKinds, WholeOnesDecodeToTheirPicture)
{
    for (const Kind &kind : kinds()) {
        ASSERT_EQ(decode(kind.bytes), ARI_SUCCESS) << kind.name;
        const QImage written = QImage(out, "BMP").convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(written, QImage::fromData(kind.bytes, "BMP").convertToFormat(QImage::Format_RGB32)) << kind.name;
        EXPECT_EQ(written.size(), QSize(5, 3)) << kind.name;
        QFile::remove(out);
    }
}

// A missing pixel is 0, that is black or the first colour of the table, never old memory.
TEST_F(BitmapKinds, CutOnesAreAsFarAsTheyGo)
{
    for (const Kind &kind : kinds()) {
        const QImage whole = QImage::fromData(kind.bytes, "BMP").convertToFormat(QImage::Format_RGB32);
        const bool packed = QByteArray(kind.name).contains("packed"); // of a cut run the colour may be another
        int loaded = 0;
        for (int size = 1; size < kind.bytes.size(); ++size) {
            const bool loads = !QImage::fromData(kind.bytes.left(size), "BMP").isNull();
            ASSERT_EQ(decode(kind.bytes.left(size)), loads ? ARI_SUCCESS : ARI_INK_EMPTY) << kind.name << ' ' << size;
            ASSERT_EQ(QFile::exists(out), loads) << kind.name;
            loaded += loads;
            const QImage cut = QImage(out, "BMP").convertToFormat(QImage::Format_RGB32);
            for (int i = 0; loads && i < 15; ++i) {
                const QRgb pixel = cut.pixel(i % 5, i / 5);
                EXPECT_TRUE(
                    pixel == whole.pixel(i % 5, i / 5) || pixel == 0xff000000 || (packed && pixel == 0xffffffff))
                    << kind.name << ' ' << size << ' ' << i << ' ' << std::hex << pixel;
            }
            QFile::remove(out);
        }
        EXPECT_GE(loaded, kind.bytes.size() / 10) << kind.name;
    }
}
