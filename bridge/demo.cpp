#include "demo.h"

#include <QDesktopServices>
#include <QUrl>

#include <cstdio>

namespace demo {

void show(quint16 port, bool opensBrowser)
{
    const QString address = QStringLiteral("http://127.0.0.1:%1/").arg(port);
    std::printf("The example pages are at %s\n", qPrintable(address));
    std::fflush(stdout);
    if (opensBrowser)
        QDesktopServices::openUrl(QUrl(address));
}

} // namespace demo
