// SPDX-License-Identifier: MIT
#include "PointCollections/Console/CommandLine.h"

#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr std::string_view languageOption = "--language";

constexpr const char* purpose = translatable(
    "Puts point collections into named groups: opens a file of points and runs commands on it.");

/// What is said below the options.
constexpr std::array remarks = {
    translatable(
        "If the name of FILE ends in .tkpc, it is a project that the command save has written. "
        "Otherwise it is UTF-8 text with the columns collection, x, y and z in any order, with "
        "commas, semicolons or tabs between. Each point collection in it is an element that can be "
        "put into groups. FILE may be a pipe; - is standard input, and so is --script -."),
    translatable(
        "Commands come from --command, then from --script. Without either they are read from "
        "standard input; on a terminal with line editing, recall of earlier lines and completion. "
        "The command help explains them. Except on a terminal, the first mistake ends the "
        "program."),
    translatable(
        "Changes are only kept by the command save. On a terminal, the program asks before changes "
        "are lost. If it is ended by a signal there, or crashes, it offers to recover them when "
        "the "
        "same file is opened again. After a script, it warns of unsaved changes on standard error; "
        "that is not a failure."),
    translatable(
        "Exit status: 0 success; 1 a command failed or the output could not be written; 2 the "
        "arguments, FILE or the script were not valid. If nobody reads the output any more, the "
        "program ends quietly, by the signal SIGPIPE (on Windows, with status 1).")};

std::string translatedRemarks()
{
  std::string text;
  for (const auto* const remark : remarks)
    text.append(text.empty() ? "" : "\n\n").append(translated(remark));
  return text;
}

/// Whether it is a unit of bytes that CLI11 knows, in small letters.
bool isUnit(std::string_view text)
{
  if (text.ends_with('b'))
    text.remove_suffix(1);
  if (text.size() == 2 && text.ends_with('i'))
    text.remove_suffix(1);
  constexpr std::string_view prefixes = "kmgtpe";
  return text.empty() || (text.size() == 1 && prefixes.find(text) != std::string_view::npos);
}

/// Lets a whole number pass, and a unit that CLI11 knows. More digits would be too many for it.
std::string refuseOtherThanSize(std::string size)
{
  constexpr std::size_t mostDigits = 15;
  const auto digits = std::min(size.find_first_not_of("0123456789"), size.size());
  const auto unit = std::min(size.find_first_not_of(' ', digits), size.size());
  if (digits == 0 || digits > mostDigits || !isUnit(CLI::detail::to_lower(size.substr(unit))))
    throw CLI::ValidationError(
        translated("{} is not a size; expected a whole number such as 256M or 2G",
                   printable(abbreviated(size, 60))));
  return size;
}

/// The headings that CLI11 writes into help.
void translateHeadings(CLI::App& app)
{
  auto& formatter = *app.get_formatter();
  formatter.label("Usage", translated("Usage"));
  formatter.label("Positionals", translated("Positionals"));
  app.option_defaults()->group(translated("Options"));
  app.set_help_flag("-h,--help", translated("Print this help message and exit"));
}

void declare(CLI::App& app, Settings& settings)
{
  translateHeadings(app);
  app.footer(translatedRemarks());
  app.allow_windows_style_options(false); // a file may have a path that starts with a slash
  app.set_version_flag("--version", "point-collections " POINT_COLLECTIONS_VERSION,
                       translated("Display program version information and exit"));
  app.add_option("FILE", settings.file, translated("The project (.tkpc) or points (.csv) to open"))
      ->required();
  app.add_option("--script", settings.script, translated("Read commands from a file"))
      ->type_name("FILE");
  app.add_option("--command", settings.commands, translated("Run a command; may be repeated"))
      ->type_name("TEXT")
      ->allow_extra_args(false);
  app.add_option(
         std::string(languageOption), settings.language,
         translated("Show texts in this language, such as de or zh_CN; by default, in that of the\n"
                    "environment or the system"))
      ->type_name("LANGUAGE");
  app.add_option(
         "--history-budget", settings.historyBudget,
         translated("How much memory the steps that can be undone may take, 256M by default.\n"
                    "The oldest ones are forgotten; the last one is always kept"))
      ->type_name("BYTES")
      ->transform(CLI::AsSizeValue(false))
      ->transform(refuseOtherThanSize); // runs first; the other one takes -1 for a great number
  app.add_flag("--no-history", settings.forgetsLines,
               translated("Do not keep the lines that are typed for the next time"));
  app.add_flag("--quiet", settings.isQuiet,
               translated("Print results only: no commands, no comments"));
  app.add_flag("--no-color", settings.isPlain,
               translated("Do not use colours. They are only used on a terminal, and not if the\n"
                          "environment variable NO_COLOR is set"));
}

/// What the user reads about wrong arguments.
std::string complaint(const CLI::ParseError& error, const CLI::App& app)
{
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    const auto extra = app.remaining();
    return extra.size() == 1
               ? translated("The following argument was not expected: {}", extra.front())
               : translated("The following arguments were not expected: {}",
                            fmt::to_string(fmt::join(extra, " ")));
  }
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr)
    return translated("FILE is required");
  return error.what();
}

}

std::optional<std::string> languageIn(const std::vector<std::string>& arguments)
{
  constexpr std::array<std::string_view, 3> otherOptions = {"--script", "--command",
                                                            "--history-budget"};
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--") // names of files follow
      break;
    if (argument == languageOption && i + 1 < arguments.size())
      return arguments[i + 1];
    if (argument.starts_with(languageOption) &&
        argument.substr(languageOption.size()).starts_with('='))
      return std::string(argument.substr(languageOption.size() + 1));
    if (std::find(otherOptions.begin(), otherOptions.end(), argument) != otherOptions.end())
      ++i; // its value
  }
  return std::nullopt;
}

std::variant<Settings, AskedText> readCommandLine(std::vector<std::string> arguments,
                                                  std::size_t columns)
{
  Settings settings;
  CLI::App app(translated(purpose), "point-collections");
  declare(app, settings);
  try {
    std::reverse(arguments.begin(), arguments.end()); // the order that CLI11 expects
    app.parse(std::move(arguments));
    return settings;
  } catch (const CLI::CallForHelp&) {
    return AskedText{wrapped(app.help(), columns)};
  } catch (const CLI::Success& version) {
    std::ostringstream text;
    app.exit(version, text, text);
    return AskedText{text.str()};
  } catch (const CLI::ParseError& error) {
    throw UserError(printable(complaint(error, app)) + '\n' +
                    translated("Run with --help for more information."));
  }
}

}
