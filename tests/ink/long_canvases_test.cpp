// Canvases longer than Qt paints, and than libpng writes: the outputs are what Qt's own calls make of them.
#include "returnedtext.h"
#include "savedfiles.h"

namespace {

class LongCanvases : public testing::TestWithParam<PadCase>
{
protected:
    // A stroke along the middle and a dot near the end of the longer side.
    static std::vector<KVSIM_PACKET> ink(int type)
    {
        return stroke(type, {{0.1, 0.1, 0.2}, {0.5, 0.5, 0.3}, {0.95, 0.95, 0.2}});
    }
};

std::vector<PadCase> headlessPads()
{
    std::vector<PadCase> pads;
    for (const Family &family : kFamilies)
        pads.push_back({&family, true});
    return pads;
}

INSTANTIATE_TEST_SUITE_P(HeadlessPads, LongCanvases, testing::ValuesIn(headlessPads()), padCaseName);

TEST_P(LongCanvases, AreTransparentAsFarAsQtMakesThem)
{
    for (const QSize &size : {QSize(32767, 2), QSize(32768, 2), QSize(40000, 3), QSize(2, 32768), QSize(3, 40000)}) {
        SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height());
        OpenPad pad(GetParam(), size.width(), size.height());
        pad.driver.send(ink(pad.type()));
        const QImage expected = whiteMadeTransparent(pad.canvas()).convertToFormat(QImage::Format_ARGB32);
        const bool whole = size.width() <= 32767 && size.height() <= 32767;
        EXPECT_EQ(expected.pixel(size.width() - 1, size.height() - 1), whole ? 0 : 0xffffffff);

        EXPECT_EQ(QImage::fromData(textOf(pad, EBITI_PNG).bytes(), "PNG"), expected);
        EXPECT_EQ(QImage::fromData(exTextOf(pad, EBITI_PNG, true).bytes(), "PNG"), expected);
        const SavedFiles files;
        ASSERT_EQ(files.save(pad, ITI_PNG, "sig.png"), ARI_SUCCESS);
        QImage saved(files.path("sig.png"));
        saved.setDotsPerMeterX(expected.dotsPerMeterX());
        saved.setDotsPerMeterY(expected.dotsPerMeterY());
        EXPECT_EQ(saved, expected);
    }
}

TEST_P(LongCanvases, BeyondAMillionPixelsAreNoPng)
{
    for (const int length : {1000000, 1000001}) {
        OpenPad pad(GetParam(), length, 2);
        pad.driver.send(ink(pad.type()));
        const SavedFiles files;
        const bool fits = length <= 1000000;
        EXPECT_EQ(!textOf(pad, EBITI_PNG).text().isEmpty(), fits);
        EXPECT_EQ(!exTextOf(pad, EBITI_PNG, true).text().isEmpty(), fits);
        EXPECT_EQ(!exTextOf(pad, EBITI_PNG, false).text().isEmpty(), fits);
        EXPECT_EQ(files.save(pad, ITI_PNG, "sig.png"), fits ? ARI_SUCCESS : ARI_INK_EMPTY);
        EXPECT_EQ(files.save(pad, ITI_BITMAP, "sig.bmp"), ARI_SUCCESS);
    }
}

} // namespace
