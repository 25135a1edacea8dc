// The reference's examples, compiled as strictly as can be and run on the simulator; and that there is one for each
// operation.
#include "outsidecommand.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QJsonArray operations()
{
    return QJsonDocument::fromJson(contentOf(KV_SOURCE_DIRECTORY "/bindings/api.json"))
        .object()["operations"]
        .toArray();
}

/// How often the line ran on which an operation is called, in what gcov tells; lines are COUNT:NUMBER:SOURCE.
int timesCalled(const QString &told, const QString &operation)
{
    const QRegularExpression call("^ *(\\d+)\\*?: *\\d+:.*_" + operation + "\\(", QRegularExpression::MultilineOption);
    return call.match(told).captured(1).toInt();
}

TEST(ReferenceExamples, RunOneAfterTheOther)
{
    const QTemporaryDir place;
    ASSERT_TRUE(QFile::link(KV_BUILD_DIRECTORY "/simulator/libkvsignpaddrv.so", place.filePath("libkvsignpaddrv.so")));
    const CommandResult built =
        runProgram({"gcc", "--coverage", "-Wall", "-Wextra", "-Werror", KV_SOURCE_DIRECTORY "/docs/site/examples.c",
                       "-I" KV_SOURCE_DIRECTORY "/kvsignpadsdk", "-L" KV_BUILD_DIRECTORY "/kvsignpadsdk",
                       "-lkvsignpadsdk", "-o", "examples"},
            place.path());
    ASSERT_EQ(built.exitCode, 0) << testing::PrintToString(built);
    const CommandResult result = runProgram({place.filePath("examples")}, place.path(),
        {{"LD_LIBRARY_PATH", KV_BUILD_DIRECTORY "/kvsignpadsdk"}, {"KVSIM_SPEED", "20"}});
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    const int points = storedPoints(KV_SOURCE_DIRECTORY "/simulator/recordings/signature.kvrec");
    for (const QString &line : {QString("pad SIM-S300-PadID-0001\n"), QString("pressure up to 2048, connected\n"),
             QString("key 1\n"), QString("the first of %1 decoded points is ").arg(points)})
        EXPECT_TRUE(result.output.contains(line)) << line.toStdString() << testing::PrintToString(result);
    EXPECT_FALSE(QImage(place.filePath("signature.png")).isNull());

    const CommandResult told = runProgram({"gcov", "--stdout", "examples.gcda"}, place.path());
    ASSERT_EQ(told.exitCode, 0) << testing::PrintToString(told);
    for (const QJsonValue &operation : operations()) {
        const QString name = operation.toObject()["name"].toString();
        EXPECT_GE(timesCalled(told.output, name), 1) << name.toStdString();
    }
}

TEST(ReferenceExamples, AreThereForEachOperation)
{
    const QByteArray examples = contentOf(KV_SOURCE_DIRECTORY "/docs/site/examples.c");
    EXPECT_EQ(operations().size(), 38);
    for (const QJsonValue &operation : operations()) {
        const QString name = operation.toObject()["name"].toString();
        const QList<QByteArray> parts =
            QByteArray(examples).replace("//! [" + name.toUtf8() + "]", "\x01").split('\x01');
        ASSERT_EQ(parts.size(), 3) << name.toStdString();
        EXPECT_TRUE(parts[1].contains("_" + name.toUtf8() + "(")) << name.toStdString();
    }
}

} // namespace
