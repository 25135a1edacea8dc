// Where a caller may put the fingerprint, what is refused, and what becomes of the places.
#include "fingerprints.h"
#include "logfile.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <climits>
#include <thread>

namespace {

constexpr int kDevice = KVS310X_DEVICE;
const PadCase kWidgetPad{&kS310XFamily, false};
const PadCase kHeadlessPad{&kS310XFamily, true};

/// A rectangle on a canvas of 300 by 200 pixels.
struct Placed
{
    const char *name;
    int left;
    int top;
    int width;
    int height;
    int result;
};

void PrintTo(const Placed &row, std::ostream *out)
{
    *out << row.name;
}

constexpr Placed kRectangles[] = {
    {"WholeHost", 0, 0, 300, 200, ARI_SUCCESS},
    {"OnePixel", 299, 199, 1, 1, ARI_SUCCESS},
    {"Inside", 20, 30, 100, 120, ARI_SUCCESS},
    {"OneTooWide", 0, 0, 301, 200, ARI_INVALID_PARAMETERS},
    {"OneTooHigh", 0, 0, 300, 201, ARI_INVALID_PARAMETERS},
    {"LeftOfIt", -1, 0, 10, 10, ARI_INVALID_PARAMETERS},
    {"AboveIt", 0, -1, 10, 10, ARI_INVALID_PARAMETERS},
    {"RightOfIt", 300, 0, 1, 1, ARI_INVALID_PARAMETERS},
    {"BelowIt", 0, 200, 1, 1, ARI_INVALID_PARAMETERS},
    {"OneOverTheRightSide", 291, 0, 10, 10, ARI_INVALID_PARAMETERS},
    {"OneOverTheLowerSide", 0, 191, 10, 10, ARI_INVALID_PARAMETERS},
    {"EmptyAtTheCorner", 0, 0, 0, 0, ARI_INVALID_PARAMETERS}, // its lower right corner is -1, -1
    {"WidthOverflows", 10, 10, INT_MAX, 10, ARI_INVALID_PARAMETERS},
    {"HeightOverflows", 10, 10, 10, INT_MAX, ARI_INVALID_PARAMETERS},
    {"EndWrapsRound", INT_MAX, INT_MAX, INT_MAX, INT_MAX, ARI_INVALID_PARAMETERS},
    {"StartWrapsRound", INT_MIN, INT_MIN, INT_MAX, INT_MAX, ARI_INVALID_PARAMETERS},
    {"BackwardsBeyondInt", INT_MIN, 0, INT_MIN, 10, ARI_INVALID_PARAMETERS},
    {"FarBackwards", 10, 10, INT_MIN, INT_MIN, ARI_INVALID_PARAMETERS},
};

class Rectangle : public testing::TestWithParam<Placed>
{
};
INSTANTIATE_TEST_SUITE_P(
    Table, Rectangle, testing::ValuesIn(kRectangles), [](const auto &row) { return std::string(row.param.name); });

int placeOn(QWidget *parent, const Placed &row)
{
    return KVS310X_SetDisplayedFPImageAt(kDevice, parent, 0, 0, row.left, row.top, row.width, row.height);
}

int placeOnCanvas(int width, int height, const Placed &row)
{
    return KVS310X_SetDisplayedFPImageAt(kDevice, nullptr, width, height, row.left, row.top, row.width, row.height);
}

constexpr Placed kInside{"", 20, 30, 100, 120, ARI_SUCCESS};
constexpr Placed kOutside{"", 250, 150, 100, 120, ARI_INVALID_PARAMETERS};

void sendAndWait(FingerprintPad &pad, const Grey &image, int score)
{
    const int before = pad.shownPictures();
    pad.driver.sendFingerprint(image, score);
    EXPECT_TRUE(becomes([&] { return pad.shownPictures() == before + 1; }));
}

} // namespace

TEST_P(Rectangle, OnTheSignWidget)
{
    const FingerprintPad pad(kWidgetPad, 300, 200);
    EXPECT_EQ(placeOn(pad.window(), GetParam()), GetParam().result);
    EXPECT_EQ(fingerprintWidget(*pad.window()), nullptr);
}

