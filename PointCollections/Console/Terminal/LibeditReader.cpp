// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LibeditKeys.h"
#include "PointCollections/Console/Terminal/LineHistory.h"
#include "PointCollections/Console/Terminal/LineReader.h"
#include "PointCollections/Console/Terminal/Terminal.h"
#include "PointCollections/Console/Text/DisplayWidth.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <histedit.h>
#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr std::size_t listedCandidates = 100;

std::size_t terminalWidth()
{
  winsize size{};
  const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? size.ws_col : 80;
}

/// Prints the candidates below the line, in columns of the same width.
void list(const std::vector<std::string>& candidates)
{
  const std::size_t shown = std::min(candidates.size(), listedCandidates);
  std::size_t width = 0;
  for (std::size_t i = 0; i < shown; ++i)
    width = std::max(width, displayWidth(candidates[i]) + 2);
  const std::size_t columns = std::max<std::size_t>(1, terminalWidth() / width);

  std::string text = "\n";
  for (std::size_t i = 0; i < shown; ++i) {
    const bool isRowOver = (i + 1) % columns == 0 || i + 1 == shown;
    text += candidates[i];
    text += isRowOver ? "\n" : std::string(width - displayWidth(candidates[i]), ' ');
  }
  if (shown < candidates.size())
    // For translators: stands after a list of words that complete what the user types
    text += translatedCount(candidates.size() - shown, "… and {} more", "… and {} more") + '\n';
  std::fputs(text.c_str(), stdout);
  std::fflush(stdout);
}

/// Asks the terminal to mark pasted text, while this lives. Terminals that cannot do it ignore it.
class BracketedPaste {
public:
  BracketedPaste() { start(); }
  BracketedPaste(const BracketedPaste&) = delete;
  BracketedPaste& operator=(const BracketedPaste&) = delete;
  ~BracketedPaste() { end(); }

  static void start() { send("\x1b[?2004h"); }
  static void end() { send("\x1b[?2004l"); }

private:
  static void send(const char* request)
  {
    std::fputs(request, stdout);
    std::fflush(stdout);
  }
};

/// Lets a signal do what it usually does, while this lives.
class UsualSignal {
public:
  explicit UsualSignal(int signal) : m_signal(signal)
  {
    struct sigaction usual = {};
    usual.sa_handler = SIG_DFL;
    sigaction(signal, &usual, &m_before);
  }
  UsualSignal(const UsualSignal&) = delete;
  UsualSignal& operator=(const UsualSignal&) = delete;
  ~UsualSignal() { sigaction(m_signal, &m_before, nullptr); }

private:
  int m_signal;
  struct sigaction m_before = {};
};

