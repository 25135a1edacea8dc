/// @file
/// kv-virtualpad: a window that plays a signature pad, for programs whose driver is the simulator.
#include "padwindow.h"
#include "screen.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <stdexcept>

namespace {

QString modelNames()
{
    QStringList names;
    for (const ModelRow *model : kModelRows)
        names << model->name;
    return names.join(QStringLiteral(", "));
}

} // namespace

int main(int argc, char **argv)
{
    if (!screen::why(argc, argv).isEmpty()) {
        std::fprintf(stderr, "kv-virtualpad: %s\n", screen::kMissing);
        return 1;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kv-virtualpad"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "A window that plays a signature pad. Start the program that wants one with the simulator as its "
        "driver and KVSIM_RECORDING=virtual."));
    parser.addHelpOption();
    const QCommandLineOption option(
        QStringLiteral("model"), "The pad to begin with: " + modelNames() + ".", QStringLiteral("model"), "S300");
    parser.addOption(option);
    parser.process(application);
    const ModelRow *model = modelOfName(parser.value(option).toStdString());
    if (!model || !parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "kv-virtualpad: the models are %s\n", qPrintable(modelNames()));
        return 2;
    }
    try {
        virtualpad::PadWindow window(*model);
        window.show();
        return QApplication::exec();
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "kv-virtualpad: %s\n", error.what());
        return 1;
    }
}