// The fingerprint's own widget covers its parent, so that the parent's coordinates are its own.
TEST_P(Rectangle, InAnotherWindow)
{
    const FingerprintPad pad(kWidgetPad, 50, 40);
    QWidget other;
    other.resize(300, 200);
    other.show();
    EXPECT_EQ(placeOn(&other, GetParam()), GetParam().result);
    QWidget *widget = fingerprintWidget(other);
    ASSERT_NE(widget, nullptr) << "stored whatever the result";
    EXPECT_EQ(widget->geometry(), QRect(0, 0, 300, 200));
    EXPECT_EQ(widget->isVisible(), GetParam().result == ARI_SUCCESS);
}

TEST_P(Rectangle, OnAHeadlessCanvas)
{
    const FingerprintPad pad(kHeadlessPad, 50, 40);
    EXPECT_EQ(placeOnCanvas(300, 200, GetParam()), GetParam().result);
    EXPECT_EQ(fingerprintText(pad, EBITI_BITMAP, false).isNull(), GetParam().result != ARI_SUCCESS);
}

TEST(FingerprintPlacement, TheSignWidgetRefusesNoParent)
{
    const FingerprintPad pad(kWidgetPad, 300, 200);
    EXPECT_EQ(placeOn(nullptr, kInside), ARI_INVALID_PARAMETERS);
}

TEST(FingerprintPlacement, WithoutAnInstanceItFails)
{
    QWidget window;
    EXPECT_EQ(placeOn(&window, kInside), ARI_FAIL);
    EXPECT_EQ(placeOnCanvas(300, 200, kInside), ARI_FAIL);
}

TEST(FingerprintPlacement, AHeadlessCanvasWithoutAreaTakesNoRectangle)
{
    const FingerprintPad pad(kHeadlessPad);
    for (const QSize &size : {QSize(0, 0), QSize(0, 50), QSize(-5, -5), QSize(INT_MIN, INT_MIN), QSize(10, -1)})
        for (const Placed &row : {Placed{"", 0, 0, 1, 1, 0}, Placed{"", 0, 0, 0, 0, 0}, Placed{"", -3, -3, 2, 2, 0}})
            EXPECT_EQ(placeOnCanvas(size.width(), size.height(), row), ARI_INVALID_PARAMETERS) << size.width();
}

TEST(FingerprintPlacement, AHeadlessCanvasHasTheSizeAskedFor)
{
    const FingerprintPad pad(kHeadlessPad, 50, 40);
    for (const QSize &size : {QSize(300, 200), QSize(1, 1), QSize(1920, 3)}) {
        ASSERT_EQ(placeOnCanvas(size.width(), size.height(), {"", 0, 0, 1, 1, 0}), ARI_SUCCESS);
        const QImage image = fingerprintImage(pad);
        EXPECT_EQ(image, printed({}, {}, size));
    }
}

// A canvas that cannot be had is a null image, and its text is empty.
TEST(FingerprintPlacement, AHeadlessCanvasBeyondMemoryGivesAnEmptyText)
{
    FingerprintPad pad(kHeadlessPad, 50, 40);
    ASSERT_EQ(placeOnCanvas(INT_MAX, INT_MAX, kInside), ARI_SUCCESS);
    sendAndWait(pad, ridges(1), 5);
    for (const bool only : {false, true})
        EXPECT_EQ(fingerprintText(pad, EBITI_PNG, only).text(), "");
}

