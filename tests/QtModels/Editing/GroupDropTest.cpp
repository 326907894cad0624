// SPDX-License-Identifier: MIT
// Drops with the data of drags, as views do them.

#include "QtModels/Models/GroupFilterModel.h"
#include "QtModels/Support/EditedDocument.h"
#include "QtModels/Support/ShownRows.h"

#include <QtCore/QMimeData>
#include <QtCore/QSortFilterProxyModel>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Tarvik {
namespace {

constexpr int onto = -1;

template <class T>
class GroupDropTest : public ::testing::Test {
protected:
  /// Drags rows and drops them onto or below a parent; nothing if that is refused.
  static std::string
  dropped(const std::string& before, const std::string& rows, int row, char parent)
  {
    EditedDocument<T> document(before);
    const auto parentIndex = parent ? document.row(parent) : QModelIndex();
    const auto result = dropIn(document.model, document, document.rows(rows), row, parentIndex);
    EXPECT_LE(document.history.entries().size(), 1U);
    if (result) {
      document.history.undo();
      EXPECT_EQ(document.text(), before) << "after undo";
      document.history.redo();
    }
    return result ? document.text() : "refused";
  }

  /// The same below the top level.
  static std::string droppedAtTop(const std::string& before, const std::string& rows, int row)
  {
    return dropped(before, rows, row, 0);
  }

  static bool dropIn(QAbstractItemModel& target,
                     const EditedDocument<T>& source,
                     const QModelIndexList& rows,
                     int row,
                     const QModelIndex& parent)
  {
    const std::unique_ptr<QMimeData> data(source.model.mimeData(rows));
    if (!data)
      return false;
    const int column = row == onto ? -1 : 0;
    const bool isPossible = target.canDropMimeData(data.get(), Qt::MoveAction, row, column, parent);
    const bool isDone = target.dropMimeData(data.get(), Qt::MoveAction, row, column, parent);
    EXPECT_EQ(isDone, isPossible);
    return isDone;
  }
};
TYPED_TEST_SUITE(GroupDropTest, ElementIdentifiers, KindName);

TYPED_TEST(GroupDropTest, PutsElementsIntoTheGroupOntoWhichTheyAreDropped)
{
  EXPECT_EQ(this->dropped("A[ab] B[c] d", "a", onto, 'B'), "A[b] B[ca] d");
  EXPECT_EQ(this->dropped("A[ab] B[c] d", "d", onto, 'B'), "A[ab] B[cd] ");
  EXPECT_EQ(this->dropped("A[ab] B[c] d", "dba", onto, 'B'), "A[] B[cabd] ");
}

TYPED_TEST(GroupDropTest, PutsElementsBetweenTheMembersOfAGroup)
{
  EXPECT_EQ(this->dropped("A[abc] B[de] ", "d", 0, 'A'), "A[dabc] B[e] ");
  EXPECT_EQ(this->dropped("A[abc] B[de] ", "ed", 2, 'A'), "A[abdec] B[] ");
  EXPECT_EQ(this->dropped("A[abc] B[de] ", "d", 3, 'A'), "A[abcd] B[e] ");
}

TYPED_TEST(GroupDropTest, ReordersTheMembersOfAGroup)
{
  EXPECT_EQ(this->dropped("A[abcd] ", "a", 3, 'A'), "A[bcad] ");
  EXPECT_EQ(this->dropped("A[abcd] ", "db", 1, 'A'), "A[abdc] ");
  EXPECT_EQ(this->dropped("A[abcd] ", "ac", 4, 'A'), "A[bdac] ");
}

TYPED_TEST(GroupDropTest, PutsElementsBetweenUngroupedOnes)
{
  EXPECT_EQ(this->droppedAtTop("A[ab] cde", "b", 2), "A[a] cbde");
  EXPECT_EQ(this->droppedAtTop("A[ab] cde", "ba", 1), "A[] abcde");
  EXPECT_EQ(this->droppedAtTop("A[ab] cde", "b", 4), "A[a] cdeb");
}

TYPED_TEST(GroupDropTest, ReordersUngroupedElements)
{
  EXPECT_EQ(this->droppedAtTop("A[] abcd", "d", 1), "A[] dabc");
  EXPECT_EQ(this->droppedAtTop("A[] abcd", "ac", 3), "A[] bacd");
  EXPECT_EQ(this->droppedAtTop("A[] abcd", "bd", 5), "A[] acbd");
  EXPECT_EQ(this->droppedAtTop("abcd", "cd", 0), "cdab");
}

TYPED_TEST(GroupDropTest, MakesElementsUngroupedThatAreDroppedBelowAllRows)
{
  EXPECT_EQ(this->droppedAtTop("A[ab] c", "a", onto), "A[b] ac");
  EXPECT_EQ(this->droppedAtTop("A[ab] ", "b", 1), "A[a] b");
}

TYPED_TEST(GroupDropTest, ReordersGroups)
{
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] C[c] d", "C", 0), "C[c] A[a] B[b] d");
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] C[c] d", "AB", 3), "C[c] A[a] B[b] d");
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] C[c] d", "CA", 2), "B[b] A[a] C[c] d");
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] C[c] d", "A", onto), "B[b] C[c] A[a] d");
}

