// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameSetProvider.h"
#include "PlatformExport.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace Tarvik {

/// A set of names, filled one by one.
class TKM_GENERALSERVICES_API SimpleNameSetProvider : public NameSetProvider {
public:
  SimpleNameSetProvider() = default;
  SimpleNameSetProvider(const SimpleNameSetProvider& other);
  SimpleNameSetProvider& operator=(const SimpleNameSetProvider& other);
  ~SimpleNameSetProvider() override;

  /// Adds a name. Adding it again changes nothing.
  /// @return this set
  SimpleNameSetProvider& addName(const std::string& name);

  bool contains(std::string_view name) const override;

private:
  /// Finds a std::string_view without making a string of it.
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::unordered_set<std::string, Hash, std::equal_to<>> m_names;
};

}
