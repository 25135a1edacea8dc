// The pages on the screen: they scroll and zoom at any time, and the signature's field stays on its page.
#include "signdesk.h"

#include <QDir>
#include <QScrollBar>
#include <QSpinBox>
#include <QWheelEvent>

namespace {

class Reading : public SignDesk
{
protected:
    Reading() { window->resize(1100, 700); }

    void open(int pages)
    {
        QStringList texts;
        for (int page = 1; page <= pages; ++page)
            texts << QStringLiteral("This is page %1").arg(page);
        ASSERT_TRUE(window->openPage(printedPdf("pages.pdf", texts)));
        sheet().setFocus();
    }

    int scrolled() const { return sheet().verticalScrollBar()->value(); }
    int end() const { return sheet().verticalScrollBar()->maximum(); }
    QSpinBox &box() const { return *window->findChild<QSpinBox *>("seenPage"); }

    void wheel(int angle, Qt::KeyboardModifiers modifiers, const QPoint &at) const
    {
        QWheelEvent event(
            at, sheet().viewport()->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(sheet().viewport(), &event);
    }

    /// Where the field's upper left corner is on its page, in points, as it is seen.
    QPointF fieldAsSeen() const
    {
        return (sheet().fieldPixels().topLeft() - sheet().pagePixels(sheet().fieldPage()).topLeft()) / sheet().scale();
    }

    /// Whether the bar at the lower edge of that page is seen where it belongs.
    bool showsBarOf(int page) const
    {
        const QRectF paper = sheet().pagePixels(page);
        const QPointF bar(paper.center().x(), paper.bottom() - 10 * sheet().scale());
        const QRect seen = sheet().viewport()->rect();
        return seen.contains(bar.toPoint())
            && QColor(sheet().viewport()->grab().toImage().pixel(bar.toPoint())) == QColor(20, 20, 120);
    }
};

TEST_F(Reading, PagesLieBelowEachOther)
{
    open(3);
    for (int page = 0; page < 3; ++page) {
        const QRectF paper = sheet().pagePixels(page);
        EXPECT_NEAR(paper.width() / paper.height(), 400.0 / 500, 0.001);
        EXPECT_NEAR(paper.width(), sheet().viewport()->width() - 40, 1) << "as wide as the view";
        if (page > 0) {
            EXPECT_NEAR(paper.top(), sheet().pagePixels(page - 1).bottom() + 20, 0.001);
        }
        sheet().verticalScrollBar()->setValue(scrolled() + qRound(paper.bottom()) - sheet().viewport()->height() / 2);
        EXPECT_TRUE(until([&] { return showsBarOf(page); })) << page;
        EXPECT_TRUE(until([&] { return isDrawn(); }));
    }
}

TEST_F(Reading, KeysScrollAndTheFieldStays)
{
    open(5);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(scrolled(), 0);
    const QRectF field = sheet().field();
    const int height = sheet().viewport()->height();
    press(Qt::Key_PageDown);
    EXPECT_EQ(scrolled(), height - 40);
    press(Qt::Key_PageDown);
    EXPECT_EQ(scrolled(), 2 * (height - 40));
    press(Qt::Key_PageUp);
    EXPECT_EQ(scrolled(), height - 40);
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_NEAR(sheet().pagePixels(1).top(), 10, 1) << "the next page, from its top";
    sheet().verticalScrollBar()->setValue(scrolled() + 100);
    press(Qt::Key_Home);
    EXPECT_NEAR(sheet().pagePixels(1).top(), 10, 1) << "the top of the page";
    press(Qt::Key_End);
    EXPECT_NEAR(sheet().pagePixels(1).bottom(), height - 10, 1) << "its end";
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(scrolled(), end());
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_NEAR(sheet().pagePixels(3).top(), 10, 1);
    EXPECT_EQ(sheet().field(), field);
    EXPECT_EQ(sheet().fieldPage(), 0);
    EXPECT_NEAR(fieldAsSeen().x(), field.x(), 1);
    EXPECT_NEAR(fieldAsSeen().y(), field.y(), 1);
}

TEST_F(Reading, TheBoxSaysWhichPageIsSeen)
{
    open(5);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(showsState("of 5"));
    EXPECT_EQ(box().value(), 1);
    for (int page = 2; page <= 5; ++page) {
        press(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(box().value(), page);
    }
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(window->focusWidget(), &box());
    QTest::keyClick(&box(), Qt::Key_2);
    EXPECT_EQ(box().text(), "2");
    EXPECT_EQ(sheet().seenPage(), 4) << "it may become 20";
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(sheet().seenPage(), 1);
    EXPECT_NEAR(sheet().pagePixels(1).top(), 10, 1);
    EXPECT_EQ(sheet().fieldPage(), 0);
    sheet().verticalScrollBar()->setValue(0);
    EXPECT_EQ(box().value(), 1);
    sheet().verticalScrollBar()->setValue(qRound(sheet().pagePixels(0).bottom()) - sheet().viewport()->height() / 3);
    EXPECT_EQ(box().value(), 2) << "most of the view is page 2";
}

/// Small pages: several are in sight, also the last ones, which cannot come to the top.
TEST_F(Reading, EachPageIsReachedWhenManyAreInSight)
{
    open(9);
    for (int i = 0; i < 8; ++i)
        press(Qt::Key_Minus, Qt::ControlModifier);
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(sheet().viewport()->rect().contains(sheet().pagePixels(2).toAlignedRect()));
    for (int page = 2; page <= 9; ++page) {
        press(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(box().value(), page);
    }
    press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(box().value(), 9);
    for (int page = 8; page >= 1; --page) {
        press(Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(box().value(), page);
    }
}

TEST_F(Reading, ZoomingKeepsTheFieldOnItsPlace)
{
    open(3);
    const QRectF field = sheet().field();
    const QPoint middle = sheet().fieldPixels().center();
    const double fitted = sheet().scale();
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(sheet().scale(), fitted * std::pow(1.25, 4), 0.01);
    EXPECT_TRUE(near(QRectF(sheet().fieldPixels().center(), QSizeF()), QRectF(middle, QSizeF()), 4));
    EXPECT_NEAR(fieldAsSeen().x(), field.x(), 1);
    EXPECT_NEAR(fieldAsSeen().y(), field.y(), 1);
    for (int i = 0; i < 60; ++i)
        press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(sheet().scale(), 6);
    for (int i = 0; i < 60; ++i)
        press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(sheet().scale(), 0.1);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(sheet().scale(), fitted);
    EXPECT_EQ(sheet().field(), field);
    EXPECT_EQ(sheet().fieldPage(), 0);
}

TEST_F(Reading, TheWheelScrollsAndZooms)
{
    open(3);
    press(Qt::Key_Home, Qt::ControlModifier);
    wheel(-120, Qt::NoModifier, {100, 100});
    EXPECT_GT(scrolled(), 0);
    wheel(120, Qt::NoModifier, {100, 100});
    EXPECT_EQ(scrolled(), 0);
    const QPoint pointer(300, 400);
    const auto pointed = [&] { return (pointer - sheet().pagePixels(0).topLeft()) / sheet().scale(); };
    const QPointF before = pointed();
    const double scale = sheet().scale();
    for (int i = 0; i < 5; ++i)
        wheel(120, Qt::ControlModifier, pointer);
    EXPECT_NEAR(sheet().scale(), scale * std::pow(1.1, 5), 0.001);
    EXPECT_NEAR(pointed().x(), before.x(), 1) << "what is under the pointer stays there";
    EXPECT_NEAR(pointed().y(), before.y(), 1);
}

/// After Start the focus is on Confirm. The clerk reads on, and the signer writes on.
TEST_F(Reading, GoesOnWhileSomebodySigns)
{
    open(4);
    choose(kS300Family);
    click("Start signing");
    write(kS300Family);
    ASSERT_TRUE(until([&] { return showsState("The signer writes"); }));
    ASSERT_EQ(window->focusWidget(), button("Confirm"));
    const QRectF field = sheet().field();
    const int before = scrolled();
    press(Qt::Key_PageDown);
    EXPECT_GT(scrolled(), before);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(scrolled(), end());
    press(Qt::Key_Plus, Qt::ControlModifier);
    write(kS300Family, 0.2, 0.8, 0.8, 0.8); // where nobody looks
    EXPECT_EQ(window->focusWidget(), button("Confirm"));
    EXPECT_EQ(sheet().field(), field);
    press(Qt::Key_F6);
    EXPECT_EQ(sheet().fieldPage(), 0) << "ink stays on its page";
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_0, Qt::ControlModifier);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    ASSERT_TRUE(until([&] { return showsState("Confirmed"); }));
    save(file("signed.pdf"));
    const QImage drawn = drawnPdf(file("signed.pdf"));
    const QRectF ink = inPoints(boxOf(drawn.copy(0, 200, drawn.width(), 740), isInk).translated(0, 200));
    EXPECT_TRUE(near(ink,
        QRectF(field.x() + 0.2 * field.width(), field.y() + 0.5 * field.height(), 0.6 * field.width(),
            0.3 * field.height()),
        3))
        << "both lines";
}

TEST_F(Reading, TheFieldComesToThePageInSightWhenAsked)
{
    open(4);
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ControlModifier);
    press(Qt::Key_F6);
    EXPECT_EQ(sheet().fieldPage(), 2);
    EXPECT_EQ(labelled<QSpinBox>("Page")->value(), 3);
    EXPECT_TRUE(sheet().viewport()->rect().contains(sheet().fieldPixels().center()));
}

TEST_F(Reading, TheMouseTakesTheFieldToAnotherPage)
{
    open(2);
    for (int i = 0; i < 6; ++i)
        press(Qt::Key_Minus, Qt::ControlModifier);
    press(Qt::Key_Home, Qt::ControlModifier);
    const QPoint from = sheet().fieldPixels().center();
    const QPoint to = sheet().pagePixels(1).center().toPoint();
    ASSERT_TRUE(sheet().viewport()->rect().contains(to));
    QTest::mousePress(sheet().viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent drag(
        QEvent::MouseMove, to, sheet().viewport()->mapToGlobal(to), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(sheet().viewport(), &drag);
    QTest::mouseRelease(sheet().viewport(), Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_EQ(sheet().fieldPage(), 1);
    EXPECT_EQ(labelled<QSpinBox>("Page")->value(), 2);
    EXPECT_TRUE(near(sheet().field(),
        QRectF(
            QPointF(200, 250) - QPointF(sheet().field().width(), sheet().field().height()) / 2, sheet().field().size()),
        3));
}

TEST_F(Reading, AThousandPagesTakeBoundedMemory)
{
    open(1000);
    qint64 most = 0;
    for (int page = 0; page < 1000; page += 25) {
        sheet().showPage(page);
        EXPECT_EQ(sheet().seenPage(), page);
        EXPECT_TRUE(until([&] { return isDrawn(); })) << page;
        most = std::max(most, sheet().bytes());
    }
    EXPECT_GT(most, 0);
    EXPECT_LE(most, 192 << 20);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return showsBarOf(999); }));
    EXPECT_EQ(box().value(), 1000);
}

/// What was drawn while the view was elsewhere never comes too late: only the pages in sight are drawn.
TEST_F(Reading, ScrollingDoesNotWaitForPages)
{
    open(300);
    press(Qt::Key_Home, Qt::ControlModifier);
    for (int i = 0; i < 250; ++i)
        press(Qt::Key_PageDown);
    EXPECT_TRUE(until([&] { return isDrawn(); }));
    EXPECT_LE(sheet().bytes(), 192 << 20);
    EXPECT_GT(sheet().seenPage(), 50);
}

TEST_F(Reading, AZoomedPageIsSharpWhereItIsSeen)
{
    ASSERT_TRUE(window->openPage(KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf"));
    sheet().setFocus();
    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_Home, Qt::ControlModifier);
    sheet().horizontalScrollBar()->setValue(0);
    const double dots = sheet().scale() * window->devicePixelRatioF();
    const QRect part(0, 0, 500, 300);
    const QImage page = signdesk::openPages(KV_SIGNDESK_SOURCES "/sample/delivery-note.pdf")->renderPart(0, dots, part);
    ASSERT_GT(595 * dots * 842 * dots, 12e6) << "too large to be drawn as a whole";
    const auto isSharp = [&] {
        const QImage shown = sheet().viewport()->grab().toImage();
        const QPoint corner = sheet().pagePixels(0).topLeft().toPoint();
        int different = 0;
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x)
                different += std::abs(qGray(page.pixel(x, y)) - qGray(shown.pixel(corner + QPoint(x, y)))) > 40;
        return different == 0;
    };
    EXPECT_TRUE(until(isSharp));
    EXPECT_LE(sheet().bytes(), 192 << 20);
}

TEST_F(Reading, AHugePageIsShown)
{
    QByteArray pdf = "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
                     "2 0 obj<</Type/Pages/Count 2/Kids[3 0 R 4 0 R]>>endobj\n"
                     "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 900000000 900000000]>>endobj\n"
                     "4 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 0.001 900000000]>>endobj\n"
                     "trailer<</Root 1 0 R/Size 5>>\n%%EOF\n";
    ASSERT_TRUE(window->openPage(written("huge.pdf", pdf)));
    EXPECT_TRUE(until([&] { return isDrawn(); }));
    sheet().setFocus();
    press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return isDrawn(); }));
    EXPECT_LE(sheet().bytes(), 192 << 20);
    EXPECT_FALSE(window->grab().isNull());
}

