// SPDX-License-Identifier: MIT
#include "Identifier/GUIdentifier.h"

namespace Tarvik {

namespace {

unsigned long long lastNumber = 0;

}

GUIdentifier::GUIdentifier() : m_number(++lastNumber) {}

const GUIdentifier& GUIdentifier::getInvalidId()
{
  static const GUIdentifier invalid(0);
  return invalid;
}

}
