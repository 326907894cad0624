// SPDX-License-Identifier: MIT
// What the Explorer shows among the properties of the libraries.

#include "Windows/Libraries.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

class LibraryFile : public ::testing::TestWithParam<const char*> {
protected:
  void SetUp() override
  {
    const auto path = libraryFolder + libraryName(GetParam());
    m_resource.resize(GetFileVersionInfoSizeA(path.c_str(), nullptr));
    ASSERT_FALSE(m_resource.empty()) << path << " has no version";
    ASSERT_TRUE(GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(m_resource.size()),
                                    m_resource.data()));
  }

  /// A text of the English block; "(none)" when there is no such text.
  std::string text(const std::string& key) const
  {
    void* value = nullptr;
    UINT length = 0;
    const auto found = VerQueryValueA(
        m_resource.data(), (R"(\StringFileInfo\040904B0\)" + key).c_str(), &value, &length);
    return found != 0 ? static_cast<const char*>(value) : "(none)";
  }

  std::string fileVersion() const
  {
    void* value = nullptr;
    UINT length = 0;
    if (VerQueryValueA(m_resource.data(), "\\", &value, &length) == 0)
      return "(none)";
    const auto& info = *static_cast<const VS_FIXEDFILEINFO*>(value);
    return std::to_string(HIWORD(info.dwFileVersionMS)) + '.' +
           std::to_string(LOWORD(info.dwFileVersionMS)) + '.' +
           std::to_string(HIWORD(info.dwFileVersionLS));
  }

private:
  std::vector<std::byte> m_resource;
};

TEST_P(LibraryFile, TellsProductAndVersion)
{
  EXPECT_EQ(text("ProductName"), "TKMService");
  EXPECT_EQ(text("ProductVersion"), PROJECT_VERSION);
  EXPECT_EQ(text("FileVersion"), PROJECT_VERSION);
  EXPECT_EQ(fileVersion(), PROJECT_VERSION);
}

TEST_P(LibraryFile, TellsItsName)
{
  EXPECT_EQ(text("OriginalFilename"), libraryName(GetParam()));
  EXPECT_EQ(text("FileDescription"), std::string("TKMService ") + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Every, LibraryFile, ::testing::ValuesIn(allLibraries), libraryTestName);

}
}
