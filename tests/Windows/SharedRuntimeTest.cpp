// SPDX-License-Identifier: MIT
// Errors and memory pass between libraries and program, which takes that all of them have the C++
// runtime from one DLL, and none of them a copy of its own.

#include "HighLevelServices/LoadAtRunTime/Library.h"
#include "Support/ImportTable.h"
#include "Windows/Libraries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// The DLLs with a C++ runtime that this one imports from, in lower case.
std::vector<std::string> runtimesOf(HMODULE dll)
{
  std::vector<std::string> names = ImportTable::libraries(dll);
  for (auto& name : names)
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  std::erase_if(names, [](const std::string& name) {
    return !name.starts_with("libstdc++") && !name.starts_with("msvcp");
  });
  return names;
}

class RuntimeOf : public ::testing::TestWithParam<const char*> {};

TEST_P(RuntimeOf, IsThatOfTheProgram)
{
  const auto name = libraryName(GetParam());
  const Library library(libraryFolder + name);

  const auto runtimes = runtimesOf(ImportTable::module(name));

  EXPECT_EQ(runtimes, runtimesOf(GetModuleHandleA(nullptr)));
  EXPECT_EQ(runtimes.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Every, RuntimeOf, ::testing::ValuesIn(allLibraries), libraryTestName);

}
}
