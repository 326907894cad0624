// SPDX-License-Identifier: MIT
// Differences and compact commands with a host's own identifiers, which have no std::hash.

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Differences/GroupListDifference.h"
#include "GroupHosting/Support/BothWays.h"
#include "GroupHosting/Support/Steps.h"
#include "Support/CommandCases.h"
#include "Support/WatchedIdentifier.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

namespace Tarvik {
namespace {

using Element = WatchedIdentifier;
using Elements = std::vector<Element>;

static_assert(!GroupLists::Hashable<Element>);

TEST(IdentifiersWithoutHash, HaveDifferencesLikeOthers)
{
  expectDifferencesToLeadBothWays<Element>(1000);
}

class CompactCommandWithoutHash : public ::testing::Test {
protected:
  CompactTKGroupCmd<Element> add()
  {
    return {host, [this](auto provider) {
              return std::make_shared<AddToTKGroupCmd<Element>>(provider, Elements{a},
                                                                host->idOf("B"));
            }};
  }

  Element a, b, c, d;
  std::shared_ptr<RecordingHost<Element>> host = hostWith(group("A", {a, b}), group("B", {c}));
};

TEST_F(CompactCommandWithoutHash, IsUndoneAndRedone)
{
  const auto before = host->copyOfGroups();
  auto command = add();
  command.execute();
  const auto after = host->copyOfGroups();

  command.undo();
  EXPECT_TRUE(identical(host->copyOfGroups(), before));
  command.redo();
  EXPECT_TRUE(identical(host->copyOfGroups(), after));
}

TEST_F(CompactCommandWithoutHash, SeesOtherNamesOtherNumbersOfMembersAndWhetherItsOwnAreThere)
{
  auto command = add();
  command.execute();
  const auto after = host->copyOfGroups();
  auto renamed = after;
  renamed.front().setName("Other", true);
  auto longer = after;
  longer.front().addGroupMember(d);
  auto withoutItsOwn = after;
  withoutItsOwn.back().removeGroupMember(a);
  withoutItsOwn.back().addGroupMember(d);

  for (const auto& groups : {renamed, longer, withoutItsOwn}) {
    host->replaceGroups(groups);
    EXPECT_THROW(command.undo(), std::runtime_error);
    EXPECT_TRUE(identical(host->copyOfGroups(), groups));
  }
}

}
}
