// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// The candidate that the user most likely meant by a word that is not one of them.
///
/// A candidate is close if it differs in few characters (one in three, at most three). Swapping two
/// neighbours counts as one difference; the case of A to Z is ignored. If no candidate is close,
/// one that starts with the word and a blank is returned: the user may have left out the quotes. Of
/// equally close candidates the first wins. Words and names of more than 64 characters match
/// nothing.
std::optional<std::string> nearestName(std::string_view word,
                                       const std::vector<std::string>& candidates);

/// The first candidate that is not the word, but looks the same: see Lookalikes.
std::optional<std::string> lookalike(std::string_view word,
                                     const std::vector<std::string>& candidates);

/// "; did you mean Europe?": follows a message about what is not there.
/// @param typed  the name as it is typed
std::string questionAbout(const std::string& typed);

/// "; " and the text: a hint that follows a message.
std::string hint(std::string_view text);

/// questionAbout() the nearest candidate, with a remark if it looks the same as the word. If no
/// candidate is close, the hint.
/// @param otherwise  the hint in the user's language, without what joins it to the message: "show
///                   lists the groups"
std::string suggestion(std::string_view word,
                       const std::vector<std::string>& candidates,
                       std::string_view otherwise);

}
