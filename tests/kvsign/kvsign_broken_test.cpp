// Broken input: kvsign says what is wrong and where, and leaves nothing behind.
#include "kvsign.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>

#include <sys/stat.h>

namespace {

using namespace kvsign;

const Points kPoints = {{1, 2, 3, false, 4, 5}, {1, 2, 3, true, 6, 5}};

struct Broken
{
    const char *name;
    QByteArray content;
    const char *message;
};

const QByteArray kTitles = "x,y,pressure,stroke_end,tick_ms,time_s\n";
const QByteArray kInk = "<ink xmlns=\"http://www.w3.org/2003/InkML\">";
const QByteArray kFormat = "<traceFormat><channel name=\"X\"/><channel name=\"Y\"/><channel name=\"F\"/>"
                           "<channel name=\"T\"/></traceFormat>";

QByteArray flagged(int value)
{
    QByteArray bytes = recordBytes(kPoints);
    bytes[24 + 6] = static_cast<char>(value);
    return bytes.toBase64();
}

const Broken kBroken[] = {
    {"empty.ink", "", "empty.ink: there is no ink point in it"},
    {"nopoint.ink", "AA==", "nopoint.ink: there is no ink point in it"},
    {"letter.ink", "AAEA!AAA", "letter.ink: \"!\" at byte 4 is not part of a Base64 text"},
    {"binary.ink", QByteArray("AAAA\0AAA", 8), "binary.ink: a byte of value 0 at byte 4"},
    {"cut.ink", record(kPoints).left(41), "cut.ink: the Base64 text is cut off at byte 41"},
    {"short.ink", record(kPoints).left(40), "short.ink: the record ends inside point 2: 6 bytes where a point of 24"},
    {"noend.ink", recordBytes(kPoints).left(48).toBase64(), "noend.ink: the record ends inside point 3: 0 bytes"},
    {"after.ink", record(kPoints) + "AAAA", "after.ink: \"A\" at byte 68 is not part of a Base64 text that has ended"},
    {"flag.ink", flagged(7), "flag.ink: the stroke end of point 2 is 7, not 0 or 1, at byte 30 of the record"},
    {"empty.csv", "", "empty.csv: there is no ink point in it"},
    {"titles.csv", kTitles, "titles.csv: there is no ink point in it"},
    {"column.csv", "x,pressure,stroke_end,tick_ms\n", "column.csv:1: the column y is missing"},
    {"twice.csv", "x,x,y,pressure,stroke_end,tick_ms,time_s\n", "twice.csv:1: the column x is there twice"},
    {"unknown.csv", "x,y,pressure,stroke_end,tick_ms,when\n", "unknown.csv:1: there is no column \"when\""},
    {"cells.csv", kTitles + "1,2,3,0,4,5\n1,2,3,0,4\n", "cells.csv:3: 5 cells below 6 names"},
    {"range.csv", kTitles + "1,2,40000,0,4,5\n", "range.csv:2: pressure is 40000, a record holds -32768 to 32767"},
    {"word.csv", kTitles + "1,two,3,0,4,5\n", "word.csv:2: y is \"two\", not a number"},
    {"comma.csv", kTitles + "1,2,5,3,0,4,5\n", "comma.csv:2: 7 cells below 6 names"},
    {"exponent.csv", kTitles + "1,2,3,0,4,1e999999999\n",
        "exponent.csv:2: time_s is 1e999999999, a record holds -9223"},
    {"infinite.csv", kTitles + "1,inf,3,0,4,5\n", "infinite.csv:2: y is \"inf\", not a number"},
    {"separator.csv", "sep=;\n", "separator.csv:1: the column x is missing"},
    {"negative.csv", kTitles + "1,2,3,0,-4,5\n",
        "negative.csv:2: tick_ms is -4, a record holds 0 to 18446744073709551615"},
    {"flag.csv", kTitles + "1,2,3,2,4,5\n", "flag.csv:2: stroke_end is \"2\", not 0 or 1"},
    {"line.csv", kTitles + QByteArray(5000, '1') + "\n", "line.csv:2: the line is too long for a point"},
    {"list.json", "[1, 2]", "list.json:1:1: there is \"[\" where a \"{\" is expected"},
    {"nothing.json", "{\"version\": 1}", "nothing.json:1:14: the object has no \"points\""},
    {"version.json", "{\"version\": 2, \"points\": []}",
        "version.json:1:13: the version is \"2\", which cannot be read"},
    {"format.json", "{\"format\": \"x\", \"points\": []}", "format.json:1:12: the format is \"x\""},
    {"empty.json", "{\"points\": []}", "empty.json: there is no ink point in it"},
    {"cut.json", "{\"points\": [\n [1, 2, 3, false,", "cut.json:2:18: point 1: the tick is expected"},
    {"more.json", "{\"points\": [[1,2,3,0,4,5,6]]}", "more.json:1:25: point 1 has more than 6 values"},
    {"range.json", "{\"points\": [\n[-40000,2,3,0,4,5]]}", "range.json:2:2: point 1: x is -40000"},
    {"string.json", "{\"points\": [\n[\"1\",2,3,0,4,5]]}", "string.json:2:2: point 1: the x is expected"},
    {"after.json", "{\"points\": [[1,2,3,0,4,5]]} {}", "after.json:1:29: something follows the object"},
    {"fields.json", "{\"fields\": [\"x\", \"y\"], \"points\": []}", "the field pressure is missing"},
    {"field.json", "{\"fields\": [\"z\"], \"points\": []}", "field.json:1:13: there is no field \"z\""},
    {"comma.json", "{\"points\": [[1,2,3,0,4,5] [1,2,3,0,4,5]]}", "comma.json:1:27: there is \"[\" where a \",\""},
    {"escape.json", "{\"a\\q\": 1}", "escape.json:1:2: a string has an escape that JSON does not know"},
    {"deep.json", "{\"a\": " + QByteArray(200, '['), "deep.json:1:107: the brackets do not match, or are too many"},
    {"sign.json", "{\"points\" = []}", "sign.json:1:11: there is a character that JSON does not have there"},
    {"root.inkml", "<html/>", "root.inkml:1: the root is \"html\", not InkML's \"ink\""},
    {"space.inkml", "<ink xmlns='urn:another'/>", "space.inkml:1: the root is \"ink\", not InkML's \"ink\""},
    {"empty.inkml", kInk + "</ink>", "empty.inkml: there is no ink point in it"},
    {"cut.inkml", kInk + kFormat + "\n<trace>1 2 3 4", "cut.inkml:2:"},
    {"tag.inkml", kInk + "\n</trace>", "tag.inkml:2:"},
    {"format.inkml", kInk + "<traceFormat><channel name='Y'/></traceFormat><trace>1 2</trace></ink>",
        "format.inkml:1: the trace format has no channel X"},
    {"plain.inkml", kInk + "<trace>1 2, 3</trace></ink>",
        "plain.inkml:1: in the trace that begins there, point 2: 1 values where the trace format has 2"},
    {"noname.inkml", kInk + "<traceFormat>\n<channel/></traceFormat></ink>", "noname.inkml:2: a channel has no name"},
    {"double.inkml", kInk + "<traceFormat><channel name='X'/>\n<channel name='X'/></traceFormat></ink>",
        "double.inkml:2: the trace format has the channel X twice"},
    {"context.inkml", kInk + "\n<trace contextRef='#none'>1 2</trace></ink>",
        "context.inkml:2: contextRef names \"none\", which is not there"},
    {"offset.inkml", kInk + "\n<trace timeOffset='soon'>1 2</trace></ink>",
        "offset.inkml:2: timeOffset is \"soon\", not a number"},
    {"prefix.inkml", kInk + "<trace>1 2, ' 3</trace></ink>", "point 2: 1 values where the trace format has 2"},
    {"lonely.inkml", kInk + "<trace>1 '</trace></ink>", "point 1: Y has a prefix without a value"},
    {"huge.inkml", kInk + "<trace>1 1e999999999</trace></ink>", "point 1: Y is more than a record holds"},
    {"word.inkml", kInk + "<trace>1 two</trace></ink>", "point 1: Y is \"two\", not a number"},
    {"letter.inkml", kInk + "<trace>1 T</trace></ink>", "point 1: Y is \"T\", not a number"},
    {"nested.inkml", kInk + QByteArray("<traceGroup>").repeated(300), "elements are nested more than 200 deep"},
    {"entity.inkml",
        "<!DOCTYPE ink [<!ENTITY a '1 2, '><!ENTITY b '" + QByteArray("&a;").repeated(2000) + "'><!ENTITY c '"
            + QByteArray("&b;").repeated(2000) + "']>" + kInk + "<trace>&c;</trace></ink>",
        "entity.inkml:1:"},
    {"few.inkml", kInk + kFormat + "\n<trace>1 2 3 4, 5 6 7</trace></ink>",
        "few.inkml:2: in the trace that begins there, point 2: 3 values where the trace format has 4"},
    {"many.inkml", kInk + kFormat + "<trace>1 2 3 4 5</trace></ink>", "point 1: more values than the trace format's 4"},
    {"range.inkml", kInk + kFormat + "<trace>1 2 3 1e30</trace></ink>",
        "point 1: T is 1e+30, a record holds 0 to 1844674"},
    {"sum.inkml", kInk + kFormat + "<trace>1 2 3 18446744073709551615, '1'1'1'1</trace></ink>",
        "point 2: T is 1.84467440737e+19, a record holds 0 to 18446744073709551615"},
};

class KvsignBroken : public Place
{
};

TEST_F(KvsignBroken, IsNamedWithItsPlaceAndLeavesNothing)
{
    for (const Broken &broken : kBroken) {
        write(broken.name, broken.content);
        for (const char *output : {"out.csv", "out.png"}) {
            const CommandResult result = run({"convert", broken.name, output});
            EXPECT_EQ(result.exitCode, 1) << broken.name;
            EXPECT_TRUE(result.errors.contains(broken.message)) << broken.name << ": " << result.errors.toStdString();
            EXPECT_EQ(files(), QStringList(broken.name)) << broken.name;
        }
        QFile::remove(file(broken.name));
    }
}

TEST_F(KvsignBroken, IsRefusedByEverySubcommandThatReads)
{
    write("half.csv", kTitles + "1,2,3,0,4,5\n1,2,3,0\n");
    for (const QStringList &arguments : {QStringList{"inspect", "half.csv"}, QStringList{"replay", "half.csv"},
             QStringList{"replay", "--frames", "film", "half.csv"}}) {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.errors.contains("half.csv:3: 4 cells below 6 names")) << testing::PrintToString(result);
        EXPECT_EQ(files(), QStringList("half.csv"));
    }
}

