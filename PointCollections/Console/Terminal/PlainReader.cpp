// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LineReader.h"
#include "PointCollections/Input/TextInput.h"

#include <cstdio>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

class PlainReader : public LineReader {
public:
  PlainReader(std::istream& input, std::ostream& output, InputWait wait)
      : m_input(input), m_output(output), m_wait(std::move(wait))
  {}

  std::optional<std::string> readLine(const std::string& prompt) override
  {
    if (m_input.bad())
      return std::nullopt; // reading has failed before, and nothing more will come
    // A terminal goes on after the end of the input. Libc++ reads from stdin, which remembers it.
    if (m_input.eof()) {
      m_input.clear();
      std::clearerr(stdin);
    }
    m_output << prompt << std::flush;
    const bool hasMore = m_input.rdbuf()->in_avail() > 0;
    if (m_wait && !hasMore && !m_wait())
      return std::nullopt;
    return PointCollections::readLine(m_input);
  }

private:
  std::istream& m_input;
  std::ostream& m_output;
  InputWait m_wait;
};

}

std::optional<std::string> LineReader::readAnswer(const std::string& prompt, const Completer&)
{
  return readLine(prompt);
}

std::unique_ptr<LineReader>
makePlainReader(std::istream& input, std::ostream& output, InputWait wait)
{
  return std::make_unique<PlainReader>(input, output, std::move(wait));
}

}
