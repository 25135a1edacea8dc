// The fingerprint's own widget: its fields, members and log lines, and when the sign classes clear and end it.
#include "handrunpad.h"
#include "logfile.h"

#include "cs310xfpwidget.h"

#include <QPainter>

#include <type_traits>

namespace {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
template <class Instance>
constexpr bool fieldsStandInOrder()
{
    return offsetof(Instance, m_canvas) < offsetof(Instance, m_FPOnlyCanvas)
        && offsetof(Instance, m_FPOnlyCanvas) < offsetof(Instance, m_NewFPRect)
        && offsetof(Instance, m_NewFPRect) < offsetof(Instance, m_bClipImage)
        && offsetof(Instance, m_bClipImage) < offsetof(Instance, m_nSaveImageClipMarginX)
        && offsetof(Instance, m_nSaveImageClipMarginX) < offsetof(Instance, m_nSaveImageClipMarginY)
        && offsetof(Instance, m_nSaveImageClipMarginY) < offsetof(Instance, m_bFPImageBase64DataOnly);
}
static_assert(fieldsStandInOrder<CS310XFPWidget>());

template <class Pad>
constexpr bool padFieldsStandInOrder()
{
    return offsetof(Pad, m_canvas) < offsetof(Pad, m_SignCanvas)
        && offsetof(Pad, m_SignCanvas) < offsetof(Pad, m_FPOnlyCanvas)
        && offsetof(Pad, m_pfn_KVSPDAPI_SetDevicePenStyle) < offsetof(Pad, m_pfn_KVSPDAPI_ShowFPImageOnDevice)
        && offsetof(Pad, m_nPressDeviceConfirmOrCancelKey) < offsetof(Pad, m_nCurrentFPRawDataWithBestScore)
        && offsetof(Pad, m_nCurrentFPRawDataWithBestScore) < offsetof(Pad, m_NewFPRect)
        && offsetof(Pad, m_NewFPRect) < offsetof(Pad, m_nNewFPProcessActionID)
        && offsetof(Pad, m_nNewFPProcessActionID) < offsetof(Pad, m_pNewFPWidget)
        && offsetof(Pad, m_pNewFPWidget) < offsetof(Pad, m_bFPImageBase64DataOnly)
        && offsetof(Pad, m_bFPImageBase64DataOnly) < offsetof(Pad, m_ucShowFPImageRawDataOnDevice)
        && offsetof(Pad, m_ucShowFPImageRawDataOnDevice) < offsetof(Pad, m_ucCurrentFPImageRawDataOnDevice)
        && offsetof(Pad, m_ucCurrentFPImageRawDataOnDevice) < offsetof(Pad, m_bGoToShutDown)
        && offsetof(Pad, m_bGoToShutDown) < offsetof(Pad, m_pShowFPImageOnDeviceThread)
        && offsetof(Pad, m_pShowFPImageOnDeviceThread) < offsetof(Pad, m_mutexUpdateShowFPImageRawDataOnDevice)
        && offsetof(Pad, m_mutexUpdateShowFPImageRawDataOnDevice) < offsetof(Pad, m_bNewFPImageRawDataOnDeviceAvailable)
        && offsetof(Pad, m_bNewFPImageRawDataOnDeviceAvailable) < offsetof(Pad, m_bStartShowFPImageRawDataOnDevice)
        && offsetof(Pad, m_bStartShowFPImageRawDataOnDevice) < offsetof(Pad, m_bAlreadyShownFPImageRawDataOnDevice)
        && offsetof(Pad, m_bAlreadyShownFPImageRawDataOnDevice) < offsetof(Pad, m_mutexUpdateCanvas)
        && sizeof(Pad::m_ucShowFPImageRawDataOnDevice) == 29952
        && sizeof(Pad::m_ucCurrentFPImageRawDataOnDevice) == 29952
        && std::is_same_v<decltype(Pad::m_pNewFPWidget), CS310XFPWidget *>;
}
static_assert(padFieldsStandInOrder<CS310XSignWidget>());
static_assert(padFieldsStandInOrder<CS310XSignObj>());
#pragma GCC diagnostic pop
static_assert(
    std::is_same_v<decltype(CS310XSignWidget::m_pShowFPImageOnDeviceThread), CS310XWidget_ShowFPImageOnDeviceThread *>);
static_assert(
    std::is_same_v<decltype(CS310XSignObj::m_pShowFPImageOnDeviceThread), CS310XObj_ShowFPImageOnDeviceThread *>);
static_assert(std::is_base_of_v<QWidget, CS310XFPWidget>);

QImage white(int width, int height)
{
    return printed({}, {}, {width, height});
}

/// The texts of the lines with a key, or all that have the key's class.
std::vector<std::string> textsOf(const LogTail &log, const std::string &key)
{
    std::vector<std::string> texts;
    for (const LogEntry &entry : log.entries())
        if (entry.key == key)
            texts.push_back(entry.text);
    return texts;
}

std::vector<std::string> keysOf(const LogTail &log)
{
    std::vector<std::string> keys;
    for (const LogEntry &entry : log.entries())
        if (keys.empty() || keys.back() != entry.key)
            keys.push_back(entry.key);
    return keys;
}

template <class Pad>
class FingerprintOfAPad : public testing::Test
{
};
TYPED_TEST_SUITE(FingerprintOfAPad, FingerprintClasses, FingerprintClassName);

template <class Pad>
int placeAside(Pad &pad, QWidget *other)
{
    if constexpr (Pad::row.host == Host::Headless)
        return pad.SetDisplayedFPImageAt(other->width(), other->height(), 0, 0, kGreyWidth, kGreyHeight);
    else
        return pad.SetDisplayedFPImageAt(other, 0, 0, kGreyWidth, kGreyHeight);
}

} // namespace

