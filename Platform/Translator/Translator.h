// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// Translates texts into the user's language.
///
/// A program installs a catalogue when it starts, and another one whenever the user switches the
/// language. Texts that have already been translated do not change. Without a catalogue, texts are
/// not translated. MoCatalogue reads one from a file. All operations may be called from any thread
/// at any time.
class TKM_TRANSLATOR_API Translator {
public:
  /// Returns the translation of one text, or nothing when it has none. Gets the arguments of
  /// translate() unchanged; they may be null. May be called from several threads at once. May still
  /// be running, or be called once more, after another catalogue has been installed.
  using Catalogue = std::function<std::optional<std::string>(
      const char* context, const char* text, const char* disambiguation, int count)>;

  Translator() = delete;
  Translator(const Translator&) = delete;
  Translator& operator=(const Translator&) = delete;

  /// Translates a text with the installed catalogue.
  /// @param context         what the text belongs to, such as a class name; may be null
  /// @param text            the text in the program's own language; null means empty
  /// @param disambiguation  distinguishes equal texts of one context; may be null
  /// @param count           the number in the text, for plural forms; negative when there is none
  /// @return the translation, or the text itself when the catalogue has none
  /// @throws whatever the catalogue throws
  static std::string
  translate(const char* context, const char* text, const char* disambiguation, int count);

  /// Uses this catalogue from now on.
  /// @param catalogue  an empty function means no catalogue
  static void installCatalogue(Catalogue catalogue);

  /// A catalogue that asks several ones, in their order, until one has a translation. Empty
  /// functions are left out.
  static Catalogue chain(std::vector<Catalogue> catalogues);
};

}
