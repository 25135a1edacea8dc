// What each function answers while no instance is open, with its enter and its leave line and nothing between.
#include "exportedcalls_table.h"
#include "openpad.h"

namespace {

class WithoutInstance : public testing::TestWithParam<Family>
{
};

void expectNoInstanceResults(const Family &family)
{
    for (const ExportedCall &row : exportedCalls(family)) {
        if (row.function == "InitialDevice")
            continue;
        SCOPED_TRACE(row.name());
        const LogTail log;
        const LogOn on;
        callBuffers = freshCallBuffers();
        EXPECT_EQ(row.call(family.type), row.withoutInstance);
        EXPECT_STREQ(callBuffers.text, "VGV4dA==");
        EXPECT_EQ(callBuffers.point.nX, 1);
        const std::vector<LogEntry> entries = log.entries();
        ASSERT_EQ(entries.size(), 2u);
        EXPECT_EQ(entries[0], (LogEntry{row.key(), row.enterText(family.type)}));
        EXPECT_EQ(entries[1].key, row.key());
        EXPECT_TRUE(matches(entries[1].text, row.leaveWithout)) << entries[1].text << " is not " << row.leaveWithout;
    }
}

TEST_P(WithoutInstance, EachFunctionAnswersAsItsKindDoes)
{
    expectNoInstanceResults(GetParam());
}

TEST_P(WithoutInstance, IsTheStateAgainAfterClosing)
{
    for (const bool headless : {true, false}) {
        const OpenPad pad(PadCase{&GetParam(), headless});
        ASSERT_TRUE(pad.isOpen());
    }
    expectNoInstanceResults(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Families, WithoutInstance, testing::ValuesIn(kFamilies),
    [](const testing::TestParamInfo<Family> &family) { return std::string(family.param.prefix, 6); });

} // namespace
