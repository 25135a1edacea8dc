// The ink record and its decoding, through the exported functions.
#include "inkrecordbytes.h"
#include "returnedtext.h"

#include <QFile>

#include <climits>
#include <cstring>
#include <ctime>

namespace {

class InkRecord : public testing::TestWithParam<PadCase>
{
protected:
    int decode(const QByteArray &text, int type = EBITI_INK, wchar_t *path = nullptr)
    {
        return pad->Base64Decode(pad.type(), type, text.constData(), path);
    }
    int decodeRecord(const QByteArray &bytes) { return decode(base64::encoded(bytes)); }
    int count() { return pad->GetTotalDecodeInkPointsNumber(pad.type()); }
    int data(int index, int field) { return pad->GetDecodeInkPointData(pad.type(), index, field); }
    void expectDecoded(const std::vector<RecordPoint> &points)
    {
        ASSERT_EQ(count(), static_cast<int>(points.size()));
        for (size_t i = 0; i < points.size(); ++i) {
            EXPECT_EQ(data(static_cast<int>(i), INKDATATYPE_X), points[i].x) << i;
            EXPECT_EQ(data(static_cast<int>(i), INKDATATYPE_Y), points[i].y) << i;
            EXPECT_EQ(data(static_cast<int>(i), INKDATATYPE_STROKEEND), points[i].strokeEnd) << i;
        }
    }

    OpenPad pad{GetParam()};
};

const std::vector<RecordPoint> kPoints = {{-5, 7, 100}, {32767, -32768, 2048, 1}, {-1, 0, -3, 7}, {300, 256, 0, 255}};

uint64_t milliseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

uint64_t littleEndian(const QByteArray &bytes, int offset, int size)
{
    uint64_t value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[offset + i]);
    return value;
}

} // namespace

TEST_P(InkRecord, ThreePointsAreSeventyThreeBytesAsLaidOut)
{
    const uint64_t tickBefore = milliseconds();
    const auto timeBefore = static_cast<uint64_t>(std::time(nullptr));
    pad.driver.send({{1000, 900, 17, 0}, {-300, 1025, 2047, 1}, {5, 6, 7, 2}});
    const uint64_t tickAfter = milliseconds();
    const auto timeAfter = static_cast<uint64_t>(std::time(nullptr));

    for (const bool ex : {false, true}) {
        const Text text = ex ? exTextOf(pad, EBITI_INK, true) : textOf(pad, EBITI_INK);
        EXPECT_EQ(text.text().size(), 100);
        const QByteArray bytes = text.bytes();
        ASSERT_EQ(bytes.size(), 73);
        std::vector<RecordPoint> points = {{1000, 900, 17, 0}, {-300, 1025, 2047, 0}, {-300, 1025, 2047, 1}};
        for (size_t i = 0; i < points.size(); ++i) {
            points[i].tick = littleEndian(bytes, static_cast<int>(i) * 24 + 8, 8);
            points[i].time = static_cast<int64_t>(littleEndian(bytes, static_cast<int>(i) * 24 + 16, 8));
            EXPECT_GE(points[i].tick, i == 0 ? tickBefore : points[i - 1].tick);
            EXPECT_LE(points[i].tick, tickAfter);
            EXPECT_GE(static_cast<uint64_t>(points[i].time), timeBefore);
            EXPECT_LE(static_cast<uint64_t>(points[i].time), timeAfter);
        }
        EXPECT_EQ(bytes, recordOf(points) + '\0');
    }
    EXPECT_EQ(exTextOf(pad, EBITI_INK, true).text(), exTextOf(pad, EBITI_INK, false).text());
}

TEST_P(InkRecord, DecodesToThePointsStored)
{
    pad.driver.send(scribble(pad.type(), 3, 200));
    const int stored = pad->GetTotalInkPointsNumber(pad.type());
    ASSERT_GT(stored, 100);
    ASSERT_EQ(decode(textOf(pad, EBITI_INK).text()), ARI_SUCCESS);
    ASSERT_EQ(count(), stored);
    for (int i = 0; i < stored; ++i) {
        INKPOINTDATA point{};
        point.nIndex = i;
        ASSERT_EQ(pad->GetInkPointData(pad.type(), point), ARI_SUCCESS);
        EXPECT_EQ(data(i, INKDATATYPE_X), point.nX);
        EXPECT_EQ(data(i, INKDATATYPE_Y), point.nY);
        EXPECT_EQ(data(i, INKDATATYPE_STROKEEND), point.bStrokeEnd ? 1 : 0);
    }
}

TEST_P(InkRecord, EveryValueAndEveryStrokeEndByteComesBack)
{
    for (const int reserved : {0, 0xff}) {
        ASSERT_EQ(decodeRecord(recordOf(kPoints, reserved)), ARI_SUCCESS);
        expectDecoded(kPoints);
    }
}

TEST_P(InkRecord, TailOfAnyLengthIsIgnored)
{
    const std::vector<RecordPoint> points = {{11, 12, 13}, {21, 22, 23, 1}};
    for (int tail = 0; tail < 48; ++tail) {
        ASSERT_EQ(decodeRecord(recordOf(points) + QByteArray(tail, '\x01')), ARI_SUCCESS);
        auto expected = points;
        if (tail >= 24)
            expected.push_back({0x0101, 0x0101, 0x0101, 1});
        expectDecoded(expected);
    }
}

