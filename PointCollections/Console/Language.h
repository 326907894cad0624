// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace Tarvik::PointCollections {

/// Shows all texts from now on in a language. A file of translations that is damaged is no reason
/// to stop: the texts are then in English.
/// @param language  such as "de"; nothing for the language of the environment
/// @return what is wrong with the file of translations; empty if nothing is
/// @throws UserError if there are no translations into a language that was asked for
std::string chooseLanguage(const std::optional<std::string>& language);

}
