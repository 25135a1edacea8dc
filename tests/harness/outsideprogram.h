/// @file
/// Runs another program of the system to check a file that the library wrote.
#ifndef OUTSIDEPROGRAM_H
#define OUTSIDEPROGRAM_H

#include <QByteArray>
#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

/// What it printed. Fails the test, with the program's output, when the program is missing or fails.
inline QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted()) {
        ADD_FAILURE() << program.toStdString() << " cannot be run; ./check installs what the tests need";
        return {};
    }
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString() << " did not end";
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

#endif
