// A thousand conversations of chance, two hundred in a quick build or under a sanitizer: whatever is said, every answer
// is one of the protocol's, and the bridge goes on.
#include "bridgerun.h"

#include <random>

namespace {

using BridgeRandom = BridgeTest;
using Chance = std::mt19937;

#if defined KV_SANITIZED || defined KV_QUICK
constexpr int kConversations = 200;
#else
constexpr int kConversations = 1000;
#endif

int below(Chance &chance, int count)
{
    return static_cast<int>(chance() % static_cast<unsigned>(count));
}

/// A message that is good, nearly good, or nothing of the kind.
QByteArray someMessage(Chance &chance, int id)
{
    static const QByteArray kBodies[] = {R"("op":"open","model":"S300","width":80,"height":45)",
        R"("op":"open","model":"S210","width":60,"height":40,"penWidth":2)",
        R"("op":"open","model":"S310X","width":100,"height":50)", R"("op":"clear")",
        R"("op":"pen","width":7,"color":"#123456")", R"("op":"pen","pressure":false)", R"("op":"image","kind":"png")",
        R"("op":"image","kind":"ink")", R"("op":"image","kind":"svg")", R"("op":"live","on":true)",
        R"("op":"live","on":false)", R"("op":"close")", R"("op":"open","model":"S300","width":-1,"height":45)",
        R"("op":"fingerprint","left":0,"top":0,"width":5,"height":5,"canvasWidth":9,"canvasHeight":9)",
        R"("op":"image","kind":"png","marginX":5)", R"("op":"nothing")", R"("op":7)"};
    QByteArray text = R"({"id":)" + QByteArray::number(id) + ',' + kBodies[below(chance, std::size(kBodies))] + '}';
    if (below(chance, 5) == 0)
        text[below(chance, text.size())] = static_cast<char>(' ' + below(chance, 95));
    if (below(chance, 20) == 0)
        text.truncate(below(chance, text.size()));
    return text;
}

bool isKnownError(const QString &error)
{
    static const QStringList kKnown{"bad-message", "busy", "denied", "no-pad", "no-driver", "lost", "not-open",
        "already-open", "not-supported", "no-ink", "failed", "too-many"};
    return kKnown.contains(error);
}

} // namespace

TEST_F(BridgeRandom, Conversations)
{
    setenv("KVSIM_RECORDING", "initials", 1);
    talk.messagesPerSecond = 100000;
    start();
    Chance chance(20261122);
    for (int i = 0; i < kConversations; ++i) {
        bridgerun::Talker client(running->port(), below(chance, 2) == 0 ? kShop : kBank);
        ASSERT_TRUE(client.isOpen()) << i;
        const int count = below(chance, 8);
        for (int id = 1; id <= count; ++id)
            client.say(someMessage(chance, id));
        if (below(chance, 10) == 0) {
            client.socket().sendBinaryMessage("x");
            EXPECT_TRUE(client.ends()) << i;
            continue;
        }
        if (below(chance, 3) == 0)
            continue; // gone without a word
        client.say(R"({"op":"close","id":4444})");
        for (QJsonObject answer = client.next("id"); answer["id"] != 4444; answer = client.next("id")) {
            ASSERT_FALSE(answer.isEmpty()) << i;
            EXPECT_TRUE(answer["ok"].toBool() || isKnownError(answer["error"].toString())) << i;
        }
    }
    ASSERT_TRUE(bridgerun::until([this] { return running->conversations() == 0; }));
    EXPECT_EQ(page()->open(), "");
}