TYPED_TEST(GroupDropTest, MovesAGroupAndItsSelectedMembersAsAGroup)
{
  EXPECT_EQ(this->droppedAtTop("A[ab] B[] ", "Bab", 0), "refused");
  EXPECT_EQ(this->droppedAtTop("A[] B[ab] ", "aBb", 0), "B[ab] A[] ");
}

TYPED_TEST(GroupDropTest, DragsNoGroupsTogetherWithElementsOfOthers)
{
  EditedDocument<TypeParam> document("A[a] B[b] c");
  EXPECT_EQ(document.model.mimeData(document.rows("Ab")), nullptr);
  EXPECT_EQ(document.model.mimeData(document.rows("Ac")), nullptr);
  EXPECT_EQ(document.model.mimeData({}), nullptr);
}

TYPED_TEST(GroupDropTest, RefusesPlacesWhereTheRowsCannotGo)
{
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] c", "a", 0), "refused") << "an element between groups";
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] c", "a", 1), "refused") << "an element between groups";
  EXPECT_EQ(this->dropped("A[a] B[b] c", "a", onto, 'b'), "refused") << "onto a member";
  EXPECT_EQ(this->dropped("A[a] B[b] c", "a", onto, 'c'), "refused") << "onto an element";
  EXPECT_EQ(this->dropped("A[a] B[b] c", "A", onto, 'B'), "refused") << "a group onto a group";
  EXPECT_EQ(this->dropped("A[a] B[b] c", "A", 0, 'B'), "refused") << "a group into a group";
  EXPECT_EQ(this->droppedAtTop("A[a] B[b] cd", "A", 3), "refused") << "among elements";
}

TYPED_TEST(GroupDropTest, AcceptsRowsThatStayWhereTheyAreWithoutAStep)
{
  EditedDocument<TypeParam> document("A[abc] d");
  EXPECT_TRUE(this->dropIn(document.model, document, document.rows("ab"), 1, document.row('A')));
  EXPECT_EQ(document.text(), "A[abc] d");
  EXPECT_TRUE(document.history.entries().empty());
}

TYPED_TEST(GroupDropTest, AcceptsRowsOfAnotherModelOfTheSameDocument)
{
  EditedDocument<TypeParam> document("A[a] B[] ");
  GroupItemModel<TypeParam> window(document.provider);
  new GroupEditor<TypeParam>(window, handlerIn<TypeParam>(document.history, document.provider));

  EXPECT_TRUE(this->dropIn(window, document, document.rows("a"), onto, window.index(1, 0)));
  EXPECT_EQ(document.text(), "A[] B[a] ");
}

TYPED_TEST(GroupDropTest, RefusesRowsOfAnotherDocument)
{
  EditedDocument<TypeParam> document("A[a] ");
  EditedDocument<TypeParam> other("B[b] ");
  EXPECT_FALSE(this->dropIn(other.model, document, document.rows("a"), onto, other.row('B')));
  EXPECT_FALSE(this->dropIn(other.model, document, document.rows("A"), onto, QModelIndex()));
  EXPECT_EQ(other.text(), "B[b] ");
}

TYPED_TEST(GroupDropTest, SkipsElementsThatAreNotInTheDocumentAnyMore)
{
  EditedDocument<TypeParam> document("A[] abc");
  const std::unique_ptr<QMimeData> data(document.model.mimeData(document.rows("ab")));
  document.provider->setElements(document.elements("bc"));
  EXPECT_TRUE(document.model.dropMimeData(data.get(), Qt::MoveAction, onto, -1, document.row('A')));
  EXPECT_EQ(document.text(), "A[b] c");
}

TYPED_TEST(GroupDropTest, RefusesCopiesAndLinks)
{
  EditedDocument<TypeParam> document("A[a] B[] ");
  const std::unique_ptr<QMimeData> data(document.model.mimeData(document.rows("a")));
  for (const auto action : {Qt::CopyAction, Qt::LinkAction, Qt::IgnoreAction})
    EXPECT_FALSE(document.model.dropMimeData(data.get(), action, onto, -1, document.row('B')));
  EXPECT_EQ(document.model.supportedDropActions(), Qt::MoveAction);
  EXPECT_EQ(document.model.supportedDragActions(), Qt::MoveAction);
}

