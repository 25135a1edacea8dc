/// @file
/// The recorder as a driver: what it passes on and what it writes down.
#include "recordeddriver.h"

#include <fstream>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>

namespace {

using namespace kvsim;
using namespace std::chrono_literals;
using Kind = Event::Kind;

unsigned char picture[8];
char text[32];

struct Command
{
    const char *operation;
    const char *call; ///< how the real driver's list of calls shows it
    int (*make)(const LoadedDriver &);
};

const Command kCommands[] = {
    {"OpenDeviceLCD", "OpenDeviceLCD 1", [](const auto &driver) { return driver.OpenDeviceLCD(true); }},
    {"ClearDeviceContent", "ClearDeviceContent", [](const auto &driver) { return driver.ClearDeviceContent(); }},
    {"GetDevicePenID", "GetDevicePenID 32", [](const auto &driver) { return driver.GetDevicePenID(text, 32); }},
    {"GetDevicePadID", "GetDevicePadID 31", [](const auto &driver) { return driver.GetDevicePadID(text, 31); }},
    {"GetDeviceSecureID", "GetDeviceSecureID 30",
        [](const auto &driver) { return driver.GetDeviceSecureID(text, 30); }},
    {"GetDevicePartsVersion", "GetDevicePartsVersion 29",
        [](const auto &driver) { return driver.GetDevicePartsVersion(text, 29); }},
    {"ShowVersionInfoOnDevice", "ShowVersionInfoOnDevice 1",
        [](const auto &driver) { return driver.ShowVersionInfoOnDevice(true); }},
    {"SetDevicePenStyle", "SetDevicePenStyle 1", [](const auto &driver) { return driver.SetDevicePenStyle(true); }},
    {"ShowFPImageOnDevice", "ShowFPImageOnDevice 8 2 2",
        [](const auto &driver) { return driver.ShowFPImageOnDevice(picture, 8, 2, 2, nullptr); }},
    {"UnInitial", "UnInitial", [](const auto &driver) { return driver.UnInitial(); }},
};

TEST_F(RecorderAlone, EveryOperationReachesTheRealDriverAndItsResultComesBack)
{
    for (const Command &command : kCommands) {
        ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
        real.SetResult(command.operation, 0);
        real.ForgetCalls();
        EXPECT_EQ(command.make(driver), 0) << command.operation;
        EXPECT_EQ(realCalls(), std::string(command.call) + "\n");
        if (real.IsOpen() == 0) {
            ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
        }
        real.SetResult(command.operation, -6);
        EXPECT_EQ(command.make(driver), -6) << command.operation;
        driver.UnInitial();
        real.Reset();
        real.SetScreenDelay(0);
    }
    real.SetText("GetDevicePenID", "0123456789");
    ASSERT_EQ(open(KVS300_DEVICE), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.GetDevicePenID(text, 5), 0);
    EXPECT_STREQ(text, "0123");
    EXPECT_EQ(open(KVS300_DEVICE), KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL);
    real.ForgetCalls();
    driver.UnInitial();
    driver.Initial(KVS310X_DEVICE, receivePacket, nullptr);
    EXPECT_EQ(realCalls(), "UnInitial\nInitial 7 fp=0\n");
    EXPECT_EQ(driver.Initial(KVS300_DEVICE, nullptr, nullptr), KVSPDART_INVALID_PARAMETERS);
}

TEST_F(RecorderAlone, PacketsAreDeliveredAndWrittenDown)
{
    const std::vector<KVSIM_PACKET> packets{
        {1, 2, 3, 0}, {2147483647, -2147483647 - 1, -5, 1}, {7, 8, 99999, -3}, {1, 1, 1, 4}};
    ASSERT_EQ(open(KVS300_DEVICE), KVSPDARI_SUCCESS);
    driver.GetDevicePartsVersion(text, 32);
    const auto begin = std::chrono::steady_clock::now();
    driver.ClearDeviceContent();
    std::this_thread::sleep_for(30ms);
    ASSERT_EQ(real.SendPackets(packets.data(), 4), 4);
    driver.UnInitial();
    const auto lasted = std::chrono::steady_clock::now() - begin;
    ASSERT_EQ(received.packets.size(), 4u);
    const Recording recording = recorded();
    EXPECT_EQ(recording.model, "S300");
    EXPECT_EQ(recording.padVersion, "KVS300 SIM 1.0");
    ASSERT_EQ(recording.events.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(std::memcmp(&received.packets[i], &packets[i], sizeof packets[i]), 0) << i;
        EXPECT_EQ(std::memcmp(&recording.events[i].packet, &packets[i], sizeof packets[i]), 0) << i;
        EXPECT_GE(recording.events[i].timeUs, 30000);
        EXPECT_LE(std::chrono::microseconds(recording.events[i].timeUs), lasted);
    }
    EXPECT_EQ(modeOf("pen.kvrec"), 0600u);
}

TEST_F(RecorderAlone, TheFirstClearIsTimeZero)
{
    ASSERT_EQ(open(KVS300_DEVICE), KVSPDARI_SUCCESS);
    std::this_thread::sleep_for(20ms);
    const KVSIM_PACKET packet{1, 2, 3, 0};
    real.SendPackets(&packet, 1);
    driver.ClearDeviceContent();
    std::this_thread::sleep_for(20ms);
    driver.ClearDeviceContent();
    real.SendPackets(&packet, 1);
    driver.UnInitial();
    const Recording recording = recorded();
    ASSERT_EQ(recording.events.size(), 2u);
    EXPECT_EQ(recording.events[0].timeUs, 0);
    EXPECT_GE(recording.events[1].timeUs, 20000);
}

TEST_F(RecorderAlone, FingerprintsAreStoredBesideIt)
{
    std::vector<unsigned char> finger(59904);
    for (std::size_t i = 0; i < finger.size(); ++i)
        finger[i] = static_cast<unsigned char>(i * 7);
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    EXPECT_EQ(real.SendFingerprint(finger.data(), 59904, 40), 1);
    EXPECT_EQ(received.fingerprint, finger.data());
    real.SendFingerprint(finger.data(), 59904, -1);
    real.SendFingerprint(nullptr, 0, 60);
    finger[5] ^= 1;
    real.SendFingerprint(finger.data(), 59904, 70);
    driver.UnInitial();
    const Recording recording = recorded();
    const std::pair<const char *, int> expected[] = {
        {"pen-finger-1.pgm", 40}, {"pen-finger-1.pgm", -1}, {"-", 60}, {"pen-finger-2.pgm", 70}};
    ASSERT_EQ(recording.events.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(recording.events[i].file, expected[i].first);
        EXPECT_EQ(recording.events[i].score, expected[i].second);
    }
    EXPECT_EQ(image("pen-finger-2.pgm"), finger);
    EXPECT_NE(image("pen-finger-1.pgm"), finger);
    EXPECT_EQ(modeOf("pen-finger-1.pgm"), 0600u);
}

TEST_F(RecorderAlone, AnswersAndTextsAreEventsWhenTheyChange)
{
    ASSERT_EQ(open(KVS300_DEVICE), KVSPDARI_SUCCESS);
    driver.GetDevicePadID(text, 32);
    driver.GetDevicePadID(text, 32);
    real.SetResult("SetDevicePenStyle", -7);
    driver.SetDevicePenStyle(true);
    driver.SetDevicePenStyle(true);
    real.SetResult("SetDevicePenStyle", 0);
    driver.SetDevicePenStyle(true);
    real.SetText("GetDevicePadID", "two\nlines");
    driver.GetDevicePadID(text, 32);
    driver.UnInitial();
    const Recording recording = recorded();
    ASSERT_EQ(recording.events.size(), 4u);
    EXPECT_EQ(recording.events[0].text, "SIM-S300-PadID-0001");
    EXPECT_EQ(recording.events[1].value, -7);
    EXPECT_EQ(recording.events[1].operation, "SetDevicePenStyle");
    EXPECT_EQ(recording.events[2].value, 0);
    EXPECT_EQ(recording.events[3].text, "two?lines");
}

/// Closing a pad breaks off the transfer of a picture. A replay must not refuse pictures because of it.
TEST_F(RecorderAlone, ABrokenOffPictureIsNoAnswerOfThePad)
{
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    bool isBrokenOff = true;
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 8, 2, 2, &isBrokenOff), KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    driver.UnInitial();
    EXPECT_TRUE(recorded().events.empty());

    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    isBrokenOff = false;
    real.SetResult("ShowFPImageOnDevice", -7);
    EXPECT_EQ(driver.ShowFPImageOnDevice(picture, 8, 2, 2, &isBrokenOff), -7);
    driver.UnInitial();
    const Recording refused = recorded("pen-2.kvrec");
    ASSERT_EQ(refused.events.size(), 1u);
    EXPECT_EQ(refused.events[0].operation, "ShowFPImageOnDevice");
    EXPECT_EQ(refused.events[0].value, -7);
}