TEST(FingerprintPlacement, AFailedOneKeepsTheAction)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    sendAndWait(pad, ridges(1), 5);
    const QImage middle = printed(layerOf(ridges(1), {kGreyWidth, kGreyHeight}), middleOf(pad.size), pad.size);
    expectBecomes([&] { return shown(pad); }, middle);

    QWidget other;
    other.resize(300, 200);
    EXPECT_EQ(placeOn(pad.window(), kOutside), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(placeOn(&other, kOutside), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(placeOn(nullptr, kInside), ARI_INVALID_PARAMETERS);
    sendAndWait(pad, ridges(2), 6);
    expectBecomes([&] { return shown(pad); },
        printed(layerOf(ridges(2), {kGreyWidth, kGreyHeight}), middleOf(pad.size), pad.size));
}

// The refused rectangle stays, and is used where the action was given before.
TEST(FingerprintPlacement, ARefusedRectangleReplacesTheFormerOne)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    ASSERT_EQ(placeOn(pad.window(), kInside), ARI_SUCCESS);
    EXPECT_EQ(placeOn(pad.window(), kOutside), ARI_INVALID_PARAMETERS);
    sendAndWait(pad, ridges(1), 5);
    expectBecomes([&] { return shown(pad); },
        printed(layerOf(ridges(1), {kGreyWidth, kGreyHeight}), {250, 150, 100, 120}, pad.size));
    // What of it lies beside the canvas has no colour, which a bitmap shows as black.
    QImage cut(100, 120, QImage::Format_ARGB32);
    cut.fill(Qt::black);
    QPainter(&cut).drawImage(0, 0, shown(pad).copy(250, 150, 50, 50));
    expectBecomes([&] { return fingerprintImage(pad, EBITI_BITMAP, true); }, cut);
}

// What a refusal leaves behind may be larger than any image; memory must not go with it.
TEST(FingerprintPlacement, AnImmenseRefusedRectangleGivesAnEmptyText)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    ASSERT_EQ(placeOn(pad.window(), kInside), ARI_SUCCESS);
    EXPECT_EQ(placeOn(pad.window(), {"", -30000, -30000, 90000, 90000, 0}), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(fingerprintText(pad, EBITI_BITMAP, true).text(), "");
    EXPECT_EQ(placeOn(pad.window(), {"", INT_MIN, INT_MIN, INT_MAX, INT_MAX, 0}), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(fingerprintText(pad, EBITI_BITMAP, true).text(), "");
    sendAndWait(pad, ridges(1), 5);
}

TEST(FingerprintPlacement, TheLastActionCounts)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    QWidget other;
    other.resize(200, 150);
    other.show();
    ASSERT_EQ(placeOn(&other, kInside), ARI_SUCCESS);
    ASSERT_EQ(placeOn(pad.window(), kInside), ARI_SUCCESS);
    sendAndWait(pad, ridges(1), 5);
    const QImage layer = layerOf(ridges(1), {kGreyWidth, kGreyHeight});
    expectBecomes([&] { return shown(pad); }, printed(layer, {20, 30, 100, 120}, pad.size));
    EXPECT_EQ(painted(*fingerprintWidget(other)), printed({}, {}, {200, 150}));

    ASSERT_EQ(placeOn(&other, kInside), ARI_SUCCESS);
    sendAndWait(pad, ridges(2), 6);
    expectBecomes([&] { return shown(pad); }, printed({}, {}, pad.size));
}

// Each placement makes a widget of its own; the former one stays as it is, also when the instance ends.
TEST(FingerprintPlacement, ASecondPlacementLeavesTheFormerWidgetToItsWindow)
{
    QWidget first;
    QWidget second;
    for (QWidget *window : {&first, &second}) {
        window->resize(200, 160);
        window->show();
    }
    const QImage firstPrint = printed(layerOf(ridges(1), {kGreyWidth, kGreyHeight}), {20, 30, 100, 120}, {200, 160});
    {
        FingerprintPad pad(kWidgetPad, 300, 200);
        ASSERT_EQ(placeOn(&first, kInside), ARI_SUCCESS);
        sendAndWait(pad, ridges(1), 5);
        expectBecomes([&] { return painted(*fingerprintWidget(first)); }, firstPrint);

        ASSERT_EQ(placeOn(&second, kInside), ARI_SUCCESS);
        sendAndWait(pad, ridges(2), 6);
        expectBecomes([&] { return painted(*fingerprintWidget(second)); },
            printed(layerOf(ridges(2), {kGreyWidth, kGreyHeight}), {20, 30, 100, 120}, {200, 160}));
        EXPECT_EQ(painted(*fingerprintWidget(first)), firstPrint);
        EXPECT_TRUE(fingerprintWidget(first)->isVisible());
    }
    EXPECT_EQ(fingerprintWidget(second), nullptr);
    ASSERT_NE(fingerprintWidget(first), nullptr);
    EXPECT_TRUE(fingerprintWidget(first)->isVisible());
    EXPECT_EQ(painted(*fingerprintWidget(first)), firstPrint);
    delete fingerprintWidget(first); // it no longer knows an instance
}

