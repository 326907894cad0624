// SPDX-License-Identifier: MIT
// Groups in the archives of the bundled platform: their bytes, and what comes back.

#include "HighLevelServices/Groups/TKGroup.h"

#include "Platform/Support/Archives.h"
#include "Support/FixedGroups.h"
#include "Support/Groups.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

template <class T>
class ArchivedGroup : public ::testing::Test {
protected:
  using OtherGroup =
      TKGroup<std::conditional_t<std::is_same_v<T, Identifier>, GUIdentifier, Identifier>>;

  static inline const std::string kind =
      std::is_same_v<T, Identifier> ? "Identifier" : "GUIdentifier";

  /// All classes that a group's bytes name.
  static inline const std::vector<TableEntry> classes = {
      {groupClassName<T>(), 500001}, {"NameInterface"}, {KindName::GetName<T>(0)}};

  static TKGroup<T> loadedAgain(const TKGroup<T>& group)
  {
    const auto archive = archived(group);
    return loadedFrom<TKGroup<T>>(archive);
  }
};
TYPED_TEST_SUITE(ArchivedGroup, ElementIdentifiers, KindName);

TYPED_TEST(ArchivedGroup, HasTheseBytes)
{
  const auto group = fixedGroup<TypeParam>(fixed<Identifier>(0x1a), "Pumps",
                                           {fixed<TypeParam>(0x2b), fixed<TypeParam>(0x3c)});

  EXPECT_EQ(written(group), "51 00 00 00 " +                            // length: 81
                                hashText(groupClassName<TypeParam>()) + // the group
                                " 0d 00 00 00 " +                       // length: 13
                                hashText("NameInterface") +             // its name
                                " 05 00 00 00"                          // length: 5
                                " 50 75 6d 70 73"                       // Pumps
                                " 01 02 03 04 05 06 07 08"              // the id
                                " 1a 00 00 00 00 00 00 00"
                                " 28 00 00 00 " +      // length: 40
                                hashText(this->kind) + // its members
                                " 02 00 00 00"         // two
                                " 01 02 03 04 05 06 07 08"
                                " 2b 00 00 00 00 00 00 00"
                                " 01 02 03 04 05 06 07 08"
                                " 3c 00 00 00 00 00 00 00");
}

TYPED_TEST(ArchivedGroup, TakesHardlyMoreThanItsContent)
{
  constexpr std::size_t groupCount = 10;
  constexpr std::size_t memberCount = 1000;
  TKGroup<TypeParam> pumps("Pumps");
  pumps.addGroupMembersAtIndex(std::vector<TypeParam>(memberCount), 0);
  constexpr std::size_t content = groupCount * (5 + 16 + 16 * memberCount); // name, id, members

  const auto archive = archived(std::vector(groupCount, pumps));

  EXPECT_GE(archive.size(), content);
  EXPECT_LE(archive.size(), content + content / 200); // half a percent
}

TYPED_TEST(ArchivedGroup, IsInTheClassTableInVersion500001)
{
  const auto archive = archived(TKGroup<TypeParam>());
  PersistenceArchiver reader(archive);

  const auto& table = reader.classTable();

  ASSERT_EQ(table.size(), 3U);
  EXPECT_EQ(table.at(PersistenceArchiver::getHashForName(groupClassName<TypeParam>())).readVersion,
            500001U);
  EXPECT_TRUE(table.contains(PersistenceArchiver::getHashForName("NameInterface")));
  EXPECT_TRUE(table.contains(PersistenceArchiver::getHashForName(this->kind)));
}

TYPED_TEST(ArchivedGroup, BringsNameIdAndMembersBack)
{
  const auto [a, b, c] = distinct<TypeParam, 3>();
  const auto saved = group("Pumps", {c, a, b});

  EXPECT_TRUE(identical(this->loadedAgain(saved), saved));
}

TYPED_TEST(ArchivedGroup, BringsAGroupWithoutNameAndMembersBack)
{
  const TKGroup<TypeParam> saved;

  EXPECT_TRUE(identical(this->loadedAgain(saved), saved));
}

