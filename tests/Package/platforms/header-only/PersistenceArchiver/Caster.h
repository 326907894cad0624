// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

class Caster {
public:
  virtual ~Caster() = default;
  virtual void* toBase(void* derived) const = 0;
  virtual void* toDerived(void* base) const = 0;
};

}
