// What placing, merging, encoding and freeing a fingerprint writes into the log.
#include "handrunpad.h"
#include "logmessages.h"

#include "cs310xfpwidget.h"

#include <cstdarg>

namespace {

__attribute__((format(printf, 1, 2))) std::string text(const char *format, ...)
{
    char buffer[300] = "<%ld>-";
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer + 6, sizeof buffer - 6, format, arguments);
    va_end(arguments);
    return buffer;
}

unsigned long address(const void *pointer)
{
    return reinterpret_cast<unsigned long>(pointer);
}

/// What the call writes under a key.
template <class Call>
Lines logOf(const std::string &key, Call call)
{
    const LogTail log;
    {
        const LogOn on;
        call();
    }
    return messagesOf(log, key);
}

template <class Pad>
std::string keyOf(const char *function)
{
    return std::string(Pad::row.scope) + function;
}

const std::string kPlaceKey = "CS310XFPWidget::SetDisplayedFPImageAt()";
const std::string kPlaced = "<%ld>-leave with ARI_SUCCESS...";
const std::string kInvalid =
    "<%ld>-leave with ARI_INVALID_PARAMETERS due to invalid nFPLeft, nFPTop, nFPWidth, nFPHeight !";
const std::string kPlaceFailed = "<%ld>-leave due to m_pNewFPWidget->SetDisplayedFPImageAt() failed, nResult=-2";

template <class Pad>
class FingerprintLog : public testing::Test
{
};
TYPED_TEST_SUITE(FingerprintLog, FingerprintClasses, FingerprintClassName);

} // namespace

TYPED_TEST(FingerprintLog, TheMergeTellsTheActionAndBothRectangles)
{
    const struct
    {
        int action;
        Lines lines;
    } rows[] = {
        {NFPPA_NONE,
            {text("m_nNewFPProcessActionID == NFPPA_NONE"),
                text("dblTargetFPHeight=150.000000, dblTargetFPWidth=108.333333"),
                text("dblTargetFPX=245.833333, dblTargetFPY=75.000000"),
                text("rcTargetFP.left=245.833333, top=75.000000, width=108.333333, height=150.000000")}},
        {NFPPA_SIGN_FP_SAME_WIDGET,
            {text("m_nNewFPProcessActionID == NFPPA_SIGN_FP_SAME_WIDGET"),
                text("rcTargetFP.left=11.000000, top=12.000000, width=13.000000, height=14.000000")}},
        {NFPPA_SIGN_FP_DIFFERENT_WIDGET,
            {text("m_nNewFPProcessActionID == NFPPA_SIGN_FP_DIFFERENT_WIDGET"),
                text("rcTargetFP.left=0.000000, top=0.000000, width=0.000000, height=0.000000")}},
        {NFPPA_FP_ON_CANVAS_FROM_JS,
            {text("m_nNewFPProcessActionID == NFPPA_FP_ON_CANVAS_FROM_JS"),
                text("rcTargetFP.left=0.000000, top=0.000000, width=0.000000, height=0.000000")}},
        {4, {text("rcTargetFP.left=0.000000, top=0.000000, width=0.000000, height=0.000000")}},
    };
    HandRunPad<TypeParam> pad(600, 300);
    pad->m_NewFPRect = QRect(11, 12, 13, 14);
    for (const auto &row : rows) {
        pad->m_nNewFPProcessActionID = row.action;
        Lines lines =
            logOf(keyOf<TypeParam>("MergeSignCanvasAndFPCanvas()"), [&] { pad->MergeSignCanvasAndFPCanvas(); });
        ASSERT_GE(lines.size(), 2u);
        EXPECT_EQ(lines.front(), text("Enter..."));
        EXPECT_EQ(lines.back(), text("leave !"));
        Lines expected = row.lines;
        expected.push_back(text("rcSourceFP.left=0.000000, top=0.000000, width=208.000000, height=288.000000"));
        EXPECT_EQ(Lines(lines.begin() + 1, lines.end() - 1), expected) << row.action;
    }
}

