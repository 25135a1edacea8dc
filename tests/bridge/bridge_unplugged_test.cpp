// A pad that goes and comes back, a driver that is not there.
#include "bridgerun.h"

using bridgerun::until;

namespace {

using BridgeUnplugged = BridgeTest;

} // namespace

TEST_F(BridgeUnplugged, ALostPadIsToldLookedForAndOpenedAgain)
{
    start();
    SimulatedDriver driver;
    const auto client = page();
    ASSERT_EQ(client->open(), "");
    const std::vector<KVSIM_PACKET> stroke = {
        {600, 600, 900, 0}, {700, 700, 900, 1}, {800, 650, 900, 1}, {800, 650, 0, 2}};
    driver.send(stroke);
    ASSERT_TRUE(until([&] { return client->points.size() == 4; }));

    driver.setResult("GetDevicePartsVersion", KVSPDARI_FAILED);
    driver.setResult("Initial", KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    client->next("event", "lost");
    EXPECT_EQ(client->errorOf(R"({"op":"image","id":2,"kind":"png"})"), "lost");

    driver.setResult("GetDevicePartsVersion", KVSPDARI_SUCCESS);
    driver.setResult("Initial", KVSPDARI_SUCCESS);
    EXPECT_EQ(client->next("event", "found")["kept"], false);
    driver.send(stroke);
    EXPECT_TRUE(until([&] { return client->points.size() == 8; })) << "the page goes on where it was";
}

TEST_F(BridgeUnplugged, APadThatIsNotThereIsNamed)
{
    start();
    SimulatedDriver driver;
    driver.setResult("Initial", KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    const auto client = page();
    EXPECT_EQ(client->open(), "no-pad");
    driver.setResult("Initial", KVSPDARI_SUCCESS);
    EXPECT_EQ(client->open(), "");
}

TEST_F(BridgeUnplugged, ADriverThatOthersCanWriteIsNotLoaded)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QFile::copy("libkvsignpaddrv.so", folder.filePath("libkvsignpaddrv.so")));
    QFile::setPermissions(folder.filePath("libkvsignpaddrv.so"),
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::WriteOther);
    settings.driver = folder.path();
    settings.allowsUnsafeDriver = false;
    start();
    EXPECT_EQ(page()->open(), "no-driver");
}
