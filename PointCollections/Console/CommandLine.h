// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Editor/Editor.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Tarvik::PointCollections {

/// What the arguments of the program say.
struct Settings {
  std::string file;
  std::optional<std::string> script;
  std::vector<std::string> commands;
  std::optional<std::string> language; ///< nothing for that of the environment
  std::uint64_t historyBudget = Editor::historyBudget;
  bool isQuiet = false;
  bool isPlain = false;
  bool forgetsLines = false;
};

/// The arguments ask for a text and nothing else: for help, or for the version.
struct AskedText {
  std::string text; ///< ends with a line end
};

/// The value of the option --language, which is needed before other texts are made.
std::optional<std::string> languageIn(const std::vector<std::string>& arguments);

/// Reads the arguments of the program, without its name.
/// @param columns  how wide help may be
/// @throws UserError if they are not valid
std::variant<Settings, AskedText> readCommandLine(std::vector<std::string> arguments,
                                                  std::size_t columns);

}
