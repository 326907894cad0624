// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Completion.h"
#include "PointCollections/Console/Shell/RecoveryOffer.h"
#include "PointCollections/Console/Shell/Runner.h"
#include "PointCollections/Console/Shell/UnsavedChanges.h"
#include "PointCollections/Console/Terminal/Pager.h"
#include "PointCollections/Console/Terminal/Terminal.h"
#include "PointCollections/Console/Text/Wrapping.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Recovery/StateFolder.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <new>
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
  std::uint64_t historyBudget = Editor::historyBudget;
  bool isQuiet = false;
  bool isPlain = false;
  bool forgetsLines = false;
};

constexpr auto purpose =
    "Puts point collections into named groups: opens a file of points and runs commands on it.";

constexpr auto remarks =
    "If the name of FILE ends in .tkpc, it is a project that the command save has written. "
    "Otherwise it is UTF-8 text with the columns collection, x, y and z in any order, with commas, "
    "semicolons or tabs between. Each point collection in it is an element that can be put into "
    "groups. FILE may be a pipe; - is standard input, and so is --script -.\n\n"
    "Commands come from --command, then from --script. Without either they are read from standard "
    "input; on a terminal with line editing, recall of earlier lines and completion. The command "
    "help explains them. Except on a terminal, the first mistake ends the program.\n\n"
    "Changes are only kept by the command save. On a terminal, the program asks before changes are "
    "lost. If it is ended by a signal there, or crashes, it offers to recover them when the same "
    "file is opened again. After a script, it warns of unsaved changes on standard error; that is "
    "not a failure.\n\n"
    "Exit status: 0 success; 1 a command failed or the output could not be written; 2 the "
    "arguments, FILE or the script were not valid. If nobody reads the output any more, the "
    "program ends quietly, by the signal SIGPIPE (on Windows, with status 1).";

/// Lets a whole number pass, and a unit that CLI11 checks.
std::string refuseOtherThanSize(std::string size)
{
  const bool isWhole =
      size.find_first_not_of("0123456789") != 0 && size.find_first_of(".,+-") == std::string::npos;
  if (!isWhole)
    throw CLI::ValidationError(printable(size) +
                               " is not a size; expected a whole number such as 256M or 2G");
  return size;
}

void declare(CLI::App& app, Settings& settings)
{
  app.footer(remarks);
  app.allow_windows_style_options(false); // a file may have a path that starts with a slash
  app.set_version_flag("--version", "point-collections " POINT_COLLECTIONS_VERSION);
  app.add_option("FILE", settings.file, "The project (.tkpc) or points (.csv) to open")->required();
  app.add_option("--script", settings.script, "Read commands from a file")->type_name("FILE");
  app.add_option("--command", settings.commands, "Run a command; may be repeated")
      ->type_name("TEXT")
      ->allow_extra_args(false);
  app.add_option("--history-budget", settings.historyBudget,
                 "How much memory the steps that can be undone may take, 256M by default.\n"
                 "The oldest ones are forgotten; the last one is always kept")
      ->type_name("BYTES")
      ->transform(CLI::AsSizeValue(false))
      ->transform(refuseOtherThanSize); // runs first; the other one takes -1 for a great number
  app.add_flag("--no-history", settings.forgetsLines,
               "Do not keep the lines that are typed for the next time");
  app.add_flag("--quiet", settings.isQuiet, "Print results only: no commands, no comments");
  app.add_flag("--no-color", settings.isPlain,
               "Do not use colours. They are only used on a terminal, and not if the\n"
               "environment variable NO_COLOR is set");
}

constexpr auto standardInput = "-";
constexpr auto nameOfStandardInput = "<stdin>";

/// Refuses arguments that want two things of standard input.
void checkStandardInput(const Settings& settings)
{
  const bool isScript = settings.script == standardInput;
  if (settings.file != standardInput)
    return;
  if (isScript)
    throw UserError("standard input cannot have both the points and the script; give one of them "
                    "as a file");
  if (!settings.script && settings.commands.empty())
    throw UserError("standard input has the points; give the commands by --command or --script");
}

OpenedDocument openFirst(Files& files, const Settings& settings)
{
  return settings.file == standardInput
             ? openPoints(readText(std::cin, nameOfStandardInput), nameOfStandardInput)
             : openDocument(files, Utf8::toPath(settings.file));
}

/// Opens it, and shows on the terminal if that takes long.
OpenedDocument openShown(Files& files, const Settings& settings, ProgressLine& progress)
{
  const ShownWork work(&progress, "Opening " + displayName(settings.file));
  return openFirst(files, settings);
}

void tellWarnings(const Session& session, Transcript& transcript)
{
  for (const auto& warning : session.editor.opened().warnings)
    transcript.error("warning", warning);
}

std::string welcome(const Session& session)
{
  return fmt::format("Opened {}.", summaryOf(session.editor));
}

/// The file that keeps the lines of earlier runs; empty if none is to be kept.
std::filesystem::path historyFile(const Settings& settings)
{
  const auto folder = settings.forgetsLines ? std::filesystem::path() : defaultStateFolder();
  return folder.empty() ? folder : folder / "history";
}

std::unique_ptr<LineReader>
makeReader(Session& session, Recovery& recovery, const std::filesystem::path& history)
{
  const InputWait wait = [&recovery] {
    return waitForInput([&recovery] {
      recovery.pause();
      return recovery.dueTime();
    });
  };
  auto reader = isOutputTerminal()
                    ? makeEditingReader([&session](auto line) { return complete(session, line); },
                                        wait, history)
                    : nullptr;
  return reader ? std::move(reader) : makePlainReader(std::cin, terminalOutput(), wait);
}

