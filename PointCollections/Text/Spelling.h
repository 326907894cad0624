// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Names that look the same, but are written differently. In Unicode, ü is one character, or a u
/// and two dots; there are characters that nobody can see, and blanks of many kinds.
namespace Tarvik::PointCollections {

/// Whether nobody can see the character, or it changes what others look like: control characters,
/// characters without width, and those that change the direction of text. Accents are no such
/// characters, and neither are those that choose between the shapes of one.
bool isInvisible(char32_t character);

/// Whether the character looks like a blank, but is another one, such as a no-break space.
bool isOtherBlank(char32_t character);

/// The canonical decomposition of a text (NFD): ü becomes a u and two dots.
std::u32string decomposed(std::string_view text);

/// What the text looks like: names that look the same have the same appearance.
std::u32string appearanceOf(std::string_view text);

/// Tells which texts look the same as one, but are not the same.
class Lookalikes {
public:
  explicit Lookalikes(std::string_view text);

  bool operator()(std::string_view other) const;

private:
  std::string m_text;
  std::u32string m_appearance;
  bool m_looksAscii;
};

/// The name in double quotes, as it is typed in a command. What is different from the other name is
/// escaped, so that the user can see it: "Z\u{FC}rich".
std::string spelledApart(std::string_view name, std::string_view other);

}
