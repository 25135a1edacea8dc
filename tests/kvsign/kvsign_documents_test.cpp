// The help texts, the manual, the page about it and the completion agree with each other and with what kvsign does.
#include "kvsign.h"

#include <QRegularExpression>
#include <QSet>

namespace {

using namespace kvsign;

const QString kManual = KV_SOURCE_DIRECTORY "/tools/kvsign/kvsign.1";
const char *const kSubcommands[] = {
    "capture", "info", "convert", "inspect", "replay", "sign", "verify", "unseal", "doctor", "completion"};

class KvsignDocuments : public Place
{
protected:
    QString help(const QString &subcommand) const { return runWell({subcommand, "--help"}).output; }
};

QSet<QString> optionsIn(const QString &text, const QRegularExpression &form)
{
    QSet<QString> options;
    for (auto match = form.globalMatch(text); match.hasNext();)
        options.insert(match.next().captured(1));
    return options;
}

/// The options that a subcommand's section of the manual describes.
QSet<QString> optionsInManual(const QString &subcommand)
{
    const QString manual = QString::fromUtf8(contentOf(kManual)).replace("\\-", "-");
    static const QRegularExpression described("\\n\\.TP\\n\\.BR? [^\\n]*(--[a-z-]+)");
    const auto section = [&](const QString &name) {
        const int begin = manual.indexOf("\n.SS " + name + "\n");
        EXPECT_GE(begin, 0) << name.toStdString();
        const int end = manual.indexOf(QRegularExpression("\\n\\.S[SH] "), begin + 1);
        return manual.mid(begin, end - begin + 1);
    };
    const QString text = section(subcommand);
    QSet<QString> options = optionsIn(text, described);
    if (text.contains("picture options"))
        options += optionsIn(section("Picture options"), described);
    return options + QSet<QString>{"--help"};
}

std::string sorted(const QSet<QString> &words)
{
    QStringList list = words.values();
    list.sort();
    return list.join(' ').toStdString();
}

TEST_F(KvsignDocuments, TheManualHasTheHelpsOptions)
{
    static const QRegularExpression helped("\\n  (?:-[a-z], )?(--[a-z-]+)");
    for (const char *subcommand : kSubcommands)
        EXPECT_EQ(sorted(optionsIn(help(subcommand), helped)), sorted(optionsInManual(subcommand))) << subcommand;
    static const QRegularExpression shortHelp("\\n  (-[a-z]), --"), shortManual("\\n\\.BR (-[a-z]) \", \"");
    const QString manual = QString::fromUtf8(contentOf(kManual)).replace("\\-", "-");
    QSet<QString> inHelp;
    for (const char *subcommand : kSubcommands)
        inHelp += optionsIn(help(subcommand), shortHelp);
    EXPECT_EQ(sorted(inHelp), sorted(optionsIn(manual, shortManual)));
}

TEST_F(KvsignDocuments, EverySubcommandIsEverywhere)
{
    const QString general = runWell({"--help"}).output;
    const QString manual = contentOf(kManual);
    for (const char *subcommand : kSubcommands) {
        EXPECT_TRUE(general.contains(QString("\n  %1 ").arg(subcommand))) << subcommand;
        EXPECT_TRUE(manual.contains(QString("\n.SS %1\n").arg(subcommand))) << subcommand;
        EXPECT_TRUE(manual.contains(QString("\n.B kvsign %1\n").arg(subcommand))) << subcommand;
        EXPECT_TRUE(help(subcommand).startsWith(QString("Usage: kvsign %1").arg(subcommand))) << subcommand;
    }
    EXPECT_EQ(runWell({"--version"}).output, "kvsign 1.0.5.1\n");
}

TEST_F(KvsignDocuments, TheExitCodesAreTheSame)
{
    static const QRegularExpression helped("\\n  (\\d  [^\\n]+)"), described("\\n\\.B (\\d\\n[^\\n]+)");
    const QString general = runWell({"--help"}).output;
    QString manual = contentOf(kManual);
    manual = manual.mid(manual.indexOf(".SH EXIT STATUS"));
    QSet<QString> inManual;
    for (QString code : optionsIn(manual, described))
        inManual.insert(code.replace("\n", "  "));
    EXPECT_EQ(sorted(optionsIn(general, helped)), sorted(inManual));
    EXPECT_EQ(inManual.size(), 7);
}

TEST_F(KvsignDocuments, TheManualIsWellFormed)
{
    const CommandResult result =
        runProgram({"groff", "-man", "-ww", "-Tutf8", kManual}, file("."), {{"GROFF_NO_SGR", "1"}});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.output.contains("kvsign - signatures from signature pads"));
}

TEST_F(KvsignDocuments, TheManualsExamplesWork)
{
    const QString manual = QString::fromUtf8(contentOf(kManual)).replace("\\-", "-");
    static const QRegularExpression example("\\n\\.EX\\n(.*?)\\.EE", QRegularExpression::DotMatchesEverythingOption);
    QString commands;
    for (auto match = example.globalMatch(manual); match.hasNext();)
        commands += match.next().captured(1);
    EXPECT_EQ(commands.count("kvsign "), 9);
    commands.replace(QRegularExpression("^kvsign ", QRegularExpression::MultilineOption), KV_KVSIGN " ");
    QFile::copy(KV_SOURCE_DIRECTORY "/examples/sign-desk/sample/delivery-note.pdf", file("delivery-note.pdf"));
    const CommandResult result = runProgram({"sh", "-exc", commands}, file("."), {{"KVSIM_SPEED", "20"}});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    EXPECT_TRUE(read("delivery-note-signed.pdf").startsWith(read("delivery-note.pdf")));
    EXPECT_EQ(read("again.ink"), read("signature.ink"));
    EXPECT_EQ(QImage(file("large.png")).width(), 2400);
    EXPECT_TRUE(exists("film/frame-00001.png"));
}

