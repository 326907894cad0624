// SPDX-License-Identifier: MIT
#include "HighLevelServices/Model/Operation.h"

#include "HighLevelServices/Model/Elements.h"

#include <cstddef>
#include <variant>

namespace Tarvik::Modelling {

namespace {

std::string quoted(const std::string& name)
{
  return '"' + name + '"';
}

std::string groupText(int group)
{
  if (group == unknownGroup)
    return "an unknown group";
  if (group == invalidGroup)
    return "the invalid group";
  return "group " + std::to_string(group);
}

std::string elementsText(const Elements& elements)
{
  std::string result;
  for (const int element : elements)
    result += (result.empty() ? "" : ", ") + elementName(element);
  return '[' + result + ']';
}

std::string lineOf(const HaveGroup& have)
{
  const auto id = have.sameIdAs ? " with the id of " + groupText(*have.sameIdAs) : std::string();
  return "the host has group " + quoted(have.name) + ' ' + elementsText(have.elements) + id;
}

std::string lineOf(const CreateGroup& create)
{
  return "create " + quoted(create.name) + " of " + elementsText(create.elements);
}

std::string lineOf(const AddElements& add)
{
  const auto place = add.index ? " at " + std::to_string(*add.index) : std::string();
  return "add " + elementsText(add.elements) + " to " + groupText(add.group) + place;
}

std::string lineOf(const RemoveElements& remove)
{
  return "take " + elementsText(remove.elements) + " out of their groups";
}

std::string groupsText(const std::vector<int>& groups)
{
  std::string result;
  for (const int group : groups)
    result += (result.empty() ? "" : ", ") + groupText(group);
  return result.empty() ? "no group" : result;
}

std::string lineOf(const RemoveGroups& remove)
{
  return "remove " + groupsText(remove.groups);
}

std::string lineOf(const MoveGroups& move)
{
  return "move " + groupsText(move.groups) + (move.before ? " before " : " after ") +
         groupText(move.group);
}

std::string lineOf(const RenameGroup& rename)
{
  return "rename " + groupText(rename.group) + " to " + quoted(rename.name);
}

std::string lineOf(const MoveElements& move)
{
  return "move " + elementsText(move.elements) + (move.before ? " before " : " after ") +
         elementName(move.target) + (move.hostHasCommand ? "" : ", the host has no command");
}

std::string lineOf(const SortGroups& sort)
{
  switch (sort.listing) {
  case Listing::AsTheyAre:
    break;
  case Listing::Without:
    return "sort, the host leaves out " + elementName(sort.element);
  case Listing::With:
    return "sort, the host adds " + elementName(sort.element);
  case Listing::Twice:
    return "sort, the host lists all members twice";
  }
  return "sort";
}

std::string lineOf(const Undo&)
{
  return "undo";
}

std::string lineOf(const Redo&)
{
  return "redo";
}

std::string lineOf(const JumpTo& jump)
{
  return "jump to " + std::to_string(jump.position);
}

}

std::string text(const Operation& operation)
{
  return std::visit([](const auto& each) { return lineOf(each); }, operation);
}

std::string text(const Operations& operations)
{
  std::string result;
  for (std::size_t i = 0; i < operations.size(); ++i)
    result += "  " + std::to_string(i + 1) + ". " + text(operations[i]) + '\n';
  return result;
}

}
