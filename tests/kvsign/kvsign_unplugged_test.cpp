// kvsign capture notices that its pad is gone and says so. It keeps the ink only if it was told where to.
#include "kvsign.h"

#include <QJsonDocument>

namespace {

using namespace kvsign;

constexpr char kStroke[] = "0 612 840 310 0\n5 618 831 355 1\n10 630 835 360 1\n15 631 835 0 2\n";

class KvsignUnplugged : public Place
{
protected:
    CommandResult capture(const QByteArray &events, const QStringList &options) const
    {
        write("pen.kvrec", "version: 2\nmodel: S300\n" + events);
        return run(QStringList{"capture", "--model", "S300"} + options, {{"KVSIM_RECORDING", file("pen.kvrec")}});
    }
};

TEST_F(KvsignUnplugged, EndsAtOnceWithACodeOfItsOwn)
{
    const CommandResult result =
        capture(QByteArray(kStroke) + "20 900 900 300 0\nunplug 25\n", {"--timeout", "0", "--json", "x.ink", "x.png"});
    EXPECT_EQ(result.exitCode, 6) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("the S300 was unplugged before it was confirmed"));
    const QJsonObject answer = QJsonDocument::fromJson(result.output.toUtf8()).object();
    EXPECT_EQ(answer["result"].toString(), "unplugged");
    EXPECT_EQ(answer["points"].toInt(), 5);
    EXPECT_EQ(answer["strokes"].toInt(), 1);
    EXPECT_EQ(files(), QStringList("pen.kvrec"));
}

TEST_F(KvsignUnplugged, KeepsTheInkUnderAnotherName)
{
    const CommandResult result =
        capture(QByteArray(kStroke) + "unplug 20\n", {"--timeout", "0", "--unconfirmed", "half.ink", "x.ink"});
    EXPECT_EQ(result.exitCode, 6) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("what was written is in half.ink")) << testing::PrintToString(result);
    EXPECT_EQ(files(), QStringList({"half.ink", "pen.kvrec"}));
    const Points points = pointsOf(read("half.ink"));
    ASSERT_EQ(points.size(), 4U);
    EXPECT_EQ(points[1].x, 618);
    EXPECT_TRUE(points[3].end);
}

TEST_F(KvsignUnplugged, KeepsTheInkOfWhoDoesNotConfirm)
{
    const CommandResult result = capture(kStroke, {"--timeout", "5", "--unconfirmed", "half.csv", "x.ink"});
    EXPECT_EQ(result.exitCode, 4) << testing::PrintToString(result);
    EXPECT_EQ(files(), QStringList({"half.csv", "pen.kvrec"}));
}

TEST_F(KvsignUnplugged, LeavesNothingWhereNothingWasWritten)
{
    const CommandResult result = capture("unplug 1\n", {"--timeout", "0", "--unconfirmed", "half.ink", "x.ink"});
    EXPECT_EQ(result.exitCode, 6) << testing::PrintToString(result);
    EXPECT_EQ(files(), QStringList("pen.kvrec"));
}

// Some drivers never answer the question whether the pad is there, although it is, so silence from the start does not
// count as unplugged.
TEST_F(KvsignUnplugged, IsNotSaidOfAPadThatOnlyDoesNotAnswer)
{
    const QByteArray confirmed = "0 612 840 310 0\n5 618 831 355 1\n10 630 835 0 2\n1500 0 0 0 4\n";
    write("silent.kvrec", "version: 2\nmodel: S300\nanswer 0 GetDevicePartsVersion -5\n" + confirmed);
    const CommandResult result =
        run({"capture", "--model", "S300", "x.ink"}, {{"KVSIM_RECORDING", file("silent.kvrec")}, {"KVSIM_SPEED", "1"}});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(exists("x.ink"));
}

} // namespace
