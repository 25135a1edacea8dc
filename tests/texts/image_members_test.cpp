// The image encoders as members: types that no exported function lets through, and the fingerprint pad's exceptions.
#include "base64.h"
#include "directpad.h"

#include <climits>
#include <memory>
#include <type_traits>

namespace {

QByteArray textOf(char *text)
{
    EXPECT_NE(text, nullptr);
    const std::unique_ptr<char[]> owned(text);
    return owned.get();
}

QImage imageOf(char *text, const char *format)
{
    const auto bytes = base64::decoded(textOf(text));
    EXPECT_TRUE(bytes.has_value());
    return QImage::fromData(bytes.value_or(QByteArray()), format);
}

template <class Pad>
class ImageMembers : public testing::Test
{
protected:
    void store() { pad.store(1, 2, 3, false, 4, 5); }
    void fillCanvas(const QColor &colour) { pad->m_canvas.fill(colour); }

    DirectPad<Pad> pad;
};

template <class Pad>
class FingerprintText : public ImageMembers<Pad>
{
};

} // namespace

TYPED_TEST_SUITE(ImageMembers, AllPadClasses, PadClassName);

TYPED_TEST(ImageMembers, UnknownTypeIsAnEmptyTextOfTheEncodersAndNullOfTheFrame)
{
    this->store();
    for (const int type : {INT_MIN, -1, 0, 4, 5, 7, INT_MAX}) {
        EXPECT_EQ(textOf(this->pad->EncodeBase64SignImage(type)), "") << type;
        EXPECT_EQ(textOf(this->pad->EncodeBase64SignImageEx(type, true)), "") << type;
        EXPECT_EQ(this->pad->Base64Encode(type), nullptr) << type;
        EXPECT_EQ(this->pad->Base64EncodeEx(type, true), nullptr) << type;
    }
    EXPECT_EQ(textOf(this->pad->EncodeBase64SignImage(EBITI_INK)), "");
}

TYPED_TEST(ImageMembers, WithoutPointsNullWhateverTheCanvasShows)
{
    this->fillCanvas(Qt::red);
    const auto expectNone = [&] {
        for (const int type : {1, 2, 3, 6}) {
            EXPECT_EQ(this->pad->Base64Encode(type), nullptr) << type;
            EXPECT_EQ(this->pad->Base64EncodeEx(type, true), nullptr) << type;
        }
        EXPECT_EQ(this->pad->GetSVGImageBase64Data(), nullptr);
    };
    expectNone();
    inkpoints::deleteLists(*this->pad);
    expectNone();
    // The encoder itself asks for no point: the live push and the fingerprint texts use it.
    EXPECT_EQ(imageOf(this->pad->EncodeBase64SignImage(3), "PNG").pixel(5, 5), 0xffff0000);
}

TYPED_TEST(ImageMembers, LeavesTheLockFree)
{
    this->store();
    textOf(this->pad->Base64Encode(3));
    textOf(this->pad->Base64EncodeEx(2, false));
    ASSERT_TRUE(this->pad->m_mutexUpdateCanvas.tryLock());
    this->pad->m_mutexUpdateCanvas.unlock();
}

TYPED_TEST(ImageMembers, KeepsTheCanvasesResolution)
{
    this->store();
    this->pad->m_canvas.setDotsPerMeterX(4321);
    this->pad->m_canvas.setDotsPerMeterY(1234);
    for (const auto &[type, format] : {std::pair(1, "BMP"), std::pair(3, "PNG")}) {
        const QImage image = imageOf(this->pad->Base64Encode(type), format);
        EXPECT_EQ(image.dotsPerMeterX(), 4321) << format;
        EXPECT_EQ(image.dotsPerMeterY(), 1234) << format;
    }
}

TYPED_TEST(ImageMembers, NullCanvasIsAnEmptyText)
{
    this->store();
    this->pad->m_canvas = QImage();
    for (const int type : {1, 2, 3}) {
        EXPECT_EQ(textOf(this->pad->Base64Encode(type)), "") << type;
        EXPECT_EQ(textOf(this->pad->Base64EncodeEx(type, false)), "") << type;
    }
}

