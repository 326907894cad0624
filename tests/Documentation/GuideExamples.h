// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// The examples of a guide, which tests build and run.
namespace Tarvik {

/// The lines of a file, without their indentation.
inline std::string withoutIndentation(const std::string& file)
{
  std::string result;
  std::ifstream text(file);
  for (std::string line; std::getline(text, line);)
    result += line.erase(0, line.find_first_not_of(' ')) + '\n';
  return result;
}

/// The examples in C++ of a guide, which is in Markdown.
inline std::vector<std::string> examplesIn(const std::string& guideFile)
{
  const auto guide = withoutIndentation(guideFile);
  const std::string start = "```cpp\n";
  std::vector<std::string> examples;
  for (auto at = guide.find(start); at != std::string::npos; at = guide.find(start, at)) {
    at += start.size();
    examples.push_back(guide.substr(at, guide.find("```", at) - at));
  }
  return examples;
}

}
