// The pad is unplugged while a customer signs. The desk says so, keeps the ink, and does not mistake half a signature
// for a whole one.
#include "signdesk.h"

#include <QMessageBox>

#include <cstring>

namespace {

const QString kAway = "The pad does not answer";

class Unplugged : public SignDesk
{
protected:
    void pullOut() { driver.setResult("GetDevicePartsVersion", KVSPDARI_LIBUSB_SENT_CMD_FAIL); }
    void plugIn() { driver.setResult("GetDevicePartsVersion", KVSPDARI_SUCCESS); }

    void pullOutAndWait()
    {
        pullOut();
        ASSERT_TRUE(until([&] { return showsState(kAway); }));
    }

    void plugInAndWait()
    {
        plugIn();
        ASSERT_TRUE(until([&] { return !showsState(kAway); }));
    }

    void startAndWrite(const Family &family)
    {
        choose(family);
        click("Start signing");
        write(family);
        ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    }

    /// Clicks the desk's Confirm button and answers the question that has to come up.
    void confirmAndAnswer(const QString &buttonText)
    {
        whenDialogComes([=](QDialog &dialog) { answer(dialog, buttonText); });
        click("Confirm");
        EXPECT_TRUE(happened()) << "it did not ask";
        EXPECT_TRUE(said.startsWith("The pad did not answer for a while. Strokes of the signature may be missing.\n"))
            << said.toStdString();
    }
};

class UnpluggedModel : public Unplugged, public testing::WithParamInterface<Family>
{
};

TEST_P(UnpluggedModel, HalfASignatureIsNotConfirmedUnasked)
{
    const Family &family = GetParam();
    startAndWrite(family);
    pullOut(); // the desk has not noticed yet when Confirm is clicked
    confirmAndAnswer("Go back");
    EXPECT_TRUE(showsState(kAway));
    EXPECT_EQ(window->state(), signdesk::SigningState::Writing);
    EXPECT_FALSE(button("Save page...")->isEnabled());
    EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), 42);

    confirmAndAnswer("Confirm all the same");
    EXPECT_EQ(window->state(), signdesk::SigningState::Confirmed);
    save(file("signed.png"));
    EXPECT_FALSE(boxOf(QImage(file("signed.png")), isInk).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Models, UnpluggedModel, testing::ValuesIn(kFamilies),
    [](const auto &row) { return std::string(row.param.prefix, std::strlen(row.param.prefix) - 1); });

TEST_F(Unplugged, IsNoticedWhileTheDeskWaits)
{
    startAndWrite(kS300Family);
    pullOutAndWait();
    EXPECT_EQ(note(),
        "The pad no longer answers. What it sent is kept, but strokes may be missing: see that it is plugged in, "
        "cancel, and start again.");
    EXPECT_EQ(KVS300_GetTotalInkPointsNumber(KVS300_DEVICE), 42);
    EXPECT_TRUE(until([&] { return !boxOf(onPaper(*signWidget()), isInk).isEmpty(); }));
}

TEST_F(Unplugged, WhoeverSignsOnAfterwardsMayHaveWrittenInBetween)
{
    startAndWrite(kS300Family);
    pullOutAndWait();
    plugInAndWait();
    EXPECT_TRUE(showsState("The signer writes"));
    EXPECT_EQ(
        note(), "The pad answers again, but strokes may be missing: clear the field and let the signer sign anew.");
    write(kS300Family, 0.3, 0.2, 0.6, 0.8);
    whenDialogComes([&](QDialog &dialog) {
        tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON); // the question is open already, so a second tap must not ask again
        settle();
        answer(dialog, "Go back");
    });
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return happened(); }));
    settle();
    EXPECT_EQ(window->state(), signdesk::SigningState::Writing);

    click("Clear");
    write(kS300Family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    EXPECT_TRUE(until([&] { return showsState("Confirmed"); }));
}

TEST_F(Unplugged, ACancelOnThePadEndsTheQuestionToo)
{
    startAndWrite(kS300Family);
    pullOutAndWait();
    plugInAndWait();
    whenDialogComes([&](QDialog &dialog) {
        tap(KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON);
        settle();
        answer(dialog, "Confirm all the same");
    });
    click("Confirm");
    EXPECT_TRUE(happened());
    EXPECT_TRUE(showsState("No pad in use"));
}

TEST_F(Unplugged, BeforeAnythingIsWritten)
{
    click("Start signing");
    pullOutAndWait();
    EXPECT_EQ(note(), "The pad no longer answers: see that it is plugged in, cancel, and start again.");
    plugInAndWait();
    EXPECT_EQ(note(), "The pad answers again. The signer may write on the pad.");
    EXPECT_TRUE(showsState("The signer may write"));
    pullOutAndWait();
    click("Cancel");
    EXPECT_TRUE(showsState("No pad in use"));
    plugIn();
    click("Start signing");
    EXPECT_TRUE(showsState("The signer may write"));
}

TEST_F(Unplugged, WhatIsConfirmedStaysSo)
{
    signAndConfirm(kS300Family);
    pullOutAndWait();
    EXPECT_EQ(note(), "The pad no longer answers. The confirmed signature is kept: save, export or print it.");
    EXPECT_EQ(window->state(), signdesk::SigningState::Confirmed);
    save(file("signed.png"));
    EXPECT_FALSE(boxOf(QImage(file("signed.png")), isInk).isEmpty());
    plugInAndWait();
    EXPECT_EQ(note(), "The pad answers again.");
}

} // namespace
