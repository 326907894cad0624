// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Translated.h"

#include "Translator/Translator.h"

#include <string_view>

namespace Tarvik::PointCollections {
namespace {

/// What the Translator is asked for with the texts of the programs.
constexpr auto context = "PointCollections";

/// Whether a placeholder says how its argument is written, as {:%H:%M} does.
bool hasFormats(fmt::string_view text)
{
  const std::string_view view(text.data(), text.size());
  for (auto at = view.find('{'); at != std::string_view::npos; at = view.find('{', at + 1)) {
    if (view.substr(0, view.find('}', at)).find(':', at) != std::string_view::npos)
      return true;
  }
  return false;
}

/// A number with the same form: rules look at the last digits, and at small numbers as a whole.
int sameFormAs(std::size_t number)
{
  constexpr std::size_t round = 1'000'000;
  return static_cast<int>(number < round ? number : number % round + round);
}

}

std::string translated(const char* text)
{
  return Translator::translate(context, text, nullptr, -1);
}

/// A translation for this number may be the same as the English text for 1, as "0 point" in French.
/// So that text is only taken for a missing translation if it is that of another number as well.
std::string
TranslatedTexts::formFor(std::size_t number, fmt::string_view one, fmt::string_view other)
{
  const auto form = [one](std::size_t wanted) {
    return Translator::translate(context, one.data(), nullptr, sameFormAs(wanted));
  };
  constexpr std::size_t many = 2;
  auto translation = form(number);
  const bool isTranslated = translation != one.data() || form(many) != one.data();
  return isTranslated || number == 1 ? translation : other.data();
}

std::string TranslatedTexts::filled(fmt::string_view translation,
                                    fmt::string_view english,
                                    fmt::format_args arguments)
{
  if (!hasFormats(english) && hasFormats(translation)) // such as a width of a billion
    return fmt::vformat(english, arguments);
  try {
    return fmt::vformat(translation, arguments);
  } catch (const fmt::format_error&) {
    return fmt::vformat(english, arguments);
  }
}

}
