// Files that decide who may come in: lists of origins, the token, the consents.
#include "consents.h"
#include "origins.h"
#include "tokenfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    chmod(qPrintable(path), 0644);
}

unsigned modeOf(const QString &path)
{
    struct stat status
    {
    };
    EXPECT_EQ(stat(qPrintable(path), &status), 0);
    return status.st_mode & 07777;
}

} // namespace

TEST(BridgeFiles, AnOriginIsASchemeAHostAndPerhapsAPort)
{
    for (const char *good : {"https://shop.example", "http://127.0.0.1:8080", "https://a.b-c.example:8443",
             "http://[::1]:8080", "http://localhost:3000"})
        EXPECT_EQ(bridge::checkedOrigin(good), good);
    EXPECT_EQ(bridge::checkedOrigin("https://Shop.Example"), "https://shop.example");
    for (const char *bad : {"", "*", "null", "shop.example", "https://", "https://shop.example/", "https://*.example",
             "https://shop.example:443", "http://shop.example:80", "https://shop.example:0",
             "https://shop.example:65536", "https://user@shop.example", "https://shop.example https://other.example",
             "ftp://shop.example", "file://", "https://shop..example", "https://-shop.example",
             "https://shop.example\n", "chrome://version"})
        EXPECT_EQ(bridge::checkedOrigin(bad), "") << bad;
}

TEST(BridgeFiles, EveryFileOfAFolderIsAList)
{
    const QTemporaryDir folder;
    chmod(qPrintable(folder.path()), 0755);
    write(folder.filePath("bank"), "# ours\nhttps://bank.example # the counter\n\nhttps://other.example\n");
    write(folder.filePath("shop.conf"), "https://shop.example\nnonsense\n");
    write(folder.filePath("shop.conf~"), "https://old.example\n");
    const bridge::OriginLists lists = bridge::readOrigins({folder.path(), "/not/there"});
    const QSet<QByteArray> expected{"https://bank.example", "https://other.example", "https://shop.example"};
    EXPECT_EQ(lists.origins, expected);
    ASSERT_EQ(lists.complaints.size(), 1);
    EXPECT_EQ(lists.complaints[0], folder.filePath("shop.conf:2") + " is no origin, such as https://shop.example");
}

TEST(BridgeFiles, AListThatOthersCanWriteIsPassedOver)
{
    const QTemporaryDir folder;
    chmod(qPrintable(folder.path()), 0755);
    write(folder.filePath("safe"), "https://shop.example\n");
    write(folder.filePath("unsafe"), "https://evil.example\n");
    chmod(qPrintable(folder.filePath("unsafe")), 0666);
    EXPECT_EQ(bridge::readOrigins({folder.path()}).origins, QSet<QByteArray>{"https://shop.example"});
    chmod(qPrintable(folder.path()), 0777);
    EXPECT_TRUE(bridge::readOrigins({folder.path()}).origins.isEmpty());
    chmod(qPrintable(folder.path()), 0700);
}

TEST(BridgeFiles, TheTokenIs128BitsInAFileOfTheUsersOwn)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("private/bridge.token");
    const std::optional<QByteArray> one = bridge::newToken(path);
    ASSERT_TRUE(one.has_value());
    EXPECT_EQ(QByteArray::fromHex(*one).size(), 16);
    EXPECT_EQ(QByteArray::fromHex(*one).toHex(), *one);
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(folder.filePath("private")), 0700U);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), *one + '\n');
    EXPECT_NE(bridge::newToken(path), one);
}

TEST(BridgeFiles, NoTokenIsLeftWhereOthersCanReach)
{
    const QTemporaryDir folder;
    chmod(qPrintable(folder.path()), 0755);
    EXPECT_EQ(bridge::newToken(folder.filePath("bridge.token")), std::nullopt);
    chmod(qPrintable(folder.path()), 0700);
    EXPECT_NE(bridge::newToken(folder.filePath("bridge.token")), std::nullopt);
    // Somebody's link to another file is replaced, not followed.
    write(folder.filePath("victim"), "as it was");
    ASSERT_TRUE(QFile::link(folder.filePath("victim"), folder.filePath("link.token")));
    EXPECT_NE(bridge::newToken(folder.filePath("link.token")), std::nullopt);
    QFile victim(folder.filePath("victim"));
    ASSERT_TRUE(victim.open(QIODevice::ReadOnly));
    EXPECT_EQ(victim.readAll(), "as it was");
}

TEST(BridgeFiles, ConsentsAreKeptAndTakenBack)
{
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments); // for the watcher
    const QTemporaryDir folder;
    const QString path = folder.filePath("kvsignpad/consents");
    bridge::Consents here(path);
    EXPECT_FALSE(here.has("https://shop.example"));
    EXPECT_TRUE(here.add("https://shop.example"));
    EXPECT_TRUE(here.add("https://bank.example"));
    EXPECT_EQ(modeOf(path), 0600U);
    bridge::Consents there(path);
    EXPECT_EQ(there.all(), (QByteArrayList{"https://bank.example", "https://shop.example"}));
    QByteArray told;
    QObject::connect(&there, &bridge::Consents::revoked, [&](const QByteArray &origin) { told = origin; });
    EXPECT_TRUE(there.revoke("https://shop.example"));
    EXPECT_FALSE(there.revoke("https://shop.example"));
    EXPECT_EQ(told, "https://shop.example");
    EXPECT_EQ(bridge::Consents(path).all(), QByteArrayList{"https://bank.example"});
}
