// Image texts whose headers claim more than there is: they are refused without spending memory on them.
#include "jpegmarkers.h"
#include "returnedtext.h"

#include <QDir>
#include <QTemporaryDir>

#include <array>
#include <climits>
#include <fstream>
#include <sys/resource.h>

namespace {

QByteArray number(uint32_t value, int size, bool bigEndian)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> 8 * (bigEndian ? size - 1 - i : i) & 0xff);
    return bytes;
}

uint32_t crcOf(const QByteArray &bytes)
{
    uint32_t crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xedb88320 : 0);
    }
    return ~crc;
}

QByteArray chunk(const QByteArray &name, const QByteArray &data)
{
    return number(static_cast<uint32_t>(data.size()), 4, true) + name + data + number(crcOf(name + data), 4, true);
}

QByteArray png(uint32_t width, uint32_t height)
{
    const QByteArray header = number(width, 4, true) + number(height, 4, true) + QByteArray("\x08\x06\0\0\0", 5);
    const QByteArray emptyStream("\x78\x9c\x03\x00\x00\x00\x00\x01", 8);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", emptyStream) + chunk("IEND", {});
}

QByteArray bmp(int width, int height, int bits)
{
    return "BM" + number(54, 4, false) + number(0, 4, false) + number(54, 4, false) + number(40, 4, false)
        + number(static_cast<uint32_t>(width), 4, false) + number(static_cast<uint32_t>(height), 4, false)
        + number(1, 2, false) + number(static_cast<uint32_t>(bits), 2, false) + QByteArray(24, '\0')
        + QByteArray(400, 'x');
}

// A real picture with other numbers in its frame header.
QByteArray jpeg(uint32_t width, uint32_t height)
{
    QByteArray bytes = fileOf(QImage(16, 16, QImage::Format_RGB32), "JPG");
    const int frame = bytes.indexOf("\xff\xc0");
    EXPECT_GT(frame, 0);
    return bytes.replace(frame + 5, 4, number(height, 2, true) + number(width, 2, true));
}

QByteArray segment(char marker, const QByteArray &data)
{
    return QByteArray("\xff") + marker + number(static_cast<uint32_t>(data.size()) + 2, 2, true) + data;
}

// A header and as many empty scans, with nothing but zeros to code.
QByteArray progressive(uint32_t width, uint32_t height, int scans)
{
    const QByteArray oneCode = QByteArray("\1", 1) + QByteArray(16, '\0'); // one bit for a zero
    const QByteArray size = number(height, 2, true) + number(width, 2, true);
    const QByteArray planes("\x03\x01\x22\x00\x02\x11\x00\x03\x11\x00", 10); // colours at half the size
    QByteArray bytes = "\xff\xd8" + segment('\xdb', QByteArray(1, '\0') + QByteArray(64, '\1'))
        + segment('\xc2', '\x08' + size + planes) + segment('\xc4', '\0' + oneCode) + segment('\xc4', '\x10' + oneCode);
    bytes += segment('\xda', QByteArray("\x03\x01\x00\x02\x00\x03\x00\x00\x00\x00", 10));
    for (int i = 1; i < scans; ++i)
        bytes += segment('\xda', QByteArray("\x01\x01\x00\x01\x3f\x00", 6));
    return bytes + "\xff\xd9";
}

struct Forged
{
    const char *name;
    int type;
    QByteArray bytes;
};

// More pixels than any canvas has, or than so few bytes can have.
std::vector<Forged> forgedImages()
{
    return {{"png 65535", 3, png(65535, 65535)}, {"png largest", 3, png(0x7fffffff, 0x7fffffff)},
        {"png negative", 3, png(0x80000000, 4)}, {"png wide", 3, png(0x7fffffff, 1)}, {"png none", 3, png(0, 0)},
        {"png 20000", 3, png(20000, 20000)}, {"bmp 65535", 1, bmp(65535, 65535, 32)},
        {"bmp largest", 1, bmp(INT_MAX, INT_MAX, 24)}, {"bmp upside down", 1, bmp(60000, INT_MIN, 32)},
        {"bmp upside down large", 1, bmp(60000, -60000, 32)}, {"bmp negative", 1, bmp(-60000, 60000, 32)},
        {"bmp 5000", 1, bmp(5000, 5000, 32)}, {"bmp one bit", 1, bmp(INT_MAX, INT_MAX, 1)},
        {"bmp eight bits", 1, bmp(100000, 100000, 8)}, {"jpeg 65535", 2, jpeg(65535, 65535)},
        {"jpeg 30000", 2, jpeg(30000, 30000)}, {"jpeg 16384", 2, jpeg(16384, 16384)},
        {"jpeg 5000", 2, jpeg(5000, 5000)}, {"progressive 16384", 2, progressive(16384, 16384, 1)},
        {"jpeg none", 2, jpeg(0, 0)}};
}

