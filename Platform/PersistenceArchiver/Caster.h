// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

namespace Tarvik {

/// Converts pointers between a class and one of its bases, for code that knows both only by hash.
/// Register it with PersistenceArchiver::registerCaster().
class TKM_PERSISTENCEARCHIVER_API Caster {
public:
  Caster();
  Caster(const Caster&) = delete;
  Caster& operator=(const Caster&) = delete;
  virtual ~Caster();

  /// @param derived  points to an object of the derived class; may be null
  /// @return the same object as one of the base class
  virtual void* toBase(void* derived) const = 0;

  /// @param base  points to an object of the base class; may be null
  /// @return the same object as one of the derived class; null when it is not one
  virtual void* toDerived(void* base) const = 0;
};

}
