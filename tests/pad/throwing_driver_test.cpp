// A driver that throws: no exception leaves the library, each call still logs, and the pad can be opened again.
#include "unrulydriver.h"

namespace {

class ThrowingDriver : public UnrulyPad
{
protected:
    /// What is called while a pad is opened, and so may keep it closed.
    std::vector<const char *> opening() const
    {
        std::vector<const char *> operations{"Initial", "GetDevicePartsVersion", "ClearDeviceContent"};
        if (family.hasScreen)
            operations.push_back("OpenDeviceLCD");
        return operations;
    }
    /// What is called while it is closed.
    std::vector<const char *> closing() const
    {
        return {family.hasScreen ? "OpenDeviceLCD" : "ClearDeviceContent", "UnInitial"};
    }
};

class ThrowingDriverOfAWidget : public ThrowingDriver
{
};

const std::string kClosed = "<%ld>-leave with ARI_SUCCESS...";

} // namespace

TEST_P(ThrowingDriver, KeepsAPadClosedWhileItIsOpened)
{
    for (const char *operation : opening()) {
        SCOPED_TRACE(operation);
        const UnrulyDriver driver("KV_UNRULY_THROWS", operation);
        const LogTail log;
        LogOn::set(true);
        bool opened = true;
        EXPECT_NO_THROW(opened = open());
        LogOn::set(false);
        EXPECT_FALSE(opened);
        EXPECT_EQ(linesOf(log, "UnInitialDevice()").back(), kClosed);
        EXPECT_EQ(linesOf(log, "InitialDevice()").back(), "<%ld>-leave with bRet=0 !");
        driver.obey();
        expectClosedAndUsable();
    }
}

TEST_P(ThrowingDriver, DoesNotKeepAPadOpen)
{
    for (const char *operation : closing()) {
        SCOPED_TRACE(operation);
        const InDirectory in("unruly");
        ASSERT_TRUE(open());
        setenv("KV_UNRULY_THROWS", operation, 1);
        const LogTail log;
        LogOn::set(true);
        int result = ARI_FAIL;
        EXPECT_NO_THROW(result = close());
        LogOn::set(false);
        unsetenv("KV_UNRULY_THROWS");
        EXPECT_EQ(result, ARI_SUCCESS);
        EXPECT_EQ(linesOf(log, "UnInitialDevice()").back(), kClosed);
        const std::string className = GetParam().className();
        EXPECT_EQ(messagesOf(log, className + "::ShutdownKVSignPadDriver()").back(), "<%ld>-leave !");
        EXPECT_EQ(messagesOf(log, className + "::Shutdown()").back(), "<%ld>-leave !");
        expectClosedAndUsable();
    }
}

TEST_P(ThrowingDriverOfAWidget, HarmsNoWindowThatIsDestroyedWithAnOpenPad)
{
    for (const char *operation : closing()) {
        SCOPED_TRACE(operation);
        const InDirectory in("unruly");
        ASSERT_TRUE(open());
        setenv("KV_UNRULY_THROWS", operation, 1);
        destroyWindow();
        unsetenv("KV_UNRULY_THROWS");
        expectClosedAndUsable();
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, ThrowingDriver, testing::ValuesIn(allPads()), padCaseName);
INSTANTIATE_TEST_SUITE_P(WidgetPads, ThrowingDriverOfAWidget, testing::ValuesIn(padsOf(false)), padCaseName);