TEST_F(KvsignBroken, LeavesTheOldFileAsItWas)
{
    write("broken.ink", "!");
    write("out.csv", "as it was");
    EXPECT_EQ(run({"convert", "broken.ink", "out.csv"}).exitCode, 1);
    EXPECT_EQ(read("out.csv"), "as it was");
    EXPECT_EQ(files(), QStringList({"broken.ink", "out.csv"}));
}

TEST_F(KvsignBroken, PlacesAreNamed)
{
    write("good.ink", record(kPoints));
    const auto fails = [&](const QStringList &arguments, int code, const char *message) {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.exitCode, code) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(message)) << testing::PrintToString(result);
    };
    fails({"convert", "missing.ink", "out.csv"}, 1, "missing.ink: No such file or directory");
    fails({"convert", ".", "out.csv"}, 1, "is a directory");
    fails({"convert", "good.ink", "nowhere/out.csv"}, 1, "nowhere/out.csv: No such file or directory");
    fails({"convert", "good.ink", ".", "--to", "csv"}, 1, ".: ");
    fails({"convert", "good.ink", "out.xyz"}, 2, "say with --to which of the formats");
    fails({"convert", "good.ink", "out.csv", "--to", "xyz"}, 2, "say with --to which of the formats");
    fails({"convert", "good.ink", "out.csv", "--from", "png"}, 2, "ink is not read from a PNG picture");
    fails({"convert", "good.ink"}, 2, "OUTPUT is missing");
    fails({"convert", "good.ink", "a.csv", "b.csv"}, 2, "\"b.csv\" is more than it takes");
    fails({"convert", "good.ink", "-", "--to", "csv", "--json"}, 2, "do not go together");
    fails({"draw", "good.ink"}, 2, "there is no \"draw\"");
    EXPECT_EQ(files(), QStringList("good.ink"));
}

