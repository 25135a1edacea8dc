// Pages are drawn and searched beside the window, in the order in which they are needed, and a page that takes for ever
// holds nobody up.
#include "pagefile.h"
#include "pagerenderer.h"
#include "patience.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QTest>

#include <gtest/gtest.h>

#include <condition_variable>
#include <numeric>
#include <set>
#include <thread>

namespace {

using namespace std::chrono_literals;
using signdesk::PageDrawing;
using signdesk::PageUse;

/// What happens to pages of a test, on whatever thread.
struct Diary
{
    std::mutex lock;
    std::condition_variable changed;
    std::vector<int> drawn, searched; ///< pages, in order
    std::set<std::thread::id> threads;
    std::set<int> held; ///< pages that take for ever
    bool isDeaf = false; ///< they do so even when nobody wants them any more
    int waiting = 0; ///< drawings of such pages

    void work(std::vector<int> &list, int page, const std::function<bool()> &isUnwanted)
    {
        std::unique_lock<std::mutex> locked(lock);
        threads.insert(std::this_thread::get_id());
        list.push_back(page);
        ++waiting;
        changed.notify_all();
        while (held.count(page) > 0 && (isDeaf || !isUnwanted()))
            changed.wait_for(locked, 1ms);
        --waiting;
    }
    std::vector<int> drawnPages()
    {
        const std::lock_guard<std::mutex> locked(lock);
        return drawn;
    }
    std::set<std::thread::id> allThreads()
    {
        const std::lock_guard<std::mutex> locked(lock);
        return threads;
    }
    void release()
    {
        const std::lock_guard<std::mutex> locked(lock);
        held.clear();
        changed.notify_all();
    }
    void awaitHeld()
    {
        std::unique_lock<std::mutex> locked(lock);
        EXPECT_TRUE(changed.wait_for(locked, kPatience, [this] { return waiting > 0; }));
    }
};

/// Pages whose pictures are as wide as their number and one.
class TestPages : public signdesk::Pages
{
public:
    TestPages(std::shared_ptr<Diary> diary, int count)
        : m_diary(std::move(diary))
        , m_count(count)
    {
    }
    int count() const override { return m_count; }
    QSizeF size(int /*page*/) const override { return {100, 100}; }
    QString identity() const override { return "test"; }
    QImage render(int page, double dotsPerPoint) const override { return draw({page, dotsPerPoint, {}}, {}); }
    QImage draw(const PageDrawing &drawing, const std::function<bool()> &isUnwanted) const override
    {
        m_diary->work(m_diary->drawn, drawing.page, isUnwanted);
        return QImage(drawing.page + 1, 1, QImage::Format_RGB32);
    }
    std::vector<QRectF> find(int page, const QString &text) const override
    {
        m_diary->work(m_diary->searched, page, [] { return false; });
        return std::vector<QRectF>(static_cast<size_t>(text.size()), QRectF(page, 0, 1, 1));
    }
    Open opener() const override
    {
        return [diary = m_diary, count = m_count] { return std::make_unique<TestPages>(diary, count); };
    }

private:
    std::shared_ptr<Diary> m_diary;
    int m_count;
};

class PageRendererTest : public testing::Test
{
protected:
    PageRendererTest()
    {
        renderer = std::make_unique<signdesk::PageRenderer>();
        renderer->setPatience(kPatience * 10, kPatience * 10);
        QObject::connect(renderer.get(), &signdesk::PageRenderer::drawn, renderer.get(),
            [this](PageUse use, const PageDrawing &drawing, const QImage &picture) {
                if (picture.isNull() && isPatientNow)
                    renderer->setPatience(kPatience * 10, kPatience * 10);
                EXPECT_TRUE(picture.isNull() || picture.width() == drawing.page + 1);
                (picture.isNull() ? failed : use == PageUse::View ? seen : thumbnails).push_back(drawing.page);
            });
        QObject::connect(renderer.get(), &signdesk::PageRenderer::searched, renderer.get(),
            [this](int page, const std::vector<QRectF> &places) {
                searched.push_back(page);
                found.push_back(static_cast<int>(places.size()));
            });
    }
    ~PageRendererTest() override { diary->release(); }

    static bool until(const std::function<bool()> &condition)
    {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            QTest::qWait(1);
        }
        return true;
    }

    static std::vector<PageDrawing> drawings(const std::vector<int> &pages)
    {
        std::vector<PageDrawing> all;
        for (const int page : pages)
            all.push_back({page, 1, {}});
        return all;
    }

    std::shared_ptr<Diary> diary = std::make_shared<Diary>();
    TestPages pages{diary, 40};
    std::unique_ptr<signdesk::PageRenderer> renderer;
    bool isPatientNow = false; ///< after the first page that cannot be drawn
    std::vector<int> seen, thumbnails, failed, searched, found;
};