TEST_F(RecorderAlone, ARefusedInitialIsARecordingToo)
{
    real.SetResult("Initial", -5);
    EXPECT_EQ(open(KVR800_DEVICE), -5);
    real.SetResult("Initial", 0);
    EXPECT_EQ(open(KVR800_DEVICE), 0); // a new session with its own callbacks and its own file
    const KVSIM_PACKET packet{1, 2, 3, 0};
    EXPECT_EQ(real.SendPackets(&packet, 1), 1);
    EXPECT_EQ(received.packetCount(), 1u);
    driver.UnInitial();
    const Recording recording = recorded();
    ASSERT_EQ(recording.events.size(), 1u);
    EXPECT_EQ(recording.events[0].operation, "Initial");
    EXPECT_EQ(recording.events[0].value, -5);
    EXPECT_EQ(recording.events[0].timeUs, 0);
    EXPECT_EQ(recorded("pen-2.kvrec").events.size(), 1u);
}

TEST_F(RecorderAlone, NoFileIsEverOverwritten)
{
    std::ofstream(path("pen.kvrec")) << "mine";
    std::ofstream(path("pen-2.kvrec")) << "mine too";
    open(KVS300_DEVICE);
    driver.UnInitial();
    EXPECT_EQ(wholeFile("pen.kvrec"), "mine");
    EXPECT_EQ(wholeFile("pen-2.kvrec"), "mine too");
    EXPECT_EQ(recorded("pen-3.kvrec").model, "S300");
}

