/// @file
/// Access to fields that the caller's and the driver's thread share without a lock. Their types are fixed and not
/// std::atomic, so these functions make each access atomic, with release and acquire.
#ifndef SHAREDFIELDS_H
#define SHAREDFIELDS_H

#include <cstddef>
#include <type_traits>

namespace shared {

/// Distance in bytes to keep fields apart that different threads use all the time: two cache lines, because processors
/// fetch them in pairs.
inline constexpr std::size_t kApart = 128;

template <class T>
T get(const T &field)
{
    T value;
    __atomic_load(&field, &value, __ATOMIC_ACQUIRE);
    return value;
}

template <class T>
void set(T &field, std::common_type_t<T> value)
{
    __atomic_store(&field, &value, __ATOMIC_RELEASE);
}

} // namespace shared

#endif
