// kvsign replay: points printed at their times, numbered pictures, and a window.
#include "kvsign.h"

#include <QElapsedTimer>
#include <QJsonDocument>

namespace {

using namespace kvsign;

class KvsignReplay : public Place
{
};

const Points kLine = {{1000, 500, 100, false, 10000, 77}, {1300, 500, 200, false, 10200, 77},
    {1300, 900, 300, false, 10400, 77}, {1300, 900, 300, true, 10600, 77}};

TEST_F(KvsignReplay, PrintsNumbers)
{
    write("a.ink", record(kLine));
    EXPECT_EQ(runWell({"replay", "--speed", "max", "a.ink"}).output.toStdString(),
        "#  second      x      y  press.\n"
        "    0.000   1000    500    100\n"
        "    0.200   1300    500    200\n"
        "    0.400   1300    900    300\n"
        "    0.600   1300    900    300  up\n");
    const QStringList lines = runWell({"replay", "--speed", "max", "--json", "a.ink"}).output.trimmed().split('\n');
    ASSERT_EQ(lines.size(), 4);
    const QJsonObject last = QJsonDocument::fromJson(lines.last().toUtf8()).object();
    EXPECT_EQ(last, QJsonObject({{"ms", 600}, {"x", 1300}, {"y", 900}, {"pressure", 300}, {"strokeEnd", true}}));
}

TEST_F(KvsignReplay, TakesTheSignersTimeOrAnother)
{
    write("a.ink", record(kLine));
    const auto timeOf = [&](const QString &speed) {
        QElapsedTimer running;
        running.start();
        runWell({"replay", "--speed", speed, "a.ink"});
        return running.elapsed();
    };
    EXPECT_GE(timeOf("1"), 590);
    EXPECT_GE(timeOf("0.5"), 1190);
    for (const char *speed : {"0", "fast", "-1"})
        EXPECT_EQ(run({"replay", "--speed", speed, "a.ink"}).exitCode, 2) << speed;
}

TEST_F(KvsignReplay, WritesNumberedPictures)
{
    write("a.ink", record(kLine));
    // 0.6 seconds at 25 pictures a second, and one last picture with everything on it.
    const QJsonObject result = runJson({"replay", "--frames", "film/one", "a.ink"});
    EXPECT_EQ(result["frames"].toInt(), 16);
    const QStringList names = QDir(file("film/one")).entryList(QDir::Files, QDir::Name);
    ASSERT_EQ(names.size(), 16);
    EXPECT_EQ(names.first(), "frame-00001.png");
    EXPECT_EQ(names.last(), "frame-00016.png");
    const auto ink = [&](int i) { return inkPixels(QImage(file("film/one/" + names[i]))); };
    EXPECT_EQ(ink(0), 0);
    EXPECT_EQ(ink(1), 0) << "the line is drawn where its end is reached";
    EXPECT_GT(ink(6), 0);
    EXPECT_GT(ink(11), ink(6));
    EXPECT_EQ(ink(15), ink(11));
    runWell({"convert", "--background", "white", "a.ink", "whole.png"});
    EXPECT_EQ(differingPixels(QImage(file("whole.png")), QImage(file("film/one/frame-00016.png")), 0), 0);
    EXPECT_EQ(runJson({"replay", "--frames", "two", "--speed", "2", "--fps", "10", "a.ink"})["frames"].toInt(), 4);
}

TEST_F(KvsignReplay, WritesNoPicturesWhenThereWouldBeTooMany)
{
    Points days = kLine; // the pen rests for a month
    days.back().tick += 86400ULL * 1000 * 30;
    write("a.ink", record(days));
    const CommandResult result = run({"replay", "--frames", "film", "a.ink"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("there would be more than 100000 pictures")) << testing::PrintToString(result);
    EXPECT_EQ(files(), QStringList("a.ink"));
}

TEST_F(KvsignReplay, TakesBackThePicturesOfAReplayThatFails)
{
    write("a.ink", record(kLine));
    write("blocked", "");
    EXPECT_EQ(run({"replay", "--frames", "blocked", "a.ink"}).exitCode, 1);
    EXPECT_EQ(read("blocked"), "");
    QDir(file(".")).mkpath("film/frame-00009.png");
    write("film/frame-00002.png", "as it was");
    const CommandResult result = run({"replay", "--frames", "film", "a.ink"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("frame-00009.png")) << testing::PrintToString(result);
    EXPECT_EQ(QDir(file("film")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
        QStringList({"frame-00002.png", "frame-00009.png"}));
    EXPECT_EQ(read("film/frame-00002.png"), "as it was");
}

TEST_F(KvsignReplay, ShowsAWindow)
{
    write("a.ink", record(kLine));
    QElapsedTimer running;
    running.start();
    runWell({"replay", "--window", "--close", "a.ink"}, {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_GE(running.elapsed(), 600);
    const CommandResult onScreen =
        runProgram({"xvfb-run", "-a", KV_KVSIGN, "replay", "--window", "--close", "--speed", "max", "a.ink"}, file("."),
            {{"QT_QPA_PLATFORM", {}}, kOnScreen});
    EXPECT_EQ(onScreen.exitCode, 0) << testing::PrintToString(onScreen);
    write("half.csv", "x,y,pressure,stroke_end,tick_ms,time_s\n300,300,9,0,1,1\n900,900,9,0,2,2\nhalf");
    const CommandResult broken =
        run({"replay", "--window", "--model", "S300", "half.csv"}, {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(broken.exitCode, 1);
    EXPECT_TRUE(broken.errors.contains("half.csv:4:")) << testing::PrintToString(broken);
}

TEST_F(KvsignReplay, ExplainsWhatAPipeWaitsFor)
{
    write("a.ink", record(kLine));
    const auto inShell = [&](const QString &command) {
        return runProgram({"bash", "-c", "rm -f pipe.ink said; mkfifo pipe.ink; " + command, KV_KVSIGN}, file("."));
    };
    const QString whenSaid = "while ! grep -q waiting said; do sleep 0.05; done; ";
    const CommandResult fed = inShell(
        "\"$0\" replay --speed max pipe.ink 2>said & child=$!; " + whenSaid + "cat a.ink > pipe.ink; wait $child");
    EXPECT_EQ(fed.exitCode, 0) << testing::PrintToString(fed);
    EXPECT_EQ(fed.output.count('\n'), 5) << testing::PrintToString(fed);
    EXPECT_EQ(read("said"), "kvsign: pipe.ink: waiting for a program that writes to this pipe\n");
    const CommandResult ended =
        inShell("\"$0\" replay pipe.ink 2>said & child=$!; " + whenSaid + "kill -TERM $child; wait $child");
    EXPECT_EQ(ended.exitCode, 3) << testing::PrintToString(ended);
    const CommandResult taken =
        inShell("(sleep 0.2; cat pipe.ink > b.ink) & \"$0\" convert --to ink a.ink pipe.ink; wait");
    EXPECT_EQ(taken.exitCode, 0) << testing::PrintToString(taken);
    EXPECT_EQ(read("b.ink"), read("a.ink"));
}

TEST_F(KvsignReplay, EndsWhenItsOutputIsFull)
{
    Points slow = kLine;
    slow.back().tick += 3600 * 1000; // the whole replay would take an hour
    write("a.ink", record(slow));
    for (const char *options : {"", "--json"}) {
        const CommandResult result =
            runProgram({"sh", "-c", QString("%1 replay %2 a.ink >/dev/full").arg(KV_KVSIGN, options)}, file("."));
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("standard output: No space left")) << testing::PrintToString(result);
    }
    EXPECT_EQ(run({"replay", "--frames", "/dev/full", "a.ink"}).exitCode, 1);
}

TEST_F(KvsignReplay, SaysThatThereIsNoDisplay)
{
    write("a.ink", record(kLine));
    const auto fails = [&](const QString &display, const char *why) {
        const CommandResult result = run(
            {"replay", "--window", "a.ink"}, {{"QT_QPA_PLATFORM", {}}, {"DISPLAY", display}, {"WAYLAND_DISPLAY", {}}});
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(why)) << testing::PrintToString(result);
    };
    fails({}, "DISPLAY is not set");
    fails(":9876", "the X display :9876 does not answer");
    fails("nonsense", "the X display nonsense does not answer");
    for (const char *platform : {"bogus", "bogus:size=3;worse"}) {
        const CommandResult unknown = run({"replay", "--window", "a.ink"}, {{"QT_QPA_PLATFORM", platform}});
        EXPECT_EQ(unknown.exitCode, 1) << testing::PrintToString(unknown);
        EXPECT_TRUE(unknown.errors.contains(QString("Qt has no platform \"%1\"").arg(platform)))
            << testing::PrintToString(unknown);
    }
    // Qt knows this platform but cannot start it here, and then ends the process itself.
    const CommandResult broken =
        run({"replay", "--window", "a.ink"}, {{"QT_QPA_PLATFORM", "eglfs"}, {"QT_QPA_EGLFS_INTEGRATION", "none"}});
    EXPECT_NE(broken.exitCode, -1) << testing::PrintToString(broken);
    // This one starts, but without a screen.
    const CommandResult blind = run({"replay", "--window", "a.ink"}, {{"QT_QPA_PLATFORM", "linuxfb:fb=/dev/null"}});
    EXPECT_EQ(blind.exitCode, 1) << testing::PrintToString(blind);
    EXPECT_TRUE(blind.errors.contains("finds no screen")) << testing::PrintToString(blind);
    EXPECT_EQ(run({"replay", "--window", "--frames", "film", "a.ink"}, {{"QT_QPA_PLATFORM", "offscreen"}}).exitCode, 2);
}

} // namespace
