// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Terminal/InputWait.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik::PointCollections {

/// How a line that is being typed can go on.
struct Completion {
  std::size_t from = 0;                ///< the byte from which `text` replaces the line
  std::string text;                    ///< ends in a blank if there is only one candidate
  std::vector<std::string> candidates; ///< as they are typed; if empty, nothing is replaced
};

/// Completes a line, given the part before the cursor.
using Completer = std::function<Completion(std::string_view)>;

/// Reads lines from the user.
class LineReader {
public:
  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  virtual ~LineReader() = default;

  /// Returns the line that the user types, without its line end, or nothing at the end of the
  /// input. A terminal can still be read after that.
  /// @throws UserError if the line cannot be read
  virtual std::optional<std::string> readLine(const std::string& prompt) = 0;

  /// The same for the answer to a question, which is not remembered among the lines.
  /// @param completer  completes the answer; a reader may do without
  virtual std::optional<std::string> readAnswer(const std::string& prompt,
                                                const Completer& completer);
};

/// A reader for the terminal at standard input and output. The user can edit the line, recall
/// earlier lines with the arrow keys, complete with Tab, drop the line with Ctrl-C and suspend the
/// program with Ctrl-Z.
/// @param wait     called before the terminal is read; must not throw
/// @param history  the file that keeps the lines for later runs; empty for none
/// @return null if the program is built without line editing, or the terminal does not support it
std::unique_ptr<LineReader>
makeEditingReader(Completer completer, InputWait wait, const std::filesystem::path& history = {});

/// A reader that leaves editing to the terminal. The streams must outlive it.
/// @param wait  called before a line is read, unless some of it has been read already; may be empty
std::unique_ptr<LineReader>
makePlainReader(std::istream& input, std::ostream& output, InputWait wait = {});

}
