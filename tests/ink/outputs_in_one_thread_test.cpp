// No output uses Qt's thread pool, which would wait for ever when the system cannot create a thread.
#include "fingerprints.h"
#include "insidepads.h"
#include "returnedtext.h"
#include "savedfiles.h"

#include <QThreadPool>

#include <atomic>
#include <functional>

namespace {

std::atomic<int> asked{0};

} // namespace

// Hides the function from Qt's own libraries. What should have run in a thread runs here.
void QThreadPool::start(std::function<void()> functionToRun, int)
{
    ++asked;
    functionToRun();
}

namespace {

constexpr int kWidth = 500; // large enough for Qt to use several threads
constexpr int kHeight = 300;

class OutputsInOneThread : public testing::TestWithParam<PadCase>
{
protected:
    OutputsInOneThread()
        : pad(GetParam(), kWidth, kHeight)
    {
        pad.driver.send(twoStrokes(pad.type()));
        asked = 0;
    }

    void expectNone(const std::string &what)
    {
        EXPECT_EQ(asked, 0) << what;
        asked = 0;
    }

    void makeEverything(const std::string &when)
    {
        const std::pair<int, const char *> kFiles[] = {{ITI_BITMAP, "a.bmp"}, {ITI_JPEG, "a.jpg"}, {ITI_PNG, "a.png"},
            {ITI_BITMAP, "opaque.png"}, {ITI_PNG, "transparent.bmp"}, {ITI_PNG, "transparent.jpg"}, {ITI_PDF, "a.pdf"},
            {ITI_SVG, "a.svg"}};
        for (const auto &[type, name] : kFiles) {
            EXPECT_EQ(files.save(pad, type, name), ARI_SUCCESS) << name;
            expectNone(name + when);
        }
        for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
            const QByteArray text = textOf(pad, type).text();
            EXPECT_FALSE(text.isEmpty());
            EXPECT_FALSE(exTextOf(pad, type, true).text().isEmpty());
            EXPECT_FALSE(exTextOf(pad, type, false).text().isEmpty());
            std::wstring path = files.path("decoded").toStdWString();
            EXPECT_EQ(pad->Base64Decode(pad.type(), type, text.constData(), path.data()), ARI_SUCCESS);
            expectNone("texts of type " + std::to_string(type) + when);
        }
        EXPECT_FALSE(svgTextOf(pad).text().isEmpty());
        expectNone("SVG text" + when);
    }

    OpenPad pad;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, OutputsInOneThread, testing::ValuesIn(allPads()), padCaseName);

TEST_P(OutputsInOneThread, AreMadeOfAnOpaqueCanvas)
{
    makeEverything("");
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 100, 60), 0);
    makeEverything(", clipped");
}

TEST_P(OutputsInOneThread, AreMadeOfATranslucentCanvas)
{
    withOpenInstance(GetParam(), [](auto &instance) { instance.m_canvas.fill(QColor(0, 0, 200, 40)); });
    makeEverything("");
}

TEST_P(OutputsInOneThread, ShowTheCanvas)
{
    if (pad.widget() == nullptr)
        return;
    settle();
    pad.widget()->resize(kWidth + 100, kHeight + 50);
    settle();
    pad.window()->grab();
    expectNone("resizing and painting");
    withOpenInstance(GetParam(), [](auto &instance) { instance.m_canvas.fill(QColor(0, 0, 200, 40)); });
    pad.widget()->resize(kWidth, kHeight);
    pad.window()->grab();
    expectNone("resizing and painting a translucent canvas");
}

TEST(OutputsInOneThreadOfAFingerprint, AreMade)
{
    for (const bool headless : {true, false}) {
        OpenPad pad(PadCase{&kS310XFamily, headless}, kWidth, kHeight);
        pad.driver.send(twoStrokes(pad.type()));
        pad.driver.sendFingerprint(ridges(3), 80);
        asked = 0;
        const SavedFiles files;
        for (const auto &[type, name] : {std::pair(ITI_PDF, "a.pdf"), std::pair(ITI_SVG, "a.svg")}) {
            EXPECT_EQ(files.save(pad, type, name), ARI_SUCCESS);
            EXPECT_EQ(asked, 0) << name;
        }
        EXPECT_FALSE(svgTextOf(pad).text().isEmpty());
        EXPECT_EQ(asked, 0) << "SVG text";
    }
}

TEST(OutputsInOneThreadOfTheOfficeCanvas, AreMadeAgain)
{
    OpenPad pad(PadCase{&kS210Family, true}, kWidth, kHeight);
    pad.driver.send(twoStrokes(pad.type()));
    // So large that even a mask of one bit a pixel would be converted in threads.
    ASSERT_TRUE(KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 1300, 900));
    asked = 0;
    for (const int type : {EBITI_PNG, EBITI_PNG, EBITI_JPEG}) {
        char *text = KVS210_WPSBase64Encode(KVS210_DEVICE, type);
        EXPECT_STRNE(text, "");
        KVS210_WPSBase64EncodeFree(KVS210_DEVICE, text);
        EXPECT_EQ(asked, 0) << type;
    }
}

TEST(CountedThreads, SeesQtAskForThreads)
{
    asked = 0;
    QImage image(kWidth, kHeight, QImage::Format_ARGB32);
    image.fill(QColor(0, 0, 200, 40));
    const QImage converted = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    EXPECT_FALSE(converted.isNull());
    EXPECT_GT(asked, 0);
}

} // namespace
