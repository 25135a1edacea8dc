#include "everycall.h"

#include <cstring>

namespace {

void ignoreTap(int) { }

void ignorePush(char *text)
{
    EXPECT_NE(text, nullptr);
}

} // namespace

EveryCall::EveryCall(const PadCase &pad, const std::vector<KVSIM_PACKET> &packets)
    : m_pad(pad)
    , m_family(*pad.family)
    , m_type(pad.family->type)
{
    for (const KVSIM_PACKET &packet : packets)
        m_sent.insert(
            {static_cast<int16_t>(packet.x), static_cast<int16_t>(packet.y), static_cast<int16_t>(packet.pressure)});
}

void EveryCall::operator()()
{
    device();
    pen();
    points();
    texts();
    files();
    record();
    model();
    receivers();
    if (++m_round % 3 == 0) {
        EXPECT_EQ(m_family.Clear(m_type), ARI_SUCCESS);
        if (m_family.hasScreen) {
            EXPECT_EQ(m_family.OpenLCD(m_type, false), ARI_SUCCESS);
        }
    }
}

void EveryCall::device()
{
    char text[64] = "";
    EXPECT_EQ(m_family.GetHWPadID(m_type, text, sizeof text), ARI_SUCCESS);
    EXPECT_EQ(m_family.GetHWVersion(m_type, text, sizeof text), ARI_SUCCESS);
    if (m_family.hasScreen) {
        EXPECT_EQ(m_family.OpenLCD(m_type, true), ARI_SUCCESS);
        EXPECT_EQ(m_family.GetHWPenID(m_type, text, sizeof text), ARI_SUCCESS);
        EXPECT_EQ(m_family.DisplayHWVersion(m_type, true), ARI_SUCCESS);
    }
    for (int item = DIID_GET_STATUS; item <= DIID_GET_DRV_VER; ++item)
        EXPECT_EQ(m_family.GetDeviceInfo(m_type, item, text), ARI_SUCCESS);
    int pressure = 0;
    EXPECT_EQ(m_family.GetDeviceInfo(m_type, DIID_GET_PRESSURE, &pressure), ARI_SUCCESS);
    EXPECT_EQ(pressure, rawArea(m_type).maxPressure);
    char about[128] = "";
    m_family.GetAboutInfo(m_type, about);
    EXPECT_STRNE(about, "");
    const int key = m_family.GetDeviceConfirmOrCancelKeyStatus(m_type);
    EXPECT_TRUE(key >= -1 && key <= 1) << key;
}

void EveryCall::pen()
{
    const int round = m_round;
    EXPECT_EQ(m_family.SetPenStyle(m_type, round % 2 == 0), ARI_SUCCESS);
    EXPECT_EQ(m_family.SetPenWidth(m_type, 1 + round % 10), ARI_SUCCESS);
    EXPECT_EQ(m_family.SetPenColor(m_type, round % 256, 0, 100), ARI_SUCCESS);
    EXPECT_EQ(m_family.SetSaveClipImageMargin(m_type, round % 2 == 0, 5, 7), ARI_SUCCESS);
}

void EveryCall::checkPoint(int16_t x, int16_t y, int16_t pressure)
{
    EXPECT_EQ(m_sent.count({x, y, pressure}), 1u) << x << ' ' << y << ' ' << pressure;
}

void EveryCall::points()
{
    const int count = m_family.GetTotalInkPointsNumber(m_type);
    EXPECT_TRUE(count > 0 || count == ARI_INK_EMPTY) << count;
    for (int index = 0; index <= count; index += 1 + count / 50) {
        INKPOINTDATA point{};
        point.nIndex = index;
        if (m_family.GetInkPointData(m_type, point) == ARI_SUCCESS)
            checkPoint(point.nX, point.nY, point.nPressureValue);
        char *time = m_family.GetInkPointDataTimeInfo(m_type, index);
        if (time != nullptr) {
            EXPECT_EQ(std::strlen(time), std::strlen("2024-03-05 14:07:09.789")) << time;
        }
        m_family.FreeInkPointDataTimeInfo(m_type, time);
    }
}

