// Signing through the bridge, on every model: what the page gets is what the library has.
#include "bridgerun.h"

#include <QImage>

#include <cstring>

using bridgerun::Talker;
using bridgerun::until;

namespace {

class BridgeSigning : public BridgeTest, public testing::WithParamInterface<const char *>
{
protected:
    /// Opens the model and lets the simulated pen sign.
    std::unique_ptr<Talker> signedBy(const char *model)
    {
        setenv("KVSIM_RECORDING", "signature", 1);
        start();
        auto client = page();
        EXPECT_EQ(client->open(model), "");
        EXPECT_EQ(client->next("event", "tap")["key"], "confirm");
        return client;
    }
};

/// The points of an ink record, read by its documented layout.
QJsonArray pointsOf(const QByteArray &record)
{
    QJsonArray points;
    for (int at = 0; at + 24 <= record.size(); at += 24) {
        qint16 values[3];
        std::memcpy(values, record.constData() + at, sizeof values);
        points.append(QJsonArray{values[0], values[1], values[2], record.at(at + 6) != 0 ? 1 : 0});
    }
    return points;
}

} // namespace

TEST_P(BridgeSigning, EveryPointArrivesInOrder)
{
    const auto client = signedBy(GetParam());
    const QJsonArray expected = pointsOf(client->image("ink"));
    ASSERT_GT(expected.size(), 100);
    ASSERT_EQ(client->points.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QJsonArray got = client->points[i].toArray();
        EXPECT_EQ((QJsonArray{got[0], got[1], got[2], got[4]}), expected[i].toArray()) << i;
    }
}

TEST_P(BridgeSigning, TheTimesAreThoseOfTheInk)
{
    const auto client = signedBy(GetParam());
    const QByteArray record = client->image("ink");
    quint64 first = 0;
    std::memcpy(&first, record.constData() + 8, sizeof first);
    const int zero = client->points[0].toArray()[3].toInt();
    EXPECT_GE(zero, 0);
    for (int i = 0; i < client->points.size(); ++i) {
        quint64 stored = 0;
        std::memcpy(&stored, record.constData() + 24 * i + 8, sizeof stored);
        EXPECT_EQ(client->points[i].toArray()[3].toInt() - zero, static_cast<int>(stored - first)) << i;
    }
}

TEST_P(BridgeSigning, EveryPictureIsOfItsKind)
{
    const auto client = signedBy(GetParam());
    const QImage png = QImage::fromData(client->image("png"), "PNG");
    EXPECT_EQ(png.size(), QSize(800, 452));
    EXPECT_EQ(QImage::fromData(client->image("jpeg"), "JPEG").size(), QSize(800, 452));
    EXPECT_EQ(QImage::fromData(client->image("bmp"), "BMP").size(), QSize(800, 452));
    EXPECT_TRUE(client->image("pdf").startsWith("%PDF-"));
    EXPECT_TRUE(client->image("svg").contains("</svg>"));
    EXPECT_FALSE(QFile::exists("/tmp/KVeSign.svg")) << "the library's shared file is not used";
}

TEST_P(BridgeSigning, APictureCanBeCutToTheInk)
{
    const auto client = signedBy(GetParam());
    client->say(R"({"op":"image","id":2,"kind":"png","marginX":3,"marginY":0})");
    ASSERT_TRUE(client->next("id", 2)["ok"].toBool());
    const QImage cut = QImage::fromData(client->frame(2), "PNG");
    EXPECT_LT(cut.width(), 800);
    EXPECT_LT(cut.height(), 452);
    EXPECT_EQ(QImage::fromData(client->image("png"), "PNG").size(), QSize(800, 452)) << "the next is whole again";
}

TEST_P(BridgeSigning, TheAreaSaysWhereAPointIsOnTheCanvas)
{
    setenv("KVSIM_RECORDING", "signature", 1);
    start();
    const auto client = page();
    const QJsonObject area =
        client
            ->ask(QStringLiteral(R"({"op":"open","id":1,"model":"%1","width":800,"height":452,"penWidth":6})")
                      .arg(QLatin1String(GetParam()))
                      .toUtf8())["area"]
            .toObject();
    client->next("event", "tap");
    const QImage png = QImage::fromData(client->image("png"), "PNG");
    int marked = 0;
    int moves = 0;
    for (int i = 1; i < client->points.size(); ++i) {
        const QJsonArray point = client->points[i].toArray();
        // Where the pen pressed, there is ink.
        const double width = point[2].toInt() * 6 * area["perPressure"].toDouble();
        if (client->points[i - 1].toArray()[4].toInt() == 1 || point[4].toInt() == 1 || width < 3)
            continue;
        const int x = static_cast<int>((point[0].toInt() - area["left"].toInt()) * 800.0 / area["width"].toInt());
        const int y = static_cast<int>((point[1].toInt() - area["top"].toInt()) * 452.0 / area["height"].toInt());
        ++moves;
        marked += qAlpha(png.pixel(x, y)) > 128 ? 1 : 0;
    }
    EXPECT_GT(moves, 50);
    EXPECT_EQ(marked, moves);
}

INSTANTIATE_TEST_SUITE_P(Models, BridgeSigning, testing::Values("S210", "S300", "S310X", "R800", "M450"),
    [](const auto &each) { return std::string(each.param); });

TEST_F(BridgeSigning, NothingWrittenIsNoPicture)
{
    start();
    const auto client = page();
    ASSERT_EQ(client->open(), "");
    for (const char *kind : {"ink", "svg"})
        EXPECT_EQ(client->errorOf(QStringLiteral(R"({"op":"image","id":2,"kind":"%1"})").arg(kind).toUtf8()), "no-ink")
            << kind;
    EXPECT_EQ(client->open(), "already-open");
}

