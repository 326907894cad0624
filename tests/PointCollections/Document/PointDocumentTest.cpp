// SPDX-License-Identifier: MIT
#include "PointCollections/Document/PointDocument.h"

#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "PointCollections/Support/Documents.h"
#include "Support/Groups.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

namespace Tarvik::PointCollections {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Document : public ::testing::Test {
protected:
  std::shared_ptr<PointDocument> m_document = documentOf({"a", "b", "c", "d", "e"});

  GUIdentifier id(const std::string& name) const { return m_document->findByName(name)->id; }

  std::vector<std::string> order() const { return namesOf(*m_document, m_document->order()); }

  /// The order after the move command; empty if there is no command.
  std::vector<std::string>
  orderAfter(const std::string& target, const std::string& elements, bool insertBefore)
  {
    std::vector<GUIdentifier> ids;
    for (const char name : elements)
      ids.push_back(id(std::string(1, name)));
    const auto command = m_document->createMoveCommand(id(target), ids, insertBefore);
    if (!command)
      return {};
    command->execute();
    auto result = order();
    command->undo();
    return result;
  }
};

TEST_F(Document, FindsElementsByIdAndByName)
{
  const auto* b = m_document->findByName("b");

  ASSERT_NE(b, nullptr);
  EXPECT_EQ(m_document->find(b->id), b);
  EXPECT_EQ(m_document->getElementName(b->id), "b");
  EXPECT_EQ(m_document->findByName("B"), nullptr);
  EXPECT_EQ(m_document->find(GUIdentifier()), nullptr);
  EXPECT_EQ(m_document->getElementName(GUIdentifier()), "");
}

TEST_F(Document, KeepsTheFirstOfElementsWithEqualNamesOrIds)
{
  const GUIdentifier id;
  const auto document = PointDocument::create({{.id = id, .name = "a", .points = {{1, 2, 3}}},
                                               {.id = GUIdentifier(), .name = "a", .points = {}},
                                               {.id = id, .name = "b", .points = {}}});

  EXPECT_THAT(document->order(), ElementsAre(id));
  EXPECT_THAT(document->findByName("a")->points, ElementsAre(Point{1, 2, 3}));
  EXPECT_EQ(document->find(id)->name, "a");
}

TEST_F(Document, ListsUngroupedElementsInItsOrder)
{
  m_document->setGroups({group("X", {id("d"), id("a")}), group("Y", {id("a")})});

  EXPECT_THAT(namesOf(*m_document, m_document->getUngroupedElements()), ElementsAre("b", "c", "e"));
}

TEST_F(Document, FindsGroupsById)
{
  m_document->setGroups({group<GUIdentifier>("G", {}), group<GUIdentifier>("H", {})});
  const auto id = m_document->getGroups()[1].getId();

  EXPECT_EQ(m_document->findGroup(id), &m_document->getGroups()[1]);
  EXPECT_EQ(m_document->findGroup(Identifier()), nullptr);
}

TEST_F(Document, FindsTheFirstGroupThatHoldsAnElement)
{
  m_document->setGroups(
      {group<GUIdentifier>("W", {}), group("X", {id("a")}), group("Y", {id("b"), id("a")})});

  EXPECT_EQ(m_document->holderOf(id("a")), &m_document->getGroups()[1]);
  EXPECT_EQ(m_document->holderOf(id("b")), &m_document->getGroups()[2]);
  EXPECT_EQ(m_document->holderOf(id("c")), nullptr);
  EXPECT_EQ(m_document->holderOf(GUIdentifier()), nullptr);
}

TEST_F(Document, TakesTheListOfGroupsAsItIs)
{
  const std::vector<TKGroup<GUIdentifier>> groups = {group("X", {id("a"), GUIdentifier()}),
                                                     group("X", {id("a")})};

  m_document->setGroups(groups);
  EXPECT_TRUE(identical(m_document->getGroups(), groups));

  m_document->setGroups(m_document->getGroups());
  EXPECT_TRUE(identical(m_document->getGroups(), groups));
}

TEST_F(Document, NamesTheMembersOfAGroup)
{
  const auto x = group("X", {id("c"), id("a")});
  m_document->setGroups({group("W", {id("b")}), x});
  using Member = std::pair<GUIdentifier, std::string>;

  EXPECT_THAT(m_document->getGroupMemberNames(x.getId()),
              ElementsAre(Member(id("c"), "c"), Member(id("a"), "a")));
  EXPECT_THAT(m_document->getGroupMemberNames(Identifier()), IsEmpty());
}

TEST_F(Document, RenamesAGroupToAnything)
{
  const auto x = group<GUIdentifier>("X", {});
  m_document->setGroups({x, group<GUIdentifier>("Y", {})});

  for (const std::string name : {"Z", "Y", " two  blanks ", ""}) {
    m_document->renameGroup(x.getId(), name);
    EXPECT_EQ(m_document->getGroups()[0].getName(), name);
  }
}

TEST_F(Document, DoesNothingWhenAnUnknownGroupIsRenamed)
{
  m_document->setGroups({group<GUIdentifier>("X", {})});

  m_document->renameGroup(Identifier(), "Z");

  EXPECT_EQ(m_document->getGroups()[0].getName(), "X");
}

TEST_F(Document, MovesElementsBeforeAnother)
{
  EXPECT_THAT(orderAfter("b", "e", true), ElementsAre("a", "e", "b", "c", "d"));
  EXPECT_THAT(orderAfter("d", "ca", true), ElementsAre("b", "c", "a", "d", "e"));
  EXPECT_THAT(orderAfter("a", "ec", true), ElementsAre("e", "c", "a", "b", "d"));
}

TEST_F(Document, MovesElementsAfterAnother)
{
  EXPECT_THAT(orderAfter("b", "e", false), ElementsAre("a", "b", "e", "c", "d"));
  EXPECT_THAT(orderAfter("e", "ba", false), ElementsAre("c", "d", "e", "b", "a"));
}

TEST_F(Document, GathersMovedElementsAroundATargetThatIsOneOfThem)
{
  EXPECT_THAT(orderAfter("c", "ecb", true), ElementsAre("a", "e", "c", "b", "d"));
  EXPECT_THAT(orderAfter("c", "ca", false), ElementsAre("b", "c", "a", "d", "e"));
}

TEST_F(Document, MovesAnElementThatIsGivenTwiceOnce)
{
  EXPECT_THAT(orderAfter("a", "ede", true), ElementsAre("e", "d", "a", "b", "c"));
}

TEST_F(Document, SkipsUnknownElementsWhenMoving)
{
  const auto command = m_document->createMoveCommand(id("a"), {GUIdentifier(), id("c")}, true);

  command->execute();

  EXPECT_THAT(order(), ElementsAre("c", "a", "b", "d", "e"));
}

TEST_F(Document, HasNoMoveCommandIfNothingWouldMove)
{
  EXPECT_EQ(m_document->createMoveCommand(id("b"), {id("a")}, true), nullptr);
  EXPECT_EQ(m_document->createMoveCommand(id("b"), {id("c"), id("d")}, false), nullptr);
  EXPECT_EQ(m_document->createMoveCommand(id("b"), {id("b")}, true), nullptr);
  EXPECT_EQ(m_document->createMoveCommand(id("b"), {}, true), nullptr);
  EXPECT_EQ(m_document->createMoveCommand(id("b"), {GUIdentifier()}, true), nullptr);
  EXPECT_EQ(m_document->createMoveCommand(GUIdentifier(), {id("a")}, true), nullptr);
}

TEST_F(Document, UndoesAndRedoesAMove)
{
  const auto command = m_document->createMoveCommand(id("a"), {id("e"), id("d")}, true);
  EXPECT_THAT(order(), ElementsAre("a", "b", "c", "d", "e"));

  command->execute();
  command->undo();
  EXPECT_THAT(order(), ElementsAre("a", "b", "c", "d", "e"));

  command->redo();
  EXPECT_THAT(order(), ElementsAre("e", "d", "a", "b", "c"));
  EXPECT_EQ(command->getDescription(), "Move");
}

TEST_F(Document, KeepsThePlacesOfGroupedElementsInItsOrder)
{
  m_document->setGroups({group("X", {id("b")})});

  EXPECT_THAT(orderAfter("a", "d", false), ElementsAre("a", "d", "b", "c", "e"));
  EXPECT_THAT(orderAfter("b", "d", true), ElementsAre("a", "d", "b", "c", "e"));
}

/// A move beside an ungrouped element, with the library's command.
class DocumentMoves : public Document {
protected:
  DocumentMoves() { m_document->setGroups({group("X", {id("b"), id("d")})}); }

