// Digital signatures at the desk: a certificate's file and its password, what the signed document says, and what the
// desk says of it.
#include "busywork.h"
#include "outsidecommand.h"
#include "signdesk.h"
#include "trouble.h"
#include "verifydialog.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

#include <atomic>

namespace {

const QString kNote = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";

class SignDeskCertificate : public SignDesk
{
protected:
    SignDeskCertificate()
    {
        const QString key = file("key.pem"), certificate = file("certificate.pem");
        run({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-days", "30",
            "-subj", "/CN=Anna Muster", "-addext", "keyUsage=critical,digitalSignature,nonRepudiation", "-keyout", key,
            "-out", certificate});
        run({"openssl", "pkcs12", "-export", "-inkey", key, "-in", certificate, "-passout", "pass:secret", "-out",
            file("anna.p12")});
    }

    static void run(const QStringList &command)
    {
        const CommandResult result = runProgram(command, "/");
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
    }

    static void clickIn(QDialog &dialog, const QString &text)
    {
        for (QPushButton *found : dialog.findChildren<QPushButton *>())
            if (found->text().remove('&') == text)
                return QTest::mouseClick(found, Qt::LeftButton);
        ADD_FAILURE() << "no button " << text.toStdString();
    }

    /// Types a password into the dialog that asks for one. What it complained about is then in `complaint`.
    void type(QDialog &dialog, const QString &password)
    {
        auto *const line = dialog.findChild<QLineEdit *>();
        ASSERT_TRUE(line != nullptr);
        EXPECT_EQ(line->echoMode(), QLineEdit::Password);
        const QLabel *told = dialog.findChild<QLabel *>("complaint");
        complaint = told == nullptr ? QString() : told->text();
        QTest::keyClicks(line, password);
        QTest::keyClick(line, Qt::Key_Return);
    }

    /// Chooses Anna's certificate through the dialogs, with these passwords one after the other.
    void chooseAnna(const QStringList &passwords)
    {
        whenDialogComes([=](QDialog &dialog) {
            dialog.findChildren<QLineEdit *>().first()->setText(file("anna.p12"));
            awaitPasswords(passwords);
            clickIn(dialog, "Use certificate");
        });
        click("Digital signature...");
        ASSERT_TRUE(happened());
    }

    void awaitPasswords(const QStringList &passwords)
    {
        if (passwords.isEmpty())
            return;
        whenDialogComes([=](QDialog &dialog) {
            awaitPasswords(passwords.mid(1));
            type(dialog, passwords.first());
        });
    }

    QString signatory() const { return window->findChild<QLabel *>("signatory")->text(); }