TEST_F(KvsignDocuments, ThePagesCommandsWork)
{
    const QStringList commands = indentedBlock(contentOf(KV_SOURCE_DIRECTORY "/docs/command-line.md"));
    EXPECT_GE(commands.filter("kvsign").size(), 6);
    QDir(file(".")).mkdir("build");
    QFile::link(KV_BUILD_DIRECTORY, file("build/release"));
    QFile::remove(file("libkvsignpaddrv.so"));
    const CommandResult result = runProgram({"sh", "-exc", commands.join('\n')}, file("."), {{"KVSIM_SPEED", "20"}});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    for (const char *name :
        {"signature.png", "signature.pdf", "signature.ink", "large.png", "signature.inkml", "film/frame-00001.png"})
        EXPECT_TRUE(exists(name)) << name;
    EXPECT_TRUE(result.output.contains("\nstrokes     2\n")) << testing::PrintToString(result);
}

TEST_F(KvsignDocuments, DeploymentsBatchConvertsWhatCanBeConvertedAndTellsTheRest)
{
    const QString page = sectionOf(contentOf(KV_SOURCE_DIRECTORY "/docs/deployment.md"), "By the million");
    const QString batch = indentedBlock(page).mid(0, 2).join('\n');
    ASSERT_TRUE(batch.contains("kvsign convert")) << batch.toStdString();
    capture("signature", "S300", {"signature.ink"});
    QDir(file(".")).mkdir("ink");
    for (const char *name : {"ink/one.ink", "ink/two words.ink"})
        ASSERT_TRUE(QFile::copy(file("signature.ink"), file(name)));
    write("ink/broken.ink", "no ink");
    const QMap<QString, QString> path{{"PATH", KV_BUILD_DIRECTORY "/tools/bin:" + qEnvironmentVariable("PATH")}};
    const CommandResult result = runProgram({"sh", "-c", batch}, file("."), path);
    EXPECT_EQ(result.exitCode, 123) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("broken.ink")) << testing::PrintToString(result);
    EXPECT_EQ(QDir(file("ink")).entryList({"*.pdf"}).join('|'), "one.pdf|two words.pdf");
    EXPECT_TRUE(read("ink/one.pdf").startsWith("%PDF-"));

    QFile::remove(file("ink/broken.ink"));
    const CommandResult again = runProgram({"sh", "-c", batch}, file("."), path);
    EXPECT_EQ(again.exitCode, 0) << testing::PrintToString(again);
}

// Nothing is built here; Ninja is only asked whether it knows the targets.
TEST_F(KvsignDocuments, ThePageSaysHowTheToolsAreBuilt)
{
    static const QRegularExpression command(
        "`cmake --preset release && cmake --build --preset release --target ([^`]+)`");
    const QString targets = command.match(contentOf(KV_SOURCE_DIRECTORY "/docs/command-line.md")).captured(1);
    EXPECT_EQ(targets, "kvsign kv-sign-desk kv-virtualpad");
    const CommandResult result =
        runProgram(QStringList{"ninja", "-C", KV_BUILD_DIRECTORY, "-t", "query"} + targets.split(' '), file("."));
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
}

class KvsignCompletion : public KvsignDocuments
{
protected:
    /// What bash offers to complete the last word.
    QStringList offered(const QStringList &words) const
    {
        const QString script = "source <(" KV_KVSIGN " completion); compopt() { :; }; COMP_WORDS=(\"$@\"); "
                               "COMP_CWORD=$(($# - 1)); _kvsign; printf '%s\\n' \"${COMPREPLY[@]}\"";
        const CommandResult result = runProgram(QStringList{"bash", "-c", script, "bash", "kvsign"} + words, file("."));
        EXPECT_EQ(result.errors, "");
        QStringList replies = result.output.trimmed().split('\n');
        replies.sort();
        return replies;
    }
};

TEST_F(KvsignCompletion, OffersWhatComesNext)
{
    write("signature.ink", "");
    EXPECT_EQ(offered({"un"}), QStringList("unseal"));
    EXPECT_EQ(offered({"in"}), QStringList({"info", "inspect"}));
    EXPECT_EQ(offered({"info", "--m"}), QStringList("--model"));
    EXPECT_EQ(offered({"capture", "--model", "S3"}), QStringList({"S300", "S310X"}));
    EXPECT_EQ(offered({"convert", "-t", "p"}), QStringList({"pdf", "png"}));
    EXPECT_EQ(offered({"inspect", "sig"}), QStringList("signature.ink"));
    EXPECT_EQ(offered({"verify", "--trust", "sig"}), QStringList("signature.ink"));
    EXPECT_EQ(offered({"capture", "--timeout", ""}), QStringList(""));
    for (const char *subcommand : kSubcommands) {
        static const QRegularExpression helped("\\n  (?:-[a-z], )?(--[a-z-]+)");
        const QStringList options = offered({subcommand, "--"});
        EXPECT_EQ(sorted(QSet<QString>(options.begin(), options.end())), sorted(optionsIn(help(subcommand), helped)))
            << subcommand;
    }
}

TEST_F(KvsignCompletion, IsASoundScript)
{
    write("completion.bash", runWell({"completion"}).output.toUtf8());
    const CommandResult result = runProgram({"shellcheck", "-s", "bash", file("completion.bash")}, file("."));
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
}

} // namespace
