// SPDX-License-Identifier: MIT
// Programs for Windows include our headers after windows.h, and may need its macros.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <filesystem>
#include <functional>
#include <iterator>
#include <limits>
#include <list>
#include <locale>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

// The macros of windows.h that are spelled like names of C++. The standard library's headers come
// first: only those of Visual C++ compile with the macros.
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define near
#define far
#define small char
#define interface struct
#define ERROR 0
#define DELETE (0x00010000L)

#include "AllPublicHeaders.h" // generated

namespace Tarvik {
namespace {

TEST(Headers, CompileWithTheMacrosOfWindows)
{
  PersistenceArchiver archive;
  archive << std::vector<Identifier>(2);
  const auto bytes = archive.finish();
  PersistenceArchiver source(bytes);
  std::vector<Identifier> loaded;

  source >> loaded; // compiled here, macros and all

  EXPECT_EQ(loaded.size(), 2U);
}

}
}
