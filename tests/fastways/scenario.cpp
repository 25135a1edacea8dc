#include "scenario.h"

#include <QCryptographicHash>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QRegularExpression>

#include <chrono>
#include <cmath>
#include <cstring>
#include <thread>

namespace {

constexpr int kSensorWidth = 208, kSensorHeight = 288;
constexpr int kEntry = 24, kClock = 8; // of an ink record: bytes of a point, and where its times begin

Scenario *running = nullptr; ///< that a push belongs to

std::string digestOf(const QByteArray &bytes)
{
    return std::to_string(bytes.size()) + ' '
        + QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().toStdString();
}

/// A PDF file without its dates and what is made of them.
QByteArray withoutDates(const QByteArray &pdf)
{
    QString text = QString::fromLatin1(pdf);
    text.replace(QRegularExpression("D:\\d{14}[^)]*"), "date");
    text.replace(QRegularExpression("\\d{4}-\\d\\d-\\d\\dT[0-9:.+Z-]*"), "date");
    text.replace(QRegularExpression("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}"), "id");
    text.replace(QRegularExpression("/ID \\[[^]]*\\]"), "id");
    return text.toLatin1();
}

QByteArray withoutTimes(QByteArray record)
{
    for (int at = kClock; at + kEntry - kClock <= record.size(); at += kEntry)
        std::memset(record.data() + at, 0, kEntry - kClock);
    return record;
}

} // namespace

Scenario::Scenario(unsigned seed)
    : m_random(seed)
    , m_seed(seed)
{
}

int Scenario::upTo(int most)
{
    return static_cast<int>(m_random() % (static_cast<unsigned>(most) + 1));
}

void Scenario::tell(const char *name, const QByteArray &bytes)
{
    m_lines.push_back(std::to_string(m_seed) + ' ' + std::to_string(m_step) + ' ' + name + ' ' + digestOf(bytes));
}

/// The driver's thread calls it while the packets' sender waits.
void Scenario::takePush(char *text)
{
    running->tell("push", text);
}

void Scenario::tellText(const char *name, char *text, void (*release)(int, char *))
{
    tell(name, text == nullptr ? QByteArray("null") : QByteArray(text));
    release(m_pad->type(), text);
}

std::vector<std::string> Scenario::run()
{
    const Family &family = kFamilies[static_cast<size_t>(upTo(4))];
    const bool headless = oneIn(2);
    fuzz::Driver::instance().reset();
    fuzz::Driver::instance().setScreenDelay(0);
    running = this;
    const int scale = oneIn(40) ? 4 : 1;
    fuzz::FuzzedPad pad(family, headless, 1 + upTo(430 * scale), 1 + upTo(300 * scale));
    m_pad = &pad;
    tell(headless ? family.headlessClass : family.widgetClass, pad.isOpen() ? "open" : "closed");
    for (const int steps = 3 + upTo(9); m_step < steps; ++m_step) {
        settings();
        sign();
        hostEvent();
        ofTheModel();
        texts();
        files();
        record();
        decoded();
        if (oneIn(6))
            family.Clear(family.type);
    }
    return m_lines;
}

void Scenario::settings()
{
    const int type = m_pad->type();
    if (oneIn(2))
        (*m_pad)->SetPenWidth(type, 1 + upTo(9));
    if (oneIn(3))
        (*m_pad)->SetPenStyle(type, oneIn(2));
    if (oneIn(2))
        (*m_pad)->SetPenColor(type, upTo(255), upTo(255), upTo(255));
    if (oneIn(6))
        (*m_pad)->SetPenColor(type, 255, 255, 255 - upTo(1));
    if (oneIn(3))
        (*m_pad)->SetSaveClipImageMargin(type, !oneIn(3), upTo(60), upTo(60));
}

void Scenario::sign()
{
    for (int strokes = upTo(3); strokes > 0; --strokes)
        stroke();
}

// A curve that may leave the writing area, stand still or press too hard.
void Scenario::stroke()
{
    const bool isSmall = m_pad->type() == KVS210_DEVICE || m_pad->type() == KVS300_DEVICE;
    const int spanX = isSmall ? 2600 : m_pad->type() == KVS310X_DEVICE ? 23000 : 31000;
    const int pressures = isSmall || m_pad->type() == KVS310X_DEVICE ? 2100 : 8400;
    const bool isShort = m_isPushing && !oneIn(20); // each packet pushes an image
    const int moves = oneIn(4) ? upTo(2) : upTo(isShort ? 6 : 120);
    double x = upTo(spanX), y = upTo(spanX / 2), direction = upTo(628) / 100.0;
    const double bend = (upTo(100) - 50) / 300.0, length = upTo(spanX / 30);
    int pressure = upTo(pressures);
    std::vector<KVSIM_PACKET> packets;
    for (int i = 0; i <= moves; ++i) {
        packets.push_back({static_cast<int>(x), static_cast<int>(y), pressure, i == 0 ? 0 : 1});
        x += std::round(length * std::cos(direction));
        y += std::round(length * std::sin(direction));
        direction += bend;
        pressure = std::clamp(pressure + upTo(200) - 100, 0, pressures);
    }
    packets.push_back(packets.back());
    packets.back().status = oneIn(10) ? upTo(5) : 2;
    fuzz::Driver::instance().sendPackets(packets.data(), static_cast<int>(packets.size()));
}

void Scenario::hostEvent()
{
    QWidget *widget = m_pad->widget();
    if (widget == nullptr)
        return;
    if (oneIn(5))
        widget->resize(1 + upTo(400), 1 + upTo(300));
    fuzz::settle();
    if (oneIn(2)) {
        const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
        tell("grab",
            QByteArray(reinterpret_cast<const char *>(image.constBits()), static_cast<int>(image.sizeInBytes())));
    }
}

