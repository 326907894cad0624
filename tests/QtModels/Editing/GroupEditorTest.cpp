// SPDX-License-Identifier: MIT
#include "QtModels/Editing/GroupEditor.h"

#include "QtModels/Support/EditedDocument.h"

#include <QtTest/QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace Tarvik {
namespace {

template <class T>
class GroupEditorTest : public ::testing::Test {};
TYPED_TEST_SUITE(GroupEditorTest, ElementIdentifiers, KindName);

TYPED_TEST(GroupEditorTest, CreatesAGroupOfTheElementsInTheOrderOfTheRows)
{
  EditedDocument<TypeParam> document("A[ab] B[c] d");
  const auto created = document.editor.createGroup(document.rows("dcb"), "N");
  EXPECT_EQ(document.text(), "A[a] B[] N[bcd] ");
  EXPECT_EQ(created.data().toString(), "N");
}

TYPED_TEST(GroupEditorTest, CreatesGroupsWhereItIsTold)
{
  EditedDocument<TypeParam> document("A[] C[] ");
  document.editor.setPlaceOfNewGroups(GroupPlace::sorted());
  document.editor.createGroup({}, "B");
  EXPECT_EQ(document.text(), "A[] B[] C[] ");
}

TYPED_TEST(GroupEditorTest, MovesRowsBesideAnother)
{
  EditedDocument<TypeParam> document("A[abc] B[] def");
  const auto move = [&](const std::string& rows, char target, Side side) {
    EXPECT_TRUE(document.editor.moveBeside(document.rows(rows), document.row(target), side));
    return document.text();
  };
  EXPECT_EQ(move("B", 'A', Side::Before), "B[] A[abc] def");
  EXPECT_EQ(move("c", 'a', Side::Before), "B[] A[cab] def");
  EXPECT_EQ(move("c", 'a', Side::After), "B[] A[acb] def");
  EXPECT_EQ(move("f", 'd', Side::After), "B[] A[acb] dfe");
  EXPECT_EQ(document.history.entries().size(), 4U);
}

TYPED_TEST(GroupEditorTest, MovesNoRowsBesideOneOfAnotherKind)
{
  EditedDocument<TypeParam> document("A[ab] B[] c");
  EXPECT_FALSE(document.editor.moveBeside(document.rows("A"), document.row('c'), Side::After));
  EXPECT_FALSE(document.editor.moveBeside(document.rows("c"), document.row('A'), Side::After));
  EXPECT_FALSE(document.editor.moveBeside(document.rows("Bc"), document.row('A'), Side::Before));
  EXPECT_FALSE(document.editor.moveBeside(document.rows("c"), QModelIndex(), Side::Before));
  EXPECT_EQ(document.text(), "A[ab] B[] c");
}

TYPED_TEST(GroupEditorTest, LeavesMembersAloneWhoseGroupIsAmongTheRows)
{
  EditedDocument<TypeParam> document("A[ab] B[cd] ");
  EXPECT_TRUE(document.editor.removeFromGroups(document.rows("Aabc")));
  EXPECT_EQ(document.text(), "A[ab] B[d] c");
  EXPECT_TRUE(document.editor.deleteGroups(document.rows("Aad")));
  EXPECT_EQ(document.text(), "B[d] abc");
}

TYPED_TEST(GroupEditorTest, TakesAnElementOutOfBothGroupsIfBothRowsAreGiven)
{
  EditedDocument<TypeParam> document("A[a] B[a] ");
  const auto rows = QModelIndexList{document.model.index(0, 0, document.row('A')),
                                    document.model.index(0, 0, document.row('B'))};
  EXPECT_TRUE(document.editor.removeFromGroups(rows));
  EXPECT_EQ(document.text(), "A[] B[] a");
}

TYPED_TEST(GroupEditorTest, RenamesAGroupThroughTheModel)
{
  EditedDocument<TypeParam> document("A[] B[] ");
  EXPECT_TRUE(document.model.setData(document.row('A'), "N"));
  EXPECT_EQ(document.text(), "N[] B[] ");
  EXPECT_EQ(document.steps(), Texts{"Rename Group: A → N"});
}

TYPED_TEST(GroupEditorTest, AcceptsTheNameThatAGroupHasWithoutAStep)
{
  EditedDocument<TypeParam> document("A[] ");
  EXPECT_TRUE(document.model.setData(document.row('A'), "A"));
  EXPECT_TRUE(document.history.entries().empty());
}

TYPED_TEST(GroupEditorTest, RefusesBlankAndTakenNames)
{
  EditedDocument<TypeParam> document("A[] B[] ");
  for (const auto* name : {"", "  ", "B"}) {
    EXPECT_FALSE(document.model.setData(document.row('A'), name)) << '"' << name << '"';
    EXPECT_FALSE(document.editor.faultOfName(document.row('A'), name).isEmpty());
  }
  EXPECT_EQ(document.editor.faultOfName(document.row('A'), "B"), "Another group has this name.");
  EXPECT_EQ(document.text(), "A[] B[] ");
}

TYPED_TEST(GroupEditorTest, TakesTheLackOfANameForNoName)
{
  EditedDocument<TypeParam> document("A[] ");
  document.editor.setNameCheck([](const Identifier&, const QString&) { return QString(); });
  EXPECT_FALSE(document.model.setData(document.row('A'), QVariant()));
  EXPECT_EQ(document.text(), "A[] ");
}

TYPED_TEST(GroupEditorTest, LetsTheApplicationSayWhichNamesAreAllowed)
{
  EditedDocument<TypeParam> document("A[] B[] ");
  document.editor.setNameCheck([&](const Identifier& id, const QString& name) {
    return id == document.group('A') && name == "N" ? QString("N is not for A") : QString();
  });
  EXPECT_FALSE(document.model.setData(document.row('A'), "N"));
  EXPECT_TRUE(document.model.setData(document.row('A'), "B"));
}

TYPED_TEST(GroupEditorTest, RefusesANameWhoseCheckThrows)
{
  EditedDocument<TypeParam> document("A[] ");
  document.editor.setNameCheck([](const Identifier&, const QString&) -> QString {
    throw std::runtime_error("the names are not loaded");
  });
  EXPECT_EQ(document.editor.faultOfName(document.row('A'), "N"), "the names are not loaded");
  EXPECT_FALSE(document.model.setData(document.row('A'), "N"));
}

TYPED_TEST(GroupEditorTest, LetsOnlyNamesOfGroupsBeEdited)
{
  EditedDocument<TypeParam> document("A[a] b");
  EXPECT_TRUE(document.row('A').flags() & Qt::ItemIsEditable);
  EXPECT_FALSE(document.row('A').siblingAtColumn(1).flags() & Qt::ItemIsEditable);
  EXPECT_FALSE(document.row('a').flags() & Qt::ItemIsEditable);
  EXPECT_FALSE(document.model.setData(document.row('a'), "n"));
  EXPECT_FALSE(document.model.setData(document.row('A'), "n", Qt::CheckStateRole));
}

TYPED_TEST(GroupEditorTest, LetsNothingBeEditedWithoutAnEditor)
{
  EditedDocument<TypeParam> document("A[a] b");
  delete &document.editor;
  constexpr auto editing = Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
  EXPECT_FALSE(document.row('A').flags() & editing);
  EXPECT_FALSE(document.model.flags(QModelIndex()) & editing);
  EXPECT_EQ(document.model.mimeData(document.rows("a")), nullptr);
  EXPECT_FALSE(document.model.setData(document.row('A'), "N"));
  EXPECT_EQ(document.model.supportedDropActions(), Qt::IgnoreAction);
}

TYPED_TEST(GroupEditorTest, ReportsWhatTheHandlerThrows)
{
  EditedDocument<TypeParam> document("B[a] A[] c");
  auto* editor = new GroupEditor<TypeParam>(document.model, [](GroupRequest<TypeParam>) -> bool {
    throw std::runtime_error("the document is locked");
  });
  QStringList messages;
  QObject::connect(editor, &GroupEditorBase::failed,
                   [&messages](const QString& message) { messages += message; });

  EXPECT_FALSE(editor->createGroup(document.rows("a")).isValid());
  EXPECT_FALSE(editor->addToGroup(document.rows("a"), document.row('A')));
  EXPECT_FALSE(editor->removeFromGroups(document.rows("a")));
  EXPECT_FALSE(editor->moveBeside(document.rows("a"), document.row('c'), Side::After));
  EXPECT_FALSE(editor->deleteGroups(document.rows("A")));
  EXPECT_FALSE(document.model.setData(document.row('A'), "N"));
  EXPECT_FALSE(editor->sortGroups());
  EXPECT_EQ(messages.size(), 7);
  EXPECT_EQ(messages.count("the document is locked"), 7);
  EXPECT_EQ(document.text(), "B[a] A[] c");
}

TYPED_TEST(GroupEditorTest, ReportsThingsThatAreNoExceptions)
{
  EditedDocument<TypeParam> document("A[a] ");
  auto* editor =
      new GroupEditor<TypeParam>(document.model, [](GroupRequest<TypeParam>) -> bool { throw 1; });
  QString told;
  QObject::connect(editor, &GroupEditorBase::failed,
                   [&told](const QString& message) { told = message; });
  EXPECT_FALSE(editor->sortGroups());
  EXPECT_FALSE(told.isEmpty());
}

TYPED_TEST(GroupEditorTest, KeepsTheModelConsistent)
{
  EditedDocument<TypeParam> document("A[ab] B[c] de");
  QAbstractItemModelTester tester(&document.model,
                                  QAbstractItemModelTester::FailureReportingMode::Fatal);
  document.editor.createGroup(document.rows("bd"), "N");
  document.editor.moveBeside(document.rows("e"), document.row('c'), Side::Before);
  document.editor.deleteGroups(document.rows("B"));
  document.history.jumpTo(0);
  document.history.jumpTo(3);
  EXPECT_EQ(document.text(), "A[a] N[bd] ce");
}

}
}