TEST_P(InkRecord, TooShortForAPointDecodesToNone)
{
    for (int size = 1; size < 24; ++size) {
        ASSERT_EQ(decodeRecord(recordOf(kPoints)), ARI_SUCCESS);
        EXPECT_EQ(decodeRecord(QByteArray(size, 'x')), ARI_SUCCESS) << size;
        EXPECT_EQ(count(), ARI_INK_EMPTY) << size;
        EXPECT_EQ(data(0, INKDATATYPE_X), ARI_INK_EMPTY) << size;
    }
    EXPECT_EQ(decodeRecord(recordOf(kPoints).left(47)), ARI_SUCCESS);
    expectDecoded({kPoints[0]});
}

TEST_P(InkRecord, CharactersOutsideTheAlphabetAreSkipped)
{
    const QByteArray text = base64::encoded(recordOf(kPoints) + '\0');
    QByteArray junk;
    for (int c = 1; c < 256; ++c) {
        if (std::strchr(base64::kAlphabet, c) == nullptr)
            junk += static_cast<char>(c);
    }
    QByteArray mixed = junk;
    for (int i = 0; i < text.size(); ++i) {
        mixed += text[i];
        mixed += junk[i % junk.size()];
    }
    for (const QByteArray &variant : {mixed, " \r\n\t" + text + "\n", QByteArray(text).insert(76, "\r\n")}) {
        ASSERT_EQ(decode(variant), ARI_SUCCESS);
        expectDecoded(kPoints);
    }
    EXPECT_EQ(decode(junk), ARI_SUCCESS);
    EXPECT_EQ(count(), ARI_INK_EMPTY);
}

TEST_P(InkRecord, IndexAndFieldOutOfRange)
{
    EXPECT_EQ(count(), ARI_INK_EMPTY);
    for (const int index : {INT_MIN, -1, 0, 1, INT_MAX})
        EXPECT_EQ(data(index, INKDATATYPE_X), ARI_INK_EMPTY) << index;
    ASSERT_EQ(decodeRecord(recordOf(kPoints)), ARI_SUCCESS);
    for (const int index : {INT_MIN, -1, 4, 5, INT_MAX}) {
        for (const int field : {1, 2, 3})
            EXPECT_EQ(data(index, field), ARI_INVALID_PARAMETERS) << index;
    }
    for (const int field : {INT_MIN, -1, 0, 4, INT_MAX})
        EXPECT_EQ(data(0, field), ARI_INVALID_PARAMETERS) << field;
}

TEST_P(InkRecord, RefusedArgumentsLeaveTheDecodedPoints)
{
    ASSERT_EQ(decodeRecord(recordOf(kPoints)), ARI_SUCCESS);
    for (const int type : {INT_MIN, -1, 0, 4, 5, 7, INT_MAX})
        EXPECT_EQ(decode("AAAA", type), ARI_INVALID_PARAMETERS) << type;
    for (const int type : {1, 2, 3, 6}) {
        EXPECT_EQ(decode("", type), ARI_INVALID_PARAMETERS) << type;
        EXPECT_EQ(pad->Base64Decode(pad.type(), type, nullptr, nullptr), ARI_INVALID_PARAMETERS) << type;
    }
    expectDecoded(kPoints);
}

TEST_P(InkRecord, EachDecodingStartsEmpty)
{
    pad.driver.send(twoStrokes(pad.type()));
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
        ASSERT_EQ(decodeRecord(recordOf(kPoints)), ARI_SUCCESS);
        expectDecoded(kPoints);
        EXPECT_EQ(decode(textOf(pad, type).text(), type, nullptr), ARI_INK_EMPTY);
        EXPECT_EQ(count(), ARI_INK_EMPTY) << type;
    }
    ASSERT_EQ(decodeRecord(recordOf(kPoints)), ARI_SUCCESS);
    ASSERT_EQ(decodeRecord(recordOf({kPoints[2]})), ARI_SUCCESS);
    expectDecoded({kPoints[2]});
}

TEST_P(InkRecord, HasNothingToDoWithTheStoredPoints)
{
    pad.driver.send(twoStrokes(pad.type()));
    const QByteArray text = textOf(pad, EBITI_INK).text();
    ASSERT_EQ(decodeRecord(recordOf(kPoints)), ARI_SUCCESS);
    EXPECT_EQ(textOf(pad, EBITI_INK).text(), text);
    pad->Clear(pad.type());
    expectDecoded(kPoints);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
}

TEST_P(InkRecord, DoesNotUseThePath)
{
    std::wstring path = L"/tmp/kv-ink-record-test-path";
    ASSERT_EQ(decode(base64::encoded(recordOf(kPoints)), EBITI_INK, path.data()), ARI_SUCCESS);
    EXPECT_FALSE(QFile::exists("/tmp/kv-ink-record-test-path"));
}

INSTANTIATE_TEST_SUITE_P(AllPads, InkRecord, testing::ValuesIn(allPads()), padCaseName);
