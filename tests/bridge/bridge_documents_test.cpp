// What the security officer reads names the tests that show it: they are there.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

QString contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString allTests()
{
    const QDir folder(KV_SOURCE_DIRECTORY "/tests/bridge");
    QString sources;
    for (const QString &name : folder.entryList({"*_test.cpp"}))
        sources += contentOf(folder.filePath(name));
    return sources;
}

} // namespace

TEST(BridgeDocuments, EachTestThatTheyNameIsThere)
{
    const QString tests = allTests();
    const QString pages = contentOf(KV_SOURCE_DIRECTORY "/web/tests/chromium.mjs");
    const QString document = contentOf(KV_SOURCE_DIRECTORY "/docs/bridge-security.md");
    int named = 0;
    auto each = QRegularExpression("`(Bridge[A-Za-z]+)\\.([A-Za-z0-9]+)`").globalMatch(document);
    for (; each.hasNext(); ++named) {
        const QRegularExpressionMatch test = each.next();
        EXPECT_TRUE(tests.contains(
            QRegularExpression(QStringLiteral("TEST(_[FP])?\\(%1, %2\\)").arg(test.captured(1), test.captured(2)))))
            << test.captured(0).toStdString();
    }
    auto quoted = QRegularExpression("web/check: \"([^\"]+)\"").globalMatch(document);
    for (; quoted.hasNext(); ++named) {
        const QString name = quoted.next().captured(1);
        EXPECT_TRUE(pages.contains("async \"" + name + "\"()")) << name.toStdString();
    }
    auto scripted = QRegularExpression("(two_users|under_systemd): \"([^\"]+)\"").globalMatch(document);
    for (; scripted.hasNext(); ++named) {
        const QRegularExpressionMatch test = scripted.next();
        EXPECT_TRUE(contentOf(KV_SOURCE_DIRECTORY "/tests/bridge/" + test.captured(1))
                        .contains("expect \"" + test.captured(2) + '"'))
            << test.captured(0).toStdString();
    }
    EXPECT_GT(named, 35);
}

TEST(BridgeDocuments, EachRowOfTheSecurityPageNamesATest)
{
    for (const QString &line : contentOf(KV_SOURCE_DIRECTORY "/docs/bridge-security.md").split('\n')) {
        const QStringList cells = line.split(" | ");
        if (!line.startsWith("| ") || cells.size() != 2 || cells[0].simplified() == "|")
            continue;
        EXPECT_TRUE(cells[1].contains(QRegularExpression("Bridge|web/check|two_users|under_systemd")))
            << line.toStdString();
    }
}
