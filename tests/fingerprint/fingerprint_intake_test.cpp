// Which of the sensor's images are kept, and what each that is kept leaves in the layer and for the pad's screen.
#include "handrunpad.h"
#include "logfile.h"

#include <climits>
#include <cstring>
#include <future>

namespace {

template <class Pad>
class FingerprintIntake : public testing::Test
{
};
TYPED_TEST_SUITE(FingerprintIntake, FingerprintClasses, FingerprintClassName);

Grey withDarkPixel(int x, int y)
{
    Grey image = evenGrey(200);
    at(image, x, y) = 0;
    return image;
}

} // namespace

TYPED_TEST(FingerprintIntake, KeepsTheFirstOfTheBestImages)
{
    struct
    {
        int score;
        int keptVariant; // the image that is kept afterwards: 1 to 4 in the order of arrival
        int best;
    } const steps[] = {{40, 1, 40}, {40, 1, 40}, {55, 3, 55}, {30, 3, 55}};
    HandRunPad<TypeParam> pad(400, 300);
    int arriving = 0;
    int kept = 0;
    for (const auto &step : steps) {
        pad->m_bNewFPImageRawDataOnDeviceAvailable = false;
        pad.takeIn(ridges(++arriving), step.score);
        EXPECT_EQ(pad->m_nCurrentFPRawDataWithBestScore, step.best);
        EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(ridges(step.keptVariant), pad.layerSize())) << arriving;
        EXPECT_EQ(pad.waitingPicture(), padPictureOf(ridges(step.keptVariant))) << arriving;
        EXPECT_EQ(pad->m_bNewFPImageRawDataOnDeviceAvailable, step.keptVariant != kept) << arriving;
        kept = step.keptVariant;
    }
}

TYPED_TEST(FingerprintIntake, TakesAnyPositiveScoreAfterAClear)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 90);
    pad->ClearSignCanvas();
    EXPECT_EQ(pad->m_nCurrentFPRawDataWithBestScore, 0);
    pad->m_bNewFPImageRawDataOnDeviceAvailable = false;
    for (const int refused : {0, -1, INT_MIN}) {
        pad.takeIn(ridges(2), refused);
        EXPECT_EQ(pad->m_nCurrentFPRawDataWithBestScore, 0) << refused;
        EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(evenGrey(1), pad.layerSize())) << refused;
        EXPECT_FALSE(pad->m_bNewFPImageRawDataOnDeviceAvailable) << refused;
    }
    pad.takeIn(ridges(3), 1);
    EXPECT_EQ(pad->m_nCurrentFPRawDataWithBestScore, 1);
    EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(ridges(3), pad.layerSize()));
}

TYPED_TEST(FingerprintIntake, DropsImagesWithoutAPadAndNullImagesWithoutALogLine)
{
    HandRunPad<TypeParam> pad(400, 300);
    const LogTail log;
    const LogOn on;
    pad->RxS310XSignPadFPRawData(nullptr, 59904, 50);
    pad->m_bDeviceConnected = false;
    pad.takeIn(ridges(1), 50);
    EXPECT_TRUE(log.lines().empty());
    EXPECT_EQ(pad->m_nCurrentFPRawDataWithBestScore, 0);
    EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(evenGrey(1), pad.layerSize()));
    EXPECT_FALSE(pad->m_bNewFPImageRawDataOnDeviceAvailable);
}

TYPED_TEST(FingerprintIntake, TheThresholdIsTheMeanRoundedDownAndEqualIsLight)
{
    struct
    {
        const char *name;
        int even; // level of all pixels
        int first; // level of the first one
        int threshold;
        bool firstIsDark;
        bool othersAreDark;
    } const rows[] = {
        {"all equal", 77, 77, 77, false, false},
        {"all black", 0, 0, 0, false, false},
        {"all white", 255, 255, 255, false, false},
        {"one a little darker", 100, 99, 99, false, false}, // 99.99 rounds down to the dark pixel's own level
        {"one two darker", 100, 98, 99, true, false},
        {"one lighter", 100, 101, 100, false, false},
        {"one black among white", 255, 0, 254, true, false},
    };
    HandRunPad<TypeParam> pad(400, 300);
    int score = 0;
    for (const auto &row : rows) {
        Grey image = evenGrey(row.even);
        at(image, 0, 0) = static_cast<unsigned char>(row.first);
        const LogTail log;
        {
            const LogOn on;
            pad.takeIn(image, ++score);
        }
        ASSERT_EQ(log.lines().size(), 3u) << row.name;
        const std::string line = log.lines()[1];
        const std::string end = ">nThresholdValue = " + std::to_string(row.threshold) + ", ";
        EXPECT_EQ(line.substr(line.size() - std::min(line.size(), end.size())), end) << row.name;
        EXPECT_EQ(pad->m_FPOnlyCanvas.pixel(0, 0), row.firstIsDark ? 0xffff0000 : 0xffffffff) << row.name;
        EXPECT_EQ(pad->m_FPOnlyCanvas.pixel(1, 0), row.othersAreDark ? 0xffff0000 : 0xffffffff) << row.name;
        EXPECT_EQ(pad->m_FPOnlyCanvas.pixel(207, 287), row.othersAreDark ? 0xffff0000 : 0xffffffff) << row.name;
    }
}

TYPED_TEST(FingerprintIntake, AnEvenImageIsWhiteOnLayerAndPad)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 1);
    pad.takeIn(evenGrey(60), 2);
    QImage white(pad.layerSize(), QImage::Format_ARGB32);
    white.fill(0xffffffff);
    EXPECT_EQ(pad->m_FPOnlyCanvas, white);
    EXPECT_EQ(pad.waitingPicture(), std::vector<unsigned char>(kPictureBytes, 255));
}