long fromStatus(const std::string &field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(field, 0) == 0)
            return std::stol(line.substr(field.size() + 1));
    }
    return 0;
}

// By how many kilobytes the call raises the process's peak memory.
template <class Call>
long memoryOf(Call call)
{
    std::ofstream("/proc/self/clear_refs") << 5; // the high-water mark starts anew
    const long before = fromStatus("VmRSS:");
    call();
    return fromStatus("VmHWM:") - before;
}

// An image of a PNG text is asked for before its first row is missing. That costs nothing until it is written to, but
// AddressSanitizer notes its own byte for eight of it.
#ifdef KV_ADDRESS_SANITIZED
constexpr long kHardlyAnything = 300 << 10;
#else
constexpr long kHardlyAnything = 100 << 10;
#endif

class ForgedImage : public testing::Test
{
protected:
    int decode(const Forged &forged)
    {
        std::wstring path = directory.filePath("out").toStdWString();
        return pad->Base64Decode(pad.type(), forged.type, base64::encoded(forged.bytes).constData(), path.data());
    }
    bool leftNothing() const { return QDir(directory.path()).isEmpty(); }

    OpenPad pad{{&kS300Family, true}, 120, 80};
    QTemporaryDir directory;
};

} // namespace

TEST_F(ForgedImage, SpendsNoMemory)
{
    for (const Forged &forged : forgedImages()) {
        const long kilobytes = memoryOf([&] { EXPECT_EQ(decode(forged), ARI_INK_EMPTY) << forged.name; });
        EXPECT_LT(kilobytes, kHardlyAnything) << forged.name;
        EXPECT_TRUE(leftNothing()) << forged.name;
    }
}

// As large as a canvas that people have: decoded even where all but the header is missing.
TEST_F(ForgedImage, CostsLittleWhereItMustBeDecoded)
{
    for (const Forged &forged : {Forged{"jpeg", 2, jpeg(4096, 4096)}, Forged{"bmp", 1, bmp(4096, 4096, 32)},
             Forged{"progressive", 2, progressive(4096, 4096, 1)}}) {
        const long kilobytes = memoryOf([&] { EXPECT_EQ(decode(forged), ARI_SUCCESS) << forged.name; });
        EXPECT_LT(kilobytes, 200 << 10) << forged.name;
        EXPECT_TRUE(QFile::remove(directory.filePath("out")));
    }
}

TEST_F(ForgedImage, MayHaveAHundredScansAndNoMore)
{
    EXPECT_EQ(decode({"at most", 2, progressive(60, 40, 100)}), ARI_SUCCESS);
    EXPECT_EQ(QImage(directory.filePath("out"), "JPG").size(), QSize(60, 40));
    EXPECT_TRUE(QFile::remove(directory.filePath("out")));
    EXPECT_EQ(decode({"one more", 2, progressive(60, 40, 101)}), ARI_INK_EMPTY);
    EXPECT_TRUE(leftNothing());
}

TEST(JpegMarkers, TellTheWorkOfDecoding)
{
    const QByteArray planes("\x03\x01\x11\x00\x02\x11\x00\x03\x11\x00", 10);
    QByteArray oneByOne = "\xff\xd8" + segment('\xc0', "\x08" + number(40, 2, true) + number(60, 2, true) + planes);
    for (const char plane : {'\1', '\2', '\3'})
        oneByOne += segment('\xda', QByteArray("\x01") + plane + QByteArray("\x00\x00\x3f\x00", 4));
    const struct
    {
        const char *name;
        QByteArray bytes;
        int scans;
        int planes;
        bool keepsCoefficients;
    } kRows[] = {{"grey", fileOf(QImage(60, 40, QImage::Format_Grayscale8), "JPG"), 1, 1, false},
        {"colours", fileOf(QImage(60, 40, QImage::Format_RGB32), "JPG"), 1, 3, false},
        {"one plane after another", oneByOne + "\xff\xd9", 3, 3, true},
        {"progressive", progressive(60, 40, 1), 1, 3, true}, {"not at its start", "x" + oneByOne, 0, 0, false},
        {"no frame", "\xff\xd8\xff\xd9", 0, 0, false}};
    for (const auto &row : kRows) {
        const jpegmarkers::Work work = jpegmarkers::workOf(row.bytes);
        EXPECT_EQ(work.scans, row.scans) << row.name;
        EXPECT_EQ(work.planes, row.planes) << row.name;
        EXPECT_EQ(work.keepsCoefficients, row.keepsCoefficients) << row.name;
    }
}

