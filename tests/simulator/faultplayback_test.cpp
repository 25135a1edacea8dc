/// @file
/// What the faults in a recording do to the simulated pad: when they begin, what it then sends and answers.
#include "greyimage.h"
#include "patience.h"
#include "simulateddriver.h"

#include <atomic>
#include <fstream>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class FaultPlayback : public SimulatorAlone
{
protected:
    FaultPlayback() { setenv("KVSIM_SPEED", "max", 1); }
    ~FaultPlayback() override
    {
        std::remove(m_file.c_str());
        driver.Reset();
    }

    /// Makes this the recording that Initial plays.
    void script(const std::string &events, const std::string &header = "version: 2\nmodel: S300\n")
    {
        std::ofstream(m_file) << header << events;
        setenv("KVSIM_RECORDING", m_file.c_str(), 1);
    }

    void play(const std::string &events, int deviceType = KVS300_DEVICE)
    {
        script(events);
        ASSERT_EQ(open(deviceType), KVSPDARI_SUCCESS);
        ASSERT_EQ(driver.ClearDeviceContent(), KVSPDARI_SUCCESS);
        ASSERT_EQ(driver.WaitUntilPlayed(30000), 1);
    }

    std::string sentX() const
    {
        std::string text;
        for (const KVSIM_PACKET &packet : received.packets)
            text += std::to_string(packet.x) + " ";
        return text;
    }

private:
    const std::string m_file = "/tmp/kv-faultplayback-" + std::to_string(getpid()) + ".kvrec";
};

TEST_F(FaultPlayback, ARepetitionIsTheLastPacketAgain)
{
    play("0 201 300 5 0\nrepeat 0 1\n1 202 300 6 1\nraw 2 203 300 -9 7\nrepeat 3 3\n4 204 300 0 2\n");
    EXPECT_EQ(sentX(), "201 201 202 203 203 203 203 204 ");
    EXPECT_EQ(received.packets[1].status, 0);
    EXPECT_EQ(received.packets[6].status, 7);
    EXPECT_EQ(received.packets[6].pressure, -9);
}

TEST_F(FaultPlayback, ManyRepetitionsTakeNoMemory)
{
    constexpr int kMillions = 10;
    std::string events = "0 201 300 5 0\n";
    for (int i = 0; i < kMillions; ++i)
        events += "repeat 1 1000000\n";
    script(events);
    const auto peakKb = [] {
        rusage use{};
        getrusage(RUSAGE_SELF, &use);
        return use.ru_maxrss;
    };
    const long before = peakKb();
    ASSERT_EQ(open(), KVSPDARI_SUCCESS); // reads the whole recording
    EXPECT_LT(peakKb() - before, 50000);
    ASSERT_EQ(driver.ClearDeviceContent(), KVSPDARI_SUCCESS);
    while (received.packetCount() < 1000)
        std::this_thread::sleep_for(1ms);
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS); // while it is still repeating
    EXPECT_LT(received.packetCount(), kMillions * std::size_t{1000000});
}

