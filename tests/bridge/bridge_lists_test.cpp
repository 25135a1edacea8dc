// The lists of pages are followed while the bridge runs.
#include "bridgerun.h"

#include <sys/stat.h>

using bridgerun::until;

namespace {

class BridgeLists : public BridgeTest
{
protected:
    void write(const QByteArray &lines) const
    {
        ASSERT_TRUE(QDir().mkpath(folder));
        QFile file(folder + "/new");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(lines);
        file.close();
        chmod(qPrintable(file.fileName()), 0644);
        ASSERT_EQ(std::rename(qPrintable(file.fileName()), qPrintable(folder + "/shop")), 0); // as editors do
    }

    bool comesIn(const char *origin) const
    {
        return until([&] { return page(origin)->isOpen(); });
    }
    bool staysOut(const char *origin) const
    {
        return until([&] { return !page(origin)->isOpen(); });
    }

    const QString folder = qEnvironmentVariable("XDG_CONFIG_HOME") + "/kvsignpad/origins.d";
};

constexpr char kNew[] = "https://new.example";
constexpr char kNewer[] = "https://newer.example";

} // namespace

TEST_F(BridgeLists, ChangesCountAtOnce)
{
    start();
    EXPECT_FALSE(page(kNew)->isOpen());
    write("https://new.example\n"); // there was no folder
    EXPECT_TRUE(comesIn(kNew));
    write("https://newer.example\n");
    EXPECT_TRUE(comesIn(kNewer));
    EXPECT_TRUE(staysOut(kNew));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_TRUE(staysOut(kNewer));
    write("https://new.example\n");
    EXPECT_TRUE(comesIn(kNew));
}

TEST_F(BridgeLists, AConnectionEndsWithItsPlaceOnTheList)
{
    write("https://new.example\nhttps://newer.example\n");
    start();
    const auto taken = page(kNew);
    const auto kept = page(kNewer);
    ASSERT_TRUE(taken->isOpen());
    ASSERT_TRUE(kept->isOpen());
    EXPECT_EQ(taken->open(), "");
    write("https://newer.example\n");
    EXPECT_TRUE(taken->ends());
    EXPECT_EQ(taken->closeCode(), 1008);
    EXPECT_EQ(kept->open(), "") << "the pad is free, and this page may have it";
}
