// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <string>
#include <vector>

namespace Tarvik {

/// The languages that the user has chosen for programs.
class TKM_TRANSLATOR_API UserLanguages {
public:
  UserLanguages() = delete;

  /// The languages of the environment, the favourite first, for CatalogueFolder::load().
  ///
  /// The first of the variables LC_ALL, LC_MESSAGES and LANG that is not empty names the locale,
  /// such as "de_AT.UTF-8" or "C". If it is not "C" or "C.UTF-8", the languages of the variable
  /// LANGUAGE, with colons between, come before it. Without any of them, Windows is asked for the
  /// languages of its user interface; elsewhere the result is empty.
  static std::vector<std::string> wanted();
};

}
