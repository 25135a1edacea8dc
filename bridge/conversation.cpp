#include "conversation.h"

#include "consentdesk.h"
#include "requestvalues.h"

#include <QJsonObject>

#include <utility>

namespace bridge {

namespace {

QJsonObject eventOf(const char *name)
{
    return {{QStringLiteral("event"), QLatin1String(name)}};
}

} // namespace

Conversation::Conversation(QWebSocket *socket, QByteArray origin, PadDesk &desk, ConsentDesk *consents,
    Journal &journal, TalkLimits limits, QObject *parent)
    : QObject(parent)
    , m_link(socket, journal, limits, nullptr)
    , m_origin(std::move(origin))
    , m_desk(desk)
    , m_consents(consents)
    , m_journal(journal)
    , m_limits(limits)
    , m_isAllowed(!consents || m_origin.isEmpty())
{
    connect(&m_link, &ClientLink::heard, this, &Conversation::onText);
    connect(&m_link, &ClientLink::taken, this, &Conversation::goOn);
    connect(&m_link, &ClientLink::ending, this, &Conversation::giveBack);
    connect(&m_link, &ClientLink::ended, this, [this] {
        giveBack();
        deleteLater();
    });
    QJsonObject welcome = eventOf("welcome");
    welcome.insert(QStringLiteral("version"), QStringLiteral(KV_BRIDGE_VERSION));
    welcome.insert(QStringLiteral("protocol"), 1);
    m_link.send(welcome);
}

Conversation::~Conversation()
{
    m_desk.leave(this);
}

void Conversation::dismiss(const QString &reason)
{
    m_isAllowed = false;
    m_link.close(kPolicyViolation, reason);
}

/// The pad or the place in the queue, and the question to the person.
void Conversation::giveBack()
{
    m_isOpen = false;
    m_openingId = 0;
    if (m_consents)
        m_consents->withdraw(this);
    m_link.setAsking(false);
    m_desk.leave(this);
}

void Conversation::onText(const QString &text)
{
    const ReadMessage message = readMessage(text.toUtf8());
    if (!message.request) {
        m_journal.refused(Refusal::BadMessage);
        sendFailure(message.id, "bad-message", QString::fromLatin1(message.wrong));
    } else if (m_waiting >= m_limits.waiting) {
        sendFailure(message.id, "too-many");
    } else {
        onRequest(*message.request);
    }
}

void Conversation::onRequest(const Request &request)
{
    static constexpr struct
    {
        const char *op;
        void (Conversation::*answer)(const Request &);
    } kAnswers[] = {{"pen", &Conversation::pen}, {"image", &Conversation::image}, {"live", &Conversation::live},
        {"fingerprint", &Conversation::fingerprint}};
    if (request.op == QLatin1String("open")) {
        open(request);
        return;
    }
    if (request.op == QLatin1String("close")) {
        close(request);
        return;
    }
    if (!m_isOpen) {
        sendFailure(request.id, "not-open");
        return;
    }
    if (request.op == QLatin1String("clear")) {
        run(request.id, [](PadRunner &runner) { return runner.clear(); });
        return;
    }
    for (const auto &each : kAnswers) {
        if (request.op == QLatin1String(each.op))
            (this->*each.answer)(request);
    }
}

void Conversation::open(const Request &request)
{
    if (m_desk.isHolder(this)) {
        sendFailure(request.id, "already-open");
        return;
    }
    if (const int ahead = m_desk.claim(this)) {
        QJsonObject answer = failure(request.id, "busy");
        answer.insert(QStringLiteral("ahead"), ahead);
        m_link.send(answer);
        return;
    }
    if (m_isAllowed || !m_consents->needsQuestion(m_origin)) {
        openNow(request);
        return;
    }
    m_openingId = request.id;
    m_link.send(eventOf("asking"));
    m_link.setAsking(true);
    m_consents->ask(m_origin, this, [this, request](bool isAllowed) {
        m_link.setAsking(false);
        m_isAllowed = isAllowed;
        if (isAllowed) {
            openNow(request);
            return;
        }
        m_openingId = 0;
        sendFailure(request.id, "denied");
        m_desk.leave(this);
    });
}

void Conversation::openNow(const Request &request)
{
    ++m_waiting;
    m_openingId = request.id;
    m_owesMore = false;
    m_desk.open(this, openingOf(request), [this, id = request.id](const Outcome &outcome) {
        m_isOpen = !outcome.error;
        m_openingId = 0;
        finish(id, outcome);
        if (outcome.error)
            m_desk.leave(this);
    });
}

void Conversation::pen(const Request &request)
{
    run(request.id,
        [width = numberOf(request, "width"), color = colorOf(request, "color"), pressure = flagOf(request, "pressure")](
            PadRunner &runner) { return runner.setPen(width, color, pressure); });
}

/// A picture may have 64 MB: a client that asks for many and takes none would fill the memory.
void Conversation::image(const Request &request)
{
    if (m_pictures >= m_limits.pictures || !m_link.hasRoomForPictures()) {
        sendFailure(request.id, "too-many");
        return;
    }
    ++m_pictures;
    ++m_waiting;
    m_desk.run(
        this, [wish = pictureWishOf(request)](PadRunner &runner) { return runner.picture(wish); },
        [this, id = request.id](const Outcome &outcome) {
            --m_pictures;
            finish(id, outcome);
        });
}

void Conversation::live(const Request &request)
{
    const bool on = request.flag("on", false);
    const kv::ImageKind kind = request.text("kind") == QLatin1String("jpeg") ? kv::ImageKind::Jpeg : kv::ImageKind::Png;
    run(request.id, [on, kind](PadRunner &runner) { return runner.setLive(on, kind); });
}

void Conversation::fingerprint(const Request &request)
{
    const kv::Rect place{
        request.number("left"), request.number("top"), request.number("width"), request.number("height")};
    const kv::Size canvas{request.number("canvasWidth"), request.number("canvasHeight")};
    run(request.id, [place, canvas](PadRunner &runner) { return runner.placeFingerprint(place, canvas); });
}

/// What was asked before is answered first.
void Conversation::close(const Request &request)
{
    const int id = request.id;
    if (const int opening = std::exchange(m_openingId, 0))
        sendFailure(opening, "not-open");
    if (std::exchange(m_isOpen, false)) {
        m_desk.run(
            this, [](PadRunner &) { return Outcome{}; }, [this, id](const Outcome &) { closeNow(id); });
        return;
    }
    closeNow(id);
}

void Conversation::closeNow(int id)
{
    m_waiting = 0;
    m_pictures = 0;
    giveBack();
    m_link.send(success(id));
}

void Conversation::run(int id, PadDesk::Work work)
{
    ++m_waiting;
    m_desk.run(this, std::move(work), [this, id](const Outcome &outcome) { finish(id, outcome); });
}

void Conversation::finish(int id, const Outcome &outcome)
{
    --m_waiting;
    if (outcome.error) {
        sendFailure(id, outcome.error);
        return;
    }
    QJsonObject answer = success(id);
    for (auto member = outcome.members.begin(); member != outcome.members.end(); ++member)
        answer.insert(member.key(), member.value());
    m_link.send(answer);
    if (outcome.binary)
        m_link.sendBinary(id, *outcome.binary);
}

void Conversation::sendFailure(int id, const char *error, const QString &detail)
{
    m_link.send(failure(id, error, detail));
}

/// A client that has taken what was sent gets the next points, with all that have come meanwhile.
void Conversation::goOn()
{
    if (m_owesMore && m_link.hasRoom()) {
        m_owesMore = false;
        m_desk.allowMore();
    }
}

void Conversation::onPoints(int first, const QByteArray &text)
{
    m_link.touch();
    m_link.sendText(QStringLiteral("{\"event\":\"points\",\"first\":%1,\"points\":[%2]}")
                        .arg(QString::number(first), QString::fromLatin1(text)));
    m_owesMore = true;
    goOn();
}

void Conversation::onTap(bool confirm)
{
    QJsonObject message = eventOf("tap");
    message.insert(QStringLiteral("key"), confirm ? QStringLiteral("confirm") : QStringLiteral("cancel"));
    m_link.send(message);
}

void Conversation::onLive(const QByteArray &type, const QByteArray &picture)
{
    QJsonObject message = eventOf("live");
    message.insert(QStringLiteral("type"), QString::fromLatin1(type));
    message.insert(QStringLiteral("bytes"), picture.size());
    m_link.send(message);
    m_link.sendBinary(0, picture);
    m_owesMore = true;
    goOn();
}

void Conversation::onLost()
{
    m_link.send(eventOf("lost"));
}

void Conversation::onFound()
{
    QJsonObject message = eventOf("found");
    message.insert(QStringLiteral("kept"), false);
    m_link.send(message);
}

void Conversation::onQueue(int ahead)
{
    QJsonObject message = eventOf("queue");
    message.insert(QStringLiteral("ahead"), ahead);
    m_link.send(message);
}

void Conversation::onFree()
{
    m_link.send(eventOf("free"));
}

} // namespace bridge
