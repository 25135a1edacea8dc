/// @file
/// Access to the fields that the caller's and the driver's thread share without a lock. The fields are plain by
/// declaration; these make each access indivisible, and a store visible to who loads it.
#ifndef SHAREDFIELDS_H
#define SHAREDFIELDS_H

#include <cstddef>
#include <type_traits>

namespace shared {

/// Bytes from what one thread writes without a pause to what another must have quickly: two lines of the processor's
/// cache, which are fetched together.
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
