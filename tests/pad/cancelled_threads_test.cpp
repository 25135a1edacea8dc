// A thread that is cancelled inside the library just ends: the process goes on, and other threads can use the library.
#include "unrulydriver.h"

#include <pthread.h>

namespace {

const PadCase *opened = nullptr;

/// Never returns: the driver does not answer.
void askForThePadId(int)
{
    char text[32];
    opened->family->GetHWPadID(opened->family->type, text, sizeof text);
}

void *openHeadless(void *)
{
    opened->family->InitialDevice(opened->family->type, nullptr, 0, 0, 90, 60);
    return nullptr;
}

class CancelledThread : public UnrulyPad
{
protected:
    CancelledThread() { opened = &GetParam(); }
};

class CancelledOpening : public CancelledThread
{
};

} // namespace

TEST_P(CancelledThread, OfTheDriverInACallOfAReceiver)
{
    const UnrulyDriver driver("KV_UNRULY_BLOCKS", "GetDevicePadID");
    ASSERT_TRUE(open());
    ASSERT_EQ(family.SignPadEventCallback(type, askForThePadId), ARI_SUCCESS);
    driver.control<void>("UNRULY_Tap");
    driver.control<void>("UNRULY_WaitUntilBlocked");
    EXPECT_TRUE(driver.control<bool>("UNRULY_CancelPen"));
    EXPECT_EQ(family.Clear(type), ARI_SUCCESS);
    EXPECT_EQ(close(), ARI_SUCCESS);
    driver.obey();
    expectClosedAndUsable();
}

TEST_P(CancelledOpening, LeavesWhatCanBeClosed)
{
    const UnrulyDriver driver("KV_UNRULY_BLOCKS", "GetDevicePartsVersion");
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, nullptr, openHeadless, nullptr), 0);
    driver.waitUntilLoaded();
    driver.control<void>("UNRULY_WaitUntilBlocked");
    void *result = nullptr;
    EXPECT_EQ(pthread_cancel(thread), 0);
    EXPECT_EQ(pthread_join(thread, &result), 0);
    EXPECT_EQ(result, PTHREAD_CANCELED);
    EXPECT_EQ(close(), ARI_SUCCESS);
    driver.obey();
    expectClosedAndUsable();
}

INSTANTIATE_TEST_SUITE_P(AllPads, CancelledThread, testing::ValuesIn(allPads()), padCaseName);
INSTANTIATE_TEST_SUITE_P(HeadlessPads, CancelledOpening, testing::ValuesIn(padsOf(true)), padCaseName);