/// How wide the terminal is now: the user may change that at any time.
std::size_t columnsOfTerminal()
{
  const auto size = terminalSize();
  return size ? size->columns : unlimitedColumns;
}

void runOnTerminal(Session& session, Transcript& transcript, const Settings& settings)
{
  catchInterrupts(); // Ctrl-C while a command runs must not lose all work
  catchEndSignals();
  Recovery recovery(session.editor);
  const auto subscription = session.editor.history().subscribe([&](auto&) { recovery.changed(); });
  session.takeNotice = [&] { return recovery.takeProblem(); };
  const auto reader = makeReader(session, recovery, historyFile(settings));
  if (isOutputTerminal()) {
    transcript.setViewer([&recovery](const std::string& text) {
      return showLongText(text, [&recovery] { recovery.keep(); });
    });
    transcript.setColumns(columnsOfTerminal);
    session.columns = columnsOfTerminal;
  }
  const auto fitted = [&](const std::string& text) {
    return wrapped(text, session.columns ? session.columns() : unlimitedColumns);
  };
  const std::string hint = "Type help for the commands, quit to leave.";
  transcript.setDialogue(terminalOutput());
  transcript.result(isOutputTerminal() ? fitted(welcome(session) + ' ' + hint) : welcome(session));
  if (!isOutputTerminal())
    transcript.dialogue(hint);
  tellWarnings(session, transcript);
  session.lookForUnsavedWork = [&] {
    offerUnsavedWork(session, transcript, recovery,
                     findUnsavedWork(session.editor.files(), session.editor.opened().file),
                     questionsTo(*reader, session));
  };
  session.keepUnsavedChanges = [&] { return recovery.keep(); };
  lookForUnsavedWork(session, transcript);
  if (runInteractively(session, transcript, *reader))
    recovery.clear();
  session.takeNotice = nullptr;
  session.lookForUnsavedWork = nullptr;
  session.keepUnsavedChanges = nullptr;
  endAsAsked();
}

bool runBatch(Session& session, const Settings& settings, Transcript& transcript)
{
  const bool readsInput =
      settings.script ? settings.script == standardInput : settings.commands.empty();
  std::ifstream script;
  if (settings.script && !readsInput)
    script = openText(Utf8::toPath(*settings.script));
  if (!settings.isQuiet)
    transcript.result(welcome(session));
  tellWarnings(session, transcript);
  session.lookForUnsavedWork = [&] {
    tellOfUnsavedWork(session, transcript,
                      findUnsavedWork(session.editor.files(), session.editor.opened().file));
  };
  lookForUnsavedWork(session, transcript);
  const auto runRest = [&] {
    if (readsInput)
      return runScript(session, transcript, std::cin, nameOfStandardInput);
    return !settings.script || runScript(session, transcript, script, *settings.script);
  };
  const bool isFine = runCommands(session, transcript, settings.commands) && runRest();
  warnOfUnsavedChanges(session, transcript);
  return isFine;
}

/// Nobody reads the output any more.
struct OutputAbandoned {};

/// @throws OutputAbandoned, std::runtime_error if any output could not be written
void requireOutput()
{
  std::cout.flush();
  if (std::cout)
    return;
  if (isOutputAbandoned())
    throw OutputAbandoned();
  throw std::runtime_error("standard output cannot be written");
}

ExitStatus run(const Settings& settings)
{
  checkStandardInput(settings);
  const bool isInteractive = !settings.script && settings.commands.empty() && isInputTerminal();
  const bool hasColor = !settings.isPlain && std::getenv("NO_COLOR") == nullptr &&
                        isOutputTerminal() && isErrorTerminal();
  const auto detail = isInteractive || settings.isQuiet ? Transcript::Detail::ResultsOnly
                                                        : Transcript::Detail::Full;
  const auto files = diskFiles();
  ProgressLine progress(isErrorTerminal() ? &std::cerr : nullptr);
  Session session = {.editor = Editor(openShown(*files, settings, progress), files),
                     .style = Style{hasColor},
                     .progress = &progress};
  session.editor.setHistoryBudget(static_cast<std::size_t>(
      std::min<std::uint64_t>(settings.historyBudget, CommandHistory::unlimited)));
  Transcript transcript(std::cout, std::cerr, detail, session.style);

  bool isFine = true; // mistakes on a terminal are no failure
  if (isInteractive)
    runOnTerminal(session, transcript, settings);
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
    std::reverse(arguments.begin(), arguments.end()); // the order that CLI11 expects
    app.parse(std::move(arguments));
  } catch (const CLI::CallForHelp&) {
    constexpr std::size_t mostColumns = 100;
    const auto columns = isOutputTerminal() ? columnsOfTerminal() : mostColumns;
    std::cout << wrapped(app.help(), std::min(columns, mostColumns));
    requireOutput();
    return Succeeded;
  } catch (const CLI::Success& version) {
    app.exit(version);
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
  try {
    std::ios::sync_with_stdio(false);
    prepareTerminal();
    return runProgram(programArguments(argc, argv));
  } catch (const UserError& error) {
    std::cerr << "point-collections: " << error.what() << std::endl;
    return BadInput;
  } catch (const OutputAbandoned&) {
    endAsAbandoned();
    return CommandFailed;
  } catch (const std::bad_alloc&) {
    std::fputs("point-collections: there is not enough memory\n", stderr); // needs no memory itself
    return CommandFailed;
  } catch (const std::exception& error) {
    std::cerr << "point-collections: " << error.what() << std::endl;
    return CommandFailed;
  }
}