TEST_F(Reading, NothingOfTheDocumentBeforeIsSeen)
{
    open(2);
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_End);
    ASSERT_TRUE(until([&] { return showsBarOf(0); }));
    ASSERT_TRUE(window->openPage(written("other.pdf",
        "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Count 2/Kids[3 0 R 3 0 R]>>endobj\n"
        "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 400 500]>>endobj\ntrailer<</Root 1 0 R/Size 4>>\n%%EOF\n")));
    sheet().setFocus();
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_End);
    EXPECT_FALSE(showsBarOf(0)); // at once
    EXPECT_TRUE(until([&] { return isDrawn(); }));
    EXPECT_FALSE(showsBarOf(0));
}

/// While it lives the desktop has a dark theme.
class DarkTheme
{
public:
    DarkTheme()
    {
        QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50)); // from which Qt makes the other colours
        dark.setColor(QPalette::Base, QColor(27, 30, 32));
        dark.setColor(QPalette::Highlight, QColor(130, 200, 250)); // too light for white paper
        dark.setColor(QPalette::HighlightedText, Qt::black);
        QApplication::setPalette(dark);
    }
    ~DarkTheme() { QApplication::setPalette(m_before); }
    DarkTheme(const DarkTheme &) = delete;
    DarkTheme &operator=(const DarkTheme &) = delete;

