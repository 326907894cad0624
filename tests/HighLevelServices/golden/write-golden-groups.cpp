// SPDX-License-Identifier: MIT
// write-golden-groups FILE: writes the archive that README.md describes. Overwrites nothing.

#include "GoldenGroups.h"

#include <cstddef>
#include <cstdio>
#include <exception>
#include <memory>

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Whether all of it has been written.
bool writeGoldenGroups(const char* path)
{
  Tarvik::PersistenceArchiver archive;
  Tarvik::goldenGroups().saveTo(archive);
  const auto bytes = archive.finish();

  std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path, "wbx"));
  return file != nullptr &&
         std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
         std::fclose(file.release()) == 0;
}

}

int main(int argumentCount, char** arguments)
{
  if (argumentCount != 2) {
    std::fputs("usage: write-golden-groups FILE\n", stderr);
    return 2;
  }
  try {
    if (writeGoldenGroups(arguments[1]))
      return 0;
    std::perror(arguments[1]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
