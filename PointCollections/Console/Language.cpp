// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Language.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "Translator/CatalogueError.h"
#include "Translator/CatalogueFolder.h"
#include "Translator/Translator.h"
#include "Translator/UserLanguages.h"

#include <fmt/format.h>

#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

bool isEnglish(std::string_view language)
{
  return language == "en" || language.starts_with("en_") || language.starts_with("en-") ||
         language == "C" || language == "POSIX";
}

void requireTranslations(const CatalogueFolder& folder, const std::string& language)
{
  if (folder.find(language) || isEnglish(language))
    return;
  auto known = folder.languages();
  known.emplace_back("en");
  throw UserError(fmt::format("--language: there are no texts in {}; expected one of {}",
                              displayName(language), fmt::join(known, ", ")));
}

}

std::string chooseLanguage(const std::optional<std::string>& language)
{
  const auto folder = CatalogueFolder::ofThisProject();
  if (language)
    requireTranslations(folder, *language);
  try {
    if (const auto catalogue =
            folder.load(language ? std::vector{*language} : UserLanguages::wanted()))
      Translator::installCatalogue(*catalogue);
    return {};
  } catch (const CatalogueError& error) {
    return fmt::format("{}; texts are in English. Install the program again", error.what());
  }
}

}
