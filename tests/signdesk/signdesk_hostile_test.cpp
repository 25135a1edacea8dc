// Broken and hostile documents at the desk: one clear sentence each, no end without a word, nothing lost.
#include "outsidecommand.h"
#include "signdesk.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>

#include <sys/stat.h>

namespace {

const QString kNote = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";
const QByteArray kCatalogue = "<< /Type /Catalog /Pages 2 0 R >>";

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// A PDF of these objects; the first one has number 1 and is the catalogue.
QByteArray pdfOf(const QList<QByteArray> &objects)
{
    QByteArray pdf = "%PDF-1.7\n", table = "0000000000 65535 f \n";
    for (int i = 0; i < objects.size(); ++i) {
        table += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const QByteArray size = QByteArray::number(objects.size() + 1), begin = QByteArray::number(pdf.size());
    return pdf + "xref\n0 " + size + "\n" + table + "trailer\n<< /Root 1 0 R /Size " + size + " >>\nstartxref\n" + begin
        + "\n%%EOF\n";
}

/// A PDF of one page with such entries.
QByteArray pageOf(const QByteArray &entries, const QList<QByteArray> &more = {})
{
    return pdfOf(QList<QByteArray>{kCatalogue, "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
                     "<< /Type /Page /Parent 2 0 R " + entries + " >>"}
        + more);
}

class Hostile : public SignDesk
{
protected:
    /// The document is signed and saved; the desk itself looks for the ink, and others find the file sound.
    void needSigned(const QString &path)
    {
        SCOPED_TRACE(path.toStdString());
        ASSERT_TRUE(window->openPage(path));
        signAndConfirm(kS300Family);
        const QString to = path + "-signed.pdf";
        save(to);
        EXPECT_FALSE(window->isWindowModified());
        const CommandResult checked = runProgram({"qpdf", "--check", to}, "/");
        EXPECT_EQ(checked.exitCode, 0) << testing::PrintToString(checked);
        click("Done, next customer");
    }
};

TEST_F(Hostile, FilesWithoutEndAreNotRead)
{
    const QString pipe = file("pipe.pdf"), endless = written("endless.pdf", "%PDF-1.7\n");
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QFile::resize(endless, qint64{1} << 40)); // it takes no room on the disk
    ASSERT_TRUE(QFile::link("/dev/zero", file("zeros.pdf")));
    openInVain(pipe, "it is no file.");
    openInVain(file("zeros.pdf"), "it is no file.");
    openInVain(endless, "it is too large.");
    openInVain(file("."), "it is no file.");
}

TEST_F(Hostile, LoopsAndFalseCountsAreDamaged)
{
    const QByteArray page = "<< /Type /Page /Parent 2 0 R >>";
    const struct
    {
        QList<QByteArray> objects;
        const char *why;
    } rows[] = {
        {{kCatalogue, "<< /Type /Pages /Kids [2 0 R 2 0 R] >>"}, "it has no page."},
        {{kCatalogue, "<< /Type /Pages /Kids [3 0 R] /Count 2000000000 >>", page}, "it has no page."},
        {{kCatalogue, "<< /Type /Pages /Kids [3 0 R] /Count -5 >>", page}, "it has no page."},
        {{kCatalogue, "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
             "<< /Type /Pages /Parent 2 0 R /Kids [2 0 R] /Count 1 >>"},
            "its page 1 has no size."},
        {{kCatalogue, QByteArray(100000, '[')}, "it has no page."},
    };
    for (const auto &row : rows)
        openInVain(written("loop.pdf", pdfOf(row.objects)), row.why);
}

TEST_F(Hostile, APageWithoutSizeIsToldAbout)
{
    openInVain(written("outside.pdf", pageOf("/MediaBox [0 0 400 500] /CropBox [900 900 1000 1000]")),
        "its page 1 has no size.");
}

TEST_F(Hostile, OddPagesAreSigned)
{
    const struct
    {
        const char *name;
        const char *entries;
    } rows[] = {
        {"none", ""},
        {"empty", "/MediaBox [0 0 0 0]"},
        {"huge", "/MediaBox [0 0 1e30 1e30]"},
        {"words", "/MediaBox [0 0 (a) 7]"},
        {"poster", "/MediaBox [0 0 1440 1440]"},
        {"stamp", "/MediaBox [0 0 20 20]"},
        {"backwards", "/MediaBox [400 500 0 0]"},
        {"aslant", "/MediaBox [0 0 400 500] /Rotate 45"},
        {"unit", "/MediaBox [0 0 400 500] /UserUnit 4"},
    };
    for (const auto &row : rows)
        needSigned(written(QString(row.name) + ".pdf", pageOf(row.entries)));
}

TEST_F(Hostile, DeepPageTreesAreSigned)
{
    QList<QByteArray> objects{kCatalogue};
    for (int i = 2; i < 2000; ++i)
        objects << "<< /Type /Pages /Count 1 /Kids [" + QByteArray::number(i + 1) + " 0 R] >>";
    needSigned(written("deep.pdf", pdfOf(objects << "<< /Type /Page /MediaBox [0 0 400 500] >>")));
}

TEST_F(Hostile, FormsThatDrawThemselvesAreSigned)
{
    needSigned(written("forms.pdf",
        pageOf("/MediaBox [0 0 400 500] /Contents 4 0 R /Resources << /XObject << /F 5 0 R >> >>",
            {"<< /Length 5 >>\nstream\n/F Do\nendstream",
                "<< /Type /XObject /Subtype /Form /BBox [0 0 400 500] /Resources << /XObject << /F 5 0 R >> >> /Length 11 "
                ">>\nstream\n/F Do /F Do\nendstream"})));
}

TEST_F(Hostile, ADocumentMayChangeOrGoWhileItIsOpen)
{
    const QString note = file("note.pdf");
    const QByteArray whole = bytesOf(kNote);
    const QString old = "The page is saved as it was when it was opened: its file has changed since then.";
    const struct
    {
        const char *name;
        std::function<void()> change;
        QString told;
    } rows[] = {
        {"cut.pdf", [&] { QFile::resize(note, 100); }, old},
        {"emptied.pdf", [&] { QFile::resize(note, 0); }, old},
        {"gone.pdf", [&] { QFile::remove(note); }, "Saved as gone.pdf. Press Done for the next customer."},
        {"folder.pdf",
            [&] {
                QFile::remove(note);
                QDir().mkdir(note);
            },
            old},
    };
    for (const auto &row : rows) {
        written("note.pdf", whole);
        ASSERT_TRUE(window->openPage(note));
        signAndConfirm(kS300Family);
        row.change();
        save(file(row.name));
        EXPECT_EQ(SignDesk::note(), row.told) << row.name;
        EXPECT_TRUE(bytesOf(file(row.name)).startsWith(whole)) << row.name;
        EXPECT_GT(bytesOf(file(row.name)).size(), whole.size()) << row.name;
        click("Done, next customer");
    }
}

TEST_F(Hostile, AFullDiskLeavesTheEarlierFile)
{
    ASSERT_TRUE(window->openPage(kNote));
    signAndConfirm(kS300Family);
    save(file("whole.pdf"));
    sheet().setFocus();
    press(Qt::Key_Up); // elsewhere, and so not saved
    ASSERT_TRUE(window->isWindowModified());
    const QString earlier = written("signed.pdf", "as it was");
    {
        const SmallDisk disk(static_cast<rlim_t>(QFileInfo(file("whole.pdf")).size() - 500));
        whenDialogComes([&](QDialog &dialog) {
            whenDialogComes([&](QDialog &question) {
                whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
                answer(question, "Yes");
            });
            giveFile(dialog, earlier);
        });
        click("Save page...");
        ASSERT_TRUE(happened());
    }
    EXPECT_TRUE(said.startsWith(earlier + " could not be written.\n")) << said.toStdString();
    EXPECT_EQ(bytesOf(earlier), "as it was");
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(QDir(QFileInfo(earlier).path()).entryList({"signed*"}).size(), 1) << "nothing half written";
    save(file("later.pdf"));
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(Hostile, WrongPasswordsAreAskedForUntilTheClerkGivesUp)
{
    const std::function<void(int)> typeWrong = [&](int times) {
        whenDialogComes([&, times](QDialog &dialog) {
            auto *const line = dialog.findChild<QLineEdit *>();
            ASSERT_TRUE(line != nullptr);
            if (times == 0)
                return dialog.reject();
            typeWrong(times - 1);
            line->setText("wrong");
            QTest::keyClick(line, Qt::Key_Return);
        });
    };
    typeWrong(5);
    EXPECT_FALSE(window->openPage(KV_DOCUMENTS "/encrypted-256.pdf"));
    EXPECT_TRUE(happened());
    EXPECT_EQ(window->windowTitle(), "blank sheet[*] - Sign Desk");
}

} // namespace
