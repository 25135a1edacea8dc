/// @file
/// The simulator as environment variables set it up: recordings, speed, models, pictures.
#include "patience.h"
#include "simulateddriver.h"

#include <QImage>

#include <cstdio>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class Playback : public SimulatorAlone
{
protected:
    Playback() { setenv("KVSIM_RECORDING", KV_TEST_DATA "/recordings/corners.kvrec", 1); }

    /// Opens the pad, clears it and waits for the end of the recording. Returns how long the playing took.
    std::chrono::milliseconds play(int deviceType)
    {
        EXPECT_EQ(open(deviceType), KVSPDARI_SUCCESS);
        const auto begin = Clock::now();
        EXPECT_EQ(driver.ClearDeviceContent(), KVSPDARI_SUCCESS);
        EXPECT_EQ(driver.WaitUntilPlayed(30000), 1);
        return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
    }
};

/// What a model makes of a recording from an S300 that has corners and the middle of the writing area, and a place
/// outside of it.
struct Mapped
{
    const char *name;
    int deviceType;
    const char *version;
    std::vector<KVSIM_PACKET> packets;
};

// Positions count from the writing area's corner. A raw unit of the S300 becomes span/2300 by span/1300 units of the
// other model.
const Mapped kMapped[] = {
    {"S300", KVS300_DEVICE, "",
        {{200, 200, 0, 0}, {1350, 850, 1024, 1}, {2500, 1500, 2048, 1}, {100, 100, 2049, 1}, {100, 100, 0, 2}}},
    {"S210", KVS210_DEVICE, "",
        {{160, 220, 0, 0}, {1340, 935, 1024, 1}, {2520, 1650, 2048, 1}, {57, 110, 2049, 1}, {57, 110, 0, 2}}},
    {"S210WithHalfThePressure", KVS210_DEVICE, "KVS210L1 4.2",
        {{160, 220, 0, 0}, {1340, 935, 512, 1}, {2520, 1650, 1024, 1}, {57, 110, 1025, 1}, {57, 110, 0, 2}}},
    {"S310X", KVS310X_DEVICE, "",
        {{2050, 1750, 0, 0}, {12635, 7495, 1024, 1}, {23220, 13240, 2048, 1}, {1130, 866, 2049, 1}, {1130, 866, 0, 2}}},
    {"R800", KVR800_DEVICE, "",
        {{550, 180, 0, 0}, {15485, 10240, 4096, 1}, {30420, 20300, 8192, 1}, {-749, -1368, 8196, 1},
            {-749, -1368, 0, 2}}},
    {"M450", KVM450_DEVICE, "",
        {{550, 180, 0, 0}, {15485, 10240, 4096, 1}, {30420, 20300, 8192, 1}, {-749, -1368, 8196, 1},
            {-749, -1368, 0, 2}}},
};

class MappedPlayback : public Playback, public testing::WithParamInterface<Mapped>
{
};

TEST_P(MappedPlayback, FillsTheSamePlacesOfTheModelsWritingArea)
{
    setenv("KVSIM_SPEED", "max", 1);
    setenv("KVSIM_VERSION", GetParam().version, 1);
    play(GetParam().deviceType);
    ASSERT_EQ(received.packets.size(), GetParam().packets.size());
    for (std::size_t i = 0; i < received.packets.size(); ++i) {
        EXPECT_EQ(received.packets[i].x, GetParam().packets[i].x) << i;
        EXPECT_EQ(received.packets[i].y, GetParam().packets[i].y) << i;
        EXPECT_EQ(received.packets[i].pressure, GetParam().packets[i].pressure) << i;
        EXPECT_EQ(received.packets[i].status, GetParam().packets[i].status) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Models, MappedPlayback, testing::ValuesIn(kMapped), [](const auto &row) { return row.param.name; });

TEST_F(Playback, PressureFollowsAVersionTextThatATestSet)
{
    setenv("KVSIM_SPEED", "max", 1);
    driver.SetText("GetDevicePartsVersion", "KVT120 1.0");
    play(KVS210_DEVICE);
    ASSERT_EQ(received.packets.size(), 5u);
    EXPECT_EQ(received.packets[2].pressure, 1024);
}

TEST_F(Playback, KeepsTheRecordingsTimes)
{
    setenv("KVSIM_DELAY_MS", "60", 1);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    std::this_thread::sleep_for(80ms);
    EXPECT_EQ(received.packetCount(), 0u); // nothing before the pad is cleared
    const auto begin = Clock::now();
    driver.ClearDeviceContent();
    ASSERT_EQ(driver.WaitUntilPlayed(60000), 1);
    ASSERT_EQ(received.times.size(), 5u);
    const std::chrono::milliseconds due[] = {60ms, 80ms, 120ms, 220ms, 260ms}; // the delay of 60 plus the recorded time
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_GE(received.times[i] - begin, due[i]) << i;
        EXPECT_LT(received.times[i] - begin, due[i] + kPatience) << i; // a busy machine is late, never early
    }
    driver.ClearDeviceContent(); // only the first clear starts the recording
    std::this_thread::sleep_for(100ms);
    EXPECT_EQ(received.packetCount(), 5u);
}

