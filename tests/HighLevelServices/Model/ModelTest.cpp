// SPDX-License-Identifier: MIT

/// Random sequences of commands, undos, redos and jumps, done by the library and by a plain model.
///
/// 5000 sequences for each kind of identifiers run by default. A longer run from another seed:
///   TKM_MODEL_SEQUENCES=1000000 TKM_MODEL_SEED=20000 build/dev/bin/HighLevelServicesModelTests
/// Sequence i has the seed TKM_MODEL_SEED + i, counted from 0; TKM_MODEL_LENGTH is the number of
/// its operations.

#include "HighLevelServices/Model/RandomOperations.h"
#include "HighLevelServices/Model/Runner.h"
#include "HighLevelServices/Model/Shrinking.h"
#include "Support/Identifiers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace Tarvik::Modelling {
namespace {

/// A number from the environment.
std::uint64_t setting(const std::string& name, std::uint64_t otherwise)
{
  const char* const value = std::getenv(name.c_str());
  if (value == nullptr)
    return otherwise;
  const std::string digits(value);
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
    throw std::invalid_argument(name + " has to be a number, not \"" + digits + '"');
  return std::stoull(digits);
}

template <class T>
std::optional<Difference> differenceAfter(const Operations& operations, std::size_t crowd = 0)
{
  return run<T>(operations, std::make_shared<ModelHost<T>>(crowd));
}

/// All that somebody needs to see the failure again.
template <class T>
std::string report(const Operations& failing, std::uint64_t seed, std::size_t length)
{
  const auto shortest =
      shrunk(failing, [](const Operations& each) { return differenceAfter<T>(each).has_value(); });
  const auto difference = differenceAfter<T>(shortest);
  return "The shortest sequence that fails:\n" + text(shortest) + "After " + difference->moment +
         ", expected:\n" + difference->expected + "found:\n" + difference->found +
         "To run the whole sequence:\n  TKM_MODEL_SEED=" + std::to_string(seed) +
         " TKM_MODEL_SEQUENCES=1 TKM_MODEL_LENGTH=" + std::to_string(length) +
         " HighLevelServicesModelTests --gtest_filter=CommandsModel/" + KindName::GetName<T>(0) +
         ".*\n";
}

template <class T>
class CommandsModel : public ::testing::Test {};
TYPED_TEST_SUITE(CommandsModel, ElementIdentifiers, KindName);

TYPED_TEST(CommandsModel, AgreesWithTheCommandsWhateverIsDone)
{
  const auto firstSeed = setting("TKM_MODEL_SEED", 1);
  const auto sequences = setting("TKM_MODEL_SEQUENCES", 5000);
  const auto length = static_cast<std::size_t>(setting("TKM_MODEL_LENGTH", 40));

  for (std::uint64_t seed = firstSeed; seed < firstSeed + sequences; ++seed) {
    auto operations = randomOperations(seed, length);
    const auto difference = differenceAfter<TypeParam>(operations);
    if (difference) {
      operations.resize(difference->operations);
      FAIL() << "Sequence " << seed - firstSeed + 1 << ".\n"
             << report<TypeParam>(operations, seed, length);
    }
  }
}

TYPED_TEST(CommandsModel, AgreesWithTheCommandsOnSelectionsOfThousands)
{
  constexpr std::size_t crowd = 2000;
  constexpr std::size_t length = 10;
  for (std::uint64_t seed = 1; seed <= 2; ++seed) {
    const auto difference =
        differenceAfter<TypeParam>(randomOperations(seed, length, crowd), crowd);

    ASSERT_FALSE(difference) << "seed " << seed << ", operation " << difference->operations;
  }
}

}
}