TEST_F(PageRendererTest, DrawsOnOneThreadThatIsNotTheWindows)
{
    renderer->setPages(pages);
    renderer->want(PageUse::View, drawings({3, 4, 2}));
    renderer->find("x", 0);
    EXPECT_TRUE(until([&] { return seen.size() == 3 && searched.size() == 40; }));
    EXPECT_EQ(seen, (std::vector<int>{3, 4, 2}));
    EXPECT_EQ(diary->allThreads().size(), 1u);
    EXPECT_EQ(diary->allThreads().count(std::this_thread::get_id()), 0u);
}

TEST_F(PageRendererTest, DrawsFirstWhatIsSeen)
{
    diary->held = {0};
    renderer->setPages(pages);
    renderer->want(PageUse::View, drawings({0}));
    diary->awaitHeld();
    renderer->find("x", 5);
    renderer->want(PageUse::Thumbnail, drawings({10, 11}));
    renderer->want(PageUse::View, drawings({0, 1}));
    diary->release();
    EXPECT_TRUE(until([&] { return searched.size() == 40; }));
    EXPECT_EQ(diary->drawnPages(), (std::vector<int>{0, 1, 10, 11}));
    EXPECT_EQ(seen, (std::vector<int>{0, 1}));
    EXPECT_EQ(thumbnails, (std::vector<int>{10, 11}));
}

TEST_F(PageRendererTest, GivesUpWhatNobodyWantsAnyMore)
{
    diary->held = {0};
    renderer->setPages(pages);
    renderer->want(PageUse::View, drawings({0, 1, 2}));
    diary->awaitHeld();
    renderer->want(PageUse::View, drawings({7})); // somebody has scrolled on
    EXPECT_TRUE(until([&] { return !seen.empty(); }));
    EXPECT_EQ(seen, (std::vector<int>{7}));
    EXPECT_EQ(diary->drawnPages(), (std::vector<int>{0, 7}));
}

TEST_F(PageRendererTest, PutsAThumbnailOffForAPageThatIsSeen)
{
    diary->held = {4};
    renderer->setPages(pages);
    renderer->want(PageUse::Thumbnail, drawings({4, 5}));
    diary->awaitHeld();
    renderer->want(PageUse::View, drawings({9}));
    EXPECT_TRUE(until([&] { return seen.size() == 1 && thumbnails.size() == 1; }));
    EXPECT_EQ(thumbnails, (std::vector<int>{5}));
    diary->release();
    EXPECT_TRUE(until([&] { return thumbnails.size() == 2; })) << "it comes after all";
}

TEST_F(PageRendererTest, LeavesAPageBehindThatDoesNotListen)
{
    diary->held = {0};
    diary->isDeaf = true;
    renderer->setPatience(kPatience * 10, 50ms);
    renderer->setPages(pages);
    renderer->want(PageUse::View, drawings({0}));
    diary->awaitHeld();
    renderer->want(PageUse::View, drawings({7}));
    EXPECT_TRUE(until([&] { return !seen.empty(); }));
    EXPECT_EQ(seen, (std::vector<int>{7}));
    EXPECT_EQ(diary->allThreads().size(), 2u);
    diary->release();
    EXPECT_TRUE(until([&] { return signdesk::DrawingThread::count() == 1; })) << "the thread that was left behind ends";
    EXPECT_TRUE(failed.empty());
}

TEST_F(PageRendererTest, SaysWhichPageCannotBeDrawn)
{
    diary->held = {1};
    diary->isDeaf = true;
    renderer->setPages(pages);
    renderer->want(PageUse::View, drawings({0, 1, 2}));
    EXPECT_TRUE(until([&] { return seen.size() == 1; }));
    diary->awaitHeld();
    isPatientNow = true;
    renderer->setPatience(1ms, kPatience);
    EXPECT_TRUE(until([&] { return seen.size() == 2; }));
    EXPECT_EQ(failed, (std::vector<int>{1}));
    EXPECT_EQ(seen, (std::vector<int>{0, 2}));
}

/// A document with nothing but such pages costs a few threads, not one for each.
TEST_F(PageRendererTest, LeavesFewThreadsBehind)
{
    for (int page = 0; page < pages.count(); ++page)
        diary->held.insert(page);
    diary->isDeaf = true;
    renderer->setPatience(1ms, kPatience);
    renderer->setPages(pages);
    std::vector<int> all(40);
    std::iota(all.begin(), all.end(), 0);
    renderer->want(PageUse::View, drawings(all));
    renderer->find("x", 0);
    EXPECT_TRUE(until([&] { return failed.size() == 40 && searched.size() == 40; }));
    EXPECT_LE(diary->allThreads().size(), 4u);
    renderer->want(PageUse::Thumbnail, drawings({3}));
    EXPECT_TRUE(until([&] { return failed.size() == 41; })) << "and it still gets an answer";
    renderer->setPatience(kPatience * 10, kPatience * 10);
    const TestPages others(std::make_shared<Diary>(), 3);
    renderer->setPages(others);
    renderer->want(PageUse::View, drawings({2}));
    EXPECT_TRUE(until([&] { return !seen.empty(); })) << "another document is drawn again";
}