TEST(FingerprintWidget, StartsWhiteAndWithoutARectangle)
{
    QWidget parent;
    parent.resize(321, 123);
    const CS310XFPWidget *widget = new CS310XFPWidget(&parent);
    EXPECT_EQ(widget->m_canvas, white(321, 123));
    EXPECT_EQ(widget->m_FPOnlyCanvas, white(kGreyWidth, kGreyHeight));
    EXPECT_EQ(widget->m_NewFPRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    EXPECT_FALSE(widget->m_bClipImage);
    EXPECT_FALSE(widget->m_bFPImageBase64DataOnly);
    EXPECT_EQ(widget->m_nSaveImageClipMarginX, 0);
    EXPECT_EQ(widget->m_nSaveImageClipMarginY, 0);
    const CS310XFPWidget alone(nullptr);
    EXPECT_EQ(alone.m_canvas, white(alone.width(), alone.height()));
    EXPECT_EQ(alone.parentWidget(), nullptr);
}

TEST(FingerprintWidget, HasAStandInThatStartsAsOneWithoutAParent)
{
    const CS310XFPWidget widget(nullptr);
    const FingerprintCanvas standIn;
    EXPECT_EQ(standIn.m_canvas, widget.m_canvas);
    EXPECT_EQ(standIn.m_FPOnlyCanvas, widget.m_FPOnlyCanvas);
    EXPECT_EQ(standIn.m_NewFPRect, widget.m_NewFPRect);
    EXPECT_EQ(standIn.m_bClipImage, widget.m_bClipImage);
    EXPECT_EQ(standIn.m_nSaveImageClipMarginX, widget.m_nSaveImageClipMarginX);
    EXPECT_EQ(standIn.m_nSaveImageClipMarginY, widget.m_nSaveImageClipMarginY);
    EXPECT_EQ(standIn.m_bFPImageBase64DataOnly, widget.m_bFPImageBase64DataOnly);
}

TEST(FingerprintWidget, PaintsItsCanvasAtItsTopLeft)
{
    QWidget parent;
    parent.resize(60, 50);
    auto *widget = new CS310XFPWidget(&parent);
    parent.show();
    widget->m_canvas = white(40, 30);
    widget->m_canvas.setPixel(3, 4, 0xff123456);
    EXPECT_EQ(painted(*widget).copy(0, 0, 40, 30), widget->m_canvas);
}

TEST(FingerprintWidget, AnUpdateReplacesItsLayerAndPaintsOnlyItsRectangle)
{
    QWidget parent;
    parent.resize(400, 350);
    CS310XFPWidget widget(&parent);
    ASSERT_EQ(widget.SetDisplayedFPImageAt(&parent, 30, 20, kGreyWidth, kGreyHeight), ARI_SUCCESS);
    widget.m_canvas.fill(0xff00ff00);
    const QImage layer = layerOf(ridges(1), {500, 300});
    widget.UpdateFPImage(layer);
    EXPECT_EQ(widget.m_FPOnlyCanvas, layer);
    QImage expected(400, 350, QImage::Format_ARGB32);
    expected.fill(0xff00ff00);
    QPainter(&expected).drawImage(30, 20, layer, 0, 0, kGreyWidth, kGreyHeight);
    EXPECT_EQ(difference(widget.m_canvas, expected), "");
    QImage clear(kGreyWidth, kGreyHeight, QImage::Format_ARGB32);
    clear.fill(0x00000000);
    widget.UpdateFPImage(clear);
    EXPECT_EQ(widget.m_canvas.pixel(100, 100), 0x00000000u) << "the source replaces what was there";
}

TEST(FingerprintWidget, OnlyAVisibleOneAsksForARepaint)
{
    QWidget parent;
    parent.resize(60, 50);
    CS310XFPWidget widget(&parent);
    const std::string scope = "CS310XFPWidget::";
    for (const bool visible : {false, true}) {
        parent.setVisible(visible);
        settle();
        const LogTail log;
        {
            const LogOn on;
            widget.UpdateFPImage(white(kGreyWidth, kGreyHeight));
            widget.Clear();
        }
        for (const char *function : {"UpdateFPImage()", "Clear()"}) {
            const auto texts = textsOf(log, scope + function);
            EXPECT_EQ(std::count(texts.begin(), texts.end(), "b4 call update()..."), visible ? 1 : 0) << function;
            EXPECT_GE(texts.size(), 2u) << function;
        }
    }
}

TEST(FingerprintWidget, ClearAndShutdownWhitenBothImages)
{
    for (const bool shutdown : {false, true}) {
        CS310XFPWidget widget(nullptr);
        ASSERT_EQ(widget.SetDisplayedFPImageAt(300, 310, 5, 6, kGreyWidth, kGreyHeight), ARI_SUCCESS);
        widget.UpdateFPImage(layerOf(ridges(1), {kGreyWidth, kGreyHeight}));
        EXPECT_NE(widget.m_canvas, white(300, 310));
        const LogTail log;
        const LogOn on;
        shutdown ? widget.Shutdown() : widget.Clear();
        EXPECT_EQ(widget.m_canvas, white(300, 310));
        EXPECT_EQ(widget.m_FPOnlyCanvas, white(kGreyWidth, kGreyHeight));
        EXPECT_EQ(keysOf(log).front(), shutdown ? "CS310XFPWidget::Shutdown()" : "CS310XFPWidget::Clear()");
    }
}

TEST(FingerprintWidget, ANewHeadlessPlacementEmptiesItsImagesARefusedOneKeepsThem)
{
    CS310XFPWidget widget(nullptr);
    ASSERT_EQ(widget.SetDisplayedFPImageAt(300, 310, 5, 6, kGreyWidth, kGreyHeight), ARI_SUCCESS);
    const QImage layer = layerOf(ridges(1), {kGreyWidth, kGreyHeight});
    widget.UpdateFPImage(layer);
    const LogTail log;
    {
        const LogOn on;
        EXPECT_EQ(widget.SetDisplayedFPImageAt(50, 40, 0, 0, 51, 40), ARI_INVALID_PARAMETERS);
    }
    EXPECT_EQ(textsOf(log, "CS310XFPWidget::SetDisplayedFPImageAt()").back(),
        "leave with ARI_INVALID_PARAMETERS due to invalid nFPLeft, nFPTop, nFPWidth, nFPHeight !");
    EXPECT_EQ(widget.m_NewFPRect, QRect(QPoint(0, 0), QPoint(50, 39)));
    EXPECT_EQ(widget.m_canvas.size(), QSize(300, 310));
    EXPECT_EQ(widget.m_FPOnlyCanvas, layer);
    EXPECT_EQ(widget.SetDisplayedFPImageAt(50, 40, 0, 0, 50, 40), ARI_SUCCESS);
    EXPECT_EQ(widget.m_canvas, white(50, 40));
    EXPECT_EQ(widget.m_FPOnlyCanvas, white(kGreyWidth, kGreyHeight));
}

TEST(FingerprintWidget, EncodingTakesOverItsFiveArguments)
{
    CS310XFPWidget widget(nullptr);
    ASSERT_EQ(widget.SetDisplayedFPImageAt(100, 80, 10, 20, 30, 40), ARI_SUCCESS);
    widget.m_canvas.setPixel(50, 60, 0xff000000);
    struct
    {
        bool clip;
        bool only;
        QRect part;
    } const rows[] = {{false, false, {0, 0, 100, 80}}, {false, true, {10, 20, 30, 40}}, {true, false, {46, 55, 9, 11}},
        {true, true, {46, 55, 9, 11}}};
    for (const auto &row : rows) {
        std::unique_ptr<char[]> text(widget.EncodeBase64SignImage(row.clip, 4, 5, row.only, EBITI_BITMAP));
        EXPECT_EQ(base64::decoded(text.get()), fileOf(widget.m_canvas.copy(row.part), "BMP"));
        EXPECT_EQ(widget.m_bClipImage, row.clip);
        EXPECT_EQ(widget.m_bFPImageBase64DataOnly, row.only);
        EXPECT_EQ(widget.m_nSaveImageClipMarginX, 4);
        EXPECT_EQ(widget.m_nSaveImageClipMarginY, 5);
    }
    QRect box;
    widget.CheckSignImageBoundingBox(box);
    EXPECT_EQ(box, QRect(46, 55, 9, 11));
    for (const int type : {0, 4, int{EBITI_INK}, -1}) {
        std::unique_ptr<char[]> text(widget.EncodeBase64SignImage(false, 0, 0, false, type));
        EXPECT_STREQ(text.get(), "") << type;
    }
}

TYPED_TEST(FingerprintOfAPad, ClearingThePadClearsItFirstOrLast)
{
    QWidget other;
    other.resize(300, 300);
    HandRunPad<TypeParam> pad(400, 300);
    ASSERT_EQ(placeAside(*pad, &other), ARI_SUCCESS);
    pad->m_pNewFPWidget->UpdateFPImage(layerOf(ridges(1), {kGreyWidth, kGreyHeight}));
    pad->m_pfn_KVSPDAPI_ClearDeviceContent = +[] { return 0; };
    const LogTail log;
    {
        const LogOn on;
        EXPECT_EQ(pad->ClearDeviceContent(), 0);
    }
    const std::string scope = TypeParam::row.scope;
    const std::string own = scope + "ClearDeviceContent()";
    const std::string canvas = scope + "ClearSignCanvas()";
    const std::string place = "CS310XFPWidget::Clear()";
    const auto expected = HandRunPad<TypeParam>::kIsWidget ? std::vector<std::string>{own, place, canvas, own}
                                                           : std::vector<std::string>{own, canvas, place, own};
    EXPECT_EQ(keysOf(log), expected);
    EXPECT_EQ(pad->m_pNewFPWidget->m_canvas, white(300, 300));
}

// Also when the driver has no such operation, and the canvas stays.
TYPED_TEST(FingerprintOfAPad, ItIsClearedEvenWhereThePadCannotBe)
{
    QWidget other;
    other.resize(300, 300);
    HandRunPad<TypeParam> pad(400, 300);
    ASSERT_EQ(placeAside(*pad, &other), ARI_SUCCESS);
    pad.takeIn(ridges(1), 7);
    pad->m_pNewFPWidget->UpdateFPImage(pad->m_FPOnlyCanvas);
    EXPECT_EQ(pad->ClearDeviceContent(), ARI_FAIL);
    EXPECT_EQ(pad->m_pNewFPWidget->m_canvas, white(300, 300));
    EXPECT_EQ(pad->m_nCurrentFPRawDataWithBestScore, 7);
    EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(ridges(1), pad.layerSize()));
}

