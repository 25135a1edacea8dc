// Memory that outputs need: the result, one copy of its source, and little more.
#include "livebytes.h"
#include "returnedtext.h"
#include "savedfiles.h"

#include <cmath>
#include <cstring>
#include <unistd.h>

namespace {

constexpr long kLittle = 600 << 10; // compressor, buffers, what Qt makes of a small drawing
constexpr long kPointBytes = 24;

class LongSignature : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kMoves = 16000;

    LongSignature()
        : pad(GetParam(), 60, 40)
    {
        std::vector<Share> shares;
        for (int i = 0; i <= kMoves; ++i)
            shares.push_back({0.5 + 0.4 * std::sin(i * 0.1), 0.5 + 0.4 * std::cos(i * 0.13), 0.2 + 0.1 * (i % 7)});
        pad.driver.send(stroke(pad.type(), shares));
        svgTextOf(pad); // what is made once is made now
        ::unlink("/tmp/KVeSign.svg");
    }
    ~LongSignature() override { ::unlink("/tmp/KVeSign.svg"); }

    long bytesOfPoints() const { return kPointBytes * pad->GetTotalInkPointsNumber(pad.type()); }

    OpenPad pad;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, LongSignature, testing::ValuesIn(allPads()), padCaseName);

TEST_P(LongSignature, SvgTextNeedsItselfAndThePoints)
{
    char *text = nullptr;
    const long peak = livebytes::peakOf([&] { text = pad->GetSVGImageBase64Data(pad.type()); });
    ASSERT_NE(text, nullptr);
    const auto length = static_cast<long>(std::strlen(text));
    EXPECT_GT(length, 100L * kMoves) << "a block of text a move";
    EXPECT_GE(peak, length);
    EXPECT_LT(peak, length + bytesOfPoints() + kLittle);
    pad->FreeSVGImageBase64Data(pad.type(), text);
}

TEST_P(LongSignature, SvgFileNeedsThePoints)
{
    long result = ARI_FAIL;
    const long peak = livebytes::peakOf([&] { result = files.save(pad, ITI_SVG, "long.svg"); });
    ASSERT_EQ(result, ARI_SUCCESS);
    EXPECT_GT(files.bytes("long.svg").size(), 100 * kMoves);
    EXPECT_LT(peak, bytesOfPoints() + kLittle);
}

class LargeCanvas : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kWidth = 1600;
    static constexpr int kHeight = 1000;
    static constexpr long kCanvas = 4L * kWidth * kHeight;

    LargeCanvas()
        : pad(GetParam(), kWidth, kHeight)
    {
        pad.driver.send(twoStrokes(pad.type()));
        exTextOf(pad, EBITI_PNG, true); // the comparisons with Qt's writer, once a process
        exTextOf(pad, EBITI_PNG, false);
    }

    OpenPad pad;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, LargeCanvas, testing::ValuesIn(allPads()), padCaseName);

TEST_P(LargeCanvas, PngTextNeedsNoCopyOfIt)
{
    for (const bool transparent : {true, false})
        EXPECT_LT(livebytes::peakOf([&] { exTextOf(pad, EBITI_PNG, transparent); }), kLittle) << transparent;
}

TEST_P(LargeCanvas, PngFileNeedsOneCopyOfIt)
{
    for (const int type : {ITI_PNG, ITI_BITMAP}) {
        long result = ARI_FAIL;
        const long peak = livebytes::peakOf([&] { result = files.save(pad, type, "large.png"); });
        ASSERT_EQ(result, ARI_SUCCESS);
        EXPECT_LT(peak, kCanvas + kLittle) << type;
    }
}

} // namespace
