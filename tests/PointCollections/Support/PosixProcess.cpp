// SPDX-License-Identifier: MIT
#include "PointCollections/Support/Process.h"

#include <cstdlib>

namespace Tarvik::PointCollections {
namespace {

int exitStatus(int result)
{
  const bool hasExited = (result & 0x7F) == 0;
  return hasExited ? (result >> 8) & 0xFF : -1;
}

std::string forShell(const std::string& text)
{
  const std::string special = "\"\\$`";
  std::string result = "\"";
  for (const char c : text) {
    if (special.find(c) != std::string::npos)
      result += '\\';
    result += c;
  }
  return result + '"';
}

}

int runProcess(const std::filesystem::path& program,
               const std::vector<std::string>& arguments,
               const Streams& streams)
{
  std::string command = forShell(program.string());
  for (const auto& argument : arguments)
    command += ' ' + forShell(argument);
  command += " <" + forShell(streams.input.string()) + " >" + forShell(streams.output.string()) +
             " 2>" + forShell(streams.errors.string());
  return exitStatus(std::system(command.c_str())); // NOLINT(cert-env33-c): a shell is wanted
}

}
