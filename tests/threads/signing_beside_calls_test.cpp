// Somebody signs on the driver's thread while the application's thread queries, saves, clears, resizes, closes and
// opens.
#include "everycall.h"
#include "logfile.h"
#include "penthread.h"

#include <filesystem>

namespace {

/// The log on for a scope. What it wrote is taken away again: these tests write a lot.
class LogForNow
{
public:
    explicit LogForNow(bool on)
        : m_sizes{sizeOf(kLogFile), sizeOf(kInThreadLogFile)}
    {
        set(on);
    }
    ~LogForNow()
    {
        set(false);
        std::error_code ignored;
        std::filesystem::resize_file(kLogFile, m_sizes[0], ignored);
        std::filesystem::resize_file(kInThreadLogFile, m_sizes[1], ignored);
    }

private:
    static void set(bool on) { __atomic_store_n(&g_bEnableLog, on, __ATOMIC_RELAXED); }
    static std::uintmax_t sizeOf(const char *path)
    {
        std::error_code missing;
        const auto size = std::filesystem::file_size(path, missing);
        return missing ? 0 : size;
    }

    std::uintmax_t m_sizes[2];
};

class SigningBesideCalls : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kRounds = 4;
    static constexpr long kPackets = 300;

    const int m_type = GetParam().family->type;
    const std::vector<KVSIM_PACKET> m_packets = busyPackets(m_type);
};

void sendFingerprints(OpenPad &pad, int best)
{
    if (pad.type() != KVS310X_DEVICE)
        return;
    std::vector<unsigned char> image(208 * 288, 200);
    std::fill(image.begin(), image.begin() + 208 * 100, static_cast<unsigned char>(10));
    pad.driver.sendFingerprint(image, best);
}

void setScreenDelay(OpenPad &pad, int milliseconds)
{
    reinterpret_cast<decltype(&KVSIM_SetScreenDelay)>(pad.driver.control("KVSIM_SetScreenDelay"))(milliseconds);
}

/// After all that the pad still takes a signature, point for point.
void expectStillSound(OpenPad &pad)
{
    pad->SignPadEventCallback(pad.type(), nullptr);
    pad->Clear(pad.type());
    ASSERT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
    pad.driver.send(stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.5, 0.9, 0.5}, {0.9, 0.1, 0.5}}));
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 4);
}

void signBesideCalls(const PadCase &padCase, const std::vector<KVSIM_PACKET> &packets, int rounds, long atLeast)
{
    OpenPad pad(padCase, 60, 40);
    ASSERT_TRUE(pad.isOpen());
    setScreenDelay(pad, 0);
    EveryCall everyCall(padCase, packets);
    PenThread pen(pad.driver, packets, std::chrono::milliseconds(5));
    for (int round = 0; round < rounds || pen.delivered() < atLeast; ++round) {
        everyCall();
        sendFingerprints(pad, 1 + round);
        if (QWidget *widget = pad.widget())
            widget->resize(40 + round % 50, 60 - round % 30);
        QApplication::processEvents();
    }
    pen.stop();
    EXPECT_GT(everyCall.wholeAnswers(), 0);
    expectStillSound(pad);
}

} // namespace

TEST_P(SigningBesideCalls, KeepsEveryAnswerWhole)
{
    signBesideCalls(GetParam(), m_packets, kRounds, 10 * kPackets);
}

TEST_P(SigningBesideCalls, KeepsEveryAnswerWholeWithTheLogOn)
{
    const LogForNow log(true);
    signBesideCalls(GetParam(), m_packets, 2, kPackets);
}

TEST_P(SigningBesideCalls, TakesTheLogBeingSwitchedOnAndOff)
{
    const LogForNow log(false);
    OpenPad pad(GetParam(), 60, 40);
    PenThread pen(pad.driver, m_packets);
    for (bool on = true; pen.delivered() < kPackets; on = !on) {
        __atomic_store_n(&g_bEnableLog, on, __ATOMIC_RELAXED);
        pad->GetTotalInkPointsNumber(m_type);
    }
    pen.stop();
    expectStillSound(pad);
}

TEST_P(SigningBesideCalls, ClosesAndOpensAgainInTheMiddleOfAStroke)
{
    SimulatedDriver driver;
    PenThread pen(driver, m_packets);
    for (int i = 0; i < 5; ++i) {
        const long before = pen.delivered();
        OpenPad pad(GetParam(), 60, 40);
        ASSERT_TRUE(pad.isOpen());
        pen.waitFor(before + 50);
        EXPECT_EQ(pad->UnInitialDevice(m_type), ARI_SUCCESS);
        EXPECT_FALSE(pad.driver.isOpen());
        EXPECT_EQ(pad->GetTotalInkPointsNumber(m_type), ARI_INK_EMPTY);
    }
    pen.stop();
}

TEST_P(SigningBesideCalls, TakesPacketsThatComeBeforeOpeningIsDone)
{
    SimulatedDriver driver;
    const auto setPackets =
        reinterpret_cast<decltype(&KVSIM_SetReadingThreadPackets)>(driver.control("KVSIM_SetReadingThreadPackets"));
    OpenPad first(GetParam());
    ASSERT_EQ(first->UnInitialDevice(m_type), ARI_SUCCESS);
    setPackets(m_packets.data(), static_cast<int>(m_packets.size()));
    ASSERT_TRUE(first->InitialDevice(m_type, first.window(), 0, 0, 60, 40));
    EXPECT_EQ(first->GetTotalInkPointsNumber(m_type), ARI_INK_EMPTY) << "there was no list to store them in yet";
    expectStillSound(first);
}

INSTANTIATE_TEST_SUITE_P(AllPads, SigningBesideCalls, testing::ValuesIn(allPads()), padCaseName);
