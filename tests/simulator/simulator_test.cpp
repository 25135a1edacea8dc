/// @file
/// The simulated driver keeps what every pad driver promises; and the functions by which tests control it.
#include "simulateddriver.h"

#include <atomic>
#include <fstream>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

TEST_F(SimulatorAlone, AnswersAsTheModelThatItIsOpenedAs)
{
    const std::pair<int, const char *> models[] = {{KVS210_DEVICE, "KVS210 "}, {KVR800_DEVICE, "KVR800 "},
        {KVM450_DEVICE, "KVM450 "}, {KVS300_DEVICE, "KVS300 "}, {KVS310X_DEVICE, "KVS310X "}};
    for (const auto &[type, prefix] : models) {
        ASSERT_EQ(open(type), KVSPDARI_SUCCESS) << type;
        char version[32] = "";
        EXPECT_EQ(driver.GetDevicePartsVersion(version, sizeof version), KVSPDARI_SUCCESS);
        EXPECT_EQ(std::string(version).rfind(prefix, 0), 0u) << version;
        EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
    }
}

TEST_F(SimulatorAlone, RefusesWhatIsNoPad)
{
    for (const int type : {-1, 0, 1, 6, 8, 100})
        EXPECT_EQ(open(type), KVSPDART_INVALID_PARAMETERS) << type;
    EXPECT_EQ(driver.Initial(KVS300_DEVICE, nullptr, nullptr), KVSPDART_INVALID_PARAMETERS);
    EXPECT_EQ(driver.IsOpen(), 0);
}

TEST_F(SimulatorAlone, APadHasOneUser)
{
    EXPECT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL);
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
    EXPECT_EQ(open(), KVSPDARI_SUCCESS);
}

TEST_F(SimulatorAlone, AClosedPadTakesNoCommands)
{
    char text[32] = "untouched";
    EXPECT_EQ(driver.OpenDeviceLCD(true), KVSPDARI_FAILED);
    EXPECT_EQ(driver.ClearDeviceContent(), KVSPDARI_FAILED);
    EXPECT_EQ(driver.GetDevicePenID(text, sizeof text), KVSPDARI_FAILED);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS);
    const KVSIM_PACKET packet{1, 2, 3, 0};
    EXPECT_EQ(driver.SendPackets(&packet, 1), -1);
    EXPECT_EQ(driver.SendFingerprint(nullptr, 0, 1), -1);
    EXPECT_EQ(driver.WaitUntilPlayed(0), -1);
}

TEST_F(SimulatorAlone, PacketsComeInOrderOnOneThreadOfTheDriversOwn)
{
    std::vector<KVSIM_PACKET> sent;
    for (int i = 0; i < 10000; ++i)
        sent.push_back({i, -i, i * 3, i % 7 - 1});
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.SendPackets(sent.data(), 5000), 5000);
    EXPECT_EQ(driver.SendPackets(sent.data() + 5000, 5000), 5000);
    ASSERT_EQ(received.packets.size(), sent.size());
    for (std::size_t i = 0; i < sent.size(); ++i) {
        ASSERT_EQ(received.packets[i].x, sent[i].x);
        ASSERT_EQ(received.packets[i].y, sent[i].y);
        ASSERT_EQ(received.packets[i].pressure, sent[i].pressure);
        ASSERT_EQ(received.packets[i].status, sent[i].status);
    }
    EXPECT_EQ(received.threads.size(), 1u);
    EXPECT_EQ(received.threads.count(std::this_thread::get_id()), 0u);
    EXPECT_EQ(driver.SendPackets(nullptr, 5), 0);
    EXPECT_EQ(driver.SendPackets(sent.data(), -5), 0);
}

TEST_F(SimulatorAlone, FirstPacketsComeBeforeInitialReturns)
{
    const KVSIM_PACKET packets[] = {{1, 2, 3, 0}, {4, 5, 6, 1}};
    driver.SetReadingThreadPackets(packets, 2);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(received.packetCount(), 2u);
    EXPECT_EQ(received.threads.count(std::this_thread::get_id()), 0u);
    driver.UnInitial();
    driver.SetReadingThreadPackets(nullptr, 0);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(received.packetCount(), 2u);
}

