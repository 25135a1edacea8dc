// Ink converted to CSV, JSON or InkML and back loses not a byte, and other programs read the same points.
#include "kvsign.h"

#include <limits>

namespace {

using namespace kvsign;

const char *const kFormats[] = {"csv", "json", "inkml"};

/// Reads a file with Python's own readers and prints its points as listed() does.
const char kReader[] = R"(
import csv, json, sys, xml.etree.ElementTree as tree
name = sys.argv[1]
if name.endswith('.csv'):
    rows = list(csv.DictReader(open(name, newline='')))
    order = ['x', 'y', 'pressure', 'stroke_end', 'tick_ms', 'time_s']
    points = [[int(row[key]) for key in order] for row in rows]
elif name.endswith('.json'):
    content = json.load(open(name))
    assert content['fields'] == ['x', 'y', 'pressure', 'strokeEnd', 'tick', 'time'], content['fields']
    points = [[int(value) for value in point] for point in content['points']]
else:
    space = '{http://www.w3.org/2003/InkML}'
    ink = tree.parse(name).getroot()
    assert ink.tag == space + 'ink', ink.tag
    form, = ink.iter(space + 'traceFormat')
    channels = [channel.get('name') for channel in form]
    points = []
    for trace in ink.iter(space + 'trace'):
        for text in trace.text.split(','):
            value = dict(zip(channels, text.split()))
            points.append([int(value['X']), int(value['Y']), int(value['F']), {'T': 0, 'F': 1}[value['S']],
                           int(value['T']), int(value['clock'])])
for point in points:
    print(*point)
)";

class KvsignLossless : public Place
{
protected:
    void comesBack(const QString &ink) const
    {
        const QByteArray content = read(ink);
        const QString points = listed(pointsOf(content));
        ASSERT_FALSE(points.isEmpty());
        for (const char *format : kFormats) {
            const QString other = QString("other.%1").arg(format);
            runWell({"convert", ink, other});
            EXPECT_EQ(python(kReader, {file(other)}).toStdString(), points.toStdString()) << format;
            runWell({"convert", other, "back.ink"});
            EXPECT_EQ(read("back.ink"), content) << ink.toStdString() << " by way of " << format;
        }
    }
};

TEST_F(KvsignLossless, NeedsNothingForAPicture)
{
    const Points dot = {{1000, 500, 100, false, 10000, 77}, {1000, 500, 100, true, 10010, 77}};
    write("dot.ink", record(dot));
    EXPECT_EQ(run({"convert", "--clip", "20", "dot.ink", "dot.png"}).exitCode, 1) << "there is no line to cut to";
    runWell({"convert", "dot.ink", "dot.inkml"});
    runWell({"convert", "dot.inkml", "back.ink"});
    EXPECT_EQ(listed(pointsOf(read("back.ink"))).toStdString(), listed(dot).toStdString());
    EXPECT_FALSE(runJson({"convert", "dot.ink", "dot.csv"}).contains("width"));
}

TEST_F(KvsignLossless, BringsBackEveryBundledRecording)
{
    for (const QString &name : QDir(kRecordings).entryList({"*.kvrec"})) {
        const char *model = name.contains("finger") ? "S310X" : name.size() % 2 == 0 ? "S300" : "R800";
        capture(QFileInfo(name).completeBaseName(), model, {"captured.ink"});
        comesBack("captured.ink");
    }
}

TEST_F(KvsignLossless, BringsBackWhateverARecordCanHold)
{
    constexpr int kLeast = std::numeric_limits<qint16>::min(), kMost = std::numeric_limits<qint16>::max();
    constexpr quint64 kLastTick = std::numeric_limits<quint64>::max();
    constexpr qint64 kFirstTime = std::numeric_limits<qint64>::min(), kLastTime = std::numeric_limits<qint64>::max();
    write("extreme.ink",
        record({{kLeast, kMost, 0, false, 0, kFirstTime}, {kMost, kLeast, kMost, false, kLastTick, kLastTime},
            {0, 0, kLeast, true, 1, 0}, {-1, -1, -1, true, kLastTick - 1, -1}, {5, 5, 5, false, 1ULL << 63, 1}}));
    comesBack("extreme.ink");
    write("one.ink", record({{1, 2, 3, false, 4, 5}}));
    comesBack("one.ink");
    write("end.ink", record({{1, 2, 3, true, 4, 5}}));
    comesBack("end.ink");
}

TEST_F(KvsignLossless, GoesFromEachFormatToEachOther)
{
    capture("initials", "M450", {"a.ink"});
    runWell({"convert", "a.ink", "a.csv"});
    runWell({"convert", "a.csv", "a.json"});
    runWell({"convert", "a.json", "a.inkml"});
    runWell({"convert", "a.inkml", "b.csv"});
    runWell({"convert", "b.csv", "b.inkml"});
    runWell({"convert", "b.inkml", "b.json"});
    runWell({"convert", "b.json", "b.ink"});
    EXPECT_EQ(read("a.ink"), read("b.ink"));
    EXPECT_EQ(read("a.csv"), read("b.csv"));
    EXPECT_EQ(read("a.json"), read("b.json"));
    EXPECT_EQ(read("a.inkml"), read("b.inkml"));
}

TEST_F(KvsignLossless, WritesWhatTheLibraryDecodes)
{
    capture("initials", "S300", {"a.csv"});
    runWell({"convert", "a.csv", "a.ink"});
    const QByteArray text = read("a.ink");
    const Points points = pointsOf(text);
    ASSERT_TRUE(KVS300_InitialDevice(KVS300_DEVICE, nullptr, 0, 0, 100, 100));
    EXPECT_EQ(KVS300_Base64Decode(KVS300_DEVICE, EBITI_INK, text.constData(), nullptr), ARI_SUCCESS);
    ASSERT_EQ(KVS300_GetTotalDecodeInkPointsNumber(KVS300_DEVICE), static_cast<int>(points.size()));
    for (int i = 0; i < static_cast<int>(points.size()); ++i) {
        const auto field = [&](int id) { return KVS300_GetDecodeInkPointData(KVS300_DEVICE, i, id); };
        const Point &point = points[static_cast<size_t>(i)];
        ASSERT_EQ(field(INKDATATYPE_X), point.x);
        ASSERT_EQ(field(INKDATATYPE_Y), point.y);
        ASSERT_EQ(field(INKDATATYPE_STROKEEND), point.end ? 1 : 0);
    }
    KVS300_UnInitialDevice(KVS300_DEVICE);
}

TEST_F(KvsignLossless, WorksInAPipe)
{
    capture("initials", "S300", {"a.ink"});
    const QString command = QString("cat a.ink | %1 convert - - --to csv | %1 convert --from csv --to json - - "
                                    "| %1 convert --to inkml - - | %1 convert - b.ink")
                                .arg(KV_KVSIGN);
    const CommandResult result = runProgram({"sh", "-c", command}, file("."));
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.output + result.errors, "");
    EXPECT_EQ(read("a.ink"), read("b.ink"));
}

} // namespace
