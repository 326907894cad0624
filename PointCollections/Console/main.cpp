// SPDX-License-Identifier: MIT
#include "PointCollections/Console/CommandLine.h"
#include "PointCollections/Console/Language.h"
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
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <cstddef>
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
#include <variant>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

enum ExitStatus : int { Succeeded = 0, CommandFailed = 1, BadInput = 2 };

constexpr auto standardInput = "-";
constexpr auto nameOfStandardInput = "<stdin>";

/// Refuses arguments that want two things of standard input.
void checkStandardInput(const Settings& settings)
{
  const bool isScript = settings.script == standardInput;
  if (settings.file != standardInput)
    return;
  if (isScript)
    throw UserError(translated("standard input cannot have both the points and the script; give "
                               "one of them as a file"));
  if (!settings.script && settings.commands.empty())
    throw UserError(
        translated("standard input has the points; give the commands by --command or --script"));
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
  const ShownWork work(&progress, translated("Opening {}", displayName(settings.file)));
  return openFirst(files, settings);
}

void tellWarnings(const Session& session, Transcript& transcript)
{
  for (const auto& warning : session.editor.opened().warnings)
    transcript.error(translated("warning"), warning);
}

std::string welcome(const Session& session)
{
  return translated("Opened {}.", summaryOf(session.editor));
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
  const auto hint = translated("Type help for the commands, quit to leave.");
  transcript.setDialogue(terminalOutput());
  if (isOutputTerminal()) {
    // For translators: two sentences, "Opened …." and "Type help …."
    transcript.result(fitted(translated("{} {}", welcome(session), hint)));
  } else {
    transcript.result(welcome(session));
    transcript.dialogue(hint);
  }
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
  throw std::runtime_error(translated("standard output cannot be written"));
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

/// How wide help may be: on the whole width of a large window it is hard to read.
std::size_t columnsOfHelp()
{
  constexpr std::size_t mostColumns = 100;
  return isOutputTerminal() ? std::min(columnsOfTerminal(), mostColumns) : mostColumns;
}

void tellError(const std::string& message)
{
  std::cerr << "point-collections: " << message << std::endl;
}

int runProgram(std::vector<std::string> arguments)
{
  if (const auto problem = chooseLanguage(languageIn(arguments)); !problem.empty())
    tellError(problem);
  const auto wanted = readCommandLine(std::move(arguments), columnsOfHelp());
  if (const auto* const asked = std::get_if<AskedText>(&wanted)) {
    std::cout << asked->text;
    requireOutput();
    return Succeeded;
  }
  return run(std::get<Settings>(wanted));
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
    tellError(error.what());
    return BadInput;
  } catch (const OutputAbandoned&) {
    endAsAbandoned();
    return CommandFailed;
  } catch (const std::bad_alloc&) {
    std::fputs("point-collections: there is not enough memory\n", stderr); // needs no memory itself
    return CommandFailed;
  } catch (const std::exception& error) {
    tellError(error.what());
    return CommandFailed;
  }
}
