// Unloading the driver and freeing the point lists.
#include "cs310xfpwidget.h"
#include "insidepads.h"
#include "logmessages.h"

#include <QLibrary>

#include <functional>

namespace {

class DriverShutdown : public testing::TestWithParam<PadCase>
{
protected:
    int type() const { return GetParam().family->type; }
    std::string key(const char *member) const { return std::string(GetParam().className()) + "::" + member; }
    std::string idleCall() const { return GetParam().family->hasScreen ? "OpenDeviceLCD 0\n" : "ClearDeviceContent\n"; }
};

TEST_P(DriverShutdown, OfAPadThatNeverLoadedADriverOnlyFreesTheLists)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        pad.m_pPointDataList = new std::vector<_POINTDATA>(3);
        pad.m_pDecodedPointDataList = new std::vector<_POINTDATA>(3);
        pad.m_bDeviceConnected = true;
        const LogTail log;
        {
            const LogOn on;
            pad.Shutdown();
        }
        EXPECT_EQ(pad.m_pPointDataList, nullptr);
        EXPECT_EQ(pad.m_pDecodedPointDataList, nullptr);
        EXPECT_EQ(pad.m_plibKVSignPadDriver, nullptr);
        EXPECT_TRUE(pad.m_bDeviceConnected) << "shutting down does not take it back";
        const Lines unload = messagesOf(log, key("ShutdownKVSignPadDriver()"));
        EXPECT_EQ(unload, (Lines{"<%ld>-Enter...", "<%ld>-leave !"}));
        pad.Shutdown();
    });
}

TEST_P(DriverShutdown, WithoutADriverSaysDone)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        EXPECT_TRUE(pad.ShutdownKVSignPadDriver());
        EXPECT_TRUE(pad.ShutdownKVSignPadDriver());
    });
}

TEST_P(DriverShutdown, FollowsOnAConnectionWithEmptyLists)
{
    OpenPad pad(GetParam());
    withOpenInstance(GetParam(), [](auto &instance) {
        EXPECT_TRUE(instance.m_bDeviceConnected);
        EXPECT_NE(instance.m_plibKVSignPadDriver, nullptr);
        ASSERT_NE(instance.m_pPointDataList, nullptr);
        ASSERT_NE(instance.m_pDecodedPointDataList, nullptr);
        EXPECT_NE(instance.m_pPointDataList, instance.m_pDecodedPointDataList);
        EXPECT_TRUE(instance.m_pPointDataList->empty());
        EXPECT_TRUE(instance.m_pDecodedPointDataList->empty());
    });
}

TEST_P(DriverShutdown, QuietsThePadClosesTheDriverAndFreesTheLists)
{
    OpenPad pad(GetParam());
    pad.driver.send(stroke(type(), {{0.2, 0.2, 0.5}, {0.8, 0.8, 0.5}}));
    pad.driver.forgetCalls();
    withOpenInstance(GetParam(), [&](auto &instance) {
        const auto unInitial = instance.m_pfn_KVSPDAPI_UnInitial;
        instance.Shutdown();
        EXPECT_EQ(pad.driver.calls(), idleCall() + "UnInitial\n");
        EXPECT_FALSE(pad.driver.isOpen());
        EXPECT_EQ(instance.m_plibKVSignPadDriver, nullptr);
        EXPECT_EQ(instance.m_pPointDataList, nullptr);
        EXPECT_EQ(instance.m_pDecodedPointDataList, nullptr);
        EXPECT_TRUE(instance.m_bDeviceConnected);
        EXPECT_NE(unInitial, nullptr);
        EXPECT_EQ(instance.m_pfn_KVSPDAPI_UnInitial, unInitial) << "slots keep their values";
        instance.Shutdown();
        EXPECT_EQ(pad.driver.calls(), idleCall() + "UnInitial\n") << "there is nothing left to close";
    });
}

/// Looks, while the driver is being closed, whether what its last packets need is still there.
std::function<void()> whileClosing;

int closeAndLook()
{
    whileClosing();
    return KVSPDARI_SUCCESS;
}