void Scenario::texts()
{
    const int type = m_pad->type();
    for (const int image : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
        if (oneIn(2))
            tellText("text", (*m_pad)->Base64Encode(type, image), (*m_pad)->Base64EncodeFree);
        if (oneIn(2))
            tellText("textEx", (*m_pad)->Base64EncodeEx(type, image, oneIn(2)), (*m_pad)->Base64EncodeExFree);
    }
    if (oneIn(2))
        tellText("svgText", (*m_pad)->GetSVGImageBase64Data(type), (*m_pad)->FreeSVGImageBase64Data);
}

void Scenario::files()
{
    static constexpr struct
    {
        int type;
        const char *name;
    } kFiles[] = {{ITI_BITMAP, "a.bmp"}, {ITI_JPEG, "a.jpg"}, {ITI_PNG, "a.png"}, {ITI_PNG, "a.bmp"},
        {ITI_BITMAP, "a.png"}, {ITI_PDF, "a.pdf"}, {ITI_SVG, "a.svg"}};
    for (const auto &file : kFiles) {
        if (!oneIn(4))
            continue;
        const QString path = m_directory.path() + '/' + file.name;
        std::wstring wide = path.toStdWString();
        const int result = (*m_pad)->SaveDrawingImage(m_pad->type(), file.type, wide.data(), upTo(1));
        QFile written(path);
        const QByteArray bytes = written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("none");
        tell(file.name, QByteArray::number(result) + (file.type == ITI_PDF ? withoutDates(bytes) : bytes));
        written.remove();
    }
}

void Scenario::record()
{
    if (!oneIn(3))
        return;
    char *text = (*m_pad)->Base64Encode(m_pad->type(), EBITI_INK);
    tell("record", text == nullptr ? QByteArray("null") : withoutTimes(QByteArray::fromBase64(text)));
    (*m_pad)->Base64EncodeFree(m_pad->type(), text);
}

/// What the library makes of its own texts, and the points one by one.
void Scenario::decoded()
{
    if (!oneIn(4))
        return;
    const int type = m_pad->type();
    for (const int image : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG, EBITI_INK}) {
        const QString path = m_directory.path() + "/decoded";
        std::wstring wide = path.toStdWString();
        char *text = (*m_pad)->Base64Encode(type, image);
        const int result = (*m_pad)->Base64Decode(type, image, text, wide.data());
        (*m_pad)->Base64EncodeFree(type, text);
        QFile written(path);
        tell("decoded",
            QByteArray::number(result) + (written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("none")));
        written.remove();
    }
    QByteArray points;
    for (int i = 0; i < (*m_pad)->GetTotalDecodeInkPointsNumber(type); ++i)
        for (const int field : {INKDATATYPE_X, INKDATATYPE_Y, INKDATATYPE_STROKEEND})
            points += QByteArray::number((*m_pad)->GetDecodeInkPointData(type, i, field)) + ' ';
    INKPOINTDATA point{};
    for (; (*m_pad)->GetInkPointData(type, point) == ARI_SUCCESS; ++point.nIndex)
        points += QByteArray::number(point.nX) + ' ' + QByteArray::number(point.nY) + ' '
            + QByteArray::number(point.nPressureValue) + ' ' + QByteArray::number(point.bStrokeEnd) + ' ';
    tell("points", points);
}

void Scenario::ofTheModel()
{
    if (m_pad->type() == KVS210_DEVICE) {
        if (oneIn(4))
            m_isPushing =
                KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, oneIn(2) ? EBITI_JPEG : EBITI_PNG, takePush);
        if (oneIn(3))
            KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 1 + upTo(200), 1 + upTo(200));
        if (oneIn(2))
            tellText("office", KVS210_WPSBase64Encode(KVS210_DEVICE, oneIn(2) ? EBITI_JPEG : EBITI_PNG),
                KVS210_WPSBase64EncodeFree);
    } else if (m_pad->type() == KVS310X_DEVICE) {
        if (oneIn(3))
            place();
        if (oneIn(3))
            fingerprint();
        if (oneIn(2))
            tellText("finger", KVS310X_GetFPImageBase64Data(KVS310X_DEVICE, EBITI_BITMAP + upTo(2), oneIn(2)),
                KVS310X_FreeFPImageBase64Data);
    }
}

void Scenario::place()
{
    QWidget *parent = oneIn(2) ? m_pad->window() : m_pad->widget();
    const int result = KVS310X_SetDisplayedFPImageAt(
        KVS310X_DEVICE, parent, 300, 250, upTo(100), upTo(100), 1 + upTo(120), 1 + upTo(150));
    tell("place", QByteArray::number(result));
}

// Waits until the pad shows the picture. The stroke behind it merges the fingerprint, whatever the display thread does
// meanwhile; that one's own merge gives the same again.
void Scenario::fingerprint()
{
    std::vector<unsigned char> image(kSensorWidth * kSensorHeight);
    const double middle = upTo(200), width = 3 + upTo(12);
    for (size_t i = 0; i < image.size(); ++i) {
        const double x = static_cast<double>(i % kSensorWidth) - middle,
                     y = static_cast<double>(i) / kSensorWidth - 140;
        image[i] = static_cast<unsigned char>(127 + 120 * std::sin(std::hypot(x, y) * 6 / width));
    }
    const int shown = fuzz::Driver::instance().shownPictures();
    fuzz::Driver::instance().sendFingerprint(image.data(), static_cast<int>(image.size()), ++m_score + 50);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (fuzz::Driver::instance().shownPictures() == shown && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    tell("shown", QByteArray::number(fuzz::Driver::instance().shownPictures() - shown));
    stroke();
    fuzz::settle();
}