// The newest place was destroyed with its window: there is none to end, and the former ones are not taken for it.
TEST(FingerprintPlacement, AFormerWidgetStaysWhenTheNewestIsGone)
{
    QWidget first;
    first.resize(200, 160);
    first.show();
    auto second = std::make_unique<QWidget>();
    second->resize(200, 160);
    {
        const FingerprintPad pad(kWidgetPad, 300, 200);
        ASSERT_EQ(placeOn(&first, kInside), ARI_SUCCESS);
        ASSERT_EQ(placeOn(second.get(), kInside), ARI_SUCCESS);
        second.reset();
    }
    ASSERT_NE(fingerprintWidget(first), nullptr);
    EXPECT_TRUE(fingerprintWidget(first)->isVisible());
}

// A widget that another thread made would wait for ever for the thread of its window.
TEST(FingerprintPlacement, InAnotherWindowBelongsToTheThreadOfThatWindow)
{
    const FingerprintPad pad(kWidgetPad, 300, 200);
    QWidget other;
    other.resize(300, 200);
    other.show();
    int result = ARI_SUCCESS;
    const LogTail log;
    {
        const LogOn on;
        std::thread([&] { result = placeOn(&other, kInside); }).join();
    }
    EXPECT_EQ(result, ARI_FAIL);
    EXPECT_EQ(fingerprintWidget(other), nullptr);
    const std::vector<LogEntry> entries = log.entries();
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const LogEntry &entry) {
        return entry.text
            == "leave with ARI_FAIL due to (qApp == nullptr) || (pParentWidget->thread() != QThread::currentThread()) !";
    }));
    EXPECT_EQ(placeOn(&other, kInside), ARI_SUCCESS) << "on the window's own";
}

// What the header says of a rectangle that is refused after another was accepted.
TEST(FingerprintPlacement, ARefusedOneInAnotherWindowTakesOverEmptyAndUnseen)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    QWidget first;
    QWidget second;
    for (QWidget *window : {&first, &second}) {
        window->resize(300, 200);
        window->show();
    }
    ASSERT_EQ(placeOn(&first, kInside), ARI_SUCCESS);
    EXPECT_EQ(placeOn(&second, kOutside), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(fingerprintImage(pad), printed({}, {}, {300, 200}));
    sendAndWait(pad, ridges(1), 5);
    const QImage layer = layerOf(ridges(1), {kGreyWidth, kGreyHeight});
    expectBecomes([&] { return fingerprintImage(pad); }, printed(layer, {250, 150, 100, 120}, {300, 200}));
    EXPECT_FALSE(fingerprintWidget(second)->isVisible());
    EXPECT_EQ(painted(*fingerprintWidget(first)), printed({}, {}, {300, 200}));
}

