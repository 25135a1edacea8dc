// When there is no room for files, the sign desk puts out all of the ink or tells the clerk, but never only a part.
#include "safefile.h"
#include "signdesk.h"
#include "smalldisk.h"
#include "wholefiles.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>

#include <algorithm>
#include <cstring>
#include <sys/stat.h>

namespace {

/// While this object exists, temporary files cannot be made: their folder is one that nobody can write to.
class NoTemporaryFiles
{
public:
    NoTemporaryFiles()
        : m_before(qgetenv("TMPDIR"))
    {
        qputenv("TMPDIR", "/proc");
    }
    ~NoTemporaryFiles()
    {
        if (m_before.isEmpty())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", m_before);
    }

private:
    QByteArray m_before;
};

class WholeInk : public SignDesk
{
protected:
    void exportTo(const QString &path)
    {
        whenDialogComes([&](QDialog &dialog) { giveFile(dialog, path); });
        press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(happened());
    }

    /// Only for new files: if the file exists, the dialog asks a question of its own.
    void printTo(const QString &path)
    {
        whenDialogComes([&, path](QDialog &dialog) {
            ASSERT_TRUE(qobject_cast<QPrintDialog *>(&dialog) != nullptr);
            auto *const name = dialog.findChild<QLineEdit *>("filename");
            ASSERT_TRUE(name != nullptr);
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
        });
        click("Print...");
        ASSERT_TRUE(happened());
    }

    void expectNothingKept()
    {
        EXPECT_TRUE(window->isWindowModified());
        EXPECT_TRUE(showsState("Confirmed"));
        EXPECT_EQ(note(), "Confirmed. Save or print it, then press Done; or start another signature on the document.");
    }
};

class WholeInkOfEachModel : public WholeInk, public testing::WithParamInterface<Family>
{
};

TEST_P(WholeInkOfEachModel, ThePageHasItWithoutTemporaryFiles)
{
    signAndConfirm(GetParam());
    const NoTemporaryFiles nowhere;
    save(file("signed.png"));
    EXPECT_FALSE(boxOf(QImage(file("signed.png")), isInk).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Models, WholeInkOfEachModel, testing::ValuesIn(kFamilies),
    [](const auto &row) { return std::string(row.param.prefix, std::strlen(row.param.prefix) - 1); });

TEST_F(WholeInk, PaperAndExportsHaveItWithoutTemporaryFiles)
{
    signAndConfirm(kS300Family);
    {
        const NoTemporaryFiles nowhere;
        printTo(file("printed.pdf"));
        EXPECT_EQ(note(), "The page is printed.");
        for (const char *name : {"a.png", "a.jpg", "a.bmp", "a.pdf", "a.svg"}) {
            exportTo(file(name));
            EXPECT_EQ(note(), "The signature is exported.");
        }
    }
    for (const char *name : {"a.png", "a.jpg", "a.bmp"})
        EXPECT_FALSE(boxOf(QImage(file(name)), isInk).isEmpty()) << name;
    for (const char *name : {"printed.pdf", "a.pdf"})
        EXPECT_FALSE(boxOf(drawnPdf(file(name)), isInk).isEmpty()) << name;
    QFile svg(file("a.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_EQ(svg.readAll().count("<polyline"), 40); // one line for each of the 40 moves after pen down
}

// The disk takes a part of each file, and the desk has to notice that it is only a part.
TEST_F(WholeInk, AnInkThatHasNoRoomIsNotLeftOut)
{
    choose(kS300Family);
    click("Start signing");
    for (int i = 0; i < 60; ++i)
        write(kS300Family, 0.1, 0.1 + 0.01 * i, 0.9, 0.1 + 0.01 * i);
    click("Confirm");
    exportTo(file("whole.svg"));
    save(file("whole.pdf"));
    const qint64 least = std::min(QFileInfo(file("whole.svg")).size(), QFileInfo(file("whole.pdf")).size());
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("Changed since: confirm anew"); }));
    click("Confirm");
    ASSERT_TRUE(window->isWindowModified());

    const SmallDisk disk(static_cast<rlim_t>(least * 3 / 4));
    const struct
    {
        Qt::KeyboardModifiers modifiers;
        const char *name;
    } rows[] = {{Qt::ControlModifier, "cut.pdf"}, {Qt::ControlModifier | Qt::ShiftModifier, "cut.svg"}};
    for (const auto &row : rows) {
        whenDialogComes([&](QDialog &dialog) {
            whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
            giveFile(dialog, file(row.name));
        });
        press(Qt::Key_S, row.modifiers);
        EXPECT_TRUE(happened()) << row.name;
        EXPECT_TRUE(said.contains("The signature is still here.") || said.contains("the signature is still here."))
            << said.toStdString();
        expectNothingKept();
        EXPECT_FALSE(QFileInfo::exists(file(row.name)));
    }
}

TEST_F(WholeInk, APrinterThatIsFullIsNoticed)
{
    signAndConfirm(kS300Family);
    // The print dialog asks before it overwrites something.
    whenDialogComes([&](QDialog &dialog) {
        auto *const name = dialog.findChild<QLineEdit *>("filename");
        ASSERT_TRUE(name != nullptr);
        name->setText("/dev/full");
        whenDialogComes([&](QDialog &question) {
            whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
            answer(question, "Yes");
        });
        QTest::keyClick(name, Qt::Key_Return);
    });
    click("Print...");
    EXPECT_TRUE(happened());
    EXPECT_EQ(said, "/dev/full was not written: it is no file.\nChoose another name. The signature is still here.");
    expectNothingKept();
    struct stat status = {};
    EXPECT_EQ(::stat("/dev/full", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode)); // it was not replaced by a file
}

TEST_F(WholeInk, AFileThatHasNoRoomWhenItIsPrintedIsNoticed)
{
    signAndConfirm(kS300Family);
    printTo(file("whole.pdf"));
    const qint64 size = QFileInfo(file("whole.pdf")).size();
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("Changed since: confirm anew"); }));
    click("Confirm");
    const SmallDisk disk(static_cast<rlim_t>(size - 100));
    whenDialogComes([&](QDialog &dialog) {
        auto *const name = dialog.findChild<QLineEdit *>("filename");
        name->setText(file("cut.pdf"));
        whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
        QTest::keyClick(name, Qt::Key_Return);
    });
    click("Print...");
    EXPECT_TRUE(happened());
    EXPECT_TRUE(said.startsWith("The page could not be printed whole.\n")) << said.toStdString();
    expectNothingKept();
    EXPECT_FALSE(QFileInfo::exists(file("cut.pdf")));
}

