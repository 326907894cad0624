// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace Tarvik {

class PersistenceArchiver;

/// The numbers that an archive takes: those of the same size on every machine. `bool` takes one
/// byte, `double` is written as the 64 bits of IEEE 754.
template <class Value>
concept ArchivedNumber = std::same_as<Value, bool> || std::same_as<Value, double> ||
    std::same_as<Value, std::int8_t> || std::same_as<Value, std::uint8_t> ||
    std::same_as<Value, std::int16_t> || std::same_as<Value, std::uint16_t> ||
    std::same_as<Value, std::int32_t> || std::same_as<Value, std::uint32_t> ||
    std::same_as<Value, std::int64_t> || std::same_as<Value, std::uint64_t>;

/// The numbers that an archive does not take.
template <class Value>
concept UnarchivedNumber =
    !ArchivedNumber<Value> && (std::is_arithmetic_v<Value> || std::is_enum_v<Value>);

/// A class with its own stream operators for the archive. In a list, each object must take at least
/// one byte.
template <class C>
concept StreamedClass = requires(PersistenceArchiver& archive, C& object)
{
  operator<<(archive, std::as_const(object));
  operator>>(archive, object);
};

/// A class that can fill a class record for itself: see registerClass() in ClassRegistration.h.
template <class C>
concept RegisteredClass = requires(void* record)
{
  C::serialization_register(record);
};

}