TEST_F(FaultPlayback, APipeIsNoRecording)
{
    const std::string pipe = "/tmp/kv-pipe-" + std::to_string(getpid()) + ".kvrec";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    setenv("KVSIM_RECORDING", pipe.c_str(), 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(open(), KVSPDARI_FAILED); // nobody writes to the pipe, so reading it would never end
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "kvsignpaddrv: " + pipe + ": is not a regular file\n");
    script("fingerprint 0 " + pipe + " 5\n", "version: 2\nmodel: S310X\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(open(KVS310X_DEVICE), KVSPDARI_FAILED);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "kvsignpaddrv: " + pipe + ": is not a regular file\n");
    std::remove(pipe.c_str());
}

TEST_F(FaultPlayback, RawPacketsAreNotMappedToAnotherModel)
{
    play("0 200 200 2048 0\nraw 1 2147483647 -2147483648 99999 -1\n", KVR800_DEVICE);
    ASSERT_EQ(received.packets.size(), 2u);
    EXPECT_EQ(received.packets[0].x, 550);
    EXPECT_EQ(received.packets[0].pressure, 8192);
    EXPECT_EQ(received.packets[1].x, 2147483647);
    EXPECT_EQ(received.packets[1].y, -2147483647 - 1);
    EXPECT_EQ(received.packets[1].pressure, 99999);
    EXPECT_EQ(received.packets[1].status, -1);
}

TEST_F(FaultPlayback, AStallHoldsBackWhatIsDueAndThenComesABurst)
{
    setenv("KVSIM_SPEED", "1", 1);
    script("0 200 200 5 0\nstall 10 90\n20 201 200 5 1\n50 202 200 5 1\n99.9 203 200 5 1\n130 204 200 5 2\n");
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    const auto begin = Clock::now();
    driver.ClearDeviceContent();
    ASSERT_EQ(driver.WaitUntilPlayed(30000), 1);
    EXPECT_EQ(sentX(), "200 201 202 203 204 ");
    for (const int held : {1, 2, 3})
        EXPECT_GE(received.times[static_cast<std::size_t>(held)] - begin, 100ms) << held;
    EXPECT_GE(received.times[4] - begin, 130ms);
}

TEST_F(FaultPlayback, AnAnswerHoldsFromItsTimeOn)
{
    setenv("KVSIM_SPEED", "1", 1);
    script("200 200 200 5 0\nanswer 200 SetDevicePenStyle -7\n202 200 200 5 2\n600 200 200 5 0\n"
           "answer 600 SetDevicePenStyle 0\n602 200 200 5 2\n");
    std::map<std::size_t, int> results; // by the number of packets received so far
    received.whenPacketComes = [&](const KVSIM_PACKET &packet) {
        if (packet.status == KVSPDARI_PS_PEN_UP)
            results[received.packetCount()] = driver.SetDevicePenStyle(false);
    };
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    driver.ClearDeviceContent();
    EXPECT_EQ(driver.SetDevicePenStyle(true), KVSPDARI_SUCCESS);
    ASSERT_EQ(driver.WaitUntilPlayed(30000), 1);
    EXPECT_EQ(results, (std::map<std::size_t, int>{{2, -7}, {4, 0}}));
}

struct Asked
{
    const char *operation;
    int (*call)(const LoadedDriver &);
};

unsigned char picture[8];
char text[32];

const Asked kAsked[] = {
    {"OpenDeviceLCD", [](const LoadedDriver &driver) { return driver.OpenDeviceLCD(true); }},
    {"ClearDeviceContent", [](const LoadedDriver &driver) { return driver.ClearDeviceContent(); }},
    {"GetDevicePenID", [](const LoadedDriver &driver) { return driver.GetDevicePenID(text, 32); }},
    {"GetDevicePadID", [](const LoadedDriver &driver) { return driver.GetDevicePadID(text, 32); }},
    {"GetDeviceSecureID", [](const LoadedDriver &driver) { return driver.GetDeviceSecureID(text, 32); }},
    {"GetDevicePartsVersion", [](const LoadedDriver &driver) { return driver.GetDevicePartsVersion(text, 32); }},
    {"ShowVersionInfoOnDevice", [](const LoadedDriver &driver) { return driver.ShowVersionInfoOnDevice(true); }},
    {"SetDevicePenStyle", [](const LoadedDriver &driver) { return driver.SetDevicePenStyle(true); }},
    {"ShowFPImageOnDevice",
        [](const LoadedDriver &driver) { return driver.ShowFPImageOnDevice(picture, 8, 2, 2, nullptr); }},
};

TEST_F(FaultPlayback, EveryOperationAnswersWhatItIsToldTo)
{
    for (const Asked &asked : kAsked) {
        driver.UnInitial();
        script(std::string("answer 0 ") + asked.operation + " -5\nscreen 0 0\n");
        ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
        for (const Asked &other : kAsked)
            EXPECT_EQ(other.call(driver), &other == &asked ? -5 : 0) << asked.operation << " " << other.operation;
    }
    EXPECT_EQ(driver.ShownPictures(), 8); // the refused one does not count
    script("answer 0 UnInitial -3\n");
    driver.UnInitial();
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.UnInitial(), -3);
    EXPECT_EQ(driver.IsOpen(), 0);
    EXPECT_EQ(driver.UnInitial(), 0); // the recording has no say once the pad is closed
}

