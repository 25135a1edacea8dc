/// @file
/// Colours of what is drawn on paper, which is white in every theme.
#ifndef PAPERCOLOURS_H
#define PAPERCOLOURS_H

#include <QPalette>

namespace signdesk {

constexpr QRgb kMarker = 0xffffe046;

/// The theme's colour for what is chosen, made dark enough for lines and letters on white paper.
QColor accentOnPaper(const QPalette &palette);

/// How well one colour is seen on another, from 1 to 21, as the Web Content Accessibility Guidelines count it.
double contrast(const QColor &one, const QColor &other);

} // namespace signdesk

#endif
