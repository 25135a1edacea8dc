/// @file
/// Reads a client's message and checks it against the protocol's table before anything else sees it.
#ifndef MESSAGEREADER_H
#define MESSAGEREADER_H

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace bridge {

/// Messages of clients are refused above this.
inline constexpr int kLargestMessage = 64 * 1024;

/// A request that holds what the protocol says, and nothing else.
struct Request
{
    QString op;
    int id = 0;
    QJsonObject members;

    int number(const char *name, int otherwise = 0) const { return members[QLatin1String(name)].toInt(otherwise); }
    bool flag(const char *name, bool otherwise) const { return members[QLatin1String(name)].toBool(otherwise); }
    QString text(const char *name) const { return members[QLatin1String(name)].toString(); }
    bool has(const char *name) const { return members.contains(QLatin1String(name)); }
};

struct ReadMessage
{
    std::optional<Request> request;
    int id = 0; ///< of a message that is no request, where it has one; for the answer
    const char *wrong = ""; ///< what is wrong with it, for its author; holds nothing of the message
};

/// Pure; any thread.
ReadMessage readMessage(const QByteArray &text);

/// {"id":1,"ok":true}
QJsonObject success(int id);

/// {"id":1,"ok":false,"error":"no-pad","message":"No signature pad ..."}; the error is one of the protocol's.
/// @param detail in the place of the usual sentence
QJsonObject failure(int id, const char *error, const QString &detail = {});

QByteArray toText(const QJsonObject &message);

} // namespace bridge

#endif
