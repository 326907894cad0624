// SPDX-License-Identifier: MIT
// How the time of each command, and the memory that it keeps, grow with the list of groups. Beside
// them, the copies that every command makes, and the same edits in Qt (QtGrowthBenchmarks.cpp).
// Names are "command/selection/operation/kind/groups/members".

#include "BenchmarkHost.h"
#include "CommandPattern/CommandHistory.h"
#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Commands/MoveTKGroupsCmd.h"
#include "GroupHosting/Providers/TKGroupProvider.h"
#include "Growth.h"
#include "Heap.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/MoveTKGroupElementsCmd.h"
#include "HighLevelServices/GroupCommands/RemoveFromTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RemoveTKGroupsCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#if defined(TKM_BENCHMARK_QT)
#include "QtGrowthBenchmarks.h"
#endif

namespace Tarvik {
namespace {

using Growth::Selection;
using Growth::Size;

/// A host's own kind of identifier, without a hash: commands find a selection by comparing.
class UnhashedIdentifier {
public:
  UnhashedIdentifier() = default;

  bool isValid() const { return m_id.isValid(); }
  static const UnhashedIdentifier& getInvalidId()
  {
    static const UnhashedIdentifier invalid{Identifier::getInvalidId()};
    return invalid;
  }
  static void serialization_register(void*) {} // these groups are not saved
  friend bool operator==(const UnhashedIdentifier& a, const UnhashedIdentifier& b)
  {
    return a.m_id == b.m_id;
  }

private:
  explicit UnhashedIdentifier(const Identifier& id) : m_id(id) {}

  Identifier m_id;
};

/// Keeps the list that it is given, as an application does.
template <class T>
class EditedHost : public BenchmarkHost<T> {
public:
  using BenchmarkHost<T>::BenchmarkHost;

  void setGroups(const Groups<T>& groups) override
  {
    auto copy = groups;
    this->getGroups().swap(copy);
  }
};

/// A host that is derived from the ready-made provider, and knows all elements.
class ReadyMadeHost : public TKGroupProvider<Identifier> {
public:
  explicit ReadyMadeHost(const Groups<Identifier>& groups)
  {
    std::vector<Identifier> elements;
    for (const auto& group : groups)
      elements.insert(elements.end(), group.getGroupMembers().begin(),
                      group.getGroupMembers().end());
    setElements(elements);
    setGroups(groups);
  }

