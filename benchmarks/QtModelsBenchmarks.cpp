// SPDX-License-Identifier: MIT
// What a Qt item model of groups x members adds to a command, and how long it takes until a tree
// view shows them.

#include "GroupHosting/Providers/TKGroupProvider.h"
#include "HighLevelServices/GroupCommands/AddToTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "QtModels/Models/GroupFilterModel.h"
#include "QtModels/Models/GroupItemModel.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QTreeView>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tarvik {
namespace {

class Provider : public TKGroupProvider<Identifier> {
public:
  Provider(std::size_t groupCount, std::size_t memberCount)
  {
    std::vector<Identifier> elements(groupCount * memberCount);
    std::vector<TKGroup<Identifier>> groups(groupCount);
    std::mt19937 random(1); // NOLINT: the same in every run
    for (std::size_t i = 0; i < elements.size(); ++i)
      m_names.emplace(elements[i], "Element " + std::to_string(random()));
    for (std::size_t i = 0; i < groups.size(); ++i) {
      groups[i].setName("Group " + std::to_string(random()), true);
      const auto first = elements.begin() + static_cast<std::ptrdiff_t>(i * memberCount);
      groups[i].addGroupMembersAtIndex({first, first + static_cast<std::ptrdiff_t>(memberCount)},
                                       -1);
    }
    setElements(elements);
    setGroups(groups);
  }

  std::string getElementName(const Identifier& element) override { return m_names.at(element); }

private:
  std::unordered_map<Identifier, std::string> m_names;
};

enum class With { Nothing, Model, View };

/// A provider, and what follows it.
class Followed {
public:
  Followed(const benchmark::State& state, With with)
      : provider(std::make_shared<Provider>(static_cast<std::size_t>(state.range(0)),
                                            static_cast<std::size_t>(state.range(1))))
  {
    if (with != With::Nothing)
      m_model = std::make_unique<GroupItemModel<Identifier>>(provider);
    if (with != With::View)
      return;
    m_view.emplace();
    m_view->setUniformRowHeights(true);
    m_view->setModel(m_model.get());
    m_view->expand(m_model->index(0, 0));
    m_view->show();
    showChanges();
  }

  void showChanges()
  {
    if (m_view)
      QApplication::processEvents();
  }

  const std::shared_ptr<Provider> provider;

private:
  std::unique_ptr<GroupItemModel<Identifier>> m_model;
  std::optional<QTreeView> m_view;
};

template <class MakeCommand>
void execute(benchmark::State& state, With with, MakeCommand makeCommand)
{
  Followed followed(state, with);
  for (auto _ : state) {
    const auto command = makeCommand(followed.provider);
    command->execute();
    followed.showChanges();
    state.PauseTiming();
    command->undo();
    followed.showChanges();
    state.ResumeTiming();
  }
}

void BM_AddOne(benchmark::State& state, With with)
{
  execute(state, with, [](const auto& provider) {
    const auto& groups = provider->getGroups();
    const std::vector one = {groups.front().getGroupMembers().back()};
    return std::make_shared<AddToTKGroupCmd<Identifier>>(provider, one, groups.back().getId());
  });
}

void BM_Sort(benchmark::State& state, With with)
{
  execute(state, with, [](const auto& provider) {
    return std::make_shared<SortTKGroupsAlphabeticallyCmd<Identifier>>(provider);
  });
}

void BM_Open(benchmark::State& state)
{
  const auto provider = std::make_shared<Provider>(static_cast<std::size_t>(state.range(0)),
                                                   static_cast<std::size_t>(state.range(1)));
  for (auto _ : state) {
    GroupItemModel<Identifier> model(provider);
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&model);
    view.show();
    QApplication::processEvents();
  }
}

enum class Letter { First, Second };

/// A letter is typed into a filter, below a tree view.
void BM_Type(benchmark::State& state, Letter letter)
{
  const auto provider = std::make_shared<Provider>(static_cast<std::size_t>(state.range(0)),
                                                   static_cast<std::size_t>(state.range(1)));
  GroupItemModel<Identifier> model(provider);
  GroupFilterModel filter;
  filter.setSourceModel(&model);
  QTreeView view;
  view.setUniformRowHeights(true);
  view.setModel(&filter);
  view.show();
  const QString before = letter == Letter::First ? "" : "1";
  for (auto _ : state) {
    state.PauseTiming();
    filter.setFilterText(before);
    QApplication::processEvents();
    state.ResumeTiming();
    filter.setFilterText(before + "1");
    QApplication::processEvents();
  }
}

BENCHMARK_CAPTURE(BM_AddOne, Command, With::Nothing)->Args({1000, 1000});
BENCHMARK_CAPTURE(BM_AddOne, Model, With::Model)->Args({1000, 1000});
BENCHMARK_CAPTURE(BM_AddOne, View, With::View)->Args({1000, 1000});
BENCHMARK_CAPTURE(BM_Sort, Command, With::Nothing)->Args({1000, 1000});
BENCHMARK_CAPTURE(BM_Sort, Model, With::Model)->Args({1000, 1000});
BENCHMARK_CAPTURE(BM_Sort, View, With::View)->Args({1000, 1000});
BENCHMARK(BM_Open)->Args({1000, 1000});
BENCHMARK_CAPTURE(BM_Type, First, Letter::First)->Args({100, 1000});
BENCHMARK_CAPTURE(BM_Type, Second, Letter::Second)->Args({100, 1000});

}
}

int main(int argc, char** argv)
{
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