TYPED_TEST(ArchivedGroup, BringsEveryNameBack)
{
  for (const auto& name : {std::string(" spaces on both sides "),
                           std::string("P\xc3\xbc"
                                       "mpe \xe6\xb3\xb5"),
                           std::string("\xff\xfe\x80 no text at all"), std::string("a\0b\0", 4),
                           std::string("\n\r\t"), std::string(100'000, 'x')}) {
    TKGroup<TypeParam> saved;
    saved.setName(name, true);
    EXPECT_EQ(this->loadedAgain(saved).getName(), name);
  }
}

TYPED_TEST(ArchivedGroup, BringsDoubleAndInvalidMembersBack)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const auto& invalid = TypeParam::getInvalidId();
  TKGroup<TypeParam> saved;
  saved.addGroupMembersAtIndex({a, invalid, b, a, invalid, a}, 0);

  EXPECT_TRUE(identical(this->loadedAgain(saved), saved));
}

TYPED_TEST(ArchivedGroup, ReplacesWhatTheGroupWas)
{
  const auto [a, b, x, y, z] = distinct<TypeParam, 5>();
  for (const auto& saved :
       {group<TypeParam>("None", {}), group("Less", {a, b}), group("More", {a, b, x, y, z})}) {
    auto loaded = group("Old", {x, y, z});
    const auto archive = archived(saved);
    PersistenceArchiver reader(archive);

    reader >> loaded;

    EXPECT_TRUE(identical(loaded, saved)) << ::testing::PrintToString(list(loaded));
  }
}

TYPED_TEST(ArchivedGroup, BringsListsBack)
{
  const auto [a, b] = distinct<TypeParam, 2>();
  const std::vector<TKGroup<TypeParam>> saved = {group("B", {a, b}), group<TypeParam>("", {}),
                                                 group("A", {b})};
  const auto archive = archived(saved, saved.front(), std::vector<TKGroup<TypeParam>>());
  std::vector<TKGroup<TypeParam>> loaded(1);
  TKGroup<TypeParam> single;
  std::vector<TKGroup<TypeParam>> none(2);
  PersistenceArchiver reader(archive);

  reader >> loaded >> single >> none;

  EXPECT_TRUE(identical(loaded, saved)) << ::testing::PrintToString(view(loaded));
  EXPECT_TRUE(identical(single, saved.front()));
  EXPECT_TRUE(none.empty());
  EXPECT_TRUE(reader.isAtEnd());
}

TYPED_TEST(ArchivedGroup, BringsSharedGroupsBackShared)
{
  using Shared = std::shared_ptr<TKGroup<TypeParam>>;
  const auto [a] = distinct<TypeParam, 1>();
  const auto first = std::make_shared<TKGroup<TypeParam>>(group("A", {a}));
  const auto second = std::make_shared<TKGroup<TypeParam>>(group("A", {a}));
  const auto archive = archived(std::vector<Shared>{first, second, first, nullptr});

  const auto loaded = loadedFrom<std::vector<Shared>>(archive);

  ASSERT_EQ(loaded.size(), 4U);
  EXPECT_TRUE(identical(*loaded[0], *first));
  EXPECT_TRUE(identical(*loaded[1], *second));
  EXPECT_EQ(loaded[2], loaded[0]);
  EXPECT_NE(loaded[1], loaded[0]);
  EXPECT_EQ(loaded[3], nullptr);
}

TYPED_TEST(ArchivedGroup, BringsAGroupBackAsAGroupThroughAPointerToItsName)
{
  const auto [a] = distinct<TypeParam, 1>();
  const auto saved = std::make_shared<TKGroup<TypeParam>>(group("A", {a}));
  const auto archive = archived(std::shared_ptr<NameInterface>(saved));

  const auto loaded = loadedFrom<std::shared_ptr<NameInterface>>(archive);

  const auto* const loadedGroup = dynamic_cast<const TKGroup<TypeParam>*>(loaded.get());
  ASSERT_NE(loadedGroup, nullptr);
  EXPECT_TRUE(identical(*loadedGroup, *saved));
}

TYPED_TEST(ArchivedGroup, SharesAGroupBetweenPointersToItAndToItsName)
{
  const auto saved = std::make_shared<TKGroup<TypeParam>>(std::string("A"));
  const std::shared_ptr<NameInterface> named = saved;
  const auto groupFirst = archived(saved, named);
  const auto nameFirst = archived(named, saved);
  std::shared_ptr<TKGroup<TypeParam>> loaded;
  std::shared_ptr<NameInterface> loadedName;

  PersistenceArchiver groupFirstReader(groupFirst);
  groupFirstReader >> loaded >> loadedName;
  EXPECT_EQ(loadedName, loaded);
  EXPECT_EQ(loadedName->getName(), "A");

  PersistenceArchiver nameFirstReader(nameFirst);
  nameFirstReader >> loadedName >> loaded;
  EXPECT_EQ(loadedName, loaded);
}

TYPED_TEST(ArchivedGroup, BringsAPlainNameBackAsAPlainName)
{
  const auto archive = archived(std::make_shared<NameInterface>("only a name"));

  const auto loaded = loadedFrom<std::shared_ptr<NameInterface>>(archive);

  EXPECT_EQ(dynamic_cast<const TKGroup<TypeParam>*>(loaded.get()), nullptr);
  EXPECT_EQ(loaded->getName(), "only a name");
}

TYPED_TEST(ArchivedGroup, RefusesWhatIsNotThisKindOfGroup)
{
  using Group = TKGroup<TypeParam>;
  const auto otherKind = archived(typename TestFixture::OtherGroup());
  const auto onlyName = archived(std::make_shared<NameInterface>("no group"));
  const auto otherNamed = archived(std::make_shared<typename TestFixture::OtherGroup>());

  EXPECT_NE(refusalOf([&] { loadedFrom<Group>(otherKind); }), "nothing was refused");
  EXPECT_NE(refusalOf([&] { loadedFrom<std::shared_ptr<Group>>(onlyName); }),
            "nothing was refused");
  EXPECT_NE(refusalOf([&] { loadedFrom<std::shared_ptr<Group>>(otherNamed); }),
            "nothing was refused");
}

TYPED_TEST(ArchivedGroup, RefusesACountOfMembersThatTheBytesCannotHold)
{
  const auto [x, y] = distinct<TypeParam, 2>();
  const std::string nameAndId = " 08 00 00 00 " + hashText("NameInterface") +
                                " 00 00 00 00"
                                " 01 02 03 04 05 06 07 08 1a 00 00 00 00 00 00 00";
  const auto archive = archiveAround("38 00 00 00 " + hashText(groupClassName<TypeParam>()) +
                                         nameAndId + " 14 00 00 00 " + hashText(this->kind) +
                                         " ff ff ff ff" + " 01 02 03 04 05 06 07 08 2b 00 00 00",
                                     this->classes);
  auto loaded = group("Old", {x, y});
  PersistenceArchiver reader(archive);

  EXPECT_NE(refusalOf([&] { reader >> loaded; }), "nothing was refused");

  EXPECT_EQ(list(loaded), list(group("", {x, y}))) << "before the members are touched";
  EXPECT_EQ(loaded.getId(), fixed<Identifier>(0x1a));
}

TYPED_TEST(ArchivedGroup, SkipsWhatFollowsTheNameAndTheMembersInTheirFrames)
{
  const std::string more = " aa bb cc";
  const auto archive =
      archiveAround("43 00 00 00 " + hashText(groupClassName<TypeParam>()) + " 0c 00 00 00 " +
                        hashText("NameInterface") + " 01 00 00 00 41" + more +
                        " 01 02 03 04 05 06 07 08 1a 00 00 00 00 00 00 00" + " 1b 00 00 00 " +
                        hashText(this->kind) + " 01 00 00 00" +
                        " 01 02 03 04 05 06 07 08 2b 00 00 00 00 00 00 00" + more,
                    this->classes);

  const auto loaded = loadedFrom<TKGroup<TypeParam>>(archive);

  EXPECT_EQ(list(loaded), list(group("A", {fixed<TypeParam>(0x2b)})));
  EXPECT_EQ(loaded.getId(), fixed<Identifier>(0x1a));
}

}
}
