// SPDX-License-Identifier: MIT
// The edits of GrowthBenchmarks.cpp as a Qt program makes them: groups with a QList of members, a
// QSet of what is selected, and commands on a QUndoStack that keep the list of groups before and
// after. Qt's lists are shared until they change, so that such a command copies and keeps only the
// changed groups. An element is in one group, which saves this program from looking any further.

#include "QtGrowthBenchmarks.h"

#include "Growth.h"

#include <benchmark/benchmark.h>

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QUndoCommand>
#include <QUndoStack>
#include <QUuid>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace Tarvik::QtGrowth {
namespace {

using Growth::Selection;
using Growth::Size;

struct Group {
  QString name;
  QUuid id;
  QList<QUuid> members;
};

using Groups = QList<Group>;
using Elements = QList<QUuid>;

/// Names in random order: "Group 937", ...
QList<QString> shuffledNames(const QString& stem, std::size_t count)
{
  QList<QString> names;
  names.reserve(static_cast<qsizetype>(count));
  for (std::size_t i = 0; i < count; ++i)
    names.append(stem + QString::number(i));
  std::shuffle(names.begin(), names.end(), std::minstd_rand(1)); // NOLINT: the same in every run
  return names;
}

Groups makeGroups(const Size& size)
{
  Groups groups;
  groups.reserve(static_cast<qsizetype>(size.groups));
  for (const auto& name : shuffledNames(QStringLiteral("Group "), size.groups)) {
    Group group{name, QUuid::createUuid(), {}};
    group.members.reserve(static_cast<qsizetype>(size.members));
    for (std::size_t i = 0; i < size.members; ++i)
      group.members.append(QUuid::createUuid());
    groups.append(group);
  }
  return groups;
}

/// The same groups for each benchmark of a size: new identifiers take long.
const Groups& groupsOf(const Size& size)
{
  static std::map<std::pair<std::size_t, std::size_t>, Groups> known;
  auto& groups = known[{size.groups, size.members}];
  if (groups.isEmpty())
    groups = makeGroups(size);
  return groups;
}

class Document {
public:
  explicit Document(const Size& size)
      : m_groups(groupsOf(size)),
        m_memberNames(shuffledNames(QStringLiteral("Member "), size.members))
  {}

  const Groups& groups() const { return m_groups; }
  void setGroups(const Groups& groups) { m_groups = groups; }

  void renameGroup(const QUuid& id, const QString& name)
  {
    const auto found = std::find_if(m_groups.cbegin(), m_groups.cend(),
                                    [&id](const Group& group) { return group.id == id; });
    m_groups[found - m_groups.cbegin()].name = name;
  }

  QList<std::pair<QString, QUuid>> memberNames(const Group& group) const
  {
    QList<std::pair<QString, QUuid>> names;
    names.reserve(group.members.size());
    for (qsizetype i = 0; i < group.members.size(); ++i)
      names.append({m_memberNames[i], group.members[i]});
    return names;
  }

private:
  Groups m_groups;
  QList<QString> m_memberNames;
};

class ChangeGroups : public QUndoCommand {
public:
  ChangeGroups(const QString& text, Document& document, Groups after)
      : QUndoCommand(text),
        m_document(document),
        m_before(document.groups()),
        m_after(std::move(after))
  {}

  void undo() override { m_document.setGroups(m_before); }
  void redo() override { m_document.setGroups(m_after); }

private:
  Document& m_document;
  Groups m_before;
  Groups m_after;
};

class RenameGroup : public QUndoCommand {
public:
  RenameGroup(Document& document, const Group& group, QString name)
      : QUndoCommand(QStringLiteral("Rename Group")),
        m_document(document),
        m_id(group.id),
        m_before(group.name),
        m_after(std::move(name))
  {}

