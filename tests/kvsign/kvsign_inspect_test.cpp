// kvsign inspect: its numbers for signatures that were counted by hand.
#include "kvsign.h"

#include <QJsonArray>

#include <limits>

namespace {

using namespace kvsign;

class KvsignInspect : public Place
{
protected:
    QJsonObject inspected(const Points &points, const QStringList &options = {}) const
    {
        write("a.ink", record(points));
        return runJson(QStringList{"inspect", "a.ink"} + options);
    }
};

// The first stroke is a corner with sides of 300 and 400 units, with a gap of 70 ms in it. The second one begins a
// second later and is a line of 500 units.
const Points kTwoStrokes = {{1000, 500, 100, false, 10000, 77}, {1300, 500, 200, false, 10005, 77},
    {1300, 900, 300, false, 10075, 77}, {1300, 900, 999, true, 10080, 77}, {400, 600, 50, false, 11080, 78},
    {700, 1000, 150, false, 11085, 78}, {700, 1000, 150, true, 11090, 78}};

TEST_F(KvsignInspect, CountsWhatIsThere)
{
    const QJsonObject result = inspected(kTwoStrokes);
    EXPECT_EQ(result["points"].toInt(), 7);
    EXPECT_EQ(result["strokes"].toInt(), 2);
    EXPECT_EQ(result["taps"].toInt(), 0);
    EXPECT_EQ(result["durationMs"].toInt(), 1090);
    EXPECT_DOUBLE_EQ(result["inkLength"].toDouble(), 300 + 400 + 500);
    EXPECT_EQ(result["x"], QJsonValue(QJsonObject({{"min", 400}, {"max", 1300}})));
    EXPECT_EQ(result["y"], QJsonValue(QJsonObject({{"min", 500}, {"max", 1000}})));
    EXPECT_EQ(result["pressure"]["min"].toInt(), 50);
    EXPECT_EQ(result["pressure"]["max"].toInt(), 300);
    EXPECT_DOUBLE_EQ(result["pressure"]["mean"].toDouble(), (100 + 200 + 300 + 50 + 150) / 5.0);
    EXPECT_EQ(result["pauses"].toInt(), 1);
    EXPECT_EQ(result["pauseMs"].toInt(), 1000);
    EXPECT_EQ(result["gaps"].toInt(), 1);
    EXPECT_EQ(result["longestGaps"][0]["milliseconds"].toInt(), 70);
    EXPECT_EQ(result["longestGaps"][0]["beforePoint"].toInt(), 3);
    EXPECT_EQ(result["written"].toInt(), 77);
    EXPECT_EQ(result["smallestPad"].toString(), "S300");
    EXPECT_FALSE(result["onlyADot"].toBool());
    EXPECT_EQ(result["notes"].toArray(), QJsonArray());
    EXPECT_EQ(inspected(kTwoStrokes, {"--gap", "100"})["gaps"].toInt(), 0);
    EXPECT_EQ(inspected(kTwoStrokes, {"--gap", "4"})["gaps"].toInt(), 5);
}

TEST_F(KvsignInspect, SaysItInWords)
{
    write("a.ink", record(kTwoStrokes));
    const QString text = runWell({"inspect", "a.ink"}, {{"TZ", "UTC"}}).output;
    for (const char *line :
        {"points      7\n", "strokes     2\n", "duration    1.090 s\n", "written     1970-01-01 00:01:17\n",
            "pauses      1 between strokes, together 1.000 s; the longest 1.000 s, before point 5\n",
            "gaps        1 inside strokes\n            0.070 s before point 3\n",
            "ink length  1 200 raw units, 0.52 times the width of an S300\n",
            "box         x 400 to 1300, y 500 to 1000\n", "pressure    50 to 300, mean 160\n"})
        EXPECT_TRUE(text.contains(line)) << line << "in\n" << text.toStdString();
    EXPECT_FALSE(text.contains("note"));
}

TEST_F(KvsignInspect, SeesADot)
{
    const QJsonObject tap = inspected({{1500, 900, 100, false, 0, 0}, {1500, 900, 100, true, 5, 0}});
    EXPECT_TRUE(tap["onlyADot"].toBool());
    EXPECT_EQ(tap["taps"].toInt(), 1);
    EXPECT_TRUE(tap["notes"].toArray().contains("it is only a dot"));
    EXPECT_TRUE(tap["notes"].toArray().contains("it draws no line"));
    // Ink counts as a dot up to a hundredth of the width of an S300, which is 23 units.
    EXPECT_TRUE(inspected({{1500, 900, 1, false, 0, 0}, {1523, 923, 1, true, 5, 0}})["onlyADot"].toBool());
    EXPECT_FALSE(inspected({{1500, 900, 1, false, 0, 0}, {1524, 900, 1, true, 5, 0}})["onlyADot"].toBool());
}

TEST_F(KvsignInspect, SeesWhatIsOdd)
{
    const QJsonArray open = inspected({{1500, 900, 1, false, 50, 0}, {1600, 900, 1, false, 40, 0}})["notes"].toArray();
    EXPECT_TRUE(open.contains("the last stroke is not closed: the pen was not lifted"));
    EXPECT_TRUE(open.contains("the time goes backwards at 1 points"));
    const QJsonArray far =
        inspected({{32000, -900, 1, false, 0, 0}, {1600, 900, 1, false, 5, 0}, {1600, 900, 1, true, 9, 0}})["notes"]
            .toArray();
    EXPECT_EQ(far, QJsonArray({"points lie outside of the writing area of every model"}));
}

TEST_F(KvsignInspect, DoesNotOverflowOnHostileTicks)
{
    constexpr quint64 kLast = std::numeric_limits<quint64>::max();
    constexpr double kMost = 9223372036854775807.0;
    const QJsonObject result = inspected({{1500, 900, 1, true, 0, std::numeric_limits<qint64>::max()},
        {1500, 900, 1, true, kLast, 0}, {1500, 900, 1, true, 1000, 0}, {1500, 900, 1, true, kLast, 0}});
    EXPECT_EQ(result["durationMs"].toDouble(), kMost);
    EXPECT_EQ(result["pauseMs"].toDouble(), kMost);
    EXPECT_TRUE(result["notes"].toArray().contains("the time goes backwards at 1 points"));
    const QString text = runWell({"inspect", "a.ink"}).output;
    EXPECT_FALSE(text.contains("-")) << text.toStdString();
    EXPECT_TRUE(text.contains("written     in second 9223372036854775807, outside of the years 1 to 9999\n"))
        << text.toStdString();
}

TEST_F(KvsignInspect, KeepsTheTenLongestGaps)
{
    Points points;
    quint64 tick = 0;
    for (int i = 0; i < 30; ++i)
        points.push_back({300 + 50 * i, 500, 10, false, tick += static_cast<quint64>(100 + i % 7), 0});
    const QJsonObject result = inspected(points);
    EXPECT_EQ(result["gaps"].toInt(), 29);
    EXPECT_EQ(result["longestGaps"].toArray().size(), 10);
    EXPECT_EQ(result["longestGaps"][0]["milliseconds"].toInt(), 106);
    EXPECT_EQ(result["longestGaps"][0]["beforePoint"].toInt(), 7);
}

} // namespace