TYPED_TEST(FingerprintOfAPad, ShutdownClearsItEndsItAndForgetsIt)
{
    QWidget other;
    other.resize(300, 300);
    HandRunPad<TypeParam> pad(400, 300);
    ASSERT_EQ(placeAside(*pad, &other), ARI_SUCCESS);
    bool destroyed = false;
    QObject::connect(pad->m_pNewFPWidget, &QObject::destroyed, [&destroyed] { destroyed = true; });
    const LogTail log;
    {
        const LogOn on;
        pad->Shutdown();
    }
    EXPECT_EQ(pad->m_pNewFPWidget, nullptr);
    std::vector<std::string> keys;
    for (const std::string &key : keysOf(log))
        if (key.find("CS310XFPWidget::") == 0)
            keys.push_back(key);
    EXPECT_EQ(keys,
        (std::vector<std::string>{"CS310XFPWidget::Clear()", "CS310XFPWidget::Shutdown()", "CS310XFPWidget::Clear()",
            "CS310XFPWidget::Shutdown()"}));
    EXPECT_EQ(destroyed, !HandRunPad<TypeParam>::kIsWidget) << "a widget is left to the event loop";
    settle();
    EXPECT_TRUE(destroyed);
}

// A widget stays with its window, to be seen; a headless one, which nobody else knows, is freed.
TYPED_TEST(FingerprintOfAPad, ShutdownEndsTheNewestOnly)
{
    int destroyed = 0; // counts until the window is gone
    QWidget other;
    other.resize(300, 300);
    HandRunPad<TypeParam> pad(400, 300);
    const QImage print = layerOf(ridges(1), {kGreyWidth, kGreyHeight});
    std::vector<CS310XFPWidget *> places;
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(placeAside(*pad, &other), ARI_SUCCESS);
        places.push_back(pad->m_pNewFPWidget);
        places.back()->UpdateFPImage(print);
        QObject::connect(places.back(), &QObject::destroyed, [&destroyed] { ++destroyed; });
    }
    const QImage shown = places.front()->m_canvas;
    const LogTail log;
    {
        const LogOn on;
        pad->Shutdown();
    }
    const std::string scope = "CS310XFPWidget::";
    EXPECT_EQ(textsOf(log, scope + "Shutdown()"), (std::vector<std::string>{"Enter...", "leave !"}));
    settle();
    EXPECT_EQ(destroyed, HandRunPad<TypeParam>::kIsWidget ? 1 : 3);
    if (HandRunPad<TypeParam>::kIsWidget) {
        EXPECT_EQ(places[0]->m_canvas, shown);
        EXPECT_EQ(places[1]->m_canvas, shown);
    }
}