TEST_F(RecorderAlone, WithoutAFileItOnlyPassesOn)
{
    unsetenv("KVREC_FILE");
    ASSERT_EQ(open(KVS300_DEVICE), 0);
    const KVSIM_PACKET packet{1, 2, 3, 0};
    EXPECT_EQ(real.SendPackets(&packet, 1), 1);
    EXPECT_EQ(received.packetCount(), 1u);
    driver.UnInitial();
    EXPECT_FALSE(std::ifstream(path("pen.kvrec")));
}

TEST_F(RecorderAlone, WhenTheFileCannotBeWrittenThePadGoesOn)
{
    setenv("KVREC_FILE", path("no/pen.kvrec").c_str(), 1);
    testing::internal::CaptureStderr();
    ASSERT_EQ(open(KVS300_DEVICE), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "kvsignpaddrv: " + path("no/pen.kvrec") + ": No such file or directory; nothing is recorded\n");
    driver.UnInitial();
    setenv("KVREC_FILE", path("pen.kvrec").c_str(), 1);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{100, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::vector<KVSIM_PACKET> packets(50, {1, 2, 3, 1});
    testing::internal::CaptureStderr();
    open(KVS300_DEVICE);
    real.SendPackets(packets.data(), 50);
    driver.UnInitial();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "kvsignpaddrv: " + path("pen.kvrec") + ": File too large; the rest is not recorded\n");
    EXPECT_EQ(received.packetCount(), 50u);
}

