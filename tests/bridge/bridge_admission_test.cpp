// Who comes in, by host, origin and token.
#include "admission.h"

#include <gtest/gtest.h>

using bridge::Admission;
using bridge::Refusal;

namespace {

const QByteArray kToken = "0123456789abcdef0123456789abcdef";

bridge::AdmissionRules rules()
{
    bridge::AdmissionRules made;
    made.port = 9001;
    made.token = kToken;
    made.origins = {"https://shop.example", "http://127.0.0.1:8080"};
    return made;
}

Admission admitted(const QByteArray &bytes, const bridge::AdmissionRules &by = rules())
{
    bridge::RequestHead head;
    EXPECT_EQ(bridge::readHead(bytes, head), bridge::HeadState::Complete) << bytes.constData();
    return bridge::admit(head, by);
}

/// A browser's upgrade with these lines in the place of the host's and the origin's.
QByteArray upgrade(const QByteArray &lines, const QByteArray &protocols = "kvsign.v1")
{
    return "GET / HTTP/1.1\r\n" + lines
        + "Connection: keep-alive, Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
          "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Protocol: "
        + protocols + "\r\n\r\n";
}

const QByteArray kHost = "Host: 127.0.0.1:9001\r\n";
const QByteArray kOrigin = "Origin: https://shop.example\r\n";

struct Refused
{
    const char *what;
    QByteArray bytes;
    Refusal why;
};

const Refused kRefused[] = {
    {"a name that leads here", upgrade("Host: evil.example:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"a name that begins like ours", upgrade("Host: localhost.evil.example:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"another port", upgrade("Host: 127.0.0.1:9002\r\n" + kOrigin), Refusal::ForeignHost},
    {"no port", upgrade("Host: 127.0.0.1\r\n" + kOrigin), Refusal::ForeignHost},
    {"another address of loopback", upgrade("Host: 127.0.0.2:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"the any address", upgrade("Host: 0.0.0.0:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"loopback with a dot at its end", upgrade("Host: localhost.:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"a short form of the address", upgrade("Host: 127.1:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"the address as one of IPv6", upgrade("Host: [::ffff:127.0.0.1]:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"a port with a zero before it", upgrade("Host: 127.0.0.1:09001\r\n" + kOrigin), Refusal::ForeignHost},
    {"a user before the host", upgrade("Host: evil.example@127.0.0.1:9001\r\n" + kOrigin), Refusal::ForeignHost},
    {"two hosts in a line", upgrade("Host: 127.0.0.1:9001, evil.example\r\n" + kOrigin), Refusal::ForeignHost},
    {"no host", upgrade(kOrigin), Refusal::ForeignHost},
    {"two hosts", upgrade(kHost + "Host: evil.example\r\n" + kOrigin), Refusal::ForeignHost},
    {"a foreign page", upgrade(kHost + "Origin: https://evil.example\r\n"), Refusal::ForeignOrigin},
    {"a page of a longer name", upgrade(kHost + "Origin: https://shop.example.evil.example\r\n"),
        Refusal::ForeignOrigin},
    {"another port of the page", upgrade(kHost + "Origin: https://shop.example:8443\r\n"), Refusal::ForeignOrigin},
    {"the page without TLS", upgrade(kHost + "Origin: http://shop.example\r\n"), Refusal::ForeignOrigin},
    {"a subdomain", upgrade(kHost + "Origin: https://a.shop.example\r\n"), Refusal::ForeignOrigin},
    {"a slash at the end", upgrade(kHost + "Origin: https://shop.example/\r\n"), Refusal::ForeignOrigin},
    {"a dot after the page's name", upgrade(kHost + "Origin: https://shop.example.\r\n"), Refusal::ForeignOrigin},
    {"the page's name in capitals", upgrade(kHost + "Origin: https://SHOP.example\r\n"), Refusal::ForeignOrigin},
    {"the port that the scheme has anyway", upgrade(kHost + "Origin: https://shop.example:443\r\n"),
        Refusal::ForeignOrigin},
    {"two origins in a line", upgrade(kHost + "Origin: https://shop.example https://evil.example\r\n"),
        Refusal::ForeignOrigin},
    {"an extension", upgrade(kHost + "Origin: chrome-extension://abc\r\n"), Refusal::ForeignOrigin},
    {"a sandboxed frame or a file", upgrade(kHost + "Origin: null\r\n"), Refusal::NullOrigin},
    {"no origin", upgrade(kHost), Refusal::MissingOrigin},
    {"an empty origin", upgrade(kHost + "Origin: \r\n"), Refusal::MissingOrigin},
    {"two origins", upgrade(kHost + kOrigin + "Origin: https://evil.example\r\n"), Refusal::MissingOrigin},
    {"no subprotocol", upgrade(kHost + kOrigin, "chat"), Refusal::NoSubprotocol},
    {"a wrong token", upgrade(kHost, "kvsign.v1, kvsign.token.ffffffffffffffffffffffffffffffff"), Refusal::WrongToken},
    {"half a token", upgrade(kHost, "kvsign.v1, kvsign.token.0123456789abcdef"), Refusal::WrongToken},
    {"an empty token", upgrade(kHost, "kvsign.v1, kvsign.token."), Refusal::WrongToken},
    {"a wrong token of a listed page", upgrade(kHost + kOrigin, "kvsign.v1, kvsign.token.00"), Refusal::WrongToken},
    {"the token with another host", upgrade("Host: evil.example:9001\r\n", "kvsign.v1, kvsign.token." + kToken),
        Refusal::ForeignHost},
    {"POST", "POST /hello HTTP/1.1\r\nHost: 127.0.0.1:9001\r\n\r\n", Refusal::Method},
    {"a preflight", "OPTIONS /hello HTTP/1.1\r\nHost: 127.0.0.1:9001\r\n" + kOrigin + "\r\n", Refusal::Method},
    {"a body", "GET /hello HTTP/1.1\r\nHost: 127.0.0.1:9001\r\nContent-Length: 3\r\n\r\n", Refusal::Body},
    {"a chunked body", "GET /hello HTTP/1.1\r\nHost: 127.0.0.1:9001\r\nTransfer-Encoding: chunked\r\n\r\n",
        Refusal::Body},
    {"hello for a foreign page", "GET /hello HTTP/1.1\r\n" + kHost + "Origin: https://evil.example\r\n\r\n",
        Refusal::ForeignOrigin},
    {"hello as a foreign page's picture", "GET /hello HTTP/1.1\r\n" + kHost + "Sec-Fetch-Site: cross-site\r\n\r\n",
        Refusal::CrossSite},
    {"hello under a foreign name", "GET /hello HTTP/1.1\r\nHost: evil.example:9001\r\n\r\n", Refusal::ForeignHost},
    {"a whole address as the target", "GET http://127.0.0.1:9001/hello HTTP/1.1\r\n" + kHost + "\r\n",
        Refusal::UnknownPath},
    {"an upgrade with a body", upgrade(kHost + kOrigin + "Content-Length: 5\r\n"), Refusal::Body},
    {"another path", "GET /etc/passwd HTTP/1.1\r\n" + kHost + "\r\n", Refusal::UnknownPath},
    {"the page of a demo that is none", "GET / HTTP/1.1\r\n" + kHost + "\r\n", Refusal::UnknownPath},
};

} // namespace

TEST(BridgeAdmission, RefusesWhoDoesNotBelongHere)
{
    for (const Refused &each : kRefused) {
        const Admission answer = admitted(each.bytes);
        EXPECT_EQ(answer.kind, Admission::Refused) << each.what;
        EXPECT_STREQ(nameOf(answer.refusal), nameOf(each.why)) << each.what;
    }
}

TEST(BridgeAdmission, RefusesAnUpgradeThatIsNotOne)
{
    const QByteArray good = upgrade(kHost + kOrigin);
    for (const char *part : {"Connection: keep-alive, Upgrade\r\n", "Sec-WebSocket-Version: 13\r\n",
             "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"}) {
        const Admission answer = admitted(QByteArray(good).replace(part, ""));
        EXPECT_EQ(answer.kind, Admission::Refused) << part;
        EXPECT_STREQ(nameOf(answer.refusal), nameOf(Refusal::BadUpgrade)) << part;
    }
    EXPECT_EQ(admitted(QByteArray(good).replace("GET / ", "GET /other ")).refusal, Refusal::UnknownPath);
}

TEST(BridgeAdmission, LetsListedPagesInUnderEveryNameOfLoopback)
{
    for (const char *host : {"127.0.0.1:9001", "localhost:9001", "LOCALHOST:9001", "[::1]:9001"}) {
        for (const char *origin : {"https://shop.example", "http://127.0.0.1:8080"}) {
            const Admission answer = admitted(upgrade(QByteArray("Host: ") + host + "\r\nOrigin: " + origin + "\r\n"));
            EXPECT_EQ(answer.kind, Admission::Upgrade) << host << ' ' << origin;
            EXPECT_EQ(answer.origin, origin);
            EXPECT_FALSE(answer.hasToken);
        }
    }
}

TEST(BridgeAdmission, LetsProgramsInWithTheToken)
{
    const QByteArray protocols = "kvsign.v1, kvsign.token." + kToken;
    const Admission answer = admitted(upgrade(kHost, protocols));
    EXPECT_EQ(answer.kind, Admission::Upgrade);
    EXPECT_TRUE(answer.hasToken);
    EXPECT_EQ(answer.origin, "");
}

TEST(BridgeAdmission, AnEmptyTokenOfItsOwnOpensNothing)
{
    bridge::AdmissionRules without = rules();
    without.token.clear();
    EXPECT_EQ(admitted(upgrade(kHost, "kvsign.v1, kvsign.token."), without).refusal, Refusal::WrongToken);
}

TEST(BridgeAdmission, SaysHelloToListedPagesAndToNoPage)
{
    EXPECT_EQ(admitted("GET /hello HTTP/1.1\r\n" + kHost + "\r\n").kind, Admission::Hello);
    const Admission page = admitted("GET /hello HTTP/1.1\r\n" + kHost + kOrigin + "Sec-Fetch-Site: cross-site\r\n\r\n");
    EXPECT_EQ(page.kind, Admission::Hello);
    EXPECT_EQ(page.origin, "https://shop.example");
}

TEST(BridgeAdmission, ServesPagesInADemoAlone)
{
    bridge::AdmissionRules demo = rules();
    demo.servesPages = true;
    EXPECT_EQ(admitted("GET / HTTP/1.1\r\n" + kHost + "Sec-Fetch-Site: none\r\n\r\n", demo).kind, Admission::Page);
    EXPECT_EQ(admitted("GET / HTTP/1.1\r\n" + kHost + "Sec-Fetch-Site: cross-site\r\n\r\n", demo).refusal,
        Refusal::CrossSite);
}
