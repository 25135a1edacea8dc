/// @file
/// kv-sign-desk: a counter's program for signing pages on a signature pad.
#include "deskwindow.h"
#include "screenshot.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include <cstdio>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Main)
};

struct Options
{
    QCommandLineOption model{QStringLiteral("model"), QString(), QStringLiteral("model")};
    QCommandLineOption driver{QStringLiteral("driver-directory"), QString(), QStringLiteral("directory")};
    QCommandLineOption screenshot{QStringLiteral("screenshot"), QString(), QStringLiteral("file")};
};

void describe(QCommandLineParser &parser, Options &options)
{
    parser.setApplicationDescription(Words::tr("Lets a customer sign a page on a signature pad."));
    options.model.setDescription(Words::tr("The pad on the desk: S210, S300, S310X, R800 or M450."));
    options.driver.setDescription(Words::tr("Where the pad's driver libkvsignpaddrv.so is; else here."));
    options.screenshot.setDescription(
        Words::tr("Start signing, and when the signer has confirmed, write a picture of the window and end."));
    parser.addHelpOption();
    parser.addOptions({options.model, options.driver, options.screenshot});
    parser.addPositionalArgument(QStringLiteral("page"), Words::tr("The PDF or picture to be signed."), "[page]");
}

int fail(const QString &what)
{
    std::fprintf(stderr, "kv-sign-desk: %s\n", what.toLocal8Bit().constData());
    return 2;
}

/// Nothing happens where there is none for the language of the user.
void install(QTranslator &translator, const QString &name, const QString &directory)
{
    if (translator.load(QLocale(), name, QStringLiteral("_"), directory))
        QCoreApplication::installTranslator(&translator);
}

int run(const QCommandLineParser &parser, const Options &options)
{
    // Before the working directory changes, which is where the library looks for the driver.
    const QStringList pages = parser.positionalArguments();
    const QString page = pages.isEmpty() ? QString() : QFileInfo(pages.first()).absoluteFilePath();
    const QString picture = QFileInfo(parser.value(options.screenshot)).absoluteFilePath();
    const QString directory = parser.value(options.driver);
    if (!directory.isEmpty() && !QDir::setCurrent(directory))
        return fail(Words::tr("there is no directory %1").arg(directory));
    signdesk::DeskWindow window;
    if (parser.isSet(options.model)) {
        const signdesk::PadModel *model = signdesk::padModelOfName(parser.value(options.model));
        if (model == nullptr)
            return fail(Words::tr("the models are S210, S300, S310X, R800 and M450"));
        window.setModel(*model);
    }
    window.show();
    if (!page.isEmpty()) // within exec, which a message about the page could not end otherwise
        QTimer::singleShot(0, &window, [&window, page] { window.openPage(page); });
    if (parser.isSet(options.screenshot))
        takeScreenshotAndQuit(window, picture);
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kv-sign-desk"));
    QApplication::setApplicationDisplayName(QStringLiteral("Sign Desk"));
    QTranslator words, qtWords;
    install(qtWords, QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    install(words, QStringLiteral("sign-desk"), QStringLiteral(":/translations"));

    QCommandLineParser parser;
    Options options;
    describe(parser, options);
    parser.process(application);
    if (parser.positionalArguments().size() > 1)
        return fail(Words::tr("one page at a time"));
    return run(parser, options);
}
