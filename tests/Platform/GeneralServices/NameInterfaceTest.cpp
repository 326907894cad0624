// SPDX-License-Identifier: MIT
#include "GeneralServices/NameInterface.h"

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Platform/Support/Archives.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tarvik {
namespace {

/// Names that something careless could change.
std::vector<std::string> unusualNames()
{
  return {"",
          "Pumps",
          "  Pumps\t",
          " ",
          "Gr\xc3\xbc\xc3\x9f",
          "\xff not UTF-8 \x80",
          "line\nbreak\r\n",
          std::string("zero\0byte", 9),
          std::string(1000, 'x')};
}

TEST(Name, IsEmptyUnlessGiven)
{
  EXPECT_EQ(NameInterface().getName(), "");
}

TEST(Name, IsTheGivenOneByteForByte)
{
  for (const auto& name : unusualNames())
    EXPECT_EQ(NameInterface(name).getName(), name);
}

TEST(Name, IsCopiedWithItsObject)
{
  for (const auto& name : unusualNames()) {
    const NameInterface source(name);
    NameInterface assigned("Old");

    const NameInterface copy(source); // NOLINT(performance-unnecessary-copy-initialization)
    auto& result = (assigned = source);

    EXPECT_EQ(copy.getName(), name);
    EXPECT_EQ(assigned.getName(), name);
    EXPECT_EQ(&result, &assigned);
  }
}

TEST(Name, OfACopyIsItsOwn)
{
  NameInterface source("Source");
  NameInterface copy(source);

  copy.setName("Copy", true);

  EXPECT_EQ(source.getName(), "Source");
  EXPECT_EQ(copy.getName(), "Copy");
}

TEST(Name, StaysWhenTheObjectIsAssignedToItself)
{
  NameInterface object("A name that is too long to be kept within the string");
  const auto& alias = object;

  object = alias;

  EXPECT_EQ(object.getName(), "A name that is too long to be kept within the string");
}

TEST(Name, IsTakenByteForByteWhenSetVerbatim)
{
  for (const auto& name : unusualNames()) {
    NameInterface object("Old");
    object.setName(name, true);
    EXPECT_EQ(object.getName(), name);
  }
}

TEST(Name, LosesBlanksAndTabsAtItsEndsWhenTyped)
{
  const std::vector<std::pair<std::string, std::string>> expectations = {
      {"Pumps", "Pumps"},
      {"  Pumps", "Pumps"},
      {"Pumps \t ", "Pumps"},
      {"\t Pumps and \t valves ", "Pumps and \t valves"},
      {" x ", "x"},
      {"", ""},
      {" ", ""},
      {" \t \t", ""},
      {"\nPumps\n", "\nPumps\n"},
      {"\xc2\xa0Pumps\xc2\xa0", "\xc2\xa0Pumps\xc2\xa0"},
      {std::string(" \0 ", 3), std::string("\0", 1)}};

  for (const auto& [typed, name] : expectations) {
    NameInterface object("Old");
    object.setName(typed, false);
    EXPECT_EQ(object.getName(), name) << '"' << typed << '"';
  }
}

TEST(Name, MayBeSetToTheObjectsOwnName)
{
  const std::string blanks(50, ' ');
  const std::string padded = blanks + "Pumps" + blanks;
  for (const bool verbatim : {true, false}) {
    NameInterface object(padded);

    object.setName(object.getName(), verbatim);

    EXPECT_EQ(object.getName(), verbatim ? padded : "Pumps");
  }
}

TEST(Name, ReferenceFollowsTheObject)
{
  NameInterface object("Old");
  const std::string& name = object.getName();

  object.setName("New", true);

  EXPECT_EQ(name, "New");
}

TEST(Name, MayBelongToAClassThatIsDestroyedByIt)
{
  struct Named : NameInterface {
    explicit Named(bool& target) : destroyed(target) {}
    Named(const Named&) = delete;
    Named& operator=(const Named&) = delete;
    ~Named() override { destroyed = true; }
    bool& destroyed;
  };
  bool destroyed = false;

  std::unique_ptr<NameInterface> named = std::make_unique<Named>(destroyed);
  named.reset();

  EXPECT_TRUE(destroyed);
  static_assert(std::has_virtual_destructor_v<NameInterface>);
  static_assert(std::is_convertible_v<std::string, NameInterface>);
}

// Saving and loading

BaseClassRegister recordOfName(NameInterface* object = nullptr)
{
  BaseClassRegister record;
  NameInterface::serialization_register(&record);
  record.object = object;
  return record;
}

TEST(Name, HasAClassRecordThatIsTheSameEveryTime)
{
  BaseClassRegister first;
  first.classHash = 1;
  first.object = &first;
  NameInterface::serialization_register(&first);
  const auto second = recordOfName();

  EXPECT_EQ(first.classHash, PersistenceArchiver::getHashForName("NameInterface"));
  EXPECT_EQ(first.writeVersion, 1U);
  EXPECT_EQ(first.readVersion, 1U);
  EXPECT_EQ(first.object, nullptr);
  EXPECT_NE(first.load, nullptr);
  EXPECT_NE(first.save, nullptr);
  EXPECT_NE(first.create, nullptr);
  EXPECT_EQ(second.classHash, first.classHash);
  EXPECT_EQ(second.writeVersion, first.writeVersion);
  EXPECT_EQ(second.readVersion, first.readVersion);
  EXPECT_EQ(second.load, first.load);
  EXPECT_EQ(second.save, first.save);
  EXPECT_EQ(second.create, first.create);
}

TEST(Name, IsCreatedByItsRecord)
{
  const std::unique_ptr<NameInterface> created(
      static_cast<NameInterface*>(recordOfName().create()));

  ASSERT_NE(created, nullptr);
  EXPECT_EQ(created->getName(), "");
}

TEST(Name, IsSavedAsItsLengthAndBytes)
{
  NameInterface pumps(" P\xc3\xbc ");
  auto record = recordOfName(&pumps);
  PersistenceArchiver archive;

  record.save(archive, record);

  EXPECT_EQ(bodyOf(archive), "05 00 00 00 " // length
                             "20 50 c3 bc 20");
}

TEST(Name, IsLoadedByteForByte)
{
  for (const auto& name : unusualNames()) {
    NameInterface saved(name);
    auto record = recordOfName(&saved);
    PersistenceArchiver archive;
    record.save(archive, record);

    NameInterface loaded("Old");
    auto loadingRecord = recordOfName(&loaded);
    PersistenceArchiver source(archive.finish());
    loadingRecord.load(source, loadingRecord);

    EXPECT_EQ(loaded.getName(), name);
  }
}

TEST(Name, StaysWhenItsArchiveIsCutOff)
{
  const auto complete = fromHex("05 00 00 00 50 75 6d 70 73");
  for (std::ptrdiff_t length = 0; length < std::ssize(complete); ++length) {
    NameInterface object("Old");
    auto record = recordOfName(&object);
    const auto bytes = archiveAround(Bytes(complete.begin(), complete.begin() + length));
    PersistenceArchiver source(bytes);

    EXPECT_THROW(record.load(source, record), ArchiveError) << length << " bytes";
    EXPECT_EQ(object.getName(), "Old") << length << " bytes";
  }
}

}
}
