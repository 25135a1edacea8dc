// When something goes wrong, the sign desk says what and how to cure it, and nothing is lost.
#include "signdesk.h"

#include <QFile>

namespace {

class SignDeskTroubles : public SignDesk
{
protected:
    void startInVain()
    {
        whenDialogComes([&](QDialog &dialog) { answer(dialog, "OK"); });
        click("Start signing");
        EXPECT_TRUE(happened());
        EXPECT_TRUE(showsState("No pad in use"));
        EXPECT_EQ(signWidget(), nullptr);
    }
};

TEST_F(SignDeskTroubles, NoPad)
{
    choose(kM450Family);
    driver.setResult("Initial", KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    startInVain();
    EXPECT_TRUE(said.startsWith("No M450 was found.\nSee that the pad is plugged in")) << said.toStdString();
    driver.setResult("Initial", KVSPDARI_SUCCESS);
    click("Start signing");
    EXPECT_TRUE(driver.isOpen());
}

TEST_F(SignDeskTroubles, AnotherModel)
{
    choose(kS300Family);
    driver.setText("GetDevicePartsVersion", "KVR800 1.0");
    startInVain();
    EXPECT_TRUE(said.contains("that it is the chosen model"));
}

TEST_F(SignDeskTroubles, ThePadNoLongerObeys)
{
    click("Start signing");
    write(kS210Family);
    driver.setResult("ClearDeviceContent", KVSPDARI_LIBUSB_SENT_CMD_FAIL);
    click("Clear");
    EXPECT_TRUE(note().contains("the pad does not answer")) << note().toStdString();
}

TEST_F(SignDeskTroubles, UnreadablePages)
{
    signAndConfirm(kS300Family);
    openInVain(file("nowhere.pdf"), "there is no such file.");
    openInVain(written("text.pdf", "just text"), "it is neither a PDF nor a picture.");
    openInVain(written("cut.pdf", "%PDF-1.5\n1 0 obj\n<<"), "it is a damaged PDF.");
    openInVain(written("none.pdf",
                   "%PDF-1.4\n1 0 obj\n<</Type/Catalog/Pages 2 0 R>>\nendobj\n"
                   "2 0 obj\n<</Type/Pages/Kids[]/Count 0>>\nendobj\ntrailer\n<</Root 1 0 R/Size 3>>\n%%EOF\n"),
        "it has no page.");
    openInVain(written("cut.png", "\x89PNG\r\n\x1a\n"), "it is neither a PDF nor a picture.");
    EXPECT_TRUE(showsState("Confirmed")); // the signature is still there
    EXPECT_EQ(KVS300_GetTotalInkPointsNumber(KVS300_DEVICE), 42);
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(SignDeskTroubles, UnwritableFiles)
{
    signAndConfirm(kS300Family);
    const QString missing = file("no/such/folder.pdf");
    const QString foreign = file("page.docx");
    const struct
    {
        Qt::KeyboardModifiers modifiers; // for the S key: Ctrl saves the page, Ctrl+Shift exports the signature
        QString path;
        QString told;
    } rows[] = {
        {Qt::ControlModifier, missing, missing + " was not written: there is no such folder.\nChoose another folder."},
        {Qt::ControlModifier, "/proc/page.pdf",
            "/proc/page.pdf could not be written.\nSee that there is space on the disk"},
        {Qt::ControlModifier, foreign,
            "page.docx: a signed page is not written in this format.\nLet the name end with .pdf"},
        {Qt::ControlModifier | Qt::ShiftModifier, missing,
            missing + " was not written: there is no such folder.\nChoose another folder."},
        {Qt::ControlModifier | Qt::ShiftModifier, "/proc/ink.svg",
            "/proc/ink.svg could not be written."}, // the library does not notice this, so the desk has to
        {Qt::ControlModifier | Qt::ShiftModifier, foreign,
            "page.docx: a signature is not written in this format.\nLet the name end with .png"},
    };
    for (const auto &row : rows) {
        whenDialogComes([&](QDialog &dialog) {
            whenDialogComes([&](QDialog &box) { answer(box, "OK"); });
            giveFile(dialog, row.path);
        });
        press(Qt::Key_S, row.modifiers);
        EXPECT_TRUE(happened());
        EXPECT_TRUE(said.startsWith(row.told)) << said.toStdString() << "\ninstead of\n" << row.told.toStdString();
        EXPECT_TRUE(showsState("Confirmed"));
        EXPECT_TRUE(window->isWindowModified());
    }
    EXPECT_FALSE(QFile::exists(foreign));
    whenDialogComes([&](QDialog &dialog) { giveFile(dialog, file("page.pdf")); });
    press(Qt::Key_S, Qt::ControlModifier); // after all those failures the signature can still be saved
    EXPECT_FALSE(boxOf(drawnPdf(file("page.pdf")), isInk).isEmpty());
}

TEST_F(SignDeskTroubles, AnUnsavedSignatureDoesNotGoUnasked)
{
    signAndConfirm(kS300Family);
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(happened());
    EXPECT_EQ(said, "The signature is neither saved nor printed.\nShall it be discarded?");
    EXPECT_TRUE(window->isVisible());
    whenDialogComes([&](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    click("Cancel");
    EXPECT_TRUE(happened());
    EXPECT_TRUE(showsState("Confirmed"));
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(happened());
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Discard"); });
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(happened());
}

TEST_F(SignDeskTroubles, InkThatIsNotConfirmedDoesNotGoUnaskedEither)
{
    click("Start signing");
    write(kS210Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(happened());
    EXPECT_EQ(KVS210_GetTotalInkPointsNumber(KVS210_DEVICE), 42);
    click("Cancel"); // cancelling unconfirmed ink needs no question
    EXPECT_TRUE(window->close());
}

TEST(SignDeskPages, LargeOnesAreDrawnAsFinelyAsCanBeAfforded)
{
    EXPECT_EQ(signdesk::affordableDots({595, 842}, 300.0 / 72), 300.0 / 72);
    const double dots = signdesk::affordableDots({14400, 14400}, 300.0 / 72); // the largest page that a PDF may have
    EXPECT_NEAR(14400 * dots, 6325, 1);
}

} // namespace
