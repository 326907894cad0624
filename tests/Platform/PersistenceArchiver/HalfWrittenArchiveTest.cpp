// SPDX-License-Identifier: MIT
// When writing throws, the archive is half written and cannot be finished.

#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tarvik {

/// A class with stream operators that throws when it is written.
struct UnreadyStreamed {
  friend PersistenceArchiver& operator<<(PersistenceArchiver&, const UnreadyStreamed&)
  {
    throw std::runtime_error("not ready");
  }
  friend PersistenceArchiver& operator>>(PersistenceArchiver& archive, UnreadyStreamed&)
  {
    return archive;
  }
};

namespace {

/// A registered class that throws when it is saved.
struct Unready {
  static void load(PersistenceArchiver&, Unready&, unsigned int) {}
  static void save(PersistenceArchiver& archive, const Unready&, unsigned int)
  {
    archive << 1U;
    throw std::runtime_error("not ready");
  }
  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) = *registerClass<Unready, load, save>("Test.Unready", 1);
  }
};

struct Failure {
  std::string name;
  std::function<void(PersistenceArchiver&)> write;
};

void PrintTo(const Failure& failure, std::ostream* out)
{
  *out << failure.name;
}

class HalfWrittenArchive : public ::testing::TestWithParam<Failure> {};

TEST_P(HalfWrittenArchive, CannotBeFinishedUntilItIsCleared)
{
  PersistenceArchiver archive;
  archive << std::string("whole");
  EXPECT_ANY_THROW(GetParam().write(archive));

  const std::string complaint = "writing to this archive has failed; clear() begins another one";
  EXPECT_EQ(complaintOf([&] { archive << std::string("tail"); }), complaint);
  EXPECT_EQ(complaintOf([&] { archive.finish(); }), complaint);

  archive.clear();
  archive << 7U;
  const auto bytes = archive.finish();
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), archived(7U));
}

INSTANTIATE_TEST_SUITE_P(
    After,
    HalfWrittenArchive,
    ::testing::Values(
        Failure{"AnObject", [](auto& archive) { archive << Unready(); }},
        Failure{"AListOfObjects", [](auto& archive) { archive << std::vector<Unready>(2); }},
        Failure{"AListOfStreamedObjects",
                [](auto& archive) { archive << std::vector<UnreadyStreamed>(2); }},
        Failure{"ASharedObject", [](auto& archive) { archive << std::make_shared<Unready>(); }},
        Failure{"AClassThatIsNotRegistered",
                [](auto& archive) {
                  archive << std::shared_ptr<Ring>(std::make_shared<SecretRing>());
                }},
        Failure{"AListWithAClassThatIsNotRegistered",
                [](auto& archive) {
                  const auto ring = std::make_shared<Ring>();
                  archive << std::vector<std::shared_ptr<Ring>>{
                      ring, std::make_shared<SecretRing>(), ring};
                }},
        Failure{"AFrameInAWrongPlace", [](auto& archive) { archive.mark_object_start(0, 1); }}),
    [](const auto& test) { return test.param.name; });

}
}
