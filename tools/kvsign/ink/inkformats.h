/// @file
/// Every format that ink is read from and written to.
#ifndef INKFORMATS_H
#define INKFORMATS_H

#include "pointstream.h"

#include <QString>
#include <QStringList>

#include <memory>

class QIODevice;
struct PictureSettings;

struct InkFormat
{
    const char *name;
    const char *suffixes; ///< words
    const char *meaning;
    std::unique_ptr<PointSource> (*read)(QIODevice &device, const QString &name); ///< null: a picture
    std::unique_ptr<PointSink> (*write)(QIODevice &device); ///< null: a picture
    std::unique_ptr<PointSink> (*draw)(QIODevice &device, const PictureSettings &settings); ///< null: no picture
    int imageType; ///< IMAGE_TYPE_ID of the library's own picture; 0 for none
};

/// Null for an unknown name.
const InkFormat *formatOfName(const QString &name);

/// The format of the path's suffix; null for an unknown suffix.
const InkFormat *formatOfPath(const QString &path);

/// The likeliest format of a content that begins like this. Only reading it shows whether that is right.
const InkFormat &formatOfContent(const QByteArray &begin);

/// The names of all formats, or of those that can be read.
QStringList formatNames();
QStringList readableFormatNames();

#endif
