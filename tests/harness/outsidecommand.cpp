#include "outsidecommand.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

constexpr int kLongest = 120000; // milliseconds

} // namespace

void PrintTo(const CommandResult &result, std::ostream *out)
{
    *out << "exit code " << result.exitCode << "\noutput:\n"
         << result.output.toStdString() << "\nerrors:\n"
         << result.errors.toStdString();
}

CommandResult runProgram(
    const QStringList &command, const QString &directory, const QMap<QString, QString> &environment)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (auto variable = environment.begin(); variable != environment.end(); ++variable) {
        if (variable.value().isNull())
            variables.remove(variable.key());
        else
            variables.insert(variable.key(), variable.value());
    }
    QProcess process;
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(directory);
    process.start(command.first(), command.mid(1));
    const bool ended = process.waitForFinished(kLongest) && process.exitStatus() == QProcess::NormalExit;
    if (!ended)
        process.kill();
    return {ended ? process.exitCode() : -1, QString::fromLocal8Bit(process.readAllStandardOutput()),
        QString::fromLocal8Bit(process.readAllStandardError())};
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QString sectionOf(const QString &document, const QString &heading)
{
    const int begin = document.indexOf("\n## " + heading + "\n");
    EXPECT_GE(begin, 0) << "no section " << heading.toStdString();
    const int end = document.indexOf("\n## ", begin + 4);
    return document.mid(begin, end < 0 ? -1 : end - begin);
}

QString fencedBlock(const QString &text, const QString &language)
{
    const QString fence = "```" + language + "\n";
    const int begin = text.indexOf(fence);
    EXPECT_GE(begin, 0) << "no block of " << language.toStdString();
    const int first = begin + fence.size();
    return text.mid(first, text.indexOf("```", first) - first);
}

QStringList indentedBlock(const QString &text)
{
    QString outside = text;
    outside.remove(QRegularExpression("```.*?```", QRegularExpression::DotMatchesEverythingOption));
    QStringList lines;
    for (const QString &line : outside.split('\n')) {
        if (line.startsWith("    "))
            lines += line.trimmed();
        else if (!lines.isEmpty())
            break;
    }
    EXPECT_FALSE(lines.isEmpty());
    return lines;
}

int storedPoints(const QString &recording)
{
    static const QRegularExpression packet("^[0-9.]+ -?\\d+ -?\\d+ -?\\d+ (\\d)$");
    int points = 0;
    bool inStroke = false;
    for (const QString &line : QString::fromUtf8(contentOf(recording)).split('\n')) {
        const QString status = packet.match(line).captured(1);
        const bool counts = status == "0" || (inStroke && (status == "1" || status == "2"));
        points += counts ? 1 : 0;
        inStroke = status == "0" || (inStroke && status != "2" && status != "3" && status != "4");
    }
    return points;
}
