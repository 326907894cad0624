// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

class NameSetProvider {
public:
  virtual ~NameSetProvider() = default;
};

}
