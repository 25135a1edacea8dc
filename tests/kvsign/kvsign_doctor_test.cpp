// kvsign doctor and info: what they say about good and broken installations.
#include "kvsign.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLibraryInfo>

namespace {

using namespace kvsign;

class KvsignDoctor : public Place
{
protected:
    /// What doctor finds about a subject when the driver is taken from this directory.
    QJsonObject finding(const QString &driverDirectory, const QString &subject,
        const QMap<QString, QString> &environment = {}, int exitCode = 1) const
    {
        const CommandResult result =
            run({"doctor", "--json", "--model", "S310X", "--driver", driverDirectory}, environment);
        EXPECT_EQ(result.exitCode, exitCode) << testing::PrintToString(result);
        const QJsonObject document = QJsonDocument::fromJson(result.output.toUtf8()).object();
        EXPECT_EQ(document["well"].toBool(), exitCode == 0);
        QJsonObject found;
        for (const QJsonValue &value : document["findings"].toArray()) {
            const QJsonObject item = value.toObject();
            EXPECT_EQ(item.contains("cure"), item["state"].toString() != "ok")
                << item["subject"].toString().toStdString();
            if (item["subject"].toString() == subject)
                found = item;
        }
        EXPECT_FALSE(found.isEmpty()) << subject.toStdString() << " in\n" << testing::PrintToString(result);
        return found;
    }

