// SPDX-License-Identifier: MIT
// What executing a command may copy. Groups have no move, so a list that grows or is built twice
// copies all of them once more; identifiers that count their copies show it.

#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "Support/RecordingHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Tarvik {
namespace {

/// An element identifier of a host's own that counts how often it is copied.
class CountedIdentifier {
public:
  CountedIdentifier() : m_number(++s_lastNumber) {}
  CountedIdentifier(const CountedIdentifier& other) : m_number(other.m_number) { ++s_copies; }
  CountedIdentifier& operator=(const CountedIdentifier& other)
  {
    m_number = other.m_number;
    ++s_copies;
    return *this;
  }
  ~CountedIdentifier() = default;

  bool isValid() const { return m_number != 0; }
  static const CountedIdentifier& getInvalidId()
  {
    static const CountedIdentifier invalid(0);
    return invalid;
  }
  static void serialization_register(void*) {} // these groups are not saved
  friend bool operator==(const CountedIdentifier& a, const CountedIdentifier& b)
  {
    return a.m_number == b.m_number;
  }

  static inline std::size_t s_copies = 0;

private:
  explicit CountedIdentifier(int number) : m_number(number) {}

  static inline int s_lastNumber = 0;
  int m_number;
};

constexpr std::size_t groupCount = 100;
constexpr std::size_t memberCount = 10;
constexpr std::size_t oneList = groupCount * memberCount;

/// A host that looks at lists without copying them, so that only the command's copies count.
class LookingHost : public RecordingHost<CountedIdentifier> {
public:
  void setGroups(const std::vector<TKGroup<CountedIdentifier>>&) override {}
};

class CopyCost : public ::testing::Test {
protected:
  CopyCost()
  {
    std::vector<TKGroup<CountedIdentifier>> groups;
    for (std::size_t i = 0; i < groupCount; ++i) {
      groups.emplace_back("Group " + std::to_string(i));
      groups.back().addGroupMembersAtIndex(std::vector<CountedIdentifier>(memberCount), 0);
    }
    host->replaceGroups(groups);
    host->listMembersBy([](const Identifier&) { return LookingHost::NamedElements(); });
  }

  static std::size_t copiesToExecute(CommandBase& command)
  {
    const auto start = CountedIdentifier::s_copies;
    command.execute();
    return CountedIdentifier::s_copies - start;
  }

  std::shared_ptr<LookingHost> host = std::make_shared<LookingHost>();
  std::size_t aFew = 2 * memberCount; // the elements at hand and the group that they go to
};

TEST_F(CopyCost, OfAddingIsTwoLists)
{
  const Identifier target = host->idOf("Group 50");
  AddToTKGroupCmd<CountedIdentifier> command(host, {CountedIdentifier()}, target);

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew) << "when it is executed again";
}

TEST_F(CopyCost, OfCreatingIsTwoLists)
{
  CreateTKGroupCmd<CountedIdentifier> command(host, {CountedIdentifier()}, "New");

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew) << "when it is executed again";
}

TEST_F(CopyCost, OfRemovingIsTwoLists)
{
  RemoveFromTKGroupCmd<CountedIdentifier> command(host, {CountedIdentifier()});

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
}

TEST_F(CopyCost, OfSortingGroupsIsTwoLists)
{
  SortTKGroupsAlphabeticallyCmd<CountedIdentifier> command(host);

  EXPECT_LE(copiesToExecute(command), 2 * oneList + aFew);
}

TEST_F(CopyCost, OfUndoAndRedoIsTheHostsAlone)
{
  CreateTKGroupCmd<CountedIdentifier> command(host, {CountedIdentifier()}, "New");
  command.execute();

  const auto start = CountedIdentifier::s_copies;
  command.undo();
  command.redo();

  EXPECT_EQ(CountedIdentifier::s_copies, start);
}

}
}
