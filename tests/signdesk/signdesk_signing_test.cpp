// The sign desk while a customer signs: states, buttons on the desk and on the pad, pen, place.
#include "signdesk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>

#include <cmath>
#include <cstring>

namespace {

constexpr double kMillimetre = 72 / 25.4;

class SignDeskOfEachModel : public SignDesk, public testing::WithParamInterface<Family>
{
};

TEST_P(SignDeskOfEachModel, SignsInTheFieldAndConfirmsOnThePad)
{
    const Family &family = GetParam();
    choose(family);
    EXPECT_TRUE(showsState("No pad in use"));
    EXPECT_FALSE(button("Confirm")->isEnabled());
    EXPECT_FALSE(button("Save page...")->isEnabled());
    click("Start signing");
    ASSERT_TRUE(driver.isOpen());
    EXPECT_TRUE(showsState("The signer may write"));
    ASSERT_TRUE(signWidget() != nullptr);
    EXPECT_EQ(signWidget()->geometry(), sheet().fieldPixels());
    const RawArea raw = rawArea(family.type);
    EXPECT_NEAR(sheet().field().width() / sheet().field().height(), 1.0 * raw.spanX / raw.spanY, 0.001);

    write(family);
    EXPECT_TRUE(until([&] { return showsState("The signer writes"); }));
    EXPECT_EQ(window->findChild<QLabel *>("points")->text(), "42 points"); // 41 and one for the end of the stroke
    const QSizeF size = signWidget()->size();
    const QRectF line(0.2 * size.width(), size.height() / 2, 0.6 * size.width(), 0);
    EXPECT_TRUE(until([&] { return bool(near(boxOf(onPaper(*signWidget()), isInk), line, 6)); }));

    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    EXPECT_TRUE(until([&] { return showsState("Confirmed"); }));
    EXPECT_TRUE(button("Save page...")->isEnabled());
    EXPECT_TRUE(window->isWindowModified());
}

TEST_P(SignDeskOfEachModel, CancelOnThePadClosesIt)
{
    choose(GetParam());
    click("Start signing");
    write(GetParam());
    tap(KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON);
    EXPECT_TRUE(until([&] { return showsState("No pad in use"); }));
    EXPECT_EQ(note(), "The signer cancelled. The pad is closed.");
    EXPECT_FALSE(driver.isOpen());
    settle();
    EXPECT_EQ(signWidget(), nullptr);
    click("Start signing"); // it can be opened again
    EXPECT_TRUE(driver.isOpen());
}

INSTANTIATE_TEST_SUITE_P(Models, SignDeskOfEachModel, testing::ValuesIn(kFamilies),
    [](const auto &row) { return std::string(row.param.prefix, std::strlen(row.param.prefix) - 1); });

TEST_F(SignDesk, NothingToConfirm)
{
    click("Start signing");
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    EXPECT_TRUE(until([&] { return note() == "Nothing is written yet, so there is nothing to confirm."; }));
    EXPECT_TRUE(showsState("The signer may write"));
}

TEST_F(SignDesk, TheKeyboardAloneSigns)
{
    choose(kR800Family);
    press(Qt::Key_F2);
    ASSERT_TRUE(driver.isOpen());
    write(kR800Family);
    ASSERT_TRUE(until([&] { return button("Confirm")->isEnabled(); }));
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(showsState("Confirmed"));
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Keep"); });
    press(Qt::Key_F4);
    EXPECT_TRUE(happened());
    EXPECT_TRUE(showsState("Confirmed"));
    whenDialogComes([&](QDialog &dialog) { answer(dialog, "Discard"); });
    press(Qt::Key_F4);
    EXPECT_TRUE(happened());
    EXPECT_TRUE(showsState("The signer may write"));
    EXPECT_EQ(KVR800_GetTotalInkPointsNumber(KVR800_DEVICE), ARI_INK_EMPTY);
    press(Qt::Key_Escape, Qt::ShiftModifier);
    EXPECT_TRUE(showsState("No pad in use"));
    EXPECT_FALSE(driver.isOpen());
}

TEST_F(SignDesk, ClearBeforeConfirmingAsksNothing)
{
    click("Start signing");
    write(kS210Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    click("Clear");
    EXPECT_TRUE(showsState("The signer may write"));
    EXPECT_EQ(boxOf(onPaper(*signWidget()), isInk), QRect());
}

TEST_F(SignDesk, ATapFromBeforeTheClearIsNotTaken)
{
    click("Start signing");
    write(kS210Family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON); // the window has not handled this event yet when Clear is clicked
    click("Clear");
    write(kS210Family);
    EXPECT_TRUE(until([&] { return showsState("The signer writes"); }));
    QTest::qWait(300);
    EXPECT_TRUE(showsState("The signer writes"));
}

TEST_F(SignDesk, InkAfterTheConfirmationIsNotConfirmed)
{
    signAndConfirm(kS300Family);
    write(kS300Family, 0.2, 0.7, 0.8, 0.7);
    EXPECT_TRUE(until([&] { return showsState("Changed since: confirm anew"); }));
    EXPECT_FALSE(button("Save page...")->isEnabled());
    click("Confirm");
    EXPECT_TRUE(showsState("Confirmed"));
    EXPECT_TRUE(button("Save page...")->isEnabled());
}

TEST_F(SignDesk, CancelOnThePadKeepsWhatIsConfirmed)
{
    signAndConfirm(kM450Family);
    tap(KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON);
    EXPECT_TRUE(until([&] { return note().endsWith("the confirmed signature is kept."); }));
    EXPECT_TRUE(showsState("Confirmed"));
    EXPECT_TRUE(until([&] { return !boxOf(onPaper(*signWidget()), isInk).isEmpty(); }));
}

TEST_F(SignDesk, ThePenWritesAsItIsSet)
{
    const auto isRed = [](const QColor &c) { return c.red() > 120 && c.blue() < 90; };
    choose(kS300Family);
    auto *const width = labelled<QSpinBox>("Width");
    auto *const colour = labelled<QComboBox>("Colour");
    ASSERT_TRUE(width && colour);
    click("Start signing");
    width->setFocus();
    QTest::keyClick(width, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(width, "9");
    colour->setFocus();
    QTest::keyClicks(colour, "Red");
    QTest::mouseClick(button("Width by pressure"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    EXPECT_FALSE(colour->isEnabled()) << "a signature has one colour";
    // Without pressure the width level is the line's width in pixels of the canvas, which is 800 wide.
    const double scale = signWidget()->width() / 800.0;
    const auto drawn = [&] { return boxOf(onPaper(*signWidget()), isRed); };
    EXPECT_TRUE(until([&] { return drawn().width() > 0.59 * signWidget()->width(); }));
    EXPECT_NEAR(drawn().height(), 9 * scale, 2);

    width->setValue(10);
    width->setFocus();
    QTest::mouseClick(button("Width by pressure"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8)); // from now on
    write(kS300Family, 0.2, 0.8, 0.8, 0.8); // at half of the largest pressure, 2048
    const int middle = signWidget()->height() * 65 / 100;
    const double expected = 1024 * 10 / 306.0 * scale;
    QRect lower;
    EXPECT_TRUE(until([&] {
        const QImage both = onPaper(*signWidget());
        lower = boxOf(both.copy(0, middle, both.width(), both.height() - middle), isRed);
        return std::abs(lower.height() - expected) <= 2;
    })) << lower.height()
        << " instead of " << expected;
    EXPECT_NEAR(boxOf(onPaper(*signWidget()).copy(0, 0, signWidget()->width(), middle), isRed).height(), 9 * scale, 2);
}

TEST_F(SignDesk, TheFieldGoesWhereItIsPut)
{
    choose(kS300Family);
    auto *const left = labelled<QDoubleSpinBox>("Left");
    auto *const size = labelled<QDoubleSpinBox>("Size");
    left->setFocus();
    QTest::keyClick(left, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(left, left->locale().toString(20.0, 'f', 1) + " mm");
    QTest::keyClick(left, Qt::Key_Return);
    size->setValue(60);
    EXPECT_NEAR(sheet().field().x(), 20 * kMillimetre, 0.1);
    EXPECT_NEAR(sheet().field().width(), 60 * kMillimetre, 0.1);

    const QRectF before = sheet().field();
    sheet().setFocus();
    press(Qt::Key_Right);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_NEAR(sheet().field().x() - before.x(), kMillimetre, 0.01);
    EXPECT_NEAR(sheet().field().y() - before.y(), -10 * kMillimetre, 0.01);
    EXPECT_NEAR(left->value(), 21, 0.06);

    const QPoint grip = sheet().fieldPixels().center();
    QTest::mousePress(sheet().viewport(), Qt::LeftButton, Qt::NoModifier, grip);
    QMouseEvent drag(QEvent::MouseMove, grip + QPoint(60, -50), sheet().viewport()->mapToGlobal(grip + QPoint(60, -50)),
        Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    const QRect dragged = sheet().fieldPixels().translated(60, -50);
    QCoreApplication::sendEvent(sheet().viewport(), &drag);
    QTest::mouseRelease(sheet().viewport(), Qt::LeftButton, Qt::NoModifier, grip + QPoint(60, -50));
    EXPECT_TRUE(near(sheet().fieldPixels(), dragged, 1));

    for (int i = 0; i < 60; ++i)
        press(Qt::Key_Left, Qt::ControlModifier); // the field stops at the edge of the page
    EXPECT_EQ(sheet().field().x(), 0);
}

TEST_F(SignDesk, InkGoesWithItsField)
{
    choose(kS300Family);
    click("Start signing");
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    const auto share = [&] {
        const QRectF box = boxOf(onPaper(*signWidget()), isInk);
        const QSizeF size = signWidget()->size();
        return QRectF(
            box.x() / size.width(), box.y() / size.height(), box.width() / size.width(), box.height() / size.height());
    };
    ASSERT_TRUE(until([&] { return share().width() > 0.59; })); // all of the line is there
    const QRectF before = share();
    const int narrow = signWidget()->width();
    window->resize(1500, 900);
    press(Qt::Key_Plus, Qt::ControlModifier);
    settle();
    EXPECT_GT(signWidget()->width(), narrow);
    EXPECT_TRUE(near(share(), before, 0.02)) << "zooming draws the lines anew";
    sheet().setFocus();
    press(Qt::Key_Left, Qt::ControlModifier);
    press(Qt::Key_Plus);
    EXPECT_EQ(signWidget()->geometry(), sheet().fieldPixels());
    EXPECT_TRUE(near(share(), before, 0.02));
}

TEST_F(SignDesk, AFieldThatIsMovedAfterSavingIsSavedAnew)
{
    signAndConfirm(kS300Family);
    save(file("signed.pdf"));
    EXPECT_FALSE(window->isWindowModified());
    sheet().setFocus();
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_TRUE(window->isWindowModified());
    save(file("again.pdf"));
    EXPECT_FALSE(window->isWindowModified());
    const QRectF first = inPoints(boxOf(drawnPdf(file("signed.pdf")), isInk));
    const QRectF second = inPoints(boxOf(drawnPdf(file("again.pdf")), isInk));
    EXPECT_TRUE(near(second, first.translated(-10 * kMillimetre, 0), 1));
}

TEST_F(SignDesk, TheLastLineTellsTheRates)
{
    click("Start signing");
    const auto rate = [&](const char *name) {
        return window->findChild<QLabel *>(name)->text().section(' ', 0, 0).toInt();
    };
    int packets = 0, repaints = 0;
    EXPECT_TRUE(until([&] {
        write(kS210Family);
        packets = std::max(packets, rate("packetRate"));
        repaints = std::max(repaints, rate("repaintRate"));
        return packets > 20 && repaints > 2;
    }));
    EXPECT_TRUE(until([&] { return rate("packetRate") == 0 && rate("repaintRate") == 0; }));
}

TEST(RateMeter, CountsOverTheLastSecond)
{
    signdesk::RateMeter meter;
    EXPECT_EQ(meter.perSecond(), 0);
    meter.look(0, 100);
    EXPECT_EQ(meter.perSecond(), 0);
    meter.look(500, 200);
    EXPECT_EQ(meter.perSecond(), 200);
    meter.look(1000, 300);
    meter.look(1500, 300);
    EXPECT_EQ(meter.perSecond(), 100); // 100 more since the look at 500
    meter.look(1600, 0); // the count fell, as after a clear
    EXPECT_EQ(meter.perSecond(), 0);
    meter.look(1600, 50); // no time has passed
    EXPECT_EQ(meter.perSecond(), 0);
}

} // namespace
