// The real display thread: its class, its life, a slow screen, and a shutdown while a picture is being sent.
#include "handrunpad.h"
#include "logfile.h"

#include <future>
#include <pthread.h>
#include <sys/resource.h>

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

namespace {

constexpr int kLongTransferMs = 60'000; // longer than anything that a test does meanwhile

template <class Pad>
class DisplayThread : public testing::Test
{
};
TYPED_TEST_SUITE(DisplayThread, FingerprintClasses, FingerprintClassName);

template <class Pad>
std::unique_ptr<Pad> made()
{
    if constexpr (Pad::row.host == Host::Headless)
        return std::make_unique<Pad>(70, 40);
    else
        return std::make_unique<Pad>(nullptr);
}

template <class Pad>
std::string threadClass()
{
    return Pad::row.host == Host::Headless ? "CS310XObj_ShowFPImageOnDeviceThread::"
                                           : "CS310XWidget_ShowFPImageOnDeviceThread::";
}

template <class Pad>
std::string backPointer(const char *before, const void *instance)
{
    char text[80];
    std::snprintf(text, sizeof text, "%s%s=%lx", before,
        Pad::row.host == Host::Headless ? "m_pSignObj" : "m_pSignWidget", reinterpret_cast<unsigned long>(instance));
    return text;
}

class SlowScreen : public testing::TestWithParam<PadCase>
{
};
INSTANTIATE_TEST_SUITE_P(Hosts, SlowScreen, testing::ValuesIn(fingerprintPads()), padCaseName);

} // namespace

static_assert(std::is_base_of_v<QThread, CS310XWidget_ShowFPImageOnDeviceThread>);
static_assert(std::is_base_of_v<QThread, CS310XObj_ShowFPImageOnDeviceThread>);
static_assert(std::is_same_v<decltype(CS310XWidget_ShowFPImageOnDeviceThread::m_pSignWidget), void *>);
static_assert(std::is_same_v<decltype(CS310XObj_ShowFPImageOnDeviceThread::m_pSignObj), void *>);
static_assert(sizeof(CS310XWidget_ShowFPImageOnDeviceThread) == sizeof(QThread) + sizeof(void *));
static_assert(sizeof(CS310XObj_ShowFPImageOnDeviceThread) == sizeof(QThread) + sizeof(void *));
static_assert(std::is_constructible_v<CS310XWidget_ShowFPImageOnDeviceThread, void *>);
static_assert(std::is_constructible_v<CS310XObj_ShowFPImageOnDeviceThread, void *>);

TYPED_TEST(DisplayThread, RunsFromConstructionToShutdown)
{
    const auto pad = made<TypeParam>();
    auto *thread = pad->m_pShowFPImageOnDeviceThread;
    ASSERT_NE(thread, nullptr);
    EXPECT_TRUE(thread->isRunning());
    EXPECT_EQ(thread->parent(), nullptr);
    if constexpr (TypeParam::row.host == Host::Headless)
        EXPECT_EQ(thread->m_pSignObj, pad.get());
    else
        EXPECT_EQ(thread->m_pSignWidget, pad.get());
    bool destroyed = false;
    QObject::connect(thread, &QObject::destroyed, [&destroyed] { destroyed = true; });
    EXPECT_FALSE(pad->m_bGoToShutDown);
    EXPECT_FALSE(pad->m_bNewFPImageRawDataOnDeviceAvailable);
    EXPECT_FALSE(pad->m_bAlreadyShownFPImageRawDataOnDevice);
    pad->Shutdown();
    EXPECT_TRUE(destroyed);
    EXPECT_TRUE(pad->m_bGoToShutDown);
    EXPECT_EQ(pad->m_pShowFPImageOnDeviceThread, nullptr);
    pad->Shutdown(); // once more does nothing
}

