// The pages as small pictures at the side.
#include "signdesk.h"

#include "thumbnaillist.h"

#include <QAccessible>
#include <QAction>
#include <QScrollBar>

namespace {

class Thumbnails : public SignDesk
{
protected:
    Thumbnails() { window->resize(1100, 700); }

    void open(int pages)
    {
        QStringList texts;
        for (int page = 1; page <= pages; ++page)
            texts << QStringLiteral("This is page %1").arg(page);
        ASSERT_TRUE(window->openPage(printedPdf("pages.pdf", texts)));
    }

    signdesk::ThumbnailList &list() const { return *window->findChild<signdesk::ThumbnailList *>(); }
    QModelIndex row(int page) const { return list().model()->index(page, 0); }
    bool hasPicture(int page) const { return !row(page).data(Qt::DecorationRole).value<QImage>().isNull(); }
    QString heard(int page) const { return row(page).data(Qt::AccessibleTextRole).toString(); }

    void clickOn(int page) const
    {
        list().scrollTo(row(page));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, list().visualRect(row(page)).center());
    }
};

TEST_F(Thumbnails, ShowThePagesAndGoToThem)
{
    open(6);
    ASSERT_TRUE(list().isVisible());
    EXPECT_EQ(list().model()->rowCount(), 6);
    EXPECT_TRUE(until([&] { return hasPicture(0) && hasPicture(1); }));
    const QRectF field = sheet().field();
    clickOn(4);
    EXPECT_EQ(sheet().seenPage(), 4);
    EXPECT_NEAR(sheet().pagePixels(4).top(), 10, 1);
    EXPECT_EQ(sheet().fieldPage(), 0);
    EXPECT_EQ(sheet().field(), field);
    QTest::keyClick(&list(), Qt::Key_Up);
    EXPECT_EQ(sheet().seenPage(), 3);
    sheet().verticalScrollBar()->setValue(0);
    EXPECT_EQ(list().currentIndex().row(), 0) << "they follow";
    sheet().showPage(5);
    EXPECT_EQ(list().currentIndex().row(), 5);
}

/// The picture shows the page: white, with the dark bar at its lower edge.
TEST_F(Thumbnails, LookLikeThePages)
{
    open(2);
    ASSERT_TRUE(until([&] { return hasPicture(0); }));
    const QImage small = row(0).data(Qt::DecorationRole).value<QImage>();
    EXPECT_NEAR(1.0 * small.width() / small.height(), 400.0 / 500, 0.02);
    EXPECT_EQ(QColor(small.pixel(2, 2)), QColor(Qt::white));
    EXPECT_EQ(QColor(small.pixel(small.width() / 2, small.height() - 2)), QColor(20, 20, 120));
}

TEST_F(Thumbnails, OnlyThoseInSightAreDrawn)
{
    open(1000);
    ASSERT_TRUE(until([&] { return hasPicture(0); }));
    list().scrollTo(row(800), QAbstractItemView::PositionAtTop);
    EXPECT_TRUE(until([&] { return hasPicture(800) && hasPicture(802); }));
    for (int page = 20; page < 780; ++page)
        EXPECT_FALSE(hasPicture(page)) << page;
}

TEST_F(Thumbnails, AreNotThereForOnePage)
{
    EXPECT_FALSE(list().isVisible());
    open(1);
    EXPECT_FALSE(list().isVisible());
    open(2);
    EXPECT_TRUE(list().isVisible());
}

TEST_F(Thumbnails, AreHiddenAndStaySo)
{
    open(3);
    press(Qt::Key_F7);
    EXPECT_FALSE(list().isVisible());
    window.reset();
    openWindow();
    open(3);
    EXPECT_FALSE(list().isVisible()) << "also tomorrow";
    press(Qt::Key_F7);
    EXPECT_TRUE(list().isVisible());
    EXPECT_TRUE(until([&] { return hasPicture(0); }));
}

TEST_F(Thumbnails, MarkThePagesThatAreSigned)
{
    open(3);
    EXPECT_EQ(heard(0), "Page 1");
    signAndConfirm(kS300Family);
    EXPECT_EQ(heard(0), "Page 1, signed here");
    EXPECT_EQ(heard(1), "Page 2");
    clickOn(2);
    click("Start signing"); // the one before is a part of the document now
    EXPECT_EQ(heard(0), "Page 1, signed here");
    click("Cancel");
    press(Qt::Key_F8);
    EXPECT_EQ(heard(0), "Page 1") << "undone";
}

} // namespace
