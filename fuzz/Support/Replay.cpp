// SPDX-License-Identifier: MIT
// Replaces the fuzzer: gives a target each of the files, and each file in the folders, that the
// command line names.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Paths = std::vector<std::filesystem::path>;

Paths filesIn(const std::filesystem::path& path)
{
  if (!std::filesystem::is_directory(path))
    return {path};
  Paths files;
  for (const auto& entry : std::filesystem::directory_iterator(path))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

void replay(const std::filesystem::path& file)
{
  std::cout << file.filename().string() << std::endl; // flushed: the target may end the program
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    throw std::runtime_error(file.string() + ": cannot be read");
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  // exactly as long as the input: AddressSanitizer finds what reads beyond its end
  const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(data.data(), data.size());
}

int replayAll(const Paths& paths)
{
  std::size_t count = 0;
  for (const auto& path : paths)
    for (const auto& file : filesIn(path)) {
      replay(file);
      ++count;
    }
  std::cout << count << " inputs replayed" << std::endl;
  return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}

int main(int argc, char** argv)
{
  try {
    return replayAll(Paths(argv + 1, argv + argc));
  } catch (const std::exception& error) {
    std::cerr << "found: " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
}
