// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LineReader.h"
#include "PointCollections/Input/TextInput.h"

namespace Tarvik::PointCollections {
namespace {

class PlainReader : public LineReader {
public:
  PlainReader(std::istream& input, std::ostream& output) : m_input(input), m_output(output) {}

  std::optional<std::string> readLine(const std::string& prompt) override
  {
    if (m_input.bad())
      return std::nullopt; // reading has failed before, and nothing more will come
    if (m_input.eof())
      m_input.clear(); // a terminal goes on after the end of the input
    m_output << prompt << std::flush;
    return PointCollections::readLine(m_input);
  }

private:
  std::istream& m_input;
  std::ostream& m_output;
};

}

std::unique_ptr<LineReader> makePlainReader(std::istream& input, std::ostream& output)
{
  return std::make_unique<PlainReader>(input, output);
}

}
