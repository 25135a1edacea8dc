// What a client may say, message by message, as the protocol's page says it.
#include "messagereader.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <cstring>

namespace {

const char *const kGood[] = {
    R"({"op":"open","id":1,"model":"S300","width":800,"height":452})",
    R"({"op":"open","id":2147483647,"model":"M450","width":1,"height":4096,"penWidth":10,"penColor":"#00ff9a","penPressure":false})",
    R"({"op":"pen","id":3})",
    R"({"op":"pen","id":3,"width":1,"color":"#000000","pressure":true})",
    R"({"op":"clear","id":4})",
    R"({"op":"image","id":5,"kind":"fingerprint","transparent":false,"dpi":150,"marginX":0,"marginY":4096})",
    R"({"op":"live","id":6,"on":true,"kind":"jpeg"})",
    R"({"op":"fingerprint","id":7,"left":0,"top":4095,"width":1,"height":1,"canvasWidth":300,"canvasHeight":200})",
    R"( {"id":8.0, "op":"close"} )",
};

const char *const kBad[] = {
    "",
    "x",
    "[]",
    "{}",
    "null",
    R"("open")",
    R"({"op":"open","id":1,"model":"S300","width":800})",
    R"({"op":"open","id":1,"model":"S301","width":800,"height":452})",
    R"({"op":"open","id":1,"model":"s300","width":800,"height":452})",
    R"({"op":"open","id":1,"model":"S300","width":0,"height":452})",
    R"({"op":"open","id":1,"model":"S300","width":4097,"height":452})",
    R"({"op":"open","id":1,"model":"S300","width":800.5,"height":452})",
    R"({"op":"open","id":1,"model":"S300","width":"800","height":452})",
    R"({"op":"open","id":1,"model":"S300","width":1e300,"height":452})",
    R"({"op":"open","id":1,"model":"S300","width":800,"height":452,"driver":"/tmp"})",
    R"({"op":"open","id":1,"model":"S300","width":800,"height":452,"penColor":"#00FF00"})",
    R"({"op":"open","id":1,"model":"S300","width":800,"height":452,"penColor":"red"})",
    R"({"op":"open","id":1,"model":"S300","width":800,"height":452,"penPressure":1})",
    R"({"op":"open","id":0,"model":"S300","width":800,"height":452})",
    R"({"op":"open","model":"S300","width":800,"height":452})",
    R"({"op":"Open","id":1,"model":"S300","width":800,"height":452})",
    R"({"op":"pen","id":3,"width":0})",
    R"({"op":"pen","id":3,"width":11})",
    R"({"op":"pen","id":3,"width":null})",
    R"({"op":"image","id":5,"kind":"gif"})",
    R"({"op":"image","id":5,"kind":"png","path":"/etc/passwd"})",
    R"({"op":"image","id":5,"kind":"png","dpi":200})",
    R"({"op":"image","id":5,"kind":"png|jpeg"})",
    R"({"op":"image","id":5,"kind":""})",
    R"({"op":"live","id":6})",
    R"({"op":"fingerprint","id":7,"left":-1,"top":0,"width":1,"height":1,"canvasWidth":3,"canvasHeight":2})",
    R"({"op":"close","id":8,"op2":1})",
    R"({"op":"close","id":8)",
    R"({"op":{"op":"close"},"id":8})",
    R"({"op":"shutdown","id":8})",
};

} // namespace

TEST(BridgeMessages, TakesWhatTheProtocolAllows)
{
    for (const char *text : kGood) {
        const bridge::ReadMessage message = bridge::readMessage(text);
        ASSERT_TRUE(message.request.has_value()) << text << ": " << message.wrong;
        const QJsonObject object = QJsonDocument::fromJson(text).object();
        EXPECT_EQ(message.request->id, object["id"].toInt());
        EXPECT_EQ(message.request->op, object["op"].toString());
    }
}

TEST(BridgeMessages, RefusesEverythingElseWithASentence)
{
    for (const char *text : kBad) {
        const bridge::ReadMessage message = bridge::readMessage(text);
        EXPECT_FALSE(message.request.has_value()) << text;
        EXPECT_GT(std::strlen(message.wrong), 10U) << text;
    }
}

TEST(BridgeMessages, AnswersToTheIdOfABadMessage)
{
    EXPECT_EQ(bridge::readMessage(R"({"op":"nothing","id":77})").id, 77);
    EXPECT_EQ(bridge::readMessage(R"({"op":"nothing","id":"77"})").id, 0);
    EXPECT_EQ(bridge::readMessage(R"({"op":"nothing","id":4294967297})").id, 0);
}

TEST(BridgeMessages, RefusesWhatIsTooLarge)
{
    const QByteArray message = R"({"op":"close","id":8})";
    EXPECT_TRUE(bridge::readMessage(message + QByteArray(bridge::kLargestMessage - message.size(), ' ')).request);
    EXPECT_FALSE(bridge::readMessage(message + QByteArray(bridge::kLargestMessage - message.size() + 1, ' ')).request);
}

TEST(BridgeMessages, DeeplyNestedOnesAreRefused)
{
    EXPECT_FALSE(bridge::readMessage(QByteArray(60000, '[')).request);
    EXPECT_FALSE(bridge::readMessage("{\"op\":" + QByteArray(30000, '[') + QByteArray(30000, ']') + "}").request);
}

TEST(BridgeMessages, AFailureHasTheErrorsNameAndASentence)
{
    EXPECT_EQ(bridge::toText(bridge::success(1)), R"({"id":1,"ok":true})");
    const QJsonObject failure = bridge::failure(1, "no-pad");
    EXPECT_EQ(failure["id"].toInt(), 1);
    EXPECT_FALSE(failure["ok"].toBool(true));
    EXPECT_EQ(failure["error"].toString(), "no-pad");
    EXPECT_EQ(failure["message"].toString(), "No signature pad of this model answers. Is it plugged in?");
}
