#include "examplepages.h"

#include <QFile>

#include <algorithm>

namespace bridge {

namespace {

constexpr struct
{
    const char *ending;
    const char *type;
} kTypes[] = {{".html", "text/html; charset=utf-8"}, {".js", "text/javascript; charset=utf-8"},
    {".css", "text/css; charset=utf-8"}, {".svg", "image/svg+xml"}, {".png", "image/png"}};

bool isPlainLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') || letter == '-' || letter == '.'
        || letter == '/';
}

} // namespace

FrontDoor::Page examplePage(const QByteArray &target)
{
    const QByteArray name = target == "/" ? QByteArray("/index.html") : target;
    if (!std::all_of(name.begin(), name.end(), isPlainLetter) || name.contains(".."))
        return {};
    QFile file(QStringLiteral(":/pages") + QString::fromLatin1(name));
    for (const auto &[ending, type] : kTypes) {
        if (name.endsWith(ending) && file.open(QIODevice::ReadOnly))
            return {type, file.readAll()};
    }
    return {};
}

} // namespace bridge
