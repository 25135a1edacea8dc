// The ink record of lists of any length, byte by byte, and the answers that only the members give.
#include "base64.h"
#include "directpad.h"
#include "inkrecordbytes.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <ctime>
#include <memory>

namespace {

// Points whose every field differs from its neighbours'.
RecordPoint pointNumber(size_t i)
{
    const int n = static_cast<int>(i);
    return {n % 65536 - 32768, (n * 7) % 65536 - 32768, n % 8193, n % 11 == 10 ? 1 : 0,
        0x0102030405060708u + i * 0x100000001u, 1700000000 + n};
}

std::vector<RecordPoint> numbered(size_t count)
{
    std::vector<RecordPoint> points;
    points.reserve(count);
    for (size_t i = 0; i < count; ++i)
        points.push_back(pointNumber(i));
    return points;
}

template <class Pad>
class InkRecordMembers : public testing::Test
{
protected:
    void store(const std::vector<RecordPoint> &points)
    {
        for (const RecordPoint &point : points)
            pad.store(point.x, point.y, point.pressure, point.strokeEnd != 0, point.tick, point.time);
    }

    DirectPad<Pad> pad;
};

class LargeInkRecord : public InkRecordMembers<CS300SignObj>
{
protected:
    bool hasDecoded(const std::vector<RecordPoint> &points) const
    {
        const auto &list = *pad->m_pDecodedPointDataList;
        if (list.size() != points.size())
            return false;
        for (size_t i = 0; i < list.size(); ++i) {
            const _POINTDATA &point = list[i];
            if (point.nX != points[i].x || point.nY != points[i].y || point.nPressureValue != points[i].pressure
                || point.bStrokeEnd != (points[i].strokeEnd != 0) || point.ulTickCount != points[i].tick
                || point.pointTime != points[i].time)
                return false;
        }
        return true;
    }
};

} // namespace

TYPED_TEST_SUITE(InkRecordMembers, AllPadClasses, PadClassName);

TYPED_TEST(InkRecordMembers, RecordIsThePointsBytesAndAZeroAndComesBackWhole)
{
    const auto points = numbered(3);
    this->store(points);
    for (const bool ex : {false, true}) {
        const std::unique_ptr<char[]> text(
            ex ? this->pad->Base64EncodeEx(EBITI_INK, true) : this->pad->Base64Encode(EBITI_INK));
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(std::strlen(text.get()), 100u);
        EXPECT_EQ(base64::decoded(text.get()), recordOf(points) + '\0');
        ASSERT_EQ(this->pad->Base64Decode(EBITI_INK, text.get(), nullptr), ARI_SUCCESS);
        const auto &stored = *this->pad->m_pPointDataList;
        const auto &decoded = *this->pad->m_pDecodedPointDataList;
        ASSERT_EQ(decoded.size(), 3u);
        EXPECT_EQ(std::memcmp(static_cast<const void *>(decoded.data()), stored.data(), 72), 0);
    }
}

TYPED_TEST(InkRecordMembers, UnknownFieldIsInkEmpty)
{
    EXPECT_EQ(this->pad->GetDecodeInkPointData(0, 1), ARI_INK_EMPTY);
    EXPECT_EQ(this->pad->GetDecodeInkPointData(-1, 1), ARI_INK_EMPTY);
    ASSERT_EQ(this->pad->Base64Decode(EBITI_INK, base64::encoded(recordOf({{-5, -6, 7, 1}})).constData(), nullptr), 0);
    for (const int field : {INT_MIN, -1, 0, 4, 5, 6, INT_MAX}) {
        EXPECT_EQ(this->pad->GetDecodeInkPointData(0, field), ARI_INK_EMPTY) << field;
        EXPECT_EQ(this->pad->GetDecodeInkPointData(1, field), ARI_INVALID_PARAMETERS) << field;
    }
    EXPECT_EQ(this->pad->GetDecodeInkPointData(0, INKDATATYPE_X), -5);
    EXPECT_EQ(this->pad->GetDecodeInkPointData(0, INKDATATYPE_Y), -6);
    EXPECT_EQ(this->pad->GetDecodeInkPointData(0, INKDATATYPE_STROKEEND), 1);
}

