#include "padpictures.h"

#include <QFile>
#include <QTemporaryDir>

namespace bridge {

namespace {

const char *typeOf(const QString &kind)
{
    return kind == QLatin1String("png") || kind == QLatin1String("fingerprint") ? "image/png"
        : kind == QLatin1String("jpeg")                                         ? "image/jpeg"
        : kind == QLatin1String("bmp")                                          ? "image/bmp"
        : kind == QLatin1String("svg")                                          ? "image/svg+xml"
        : kind == QLatin1String("pdf")                                          ? "application/pdf"
                                                                                : "application/octet-stream";
}

/// The library makes these in files alone: in a new private folder, which is gone afterwards.
QByteArray savedPicture(kv::Pad &pad, const char *ending, int dpi)
{
    const QTemporaryDir folder;
    const std::filesystem::path path = QFile::encodeName(folder.path()).toStdString() + "/signature." + ending;
    if (!folder.isValid())
        throw kv::PadError(kv::Errc::NotSaved);
    pad.save(path, dpi);
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        throw kv::PadError(kv::Errc::NotSaved);
    return file.readAll();
}

QByteArray pictureBytes(kv::Pad &pad, const PictureWish &wish)
{
    if (wish.kind == QLatin1String("svg"))
        return savedPicture(pad, "svg", wish.dpi);
    if (wish.kind == QLatin1String("pdf"))
        return savedPicture(pad, "pdf", wish.dpi);
    if (wish.kind == QLatin1String("fingerprint"))
        return bytesOf(pad.fingerprint());
    if (wish.kind == QLatin1String("ink")) {
        const std::vector<kv::Point> ink = pad.ink();
        if (ink.empty())
            throw kv::PadError(kv::Errc::NoInk);
        return {reinterpret_cast<const char *>(ink.data()), static_cast<int>(ink.size() * sizeof ink[0])};
    }
    const kv::ImageKind kind = wish.kind == QLatin1String("png") ? kv::ImageKind::Png
        : wish.kind == QLatin1String("jpeg")                     ? kv::ImageKind::Jpeg
                                                                 : kv::ImageKind::Bmp;
    return bytesOf(pad.picture(kind, wish.transparent));
}

/// The margins of one picture: those after it, and the live ones, are whole again.
class Cut
{
public:
    Cut(const kv::detail::Family &family, const PictureWish &wish)
        : m_family(family)
    {
        if (wish.marginX || wish.marginY)
            set(true, wish.marginX.value_or(0), wish.marginY.value_or(0));
    }
    ~Cut() { set(false, 0, 0); }
    Cut(const Cut &) = delete;
    Cut &operator=(const Cut &) = delete;

private:
    void set(bool isCut, int x, int y) { m_family.SetSaveClipImageMargin(m_family.type, isCut, x, y); }

    const kv::detail::Family &m_family;
};

} // namespace

QByteArray bytesOf(const kv::Bytes &bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), static_cast<int>(bytes.size())};
}

Outcome pictureOf(kv::Pad &pad, const kv::detail::Family &family, const PictureWish &wish)
{
    return outcomeOf([&](Outcome &outcome) {
        const Cut cut(family, wish);
        outcome.binary = pictureBytes(pad, wish);
        outcome.members = {{QStringLiteral("bytes"), outcome.binary->size()},
            {QStringLiteral("type"), QLatin1String(typeOf(wish.kind))}};
    });
}

} // namespace bridge
