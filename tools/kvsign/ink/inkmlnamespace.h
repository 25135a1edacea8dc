/// @file
/// The XML namespace of InkML.
#ifndef INKMLNAMESPACE_H
#define INKMLNAMESPACE_H

inline constexpr char kInkmlNamespace[] = "http://www.w3.org/2003/InkML";

#endif // INKMLNAMESPACE_H