  void undo() override { m_document.renameGroup(m_id, m_before); }
  void redo() override { m_document.renameGroup(m_id, m_after); }

private:
  Document& m_document;
  QUuid m_id;
  QString m_before;
  QString m_after;
};

void removeOne(Groups& groups, const QUuid& element)
{
  for (auto& group : groups) {
    if (group.members.removeOne(element))
      return;
  }
}

void removeElements(Groups& groups, const Elements& elements)
{
  if (elements.size() == 1) {
    removeOne(groups, elements.first());
    return;
  }
  const QSet<QUuid> selected(elements.begin(), elements.end());
  auto left = selected.size();
  for (auto& group : groups) {
    left -= group.members.removeIf([&selected](const QUuid& id) { return selected.contains(id); });
    if (left == 0)
      return;
  }
}

QUndoCommand* makeAdd(Document& document, const Elements& elements)
{
  auto groups = document.groups();
  removeElements(groups, elements);
  groups.last().members.append(elements);
  return new ChangeGroups(QStringLiteral("Add to Group"), document, groups);
}

QUndoCommand* makeCreate(Document& document, const Elements& elements)
{
  auto groups = document.groups();
  removeElements(groups, elements);
  QSet<QString> names;
  names.reserve(groups.size());
  for (const auto& group : std::as_const(groups))
    names.insert(group.name);
  auto name = QStringLiteral("Group");
  for (int number = 1; names.contains(name); ++number)
    name = QStringLiteral("Group %1").arg(number);
  groups.append({name, QUuid::createUuid(), elements});
  return new ChangeGroups(QStringLiteral("Create Group"), document, groups);
}

/// Before the member in the middle of the last group.
QUndoCommand* makeMove(Document& document, const Elements& elements)
{
  auto groups = document.groups();
  const auto& last = groups.constLast().members;
  const auto target = last.at(last.size() / 2);
  removeElements(groups, elements);
  auto& members = groups.last().members;
  const auto index = members.indexOf(target);
  members = members.first(index) + elements + members.sliced(index);
  return new ChangeGroups(QStringLiteral("Move Elements"), document, groups);
}

QUndoCommand* makeRemove(Document& document, const Elements& elements)
{
  auto groups = document.groups();
  removeElements(groups, elements);
  return new ChangeGroups(QStringLiteral("Remove From Group"), document, groups);
}

QUndoCommand* makeRename(Document& document, const Elements&)
{
  const auto& groups = document.groups();
  return new RenameGroup(document, groups.at(groups.size() / 2), QStringLiteral("Another name"));
}

QUndoCommand* makeSort(Document& document, const Elements&)
{
  auto groups = document.groups();
  std::sort(groups.begin(), groups.end(), [](const Group& a, const Group& b) {
    return QString::compare(a.name, b.name, Qt::CaseInsensitive) < 0;
  });
  for (auto& group : groups) {
    auto names = document.memberNames(group);
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) {
      return QString::compare(a.first, b.first, Qt::CaseInsensitive) < 0;
    });
    Elements members;
    members.reserve(names.size());
    for (const auto& named : std::as_const(names))
      members.append(named.second);
    group.members = members;
  }
  return new ChangeGroups(QStringLiteral("Sort Groups"), document, groups);
}

QUndoCommand* makeDeletion(Document& document, const QSet<QUuid>& ids)
{
  auto groups = document.groups();
  groups.removeIf([&ids](const Group& group) { return ids.contains(group.id); });
  return new ChangeGroups(QStringLiteral("Remove Group"), document, groups);
}

/// Makes a command for the selected elements; the undo stack will own it.
using Maker = std::function<QUndoCommand*(Document& document, const Elements& elements)>;

Maker makerOfDeletion(Selection selection, const Size& size)
{
  return [places = Growth::selectedGroups(selection, size)](Document& document, const Elements&) {
    QSet<QUuid> ids;
    for (const auto place : places)
      ids.insert(document.groups().at(static_cast<qsizetype>(place)).id);
    return makeDeletion(document, ids);
  };
}

