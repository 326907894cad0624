// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"
#include "Translator/MoCatalogue.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// A folder with catalogues, as gettext has it: LANGUAGE/LC_MESSAGES/DOMAIN.mo, where LANGUAGE is
/// "de", "pt_BR" and the like.
class TKM_TRANSLATOR_API CatalogueFolder {
public:
  /// The domain of this project's own texts.
  static constexpr auto ownDomain = "TKMService";

  /// @param path    need not exist: then there are no catalogues
  /// @param domain  the name of the files, without its ending
  CatalogueFolder(std::filesystem::path path, std::string domain);

  CatalogueFolder(const CatalogueFolder& other);
  CatalogueFolder& operator=(const CatalogueFolder& other);
  ~CatalogueFolder();

  /// The folder with the catalogues of this project. It is found from where this library is: in
  /// "locale" beside it, or in "share/locale" of the installation or build tree that it is in. If
  /// there is none, the result has an empty path.
  static CatalogueFolder ofThisProject();

  /// The folder itself; empty if there is none.
  const std::filesystem::path& path() const noexcept;

  /// The languages that there are catalogues for, in alphabetical order.
  std::vector<std::string> languages() const;

  /// The file for a language; nothing if there is none. A folder that is called exactly so comes
  /// first. With "de_AT", "de-AT" or "de_AT.UTF-8" it
  /// is the one for de_AT or else the one for de. Chinese is written in two ways: "zh", "zh_SG" and
  /// "zh-Hans" find zh_CN, and "zh_HK", "zh_MO" and "zh-Hant" find zh_TW only.
  std::optional<std::filesystem::path> find(const std::string& language) const;

  /// The catalogue for the first of the languages that there is one for. Nothing for none of them,
  /// or if "en", "C" or "POSIX" comes first: the texts are in English already.
  /// @throws CatalogueError if the file is damaged
  std::optional<MoCatalogue> load(const std::vector<std::string>& languages) const;

private:
  std::filesystem::path m_path;
  std::string m_domain;
};

}
