// Options that would do nothing are refused, with the reason, before anything is read or written.
#include "kvsign.h"

namespace {

using namespace kvsign;

const Points kLine = {
    {1000, 500, 100, false, 10000, 77}, {1400, 900, 100, false, 10010, 77}, {1400, 900, 100, true, 10020, 77}};

struct Row
{
    QStringList command;
    QString message;
};

QStringList replay(const QStringList &options)
{
    return QStringList{"replay", "a.ink"} + options;
}

QStringList convert(const QString &output, const QStringList &options)
{
    return QStringList{"convert", "a.ink", output} + options;
}

QStringList sign(const QStringList &options)
{
    return QStringList{"sign", "none.pdf", "signed.pdf"} + options;
}

class KvsignIdleOptions : public Place
{
protected:
    KvsignIdleOptions() { write("a.ink", record(kLine)); }

    void areRefused(const std::vector<Row> &rows)
    {
        const QStringList before = files();
        for (const Row &row : rows) {
            SCOPED_TRACE(row.command.join(' ').toStdString());
            const CommandResult result = run(row.command, {{"QT_QPA_PLATFORM", "offscreen"}});
            EXPECT_EQ(result.exitCode, 2);
            EXPECT_TRUE(result.errors.startsWith("kvsign: " + row.message + "\n")) << result.errors.toStdString();
            EXPECT_EQ(files(), before);
        }
    }
};

TEST_F(KvsignIdleOptions, OfReplayAreThoseOfAnotherWayToShowIt)
{
    areRefused({{replay({"--fps", "10"}), "--fps does nothing without --frames"},
        {replay({"--fps", "10", "--window"}), "--fps does nothing without --frames"},
        {replay({"--close"}), "--close does nothing without --window"},
        {replay({"--close", "--frames", "film"}), "--close does nothing without --window"},
        {replay({"--json", "--window"}), "--json does nothing beside --window"},
        {replay({"--model", "S300"}), "--model does nothing without --window or --frames"},
        {replay({"--scale", "2"}), "--scale does nothing without --window or --frames"},
        {replay({"--pen-width", "2"}), "--pen-width does nothing without --window or --frames"},
        {replay({"--no-pressure"}), "--no-pressure does nothing without --window or --frames"},
        {replay({"--color", "red"}), "--color does nothing without --window or --frames"},
        {replay({"--background", "red"}), "--background does nothing without --window or --frames"},
        {replay({"--clip", "5"}), "--clip does nothing without --window or --frames"}});
}

TEST_F(KvsignIdleOptions, OfConvertAreThoseOfPicturesWhenInkIsWritten)
{
    const std::vector<std::pair<QStringList, QString>> options = {{{"--model", "S300"}, "--model"},
        {{"--scale", "3"}, "--scale"}, {{"--pen-width", "2"}, "--pen-width"}, {{"--no-pressure"}, "--no-pressure"},
        {{"--color", "red"}, "--color"}, {{"--background", "white"}, "--background"}, {{"--clip", "5"}, "--clip"},
        {{"--dpi", "150"}, "--dpi"}};
    std::vector<Row> rows;
    for (const auto &[words, name] : options) {
        for (const QString &output : {QString("b.ink"), QString("b.csv"), QString("b.json"), QString("b.inkml")})
            rows.push_back({convert(output, words), name + " does nothing when no picture is drawn"});
        rows.push_back(
            {convert("-", words + QStringList{"--to", "csv"}), name + " does nothing when no picture is drawn"});
        runWell(convert("drawn.png", words));
    }
    areRefused(rows);
}

TEST_F(KvsignIdleOptions, OfSignAreThoseOfAnotherSourceOfInk)
{
    areRefused({{sign({"--ink", "a.ink", "--timeout", "5"}), "--timeout does nothing without --capture"},
        {sign({"--ink", "a.ink", "--driver", "."}), "--driver does nothing without --capture"},
        {sign({"--ink", "a.ink", "--unsafe-driver"}), "--unsafe-driver does nothing without --capture"},
        {sign({"--capture", "S300", "--from", "csv"}), "--from does nothing without --ink"},
        {sign({"--capture", "S300", "--model", "S310X"}), "--model does nothing without --ink"}});
}

} // namespace
