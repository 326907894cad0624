// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <type_traits>

namespace Tarvik {

/// What groups and commands need of the type that identifies a host's elements.
///
/// A default-constructed one is a new identifier; `getInvalidId()` gives a reference that stays
/// valid while the library is loaded, to a value that is not valid. Copying is all that is needed:
/// no move, no order, no hash.
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
