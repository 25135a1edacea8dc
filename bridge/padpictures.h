/// @file
/// The library's own pictures of a signature, as bytes.
#ifndef PADPICTURES_H
#define PADPICTURES_H

#include "outcome.h"

#include <signpad.hpp>

#include <QByteArray>
#include <QString>

#include <optional>

namespace bridge {

/// Which picture.
struct PictureWish
{
    QString kind; ///< png, jpeg, bmp, svg, pdf, ink or fingerprint
    bool transparent = true;
    int dpi = 300;
    std::optional<int> marginX; ///< with one of the two the picture is cut to the ink
    std::optional<int> marginY;
};

QByteArray bytesOf(const kv::Bytes &bytes);

/// The picture as the outcome's binary, with `bytes` and `type` for the answer. On the pad's thread.
Outcome pictureOf(kv::Pad &pad, const kv::detail::Family &family, const PictureWish &wish);

} // namespace bridge

#endif
