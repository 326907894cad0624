// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace Tarvik {

/// Numbers as they are in an archive: the lowest byte first, on every machine. The place need not
/// be aligned.
template <class Number>
Number loadLittleEndian(const std::byte* place);
template <class Number>
void storeLittleEndian(std::byte* place, Number value);

template <class Number>
inline Number loadLittleEndian(const std::byte* place)
{
  static_assert(std::is_integral_v<Number>);
  if constexpr (std::endian::native == std::endian::little) {
    Number value = 0;
    std::memcpy(&value, place, sizeof value);
    return value;
  } else {
    std::make_unsigned_t<Number> value = 0;
    for (std::size_t i = sizeof value; i-- > 0;)
      value = static_cast<std::make_unsigned_t<Number>>(value << 8U |
                                                        std::to_integer<unsigned>(place[i]));
    return static_cast<Number>(value);
  }
}

template <class Number>
inline void storeLittleEndian(std::byte* place, Number value)
{
  static_assert(std::is_integral_v<Number>);
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(place, &value, sizeof value);
  } else {
    for (std::size_t i = 0; i < sizeof value; ++i)
      place[i] = static_cast<std::byte>(static_cast<std::make_unsigned_t<Number>>(value) >> 8U * i);
  }
}

}
