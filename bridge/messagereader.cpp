#include "messagereader.h"

#include <QJsonDocument>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace bridge {

namespace {

enum class Kind
{
    Integer,
    Boolean,
    Word,
    Color
};

struct Member
{
    const char *name;
    Kind kind;
    int low;
    int high;
    const char *choices; ///< "png|jpeg"; empty: any
    bool required;
};

struct Operation
{
    const char *name;
    const Member *members;
    std::size_t count;
};

struct ErrorRow
{
    const char *name;
    const char *sentence;
};

#include "messagetable.inl"

bool isChoice(const QString &word, const char *choices)
{
    return *choices == 0 || QString::fromLatin1(choices).split('|').contains(word);
}

bool isInteger(const QJsonValue &value, const Member &member)
{
    const double number = value.toDouble();
    return value.isDouble() && number == std::floor(number) && number >= member.low && number <= member.high
        && isChoice(QString::number(number, 'f', 0), member.choices);
}

bool isColor(const QString &text)
{
    return text.size() == 7 && text[0] == '#' && std::all_of(text.begin() + 1, text.end(), [](QChar letter) {
        return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'f');
    });
}

bool fits(const QJsonValue &value, const Member &member)
{
    switch (member.kind) {
    case Kind::Integer:
        return isInteger(value, member);
    case Kind::Boolean:
        return value.isBool();
    case Kind::Word:
        return value.isString() && isChoice(value.toString(), member.choices);
    case Kind::Color:
        return value.isString() && isColor(value.toString());
    }
    return false;
}

const Operation *operationOf(const QString &name)
{
    const auto *found = std::find_if(std::begin(kOperations), std::end(kOperations),
        [&](const Operation &operation) { return name == QLatin1String(operation.name); });
    return found == std::end(kOperations) ? nullptr : found;
}

const char *wrongWith(const QJsonObject &object, const Operation &operation)
{
    int known = 1; // the op
    for (std::size_t i = 0; i < operation.count; ++i) {
        const Member &member = operation.members[i];
        const auto found = object.constFind(QLatin1String(member.name));
        if (found == object.constEnd()) {
            if (member.required)
                return "A member of this message is missing.";
            continue;
        }
        ++known;
        if (!fits(*found, member))
            return "A member of this message has a value that the protocol does not allow.";
    }
    return known == object.size() ? "" : "A member of this message is unknown.";
}

int idOf(const QJsonObject &object)
{
    const QJsonValue id = object[QLatin1String("id")];
    return isInteger(id, {"id", Kind::Integer, 1, 2147483647, "", true}) ? id.toInt() : 0;
}

} // namespace

ReadMessage readMessage(const QByteArray &text)
{
    ReadMessage message;
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (text.size() > kLargestMessage || !document.isObject()) {
        message.wrong = "This message is no JSON object.";
        return message;
    }
    const QJsonObject object = document.object();
    message.id = idOf(object);
    const QJsonValue op = object[QLatin1String("op")];
    const Operation *operation = op.isString() ? operationOf(op.toString()) : nullptr;
    message.wrong = operation ? wrongWith(object, *operation) : "There is no such operation.";
    if (*message.wrong == 0)
        message.request = Request{op.toString(), message.id, object};
    return message;
}

QJsonObject success(int id)
{
    return {{QStringLiteral("id"), id}, {QStringLiteral("ok"), true}};
}

QJsonObject failure(int id, const char *error, const QString &detail)
{
    const auto *row = std::find_if(std::begin(kErrors), std::end(kErrors),
        [&](const ErrorRow &each) { return std::strcmp(each.name, error) == 0; });
    Q_ASSERT(row != std::end(kErrors));
    return {{QStringLiteral("id"), id}, {QStringLiteral("ok"), false},
        {QStringLiteral("error"), QLatin1String(row->name)},
        {QStringLiteral("message"), detail.isEmpty() ? QString::fromUtf8(row->sentence) : detail}};
}

QByteArray toText(const QJsonObject &message)
{
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

} // namespace bridge
