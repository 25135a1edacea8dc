/// @file
/// kv-sign-desk: a counter's program for signing pages on a signature pad.
#include "deskwindow.h"
#include "modelnames.h"
#include "screen.h"
#include "screenshot.h"
#include "simulatorplace.h"

#include <documents/memorylimit.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

constexpr std::uint64_t kMostMemory = std::uint64_t{4} << 30; ///< bytes, for what hostile pages take too
constexpr int kBeforeStart = 200; ///< milliseconds, for the page to be painted

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Main)
};

QString allModels()
{
    return QString::fromStdString(modelNames(", ", ", "));
}

struct Options
{
    QCommandLineOption model{QStringLiteral("model"), QString(), QStringLiteral("model")};
    QCommandLineOption driver{
        {QStringLiteral("driver"), QStringLiteral("driver-directory")}, QString(), QStringLiteral("directory")};
    QCommandLineOption unsafeDriver{QStringLiteral("unsafe-driver")};
    QCommandLineOption screenshot{QStringLiteral("screenshot"), QString(), QStringLiteral("file")};
};

void describe(QCommandLineParser &parser, Options &options)
{
    parser.setApplicationDescription(Words::tr("Lets a customer sign a page on a signature pad."));
    options.model.setDescription(Words::tr("The pad on the desk: %1.").arg(allModels()));
    options.driver.setDescription(
        Words::tr("Where the pad's driver libkvsignpaddrv.so is, or simulator for the installed one; else here."));
    options.unsafeDriver.setDescription(
        Words::tr("Use the driver although others could have put another one in its place."));
    options.screenshot.setDescription(
        Words::tr("Start signing, and when the signer has confirmed, write a picture of the window and end."));
    parser.addHelpOption();
    parser.addOptions({options.model, options.driver, options.unsafeDriver, options.screenshot});
    parser.addPositionalArgument(QStringLiteral("page"), Words::tr("The PDF or picture to be signed."), "[page]");
}

int fail(const QString &what)
{
    std::fprintf(stderr, "kv-sign-desk: %s\n", what.toLocal8Bit().constData());
    return 2;
}

/// QApplication does not exist yet, so tr() would not translate.
int failWithoutScreen(const QTranslator &words)
{
    static const char *const kSentence = QT_TRANSLATE_NOOP("signdesk::Main",
        "there is no screen for a window: see that QT_QPA_PLATFORM and DISPLAY are right, or not set");
    const QString translated = words.translate("signdesk::Main", kSentence);
    return fail(translated.isEmpty() ? QString::fromUtf8(kSentence) : translated);
}

int run(const QCommandLineParser &parser, const Options &options)
{
    // Make paths absolute before the working directory changes to the driver's, where the library looks for it.
    const QStringList pages = parser.positionalArguments();
    const QString page = pages.isEmpty() ? QString() : QFileInfo(pages.first()).absoluteFilePath();
    const QString picture = QFileInfo(parser.value(options.screenshot)).absoluteFilePath();
    const QString directory = parser.value(options.driver);
    const std::optional<std::string> folder = simulatorplace::folderOf(QFile::encodeName(directory).toStdString());
    if (!folder.has_value())
        return fail(Words::tr("the pad simulator is not installed: apt-get install kvsignpad-simulator"));
    if (!folder->empty() && !QDir::setCurrent(QFile::decodeName(folder->c_str())))
        return fail(Words::tr("there is no directory %1").arg(directory));
    signdesk::DeskWindow window;
    if (parser.isSet(options.unsafeDriver))
        window.acceptAnyDriver();
    if (parser.isSet(options.model)) {
        const PadFamily *model = familyOfName(parser.value(options.model).toUpper().toStdString());
        if (model == nullptr)
            return fail(Words::tr("the models are %1").arg(allModels()));
        window.setModel(*model);
    }
    window.show();
    const bool isPictured = parser.isSet(options.screenshot);
    window.keepConfirmed();
    if (isPictured)
        takeScreenshotAndQuit(window, picture);
    // Inside exec(): a message box before it could not end the program.
    QTimer::singleShot(0, &window, [&window, page, isPictured] {
        const bool isSignedAlready = !isPictured && window.offerLeft();
        if (!page.isEmpty() && !isSignedAlready)
            window.openPage(page);
        if (isPictured)
            QTimer::singleShot(kBeforeStart, &window, [&window] { window.start(); });
    });
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    documents::limitMemory(kMostMemory);
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    // For languages without a translation nothing is loaded.
    QTranslator words, qtWords;
    words.load(QLocale(), QStringLiteral("sign-desk"), QStringLiteral("_"), QStringLiteral(":/translations"));
    qtWords.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
        QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    if (!screen::why(argc, argv).isEmpty())
        return failWithoutScreen(words);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kv-sign-desk"));
    QApplication::setApplicationDisplayName(QStringLiteral("Sign Desk"));
    for (QTranslator *translator : {&qtWords, &words}) {
        if (!translator->isEmpty())
            QCoreApplication::installTranslator(translator);
    }

    QCommandLineParser parser;
    Options options;
    describe(parser, options);
    parser.process(application);
    if (parser.positionalArguments().size() > 1)
        return fail(Words::tr("one page at a time"));
    const int code = run(parser, options);
    if (signdesk::PageRenderer::hasThreads()) { // a hostile page is still drawn: do not take from it what it uses
        std::fflush(nullptr);
        std::_Exit(code);
    }
    return code;
}