// Negative margins come in through the member alone. QImage::copy takes a rectangle 0 wide and 0 high for the whole.
TYPED_TEST(ImageMembers, MarginsThatLeaveNothingOfTheInkGiveAnEmptyText)
{
    this->store();
    this->pad->m_canvas.fill(Qt::white);
    for (const QPoint &ink : {QPoint(10, 10), QPoint(11, 10), QPoint(10, 11), QPoint(11, 11)})
        this->pad->m_canvas.setPixel(ink, 0xff000000);
    for (const QPoint &margins : {QPoint(-2, -2), QPoint(-9, -9), QPoint(-1, -2), QPoint(-1, 0)}) {
        this->pad->SetSaveClipImageMargin(true, margins.x(), margins.y());
        EXPECT_EQ(textOf(this->pad->Base64Encode(3)), "") << margins.x() << ", " << margins.y();
        EXPECT_EQ(textOf(this->pad->Base64EncodeEx(1, false)), "") << margins.x() << ", " << margins.y();
    }
    this->pad->SetSaveClipImageMargin(true, -1, -1);
    EXPECT_EQ(imageOf(this->pad->Base64Encode(1), "BMP").size(), this->pad->m_canvas.size());
}

using FingerprintClasses = testing::Types<CS310XSignWidget, CS310XSignObj>;
TYPED_TEST_SUITE(FingerprintText, FingerprintClasses, PadClassName);

TYPED_TEST(FingerprintText, FingerprintAloneIsEnoughForAnImageOfThePlainForm)
{
    this->fillCanvas(Qt::blue);
    // Any score but 0 counts here, below 0 too.
    for (const int score : {1, 62, -1}) {
        this->pad->m_nCurrentFPRawDataWithBestScore = score;
        for (const auto &[type, format] : {std::pair(1, "BMP"), std::pair(2, "JPG"), std::pair(3, "PNG")})
            EXPECT_EQ(imageOf(this->pad->Base64Encode(type), format).size(), this->pad->m_canvas.size()) << format;
        for (const int type : {0, 4, 5, 6, 7})
            EXPECT_EQ(this->pad->Base64Encode(type), nullptr) << type;
        for (const int type : {1, 2, 3, 6})
            EXPECT_EQ(this->pad->Base64EncodeEx(type, true), nullptr) << type;
        EXPECT_EQ(this->pad->GetSVGImageBase64Data(), nullptr);
    }
    this->pad->m_nCurrentFPRawDataWithBestScore = 0;
    EXPECT_EQ(this->pad->Base64Encode(1), nullptr);
}

TYPED_TEST(FingerprintText, SvgCarriesTheFingerprint)
{
    this->store();
    const QByteArray without = textOf(this->pad->GetSVGImageBase64Data());
    EXPECT_FALSE(QByteArray::fromBase64(without).contains("<image"));
    this->pad->m_nCurrentFPRawDataWithBestScore = 1;
    const QByteArray with = textOf(this->pad->GetSVGImageBase64Data());
    EXPECT_TRUE(QByteArray::fromBase64(with).contains("<image"));
}

TYPED_TEST(FingerprintText, CutsToTheFingerprintsRectangleOnTheWidgetOnly)
{
    this->store();
    if constexpr (std::is_same_v<TypeParam, CS310XSignWidget>) {
        const QSize whole = this->pad->m_canvas.size();
        this->pad->m_canvas.setPixel(30, 20, 0xff000000);
        this->pad->m_NewFPRect = QRect(5, 6, 17, 9);
        const auto size = [&](int action, bool only, bool clip, bool ex) {
            this->pad->m_nNewFPProcessActionID = action;
            this->pad->m_bFPImageBase64DataOnly = only;
            this->pad->SetSaveClipImageMargin(clip, 2, 3);
            return imageOf(
                ex ? this->pad->EncodeBase64SignImageEx(3, true) : this->pad->EncodeBase64SignImage(3), "PNG")
                .size();
        };
        EXPECT_EQ(size(NFPPA_SIGN_FP_SAME_WIDGET, true, false, false), QSize(17, 9));
        EXPECT_EQ(size(NFPPA_SIGN_FP_SAME_WIDGET, true, true, false), QSize(5, 7));
        EXPECT_EQ(size(NFPPA_SIGN_FP_SAME_WIDGET, true, false, true), whole);
        EXPECT_EQ(size(NFPPA_SIGN_FP_SAME_WIDGET, false, false, false), whole);
        EXPECT_EQ(size(NFPPA_NONE, true, false, false), whole);
        EXPECT_EQ(size(NFPPA_SIGN_FP_DIFFERENT_WIDGET, true, false, false), whole);
    } else {
        this->pad->m_nNewFPProcessActionID = NFPPA_SIGN_FP_SAME_WIDGET;
        this->pad->m_bFPImageBase64DataOnly = true;
        this->pad->m_NewFPRect = QRect(5, 6, 17, 9);
        EXPECT_EQ(imageOf(this->pad->EncodeBase64SignImage(3), "PNG").size(), this->pad->m_canvas.size());
    }
}
