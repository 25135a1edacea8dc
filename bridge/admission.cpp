#include "admission.h"

#include <algorithm>

namespace bridge {

namespace {

Admission refused(Refusal why)
{
    Admission answer;
    answer.refusal = why;
    return answer;
}

// A page of another name that was made to lead to this machine still says its own name here.
bool isLoopbackHost(const QByteArray &host, quint16 port)
{
    const QByteArray end = ':' + QByteArray::number(port);
    const QByteArray asked = host.toLower();
    return asked == "127.0.0.1" + end || asked == "localhost" + end || asked == "[::1]" + end;
}

// Takes as long for a wrong token as for a right one.
bool isSame(const QByteArray &one, const QByteArray &other)
{
    if (one.size() != other.size() || one.isEmpty())
        return false;
    unsigned difference = 0;
    for (int i = 0; i < one.size(); ++i)
        difference |= static_cast<unsigned char>(one.at(i)) ^ static_cast<unsigned char>(other.at(i));
    return difference == 0;
}

bool has(const std::vector<QByteArray> &words, const QByteArray &word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Sets the answer's origin, or says what is wrong with it.
bool takeOrigin(const RequestHead &head, const AdmissionRules &rules, Admission &answer)
{
    const std::optional<QByteArray> origin = head.single("origin");
    if (!origin || origin->isEmpty())
        answer.refusal = Refusal::MissingOrigin;
    else if (*origin == "null")
        answer.refusal = Refusal::NullOrigin;
    else if (!rules.origins.contains(*origin))
        answer.refusal = Refusal::ForeignOrigin;
    else
        answer.origin = *origin;
    return !answer.origin.isEmpty();
}

/// QWebSocketServer reads the head once more, and would answer in its own words to one that is larger.
bool fitsQt(const RequestHead &head)
{
    return head.fields.size() < 100 && std::all_of(head.fields.begin(), head.fields.end(), [](const HeadField &field) {
        return field.name.size() + field.value.size() < 8000;
    });
}

Admission admitUpgrade(const RequestHead &head, const AdmissionRules &rules)
{
    const std::optional<QByteArray> key = head.single("sec-websocket-key");
    if (head.target != "/")
        return refused(Refusal::UnknownPath);
    if (!fitsQt(head) || !has(head.words("connection"), "upgrade") || !key || QByteArray::fromBase64(*key).size() != 16
        || head.single("sec-websocket-version") != QByteArray("13"))
        return refused(Refusal::BadUpgrade);
    const std::vector<QByteArray> protocols = head.words("sec-websocket-protocol");
    if (!has(protocols, kSubprotocol))
        return refused(Refusal::NoSubprotocol);
    Admission answer;
    for (const QByteArray &protocol : protocols) {
        if (!protocol.startsWith(kTokenPrefix))
            continue;
        if (!isSame(protocol.mid(static_cast<int>(sizeof kTokenPrefix) - 1), rules.token))
            return refused(Refusal::WrongToken);
        answer.hasToken = true;
    }
    if (answer.hasToken || takeOrigin(head, rules, answer))
        answer.kind = Admission::Upgrade;
    return answer;
}

/// A browser says where a request without an origin comes from.
bool isOfAnotherSite(const RequestHead &head)
{
    if (head.count("sec-fetch-site") == 0)
        return false;
    const QByteArray site = head.single("sec-fetch-site").value_or("cross-site");
    return site != "same-origin" && site != "none";
}

Admission admitRequest(const RequestHead &head, const AdmissionRules &rules)
{
    Admission answer;
    if (head.count("origin") > 0) {
        if (!takeOrigin(head, rules, answer))
            return answer;
    } else if (isOfAnotherSite(head)) {
        return refused(Refusal::CrossSite);
    }
    if (head.target == "/hello")
        answer.kind = Admission::Hello;
    else if (rules.servesPages)
        answer.kind = Admission::Page;
    else
        answer.refusal = Refusal::UnknownPath;
    return answer;
}

} // namespace

const char *nameOf(Refusal refusal)
{
    static constexpr const char *kNames[] = {"malformed request", "slow request", "too many connections",
        "another user of this machine", "method", "request with a body", "foreign host", "unknown path", "bad upgrade",
        "no subprotocol", "wrong token", "missing origin", "null origin", "foreign origin", "request of another site",
        "too many messages", "large message", "binary message", "message that cannot be read", "stalled client",
        "idle client"};
    static_assert(std::size(kNames) == static_cast<std::size_t>(Refusal::Count));
    return kNames[static_cast<std::size_t>(refusal)];
}

Admission admit(const RequestHead &head, const AdmissionRules &rules)
{
    const std::optional<QByteArray> host = head.single("host");
    if (!host || !isLoopbackHost(*host, rules.port))
        return refused(Refusal::ForeignHost);
    if (head.method != "GET")
        return refused(Refusal::Method);
    if (head.count("content-length") > 0 || head.count("transfer-encoding") > 0)
        return refused(Refusal::Body);
    return has(head.words("upgrade"), "websocket") ? admitUpgrade(head, rules) : admitRequest(head, rules);
}

} // namespace bridge
