// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/DocumentFile.h"
#include "PointCollections/Console/Shell/Runner.h"
#include "PointCollections/Console/Terminal/Terminal.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

enum ExitStatus : int { Succeeded = 0, CommandFailed = 1, BadInput = 2 };

struct Settings {
  std::string file;
  std::optional<std::string> script;
  std::vector<std::string> commands;
  bool isQuiet = false;
  bool isPlain = false;
};

constexpr auto purpose =
    "Groups point collections: opens a file of points and carries out commands on them.";

constexpr auto remarks =
    "FILE is a project that the command save has written when its name ends in .tkpc, and\n"
    "otherwise comma-separated UTF-8 text with the header collection,x,y,z.\n\n"
    "Commands come from --command, then from --script. Without either they are read from\n"
    "standard input: with line editing, history and completion when it is a terminal. The\n"
    "command help explains them. Except on a terminal, the first mistake ends the program.\n\n"
    "Changes are kept by the command save only. On a terminal the program asks before changes\n"
    "are lost; at the end of a script it says so on standard error, which is no failure.\n\n"
    "Exit status: 0 all went well; 1 a command failed or the output could not be written;\n"
    "2 the arguments, FILE or the script were no good.";

void declare(CLI::App& app, Settings& settings)
{
  app.footer(remarks);
  app.allow_windows_style_options(false); // they would hide files whose paths start with a slash
  app.set_version_flag("--version", "point-collections " POINT_COLLECTIONS_VERSION);
  app.add_option("FILE", settings.file, "The project (.tkpc) or points (.csv) to open")->required();
  app.add_option("--script", settings.script, "Read commands from a file")->type_name("FILE");
  app.add_option("--command", settings.commands, "Carry out a command; may be repeated")
      ->type_name("TEXT")
      ->allow_extra_args(false);
  app.add_flag("--quiet", settings.isQuiet, "Print results only: no commands, no comments");
  app.add_flag("--no-color", settings.isPlain,
               "Do not use colours, which are used on a terminal only, and not when the\n"
               "environment variable NO_COLOR is set");
}

std::string welcome(const Session& session)
{
  return fmt::format("Opened {}.", documentInWords(session));
}

void runOnTerminal(Session& session, Transcript& transcript)
{
  ignoreInterrupts(); // one that comes while a command runs must not lose all work
  auto reader = isOutputTerminal()
                    ? makeEditingReader([&](auto line) { return complete(session, line); })
                    : nullptr;
  if (!reader)
    reader = makePlainReader(std::cin, std::cout);
  transcript.result(welcome(session) + " Type help for the verbs, quit to leave.");
  runInteractively(session, transcript, *reader);
}

bool runBatch(Session& session, const Settings& settings, Transcript& transcript)
{
  std::ifstream script;
  if (settings.script)
    script = openText(Utf8::toPath(*settings.script));
  if (!settings.isQuiet)
    transcript.result(welcome(session));
  const bool readsInput = !settings.script && settings.commands.empty();
  const bool isFine = readsInput ? runScript(session, transcript, std::cin, "<stdin>")
                                 : runCommands(session, transcript, settings.commands) &&
                                       (!settings.script ||
                                        runScript(session, transcript, script, *settings.script));
  tellOfUnsaved(session, transcript);
  return isFine;
}

/// Whether all that was printed has been taken.
void requireOutput()
{
  std::cout.flush();
  if (!std::cout)
    throw std::runtime_error("standard output cannot be written");
}

ExitStatus run(const Settings& settings)
{
  const bool isInteractive = !settings.script && settings.commands.empty() && isInputTerminal();
  const bool hasColor = !settings.isPlain && std::getenv("NO_COLOR") == nullptr &&
                        isOutputTerminal() && isErrorTerminal();
  const auto detail = isInteractive || settings.isQuiet ? Transcript::Detail::ResultsOnly
                                                        : Transcript::Detail::Full;
  Session session = {PointDocument::create(), "", Style{hasColor}};
  adopt(session, readDocument(*session.files, Utf8::toPath(settings.file)));
  Transcript transcript(std::cout, std::cerr, detail, session.style);

  bool isFine = true; // whatever a person does
  if (isInteractive)
    runOnTerminal(session, transcript);
  else
    isFine = runBatch(session, settings, transcript);
  requireOutput();
  return isFine ? Succeeded : CommandFailed;
}

int runProgram(std::vector<std::string> arguments)
{
  Settings settings;
  CLI::App app(purpose, "point-collections");
  declare(app, settings);
  try {
    std::reverse(arguments.begin(), arguments.end()); // as CLI11 takes them
    app.parse(std::move(arguments));
  } catch (const CLI::Success& helpOrVersion) {
    app.exit(helpOrVersion);
    requireOutput();
    return Succeeded;
  } catch (const CLI::ParseError& error) {
    std::cerr << "point-collections: " << printable(error.what())
              << "\nRun with --help for more information." << std::endl;
    return BadInput;
  }
  return run(settings);
}

}
}

int main(int argc, char** argv)
{
  using namespace Tarvik::PointCollections;
  std::ios::sync_with_stdio(false);
  prepareTerminal();
  try {
    return runProgram(programArguments(argc, argv));
  } catch (const UserError& error) {
    std::cerr << "point-collections: " << error.what() << std::endl;
    return BadInput;
  } catch (const std::exception& error) {
    std::cerr << "point-collections: " << error.what() << std::endl;
    return CommandFailed;
  }
}
