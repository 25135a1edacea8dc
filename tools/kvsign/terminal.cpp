#include "terminal.h"

#include "failure.h"

#include <QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>

void say(const QString &line)
{
    std::puts(line.toLocal8Bit().constData());
}

void sayJson(const QJsonObject &result)
{
    std::fputs(QJsonDocument(result).toJson().constData(), stdout);
}

void sayJsonLine(const QJsonObject &result)
{
    std::printf("%s\n", QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
}

void flushOutput()
{
    if (std::ferror(stdout) == 0)
        errno = 0; // else an old value could be reported as the reason
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return;
    const QString why = errno != 0 ? QString::fromLocal8Bit(std::strerror(errno)) : QString("not all of it arrived");
    throw failed(QString("standard output: %1").arg(why));
}

QString grouped(qint64 number)
{
    QString text = QString::number(number);
    for (int place = text.size() - 3; place > (number < 0 ? 1 : 0); place -= 3)
        text.insert(place, ' ');
    return text;
}
