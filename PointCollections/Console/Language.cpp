// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Language.h"

#include "PointCollections/Text/Lists.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "Translator/CatalogueError.h"
#include "Translator/CatalogueFolder.h"
#include "Translator/Translator.h"
#include "Translator/UserLanguages.h"

#include <fmt/format.h>

#include <string_view>

namespace Tarvik::PointCollections {
namespace {

bool isEnglish(std::string_view language)
{
  return language == "en" || language.starts_with("en_") || language.starts_with("en-") ||
         language == "C" || language == "POSIX";
}

void use(const std::optional<MoCatalogue>& catalogue)
{
  if (catalogue)
    Translator::installCatalogue(*catalogue);
}

void useEnvironment(const CatalogueFolder& folder)
{
  use(folder.load(UserLanguages::wanted()));
}

void requireTranslations(const CatalogueFolder& folder, const std::string& language)
{
  if (folder.find(language) || isEnglish(language))
    return;
  useEnvironment(folder); // for the error
  auto known = folder.languages();
  known.emplace_back("en");
  throw UserError(translated("--language: there are no texts in {}; expected one of {}",
                             displayName(language), listed(known)));
}

}

std::string chooseLanguage(const std::optional<std::string>& language)
{
  const auto folder = CatalogueFolder::ofThisProject();
  try {
    if (language) {
      requireTranslations(folder, *language);
      use(folder.load({*language}));
    } else {
      useEnvironment(folder);
    }
    return {};
  } catch (const CatalogueError& error) {
    return fmt::format("{}; texts are in English. Install the program again", error.what());
  }
}

}
