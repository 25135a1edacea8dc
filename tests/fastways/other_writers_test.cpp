// With a Qt whose writers make other files than the faster ways do, the outputs are that Qt's.
#include "returnedtext.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QRegularExpression>

#include <dlfcn.h>
#include <mutex>

namespace {

constexpr char kMark[] = "written by the other Qt";
constexpr int kWider = 7;
constexpr int kLevel = 3; // of the pen's width

// Qt's own function, which this program's function of the same name hides from the library too.
template <class Function>
Function hidden(const char *symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

} // namespace

bool QImage::save(QIODevice *device, const char *format, int quality) const
{
    static const auto save =
        hidden<bool (*)(const QImage *, QIODevice *, const char *, int)>("_ZNK6QImage4saveEP9QIODevicePKci");
    return save(this, device, format, quality) && device->write(kMark) > 0;
}

void QPainter::setPen(const QPen &pen)
{
    static const auto setPen = hidden<void (*)(QPainter *, const QPen &)>("_ZN8QPainter6setPenERK4QPen");
    QPen wider = pen;
    if (paintEngine()->type() == QPaintEngine::SVG)
        wider.setWidthF(pen.widthF() * kWider);
    setPen(this, wider);
}

namespace {

class OtherWriters : public testing::TestWithParam<PadCase>
{
protected:
    OtherWriters()
    {
        pad->SetPenStyle(pad.type(), false);
        pad->SetPenWidth(pad.type(), kLevel);
        pad.driver.send(manySegments());
    }

    /// More than are written in the plain way anyhow.
    std::vector<KVSIM_PACKET> manySegments() const
    {
        std::vector<Share> shares;
        for (int i = 0; i < 100; ++i)
            shares.push_back({0.1 + 0.008 * i, 0.5 + 0.003 * (i % 40), 0.5});
        return stroke(pad.type(), shares);
    }

    OpenPad pad{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Pads, OtherWriters, testing::ValuesIn(allPads()), padCaseName);

TEST_P(OtherWriters, MakeTheImageTexts)
{
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG}) {
        EXPECT_TRUE(textOf(pad, type).bytes().endsWith(kMark)) << type;
        EXPECT_TRUE(exTextOf(pad, type, true).bytes().endsWith(kMark)) << type;
    }
}

TEST_P(OtherWriters, MakeTheSvgText)
{
    const QString svg = QString::fromUtf8(svgTextOf(pad).bytes());
    const auto count = [&](int strokeWidth) { return svg.count(QString("stroke-width=\"%1\"").arg(strokeWidth)); };
    EXPECT_GE(count(kLevel * kWider), 99);
    EXPECT_EQ(count(kLevel), 0);
}

std::mutex lock;
std::vector<QByteArray> pushed;

TEST(OtherWritersOfALivePush, MakeItsImages)
{
    for (const int type : {EBITI_JPEG, EBITI_PNG}) {
        OpenPad pad(PadCase{&kS210Family, true});
        KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, type, [](char *text) {
            const std::lock_guard<std::mutex> locked(lock);
            pushed.emplace_back(text);
        });
        pad.driver.send(twoStrokes(KVS210_DEVICE));
        const std::lock_guard<std::mutex> locked(lock);
        EXPECT_GE(pushed.size(), 5U);
        for (const QByteArray &text : pushed)
            EXPECT_TRUE(QByteArray::fromBase64(text).endsWith(kMark));
        pushed.clear();
    }
}

} // namespace
