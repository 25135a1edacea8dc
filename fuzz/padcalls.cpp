#include "padcalls.h"

#include "modelrows.h"

#include <cstring>
#include <vector>

namespace fuzz {

namespace {

constexpr int kMostSteps = 100;
constexpr int kPoint = 24;

void ignoreTap(int) { }

void lookAtPush(char *text)
{
    KV_PROMISE(text != nullptr && std::strlen(text) % 4 == 0);
}

bool isResult(int result)
{
    return result <= ARI_SUCCESS && result >= ARI_SAVE_FAILE;
}

/// A file in a directory of this process.
std::wstring path(const char *name)
{
    static const QTemporaryDir directory;
    return (directory.path() + '/' + name).toStdWString();
}

} // namespace

PadCalls::PadCalls(FuzzedPad &pad, Bytes bytes)
    : m_pad(pad)
    , m_type(pad.type())
    , m_bytes(bytes)
{
}

void PadCalls::run()
{
    for (int steps = 0; !m_bytes.atEnd() && steps < kMostSteps; ++steps)
        step(m_bytes.byte());
}

// Sends packets more often than anything else.
void PadCalls::step(int what)
{
    using Step = void (PadCalls::*)();
    static constexpr Step kSteps[] = {&PadCalls::packet, &PadCalls::stroke, &PadCalls::packet, &PadCalls::stroke,
        &PadCalls::packet, &PadCalls::fingerprint, &PadCalls::driverAnswers, &PadCalls::deviceCalls,
        &PadCalls::penCalls, &PadCalls::receivers, &PadCalls::pointCalls, &PadCalls::save, &PadCalls::textCall,
        &PadCalls::svgText, &PadCalls::inkRecord, &PadCalls::clip, &PadCalls::modelCalls, &PadCalls::hostEvent};
    (this->*kSteps[static_cast<size_t>(what) % std::size(kSteps)])();
}

void PadCalls::send(const KVSIM_PACKET &packet)
{
    const int sent = Driver::instance().sendPackets(&packet, 1);
    KV_PROMISE(sent == (m_pad.isOpen() ? 1 : -1));
}

void PadCalls::packet()
{
    const int kind = m_bytes.byte();
    const int status = kind % 8; // three of them do not exist
    if (kind >= 0xf0)
        send({m_bytes.number(), m_bytes.number(), m_bytes.number(), m_bytes.number()});
    else
        send({m_bytes.word(), m_bytes.word(), m_bytes.word(), status});
}

/// A stroke through positions all over the writing area, one byte for each coordinate.
void PadCalls::stroke()
{
    const int scale = modelOfType(m_type)->rawSpanX < 10000 ? 10 : 100;
    const auto position = [&] { return m_bytes.byte() * scale; };
    const int moves = m_bytes.upTo(15);
    KVSIM_PACKET packet{position(), position(), m_bytes.byte() * 8, KVSPDARI_PS_PEN_DOWN};
    send(packet);
    for (int i = 0; i < moves; ++i) {
        packet = {position(), position(), m_bytes.byte() * 8, KVSPDARI_PS_PEN_MOVE};
        send(packet);
    }
    packet.status = KVSPDARI_PS_PEN_UP;
    send(packet);
}

void PadCalls::fingerprint()
{
    const int score = m_bytes.signedByte();
    const int period = 1 + m_bytes.byte();
    const int kind = m_bytes.byte();
    std::vector<unsigned char> image(kFingerprintWidth * kFingerprintHeight);
    for (size_t i = 0; i < image.size(); ++i)
        image[i] = static_cast<unsigned char>(static_cast<int>(i) / period % 2 * kind);
    const unsigned char *data = kind == 1 ? nullptr : image.data();
    const int length = kind < 8 ? m_bytes.number() : static_cast<int>(image.size());
    // A driver that announces more bytes than it sends cannot be noticed by anybody.
    if (length <= static_cast<int>(image.size()))
        Driver::instance().sendFingerprint(data, length, score);
}

/// Sets what the driver answers from now on.
void PadCalls::driverAnswers()
{
    static const char *const kOperations[] = {"OpenDeviceLCD", "ClearDeviceContent", "GetDevicePenID", "GetDevicePadID",
        "GetDevicePartsVersion", "ShowVersionInfoOnDevice", "SetDevicePenStyle", "ShowFPImageOnDevice", "UnInitial"};
    const char *operation = kOperations[m_bytes.upTo(static_cast<int>(std::size(kOperations)) - 1)];
    if (m_bytes.byte() % 2 == 0)
        Driver::instance().setResult(operation, m_bytes.signedByte());
    else
        Driver::instance().setText(operation, m_bytes.take(m_bytes.upTo(40)).constData());
}

void PadCalls::deviceCalls()
{
    const bool on = m_bytes.byte() % 2 == 1;
    std::vector<char> text(static_cast<size_t>(m_bytes.upTo(64)) + 1);
    const int size = static_cast<int>(text.size());
    m_pad->GetHWPadID(m_type, text.data(), size);
    m_pad->GetHWVersion(m_type, text.data(), size);
    if (m_pad->hasScreen) {
        m_pad->GetHWPenID(m_type, text.data(), size);
        m_pad->DisplayHWVersion(m_type, on);
        m_pad->OpenLCD(m_type, on);
    } else if (on) {
        m_pad->Clear(m_type);
    }
    char item[8];
    KV_PROMISE(isResult(m_pad->GetDeviceInfo(m_type, m_bytes.signedByte(), item)));
    char about[128];
    m_pad->GetAboutInfo(m_type, about);
}

void PadCalls::penCalls()
{
    m_pad->SetPenStyle(m_type, m_bytes.byte() % 2 == 1);
    const int width = m_bytes.signedByte();
    KV_PROMISE(!m_pad.isOpen()
        || m_pad->SetPenWidth(m_type, width) == (width >= 1 && width <= 10 ? ARI_SUCCESS : ARI_INVALID_PARAMETERS));
    m_pad->SetPenColor(m_type, m_bytes.word(), m_bytes.byte(), m_bytes.byte());
}

void PadCalls::receivers()
{
    m_pad->SignPadEventCallback(m_type, m_bytes.byte() % 2 == 1 ? ignoreTap : nullptr);
    const int key = m_pad->GetDeviceConfirmOrCancelKeyStatus(m_type);
    KV_PROMISE(key >= -1 && key <= 1);
}

void PadCalls::pointCalls()
{
    const int index = m_bytes.word();
    const int count = m_pad->GetTotalInkPointsNumber(m_type);
    KV_PROMISE(count > 0 || count == ARI_INK_EMPTY);
    INKPOINTDATA point{};
    point.nIndex = index;
    const bool there = m_pad.isOpen() && index >= 0 && index < count;
    KV_PROMISE(m_pad->GetInkPointData(m_type, point) == (there ? ARI_SUCCESS : ARI_FAIL));
    char *time = m_pad->GetInkPointDataTimeInfo(m_type, index);
    KV_PROMISE((time != nullptr) == there);
    m_pad->FreeInkPointDataTimeInfo(m_type, time);
}

void PadCalls::save()
{
    static constexpr const char *kNames[] = {"a.bmp", "a.jpg", "a.png", "a.pdf", "a.svg", "a", "none/a.png"};
    std::wstring file = path(kNames[m_bytes.upTo(static_cast<int>(std::size(kNames)) - 1)]);
    const int type = m_bytes.upTo(9);
    KV_PROMISE(isResult(m_pad->SaveDrawingImage(m_type, type, file.data(), m_bytes.upTo(1))));
}

void PadCalls::checkText(char *text, void (*release)(int, char *))
{
    if (text == nullptr)
        return;
    KV_PROMISE(std::strlen(text) % 4 == 0);
    release(m_type, text);
}

void PadCalls::textCall()
{
    const int type = m_bytes.upTo(7);
    if (m_bytes.byte() % 2 == 0)
        checkText(m_pad->Base64Encode(m_type, type), m_pad->Base64EncodeFree);
    else
        checkText(m_pad->Base64EncodeEx(m_type, type, m_bytes.byte() % 2 == 0), m_pad->Base64EncodeExFree);
}

void PadCalls::svgText()
{
    checkText(m_pad->GetSVGImageBase64Data(m_type), m_pad->FreeSVGImageBase64Data);
}

/// Checks that the record has all points and decodes to them.
void PadCalls::inkRecord()
{
    char *record = m_pad->Base64Encode(m_type, EBITI_INK);
    const int count = m_pad->GetTotalInkPointsNumber(m_type);
    KV_PROMISE((record != nullptr) == (count > 0));
    if (record != nullptr) {
        KV_PROMISE(QByteArray::fromBase64(record).size() == count * kPoint + 1);
        KV_PROMISE(m_pad->Base64Decode(m_type, EBITI_INK, record, nullptr) == ARI_SUCCESS);
        KV_PROMISE(m_pad->GetTotalDecodeInkPointsNumber(m_type) == count);
        INKPOINTDATA point{};
        point.nIndex = count - 1;
        m_pad->GetInkPointData(m_type, point);
        KV_PROMISE(m_pad->GetDecodeInkPointData(m_type, count - 1, INKDATATYPE_Y) == point.nY);
        m_pad->Base64EncodeFree(m_type, record);
    }
    const QByteArray other = m_bytes.take(m_bytes.upTo(60));
    m_pad->Base64Decode(m_type, m_bytes.upTo(7), other.constData(), path("decoded").data());
}

void PadCalls::clip()
{
    m_pad->SetSaveClipImageMargin(m_type, m_bytes.byte() % 4 != 0, m_bytes.word(), m_bytes.word());
}

void PadCalls::modelCalls()
{
    if (m_type == KVS210_DEVICE)
        livePush();
    else if (m_type == KVS310X_DEVICE && m_bytes.byte() % 2 == 0)
        place();
    else if (m_type == KVS310X_DEVICE)
        fingerprintText();
    else
        m_pad->Clear(m_type);
}

void PadCalls::livePush()
{
    KVS210_SetRealTimeSignBase64DataCallback(m_type, m_bytes.upTo(4), m_bytes.byte() % 4 == 0 ? nullptr : lookAtPush);
    KVS210_InitialWPSSignCanvas(m_type, m_bytes.signedByte(), m_bytes.signedByte());
    checkText(KVS210_WPSBase64Encode(m_type, m_bytes.upTo(4)), KVS210_WPSBase64EncodeFree);
}

void PadCalls::place()
{
    const auto small = [this] { return m_bytes.signedByte() * 3; };
    QWidget *parent = m_bytes.byte() % 3 == 0 ? m_pad.widget() : m_pad.window();
    KV_PROMISE(
        isResult(KVS310X_SetDisplayedFPImageAt(m_type, parent, small(), small(), small(), small(), small(), small())));
}

void PadCalls::fingerprintText()
{
    checkText(
        KVS310X_GetFPImageBase64Data(m_type, m_bytes.upTo(7), m_bytes.byte() % 2 == 0), KVS310X_FreeFPImageBase64Data);
}

/// Headless hosts have none of these.
void PadCalls::hostEvent()
{
    QWidget *widget = m_pad.widget();
    if (widget == nullptr)
        return;
    switch (m_bytes.upTo(3)) {
    case 0:
        widget->resize(m_bytes.byte() * 2, m_bytes.byte() * 2);
        break;
    case 1:
        widget->grab();
        break;
    case 2:
        widget->setVisible(m_bytes.byte() % 2 == 0);
        break;
    default:
        settle();
    }
}

} // namespace fuzz
