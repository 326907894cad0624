// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Shell/Completion.h"

#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace Tarvik::PointCollections {

/// Asks the user for lines.
class LineReader {
public:
  LineReader() = default;
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  virtual ~LineReader() = default;

  /// The line that the user types, without its line end; nothing at the end of the input, behind
  /// which a terminal goes on.
  /// @throws UserError when the line cannot be taken
  virtual std::optional<std::string> readLine(const std::string& prompt) = 0;
};

/// Completes the part of a line that stands in front of the cursor.
using Completer = std::function<Completion(std::string_view)>;

/// A reader for the terminal at standard input and output, on which the user can edit the line,
/// recall earlier ones with the arrow keys and complete with Tab; Ctrl-C drops the line.
/// @return null where the program is built without that, or the terminal cannot do it
std::unique_ptr<LineReader> makeEditingReader(Completer completer);

/// A reader that leaves editing to the terminal. The streams must outlive it.
std::unique_ptr<LineReader> makePlainReader(std::istream& input, std::ostream& output);

}
