// The commands in the documents of the recorder and of the virtual pad, done as a reader would do them.
#include "outsidecommand.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr char kKvsign[] = KV_BUILD_DIRECTORY "/tools/bin/kvsign";

QString source(const QString &name)
{
    return KV_SOURCE_DIRECTORY "/" + name;
}

QString commandsOf(const QString &document)
{
    return indentedBlock(QString::fromUtf8(contentOf(source(document)))).join('\n');
}

class DocumentedDriver : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_place.isValid()); }

    QString file(const QString &name) const { return m_place.filePath(name); }

    /// What the documents call the application: a script of these lines.
    void makeApplication(const QString &lines)
    {
        QFile script(file("the-application"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(("#!/bin/sh -e\n" + lines + "\n").toUtf8());
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    CommandResult run(const QString &commands, const QMap<QString, QString> &environment)
    {
        return runProgram({"sh", "-ec", commands}, m_place.path(), environment);
    }

    QTemporaryDir m_place;
};

TEST_F(DocumentedDriver, TheRecorderTakesTheDriversPlaceAndRecords)
{
    ASSERT_TRUE(QFile::copy(KV_BUILD_DIRECTORY "/simulator/libkvsignpaddrv.so", file("libkvsignpaddrv.so")));
    makeApplication(QString(kKvsign) + " capture --model S300 signature.ink");
    QString commands = commandsOf("simulator/recorder/README.md");
    ASSERT_TRUE(commands.contains(" .../recorder/"));
    commands.replace(" .../", " " KV_BUILD_DIRECTORY "/simulator/");
    const CommandResult recorded = run(commands, {{"KVSIM_SPEED", "20"}, {"KVSIM_RECORDING", "signature"}});
    ASSERT_EQ(recorded.exitCode, 0) << testing::PrintToString(recorded);
    const int points = storedPoints(source("simulator/recordings/signature.kvrec"));
    EXPECT_EQ(storedPoints(file("session.kvrec")), points);

    // What was recorded is played like any other recording, without the recorder.
    const CommandResult replayed = run("mv -f libkvsignpaddrv-real.so libkvsignpaddrv.so; ./the-application",
        {{"KVSIM_SPEED", "20"}, {"KVSIM_RECORDING", file("session.kvrec")}});
    ASSERT_EQ(replayed.exitCode, 0) << testing::PrintToString(replayed);
    EXPECT_TRUE(replayed.output.contains(QString("%1 points").arg(points))) << testing::PrintToString(replayed);
}

TEST_F(DocumentedDriver, TheVirtualPadIsThePadOfTheApplication)
{
    ASSERT_TRUE(QDir(m_place.path()).mkpath("build"));
    ASSERT_TRUE(QFile::link(KV_BUILD_DIRECTORY, file("build/release")));
    // The window needs a moment, which a reader gives it.
    makeApplication(QString("for i in $(seq 600); do\n"
                            "    %1 info --model S310X && exit\n"
                            "    sleep 0.1\n"
                            "done\n"
                            "exit 1")
                        .arg(kKvsign));
    const CommandResult result = run("trap 'kill $!' EXIT\n" + commandsOf("tools/virtualpad/README.md"),
        {{"QT_QPA_PLATFORM", "offscreen"}, {"XDG_RUNTIME_DIR", m_place.path()},
            {"PATH", m_place.path() + ":" + qEnvironmentVariable("PATH")}});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(result.output.contains("S310X")) << testing::PrintToString(result);
}

} // namespace
