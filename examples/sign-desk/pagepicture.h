/// @file
/// Opens a picture as a page. It may come from anybody, so memory is bounded, and time but for an odd SVG's.
#ifndef PAGEPICTURE_H
#define PAGEPICTURE_H

#include <QImage>

namespace signdesk {

struct PageFile;

/// The picture, turned as its metadata says. Throws a Trouble, also for a picture that would take more memory than the
/// largest canvas, for a JPEG of more than a hundred scans, each of which costs time for the whole picture, and for an
/// SVG that names or holds further pictures or style sheets, which would be loaded without these limits.
QImage readPicture(const PageFile &file);

/// The number of scans of a JPEG, up to where Qt's reader stops.
int scansOfJpeg(const QByteArray &jpeg);

/// Whether an SVG has an <image> or names a style sheet, up to where Qt's reader stops.
bool svgLoadsMore(const QByteArray &svg);

} // namespace signdesk

#endif
