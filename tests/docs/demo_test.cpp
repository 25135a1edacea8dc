// The demo, played quickly: what it writes, what it prints, and how it fails.
#include "capturesizes.h"
#include "outsidecommand.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString kDriverDirectory = KV_BUILD_DIRECTORY "/simulator";

CommandResult runDemo(const QStringList &arguments, const QMap<QString, QString> &environment = {},
    const QString &directory = kDriverDirectory)
{
    QMap<QString, QString> variables = environment;
    variables.insert("KVSIM_SPEED", environment.value("KVSIM_SPEED", "20"));
    variables.insert("KVSIM_DELAY_MS", "100");
    return runProgram(QStringList(KV_BUILD_DIRECTORY "/examples/demo/kv-demo") + arguments, directory, variables);
}

/// The cells of the table row that begins with a name; columns are two blanks or more apart.
QStringList rowOf(const CommandResult &result, const QString &name)
{
    for (const QString &line : result.output.split('\n')) {
        const QStringList cells = line.split(QRegularExpression("  +"));
        if (cells.first() == name)
            return cells;
    }
    return {};
}

const char *const kSuffixes[][2] = {{"bmp", "BMP"}, {"jpg", "JPEG"}, {"png", "PNG"}, {"pdf", "PDF"}, {"svg", "SVG"}};

const char *const kPictures[] = {"s210-live-push.jpg", "s210-office-canvas.png", "s310x-finger-centre.png",
    "s310x-finger-rectangle.png", "s310x-finger-window.png", "s310x-finger-canvas.png"};

bool hasRed(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & 0xffffffU) == 0xff0000U)
                return true;
    return false;
}

class Demo : public testing::Test
{
protected:
    QString file(const QString &name) const { return m_output.filePath(name); }

    QTemporaryDir m_output;
};

/// The demo, played once for all that is looked at afterwards.
class PlayedDemo : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        s_output = new QTemporaryDir;
        s_result = new CommandResult(runDemo({s_output->path()}));
    }

    static void TearDownTestSuite()
    {
        delete s_result;
        delete s_output;
    }

    void SetUp() override { ASSERT_EQ(s_result->exitCode, 0) << testing::PrintToString(*s_result); }

    static QString file(const QString &name) { return s_output->filePath(name); }
    static const CommandResult &result() { return *s_result; }

private:
    static inline QTemporaryDir *s_output = nullptr;
    static inline CommandResult *s_result = nullptr;
};

TEST_F(PlayedDemo, WritesEveryModelInEveryFormatAndListsIt)
{
    const int points = storedPoints(KV_SOURCE_DIRECTORY "/simulator/recordings/signature.kvrec");
    for (const Model &model : kModels) {
        const QRegularExpression captured(
            QString("(^|\n)%1 +confirmed +%2 points +2 strokes +\\d+\\.\\d s\n").arg(model.name).arg(points));
        EXPECT_TRUE(result().output.contains(captured)) << testing::PrintToString(result());
        for (const auto &suffix : kSuffixes) {
            const QString name = QString("%1.%2").arg(QString(model.name).toLower(), suffix[0]);
            const QFileInfo written(file(name));
            EXPECT_GT(written.size(), 1000) << name.toStdString();
            const QStringList expected{name, suffix[1], QString("%1 x %2").arg(model.width).arg(model.height), "300",
                QString::number(written.size()), QString::number(points)};
            EXPECT_EQ(rowOf(result(), name).join('|'), expected.join('|')) << testing::PrintToString(result());
        }
        const QStringList record = result().output.split('\n').filter(QRegularExpression(
            QString("^%1 +%2 +%3 +%2  yes$").arg(model.name).arg(points).arg((24 * points + 1 + 2) / 3 * 4)));
        EXPECT_EQ(record.size(), 1) << testing::PrintToString(result());
    }
    for (const char *name : kPictures) {
        EXPECT_FALSE(QImage(file(name)).isNull()) << name;
        EXPECT_EQ(rowOf(result(), name).value(0).toStdString(), name);
    }
}

TEST_F(PlayedDemo, ShowsTheFingerprintInEachOfItsPlaces)
{
    const QImage centre(file("s310x-finger-centre.png"));
    const QImage rectangle(file("s310x-finger-rectangle.png"));
    EXPECT_TRUE(hasRed(centre.copy(340, 180, 160, 200)));
    EXPECT_FALSE(hasRed(centre.copy(660, 270, 150, 190)));
    EXPECT_TRUE(hasRed(rectangle.copy(660, 270, 150, 190)));
    EXPECT_FALSE(hasRed(rectangle.copy(340, 180, 160, 200)));
    EXPECT_TRUE(hasRed(QImage(file("s310x-finger-window.png"))));
    EXPECT_TRUE(hasRed(QImage(file("s310x-finger-canvas.png"))));
    EXPECT_TRUE(hasRed(QImage(file("s310x.bmp"))));
    EXPECT_FALSE(hasRed(QImage(file("s300.bmp"))));
}

