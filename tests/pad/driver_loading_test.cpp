// Finding the driver, resolving its operations and starting it; and the state after a failure.
#include "drivers.h"
#include "logmessages.h"
#include "openpad.h"

#include <QTemporaryDir>

#include <set>

namespace {

class DriverLoading : public testing::TestWithParam<PadCase>
{
protected:
    const Family &family() const { return *GetParam().family; }
    int type() const { return family().type; }
    bool open()
    {
        const bool opened = family().InitialDevice(type(), GetParam().headless ? nullptr : &m_window, 10, 10, 400, 200);
        settle();
        return opened;
    }
    void close()
    {
        EXPECT_EQ(family().UnInitialDevice(type()), ARI_SUCCESS);
        settle();
    }
    std::string initialCall() const
    {
        return "Initial " + std::to_string(type()) + (type() == KVS310X_DEVICE ? " fp=1\n" : " fp=0\n");
    }
    /// What the pad is left with when the driver is closed.
    std::string idleCall() const { return family().hasScreen ? "OpenDeviceLCD 0\n" : "ClearDeviceContent\n"; }

    /// The member's log lines while a pad was opened in vain.
    Lines linesOf(const LogTail &log, const char *member) const
    {
        return messagesOf(log, std::string(GetParam().className()) + "::" + member);
    }
    void expectClosed()
    {
        EXPECT_EQ(family().GetTotalInkPointsNumber(type()), ARI_INK_EMPTY);
        EXPECT_EQ(family().SetPenWidth(type(), 3), ARI_FAIL);
        EXPECT_EQ(family().UnInitialDevice(type()), ARI_SUCCESS);
        EXPECT_TRUE(m_window.findChildren<QWidget *>().isEmpty());
    }
    void expectRefusedWithoutDriver(const QString &directory);

