// The fingerprint of an S310X at the sign desk: on the screen, on the saved page, and exported by itself.
#include "signdesk.h"

#include <QComboBox>

namespace {

bool isRed(const QColor &colour)
{
    return colour.red() > 180 && colour.green() < 120 && colour.blue() < 120;
}

struct FingerprintAt
{
    const char *choice;
    bool isInField;
};

class FingerprintOnPage : public SignDesk, public testing::WithParamInterface<FingerprintAt>
{
protected:
    /// Sends a chequerboard as the fingerprint; the page shows it in red.
    void layFingerOn()
    {
        std::vector<unsigned char> squares(208 * 288, 255);
        for (int y = 0; y < 288; ++y)
            for (int x = 0; x < 208; ++x)
                if ((x / 8 + y / 8) % 2 == 0)
                    squares[static_cast<std::size_t>(y * 208 + x)] = 0;
        driver.sendFingerprint(squares, 50);
    }
};

TEST_P(FingerprintOnPage, IsWhereTheWindowShowsIt)
{
    choose(kS310XFamily);
    auto *const place = labelled<QComboBox>("Fingerprint");
    ASSERT_TRUE(place != nullptr && place->isVisible());
    place->setFocus();
    QTest::keyClicks(place, GetParam().choice);
    ASSERT_EQ(place->currentText(), GetParam().choice);
    click("Start signing");
    write(kS310XFamily, 0.1, 0.05, 0.9, 0.05);
    layFingerOn();
    // The page shows it only after the pad's own screen does.
    const auto shownBox = [&] { return boxOf(sheet().viewport()->grab().toImage(), isRed); };
    ASSERT_TRUE(until([&] { return !shownBox().isEmpty(); }));
    const QRectF shown = QRectF(shownBox()).translated(-sheet().pagePixels(0).topLeft());
    const double scale = sheet().scale();
    const QRectF shownAt(shown.topLeft() / scale, shown.size() / scale);
    EXPECT_EQ(sheet().field().contains(shownAt.center()), GetParam().isInField);

    click("Confirm");
    ASSERT_TRUE(showsState("Confirmed"));
    const QString path = file("signed.pdf");
    save(path);
    const QRectF printed = inPoints(boxOf(drawnPdf(path), isRed));
    EXPECT_TRUE(near(printed, shownAt, 3));

    const QString picture = file("finger.png");
    whenDialogComes([&](QDialog &dialog) { giveFile(dialog, picture); });
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(happened());
    EXPECT_EQ(note(), "The fingerprint is exported.");
    EXPECT_NEAR(1.0 * QImage(picture).width() / QImage(picture).height(), 208.0 / 288, 0.02);
}

INSTANTIATE_TEST_SUITE_P(Places, FingerprintOnPage,
    testing::Values(FingerprintAt{"Centre of the field", true}, FingerprintAt{"Right end of the field", true},
        FingerprintAt{"Field of its own", false}),
    [](const auto &row) { return QString(row.param.choice).section(' ', 0, 0).toStdString(); });

TEST_F(FingerprintOnPage, MayBeAllThereIs)
{
    choose(kS310XFamily);
    click("Start signing");
    layFingerOn();
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    ASSERT_TRUE(until([&] { return !boxOf(sheet().viewport()->grab().toImage(), isRed).isEmpty(); }));
    save(file("signed.pdf"));
    const QImage drawn = drawnPdf(file("signed.pdf"));
    EXPECT_TRUE(sheet().field().contains(inPoints(boxOf(drawn, isRed))));
}

/// Without the desk's window: the signing states alone notice the finger and know whether it still has to be saved.
TEST_F(FingerprintOnPage, IsASignatureThatIsToBeKept)
{
    window.reset();
    signdesk::PadSession session;
    session.acceptAnyDriver();
    signdesk::Signing signing(session);
    int changes = 0;
    QObject::connect(&signing, &signdesk::Signing::keptChanged, [&] { ++changes; });
    session.open(*familyOfName("S310X"));
    signing.begin();
    signing.confirm();
    EXPECT_EQ(signing.state(), signdesk::SigningState::Waiting) << "there is nothing to confirm";

    layFingerOn();
    ASSERT_TRUE(until([&] { return signing.state() == signdesk::SigningState::Writing; }));
    EXPECT_TRUE(signing.isUnsaved());
    EXPECT_TRUE(signing.isKept()) << "nothing is confirmed";
    signing.confirm();
    EXPECT_EQ(signing.state(), signdesk::SigningState::Confirmed);
    EXPECT_FALSE(signing.isKept());
    signing.keep();
    EXPECT_TRUE(signing.isKept());
    EXPECT_FALSE(signing.isUnsaved());

    write(kS310XFamily);
    signing.confirm();
    EXPECT_FALSE(signing.isKept()) << "more was written, although no look has seen it";
    signing.keep();
    write(kS310XFamily);
    ASSERT_TRUE(until([&] { return signing.state() == signdesk::SigningState::Changed; }));
    EXPECT_TRUE(signing.isUnsaved());
    signing.confirm();
    EXPECT_FALSE(signing.isKept());
    session.close();
    signing.end();
    EXPECT_TRUE(signing.isKept()) << "nothing is there any more";
    EXPECT_EQ(changes, 6);
}

TEST_F(SignDesk, WithoutAFingerThereIsNoFingerprint)
{
    signAndConfirm(kS310XFamily);
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "OK"); });
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(happened());
    EXPECT_EQ(said, "There is no fingerprint.\nLet the signer lay a finger on the pad's sensor.");
    save(file("signed.pdf"));
    EXPECT_TRUE(boxOf(drawnPdf(file("signed.pdf")), isRed).isNull());
}

} // namespace
