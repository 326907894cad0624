// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

class Identifier {
public:
  Identifier() : m_number(++s_lastNumber) {}

  friend bool operator==(const Identifier&, const Identifier&) = default;

private:
  static inline unsigned long long s_lastNumber = 0;

  unsigned long long m_number;
};

}
