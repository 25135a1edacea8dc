/// @file
/// The recorder in processes that fork or exit, and in front of real drivers that others could replace.
#include "forkedchild.h"
#include "recordeddriver.h"

#include <atomic>
#include <sys/stat.h>
#include <sys/wait.h>

namespace {

/// A real driver in a folder of its own, so that a test can let others write to either.
class RealDriverOfOthers : public RecorderAlone
{
protected:
    RealDriverOfOthers()
    {
        unsetenv("KVREC_TRUST");
        std::filesystem::create_directory(path("pad"));
        std::filesystem::copy_file(m_simulator / "libkvsignpaddrv.so", path("pad/real.so"));
        setModes(0755, 0755);
        setenv("KVREC_DRIVER", path("pad/real.so").c_str(), 1);
    }

    void setModes(mode_t folder, mode_t file) const
    {
        chmod(path("pad").c_str(), folder);
        chmod(path("pad/real.so").c_str(), file);
    }

    /// What the recorder says when it refuses the driver; empty when it loads it. This happens in a child process,
    /// because the recorder keeps a driver once it has loaded it.
    std::string refusal()
    {
        testing::internal::CaptureStderr();
        const pid_t child = fork();
        if (child == 0) {
            const int result = open(KVS300_DEVICE);
            _exit(result == 0 ? 0 : result == -1 ? 1 : 2);
        }
        int status = -1;
        waitpid(child, &status, 0);
        std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(status, said.empty() ? 0 : 0x100) << said;
        return said;
    }
};

TEST_F(RealDriverOfOthers, IsRefusedUnlessItIsTrusted)
{
    EXPECT_EQ(refusal(), "");
    for (const auto &[folder, file] : {std::pair<mode_t, mode_t>(0777, 0755), {01777, 0755}, {0755, 0757}}) {
        setModes(folder, file);
        const std::string weak = path(file == 0755 ? "pad" : "pad/real.so");
        const std::string said = refusal();
        EXPECT_EQ(said.rfind("kvsignpaddrv: " + weak + " can be written by everybody; cure: chmod o-w ", 0), 0u)
            << said;
        EXPECT_NE(said.find("it is not loaded (KVREC_TRUST=1 loads it all the same)\n"), std::string::npos) << said;
        setenv("KVREC_TRUST", "0", 1);
        EXPECT_EQ(refusal(), said);
        setenv("KVREC_TRUST", "1", 1);
        EXPECT_EQ(refusal(), "");
        unsetenv("KVREC_TRUST");
    }
    setModes(0755, 0755);
    EXPECT_EQ(refusal(), "");
}

TEST_F(RealDriverOfOthers, IsRefusedWithoutAFolder)
{
    setenv("KVREC_DRIVER", "real.so", 1);
    const std::string said = refusal();
    EXPECT_NE(said.find("real.so: who may write it is not known without its folder"), std::string::npos) << said;
}

/// Packets come as fast as possible, so that most forks happen while another thread holds the recording's lock.
TEST_F(RecorderAlone, AForkedChildRecordsNothingAndWaitsForNobody)
{
    ASSERT_EQ(open(KVS300_DEVICE), 0);
    std::atomic<bool> isOver{false};
    std::thread pen([&] {
        const std::vector<KVSIM_PACKET> packets(100, {1, 2, 3, 1});
        while (!isOver)
            real.SendPackets(packets.data(), 100);
    });
    for (int i = 0; i < 20; ++i) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(60);
            std::exit(i % 2 == 0 ? driver.UnInitial() : 0);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    isOver = true;
    pen.join();
    EXPECT_EQ(driver.UnInitial(), 0);
    const std::string text = wholeFile("pen.kvrec");
    const auto first = text.find("UnInitial -> 0");
    EXPECT_NE(first, std::string::npos);
    EXPECT_EQ(text.find("UnInitial", first + 1), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path("pen-2.kvrec")));
}

/// The process exits without closing the pad.
TEST_F(RecorderAlone, AProcessThatExitsWithThePadOpenLeavesARecording)
{
    for (const bool hasPackets : {false, true}) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(60);
            open(KVS300_DEVICE);
            const KVSIM_PACKET packet{1, 2, 3, 1};
            if (hasPackets)
                real.SendPackets(&packet, 1);
            std::exit(0);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
        EXPECT_EQ(recorded(hasPackets ? "pen-2.kvrec" : "pen.kvrec").events.size(), hasPackets ? 1u : 0u);
    }
}

} // namespace
