// Text is found on the pages: where pdftotext says that it is.
#include "outsidecommand.h"
#include "signdesk.h"

#include "findbar.h"

#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

namespace {

class Finding : public SignDesk
{
protected:
    Finding() { window->resize(1100, 700); }

    signdesk::TextSearch &search() const { return *window->findChild<signdesk::TextSearch *>(); }
    signdesk::FindBar &bar() const { return *window->findChild<signdesk::FindBar *>(); }
    QString outcome() const { return bar().findChild<QLabel *>("found")->text(); }

    void find(const QString &text)
    {
        press(Qt::Key_F, Qt::ControlModifier);
        auto *const edit = bar().findChild<QLineEdit *>();
        ASSERT_EQ(window->focusWidget(), edit);
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    bool says(const QString &text)
    {
        return until([&] { return outcome() == text && !search().isRunning(); });
    }

    /// The places of a word on a page as another program sees them, in points.
    static std::vector<QRectF> placesOf(const QString &word, int page, const QString &path)
    {
        const QString number = QString::number(page + 1);
        const CommandResult result = runProgram({"pdftotext", "-bbox", "-f", number, "-l", number, path, "-"}, "/");
        EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(result);
        static const QRegularExpression line(
            "<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)</word>");
        std::vector<QRectF> places;
        auto matches = line.globalMatch(result.output);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const auto at = [&](int i) { return match.captured(i).toDouble(); };
            if (match.captured(5).compare(word, Qt::CaseInsensitive) == 0)
                places.emplace_back(QPointF(at(1), at(2)), QPointF(at(3), at(4)));
        }
        return places;
    }
};

TEST_F(Finding, GoesFromPlaceToPlace)
{
    const QString path =
        printedPdf("words.pdf", {"Oak table", "Bench of oak", "Felt", "OAK, oiled oak", "Nothing of that kind"});
    ASSERT_TRUE(window->openPage(path));
    const QRectF field = sheet().field();
    find("oak");
    EXPECT_TRUE(says("1 of 4"));
    const auto isAt = [&](int page, size_t index) {
        const std::vector<QRectF> expected = placesOf(page == 3 && index == 0 ? "oak," : "oak", page, path);
        const QRectF place = search().found().present();
        return search().found().page == page && !expected.empty()
            && std::abs(place.left() - expected[page == 3 ? 0 : index].left()) < 1.5
            && std::abs(place.center().y() - expected[0].center().y()) < 4
            && sheet().viewport()->rect().contains(
                ((place.center() * sheet().scale()) + sheet().pagePixels(page).topLeft()).toPoint());
    };
    EXPECT_TRUE(isAt(0, 0));
    press(Qt::Key_F3);
    EXPECT_EQ(outcome(), "2 of 4");
    EXPECT_TRUE(isAt(1, 0));
    press(Qt::Key_F3);
    press(Qt::Key_F3);
    EXPECT_EQ(outcome(), "4 of 4");
    EXPECT_TRUE(isAt(3, 1));
    press(Qt::Key_F3);
    EXPECT_EQ(outcome(), "1 of 4") << "all around";
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(outcome(), "4 of 4");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(outcome(), "3 of 4");
    EXPECT_TRUE(isAt(3, 0));
    EXPECT_EQ(sheet().field(), field);
    press(Qt::Key_Escape);
    EXPECT_FALSE(bar().isVisible());
    EXPECT_TRUE(search().found().isEmpty());
}

TEST_F(Finding, MarksWhatItFinds)
{
    ASSERT_TRUE(window->openPage(printedPdf("words.pdf", {"Oak table"})));
    sheet().setFocus();
    press(Qt::Key_Home, Qt::ControlModifier);
    find("table");
    ASSERT_TRUE(says("1 of 1"));
    ASSERT_TRUE(until([&] { return isDrawn(); }));
    const auto isMarker = [](const QColor &colour) { return colour.red() > 240 && colour.blue() < 120; };
    const auto marked = [&] { return boxOf(sheet().viewport()->grab().toImage(), isMarker); };
    const QRectF place = search().found().present();
    const QPointF page = sheet().pagePixels(0).topLeft();
    EXPECT_TRUE(near(marked(), QRectF(page + place.topLeft() * sheet().scale(), place.size() * sheet().scale()), 5));
    press(Qt::Key_Escape);
    EXPECT_TRUE(marked().isEmpty());
}

/// The places are on the page as it is shown.
TEST_F(Finding, FindsOnTurnedPages)
{
    for (const int turn : {0, 90, 180, 270}) {
        const QString path = QStringLiteral(KV_DOCUMENTS "/written-rotated-%1.pdf").arg(turn);
        const CommandResult words = runProgram({"pdftotext", path, "-"}, "/");
        const QString word = words.output.section(QRegularExpression("\\W+"), 0, 0, QString::SectionSkipEmpty);
        ASSERT_FALSE(word.isEmpty()) << turn;
        const std::unique_ptr<signdesk::Pages> pages = signdesk::openPages(path);
        const std::vector<QRectF> found = pages->find(0, word);
        ASSERT_FALSE(found.empty()) << turn;
        // There is ink at that place of the page's picture, which the sharp edges of letters give away.
        const QImage drawn = pages->render(0, kDrawnScale);
        const QRectF place(found[0].topLeft() * kDrawnScale, found[0].size() * kDrawnScale);
        EXPECT_FALSE(boxOf(drawn.copy(place.toAlignedRect()), isInk).isEmpty()) << turn;
    }
}

TEST_F(Finding, SaysWhenThereIsNothing)
{
    ASSERT_TRUE(window->openPage(printedPdf("words.pdf", {"Oak table", "Bench"})));
    find("beech");
    EXPECT_TRUE(says("Not found"));
    press(Qt::Key_F3);
    EXPECT_EQ(outcome(), "Not found");
    find("ben");
    EXPECT_TRUE(says("1 of 1")) << "a new text takes the place of the one before";
}

TEST_F(Finding, BeginsAtThePageInSight)
{
    ASSERT_TRUE(window->openPage(printedPdf("words.pdf", {"oak", "oak", "oak", "oak"})));
    sheet().showPage(2);
    find("oak");
    EXPECT_TRUE(says("3 of 4"));
}

TEST_F(Finding, AnotherDocumentIsNotMarked)
{
    ASSERT_TRUE(window->openPage(printedPdf("words.pdf", {"oak", "oak"})));
    find("oak");
    ASSERT_TRUE(says("1 of 2"));
    ASSERT_TRUE(window->openPage(printedPdf("other.pdf", {"beech", "oak"})));
    EXPECT_TRUE(search().found().isEmpty());
    EXPECT_FALSE(bar().isVisible());
    press(Qt::Key_F3);
    EXPECT_TRUE(bar().isVisible()) << "to be typed";
}

TEST_F(Finding, PicturesHaveNoText)
{
    QImage picture(200, 100, QImage::Format_RGB32);
    picture.fill(Qt::white);
    ASSERT_TRUE(picture.save(file("form.png")));
    ASSERT_TRUE(window->openPage(file("form.png")));
    find("oak");
    EXPECT_TRUE(says("Not found"));
}

TEST_F(Finding, EndsAfterTooManyPlaces)
{
    const QString many = QString("a ").repeated(30);
    QStringList texts;
    for (int page = 0; page < 400; ++page)
        texts << many;
    ASSERT_TRUE(window->openPage(printedPdf("many.pdf", texts)));
    find("a");
    EXPECT_TRUE(until([&] { return !search().isRunning() && search().count() > 0; }));
    EXPECT_EQ(outcome(), "1 of more than 9999");
    EXPECT_LT(search().count(), 9999 + 30);
}

} // namespace