/// Two different shapes, once scrambled, have the same positions.
TEST_F(RecorderAlone, ScrambledThereIsNothingLeftOfTheShape)
{
    setenv("KVREC_SCRAMBLE", "1", 1);
    std::vector<unsigned char> finger(59904, 17);
    std::vector<Recording> recordings;
    for (const int seed : {3, 11}) {
        open(KVS310X_DEVICE);
        driver.GetDevicePadID(text, 32);
        driver.GetDevicePartsVersion(text, 32);
        for (int i = 0; i < 200; ++i) {
            const KVSIM_PACKET packet{2050 + i * seed, 1750 + i * i % (seed * 100), 100 + i, i % 5};
            real.SendPackets(&packet, 1);
        }
        real.SendFingerprint(finger.data(), 59904, seed);
        driver.UnInitial();
        recordings.push_back(recorded(seed == 3 ? "pen.kvrec" : "pen-2.kvrec"));
    }
    ASSERT_EQ(recordings[0].events.size(), 201u);
    ASSERT_EQ(recordings[1].events.size(), 201u);
    int moved = 0;
    for (std::size_t i = 0; i < 200; ++i) {
        const Packet &one = recordings[0].events[i].packet, &other = recordings[1].events[i].packet;
        EXPECT_EQ(one.x, other.x) << i;
        EXPECT_EQ(one.y, other.y) << i;
        EXPECT_TRUE(one.x >= 2050 && one.x < 2050 + 21170 && one.y >= 1750 && one.y < 1750 + 11490);
        EXPECT_EQ(one.pressure, 100 + static_cast<int>(i));
        EXPECT_EQ(one.status, static_cast<int>(i) % 5);
        moved += i > 0 && one.x != recordings[0].events[i - 1].packet.x;
    }
    EXPECT_GT(moved, 150);
    EXPECT_EQ(recordings[0].events[200].score, 3);
    EXPECT_NE(image("pen-finger-1.pgm"), finger);
    EXPECT_EQ(image("pen-finger-1.pgm"), image("pen-2-finger-1.pgm"));
    EXPECT_EQ(wholeFile("pen.kvrec").find("PadID-0001"), std::string::npos);
}

/// The process is killed while packets come as fast as possible. Every packet delivered before is in the file.
TEST_F(RecorderAlone, AKilledProcessLosesNothing)
{
    auto *const delivered =
        static_cast<std::atomic<int> *>(mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(delivered, MAP_FAILED);
    const pid_t child = fork();
    if (child == 0) {
        received.whenPacketComes = [=](const KVSIM_PACKET &packet) { *delivered = packet.x; };
        setenv("KVSIM_RECORDING", "none", 1);
        open(KVS300_DEVICE);
        for (int i = 1;; ++i) {
            const KVSIM_PACKET packet{i, 2, 3, 1};
            real.SendPackets(&packet, 1);
        }
    }
    while (*delivered < 5000)
        std::this_thread::yield();
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const Recording recording = recorded();
    ASSERT_FALSE(recording.events.empty());
    EXPECT_GE(recording.events.back().packet.x, *delivered);
    for (std::size_t i = 0; i < recording.events.size(); ++i)
        ASSERT_EQ(recording.events[i].packet.x, static_cast<int>(i) + 1);
    munmap(delivered, 4096);
}

TEST_F(RecorderAlone, AnOperationThatTheRealDriverLacksAnswersMinusOne)
{
    useRealDriver("without/GetDevicePadID/libkvsignpaddrv.so");
    ASSERT_EQ(open(KVS300_DEVICE), 0);
    EXPECT_EQ(driver.GetDevicePadID(text, 32), -1);
    EXPECT_EQ(driver.GetDevicePenID(text, 32), 0);
    driver.UnInitial();
}

TEST_F(RecorderAlone, ADriverThatCannotBeHadIsNamed)
{
    const std::pair<const char *, const char *> drivers[] = {{"nowhere.so", "cannot open shared object file"},
        {"recorder/libkvsignpaddrv.so", "is the recorder itself"}, {"broken/libkvsignpaddrv.so", "file too short"}};
    for (const auto &[file, reason] : drivers) {
        useRealDriver(file);
        testing::internal::CaptureStderr();
        EXPECT_EQ(open(KVS300_DEVICE), -1);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(said.rfind("kvsignpaddrv: ", 0), 0u);
        EXPECT_NE(said.find(file), std::string::npos) << said;
        EXPECT_NE(said.find(reason), std::string::npos) << said;
    }
}

} // namespace
