// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Text/Style.h"
#include "PointCollections/Text/TextInNeed.h"

#include <cstddef>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace Tarvik::PointCollections {

/// What the user reads: commands, results and comments on one stream, mistakes on another. Make it
/// after the language has been chosen.
class Transcript {
public:
  enum class Detail {
    Full,       ///< commands are echoed, comments printed, with blank lines between
    ResultsOnly ///< for a terminal, which already shows what is typed, and for programs
  };

  /// The streams must outlive the transcript.
  Transcript(std::ostream& output, std::ostream& errors, Detail detail, Style style = {});

  /// Prints a line of a comment. Consecutive lines form a paragraph.
  void comment(std::string_view text);

  /// Ends a paragraph of comments.
  void endParagraph();

  /// Prints a command that is about to run. A very long one is cut.
  void command(std::string_view line);

  /// Shows an answer in another way, such as in a pager; returns false if it is to be printed.
  using Viewer = std::function<bool(const std::string& text)>;

  /// Offers each answer to the viewer before it is printed.
  void setViewer(Viewer viewer) { m_viewer = std::move(viewer); }

  /// Wraps mistakes at so many columns.
  void setColumns(std::function<std::size_t()> columns) { m_columns = std::move(columns); }

  /// Prints the answer of a command, unless it is empty. Stops where the user asks for it; see
  /// Interruptible.
  void result(std::string_view text);

  /// Sends what dialogue() prints to another stream, which must outlive the transcript.
  void setDialogue(std::ostream& stream) { m_dialogue = &stream; }

  /// Prints a part of a conversation with the user: it belongs on the terminal even if the results
  /// go into a file.
  void dialogue(std::string_view text);

  /// Prints a mistake. Does so even when there is no memory left, but then without the place.
  /// @param where   the place, such as "cities.pcs:3"
  /// @param detail  printed after the message
  void error(std::string_view where, std::string_view message, std::string_view detail = {});

  /// Whether everything could be written so far.
  bool isComplete() const;

private:
  bool printWrapped(std::string_view where, std::string_view message, std::string_view detail);
  void printPlace(std::string_view where);
  void startBlock();

  std::ostream& m_output;
  std::ostream& m_errors;
  std::ostream* m_dialogue;
  Detail m_detail;
  Style m_style;
  Viewer m_viewer;
  std::function<std::size_t()> m_columns;
  TextInNeed m_placeInNeed; ///< in place of one that there is no memory for
  std::string m_stopped;    ///< the end of a text whose rest is left out
  bool m_isEmpty = true;
  bool m_isInParagraph = false;
};

}
