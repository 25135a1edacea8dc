#include "signeddocuments.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace signeddocuments {

namespace {

void makePerson(const QString &folder, const QString &file, const QString &name)
{
    const QString script = QString(
        "set -e; openssl req -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout %1.key -out %1.csr -subj '/CN=%2' "
        "2>/dev/null; openssl x509 -req -in %1.csr -CA authority.pem -CAkey authority.key -days 30 -out %1.pem "
        "-extfile usage.cnf 2>/dev/null; openssl pkcs12 -export -inkey %1.key -in %1.pem -certfile authority.pem -out "
        "%1.p12 -passout pass:secret")
                               .arg(file, name);
    const CommandResult result = runProgram({"bash", "-c", script}, folder);
    EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
}

/// Objects with their table and trailer, behind what is there already.
QByteArray withObjects(
    QByteArray document, const QList<QPair<int, QByteArray>> &objects, int size, const QByteArray &trailer)
{
    QByteArray table = "xref\n";
    for (const auto &object : objects) {
        const QByteArray place = QByteArray::number(document.size()).rightJustified(10, '0');
        table += QByteArray::number(object.first) + " 1\n" + place + " 00000 n \n";
        document += QByteArray::number(object.first) + " 0 obj\n" + object.second + "\nendobj\n";
        size = std::max(size, object.first + 1);
    }
    const QByteArray start = QByteArray::number(document.size());
    return document + table + "trailer\n<< /Size " + QByteArray::number(size) + " " + trailer + " >>\nstartxref\n"
        + start + "\n%%EOF\n";
}

} // namespace

const People &People::get()
{
    static QTemporaryDir folder;
    static People people;
    if (people.folder.isEmpty()) {
        people.folder = folder.path();
        const CommandResult result =
            runProgram({"bash", "-c",
                           "set -e; printf 'secret\\n' > password; "
                           "echo 'keyUsage=digitalSignature,nonRepudiation' > usage.cnf; "
                           "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout authority.key "
                           "-out authority.pem -days 30 -subj '/CN=Test Authority' 2>/dev/null"},
                people.folder);
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        makePerson(people.folder, "anna", "Anna Example");
        makePerson(people.folder, "ben", "Ben Example");
    }
    return people;
}

QString People::expert() const
{
    const QString files = folder + "/expert";
    if (!QFile::exists(files + ".p12")) {
        const CommandResult made = runProgram(
            {"bash", "-c",
                "set -e; openssl req -x509 -newkey rsa:2048 -nodes -keyout expert.key -out expert.pem -days 2 -subj "
                "/CN=expert 2>/dev/null; openssl pkcs12 -export -inkey expert.key -in expert.pem -out expert.p12 "
                "-passout pass:secret; openssl genrsa -out other.key 2048 2> /dev/null"},
            folder);
        EXPECT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    }
    return files;
}

Documents::Documents()
{
    write("a.ink",
        kvsign::record({{400, 500, 600, false, 0, 1}, {1200, 1200, 900, false, 5, 1}, {2000, 600, 700, false, 10, 1},
            {2000, 600, 700, true, 15, 1}, {700, 1300, 800, false, 500, 1}, {1900, 1350, 800, false, 505, 2},
            {1900, 1350, 800, true, 510, 2}}));
}

QJsonObject Documents::signPage(const QString &from, const QString &to, const QStringList &options) const
{
    return runJson(QStringList{"sign", "--ink", "a.ink"} + options + QStringList{from, to});
}

QJsonObject Documents::signAs(
    const QString &keyFile, const QString &from, const QString &to, const QStringList &options) const
{
    return signPage(
        from, to, QStringList{"--certificate", keyFile, "--password-file", People::get().password()} + options);
}

void Documents::writeDocument(const QString &name, const Objects &objects) const
{
    write(name, withObjects("%PDF-1.7\n", objects, 1, "/Root 1 0 R"));
}

void Documents::appendRevision(const QString &from, const QString &to, const Objects &objects) const
{
    const QByteArray before = read(from);
    write(to,
        withObjects(before, objects, numberBehind(before, "/Size "),
            "/Root " + QByteArray::number(numberBehind(before, "/Root ")) + " 0 R /Prev "
                + QByteArray::number(numberBehind(before, "startxref"))));
}

QJsonObject Documents::verified(const QString &name, int exitCode, const QStringList &options) const
{
    const CommandResult result = run(QStringList{"verify", "--json", name} + options);
    EXPECT_EQ(result.exitCode, exitCode) << name.toStdString() << '\n' << testing::PrintToString(result);
    return QJsonDocument::fromJson(result.output.toUtf8()).object();
}

QJsonObject Documents::trusted(const QString &name, int exitCode) const
{
    return verified(name, exitCode, {"--trust", People::get().authority()});
}

QJsonObject Documents::row(const QJsonObject &result, int index)
{
    return result["signatures"].toArray()[index].toObject();
}

QString Documents::says(const QStringList &command) const
{
    const CommandResult result = runProgram(command, file("."));
    EXPECT_EQ(result.exitCode, 0) << command.join(' ').toStdString() << '\n' << testing::PrintToString(result);
    return result.output;
}

QImage Documents::drawn(const QString &program, const QString &name, int dpi, int page, const QString &password) const
{
    const QString resolution = QString::number(dpi), number = QString::number(page);
    if (program == "mutool")
        says({"mutool", "draw", "-q", "-p", password, "-r", resolution, "-o", "drawn.ppm", name, number});
    else
        says({"pdftoppm", "-upw", password, "-cropbox", "-r", resolution, "-f", number, "-l", number, "-singlefile",
            name, "drawn"});
    return QImage(file("drawn.ppm")); // packing it as a PNG would take longer than drawing it
}

void Documents::needSound(const QString &name, const QStringList &options) const
{
    const CommandResult result = runProgram(QStringList{"qpdf", "--check"} + options + QStringList(name), file("."));
    EXPECT_EQ(result.exitCode, 0) << name.toStdString() << '\n' << testing::PrintToString(result);
}

int numberBehind(const QByteArray &document, const QByteArray &key)
{
    const int place = document.lastIndexOf(key);
    EXPECT_GE(place, 0) << key.toStdString();
    return document.mid(place + key.size(), 12).simplified().split(' ').first().toInt();
}

QRectF redBox(const QImage &image, int dpi)
{
    QRect box;
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        const QRgb *const row = reinterpret_cast<const QRgb *>(pixels.constScanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            const QRgb pixel = row[x];
            if (qRed(pixel) > 200 && qGreen(pixel) < 128 && qBlue(pixel) < 128)
                box |= QRect(x, y, 1, 1);
        }
    }
    const double millimetres = 25.4 / dpi;
    return {box.x() * millimetres, box.y() * millimetres, box.width() * millimetres, box.height() * millimetres};
}

} // namespace signeddocuments
