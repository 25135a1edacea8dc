// The repository's scripts: what they refuse, and which packages are installed.
#include "outsidecommand.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString kSource = KV_SOURCE_DIRECTORY;

TEST(DemoScript, RefusesUnknownArguments)
{
    const CommandResult result = runProgram({kSource + "/demo", "--widnow"}, "/");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("unknown arguments: --widnow")) << testing::PrintToString(result);
}

TEST(DemoScript, SaysHowToShowWindowsWithoutAScreen)
{
    const CommandResult result =
        runProgram({kSource + "/demo", "--window"}, "/", {{"DISPLAY", {}}, {"WAYLAND_DISPLAY", {}}});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("xvfb-run -a ./demo --window")) << testing::PrintToString(result);
}

TEST(CheckScript, RefusesUnknownArguments)
{
    const CommandResult result = runProgram({kSource + "/check", "--fast"}, "/");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_TRUE(result.errors.contains("usage: ./check")) << testing::PrintToString(result);
}

/// The hook that looks at a commit's message.
int exitOfMessage(const QByteArray &message)
{
    const QTemporaryDir place;
    QFile file(place.filePath("message"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(message);
    file.close();
    return runProgram({kSource + "/tools/githooks/commit-msg", file.fileName()}, place.path()).exitCode;
}

TEST(CommitMessage, HasAShortSubjectAndAnEmptyLineBelow)
{
    const QByteArray longest(72, 'x');
    EXPECT_EQ(exitOfMessage(longest + "\n"), 0);
    EXPECT_EQ(exitOfMessage(longest + "\n\nWhy.\n# a comment of git's\n"), 0);
    EXPECT_EQ(exitOfMessage(longest + "x\n"), 1);
    EXPECT_EQ(exitOfMessage("Do this\nand that\n"), 1);
    EXPECT_EQ(exitOfMessage("fixup! " + longest + "\n"), 0) << "it does not stay";
}

TEST(MutantsScript, ChangesLinesAsItSays)
{
    const CommandResult result = runProgram({"python3", "-B", kSource + "/tests/mutation/changes_test.py"}, "/");
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
}

TEST(MutantsScript, DrawsTheSamePlacesFromTheSameSeed)
{
    const QStringList list{kSource + "/tests/mutants", "--list", "--count", "20", "--seed"};
    const CommandResult first = runProgram(list + QStringList{"7"}, "/");
    const CommandResult other = runProgram(list + QStringList{"8"}, "/");
    EXPECT_EQ(first.exitCode, 0) << testing::PrintToString(first);
    EXPECT_EQ(first.output.count('\n'), 21);
    EXPECT_EQ(first.output, runProgram(list + QStringList{"7"}, "/").output);
    EXPECT_NE(first.output.section('\n', 1), other.output.section('\n', 1));
}

/// install-packages with commands of its own instead of the system's, which write down how they are called.
class InstallPackages : public testing::Test
{
protected:
    void SetUp() override
    {
        standIn("sudo", "exec \"$@\"");
        standIn("apt-get", "echo \"apt-get $*\" >>" + m_place.filePath("calls"));
        standIn("dpkg-query", "test \"$4\" != \"$MISSING\" && echo installed");
        QFile(m_place.filePath("calls")).open(QIODevice::WriteOnly);
    }

    CommandResult install(const QStringList &groups, const QString &missing)
    {
        return runProgram(QStringList(kSource + "/tools/install-packages") + groups, "/",
            {{"PATH", m_place.path() + ":" + qEnvironmentVariable("PATH")}, {"MISSING", missing}});
    }

    void standIn(const QString &command, const QString &body)
    {
        QFile file(m_place.filePath(command));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(("#!/bin/sh\n" + body + "\n").toUtf8());
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::WriteOwner);
    }

    QString calls() const { return contentOf(m_place.filePath("calls")); }

    QTemporaryDir m_place;
};

TEST_F(InstallPackages, NeedsNothingWhenNothingIsMissing)
{
    EXPECT_EQ(install({"build", "check"}, "none").exitCode, 0);
    EXPECT_EQ(calls(), "");
}

TEST_F(InstallPackages, InstallsOnlyWhatIsMissing)
{
    EXPECT_EQ(install({"build", "check"}, "ninja-build").exitCode, 0);
    EXPECT_EQ(calls(), "apt-get update -qq\napt-get install -y -qq --no-install-recommends ninja-build\n");
}

TEST_F(InstallPackages, LeavesOtherGroupsAlone)
{
    EXPECT_EQ(install({"build", "check"}, "shellcheck").exitCode, 0);
    EXPECT_EQ(calls(), "");
    EXPECT_EQ(install({"all"}, "shellcheck").exitCode, 0);
    EXPECT_TRUE(calls().contains(" shellcheck\n"));
}

TEST_F(InstallPackages, SaysWhatIsMissingWhenItCannotBeInstalled)
{
    standIn("apt-get", "exit 100");
    const CommandResult result = install({"build"}, "g++");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains("Missing: g++")) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("is the network up?"));
}