TEST_F(Playback, SpeedIsAFactor)
{
    setenv("KVSIM_SPEED", "0.5", 1);
    EXPECT_GE(play(KVS300_DEVICE), 400ms);
    driver.UnInitial();
    setenv("KVSIM_RECORDING", KV_TEST_DATA "/recordings/hours.kvrec", 1);
    for (const char *speed : {"1000000", "max"}) {
        setenv("KVSIM_SPEED", speed, 1);
        received.packets.clear();
        play(KVS300_DEVICE);
        EXPECT_EQ(received.packetCount(), 2u) << speed;
        driver.UnInitial();
    }
}

TEST_F(Playback, IsRepeatedAsOftenAsAskedFor)
{
    setenv("KVSIM_SPEED", "max", 1);
    setenv("KVSIM_REPEAT", "3", 1);
    setenv("KVSIM_DELAY_MS", "30", 1);
    EXPECT_GE(play(KVS300_DEVICE), 90ms);
    EXPECT_EQ(received.packetCount(), 15u);
}

TEST_F(Playback, EndsWithUnInitial)
{
    setenv("KVSIM_SPEED", "max", 1);
    setenv("KVSIM_REPEAT", "0", 1);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    driver.ClearDeviceContent();
    while (received.packetCount() < 100)
        std::this_thread::yield();
    int waited = -2;
    std::thread waiter([&] { waited = driver.WaitUntilPlayed(30000); });
    const KVSIM_PACKET packet{-7, -7, -7, -7};
    EXPECT_EQ(driver.SendPackets(&packet, 1), 1); // gets its turn although the recording is playing
    driver.UnInitial();
    const std::size_t count = received.packetCount();
    std::this_thread::sleep_for(30ms);
    EXPECT_EQ(received.packetCount(), count);
    waiter.join();
    EXPECT_EQ(waited, -1);
}

TEST_F(Playback, TheDelayEndsOnRequest)
{
    setenv("KVSIM_DELAY_MS", "60000", 1);
    EXPECT_EQ(driver.EndDelay(), -1);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.EndDelay(), 0); // before the pad is cleared there is no delay to end, and nothing starts
    EXPECT_EQ(driver.WaitUntilPlayed(20), 0);
    const auto begin = Clock::now();
    driver.ClearDeviceContent();
    EXPECT_EQ(driver.EndDelay(), 0);
    ASSERT_EQ(driver.WaitUntilPlayed(60000), 1);
    EXPECT_GE(Clock::now() - begin, 200ms); // the recording itself is not hurried
    EXPECT_LT(Clock::now() - begin, 60s);
    EXPECT_EQ(received.packetCount(), 5u);
}

TEST_F(Playback, WaitingEndsWithItsTime)
{
    setenv("KVSIM_DELAY_MS", "60000", 1);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.WaitUntilPlayed(10), 0);
    driver.ClearDeviceContent();
    EXPECT_EQ(driver.WaitUntilPlayed(10), 0);
    driver.UnInitial();
    setenv("KVSIM_RECORDING", "none", 1);
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.WaitUntilPlayed(0), 1);
}

struct Bundled
{
    const char *name;
    int lastTap;
    std::vector<int> scores;
};

const Bundled kBundled[] = {
    {"signature", 4, {}},
    {"initials", 4, {}},
    {"long-signature", 4, {}},
    {"tick-and-cross", 3, {}},
    {"dots-and-dashes", 4, {}},
    {"signature-finger", 4, {28, 55, 55, 55, 86, 86}},
};

class BundledPlayback : public SimulatorAlone, public testing::WithParamInterface<Bundled>
{
};

TEST_P(BundledPlayback, IsASignatureThatEndsWithATap)
{
    setenv("KVSIM_RECORDING", GetParam().name, 1);
    setenv("KVSIM_SPEED", "max", 1);
    for (const int type : {KVS310X_DEVICE, KVS300_DEVICE}) {
        received.packets.clear();
        received.scores.clear();
        ASSERT_EQ(open(type), KVSPDARI_SUCCESS);
        driver.ClearDeviceContent();
        ASSERT_EQ(driver.WaitUntilPlayed(60000), 1);
        ASSERT_GT(received.packets.size(), 100u);
        EXPECT_EQ(received.packets.front().status, KVSPDARI_PS_PEN_DOWN);
        EXPECT_EQ(received.packets[received.packets.size() - 2].status, GetParam().lastTap);
        EXPECT_EQ(received.packets.back().status, KVSPDARI_PS_PEN_UP);
        EXPECT_EQ(received.scores, type == KVS310X_DEVICE ? GetParam().scores : std::vector<int>{});
        if (!received.scores.empty()) {
            EXPECT_EQ(received.fingerprintLength, 59904);
        }
        driver.UnInitial();
    }
}

