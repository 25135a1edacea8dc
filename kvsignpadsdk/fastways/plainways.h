/// @file
/// Whether the faster ways step aside. Each makes the bytes and pixels of a plain way with Qt's own calls; a second
/// build of the library for tests takes the plain ways alone, so that both can be compared.
#ifndef PLAINWAYS_H
#define PLAINWAYS_H

namespace plainways {

#ifdef KV_PLAIN_WAYS
inline constexpr bool only = true;
#else
inline constexpr bool only = false;
#endif

} // namespace plainways

#endif
