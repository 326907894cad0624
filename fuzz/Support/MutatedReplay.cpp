// SPDX-License-Identifier: MIT
// Gives a fuzz target changed archives: PROGRAM FOLDER SEED FIRST COUNT. Each depends on the
// folder, the seed and its number only, so that any of them can be given again.

#include "Support/ArchiveMutation.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Tarvik {
namespace {

using RawArchive::Bytes;

Bytes contentOf(const std::filesystem::path& file)
{
  std::ifstream stream(file, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(stream), {});
  Bytes bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char c) { return static_cast<std::byte>(c); });
  return bytes;
}

std::vector<Bytes> archivesIn(const std::filesystem::path& folder)
{
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  std::vector<Bytes> archives;
  for (const auto& file : files) {
    auto bytes = contentOf(file);
    if (RawArchive::looksLikeOne(bytes))
      archives.push_back(std::move(bytes));
  }
  if (archives.empty())
    throw std::runtime_error(folder.string() + ": there is no archive in this folder");
  return archives;
}

void give(const std::vector<Bytes>& archives, std::uint64_t seed, std::uint64_t number)
{
  std::seed_seq seeds{seed, number};
  std::mt19937_64 random(seeds);
  const auto& archive = archives[random() % archives.size()];
  const auto bytes =
      ArchiveMutation::mutated(archive, archives[random() % archives.size()], random);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

void giveAll(char** arguments)
{
  const auto archives = archivesIn(arguments[1]);
  const auto seed = std::stoull(arguments[2]);
  const auto first = std::stoull(arguments[3]);
  const auto count = std::stoull(arguments[4]);
  for (auto number = first; number < first + count; ++number)
    give(archives, seed, number);
}

}
}

int main(int argc, char** argv)
{
  if (argc != 5) {
    std::cerr << "usage: " << argv[0] << " FOLDER SEED FIRST COUNT" << std::endl;
    return EXIT_FAILURE;
  }
  try {
    Tarvik::giveAll(argv);
  } catch (const std::exception& error) {
    std::cerr << "found: " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
}