TEST_F(FaultPlayback, InitialAnswersWhatTheRecordingBeginsWith)
{
    for (const int result : {-1, -2, -3, -4, -5, -6, -7}) {
        script("answer 0 Initial " + std::to_string(result) + "\n");
        EXPECT_EQ(open(), result);
        EXPECT_EQ(driver.IsOpen(), 0);
    }
    script("0 200 200 5 0\nanswer 0 Initial -3\n"); // only an answer that comes first is meant for Initial
    EXPECT_EQ(open(), KVSPDARI_SUCCESS);
    driver.UnInitial();
    script("unplug 0\n");
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    driver.SetResult("Initial", KVSPDARI_SUCCESS); // overrides a recorded answer, but does not plug a pad in
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    script("answer 0 Initial -3\n");
    EXPECT_EQ(open(), KVSPDARI_SUCCESS);
}

TEST_F(FaultPlayback, AnUnpluggedPadIsSilentAndTakesNothing)
{
    play("0 200 200 5 0\n1 201 200 5 1\nunplug 2\n3 202 200 5 1\nfingerprint 3 - 9\n4 203 200 5 2\n", KVS310X_DEVICE);
    EXPECT_EQ(received.packetCount(), 2u);
    EXPECT_TRUE(received.scores.empty());
    for (const Asked &asked : kAsked)
        EXPECT_EQ(asked.call(driver), KVSPDARI_LIBUSB_SENT_CMD_FAIL) << asked.operation;
    const KVSIM_PACKET packet{1, 2, 3, 0};
    EXPECT_EQ(driver.SendPackets(&packet, 1), 0);
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL); // it stays unplugged, whichever recording comes next
    setenv("KVSIM_RECORDING", "none", 1);
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    driver.Reset();
    EXPECT_EQ(open(), KVSPDARI_SUCCESS);
}

TEST_F(FaultPlayback, APadThatIsPluggedInAgainGoesOn)
{
    play("0 200 200 5 0\nunplug 2\n3 202 200 5 1\nplug 4\n5 203 200 5 1\n");
    EXPECT_EQ(received.packetCount(), 2u);
    EXPECT_EQ(received.packets[1].x, 203);
    EXPECT_EQ(driver.SetDevicePenStyle(true), KVSPDARI_SUCCESS);
    driver.UnInitial();
    setenv("KVSIM_SPEED", "1", 1);
    script("0 200 200 5 0\nunplug 0\n0 201 200 5 1\nplug 60000\n");
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    driver.ClearDeviceContent();
    while (driver.SetDevicePenStyle(true) == KVSPDARI_SUCCESS)
        std::this_thread::yield();
    driver.UnInitial(); // the recording is cut short before it plugs the pad in again
    EXPECT_EQ(open(), KVSPDARI_SUCCESS);
}

// Other threads keep the driver busy, so that over many rounds it is closed before, while and after it handles the
// recording's fault.
TEST_F(FaultPlayback, APadThatComesBackCanBeOpenedWheneverItWasClosed)
{
    script("0 200 200 5 0\nunplug 0\n0 201 200 5 1\nplug 60000\n");
    setenv("KVSIM_SPEED", "1", 1);
    std::atomic<bool> done{false};
    std::vector<std::thread> others;
    for (int i = 0; i < 3; ++i)
        others.emplace_back([&] {
            while (!done)
                driver.Calls(nullptr, 0);
        });
    int opened = 0;
    for (; opened < 300 && open() == KVSPDARI_SUCCESS; ++opened) {
        driver.ClearDeviceContent();
        while (driver.SetDevicePenStyle(true) == KVSPDARI_SUCCESS)
            std::this_thread::yield();
        driver.UnInitial();
        driver.ForgetCalls();
    }
    done = true;
    for (std::thread &other : others)
        other.join();
    EXPECT_EQ(opened, 300);
}

