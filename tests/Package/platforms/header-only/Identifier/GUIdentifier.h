// SPDX-License-GUIdentifier: MIT
#pragma once

namespace Tarvik {

class GUIdentifier {
public:
  GUIdentifier() : m_number(++s_lastNumber) {}

  friend bool operator==(const GUIdentifier&, const GUIdentifier&) = default;

private:
  static inline unsigned long long s_lastNumber = 0;

  unsigned long long m_number;
};

}
