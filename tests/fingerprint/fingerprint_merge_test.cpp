// Signature and fingerprint on one canvas: where the fingerprint stands, and that each pixel is the two anded.
#include "fingerprints.h"

#include <QPainter>

namespace {

constexpr int kDevice = KVS310X_DEVICE;
const PadCase kWidgetPad{&kS310XFamily, false};
const PadCase kHeadlessPad{&kS310XFamily, true};
const QSize kSensor(kGreyWidth, kGreyHeight);

std::vector<KVSIM_PACKET> signature()
{
    auto packets = stroke(kDevice, {{0.2, 0.3, 0.5}, {0.5, 0.5, 0.8}, {0.6, 0.35, 0.6}, {0.8, 0.7, 0.9}});
    const auto second = stroke(kDevice, {{0.4, 0.8, 0.3}, {0.45, 0.2, 0.7}});
    packets.insert(packets.end(), second.begin(), second.end());
    return packets;
}

struct Case
{
    PadCase pad;
    QSize size;
};

void PrintTo(const Case &row, std::ostream *out)
{
    *out << row.pad.className() << ' ' << row.size.width() << " x " << row.size.height();
}

class Merge : public testing::TestWithParam<Case>
{
protected:
    Merge()
        : pad(GetParam().pad, size().width(), size().height())
    {
    }

    QSize size() const { return GetParam().size; }

    QImage ink() const { return drawn(GetParam().pad, signature(), size().width(), size().height()); }

    /// A headless layer has the canvas's size, a widget's the sensor's.
    QImage layer(int variant) const { return layerOf(ridges(variant), GetParam().pad.headless ? size() : kSensor); }

    FingerprintPad pad;
};

std::vector<Case> cases()
{
    std::vector<Case> rows;
    for (const PadCase &pad : fingerprintPads())
        for (const QSize &size : {QSize(600, 300), QSize(400, 200), QSize(301, 577), QSize(1024, 768), QSize(90, 70)})
            rows.push_back({pad, size});
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Table, Merge, testing::ValuesIn(cases()), [](const auto &row) {
    return std::string(row.param.pad.className()) + std::to_string(row.param.size.width()) + "x"
        + std::to_string(row.param.size.height());
});

void sendSignature(OpenPad &pad)
{
    pad.driver.send(signature());
}

/// The rectangle of the places of their own.
QRect some(const QSize &canvas)
{
    return {canvas.width() / 5, canvas.height() / 6, canvas.width() / 3, canvas.height() / 2};
}

int place(QWidget *parent, const QSize &canvas, const QRect &target)
{
    return KVS310X_SetDisplayedFPImageAt(
        kDevice, parent, canvas.width(), canvas.height(), target.left(), target.top(), target.width(), target.height());
}

} // namespace

TEST_P(Merge, InTheMiddleAfterTheInk)
{
    sendSignature(pad);
    EXPECT_EQ(difference(shown(pad), ink()), "");
    pad.driver.sendFingerprint(ridges(1), 10);
    expectBecomes([&] { return shown(pad); }, anded(ink(), printed(layer(1), middleOf(size()), size())));
}

TEST_P(Merge, InTheMiddleBeforeTheInk)
{
    pad.driver.sendFingerprint(ridges(1), 10);
    expectBecomes([&] { return shown(pad); }, printed(layer(1), middleOf(size()), size()));
    sendSignature(pad);
    EXPECT_EQ(difference(shown(pad), anded(ink(), printed(layer(1), middleOf(size()), size()))), "");
}

TEST_P(Merge, ABetterFingerprintTakesThePlaceOfTheFormer)
{
    sendSignature(pad);
    pad.driver.sendFingerprint(ridges(1), 10);
    expectBecomes([&] { return shown(pad); }, anded(ink(), printed(layer(1), middleOf(size()), size())));
    pad.driver.sendFingerprint(ridges(2), 11);
    expectBecomes([&] { return shown(pad); }, anded(ink(), printed(layer(2), middleOf(size()), size())));
}