  /// Executes the command, undoes and redoes it, and returns the ungrouped elements.
  std::vector<std::string>
  ungroupedAfter(const std::string& elements, const std::string& target, bool insertBefore)
  {
    std::vector<GUIdentifier> ids;
    for (const char name : elements)
      ids.push_back(id(std::string(1, name)));
    const auto groupsBefore = m_document->getGroups();
    const auto orderBefore = m_document->order();

    MoveTKGroupElementsCmd<GUIdentifier> command(m_document, ids, id(target), insertBefore);
    command.execute();
    const auto groupsAfter = m_document->getGroups();
    const auto orderAfter = m_document->order();

    command.undo();
    EXPECT_TRUE(identical(m_document->getGroups(), groupsBefore));
    EXPECT_EQ(m_document->order(), orderBefore);

    command.redo();
    EXPECT_TRUE(identical(m_document->getGroups(), groupsAfter));
    EXPECT_EQ(m_document->order(), orderAfter);
    return namesOf(*m_document, m_document->getUngroupedElements());
  }
};

TEST_F(DocumentMoves, TakeElementsOutOfTheirGroupsAndPlaceThem)
{
  EXPECT_THAT(ungroupedAfter("db", "a", true), ElementsAre("d", "b", "a", "c", "e"));
  EXPECT_TRUE(m_document->getGroups()[0].getGroupMembers().empty());
}

TEST_F(DocumentMoves, TakeElementsOutOfTheirGroupsEvenIfTheOrderStaysTheSame)
{
  EXPECT_THAT(ungroupedAfter("b", "a", false), ElementsAre("a", "b", "c", "e"));
  EXPECT_THAT(order(), ElementsAre("a", "b", "c", "d", "e"));
  EXPECT_EQ(view(m_document->getGroups()), list(group("X", {id("d")})));
}

TEST_F(DocumentMoves, PlaceUngroupedElements)
{
  EXPECT_THAT(ungroupedAfter("ea", "c", false), ElementsAre("c", "e", "a"));
  EXPECT_EQ(view(m_document->getGroups()), list(group("X", {id("b"), id("d")})));
}

TEST_F(DocumentMoves, GatherElementsAroundATargetThatIsOneOfThem)
{
  EXPECT_THAT(ungroupedAfter("dca", "c", true), ElementsAre("d", "c", "a", "e"));
  EXPECT_EQ(view(m_document->getGroups()), list(group("X", {id("b")})));
}

TEST_F(DocumentMoves, LeaveTheOrderAloneBesideAMember)
{
  EXPECT_THAT(ungroupedAfter("ae", "d", true), ElementsAre("c"));
  EXPECT_EQ(view(m_document->getGroups()), list(group("X", {id("b"), id("a"), id("e"), id("d")})));
  EXPECT_THAT(order(), ElementsAre("a", "b", "c", "d", "e"));
}

TEST_F(Document, RefusesAnOrderThatIsNotARearrangement)
{
  const auto order = m_document->order();
  auto twice = order;
  twice.back() = twice.front();
  auto foreign = order;
  foreign.back() = GUIdentifier();
  const std::vector<GUIdentifier> tooShort(order.begin(), order.end() - 1);

  for (const auto& wrong : {twice, foreign, tooShort}) {
    EXPECT_THROW(m_document->setOrder(wrong), std::invalid_argument);
    EXPECT_EQ(m_document->order(), order);
  }
}

TEST_F(Document, IsGoneWhenItsLastCommandIs)
{
  auto command = m_document->createMoveCommand(id("a"), {id("e")}, true);
  const std::weak_ptr<PointDocument> watched = m_document;

  m_document.reset();
  EXPECT_FALSE(watched.expired());
  command->execute();

  command.reset();
  EXPECT_TRUE(watched.expired());
}

}
}
