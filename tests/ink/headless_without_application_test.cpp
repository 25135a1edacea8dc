// A process without any application object gets the same outputs as one with a QApplication, byte for byte.
#include "outsideprogram.h"
#include "savedfiles.h"

#include <QImage>
#include <QRegularExpression>

namespace {

// What an output is compared by. A PDF names its date. SVG names the application's font, of which nothing is drawn.
QByteArray comparable(const std::string &name, const QByteArray &bytes)
{
    const bool isSvgText = name.find("-svg.txt") != std::string::npos;
    const QByteArray content = isSvgText ? QByteArray::fromBase64(bytes) : bytes;
    QString text = QLatin1String(content.constData(), content.size());
    text.remove(QRegularExpression("D:\\d{14}[^)]*\\)"));
    if (isSvgText || name.find(".svg") != std::string::npos)
        text.remove(QRegularExpression("font-family=\"[^\"]*\" font-size=\"[^\"]*\""));
    return text.toLatin1();
}

QImage picture(const SavedFiles &files, const QString &svg)
{
    outputOf("rsvg-convert", {"-b", "white", "-o", files.path("drawn.png"), files.path(svg)});
    return QImage(files.path("drawn.png"));
}

TEST(HeadlessWithoutApplication, GivesTheSameOutputs)
{
    const SavedFiles with;
    const SavedFiles without;
    outputOf(KV_SAVE_EVERYTHING, {"with", with.path("")});
    outputOf(KV_SAVE_EVERYTHING, {"without", without.path("")});
    // Five models, whole and clipped, five files and four texts.
    const std::vector<std::string> names = with.names();
    EXPECT_EQ(names.size(), 5u * 2 * (5 + 4));
    EXPECT_EQ(without.names(), names);
    for (const std::string &name : names) {
        const QString file = QString::fromStdString(name);
        const QByteArray bytes = with.bytes(file);
        EXPECT_GT(bytes.size(), 200) << name;
        EXPECT_TRUE(comparable(name, bytes) == comparable(name, without.bytes(file))) << name;
        if (file.endsWith(".svg")) {
            EXPECT_EQ(picture(with, file), picture(without, file)) << name;
        }
    }
}

} // namespace
