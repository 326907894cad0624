// SPDX-License-Identifier: MIT
#include "HighLevelServices/Model/Model.h"

#include "HighLevelServices/Model/Elements.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace Tarvik::Modelling {

namespace {

using Groups = std::vector<Group>;

Names namesOf(const Elements& elements)
{
  Names names;
  for (const int element : elements)
    names.push_back(elementName(element));
  return names;
}

bool contains(const Names& names, const std::string& name)
{
  return std::count(names.begin(), names.end(), name) > 0;
}

/// The first position of the name; the length of the list when it is not there.
int positionOf(const Names& names, const std::string& name)
{
  int position = 0;
  while (position < static_cast<int>(names.size()) &&
         names[static_cast<std::size_t>(position)] != name)
    ++position;
  return position;
}

void eraseAt(Names& names, int position)
{
  names.erase(names.begin() + position);
}

Names withoutRepetitions(const Names& names)
{
  Names result;
  for (const auto& name : names)
    if (!contains(result, name))
      result.push_back(name);
  return result;
}

std::string lowered(std::string text)
{
  for (char& letter : text)
    if (letter >= 'A' && letter <= 'Z')
      letter = static_cast<char>(letter - 'A' + 'a');
  return text;
}

bool isKnown(const std::string& element)
{
  if (element.starts_with("Crowd "))
    return true;
  for (int number = 0; number < knownElements; ++number)
    if (elementName(number) == element)
      return true;
  return false;
}

bool isInAnyGroup(const Groups& groups, const std::string& element)
{
  return std::any_of(groups.begin(), groups.end(),
                     [&](const Group& group) { return contains(group.members, element); });
}

bool isTaken(const Groups& groups, const std::string& name)
{
  return std::any_of(groups.begin(), groups.end(),
                     [&](const Group& group) { return group.name == name; });
}

/// The first group with that key; null when there is none.
Group* find(Groups& groups, GroupKey key)
{
  for (auto& group : groups)
    if (group.key == key)
      return &group;
  return nullptr;
}

/// Only the first holder loses the element, and only one occurrence of it.
void takeOut(Groups& groups, const std::string& element)
{
  for (auto& group : groups) {
    if (contains(group.members, element)) {
      eraseAt(group.members, positionOf(group.members, element));
      return;
    }
  }
}

/// The name without a blank and a number at its end; a number does not begin with 0.
std::string withoutNumber(const std::string& name)
{
  auto stem = name;
  while (!stem.empty() && stem.back() >= '0' && stem.back() <= '9')
    stem.pop_back();
  const auto number = name.substr(stem.size());
  const bool hasNumber = !number.empty() && number.front() != '0';
  const bool hasBlank = stem.size() > 1 && stem.back() == ' ';
  if (!hasNumber || !hasBlank)
    return name;
  stem.pop_back();
  return stem;
}

/// "A" is followed by "A 2", and "A 2" by "A 3".
std::string freeName(const Groups& groups, const std::string& wanted)
{
  if (!isTaken(groups, wanted))
    return wanted;
  const auto stem = withoutNumber(wanted);
  int number = 2;
  while (isTaken(groups, stem + ' ' + std::to_string(number)))
    ++number;
  return stem + ' ' + std::to_string(number);
}

void add(Groups& groups, const Names& elements, GroupKey key, int index)
{
  Group* const target = find(groups, key);
  if (target == nullptr)
    return;

  for (const auto& element : elements) {
    const bool isBefore =
        contains(target->members, element) && positionOf(target->members, element) < index;
    if (isBefore)
      --index;
    takeOut(groups, element);
  }

  Names block;
  for (const auto& element : elements)
    if (!contains(target->members, element))
      block.push_back(element);
  const int size = static_cast<int>(target->members.size());
  const int place = index < 0 || index > size ? size : index;
  target->members.insert(target->members.begin() + place, block.begin(), block.end());
}

void remove(Groups& groups, const Names& elements)
{
  for (const auto& element : elements)
    takeOut(groups, element);
}

/// What the host's own command does: it moves the ungrouped elements that the host knows. They go
/// to the front or to the end when the target is not among the other elements.
void moveInOrder(State& state, const std::string& target, const Names& elements, bool before)
{
  Names block;
  for (const auto& element : elements)
    if (isKnown(element) && !isInAnyGroup(state.groups, element))
      block.push_back(element);
  for (const auto& element : block)
    eraseAt(state.order, positionOf(state.order, element));

  int place = before ? 0 : static_cast<int>(state.order.size());
  if (contains(state.order, target))
    place = positionOf(state.order, target) + (before ? 0 : 1);
  state.order.insert(state.order.begin() + place, block.begin(), block.end());
}

/// The names in lower case under which the host lists members, each with its element.
std::multimap<std::string, std::string> listed(Groups groups, GroupKey key, const SortGroups& sort)
{
  std::multimap<std::string, std::string> result;
  for (const auto& member : find(groups, key)->members) {
    if (!isKnown(member))
      continue;
    if (sort.listing == Listing::Without && member == elementName(sort.element))
      continue;
    result.emplace(lowered(member), member);
    if (sort.listing == Listing::Twice)
      result.emplace(lowered(secondName(member)), member);
  }
  if (sort.listing == Listing::With)
    result.emplace(lowered(elementName(sort.element)), elementName(sort.element));
  return result;
}

void apply(const AddElements& operation, State& state, const Model& model)
{
  add(state.groups, namesOf(operation.elements), model.keyOf(operation.group),
      operation.index.value_or(-1));
}

void apply(const RemoveElements& operation, State& state, const Model&)
{
  remove(state.groups, namesOf(operation.elements));
}

void apply(const RemoveGroups& operation, State& state, const Model& model)
{
  for (const int number : operation.groups) {
    const auto key = model.keyOf(number);
    for (std::size_t i = 0; i < state.groups.size(); ++i) {
      if (state.groups[i].key == key) {
        state.groups.erase(state.groups.begin() + static_cast<std::ptrdiff_t>(i));
        break;
      }
    }
  }
}

/// The groups that stay keep their order. Those that move go between those before the place and
/// those after it.
void apply(const MoveGroups& operation, State& state, const Model& model)
{
  auto& groups = state.groups;
  const auto positionOfFirst = [&groups](GroupKey key) {
    return std::find_if(groups.begin(), groups.end(),
                        [key](const Group& group) { return group.key == key; }) -
           groups.begin();
  };
  const auto number = static_cast<std::ptrdiff_t>(groups.size());
  auto place = positionOfFirst(model.keyOf(operation.group));
  if (place == number)
    return;
  place += operation.before ? 0 : 1;

  std::vector<std::ptrdiff_t> moving;
  for (const int group : operation.groups) {
    const auto position = positionOfFirst(model.keyOf(group));
    if (position < number && std::count(moving.begin(), moving.end(), position) == 0)
      moving.push_back(position);
  }
  Groups front;
  Groups back;
  for (std::ptrdiff_t i = 0; i < number; ++i) {
    if (std::count(moving.begin(), moving.end(), i) == 0)
      (i < place ? front : back).push_back(groups[static_cast<std::size_t>(i)]);
  }
  for (const auto position : moving)
    front.push_back(groups[static_cast<std::size_t>(position)]);
  front.insert(front.end(), back.begin(), back.end());
  groups = front;
}

void apply(const RenameGroup& operation, State& state, const Model& model)
{
  if (Group* const group = find(state.groups, model.keyOf(operation.group)))
    group->name = operation.name;
}

void apply(const MoveElements& operation, State& state, const Model&)
{
  const auto elements = withoutRepetitions(namesOf(operation.elements));
  const auto target = elementName(operation.target);
  if (elements.empty())
    return;
  if (operation.target != invalidElement) {
    for (const auto& group : state.groups) {
      if (contains(group.members, target)) {
        const int place = positionOf(group.members, target) + (operation.before ? 0 : 1);
        const bool isEnd = place == static_cast<int>(group.members.size());
        add(state.groups, elements, group.key, isEnd ? -1 : place);
        return;
      }
    }
  }
  remove(state.groups, elements);
  if (operation.hostHasCommand)
    moveInOrder(state, target, elements, operation.before);
}

void apply(const SortGroups& operation, State& state, const Model& model)
{
  std::stable_sort(state.groups.begin(), state.groups.end(), [](const Group& a, const Group& b) {
    return lowered(a.name) < lowered(b.name);
  });
  for (auto& group : state.groups) {
    group.members.clear();
    for (const auto& [name, element] : listed(model.state().groups, group.key, operation))
      if (!contains(group.members, element))
        group.members.push_back(element);
  }
}

}