    void findsWrong(const QJsonObject &finding, const QByteArray &what, const QByteArray &cure) const
    {
        EXPECT_EQ(finding["state"].toString(), "wrong");
        EXPECT_TRUE(finding["finding"].toString().contains(what)) << finding["finding"].toString().toStdString();
        EXPECT_TRUE(finding["cure"].toString().contains(cure)) << finding["cure"].toString().toStdString();
    }
};

const char *const kOperations[] = {"Initial", "UnInitial", "OpenDeviceLCD", "ClearDeviceContent", "GetDevicePenID",
    "GetDevicePadID", "GetDeviceSecureID", "GetDevicePartsVersion", "ShowVersionInfoOnDevice", "SetDevicePenStyle",
    "ShowFPImageOnDevice"};

TEST_F(KvsignDoctor, IsContentWithAGoodInstallation)
{
    const CommandResult result = run({"doctor"});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    for (const char *operation : kOperations)
        EXPECT_TRUE(result.output.contains(QString("ok    driver operation %1: there\n").arg(operation)))
            << testing::PrintToString(result);
    for (const char *line :
        {"ok    Qt module Core: 5.15", "ok    Qt module Svg: 5.15", "ok    image format png: ",
            "ok    image format jpg: ", "ok    fonts: ", "ok    /tmp: ", "ok    pad: S210, version \"KVS210 SIM 1.0\""})
        EXPECT_TRUE(result.output.contains(line)) << line << " in\n" << testing::PrintToString(result);
    EXPECT_FALSE(result.output.contains("WRONG"));
}

TEST_F(KvsignDoctor, FindsAnOperationThatTheDriverLacks)
{
    for (const char *operation : {"SetDevicePenStyle", "ShowFPImageOnDevice"})
        findsWrong(finding(kDriverDirectory + "/without/" + operation, QString("driver operation %1").arg(operation)),
            "missing, which", "install the driver's newest version");
}

TEST_F(KvsignDoctor, FindsADriverThatIsNone)
{
    findsWrong(finding(kDriverDirectory + "/broken", "driver file"), "is no library for this kind of computer",
        "install the driver for ");
    findsWrong(finding(KV_SOURCE_DIRECTORY, "driver file"), "libkvsignpaddrv.so does not exist", "--driver simulator");
    QDir(file(".")).mkpath("directory/libkvsignpaddrv.so");
    findsWrong(finding(file("directory"), "driver file"), "is no file", "put the driver's file there");
    QByteArray driver = contentOf(kDriverDirectory + "/libkvsignpaddrv.so");
    QDir(file(".")).mkpath("cut");
    write("cut/libkvsignpaddrv.so", driver.left(3000));
    findsWrong(finding(file("cut"), "driver file"), "is cut off", "copy it again");
    findsWrong(finding(file("cut"), "pad"), "cannot be asked", "cure the driver first");
    QDir(file(".")).mkpath("lacking");
    write("lacking/libkvsignpaddrv.so", driver.replace("libstdc++.so.6", "libstdc++.so.X"));
    findsWrong(finding(file("lacking"), "driver"), "libstdc++.so.X", "ldd ");
}

TEST_F(KvsignDoctor, FindsADriverThatEverybodyMayChange)
{
    QDir(file(".")).mkpath("open");
    const QString driver = file("open/libkvsignpaddrv.so");
    ASSERT_TRUE(QFile::copy(QFileInfo(kDriverDirectory + "/libkvsignpaddrv.so").canonicalFilePath(), driver));
    QFile::setPermissions(driver, QFile::permissions(driver) | QFile::WriteOther);
    const QJsonObject found = finding(file("open"), "driver's safety");
    findsWrong(found, "can be written by everybody", "chmod o-w " + driver.toUtf8());
    EXPECT_TRUE(found["finding"].toString().endsWith("it is not used"));
    findsWrong(finding(file("open"), "pad"), "cannot be asked", "cure the driver first");
    const CommandResult allowed = run({"doctor", "--unsafe-driver", "--driver", file("open")});
    EXPECT_EQ(allowed.exitCode, 0) << testing::PrintToString(allowed);
    EXPECT_TRUE(allowed.output.contains("note  driver's safety: " + driver + " can be written by everybody"))
        << testing::PrintToString(allowed);
    for (const QStringList &command : {QStringList{"info"}, QStringList{"capture", "x.ink"}}) {
        const QStringList arguments = command + QStringList{"--driver", file("open")};
        const CommandResult refused = run(arguments);
        EXPECT_EQ(refused.exitCode, 1) << testing::PrintToString(refused);
        EXPECT_TRUE(refused.errors.contains("the driver is not used, for others could replace it: " + driver))
            << testing::PrintToString(refused);
        runWell(arguments + QStringList{"--unsafe-driver"});
    }
    QFile::setPermissions(driver, QFile::permissions(driver) & ~QFile::WriteOther);
    QFile::setPermissions(file("open"), QFile::permissions(file("open")) | QFile::WriteOther);
    findsWrong(
        finding(file("open"), "driver's safety"), "can be written by everybody", "chmod o-w " + file("open").toUtf8());
}

TEST_F(KvsignDoctor, FindsASecondLibrary)
{
    const QString library = QFileInfo(KV_BUILD_DIRECTORY "/kvsignpadsdk/libkvsignpadsdk.so.1").canonicalFilePath();
    EXPECT_EQ(finding(kDriverDirectory, "library", {}, 0)["finding"].toString(), library);
    QDir(file(".")).mkpath("second");
    ASSERT_TRUE(QFile::copy(library, file("second/libkvsignpadsdk.so.1")));
    const QString path = QFileInfo(library).path() + ":" + file("second");
    const QJsonObject second = finding(kDriverDirectory, "second library", {{"LD_LIBRARY_PATH", path}}, 0);
    EXPECT_EQ(second["state"].toString(), "note");
    EXPECT_EQ(second["finding"].toString(),
        QFileInfo(file("second/libkvsignpadsdk.so.1")).canonicalFilePath()
            + " is there besides, and programs may take either");
}

TEST_F(KvsignDoctor, FindsALibraryOfAnotherVersion)
{
    const QString library = QFileInfo(KV_BUILD_DIRECTORY "/kvsignpadsdk/libkvsignpadsdk.so.1").canonicalFilePath();
    QDir(file(".")).mkpath("old");
    ASSERT_TRUE(QFile::copy(library, file("old/libkvsignpadsdk.so.1.0.4.7")));
    ASSERT_TRUE(QFile::link("libkvsignpadsdk.so.1.0.4.7", file("old/libkvsignpadsdk.so.1")));
    findsWrong(finding(kDriverDirectory, "library", {{"LD_LIBRARY_PATH", file("old")}}),
        "libkvsignpadsdk.so.1.0.4.7 is not of kvsign's version 1.0.5.1",
        "apt-get install --reinstall libkvsignpadsdk1");
}

TEST_F(KvsignDoctor, FindsAnImageFormatThatQtHasNoPluginFor)
{
    // Beside a copy of kvsign a file tells Qt to look for its plugins where there is but the one for no screen.
    ASSERT_TRUE(QFile::copy(KV_KVSIGN, file("kvsign")));
    write("qt.conf", "[Paths]\nPlugins=plugins\n");
    ASSERT_TRUE(QDir(file(".")).mkpath("plugins/platforms"));
    const QString offscreen = "/platforms/libqoffscreen.so";
    ASSERT_TRUE(
        QFile::link(QLibraryInfo::location(QLibraryInfo::PluginsPath) + offscreen, file("plugins") + offscreen));
    const CommandResult result = runProgram({file("kvsign"), "doctor", "--driver", kDriverDirectory}, file("."),
        {{"LD_LIBRARY_PATH", KV_BUILD_DIRECTORY "/kvsignpadsdk"}});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains("WRONG image format jpg: Qt does not read it\n"
                                       "      cure: apt-get install --reinstall libqt5gui5"))
        << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains("ok    image format png: ")) << testing::PrintToString(result);
}

