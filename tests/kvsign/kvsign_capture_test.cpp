// kvsign capture: what it writes, and how it ends when there is nothing to write.
#include "capturesizes.h"
#include "countpixels.h"
#include "kvsign.h"

#include <QJsonArray>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>
#include <sys/stat.h>

namespace {

using namespace kvsign;

class KvsignCapture : public Place
{
protected:
    void isEndedWith(int exitCode, const char *why, const CommandResult &result) const
    {
        EXPECT_EQ(result.exitCode, exitCode) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(why)) << testing::PrintToString(result);
    }
};

const char *const kSuffixes[] = {"bmp", "jpg", "png", "pdf", "svg", "ink", "csv", "json", "inkml"};

TEST_F(KvsignCapture, WritesEveryFormatOfEveryModel)
{
    const int points = storedPoints(kRecordings + "/signature.kvrec");
    for (const Model &model : kModels) {
        QStringList outputs;
        for (const char *suffix : kSuffixes)
            outputs += QString("%1.%2").arg(model.name, suffix);
        const QJsonObject result = runJson(QStringList{"capture", "-m", model.name} + outputs);
        EXPECT_EQ(result["result"].toString(), "confirmed");
        EXPECT_EQ(result["model"].toString(), model.name);
        EXPECT_EQ(result["points"].toInt(), points);
        EXPECT_EQ(result["strokes"].toInt(), 2);
        EXPECT_EQ(result["padId"].toString(), QString("SIM-%1-PadID-0001").arg(model.name));
        EXPECT_EQ(result["files"].toArray().size(), outputs.size());
        for (const QJsonValue &written : result["files"].toArray())
            EXPECT_EQ(QFileInfo(file(written["file"].toString())).size(), written["bytes"].toInt());
        for (const char *picture : {"bmp", "jpg", "png"}) {
            const QImage image(file(QString("%1.%2").arg(model.name, picture)));
            EXPECT_EQ(image.size(), QSize(model.width, model.height)) << model.name << picture;
            EXPECT_EQ(image.dotsPerMeterX() / 10, 1181) << picture;
            EXPECT_GT(inkPixels(onWhite(image)), 2000) << model.name << picture;
        }
        EXPECT_TRUE(read(QString(model.name) + ".pdf").startsWith("%PDF-"));
        const QByteArray svg = read(QString(model.name) + ".svg");
        EXPECT_GT(svg.count("<path") + svg.count("<polyline"), points - 10) << "one for each segment";
        const QString ink = listed(pointsOf(read(QString(model.name) + ".ink")));
        EXPECT_EQ(ink.count('\n'), points);
        for (const char *format : {"csv", "json", "inkml"}) {
            runWell({"convert", QString("%1.%2").arg(model.name, format), "again.ink"});
            EXPECT_EQ(read("again.ink"), read(QString(model.name) + ".ink")) << format;
        }
    }
}

TEST_F(KvsignCapture, TakesThePenAndTheCanvas)
{
    runWell({"capture", "-m", "S300", "plain.png", "plain.svg"});
    runWell({"capture", "-m", "S300", "--size", "600x300", "-c", "#c00000", "-w", "5", "--dpi", "150", "pen.png"});
    const QImage pen(file("pen.png"));
    EXPECT_EQ(pen.size(), QSize(600, 300));
    EXPECT_EQ(pen.dotsPerMeterX(), 5905);
    EXPECT_GT(countPixels(pen, QColor("#c00000")), 3000);
    runWell({"capture", "-m", "S300", "--clip", "7,3", "clip.png"});
    const QImage clip(file("clip.png"));
    EXPECT_LT(clip.width(), 700);
    EXPECT_EQ(inkPixels(onWhite(clip)), inkPixels(onWhite(QImage(file("plain.png")))));
    EXPECT_EQ(inkPixels(onWhite(clip.copy(0, 0, 7, clip.height()))), 0);
    EXPECT_EQ(inkPixels(onWhite(clip.copy(0, 0, clip.width(), 3))), 0);
    runWell({"capture", "-m", "S300", "--no-pressure", "-w", "4", "even.svg"});
    static const QRegularExpression width("stroke-width=\"([^\"]+)\"");
    QSet<QString> widths;
    for (auto match = width.globalMatch(read("even.svg")); match.hasNext();)
        widths.insert(match.next().captured(1));
    EXPECT_TRUE(widths.contains("4"));
    EXPECT_LE(widths.size(), 2) << "and the group's own";
}

TEST_F(KvsignCapture, KeepsWhatWasThereWhenTheSignerCancels)
{
    write("signature.png", "as it was");
    const CommandResult result = run(
        {"capture", "-m", "R800", "--json", "signature.png", "signature.ink"}, {{"KVSIM_RECORDING", "tick-and-cross"}});
    isEndedWith(3, "the signer cancelled on the R800", result);
    EXPECT_TRUE(result.output.contains("\"result\":\"cancelled\"")) << testing::PrintToString(result);
    EXPECT_EQ(read("signature.png"), "as it was");
    EXPECT_EQ(files(), QStringList("signature.png"));
}