// Qt's own event dispatcher would need descriptors, and end the process without them. UndefinedBehaviorSanitizer needs
// two itself, to find out whether an object can be read.
#ifndef KV_UNDEFINED_SANITIZED
TYPED_TEST(DisplayThread, NeedsNoFileDescriptors)
{
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const auto pad = made<TypeParam>();
    std::promise<void> shown;
    static std::promise<void> *waiting;
    waiting = &shown;
    pad->m_pfn_KVSPDAPI_ShowFPImageOnDevice = [](unsigned char *, int, int, int, bool *) {
        waiting->set_value();
        return 0;
    };
    pad->m_bDeviceConnected = true;
    Grey image = ridges(1);
    pad->RxS310XSignPadFPRawData(image.data(), kGreyWidth * kGreyHeight, 1);
    EXPECT_EQ(shown.get_future().wait_for(kPatience), std::future_status::ready);
    pad->Shutdown();
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
}
#endif

TYPED_TEST(DisplayThread, WithoutOneThereIsNoInstanceAndTheLogSaysWhy)
{
    QWidget window;
    SimulatedDriver driver;
    const auto open = [&window] {
        return KVS310X_InitialDevice(
            KVS310X_DEVICE, TypeParam::row.host == Host::Headless ? nullptr : &window, 0, 0, 70, 40);
    };
    pthread_attr_t before;
    pthread_attr_t immense;
    ASSERT_EQ(pthread_getattr_default_np(&before), 0);
    ASSERT_EQ(pthread_getattr_default_np(&immense), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&immense, size_t{1} << 60), 0); // a stack that the system does not have
    ASSERT_EQ(pthread_setattr_default_np(&immense), 0);
    const LogTail log;
    LogOn::set(true);
    const bool opened = open();
    LogOn::set(false);
    ASSERT_EQ(pthread_setattr_default_np(&before), 0);
    EXPECT_FALSE(opened);
    std::vector<std::string> reasons;
    for (const LogEntry &entry : log.entries())
        if (entry.text.find("m_pShowFPImageOnDeviceThread") != std::string::npos)
            reasons.push_back(entry.text);
    EXPECT_EQ(reasons, std::vector<std::string>{"leave due to (m_pShowFPImageOnDeviceThread->isRunning() == false) !"});
    EXPECT_EQ(log.entries().back().text, "leave with bRet=0 !");
    EXPECT_EQ(window.findChildren<QWidget *>().size(), 0);
    EXPECT_TRUE(open()) << "the call may be repeated";
    EXPECT_EQ(KVS310X_UnInitialDevice(KVS310X_DEVICE), ARI_SUCCESS);
    settle();
}

TYPED_TEST(DisplayThread, LogsItsMakingAndItsRunInTheThreadsLog)
{
    const LogTail log(kInThreadLogFile);
    std::string entered;
    {
        const LogOn on;
        const auto pad = made<TypeParam>();
        entered = backPointer<TypeParam>("enter, ", pad.get());
        pad->Shutdown();
    }
    const std::string scope = threadClass<TypeParam>();
    std::string constructor = scope;
    constructor.replace(constructor.size() - 2, 2, "::" + constructor.substr(0, constructor.size() - 2) + "()");
    EXPECT_EQ(log.entries(),
        (std::vector<LogEntry>{{constructor, entered}, {scope + "run()", "enter"}, {scope + "run()", "Leave !"}}));
}

TYPED_TEST(DisplayThread, TheConstructorLogsItAndShutdownEndsItStepByStep)
{
    const LogTail log;
    std::string started;
    {
        const LogOn on;
        const auto pad = made<TypeParam>();
        char text[100];
        std::snprintf(text, sizeof text, "width=%d, height=%d, m_pShowFPImageOnDeviceThread=%lx", pad->m_canvas.width(),
            pad->m_canvas.height(), reinterpret_cast<unsigned long>(pad->m_pShowFPImageOnDeviceThread));
        started = text;
        pad->Shutdown();
    }
    std::vector<std::string> texts;
    for (const LogEntry &entry : log.entries())
        if (entry.key.find(TypeParam::row.scope) == 0)
            texts.push_back(entry.text);
    const std::vector<std::string> expected{started, "leave !", "Enter...",
        "b4 call m_pShowFPImageOnDeviceThread->quit()...", "b4 call m_pShowFPImageOnDeviceThread->wait()...",
        "after call m_pShowFPImageOnDeviceThread = nullptr...", "Enter...", "leave !", "leave !"};
    ASSERT_GE(texts.size(), expected.size());
    texts.erase(texts.begin(), texts.end() - static_cast<std::ptrdiff_t>(expected.size()));
    EXPECT_EQ(texts, expected);
}

