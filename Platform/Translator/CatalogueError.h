// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <stdexcept>
#include <string>

namespace Tarvik {

/// A file or block of memory is not a catalogue that can be used. what() says where, and what was
/// expected there.
class TKM_TRANSLATOR_API CatalogueError : public std::runtime_error {
public:
  /// @param message  in English, in UTF-8
  explicit CatalogueError(const std::string& message);
  CatalogueError(const CatalogueError&);
  CatalogueError& operator=(const CatalogueError&);
  ~CatalogueError() override;
};

}
