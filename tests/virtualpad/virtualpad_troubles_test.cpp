/// @file
/// What can go wrong with a virtual pad: its menu of troubles, a window that is closed, several of them, foreign users.
#include "virtualpadrun.h"

#include "socketpath.h"

#include <QComboBox>
#include <QLocalSocket>
#include <QProcess>
#include <QPushButton>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST_F(VirtualPad, WithoutAWindowThereIsNoPad)
{
    EXPECT_FALSE(open(kS300Family));
    openWindow();
    EXPECT_TRUE(open(kS300Family));
}

TEST_F(VirtualPad, RefusesCommandsWhenItIsToldTo)
{
    openWindow();
    ASSERT_TRUE(open(kS300Family));
    toggle("Refuse commands");
    EXPECT_TRUE(until([&] { return kS300Family.OpenLCD(KVS300_DEVICE, true) == ARI_DRIVER_SENT_CMD_FAIL; }));
    EXPECT_EQ(kS300Family.SetPenStyle(KVS300_DEVICE, true), ARI_DRIVER_SENT_CMD_FAIL);
    EXPECT_EQ(kS300Family.Clear(KVS300_DEVICE), ARI_DRIVER_SENT_CMD_FAIL);
    toggle("Refuse commands");
    EXPECT_TRUE(until([&] { return kS300Family.OpenLCD(KVS300_DEVICE, true) == ARI_SUCCESS; }));
    close();
    toggle("Refuse commands"); // before a program opens it, too
    ASSERT_TRUE(open(kS300Family));
    EXPECT_EQ(kS300Family.SetPenStyle(KVS300_DEVICE, true), ARI_DRIVER_SENT_CMD_FAIL);
}

TEST_F(VirtualPad, UnpluggedItIsSilentAndCannotBeOpened)
{
    openWindow();
    ASSERT_TRUE(open(kS300Family));
    press(place(0.2, 0.2));
    ASSERT_TRUE(until([&] { return pointCount() > 5; }));
    toggle("Unplug");
    ASSERT_TRUE(until([&] { return kS300Family.SetPenStyle(KVS300_DEVICE, true) == ARI_DRIVER_SENT_CMD_FAIL; }));
    const int count = pointCount();
    drag(place(0.3, 0.3));
    QTest::qWait(80);
    release(place(0.3, 0.3));
    QTest::qWait(80);
    EXPECT_EQ(pointCount(), count);
    close();
    EXPECT_FALSE(open(kS300Family));
    toggle("Unplug");
    ASSERT_TRUE(open(kS300Family));
    write(0.2, 0.2, 0.3, 0.3);
    EXPECT_TRUE(until([&] { return lastStrokeEnded(); }));
}

TEST_F(VirtualPad, PluggedInAgainItGoesOn)
{
    openWindow();
    ASSERT_TRUE(open(kS300Family));
    toggle("Unplug");
    ASSERT_TRUE(until([&] { return kS300Family.SetPenStyle(KVS300_DEVICE, true) == ARI_DRIVER_SENT_CMD_FAIL; }));
    toggle("Unplug");
    ASSERT_TRUE(until([&] { return kS300Family.SetPenStyle(KVS300_DEVICE, true) == ARI_SUCCESS; }));
    write(0.2, 0.2, 0.3, 0.3);
    EXPECT_TRUE(until([&] { return lastStrokeEnded(); }));
}

int pixelsOf(const QColor &colour, const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour.rgb();
    return count;
}

TEST_F(VirtualPad, UnpluggedItsLightAndItsScreenGoOut)
{
    const QColor light("#58d26b");
    const auto look = [&] { return face()->grab().toImage(); };
    openWindow();
    EXPECT_EQ(pixelsOf(light, look()), 0);
    ASSERT_TRUE(open(kS300Family));
    write(0.2, 0.2, 0.6, 0.6);
    ASSERT_TRUE(until([&] { return lastStrokeEnded() && face()->display().isScreenOn; }));
    const QImage lit = look();
    EXPECT_GT(pixelsOf(light, lit), 20);
    const QRgb surface = lit.pixel(place(0.9, 0.1));
    toggle("Unplug");
    const QImage dark = look();
    EXPECT_EQ(pixelsOf(light, dark), 0);
    EXPECT_NE(dark.pixel(place(0.9, 0.1)), surface);
    EXPECT_EQ(dark.pixel(place(0.4, 0.4)), dark.pixel(place(0.9, 0.1))); // no ink to be seen
    toggle("Unplug");
    EXPECT_EQ(look(), lit);
}

