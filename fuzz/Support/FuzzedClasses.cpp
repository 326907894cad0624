// SPDX-License-Identifier: MIT
#include "Support/FuzzedClasses.h"

#include "PersistenceArchiver/ClassRegistration.h"

#include <unordered_set>
#include <utility>

namespace Tarvik {

namespace {

void load(PersistenceArchiver& archive, Box& box, unsigned int /*version*/)
{
  archive >> box.label >> box.parts >> box.flags;
}

void save(PersistenceArchiver& archive, const Box& box, unsigned int /*version*/)
{
  archive << box.label << box.parts << box.flags;
}

void load(PersistenceArchiver& archive, Node& node, unsigned int /*version*/)
{
  archive >> node.weight >> node.neighbours;
}

void save(PersistenceArchiver& archive, const Node& node, unsigned int /*version*/)
{
  archive << node.weight << node.neighbours;
}

template <class C>
const BaseClassRegister* registeredRecord(const std::string& name)
{
  static const auto* const registered = registerClass<C, load, save>(name, 1, 12);
  return registered;
}

[[maybe_unused]] const auto* const registeredBox = registeredRecord<Box>("Box");
[[maybe_unused]] const auto* const registeredNode = registeredRecord<Node>("Node");

std::unordered_set<Node*>& liveNodes()
{
  static std::unordered_set<Node*> nodes;
  return nodes;
}

}

void Box::serialization_register(void* out)
{
  *static_cast<BaseClassRegister*>(out) = *registeredRecord<Box>("Box");
}

void Node::serialization_register(void* out)
{
  *static_cast<BaseClassRegister*>(out) = *registeredRecord<Node>("Node");
}

Node::Node()
{
  liveNodes().insert(this);
}

Node::~Node()
{
  liveNodes().erase(this);
}

std::size_t Node::takeApart()
{
  std::vector<std::shared_ptr<Node>> shares; // no node is destroyed before all are taken apart
  for (Node* const node : liveNodes()) {
    shares.insert(shares.end(), node->neighbours.begin(), node->neighbours.end());
    node->neighbours.clear();
  }
  shares.clear();
  return liveNodes().size();
}

}