void callEveryCommand(const LoadedDriver &driver, std::atomic<int> &done)
{
    char text[32];
    unsigned char picture[8] = {};
    bool abort = false;
    const int results[] = {driver.OpenDeviceLCD(true), driver.ClearDeviceContent(),
        driver.GetDevicePenID(text, sizeof text), driver.GetDevicePadID(text, sizeof text),
        driver.GetDeviceSecureID(text, sizeof text), driver.GetDevicePartsVersion(text, sizeof text),
        driver.ShowVersionInfoOnDevice(true), driver.SetDevicePenStyle(true),
        driver.ShowFPImageOnDevice(picture, 8, 2, 2, &abort)};
    for (const int result : results)
        done += result == KVSPDARI_SUCCESS;
}

TEST_F(SimulatorAlone, OperationsMayBeCalledFromInsideACallbackAndBesideIt)
{
    std::atomic<int> done{0};
    received.whenPacketComes = [&](const KVSIM_PACKET &packet) {
        callEveryCommand(driver, done);
        std::thread([&] { callEveryCommand(driver, done); }).join(); // another thread, during the callback
        EXPECT_EQ(driver.SendPackets(&packet, 1), -1);
        EXPECT_EQ(driver.Initial(KVS300_DEVICE, receivePacket, nullptr), KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL);
    };
    driver.SetScreenDelay(0);
    const KVSIM_PACKET packet{1, 2, 3, 0};
    driver.SetReadingThreadPackets(&packet, 1); // this packet comes before Initial has returned
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    EXPECT_EQ(done, 18);
    EXPECT_EQ(driver.SendPackets(&packet, 1), 1);
    EXPECT_EQ(done, 36);
}

TEST_F(SimulatorAlone, UnInitialReturnsAfterTheLastCallback)
{
    std::atomic<bool> inside{false}, left{false};
    received.whenPacketComes = [&](const KVSIM_PACKET &) {
        inside = true;
        std::this_thread::sleep_for(50ms);
        left = true;
    };
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    const std::vector<KVSIM_PACKET> packets(1000, {1, 2, 3, 1});
    int sent = -2;
    std::thread sender([&] { sent = driver.SendPackets(packets.data(), 1000); });
    while (!inside)
        std::this_thread::yield();
    std::thread other([&] { // the second one to close has to wait as well
        driver.UnInitial();
        EXPECT_TRUE(left);
    });
    driver.UnInitial();
    EXPECT_TRUE(left);
    const std::size_t count = received.packetCount();
    other.join();
    sender.join();
    EXPECT_EQ(received.packetCount(), count);
    EXPECT_EQ(sent, static_cast<int>(count));
    EXPECT_LT(count, 1000u);
}

TEST_F(SimulatorAlone, UnInitialFromInsideACallbackMakesItTheLast)
{
    received.whenPacketComes = [&](const KVSIM_PACKET &) { EXPECT_EQ(driver.UnInitial(), KVSPDARI_SUCCESS); };
    const std::vector<KVSIM_PACKET> packets(10, {1, 2, 3, 1});
    for (std::size_t round = 1; round <= 3; ++round) {
        ASSERT_EQ(open(), KVSPDARI_SUCCESS);
        EXPECT_EQ(driver.SendPackets(packets.data(), 10), 1);
        EXPECT_EQ(driver.IsOpen(), 0);
        EXPECT_EQ(received.packetCount(), round);
    }
    driver.SetReadingThreadPackets(packets.data(), 10);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(received.packetCount(), 4u);
    EXPECT_EQ(driver.IsOpen(), 0);
}

TEST_F(SimulatorAlone, APadMayBeReopenedFromInsideACallback)
{
    received.whenPacketComes = [&](const KVSIM_PACKET &packet) {
        if (packet.status != KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON)
            return;
        driver.UnInitial();
        EXPECT_EQ(open(), KVSPDARI_SUCCESS);
    };
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    const KVSIM_PACKET packets[] = {{1, 1, 1, 4}, {2, 2, 2, 0}};
    EXPECT_EQ(driver.SendPackets(packets, 2), 1);
    EXPECT_EQ(driver.SendPackets(packets + 1, 1), 1);
    driver.UnInitial();
    EXPECT_EQ(received.packetCount(), 2u);
}