TEST_F(BridgeSigning, WhatWasAskedBeforeClosingIsAnswered)
{
    const auto client = signedBy("S300");
    client->say(R"({"op":"image","id":20,"kind":"pdf"})");
    client->say(R"({"op":"image","id":21,"kind":"png"})");
    client->say(R"({"op":"close","id":22})");
    EXPECT_TRUE(client->next("id", 20)["ok"].toBool());
    EXPECT_TRUE(client->next("id", 21)["ok"].toBool());
    EXPECT_TRUE(client->next("id", 22)["ok"].toBool());
    client->say(R"({"op":"open","id":23,"model":"S300","width":80,"height":45})");
    client->say(R"({"op":"close","id":24})");
    EXPECT_EQ(client->next("id", 23)["error"], "not-open");
    EXPECT_TRUE(client->next("id", 24)["ok"].toBool());
}

TEST_F(BridgeSigning, NothingOfTheSignatureIsKept)
{
    const auto client = signedBy("S300");
    for (const char *kind : {"png", "svg", "pdf", "ink"})
        EXPECT_GT(client->image(kind).size(), 1000) << kind;
    const QString token = QStringLiteral("kvsignpad/bridge-%1.token").arg(running->port());
    EXPECT_EQ(files(), QStringList{token});
    client->ask(R"({"op":"close","id":3})");
    running.reset();
    EXPECT_EQ(files(), QStringList{});
}

TEST_F(BridgeSigning, ClearBeginsAnew)
{
    const auto client = signedBy("S300");
    EXPECT_EQ(client->errorOf(R"({"op":"clear","id":3})"), "");
    EXPECT_EQ(client->errorOf(R"({"op":"image","id":4,"kind":"ink"})"), "no-ink");
}

TEST_F(BridgeSigning, ThePenIsSet)
{
    setenv("KVSIM_RECORDING", "signature", 1);
    setenv("KVSIM_DELAY_MS", "300", 1);
    start();
    const auto client = page();
    ASSERT_EQ(client->open(), "");
    EXPECT_EQ(client->errorOf(R"({"op":"pen","id":2,"width":5,"color":"#ff0000","pressure":false})"), "");
    client->next("event", "tap");
    const QImage png = QImage::fromData(client->image("png"), "PNG").convertToFormat(QImage::Format_ARGB32);
    int red = 0;
    for (int y = 0; y < png.height(); ++y)
        for (int x = 0; x < png.width(); ++x)
            red += png.pixel(x, y) == qRgb(255, 0, 0) ? 1 : 0;
    EXPECT_GT(red, 500);
}

TEST_F(BridgeSigning, TheLivePushIsForTheS210)
{
    setenv("KVSIM_RECORDING", "signature", 1);
    setenv("KVSIM_SPEED", "2", 1);
    start();
    const auto client = page();
    ASSERT_EQ(client->open("S210"), "");
    EXPECT_EQ(client->errorOf(R"({"op":"live","id":2,"on":true,"kind":"jpeg"})"), "");
    const QJsonObject event = client->next("event", "live");
    EXPECT_EQ(event["type"], "image/jpeg");
    const QByteArray picture = client->frame(0);
    EXPECT_EQ(picture.size(), event["bytes"].toInt());
    EXPECT_EQ(QImage::fromData(picture, "JPEG").size(), QSize(800, 452));
    EXPECT_EQ(client->errorOf(R"({"op":"close","id":3})"), "");
    ASSERT_EQ(client->open("S300"), "");
    EXPECT_EQ(client->errorOf(R"({"op":"live","id":4,"on":true})"), "not-supported");
}

TEST_F(BridgeSigning, AFingerprintGetsItsPlace)
{
    setenv("KVSIM_RECORDING", "signature-finger", 1);
    start();
    const auto client = page();
    ASSERT_EQ(client->open("S310X"), "");
    EXPECT_EQ(
        client->errorOf(
            R"({"op":"fingerprint","id":2,"left":10,"top":10,"width":104,"height":144,"canvasWidth":200,"canvasHeight":200})"),
        "");
    EXPECT_EQ(QImage::fromData(client->image("fingerprint"), "PNG").size(), QSize(104, 144));
    EXPECT_EQ(
        client->errorOf(
            R"({"op":"fingerprint","id":3,"left":150,"top":10,"width":104,"height":144,"canvasWidth":200,"canvasHeight":200})"),
        "bad-message");
    client->ask(R"({"op":"close","id":4})");
    ASSERT_EQ(client->open("S300"), "");
    EXPECT_EQ(client->errorOf(R"({"op":"image","id":5,"kind":"fingerprint"})"), "not-supported");
}

TEST_F(BridgeSigning, APageThatDoesNotReadGetsFewerLargerBatches)
{
    setenv("KVSIM_RECORDING", "signature", 1);
    setenv("KVSIM_REPEAT", "3", 1);
    setenv("KVSIM_DELAY_MS", "0", 1);
    start();
    const auto client = page();
    ASSERT_EQ(client->open(), "");
    for (int i = 0; i < 3; ++i)
        client->next("event", "tap");
    unsetenv("KVSIM_REPEAT");
    const int stored = client->image("ink").size() / 24;
    EXPECT_EQ(client->points.size(), stored);
    EXPECT_LT(client->batches, stored / 10) << "as fast as the driver sends, not a message a point";
}
