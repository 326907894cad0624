// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Text/Utf8.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// Files for tests.
namespace Tarvik::PointCollections {

/// A folder for the running test only. It is removed with everything in it.
class TemporaryFolder {
public:
  TemporaryFolder()
  {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    auto name = std::string("pc-") + test->test_suite_name() + '-' + test->name();
    for (char& c : name)
      c = c == '/' ? '-' : c;
    m_path = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(m_path);
    std::filesystem::create_directories(m_path);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder()
  {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  const std::filesystem::path& path() const { return m_path; }

  /// Writes a file, byte for byte.
  std::filesystem::path write(const std::string& name, std::string_view content) const
  {
    auto file = m_path / Utf8::toPath(name);
    std::ofstream(file, std::ios::binary) << content;
    return file;
  }

private:
  std::filesystem::path m_path;
};

/// Makes a folder the working folder while it lives.
class WorkingFolder {
public:
  explicit WorkingFolder(const TemporaryFolder& folder)
  {
    std::filesystem::current_path(folder.path());
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;
  ~WorkingFolder() { std::filesystem::current_path(m_before); }

private:
  std::filesystem::path m_before = std::filesystem::current_path();
};

/// All bytes of a file; empty if it does not exist.
inline std::string contentOf(const std::filesystem::path& file)
{
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}