TYPED_TEST(FingerprintLog, ItsTextIsToldWhenItIsMadeAndFreed)
{
    HandRunPad<TypeParam> pad(60, 40);
    for (const bool encodes : {false, true}) {
        pad->m_nNewFPProcessActionID = encodes ? NFPPA_NONE : 4;
        char *result = nullptr;
        const Lines made = logOf(keyOf<TypeParam>("GetFPImageBase64Data()"),
            [&] { result = pad->GetFPImageBase64Data(EBITI_PNG, encodes); });
        EXPECT_EQ(result != nullptr, encodes && HandRunPad<TypeParam>::kIsWidget);
        EXPECT_EQ(made,
            (Lines{text("enter, nImageTypeID=3, bFPImageOnly=%d", encodes),
                text("leave with pFPImageBase64Data=%lx !", address(result))}));
        const unsigned long at = address(result);
        const Lines freed =
            logOf(keyOf<TypeParam>("FreeFPImageBase64Data()"), [&] { pad->FreeFPImageBase64Data(result); });
        Lines expected{text("enter, pFPImageBase64Data=%lx", at), text("leave !")};
        if (at != 0)
            expected.insert(expected.begin() + 1, text("after call delete[] pFPImageBase64Data !"));
        EXPECT_EQ(freed, expected);
    }
}

TEST(FingerprintPlaceLog, OnTheSignWidget)
{
    HandRunPad<CS310XSignWidget> pad(300, 200);
    QWidget *parent = pad->parentWidget();
    const struct
    {
        QWidget *parent;
        int width;
        std::string leave;
    } rows[] = {{parent, 290, kPlaced}, {parent, 291, kInvalid},
        {nullptr, 290, "<%ld>-leave with ARI_INVALID_PARAMETERS due to pParentWidget == nullptr !"}};
    for (const auto &row : rows) {
        const LogTail log;
        EXPECT_EQ(logOf(keyOf<CS310XSignWidget>("SetDisplayedFPImageAt()"),
                      [&] { pad->SetDisplayedFPImageAt(row.parent, 10, 20, row.width, 180); }),
            (Lines{text("Enter, pParentWidget=%lx, nFPLeft=10, nFPTop=20, nFPWidth=%d, nFPHeight=180",
                       address(row.parent), row.width),
                row.leave}));
        EXPECT_TRUE(messagesOf(log, kPlaceKey).empty()) << "no place of its own is made";
    }
}

TEST(FingerprintPlaceLog, InAnotherWindow)
{
    HandRunPad<CS310XSignWidget> pad(30, 20);
    QWidget other;
    other.resize(300, 200);
    for (const bool fits : {true, false}) {
        const std::string enter = text("Enter, pParentWidget=%lx, nFPLeft=10, nFPTop=20, nFPWidth=%d, nFPHeight=180",
            address(&other), fits ? 290 : 291);
        const LogTail log;
        EXPECT_EQ(logOf(keyOf<CS310XSignWidget>("SetDisplayedFPImageAt()"),
                      [&] { pad->SetDisplayedFPImageAt(&other, 10, 20, fits ? 290 : 291, 180); }),
            (Lines{enter, fits ? kPlaced : kPlaceFailed}));
        EXPECT_EQ(messagesOf(log, kPlaceKey), (Lines{enter, fits ? kPlaced : kInvalid}));
    }
}

TEST(FingerprintPlaceLog, OnAHeadlessCanvas)
{
    HandRunPad<CS310XSignObj> pad(30, 20);
    for (const bool fits : {true, false}) {
        const std::string enter =
            text("Enter, nCanvasWidth=300, nCanvasHeight=200, nFPLeft=10, nFPTop=20, nFPWidth=%d, nFPHeight=180",
                fits ? 290 : 291);
        const LogTail log;
        EXPECT_EQ(logOf(keyOf<CS310XSignObj>("SetDisplayedFPImageAt()"),
                      [&] { pad->SetDisplayedFPImageAt(300, 200, 10, 20, fits ? 290 : 291, 180); }),
            (Lines{enter, fits ? kPlaced : kPlaceFailed}));
        EXPECT_EQ(messagesOf(log, kPlaceKey), (Lines{enter, fits ? kPlaced : kInvalid}));
    }
}
