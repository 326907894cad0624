// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <stdexcept>

namespace Tarvik {

/// A file, or what is in memory, cannot be used as a catalogue of translations. what() says where,
/// and what was expected there; in English, in UTF-8.
class TKM_TRANSLATOR_API CatalogueError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;

  CatalogueError(const CatalogueError& other) noexcept;
  CatalogueError& operator=(const CatalogueError& other) noexcept;
  ~CatalogueError() override;
};

}
