// SPDX-License-Identifier: MIT
#include "Translator/CatalogueFolder.h"

#include "Translator/FolderEntries.h"
#include "Translator/LibraryFolder.h"

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

namespace Tarvik {
namespace {

namespace fs = std::filesystem;

char lower(char c)
{
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char upper(char c)
{
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isLetterOrDigit(char c)
{
  return (lower(c) >= 'a' && lower(c) <= 'z') || (c >= '0' && c <= '9');
}

/// Whether it can be the name of a folder in this one.
bool isPlainName(std::string_view name)
{
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return isLetterOrDigit(c) || c == '_' || c == '-' || c == '@';
  });
}

/// What a language such as "zh-Hant-HK" consists of, written as in the names of folders.
struct LanguageTag {
  std::string language; ///< "zh"
  std::string script;   ///< "hant", or empty
  std::string region;   ///< "HK", or empty

  /// An empty language for what is none, such as "../de".
  static LanguageTag of(std::string_view name);
};

LanguageTag LanguageTag::of(std::string_view name)
{
  name = name.substr(0, name.find_first_of(".@"));
  LanguageTag tag;
  for (bool isFirst = true; !name.empty(); isFirst = false) {
    const auto end = std::min(name.find_first_of("_-"), name.size());
    std::string part(name.substr(0, end));
    name.remove_prefix(std::min(end + 1, name.size()));
    if (part.empty() || !std::all_of(part.begin(), part.end(), isLetterOrDigit))
      return {};
    constexpr std::size_t scriptSize = 4;
    const bool isScript = part.size() == scriptSize;
    std::transform(part.begin(), part.end(), part.begin(), isFirst || isScript ? lower : upper);
    auto& field = isFirst ? tag.language : isScript ? tag.script : tag.region;
    if (field.empty()) // what follows a region is a variant of it
      field = part;
  }
  return tag;
}

/// The names of the folders that suit a language, the best one first.
std::vector<std::string> foldersFor(const LanguageTag& tag)
{
  if (tag.language.empty())
    return {};
  if (tag.language == "zh") { // the way of writing matters, and not the region
    const bool isTraditional = tag.script.empty()
                                   ? tag.region == "TW" || tag.region == "HK" || tag.region == "MO"
                                   : tag.script == "hant";
    return {isTraditional ? "zh_TW" : "zh_CN"};
  }
  if (tag.region.empty())
    return {tag.language};
  return {tag.language + '_' + tag.region, tag.language};
}

bool isEnglish(const LanguageTag& tag)
{
  return tag.language == "en" || tag.language == "c" || tag.language == "posix";
}

fs::path fileIn(const fs::path& folder, const std::string& language, const std::string& domain)
{
  return folder / language / "LC_MESSAGES" / (domain + ".mo");
}

}

CatalogueFolder::CatalogueFolder(fs::path path, std::string domain)
    : m_path(std::move(path)), m_domain(std::move(domain))
{}

CatalogueFolder::CatalogueFolder(const CatalogueFolder& other) = default;

CatalogueFolder& CatalogueFolder::operator=(const CatalogueFolder& other) = default;

CatalogueFolder::~CatalogueFolder() = default;

CatalogueFolder CatalogueFolder::ofThisProject()
{
  const auto library = libraryFolder();
  if (!library.empty()) {
    for (const auto* const place : {"locale", "../share/locale", "../../share/locale"}) {
      CatalogueFolder folder((library / place).lexically_normal(), ownDomain);
      if (!folder.languages().empty())
        return folder;
    }
  }
  return {{}, ownDomain};
}

const fs::path& CatalogueFolder::path() const noexcept
{
  return m_path;
}

std::vector<std::string> CatalogueFolder::languages() const
{
  auto result = entriesOf(m_path);
  std::erase_if(result, [this](const std::string& name) {
    std::error_code ignored;
    return !isPlainName(name) || !fs::is_regular_file(fileIn(m_path, name, m_domain), ignored);
  });
  std::sort(result.begin(), result.end());
  return result;
}

std::optional<fs::path> CatalogueFolder::find(const std::string& language) const
{
  if (m_path.empty()) // not the current folder
    return std::nullopt;
  auto folders = foldersFor(LanguageTag::of(language));
  if (isPlainName(language)) // such as "sr@latin"
    folders.insert(folders.begin(), language);
  for (const auto& folder : folders) {
    auto file = fileIn(m_path, folder, m_domain);
    std::error_code ignored;
    if (fs::is_regular_file(file, ignored))
      return file;
  }
  return std::nullopt;
}

std::optional<MoCatalogue> CatalogueFolder::load(const std::vector<std::string>& languages) const
{
  for (const auto& language : languages) {
    if (const auto file = find(language))
      return MoCatalogue::fromFile(*file);
    if (isEnglish(LanguageTag::of(language)))
      break;
  }
  return std::nullopt;
}

}