TEST_F(SimulatorAlone, FingerprintsAreDeliveredByTheirModelOnly)
{
    const unsigned char image[] = {1, 2, 3};
    for (const int type : {KVS210_DEVICE, KVR800_DEVICE, KVM450_DEVICE, KVS300_DEVICE}) {
        ASSERT_EQ(open(type), KVSPDARI_SUCCESS);
        EXPECT_EQ(driver.SendFingerprint(image, 3, 40), 0);
        driver.UnInitial();
    }
    ASSERT_EQ(driver.Initial(KVS310X_DEVICE, receivePacket, nullptr), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.SendFingerprint(image, 3, 40), 0);
    driver.UnInitial();
    EXPECT_TRUE(received.scores.empty());
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.SendFingerprint(image, 3, 40), 1);
    EXPECT_EQ(received.fingerprint, image);
    EXPECT_EQ(received.fingerprintLength, 3);
    EXPECT_EQ(driver.SendFingerprint(nullptr, 0, -5), 1);
    EXPECT_EQ(received.fingerprint, nullptr);
    EXPECT_EQ(received.scores, (std::vector<int>{40, -5}));
}

TEST_F(SimulatorAlone, EveryCallIsNoted)
{
    char text[32];
    unsigned char picture[8] = {};
    driver.SetScreenDelay(0);
    driver.Initial(KVS300_DEVICE, receivePacket, nullptr);
    driver.UnInitial();
    open(KVS310X_DEVICE);
    driver.ClearDeviceContent();
    driver.OpenDeviceLCD(true);
    driver.GetDevicePartsVersion(text, sizeof text);
    driver.GetDevicePenID(text, 16);
    driver.ShowVersionInfoOnDevice(false);
    driver.SetDevicePenStyle(true);
    driver.ShowFPImageOnDevice(picture, 8, 2, 2, nullptr);
    driver.UnInitial();
    EXPECT_EQ(calls(),
        "Initial 5 fp=0\nUnInitial\nInitial 7 fp=1\nClearDeviceContent\nOpenDeviceLCD 1\n"
        "GetDevicePartsVersion 32\nGetDevicePenID 16\nShowVersionInfoOnDevice 0\nSetDevicePenStyle 1\n"
        "ShowFPImageOnDevice 8 2 2\nUnInitial\n");
    EXPECT_EQ(driver.Calls(text, 8), static_cast<int>(calls().size()));
    EXPECT_STREQ(text, "Initial");
    driver.ForgetCalls();
    EXPECT_EQ(calls(), "");
}

TEST_F(SimulatorAlone, ResultsAreThoseAskedForUntilReset)
{
    driver.SetResult("KVSPDAPI_Initial", KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    EXPECT_EQ(driver.IsOpen(), 0);
    driver.SetResult("Initial", KVSPDARI_SUCCESS);
    driver.SetResult("ClearDeviceContent", KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    driver.SetResult("UnInitial", KVSPDARI_FAILED);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.ClearDeviceContent(), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    EXPECT_EQ(driver.ClearDeviceContent(), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    EXPECT_EQ(driver.UnInitial(), KVSPDARI_FAILED);
    EXPECT_EQ(driver.IsOpen(), 0);
    driver.Reset();
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.ClearDeviceContent(), KVSPDARI_SUCCESS);
}

TEST_F(SimulatorAlone, TextsAreThoseAskedForAndFitTheirBuffer)
{
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    char text[16] = "untouched";
    driver.SetText("GetDevicePenID", "0123456789");
    EXPECT_EQ(driver.GetDevicePenID(text, 5), KVSPDARI_SUCCESS);
    EXPECT_STREQ(text, "0123");
    driver.SetResult("GetDevicePenID", KVSPDARI_LIBUSB_SENT_CMD_FAIL); // the text is still written
    EXPECT_EQ(driver.GetDevicePenID(text, sizeof text), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    EXPECT_STREQ(text, "0123456789");
    driver.SetText("KVSPDAPI_GetDevicePenID", nullptr);
    text[0] = '?';
    EXPECT_EQ(driver.GetDevicePenID(text, sizeof text), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    EXPECT_STREQ(text, "?123456789");
    EXPECT_EQ(driver.GetDevicePadID(nullptr, 16), KVSPDART_INVALID_PARAMETERS);
    EXPECT_EQ(driver.GetDevicePadID(text, 0), KVSPDART_INVALID_PARAMETERS);
    EXPECT_EQ(driver.GetDevicePadID(text, 1), KVSPDARI_SUCCESS);
    EXPECT_STREQ(text, "");
}

TEST_F(SimulatorAlone, ScreenIsOnFromItsCommandToTheEnd)
{
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.IsScreenOn(), 0);
    EXPECT_EQ(driver.OpenDeviceLCD(true), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.IsScreenOn(), 1);
    driver.UnInitial();
    EXPECT_EQ(driver.IsScreenOn(), 0);
    ASSERT_EQ(open(KVR800_DEVICE), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.OpenDeviceLCD(true), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    EXPECT_EQ(driver.IsScreenOn(), 0);
}

TEST_F(SimulatorAlone, APictureTakesItsTimeAndIsKept)
{
    unsigned char picture[12] = {248, 0, 255, 255, 1, 2, 3, 4, 5, 6, 7, 8};
    bool abort = false;
    driver.SetScreenDelay(40);
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    const auto begin = Clock::now();
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 12, 2, 3, &abort), KVSPDARI_SUCCESS);
    EXPECT_GE(Clock::now() - begin, 40ms);
    EXPECT_EQ(driver.ShownPictures(), 1);
    unsigned char kept[12] = {};
    EXPECT_EQ(driver.LastPicture(kept, sizeof kept), 12);
    EXPECT_TRUE(std::equal(picture, picture + 12, kept));
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 11, 2, 3, &abort), KVSPDART_INVALID_PARAMETERS);
    EXPECT_EQ(driver.ShowFPImageOnDevice(nullptr, 12, 2, 3, &abort), KVSPDART_INVALID_PARAMETERS);
    EXPECT_EQ(driver.ShownPictures(), 1);
    driver.UnInitial();
    ASSERT_EQ(open(KVS300_DEVICE), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 12, 2, 3, &abort), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
}

