// Starting kv-sign-desk: its options, its answers to wrong ones, and a driver in another place or in none.
#include "outsidecommand.h"
#include "padsession.h"
#include "trouble.h"

#include "drivers.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

const QString kProgram = KV_SIGNDESK;
const QString kSample = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";

const QMap<QString, QString> kQuickly{
    {"KVSIM_RECORDING", "signature-finger"}, {"KVSIM_SPEED", "20"}, {"KVSIM_DELAY_MS", "100"}, {"LC_ALL", "C.UTF-8"}};

CommandResult run(const QStringList &arguments, const QString &directory = "/", const char *scale = "1")
{
    QMap<QString, QString> environment = kQuickly;
    environment["QT_SCALE_FACTOR"] = scale;
    return runProgram(QStringList(kProgram) + arguments, directory, environment);
}

TEST(SignDeskProgram, HelpNamesEveryOption)
{
    const CommandResult help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const char *option :
        {"--model <model>", "--driver-directory <directory>", "--unsafe-driver", "--screenshot <file>", "[page]"})
        EXPECT_TRUE(help.output.contains(option)) << option << "\n" << testing::PrintToString(help);
}

TEST(SignDeskProgram, RefusesWhatItCannotDo)
{
    const struct
    {
        QStringList arguments;
        const char *told;
    } rows[] = {
        {{"--model", "S999"}, "kv-sign-desk: the models are S210, S300, S310X, R800, M450\n"},
        {{"--driver-directory", "/no/such"}, "kv-sign-desk: there is no directory /no/such\n"},
        {{"a.pdf", "b.pdf"}, "kv-sign-desk: one page at a time\n"},
    };
    for (const auto &row : rows) {
        const CommandResult result = run(row.arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_TRUE(result.errors.contains(row.told)) << testing::PrintToString(result);
    }
}

TEST(SignDeskProgram, EndsWhenThePageOfAPictureCannotBeOpened)
{
    const QTemporaryDir place;
    const CommandResult result = run({"--screenshot", place.filePath("desk.png"), "/no/such/page.pdf"});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("page.pdf")) << testing::PrintToString(result);
}

TEST(SignDeskProgram, TakesAPictureAtEachScale)
{
    const QString drivers = QDir::currentPath();
    const QTemporaryDir place;
    QSize first;
    ASSERT_TRUE(QFile::copy(kSample, place.filePath("note.pdf")));
    for (const char *scale : {"1", "1.25", "2"}) {
        // The relative paths are meant from the directory in which it was started.
        const CommandResult result = run({"--model", "s310x", "--driver-directory", drivers, "--unsafe-driver",
                                             "--screenshot", "desk.png", "note.pdf"},
            place.path(), scale);
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        const QImage picture(place.filePath("desk.png"));
        if (first.isEmpty())
            first = picture.size();
        // As large at each scale, but for what the screen has no room for.
        EXPECT_LE(picture.width(), first.width() * QString(scale).toDouble() + 2);
        EXPECT_LE(picture.height(), first.height() * QString(scale).toDouble() + 2);
        bool hasFingerprint = false;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                hasFingerprint |= qRed(picture.pixel(x, y)) > 230 && qGreen(picture.pixel(x, y)) < 30;
        EXPECT_TRUE(hasFingerprint);
    }
}

TEST(SignDeskProgram, TakesNoPictureOfASignatureThatDidNotComeToBe)
{
    const QTemporaryDir empty;
    const CommandResult result = run({"--screenshot", "desk.png"}, empty.path());
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("kv-sign-desk: There is no pad driver: " + empty.path()))
        << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("kv-sign-desk: no signature was confirmed\n"));
}

TEST(SignDeskProgram, IsStartedAsItsPageSays)
{
    const QString page = contentOf(KV_SIGNDESK_SOURCES "/../../docs/sign-desk.md");
    const QStringList commands = indentedBlock(page);
    ASSERT_EQ(commands.size(), 2);
    EXPECT_EQ(commands[0], "cd build/release/simulator");
    const QTemporaryDir place;
    const QString picture = place.filePath("desk.png");
    // The command runs in this build's directory, and with --screenshot so that the program ends by itself.
    const CommandResult result = runProgram(
        {"sh", "-c", commands[1] + " --unsafe-driver --screenshot " + picture}, QDir::currentPath(), kQuickly);
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_FALSE(QImage(picture).isNull());
    for (const char *option : {"--driver-directory", "--unsafe-driver", "--screenshot"})
        EXPECT_TRUE(page.contains(option)) << option;
}

/// A copy of the simulated driver in a folder of its own.
class DriverElsewhere : public testing::Test
{
protected:
    DriverElsewhere()
    {
        EXPECT_TRUE(QDir(place.path()).mkdir("pad"));
        EXPECT_TRUE(QFile::copy("libkvsignpaddrv.so", driver));
        setMode(driver, 0755);
        setMode(folder, 0755);
    }

