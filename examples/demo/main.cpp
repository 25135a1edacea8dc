#include "capture.h"
#include "captureview.h"
#include "deviceinfo.h"
#include "extras.h"
#include "failure.h"
#include "fingerprints.h"
#include "livepush.h"
#include "outputs.h"
#include "report.h"
#include "screen.h"
#include "settings.h"
#include "simulatorplace.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>

#include <cstdio>
#include <memory>
#include <optional>

namespace {

/// Collected during the run for the tables at the end.
struct Findings
{
    std::vector<QStringList> devices;
    std::vector<QStringList> inkRecords;
    LivePushes pushes;
};

/// Saves what came before the pad was unplugged, then fails.
[[noreturn]] void keepAndFail(const OpenedPad &pad, const Unplugged &gone, OutputDirectory &output)
{
    if (gone.points == 0)
        throw gone;
    output.saveSignature(pad, gone.points);
    throw Failure{gone.what,
        QString("The %1 points that had come are in %2; they may be half a signature. %3")
            .arg(gone.points)
            .arg(output.directory().absolutePath(), gone.cure)};
}

CaptureState capture(const OpenedPad &pad, CaptureView *view, OutputDirectory &output)
{
    ProgressLine progress;
    try {
        const CaptureState state = waitForConfirm(pad, [&](const CaptureState &now) {
            progress.show(QString("%1  signing...   %2").arg(pad->model, -5).arg(captureText(now)));
            if (view != nullptr)
                view->setStatus(captureText(now));
            if (view != nullptr && view->isClosed())
                throw Closed();
        });
        progress.finish(QString("%1  confirmed    %2").arg(pad->model, -5).arg(captureText(state)));
        return state;
    } catch (const Unplugged &gone) {
        progress.finish(QString("%1  unplugged    %2 points").arg(pad->model, -5).arg(gone.points, 5));
        keepAndFail(pad, gone, output);
    }
}

void capture(const PadFamily &pad, bool inWindow, OutputDirectory &output, Findings &findings)
{
    std::unique_ptr<CaptureView> view;
    if (inWindow) {
        view = std::make_unique<CaptureView>(pad, "sign on the pad, then tap confirm");
        view->show();
    }
    const OpenedPad open(pad, view.get(), view == nullptr ? QPoint() : view->signingPosition());
    if (&pad == &kS210Pad)
        startLivePush(open);

    const CaptureState state = capture(open, view.get(), output);
    output.saveSignature(open, state.points);
    findings.devices.push_back(deviceRow(open));
    findings.inkRecords.push_back(inkRecordRow(open));
    if (&pad == &kS210Pad) {
        findings.pushes = livePushes();
        output.saveText("s210-live-push.jpg", findings.pushes.last, state.points);
    }
    if (view != nullptr) {
        view->setStatus("confirmed  " + captureText(state));
        pause(700);
        output.saveImage(QString("%1-window.png").arg(QString(pad.model).toLower()), view->grab().toImage());
    }
}

void runAll(bool inWindow, OutputDirectory &output, Findings &findings)
{
    SimulatorSettings settings;
    for (const PadFamily &pad : kPadFamilies) {
        settings.playLive(&pad == &kS310XPad ? "signature-finger" : "signature");
        capture(pad, inWindow, output, findings);
    }
    ProgressLine progress;
    progress.show("S210   office canvas...");
    showOfficeCanvas(settings, output);
    progress.finish("S210   stretched to an office document's field");
    progress.show("S310X  fingerprint placements...");
    showFingerprints(settings, output);
    progress.finish("S310X  fingerprint at the centre, in a rectangle, in another window and on a canvas");
}

void printFindings(const OutputDirectory &output, const Findings &findings)
{
    std::puts("");
    printTable(deviceTitles(), findings.devices);
    std::puts("");
    printTable(inkRecordTitles(), findings.inkRecords);
    std::vector<QStringList> files;
    for (const WrittenFile &file : output.files())
        files.push_back(file.row());
    std::puts("");
    printTable(WrittenFile::titles(), files);
    std::puts("");
    if (findings.pushes.images > 0)
        std::printf("S210 live push: %d images, %.0f a second, the last one in s210-live-push.jpg\n",
            findings.pushes.images, findings.pushes.perSecond());
    std::printf("Everything is in %s\n", output.directory().absolutePath().toLocal8Bit().constData());
}

struct Wanted
{
    QString output;
    QString driver; ///< its folder, "simulator", or empty for the working directory
    bool inWindow;
};

/// @return nothing when the command line cannot be understood
std::optional<Wanted> wanted(const QStringList &arguments)
{
    const QCommandLineOption window("window"), driver("driver", {}, "FOLDER");
    QCommandLineParser parser;
    parser.addOptions({window, driver});
    if (!parser.parse(arguments) || parser.positionalArguments().size() != 1)
        return std::nullopt;
    return Wanted{parser.positionalArguments().first(), parser.value(driver), parser.isSet(window)};
}

/// The library loads its driver from the working directory.
void goToDriver(const QString &option)
{
    const std::optional<std::string> folder = simulatorplace::folderOf(QFile::encodeName(option).toStdString());
    if (!folder.has_value())
        throw Failure{"The pad simulator is not installed.",
            "Install the package kvsignpad-simulator, or start ./demo, which builds it."};
    if (!folder->empty() && !QDir::setCurrent(QFile::decodeName(folder->c_str())))
        throw Failure{QString("There is no directory %1.").arg(option), "Name the one with libkvsignpaddrv.so."};
}

int complain(const Failure &failure)
{
    std::fprintf(stderr, "\nThe demo failed: %s\n%s\n", failure.what.toLocal8Bit().constData(),
        failure.cure.toLocal8Bit().constData());
    return 1;
}

int run(const Wanted &options)
{
    OutputDirectory output(QDir(options.output).absolutePath());
    goToDriver(options.driver);
    Findings findings;
    try {
        runAll(options.inWindow, output, findings);
    } catch (const Closed &) {
        std::puts("The window was closed; this is what was written before.");
    }
    printFindings(output, findings);
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QFile::decodeName(argv[i]);
    const std::optional<Wanted> options = wanted(arguments);
    if (!options.has_value()) {
        std::fputs("usage: kv-demo OUTPUT-DIRECTORY [--window] [--driver FOLDER|simulator]\n"
                   "Without --driver the working directory has libkvsignpaddrv.so.\n",
            stderr);
        return 2;
    }
    const QString noScreen = screen::why(argc, argv);
    if (!noScreen.isEmpty())
        return complain({noScreen, "Set QT_QPA_PLATFORM and DISPLAY right, or QT_QPA_PLATFORM=offscreen."});
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        return run(*options);
    } catch (const Failure &failure) {
        return complain(failure);
    }
}
