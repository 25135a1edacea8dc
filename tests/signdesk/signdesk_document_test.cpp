// A signed PDF stays the document that it was: its bytes, text, form and earlier signatures; and each signature is
// looked for before the desk believes in it.
#include "deskdocument.h"
#include "inkcheck.h"
#include "outsidecommand.h"
#include "pagefile.h"
#include "signdesk.h"

#include <QComboBox>
#include <QFile>

namespace {

const QString kNote = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";
const QString kForm = KV_DOCUMENTS "/written-form.pdf";

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QString textOf(const QString &path)
{
    return runProgram({"pdftotext", "-layout", path, "-"}, "/").output;
}

class SignedDocuments : public SignDesk
{
protected:
    /// A copy of a document in the test's folder, opened.
    QString opened(const QString &source, const QString &name)
    {
        EXPECT_TRUE(QFile::copy(source, file(name)));
        EXPECT_TRUE(window->openPage(file(name)));
        return file(name);
    }

    void startAgain(const Family &family, double height)
    {
        click("Start signing");
        write(family, 0.2, height, 0.8, height);
        tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
        ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    }

    static void needSound(const QString &path)
    {
        const CommandResult result = runProgram({"qpdf", "--check", path}, "/");
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    }
};

TEST_F(SignedDocuments, KeepTheirBytesAndTheirText)
{
    const QString source = opened(kNote, "note.pdf");
    signAndConfirm(kS300Family);
    save(file("signed.pdf"));
    const QByteArray before = bytesOf(source), after = bytesOf(file("signed.pdf"));
    EXPECT_EQ(before, bytesOf(kNote)) << "the opened document is not touched";
    EXPECT_TRUE(after.startsWith(before));
    EXPECT_LT(after.size() - before.size(), 8000) << "lines and no picture";
    EXPECT_FALSE(textOf(source).trimmed().isEmpty());
    EXPECT_EQ(textOf(file("signed.pdf")), textOf(source));
    needSound(file("signed.pdf"));
}

TEST_F(SignedDocuments, BearSeveralSignatures)
{
    const QString source = opened(kNote, "note.pdf");
    signAndConfirm(kS300Family);
    const QRectF first = sheet().field();
    startAgain(kS300Family, 0.3);
    const QRectF second = sheet().field();
    EXPECT_FALSE(first.intersects(second));
    EXPECT_TRUE(window->isWindowModified());
    save(file("signed.pdf"));
    EXPECT_FALSE(window->isWindowModified());
    const QByteArray after = bytesOf(file("signed.pdf"));
    EXPECT_TRUE(after.startsWith(bytesOf(source)));
    EXPECT_EQ(after.count("startxref"), bytesOf(source).count("startxref") + 2) << "a revision for each";
    const QImage drawn = drawnPdf(file("signed.pdf")), plain = drawnPdf(source);
    for (const QRectF &field : {first, second}) {
        const QRect box = QRectF(field.topLeft() * kDrawnScale, field.size() * kDrawnScale).toRect();
        EXPECT_NE(drawn.copy(box), plain.copy(box));
    }
    needSound(file("signed.pdf"));
}

TEST_F(SignedDocuments, TakeAPictureWithTwoSignatures)
{
    QImage picture(600, 400, QImage::Format_RGB32);
    picture.fill(Qt::white);
    ASSERT_TRUE(picture.save(file("form.png")));
    ASSERT_TRUE(window->openPage(file("form.png")));
    signAndConfirm(kR800Family);
    const QRectF first = sheet().field();
    startAgain(kR800Family, 0.3);
    const QRectF second = sheet().field();
    save(file("signed.pdf"));
    const QImage drawn = drawnPdf(file("signed.pdf"));
    for (const QRectF &field : {first, second}) {
        const QRect box = QRectF(field.topLeft() * kDrawnScale, field.size() * kDrawnScale).toRect();
        EXPECT_FALSE(boxOf(drawn.copy(box), isInk).isEmpty());
    }
}

TEST_F(SignedDocuments, OfferTheirEmptyFieldsByName)
{
    opened(kForm, "form.pdf");
    auto *const fields = labelled<QComboBox>("Empty field");
    ASSERT_TRUE(fields != nullptr && fields->isVisible());
    ASSERT_EQ(fields->count(), 3);
    EXPECT_EQ(fields->itemText(1), "customer");
    EXPECT_EQ(fields->itemText(2), "driver");
    fields->setCurrentIndex(2);
    // /Rect [220 100 370 160] on a page of 400 by 500, from its lower left; the pad's proportions fit its height.
    const double width = 60 * 2300 / 1300.0;
    choose(kS300Family);
    EXPECT_TRUE(near(sheet().field(), QRectF(295 - width / 2, 340, width, 60), 0.1));
    const QRectF before = sheet().field();
    sheet().setFocus();
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(sheet().field(), before) << "a form's field stays where it is";
    signAndConfirm(kS300Family);
    startAgain(kS300Family, 0.5);
    EXPECT_EQ(fields->currentText(), "customer") << "the one that is left";
    save(file("signed.pdf"));
    const QRectF ink = inPoints(boxOf(drawnPdf(file("signed.pdf")).copy(0, 680, 800, 120), isInk));
    EXPECT_NEAR(ink.left(), 125 - width / 2 + 0.2 * width, 2); // the line of the customer begins at a fifth
    EXPECT_NEAR(ink.right(), 295 - width / 2 + 0.8 * width, 2);
    EXPECT_EQ(textOf(file("signed.pdf")), textOf(kForm));
}

TEST_F(SignedDocuments, AreNotOverwrittenUnlessToldSo)
{
    const QString source = opened(kNote, "note.pdf");
    signAndConfirm(kS300Family);
    // The file dialog asks before it overwrites anything; the desk asks once more for this file, and then for a name.
    whenDialogComes([&](QDialog &dialog) {
        whenDialogComes([&](QDialog &question) {
            whenDialogComes([&](QDialog &box) {
                whenDialogComes([&](QDialog &again) { giveFile(again, file("other.pdf")); });
                answer(box, "Choose another name");
            });
            answer(question, "Yes");
        });
        giveFile(dialog, source);
    });
    click("Save page...");
    ASSERT_TRUE(happened());
    EXPECT_EQ(said, "note.pdf is the document that you opened.\nShall the signed document take its place?");
    EXPECT_EQ(bytesOf(source), bytesOf(kNote));
    EXPECT_TRUE(QFile::exists(file("other.pdf")));

    sheet().setFocus();
    press(Qt::Key_Left);
    whenDialogComes([&](QDialog &dialog) {
        whenDialogComes([&](QDialog &question) {
            whenDialogComes([&](QDialog &box) { answer(box, "Overwrite"); });
            answer(question, "Yes");
        });
        giveFile(dialog, source);
    });
    click("Save page...");
    ASSERT_TRUE(happened());
    EXPECT_TRUE(bytesOf(source).startsWith(bytesOf(kNote)));
    EXPECT_GT(bytesOf(source).size(), bytesOf(kNote).size());
}

// The customer before, or a clerk at another desk, may have saved a signature over the document.
TEST_F(SignedDocuments, SavedOverTheirSourceAreNotLostToTheNextCustomer)
{
    const QString source = opened(kNote, "note.pdf");
    const auto saveOver = [&](const QString &answerToDesk) {
        whenDialogComes([=](QDialog &dialog) {
            whenDialogComes([=](QDialog &question) {
                whenDialogComes([=](QDialog &box) {
                    if (answerToDesk != "Overwrite")
                        whenDialogComes([](QDialog &again) { again.reject(); });
                    answer(box, answerToDesk);
                });
                answer(question, "Yes");
            });
            giveFile(dialog, source);
        });
        click("Save page...");
        ASSERT_TRUE(happened());
    };
    signAndConfirm(kS300Family);
    saveOver("Overwrite");
    EXPECT_EQ(note(), "Saved as note.pdf. Press Done for the next customer.");
    const QByteArray first = bytesOf(source);
    click("Done, next customer");
    startAgain(kS300Family, 0.3);
    saveOver("Choose another name");
    EXPECT_EQ(said,
        "note.pdf has changed since you opened it.\n"
        "What it has got since, perhaps another signature, would be lost. To keep both, choose another name.");
    EXPECT_EQ(bytesOf(source), first);
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(SignedDocuments, AreProposedBesideTheirSource)
{
    opened(kNote, "note.pdf");
    signAndConfirm(kS300Family);
    for (const char *name : {"note-signed.pdf", "note-signed-2.pdf"}) {
        whenDialogComes([&](QDialog &dialog) { acceptProposal(dialog); });
        click("Save page...");
        ASSERT_TRUE(happened());
        EXPECT_EQ(note(), QString("Saved as %1. Press Done for the next customer.").arg(name));
        EXPECT_TRUE(QFile::exists(file(name))) << name;
    }
}

/// What the desk does when an outcome is not what it should be, without the window.
TEST(InkCheck, FindsWhatIsMissing)
{
    documents::Ink ink;
    ink.canvas = {800, 400};
    for (int i = 0; i < 40; ++i)
        ink.lines.push_back({{100.0 + 10 * i, 200}, {110.0 + 10 * i, 210}, 5});
    signdesk::SignatureWish wish;
    wish.place = {100, 100, 200, 100};
    wish.pageSize = {595, 842};
    wish.ink = ink;
    signdesk::DeskDocument document(signdesk::blankPages());
    EXPECT_FALSE(signdesk::hasInk(document.pages(), 0, wish.place, ink));
    document.add(wish);
    EXPECT_TRUE(signdesk::hasInk(document.pages(), 0, wish.place, ink));
    EXPECT_FALSE(signdesk::hasInk(document.pages(), 0, wish.place.translated(5, 0), ink)) << "elsewhere";
    ink.lines.push_back({{100, 300}, {500, 300}, 5});
    ink.lines.push_back({{100, 320}, {500, 320}, 5});
    EXPECT_FALSE(signdesk::hasInk(document.pages(), 0, wish.place, ink)) << "two strokes more";
    document.undo();
    EXPECT_FALSE(signdesk::hasInk(document.pages(), 0, wish.place, wish.ink));
    EXPECT_EQ(document.added(), 0);
}

TEST(InkCheck, TakesTheSameSignatureForTheSame)
{
    signdesk::SignatureWish wish;
    wish.place = {100, 100, 200, 100};
    wish.pageSize = {595, 842};
    wish.ink.canvas = {800, 400};
    wish.ink.lines = {{{100, 100}, {500, 200}, 5}, {{500, 200}, {600, 100}, 3}};
    signdesk::DeskDocument document(signdesk::blankPages());
    const QByteArray once = document.with(wish).content;
    EXPECT_EQ(document.with(wish).content, once);
    wish.place.translate(10, 0);
    EXPECT_NE(document.with(wish).content, once);
}

} // namespace