    static void setMode(const QString &path, mode_t mode)
    {
        EXPECT_EQ(::chmod(path.toLocal8Bit().constData(), mode), 0);
    }

    CommandResult sign(const QStringList &options = {})
    {
        return run(QStringList{"--driver-directory", folder, "--screenshot", picture} + options);
    }

    const QTemporaryDir place;
    const QString folder = place.filePath("pad");
    const QString driver = place.filePath("pad/libkvsignpaddrv.so");
    const QString picture = place.filePath("desk.png");
};

TEST_F(DriverElsewhere, IsRefusedWhenOthersMayWriteIt)
{
    EXPECT_EQ(sign().exitCode, 0);
    for (const QString &weak : {driver, folder}) {
        setMode(weak, 0777);
        const CommandResult result = sign();
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.errors.contains("kv-sign-desk: The pad driver is not used: others could have put another "
                                           "one in its place, since they may write to "
            + weak + ".\n"))
            << testing::PrintToString(result);
        EXPECT_EQ(sign({"--unsafe-driver"}).exitCode, 0);
        setMode(weak, 0755);
    }
}

TEST_F(DriverElsewhere, IsSaidToBeRefusedWithItsCure)
{
    setMode(driver, 0602);
    const InDirectory elsewhere(folder.toStdString());
    signdesk::PadSession session;
    try {
        session.open(*familyOfName("S300"));
        ADD_FAILURE() << "opened";
    } catch (const signdesk::Trouble &trouble) {
        EXPECT_EQ(trouble.cure,
            "Have that put right (chmod o-w " + driver + "), or start this program with --unsafe-driver.");
    }
    session.acceptAnyDriver();
    EXPECT_NO_THROW(session.open(*familyOfName("S300")));
}

TEST(SignDeskProgram, SaysThatThereIsNoScreen)
{
    const QString english =
        "kv-sign-desk: there is no screen for a window: see that QT_QPA_PLATFORM and DISPLAY are right, or not set\n";
    const struct
    {
        const char *platform;
        const char *locale;
        QString told;
    } rows[] = {
        {"no-such-platform", "C.UTF-8", english},
        {"xcb", "C.UTF-8", english},
        {"linuxfb:fb=/dev/null", "C.UTF-8", english}, // Qt starts, without a screen
        {"no-such-platform", "de_DE.UTF-8",
            u8"kv-sign-desk: es gibt keinen Bildschirm f\u00fcr ein Fenster: QT_QPA_PLATFORM und DISPLAY m\u00fcssen "
            u8"stimmen oder d\u00fcrfen nicht gesetzt sein\n"},
    };
    for (const auto &row : rows) {
        const CommandResult result = runProgram({kProgram}, "/",
            {{"QT_QPA_PLATFORM", row.platform}, {"DISPLAY", QString()}, {"WAYLAND_DISPLAY", QString()},
                {"LC_ALL", row.locale}, {"LANGUAGE", QString()}});
        EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(result);
        EXPECT_EQ(result.errors, row.told);
        EXPECT_EQ(result.output, "");
    }
}

TEST(SignDeskProgram, TakesAPictureOfAPadThatIsPulledOut)
{
    const QTemporaryDir place;
    QFile recording(place.filePath("pulled-out.kvrec"));
    ASSERT_TRUE(recording.open(QIODevice::WriteOnly));
    QByteArray packets = "version: 2\nmodel: S300\n";
    for (int i = 0; i < 60; ++i)
        packets += QByteArray::number(5 * i) + ' ' + QByteArray::number(500 + 20 * i) + ' '
            + QByteArray::number(700 + i % 7 * 40) + (i == 0 ? " 310 0\n" : " 310 1\n");
    recording.write(packets + "unplug 320\n");
    recording.close();
    const CommandResult result =
        runProgram({kProgram, "--model", "S300", "--unsafe-driver", "--driver-directory", QDir::currentPath(),
                       "--screenshot", place.filePath("desk.png"), kSample},
            "/", {{"KVSIM_RECORDING", recording.fileName()}, {"LC_ALL", "C.UTF-8"}});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("kv-sign-desk: the pad no longer answers\n")) << testing::PrintToString(result);
    EXPECT_FALSE(QImage(place.filePath("desk.png")).isNull());
}

TEST(SignDeskSession, SaysThatThereIsNoDriver)
{
    const QTemporaryDir empty;
    const InDirectory elsewhere(empty.path().toStdString());
    signdesk::PadSession session;
    for (const PadFamily &model : kPadFamilies) {
        try {
            session.open(model);
            ADD_FAILURE() << "opened without a driver";
        } catch (const signdesk::Trouble &trouble) {
            EXPECT_EQ(trouble.what, "There is no pad driver: " + empty.path() + "/libkvsignpaddrv.so does not exist.");
            EXPECT_TRUE(trouble.cure.contains("--driver-directory"));
        }
        EXPECT_FALSE(session.isOpen());
    }
}

} // namespace