TYPED_TEST(InkRecordMembers, UnknownTypeEmptiesTheListAndReleasesItsMemory)
{
    for (const int type : {INT_MIN, -1, 0, 4, 5, 7, INT_MAX}) {
        ASSERT_EQ(this->pad->Base64Decode(EBITI_INK, base64::encoded(recordOf(numbered(9))).constData(), nullptr), 0);
        ASSERT_EQ(this->pad->GetTotalDecodeInkPointsNumber(), 9);
        EXPECT_EQ(this->pad->Base64Decode(type, "AAAA", nullptr), ARI_INK_EMPTY) << type;
        EXPECT_EQ(this->pad->GetTotalDecodeInkPointsNumber(), ARI_INK_EMPTY) << type;
        EXPECT_EQ(this->pad->m_pDecodedPointDataList->capacity(), 0u) << type;
    }
}

TYPED_TEST(InkRecordMembers, WithoutListsTheQueriesAnswerInkEmpty)
{
    ASSERT_EQ(this->pad->Base64Decode(EBITI_INK, base64::encoded(recordOf(numbered(2))).constData(), nullptr), 0);
    this->pad->Shutdown();
    EXPECT_EQ(this->pad->m_pDecodedPointDataList, nullptr);
    EXPECT_EQ(this->pad->GetTotalDecodeInkPointsNumber(), ARI_INK_EMPTY);
    EXPECT_EQ(this->pad->GetDecodeInkPointData(0, 1), ARI_INK_EMPTY);
    EXPECT_EQ(this->pad->GetDecodeInkPointData(5, 9), ARI_INK_EMPTY);
    EXPECT_EQ(this->pad->Base64Encode(EBITI_INK), nullptr);
    for (const int type : {1, 2, 3, 4})
        EXPECT_EQ(this->pad->Base64Decode(type, "AAAA", nullptr), ARI_INK_EMPTY) << type;
    this->pad->Base64Decode(EBITI_INK, base64::encoded(recordOf(numbered(2))).constData(), nullptr);
    EXPECT_EQ(this->pad->GetTotalDecodeInkPointsNumber(), ARI_INK_EMPTY) << "there is nothing to keep them in";
}

TYPED_TEST(InkRecordMembers, ClearingTheCanvasKeepsTheDecodedPoints)
{
    ASSERT_EQ(this->pad->Base64Decode(EBITI_INK, base64::encoded(recordOf(numbered(2))).constData(), nullptr), 0);
    this->pad->ClearSignCanvas();
    EXPECT_EQ(this->pad->GetTotalDecodeInkPointsNumber(), 2);
}

TEST_F(LargeInkRecord, RoundTripsOfAnyLength)
{
    for (const size_t count : {1u, 2u, 3u, 7u, 1000u, 1000000u}) {
        const auto points = numbered(count);
        pad->m_pPointDataList->clear();
        store(points);
        const std::unique_ptr<char[]> text(pad->Base64Encode(EBITI_INK));
        ASSERT_NE(text, nullptr);
        EXPECT_TRUE(base64::decoded(text.get()) == recordOf(points) + '\0') << count;
        ASSERT_EQ(pad->Base64Decode(EBITI_INK, text.get(), nullptr), ARI_SUCCESS);
        EXPECT_TRUE(hasDecoded(points)) << count;
    }
}

// Longer than what is decoded in one piece (64 MiB), plain and with line ends, which shift every piece.
TEST_F(LargeInkRecord, TextOfMoreThan64MiB)
{
    const auto points = numbered(2100000);
    const QByteArray text = base64::encoded(recordOf(points) + '\0');
    ASSERT_GT(text.size(), 64 << 20);
    ASSERT_EQ(pad->Base64Decode(EBITI_INK, text.constData(), nullptr), ARI_SUCCESS);
    EXPECT_TRUE(hasDecoded(points));

    QByteArray lines;
    lines.reserve(text.size() + text.size() / 77777 + 1);
    for (int i = 0; i < text.size(); i += 77777)
        lines += QByteArray::fromRawData(text.constData() + i, std::min(77777, text.size() - i)) + '\n';
    ASSERT_EQ(pad->Base64Decode(EBITI_INK, lines.constData(), nullptr), ARI_SUCCESS);
    EXPECT_TRUE(hasDecoded(points));

    store(points);
    const std::unique_ptr<char[]> encoded(pad->Base64Encode(EBITI_INK));
    EXPECT_TRUE(text == encoded.get());
}