    QWidget m_window;
};

void DriverLoading::expectRefusedWithoutDriver(const QString &directory)
{
    {
        const InDirectory in(directory.toStdString());
        const LogTail log;
        const LogOn on;
        EXPECT_FALSE(open());
        EXPECT_EQ(linesOf(log, "LoadKVSignPadDriver()"),
            (Lines{"<%ld>-Enter...", "<%ld>-'libkvsignpaddrv.so' Library is not loaded !"}));
        EXPECT_EQ(
            linesOf(log, "IsDeviceConnected()"), (Lines{"<%ld>-enter...", "<%ld>-leave with m_bDeviceConnected=0"}));
        EXPECT_EQ(linesOf(log, "ShutdownKVSignPadDriver()"), (Lines{"<%ld>-Enter...", "<%ld>-leave !"}));
    }
    expectClosed();
    EXPECT_TRUE(open()) << "with the driver at hand the caller may simply try again";
    close();
}

TEST_P(DriverLoading, WithoutTheDriverFileIsRefused)
{
    const QTemporaryDir empty;
    expectRefusedWithoutDriver(empty.path());
}

TEST_P(DriverLoading, WithAFileThatIsNoLibraryIsRefused)
{
    expectRefusedWithoutDriver("broken");
}

TEST_P(DriverLoading, StartsTheDriverAsksForTheVersionAndPreparesThePad)
{
    const HeldDriver driver;
    const LogTail log;
    const LogOn on;
    ASSERT_TRUE(open());
    EXPECT_TRUE(driver.isOpen());
    EXPECT_EQ(driver.takeCalls(),
        initialCall() + "GetDevicePartsVersion 32\nClearDeviceContent\n"
            + (family().hasScreen ? "OpenDeviceLCD 1\n" : ""));
    EXPECT_EQ(linesOf(log, "LoadKVSignPadDriver()"),
        (Lines{"<%ld>-Enter...", "<%ld>-after call m_pfn_KVSPDAPI_Initial(), nResult=0", "<%ld>-leave with bRet=1"}));
    close();
    EXPECT_EQ(driver.takeCalls(), idleCall() + "UnInitial\n");
    EXPECT_FALSE(driver.isOpen());
}

TEST_P(DriverLoading, LeavesNoDriverInMemory)
{
    for (int round = 0; round < 5; ++round) {
        ASSERT_TRUE(open());
        void *driver = dlopen("./libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD);
        EXPECT_NE(driver, nullptr);
        if (driver != nullptr)
            dlclose(driver);
        close();
        EXPECT_EQ(dlopen("./libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD), nullptr);
    }
}

TEST_P(DriverLoading, WithADriverThatCannotStartIsRefused)
{
    const HeldDriver driver;
    for (const int code : {-1, -2, -3, -4, -5, -6, -7, 1, INT_MAX, INT_MIN}) {
        driver.setResult("Initial", code);
        const LogTail log;
        {
            const LogOn on;
            EXPECT_FALSE(open()) << code;
        }
        EXPECT_EQ(driver.takeCalls(), initialCall() + idleCall() + "UnInitial\n") << code;
        EXPECT_EQ(linesOf(log, "LoadKVSignPadDriver()"),
            (Lines{"<%ld>-Enter...", "<%ld>-after call m_pfn_KVSPDAPI_Initial(), nResult=" + std::to_string(code),
                "<%ld>-leave with bRet=0"}));
        EXPECT_EQ(
            linesOf(log, "IsDeviceConnected()"), (Lines{"<%ld>-enter...", "<%ld>-leave with m_bDeviceConnected=0"}));
        expectClosed();
    }
}

const char *const kOperations[] = {"Initial", "UnInitial", "OpenDeviceLCD", "ClearDeviceContent", "GetDevicePenID",
    "GetDevicePadID", "GetDeviceSecureID", "GetDevicePartsVersion", "ShowVersionInfoOnDevice", "SetDevicePenStyle",
    "ShowFPImageOnDevice"};

std::set<std::string> neededBy(int deviceType)
{
    std::set<std::string> needed = {
        "Initial", "UnInitial", "ClearDeviceContent", "GetDevicePadID", "GetDevicePartsVersion", "SetDevicePenStyle"};
    if (deviceType != KVR800_DEVICE && deviceType != KVM450_DEVICE)
        needed.insert({"GetDevicePenID", "GetDeviceSecureID", "ShowVersionInfoOnDevice"});
    if (deviceType == KVS310X_DEVICE)
        needed.insert("ShowFPImageOnDevice");
    return needed;
}

std::string without(std::string calls, const std::string &operation)
{
    const size_t at = calls.find(operation);
    return at == std::string::npos ? calls : calls.erase(at, calls.find('\n', at) + 1 - at);
}

TEST_P(DriverLoading, NeedsTheOperationsOfItsModelAndNoOthers)
{
    const std::set<std::string> needed = neededBy(type());
    for (const char *operation : kOperations) {
        SCOPED_TRACE(operation);
        const InDirectory in(std::string("without/") + operation);
        const HeldDriver driver;
        const LogTail log;
        const LogOn on;
        if (needed.count(operation) == 0) {
            ASSERT_TRUE(open());
            close();
            continue;
        }
        EXPECT_FALSE(open());
        EXPECT_EQ(linesOf(log, "LoadKVSignPadDriver()"),
            (Lines{"<%ld>-Enter...", "<%ld>-'libkvsignpaddrv.so' Library APIs failed to load !"}));
        // The driver was never started, but what there is of the way out is called.
        const std::string wayOut = idleCall() + "UnInitial\n";
        EXPECT_EQ(driver.takeCalls(), operation == std::string("Initial") ? wayOut : without(wayOut, operation));
        expectClosed();
    }
}

TEST_P(DriverLoading, DoesWithoutTheScreenSwitch)
{
    const InDirectory in("without/OpenDeviceLCD");
    const HeldDriver driver;
    ASSERT_TRUE(open());
    EXPECT_EQ(driver.takeCalls(), initialCall() + "GetDevicePartsVersion 32\nClearDeviceContent\n");
    if (family().OpenLCD != nullptr) {
        EXPECT_EQ(family().OpenLCD(type(), true), ARI_FAIL);
        EXPECT_EQ(family().OpenLCD(type(), false), ARI_FAIL);
    }
    EXPECT_EQ(driver.takeCalls(), "");
    close();
    EXPECT_EQ(driver.takeCalls(), family().hasScreen ? "UnInitial\n" : "ClearDeviceContent\nUnInitial\n");
}

INSTANTIATE_TEST_SUITE_P(AllPads, DriverLoading, testing::ValuesIn(allPads()), padCaseName);

} // namespace
