// A block of an SVG is learned from two texts, and only from texts that differ by just that block.
#include "fastways/svgblocks.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kHead = "<svg>\n<first/>\n";
const QByteArray kEnd = "</svg>\n";

/// What a marked line with a width might look like in some Qt's text.
const QByteArray kLine = "<line w=\"12345.5\" x=\"23451.5\" y=\"34512.5\" to=\"45123.5,51234.5\"/>\n";

TEST(SvgBlock, IsTheTextWithANewLinesNumbers)
{
    SvgBlock block;
    ASSERT_TRUE(block.take(kHead + kEnd, kHead + kLine + kEnd, kEnd.size()));
    QByteArray text = kHead;
    block.append(text, {{1, 2.5}, {-3, 1000000}, 0.25});
    block.append(text, {{0, 0}, {7, 8}, 9});
    EXPECT_EQ(text,
        kHead + "<line w=\"0.25\" x=\"1\" y=\"2.5\" to=\"-3,1e+06\"/>\n"
            + "<line w=\"9\" x=\"0\" y=\"0\" to=\"7,8\"/>\n");
}

struct Case
{
    const char *name;
    QByteArray without;
    QByteArray with;
};

class NoSvgBlock : public testing::TestWithParam<Case>
{
};

TEST_P(NoSvgBlock, IsRefused)
{
    EXPECT_FALSE(SvgBlock().take(GetParam().without, GetParam().with, kEnd.size()));
}

INSTANTIATE_TEST_SUITE_P(Texts, NoSvgBlock,
    testing::Values(Case{"NothingIsAdded", kHead + kEnd, kHead + kEnd},
        Case{"SomethingIsMissing", kHead + kLine + kEnd, kHead + kEnd},
        Case{"TheHeadIsAnother", kHead + kEnd, "<SVG>\n<first/>\n" + kLine + kEnd},
        Case{"TheEndIsAnother", kHead + kEnd, kHead + kLine + "</SVG>\n"},
        Case{"TheLineHasOneNumber", kHead + kEnd, kHead + "<line w=\"12345.5\"/>\n" + kEnd}),
    [](const auto &shown) { return std::string(shown.param.name); });

} // namespace
