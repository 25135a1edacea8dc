// No call leaves a file open: neither the log, which each line opens, nor what is saved or encoded.
#include "everycall.h"
#include "logfile.h"
#include "openfiles.h"

namespace {

class OpenFiles : public testing::TestWithParam<PadCase>
{
protected:
    /// Opens a pad, makes every call with ink and, where there is a sensor, a fingerprint, and closes it.
    static void callEverything()
    {
        OpenPad pad(GetParam(), 60, 40);
        ASSERT_TRUE(pad.isOpen());
        const std::vector<KVSIM_PACKET> packets = stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.5, 0.9, 0.5}});
        pad.driver.send(packets);
        if (pad.type() == KVS310X_DEVICE)
            pad.driver.sendFingerprint(std::vector<unsigned char>(208 * 288, 100), 1);
        EveryCall everyCall(GetParam(), packets);
        everyCall();
        EXPECT_GT(everyCall.wholeAnswers(), 5);
    }
};

INSTANTIATE_TEST_SUITE_P(Pads, OpenFiles, testing::ValuesIn(allPads()), padCaseName);

TEST_P(OpenFiles, AreAsManyAfterEveryCallAsBefore)
{
    const LogOn logged;
    callEverything(); // what Qt and the driver open once
    const std::vector<std::string> before = openFiles();
    callEverything();
    EXPECT_EQ(openFiles(), before);
}

} // namespace