TEST_F(WholeInk, APipeIsNotReplacedByAFile)
{
    signAndConfirm(kS300Family);
    const QString pipe = file("pipe.pdf");
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    whenDialogComes([&](QDialog &dialog) {
        whenDialogComes([&](QDialog &question) {
            whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
            answer(question, "Yes");
        });
        giveFile(dialog, pipe);
    });
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(happened());
    EXPECT_EQ(said, pipe + " was not written: it is no file.\nChoose another name. The signature is still here.");
    expectNothingKept();
    struct stat status = {};
    EXPECT_EQ(::stat(pipe.toLocal8Bit().constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST(TemporaryRoom, IsTriedOut)
{
    EXPECT_TRUE(signdesk::hasRoomForTemporary(3000000));
    {
        const NoTemporaryFiles nowhere;
        EXPECT_FALSE(signdesk::hasRoomForTemporary(1));
    }
    const SmallDisk disk(2000000);
    EXPECT_FALSE(signdesk::hasRoomForTemporary(3000000));
}

// Any part of a file may be missing: its end, its beginning or a piece in between.
TEST(WholeFiles, APieceThatIsMissingIsNoticed)
{
    const QTemporaryDir place;
    QPdfWriter writer(place.filePath("a.pdf"));
    QPainter painter(&writer);
    painter.drawText(100, 100, "ink");
    painter.end();
    QFile file(place.filePath("a.pdf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(signdesk::isWholePdf(pdf));
    const int trailer = pdf.lastIndexOf("trailer");
    for (int at = 0; at < trailer; at += 7)
        EXPECT_FALSE(signdesk::isWholePdf(QByteArray(pdf).remove(at, 40))) << at << " of " << pdf.size();
    for (int size = 0; size < pdf.size(); ++size)
        ASSERT_FALSE(signdesk::isWholePdf(pdf.left(size))) << size << " of " << pdf.size();
    EXPECT_FALSE(signdesk::isWholePdf("startxref\n-5\n%%EOF\n"));

    const QByteArray svg = "<svg><g><polyline points=\"1,2 3,4 \"/><path d=\"M1,2\"/></g></svg>\n";
    EXPECT_EQ(signdesk::linesOfSvg(svg), 2);
    for (int size = 0; size < svg.size() - 1; ++size)
        EXPECT_EQ(signdesk::linesOfSvg(svg.left(size)), -1) << size;
    EXPECT_EQ(signdesk::linesOfSvg("<svg><path/></svg>"), 1);
}

} // namespace