private:
    QPalette m_before = QApplication::palette();
};

TEST_F(Reading, PaperIsWhiteInADarkTheme)
{
    const DarkTheme dark;
    open(3);
    press(Qt::Key_Home, Qt::ControlModifier);
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(window->focusWidget(), "page");
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(until([&] { return showsState("1 of 3") && isDrawn(); }));
    const QImage seen = sheet().viewport()->grab().toImage();
    const QRectF paper = sheet().pagePixels(0);
    EXPECT_EQ(QColor(seen.pixel(qRound(paper.left()) + 8, 300)), QColor(Qt::white));
    EXPECT_LT(QColor(seen.pixel(3, 300)).lightness(), 80) << "around the paper";
    EXPECT_TRUE(QDir().mkpath(KV_SIGNDESK_PICTURES));
    EXPECT_TRUE(window->grab().save(KV_SIGNDESK_PICTURES "/dark.png"));
    sheet().showField();
    const QRect field = sheet().fieldPixels();
    const auto isFrame = [](const QColor &colour) { return colour.lightness() < 160; };
    const QRect edges = boxOf(sheet().viewport()->grab(field.adjusted(-4, -4, 4, 4)).toImage(), isFrame);
    EXPECT_GT(edges.width(), field.width() - 4) << "the field's frame is seen on the paper";
}

} // namespace