TEST_F(SimulatorAlone, ASlowPictureIsGivenUpOnRequestAndOnClosing)
{
    unsigned char picture[8] = {};
    bool abort = false;
    driver.SetScreenDelay(60000);
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    const auto begin = Clock::now();
    for (const bool byFlag : {true, false}) {
        driver.ForgetCalls();
        std::thread stopper([&] {
            while (calls().find("ShowFPImageOnDevice") == std::string::npos)
                std::this_thread::yield();
            std::this_thread::sleep_for(20ms);
            if (byFlag)
                __atomic_store_n(&abort, true, __ATOMIC_RELEASE);
            else
                driver.UnInitial();
        });
        EXPECT_EQ(
            driver.ShowFPImageOnDevice(picture, 8, 2, 2, byFlag ? &abort : nullptr), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
        stopper.join();
    }
    EXPECT_LT(Clock::now() - begin, 60s);
    EXPECT_EQ(driver.ShownPictures(), 0);
}

std::string wholeFile(const char *path)
{
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

int threadCount()
{
    const std::string status = wholeFile("/proc/self/status");
    return std::stoi(status.substr(status.find("Threads:") + 8));
}

TEST(SimulatorUnloading, LeavesNothingBehind)
{
    setenv("KVSIM_RECORDING", "none", 1);
    const int threads = threadCount();
    for (int round = 0; round < 100; ++round) {
        const LoadedDriver driver;
        ASSERT_EQ(driver.Initial(KVS300_DEVICE, receivePacket, nullptr), KVSPDARI_SUCCESS);
        const KVSIM_PACKET packet{round, 2, 3, 0};
        ASSERT_EQ(driver.SendPackets(&packet, 1), 1);
        if (round % 2 == 0)
            driver.UnInitial(); // in the other rounds, unloading the library ends the session
    }
    EXPECT_EQ(threadCount(), threads);
    EXPECT_EQ(wholeFile("/proc/self/maps").find("libkvsignpaddrv"), std::string::npos);
    unsetenv("KVSIM_RECORDING");
}

TEST(SimulatorVariants, LackOneOperationEach)
{
    void *const library = dlopen("./without/UnInitial/libkvsignpaddrv.so", RTLD_NOW);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_EQ(dlsym(library, "KVSPDAPI_UnInitial"), nullptr);
    EXPECT_NE(dlsym(library, "KVSPDAPI_Initial"), nullptr);
    EXPECT_NE(dlsym(library, "KVSIM_SendPackets"), nullptr);
    dlclose(library);
    EXPECT_EQ(dlopen("./broken/libkvsignpaddrv.so", RTLD_NOW), nullptr);
}

} // namespace
