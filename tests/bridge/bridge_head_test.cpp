// The head of a request as bytes, and what is made of it.
#include "requesthead.h"

#include <gtest/gtest.h>

using bridge::HeadState;

namespace {

struct Case
{
    const char *what;
    QByteArray bytes;
    HeadState state;
};

const QByteArray kPlain = "GET /hello HTTP/1.1\r\nHost: 127.0.0.1:9001\r\nX-Two:  a b \r\n\r\n";

const Case kCases[] = {
    {"nothing yet", "", HeadState::Incomplete},
    {"half a line", "GET /he", HeadState::Incomplete},
    {"cut after a CR", "GET / HTTP/1.1\r", HeadState::Incomplete},
    {"without its end", "GET / HTTP/1.1\r\nHost: a\r\n", HeadState::Incomplete},
    {"whole", kPlain, HeadState::Complete},
    {"with bytes after it", kPlain + QByteArray("\x81\x00\xff", 3), HeadState::Complete},
    {"a line that ends with LF alone", "GET / HTTP/1.1\nHost: a\r\n\r\n", HeadState::Malformed},
    {"CR without LF", "GET / HTTP/1.1\rHost: a\r\n\r\n", HeadState::Malformed},
    {"a zero byte", QByteArray("GET /\0 HTTP/1.1\r\n\r\n", 19), HeadState::Malformed},
    {"a letter above ASCII", "GET / HTTP/1.1\r\nHost: \xc3\xa9\r\n\r\n", HeadState::Malformed},
    {"a control character, before the end came", "GET / HTTP/1.1\r\nHost: \x01", HeadState::Malformed},
    {"a field in two lines", "GET / HTTP/1.1\r\nHost: a\r\n b\r\n\r\n", HeadState::Malformed},
    {"a blank before the colon", "GET / HTTP/1.1\r\nHost : a\r\n\r\n", HeadState::Malformed},
    {"a field without a name", "GET / HTTP/1.1\r\n: a\r\n\r\n", HeadState::Malformed},
    {"a field without a colon", "GET / HTTP/1.1\r\nHost\r\n\r\n", HeadState::Malformed},
    {"HTTP/1.0", "GET / HTTP/1.0\r\n\r\n", HeadState::Malformed},
    {"HTTP/2 preface", "PRI * HTTP/2.0\r\n\r\n", HeadState::Malformed},
    {"no version", "GET /\r\n\r\n", HeadState::Malformed},
    {"two blanks", "GET  / HTTP/1.1\r\n\r\n", HeadState::Malformed},
    {"an empty first line", "\r\n\r\n", HeadState::Malformed},
    {"a TLS greeting", "\x16\x03\x01\x02", HeadState::Malformed},
    {"as long as allowed", "GET / HTTP/1.1\r\nX: " + QByteArray(bridge::kLongestHead - 23, 'x') + "\r\n\r\n",
        HeadState::Complete},
    {"a byte longer", "GET / HTTP/1.1\r\nX: " + QByteArray(bridge::kLongestHead - 22, 'x') + "\r\n\r\n",
        HeadState::Malformed},
    {"too long without an end", "GET / HTTP/1.1\r\nX: " + QByteArray(bridge::kLongestHead, 'x'), HeadState::Malformed},
};

} // namespace

TEST(BridgeHead, IsReadStrictly)
{
    for (const Case &each : kCases) {
        bridge::RequestHead head;
        EXPECT_EQ(bridge::readHead(each.bytes, head), each.state) << each.what;
    }
}

TEST(BridgeHead, GivesWhatStandsInIt)
{
    bridge::RequestHead head;
    ASSERT_EQ(bridge::readHead(kPlain, head), HeadState::Complete);
    EXPECT_EQ(head.method, "GET");
    EXPECT_EQ(head.target, "/hello");
    EXPECT_EQ(head.single("host"), QByteArray("127.0.0.1:9001"));
    EXPECT_EQ(head.single("x-two"), QByteArray("a b"));
    EXPECT_EQ(head.single("origin"), std::nullopt);
}

TEST(BridgeHead, AFieldThatIsThereTwiceHasNoValue)
{
    bridge::RequestHead head;
    ASSERT_EQ(bridge::readHead("GET / HTTP/1.1\r\nOrigin: https://a\r\nORIGIN: https://b\r\n\r\n", head),
        HeadState::Complete);
    EXPECT_EQ(head.count("origin"), 2);
    EXPECT_EQ(head.single("origin"), std::nullopt);
}

TEST(BridgeHead, ComesByteByByteToTheSameEnd)
{
    for (int length = 0; length < kPlain.size(); ++length) {
        bridge::RequestHead head;
        EXPECT_EQ(bridge::readHead(kPlain.left(length), head), HeadState::Incomplete) << length;
    }
}
