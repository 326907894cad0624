// SPDX-License-Identifier: MIT
#pragma once

#include "Recording.h"

#include <string>

namespace Tarvik {

/// Records how it is named. Cannot be assigned: groups must call setName().
class NameInterface {
public:
  NameInterface() = default;
  NameInterface(const std::string& name) : m_name(name) {}
  NameInterface(const NameInterface& other) = default;
  NameInterface& operator=(const NameInterface&) = delete;
  virtual ~NameInterface() = default;

  void setName(const std::string& name, bool verbatim)
  {
    Recording::note(verbatim ? "verbatim name " : "name ", name);
    m_name = name;
  }
  const std::string& getName() const { return m_name; }
  static void serialization_register(void* out);

private:
  std::string m_name;
};

}