TEST_F(VirtualPad, AnotherModelIsRefused)
{
    openWindow();
    toggle("Wrong model");
    for (const Family &opened : kFamilies)
        EXPECT_FALSE(open(opened)) << opened.prefix;
    toggle("Wrong model");
    EXPECT_TRUE(open(kS300Family));
}

TEST_F(VirtualPad, SomePressuresAreInvalidWhenItIsToldSo)
{
    openWindow();
    toggle("Invalid pressures");
    ASSERT_TRUE(open(kS300Family)); // headless, which takes every pressure
    write(0.2, 0.2, 0.6, 0.6);
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    int invalid = 0;
    for (const INKPOINTDATA &point : points())
        invalid += point.nPressureValue > 2048;
    EXPECT_GT(invalid, pointCount() / 8);
    EXPECT_LT(invalid, pointCount() / 2);
    toggle("Invalid pressures");
    EXPECT_EQ(beside<int>([&] { return family->Clear(family->type); }), 0);
    write(0.2, 0.2, 0.6, 0.6);
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    for (const INKPOINTDATA &point : points())
        EXPECT_LE(point.nPressureValue, 2048);
}

TEST_F(VirtualPad, ASlowScreenTakesThreeSeconds)
{
    openWindow();
    ASSERT_TRUE(open(kS310XFamily));
    toggle("Slow screen");
    QElapsedTimer time;
    time.start();
    QTest::mouseClick(window->findChild<QPushButton *>(), Qt::LeftButton);
    ASSERT_TRUE(until([&] { return !face()->display().picture.isNull(); }));
    EXPECT_GE(time.elapsed(), 3000);
}

TEST_F(VirtualPad, AWindowThatIsClosedAndOpenedAgainIsFound)
{
    openWindow();
    ASSERT_TRUE(open(kS300Family));
    EXPECT_EQ(kS300Family.DisplayHWVersion(KVS300_DEVICE, true), 0);
    for (int round = 0; round < 2; ++round) {
        window.reset();
        ASSERT_TRUE(until([&] { return kS300Family.SetPenStyle(KVS300_DEVICE, true) == ARI_DRIVER_SENT_CMD_FAIL; }));
        openWindow("M450");
        ASSERT_TRUE(until([&] { return face()->display().isOpen && face()->display().isScreenOn; }));
        EXPECT_TRUE(until([&] { return !face()->display().version.isEmpty(); }));
        EXPECT_TRUE(window->windowTitle().startsWith("S300"));
        EXPECT_TRUE(until([&] { return kS300Family.SetPenStyle(KVS300_DEVICE, true) == ARI_SUCCESS; }));
        write(0.2, 0.2, 0.4, 0.4);
        EXPECT_TRUE(until([&] { return lastStrokeEnded(); }));
        EXPECT_EQ(beside<int>([&] { return family->Clear(family->type); }), 0);
    }
}

TEST_F(VirtualPad, ThereIsOneWindow)
{
    openWindow();
    EXPECT_THROW(virtualpad::PadWindow(*modelOfName("S300")), std::runtime_error);
    ASSERT_TRUE(open(kS300Family)); // the first one still listens
}

TEST_F(VirtualPad, AWindowThatWasKilledLeavesNoLock)
{
    {
        QLocalServer killed;
        ASSERT_TRUE(killed.listen(QString::fromStdString(kvsim::virtualPadSocket()) + "-other"));
        std::filesystem::rename(kvsim::virtualPadSocket() + "-other", kvsim::virtualPadSocket());
    } // its file is under another name now and stays
    openWindow();
    EXPECT_TRUE(open(kS300Family));
}

TEST_F(VirtualPad, ThePadHasOneProgram)
{
    openWindow();
    ASSERT_TRUE(open(kS300Family));
    QLocalSocket other;
    other.connectToServer(QString::fromStdString(kvsim::virtualPadSocket()));
    ASSERT_TRUE(other.waitForConnected(1000));
    other.write("Initial 2\n");
    QByteArray answer;
    EXPECT_TRUE(until([&] { return (answer += other.readAll()).contains("\nanswer 0 Initial -5\n"); }));
    EXPECT_EQ(kS300Family.SetPenStyle(KVS300_DEVICE, true), ARI_SUCCESS);
    EXPECT_TRUE(window->windowTitle().startsWith("S300"));
}

