#include "screenshot.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>

namespace signdesk {

namespace {

constexpr int kLongest = 120000; ///< milliseconds
constexpr int kSettle = 300; ///< for what is painted last: fingerprint, rates

void finish(DeskWindow &window, const QString &path, bool isSigned)
{
    const bool isWritten = window.grab().save(path);
    window.discardKept(); // the picture is all that was wanted
    if (!isSigned)
        std::fputs("kv-sign-desk: no signature was confirmed\n", stderr);
    if (!isWritten)
        std::fprintf(stderr, "kv-sign-desk: %s was not written\n", path.toLocal8Bit().constData());
    QApplication::exit(isSigned && isWritten ? 0 : 1);
}

} // namespace

void takeScreenshotAndQuit(DeskWindow &window, const QString &path)
{
    QTimer::singleShot(kLongest, &window, [&window, path] { finish(window, path, false); });
    auto *const look = new QTimer(&window);
    QObject::connect(look, &QTimer::timeout, &window, [&window, look, path] {
        const auto *const trouble = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (trouble == nullptr && !window.isDrawn())
            return;
        if (trouble == nullptr && window.state() != SigningState::Confirmed && !window.isPadAway())
            return;
        look->stop();
        if (trouble != nullptr) { // nobody is there to close a message box
            std::fprintf(stderr, "kv-sign-desk: %s\n", trouble->text().toLocal8Bit().constData());
            return finish(window, path, false);
        }
        const bool isSigned = window.state() == SigningState::Confirmed;
        if (!isSigned)
            std::fputs("kv-sign-desk: the pad no longer answers\n", stderr);
        QTimer::singleShot(kSettle, &window, [&window, path, isSigned] { finish(window, path, isSigned); });
    });
    look->start(50);
}

} // namespace signdesk