TYPED_TEST(GroupDropTest, LeavesNoRowsForTheViewToRemove)
{
  EditedDocument<TypeParam> document("A[a] b");
  EXPECT_FALSE(document.model.removeRows(0, 1));
  EXPECT_FALSE(document.model.removeRows(0, 1, document.row('A')));
  EXPECT_EQ(document.text(), "A[a] b");
}

TYPED_TEST(GroupDropTest, WorksThroughAFilter)
{
  EditedDocument<TypeParam> document("A[abc] B[b] C[] d");
  QSortFilterProxyModel filter;
  filter.setSourceModel(&document.model);
  filter.setRecursiveFilteringEnabled(true);
  filter.setFilterRegularExpression("A|b|d");

  const std::unique_ptr<QMimeData> data(filter.mimeData({filter.index(2, 0)})); // d
  const auto groupA = filter.index(0, 0);
  ASSERT_EQ(filter.rowCount(groupA), 1);
  EXPECT_TRUE(filter.dropMimeData(data.get(), Qt::MoveAction, 0, 0, groupA)); // above b
  EXPECT_EQ(document.text(), "A[adbc] B[b] C[] ");
}

/// Shows what has an "a" in its name: two groups and an element. One group and two elements between
/// them are hidden.
template <class T>
class DropIntoFilterTest : public GroupDropTest<T> {
protected:
  DropIntoFilterTest()
  {
    filter.setSourceModel(&document.model);
    filter.setFilterText("a");
  }

  bool drop(const std::string& rows, int row)
  {
    return this->dropIn(filter, document, document.rows(rows), row, QModelIndex());
  }

  EditedDocument<T> document{"A[x] A[y] H[z] cda"};
  GroupFilterModel filter;
};
TYPED_TEST_SUITE(DropIntoFilterTest, ElementIdentifiers, KindName);

TYPED_TEST(DropIntoFilterTest, PutsAGroupBelowTheLastShownOneAtTheEndOfTheGroups)
{
  ASSERT_EQ(textsOf(this->filter), Texts({"A", "- x", "A", "- y", "a"}));

  EXPECT_TRUE(this->drop("A", 2));

  EXPECT_EQ(this->document.text(), "A[y] H[z] A[x] cda");
}

TYPED_TEST(DropIntoFilterTest, PutsAGroupAboveTheElementsWhenNoGroupIsShown)
{
  this->filter.setFilterText("d");
  ASSERT_EQ(textsOf(this->filter), Texts({"d"}));

  EXPECT_TRUE(this->drop("A", 0));

  EXPECT_EQ(this->document.text(), "A[y] H[z] A[x] cda");
}

TYPED_TEST(DropIntoFilterTest, PutsAnElementAboveTheShownOne)
{
  EXPECT_TRUE(this->drop("x", 2));
  EXPECT_EQ(this->document.text(), "A[] A[y] H[z] cdxa");
}

TYPED_TEST(DropIntoFilterTest, RefusesWhatCannotGoThere)
{
  EditedDocument<TypeParam> other("A[a] ");
  EXPECT_FALSE(this->dropIn(this->filter, other, other.rows("A"), 2, QModelIndex()));
  EXPECT_FALSE(this->drop("x", 1)) << "an element between groups";
  EXPECT_FALSE(this->dropIn(this->filter, this->document, this->document.rows("A"), 1,
                            this->filter.index(1, 0)))
      << "a group into a group";
  EXPECT_EQ(this->document.text(), "A[x] A[y] H[z] cda");
}

TYPED_TEST(GroupDropTest, ReportsAFailureOfTheHandler)
{
  EditedDocument<TypeParam> document("A[a] B[] ");
  GroupItemModel<TypeParam> model(document.provider);
  auto* editor = new GroupEditor<TypeParam>(model, [](GroupRequest<TypeParam>) -> bool {
    throw std::runtime_error("the document is locked");
  });
  QStringList messages;
  QObject::connect(editor, &GroupEditorBase::failed,
                   [&messages](const QString& message) { messages += message; });

  EXPECT_FALSE(this->dropIn(model, document, document.rows("a"), 0, QModelIndex()));
  const std::unique_ptr<QMimeData> data(document.model.mimeData(document.rows("a")));
  EXPECT_FALSE(model.dropMimeData(data.get(), Qt::MoveAction, onto, -1, model.index(1, 0)));
  EXPECT_EQ(messages, QStringList("the document is locked"));
  EXPECT_EQ(document.text(), "A[a] B[] ");
}

}
}
