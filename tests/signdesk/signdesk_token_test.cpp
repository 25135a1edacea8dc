// A certificate on a token: its PIN, wrong ones, a token that is not there, and one that is pulled out.
#include "outsidecommand.h"
#include "signdesk.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString kNote = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";
const QString kModule = "/usr/lib/softhsm/libsofthsm2.so";

const char *const kMakeToken = R"(set -e
mkdir tokens
printf 'directories.tokendir = %s\nlog.level = ERROR\n' "$PWD/tokens" > softhsm2.conf
export SOFTHSM2_CONF=$PWD/softhsm2.conf
softhsm2-util --init-token --free --label Desk --so-pin 1234 --pin 5678 > /dev/null
openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 30 -subj '/CN=Anna Muster' \
    -addext keyUsage=critical,digitalSignature,nonRepudiation -keyout anna.key -out anna.pem 2> /dev/null
openssl pkcs8 -topk8 -nocrypt -in anna.key -out anna.pk8
softhsm2-util --import anna.pk8 --token Desk --label Anna --id a1 --pin 5678 > /dev/null
openssl x509 -in anna.pem -outform DER -out anna.der
pkcs11-tool --module "$1" --login --pin 5678 --token-label Desk --write-object anna.der --type cert --label Anna --id a1 \
    > /dev/null 2>&1)";

class SignDeskToken : public SignDesk
{
protected:
    SignDeskToken()
    {
        const CommandResult made = runProgram({"bash", "-c", kMakeToken, "bash", kModule}, file("."));
        EXPECT_EQ(made.exitCode, 0) << testing::PrintToString(made);
        qputenv("SOFTHSM2_CONF", file("softhsm2.conf").toLocal8Bit());
    }
    ~SignDeskToken() override { qunsetenv("SOFTHSM2_CONF"); }

    static void clickIn(QDialog &dialog, const QString &text)
    {
        for (QPushButton *found : dialog.findChildren<QPushButton *>())
            if (found->text().remove('&') == text)
                return QTest::mouseClick(found, Qt::LeftButton);
        ADD_FAILURE() << "no button " << text.toStdString();
    }

    /// Chooses the token's certificate; `then` answers what the desk asks next.
    void chooseToken(const QString &token, const std::function<void(QDialog &)> &then)
    {
        whenDialogComes([=](QDialog &dialog) {
            dialog.findChildren<QLineEdit *>().first()->setText("pkcs11:token=" + token + "?module-path=" + kModule);
            whenDialogComes(then);
            clickIn(dialog, "Use certificate");
            if (dialog.isVisible())
                dialog.reject();
        });
        click("Digital signature...");
        ASSERT_TRUE(happened());
    }

    /// Types the PIN; what the dialog says is then in `asked`.
    void type(QDialog &dialog, const QString &pin)
    {
        asked.clear();
        for (const QLabel *label : dialog.findChildren<QLabel *>())
            asked += label->text() + "\n";
        auto *const line = dialog.findChild<QLineEdit *>();
        ASSERT_TRUE(line != nullptr);
        EXPECT_EQ(line->echoMode(), QLineEdit::Password);
        QTest::keyClicks(line, pin);
        QTest::keyClick(line, Qt::Key_Return);
    }

    QString signatory() const { return window->findChild<QLabel *>("signatory")->text(); }

    QString asked;
};

TEST_F(SignDeskToken, SignsAfterAWrongPin)
{
    ASSERT_TRUE(window->openPage(kNote));
    chooseToken("Desk", [&](QDialog &first) {
        whenDialogComes([&](QDialog &second) {
            type(second, "5678");
            EXPECT_TRUE(asked.contains("The card does not take this PIN. Type it again; too many wrong ones lock the "
                                       "card."))
                << asked.toStdString();
        });
        type(first, "0000");
        EXPECT_TRUE(asked.contains("Desk")) << asked.toStdString();
    });
    EXPECT_EQ(signatory(), "Signed as Anna Muster");
    signAndConfirm(kS300Family);
    save(file("signed.pdf"));
    const CommandResult told = runProgram({"pdfsig", "-nocert", file("signed.pdf")}, "/");
    EXPECT_TRUE(told.output.contains("Signature is Valid")) << testing::PrintToString(told);
    EXPECT_TRUE(told.output.contains("Signer Certificate Common Name: Anna Muster")) << testing::PrintToString(told);
}

TEST_F(SignDeskToken, ThatIsNotThereIsToldAbout)
{
    chooseToken("Nobody", [&](QDialog &dialog) { answer(dialog, "OK"); });
    EXPECT_EQ(said, "There is no such card or token.\nSee that the card is in its reader, and try again.");
    EXPECT_EQ(signatory(), "None: ink alone");
}

TEST_F(SignDeskToken, ThatIsPulledOutKeepsTheSignature)
{
    ASSERT_TRUE(window->openPage(kNote));
    chooseToken("Desk", [&](QDialog &dialog) { type(dialog, "5678"); });
    ASSERT_EQ(signatory(), "Signed as Anna Muster");
    signAndConfirm(kS300Family);
    ASSERT_TRUE(QDir(file("tokens")).removeRecursively());
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "OK"); });
    click("Save page...");
    ASSERT_TRUE(happened());
    EXPECT_EQ(said, "The key or its token refused to sign.\nSee that the card is in its reader, and try again.");
    EXPECT_TRUE(showsState("Confirmed"));
    EXPECT_TRUE(window->isWindowModified());
    // Ink alone takes its place.
    whenDialogComes([&](QDialog &dialog) { clickIn(dialog, "Ink alone"); });
    click("Digital signature...");
    save(file("signed.pdf"));
    EXPECT_NE(drawnPdf(file("signed.pdf")), drawnPdf(kNote));
    EXPECT_FALSE(window->isWindowModified());
}

} // namespace
