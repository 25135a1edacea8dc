// The programs and commands in README.md and docs/hosts.md, done as a reader would do them.
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

struct Program
{
    const char *name;
    const char *document;
    const char *section;
    const char *language;
    const char *file; ///< under which a reader saves it
};

const Program kPrograms[] = {
    {"readme", "README.md", "A program", "cpp", "capture.cpp"},
    {"c", "docs/hosts.md", "C", "c", "capture.c"},
};

/// A directory that looks as the repository does to the commands.
class DocumentedProgram : public testing::TestWithParam<Program>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_place.isValid());
        QDir(m_place.path()).mkpath("build");
        link(KV_SOURCE_DIRECTORY "/kvsignpadsdk", "kvsignpadsdk");
        link(KV_BUILD_DIRECTORY, "build/release");
        link(KV_BUILD_DIRECTORY "/simulator/libkvsignpaddrv.so", "libkvsignpaddrv.so");
        const QString section = sectionOf(contentOf(path(GetParam().document)), GetParam().section);
        QFile source(m_place.filePath(GetParam().file));
        ASSERT_TRUE(source.open(QIODevice::WriteOnly));
        source.write(fencedBlock(section, GetParam().language).toUtf8());
        source.close();
        m_commands = indentedBlock(section);
        // A C program of a system that has the library installed is just started.
        if (GetParam().language == QString("c"))
            m_commands += "./capture";
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

TEST_P(DocumentedProgram, WritesTheSignatureThatIsConfirmed)
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

TEST_P(DocumentedProgram, WritesNothingWhenTheSignerCancels)
{
    const CommandResult result = runCommands("tick-and-cross");
    EXPECT_GT(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_FALSE(QFile::exists(file("signature.png")));
}

TEST_P(DocumentedProgram, SaysThatThereIsNoPad)
{
    QFile::remove(file("libkvsignpaddrv.so"));
    const CommandResult result = runCommands("signature");
    EXPECT_GT(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("no S300 pad", Qt::CaseInsensitive)) << testing::PrintToString(result);
}

INSTANTIATE_TEST_SUITE_P(Documents, DocumentedProgram, testing::ValuesIn(kPrograms),
    [](const auto &row) { return std::string(row.param.name); });

TEST(Readme, CopiesTheSimulatedDriverFromWhereItIsBuilt)
{
    const QString section = sectionOf(contentOf(KV_SOURCE_DIRECTORY "/README.md"), "A program");
    EXPECT_TRUE(indentedBlock(section).contains("cp build/release/simulator/libkvsignpaddrv.so ."));
}

} // namespace
