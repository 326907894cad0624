// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// The candidate that the user most likely meant with a word that is none of them.
///
/// Close is what differs in few characters (one in three, three at most), where swapping two
/// neighbours counts as one and the case of A to Z does not count; failing that, a name that
/// starts with the word and a blank, as is left of a name without its quotes. Of equally close
/// names the first counts. Words and names of more than 64 characters are close to nothing.
std::optional<std::string> nearestName(std::string_view word,
                                       const std::vector<std::string>& candidates);

/// "; did you mean Europe?", or what to say when nothing is close.
std::string suggestion(std::string_view word,
                       const std::vector<std::string>& candidates,
                       std::string_view otherwise);

}
