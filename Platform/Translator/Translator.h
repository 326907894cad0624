// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <functional>
#include <optional>
#include <string>

namespace Tarvik {

/// Answers with a text in the user's language.
///
/// A program installs a catalogue when it starts, and another one whenever the user switches the
/// language; texts that were translated before stay as they are. Without a catalogue every text
/// stands for itself. All operations may be called from any thread at any time.
class TKM_TRANSLATOR_API Translator {
public:
  /// Answers for one text, or nothing when it has no translation. The arguments are those of
  /// translate(), null pointers included. It may be called from several threads at once, and once
  /// more after another catalogue has been installed, by a call that was under way.
  using Catalogue = std::function<std::optional<std::string>(
      const char* context, const char* text, const char* disambiguation, int count)>;

  Translator() = delete;

  /// Translates a text with the installed catalogue.
  /// @param context         what the text belongs to, such as a class name; may be null
  /// @param text            the text in the program's own language; null is taken as empty
  /// @param disambiguation  tells equal texts of one context apart; may be null
  /// @param count           the number that the text speaks of; negative when it speaks of none
  /// @return the translation, or the text itself where the catalogue has none
  /// @throws what the catalogue throws
  static std::string
  translate(const char* context, const char* text, const char* disambiguation, int count);

  /// Makes the catalogue the one that answers from now on.
  /// @param catalogue  an empty one means none
  static void installCatalogue(Catalogue catalogue);
};

}
