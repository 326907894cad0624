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

#include <algorithm>
#include <cstddef>

namespace Tarvik::PointCollections {
namespace {

bool isEnglish(const std::string& language)
{
  auto name = language.substr(0, language.find_first_of("._-@"));
  std::transform(name.begin(), name.end(), name.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return name == "en" || name == "c" || name == "posix";
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
  try {
    useEnvironment(folder);
  } catch (const CatalogueError&) {
    // the error is in English then
  }
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
    constexpr std::size_t longest = 500;
    return fmt::format("{}; texts are in English. Install the program again",
                       printable(abbreviated(error.what(), longest)));
  }
}

}
