/// @file
/// kvsign: signatures from pads at the command line. Finds the subcommand and turns what it throws into an exit code.
#include "failure.h"
#include "interruption.h"
#include "subcommands.h"
#include "terminal.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>

namespace {

QString generalHelp()
{
    QString text = "Usage: kvsign SUBCOMMAND [options] [arguments]\n"
                   "Signatures from Korvane signature pads at the command line.\n\nSubcommands:\n";
    for (const Subcommand *subcommand : kSubcommands)
        text += QString("  %1%2\n").arg(subcommand->name, -12).arg(subcommand->summary);
    text += "\nOptions:\n  -h, --help  Show this help; \"kvsign SUBCOMMAND --help\" shows a subcommand's.\n"
            "  --version   Show the version.\n\nExit codes:\n";
    for (const ExitCodeRow &row : kExitCodes)
        text += QString("  %1  %2\n").arg(static_cast<int>(row.code)).arg(row.meaning);
    return text;
}

const Subcommand *subcommandOf(const QString &name)
{
    for (const Subcommand *subcommand : kSubcommands) {
        if (name == subcommand->name)
            return subcommand;
    }
    return nullptr;
}

std::unique_ptr<QCoreApplication> makeApplication(ApplicationKind kind, int &argc, char **argv)
{
    switch (kind) {
    case ApplicationKind::Drawing:
        return std::make_unique<QGuiApplication>(argc, argv);
    case ApplicationKind::Windows:
        return std::make_unique<QApplication>(argc, argv);
    case ApplicationKind::Plain:
        break;
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

int run(const Subcommand &subcommand, const QStringList &words)
{
    const Arguments arguments(subcommand, words);
    const bool wantsHelp = arguments.isSet(kHelpOption);
    if (!wantsHelp)
        arguments.check();
    const ApplicationKind kind =
        wantsHelp || subcommand.application == nullptr ? ApplicationKind::Plain : subcommand.application(arguments);
    // Qt takes the program name for the help text and the platform from argv.
    QByteArray name = QByteArray("kvsign ") + subcommand.name, option = "-platform", offscreen = "offscreen";
    char *argv[] = {name.data(), option.data(), offscreen.data(), nullptr};
    int argc = kind == ApplicationKind::Drawing ? 3 : 1;
    const std::unique_ptr<QCoreApplication> application = makeApplication(kind, argc, argv);
    if (wantsHelp) {
        std::fputs(arguments.help().toLocal8Bit().constData(), stdout);
        return kDone;
    }
    noticeInterruptions();
    return subcommand.run(arguments);
}

int runWords(const QStringList &words)
{
    const QString first = words.value(1);
    if (first == "--help" || first == "-h") {
        std::fputs(generalHelp().toLocal8Bit().constData(), stdout);
        return kDone;
    }
    if (first == "--version" && words.size() > 2)
        throw misused(QString("\"%1\" is more than --version takes").arg(words.at(2)));
    if (first == "--version") {
        say("kvsign " KVSIGN_VERSION);
        return kDone;
    }
    const Subcommand *subcommand = subcommandOf(first);
    if (subcommand == nullptr)
        throw misused(first.isEmpty() ? QString("which subcommand?") : QString("there is no \"%1\"").arg(first));
    return run(*subcommand, words.mid(1));
}

/// Whether JSON is asked for. Works even when the rest of the command line is wrong.
bool wantsJson(const QStringList &words)
{
    const Subcommand *const subcommand = subcommandOf(words.value(1));
    const bool knowsIt = subcommand != nullptr
        && std::any_of(subcommand->options.begin(), subcommand->options.end(),
            [](const Option &option) { return option.names == kJsonOption.names; });
    if (knowsIt)
        return Arguments(*subcommand, words.mid(1)).isSet(kJsonOption);
    return words.contains("--json") || words.contains("-j");
}

void answerInJson(const Failure &failure)
{
    QJsonObject answer = failure.details;
    for (const ExitCodeRow &row : kExitCodes) {
        if (row.code == failure.code)
            answer["result"] = row.result;
    }
    answer["exitCode"] = failure.code;
    answer["message"] = failure.message;
    sayJsonLine(answer);
    std::fflush(stdout);
}

int complain(const Failure &failure, const QStringList &words)
{
    if (wantsJson(words))
        answerInJson(failure);
    const QString subcommand = words.value(1);
    std::fprintf(stderr, "kvsign: %s\n", failure.message.toLocal8Bit().constData());
    if (failure.code == kUsage)
        std::fprintf(stderr, "Try \"kvsign %s--help\".\n",
            subcommandOf(subcommand) == nullptr ? "" : (subcommand + " ").toLocal8Bit().constData());
    return failure.code;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words += QString::fromLocal8Bit(argv[i]);
    try {
        const int code = runWords(words);
        flushOutput();
        return code;
    } catch (const Failure &failure) {
        return complain(failure, words);
    } catch (const std::bad_alloc &) {
        return complain(failed("there is not enough memory"), words);
    }
}