class LibeditReader : public LineReader {
public:
  LibeditReader(Completer completer, InputWait wait, const std::filesystem::path& file)
      : m_completer(std::move(completer)),
        m_wait(std::move(wait)),
        m_file(file),
        m_history(history_init(), &history_end),
        m_line(el_init("point-collections", stdin, stdout, stderr), &el_end)
  {
    if (!isUsable())
      return;
    HistEvent event;
    history(m_history.get(), &event, H_SETSIZE, static_cast<int>(LineHistory::mostLines));
    history(m_history.get(), &event, H_SETUNIQUE, 1);
    for (const auto& earlier : m_file.read())
      history(m_history.get(), &event, H_ENTER, earlier.c_str());

    EditLine* line = m_line.get();
    el_set(line, EL_CLIENTDATA, this);
    el_set(line, EL_PROMPT, &LibeditReader::prompt);
    el_set(line, EL_HIST, &history, m_history.get());
    el_set(line, EL_EDITOR, "emacs");
    el_set(line, EL_SIGNAL, 1);
    // The wide function for names: the narrow one copies them and never frees the copies.
    el_wset(line, EL_ADDFN, L"complete-word", L"Completes the word", &LibeditReader::complete);
    el_set(line, EL_BIND, "^I", "complete-word", nullptr);
    el_set(line, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    el_wset(line, EL_GETCFN, &LibeditReader::getCharacter);
    // Ctrl-C must reach the editor; otherwise it ends the program.
    el_set(line, EL_SETTY, "-d", "-isig", nullptr);
    el_wset(line, EL_ADDFN, L"drop-line", L"Drops the line", &LibeditReader::drop);
    el_set(line, EL_BIND, "^C", "drop-line", nullptr);
    el_wset(line, EL_ADDFN, L"suspend", L"Suspends the program", &LibeditReader::suspend);
    el_set(line, EL_BIND, "^Z", "suspend", nullptr);
    bindKeys(line);
    // What the terminal sends before and after a pasted text.
    el_wset(line, EL_ADDFN, L"paste-start", L"Starts a paste", &LibeditReader::startPaste);
    el_wset(line, EL_ADDFN, L"paste-end", L"Ends a paste", &LibeditReader::endPaste);
    el_set(line, EL_BIND, "\\e[200~", "paste-start", nullptr);
    el_set(line, EL_BIND, "\\e[201~", "paste-end", nullptr);
  }

  bool isUsable() const { return m_history && m_line; }

  std::optional<std::string> readLine(const std::string& promptText) override
  {
    auto line = read(promptText, m_completer);
    if (line)
      remember(*line);
    return line;
  }

  std::optional<std::string> readAnswer(const std::string& promptText,
                                        const Completer& completer) override
  {
    return read(promptText, completer);
  }

private:
  /// @param completer  must live until this returns
  std::optional<std::string> read(const std::string& promptText, const Completer& completer)
  {
    m_currentCompleter = &completer;
    m_prompt = promptText;
    const BracketedPaste whileTyping;
    el_set(m_line.get(), EL_PREP_TERM, 1); // before the prompt is shown
    int length = 0;
    const char* text = nullptr;
    do {
      errno = 0;
      text = el_gets(m_line.get(), &length);
    } while (text == nullptr && length < 0 && errno == EINTR); // a signal does not end the input
    if (text == nullptr || length <= 0)
      return std::nullopt;
    std::string line(text, static_cast<std::size_t>(length));
    if (line.ends_with('\n'))
      line.pop_back();
    return line;
  }

  static LibeditReader& readerOf(EditLine* line)
  {
    void* reader = nullptr;
    el_get(line, EL_CLIENTDATA, &reader);
    return *static_cast<LibeditReader*>(reader);
  }

  static char* prompt(EditLine* line) { return readerOf(line).m_prompt.data(); }

  /// Waits for the next character, and then lets libedit read it.
  static int getCharacter(EditLine* line, wchar_t* character)
  {
    if (!readerOf(line).m_wait())
      return 0; // the end of the input
    el_wset(line, EL_GETCFN, EL_BUILTIN_GETCFN);
    const int count = el_wgetc(line, character);
    el_wset(line, EL_GETCFN, &LibeditReader::getCharacter);
    return count;
  }

  static unsigned char startPaste(EditLine* line, int)
  {
    readerOf(line).m_isPasting = true;
    return CC_NORM;
  }

  static unsigned char endPaste(EditLine* line, int)
  {
    readerOf(line).m_isPasting = false;
    return CC_NORM;
  }

  static unsigned char drop(EditLine* line, int)
  {
    readerOf(line).m_isPasting = false;
    const LineInfo* info = el_line(line);
    el_cursor(line, static_cast<int>(info->lastchar - info->cursor));
    el_deletestr(line,
                 static_cast<int>(Utf8::countCharacters(
                     {info->buffer, static_cast<std::size_t>(info->lastchar - info->buffer)})));
    return CC_REFRESH;
  }

  /// Stops all programs of the job, as the terminal does on Ctrl-Z. Returns when they go on.
  static unsigned char suspend(EditLine* line, int)
  {
    BracketedPaste::end();
    el_set(line, EL_PREP_TERM, 0);
    {
      const UsualSignal stop(SIGTSTP); // not what libedit does at these signals
      const UsualSignal goOn(SIGCONT);
      kill(0, SIGTSTP);
    }
    el_set(line, EL_PREP_TERM, 1);
    BracketedPaste::start();
    return CC_REDISPLAY;
  }

  static unsigned char complete(EditLine* line, int)
  {
    try {
      if (readerOf(line).m_isPasting) // a tab in a table that is pasted
        return el_insertstr(line, " ") == -1 ? CC_ERROR : CC_REFRESH;
      return readerOf(line).completeAtCursor();
    } catch (...) { // libedit is C: no exception may pass through it
      return CC_ERROR;
    }
  }

  unsigned char completeAtCursor()
  {
    const LineInfo* info = el_line(m_line.get());
    const std::string typed(info->buffer, info->cursor);
    Completion completion;
    doWithoutSignals([&] { completion = (*m_currentCompleter)(typed); });
    if (completion.candidates.empty())
      return CC_ERROR;

    const auto replaced = std::string_view(typed).substr(completion.from);
    const bool isStuck = replaced == completion.text;
    el_deletestr(m_line.get(), static_cast<int>(Utf8::countCharacters(replaced)));
    if (!completion.text.empty() && el_insertstr(m_line.get(), completion.text.c_str()) == -1)
      return CC_ERROR;
    if (!isStuck)
      return CC_REFRESH;
    doWithoutSignals([&] { list(completion.candidates); });
    return CC_REDISPLAY;
  }

  void remember(const std::string& line)
  {
    if (line.find_first_not_of(" \t") == std::string::npos)
      return;
    HistEvent event;
    const bool isNew =
        history(m_history.get(), &event, H_FIRST) != 0 || std::string_view(event.str) != line;
    history(m_history.get(), &event, H_ENTER, line.c_str());
    if (isNew)
      m_file.add(line);
  }

  Completer m_completer;
  const Completer* m_currentCompleter = &m_completer;
  InputWait m_wait;
  LineHistory m_file;
  std::string m_prompt;
  bool m_isPasting = false;
  std::unique_ptr<History, decltype(&history_end)> m_history;
  std::unique_ptr<EditLine, decltype(&el_end)> m_line;
};

/// Libedit takes its encoding from the locale. Only LC_CTYPE changes, not numbers and messages.
void useUtf8()
{
  std::setlocale(LC_CTYPE, "");
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0)
    std::setlocale(LC_CTYPE, "C.UTF-8");
}

}

std::unique_ptr<LineReader>
makeEditingReader(Completer completer, InputWait wait, const std::filesystem::path& history)
{
  const char* terminal = std::getenv("TERM");
  if (terminal == nullptr || std::strcmp(terminal, "dumb") == 0)
    return nullptr;
  useUtf8();
  auto reader = std::make_unique<LibeditReader>(std::move(completer), std::move(wait), history);
  return reader->isUsable() ? std::move(reader) : nullptr;
}

}