TEST_F(KvsignCapture, EndsWhenNobodyConfirms)
{
    const CommandResult result =
        run({"capture", "--timeout", "1", "--json", "signature.ink"}, {{"KVSIM_RECORDING", "none"}});
    isEndedWith(4, "nobody confirmed on the S210 within 1 s", result);
    EXPECT_TRUE(result.output.contains("\"result\":\"timed-out\""));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(KvsignCapture, SaysThatNothingWasWritten)
{
    write("empty.kvrec", "version: 1\nmodel: S300\n5 0 0 0 4\n");
    for (const char *name : {"signature.png", "signature.ink", "signature.csv"}) {
        const CommandResult result = run({"capture", "-m", "S300", name}, {{"KVSIM_RECORDING", file("empty.kvrec")}});
        isEndedWith(1, "nothing was written on the pad", result);
        EXPECT_EQ(files(), QStringList("empty.kvrec"));
    }
}

TEST_F(KvsignCapture, SaysThatThereIsNoPad)
{
    isEndedWith(5, "opens no S300 pad", run({"capture", "-m", "S300", "x.ink"}, {{"KVSIM_VERSION", "KVR800"}}));
    isEndedWith(5, "opens no pad", run({"capture", "x.ink"}, {{"KVSIM_VERSION", "another"}}));
    isEndedWith(5, "there is no pad driver", run({"capture", "--driver", KV_SOURCE_DIRECTORY, "x.ink"}));
    isEndedWith(5, "there is no directory", run({"capture", "--driver", "nowhere", "x.ink"}));
    EXPECT_TRUE(run({"capture", "--json", "--driver", "nowhere", "x.ink"}).output.contains("\"failed\""));
    EXPECT_EQ(files(), QStringList());
}

// Loading a named pipe would wait for its other end.
TEST_F(KvsignCapture, SaysThatTheDriverIsNoFile)
{
    QDir(file(".")).mkdir("driver");
    ASSERT_EQ(mkfifo(file("driver/libkvsignpaddrv.so").toLocal8Bit().constData(), 0600), 0);
    isEndedWith(5, "libkvsignpaddrv.so is no regular file", run({"capture", "--driver", "driver", "x.ink"}));
    isEndedWith(5, "libkvsignpaddrv.so is no regular file", run({"info", "--driver", "driver"}));
    EXPECT_EQ(files(), QStringList("driver"));
}

TEST_F(KvsignCapture, FindsTheFirstModelThatAnswers)
{
    EXPECT_EQ(runJson({"capture", "x.ink"}, {{"KVSIM_VERSION", "KVR800 1.0"}})["model"].toString(), "R800");
}

TEST_F(KvsignCapture, WritesRelativeToWhereItWasStarted)
{
    QDir(file(".")).mkdir("below");
    const CommandResult result =
        runIn(file("below"), {"capture", "-m", "S300", "-d", kDriverDirectory, "x.ink", "x.svg"});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(exists("below/x.ink"));
    EXPECT_TRUE(exists("below/x.svg"));
}

TEST_F(KvsignCapture, FindsOutBeforeSomebodySigns)
{
    isEndedWith(1, "No such file or directory",
        run({"capture", "nowhere/x.ink"}, {{"KVSIM_RECORDING", "none"}, {"KVSIM_SPEED", "1"}}));
    isEndedWith(2, "the suffix says none of the formats", run({"capture", "x.gif"}));
    isEndedWith(2, "--timeout takes a whole number", run({"capture", "-t", "soon", "x.ink"}));
    isEndedWith(2, "--size takes two numbers", run({"capture", "--size", "800", "x.ink"}));
    isEndedWith(2, "--dpi takes one of 150, 300", run({"capture", "--dpi", "200", "x.ink"}));
    isEndedWith(2, "--clip takes a margin", run({"capture", "--clip", "0", "x.ink"}));
    isEndedWith(2, "--color takes a colour's name", run({"capture", "-c", "nocolour", "x.ink"}));
    isEndedWith(2, "--pen-width takes a whole number from 1 to 10", run({"capture", "-w", "11", "x.ink"}));
    isEndedWith(2, "--model takes one of", run({"capture", "-m", "S400", "x.ink"}));
    isEndedWith(2, "OUTPUT is missing", run({"capture"}));
    isEndedWith(2, "Unknown option", run({"capture", "--fast", "x.ink"}));
    EXPECT_EQ(files(), QStringList());
}

// The first file fits. The second does not, which shows only when its last buffered bytes are written.
TEST_F(KvsignCapture, LeavesNoFileWhenOneOfThemCannotBeFinished)
{
    QProcess process;
    process.setWorkingDirectory(file("."));
    const QString limited =
        R"(trap '' XFSZ; ulimit -f 11; KVSIM_SPEED=max KVSIM_RECORDING=initials "$0" capture -m S300 a.ink b.inkml)";
    process.start("bash", {"-c", limited, KV_KVSIGN});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 1);
    const QByteArray errors = process.readAllStandardError();
    EXPECT_TRUE(errors.contains("b.inkml")) << errors.toStdString();
    EXPECT_EQ(files(), QStringList());
}

TEST_F(KvsignCapture, ClosesThePadWhenItIsInterrupted)
{
    QProcess process;
    start(process, {"capture", "-t", "0", "x.ink"}, {{"KVSIM_RECORDING", "none"}});
    waitForDriver(process);
    kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 3) << process.readAllStandardError().toStdString();
    EXPECT_EQ(files(), QStringList());
}

TEST_F(KvsignCapture, TellsATerminalHowItGoesAndAPipeNothing)
{
    EXPECT_EQ(runWell({"capture", "-m", "S300", "x.ink"}).errors, "");
    const QString shown = python(
        "import os, pty, sys; os.environ['KVSIM_SPEED'] = '5'; os.chdir(sys.argv[1]); sys.exit(pty.spawn(sys.argv[2:]))",
        {file("."), KV_KVSIGN, "capture", "-m", "S300", "y.ink"});
    const int points = storedPoints(KV_SOURCE_DIRECTORY "/simulator/recordings/signature.kvrec");
    EXPECT_TRUE(shown.contains("S300   sign and confirm")) << shown.toStdString();
    EXPECT_TRUE(shown.contains(QString("%1 points, 2 strokes").arg(points))) << shown.toStdString();
    EXPECT_TRUE(exists("y.ink"));
}

} // namespace
