// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <string_view>

namespace Tarvik {

/// Knows which names are taken. Names are compared byte for byte.
class TKM_GENERALSERVICES_API NameSetProvider {
public:
  NameSetProvider();
  NameSetProvider(const NameSetProvider& other);
  NameSetProvider& operator=(const NameSetProvider& other);
  virtual ~NameSetProvider();

  /// Whether the name is taken.
  virtual bool contains(std::string_view name) const = 0;
};

}
