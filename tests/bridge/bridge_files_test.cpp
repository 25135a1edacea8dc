// Files that decide who may come in: lists of origins, the token, the consents.
#include "bridge.h"
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
             "https://shop.example:65536", "https://user@shop.example", "https://shop.example.",
             "https://b\xe4nk.example", "https://b\xc3\xa4nk.example", "https://shop.example\xe2\x80\xae",
             "https://shop.example https://other.example", "ftp://shop.example", "file://", "https://shop..example",
             "https://-shop.example", "https://shop.example\n", "chrome://version"})
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

TEST(BridgeFiles, AListThatOthersCanReplaceIsPassedOver)
{
    const QTemporaryDir folder;
    chmod(qPrintable(folder.path()), 0755);
    ASSERT_TRUE(QDir(folder.path()).mkpath("open/origins.d"));
    ASSERT_TRUE(QDir(folder.path()).mkpath("closed/origins.d"));
    write(folder.filePath("open/origins.d/shop"), "https://evil.example\n");
    chmod(qPrintable(folder.filePath("open/origins.d")), 0755);
    chmod(qPrintable(folder.filePath("open")), 0777);
    EXPECT_TRUE(bridge::readOrigins({folder.filePath("open/origins.d")}).origins.isEmpty());
    // Nor by a link, of a list or of the folder.
    ASSERT_TRUE(QFile::link(folder.filePath("open/origins.d/shop"), folder.filePath("closed/origins.d/shop")));
    ASSERT_TRUE(QFile::link(folder.filePath("open/origins.d"), folder.filePath("closed/linked.d")));
    EXPECT_TRUE(bridge::readOrigins({folder.filePath("closed/origins.d")}).origins.isEmpty());
    const bridge::OriginLists linked = bridge::readOrigins({folder.filePath("closed/linked.d")});
    EXPECT_TRUE(linked.origins.isEmpty());
    ASSERT_EQ(linked.complaints.size(), 1);
    EXPECT_TRUE(linked.complaints[0].contains("chmod o-w")) << linked.complaints[0].toStdString();
}

TEST(BridgeFiles, AConfigurationThatOthersCanWriteIsPassedOver)
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
    ASSERT_TRUE(QDir(folder.path()).mkpath("kvsignpad"));
    const QString path = folder.filePath("kvsignpad/bridge.conf");
    write(path, "driver=/opt/pad\n");
    EXPECT_EQ(bridge::readSettings({"kv-sign-bridge"}).driver, "/opt/pad");
    chmod(qPrintable(path), 0666);
    EXPECT_EQ(bridge::readSettings({"kv-sign-bridge"}).driver, "");
    qunsetenv("XDG_CONFIG_HOME");
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

TEST(BridgeFiles, ConsentsThatOthersCanWriteCountForNothing)
{
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments); // for the watcher
    const QTemporaryDir folder;
    const QString path = folder.filePath("consents");
    write(path, "https://shop.example\n");
    EXPECT_TRUE(bridge::Consents(path).has("https://shop.example"));
    chmod(qPrintable(path), 0622);
    EXPECT_FALSE(bridge::Consents(path).has("https://shop.example"));
    chmod(qPrintable(path), 0600);
    chmod(qPrintable(folder.path()), 0777);
    bridge::Consents open(path);
    EXPECT_FALSE(open.has("https://shop.example"));
    EXPECT_FALSE(open.add("https://bank.example")) << "it would be forgotten";
    chmod(qPrintable(folder.path()), 0700);
}
