// The styles of handwriting, from which recordings are made.
#include "fitting.h"
#include "recordingtext.h"
#include "styles.h"

#include <gtest/gtest.h>

namespace {

using namespace kvsim;

class EveryStyle : public testing::TestWithParam<std::string>
{
};

TEST_P(EveryStyle, IsWrittenAsAPadSendsIt)
{
    const Style &style = *styleOfName(GetParam());
    const std::vector<Sample> samples = writeByHand(style.plan(), style.manner, 5);
    ASSERT_FALSE(samples.empty());
    bool touches = false;
    double last = samples.front().timeMs;
    for (const Sample &sample : samples) {
        EXPECT_EQ(sample.state == Sample::Down, !touches);
        touches = sample.state != Sample::Up;
        EXPECT_GE(sample.timeMs, last);
        if (sample.state == Sample::Move) {
            EXPECT_LT(sample.timeMs - last, 8); // about 220 samples a second, at slightly uneven times
        }
        EXPECT_TRUE(sample.pressure >= 0 && sample.pressure <= 1) << sample.pressure;
        last = sample.timeMs;
    }
    EXPECT_FALSE(touches);
    EXPECT_LT(last - samples.front().timeMs, 8000);
}

TEST_P(EveryStyle, DependsOnTheSeedAlone)
{
    const Style &style = *styleOfName(GetParam());
    const ModelRow &pad = *modelOfName("S310X");
    const auto text = [&](unsigned seed) {
        return write({"S310X", {}, fitIntoPad(writeByHand(style.plan(), style.manner, seed), pad, 0.8, 0.8)});
    };
    EXPECT_EQ(text(1), text(1));
    EXPECT_NE(text(1), text(2));
}

std::vector<std::string> allStyles()
{
    std::vector<std::string> names;
    for (std::size_t i = 0; !styleNames(i).empty(); ++i)
        names.emplace_back(styleNames(i));
    return names;
}

INSTANTIATE_TEST_SUITE_P(Styles, EveryStyle, testing::ValuesIn(allStyles()), [](const auto &row) {
    std::string name = row.param;
    for (char &c : name)
        c = c == '-' ? '_' : c;
    return name;
});

} // namespace
