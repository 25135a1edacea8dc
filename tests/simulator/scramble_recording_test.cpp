/// @file
/// kv-scramble-recording, which makes an existing recording safe to pass on.
#include "greyimage.h"
#include "recording.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

using namespace kvsim;
namespace fs = std::filesystem;

class ScrambleRecording : public testing::Test
{
protected:
    ScrambleRecording()
    {
        char name[] = "/tmp/kv-scramble-XXXXXX";
        m_directory = mkdtemp(name);
    }
    ~ScrambleRecording() override { fs::remove_all(m_directory); }

    std::string path(const std::string &name) const { return m_directory + "/" + name; }

    /// Runs the tool and returns its exit code. Its messages go to the file "said".
    int run(const std::string &arguments) const
    {
        const int status = std::system((KV_SCRAMBLE " " + arguments + " 2>" + path("said")).c_str());
        return WEXITSTATUS(status);
    }

    std::string file(const std::string &name) const
    {
        std::ifstream in(path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

private:
    std::string m_directory;
};

TEST_F(ScrambleRecording, KeepsAllButTheShapes)
{
    std::ofstream(path("pen.kvrec")) << "version: 2\nmodel: S310X\ntitle: Jo's name\n0 3000 4000 500 0\n"
                                        "5 3100 4100 600 1\nrepeat 6 2\nraw 7 9 9 99999 7\n"
                                        "fingerprint 8 thumb.pgm 62\nfingerprint 9 - 5\nunplug 10\n";
    ASSERT_EQ(run(path("pen.kvrec") + " " + path("out.kvrec")), 0);
    std::ifstream in(path("out.kvrec"));
    const Recording recording = readRecording(in, "out");
    ASSERT_EQ(recording.events.size(), 7u);
    const std::int64_t times[] = {0, 5000, 6000, 7000, 8000, 9000, 10000};
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_EQ(recording.events[i].timeUs, times[i]);
    for (const auto &[index, place] : {std::pair{0, 3000}, {1, 3100}, {3, 9}})
        EXPECT_NE(recording.events[static_cast<std::size_t>(index)].packet.x, place);
    EXPECT_EQ(recording.events[1].packet.pressure, 600);
    EXPECT_EQ(recording.events[3].packet.pressure, 99999);
    EXPECT_EQ(recording.events[3].packet.status, 7);
    EXPECT_EQ(recording.events[4].file, "out.kvrec-finger.pgm");
    EXPECT_EQ(recording.events[4].score, 62);
    EXPECT_EQ(recording.events[5].file, "-");
    EXPECT_EQ(file("out.kvrec").find("Jo"), std::string::npos);
    std::ifstream finger(path("out.kvrec-finger.pgm"), std::ios::binary);
    EXPECT_EQ(readPgm(finger, "finger").pixels.size(), 59904u);
}

TEST_F(ScrambleRecording, RefusesWithAReason)
{
    std::ofstream(path("bad.kvrec")) << "version: 1\nmodel: S300\n0 1 2 3\n";
    std::ofstream(path("good.kvrec")) << "version: 1\nmodel: S300\n0 1 2 3 0\n";
    std::ofstream(path("there.kvrec")) << "mine";
    const std::string cases[][2] = {
        {path("bad.kvrec") + " " + path("out.kvrec"), path("bad.kvrec") + ":3: a pen packet is"},
        {path("none.kvrec") + " " + path("out.kvrec"), path("none.kvrec") + ": cannot be read"},
        {path("good.kvrec") + " " + path("there.kvrec"), path("there.kvrec") + ": is there already"},
        {path("good.kvrec") + " " + path("no/out.kvrec"), path("no/out.kvrec") + ": cannot be written"},
    };
    for (const auto &[arguments, reason] : cases) {
        EXPECT_EQ(run(arguments), 1) << arguments;
        EXPECT_EQ(file("said").rfind("kv-scramble-recording: " + reason, 0), 0u) << file("said");
    }
    EXPECT_EQ(file("there.kvrec"), "mine");
    EXPECT_FALSE(fs::exists(path("out.kvrec")));
    EXPECT_EQ(run(path("good.kvrec")), 2);
}

} // namespace
