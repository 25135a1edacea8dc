// Every field of the table in docs/what-you-get.md, on each model.
#include "openpad.h"
#include "outsidecommand.h"
#include "returnedtext.h"

#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

using Table = QMap<QString, QMap<QString, QString>>; ///< the first word, by output and case

QStringList fieldsOf(const QString &line)
{
    QStringList fields = line.mid(1, line.lastIndexOf('|') - 1).split('|');
    for (QString &field : fields)
        field = field.trimmed();
    return fields;
}

Table tableOf(const QString &page)
{
    const QStringList lines = page.split('\n').filter(QRegularExpression("^\\|(?!--)"));
    const QStringList cases = fieldsOf(lines.value(0));
    Table table;
    for (const QString &line : lines.mid(1)) {
        const QStringList fields = fieldsOf(line);
        for (int i = 1; i < fields.size(); ++i)
            table[fields[0]][cases[i]] = fields[i].section(QRegularExpression("[ ,]"), 0, 0);
    }
    return table;
}

/// What a pad answers to each output now, in the page's words.
class Answers
{
public:
    Answers(const Family &pad, const QString &folder)
        : m_pad(pad)
        , m_folder(folder)
    {
    }

    QMap<QString, QString> all() const
    {
        QMap<QString, QString> answers{{"BMP file", file(ITI_BITMAP, "a.bmp")}, {"JPEG file", file(ITI_JPEG, "a.jpg")},
            {"PNG file", file(ITI_PNG, "a.png")}, {"PDF file", file(ITI_PDF, "a.pdf")},
            {"SVG file", file(ITI_SVG, "a.svg")}, {"ink record", base64(EBITI_INK)},
            {"BMP, JPEG or PNG text", base64(EBITI_PNG)},
            {"number of points", QString::number(m_pad.GetTotalInkPointsNumber(m_pad.type))}};
        answers["SVG text"] =
            word(Text(m_pad.type, m_pad.GetSVGImageBase64Data(m_pad.type), m_pad.FreeSVGImageBase64Data));
        answers["time of the first point"] =
            word(Text(m_pad.type, m_pad.GetInkPointDataTimeInfo(m_pad.type, 0), m_pad.FreeInkPointDataTimeInfo));
        for (const int type : {EBITI_BITMAP, EBITI_JPEG})
            EXPECT_EQ(base64(type), answers["BMP, JPEG or PNG text"]) << type;
        return answers;
    }

private:
    QString file(int type, const char *name) const
    {
        std::wstring path = (m_folder + "/" + name).toStdWString();
        const int result = m_pad.SaveDrawingImage(m_pad.type, type, path.data(), IDLI_300DPI);
        const bool isThere = QFile::exists(QString::fromStdWString(path));
        EXPECT_TRUE(isThere == (result == ARI_SUCCESS) || type == ITI_SVG) << name;
        QFile::remove(QString::fromStdWString(path));
        return QString::number(result);
    }

    QString base64(int type) const
    {
        return word(Text(m_pad.type, m_pad.Base64Encode(m_pad.type, type), m_pad.Base64EncodeFree));
    }

    static QString word(const Text &text) { return text.isNull() ? "null" : text.text().isEmpty() ? "empty" : "text"; }

    const Family &m_pad;
    QString m_folder;
};

constexpr int kDown = 0, kMove = 1, kUp = 2;

class WhatYouGet : public testing::TestWithParam<PadCase>
{
protected:
    void expect(const QString &what, const QMap<QString, QString> &answers)
    {
        static const Table table = tableOf(contentOf(KV_SOURCE_DIRECTORY "/docs/what-you-get.md"));
        ASSERT_EQ(table.keys(), answers.keys());
        for (const QString &output : answers.keys())
            EXPECT_EQ(answers[output], table[output][what]) << (output + ": " + what).toStdString();
    }

    /// A place inside of the model's writing area.
    static KVSIM_PACKET at(int x, int status)
    {
        const bool isCoarse = GetParam().family == &kS210Family || GetParam().family == &kS300Family;
        const int middle = isCoarse ? 1000 : 10000;
        return {middle + x, middle - x, status == kUp ? 0 : 600, status};
    }

    Answers answers(const char *folder = "") const { return {*GetParam().family, m_place.path() + folder}; }

private:
    QTemporaryDir m_place;
};

TEST_P(WhatYouGet, IsWhatThePageSays)
{
    {
        const OpenPad pad(GetParam());
        ASSERT_TRUE(pad.isOpen());
        expect("nothing written", answers().all());
    }
    {
        OpenPad pad(GetParam());
        pad.driver.send({at(0, kDown), at(0, kUp)});
        expect("a single tap", answers().all());
        pad->SetSaveClipImageMargin(pad.type(), true, 20, 20);
        expect("a single tap, clipped", answers().all());
    }
    {
        OpenPad pad(GetParam());
        pad.driver.send({at(0, kDown), at(60, kMove), at(120, kMove), at(120, kUp)});
        expect("a stroke, path not writable", answers("/no/such/folder").all());
    }
    expect("closed", answers().all());
}

INSTANTIATE_TEST_SUITE_P(Pads, WhatYouGet, testing::ValuesIn([] {
    std::vector<PadCase> headless;
    for (const PadCase &pad : allPads()) {
        if (pad.headless)
            headless.push_back(pad);
    }
    return headless;
}()),
    padCaseName);

} // namespace
