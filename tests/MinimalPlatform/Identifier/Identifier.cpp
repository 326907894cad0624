// SPDX-License-Identifier: MIT
#include "Identifier/Identifier.h"

namespace Tarvik {

namespace {

unsigned long long lastNumber = 0;

}

Identifier::Identifier() : m_number(++lastNumber) {}

const Identifier& Identifier::getInvalidId()
{
  static const Identifier invalid(0);
  return invalid;
}

}
