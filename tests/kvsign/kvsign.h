/// @file
/// Runs kvsign as a person would, and makes ink for it to read.
#ifndef TEST_KVSIGN_H
#define TEST_KVSIGN_H

#include "outsidecommand.h"

#include <kvsignpadsdk_global.h>

#include <QByteArray>
#include <QDir>
#include <QImage>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace kvsign {

extern const QString kDriverDirectory;
extern const QString kRecordings;

/// For runs on a real screen: the window system's libraries never free some of their memory, so leaks are not checked.
inline const std::pair<QString, QString> kOnScreen{"ASAN_OPTIONS", "detect_leaks=0"};

/// Runs kvsign in a directory; the simulated pad plays as fast as it can.
CommandResult runIn(
    const QString &directory, const QStringList &arguments, const QMap<QString, QString> &environment = {});

/// A point as a test writes it down. In a record it takes 24 bytes, all numbers little-endian.
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

/// The points that the tests write down in other programs' tables and documents.
inline const Points kTablePoints{
    {10, 20, 300, false, 1000, 50}, {13, 18, 320, false, 1005, 50}, {13, 18, 320, true, 1010, 50}};

/// A directory for a test's files, in which kvsign runs. It also holds the driver.
class Place : public testing::Test
{
protected:
    Place();

    QString file(const QString &name) const { return m_place.filePath(name); }
    bool exists(const QString &name) const { return QFile::exists(file(name)); }
    CommandResult run(const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;

    /// The same, but the test fails unless kvsign succeeds.
    CommandResult runWell(const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;
    QJsonObject runJson(const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;

    void write(const QString &name, const QByteArray &content) const;
    QByteArray read(const QString &name) const { return contentOf(file(name)); }
    QStringList files() const;

    /// Writes a file, and expects kvsign to read these points from it.
    void isReadAs(const Points &points, const QString &name, const QByteArray &content) const;

    /// Starts kvsign in the background. The variables are added to the test's environment.
    void start(QProcess &process, const QStringList &arguments, const QMap<QString, QString> &environment = {}) const;

    /// Waits until the process has loaded the driver, right after which kvsign waits for the signer.
    static void waitForDriver(QProcess &process);

    /// Lets kvsign capture a bundled recording into these files.
    void capture(const QString &recording, const QString &model, const QStringList &outputs) const;

private:
    QTemporaryDir m_place;
};

/// The points as an ink record with its one final byte, and that as Base64 text. It is packed here and not by kvsign,
/// so that the tests do not rely on what they check.
QByteArray recordBytes(const Points &points);
QByteArray record(const Points &points);

/// The points of a record that is given as Base64 text.
Points pointsOf(const QByteArray &record);

/// The points as text, a line of six numbers for each, so that points from different sources can be compared.
QString listed(const Points &points);

/// Runs a Python program with these arguments and returns its output.
QString python(const QString &program, const QStringList &arguments);

/// In how many pixels two pictures of the same size differ by more than `shade`.
int differingPixels(const QImage &one, const QImage &other, int shade = 40);

/// The picture drawn on a white background.
QImage onWhite(const QImage &image);
int inkPixels(const QImage &image);

} // namespace kvsign

#endif