  std::string getElementName(const Identifier&) override { return {}; }
};

template <class T>
using Provider = std::shared_ptr<TKGroupProviderInterface<T>>;

/// Makes a command for the selected elements.
template <class T>
using Maker = std::function<std::shared_ptr<CommandBase>(
    const Provider<T>& provider, const Groups<T>& groups, const std::vector<T>& elements)>;

template <class T>
std::vector<T> elementsAt(const Groups<T>& groups, const std::vector<Growth::Place>& places)
{
  std::vector<T> elements;
  elements.reserve(places.size());
  for (const auto& place : places)
    elements.push_back(groups[place.group].getGroupMembers()[place.member]);
  return elements;
}

template <class T>
std::shared_ptr<CommandBase>
makeAdd(const Provider<T>& provider, const Groups<T>& groups, const std::vector<T>& elements)
{
  return std::make_shared<AddToTKGroupCmd<T>>(provider, elements, groups.back().getId());
}

template <class T>
std::shared_ptr<CommandBase>
makeCreate(const Provider<T>& provider, const Groups<T>&, const std::vector<T>& elements)
{
  return std::make_shared<CreateTKGroupCmd<T>>(provider, elements, "Group");
}

/// Before the member in the middle of the last group.
template <class T>
std::shared_ptr<CommandBase>
makeMove(const Provider<T>& provider, const Groups<T>& groups, const std::vector<T>& elements)
{
  const auto& members = groups.back().getGroupMembers();
  const auto& target = members[members.size() / 2];
  return std::make_shared<MoveTKGroupElementsCmd<T>>(provider, elements, target, true);
}

template <class T>
std::shared_ptr<CommandBase>
makeRemove(const Provider<T>& provider, const Groups<T>&, const std::vector<T>& elements)
{
  return std::make_shared<RemoveFromTKGroupCmd<T>>(provider, elements);
}

template <class T>
std::shared_ptr<CommandBase>
makeRename(const Provider<T>& provider, const Groups<T>& groups, const std::vector<T>&)
{
  const auto& id = groups[groups.size() / 2].getId();
  return std::make_shared<RenameTKGroupCmd<T>>(provider, id, "Another name");
}

template <class T>
std::shared_ptr<CommandBase>
makeSort(const Provider<T>& provider, const Groups<T>&, const std::vector<T>&)
{
  return std::make_shared<SortTKGroupsAlphabeticallyCmd<T>>(provider);
}

template <class T>
std::vector<Identifier> idsAt(const Groups<T>& groups, const std::vector<std::size_t>& places)
{
  std::vector<Identifier> ids;
  ids.reserve(places.size());
  for (const auto place : places)
    ids.push_back(groups[place].getId());
  return ids;
}

/// Deletes one group, or every tenth.
template <class T>
Maker<T> makerOfDeletion(Selection selection, const Size& size)
{
  return [places = Growth::selectedGroups(selection, size)](
             const Provider<T>& provider, const Groups<T>& groups, const std::vector<T>&) {
    return std::make_shared<RemoveTKGroupsCmd<T>>(provider, idsAt(groups, places));
  };
}

/// Moves one group, or every tenth, to the end.
template <class T>
Maker<T> makerOfMoveOfGroups(Selection selection, const Size& size)
{
  return [places = Growth::selectedGroups(selection, size)](
             const Provider<T>& provider, const Groups<T>& groups, const std::vector<T>&) {
    return std::make_shared<MoveTKGroupsCmd<T>>(provider, idsAt(groups, places),
                                                groups.back().getId(), false);
  };
}

/// The same command, of which only the difference is kept.
template <class T>
Maker<T> makerOfCompact(const Maker<T>& make)
{
  return [make](const Provider<T>& provider, const Groups<T>& groups,
                const std::vector<T>& elements) -> std::shared_ptr<CommandBase> {
    return std::make_shared<CompactTKGroupCmd<T>>(
        provider, [&make, &groups, &elements](const Provider<T>& recorder) {
          return make(recorder, groups, elements); // called once, by execute()
        });
  };
}

/// Each command starts from the same groups.
template <class T>
void execute(benchmark::State& state, const Maker<T>& make, Selection selection)
{
  const auto host = hostOf<T>(state);
  const auto elements =
      elementsAt(host->getGroups(), Growth::placesOf(selection, Growth::sizeOf(state)));
  CommandHistory history;
  for (auto _ : state) {
    history.execute(make(host, host->getGroups(), elements));
    history.clear();
  }
}

template <class T>
std::shared_ptr<EditedHost<T>> editedHostOf(const benchmark::State& state)
{
  const auto size = Growth::sizeOf(state);
  return std::make_shared<EditedHost<T>>(size.groups, size.members);
}

/// The average of undoing and redoing.
template <class T>
void undoAndRedo(benchmark::State& state,
                 const Provider<T>& host,
                 const Maker<T>& make,
                 Selection selection)
{
  const auto elements =
      elementsAt(host->getGroups(), Growth::placesOf(selection, Growth::sizeOf(state)));
  CommandHistory history;
  history.execute(make(host, host->getGroups(), elements));
  for (auto _ : state) {
    if (!history.undo())
      history.redo();
  }
}

/// How many bytes each command keeps while the history can undo it.
template <class T>
void keep(benchmark::State& state, const Maker<T>& make, Selection selection)
{
  const auto host = editedHostOf<T>(state);
  const auto size = Growth::sizeOf(state);
  const auto groups = host->getGroups();
  CommandHistory history;
  Growth::reportKept(state, 5, [&](std::size_t round) {
    const auto elements = elementsAt(groups, Growth::placesOf(selection, size, round));
    history.execute(make(host, host->getGroups(), elements));
  });
}

/// What every snapshot command does: the before list, the after list and the host's own.
void copyThreeLists(benchmark::State& state)
{
  const auto host = hostOf<Identifier>(state);
  for (auto _ : state) {
    const Groups<Identifier> before = host->getGroups();
    const Groups<Identifier> after = before; // NOLINT(performance-unnecessary-copy-initialization)
    host->setGroups(after);
  }
}

/// What every undo and redo does: the host's own list.
void copyOneList(benchmark::State& state)
{
  const auto host = editedHostOf<Identifier>(state);
  const auto groups = host->getGroups();
  for (auto _ : state)
    host->setGroups(groups);
}

/// Comparing finds a selection in time that grows with its product with the members.
template <class T>
bool takesSeconds(Selection selection, const Size& size)
{
  return !GroupLists::Hashable<T> && size.groups * size.members >= 1000000 &&
         (selection == Selection::Tenth || selection == Selection::WholeGroup);
}

template <class T>
void addExecutions(const std::string& command, const std::string& kind, const Maker<T>& make)
{
  for (const auto selection : Growth::allSelections) {
    const auto name = command + '/' + Growth::nameOf(selection) + "/execute/" + kind;
    const auto function = [make, selection](benchmark::State& state) {
      execute<T>(state, make, selection);
    };
    for (const auto& size : Growth::sizesFor(selection)) {
      if (takesSeconds<T>(selection, size))
        Growth::addSlowBenchmark(name, function, size);
      else
        Growth::addBenchmark(name, function, {size});
    }
  }
}

/// Deleting, moving, renaming and sorting groups, which need no identifiers of elements.
void addExecutionsOnGroups()
{
  const auto sizes = Growth::sizesFor(Selection::One);
  using MakerFor = Maker<Identifier> (*)(Selection selection, const Size& size);
  const std::vector<std::pair<std::string, MakerFor>> onSelectedGroups = {
      {"RemoveTKGroupsCmd/", makerOfDeletion<Identifier>},
      {"MoveTKGroupsCmd/", makerOfMoveOfGroups<Identifier>}};
  for (const auto& [name, makerFor] : onSelectedGroups) {
    for (const auto selection : {Selection::One, Selection::Tenth}) {
      Growth::addBenchmark(
          name + Growth::nameOf(selection) + "/execute/Identifier",
          [makerFor = makerFor, selection](benchmark::State& state) {
            execute<Identifier>(state, makerFor(selection, Growth::sizeOf(state)), Selection::One);
          },
          sizes);
    }
  }
  const std::vector<std::pair<std::string, Maker<Identifier>>> others = {
      {"RenameTKGroupCmd/one", makeRename<Identifier>},
      {"SortTKGroupsAlphabeticallyCmd/all", makeSort<Identifier>}};
  for (const auto& [name, make] : others) {
    Growth::addBenchmark(
        name + "/execute/Identifier",
        [make = make](benchmark::State& state) {
          execute<Identifier>(state, make, Selection::One);
        },
        sizes);
  }
}

void addUndoAndMemory(const std::string& kind, const Maker<Identifier>& make)
{
  for (const auto selection : Growth::allSelections) {
    const auto start = "AddToTKGroupCmd/" + Growth::nameOf(selection);
    const auto sizes = Growth::sizesFor(selection);
    Growth::addBenchmark(
        start + "/undo/" + kind,
        [=](benchmark::State& state) {
          undoAndRedo<Identifier>(state, editedHostOf<Identifier>(state), make, selection);
        },
        sizes);
    for (const auto& size : sizes)
      Growth::addSlowBenchmark(
          start + "/memory/" + kind,
          [=](benchmark::State& state) { keep<Identifier>(state, make, selection); }, size);
  }
}

void addCopies()
{
  for (const auto selection : {Selection::One, Selection::WholeGroup}) {
    const auto sizes = Growth::sizesFor(selection);
    Growth::addBenchmark("three copies/" + Growth::nameOf(selection), copyThreeLists, sizes);
    Growth::addBenchmark("one copy/" + Growth::nameOf(selection), copyOneList, sizes);
  }
}

template <class T>
void addExecutionsOnSelections(const std::string& kind)
{
  addExecutions<T>("AddToTKGroupCmd", kind, makeAdd<T>);
  addExecutions<T>("CreateTKGroupCmd", kind, makeCreate<T>);
  addExecutions<T>("MoveTKGroupElementsCmd", kind, makeMove<T>);
  addExecutions<T>("RemoveFromTKGroupCmd", kind, makeRemove<T>);
}

/// Compact commands on a host that changes its list in place.
void addUndoInPlace(const Maker<Identifier>& make)
{
  for (const auto selection : Growth::allSelections) {
    Growth::addBenchmark(
        "AddToTKGroupCmd/" + Growth::nameOf(selection) + "/undo/in place",
        [=](benchmark::State& state) {
          const auto groups = hostOf<Identifier>(state)->getGroups();
          undoAndRedo<Identifier>(state, std::make_shared<ReadyMadeHost>(groups), make, selection);
        },
        Growth::sizesFor(selection));
  }
}

/// Commands that keep the difference only.
void addDifferences()
{
  const auto make = makerOfCompact<Identifier>(makeAdd<Identifier>);
  addExecutions<Identifier>("AddToTKGroupCmd", "difference", make);
  addUndoAndMemory("difference", make);
  addUndoInPlace(make);
}

}
}

int main(int argc, char** argv)
{
  Tarvik::keepPagesOfTheHeap();
  Tarvik::addCopies();
  Tarvik::addExecutionsOnSelections<Tarvik::Identifier>("Identifier");
  Tarvik::addExecutionsOnSelections<Tarvik::UnhashedIdentifier>("comparing");
  Tarvik::addExecutionsOnGroups();
  Tarvik::addUndoAndMemory("Identifier", Tarvik::makeAdd<Tarvik::Identifier>);
  Tarvik::addDifferences();
#if defined(TKM_BENCHMARK_QT)
  Tarvik::QtGrowth::addBenchmarks();
#endif
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
