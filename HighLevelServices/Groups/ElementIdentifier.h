// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <type_traits>

namespace Tarvik {

/// What groups and commands require of the identifiers of a host's elements.
///
/// A default-constructed identifier is a new one. `getInvalidId()` returns an identifier that is
/// not valid; the reference must stay usable while the library is loaded. Identifiers are copied
/// and compared for equality; they need no move and no order. A `std::hash` is optional. With one,
/// commands take time that is linear in the size of a selection; without one, they compare each of
/// its elements with the members. A `std::hash` may also have a static member `quick()`, a hash
/// that takes a few shifts and exclusive ors: it makes the search for a few elements faster. See
/// QuicklyHashable in HighLevelServices/GroupCommands/ElementTable.h.
// clang-format off
template <class T>
concept ElementIdentifier =
  std::default_initializable<T> && std::is_copy_constructible_v<T> &&
  std::is_copy_assignable_v<T> && std::is_destructible_v<T> &&
  requires(const T& a, const T& b, void* record) {
    { a == b } -> std::convertible_to<bool>;
    { a.isValid() } -> std::convertible_to<bool>;
    { T::getInvalidId() } -> std::same_as<const T&>;
    T::serialization_register(record);
  };
// clang-format on

}
