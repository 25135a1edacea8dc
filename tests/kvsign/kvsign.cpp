#include "kvsign.h"

#include "base64.h"
#include "countpixels.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QPainter>

#include <cstdlib>

namespace kvsign {

const QString kDriverDirectory = KV_BUILD_DIRECTORY "/simulator";
const QString kRecordings = KV_SOURCE_DIRECTORY "/simulator/recordings";

namespace {

constexpr int kPointSize = 24;

void append(QByteArray &bytes, quint64 value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 255);
}

quint64 number(const QByteArray &bytes, int place, int size)
{
    quint64 value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[place + i]);
    return value;
}

int shortNumber(const QByteArray &bytes, int place)
{
    return static_cast<qint16>(number(bytes, place, 2));
}

} // namespace

CommandResult runIn(const QString &directory, const QStringList &arguments, const QMap<QString, QString> &environment)
{
    QMap<QString, QString> variables{{"KVSIM_SPEED", "max"}, {"KVSIM_DELAY_MS", "100"}};
    for (auto variable = environment.begin(); variable != environment.end(); ++variable)
        variables.insert(variable.key(), variable.value());
    return runProgram(QStringList(KV_KVSIGN) + arguments, directory, variables);
}

Place::Place()
{
    QFile::link(kDriverDirectory + "/libkvsignpaddrv.so", file("libkvsignpaddrv.so"));
}

CommandResult Place::run(const QStringList &arguments, const QMap<QString, QString> &environment) const
{
    return runIn(m_place.path(), arguments, environment);
}

CommandResult Place::runWell(const QStringList &arguments, const QMap<QString, QString> &environment) const
{
    const CommandResult result = run(arguments, environment);
    EXPECT_EQ(result.exitCode, 0) << arguments.join(' ').toStdString() << '\n' << testing::PrintToString(result);
    return result;
}

QJsonObject Place::runJson(const QStringList &arguments, const QMap<QString, QString> &environment) const
{
    const CommandResult result = runWell(arguments + QStringList("--json"), environment);
    const QJsonDocument document = QJsonDocument::fromJson(result.output.toUtf8());
    EXPECT_TRUE(document.isObject()) << testing::PrintToString(result);
    return document.object();
}

void Place::write(const QString &name, const QByteArray &content) const
{
    QFile target(file(name));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ASSERT_EQ(target.write(content), content.size());
}

QStringList Place::files() const
{
    QStringList names = QDir(m_place.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.removeAll("libkvsignpaddrv.so");
    return names;
}

void Place::isReadAs(const Points &points, const QString &name, const QByteArray &content) const
{
    write(name, content);
    runWell({"convert", name, "read.ink"});
    EXPECT_EQ(listed(pointsOf(read("read.ink"))).toStdString(), listed(points).toStdString()) << content.toStdString();
}

void Place::start(QProcess &process, const QStringList &arguments, const QMap<QString, QString> &environment) const
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (auto variable = environment.begin(); variable != environment.end(); ++variable)
        variables.insert(variable.key(), variable.value());
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(m_place.path());
    process.start(KV_KVSIGN, arguments);
    ASSERT_TRUE(process.waitForStarted());
}

void Place::waitForDriver(QProcess &process)
{
    const QString maps = QString("/proc/%1/maps").arg(process.processId());
    QElapsedTimer waiting;
    waiting.start();
    while (!contentOf(maps).contains("libkvsignpaddrv") && waiting.elapsed() < 60000)
        process.waitForFinished(20);
}

void Place::capture(const QString &recording, const QString &model, const QStringList &outputs) const
{
    QString played = recording;
    // The signer of tick-and-cross cancels, which would leave nothing to write, so the last tap becomes a confirmation.
    QByteArray content = contentOf(kRecordings + "/" + recording + ".kvrec");
    if (recording == "tick-and-cross") {
        const int last = content.trimmed().lastIndexOf(' ');
        content = content.left(last) + " 4\n";
        played = file("confirmed.kvrec");
        write("confirmed.kvrec", content);
    }
    runWell(QStringList{"capture", "--model", model} + outputs, {{"KVSIM_RECORDING", played}});
}

QByteArray recordBytes(const Points &points)
{
    QByteArray bytes;
    for (const Point &point : points) {
        append(bytes, static_cast<quint64>(point.x), 2);
        append(bytes, static_cast<quint64>(point.y), 2);
        append(bytes, static_cast<quint64>(point.pressure), 2);
        append(bytes, point.end ? 1 : 0, 2);
        append(bytes, point.tick, 8);
        append(bytes, static_cast<quint64>(point.time), 8);
    }
    append(bytes, 0, 1);
    return bytes;
}

QByteArray record(const Points &points)
{
    return base64::encoded(recordBytes(points));
}

Points pointsOf(const QByteArray &text)
{
    const QByteArray bytes = QByteArray::fromBase64(text);
    Points points;
    for (int at = 0; at + kPointSize <= bytes.size(); at += kPointSize)
        points.push_back({shortNumber(bytes, at), shortNumber(bytes, at + 2), shortNumber(bytes, at + 4),
            bytes[at + 6] == 1, number(bytes, at + 8, 8), static_cast<qint64>(number(bytes, at + 16, 8))});
    return points;
}

QString listed(const Points &points)
{
    QString text;
    for (const Point &point : points)
        text += QString("%1 %2 %3 %4 %5 %6\n")
                    .arg(point.x)
                    .arg(point.y)
                    .arg(point.pressure)
                    .arg(point.end ? 1 : 0)
                    .arg(point.tick)
                    .arg(point.time);
    return text;
}

QString python(const QString &program, const QStringList &arguments)
{
    const CommandResult result = runProgram(QStringList{"python3", "-c", program} + arguments, QDir::currentPath());
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    return result.output;
}

QImage onWhite(const QImage &image)
{
    QImage white(image.size(), QImage::Format_RGB32);
    white.fill(Qt::white);
    QPainter painter(&white);
    painter.drawImage(0, 0, image);
    return white;
}

int differingPixels(const QImage &one, const QImage &other, int shade)
{
    EXPECT_EQ(one.size(), other.size());
    int count = 0;
    for (int y = 0; y < std::min(one.height(), other.height()); ++y)
        for (int x = 0; x < std::min(one.width(), other.width()); ++x)
            count += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > shade ? 1 : 0;
    return count;
}

int inkPixels(const QImage &image)
{
    return countPixels(image, [](QRgb pixel) { return qGray(pixel) < 128; });
}

} // namespace kvsign
