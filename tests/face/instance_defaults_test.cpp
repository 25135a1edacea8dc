// What the constructors of the ten classes set, and what they log.
#include "logfile.h"
#include "padclasses.h"

#include <QEvent>

namespace {

template <class Pad>
class InstanceDefaults : public testing::Test
{
protected:
    ~InstanceDefaults() override
    {
        if (m_pad != nullptr)
            m_pad->Shutdown(); // ends the display thread
    }
    Pad &construct(int width, int height)
    {
        m_pad = constructed<Pad>(width, height);
        return *m_pad;
    }

private:
    std::unique_ptr<Pad> m_pad;
};
TYPED_TEST_SUITE(InstanceDefaults, PadClasses, PadClassNames);

template <class Pad>
bool tapMark(const Pad &pad)
{
    if constexpr (hasAreas<Pad>)
        return pad.m_bPenDownOnDeviceConfirmOrCancelArea;
    else
        return pad.m_bPenDownOnCancelButton;
}

TYPED_TEST(InstanceDefaults, CommonFields)
{
    const TypeParam &pad = this->construct(400, 200);
    EXPECT_EQ(pad.m_plibKVSignPadDriver, nullptr);
    EXPECT_EQ(pad.m_nPressDeviceConfirmOrCancelKey, -1);
    EXPECT_EQ(pad.m_nSignWidthLevel, 3);
    EXPECT_FALSE(pad.m_bDeviceConnected);
    EXPECT_EQ(pad.m_nMaxPressureValue, PadTraits<TypeParam>::model().maxPressure);
    EXPECT_TRUE(pad.m_bWithPressureValue);
    EXPECT_EQ(pad.m_pfnSignPadEventCallback, nullptr);
    EXPECT_EQ(pad.m_pPointDataList, nullptr);
    EXPECT_FALSE(pad.m_bClipImage);
    EXPECT_EQ(pad.m_nSaveImageClipMarginX, 0);
    EXPECT_EQ(pad.m_nSaveImageClipMarginY, 0);
    EXPECT_EQ(pad.m_pDecodedPointDataList, nullptr);
    EXPECT_FALSE(tapMark(pad));
    EXPECT_EQ(pad.m_drawColor, QColor(0, 0, 0, 255));
    EXPECT_TRUE(pad.m_drawColor.isValid());
    EXPECT_FALSE(pad.m_bPenDown);
    EXPECT_EQ(pad.m_dblLastSignWndX, 0);
    EXPECT_EQ(pad.m_dblLastSignWndY, 0);
}

TYPED_TEST(InstanceDefaults, NoDriverOperation)
{
    const TypeParam &pad = this->construct(400, 200);
    EXPECT_EQ(pad.m_pfn_KVSPDAPI_Initial, nullptr);
    EXPECT_EQ(pad.m_pfn_KVSPDAPI_UnInitial, nullptr);
    EXPECT_EQ(pad.m_pfn_KVSPDAPI_ClearDeviceContent, nullptr);
    EXPECT_EQ(pad.m_pfn_KVSPDAPI_GetDevicePadID, nullptr);
    EXPECT_EQ(pad.m_pfn_KVSPDAPI_GetDevicePartsVersion, nullptr);
    EXPECT_EQ(pad.m_pfn_KVSPDAPI_SetDevicePenStyle, nullptr);
    if constexpr (PadTraits<TypeParam>::hasScreen) {
        EXPECT_EQ(pad.m_pfn_KVSPDAPI_OpenDeviceLCD, nullptr);
        EXPECT_EQ(pad.m_pfn_KVSPDAPI_GetDevicePenID, nullptr);
        EXPECT_EQ(pad.m_pfn_KVSPDAPI_GetDeviceSecureID, nullptr);
        EXPECT_EQ(pad.m_pfn_KVSPDAPI_ShowVersionInfoOnDevice, nullptr);
    }
    if constexpr (isFingerprintPad<TypeParam>) {
        EXPECT_EQ(pad.m_pfn_KVSPDAPI_ShowFPImageOnDevice, nullptr);
    }
}

TYPED_TEST(InstanceDefaults, NothingIsAskedOfADriver)
{
    SimulatedDriver driver;
    this->construct(400, 200);
    EXPECT_EQ(driver.calls(), "");
    EXPECT_FALSE(driver.isOpen());
}

TYPED_TEST(InstanceDefaults, SigningContext)
{
    const SingContext &context = this->construct(777, 333).m_SignContext;
    const ModelExpectation model = PadTraits<TypeParam>::model();
    if constexpr (isWidget<TypeParam>) {
        EXPECT_EQ(context.nSignWndWidth, 0);
        EXPECT_EQ(context.nSignWndHeight, 0);
        EXPECT_EQ(context.nSignRawOffset_X, 0);
        EXPECT_EQ(context.nSignRawOffset_Y, 0);
        EXPECT_EQ(context.dblWidthRatioOfSignWndOverSignRaw, 0);
        EXPECT_EQ(context.dblHeightRatioOfSignWndOverSignRaw, 0);
        EXPECT_EQ(context.dblSignPressureRatio, 0);
    } else {
        EXPECT_EQ(context.nSignWndWidth, 777);
        EXPECT_EQ(context.nSignWndHeight, 333);
        EXPECT_EQ(context.nSignRawOffset_X, model.offsetX);
        EXPECT_EQ(context.nSignRawOffset_Y, model.offsetY);
        EXPECT_DOUBLE_EQ(context.dblWidthRatioOfSignWndOverSignRaw, 777 / model.spanX);
        EXPECT_DOUBLE_EQ(context.dblHeightRatioOfSignWndOverSignRaw, 333 / model.spanY);
        EXPECT_DOUBLE_EQ(context.dblSignPressureRatio, model.pressureRatio);
    }
}

TYPED_TEST(InstanceDefaults, AWhiteCanvasOfTheHostsSize)
{
    const TypeParam &pad = this->construct(400, 200);
    QSize size(400, 200);
    if constexpr (isWidget<TypeParam>)
        size = QWidget().size();
    QImage white(size, QImage::Format_ARGB32);
    white.fill(0xFFFFFFFFu);
    EXPECT_EQ(pad.m_canvas.format(), QImage::Format_ARGB32);
    EXPECT_EQ(pad.m_canvas, white);
    if constexpr (isFingerprintPad<TypeParam>) {
        EXPECT_EQ(pad.m_SignCanvas, white);
        EXPECT_EQ(pad.m_FPOnlyCanvas, white);
    }
}

TYPED_TEST(InstanceDefaults, AFreeLockThatIsNotRecursive)
{
    TypeParam &pad = this->construct(400, 200);
    EXPECT_FALSE(pad.m_mutexUpdateCanvas.isRecursive());
    ASSERT_TRUE(pad.m_mutexUpdateCanvas.tryLock(10000));
    EXPECT_FALSE(pad.m_mutexUpdateCanvas.tryLock());
    pad.m_mutexUpdateCanvas.unlock();
}

TYPED_TEST(InstanceDefaults, FieldsOfOneModel)
{
    [[maybe_unused]] const TypeParam &pad = this->construct(400, 200);
    if constexpr (isLivePad<TypeParam>) {
        EXPECT_EQ(pad.m_pfnRealTimeSignBase64DataCallback, nullptr);
        EXPECT_EQ(pad.m_nRealTimeSignBase64Data_ImageTypeID, 0);
    }
    if constexpr (std::is_same_v<TypeParam, CS210SignObj>) {
        EXPECT_TRUE(pad.m_WPSSignCanvas.isNull());
    }
    if constexpr (isFingerprintPad<TypeParam>) {
        EXPECT_EQ(pad.m_NewFPRect, QRect(QPoint(0, 0), QPoint(-1, -1)));
        EXPECT_EQ(pad.m_nCurrentFPRawDataWithBestScore, 0);
        EXPECT_EQ(pad.m_nNewFPProcessActionID, NFPPA_NONE);
        EXPECT_EQ(pad.m_pNewFPWidget, nullptr);
        EXPECT_FALSE(pad.m_bFPImageBase64DataOnly);
        EXPECT_FALSE(pad.m_bGoToShutDown);
        EXPECT_NE(pad.m_pShowFPImageOnDeviceThread, nullptr);
    }
}

TYPED_TEST(InstanceDefaults, ConstructorLog)
{
    const LogTail log;
    LogOn::set(true);
    [[maybe_unused]] const TypeParam &pad = this->construct(321, 123);
    LogOn::set(false);
    const std::string name = PadTraits<TypeParam>::name;
    const std::string key = name + "::" + name + "()";
    std::string size = "width=321, height=123";
    std::string enter = "Enter, nWidth=321, nHeight=123";
    if constexpr (isWidget<TypeParam>) {
        const QSize plain = QWidget().size();
        size = "width=" + std::to_string(plain.width()) + ", height=" + std::to_string(plain.height());
        enter = "Enter...";
    }
    if constexpr (isFingerprintPad<TypeParam>) {
        char address[32];
        std::snprintf(
            address, sizeof address, "%lx", reinterpret_cast<unsigned long>(pad.m_pShowFPImageOnDeviceThread));
        size += std::string(", m_pShowFPImageOnDeviceThread=") + address;
    }
    const std::vector<LogEntry> expected = {{key, enter}, {key, size}, {key, "leave !"}};
    EXPECT_EQ(log.entries(), expected);
}

TYPED_TEST(InstanceDefaults, AWidgetIsAChildOfItsParentAndNotShown)
{
    if constexpr (isWidget<TypeParam>) {
        QWidget parent;
        parent.show();
        TypeParam child(&parent);
        EXPECT_EQ(child.parentWidget(), &parent);
        EXPECT_FALSE(child.isWindow());
        settle();
        EXPECT_FALSE(child.isVisible());
        child.Shutdown();
    }
}

TEST(InstanceRatios, AreExactlyOneForACanvasInRawUnits)
{
    const CS300SignObj pad(2300, 1300);
    EXPECT_EQ(pad.m_SignContext.dblWidthRatioOfSignWndOverSignRaw, 1.0);
    EXPECT_EQ(pad.m_SignContext.dblHeightRatioOfSignWndOverSignRaw, 1.0);
}

} // namespace
