// What a program that runs kvsign can rely on: with --json every failure is JSON too, and wrong usage exits with 2.
#include "kvsign.h"

#include <QJsonDocument>

namespace {

using namespace kvsign;

class KvsignAnswers : public Place
{
protected:
    void SetUp() override
    {
        write("a.ink", record({{1500, 900, 100, false, 0, 0}, {1600, 900, 100, true, 5, 0}}));
        write("broken.ink", "!");
    }

    QJsonObject failure(
        const QStringList &arguments, int exitCode, const QMap<QString, QString> &environment = {}) const
    {
        const CommandResult result = run(arguments, environment);
        EXPECT_EQ(result.exitCode, exitCode) << testing::PrintToString(result);
        EXPECT_EQ(result.output.trimmed().count('\n'), 0) << testing::PrintToString(result);
        const QJsonObject answer = QJsonDocument::fromJson(result.output.toUtf8()).object();
        EXPECT_EQ(answer["exitCode"].toInt(-1), exitCode) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(answer["message"].toString())) << testing::PrintToString(result);
        EXPECT_FALSE(answer["message"].toString().isEmpty()) << testing::PrintToString(result);
        return answer;
    }
};

TEST_F(KvsignAnswers, AreJsonOnEveryFailure)
{
    const QMap<QString, QString> otherPad{{"KVSIM_VERSION", "another"}};
    struct Row
    {
        QStringList arguments;
        int exitCode;
    };
    const Row rows[] = {{{"inspect", "--json", "none.ink"}, 1}, {{"inspect", "-j", "broken.ink"}, 1},
        {{"inspect", "broken.ink", "--json"}, 1}, {{"convert", "--json", "broken.ink", "x.csv"}, 1},
        {{"convert", "--json", "a.ink", "nowhere/x.csv"}, 1}, {{"replay", "--json", "broken.ink"}, 1},
        {{"replay", "--json", "--frames", "broken.ink", "a.ink"}, 1}, {{"capture", "--json", "nowhere/x.ink"}, 1},
        {{"capture", "--json", "--driver", "nowhere", "x.ink"}, 5}, {{"info", "--json", "--driver", "nowhere"}, 5},
        {{"inspect", "--json"}, 2}, {{"inspect", "--json", "--gap", "soon", "a.ink"}, 2},
        {{"inspect", "--json", "--bogus", "a.ink"}, 2}, {{"inspect", "--json", "a.ink", "a.ink"}, 2},
        {{"convert", "--json", "a.ink", "-", "--to", "csv"}, 2}, {{"doctor", "--json", "--model", "S400"}, 2},
        {{"sign", "--json", "--ink", "a.ink", "none.pdf", "x.pdf"}, 1},
        {{"sign", "--json", "--ink", "a.ink", "broken.ink", "x.pdf"}, 1}, {{"sign", "--json", "a.ink", "x.pdf"}, 2},
        {{"verify", "--json", "none.pdf"}, 1}, {{"verify", "--json", "broken.ink"}, 1}, {{"verify", "--json"}, 2},
        {{"unseal", "--json", "none.pdf", "x.ink", "--key", "none"}, 1}, {{"unseal", "--json", "none.pdf", "x.ink"}, 2},
        {{"draw", "--json"}, 2}, {{"--json"}, 2}, {{"completion", "--json"}, 2}};
    for (const Row &row : rows)
        EXPECT_EQ(failure(row.arguments, row.exitCode)["result"].toString(), "failed")
            << row.arguments.join(' ').toStdString();
    EXPECT_EQ(failure({"capture", "--json", "x.ink"}, 5, otherPad)["model"].toString(), "auto");
    const QJsonObject info = failure({"info", "--json"}, 5, otherPad);
    EXPECT_EQ(info["library"].toString(), "1.0.5.1");
    EXPECT_TRUE(info.contains("pad") && info["pad"].isNull());
}

TEST_F(KvsignAnswers, TellWrongUsageFromEverythingElse)
{
    const QStringList rows[] = {{}, {"draw"}, {"--bogus"}, {"--version", "more"}, {"completion", "more"}, {"capture"},
        {"capture", "x.ink", "x.ink"}, {"capture", "x.ink", "./x.ink"}, {"capture", ""},
        {"capture", "a.ink", "--unconfirmed", "a.ink"}, {"capture", "--unconfirmed", "x.gif", "x.ink"},
        {"capture", "--driver", "", "x.ink"}, {"capture", "--size", "", "x.ink"}, {"info", "more"},
        {"info", "--model", "S400", "--driver", "nowhere"}, {"doctor", "--model", ""}, {"doctor", "more"},
        {"inspect", ""}, {"inspect", "--from", "", "a.ink"}, {"inspect", "--from", "gif", "none.ink"},
        {"inspect", "none.png"}, {"inspect", "--gap", "0", "none.ink"},
        {"convert", "none.ink", "x.csv", "--scale", "huge"}, {"convert", "none.ink", "x.csv", "--dpi", "0"},
        {"convert", "none.ink", "x.png", "--color", "nocolour"}, {"convert", "none.ink", "x.png", "--background", "7"},
        {"convert", "none.ink", "x.png", "--clip", "no"}, {"convert", "none.ink", "x.png", "--pen-width", "99"},
        {"convert", "none.ink", "-", "--json", "--to", "csv"}, {"convert", "none.ink", "x.csv", "--model", "S400"},
        {"sign"}, {"sign", "none.pdf", "x.pdf"}, {"sign", "--ink", "a.ink", "none.pdf"},
        {"sign", "--ink", "a.ink", "--capture", "S300", "none.pdf", "x.pdf"},
        {"sign", "--capture", "S400", "none.pdf", "x.pdf"}, {"sign", "--ink", "a.ink", "a.ink", "./a.ink"},
        {"sign", "--ink", "a.ink", "--reason", "no certificate", "none.pdf", "x.pdf"},
        {"sign", "--ink", "a.ink", "--form-field", "a", "--page", "1", "none.pdf", "x.pdf"}, {"verify"},
        {"verify", "a.pdf", "b.pdf"}, {"unseal", "none.pdf"}, {"unseal", "none.pdf", "x.png", "--key", "k"},
        {"replay", "none.ink", "--speed", "0"}, {"replay", "none.ink", "--fps", "0"},
        {"replay", "none.ink", "--window", "--frames", "film"}, {"replay", "--window"},
        {"replay", "--window", "--speed", "no", "a.ink"}, {"replay", "--window", "--bogus", "a.ink"}};
    for (const QStringList &arguments : rows) {
        const CommandResult result =
            run(arguments, {{"QT_QPA_PLATFORM", {}}, {"DISPLAY", {}}, {"WAYLAND_DISPLAY", {}}});
        EXPECT_EQ(result.exitCode, 2) << arguments.join(' ').toStdString() << '\n' << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("--help\"")) << testing::PrintToString(result);
    }
    EXPECT_EQ(files(), QStringList({"a.ink", "broken.ink"}));
}

} // namespace