TYPED_TEST(FingerprintOfAPad, AllThreeCanvasesStartWhiteAndAreClearedTogether)
{
    HandRunPad<TypeParam> pad(400, 300);
    EXPECT_EQ(pad->m_nNewFPProcessActionID, NFPPA_NONE);
    EXPECT_EQ(pad->m_NewFPRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
    EXPECT_EQ(pad->m_pNewFPWidget, nullptr);
    EXPECT_EQ(pad->m_canvas, white(400, 300));
    EXPECT_EQ(pad->m_SignCanvas, white(400, 300));
    EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(evenGrey(1), pad.layerSize()));
    for (QImage *canvas : {&pad->m_canvas, &pad->m_SignCanvas, &pad->m_FPOnlyCanvas})
        canvas->fill(0xff102030);
    pad->ClearSignCanvas();
    EXPECT_EQ(pad->m_canvas, white(400, 300));
    EXPECT_EQ(pad->m_SignCanvas, white(400, 300));
    EXPECT_EQ(pad->m_FPOnlyCanvas, layerOf(evenGrey(1), pad.layerSize()));
}

TYPED_TEST(FingerprintOfAPad, InkGoesToItsOwnLayer)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 5);
    const QImage layer = pad->m_FPOnlyCanvas.copy();
    pad->m_dblLastSignWndX = 10;
    pad->m_dblLastSignWndY = 150;
    pad->StartSignOnCanvas(200, 150, 4);
    EXPECT_EQ(pad->m_SignCanvas.pixel(100, 150), 0xff000000);
    EXPECT_EQ(pad->m_FPOnlyCanvas, layer);
    EXPECT_EQ(
        difference(pad->m_canvas, anded(pad->m_SignCanvas, printed(layer, middleOf({400, 300}), {400, 300}))), "");
}