TEST_F(VirtualPad, NonsenseOnTheSocketHarmsNothing)
{
    openWindow();
    for (const char *nonsense :
        {"", "\n\n", "Initial\n", "Initial 99\n", "ShowFPImageOnDevice 9 9 zz\n", "UnInitial\n"}) {
        QLocalSocket other;
        other.connectToServer(QString::fromStdString(kvsim::virtualPadSocket()));
        ASSERT_TRUE(other.waitForConnected(1000));
        other.write(nonsense);
        other.flush();
        QTest::qWait(10);
    }
    EXPECT_FALSE(face()->display().isOpen);
    EXPECT_TRUE(open(kS300Family));
}

mode_t modeOf(const std::string &path)
{
    struct stat info
    {
    };
    return lstat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

TEST_F(VirtualPad, OnlyItsUserMayMeetIt)
{
    const std::string ownDirectory = std::getenv("XDG_RUNTIME_DIR");
    openWindow();
    EXPECT_EQ(kvsim::virtualPadSocket().rfind(ownDirectory + "/", 0), 0u);
    EXPECT_EQ(modeOf(kvsim::virtualPadSocket()) & 077, 0u);
    const std::string fallback = "/tmp/kv-virtualpad-" + std::to_string(geteuid());
    for (const mode_t mode : {0750u, 0701u, 0777u}) {
        chmod(ownDirectory.c_str(), mode);
        EXPECT_EQ(kvsim::virtualPadSocket(), fallback + "/kv-virtualpad.sock") << mode;
        EXPECT_EQ(modeOf(fallback), 0700u);
    }
    chmod(ownDirectory.c_str(), 0700);
    const std::string link = ownDirectory + "/link";
    ASSERT_EQ(symlink(ownDirectory.c_str(), link.c_str()), 0);
    for (const char *other : {link.c_str(), "/nowhere", ""}) {
        setenv("XDG_RUNTIME_DIR", other, 1);
        EXPECT_EQ(kvsim::virtualPadSocket(), fallback + "/kv-virtualpad.sock") << other;
    }
    chmod(fallback.c_str(), 0755);
    EXPECT_THROW(kvsim::virtualPadSocket(), std::runtime_error);
    chmod(fallback.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", ownDirectory.c_str(), 1);
}

/// The window as a program of its own, and a signing widget.
TEST_F(VirtualPad, ServesAnotherProcess)
{
    QWidget parent;
    QProcess process;
    const auto start = [&] {
        process.start(KV_VIRTUALPAD, {"--model", "S300"});
        return until([] { return std::filesystem::exists(kvsim::virtualPadSocket()); });
    };
    ASSERT_TRUE(start());
    ASSERT_TRUE(until([&] { return kS310XFamily.InitialDevice(KVS310X_DEVICE, &parent, 0, 0, 300, 150); }));
    EXPECT_EQ(kS310XFamily.OpenLCD(KVS310X_DEVICE, true), 0);
    process.kill();
    process.waitForFinished();
    EXPECT_TRUE(until([] { return kS310XFamily.OpenLCD(KVS310X_DEVICE, true) == ARI_DRIVER_SENT_CMD_FAIL; }));
    ASSERT_TRUE(start());
    EXPECT_TRUE(until([] { return kS310XFamily.OpenLCD(KVS310X_DEVICE, true) == ARI_SUCCESS; }));
    EXPECT_EQ(kS310XFamily.UnInitialDevice(KVS310X_DEVICE), 0);
    QProcess second;
    second.start(KV_VIRTUALPAD, QStringList());
    ASSERT_TRUE(second.waitForFinished());
    EXPECT_EQ(second.exitCode(), 1);
    EXPECT_TRUE(second.readAllStandardError().startsWith("kv-virtualpad: another virtual pad is open\n"));
    process.terminate();
    process.waitForFinished();
    process.start(KV_VIRTUALPAD, {"--model", "S999"});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 2);
}

TEST_F(VirtualPad, SaysThatThereIsNoScreen)
{
    for (const char *platform : {"no-such-platform", "linuxfb:fb=/dev/null"}) { // the second starts, without a screen
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform);
        process.setProcessEnvironment(environment);
        process.start(KV_VIRTUALPAD, QStringList());
        ASSERT_TRUE(process.waitForFinished(-1));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << platform;
        EXPECT_EQ(process.exitCode(), 1) << platform;
        EXPECT_EQ(process.readAllStandardError().toStdString(),
            "kv-virtualpad: there is no screen for a window: see that QT_QPA_PLATFORM and DISPLAY are right, or not set\n");
    }
}

} // namespace