TEST_P(DriverShutdown, KeepsTheListsUntilTheDriverIsClosed)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        pad.m_plibKVSignPadDriver = new QLibrary;
        pad.m_pPointDataList = new std::vector<_POINTDATA>(3);
        pad.m_pDecodedPointDataList = new std::vector<_POINTDATA>(3);
        pad.m_pfn_KVSPDAPI_UnInitial = closeAndLook;
        int looks = 0;
        whileClosing = [&] {
            ++looks;
            EXPECT_NE(pad.m_pPointDataList, nullptr);
            EXPECT_NE(pad.m_pDecodedPointDataList, nullptr);
        };
        pad.Shutdown();
        EXPECT_EQ(looks, 1);
        EXPECT_EQ(pad.m_pPointDataList, nullptr);
        EXPECT_EQ(pad.m_pDecodedPointDataList, nullptr);
    });
}

TEST_P(DriverShutdown, CallsOnlyOperationsThatWereResolved)
{
    OpenPad pad(GetParam());
    pad.driver.forgetCalls();
    withOpenInstance(GetParam(), [&](auto &instance) {
        const auto unInitial = instance.m_pfn_KVSPDAPI_UnInitial;
        if constexpr (kHasScreen<std::decay_t<decltype(instance)>>)
            instance.m_pfn_KVSPDAPI_OpenDeviceLCD = nullptr;
        else
            instance.m_pfn_KVSPDAPI_ClearDeviceContent = nullptr;
        instance.m_pfn_KVSPDAPI_UnInitial = nullptr;
        EXPECT_TRUE(instance.ShutdownKVSignPadDriver());
        EXPECT_EQ(pad.driver.calls(), "");
        EXPECT_EQ(instance.m_plibKVSignPadDriver, nullptr);
        unInitial();
    });
}

TEST_P(DriverShutdown, TellsItsSteps)
{
    OpenPad pad(GetParam());
    const LogTail log;
    {
        const LogOn on;
        GetParam().family->UnInitialDevice(type());
    }
    const Lines inOrder = {key("Shutdown()") + "]:<%ld>-Enter...",
        key("ShutdownKVSignPadDriver()") + "]:<%ld>-Enter...", key("ShutdownKVSignPadDriver()") + "]:<%ld>-leave !",
        key("Shutdown()") + "]:<%ld>-leave !"};
    const std::string threadGone = key("Shutdown()") + "]:<%ld>-after call m_pShowFPImageOnDeviceThread = nullptr...";
    size_t next = 0;
    size_t threadGoneAfter = 0;
    for (const std::string &message : messages(log)) {
        if (message == "[" + threadGone)
            threadGoneAfter = next;
        if (next < inOrder.size() && message == "[" + inOrder[next])
            ++next;
    }
    EXPECT_EQ(next, inOrder.size());
    // The display thread ends before the driver is closed.
    EXPECT_EQ(threadGoneAfter, type() == KVS310X_DEVICE ? 1U : 0U);
}

TEST_P(DriverShutdown, EndsTheDisplayThreadAndTheFingerprintWidget)
{
    OpenPad pad(GetParam());
    withOpenInstance(GetParam(), [&](auto &instance) {
        using Pad = std::decay_t<decltype(instance)>;
        if constexpr (kHasFingerprint<Pad>) {
            QWidget place;
            place.resize(300, 300);
            if constexpr (std::is_base_of_v<QWidget, Pad>)
                EXPECT_EQ(instance.SetDisplayedFPImageAt(&place, 0, 0, 100, 100), ARI_SUCCESS);
            else
                EXPECT_EQ(instance.SetDisplayedFPImageAt(300, 300, 0, 0, 100, 100), ARI_SUCCESS);
            EXPECT_NE(instance.m_pNewFPWidget, nullptr);
            EXPECT_NE(instance.m_pShowFPImageOnDeviceThread, nullptr);
            EXPECT_FALSE(instance.m_bGoToShutDown);
            const LogTail log;
            {
                const LogOn on;
                instance.Shutdown();
            }
            EXPECT_TRUE(instance.m_bGoToShutDown);
            EXPECT_EQ(instance.m_pShowFPImageOnDeviceThread, nullptr);
            EXPECT_EQ(instance.m_pNewFPWidget, nullptr);
            EXPECT_EQ(messagesOf(log, "CS310XFPWidget::Shutdown()"), (Lines{"<%ld>-Enter...", "<%ld>-leave !"}));
            settle();
        } else {
            EXPECT_FALSE(padparts::hasDisplayThread(instance));
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, DriverShutdown, testing::ValuesIn(allPads()), padCaseName);

} // namespace
