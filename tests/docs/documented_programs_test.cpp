// The program and the commands in README.md, done as a reader would do them.
#include "countpixels.h"
#include "outsidecommand.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// A directory that looks as the repository does to the commands.
class ReadmesProgram : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_place.isValid());
        QDir(m_place.path()).mkpath("build");
        link(KV_SOURCE_DIRECTORY "/kvsignpadsdk", "kvsignpadsdk");
        link(KV_BUILD_DIRECTORY, "build/release");
        link(KV_BUILD_DIRECTORY "/simulator/libkvsignpaddrv.so", "libkvsignpaddrv.so");
        const QString section = sectionOf(contentOf(path("README.md")), "Program with it");
        QFile source(m_place.filePath("capture.cpp"));
        ASSERT_TRUE(source.open(QIODevice::WriteOnly));
        source.write(fencedBlock(section, "cpp").toUtf8());
        source.close();
        m_commands = indentedBlock(section);
    }

    static QString path(const QString &name) { return KV_SOURCE_DIRECTORY "/" + name; }
    QString file(const QString &name) const { return m_place.filePath(name); }

    CommandResult runCommands(const QString &recording)
    {
        // The copy of the driver that a reader makes is here already, or is not meant to be there.
        const QStringList commands = m_commands.filter(QRegularExpression("^(?!cp )"));
        return runProgram({"sh", "-ec", commands.join('\n')}, m_place.path(),
            {{"KVSIM_SPEED", "20"}, {"KVSIM_RECORDING", recording},
                {"LD_LIBRARY_PATH", KV_BUILD_DIRECTORY "/kvsignpadsdk"}});
    }

    QTemporaryDir m_place;
    QStringList m_commands;

private:
    void link(const QString &target, const QString &name) { QFile::link(target, m_place.filePath(name)); }
};

TEST_F(ReadmesProgram, WritesTheSignatureThatIsConfirmed)
{
    const CommandResult result = runCommands("signature");
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    const int points = storedPoints(path("simulator/recordings/signature.kvrec"));
    EXPECT_TRUE(result.output.contains(QString("\n%1 points\n").arg(points).mid(1))) << testing::PrintToString(result);

    const QImage picture(file("signature.png"));
    ASSERT_EQ(picture.size(), QSize(800, 452));
    EXPECT_EQ(picture.dotsPerMeterX(), 11811);
    const int inked = countPixels(picture, [](QRgb pixel) { return qAlpha(pixel) == 255; });
    EXPECT_GT(inked, 2000);
    EXPECT_LT(inked, 100000);
}

TEST_F(ReadmesProgram, WritesNothingWhenTheSignerCancels)
{
    const CommandResult result = runCommands("tick-and-cross");
    EXPECT_GT(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_FALSE(QFile::exists(file("signature.png")));
}

TEST_F(ReadmesProgram, SaysThatThereIsNoPad)
{
    QFile::remove(file("libkvsignpaddrv.so"));
    const CommandResult result = runCommands("signature");
    EXPECT_GT(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("no S300 pad", Qt::CaseInsensitive)) << testing::PrintToString(result);
}

TEST_F(ReadmesProgram, IsGivenTheSimulatedDriverFromWhereItIsBuilt)
{
    EXPECT_TRUE(m_commands.contains("cp build/release/simulator/libkvsignpaddrv.so ."));
}

} // namespace
