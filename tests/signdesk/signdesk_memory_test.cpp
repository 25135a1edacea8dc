// A sign desk bounds its memory, so that a hostile page cannot take all of the machine's.
#include "patience.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace {

/// "soft hard" of the process's limit for its data, in bytes, as the kernel tells it.
QByteArray dataLimitOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/limits").arg(process));
    const QByteArray name = "Max data size";
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(name.size()).simplified();
    }
    return {};
}

TEST(SignDeskMemory, IsLimitedAndALowerLimitStays)
{
    const QTemporaryDir place;
    const struct
    {
        QStringList before;
        QByteArray limit;
    } rows[] = {
        {{}, "4294967296 unlimited bytes"},
        {{"prlimit", "--data=2147483648:3221225472"}, "2147483648 3221225472 bytes"},
    };
    for (const auto &row : rows) {
        QStringList command = row.before + QStringList{KV_SIGNDESK};
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME"})
            environment.insert(name, place.path());
        QProcess desk;
        desk.setProcessEnvironment(environment);
        desk.setWorkingDirectory("/");
        desk.start(command.takeFirst(), command);
        ASSERT_TRUE(desk.waitForStarted());
        QByteArray limit;
        for (QElapsedTimer waited; limit != row.limit; QThread::msleep(10)) {
            if (!waited.isValid())
                waited.start();
            limit = dataLimitOf(desk.processId());
            if (waited.hasExpired(std::chrono::milliseconds(kPatience).count()))
                break;
        }
        EXPECT_EQ(limit, row.limit);
        EXPECT_EQ(desk.state(), QProcess::Running);
        desk.kill();
        desk.waitForFinished();
    }
}

} // namespace
