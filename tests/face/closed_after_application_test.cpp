// A program that destroys its QApplication before it closes the pad: nothing crashes, and the driver is unloaded.
#include "fingerprints.h"
#include "logmessages.h"

namespace {

class AfterTheApplication : public testing::TestWithParam<PadCase>
{
protected:
    AfterTheApplication()
        : m_application(std::make_unique<QApplication>(m_argumentCount, m_arguments))
        , window(makeWindow())
    {
    }

    bool open() { return family.InitialDevice(family.type, GetParam().headless ? nullptr : window, 5, 5, 90, 60); }
    void endApplication() { m_application.reset(); }

    /// Never deleted: Qt itself cannot delete a shown window without its application.
    static QWidget *makeWindow()
    {
        auto *made = new QWidget;
        made->resize(200, 160);
        made->show();
        return made;
    }

private:
    static inline int m_argumentCount = 1;
    static inline char m_name[] = "closed_after_application";
    static inline char *m_arguments[] = {m_name, nullptr};
    std::unique_ptr<QApplication> m_application;

protected:
    const Family &family = *GetParam().family;
    SimulatedDriver driver;
    QWidget *window;
};

class FingerprintAfterTheApplication : public AfterTheApplication
{
};

const std::string kNoParent =
    "<%ld>-leave with false due to (qApp == nullptr) || (pParentWidget->thread() != QThread::currentThread()) !";

} // namespace

TEST_P(AfterTheApplication, ThePadIsClosed)
{
    ASSERT_TRUE(open());
    driver.send(stroke(family.type, {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    endApplication();
    EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), 3);
    const LogTail log;
    LogOn::set(true);
    EXPECT_EQ(family.UnInitialDevice(family.type), ARI_SUCCESS);
    LogOn::set(false);
    EXPECT_EQ(
        messagesOf(log, std::string(family.prefix) + "UnInitialDevice()").back(), "<%ld>-leave with ARI_SUCCESS...");
    EXPECT_FALSE(driver.isOpen());
    EXPECT_EQ(family.Clear(family.type), ARI_FAIL);
}

TEST_P(AfterTheApplication, OnlyAHeadlessPadIsOpened)
{
    endApplication();
    const LogTail log;
    LogOn::set(true);
    EXPECT_EQ(open(), GetParam().headless);
    LogOn::set(false);
    EXPECT_EQ(messagesOf(log, std::string(family.prefix) + "InitialDevice()").back(),
        GetParam().headless ? "<%ld>-leave with bRet=1 !" : kNoParent);
    EXPECT_EQ(driver.isOpen(), GetParam().headless);
    EXPECT_EQ(family.UnInitialDevice(family.type), ARI_SUCCESS);
}

TEST_P(FingerprintAfterTheApplication, ItsPlacesAreEnded)
{
    ASSERT_TRUE(open());
    for (int i = 0; i < 2; ++i)
        ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(family.type, makeWindow(), 200, 160, 10, 10, 100, 100), ARI_SUCCESS);
    driver.sendFingerprint(ridges(1), 10);
    settle();
    endApplication();
    EXPECT_EQ(family.UnInitialDevice(family.type), ARI_SUCCESS);
    EXPECT_FALSE(driver.isOpen());
}

INSTANTIATE_TEST_SUITE_P(AllPads, AfterTheApplication, testing::ValuesIn(allPads()), padCaseName);
INSTANTIATE_TEST_SUITE_P(Hosts, FingerprintAfterTheApplication, testing::ValuesIn(fingerprintPads()), padCaseName);
