// SPDX-License-Identifier: MIT
#pragma once

#include "Translator/Translator.h"

#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace Tarvik::PointCollections {

/// A language with a few texts, which the user reads while it lives.
class Language {
public:
  /// @param translations  by their English texts; the same for all numbers
  explicit Language(std::initializer_list<std::pair<const std::string, std::string>> translations)
  {
    Translator::installCatalogue(
        [texts = std::map(translations)](const char*, const char* text, const char*, int) {
          const auto found = texts.find(text);
          return found != texts.end() ? std::optional(found->second) : std::nullopt;
        });
  }
  Language(const Language&) = delete;
  Language& operator=(const Language&) = delete;
  ~Language() { Translator::installCatalogue({}); }
};

}