TYPED_TEST(FingerprintIntake, TheLengthIsNotLookedAt)
{
    HandRunPad<TypeParam> pad(400, 300);
    int score = 0;
    for (const int length : {0, -1, 1, 59903, 59905, INT_MIN, INT_MAX}) {
        ++score;
        pad.takeIn(ridges(score), score, length);
        EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(ridges(score), pad.layerSize())) << length;
        EXPECT_EQ(pad.waitingPicture(), padPictureOf(ridges(score))) << length;
    }
}

TYPED_TEST(FingerprintIntake, ThePadPictureHasTheTopLeftPixelOfEachFour)
{
    struct
    {
        int x;
        int y;
        int darkAt; // index of the red pixel's first byte, or -1 for none
    } const rows[] = {{0, 0, 0}, {1, 0, -1}, {0, 1, -1}, {1, 1, -1}, {2, 0, 2}, {0, 2, 208}, {206, 286, 29950},
        {207, 286, -1}, {206, 287, -1}, {100, 50, 25 * 208 + 100}, {101, 50, -1}, {100, 51, -1}};
    HandRunPad<TypeParam> pad(400, 300);
    int score = 0;
    for (const auto &row : rows) {
        pad.takeIn(withDarkPixel(row.x, row.y), ++score);
        std::vector<unsigned char> expected(kPictureBytes, 255);
        if (row.darkAt >= 0) {
            expected[static_cast<size_t>(row.darkAt)] = 248;
            expected[static_cast<size_t>(row.darkAt) + 1] = 0;
        }
        EXPECT_EQ(pad.waitingPicture(), expected) << row.x << ", " << row.y;
        EXPECT_EQ(pad->m_FPOnlyCanvas.pixel(row.x, row.y), 0xffff0000) << row.x << ", " << row.y;
    }
}

TYPED_TEST(FingerprintIntake, DrawsWithoutTheCanvasLock)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad->m_mutexUpdateCanvas.lock();
    auto intake = std::async(std::launch::async, [&] { pad.takeIn(ridges(1), 10); });
    const auto state = intake.wait_for(kPatience);
    pad->m_mutexUpdateCanvas.unlock();
    intake.wait();
    EXPECT_EQ(state, std::future_status::ready);
    EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(ridges(1), pad.layerSize()));
}

TYPED_TEST(FingerprintIntake, LeavesTheInkAndTheShownCanvasAlone)
{
    HandRunPad<TypeParam> pad(400, 300);
    const QImage before = pad->m_canvas.copy();
    pad.takeIn(ridges(1), 10);
    EXPECT_EQ(pad->m_canvas, before);
    EXPECT_EQ(pad->m_SignCanvas, before);
}

TYPED_TEST(FingerprintIntake, LogsWhatItTakesAndOnlyTheEntryOfWhatItRefuses)
{
    HandRunPad<TypeParam> pad(400, 300);
    Grey image = evenGrey(10);
    char enter[64];
    std::snprintf(enter, sizeof enter, "Enter, pucRawData=%lx, nDataLength=7, nScore=5",
        reinterpret_cast<unsigned long>(image.data()));
    const std::string key = std::string(TypeParam::row.scope) + "RxS310XSignPadFPRawData()";
    const LogTail log;
    const LogOn on;
    pad->RxS310XSignPadFPRawData(image.data(), 7, 5);
    pad->RxS310XSignPadFPRawData(image.data(), 7, 5);
    const std::vector<LogEntry> entries = log.entries();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0], (LogEntry{key, enter}));
    // This one line has no dash after its tick.
    EXPECT_EQ(entries[1].text.find("[" + key + "]:<"), 0u);
    EXPECT_NE(entries[1].text.find(">nThresholdValue = 10, "), std::string::npos);
    EXPECT_EQ(entries[2], (LogEntry{key, "leave !"}));
    EXPECT_EQ(entries[3], (LogEntry{key, enter}));
}

class SmallCanvas : public testing::TestWithParam<QSize>
{
};

INSTANTIATE_TEST_SUITE_P(Sizes, SmallCanvas,
    testing::Values(QSize(100, 50), QSize(208, 288), QSize(207, 288), QSize(208, 287), QSize(1, 1), QSize(1000, 10),
        QSize(0, 0), QSize(0, 100), QSize(-5, 30)),
    [](const auto &row) {
        return "w" + std::to_string(row.param.width() + 10) + "h" + std::to_string(row.param.height() + 10) + "less10";
    });

// A headless canvas cuts the layer; the pad's picture is whole all the same.
TEST_P(SmallCanvas, CutsTheLayerOnly)
{
    HandRunPad<CS310XSignObj> pad(GetParam().width(), GetParam().height());
    pad.takeIn(ridges(2), 10);
    if (GetParam().isEmpty())
        EXPECT_TRUE(pad->m_FPOnlyCanvas.isNull());
    else
        EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(ridges(2), GetParam()));
    EXPECT_EQ(pad.waitingPicture(), padPictureOf(ridges(2)));
    pad.pass();
    pad.pass();
    EXPECT_EQ(pad->m_canvas.isNull(), GetParam().isEmpty());
}

TEST(FingerprintCallback, HandsTheDriversImageToTheOpenInstance)
{
    for (const PadCase &row : fingerprintPads()) {
        FingerprintPad pad(row);
        ASSERT_TRUE(pad.isOpen());
        pad.driver.sendFingerprint(ridges(4), 33);
        lookIntoOpen(row, [&](auto &instance) {
            EXPECT_EQ(instance.m_nCurrentFPRawDataWithBestScore, 33) << row.className();
            const QImage layer = instance.fingerprintLayer();
            EXPECT_EQ(layer, layerOf(ridges(4), layer.size())) << row.className();
        });
    }
}