TEST_F(PageRendererTest, IsClosedWhileAPageIsDrawn)
{
    for (const bool isDeaf : {false, true}) {
        auto other = std::make_unique<signdesk::PageRenderer>();
        diary->isDeaf = isDeaf;
        diary->held = {0};
        other->setPages(pages);
        other->want(PageUse::View, drawings({0}));
        diary->awaitHeld();
        other.reset(); // comes back though the page is still drawn
        diary->release();
        EXPECT_TRUE(until([] { return !signdesk::PageRenderer::hasThreads(); }));
    }
}

TEST_F(PageRendererTest, ForgetsThePagesBefore)
{
    diary->held = {0};
    renderer->setPages(pages);
    renderer->want(PageUse::View, drawings({0, 1}));
    renderer->find("x", 0);
    diary->awaitHeld();
    const auto later = std::make_shared<Diary>();
    renderer->setPages(TestPages(later, 5));
    renderer->want(PageUse::View, drawings({4}));
    EXPECT_TRUE(until([&] { return !seen.empty(); }));
    diary->release();
    EXPECT_TRUE(until([] { return signdesk::DrawingThread::count() == 1; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(seen, (std::vector<int>{4}));
    EXPECT_TRUE(searched.empty());
}

TEST_F(PageRendererTest, SearchesEachPageOnce)
{
    renderer->setPages(pages);
    renderer->find("abc", 38);
    EXPECT_TRUE(until([&] { return searched.size() == 40; }));
    std::vector<int> expected{38, 39};
    for (int page = 0; page < 38; ++page)
        expected.push_back(page);
    EXPECT_EQ(searched, expected);
    EXPECT_EQ(found, std::vector<int>(40, 3));
}

TEST_F(PageRendererTest, ANewSearchEndsTheOneBefore)
{
    diary->held = {2};
    renderer->setPages(pages);
    renderer->find("abc", 2);
    diary->awaitHeld();
    renderer->find("z", 2);
    diary->release();
    EXPECT_TRUE(until([&] { return searched.size() == 40; }));
    EXPECT_EQ(found, std::vector<int>(40, 1)) << "none of the three letters";
    renderer->find("abc", 0);
    renderer->find({}, 0);
    renderer->want(PageUse::View, drawings({6}));
    EXPECT_TRUE(until([&] { return !seen.empty(); }));
    EXPECT_EQ(searched.size(), 40u);
}

/// A small file whose first page draws four thousand million rectangles, by a form that is drawn again and again.
QByteArray endlessPdf()
{
    const QByteArray form = QByteArray("0 0 9 9 re f\n").repeated(200000);
    const QByteArray page = QByteArray("/F Do\n").repeated(20000);
    const auto stream = [](const QByteArray &dictionary, const QByteArray &content) {
        const QByteArray packed = qCompress(content).mid(4);
        return "<<" + dictionary + "/Filter/FlateDecode/Length " + QByteArray::number(packed.size()) + ">>stream\n"
            + packed + "\nendstream";
    };
    const QByteArray objects[] = {"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 2/Kids[3 0 R 4 0 R]>>",
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Contents 5 0 R/Resources<</XObject<</F 6 0 R>>>>>>",
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Contents 7 0 R>>", stream({}, page),
        stream("/Type/XObject/Subtype/Form/BBox[0 0 9 9]", form), stream({}, "1 0 0 rg 0 0 200 200 re f\n")};
    QByteArray pdf = "%PDF-1.4\n", places;
    int number = 0;
    for (const QByteArray &object : objects) {
        places += QByteArray::number(pdf.size()).rightJustified(10, '0') + " 00000 n \n";
        pdf += QByteArray::number(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const QByteArray start = QByteArray::number(pdf.size());
    return pdf + "xref\n0 8\n0000000000 65535 f \n" + places + "trailer<</Size 8/Root 1 0 R>>\nstartxref\n" + start
        + "\n%%EOF\n";
}

TEST(PageRendererOfPdf, DrawsTheNextPageAlthoughOneIsEndless)
{
    const std::unique_ptr<signdesk::Pages> pages = signdesk::pagesOf({"endless.pdf", endlessPdf(), {}, 0});
    ASSERT_EQ(pages->count(), 2);
    auto renderer = std::make_unique<signdesk::PageRenderer>();
    QImage seen;
    QObject::connect(renderer.get(), &signdesk::PageRenderer::drawn, renderer.get(),
        [&](PageUse, const PageDrawing &drawing, const QImage &picture) {
            EXPECT_EQ(drawing.page, 1);
            seen = picture;
        });
    renderer->setPages(*pages);
    renderer->want(PageUse::View, {{0, 1, {}}});
    QTest::qWait(50); // the page may have been begun, or not
    renderer->want(PageUse::View, {{1, 1, {}}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !seen.isNull(); }, 60000));
    EXPECT_EQ(seen.pixelColor(100, 100), QColor(Qt::red));
    renderer->want(PageUse::View, {{0, 1, {}}});
    renderer.reset();
    EXPECT_TRUE(QTest::qWaitFor([] { return !signdesk::PageRenderer::hasThreads(); }, 60000)) << "no thread stays";
}

} // namespace
