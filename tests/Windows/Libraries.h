// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {

/// For INSTANTIATE_TEST_SUITE_P: the test is run for each of the seven libraries.
inline constexpr const char* allLibraries[] = {
    "CommandPattern", "GeneralServices",     "GroupHosting", "HighLevelServices",
    "Identifier",     "PersistenceArchiver", "Translator"};

inline std::string libraryTestName(const ::testing::TestParamInfo<const char*>& test)
{
  return test.param;
}

/// Where the DLLs are, with a slash at the end.
inline const std::string libraryFolder = LIBRARY_FOLDER;

inline std::string libraryName(const std::string& library)
{
  return "TKMService_" + library + ".dll";
}

}