TEST_F(KvsignDoctor, FindsAPadOfAnotherModel)
{
    findsWrong(finding(kDriverDirectory, "pad", {{"KVSIM_VERSION", "KVR800"}}), "none answers as S310X", "this model");
    EXPECT_EQ(finding(kDriverDirectory, "pad", {}, 0)["finding"].toString(), "S310X, version \"KVS310X SIM 1.0\"");
}

TEST_F(KvsignDoctor, LooksForADisplay)
{
    const QMap<QString, QString> without{{"QT_QPA_PLATFORM", {}}, {"DISPLAY", {}}, {"WAYLAND_DISPLAY", {}}};
    const QJsonObject missing = finding(kDriverDirectory, "display", without, 0);
    EXPECT_EQ(missing["state"].toString(), "note");
    EXPECT_EQ(missing["finding"].toString(), "DISPLAY is not set");
    const CommandResult onScreen =
        runProgram({"xvfb-run", "-a", KV_KVSIGN, "doctor"}, kDriverDirectory, {{"QT_QPA_PLATFORM", {}}, kOnScreen});
    EXPECT_TRUE(onScreen.output.contains("ok    display: the X display :")) << testing::PrintToString(onScreen);
}

TEST_F(KvsignDoctor, FindsAMissingDriverDirectory)
{
    const CommandResult result = run({"doctor", "--driver", "/no/such"});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains("WRONG driver file: there is no directory /no/such"))
        << testing::PrintToString(result);
}

struct Model
{
    const char *name;
    int x;
    int y;
    int pressure;
    bool hasPenId;
    bool hasFingerprint;
};

const Model kModels[] = {{"S210", 2360, 1430, 2048, true, false}, {"S300", 2300, 1300, 2048, true, false},
    {"S310X", 21170, 11490, 2048, true, true}, {"R800", 29870, 20120, 8192, false, false},
    {"M450", 29870, 20120, 8192, false, false}};

TEST_F(KvsignDoctor, InfoTellsWhatThePadsTell)
{
    for (const Model &model : kModels) {
        const QJsonObject info = runJson({"info", "--model", model.name});
        EXPECT_EQ(info["library"].toString(), "1.0.5.1");
        EXPECT_TRUE(info["qt"].toString().startsWith("5.15"));
        const QJsonObject pad = info["pad"].toObject();
        EXPECT_EQ(pad["model"].toString(), model.name);
        EXPECT_EQ(pad["product"].toString(), model.name);
        EXPECT_EQ(pad["vendor"].toString(), "Korvane");
        EXPECT_TRUE(pad["connected"].toBool());
        EXPECT_EQ(pad["driver"].toString(), "1.0");
        EXPECT_EQ(pad["x"]["max"].toInt(), model.x);
        EXPECT_EQ(pad["y"]["max"].toInt(), model.y);
        EXPECT_EQ(pad["pressure"]["max"].toInt(), model.pressure);
        EXPECT_EQ(pad["padId"].toString(), QString("SIM-%1-PadID-0001").arg(model.name));
        EXPECT_EQ(pad.contains("penId"), model.hasPenId);
        EXPECT_EQ(pad["fingerprint"].toBool(), model.hasFingerprint);
    }
    const QString text = runWell({"info", "-m", "S210"}, {{"KVSIM_VERSION", "KVS190 old"}}).output;
    EXPECT_TRUE(text.contains("\nversion      KVS190 old\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("\npressure     0 to 1024\n")) << text.toStdString();
}

TEST_F(KvsignDoctor, InfoTellsTheVersionsWithoutAPadToo)
{
    const CommandResult result = run({"info", "--json", "--driver", KV_SOURCE_DIRECTORY});
    EXPECT_EQ(result.exitCode, 5) << testing::PrintToString(result);
    const QJsonObject info = QJsonDocument::fromJson(result.output.toUtf8()).object();
    EXPECT_EQ(info["kvsign"].toString(), "1.0.5.1");
    EXPECT_TRUE(info["pad"].isNull());
}

} // namespace
