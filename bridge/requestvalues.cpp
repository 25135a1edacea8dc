#include "requestvalues.h"

namespace bridge {

namespace {

kv::Model modelOf(const QString &name)
{
    std::size_t index = 0;
    while (name != QLatin1String(kv::detail::kFamilies[index].model))
        ++index; // the message was checked: it is one of them
    return static_cast<kv::Model>(index);
}

} // namespace

std::optional<int> numberOf(const Request &request, const char *name)
{
    return request.has(name) ? std::optional(request.number(name)) : std::nullopt;
}

std::optional<bool> flagOf(const Request &request, const char *name)
{
    return request.has(name) ? std::optional(request.flag(name, false)) : std::nullopt;
}

std::optional<kv::Color> colorOf(const Request &request, const char *name)
{
    if (!request.has(name))
        return std::nullopt;
    const int value = request.text(name).midRef(1).toInt(nullptr, 16);
    return kv::Color{value >> 16, value >> 8 & 255, value & 255};
}

Opening openingOf(const Request &request)
{
    Opening opening;
    opening.model = modelOf(request.text("model"));
    opening.size = {request.number("width"), request.number("height")};
    opening.penWidth = numberOf(request, "penWidth");
    opening.penColor = colorOf(request, "penColor");
    opening.penPressure = flagOf(request, "penPressure");
    return opening;
}

PictureWish pictureWishOf(const Request &request)
{
    PictureWish wish;
    wish.kind = request.text("kind");
    wish.transparent = request.flag("transparent", true);
    wish.dpi = request.number("dpi", 300);
    wish.marginX = numberOf(request, "marginX");
    wish.marginY = numberOf(request, "marginY");
    return wish;
}

} // namespace bridge