TEST_P(SlowScreen, ShowsThePictureAndThenMerges)
{
    FingerprintPad pad(GetParam());
    pad.driver.sendFingerprint(ridges(1), 40);
    EXPECT_TRUE(becomes([&] { return pad.shownPictures() == 1; }));
    EXPECT_EQ(pad.lastPicture(), padPictureOf(ridges(1)));
    expectBecomes([&] { return shown(pad); },
        printed(layerOf(ridges(1), GetParam().headless ? pad.size : QSize(kGreyWidth, kGreyHeight)), middleOf(pad.size),
            pad.size));
}

TEST_P(SlowScreen, OnlyStrictlyBetterImagesReachTheScreen)
{
    FingerprintPad pad(GetParam());
    int image = 0;
    for (const int score : {40, 40, 55, 30}) {
        pad.driver.sendFingerprint(ridges(++image), score);
        const int expected = score == 55 || image == 4 ? 2 : 1;
        EXPECT_TRUE(becomes([&] { return pad.shownPictures() == expected; })) << image;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(pad.shownPictures(), 2);
    EXPECT_EQ(pad.lastPicture(), padPictureOf(ridges(3)));
}

// The driver's thread never waits for the transfer; what came in meanwhile is shown as one picture, the best.
TEST_P(SlowScreen, DoesNotHoldUpTheIntake)
{
    FingerprintPad pad(GetParam(), 400, 300, kLongTransferMs);
    pad.driver.sendFingerprint(ridges(1), 1);
    EXPECT_TRUE(becomes([&] { return pad.driver.calls().find("ShowFPImageOnDevice") != std::string::npos; }));
    for (int score = 2; score <= 4; ++score)
        pad.driver.sendFingerprint(ridges(score), score);
    EXPECT_EQ(pad.shownPictures(), 0);
    pad.setScreenDelay(0);
    EXPECT_TRUE(becomes([&] { return pad.shownPictures() == 2; }));
    EXPECT_EQ(pad.lastPicture(), padPictureOf(ridges(4)));
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(pad.shownPictures(), 2);
}

// A transfer that had been waited for would have shown its picture.
TEST_P(SlowScreen, ShutdownEndsATransfer)
{
    FingerprintPad pad(GetParam(), 400, 300, kLongTransferMs);
    pad.driver.sendFingerprint(ridges(1), 1);
    EXPECT_TRUE(
        becomes([&] { return pad.driver.calls().find("ShowFPImageOnDevice 29952 104 144\n") != std::string::npos; }));
    EXPECT_EQ(KVS310X_UnInitialDevice(KVS310X_DEVICE), ARI_SUCCESS);
    EXPECT_EQ(pad.shownPictures(), 0);
    EXPECT_FALSE(pad.driver.isOpen());
}

TEST(SlowScreenOfAWidget, ADestroyedWindowEndsATransfer)
{
    SimulatedDriver driver;
    auto window = std::make_unique<QWidget>();
    window->show();
    EXPECT_TRUE(KVS310X_InitialDevice(KVS310X_DEVICE, window.get(), 0, 0, 300, 200));
    reinterpret_cast<decltype(&KVSIM_SetScreenDelay)>(driver.control("KVSIM_SetScreenDelay"))(kLongTransferMs);
    driver.sendFingerprint(ridges(1), 1);
    EXPECT_TRUE(becomes([&] { return driver.calls().find("ShowFPImageOnDevice") != std::string::npos; }));
    window.reset();
    EXPECT_EQ(reinterpret_cast<decltype(&KVSIM_ShownPictures)>(driver.control("KVSIM_ShownPictures"))(), 0);
    EXPECT_FALSE(driver.isOpen());
    EXPECT_EQ(KVS310X_UnInitialDevice(KVS310X_DEVICE), ARI_SUCCESS);
}
