// SPDX-License-Identifier: MIT
#include "PointCollections/Support/Programs.h"

#include <cstdlib>

namespace Tarvik::PointCollections {
namespace {

#ifdef _WIN32
constexpr auto escapedCharacters = "\"";
int exitStatus(int result)
{
  return result;
}
#else
constexpr auto escapedCharacters = "\"\\$`";
int exitStatus(int result)
{
  const bool hasExited = (result & 0x7F) == 0;
  return hasExited ? (result >> 8) & 0xFF : -1;
}
#endif

std::string forShell(const std::string& text)
{
  const std::string special = escapedCharacters;
  std::string result = "\"";
  for (const char c : text) {
    if (special.find(c) != std::string::npos)
      result += '\\';
    result += c;
  }
  return result + '"';
}

}

Outcome runProgram(const TemporaryFolder& folder,
                   const std::vector<std::string>& arguments,
                   const std::string& input)
{
  const auto in = folder.write("standard-input", input);
  const auto out = folder.path() / "standard-output";
  const auto err = folder.path() / "standard-error";

  std::string command = forShell(POINT_COLLECTIONS_PROGRAM);
  for (const auto& argument : arguments)
    command += ' ' + forShell(argument);
  command +=
      " <" + forShell(in.string()) + " >" + forShell(out.string()) + " 2>" + forShell(err.string());
#ifdef _WIN32
  command = '"' + command + '"'; // cmd takes the outer quotes away
#endif
  const int result = std::system(command.c_str()); // NOLINT(cert-env33-c): portable enough here
  return {exitStatus(result), contentOf(out), contentOf(err)};
}

std::filesystem::path samples()
{
  return POINT_COLLECTIONS_SAMPLES;
}

std::filesystem::path transcripts()
{
  return POINT_COLLECTIONS_TRANSCRIPTS;
}

}
