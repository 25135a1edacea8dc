// The clerk's day: three clicks for a signature, the next customer, undo, what is remembered.
#include "counter.h"
#include "outsidecommand.h"
#include "signdesk.h"

#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>

namespace {

const QString kNote = KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf";

class Counter : public SignDesk
{
protected:
    QString copyOf(const QString &source, const QString &name)
    {
        EXPECT_TRUE(QFile::copy(source, file(name)));
        return file(name);
    }
};

TEST_F(Counter, ThreeClicksAndOneFileDialogSignADocument)
{
    choose(kS300Family);
    ASSERT_TRUE(window->openPage(copyOf(kNote, "note.pdf")));
    click("Start signing");
    EXPECT_EQ(window->focusWidget(), button("Confirm"));
    write(kS300Family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    whenDialogComes([&](QDialog &dialog) { acceptProposal(dialog); });
    click("Save page...");
    ASSERT_TRUE(happened());
    EXPECT_TRUE(QFile::exists(file("note-signed.pdf")));
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(Counter, WhatIsWrittenWhileTheFileIsChosenIsNotSavedYet)
{
    choose(kS300Family);
    ASSERT_TRUE(window->openPage(copyOf(kNote, "note.pdf")));
    click("Start signing");
    write(kS300Family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    whenDialogComes([&](QDialog &dialog) {
        write(kS300Family, 0.2, 0.2, 0.5, 0.2);
        tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
        settle(); // the window hears of the tap
        acceptProposal(dialog);
    });
    click("Save page...");
    ASSERT_TRUE(happened());
    EXPECT_TRUE(QFile::exists(file("note-signed.pdf")));
    EXPECT_EQ(note(), "Saved as note-signed.pdf, but without what was written since: confirm that, and save again.");
    settle();
    EXPECT_TRUE(window->isWindowModified());
    save(file("again.pdf"));
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(note(), "Saved as again.pdf. Press Done for the next customer.");
}

TEST_F(Counter, WhatIsWrittenWhileAnotherDocumentIsChosenDoesNotGoUnasked)
{
    const QString note = copyOf(kNote, "note.pdf"), other = copyOf(kNote, "other.pdf");
    ASSERT_TRUE(window->openPage(note));
    choose(kS300Family);
    click("Start signing");
    whenDialogComes([&](QDialog &dialog) {
        write(kS300Family);
        tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
        ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
        whenDialogComes([&](QDialog &question) { answer(question, "Keep"); });
        giveFile(dialog, other);
    });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(happened());
    EXPECT_EQ(said, "The signature is neither saved nor printed.\nShall it be discarded?");
    EXPECT_EQ(window->windowTitle(), "note.pdf[*] - Sign Desk");
    EXPECT_TRUE(showsState("Confirmed"));
    save(file("signed.pdf"));
    EXPECT_NE(drawnPdf(file("signed.pdf")), drawnPdf(note));
}

TEST_F(Counter, WhatWasDiscardedIsNotAskedAboutAgain)
{
    signAndConfirm(kS300Family);
    whenDialogComes([&](QDialog &question) {
        whenDialogComes([&](QDialog &dialog) { giveFile(dialog, kNote); });
        answer(question, "Discard");
    });
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(happened());
    EXPECT_EQ(window->windowTitle(), "delivery-note.pdf[*] - Sign Desk");
}

TEST_F(Counter, WhoWritesOnWhileTheDocumentIsSignedConfirmsAnew)
{
    window.reset(); // the library opens one pad at a time
    signdesk::Counter counter;
    counter.session().acceptAnyDriver();
    counter.setPlace({0, {100, 100, 200, 113}, {595, 842}, {}});
    counter.start(*familyOfName("S300"), {});
    write(kS300Family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    const auto isIn = [&](signdesk::SigningState state) { return counter.signing().state() == state; };
    ASSERT_TRUE(until([&] { return isIn(signdesk::SigningState::Confirmed); }));
    const auto goOnWriting = [&](const std::function<void(signdesk::Progress &)> &work) {
        signdesk::Progress progress;
        work(progress);
        write(kS300Family, 0.2, 0.2, 0.5, 0.2);
        return until([&] { return isIn(signdesk::SigningState::Changed); });
    };
    EXPECT_FALSE(counter.prepare(goOnWriting));
    counter.signing().confirm();
    EXPECT_TRUE(counter.prepare([](const std::function<void(signdesk::Progress &)> &work) {
        signdesk::Progress progress;
        work(progress);
        return true;
    }));
    counter.add();
    EXPECT_EQ(counter.document().added(), 1);
}

TEST_F(Counter, SpaceConfirmsAfterTheStart)
{
    choose(kS300Family);
    click("Start signing");
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    press(Qt::Key_Space);
    EXPECT_TRUE(showsState("Confirmed"));
}

TEST_F(Counter, DoneShowsTheDocumentAsItWasOpened)
{
    ASSERT_TRUE(window->openPage(copyOf(kNote, "note.pdf")));
    signAndConfirm(kS300Family);
    save(file("one.pdf"));
    click("Done, next customer");
    EXPECT_TRUE(showsState("No pad in use"));
    EXPECT_FALSE(driver.isOpen());
    EXPECT_EQ(signWidget(), nullptr);
    EXPECT_FALSE(button("Done, next customer")->isEnabled());
    EXPECT_FALSE(button("Save page...")->isEnabled());
    click("Start signing");
    write(kS300Family, 0.2, 0.2, 0.5, 0.2);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    save(file("two.pdf"));
    QFile one(file("one.pdf")), two(file("two.pdf")), note(kNote);
    ASSERT_TRUE(one.open(QIODevice::ReadOnly) && two.open(QIODevice::ReadOnly) && note.open(QIODevice::ReadOnly));
    const QByteArray first = one.readAll(), second = two.readAll();
    const int opened = static_cast<int>(note.size());
    EXPECT_EQ(first.left(opened), second.left(opened));
    EXPECT_EQ(second.count("startxref"), first.count("startxref")) << "the first customer's ink is not in it";
}

TEST_F(Counter, TheNextCustomerDoesNotDiscardUnasked)
{
    signAndConfirm(kS300Family);
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    click("Done, next customer");
    EXPECT_TRUE(happened());
    EXPECT_TRUE(showsState("Confirmed"));
    click("Start signing"); // another signature: the first is a part of the document now
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    click("Done, next customer");
    EXPECT_TRUE(happened());
    click("Cancel"); // gives up the second alone
    EXPECT_TRUE(window->isWindowModified());
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(happened());
    save(file("signed.pdf"));
    EXPECT_FALSE(boxOf(drawnPdf(file("signed.pdf")), isInk).isEmpty());
    EXPECT_TRUE(window->close());
}

TEST_F(Counter, ASignatureThatIsNotSavedIsUndone)
{
    signAndConfirm(kS300Family);
    save(file("one.pdf"));
    click("Start signing");
    write(kS300Family, 0.2, 0.3, 0.8, 0.3);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    click("Start signing");
    click("Cancel");
    EXPECT_TRUE(window->isWindowModified());
    press(Qt::Key_F8);
    EXPECT_EQ(note(), "The last signature is no longer in the document.");
    EXPECT_FALSE(window->isWindowModified()) << "what is left was saved";
    press(Qt::Key_F8); // saved ones stay
    save(file("again.pdf"));
    EXPECT_EQ(drawnPdf(file("again.pdf")), drawnPdf(file("one.pdf")));
}

TEST_F(Counter, AFormIsSignedWhereItWasSignedLast)
{
    const QString form = copyOf(KV_DOCUMENTS "/libreoffice.pdf", "form.pdf");
    ASSERT_TRUE(window->openPage(form));
    choose(kS300Family);
    sheet().setFocus();
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_Up, Qt::ControlModifier);
    const QRectF field = sheet().field();
    click("Start signing");
    click("Cancel");
    window.reset();
    openWindow();
    window->setModel(*familyOfName("S300"));
    ASSERT_TRUE(window->openPage(kNote));
    EXPECT_FALSE(near(sheet().field(), field, 1));
    ASSERT_TRUE(window->openPage(copyOf(KV_DOCUMENTS "/libreoffice.pdf", "tuesday.pdf")));
    EXPECT_TRUE(near(sheet().field(), field, 0.1));
}

TEST_F(Counter, DocumentsAreOpenedAgain)
{
    const QString note = copyOf(kNote, "a & b.pdf");
    ASSERT_TRUE(window->openPage(note));
    ASSERT_TRUE(window->openPage(copyOf(KV_DOCUMENTS "/cairo.pdf", "cairo.pdf")));
    window.reset();
    openWindow();
    QMenu *again = nullptr;
    for (QMenu *menu : window->findChildren<QMenu *>())
        if (menu->accessibleName() == "Open again")
            again = menu;
    ASSERT_TRUE(again != nullptr);
    ASSERT_EQ(again->actions().size(), 2);
    EXPECT_EQ(again->actions()[0]->text(), "&1 cairo.pdf");
    EXPECT_EQ(again->actions()[1]->text(), "&2 a && b.pdf");
    again->actions()[1]->trigger();
    EXPECT_EQ(window->windowTitle(), "a & b.pdf[*] - Sign Desk");
    EXPECT_EQ(again->actions()[0]->text(), "&1 a && b.pdf");
    ASSERT_TRUE(QFile::remove(file("cairo.pdf")));
    window.reset();
    openWindow();
    for (QMenu *menu : window->findChildren<QMenu *>())
        EXPECT_TRUE(menu->accessibleName() != "Open again" || menu->actions().size() == 1) << "one is gone";
}

} // namespace
