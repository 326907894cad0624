// SPDX-License-Identifier: MIT
#include "CommandPattern/CommandHistory.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"

#include <iostream>
#include <map>

using namespace Tarvik;
using Groups = std::vector<TKGroup<Identifier>>;
using NamedMembers = std::vector<std::pair<Identifier, std::string>>;

struct Host : TKGroupProviderInterface<Identifier> {
  std::map<Identifier, std::string> elements; // the application's own, with names
  Groups groups;

  Groups& getGroups() override { return groups; }
  void setGroups(const Groups& list) override { Groups(list).swap(groups); }
  std::string getElementName(const Identifier& id) override { return elements.at(id); }
  std::vector<Identifier> getUngroupedElements() override { return {}; } // this host shows none
  std::shared_ptr<CommandBase>
  createMoveCommand(const Identifier&, const std::vector<Identifier>&, bool) override
  {
    return nullptr; // elements without a group have no order here
  }
  void renameGroup(const Identifier& id, const std::string& name) override
  {
    for (auto& group : groups)
      if (group.getId() == id)
        group.setName(name, true);
  }
  NamedMembers getGroupMemberNames(const Identifier& id) override
  {
    NamedMembers members;
    for (const auto& group : groups)
      if (group.getId() == id)
        for (const auto& member : group.getGroupMembers())
          members.emplace_back(member, elements.at(member));
    return members;
  }
};

int main()
{
  const Identifier pump;
  const Identifier valve;
  const auto host = std::make_shared<Host>();
  host->elements = {{pump, "Pump"}, {valve, "Valve"}};

  CommandHistory history;
  history.execute(std::make_shared<CreateTKGroupCmd<Identifier>>(
      host, std::vector<Identifier>{valve, pump}, "Inlet"));
  std::cout << history.undoDescription() << ": " << host->groups.front().getName() << '\n';
  for (const auto& [id, name] : host->getGroupMemberNames(host->groups.front().getId()))
    std::cout << "  " << name << '\n';
  history.undo();
  std::cout << "undone: " << host->groups.size() << " groups\n";
}