TEST_F(FaultPlayback, UnpluggingEndsAPicture)
{
    setenv("KVSIM_SPEED", "1", 1);
    script("screen 0 60000\n0 200 200 5 0\nunplug 40\n");
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    driver.ClearDeviceContent();
    const auto begin = Clock::now();
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 8, 2, 2, nullptr), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    EXPECT_LT(Clock::now() - begin, 60s);
    EXPECT_EQ(driver.ShownPictures(), 0);
}

TEST_F(FaultPlayback, ASlowScreenTakesItsTime)
{
    setenv("KVSIM_SCREEN_MS", "3600000", 1); // the recording's own time overrides this
    script("screen 0 50\n");
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    const auto begin = Clock::now();
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 8, 2, 2, nullptr), KVSPDARI_SUCCESS);
    EXPECT_GE(Clock::now() - begin, 50ms);
}

TEST_F(FaultPlayback, TextsAreTheRecordingsOwn)
{
    script("text 0 GetDevicePartsVersion KVS300 9.9\ntext 0 GetDevicePadID\n");
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.GetDevicePartsVersion(text, 32), KVSPDARI_SUCCESS);
    EXPECT_STREQ(text, "KVS300 9.9");
    EXPECT_EQ(driver.GetDevicePadID(text, 32), KVSPDARI_SUCCESS);
    EXPECT_STREQ(text, "KVS300 9.9"); // still the earlier text, because nothing was written
    driver.SetText("GetDevicePartsVersion", "KVS300 0.1");
    driver.GetDevicePartsVersion(text, 32);
    EXPECT_STREQ(text, "KVS300 0.1");
}

TEST_F(FaultPlayback, TheRecordedPadsVersionIsAnsweredByItsModel)
{
    const char *const header = "version: 2\nmodel: S210\npad-version: KVT120 4.2\n";
    const std::pair<int, std::pair<const char *, int>> expected[] = {
        {KVS210_DEVICE, {"KVT120 4.2", 512}}, {KVS300_DEVICE, {"KVS300 SIM 1.0", 1024}}};
    for (const auto &[type, row] : expected) {
        received.packets.clear();
        script("0 160 220 512 0\n", header);
        ASSERT_EQ(open(type), KVSPDARI_SUCCESS);
        driver.GetDevicePartsVersion(text, 32);
        EXPECT_STREQ(text, row.first);
        driver.ClearDeviceContent();
        ASSERT_EQ(driver.WaitUntilPlayed(30000), 1);
        EXPECT_EQ(received.packets.at(0).pressure, row.second); // 512 is half of the recorded pad's range of 1024
        driver.UnInitial();
    }
}

TEST_F(FaultPlayback, FingerprintsComeInAnyOrderNullOnesToo)
{
    play("fingerprint 0 - 90\nfingerprint 1 /nowhere.pgm 4\n", KVS300_DEVICE); // no sensor, so no file is looked for
    EXPECT_TRUE(received.scores.empty());
    driver.UnInitial();
    std::ofstream finger("/tmp/kv-faultplayback-finger.pgm", std::ios::binary);
    kvsim::writePgm(finger, {208, 288, std::vector<unsigned char>(59904, 77)});
    finger.close();
    play("fingerprint 0 kv-faultplayback-finger.pgm 90\nfingerprint 0 kv-faultplayback-finger.pgm -2147483648\n"
         "fingerprint 1 kv-faultplayback-finger.pgm 30\nfingerprint 2 - 95\n",
        KVS310X_DEVICE);
    std::remove("/tmp/kv-faultplayback-finger.pgm");
    EXPECT_EQ(received.scores, (std::vector<int>{90, -2147483647 - 1, 30, 95}));
    EXPECT_EQ(received.fingerprint, nullptr);
    EXPECT_EQ(received.fingerprintLength, 0);
}

} // namespace