TEST_F(KvsignBroken, AFullDiskIsAFailure)
{
    Points points;
    for (int i = 0; i < 2000; ++i)
        points.push_back({i, i, 100, false, static_cast<quint64>(i), 0});
    write("good.ink", record(points));
    const CommandResult direct = run({"convert", "good.ink", "/dev/full", "--to", "csv"});
    EXPECT_EQ(direct.exitCode, 1);
    EXPECT_TRUE(direct.errors.contains("No space left on device")) << testing::PrintToString(direct);
    struct stat state = {};
    ASSERT_EQ(stat("/dev/full", &state), 0);
    EXPECT_TRUE(S_ISCHR(state.st_mode)) << "the device was replaced by a file";
    for (const char *command : {"convert good.ink - --to json", "inspect good.ink", "replay --speed max good.ink",
             "convert good.ink out.csv --json"}) {
        const CommandResult result =
            runProgram({"sh", "-c", QString("%1 %2 >/dev/full").arg(KV_KVSIGN, command)}, file("."));
        EXPECT_EQ(result.exitCode, 1) << command;
        EXPECT_TRUE(result.errors.contains("standard output: No space left")) << testing::PrintToString(result);
    }
}

TEST_F(KvsignBroken, AnInterruptedConversionLeavesNothing)
{
    Points points(1000000, {1500, 900, 500, false, 7, 0});
    for (size_t i = 0; i < points.size(); ++i)
        points[i].x = 300 + static_cast<int>(i % 2000);
    write("long.ink", recordBytes(points).toBase64());
    QProcess process;
    start(process, {"convert", "--model", "S300", "long.ink", "long.svg"});
    // kvsign has begun to write once it has a second file of the test's folder open.
    const QString open = QString("/proc/%1/fd").arg(process.processId());
    const auto isWriting = [&] {
        for (const QFileInfo &entry : QDir(open).entryInfoList(QDir::AllEntries | QDir::System)) {
            const QString target = entry.symLinkTarget();
            if (target.startsWith(file("")) && !target.endsWith("long.ink"))
                return true;
        }
        return false;
    };
    QElapsedTimer waiting;
    waiting.start();
    while (!isWriting() && waiting.elapsed() < 60000)
        process.waitForFinished(1);
    kill(static_cast<pid_t>(process.processId()), SIGTERM);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 3) << process.readAllStandardError().toStdString();
    EXPECT_EQ(files(), QStringList("long.ink"));
}

} // namespace
