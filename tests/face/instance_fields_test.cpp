// The ten classes' fields: their types and their declared order, and the shape of the classes around them.
#include "padclasses.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <typeinfo>

namespace {

struct Placed
{
    const char *name;
    std::ptrdiff_t offset;
};

/// Collects fields in the order in which a test names them, each with its exact type.
template <class Pad>
struct Collector
{
    const Pad &pad;
    std::vector<Placed> fields;

    template <class Expected, class Field>
    void add(const char *name, const Field &field)
    {
        static_assert(std::is_same_v<Expected, Field>, "a field's type differs from the declared one");
        fields.push_back({name, reinterpret_cast<const char *>(&field) - reinterpret_cast<const char *>(&pad)});
    }
};

#define KV_ADD(type, field) collector.template add<type>(#field, collector.pad.field)
#define KV_ADD_SLOT(operation) KV_ADD(operation, m_pfn_##operation)

template <class Pad>
void addCanvases(Collector<Pad> &collector)
{
    KV_ADD(QImage, m_canvas);
    if constexpr (isFingerprintPad<Pad>) {
        KV_ADD(QImage, m_SignCanvas);
        KV_ADD(QImage, m_FPOnlyCanvas);
    }
    KV_ADD(QColor, m_drawColor);
    KV_ADD(QLibrary *, m_plibKVSignPadDriver);
}

template <class Pad>
void addSlots(Collector<Pad> &collector)
{
    KV_ADD_SLOT(KVSPDAPI_Initial);
    KV_ADD_SLOT(KVSPDAPI_UnInitial);
    if constexpr (PadTraits<Pad>::hasScreen)
        KV_ADD_SLOT(KVSPDAPI_OpenDeviceLCD);
    KV_ADD_SLOT(KVSPDAPI_ClearDeviceContent);
    if constexpr (PadTraits<Pad>::hasScreen)
        KV_ADD_SLOT(KVSPDAPI_GetDevicePenID);
    KV_ADD_SLOT(KVSPDAPI_GetDevicePadID);
    if constexpr (PadTraits<Pad>::hasScreen)
        KV_ADD_SLOT(KVSPDAPI_GetDeviceSecureID);
    KV_ADD_SLOT(KVSPDAPI_GetDevicePartsVersion);
    if constexpr (PadTraits<Pad>::hasScreen)
        KV_ADD_SLOT(KVSPDAPI_ShowVersionInfoOnDevice);
    KV_ADD_SLOT(KVSPDAPI_SetDevicePenStyle);
    if constexpr (isFingerprintPad<Pad>)
        KV_ADD_SLOT(KVSPDAPI_ShowFPImageOnDevice);
}

template <class Pad>
void addState(Collector<Pad> &collector)
{
    KV_ADD(bool, m_bPenDown);
    KV_ADD(SingContext, m_SignContext);
    KV_ADD(int, m_nSignWidthLevel);
    KV_ADD(double, m_dblLastSignWndX);
    KV_ADD(double, m_dblLastSignWndY);
    KV_ADD(bool, m_bDeviceConnected);
    KV_ADD(int, m_nMaxPressureValue);
    KV_ADD(bool, m_bWithPressureValue);
    KV_ADD(SIGNPAD_EVENT_CALLBACK, m_pfnSignPadEventCallback);
    KV_ADD(std::vector<_POINTDATA> *, m_pPointDataList);
    KV_ADD(bool, m_bClipImage);
    KV_ADD(int, m_nSaveImageClipMarginX);
    KV_ADD(int, m_nSaveImageClipMarginY);
    KV_ADD(std::vector<_POINTDATA> *, m_pDecodedPointDataList);
    KV_ADD(int, m_nPressDeviceConfirmOrCancelKey);
}

template <class Pad>
void addFingerprint(Collector<Pad> &collector)
{
    using Picture = unsigned char[29952];
    using Thread =
        std::conditional_t<isWidget<Pad>, CS310XWidget_ShowFPImageOnDeviceThread, CS310XObj_ShowFPImageOnDeviceThread>;
    KV_ADD(int, m_nCurrentFPRawDataWithBestScore);
    KV_ADD(QRect, m_NewFPRect);
    KV_ADD(int, m_nNewFPProcessActionID);
    KV_ADD(CS310XFPWidget *, m_pNewFPWidget);
    KV_ADD(bool, m_bFPImageBase64DataOnly);
    KV_ADD(Picture, m_ucShowFPImageRawDataOnDevice);
    KV_ADD(Picture, m_ucCurrentFPImageRawDataOnDevice);
    KV_ADD(bool, m_bGoToShutDown);
    KV_ADD(Thread *, m_pShowFPImageOnDeviceThread);
    KV_ADD(QMutex, m_mutexUpdateShowFPImageRawDataOnDevice);
    KV_ADD(bool, m_bNewFPImageRawDataOnDeviceAvailable);
    KV_ADD(bool, m_bStartShowFPImageRawDataOnDevice);
    KV_ADD(bool, m_bAlreadyShownFPImageRawDataOnDevice);
}

template <class Pad>
void addLast(Collector<Pad> &collector)
{
    KV_ADD(QMutex, m_mutexUpdateCanvas);
    if constexpr (hasAreas<Pad>)
        KV_ADD(bool, m_bPenDownOnDeviceConfirmOrCancelArea);
    else
        KV_ADD(bool, m_bPenDownOnCancelButton);
    if constexpr (isLivePad<Pad>) {
        KV_ADD(int, m_nRealTimeSignBase64Data_ImageTypeID);
        KV_ADD(SIGNPAD_SIGN_BASE64_DATA_CALLBACK, m_pfnRealTimeSignBase64DataCallback);
    }
    if constexpr (std::is_same_v<Pad, CS210SignObj>)
        KV_ADD(QImage, m_WPSSignCanvas);
}

template <class Pad>
class InstanceFields : public testing::Test
{
protected:
    std::unique_ptr<Pad> pad = constructed<Pad>(40, 20);
    ~InstanceFields() override { pad->Shutdown(); }
};
TYPED_TEST_SUITE(InstanceFields, PadClasses, PadClassNames);

TYPED_TEST(InstanceFields, StandInTheirDeclaredOrder)
{
    Collector<TypeParam> collector{*this->pad, {}};
    addCanvases(collector);
    addSlots(collector);
    addState(collector);
    if constexpr (isFingerprintPad<TypeParam>)
        addFingerprint(collector);
    addLast(collector);
    const size_t slotCount = isFingerprintPad<TypeParam> ? 11 : PadTraits<TypeParam>::hasScreen ? 10 : 6;
    const size_t more = isFingerprintPad<TypeParam> ? 15
        : std::is_same_v<TypeParam, CS210SignObj>   ? 3
        : isLivePad<TypeParam>                      ? 2
                                                    : 0;
    EXPECT_EQ(collector.fields.size(), 20 + slotCount + more);
    EXPECT_EQ(collector.fields.front().offset, isWidget<TypeParam> ? static_cast<std::ptrdiff_t>(sizeof(QWidget)) : 0);
    for (size_t i = 1; i < collector.fields.size(); ++i)
        EXPECT_LT(collector.fields[i - 1].offset, collector.fields[i].offset)
            << collector.fields[i - 1].name << " before " << collector.fields[i].name;
}

// That thread polls without a pause: each pass would take the line away from a packet that locks the canvas.
TYPED_TEST(InstanceFields, OfTheDisplayThreadShareNoCacheLineWithTheCanvasLock)
{
    if constexpr (isFingerprintPad<TypeParam>) {
        const auto line = [](const auto &field) { return reinterpret_cast<std::uintptr_t>(&field) / 64; };
        const auto locked = line(this->pad->m_mutexUpdateCanvas);
        EXPECT_GT(locked, line(this->pad->m_mutexUpdateShowFPImageRawDataOnDevice));
        EXPECT_GT(locked, line(this->pad->m_bStartShowFPImageRawDataOnDevice));
        EXPECT_GT(locked, line(this->pad->m_bAlreadyShownFPImageRawDataOnDevice));
    }
}

TYPED_TEST(InstanceFields, BelongToAClassWithoutABaseOfOurs)
{
    const std::type_info &type = typeid(TypeParam);
    if constexpr (isWidget<TypeParam>) {
        const auto *single = dynamic_cast<const abi::__si_class_type_info *>(&type);
        ASSERT_NE(single, nullptr) << "one public base";
        EXPECT_EQ(*single->__base_type, typeid(QWidget));
    } else {
        EXPECT_EQ(typeid(type), typeid(abi::__class_type_info)) << "no base at all";
        EXPECT_FALSE(std::is_polymorphic_v<TypeParam>);
    }
}

/// The first table of virtual functions of an object, up to the part for its second base.
std::vector<void *> virtuals(const QWidget &widget)
{
    const auto *const *table = *reinterpret_cast<void *const *const *>(&widget);
    const auto *const end = reinterpret_cast<void *>(-static_cast<std::intptr_t>(sizeof(QObject)));
    std::vector<void *> found;
    while (table[found.size()] != end && found.size() < 1000)
        found.push_back(const_cast<void *>(table[found.size()]));
    return found;
}

TYPED_TEST(InstanceFields, AreBesideNoVirtualsButTheDeclaredOnes)
{
    if constexpr (isWidget<TypeParam>) {
        const QWidget plain;
        const std::vector<void *> base = virtuals(plain);
        const std::vector<void *> own = virtuals(*this->pad);
        ASSERT_EQ(own.size(), base.size()) << "no new virtual function";
        size_t overridden = 0;
        for (size_t i = 0; i < base.size(); ++i)
            overridden += own[i] != base[i];
        // Three of the meta-object, two forms of the destructor, and these four.
        EXPECT_EQ(overridden, 9u);
        EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::mousePressEvent), void (TypeParam::*)(QMouseEvent *)>));
        EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::mouseMoveEvent), void (TypeParam::*)(QMouseEvent *)>));
        EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::paintEvent), void (TypeParam::*)(QPaintEvent *)>));
        EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::resizeEvent), void (TypeParam::*)(QResizeEvent *)>));
        EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::metaObject), const QMetaObject *(TypeParam::*)() const>));
    } else {
        EXPECT_FALSE(std::is_polymorphic_v<TypeParam>);
    }
}

TYPED_TEST(InstanceFields, AreNoneOfTheMetaObjects)
{
    if constexpr (isWidget<TypeParam>) {
        const QMetaObject &meta = TypeParam::staticMetaObject;
        EXPECT_STREQ(meta.className(), PadTraits<TypeParam>::name);
        EXPECT_EQ(meta.superClass(), &QWidget::staticMetaObject);
        EXPECT_EQ(meta.methodCount(), meta.methodOffset()) << "no signals and slots of its own";
        EXPECT_EQ(meta.propertyCount(), meta.propertyOffset());
    }
}

} // namespace
