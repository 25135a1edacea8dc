/// @file
/// Runs kvsign as a person would, and makes the ink that it is given.
#ifndef TEST_KVSIGN_H
#define TEST_KVSIGN_H

#include "outsidecommand.h"

#include <kvsignpadsdk_global.h>

#include <QByteArray>
#include <QDir>
#include <QImage>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace kvsign {

extern const QString kDriverDirectory;
extern const QString kRecordings;

/// For runs on a real screen: what the window system's libraries keep at the end is not looked at.
inline const std::pair<QString, QString> kOnScreen{"ASAN_OPTIONS", "detect_leaks=0"};

/// Starts it in a directory; the simulated pad plays as fast as it can.
CommandResult runIn(
    const QString &directory, const QStringList &arguments, const QMap<QString, QString> &environment = {});

/// A directory for a test's files, in which it is run. The driver is in it.
class Place : public testing::Test
{
protected:
    Place();

    QString file(const QString &name) const { return m_place.filePath(name); }
    bool exists(const QString &name) const { return QFile::exists(file(name)); }
    CommandResult run(const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;

    /// The same, and it must end well.
    CommandResult runWell(const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;
    QJsonObject runJson(const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;

    void write(const QString &name, const QByteArray &content) const;
    QByteArray read(const QString &name) const { return contentOf(file(name)); }
    QStringList files() const;

    /// Captures a bundled recording as an ink record.
    void capture(const QString &recording, const QString &model, const QStringList &outputs) const;

private:
    QTemporaryDir m_place;
};

/// A point as it is written down by hand: 24 bytes, little-endian, seven of them not meaningful or zero.
struct Point
{
    int x;
    int y;
    int pressure;
    bool end = false;
    quint64 tick = 0;
    qint64 time = 0;
};
using Points = std::vector<Point>;

/// The record of points, packed by the test itself, with the one byte at its end; and as Base64 text.
QByteArray recordBytes(const Points &points);
QByteArray record(const Points &points);

/// The points of a record's text.
Points pointsOf(const QByteArray &record);

/// A line of six numbers for each point, by which points of any origin are compared.
QString listed(const Points &points);

/// Runs a Python program with these arguments; its output.
QString python(const QString &program, const QStringList &arguments);

/// How many pixels two pictures of the same size differ in by more than a shade.
int differingPixels(const QImage &one, const QImage &other, int shade = 40);

/// The picture over white.
QImage onWhite(const QImage &image);
int inkPixels(const QImage &image);

} // namespace kvsign

#endif