// A scan may follow bytes that a decoder skips while it looks for the next restart marker.
TEST_F(ForgedImage, CannotHideItsScans)
{
    const QByteArray whole = progressive(60, 40, 150);
    const int data = whole.indexOf("\xff\xda") + 14; // of the first scan
    for (const QByteArray &cover :
        {QByteArray("\xff\x05\xff\xff", 4), QByteArray("\xff\xd3\xff\xff", 4), QByteArray("\xff\xd7\xff\xff", 4),
            QByteArray("\xff\x01\xff\xff", 4), QByteArray("\xff\xff\xff\x00", 4), QByteArray("junk")}) {
        const QByteArray bytes = whole.left(data) + cover + whole.mid(data);
        EXPECT_EQ(decode({"hidden", 2, bytes}), ARI_INK_EMPTY) << cover.toHex().toStdString();
        EXPECT_EQ(jpegmarkers::workOf(bytes).scans, 150) << cover.toHex().toStdString();
    }
    EXPECT_TRUE(leftNothing());
}

// What Qt writes of this size has enough bytes, blank or not: nothing of it is refused.
TEST_F(ForgedImage, IsNoneThatIsWholeOrCutInTheMiddle)
{
    QImage blank(5000, 4000, QImage::Format_RGB32);
    blank.fill(Qt::white);
    for (const auto &[type, name] : {std::pair(1, "BMP"), std::pair(2, "JPG"), std::pair(3, "PNG")}) {
        const QByteArray whole = fileOf(blank, name);
        for (const QByteArray &bytes : {whole, whole.left(whole.size() / 2)}) {
            const bool loads = type != EBITI_PNG || bytes == whole;
            EXPECT_EQ(decode({name, type, bytes}), loads ? ARI_SUCCESS : ARI_INK_EMPTY) << name << bytes.size();
        }
    }
}

// 2^29 pixels less one row, and one row more. In one bit for a pixel they take 64 MB.
TEST_F(ForgedImage, MayHaveThePixelsOfTheLargestCanvas)
{
    for (const auto &[height, result] : {std::pair(16383, ARI_SUCCESS), std::pair(16384, ARI_INK_EMPTY)}) {
        QImage image(32768, height, QImage::Format_Mono);
        image.fill(1);
        EXPECT_EQ(decode({"png", EBITI_PNG, fileOf(image, "PNG")}), result) << height;
        EXPECT_EQ(QFile::remove(directory.filePath("out")), result == ARI_SUCCESS);
        EXPECT_TRUE(leftNothing());
    }
}

// Sanitizers reserve address space without end, so that a limit means nothing to them.
#ifndef KV_SANITIZED
TEST_F(ForgedImage, IsRefusedWhereMemoryIsShort)
{
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_AS, &limit), 0);
    const rlim_t size = static_cast<rlim_t>(fromStatus("VmSize:")) << 10;
    const rlimit tight{size + (rlim_t{32} << 20), limit.rlim_max};
    auto images = forgedImages();
    images.push_back({"png of the largest canvas", 3, png(65536, 8191)});
    images.push_back({"bmp that is allowed", 1, bmp(4096, 4096, 32)});
    images.push_back({"jpeg that is allowed", 2, progressive(4096, 4096, 1)});
    std::vector<int> results;
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &tight), 0);
    for (const Forged &forged : images)
        results.push_back(decode(forged));
    ::setrlimit(RLIMIT_AS, &limit);
    for (size_t i = 0; i < images.size(); ++i)
        EXPECT_EQ(results[i], ARI_INK_EMPTY) << images[i].name;
    EXPECT_TRUE(leftNothing());
}
#endif
