// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include <cstddef>
#include <string>

/// The texts of the programs in the user's language; in the sources they are in English. The
/// translators get every literal that is given to one of these functions.
///
/// A translation that does not fit, such as one with a placeholder too many, is not used; the user
/// then reads English.
namespace Tarvik::PointCollections {

/// Marks a text that is translated later, where it is shown. Returns it as it is.
constexpr const char* translatable(const char* text)
{
  return text;
}

/// A text in the user's language. It has no placeholders; braces in it stay as they are.
std::string translated(const char* text);

/// A text in the user's language, with the arguments in place of its placeholders {}. A translation
/// may number them, as {1} and {0}, to have them in another order.
template <class... Arguments>
requires(sizeof...(Arguments) > 0) std::string
    translated(fmt::format_string<const Arguments&...> text, const Arguments&... arguments);

/// A text with a number that decides its form: "1 element", "2 elements". The number is the
/// argument of the first placeholder; the other arguments follow it. A text with several numbers is
/// put together from several of these.
/// @param one    for the number 1 in English: "{} element"
/// @param other  for other numbers in English: "{} elements"
template <class... Arguments>
std::string translatedCount(std::size_t number,
                            fmt::format_string<const std::size_t&, const Arguments&...> one,
                            fmt::format_string<const std::size_t&, const Arguments&...> other,
                            const Arguments&... arguments);

/// What the templates above are made of. Texts are literals here, which end in NUL.
namespace TranslatedTexts {

/// The translation for that number, or the English text for it; still with its placeholders.
std::string formFor(std::size_t number, fmt::string_view one, fmt::string_view other);

/// The translation with the arguments; if they do not fit it, the English text with them.
std::string
filled(fmt::string_view translation, fmt::string_view english, fmt::format_args arguments);

}

template <class... Arguments>
requires(sizeof...(Arguments) > 0) std::string
    translated(fmt::format_string<const Arguments&...> text, const Arguments&... arguments)
{
  const fmt::string_view english = text;
  return TranslatedTexts::filled(translated(english.data()), english,
                                 fmt::make_format_args(arguments...));
}

template <class... Arguments>
std::string translatedCount(std::size_t number,
                            fmt::format_string<const std::size_t&, const Arguments&...> one,
                            fmt::format_string<const std::size_t&, const Arguments&...> other,
                            const Arguments&... arguments)
{
  const fmt::string_view english = number == 1 ? one : other;
  return TranslatedTexts::filled(TranslatedTexts::formFor(number, one, other), english,
                                 fmt::make_format_args(number, arguments...));
}

}