TEST_F(PlayedDemo, TellsWhatThePadsTellAboutThemselves)
{
    EXPECT_TRUE(result().output.contains(QRegularExpression(
        "\nR800 +Korvane +R800 +yes +0\\.\\.29870 +0\\.\\.20120 +8192 +1\\.0 +SIM-R800-\\S+ +KVR800 ")))
        << testing::PrintToString(result());
    EXPECT_TRUE(result().output.contains(QRegularExpression("\nS210 live push: \\d{3} images, \\d+ a second")));
}

TEST_F(Demo, ShowsAWindowForEachPad)
{
    const CommandResult result = runDemo({m_output.path(), "--window"});
    ASSERT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    for (const Model &model : kModels) {
        const QString name = QString(model.name).toLower();
        const QImage window(file(name + "-window.png"));
        EXPECT_GT(window.width(), model.width);
        EXPECT_GT(window.height(), model.height);
        EXPECT_TRUE(QFile::exists(file(name + ".svg")));
    }
}

TEST_F(Demo, SaysWhatIsWrongAndWhatToDo)
{
    const auto fails = [](const CommandResult &result, const char *what) {
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(what)) << testing::PrintToString(result);
    };
    fails(runDemo({m_output.path()}, {{"KVSIM_RECORDING", "tick-and-cross"}}), "tapped cancel");
    fails(runDemo({m_output.path()}, {{"KVSIM_RECORDING", "./missing.kvrec"}}), "unset the KVSIM_ variables");
    fails(runDemo({m_output.path()}, {{"KVSIM_VERSION", "another pad"}}), "does not open a pad of this model");
    fails(runDemo({m_output.path()}, {}, m_output.path()), "There is no pad driver");
    QFile blocked(file("blocked"));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    fails(runDemo({file("blocked")}), "cannot be created");
    fails(runDemo({"/dev/full/output"}), "cannot be created");
}

TEST_F(Demo, SaysThatThereIsNoScreen)
{
    const auto fails = [&](const char *platform, const char *why) {
        const CommandResult result = runDemo({m_output.path()}, {{"QT_QPA_PLATFORM", platform}});
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(why)) << testing::PrintToString(result);
    };
    fails("no-such-platform", "The demo failed: Qt cannot start the platform \"no-such-platform\"");
    fails("linuxfb:fb=/dev/null", "The demo failed: Qt's platform \"linuxfb:fb=/dev/null\" finds no screen");
}

TEST_F(Demo, KeepsWhatAPadSentBeforeItWasPulledOut)
{
    QFile recording(file("pulled-out.kvrec"));
    ASSERT_TRUE(recording.open(QIODevice::WriteOnly));
    recording.write("version: 2\nmodel: S210\n0 400 500 300 0\n10 900 800 300 1\n20 1400 600 300 1\nunplug 30\n");
    recording.close();
    const CommandResult result = runDemo({m_output.path()}, {{"KVSIM_RECORDING", recording.fileName()}});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains(QRegularExpression("(^|\n)S210 +unplugged +3 points\n")))
        << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains(
        "The demo failed: The S210 no longer answers: it was unplugged before the signer tapped confirm.\nThe 3 points "
        "that had come are in "
        + m_output.path() + "; they may be half a signature. Plug it in, and start again.\n"))
        << testing::PrintToString(result);
    QFile svg(file("s210.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_EQ(svg.readAll().count("<polyline"), 2);
}

TEST_F(Demo, RefusesArgumentsThatItDoesNotKnow)
{
    EXPECT_EQ(runDemo({}).exitCode, 2);
    EXPECT_EQ(runDemo({m_output.path(), "--windows"}).exitCode, 2);
    EXPECT_EQ(runDemo({m_output.path(), "another"}).exitCode, 2);
    EXPECT_EQ(runDemo({m_output.path(), "--driver"}).exitCode, 2);
}

TEST_F(Demo, TakesTheSimulatorThatWasInstalledWithIt)
{
    // A pad is opened, the signer taps cancel, and that is all that is to be seen here.
    const CommandResult result =
        runDemo({"output", "--driver", "simulator"}, {{"KVSIM_RECORDING", "tick-and-cross"}}, m_output.path());
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("tapped cancel")) << testing::PrintToString(result);
    EXPECT_TRUE(QDir(file("output")).exists());

    const QString alone = file("kv-demo");
    ASSERT_TRUE(QFile::copy(KV_BUILD_DIRECTORY "/examples/demo/kv-demo", alone));
    const CommandResult missing = runProgram({alone, "output", "--driver", "simulator"}, m_output.path(),
        {{"LD_LIBRARY_PATH", KV_BUILD_DIRECTORY "/kvsignpadsdk"}});
    EXPECT_EQ(missing.exitCode, 1) << testing::PrintToString(missing);
    EXPECT_TRUE(missing.errors.contains("kvsignpad-simulator")) << testing::PrintToString(missing);
}

TEST_F(Demo, SaysWhichDriverDirectoryThereIsNot)
{
    const CommandResult result = runDemo({m_output.path(), "--driver", "/no/such"});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("There is no directory /no/such")) << testing::PrintToString(result);
}

} // namespace