TEST(Documents, LinkOnlyToFilesThatExist)
{
    static const QRegularExpression link("\\]\\(([^)#:]+)\\)");
    QStringList names{"README.md", "CONTRIBUTING.md", "simulator/README.md", "documents/README.md"};
    for (const char *folder : {"docs", "docs/languages"}) {
        for (const QString &name : QDir(kSource + "/" + folder).entryList({"*.md"}))
            names += QString("%1/%2").arg(folder, name);
    }
    EXPECT_GT(names.size(), 20);
    for (const QString &name : names) {
        const QDir place = QFileInfo(kSource + "/" + name).dir();
        QString text = contentOf(kSource + "/" + name);
        text.remove(QRegularExpression("```.*?```", QRegularExpression::DotMatchesEverythingOption));
        auto matches = link.globalMatch(text);
        while (matches.hasNext()) {
            const QString target = matches.next().captured(1);
            EXPECT_TRUE(place.exists(target)) << name.toStdString() << " links to " << target.toStdString();
        }
    }
}

TEST(Changelog, HeadsWhatIsReleasedWithItsVersionAndDate)
{
    static const QRegularExpression heading("^## (.*)$", QRegularExpression::MultilineOption);
    static const QRegularExpression released("^(\\d+\\.\\d+\\.\\d+\\.\\d+) - \\d{4}-\\d\\d-\\d\\d$");
    static const QRegularExpression project(
        "^project\\(kvsignpadsdk VERSION (\\S+)", QRegularExpression::MultilineOption);
    QStringList versions;
    auto headings = heading.globalMatch(contentOf(kSource + "/CHANGELOG.md"));
    while (headings.hasNext()) {
        const QRegularExpressionMatch found = headings.next();
        const QRegularExpressionMatch version = released.match(found.captured(1));
        if (found.captured(1) == "To come" && versions.isEmpty())
            continue;
        EXPECT_TRUE(version.hasMatch()) << found.captured(1).toStdString();
        versions += version.captured(1);
    }
    ASSERT_FALSE(versions.isEmpty());
    EXPECT_EQ(versions[0], project.match(contentOf(kSource + "/CMakeLists.txt")).captured(1));
}

TEST(Architecture, NamesFilesThatExist)
{
    // `penpackets` stands for penpackets.h, `cs310x*_x` for some; names with a suffix for themselves.
    static const QRegularExpression name("`([a-zA-Z0-9_*/]+(?:\\.[a-z]+)?)`");
    const QString text = contentOf(kSource + "/docs/architecture.md");
    const QString table = text.mid(text.indexOf("| What | Where |"));
    auto matches = name.globalMatch(table.left(table.indexOf("\n\n")));
    int named = 0;
    while (matches.hasNext()) {
        const QString file = matches.next().captured(1);
        const QString pattern = file.contains('.') ? file : file + ".h";
        const QFileInfo path(kSource + (file.startsWith("models/") ? "/" : "/kvsignpadsdk/") + pattern);
        EXPECT_FALSE(QDir(path.path()).entryList({path.fileName()}).isEmpty()) << file.toStdString();
        ++named;
    }
    EXPECT_GT(named, 30);
}

} // namespace