TEST_P(Merge, NothingIsLeftAfterAClear)
{
    sendSignature(pad);
    pad.driver.sendFingerprint(ridges(1), 10);
    expectBecomes([&] { return shown(pad); }, anded(ink(), printed(layer(1), middleOf(size()), size())));
    EXPECT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    EXPECT_TRUE(shown(pad).isNull());
    sendSignature(pad);
    EXPECT_EQ(difference(shown(pad), ink()), "");
    pad.driver.sendFingerprint(ridges(3), 1);
    expectBecomes([&] { return shown(pad); }, anded(ink(), printed(layer(3), middleOf(size()), size())));
}

TEST_P(Merge, InAPlaceOfItsOwn)
{
    QWidget other;
    other.resize(240, 330);
    other.show();
    const QRect target = some(GetParam().pad.headless ? size() : other.size());
    ASSERT_EQ(place(&other, size(), target), ARI_SUCCESS);
    pad.driver.sendFingerprint(ridges(1), 10);
    const QSize hostSize = GetParam().pad.headless ? size() : other.size();
    const auto look = [&] {
        return GetParam().pad.headless ? fingerprintImage(pad) : painted(*fingerprintWidget(other));
    };
    expectBecomes(look, printed(layer(1), target, hostSize));
    sendSignature(pad);
    EXPECT_EQ(difference(shown(pad), ink()), "") << "the fingerprint is on the signing canvas";
    pad.driver.sendFingerprint(ridges(2), 12);
    expectBecomes(look, printed(layer(2), target, hostSize));
    EXPECT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    expectBecomes(look, printed({}, {}, hostSize));
}

// Only the shown canvas keeps its picture; the layers start empty, and stay so until new ink or a better fingerprint.
TEST_P(Merge, AResizedWidgetKeepsThePictureUntilTheNextMerge)
{
    if (GetParam().pad.headless) {
        EXPECT_EQ(pad.widget(), nullptr);
        return;
    }
    sendSignature(pad);
    pad.driver.sendFingerprint(ridges(1), 10);
    const QImage before = anded(ink(), printed(layer(1), middleOf(size()), size()));
    expectBecomes([&] { return shown(pad); }, before);
    const QSize larger(size().width() + 60, size().height() + 31);
    pad.widget()->resize(larger);
    settle();
    QImage kept = printed({}, {}, larger);
    QPainter(&kept).drawImage(0, 0, before);
    EXPECT_EQ(difference(shown(pad), kept), "");

    sendSignature(pad);
    const QImage newInk = drawn(GetParam().pad, signature(), larger.width(), larger.height());
    EXPECT_EQ(difference(shown(pad), newInk), "");
    pad.driver.sendFingerprint(ridges(2), 10); // no better than the one before the resize
    pad.driver.sendFingerprint(ridges(2), 11);
    expectBecomes(
        [&] { return shown(pad); }, anded(newInk, printed(layerOf(ridges(2), kSensor), middleOf(larger), larger)));
}

TEST_P(Merge, InARectangleOfTheSignWidget)
{
    if (GetParam().pad.headless) {
        ASSERT_EQ(place(nullptr, size(), some(size())), ARI_SUCCESS); // there is no sign widget to place it on
        return;
    }
    ASSERT_EQ(place(pad.window(), {}, some(size())), ARI_SUCCESS);
    sendSignature(pad);
    pad.driver.sendFingerprint(ridges(1), 10);
    expectBecomes([&] { return shown(pad); }, anded(ink(), printed(layer(1), some(size()), size())));
    EXPECT_EQ(difference(painted(*pad.widget()), shown(pad)), "");
    pad.widget()->resize(size() + QSize(10, 10));
    settle();
    pad.driver.sendFingerprint(ridges(2), 11);
    expectBecomes([&] { return shown(pad); }, printed(layer(2), some(size()), size() + QSize(10, 10)));
}

// A segment merges the whole fingerprint, also one that the pad's screen has yet to show, far from the segment.
TEST_P(Merge, ASegmentBringsInAFingerprintThatIsStillBeingSent)
{
    KVS310X_UnInitialDevice(kDevice);
    FingerprintPad slow(GetParam().pad, size().width(), size().height(), 10000);
    sendSignature(slow);
    EXPECT_EQ(difference(shown(slow), ink()), "");
    auto packets = signature();
    const auto more = stroke(kDevice, {{0.02, 0.03, 0.2}, {0.04, 0.02, 0.2}, {0.05, 0.05, 0.3}});
    for (int variant = 1; variant <= 2; ++variant) {
        slow.driver.sendFingerprint(ridges(variant), variant);
        slow.driver.send(more);
        packets.insert(packets.end(), more.begin(), more.end());
        const QImage allInk = drawn(GetParam().pad, packets, size().width(), size().height());
        EXPECT_EQ(difference(shown(slow), anded(allInk, printed(layer(variant), middleOf(size()), size()))), "");
    }
    EXPECT_EQ(slow.shownPictures(), 0);
}

