// One pad, one client at a time, the others in a queue.
#include "bridgerun.h"

namespace {

using BridgeQueue = BridgeTest;

} // namespace

TEST_F(BridgeQueue, OthersHearWhoIsNext)
{
    start();
    const auto first = page(kShop);
    const auto second = page(kBank);
    const auto third = program();
    ASSERT_EQ(first->open(), "");
    const QByteArray wish = R"({"op":"open","id":2,"model":"S300","width":80,"height":45})";
    QJsonObject answer = second->ask(wish);
    EXPECT_EQ(answer["error"], "busy");
    EXPECT_EQ(answer["ahead"], 1);
    EXPECT_EQ(third->ask(wish)["ahead"], 2);
    EXPECT_EQ(second->ask(wish)["ahead"], 1) << "asking again gives no second place";

    first->ask(R"({"op":"close","id":3})");
    second->next("event", "free");
    EXPECT_EQ(third->next("event", "queue")["ahead"], 1);
    EXPECT_EQ(third->errorOf(wish), "busy") << "it is kept for the second";
    EXPECT_EQ(second->errorOf(wish), "");
}

TEST_F(BridgeQueue, WhoGoesMakesRoom)
{
    start();
    auto first = page(kShop);
    const auto second = page(kBank);
    ASSERT_EQ(first->open(), "");
    ASSERT_EQ(second->open(), "busy");
    first.reset(); // in the middle of it
    second->next("event", "free");
    EXPECT_EQ(second->open(), "");
}

TEST_F(BridgeQueue, NothingOfOneSignatureReachesTheNextClient)
{
    setenv("KVSIM_RECORDING", "signature", 1);
    setenv("KVSIM_SPEED", "5", 1);
    setenv("KVSIM_DELAY_MS", "0", 1);
    start();
    auto first = page(kShop);
    const auto second = page(kBank);
    ASSERT_EQ(first->open(), "");
    ASSERT_EQ(second->open(), "busy");
    ASSERT_TRUE(bridgerun::until([&] { return first->points.size() > 20; }));
    setenv("KVSIM_RECORDING", "none", 1);
    first.reset();
    second->next("event", "free");
    ASSERT_EQ(second->open(), "");
    QTest::qWait(200);
    EXPECT_EQ(second->points.size(), 0);
    EXPECT_EQ(second->errorOf(R"({"op":"image","id":2,"kind":"ink"})"), "no-ink");
}

TEST_F(BridgeQueue, AClientWithoutThePadCannotUseIt)
{
    start();
    const auto first = page(kShop);
    const auto second = page(kBank);
    ASSERT_EQ(first->open(), "");
    for (const char *wish : {R"({"op":"clear","id":2})", R"({"op":"image","id":2,"kind":"png"})",
             R"({"op":"pen","id":2,"width":2})", R"({"op":"live","id":2,"on":true})"})
        EXPECT_EQ(second->errorOf(wish), "not-open") << wish;
}
