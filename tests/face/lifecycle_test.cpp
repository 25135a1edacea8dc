// Opening, refusing and closing the one device instance.
#include "logfile.h"
#include "openpad.h"

#include <QPointer>

namespace {

class Lifecycle : public testing::TestWithParam<PadCase>
{
protected:
    const Family &family = *GetParam().family;
    SimulatedDriver driver;
    QWidget window;

    QWidget *parent() { return GetParam().headless ? nullptr : &window; }
    bool open() { return family.InitialDevice(family.type, parent(), 10, 20, 400, 200); }
    int close() { return family.UnInitialDevice(family.type); }
    bool isClosed() { return family.GetTotalInkPointsNumber(family.type) == -8 && family.Clear(family.type) == -1; }
    std::string className() { return GetParam().className(); }
    ~Lifecycle() override { close(); }
};

std::string shapeOf(const QImage &image)
{
    return std::to_string(image.width()) + "x" + std::to_string(image.height());
}

TEST_P(Lifecycle, OpensOnceAndClosesAnyNumberOfTimes)
{
    EXPECT_EQ(close(), 0) << "without an instance";
    EXPECT_TRUE(open());
    EXPECT_TRUE(driver.isOpen());
    driver.forgetCalls();
    EXPECT_TRUE(open());
    EXPECT_EQ(driver.calls(), "") << "a second opening does nothing";
    EXPECT_EQ(close(), 0);
    EXPECT_FALSE(driver.isOpen());
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(close(), 0);
    EXPECT_TRUE(open());
    EXPECT_EQ(family.Clear(family.type), 0) << "open again";
}

TEST_P(Lifecycle, LogsItsArgumentsAndResults)
{
    const LogTail log;
    {
        const LogOn on;
        ASSERT_TRUE(open());
        ASSERT_TRUE(open());
        ASSERT_EQ(close(), 0);
    }
    char enter[200];
    std::snprintf(enter, sizeof enter,
        "Enter, nDeviceType=%d, pParentWidget=%lx, nX=10, nY=20, nWidth=400, nHeight=200", family.type,
        reinterpret_cast<unsigned long>(parent()));
    const std::string openKey = std::string(family.prefix) + "InitialDevice()";
    const std::string closeKey = std::string(family.prefix) + "UnInitialDevice()";
    std::vector<LogEntry> frames;
    for (const LogEntry &entry : log.entries()) {
        if (entry.key == openKey || entry.key == closeKey)
            frames.push_back(entry);
    }
    const std::vector<LogEntry> expected = {{openKey, enter}, {openKey, "leave with bRet=1 !"}, {openKey, enter},
        {openKey, "leave with true due to g_pSignWidget already created !"},
        {closeKey, "Enter, nDeviceType=" + std::to_string(family.type)}, {closeKey, "leave with ARI_SUCCESS..."}};
    EXPECT_EQ(frames, expected);
}

TEST_P(Lifecycle, ASecondOpeningKeepsHostAndSize)
{
    const OpenPad pad(GetParam());
    // The other host is only named from a headless instance: naming none would mark an open widget as headless.
    EXPECT_TRUE(family.InitialDevice(family.type, &window, 1, 2, 30, 40));
    EXPECT_EQ(window.findChildren<QWidget *>().size(), 0);
    if (GetParam().headless) {
        EXPECT_TRUE(family.InitialDevice(family.type, nullptr, 1, 2, 30, 40));
    }
    driver.send(stroke(family.type, {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    EXPECT_EQ(shapeOf(pad.canvas()), "400x200");
    if (!GetParam().headless) {
        EXPECT_EQ(pad.widget()->geometry(), QRect(10, 10, 400, 200));
    }
}

TEST_P(Lifecycle, ARefusedPadLeavesTheLibraryClosed)
{
    struct Refusal
    {
        const char *what;
        void (*arrange)(SimulatedDriver &);
    };
    const Refusal refusals[] = {
        {"the driver cannot open it", [](SimulatedDriver &d) { d.setResult("Initial", -4); }},
        {"it is another model", [](SimulatedDriver &d) { d.setText("GetDevicePartsVersion", "KVX999 1.0"); }},
        {"it names no model", [](SimulatedDriver &d) { d.setText("GetDevicePartsVersion", nullptr); }},
    };
    for (const Refusal &refusal : refusals) {
        SCOPED_TRACE(refusal.what);
        SimulatedDriver refusing;
        refusal.arrange(refusing);
        const LogTail log;
        LogOn::set(true);
        EXPECT_FALSE(open());
        LogOn::set(false);
        settle();
        EXPECT_TRUE(isClosed());
        EXPECT_FALSE(driver.isOpen());
        EXPECT_EQ(window.findChildren<QWidget *>().size(), 0) << "no widget stays behind";
        const std::string openKey = std::string(family.prefix) + "InitialDevice()";
        const std::string closeKey = std::string(family.prefix) + "UnInitialDevice()";
        const std::vector<LogEntry> entries = log.entries();
        ASSERT_GE(entries.size(), 4u);
        EXPECT_EQ(entries[entries.size() - 2], (LogEntry{closeKey, "leave with ARI_SUCCESS..."}));
        EXPECT_EQ(entries.back(), (LogEntry{openKey, "leave with bRet=0 !"}));
        const LogEntry enter = {closeKey, "Enter, nDeviceType=" + std::to_string(family.type)};
        EXPECT_EQ(std::count(entries.begin(), entries.end(), enter), 1);
    }
    const SimulatedDriver willing;
    EXPECT_TRUE(open()) << "the call may be repeated";
}

TEST_P(Lifecycle, AfterARefusedHeadlessStartAWidgetCanBeOpened)
{
    driver.setResult("Initial", -5);
    EXPECT_FALSE(family.InitialDevice(family.type, nullptr, 0, 0, 400, 200));
    const SimulatedDriver willing;
    ASSERT_TRUE(family.InitialDevice(family.type, &window, 1, 2, 30, 40));
    EXPECT_EQ(window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
}

TEST_P(Lifecycle, AfterAClosedInstanceTheOtherHostCanBeOpened)
{
    ASSERT_TRUE(open());
    ASSERT_EQ(close(), 0);
    settle();
    QWidget *const other = GetParam().headless ? &window : nullptr;
    ASSERT_TRUE(family.InitialDevice(family.type, other, 1, 2, 30, 40));
    EXPECT_EQ(window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), other == nullptr ? 0 : 1);
}

TEST_P(Lifecycle, AnyFamilyCanBeOpenedAfterAnother)
{
    for (const Family &next : kFamilies) {
        ASSERT_TRUE(open());
        ASSERT_EQ(close(), 0);
        ASSERT_TRUE(next.InitialDevice(next.type, nullptr, 0, 0, 400, 200)) << next.prefix;
        EXPECT_EQ(next.UnInitialDevice(next.type), 0);
    }
}

TEST_P(Lifecycle, StaysOpenForEveryCanvasThatCannotBeHad)
{
    const std::pair<int, int> sizes[] = {{0, 0}, {0, 10}, {-5, 10}, {10, -5}, {1 << 30, 1 << 30}};
    for (const auto &[width, height] : sizes) {
        if (!GetParam().headless && width > 10000)
            continue; // no window system has such a widget
        SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
        EXPECT_TRUE(family.InitialDevice(family.type, parent(), 0, 0, width, height));
        EXPECT_EQ(family.Clear(family.type), 0);
        EXPECT_EQ(close(), 0);
        settle();
    }
}

INSTANTIATE_TEST_SUITE_P(Pads, Lifecycle, testing::ValuesIn(allPads()), padCaseName);

class WidgetLifecycle : public testing::TestWithParam<Family>
{
protected:
    const Family &family = GetParam();
    SimulatedDriver driver;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();

    bool open() { return family.InitialDevice(family.type, window.get(), 15, 25, 320, 240); }
    QWidget *widget() { return window->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly); }
    ~WidgetLifecycle() override { family.UnInitialDevice(family.type); }
};

TEST_P(WidgetLifecycle, ShowsAChildOfTheParentAtItsPlace)
{
    window->resize(600, 400);
    window->show();
    ASSERT_TRUE(open());
    ASSERT_NE(widget(), nullptr);
    EXPECT_STREQ(widget()->metaObject()->className(), family.widgetClass);
    EXPECT_STREQ(widget()->metaObject()->superClass()->className(), "QWidget");
    EXPECT_EQ(widget()->geometry(), QRect(15, 25, 320, 240));
    EXPECT_EQ(widget()->parentWidget(), window.get());
    EXPECT_TRUE(widget()->isVisible());
    EXPECT_FALSE(widget()->isWindow()) << "no window flags";
}

TEST_P(WidgetLifecycle, IsShownOnlyWithAConnectedPad)
{
    driver.setResult("Initial", -3);
    window->show();
    struct Watch : QObject
    {
        QByteArray className;
        int shown = 0;
        bool eventFilter(QObject *object, QEvent *event) override
        {
            shown += event->type() == QEvent::Show && object->metaObject()->className() == className;
            return false;
        }
    } watch;
    watch.className = family.widgetClass;
    qApp->installEventFilter(&watch);
    EXPECT_FALSE(open());
    settle();
    EXPECT_EQ(watch.shown, 0);
    EXPECT_EQ(widget(), nullptr);

    const SimulatedDriver willing;
    ASSERT_TRUE(open());
    EXPECT_EQ(watch.shown, 1);
}

TEST_P(WidgetLifecycle, ClosingHidesAndTheEventLoopDeletes)
{
    window->show();
    ASSERT_TRUE(open());
    const QPointer<QWidget> closed = widget();
    ASSERT_EQ(family.UnInitialDevice(family.type), 0);
    ASSERT_FALSE(closed.isNull()) << "deleted later";
    EXPECT_FALSE(closed->isVisible());
    EXPECT_FALSE(driver.isOpen());
    ASSERT_TRUE(open()) << "while the old widget waits to be deleted";
    settle();
    EXPECT_TRUE(closed.isNull());
    EXPECT_NE(widget(), nullptr);
    EXPECT_EQ(family.Clear(family.type), 0) << "the new one is untouched by that";
}

TEST_P(WidgetLifecycle, AWindowDestroyedByItsHostEndsTheWork)
{
    window->show();
    ASSERT_TRUE(open());
    driver.send(stroke(family.type, {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
    ASSERT_EQ(family.GetTotalInkPointsNumber(family.type), 3);
    const LogTail log;
    LogOn::set(true);
    window.reset();
    LogOn::set(false);
    EXPECT_FALSE(driver.isOpen());
    EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), -8);
    EXPECT_EQ(family.Clear(family.type), -1);
    const std::vector<LogEntry> entries = log.entries();
    const LogEntry shutdown = {std::string(family.widgetClass) + "::Shutdown()", "Enter..."};
    EXPECT_EQ(std::count(entries.begin(), entries.end(), shutdown), 1);
    EXPECT_EQ(family.UnInitialDevice(family.type), 0);
    settle();

    window = std::make_unique<QWidget>();
    EXPECT_TRUE(open());
    EXPECT_NE(widget(), nullptr);
}

TEST_P(WidgetLifecycle, AWindowDestroyedAfterClosingHarmsNothing)
{
    ASSERT_TRUE(open());
    ASSERT_EQ(family.UnInitialDevice(family.type), 0);
    QWidget other;
    ASSERT_TRUE(family.InitialDevice(family.type, &other, 0, 0, 50, 50));
    window.reset(); // takes the closed widget along before the event loop could delete it
    settle();
    EXPECT_TRUE(driver.isOpen());
    EXPECT_EQ(family.Clear(family.type), 0);
    EXPECT_EQ(family.UnInitialDevice(family.type), 0);
}

TEST_P(WidgetLifecycle, PacketsMayArriveUntilTheHostDestroysTheWindow)
{
    for (int round = 0; round < 5; ++round) {
        window = std::make_unique<QWidget>();
        window->show();
        ASSERT_TRUE(open());
        driver.send(stroke(family.type, {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
        window.reset(); // a repaint is still posted
        settle();
    }
    EXPECT_FALSE(driver.isOpen());
}

TEST_P(WidgetLifecycle, IsNotOpenedInAWindowOfAnotherThread)
{
    window->show();
    const LogTail log;
    LogOn::set(true);
    bool opened = true;
    std::thread([&] { opened = open(); }).join();
    LogOn::set(false);
    EXPECT_FALSE(opened);
    EXPECT_EQ(widget(), nullptr);
    EXPECT_FALSE(driver.isOpen());
    const std::vector<LogEntry> entries = log.entries();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries.back().text,
        "leave with false due to (qApp == nullptr) || (pParentWidget->thread() != QThread::currentThread()) !");
    ASSERT_TRUE(open()) << "on the window's own";
    std::thread([&] { opened = open(); }).join();
    EXPECT_TRUE(opened) << "a second opening does nothing, on any thread";
    EXPECT_EQ(family.Clear(family.type), 0);
}

INSTANTIATE_TEST_SUITE_P(Families, WidgetLifecycle, testing::ValuesIn(kFamilies),
    [](const testing::TestParamInfo<Family> &row) { return std::string(row.param.widgetClass); });

} // namespace
