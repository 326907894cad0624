// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Text/Style.h"

#include <ostream>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// What the user reads: commands, their results and comments on one stream, mistakes on another.
class Transcript {
public:
  enum class Detail {
    Full,       ///< commands are echoed, comments printed, and blank lines set them apart
    ResultsOnly ///< for a terminal, which shows what is typed, and for other programs
  };

  /// The streams must outlive the transcript.
  Transcript(std::ostream& output, std::ostream& errors, Detail detail, Style style = {});

  /// A line of a comment. Lines that follow each other make a paragraph.
  void comment(std::string_view text);

  /// Ends a paragraph of comments.
  void endParagraph();

  /// A command that is about to run. Very long ones are cut.
  void command(std::string_view line);

  /// What a command answered; the empty text is not printed.
  void result(std::string_view text);

  /// A mistake.
  /// @param where  the place, such as "cities.pcs:3"
  void error(const std::string& where, std::string_view message);

  /// Whether all could be written so far.
  bool isComplete() const;

private:
  void startBlock();

  std::ostream& m_output;
  std::ostream& m_errors;
  Detail m_detail;
  Style m_style;
  bool m_isEmpty = true;
  bool m_isInParagraph = false;
};

}