TEST(FingerprintPlacement, ARefusedHeadlessOneTakesOverWithACanvasOf640By480)
{
    FingerprintPad pad(kHeadlessPad, 50, 40);
    ASSERT_EQ(placeOnCanvas(300, 200, kInside), ARI_SUCCESS);
    EXPECT_EQ(placeOnCanvas(300, 200, kOutside), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(fingerprintImage(pad), printed({}, {}, {640, 480}));
    sendAndWait(pad, ridges(1), 5);
    const QImage layer = layerOf(ridges(1), pad.size);
    EXPECT_EQ(fingerprintImage(pad), printed(layer, {250, 150, 100, 120}, {640, 480}));
}

/// The keys of the lines that closing a pad writes after so many placements, each in place of the former.
std::vector<std::string> closedAfter(int placements)
{
    const int widgets = QApplication::allWidgets().size();
    const FingerprintPad pad(kHeadlessPad, 50, 40);
    for (int i = 0; i < placements; ++i)
        EXPECT_EQ(placeOnCanvas(300, 200, kInside), ARI_SUCCESS);
    EXPECT_EQ(QApplication::allWidgets().size(), widgets + placements);
    std::vector<std::string> keys;
    {
        const LogTail tail;
        const LogOn on;
        KVS310X_UnInitialDevice(kDevice);
        for (const std::string &line : tail.lines())
            keys.push_back(parsedLogLine(line).key);
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    return keys;
}

// Nobody else could free them.
TEST(FingerprintPlacement, ReplacedHeadlessOnesAreFreedWithoutALogLine)
{
    const std::vector<std::string> ofOne = closedAfter(1);
    EXPECT_GT(ofOne.size(), 5u);
    EXPECT_EQ(closedAfter(3), ofOne);
}

TEST(FingerprintPlacement, ShutdownHidesTheWidgetAtOnceAndFreesItLater)
{
    QWidget other;
    other.resize(200, 160);
    other.show();
    const FingerprintPad pad(kWidgetPad, 300, 200);
    ASSERT_EQ(placeOn(&other, kInside), ARI_SUCCESS);
    QWidget *widget = fingerprintWidget(other);
    ASSERT_NE(widget, nullptr);
    KVS310X_UnInitialDevice(kDevice);
    ASSERT_EQ(fingerprintWidget(other), widget);
    EXPECT_FALSE(widget->isVisible());
    settle();
    EXPECT_EQ(fingerprintWidget(other), nullptr);
}

TEST(FingerprintPlacement, TheParentMayGoFirst)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    auto other = std::make_unique<QWidget>();
    other->resize(200, 160);
    other->show();
    ASSERT_EQ(placeOn(other.get(), kInside), ARI_SUCCESS);
    sendAndWait(pad, ridges(1), 5);
    other.reset();
    pad.driver.send(stroke(kDevice, {{0.1, 0.1, 0.4}, {0.5, 0.6, 0.5}}));
    sendAndWait(pad, ridges(2), 6);
    EXPECT_TRUE(fingerprintText(pad, EBITI_PNG, false).isNull()) << "no place, no image";
    EXPECT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    sendAndWait(pad, ridges(3), 1);
    settle();
}

TEST(FingerprintPlacement, AFormerParentMayGoFirstToo)
{
    FingerprintPad pad(kWidgetPad, 300, 200);
    auto former = std::make_unique<QWidget>();
    former->resize(200, 160);
    QWidget other;
    other.resize(200, 160);
    other.show();
    ASSERT_EQ(placeOn(former.get(), kInside), ARI_SUCCESS);
    ASSERT_EQ(placeOn(&other, kInside), ARI_SUCCESS);
    former.reset();
    sendAndWait(pad, ridges(1), 5);
    expectBecomes([&] { return painted(*fingerprintWidget(other)); },
        printed(layerOf(ridges(1), {kGreyWidth, kGreyHeight}), {20, 30, 100, 120}, {200, 160}));
}

// A window that takes the instance and its fingerprint along, in either order.
TEST(FingerprintPlacement, BothMayGoTogether)
{
    for (const bool fingerprintBelow : {false, true}) {
        FingerprintPad pad(kWidgetPad, 300, 200);
        QWidget *parent = fingerprintBelow ? pad.widget() : new QWidget(pad.window());
        parent->resize(300, 200);
        ASSERT_EQ(placeOn(parent, kInside), ARI_SUCCESS);
        sendAndWait(pad, ridges(1), 5);
        delete pad.widget();
        EXPECT_FALSE(pad.driver.isOpen());
        EXPECT_EQ(placeOn(parent, kInside), ARI_FAIL);
        settle();
    }
}