Elements elementsAt(const Groups& groups, const std::vector<Growth::Place>& places)
{
  Elements elements;
  elements.reserve(static_cast<qsizetype>(places.size()));
  for (const auto& place : places) {
    const auto& members = groups.at(static_cast<qsizetype>(place.group)).members;
    elements.append(members.at(static_cast<qsizetype>(place.member)));
  }
  return elements;
}

/// Each command starts from the same groups.
void execute(benchmark::State& state, const Maker& make, Selection selection)
{
  const auto size = Growth::sizeOf(state);
  Document document(size);
  const auto groups = document.groups();
  const auto elements = elementsAt(groups, Growth::placesOf(selection, size));
  QUndoStack stack;
  for (auto _ : state) {
    stack.push(make(document, elements));
    stack.clear();
    document.setGroups(groups);
  }
}

/// The average of undoing and redoing.
void undoAndRedo(benchmark::State& state, Selection selection)
{
  const auto size = Growth::sizeOf(state);
  Document document(size);
  QUndoStack stack;
  stack.push(makeAdd(document, elementsAt(document.groups(), Growth::placesOf(selection, size))));
  for (auto _ : state) {
    if (stack.canUndo())
      stack.undo();
    else
      stack.redo();
  }
}

/// How many bytes each command keeps while the stack can undo it.
void keep(benchmark::State& state, const Maker& make, Selection selection)
{
  const auto size = Growth::sizeOf(state);
  Document document(size);
  const auto groups = document.groups();
  QUndoStack stack;
  Growth::reportKept(state, 5, [&](std::size_t round) {
    stack.push(make(document, elementsAt(groups, Growth::placesOf(selection, size, round))));
  });
}

void addSelections(const std::string& command, const Maker& make)
{
  for (const auto selection : Growth::allSelections)
    Growth::addBenchmark(
        command + '/' + Growth::nameOf(selection) + "/execute/Qt",
        [=](benchmark::State& state) { execute(state, make, selection); },
        Growth::sizesFor(selection));
}

void addEditsOfGroups()
{
  const auto sizes = Growth::sizesFor(Selection::One);
  for (const auto selection : {Selection::One, Selection::Tenth}) {
    Growth::addBenchmark(
        "RemoveTKGroupsCmd/" + Growth::nameOf(selection) + "/execute/Qt",
        [=](benchmark::State& state) {
          execute(state, makerOfDeletion(selection, Growth::sizeOf(state)), Selection::One);
        },
        sizes);
  }
  const std::vector<std::pair<std::string, Maker>> others = {
      {"RenameTKGroupCmd/one", makeRename}, {"SortTKGroupsAlphabeticallyCmd/all", makeSort}};
  for (const auto& [name, make] : others)
    Growth::addBenchmark(
        name + "/execute/Qt",
        [make = make](benchmark::State& state) { execute(state, make, Selection::One); }, sizes);
}

void addUndoAndMemory()
{
  for (const auto selection : Growth::allSelections) {
    const auto start = "AddToTKGroupCmd/" + Growth::nameOf(selection);
    const auto sizes = Growth::sizesFor(selection);
    Growth::addBenchmark(
        start + "/undo/Qt", [=](benchmark::State& state) { undoAndRedo(state, selection); }, sizes);
    for (const auto& size : sizes)
      Growth::addSlowBenchmark(
          start + "/memory/Qt", [=](benchmark::State& state) { keep(state, makeAdd, selection); },
          size);
  }
}

}

void addBenchmarks()
{
  addSelections("AddToTKGroupCmd", makeAdd);
  addSelections("CreateTKGroupCmd", makeCreate);
  addSelections("MoveTKGroupElementsCmd", makeMove);
  addSelections("RemoveFromTKGroupCmd", makeRemove);
  addEditsOfGroups();
  addUndoAndMemory();
}

}
