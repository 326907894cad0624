// SPDX-License-Identifier: MIT
#include "PointCollections/Text/Translated.h"

#include "Translator/Translator.h"

namespace Tarvik::PointCollections {
namespace {

/// What the Translator is asked for with the texts of the programs.
constexpr auto context = "PointCollections";

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

std::string
TranslatedTexts::formFor(std::size_t number, fmt::string_view one, fmt::string_view other)
{
  auto translation = Translator::translate(context, one.data(), nullptr, sameFormAs(number));
  return translation != one.data() || number == 1 ? translation : other.data();
}

std::string TranslatedTexts::filled(fmt::string_view translation,
                                    fmt::string_view english,
                                    fmt::format_args arguments)
{
  try {
    return fmt::vformat(translation, arguments);
  } catch (const fmt::format_error&) {
    return fmt::vformat(english, arguments);
  }
}

}