// Without points there is no text. Clipping a canvas without ink gives an empty one.
void EveryCall::checkImage(char *text, void (*release)(int, char *))
{
    if (text != nullptr && *text != '\0') {
        EXPECT_FALSE(QImage::fromData(QByteArray::fromBase64(text)).isNull());
        ++m_wholeAnswers;
    }
    release(m_type, text);
}

void EveryCall::texts()
{
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
        checkImage(m_family.Base64Encode(m_type, type), m_family.Base64EncodeFree);
        checkImage(m_family.Base64EncodeEx(m_type, type, true), m_family.Base64EncodeExFree);
    }
    char *svg = m_family.GetSVGImageBase64Data(m_type);
    if (svg != nullptr && *svg != '\0') {
        EXPECT_TRUE(QByteArray::fromBase64(svg).trimmed().endsWith("</svg>"));
    }
    m_family.FreeSVGImageBase64Data(m_type, svg);
}

void EveryCall::files()
{
    const struct
    {
        int type;
        const char *name;
    } kFiles[] = {
        {ITI_BITMAP, "/a.bmp"}, {ITI_JPEG, "/a.jpg"}, {ITI_PNG, "/a.png"}, {ITI_PDF, "/a.pdf"}, {ITI_SVG, "/a.svg"}};
    for (const auto &file : kFiles) {
        std::wstring path = (m_directory.path() + file.name).toStdWString();
        const int result = m_family.SaveDrawingImage(m_type, file.type, path.data(), IDLI_150DPI);
        EXPECT_TRUE(result == ARI_SUCCESS || result == ARI_INK_EMPTY) << result;
        if (result == ARI_SUCCESS && file.type <= ITI_PNG) {
            EXPECT_FALSE(QImage(QString::fromStdWString(path)).isNull()) << file.name;
            ++m_wholeAnswers;
        }
    }
}

void EveryCall::record()
{
    char *text = m_family.Base64Encode(m_type, EBITI_INK);
    if (text != nullptr) {
        const QByteArray bytes = QByteArray::fromBase64(text);
        EXPECT_EQ(bytes.size() % 24, 1);
        for (int at = 0; at + 24 <= bytes.size(); at += 24) {
            int16_t fields[3];
            std::memcpy(fields, bytes.constData() + at, sizeof fields);
            checkPoint(fields[0], fields[1], fields[2]);
        }
        ++m_wholeAnswers;
        // A clear between the library's check for points and its making of the record gives a record without points.
        const int points = bytes.size() / 24;
        EXPECT_EQ(m_family.Base64Decode(m_type, EBITI_INK, text, nullptr), ARI_SUCCESS);
        EXPECT_EQ(m_family.GetTotalDecodeInkPointsNumber(m_type), points > 0 ? points : ARI_INK_EMPTY);
        EXPECT_EQ(m_family.GetDecodeInkPointData(m_type, points, INKDATATYPE_X),
            points > 0 ? ARI_INVALID_PARAMETERS : ARI_INK_EMPTY);
    }
    m_family.Base64EncodeFree(m_type, text);
}

void EveryCall::receivers()
{
    const auto receiver = m_round % 2 == 0 ? ignoreTap : nullptr;
    EXPECT_EQ(m_family.SignPadEventCallback(m_type, receiver), ARI_SUCCESS);
}

void EveryCall::model()
{
    if (m_type == KVS210_DEVICE)
        livePush();
    if (m_type == KVS310X_DEVICE)
        fingerprint();
}

void EveryCall::livePush()
{
    const int type = m_round % 2 == 0 ? EBITI_JPEG : EBITI_PNG;
    EXPECT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(m_type, type, ignorePush));
    EXPECT_EQ(KVS210_InitialWPSSignCanvas(m_type, 30 + m_round % 7, 20), m_pad.headless);
    checkImage(KVS210_WPSBase64Encode(m_type, EBITI_PNG), KVS210_WPSBase64EncodeFree);
}

void EveryCall::fingerprint()
{
    checkImage(KVS310X_GetFPImageBase64Data(m_type, EBITI_PNG, true), KVS310X_FreeFPImageBase64Data);
    if (m_pad.headless) {
        EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(m_type, nullptr, 60, 40, 5, 5, 20, 30), ARI_SUCCESS);
    }
}
