// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameSetProvider.h"
#include "PlatformExport.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace Tarvik {

/// A set of names that its owner fills one by one.
class TKM_GENERALSERVICES_API SimpleNameSetProvider : public NameSetProvider {
public:
  /// An empty set.
  SimpleNameSetProvider() = default;

  /// Copies all names.
  SimpleNameSetProvider(const SimpleNameSetProvider& other);

  /// Takes over all names, and forgets its own.
  SimpleNameSetProvider& operator=(const SimpleNameSetProvider& other);

  ~SimpleNameSetProvider() override;

  /// Adds a name; one that is in the set already stays there once.
  /// @return the set itself
  SimpleNameSetProvider& addName(const std::string& name);

  bool contains(std::string_view name) const override;

private:
  /// Looks a part of a text up without making a string of it.
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::unordered_set<std::string, Hash, std::equal_to<>> m_names;
};

}