std::string text(const State& state)
{
  std::string result;
  const auto joined = [](const Names& names) {
    std::string line;
    for (const auto& name : names)
      line += (line.empty() ? "" : ", ") + name;
    return line;
  };
  for (const auto& group : state.groups)
    result += "  \"" + group.name + "\" [" + joined(group.members) + "] with id " +
              std::to_string(group.key) + '\n';
  return result + "  order of elements: " + joined(state.order) + '\n';
}

Model::Model(std::size_t crowd) : m_states(1)
{
  auto& order = m_states.front().order;
  for (int number = 0; number < knownElements; ++number)
    order.push_back(elementName(number));
  for (int number = numberOfElements; number < numberOfElements + static_cast<int>(crowd); ++number)
    order.push_back(elementName(number));
}

void Model::run(const Operation& operation)
{
  std::visit([this](const auto& each) { perform(each); }, operation);
}

std::size_t Model::destination(const JumpTo& jump) const
{
  return static_cast<std::size_t>(jump.position) % m_states.size();
}

GroupKey Model::keyOf(int group) const
{
  const auto& groups = state().groups;
  if (group < 0)
    return group;
  return groups.empty() ? unknownGroup
                        : groups[static_cast<std::size_t>(group) % groups.size()].key;
}

void Model::adoptOrderOfTies(const State& found)
{
  auto& groups = m_states[m_position].groups;
  if (found.groups.size() != groups.size())
    return;
  for (std::size_t first = 0, last = 0; first < groups.size(); first = last) {
    while (last < groups.size() && lowered(groups[last].name) == lowered(groups[first].name))
      ++last;
    const auto at = [](auto& list, std::size_t i) {
      return list.begin() + static_cast<std::ptrdiff_t>(i);
    };
    if (std::is_permutation(at(groups, first), at(groups, last), at(found.groups, first)))
      std::copy(at(found.groups, first), at(found.groups, last), at(groups, first));
  }
}

void Model::perform(const HaveGroup& have)
{
  if (size() > 0)
    return;
  const auto shared = have.sameIdAs ? keyOf(*have.sameIdAs) : unknownGroup;
  const auto key = shared >= 0 ? shared : m_nextKey++;
  m_states.front().groups.push_back({key, have.name, namesOf(have.elements)});
}

void Model::perform(const CreateGroup& create)
{
  State after = state();
  const auto elements = namesOf(create.elements);
  const auto name = freeName(after.groups, create.name.empty() ? "Group" : create.name);
  remove(after.groups, elements);
  after.groups.push_back({m_nextKey++, name, withoutRepetitions(elements)});
  push(after);
}

void Model::perform(const Undo&)
{
  if (m_position > 0)
    --m_position;
}

void Model::perform(const Redo&)
{
  if (m_position < size())
    ++m_position;
}

void Model::perform(const JumpTo& jump)
{
  m_position = destination(jump);
}

template <class Command>
void Model::perform(const Command& command)
{
  State after = state();
  apply(command, after, *this);
  push(after);
}

void Model::push(const State& state)
{
  m_states.resize(m_position + 1);
  m_states.push_back(state);
  ++m_position;
}

}
