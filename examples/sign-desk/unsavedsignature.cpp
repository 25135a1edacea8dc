#include "unsavedsignature.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace signdesk {

namespace {

constexpr char kBegin[] = "kv-sign-desk unsaved 1\n";
constexpr int kBeginSize = sizeof kBegin - 1;
constexpr int kDigestSize = 32;
constexpr quint32 kMostEntries = 10'000'000; ///< more are not in a file that was written here

QByteArray digestOf(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

// The same order for both directions: what << writes, >> reads.

QDataStream &operator<<(QDataStream &out, const documents::InkLine &line)
{
    return out << line.from << line.to << line.width;
}

QDataStream &operator>>(QDataStream &in, documents::InkLine &line)
{
    return in >> line.from >> line.to >> line.width;
}

QDataStream &operator<<(QDataStream &out, const AddedSignature &added)
{
    return out << added.bytes << added.isAppended << added.formField;
}

QDataStream &operator>>(QDataStream &in, AddedSignature &added)
{
    return in >> added.bytes >> added.isAppended >> added.formField;
}

template <class Entry>
QDataStream &operator<<(QDataStream &out, const std::vector<Entry> &entries)
{
    out << static_cast<quint32>(entries.size());
    for (const Entry &entry : entries)
        out << entry;
    return out;
}

template <class Entry>
QDataStream &operator>>(QDataStream &in, std::vector<Entry> &entries)
{
    quint32 count = 0;
    in >> count;
    for (quint32 i = 0; i < std::min(count, kMostEntries) && in.status() == QDataStream::Ok; ++i) {
        Entry entry{};
        in >> entry;
        entries.push_back(entry);
    }
    return in;
}

QDataStream &operator<<(QDataStream &out, const SignatureWish &wish)
{
    const documents::Ink &ink = wish.ink;
    return out << qint32(wish.page) << wish.place << wish.pageSize << wish.formField << ink.canvas << ink.lines
               << ink.colour << ink.picture << ink.picturePlace;
}

QDataStream &operator>>(QDataStream &in, SignatureWish &wish)
{
    documents::Ink &ink = wish.ink;
    qint32 page = 0;
    in >> page >> wish.place >> wish.pageSize >> wish.formField >> ink.canvas >> ink.lines >> ink.colour >> ink.picture
        >> ink.picturePlace;
    wish.page = page;
    return in;
}

} // namespace

QByteArray packed(const UnsavedSignature &signature)
{
    QByteArray content;
    QDataStream out(&content, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << signature.path << signature.digest << signature.time << signature.base << signature.added
        << qint32(signature.saved) << signature.confirmed.has_value();
    if (signature.confirmed.has_value())
        out << *signature.confirmed << signature.signer;
    return kBegin + digestOf(content) + content;
}

std::optional<UnsavedSignature> unpacked(const QByteArray &file)
{
    const QByteArray content = file.mid(kBeginSize + kDigestSize);
    if (!file.startsWith(kBegin) || digestOf(content) != file.mid(kBeginSize, kDigestSize))
        return std::nullopt;
    QDataStream in(content);
    in.setVersion(QDataStream::Qt_5_15);
    UnsavedSignature signature;
    qint32 saved = 0;
    bool isConfirmed = false;
    in >> signature.path >> signature.digest >> signature.time >> signature.base >> signature.added >> saved
        >> isConfirmed;
    signature.saved = saved;
    if (isConfirmed)
        in >> signature.confirmed.emplace() >> signature.signer;
    return in.status() == QDataStream::Ok && in.atEnd() ? std::optional(signature) : std::nullopt;
}

} // namespace signdesk
