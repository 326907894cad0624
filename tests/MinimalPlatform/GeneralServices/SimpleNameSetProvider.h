// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralServices/NameSetProvider.h"

#include <set>
#include <string>

namespace Tarvik {

class SimpleNameSetProvider : public NameSetProvider {
public:
  SimpleNameSetProvider() = default;
  [[nodiscard]] SimpleNameSetProvider& addName(const std::string& name)
  {
    m_names.insert(name);
    return *this;
  }
  bool has(const std::string& name) const { return m_names.contains(name); }

private:
  std::set<std::string> m_names;
};

}
