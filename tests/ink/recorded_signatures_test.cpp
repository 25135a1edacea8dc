// Recorded signatures, played by the driver: the canvas is what the stored points say, whatever the hand did.
#include "inkpicture.h"

#include <cstdlib>

namespace {

struct Recorded
{
    PadCase pad;
    const char *name;
};

void PrintTo(const Recorded &recorded, std::ostream *out)
{
    *out << recorded.pad.className() << " " << recorded.name;
}

std::vector<Recorded> everyRecordingOnEveryPad()
{
    std::vector<Recorded> all;
    for (const PadCase &pad : allPads()) {
        for (const char *name : {"signature", "initials", "tick-and-cross", "dots-and-dashes", "long-signature"})
            all.push_back({pad, name});
    }
    return all;
}

class RecordedSignatures : public testing::TestWithParam<Recorded>
{
protected:
    RecordedSignatures()
    {
        // Loading the driver for the first time switches recordings off.
        SimulatedDriver();
        setenv("KVSIM_RECORDING", GetParam().name, 1);
        setenv("KVSIM_SPEED", "max", 1);
        // The pad is open, and a widget has its size, before the first packet comes.
        setenv("KVSIM_DELAY_MS", "3600000", 1);
    }
    ~RecordedSignatures() override
    {
        setenv("KVSIM_RECORDING", "none", 1);
        unsetenv("KVSIM_SPEED");
        unsetenv("KVSIM_DELAY_MS");
    }
};

// A stored point is a packet again but for its status, which its place in the list tells.
std::vector<KVSIM_PACKET> packetsOfStoredPoints(const OpenPad &pad)
{
    std::vector<KVSIM_PACKET> packets;
    const int count = pad->GetTotalInkPointsNumber(pad.type());
    bool inStroke = false;
    for (int i = 0; i < count; ++i) {
        INKPOINTDATA point{i, 0, 0, 0, false};
        EXPECT_EQ(pad->GetInkPointData(pad.type(), point), ARI_SUCCESS);
        const int status = point.bStrokeEnd ? KVSPDARI_PS_PEN_UP
            : inStroke                      ? KVSPDARI_PS_PEN_MOVE
                                            : KVSPDARI_PS_PEN_DOWN;
        packets.push_back({point.nX, point.nY, point.nPressureValue, status});
        inStroke = !point.bStrokeEnd;
    }
    return packets;
}

TEST_P(RecordedSignatures, AreDrawnAsStored)
{
    OpenPad pad(GetParam().pad, 500, 260);
    ASSERT_TRUE(pad.isOpen());
    ASSERT_EQ(reinterpret_cast<decltype(&KVSIM_EndDelay)>(pad.driver.control("KVSIM_EndDelay"))(), 0);
    ASSERT_EQ(
        reinterpret_cast<decltype(&KVSIM_WaitUntilPlayed)>(pad.driver.control("KVSIM_WaitUntilPlayed"))(30000), 1);
    const std::vector<KVSIM_PACKET> packets = packetsOfStoredPoints(pad);
    ASSERT_GT(packets.size(), 50u);
    EXPECT_EQ(packets.back().status, KVSPDARI_PS_PEN_UP);
    InkPicture picture(GetParam().pad, 500, 260);
    picture.play(packets);
    EXPECT_GT(inkPixels(picture.image), 300);
    EXPECT_EQ(difference(pad.canvas(), picture.image), "");
}

INSTANTIATE_TEST_SUITE_P(AllPads, RecordedSignatures, testing::ValuesIn(everyRecordingOnEveryPad()),
    [](const testing::TestParamInfo<Recorded> &recorded) {
        std::string name = std::string(recorded.param.pad.className()) + "_" + recorded.param.name;
        std::replace(name.begin(), name.end(), '-', '_');
        return name;
    });

} // namespace
