// SPDX-License-Identifier: MIT
#include "Translator/CatalogueError.h"

namespace Tarvik {

CatalogueError::CatalogueError(const CatalogueError& other) noexcept = default;

CatalogueError& CatalogueError::operator=(const CatalogueError& other) noexcept = default;

CatalogueError::~CatalogueError() = default;

}
