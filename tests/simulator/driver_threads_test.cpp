/// @file
/// A driver whose thread is gone, because a receiver ended it or because the process is a forked child. Nothing may
/// wait for that thread; an alarm kills a test that does.
#include "forkedchild.h"
#include "patience.h"
#include "simulateddriver.h"

#include <pthread.h>
#include <sys/wait.h>

namespace {

using namespace std::chrono_literals;

class DriverThreads : public SimulatorAlone
{
protected:
    DriverThreads()
    {
        setenv("KVSIM_SPEED", "max", 1);
        setenv("KVSIM_REPEAT", "0", 1);
        alarm(static_cast<unsigned>(kPatience.count()));
    }
    ~DriverThreads() override { alarm(0); }

    static constexpr KVSIM_PACKET kPacket{1, 2, 3, 1};
};

void exitThread()
{
    pthread_exit(nullptr);
}

void cancelThread()
{
    pthread_cancel(pthread_self());
    pthread_testcancel();
}

TEST_F(DriverThreads, AReceiverMayEndTheThread)
{
    setenv("KVSIM_RECORDING", "signature", 1); // never starts, because the pad is not cleared
    for (void (*const end)() : {exitThread, cancelThread}) {
        received.whenPacketComes = [=](const KVSIM_PACKET &) { end(); };
        ASSERT_EQ(open(), KVSPDARI_SUCCESS);
        EXPECT_EQ(driver.SendPackets(&kPacket, 1), 0); // not counted, because the receiver never returned
        EXPECT_EQ(driver.SendPackets(&kPacket, 1), -1);
        EXPECT_EQ(driver.WaitUntilPlayed(60000), -1);
        EXPECT_EQ(driver.OpenDeviceLCD(true), KVSPDARI_SUCCESS);
        EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);

        received.whenPacketComes = nullptr;
        ASSERT_EQ(open(), KVSPDARI_SUCCESS);
        EXPECT_EQ(driver.SendPackets(&kPacket, 1), 1);
        EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
    }
}

TEST_F(DriverThreads, AReceiverMayEndTheThreadBeforeInitialHasReturned)
{
    driver.SetReadingThreadPackets(&kPacket, 1);
    received.whenPacketComes = [](const KVSIM_PACKET &) { exitThread(); };
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
    driver.SetReadingThreadPackets(nullptr, 0);
}

/// The exit status of a forked child that does this and then ends normally, with all exit handlers.
int inChild(const std::function<bool()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(static_cast<unsigned>(kPatience.count()));
        std::exit(work() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

TEST_F(DriverThreads, AForkedChildHasAPadOfItsOwnThatIsClosed)
{
    setenv("KVSIM_RECORDING", "signature", 1);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    driver.ClearDeviceContent();
    while (received.packetCount() < 100)
        std::this_thread::sleep_for(1ms);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(inChild([&] {
            return driver.IsOpen() == 0 && driver.OpenDeviceLCD(true) == KVSPDARI_FAILED
                && driver.UnInitial() == KVSPDARI_SUCCESS;
        }),
            0);
        EXPECT_EQ(inChild([] { return true; }), 0);
        const std::size_t count = received.packetCount();
        while (received.packetCount() == count) // until the parent's pad is seen to go on
            std::this_thread::sleep_for(1ms);
    }
    EXPECT_EQ(driver.IsOpen(), 1);
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
}

} // namespace