    QString complaint;
};

TEST_F(SignDeskCertificate, SignsDigitallyAfterAWrongPassword)
{
    ASSERT_TRUE(QFile::copy(kNote, file("note.pdf")));
    ASSERT_TRUE(window->openPage(file("note.pdf")));
    EXPECT_EQ(signatory(), "None: ink alone");
    chooseAnna({"wrong", "secret"});
    EXPECT_EQ(complaint, "This is not the password. Type it again.");
    EXPECT_EQ(signatory(), "Signed as Anna Muster");
    signAndConfirm(kS300Family);
    save(file("signed.pdf"));
    const CommandResult told = runProgram({"pdfsig", "-nocert", file("signed.pdf")}, "/");
    EXPECT_TRUE(told.output.contains("Signer Certificate Common Name: Anna Muster")) << testing::PrintToString(told);
    EXPECT_TRUE(told.output.contains("Signature is Valid")) << testing::PrintToString(told);
    EXPECT_TRUE(told.output.contains("Total document signed")) << testing::PrintToString(told);
    EXPECT_FALSE(boxOf(drawnPdf(file("signed.pdf")), isInk).isEmpty());

    ASSERT_TRUE(window->openPage(file("signed.pdf")));
    QString verdict, signer, covers;
    whenDialogComes([&](QDialog &dialog) {
        verdict = dialog.findChild<QLabel *>("verdict")->text();
        const auto *const rows = dialog.findChild<QTableWidget *>();
        signer = rows->item(0, 0)->text();
        covers = rows->item(0, 2)->text();
        EXPECT_EQ(rows->rowCount(), 1);
        EXPECT_EQ(rows->item(0, 3)->text(), "No");
        EXPECT_EQ(rows->item(0, 4)->text(), "Not trusted: nobody but its owner vouches for it");
        clickIn(dialog, "Close");
    });
    for (QAction *action : window->findChildren<QAction *>())
        if (action->text().remove('&') == "Check digital signatures...")
            action->trigger();
    ASSERT_TRUE(happened());
    EXPECT_EQ(verdict, "Not all digital signatures of this document are valid: see the last column.");
    EXPECT_EQ(signer, "Anna Muster, on page 1");
    EXPECT_EQ(covers, "The whole file");
}

TEST_F(SignDeskCertificate, SignsTwiceAndBothAreWhole)
{
    ASSERT_TRUE(window->openPage(kNote));
    chooseAnna({"secret"});
    signAndConfirm(kS300Family);
    click("Start signing");
    write(kS300Family, 0.2, 0.3, 0.8, 0.3);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    save(file("signed.pdf"));
    const CommandResult told = runProgram({"pdfsig", "-nocert", file("signed.pdf")}, "/");
    EXPECT_EQ(told.output.count("Signature is Valid"), 2) << testing::PrintToString(told);
}

TEST_F(SignDeskCertificate, WithoutItsPasswordNothingChanges)
{
    whenDialogComes([&](QDialog &dialog) {
        dialog.findChildren<QLineEdit *>().first()->setText(file("anna.p12"));
        whenDialogComes([](QDialog &question) { question.reject(); });
        clickIn(dialog, "Use certificate");
        dialog.reject();
    });
    click("Digital signature...");
    EXPECT_TRUE(happened());
    EXPECT_EQ(signatory(), "None: ink alone");
}

TEST_F(SignDeskCertificate, AFileThatIsNoneIsRefusedInASentence)
{
    whenDialogComes([&](QDialog &dialog) {
        dialog.findChildren<QLineEdit *>().first()->setText(kNote);
        whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
        clickIn(dialog, "Use certificate");
        dialog.reject();
    });
    click("Digital signature...");
    EXPECT_TRUE(happened());
    EXPECT_EQ(said,
        "The file is no certificate with a key.\n"
        "Choose a PKCS#12 file; its name mostly ends with .p12 or .pfx.");
}

TEST_F(SignDeskCertificate, AProtectedDocumentIsOpenedWithItsPassword)
{
    // The password of its readers is in data/make.
    whenDialogComes([&](QDialog &dialog) {
        whenDialogComes([&](QDialog &again) { type(again, "reader"); });
        type(dialog, "wrong");
    });
    EXPECT_TRUE(window->openPage(KV_DOCUMENTS "/encrypted-256.pdf"));
    EXPECT_TRUE(happened());
    EXPECT_EQ(complaint, "This is not the password. Type it again.");
    signAndConfirm(kS300Family);
    save(file("signed.pdf"));
    const CommandResult told = runProgram({"qpdf", "--password=reader", "--check", file("signed.pdf")}, "/");
    EXPECT_EQ(told.exitCode, 0) << testing::PrintToString(told);
}

TEST(VerifyWords, SayWhatIsWrong)
{
    documents::SignatureReport report;
    report.signer = "Ben";
    report.isIntact = true;
    report.trust = documents::Trust::Trusted;
    report.issuer = "Town";
    report.coversWholeFile = true;
    EXPECT_EQ(signdesk::rowOf(report).verdict, "Valid");
    EXPECT_EQ(signdesk::rowOf(report).certificate, "Trusted, issued by Town");
    report.coversWholeFile = false;
    report.added = QStringList("a signature");
    EXPECT_EQ(signdesk::rowOf(report).covers, "An earlier revision");
    EXPECT_EQ(signdesk::rowOf(report).changed, "Only what is allowed was added");
    report.changed = QStringList("pages");
    EXPECT_EQ(signdesk::rowOf(report).changed, "Yes, and that is not allowed");
    EXPECT_EQ(signdesk::rowOf(report).verdict, "Not valid");
    report.isIntact = false;
    EXPECT_EQ(signdesk::rowOf(report).changed, "What was signed was changed, or cannot be read");
    EXPECT_EQ(signdesk::verdictOf({}), "There is no digital signature in this document.");
}

TEST_F(SignDesk, LongWorkIsCancelled)
{
    const auto isStopped = std::make_shared<std::atomic<bool>>(false);
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
        if (QWidget *const dialog = QApplication::activeModalWidget())
            for (QPushButton *button : dialog->findChildren<QPushButton *>())
                button->click();
    });
    press.start(20);
    const bool isDone = signdesk::runBeside(window.get(), "Waiting...", [isStopped](signdesk::Progress &progress) {
        try {
            for (;;)
                progress.show(1, 2);
        } catch (...) {
            *isStopped = true;
            throw;
        }
    });
    EXPECT_FALSE(isDone);
    EXPECT_TRUE(until([&] { return bool(*isStopped); }));
}

TEST_F(SignDesk, TroublesOfLongWorkComeThrough)
{
    EXPECT_TRUE(signdesk::runBeside(window.get(), "Quick...", [](signdesk::Progress &) {}));
    EXPECT_THROW(signdesk::runBeside(window.get(), "Bad...",
                     [](signdesk::Progress &) {
                         throw signdesk::Trouble{"a", "b"};
                     }),
        signdesk::Trouble);
}

} // namespace
