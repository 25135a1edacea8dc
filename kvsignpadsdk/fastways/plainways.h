/// @file
/// Switches the faster ways off. Each must give the bytes and pixels that Qt's own calls give; the tests build the
/// library a second time with Qt's calls only, and compare the two.
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
