// SPDX-License-Identifier: MIT
#include "QtModels/Editing/GroupOperations.h"

#include "QtModels/Support/EditedDocument.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {
namespace {

template <class T>
class GroupOperationsTest : public ::testing::Test {
protected:
  /// Carries an operation out, and checks that it is one step that can be undone and redone.
  template <class Operation>
  static std::string after(const std::string& before, Operation operation)
  {
    EditedDocument<T> document(before);
    EXPECT_TRUE(operation(document, document.editor.operations()));
    EXPECT_EQ(document.history.entries().size(), 1U);
    const auto result = document.text();
    document.history.undo();
    EXPECT_EQ(document.text(), before) << "after undo";
    document.history.redo();
    EXPECT_EQ(document.text(), result) << "after redo";
    return result;
  }

  template <class Operation>
  static std::string descriptionOf(const std::string& before, Operation operation)
  {
    EditedDocument<T> document(before);
    operation(document, document.editor.operations());
    return document.history.undoDescription();
  }

  /// Whether the handler is not even asked.
  template <class Operation>
  static bool isNoRequest(const std::string& before, Operation operation)
  {
    EditedDocument<T> document(before);
    int requests = 0;
    const GroupOperations<T> operations(document.provider, [&requests](GroupRequest<T>) {
      ++requests;
      return true;
    });
    return !operation(document, operations) && requests == 0;
  }
};
TYPED_TEST_SUITE(GroupOperationsTest, ElementIdentifiers, KindName);

TYPED_TEST(GroupOperationsTest, CreatesAGroupAtTheEnd)
{
  EXPECT_EQ(this->after("A[ab] B[c] d",
                        [](auto& document, auto& operations) {
                          return operations.createGroup(document.elements("bd"), "N").has_value();
                        }),
            "A[a] B[c] N[bd] ");
}

TYPED_TEST(GroupOperationsTest, CreatesAGroupBesideAnotherOne)
{
  const auto createdBeside = [&](char target, Side side) {
    return this->after("A[] B[] c", [&](auto& document, auto& operations) {
      return operations
          .createGroup(document.elements("c"), "N",
                       GroupPlace::beside(document.group(target), side))
          .has_value();
    });
  };
  EXPECT_EQ(createdBeside('A', Side::Before), "N[c] A[] B[] ");
  EXPECT_EQ(createdBeside('A', Side::After), "A[] N[c] B[] ");
  EXPECT_EQ(createdBeside('B', Side::After), "A[] B[] N[c] ");
}

TYPED_TEST(GroupOperationsTest, CreatesAGroupAtItsPlaceInTheAlphabet)
{
  const auto created = [&](const std::string& name) {
    return this->after("A[] C[] E[] x", [&](auto& document, auto& operations) {
      return operations.createGroup(document.elements("x"), name, GroupPlace::sorted()).has_value();
    });
  };
  EXPECT_EQ(created("B"), "A[] B[x] C[] E[] ");
  EXPECT_EQ(created("d"), "A[] C[] d[x] E[] ");
  EXPECT_EQ(created("F"), "A[] C[] E[] F[x] ");
}

TYPED_TEST(GroupOperationsTest, CreatesAGroupWithAnotherNameIfItIsTaken)
{
  EditedDocument<TypeParam> document("A[] ");
  const auto id = document.editor.operations().createGroup({}, "A", GroupPlace::sorted());
  ASSERT_TRUE(id.has_value());
  EXPECT_NE(document.provider->findGroup(*id)->getName(), "A");
}

TYPED_TEST(GroupOperationsTest, AddsElementsToTheEndOfAGroup)
{
  EXPECT_EQ(this->after("A[ab] B[c] d",
                        [](auto& document, auto& operations) {
                          return operations.addToGroup(document.elements("da"),
                                                       document.group('B'));
                        }),
            "A[b] B[cda] ");
}

TYPED_TEST(GroupOperationsTest, InsertsElementsBeforeAMember)
{
  EXPECT_EQ(this->after("A[abc] B[] d",
                        [](auto& document, auto& operations) {
                          return operations.insertIntoGroup(document.elements("dc"),
                                                            document.group('A'), 1);
                        }),
            "A[adcb] B[] ");
}

TYPED_TEST(GroupOperationsTest, RemovesElementsFromTheirGroups)
{
  EXPECT_EQ(this->after("A[ab] B[c] d",
                        [](auto& document, auto& operations) {
                          return operations.removeFromGroups(document.elements("acd"));
                        }),
            "A[b] B[] acd");
}

TYPED_TEST(GroupOperationsTest, MovesElementsBesideAMember)
{
  EXPECT_EQ(this->after("A[ab] B[c] d",
                        [](auto& document, auto& operations) {
                          return operations.moveElements(document.elements("dc"),
                                                         document.element('a'), Side::After);
                        }),
            "A[adcb] B[] ");
}

TYPED_TEST(GroupOperationsTest, MovesElementsBesideAnUngroupedElement)
{
  EXPECT_EQ(this->after("A[ab] cde",
                        [](auto& document, auto& operations) {
                          return operations.moveElements(document.elements("eb"),
                                                         document.element('d'), Side::Before);
                        }),
            "A[a] cebd");
}

TYPED_TEST(GroupOperationsTest, DeletesGroups)
{
  EXPECT_EQ(this->after("A[a] B[b] C[c] d",
                        [](auto& document, auto& operations) {
                          return operations.deleteGroups(document.groups("CA"));
                        }),
            "B[b] acd");
}

TYPED_TEST(GroupOperationsTest, RenamesAGroup)
{
  EXPECT_EQ(this->after("A[a] B[] ",
                        [](auto& document, auto& operations) {
                          return operations.renameGroup(document.group('A'), "N");
                        }),
            "N[a] B[] ");
}

TYPED_TEST(GroupOperationsTest, SortsGroupsAndTheirMembers)
{
  EXPECT_EQ(this->after("B[ba] A[dc] fe",
                        [](auto&, auto& operations) { return operations.sortGroups(); }),
            "A[cd] B[ab] fe");
}

TYPED_TEST(GroupOperationsTest, MovesGroupsBesideAnotherOne)
{
  EXPECT_EQ(this->after("A[] B[] C[] D[] ",
                        [](auto& document, auto& operations) {
                          return operations.moveGroups(document.groups("DA"), document.group('B'),
                                                       Side::After);
                        }),
            "B[] D[] A[] C[] ");
}

TYPED_TEST(GroupOperationsTest, TakesAnElementThatIsGivenTwiceOnce)
{
  EXPECT_EQ(this->after("A[] B[] a",
                        [](auto& document, auto& operations) {
                          return operations.addToGroup(document.elements("aa"),
                                                       document.group('A'));
                        }),
            "A[a] B[] ");
}

TYPED_TEST(GroupOperationsTest, SaysInTheHistoryWhatWasDoneToWhat)
{
  const std::string before = "A[ab] B[c] C[] D[] de";
  EXPECT_EQ(
      this->descriptionOf(
          before, [](auto& d, auto& operations) { operations.createGroup(d.elements("ad"), "N"); }),
      "Create Group: N (2)");
  EXPECT_EQ(
      this->descriptionOf(before, [](auto&, auto& operations) { operations.createGroup({}, "N"); }),
      "Create Group: N");
  EXPECT_EQ(this->descriptionOf(before,
                                [](auto& d, auto& operations) {
                                  operations.addToGroup(d.elements("d"), d.group('A'));
                                }),
            "Add to Group: d → A");
  EXPECT_EQ(this->descriptionOf(
                before,
                [](auto& d, auto& operations) { operations.removeFromGroups(d.elements("abc")); }),
            "Remove Point Collection(s) From Group: 3 elements");
  EXPECT_EQ(this->descriptionOf(before,
                                [](auto& d, auto& operations) {
                                  operations.moveElements(d.elements("dc"), d.element('a'),
                                                          Side::Before);
                                }),
            "Move Elements: 2 elements → before a");
  EXPECT_EQ(
      this->descriptionOf(
          before, [](auto& d, auto& operations) { operations.deleteGroups(d.groups("ABC")); }),
      "Remove Group: A, B, C");
  EXPECT_EQ(
      this->descriptionOf(
          before, [](auto& d, auto& operations) { operations.deleteGroups(d.groups("ABCD")); }),
      "Remove Group: 4 groups");
  EXPECT_EQ(
      this->descriptionOf(
          before, [](auto& d, auto& operations) { operations.renameGroup(d.group('A'), "N"); }),
      "Rename Group: A → N");
  EXPECT_EQ(this->descriptionOf(before,
                                [](auto& d, auto& operations) {
                                  operations.moveGroups(d.groups("A"), d.group('B'), Side::After);
                                }),
            "Move Groups: A → after B");
  EXPECT_EQ(
      this->descriptionOf("B[] A[] ", [](auto&, auto& operations) { operations.sortGroups(); }),
      "Sort Groups");
}

TYPED_TEST(GroupOperationsTest, CutsLongNamesInTheHistory)
{
  const std::string longName(100, 'n');
  EXPECT_EQ(this->descriptionOf(
                "A[] ",
                [&](auto& d, auto& operations) { operations.renameGroup(d.group('A'), longName); }),
            "Rename Group: A → " + std::string(59, 'n') + "…");
}

TYPED_TEST(GroupOperationsTest, AsksForNothingWhereNothingWouldChange)
{
  const std::string before = "A[abc] B[] def";
  EXPECT_TRUE(this->isNoRequest(
      before, [](auto& d, auto& operations) { return operations.addToGroup({}, d.group('A')); }));
  EXPECT_TRUE(this->isNoRequest(before, [](auto& d, auto& operations) {
    return operations.addToGroup(d.elements("bc"), d.group('A'));
  }));
  EXPECT_TRUE(this->isNoRequest(before, [](auto& d, auto& operations) {
    return operations.insertIntoGroup(d.elements("bc"), d.group('A'), 1) ||
           operations.insertIntoGroup(d.elements("bc"), d.group('A'), 2) ||
           operations.insertIntoGroup(d.elements("bc"), d.group('A'), 3);
  }));
  EXPECT_TRUE(this->isNoRequest(before, [](auto& d, auto& operations) {
    return operations.moveElements(d.elements("de"), d.element('f'), Side::Before) ||
           operations.moveElements(d.elements("ef"), d.element('d'), Side::After) ||
           operations.moveElements(d.elements("d"), d.element('d'), Side::After);
  }));
  EXPECT_TRUE(this->isNoRequest(before, [](auto& d, auto& operations) {
    return operations.removeFromGroups(d.elements("de")) || operations.deleteGroups({});
  }));
  EXPECT_TRUE(this->isNoRequest(
      before, [](auto& d, auto& operations) { return operations.renameGroup(d.group('A'), "A"); }));
  EXPECT_TRUE(this->isNoRequest(before, [](auto& d, auto& operations) {
    return operations.moveGroups(d.groups("A"), d.group('B'), Side::Before) ||
           operations.moveGroups(d.groups("AB"), d.group('A'), Side::After);
  }));
  EXPECT_TRUE(
      this->isNoRequest("abc", [](auto&, auto& operations) { return operations.sortGroups(); }));
}

TYPED_TEST(GroupOperationsTest, AsksForNothingOfUnknownGroupsAndTargets)
{
  EXPECT_TRUE(this->isNoRequest("A[a] b", [](auto& d, auto& operations) {
    const Identifier unknown;
    return operations.addToGroup(d.elements("b"), unknown) || operations.deleteGroups({unknown}) ||
           operations.renameGroup(unknown, "N") ||
           operations.moveGroups({unknown}, d.group('A'), Side::Before) ||
           operations.moveGroups(d.groups("A"), unknown, Side::Before) ||
           operations.moveElements(d.elements("b"), TypeParam(), Side::Before);
  }));
}

TYPED_TEST(GroupOperationsTest, MovesABlockThatIsNotInItsPlaceYet)
{
  const auto inserted = [&](const std::string& elements, std::size_t position) {
    return this->after("A[abcd] ", [&](auto& document, auto& operations) {
      return operations.insertIntoGroup(document.elements(elements), document.group('A'), position);
    });
  };
  EXPECT_EQ(inserted("cb", 1), "A[acbd] ");
  EXPECT_EQ(inserted("bc", 0), "A[bcad] ");
  EXPECT_EQ(inserted("bc", 4), "A[adbc] ");
  EXPECT_EQ(inserted("bd", 1), "A[abdc] ");
}

TYPED_TEST(GroupOperationsTest, LeavesNoStepThatHasChangedNothing)
{
  EditedDocument<TypeParam> document("A[ab] B[c] ");
  EXPECT_FALSE(document.editor.operations().sortGroups());
  EXPECT_TRUE(document.history.entries().empty());
  EXPECT_TRUE(document.history.isClean());
}

TYPED_TEST(GroupOperationsTest, ThrowsWhatTheHandlerThrows)
{
  EditedDocument<TypeParam> document("A[a] ");
  const GroupOperations<TypeParam> operations(
      document.provider,
      [](GroupRequest<TypeParam>) -> bool { throw std::runtime_error("the document is locked"); });
  EXPECT_THROW(operations.deleteGroups(document.groups("A")), std::runtime_error);
}

}
}