INSTANTIATE_TEST_SUITE_P(Recordings, BundledPlayback, testing::ValuesIn(kBundled), [](const auto &row) {
    std::string name = row.param.name;
    for (char &c : name)
        c = c == '-' ? '_' : c;
    return name;
});

struct BadSetting
{
    const char *variable;
    const char *value;
    const char *line; ///< the line on stderr, with % where the recordings' directory stands
};

const BadSetting kBadSettings[] = {
    {"KVSIM_SPEED", "fast", "KVSIM_SPEED=fast: neither a factor from 0.001 to 1000000 nor max"},
    {"KVSIM_SPEED", "0", "KVSIM_SPEED=0: neither a factor from 0.001 to 1000000 nor max"},
    {"KVSIM_SPEED", "-1", "KVSIM_SPEED=-1: neither a factor from 0.001 to 1000000 nor max"},
    {"KVSIM_SPEED", "nan", "KVSIM_SPEED=nan: neither a factor from 0.001 to 1000000 nor max"},
    {"KVSIM_DELAY_MS", "1.5", "KVSIM_DELAY_MS=1.5: not a whole number from 0 on"},
    {"KVSIM_SCREEN_MS", "-1", "KVSIM_SCREEN_MS=-1: not a whole number from 0 on"},
    {"KVSIM_REPEAT", "99999999999", "KVSIM_REPEAT=99999999999: not a whole number from 0 on"},
    {"KVSIM_PICTURES", "/nowhere", "KVSIM_PICTURES=/nowhere: not a directory"},
    {"KVSIM_RECORDING", "nobody",
        "no file 'nobody.kvrec' is built in; the recordings are: dots-and-dashes, initials, long-signature, "
        "signature-finger, signature, tick-and-cross"},
    {"KVSIM_RECORDING", "/nowhere/pen.kvrec", "/nowhere/pen.kvrec: No such file or directory"},
    {"KVSIM_RECORDING", "%backwards.kvrec", "%backwards.kvrec:4: the time goes backwards"},
    {"KVSIM_RECORDING", "%nofinger.kvrec", "%missing.pgm: No such file or directory"},
    {"KVSIM_RECORDING", "%smallfinger.kvrec", "small.pgm: a fingerprint has 208 by 288 pixels"},
};

class RefusedSetting : public SimulatorAlone, public testing::WithParamInterface<BadSetting>
{
protected:
    static std::string resolved(std::string text)
    {
        if (const auto at = text.find('%'); at != std::string::npos)
            text.replace(at, 1, KV_TEST_DATA "/recordings/");
        return text;
    }
};

TEST_P(RefusedSetting, IsNamedAndThePadDoesNotOpen)
{
    setenv(GetParam().variable, resolved(GetParam().value).c_str(), 1);
    testing::internal::CaptureStderr();
    const int result = open(KVS310X_DEVICE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "kvsignpaddrv: " + resolved(GetParam().line) + "\n");
    EXPECT_EQ(result, KVSPDARI_FAILED);
    EXPECT_EQ(driver.IsOpen(), 0);
    setenv(GetParam().variable, std::string(GetParam().variable) == "KVSIM_RECORDING" ? "none" : "", 1);
    EXPECT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
}

INSTANTIATE_TEST_SUITE_P(Settings, RefusedSetting, testing::ValuesIn(kBadSettings));

TEST_F(SimulatorAlone, ShownPicturesAreStored)
{
    char directory[] = "/tmp/kvsim-pictures-XXXXXX";
    ASSERT_NE(mkdtemp(directory), nullptr);
    const std::string path = std::string(directory) + "/picture-0002.png";
    setenv("KVSIM_PICTURES", directory, 1);
    driver.SetScreenDelay(0);
    ASSERT_EQ(open(KVS310X_DEVICE), KVSPDARI_SUCCESS);
    std::vector<unsigned char> picture(29952, 255);
    picture[2 * (5 * 104 + 7)] = 248; // red at (7, 5)
    picture[2 * (5 * 104 + 7) + 1] = 0;
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(driver.ShowFPImageOnDevice(picture.data(), 29952, 104, 144, nullptr), KVSPDARI_SUCCESS);
    const QImage stored(QString::fromStdString(path));
    EXPECT_EQ(stored.width(), 104);
    EXPECT_EQ(stored.height(), 144);
    EXPECT_EQ(stored.pixel(7, 5), qRgb(255, 0, 0));
    EXPECT_EQ(stored.pixel(8, 5), qRgb(255, 255, 255));
    EXPECT_EQ(stored.pixel(103, 143), qRgb(255, 255, 255));
    std::remove(path.c_str());
    std::remove((std::string(directory) + "/picture-0001.png").c_str());
    std::remove(directory);
}

} // namespace