// The next segment moves the fingerprint to where it was placed meanwhile.
TEST_P(Merge, ASegmentMovesTheFingerprintToItsNewPlace)
{
    pad.driver.sendFingerprint(ridges(1), 10);
    expectBecomes([&] { return shown(pad); }, printed(layer(1), middleOf(size()), size()));
    sendSignature(pad);
    auto packets = signature();
    const QRect places[] = {some(size()), some(size()).translated(5, 7), QRect()};
    QWidget other;
    other.resize(size());
    for (const QRect &target : places) {
        const bool aside = target.isNull() || GetParam().pad.headless;
        ASSERT_EQ(place(aside ? &other : pad.window(), size(), aside ? QRect(0, 0, 9, 9) : target), ARI_SUCCESS);
        const auto more = stroke(kDevice, {{0.9, 0.9, 0.2}, {0.95, 0.92, 0.3}});
        pad.driver.send(more);
        packets.insert(packets.end(), more.begin(), more.end());
        const QImage allInk = drawn(GetParam().pad, packets, size().width(), size().height());
        const QImage print = aside ? printed({}, {}, size()) : printed(layer(1), target, size());
        EXPECT_EQ(difference(shown(pad), anded(allInk, print)), "");
    }
}

// At the sensor's own size nothing is scaled: every pixel can be told without a painter.
TEST(MergeUnscaled, EachPixelIsInkAndFingerprint)
{
    FingerprintPad pad(kWidgetPad, 400, 400);
    const QColor colour(0, 90, 255);
    KVS310X_SetPenColor(kDevice, colour.red(), colour.green(), colour.blue());
    ASSERT_EQ(place(pad.window(), {}, QRect(37, 51, kGreyWidth, kGreyHeight)), ARI_SUCCESS);
    sendSignature(pad);
    InkPicture ink(kWidgetPad, 400, 400);
    ink.pen.colour = colour;
    ink.play(signature());
    pad.driver.sendFingerprint(ridges(1), 10);
    QImage print = printed({}, {}, {400, 400});
    const QImage layer = layerOf(ridges(1), kSensor);
    for (int y = 0; y < kGreyHeight; ++y)
        for (int x = 0; x < kGreyWidth; ++x)
            print.setPixel(37 + x, 51 + y, layer.pixel(x, y));
    expectBecomes([&] { return shown(pad); }, anded(ink.image, print));
}

// Half as high as the canvas, in the sensor's proportions: 245.83, 75, 108.33 wide, 150 high on 600 by 300.
TEST(MergeInTheMiddle, StandsWhereTheNumbersSay)
{
    for (const PadCase &row : fingerprintPads()) {
        FingerprintPad pad(row, 600, 300);
        Grey dark = evenGrey(0); // but for two light rows, which lift the mean above 0
        std::fill_n(dark.begin(), 2 * kGreyWidth, static_cast<unsigned char>(255));
        pad.driver.sendFingerprint(dark, 10);
        ASSERT_TRUE(becomes([&] { return shown(pad).pixel(300, 150) == 0xffff0000; })) << row.className();
        const QImage canvas = shown(pad);
        QRect red;
        for (int y = 0; y < 300; ++y)
            for (int x = 0; x < 600; ++x)
                if (canvas.pixel(x, y) == 0xffff0000)
                    red |= QRect(x, y, 1, 1);
        EXPECT_EQ(red.left(), 246) << row.className(); // the first pixel whose middle lies right of 245.83
        EXPECT_EQ(red.right(), 353) << row.className(); // 354.17 is the right edge
        EXPECT_EQ(red.top(), 76) << row.className(); // the light rows take the first one
        EXPECT_EQ(red.bottom(), 224) << row.className();
    }
}
